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
