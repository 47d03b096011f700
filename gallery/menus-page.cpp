// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "chrome.h"
#include "gallery-page.h"
#include "pages.h"

#include <VelaButton>
#include <VelaMenu>

#include <QApplication>
#include <QHBoxLayout>
#include <QScreen>

namespace {

struct Corner
{
    const char *caption;
    bool isRight;
    bool isBottom;
};

constexpr Corner Corners[] = {
    {"Top left", false, false},
    {"Top right", true, false},
    {"Bottom left", false, true},
    {"Bottom right", true, true},
};

constexpr int Outside = 30; // pixels by which a menu is asked to stand out of the screen

VelaMenu *createMenu(GalleryPage *page, QWidget *parent)
{
    auto *menu = new VelaMenu(parent);
    followSections(menu, {QStringLiteral("component.menu")});
    menu->addAction(QStringLiteral("Open"));
    menu->addAction(QStringLiteral("Rename"));
    QAction *checked = menu->addAction(QStringLiteral("Keep offline"));
    checked->setCheckable(true);
    checked->setChecked(true);
    menu->addSeparator();
    QMenu *share = menu->addMenu(QStringLiteral("Share"));
    followSections(share, {QStringLiteral("component.menu")});
    share->addAction(QStringLiteral("Copy the link"));
    share->addAction(QStringLiteral("Send by mail"));
    menu->addAction(QStringLiteral("Restore"))->setEnabled(false);
    menu->addAction(QStringLiteral("Delete"));
    QObject::connect(menu, &QMenu::triggered, page, [page](const QAction *action) {
        Q_EMIT page->logged(QStringLiteral("Menu: triggered(\"%1\")").arg(action->text()));
    });
    return menu;
}

// A menu in the page, so that its look is seen without opening one. It would leave a place that is not on a screen, for
// which it takes its place in the widget around it.
QWidget *createPicture(GalleryPage *page)
{
    auto *frame = new QWidget;
    VelaMenu *menu = createMenu(page, frame);
    menu->setWindowFlags(Qt::Widget);
    followTheme(menu, [menu] { menu->setFixedSize(menu->sizeHint()); });
    menu->setActiveAction(menu->actions().at(1));
    auto *layout = new QHBoxLayout(frame);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(menu);
    return frame;
}

// Where a menu of size stands out of the screen's corner.
QPoint outsideOf(const QRect &screen, const Corner &corner, const QSize &size)
{
    return {corner.isRight ? screen.right() - size.width() + Outside : screen.left() - Outside,
            corner.isBottom ? screen.bottom() - size.height() + Outside : screen.top() - Outside};
}

void addCorners(GalleryPage *page)
{
    page->addSection(QStringLiteral("At a corner of the screen"),
                     QStringLiteral("Each menu is opened so that it would stand out, and moves back in."));
    for (const Corner &corner : Corners) {
        auto *button = new VelaButton(QStringLiteral("Open"), VelaButton::DefaultButton);
        VelaMenu *menu = createMenu(page, button);
        QObject::connect(button, &VelaButton::clicked, page, [page, menu, corner] {
            const QRect screen = page->screen()->availableGeometry();
            menu->popup(outsideOf(screen, corner, menu->sizeHint()));
            Q_EMIT page->logged(QStringLiteral("Menu: at %1, %2").arg(menu->x()).arg(menu->y()));
        });
        page->addExample(QString::fromLatin1(corner.caption), {}, {button});
    }
}

} // namespace

GalleryPage *createMenusPage(const QString &title)
{
    auto *page = new GalleryPage(title, QStringLiteral("VelaMenu moves when it would stick out of its screen."));
    page->addSection(QStringLiteral("VelaMenu"),
                     QStringLiteral("Its style is the client's choice: component.menu here."));
    page->addExample(QStringLiteral("Menu"), QStringLiteral("component.menu"), {createPicture(page)});
    addCorners(page);
    return page;
}
