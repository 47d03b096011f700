// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "support/modal-sheet.h"

#include "component/vela-input-sheet.h"
#include "component/vela-mask.h"
#include "component/vela-msg-sheet.h"
#include "support/controls.h"
#include "support/resource-folder.h"
#include "utils/component-strings.h"

#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <QtTest>

void installSheetTheme(ResourceFolder &folder)
{
    QStringList images;
    for (const char *name :
         {"app_img", "icon_information", "icon_question", "icon_warning", "bg_tutorial_l", "bg_tutorial_r",
          "bg_tutorial_t", "bg_tutorial_b", "bg_tutorial_lt", "bg_tutorial_rt", "bg_tutorial_lb", "bg_tutorial_rb"}) {
        images.append(QString::fromLatin1(name));
        folder.writeImage(images.last(), QSize(64, 64), Qt::gray);
    }
    folder.writeCatalogue(images);
    ComponentStrings::getInstance()->installStrings(
        {{QStringLiteral("ok"), QStringLiteral("OK")}, {QStringLiteral("cancel"), QStringLiteral("Cancel")}});
    installSheets(folder,
                  "== component.apply_button ==\nQPushButton { color: lime }\n"
                  "== component.cancel_button ==\nQPushButton { color: blue }\n"
                  "== component.lineedit ==\nQLineEdit { color: black }\n"
                  "== component.message_sheet_other ==\nQLabel { color: navy }\n"
                  "== component.message_sheet_processing ==\nQLabel { color: teal }\n"
                  "== component.message_sheet_text ==\nQLabel { color: maroon }\n");
}

SheetWindow::SheetWindow() : above(new QLineEdit), below(new QLineEdit)
{
    auto *column = new QVBoxLayout(this);
    column->addWidget(above);
    column->addWidget(below);
    resize(640, 400);
    above->setFocus();
}

void SheetWindow::press(int key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(windowHandle(), static_cast<Qt::Key>(key), modifiers);
}

bool SheetWindow::send(int key)
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    return QCoreApplication::sendEvent(this, &event);
}

void SheetWindow::closeEvent(QCloseEvent *event)
{
    ++closings;
    event->ignore();
}

void SheetWindow::keyPressEvent(QKeyEvent *event)
{
    ++keys;
    QWidget::keyPressEvent(event);
}

void ModalSheet::addKinds()
{
    QTest::addColumn<Kind>("kind");
    QTest::newRow("message") << Message;
    QTest::newRow("input") << Input;
}

ModalSheet::Kind ModalSheet::currentKind()
{
    QFETCH_GLOBAL(Kind, kind);
    return kind;
}

ModalSheet::ModalSheet(QWidget *parent) : ModalSheet(currentKind(), parent) { }

ModalSheet::ModalSheet(Kind kind, QWidget *parent)
{
    const QString text = QStringLiteral("Is it so?");
    if (kind == Message) {
        m_message = new VelaMessageSheet(VelaMessageSheet::QuestionMessage, text, parent);
        m_sheet = m_message;
    } else {
        m_input = new VelaInputSheet(text, parent);
        m_sheet = m_input;
    }
    VelaMask::createMask(m_sheet, parent, QColor(0, 0, 0, 20));
}

ModalSheet::~ModalSheet()
{
    delete m_sheet;
}

template<typename Use>
auto ModalSheet::use(const Use &use) const
{
    return m_message ? use(m_message) : use(m_input);
}

VelaSheet *ModalSheet::get() const
{
    return m_sheet;
}

VelaSheet *ModalSheet::operator->() const
{
    return m_sheet;
}

VelaSheet *ModalSheet::release()
{
    VelaSheet *sheet = m_sheet;
    m_sheet.clear();
    return sheet;
}

void ModalSheet::reset()
{
    delete m_sheet;
}

int ModalSheet::exec()
{
    return use([](auto *sheet) { return sheet->exec(); });
}

int ModalSheet::execute(const std::function<void()> &action)
{
    return use([&action](auto *sheet) { return ::execute(sheet, action); });
}

void ModalSheet::done(int result)
{
    use([result](auto *sheet) { sheet->done(result); });
}

void ModalSheet::quit()
{
    use([](auto *sheet) { sheet->quit(); });
}

void ModalSheet::buttonClick(QAbstractButton *button)
{
    use([button](auto *sheet) { sheet->buttonClick(button); });
}

void ModalSheet::setBlockWindowButton(bool block)
{
    use([block](auto *sheet) { sheet->setBlockWindowButton(block); });
}

void ModalSheet::setDefaultButton(QPushButton *button)
{
    use([button](auto *sheet) { sheet->setDefaultButton(button); });
}

QPushButton *ModalSheet::button(QMessageBox::StandardButton which) const
{
    return use([which](auto *sheet) { return sheet->button(which); });
}

QPushButton *ModalSheet::ok() const
{
    return button(QMessageBox::Ok);
}

QPushButton *ModalSheet::cancel() const
{
    return button(QMessageBox::Discard);
}

QWidget *ModalSheet::firstFocus() const
{
    if (m_input) {
        return m_input->getLineEdit();
    }
    return m_message->findChild<MessageLabel *>();
}

ShownSheet::ShownSheet() : sheet(&window)
{
    sheet.setBlockWindowButton(false);
}

QPushButton *ShownSheet::ok() const
{
    return sheet.ok();
}

QPushButton *ShownSheet::cancel() const
{
    return sheet.cancel();
}

int ShownSheet::execute(const std::function<void()> &action)
{
    return sheet.execute(action);
}
