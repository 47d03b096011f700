// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "help.h"

#include "scale/scaled.h"
#include "start/appearance.h"
#include "texts/texts.h"

#include <HelpContext>
#include <HelpWindow>

namespace {

constexpr int HelpWidth = 620;
constexpr int HelpHeight = 560;

} // namespace

void showHelp(QWidget *window)
{
    HelpContext context;
    context.lang = hasOwnTexts(languageInForce()) ? languageInForce() : QStringLiteral("enu");
    context.helpRoot = dataFolder() + QStringLiteral("/help");
    context.link = QStringLiteral("files.html");
    context.section = QStringLiteral("files");
    auto *help = new HelpWindow(context, window);
    help->setAttribute(Qt::WA_DeleteOnClose);
    help->setWindowTitle(text("help"));
    help->resize(scaled(HelpWidth), scaled(HelpHeight));
    help->show();
}
