// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "command-line.h"

#include "pages.h"
#include "themes.h"

#include <QCoreApplication>
#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace {

const QString ResumeOption = QStringLiteral("--resume=");
const QString PageKey = QStringLiteral("page");
const QString ThemeKey = QStringLiteral("theme");
const QString LanguageKey = QStringLiteral("language");
const QString DirectionKey = QStringLiteral("right_to_left");
const QString GeometryKey = QStringLiteral("geometry");

QCommandLineOption option(const char *name, const QString &description, const char *value = "")
{
    return {QString::fromLatin1(name), description, QString::fromLatin1(value)};
}

// The display that the toolkit is told by arguments to take, or else does by itself. The option is not the
// parser's, which would accept it as well where the toolkit knows none.
QString displayOf(const QStringList &arguments)
{
    const int option =
        qMax(arguments.lastIndexOf(QStringLiteral("-display")), arguments.lastIndexOf(QStringLiteral("--display")));
    const QString display = option == -1 ? QString() : arguments.value(option + 1);
    return display.isEmpty() ? qEnvironmentVariable("DISPLAY") : display;
}

// A key that is the same for all names of a folder. One that is missing has no canonical path.
QString identityOf(const QString &folder)
{
    const QDir dir(folder);
    return dir.exists() ? dir.canonicalPath() : QDir::cleanPath(dir.absolutePath());
}

QString textOf(const QByteArray &bytes)
{
    return QString::fromLatin1(bytes.toBase64(QByteArray::Base64UrlEncoding));
}

QByteArray bytesOf(const QString &text)
{
    return QByteArray::fromBase64(text.toLatin1(), QByteArray::Base64UrlEncoding);
}

QString textOf(const GalleryState &state)
{
    const QJsonObject object {
        {PageKey, state.page},
        {ThemeKey, state.theme},
        {LanguageKey, state.language},
        {DirectionKey, state.isRightToLeft},
        {GeometryKey, textOf(state.geometry)},
    };
    return textOf(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

GalleryState stateOf(const QString &text)
{
    const QJsonObject object = QJsonDocument::fromJson(bytesOf(text)).object();
    return {object.value(PageKey).toString(), object.value(ThemeKey).toString(), object.value(LanguageKey).toString(),
            object.value(DirectionKey).toBool(), bytesOf(object.value(GeometryKey).toString())};
}

} // namespace

CommandLine::CommandLine() :
    m_help({QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this help.")),
    m_version({QStringLiteral("v"), QStringLiteral("version")}, QStringLiteral("Show the version.")),
    m_page(option("page", QStringLiteral("Begin with this page: ") + pageNames().join(QStringLiteral(", ")) + u'.',
                  "NAME")),
    m_listPages(option("list-pages", QStringLiteral("List the names of all pages."))),
    m_language(option(
        "language",
        QStringLiteral("Take the texts from strings/CODE.json of the theme folder, \"deu\" for instance, and not "
                       "in the system's language."),
        "CODE")),
    m_theme({QStringLiteral("theme"), QStringLiteral("resources")},
            QStringLiteral("Begin with this theme: light, dark, high-contrast or a theme folder. It is read again each "
                           "time that a file in it is saved; what is wrong with it is listed below the page."),
            QStringLiteral("THEME")),
    m_rightToLeft(option("right-to-left", QStringLiteral("Begin with the layout for languages from right to left."))),
    m_lazy(option("lazy", QStringLiteral("Load each image when it is first shown. This is the default."))),
    m_preload(option("preload", QStringLiteral("Load all images at the start."))),
    m_screenshots(
        option("screenshots",
               QStringLiteral("Instead of opening a window render each page, or that of --page, and the main window "
                              "to PNG files there. Takes no display."),
               "DIR")),
    m_resume(option("resume", {}, "STATE"))
{
    m_resume.setFlags(QCommandLineOption::HiddenFromHelp); // an option for the program itself
    m_parser.setApplicationDescription(QStringLiteral("Shows every widget of Vela Components."));
    m_parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    m_parser.addOptions({m_help, m_version, m_page, m_listPages, m_language, m_theme, m_rightToLeft, m_lazy, m_preload,
                         m_screenshots, m_resume});
}

bool CommandLine::parse(const QStringList &arguments)
{
    m_display = displayOf(arguments);
    m_errorText = m_parser.parse(arguments) ? findError() : m_parser.errorText();
    if (m_parser.isSet(m_resume)) {
        m_state = stateOf(m_parser.value(m_resume));
    }
    return m_errorText.isEmpty();
}

QString CommandLine::errorText() const
{
    return m_errorText;
}

QString CommandLine::findError() const
{
    if (!m_parser.positionalArguments().isEmpty()) {
        return QStringLiteral("Unexpected argument '%1'.").arg(m_parser.positionalArguments().constFirst());
    }
    for (const QCommandLineOption *folder : {&m_theme, &m_screenshots, &m_language}) {
        if (m_parser.isSet(*folder) && m_parser.value(*folder).isEmpty()) {
            return QStringLiteral("The value of '--%1' is empty.").arg(folder->names().constFirst());
        }
    }
    if (m_parser.isSet(m_page) && !pageNames().contains(m_parser.value(m_page))) {
        return QStringLiteral("There is no page '%1'. There are: %2.")
            .arg(m_parser.value(m_page), pageNames().join(QStringLiteral(", ")));
    }
    if (m_parser.isSet(m_lazy) && m_parser.isSet(m_preload)) {
        return QStringLiteral("Either '--lazy' or '--preload' can be given, not both.");
    }
    return {};
}

QString CommandLine::answer() const
{
    if (m_parser.isSet(m_help)) {
        return m_parser.helpText();
    }
    if (m_parser.isSet(m_version)) {
        return QCoreApplication::applicationName() + u' ' + QCoreApplication::applicationVersion() + u'\n';
    }
    if (m_parser.isSet(m_listPages)) {
        return pageNames().join(u'\n') + u'\n';
    }
    return {};
}

QString CommandLine::page() const
{
    return m_state ? m_state->page : m_parser.value(m_page);
}

QString CommandLine::language() const
{
    return m_state ? m_state->language : m_parser.value(m_language);
}

QString CommandLine::theme() const
{
    return m_state ? m_state->theme : themeFolder(m_parser.value(m_theme));
}

bool CommandLine::isRightToLeft() const
{
    return m_state ? m_state->isRightToLeft : m_parser.isSet(m_rightToLeft);
}

QString CommandLine::screenshots() const
{
    return m_parser.value(m_screenshots);
}

ImageManager::InitializeType CommandLine::imageLoading() const
{
    return m_parser.isSet(m_preload) ? ImageManager::INIT_PRELOAD : ImageManager::INIT_LAZY;
}

QByteArray CommandLine::geometry() const
{
    return m_state ? m_state->geometry : QByteArray();
}

QString CommandLine::instanceId() const
{
    return QStringList {QCoreApplication::applicationName(),
                        QCoreApplication::applicationFilePath(),
                        m_display,
                        qEnvironmentVariable("WAYLAND_DISPLAY"),
                        identityOf(themeFolder(m_parser.value(m_theme))),
                        m_parser.value(m_language),
                        QString::number(imageLoading())}
        .join(u'\n');
}

QStringList CommandLine::resumed(QStringList arguments, const GalleryState &state)
{
    const auto isFormer = [](const QString &argument) { return argument.startsWith(ResumeOption); };
    arguments.erase(std::remove_if(arguments.begin(), arguments.end(), isFormer), arguments.end());
    return arguments << ResumeOption + textOf(state);
}
