// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// The language is changed while the program runs: the library's widgets follow by themselves, the application's texts
// are set anew when the theme says that it has changed.

#include <VelaComboBox>
#include <VelaDateSelector>
#include <VelaLabel>
#include <VelaTheme>

#include <QApplication>
#include <QMap>
#include <QVBoxLayout>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    VelaTheme *theme = VelaTheme::getInstance();
    theme->load(application.arguments().value(1, QStringLiteral(THEME)), QStringLiteral("enu"));
    const QMap<QString, QString> greetings {{QStringLiteral("enu"), QStringLiteral("Good day")},
                                            {QStringLiteral("deu"), QStringLiteral("Guten Tag")},
                                            {QStringLiteral("fra"), QStringLiteral("Bonjour")}};
    QWidget window;
    auto *languages = new VelaComboBox;
    languages->addItems(greetings.keys());
    languages->setCurrentText(theme->language());
    auto *greeting = new VelaLabel;
    auto *layout = new QVBoxLayout(&window);
    layout->addWidget(languages);
    layout->addWidget(greeting);
    layout->addWidget(new VelaDateSelector(QString(), nullptr)); // its calendar follows

    const auto retranslate = [&] { greeting->setText(greetings.value(theme->language())); };
    retranslate();
    QObject::connect(theme, &VelaTheme::changed, greeting, retranslate);
    QObject::connect(languages, &QComboBox::currentTextChanged, theme,
                     [theme](const QString &language) { theme->setLanguage(language); });
    window.show();
    return application.exec();
}
