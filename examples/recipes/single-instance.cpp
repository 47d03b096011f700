// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// A second start shows its file in the window of the first and ends.

#include <QtSingleApplication>
#include <VelaLabel>
#include <VelaTheme>

#include <QFileInfo>

#include <cstdlib>

int main(int argc, char **argv)
{
    QtSingleApplication application(QStringLiteral("vela-recipe-") + qEnvironmentVariable("DISPLAY"), argc, argv);
    // The first one may have been started in another folder.
    const QString file = QFileInfo(application.arguments().value(1)).absoluteFilePath();
    if (application.sendMessage(file)) {
        return EXIT_SUCCESS;
    }
    if (application.isRunning()) {
        return EXIT_FAILURE; // it does not answer
    }
    VelaTheme::getInstance()->load(QStringLiteral(THEME), QStringLiteral("enu"));
    VelaLabel window(file);
    window.show();
    application.setActivationWindow(&window); // each message brings it to the front
    QObject::connect(&application, &QtSingleApplication::messageReceived, &window, &VelaLabel::setText);
    return QtSingleApplication::exec();
}
