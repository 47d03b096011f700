// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "render.h"

#include "stage.h"
#include "text-check.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QLoggingCategory>
#include <QProcess>

#include <algorithm>

namespace {

constexpr RenderScreen Screens[] = {
    {"1", "96", "1"}, {"1.25", "120", "1"}, {"1.5", "144", "1"}, {"2", "192", "1"}, {"2x", "96", "2"},
};

const QString ListName = QStringLiteral("cells.txt");
const QString SheetName = QStringLiteral("index.html");
const char KeptEnding[] = "-1-ltr";

QString fileOf(const QString &folder, const QString &cell)
{
    return folder + u'/' + cell + QStringLiteral(".png");
}

// Of the pixels, not of the file, so that another compression makes no difference.
QString hashOf(const QImage &image)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(QStringLiteral("%1x%2").arg(image.width()).arg(image.height()).toLatin1());
    for (int y = 0; y < image.height(); ++y) {
        hash.addData(reinterpret_cast<const char *>(image.constScanLine(y)), image.width() * 4);
    }
    return QString::fromLatin1(hash.result().toHex().left(16));
}

QImage readPicture(const QString &folder, const QString &cell)
{
    return QImage(fileOf(folder, cell)).convertToFormat(QImage::Format_RGB32);
}

bool writeText(const QString &path, const QString &text)
{
    QFile file(path);
    const QByteArray content = text.toUtf8();
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

QString listLine(const QString &cell, const QString &hash)
{
    return cell + u' ' + hash + u'\n';
}

// "name-state-screen-direction" without what is behind the widget's name and state.
QString rowOf(const QString &cell)
{
    return cell.section(u'-', 0, -3);
}

QString contactSheet(const QStringList &cells)
{
    QString html =
        QStringLiteral("<!DOCTYPE html>\n<html lang=\"en\">\n<meta charset=\"utf-8\">\n<title>All widgets</title>\n"
                       "<style>body { font: 13px sans-serif; } td { padding: 4px; vertical-align: top; }</style>\n"
                       "<table>\n<tr><th>Widget and state</th>");
    QStringList columns;
    for (const RenderScreen &screen : Screens) {
        for (const char *direction : {"ltr", "rtl"}) {
            columns.append(QStringLiteral("%1-%2").arg(QLatin1String(screen.name), QLatin1String(direction)));
            html += QStringLiteral("<th>%1, %2</th>").arg(QLatin1String(screen.name), QLatin1String(direction));
        }
    }
    html += QStringLiteral("</tr>\n");
    QStringList rows;
    for (const QString &cell : cells) {
        if (!rows.contains(rowOf(cell))) {
            rows.append(rowOf(cell));
        }
    }
    for (const QString &row : qAsConst(rows)) {
        html += QStringLiteral("<tr><td>%1</td>").arg(row);
        for (const QString &column : qAsConst(columns)) {
            const QString cell = row + u'-' + column;
            html += cells.contains(cell) ? QStringLiteral("<td><img src=\"%1.png\" alt=\"%1\"></td>").arg(cell)
                                         : QStringLiteral("<td></td>");
        }
        html += QStringLiteral("</tr>\n");
    }
    return html + QStringLiteral("</table>\n");
}

// Where the pictures differ in red, over what they have in common, faintly.
QImage differenceOf(const QImage &before, const QImage &after, int *count)
{
    QImage difference(before.size().expandedTo(after.size()), QImage::Format_RGB32);
    *count = 0;
    for (int y = 0; y < difference.height(); ++y) {
        for (int x = 0; x < difference.width(); ++x) {
            const bool isInBoth = before.rect().contains(x, y) && after.rect().contains(x, y);
            if (isInBoth && before.pixel(x, y) == after.pixel(x, y)) {
                const int grey = 191 + qGray(after.pixel(x, y)) / 4;
                difference.setPixel(x, y, qRgb(grey, grey, grey));
            } else {
                difference.setPixel(x, y, qRgb(220, 0, 0));
                ++*count;
            }
        }
    }
    return difference;
}

} // namespace

int renderScreenCount()
{
    return static_cast<int>(std::size(Screens));
}

void prepareRenderScreen(int screen)
{
    qputenv("QT_FONT_DPI", Screens[screen].fontDpi);
    qputenv("QT_SCALE_FACTOR", Screens[screen].scaleFactor);
}

QString renderScreen(const QString &folder, const QString &output, int screen)
{
    // What a theme lacks is for the check to say.
    QLoggingCategory::setFilterRules(QStringLiteral("debug.message.warning=false"));
    useTheme(folder, mainLanguageOf(folder));

    QString list;
    for (const StageWidget &widget : stageWidgets()) {
        for (const StageState state : widget.states) {
            for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
                const QString cell =
                    QStringLiteral("%1-%2-%3-%4")
                        .arg(QLatin1String(widget.name), nameOf(state), QLatin1String(Screens[screen].name),
                             direction == Qt::LeftToRight ? QStringLiteral("ltr") : QStringLiteral("rtl"));
                const QImage picture = StagedWidget(widget, state, direction).picture();
                if (!picture.save(fileOf(output, cell), "PNG")) {
                    return QStringLiteral("Cannot write '%1'.").arg(fileOf(output, cell));
                }
                list += listLine(cell, hashOf(picture));
            }
        }
    }
    const QString part = output + QStringLiteral("/cells-%1.part").arg(screen);
    return writeText(part, list) ? QString() : QStringLiteral("Cannot write '%1'.").arg(part);
}

QString renderTheme(const QString &folder, const QString &output)
{
    if (!QDir().mkpath(output)) {
        return QStringLiteral("Cannot make the folder '%1'.").arg(output);
    }
    const QDir dir(output);
    const QStringList old = dir.entryList({QStringLiteral("*-ltr.png"), QStringLiteral("*-rtl.png")}, QDir::Files);
    for (const QString &file : old) {
        QFile::remove(dir.filePath(file));
    }
    QString list;
    for (int screen = 0; screen < renderScreenCount(); ++screen) {
        QProcess process;
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start(QCoreApplication::applicationFilePath(),
                      {QStringLiteral("render"), folder, output, QStringLiteral("--screen"), QString::number(screen)});
        if (!process.waitForFinished(-1) || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
            return QStringLiteral("The widgets could not be rendered for screen %1.")
                .arg(QLatin1String(Screens[screen].name));
        }
        QFile part(dir.filePath(QStringLiteral("cells-%1.part").arg(screen)));
        list += part.open(QIODevice::ReadOnly) ? QString::fromUtf8(part.readAll()) : QString();
        part.remove();
    }
    if (!writeText(dir.filePath(ListName), list)) {
        return QStringLiteral("Cannot write to '%1'.").arg(output);
    }
    QStringList cells;
    const QStringList lines = list.split(u'\n', Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        cells.append(line.section(u' ', 0, 0));
    }
    return writeText(dir.filePath(SheetName), contactSheet(cells))
        ? QString()
        : QStringLiteral("Cannot write to '%1'.").arg(output);
}

QMap<QString, QString> renderedCells(const QString &folder)
{
    QMap<QString, QString> cells;
    QFile file(folder + u'/' + ListName);
    if (file.open(QIODevice::ReadOnly)) {
        const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
        for (const QString &line : lines) {
            cells.insert(line.section(u' ', 0, 0), line.section(u' ', 1));
        }
    }
    return cells;
}

void makeCompact(const QString &folder)
{
    const QDir dir(folder);
    QFile::remove(dir.filePath(SheetName));
    const QStringList pictures = dir.entryList({QStringLiteral("*.png")}, QDir::Files);
    for (const QString &file : pictures) {
        if (!file.chopped(4).endsWith(QLatin1String(KeptEnding))) {
            QFile::remove(dir.filePath(file));
        }
    }
}

QStringList compareRendered(const QString &approved, const QString &rendered, const QString &output)
{
    const QMap<QString, QString> before = renderedCells(approved);
    const QMap<QString, QString> after = renderedCells(rendered);
    QMap<QString, QString> all = before;
    all.insert(after);
    QStringList lines;
    for (auto it = all.cbegin(); it != all.cend(); ++it) {
        const QString &cell = it.key();
        if (!after.contains(cell)) {
            lines.append(QStringLiteral("%1: gone").arg(cell));
        } else if (!before.contains(cell)) {
            lines.append(QStringLiteral("%1: new").arg(cell));
        } else if (before.value(cell) != after.value(cell)) {
            const QImage old = readPicture(approved, cell);
            const QImage now = readPicture(rendered, cell);
            int count = 0;
            const QImage difference = differenceOf(old, now, &count);
            lines.append(old.isNull() ? QStringLiteral("%1: differs").arg(cell)
                                      : QStringLiteral("%1: %2 of %3 pixels differ")
                                            .arg(cell)
                                            .arg(count)
                                            .arg(difference.width() * difference.height()));
            if (!output.isEmpty() && QDir().mkpath(output)) {
                difference.save(fileOf(output, cell), "PNG");
            }
        }
    }
    return lines;
}
