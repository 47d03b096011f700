// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// Makes the start-up calls with the installed theme, shows a button and fails unless its style sheet is in effect.
// Arguments: the theme's folder and one that can be written to.

#include "component/vela-button.h"

#include <ComponentStrings>
#include <ImageManager>
#include <StyleManager>
#include <UIPathManager>
#include <VelaButton>
#include <vela_components_version.h>

#include <QApplication>
#include <QColor>
#include <QImage>
#include <QRegularExpression>

#include <cstdio>
#include <cstdlib>

namespace {

void require(bool condition, const char *claim)
{
    if (!condition) {
        std::fprintf(stderr, "consumer: not so: %s\n", claim);
        std::exit(EXIT_FAILURE);
    }
}

QColor backgroundIn(const QString &styleSheet)
{
    static const QRegularExpression background(QStringLiteral("background-color:\\s*(#[0-9A-Fa-f]{6})"));
    return QColor(background.match(styleSheet).captured(1));
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    require(argc == 3, "two arguments are given");
    const QString theme = QString::fromLocal8Bit(argv[1]);
    const QString userData = QString::fromLocal8Bit(argv[2]);

    UIPathManager::getInstance()->setPath(QStringLiteral("resource_path"), theme);
    UIPathManager::getInstance()->setPath(QStringLiteral("user_data_path"), userData);
    ComponentStrings::getInstance()->installStrings({{QStringLiteral("ok"), QStringLiteral("Fine")}});
    ImageManager::getInstance()->initialize(ImageManager::INIT_LAZY);
    StyleManager::getInstance()->initialize({theme + QStringLiteral("/styles/buttons.qss")});

    VelaButton button(ComponentStrings::getInstance()->getString(QStringLiteral("ok")), VelaButton::ApplyButton);
    button.resize(120, 40);
    button.show();
    button.clearFocus();
    QCoreApplication::processEvents();

    require(button.text() == QStringLiteral("Fine"), "the button has its text");
    const QColor background = backgroundIn(getStyleSheet("component.apply_button", true));
    require(background.isValid(), "the installed sheet of the button names its background");
    const QImage picture = button.grab().toImage();
    require(picture.pixelColor(10, picture.height() / 2) == background, "the button is painted in that background");
    require(!getGlobalImage("bt_settings", ImageManager::IMAGE_NORMAL).isNull(), "the installed theme has an image");

    std::puts(VELA_COMPONENTS_VERSION_STRING);
    return EXIT_SUCCESS;
}
