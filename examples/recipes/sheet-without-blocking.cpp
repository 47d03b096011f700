// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// A message that waits for its answer while the code goes on.

#include <VelaButton>
#include <VelaMask>
#include <VelaMessageSheet>
#include <VelaTheme>

#include <QApplication>
#include <QVBoxLayout>

namespace {

void tell(QWidget *window)
{
    auto *sheet = new VelaMessageSheet(VelaMessageSheet::InfoMessage, QStringLiteral("12 files were copied."), window);
    VelaMask::createMask(sheet, window, QColor(0, 0, 0, 20));
    // The mask would stay in the window, hidden; it takes the sheet along.
    QObject::connect(sheet, &VelaSheet::finished, sheet->parentWidget(), &QObject::deleteLater);
    QObject::connect(sheet, &VelaSheet::finished, window, [window] { window->setWindowTitle(QStringLiteral("Read")); });
    sheet->showSheet();
    sheet->setFocus(Qt::TabFocusReason); // only exec() moves the focus there by itself
    window->setWindowTitle(QStringLiteral("Not read yet"));
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    VelaTheme::getInstance()->load(application.arguments().value(1, QStringLiteral(THEME)), QStringLiteral("enu"));
    QWidget window;
    window.resize(640, 400);
    auto *button = new VelaButton(QStringLiteral("Tell"), VelaButton::DefaultButton);
    auto *layout = new QVBoxLayout(&window);
    layout->addWidget(button);
    QObject::connect(button, &VelaButton::clicked, &window, [&window] { tell(&window); });
    window.show();
    return application.exec();
}
