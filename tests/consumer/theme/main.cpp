// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// Shows a button, an icon, a label and an animation of the theme and fails unless each has the colours that the palette
// gives it. Arguments: the theme's folder and one that can be written to.

#include <ComponentStrings>
#include <ImageManager>
#include <StyleManager>
#include <UIPathManager>
#include <VelaButton>

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QMouseEvent>

#include <cstdio>
#include <cstdlib>

namespace {

const QColor Accent(0x00, 0x69, 0x5C); // listed in the palette
const QColor AccentHovered(0x03, 0x5F, 0x55); // the accent with 14 hundredths of the text in it
const QColor AccentPressed(0x08, 0x4F, 0x4A); // the accent with 36 hundredths of the text in it
const QColor Brand(0x8E, 0x24, 0xAA); // listed in the palette
const QColor Icon(0x4A, 0x58, 0x68); // a colour of the light palette, like the next one
const QColor DisabledIcon(0xA7, 0xB2, 0xBF);

void require(bool condition, const char *claim)
{
    if (!condition) {
        std::fprintf(stderr, "theme-consumer: not so: %s\n", claim);
        std::exit(EXIT_FAILURE);
    }
}

void startWith(const QString &theme, const QString &userData)
{
    UIPathManager::getInstance()->setPath(QStringLiteral("resource_path"), theme);
    UIPathManager::getInstance()->setPath(QStringLiteral("user_data_path"), userData);
    ComponentStrings::getInstance()->installStrings({});
    ImageManager::getInstance()->initialize(ImageManager::INIT_LAZY);
    StyleManager::getInstance()->initialize(
        {theme + QStringLiteral("/styles/buttons.qss"), theme + QStringLiteral("/styles/acme.qss")});
}

void sendMouse(QWidget *widget, QEvent::Type type, Qt::MouseButton button)
{
    QMouseEvent event(type, widget->rect().center(), button, button, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

void hover(QWidget *widget)
{
    const QPointF center = widget->rect().center();
    QEnterEvent event(center, center, center);
    widget->setAttribute(Qt::WA_UnderMouse);
    QCoreApplication::sendEvent(widget, &event);
    sendMouse(widget, QEvent::MouseMove, Qt::NoButton);
}

QColor colorAt(QWidget *widget, const QPoint &point)
{
    return widget->grab().toImage().pixelColor(point);
}

void checkButton()
{
    VelaButton button(QString(), VelaButton::ApplyButton);
    button.resize(120, 40);
    button.show();
    button.clearFocus();
    const QPoint center = button.rect().center();
    require(colorAt(&button, center) == Accent, "a button has the palette's accent");
    hover(&button);
    require(colorAt(&button, center) == AccentHovered, "a hovered button has a darker accent");
    sendMouse(&button, QEvent::MouseButtonPress, Qt::LeftButton);
    require(colorAt(&button, center) == AccentPressed, "a pressed button has a still darker accent");
}

void checkIcon()
{
    VelaIconButton star(QStringLiteral("bt_star"));
    star.show();
    star.clearFocus();
    const QPoint center = star.rect().center();
    require(colorAt(&star, center) == Icon, "the star has the colour of icons");
    hover(&star);
    require(colorAt(&star, center) == Accent, "the hovered star has the accent");
    sendMouse(&star, QEvent::MouseButtonPress, Qt::LeftButton);
    require(colorAt(&star, center) == AccentPressed, "the pressed star has the darker accent");
    sendMouse(&star, QEvent::MouseButtonRelease, Qt::LeftButton);
    star.setEnabled(false);
    require(colorAt(&star, center) == DisabledIcon, "the disabled star has the colour of disabled icons");
    require(!getGlobalImage("bt_settings", ImageManager::IMAGE_HOVER).isNull(),
            "the reference theme's icons are there");
}

void checkOwnSheet()
{
    QLabel banner;
    banner.setStyleSheet(getStyleSheet("acme.banner", false));
    banner.resize(40, 40);
    banner.show();
    require(colorAt(&banner, banner.rect().center()) == Brand, "a label of an own sheet has the colour of an own role");
}

void checkAnimation(const QString &theme)
{
    const QImage picture(theme + QStringLiteral("/animations/processing.gif"));
    bool isThere = false;
    for (int y = 0; y < picture.height() && !isThere; ++y) {
        for (int x = 0; x < picture.width() && !isThere; ++x) {
            isThere = picture.pixelColor(x, y) == Accent;
        }
    }
    require(isThere, "the animation has the accent");
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    require(argc == 3, "two arguments are given");
    const QString theme = QString::fromLocal8Bit(argv[1]);
    startWith(theme, QString::fromLocal8Bit(argv[2]));
    checkButton();
    checkIcon();
    checkOwnSheet();
    checkAnimation(theme);
    return EXIT_SUCCESS;
}
