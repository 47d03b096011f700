// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// A question before something is destroyed: its button names what it does, and Escape cancels.

#include <VelaButton>
#include <VelaTheme>

#include "component/vela-msg-box.h"

#include <QApplication>
#include <QVBoxLayout>

namespace {

void removeAll(QWidget *window)
{
    const MsgBoxCustomBtnText captions(QStringLiteral("Delete"), QStringLiteral("Keep"));
    const QString question = QStringLiteral("Delete all 12 files? They cannot be brought back.");
    // Test for Ok: the other answer has one value from a sheet and another from a window.
    if (showConfirmMsgCustomBtn(QStringLiteral("Delete"), question, captions, window) == QMessageBox::Ok) {
        window->setWindowTitle(QStringLiteral("Deleted"));
    }
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    VelaTheme::getInstance()->load(application.arguments().value(1, QStringLiteral(THEME)), QStringLiteral("enu"));
    QWidget window;
    window.resize(640, 400);
    auto *button = new VelaButton(QStringLiteral("Delete all"), VelaButton::RedButton);
    auto *layout = new QVBoxLayout(&window);
    layout->addWidget(button);
    QObject::connect(button, &VelaButton::clicked, &window, [&window] { removeAll(&window); });
    window.show();
    return application.exec();
}
