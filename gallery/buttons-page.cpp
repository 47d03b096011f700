// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "chrome.h"
#include "gallery-page.h"
#include "pages.h"
#include "scale/scaled.h"
#include "widget-states.h"

#include <ComponentStrings>
#include <DPIinfo>
#include <ImageManager>
#include <VelaButton>
#include <VelaMenu>

#include <QApplication>
#include <QPainter>
#include <QPalette>

namespace {

struct TextButtonRow
{
    int kind;
    const char *name;
    const char *detail;
    const char *text;
};

constexpr TextButtonRow TextButtons[] = {
    {VelaButton::ApplyButton, "ApplyButton", "component.apply_button", "Apply"},
    {VelaButton::CancelButton, "CancelButton", "component.cancel_button", "Cancel"},
    {VelaButton::DefaultButton, "DefaultButton", "component.default_button", "Browse"},
    {VelaButton::RedButton, "RedButton", "component.red_button", "Delete"},
    {VelaButton::SelectPagingButton, "SelectPagingButton", "component.select_paging_button", "3"},
    {VelaButton::NonselectPagingButton, "NonselectPagingButton", "component.nonselect_paging_button", "4"},
    {6, "Any other number", "no style sheet", "Plain"},
};

struct IconButtonRow
{
    const char *image;
    const char *toolTip;
};

constexpr IconButtonRow IconButtons[] = {
    {"bt_add", "Add"},
    {"bt_delete", "Delete"},
    {"bt_settings", "Settings"},
    {"bt_help", "Help"},
};

constexpr int DiscSize = 24;

template<typename Button>
Button *logged(GalleryPage *page, const QString &caption, Button *button)
{
    page->logSignal(caption, button, &QAbstractButton::pressed);
    page->logSignal(caption, button, &QAbstractButton::released);
    page->logSignal(caption, button, &QAbstractButton::clicked);
    return button;
}

VelaButton *createLogged(GalleryPage *page, const QString &text, int kind)
{
    return logged(page, text, new VelaButton(text, kind));
}

// A button to try, which logs its signals, and the states of others like it.
template<typename Create>
void addStates(GalleryPage *page, const QString &caption, const QString &detail, const QString &logCaption,
               Create create)
{
    const QList<QWidget *> widgets = inAllStates(create);
    logged(page, logCaption, static_cast<QAbstractButton *>(widgets.constFirst()));
    page->addExample(caption, detail, widgets);
}

void addTextButtons(GalleryPage *page)
{
    page->addSection(QStringLiteral("VelaButton"), QStringLiteral("Text buttons, by what they are for."),
                     stateColumns());
    for (const TextButtonRow &row : TextButtons) {
        const QString text = QString::fromLatin1(row.text);
        addStates(page, QString::fromLatin1(row.name), QString::fromLatin1(row.detail), text,
                  [&] { return new VelaButton(text, row.kind); });
    }
}

// A button with the text of that key in each language.
VelaButton *createTranslated(GalleryPage *page, const QString &key, int kind)
{
    VelaButton *button = createLogged(page, ComponentStrings::getInstance()->getString(key), kind);
    followTheme(button, [button, key] { button->setText(ComponentStrings::getInstance()->getString(key)); });
    return button;
}

void addTexts(GalleryPage *page)
{
    page->addSection(QStringLiteral("Texts"), QStringLiteral("A button is as wide as its text."));
    page->addExample(QStringLiteral("From the string table"), QStringLiteral("\"ok\", \"cancel\""),
                     {createTranslated(page, QStringLiteral("ok"), VelaButton::ApplyButton),
                      createTranslated(page, QStringLiteral("cancel"), VelaButton::CancelButton)});
    page->addExample(QStringLiteral("With a mnemonic"), QStringLiteral("Alt+S"),
                     {createLogged(page, QStringLiteral("&Save as"), VelaButton::DefaultButton)});
    page->addExample(
        QStringLiteral("Long"), {},
        {createLogged(page, QStringLiteral("Move all selected documents to the archive and remove them here"),
                      VelaButton::DefaultButton)});
}

VelaIconButton *createIconButton(const QString &image, const QString &toolTip)
{
    auto *button = new VelaIconButton(image);
    button->setToolTip(toolTip);
    button->setAccessibleName(toolTip);
    return button;
}

// A round picture, sharp at the screen's scale and device pixel ratio.
QPixmap createDisc(QPalette::ColorGroup group, QPalette::ColorRole role)
{
    const double ratio = DPIinfo::getInstance()->getDPR();
    const int size = static_cast<int>(scaled(DiscSize) * ratio);
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QApplication::palette().brush(group, role));
    painter.drawEllipse(pixmap.rect());
    painter.end();
    pixmap.setDevicePixelRatio(ratio);
    return pixmap;
}

VelaIconButton *createOneDiscButton()
{
    auto *button = new VelaIconButton(QPixmap());
    followTheme(button, [button] { button->setDefaultIcon(createDisc(QPalette::Normal, QPalette::PlaceholderText)); });
    return button;
}

VelaIconButton *createDiscButton()
{
    VelaIconButton *button = createOneDiscButton();
    followTheme(button, [button] {
        button->setHoverIcon(createDisc(QPalette::Normal, QPalette::Highlight));
        button->setPressIcon(createDisc(QPalette::Normal, QPalette::Text));
        button->setDisableIcon(createDisc(QPalette::Disabled, QPalette::Text));
    });
    return button;
}

void addIconButtons(GalleryPage *page)
{
    page->addSection(
        QStringLiteral("VelaIconButton"),
        QStringLiteral("Image buttons (component.icon_button). The image follows the state of the button."),
        stateColumns());
    for (const IconButtonRow &row : IconButtons) {
        const QString image = QString::fromLatin1(row.image);
        const QString toolTip = QString::fromLatin1(row.toolTip);
        addStates(page, toolTip, image, toolTip, [&] { return createIconButton(image, toolTip); });
    }
    addStates(page, QStringLiteral("One pixmap"), QStringLiteral("VelaIconButton(pixmap)"),
              QStringLiteral("One pixmap"), createOneDiscButton);
    addStates(page, QStringLiteral("Four pixmaps"), QStringLiteral("setHoverIcon() and the like"),
              QStringLiteral("Four pixmaps"), createDiscButton);
}

VelaMenu *createMenu(GalleryPage *page, VelaIconButton *button)
{
    auto *menu = new VelaMenu(button);
    followSections(menu, {QStringLiteral("component.menu")});
    for (const char *text : {"Rename", "Duplicate", "Delete"}) {
        menu->addAction(QString::fromLatin1(text));
    }
    QObject::connect(menu, &QMenu::triggered, page, [page](const QAction *action) {
        Q_EMIT page->logged(QStringLiteral("Menu: triggered(\"%1\")").arg(action->text()));
    });
    return menu;
}

void addChanges(GalleryPage *page)
{
    page->addSection(QStringLiteral("Icon buttons at work"), QStringLiteral("A menu opens at the first press."));

    VelaIconButton *withMenu = createIconButton(QStringLiteral("bt_search_dropdown"), QStringLiteral("More"));
    logged(page, QStringLiteral("More"), withMenu);
    withMenu->setMenu(createMenu(page, withMenu));
    page->addExample(QStringLiteral("With a menu"), QStringLiteral("setMenu()"), {withMenu});

    VelaIconButton *changed =
        createIconButton(QStringLiteral("bt_add"), QStringLiteral("Changed by the buttons beside it"));
    logged(page, QStringLiteral("Changed button"), changed);
    auto *help = createLogged(page, QStringLiteral("Help image"), VelaButton::DefaultButton);
    auto *unknown = createLogged(page, QStringLiteral("Unknown image"), VelaButton::DefaultButton);
    auto *enable = createLogged(page, QStringLiteral("Disable or enable"), VelaButton::DefaultButton);
    QObject::connect(help, &VelaButton::clicked, changed,
                     [changed] { changed->setAllIcon(QStringLiteral("bt_help")); });
    QObject::connect(unknown, &VelaButton::clicked, changed,
                     [changed] { changed->setAllIcon(QStringLiteral("no_such_image")); });
    QObject::connect(enable, &VelaButton::clicked, changed, [changed] { changed->setEnabled(!changed->isEnabled()); });
    page->addExample(QStringLiteral("Changed while it is shown"), QStringLiteral("setAllIcon(), setEnabled()"),
                     {changed, help, unknown, enable});
}

} // namespace

GalleryPage *createButtonsPage(const QString &title)
{
    auto *page =
        new GalleryPage(title,
                        QStringLiteral("Each row begins with a button to try; beside it the same button is shown in "
                                       "the states that it takes."));
    addTextButtons(page);
    addTexts(page);
    addIconButtons(page);
    addChanges(page);
    return page;
}
