// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "gallery-page.h"
#include "pages.h"

#include <HelpContext>
#include <HelpWindow>
#include <UIPathManager>
#include <VelaButton>

namespace {

struct HelpLanguage
{
    const char *name;
    const char *code;
};

constexpr HelpLanguage Languages[] = {
    {"English", "enu"},
    {"German", "deu"},
};

constexpr QSize HelpSize(560, 420);

void showHelp(GalleryPage *page, const QString &language)
{
    HelpContext context;
    context.lang = language;
    context.helpRoot = UIPathManager::getInstance()->getPath(QStringLiteral("resource_path")) + QStringLiteral("/help");
    context.link = QStringLiteral("gallery.html");
    context.section = QStringLiteral("gallery");
    HelpWindow window(context, page->window());
    page->logSignal(QStringLiteral("Help window"), &window, &HelpWindow::sigAbortRequest);
    window.resize(HelpSize);
    window.exec();
}

} // namespace

GalleryPage *createHelpPage(const QString &title)
{
    auto *page =
        new GalleryPage(title, QStringLiteral("HelpWindow asks the web first and falls back to the installed page."));
    page->addSection(QStringLiteral("Sample page"),
                     QStringLiteral("Of the reference theme, where no knowledge base answers."));
    for (const HelpLanguage &language : Languages) {
        const QString code = QString::fromLatin1(language.code);
        auto *button = new VelaButton(QStringLiteral("Show"), VelaButton::DefaultButton);
        QObject::connect(button, &VelaButton::clicked, page, [page, code] { showHelp(page, code); });
        page->addExample(QString::fromLatin1(language.name), code, {button});
    }
    return page;
}
