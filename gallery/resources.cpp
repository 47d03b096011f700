// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "resources.h"

#include <ComponentStrings>
#include <StyleManager>
#include <UIPathManager>
#include <VelaLocale>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>

#include <optional>

namespace {

const QString FallbackLanguage = QStringLiteral("enu");

QString quoted(const QString &path)
{
    return u'\'' + QDir::toNativeSeparators(path) + u'\'';
}

// The object in a JSON file; otherwise nothing, and the reason in error.
std::optional<QJsonObject> readObject(const QString &path, QString *error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = QStringLiteral("Cannot read %1: %2.").arg(quoted(path), file.errorString());
        return {};
    }
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &parseError);
    if (parseError.error != QJsonParseError::NoError) {
        *error = QStringLiteral("%1 is malformed at byte %2: %3.")
                     .arg(quoted(path), QString::number(parseError.offset), parseError.errorString());
        return {};
    }
    if (!document.isObject()) {
        *error = QStringLiteral("%1 is malformed: there is no object in it.").arg(quoted(path));
        return {};
    }
    return document.object();
}

} // namespace

QString Resources::referenceFolder()
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + QStringLiteral("/" VELA_THEME_FROM_PROGRAM));
}

Resources::Resources(const QString &folder) : m_folder(QDir(folder).absolutePath()) { }

bool Resources::read(const QString &language)
{
    return checkFolder() && chooseLanguage(language) && readStrings() && findStyleSheets();
}

QString Resources::errorText() const
{
    return m_errorText;
}

QStringList Resources::warnings() const
{
    return m_warnings;
}

QString Resources::language() const
{
    return m_language;
}

void Resources::install(ImageManager::InitializeType imageLoading)
{
    const QString userData = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    if (!QDir().mkpath(userData)) {
        m_warnings.append(
            QStringLiteral("Cannot write to %1: images of style sheets will be missing.").arg(quoted(userData)));
    }
    UIPathManager::getInstance()->setPath(QStringLiteral("resource_path"), m_folder);
    UIPathManager::getInstance()->setPath(QStringLiteral("user_data_path"), userData);
    ComponentStrings::getInstance()->installStrings(m_strings);
    ImageManager::getInstance()->initialize(imageLoading);
    StyleManager::getInstance()->initialize(m_styleSheets);
}

bool Resources::fail(const QString &text)
{
    m_errorText = text;
    return false;
}

QString Resources::path(const QString &name) const
{
    return m_folder + u'/' + name;
}

bool Resources::checkFolder()
{
    if (!QDir(m_folder).exists()) {
        return fail(QStringLiteral("There is no theme folder %1.").arg(quoted(m_folder)));
    }
    // The library takes a list of images that it cannot read for an empty one, without a word.
    QString error;
    return readObject(path(QStringLiteral("images.json")), &error) || fail(error);
}

bool Resources::chooseLanguage(const QString &language)
{
    QStringList codes;
    const QStringList files =
        QDir(path(QStringLiteral("strings"))).entryList({QStringLiteral("*.json")}, QDir::Files, QDir::Name);
    for (const QString &file : files) {
        codes.append(file.chopped(5));
    }
    if (codes.isEmpty()) {
        return fail(QStringLiteral("There are no texts (*.json) in %1.").arg(quoted(path(QStringLiteral("strings")))));
    }

    m_language = language.isEmpty() ? VelaLocale::getInstance()->getDefaultLanguage() : language;
    if (language.isEmpty() && !codes.contains(m_language) && codes.contains(FallbackLanguage)) {
        m_warnings.append(QStringLiteral("There are no texts in the system's language '%1', so they are in '%2'.")
                              .arg(m_language, FallbackLanguage));
        m_language = FallbackLanguage;
    }
    return codes.contains(m_language)
        || fail(QStringLiteral("There are no texts in the language '%1'. There are: %2.")
                    .arg(m_language, codes.join(QStringLiteral(", "))));
}

bool Resources::readStrings()
{
    const QString file = path(QStringLiteral("strings/") + m_language + QStringLiteral(".json"));
    QString error;
    const std::optional<QJsonObject> object = readObject(file, &error);
    if (!object) {
        return fail(error);
    }
    for (auto it = object->begin(); it != object->end(); ++it) {
        if (!it.value().isString()) {
            return fail(QStringLiteral("%1 is malformed: the value of \"%2\" is no text.").arg(quoted(file), it.key()));
        }
        m_strings.insert(it.key(), it.value().toString());
    }
    return true;
}

bool Resources::findStyleSheets()
{
    const QDir folder(path(QStringLiteral("styles")));
    const QStringList names = folder.entryList({QStringLiteral("*.qss")}, QDir::Files, QDir::Name);
    for (const QString &name : names) {
        m_styleSheets.push_back(folder.filePath(name));
    }
    return !names.isEmpty()
        || fail(QStringLiteral("There are no style sheets (*.qss) in %1.").arg(quoted(folder.path())));
}
