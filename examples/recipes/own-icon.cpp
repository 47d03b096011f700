// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// A theme of one's own, with an icon of one's own: CMakeLists.txt makes it of own-theme/ and own-theme.json.

#include <VelaButton>
#include <VelaTheme>

#include <QApplication>
#include <QVBoxLayout>

int main(int argc, char **argv)
{
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps); // sharp at a device pixel ratio above 1
    QApplication application(argc, argv);
    const VelaTheme::Problems problems =
        VelaTheme::getInstance()->load(QStringLiteral(OWN_THEME), QStringLiteral("enu"));
    for (const VelaTheme::Problem &problem : problems) {
        qWarning("%s", qPrintable(problem.toString()));
    }
    QWidget window;
    auto *star = new VelaIconButton(QStringLiteral("bt_star")); // hovered, pressed and disabled from one drawing
    star->setAccessibleName(QStringLiteral("Favourite"));
    star->setToolTip(star->accessibleName());
    auto *layout = new QVBoxLayout(&window);
    layout->addWidget(star);
    layout->addWidget(new VelaButton(QStringLiteral("In the own accent"), VelaButton::ApplyButton));
    window.show();
    return application.exec();
}
