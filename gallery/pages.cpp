#include "pages.h"

const std::vector<PageEntry> &galleryPages()
{
    static const std::vector<PageEntry> pages {
        {QStringLiteral("buttons"), QStringLiteral("Buttons"), createButtonsPage},
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
