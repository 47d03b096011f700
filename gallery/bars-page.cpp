// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "chrome.h"
#include "gallery-page.h"
#include "pages.h"
#include "scale/scaled.h"

#include <VelaButton>
#include <VelaFilterBar>
#include <VelaFootbar>
#include <VelaMenu>

#include <QLabel>

namespace {

constexpr int FilterWidth = 320;

VelaFilterBar *createFilterBar(GalleryPage *page, const QString &caption)
{
    auto *bar = new VelaFilterBar;
    bar->setFixedWidth(scaled(FilterWidth));
    bar->setPlaceholderText(QStringLiteral("Filter, then Return"));
    page->logSignal(caption, bar, &VelaFilterBar::sigKeywordChanged);
    return bar;
}

void addFilterBars(GalleryPage *page)
{
    page->addSection(QStringLiteral("VelaFilterBar"),
                     QStringLiteral("Return reports the keyword; the button, or the Down key, opens the menu."));

    VelaFilterBar *withMenu = createFilterBar(page, QStringLiteral("Filter bar"));
    auto *menu = new VelaMenu(withMenu);
    followSections(menu, {QStringLiteral("component.menu")});
    for (const char *text : {"All files", "Documents", "Pictures"}) {
        menu->addAction(QString::fromLatin1(text));
    }
    withMenu->setMenu(menu);
    page->addExample(QStringLiteral("With a menu"), QStringLiteral("component.filter_bar_padding"), {withMenu});
    page->addExample(QStringLiteral("Without a menu"), QStringLiteral("component.filter_search_button"),
                     {createFilterBar(page, QStringLiteral("Plain filter bar"))});

    VelaFilterBar *filled = createFilterBar(page, QStringLiteral("Filled filter bar"));
    filled->setText(QStringLiteral("holiday"));
    page->addExample(QStringLiteral("With a keyword"), {}, {filled});

    VelaFilterBar *disabled = createFilterBar(page, QStringLiteral("Disabled filter bar"));
    disabled->setEnabled(false);
    page->addExample(QStringLiteral("Disabled"), {}, {disabled});
}

VelaButton *createButton(GalleryPage *page, const QString &text, int kind)
{
    auto *button = new VelaButton(text, kind);
    page->logSignal(text, static_cast<QAbstractButton *>(button), &QAbstractButton::clicked);
    return button;
}

void addFootbars(GalleryPage *page)
{
    page->addSection(QStringLiteral("VelaFootbar"),
                     QStringLiteral("The bottom of a dialog, and one with other margins and spacing."));

    auto *dialog = new VelaFootbar;
    auto *help = new VelaIconButton(QStringLiteral("bt_help"));
    help->setToolTip(QStringLiteral("Help"));
    dialog->pushLeftWidget(help);
    dialog->pushRightWidget(createButton(page, QStringLiteral("Apply"), VelaButton::ApplyButton));
    dialog->pushRightWidget(createButton(page, QStringLiteral("Cancel"), VelaButton::CancelButton));
    dialog->init();
    page->addWide(dialog);

    auto *status = new VelaFootbar;
    status->pushLeftWidget(createText(QStringLiteral("3 of 128 files selected"), TextStyle::Detail));
    status->pushLeftWidget(createButton(page, QStringLiteral("Select all"), VelaButton::DefaultButton));
    status->pushRightWidget(createButton(page, QStringLiteral("Delete"), VelaButton::RedButton));
    status->init();
    status->setMargins(0, 0, 0, 0);
    status->setSpacing(16);
    page->addWide(status);
}

} // namespace

GalleryPage *createBarsPage(const QString &title)
{
    auto *page = new GalleryPage(title, QStringLiteral("Bars above and below a list."));
    addFilterBars(page);
    addFootbars(page);
    return page;
}
