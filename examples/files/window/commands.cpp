// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "commands.h"

#include "disk/native-path.h"
#include "operations/naming.h"
#include "operations/removal.h"
#include "properties.h"
#include "sheets.h"
#include "texts/texts.h"

#include <QDesktopServices>
#include <QLocale>
#include <QUrl>

#include <cerrno>

namespace {

constexpr int CountdownSeconds = 10;
constexpr int MostTold = 4; // errors in a sheet

QString shownPath(const QString &path)
{
    return shownName(nameOfPath(path)).toHtmlEscaped();
}

// The file's name if it is one, their number otherwise.
QString whichFiles(const QStringList &paths)
{
    return paths.size() == 1 ? text("quoted").arg(shownPath(paths.constFirst()))
                             : text("count").arg(QLocale().toString(paths.size()));
}

QString nameFault(const QString &name)
{
    const char *fault = faultOfName(name);
    return fault ? text(fault) : QString();
}

QString detailsOf(const QVector<DiskError> &errors)
{
    QStringList lines;
    const QVector<DiskError> told = errors.mid(0, MostTold);
    for (const DiskError &error : told) {
        lines.append(text("error_line").arg(shownPath(error.path), reasonOf(error).toHtmlEscaped()));
    }
    if (errors.size() > MostTold) {
        lines.append(text("and_more").arg(QLocale().toString(errors.size() - MostTold)));
    }
    return lines.join(QStringLiteral("<br>"));
}

} // namespace

Commands::Commands(Sheets *sheets, Job *job, QObject *parent) : QObject(parent), m_sheets(sheets), m_job(job) { }

Commands::~Commands() = default;

void Commands::createFolder(const QString &folder)
{
    askForName("new_folder_prompt", text("new_folder_name"), folder,
               [folder](const QString &name) { return ::createFolder(joinedPath(folder, name)); });
}

void Commands::rename(const QString &path)
{
    const QString folder = parentOfPath(path);
    const QString former = nameOfPath(path);
    const bool isReadable = shownName(former) == former;
    askForName("rename_prompt", isReadable ? former : shownName(former), folder, [=](const QString &name) {
        return name == former ? DiskError() : renameFile(path, joinedPath(folder, name));
    });
}

// What is there already can be cured by another name; anything else is told in a sheet of its own.
void Commands::askForName(const char *promptKey, const QString &proposal, const QString &folder,
                          const std::function<DiskError(const QString &)> &act)
{
    m_sheets->askForName(text(promptKey), proposal, nameFault, [this, act, folder](const QString &name) {
        const DiskError error = act(name);
        if (error.code == EEXIST || error.code == ENAMETOOLONG) {
            return reasonOf(error);
        }
        if (error) {
            m_sheets->warn(text("not_done"), detailsOf({{error.code, joinedPath(folder, name)}}));
        }
        Q_EMIT done(error ? QString() : name);
        return QString();
    });
}

void Commands::trash(const QStringList &paths)
{
    m_sheets->ask(text("trash_question").arg(whichFiles(paths)), text("trash_details"), text("trash"), [this, paths] {
        m_job->start([paths](Progress *progress) { return moveToTrash(paths, progress); },
                     [this](const Outcome &outcome) { tell("trash_failed", outcome); },
                     [this] { m_sheets->showBusy(text("trashing")); });
    });
}

void Commands::removeForGood(const QStringList &paths)
{
    m_sheets->countDown(CountdownSeconds, text("delete"), text("delete_warning").arg(whichFiles(paths)), [this, paths] {
        m_job->start([paths](Progress *progress) { return ::removeForGood(paths, progress); },
                     [this](const Outcome &outcome) { tell("delete_failed", outcome); },
                     [this] { m_sheets->showBusy(text("deleting")); });
    });
}

void Commands::transfer(const TransferRequest &request)
{
    m_job->start(
        [request](Progress *progress) { return ::transfer(request, progress); },
        [this, request](const Outcome &outcome) { tell(request.isMove ? "move_failed" : "copy_failed", outcome); });
}

void Commands::showProperties(const QString &path)
{
    m_sheets->inform(shownPath(path), propertiesOf(path));
}

void Commands::open(const QString &path)
{
    if (!isKnownToToolkit(path) || !QDesktopServices::openUrl(QUrl::fromLocalFile(path))) {
        m_sheets->warn(text("not_opened").arg(shownPath(path)), text("not_opened_details"));
    }
}

void Commands::tellOfFolder(const DiskError &error)
{
    m_sheets->warn(text("folder_failed").arg(shownPath(error.path)), reasonOf(error).toHtmlEscaped());
}

void Commands::tell(const char *messageKey, const Outcome &outcome)
{
    m_sheets->hideBusy();
    if (!outcome.errors.isEmpty()) {
        m_sheets->warn(text(messageKey), detailsOf(outcome.errors));
    } else if (outcome.isStopped) {
        m_sheets->inform(text("stopped"), text("stopped_details"));
    }
    Q_EMIT done(outcome.made.value(0));
}
