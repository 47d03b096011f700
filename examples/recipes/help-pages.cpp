// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// Help of one's own: the page is asked for on the web, and read from <folder>/<language>/start.html where that fails.

#include <HelpContext>
#include <HelpWindow>
#include <VelaButton>
#include <VelaLocale>
#include <VelaTheme>

#include <QApplication>
#include <QVBoxLayout>

namespace {

void help(QWidget *window)
{
    HelpContext context;
    context.lang = VelaLocale::getInstance()->getDefaultLanguage(); // German pages lie in "ger", see HelpContext
    context.helpRoot = QCoreApplication::applicationDirPath() + QStringLiteral("/../share/recipe/help");
    context.link = QStringLiteral("start.html");
    context.section = QStringLiteral("recipe");
    auto *page = new HelpWindow(context, window);
    page->setAttribute(Qt::WA_DeleteOnClose);
    page->setWindowTitle(QStringLiteral("Help"));
    page->resize(600, 480);
    page->show();
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    VelaTheme::getInstance()->load(application.arguments().value(1, QStringLiteral(THEME)), QStringLiteral("enu"));
    QWidget window;
    window.resize(640, 400);
    auto *button = new VelaButton(QStringLiteral("Help"), VelaButton::DefaultButton);
    auto *layout = new QVBoxLayout(&window);
    layout->addWidget(button);
    QObject::connect(button, &VelaButton::clicked, &window, [&window] { help(&window); });
    window.show();
    return application.exec();
}
