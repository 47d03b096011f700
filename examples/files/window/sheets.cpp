// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "sheets.h"

#include "texts/texts.h"

#include <UIPathManager>
#include <VelaCountdownMessageBox>
#include <VelaMask>

#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QTimer>

#include <chrono>

using namespace std::chrono_literals;

namespace {

const QColor MaskColor(0, 0, 0, 20);
constexpr auto BusyAfter = 300ms;

// A mask would stay in the window, hidden, when its sheet has been answered.
void putIntoMask(VelaSheet *sheet, QWidget *window)
{
    VelaMask::createMask(sheet, window, MaskColor);
    QObject::connect(sheet, &VelaSheet::finished, sheet->parentWidget(), &QObject::deleteLater);
}

void showFault(VelaInputSheet *sheet, const QString &prompt, const QString &fault)
{
    const QString whole = fault.isEmpty() ? prompt : QString(prompt + u"<br><b>" + fault.toHtmlEscaped() + u"</b>");
    if (sheet->text() == whole) {
        return;
    }
    sheet->setText(whole);
    QLineEdit *field = sheet->getLineEdit();
    field->setProperty("error", !fault.isEmpty());
    field->style()->unpolish(field);
    field->style()->polish(field);
    field->setFocus();
}

} // namespace

Sheets::Sheets(QWidget *window) : QObject(window), m_window(window)
{
    m_busyTimer.setSingleShot(true);
    connect(&m_busyTimer, &QTimer::timeout, this, &Sheets::runBusy);
}

Sheets::~Sheets() = default;

void Sheets::warn(const QString &message, const QString &details)
{
    show(new VelaMessageSheet(VelaMessageSheet::WarningMessage, message, details, m_window), {});
}

void Sheets::inform(const QString &message, const QString &details)
{
    show(new VelaMessageSheet(VelaMessageSheet::InfoMessage, message, details, m_window), {});
}

void Sheets::ask(const QString &message, const QString &details, const QString &yes,
                 const std::function<void()> &agreed)
{
    auto *sheet =
        new VelaMessageSheet(VelaMessageSheet::QuestionMessage, message, MsgBoxCustomBtnText(yes, QString()), m_window);
    sheet->setInformativeText(details);
    show(sheet, agreed);
}

void Sheets::show(VelaMessageSheet *sheet, const std::function<void()> &agreed)
{
    putIntoMask(sheet, m_window);
    connect(sheet, &VelaSheet::finished, this, [agreed](int answer) {
        if (answer == QMessageBox::Ok && agreed) {
            agreed();
        }
    });
    sheet->showSheet();
    sheet->setFocus(Qt::TabFocusReason); // which exec() would do: keys would still go to what lies below
}

void Sheets::askForName(const QString &prompt, const QString &name, const Check &check, const Check &accept)
{
    auto *sheet = new VelaInputSheet(prompt, m_window);
    VelaMask::createMask(sheet, m_window, MaskColor);
    QLineEdit *field = sheet->getLineEdit();
    field->setText(name);
    const auto review = [sheet, prompt, check](const QString &entered) {
        const QString fault = check(entered);
        showFault(sheet, prompt, fault);
        sheet->button(QMessageBox::Ok)->setEnabled(fault.isEmpty());
    };
    connect(field, &QLineEdit::textEdited, sheet, review);
    connect(sheet, &VelaSheet::finished, this, [sheet, prompt, accept](int answer) {
        const QString fault = answer == QMessageBox::Ok ? accept(sheet->getContent()) : QString();
        if (fault.isEmpty()) {
            sheet->parentWidget()->deleteLater();
            return;
        }
        showFault(sheet, prompt, fault);
        sheet->showSheet();
    });
    sheet->button(QMessageBox::Ok)->setEnabled(check(name).isEmpty());
    sheet->showSheet();
    field->setSelection(0, name.lastIndexOf(u'.') > 0 ? name.lastIndexOf(u'.') : name.size());
}

void Sheets::countDown(int seconds, const QString &title, const QString &message, const std::function<void()> &passed)
{
    auto *box = new VelaCountdownMessageBox(seconds, m_window);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowTitle(title);
    box->setIcon(QMessageBox::Warning);
    box->setText(message);
    box->setEscapeButton(box->button(QMessageBox::Discard));
    connect(box, &QDialog::finished, this, [passed](int answer) {
        if (answer == QMessageBox::Ok) {
            passed();
        }
    });
    box->open();
}

void Sheets::showBusy(const QString &message)
{
    m_busyMessage = message;
    m_busyTimer.start(BusyAfter);
}

void Sheets::hideBusy()
{
    m_busyTimer.stop();
    if (m_busy) {
        m_busy->quit();
        m_busy.clear();
    }
}

// Only exec() runs the animation.
void Sheets::runBusy()
{
    const QString theme = UIPathManager::getInstance()->getPath(QStringLiteral("resource_path"));
    m_busy = new VelaMessageSheet(m_busyMessage, theme + QStringLiteral("/animations/processing.gif"), m_window);
    m_busy->setBlockWindowButton(false);
    putIntoMask(m_busy, m_window);
    m_busy->exec();
}
