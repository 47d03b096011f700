// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "pages.h"

const std::vector<PageEntry> &galleryPages()
{
    static const std::vector<PageEntry> pages {
        {QStringLiteral("buttons"), QStringLiteral("Buttons"), createButtonsPage},
        {QStringLiteral("inputs"), QStringLiteral("Inputs"), createInputsPage},
        {QStringLiteral("menus"), QStringLiteral("Menus"), createMenusPage},
        {QStringLiteral("bars"), QStringLiteral("Filter and footbar"), createBarsPage},
        {QStringLiteral("messages"), QStringLiteral("Messages"), createMessagesPage},
        {QStringLiteral("input-sheet"), QStringLiteral("Input sheet"), createInputSheetPage},
        {QStringLiteral("countdown"), QStringLiteral("Countdown"), createCountdownPage},
        {QStringLiteral("table"), QStringLiteral("Table and paging"), createTablePage},
        {QStringLiteral("folders"), QStringLiteral("Folders and path"), createFoldersPage},
        {QStringLiteral("dates"), QStringLiteral("Dates"), createDatesPage},
        {QStringLiteral("help"), QStringLiteral("Help"), createHelpPage},
    };
    return pages;
}

QStringList pageNames()
{
    QStringList names;
    for (const PageEntry &page : galleryPages()) {
        names.append(page.name);
    }
    return names;
}
