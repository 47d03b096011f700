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

bool SheetWindow::showAndWait()
{
    show();
    return QTest::qWaitForWindowActive(this);
}

void SheetWindow::press(int key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(windowHandle(), static_cast<Qt::Key>(key), modifiers);
}

void SheetWindow::clickOn(const QWidget *widget)
{
    QTest::mouseClick(windowHandle(), Qt::LeftButton, {}, widget->mapTo(this, widget->rect().center()));
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

ModalSheet::ModalSheet(Kind kind, QWidget *window)
{
    const QString text = QStringLiteral("Is it so?");
    if (kind == Message) {
        m_sheet = std::make_unique<VelaMessageSheet>(VelaMessageSheet::QuestionMessage, text, window);
    } else {
        m_sheet = std::make_unique<VelaInputSheet>(text, window);
    }
    m_message = qobject_cast<VelaMessageSheet *>(m_sheet.get());
    m_input = qobject_cast<VelaInputSheet *>(m_sheet.get());
    VelaMask::createMask(m_sheet.get(), window, QColor(0, 0, 0, 20));
}

ModalSheet::~ModalSheet() = default;

template<typename Use>
auto ModalSheet::use(const Use &use) const
{
    return m_message ? use(m_message) : use(m_input);
}

VelaSheet *ModalSheet::get() const
{
    return m_sheet.get();
}

VelaSheet *ModalSheet::operator->() const
{
    return m_sheet.get();
}

VelaSheet *ModalSheet::release()
{
    return m_sheet.release();
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

void ModalSheet::setBlockWindowButton(bool block)
{
    use([block](auto *sheet) { sheet->setBlockWindowButton(block); });
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
