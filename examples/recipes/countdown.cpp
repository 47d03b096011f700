// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// Something that happens by itself unless it is cancelled in time.

#include <VelaButton>
#include <VelaCountdownMessageBox>
#include <VelaTheme>

#include <QApplication>
#include <QVBoxLayout>

namespace {

constexpr int Seconds = 10;

void shutDown(QWidget *window)
{
    VelaCountdownMessageBox box(Seconds, window);
    box.setWindowTitle(QStringLiteral("Shut down"));
    box.setIcon(QMessageBox::Warning);
    box.setText(QStringLiteral("The computer is shut down when the time is up."));
    box.setEscapeButton(box.button(QMessageBox::Discard)); // Escape is ignored otherwise
    if (box.exec() == QMessageBox::Ok) {
        window->close();
    }
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    VelaTheme::getInstance()->load(application.arguments().value(1, QStringLiteral(THEME)), QStringLiteral("enu"));
    QWidget window;
    window.resize(640, 400);
    auto *button = new VelaButton(QStringLiteral("Shut down"), VelaButton::RedButton);
    auto *layout = new QVBoxLayout(&window);
    layout->addWidget(button);
    QObject::connect(button, &VelaButton::clicked, &window, [&window] { shutDown(&window); });
    window.show();
    return application.exec();
}
