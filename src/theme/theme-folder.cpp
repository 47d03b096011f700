// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "theme/theme-folder_p.h"

#include "style-manager/sheet-sections_p.h"
#include "style-manager/toolkit-parser_p.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QSet>

#include <cerrno>
#include <utility>

#include <sys/stat.h>

namespace Vela {

namespace {

using Problem = VelaTheme::Problem;

const QString StringsFolder = QStringLiteral("strings/");

// Number of the line, counted from 1; 0 for no position.
int lineAt(const QByteArray &text, int position)
{
    return position < 0 ? 0 : 1 + static_cast<int>(std::count(text.cbegin(), text.cbegin() + position, '\n'));
}

int lineOfName(const QByteArray &json, const QString &name)
{
    return lineAt(json, json.indexOf('"' + name.toUtf8() + '"'));
}

// Whether there is nothing of that name. What cannot be looked up, on a disk that fails for instance, may be there: it
// is told when it is read.
bool isMissing(const QString &path)
{
    struct stat status = {};
    return !QFileInfo::exists(path) && ::stat(QFile::encodeName(path).constData(), &status) != 0
        && (errno == ENOENT || errno == ENOTDIR || errno == ENAMETOOLONG);
}

QString whyUnreadable(const QFile &file)
{
    const QFileInfo info(file.fileName());
    if (!info.exists()) {
        return QStringLiteral("there is no such file");
    }
    return info.isFile() ? file.errorString() : QStringLiteral("this is no file");
}

} // namespace

ThemeFolder::ThemeFolder(QString folder, QString tempImageFolder) :
    m_folder(std::move(folder)), m_tempImageFolder(std::move(tempImageFolder))
{
}

void ThemeFolder::read(const QString &language, const QString &fallbackLanguage)
{
    if (!QFileInfo(m_folder).isDir()) {
        add(Problem::Error, m_folder, 0, QStringLiteral("There is no such folder"));
        return;
    }
    static const QRegularExpression scaledLength(QStringLiteral("[0-9]\\.?px"));
    if (m_folder.contains(scaledLength)) {
        add(Problem::Warning, m_folder, 0,
            QStringLiteral(
                "Digits before \"px\" in a folder's path are scaled as lengths, and its images are not found"));
    }
    readCatalogue();
    readTexts(language, fallbackLanguage);
    readSheets();
    readLook();
}

QString ThemeFolder::imageFolder() const
{
    return path(QStringLiteral("images"));
}

void ThemeFolder::add(Severity severity, const QString &file, int line, const QString &text)
{
    m_problems.append({severity, QDir::cleanPath(QFileInfo(file).absoluteFilePath()), line, text});
}

QString ThemeFolder::path(const QString &name) const
{
    return m_folder + QLatin1Char('/') + name;
}

std::optional<QByteArray> ThemeFolder::readFile(const QString &file)
{
    QFile device(file);
    if (!QFileInfo(file).isFile() || !device.open(QIODevice::ReadOnly)) {
        add(Problem::Error, file, 0, QStringLiteral("Cannot be read: %1").arg(whyUnreadable(device)));
        return {};
    }
    QByteArray bytes = device.readAll();
    if (!isWholeOf(device)) {
        return {};
    }
    return bytes;
}

// Whether all that has been read of a file was there to be read: a disk may fail anywhere in it.
bool ThemeFolder::isWholeOf(const QFile &device)
{
    if (device.error() != QFileDevice::NoError) {
        add(Problem::Error, device.fileName(), 0, QStringLiteral("Cannot be read: %1").arg(device.errorString()));
        return false;
    }
    return true;
}

std::optional<ThemeFolder::JsonFile> ThemeFolder::readJson(const QString &file)
{
    const std::optional<QByteArray> bytes = readFile(file);
    if (!bytes) {
        return {};
    }
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(*bytes, &error);
    if (error.error != QJsonParseError::NoError) {
        add(Problem::Error, file, lineAt(*bytes, qBound(0, error.offset, bytes->size())), error.errorString());
        return {};
    }
    if (!document.isObject()) {
        add(Problem::Error, file, 1, QStringLiteral("There is no object in it"));
        return {};
    }
    return JsonFile {*bytes, document.object()};
}

QString ThemeFolder::imagePath(const QString &name) const
{
    return imageFolder() + QLatin1Char('/') + name + QLatin1String(".png");
}

// Whether the file, if it is there, is a whole PNG; not what it shows, which would take as long as to load it.
void ThemeFolder::checkImage(const QString &file)
{
    constexpr int TrailerSize = 64; // length of the chunk that ends it, and of what some programs add
    const QFileInfo info(file);
    if (!info.exists()) {
        return;
    }
    if (!info.isFile()) { // a pipe, for instance, might never end to be read
        add(Problem::Error, file, 0, QStringLiteral("This is no file"));
        return;
    }
    QFile device(file);
    const bool isOpen = device.open(QIODevice::ReadOnly);
    const bool isPng = isOpen && device.read(8) == QByteArray("\x89PNG\r\n\x1A\n", 8);
    const bool isWhole =
        isPng && device.seek(qMax(qint64(0), device.size() - TrailerSize)) && device.read(TrailerSize).contains("IEND");
    if (!isWhole) {
        add(Problem::Warning, file, 0,
            isPng ? QStringLiteral("The image is cut off") : QStringLiteral("This is no PNG"));
    }
}

// The library takes a catalogue that it cannot read for an empty one.
void ThemeFolder::readCatalogue()
{
    const QString file = path(QStringLiteral("images.json"));
    const std::optional<JsonFile> catalogue = readJson(file);
    if (!catalogue) {
        return;
    }
    const auto check = [this, &file, &catalogue](const QString &name) {
        if (!QFileInfo(imagePath(name)).isFile()) {
            add(Problem::Warning, file, lineOfName(catalogue->bytes, name),
                QStringLiteral("There is no image \"%1.png\"").arg(name));
        }
        for (const char *suffix : {"", "_hover", "_click", "_disable"}) {
            checkImage(imagePath(name + QLatin1String(suffix)));
        }
    };
    m_copies.emplace();
    QSet<QString> names;
    const QJsonArray images = catalogue->object.value(QLatin1String("images")).toArray();
    for (const QJsonValue &image : images) {
        names.insert(image.toString());
        check(image.toString());
    }
    const QJsonArray tempImages = catalogue->object.value(QLatin1String("tmp_images")).toArray();
    for (const QJsonValue &image : tempImages) {
        const QString name = image.toString().remove(QLatin1Char(' '));
        check(name);
        m_copies->append(QLatin1String("tmp_") + name + QLatin1String(".png"));
    }
    for (const ImageEntry &entry : ImageEntries) {
        if (!names.contains(QLatin1String(entry.name))) {
            add(Problem::Warning, file, 0,
                QStringLiteral("There is no \"%1\" in \"images\"").arg(QLatin1String(entry.name)));
        }
    }
}

void ThemeFolder::readTexts(const QString &language, const QString &fallbackLanguage)
{
    const auto fileOf = [this](const QString &code) { return path(StringsFolder + code + QLatin1String(".json")); };
    const QFileInfo fallback(fileOf(fallbackLanguage));
    const bool hasFallback = !fallbackLanguage.isEmpty() && fallbackLanguage != language
        && (fallback.isFile() || (!fallback.exists() && !isMissing(fallback.filePath())));
    if (hasFallback) {
        addTexts(fallbackLanguage);
    }
    if (hasFallback && isMissing(fileOf(language))) {
        add(Problem::Warning, fileOf(language), 0,
            QStringLiteral("There are no such texts; those in \"%1\" are shown").arg(fallbackLanguage));
    } else {
        addTexts(language);
    }
    if (VelaTheme::hasErrors(m_problems)) {
        return;
    }
    for (const TextEntry &entry : TextEntries) {
        if (!m_texts.contains(QLatin1String(entry.key))) {
            add(Problem::Warning, fileOf(language), 0,
                QStringLiteral("There is no text \"%1\"").arg(QLatin1String(entry.key)));
        }
    }
}

void ThemeFolder::addTexts(const QString &language)
{
    const QString file = path(StringsFolder + language + QLatin1String(".json"));
    const std::optional<JsonFile> table = readJson(file);
    if (!table) {
        return;
    }
    for (auto it = table->object.begin(); it != table->object.end(); ++it) {
        if (it.value().isString()) {
            m_texts.insert(it.key(), it.value().toString());
        } else {
            add(Problem::Error, file, lineOfName(table->bytes, it.key()),
                QStringLiteral("The value of \"%1\" is no text").arg(it.key()));
        }
    }
}

void ThemeFolder::readSheets()
{
    const QDir folder(path(QStringLiteral("styles")));
    const QStringList names =
        folder.entryList({QStringLiteral("*.qss")}, QDir::Files | QDir::System | QDir::Hidden, QDir::Name);
    if (names.isEmpty()) {
        add(Problem::Error, folder.path(), 0, QStringLiteral("There are no style sheets (*.qss) in it"));
        return;
    }
    QByteArray text; // text of all files, as a section may go on at the beginning of the next one
    QVector<SheetFile> files;
    for (const QString &name : names) {
        const QString file = folder.filePath(name);
        QFile device(file);
        if (!QFileInfo(file).isFile() || !device.open(QIODevice::ReadOnly)) {
            add(Problem::Error, file, 0, QStringLiteral("Cannot be read: %1").arg(whyUnreadable(device)));
            return;
        }
        files.append({file, ::readSheets(device)});
        if (!isWholeOf(device)) {
            return;
        }
        text += files.constLast().text + '\n';
    }
    insertImageFolders(text, imageFolder().toUtf8(), m_tempImageFolder.toUtf8());
    readSections(removeComments(std::move(text)), m_sections);

    checkSections(files);
    for (const StyleEntry &entry : StyleEntries) {
        if (m_sections.count(QString::fromLatin1(entry.key)) == 0) {
            add(Problem::Warning, folder.path(), 0,
                QStringLiteral("There is no section \"%1\"").arg(QLatin1String(entry.key)));
        }
    }
}

// The headers of the sections that count: of several with one key it is the last.
QHash<QString, ThemeFolder::Header> ThemeFolder::headers(const QVector<SheetFile> &files)
{
    QByteArray text;
    for (const SheetFile &file : files) {
        text += file.text + '\n';
    }
    RemovedComments removed;
    const std::vector<SheetSection> sections = findSections(removeComments(std::move(text), &removed));
    QHash<QString, Header> found;
    int file = 0;
    int fileBegin = 0;
    for (const SheetSection &section : sections) {
        const int position = removed.positionBefore(section.header.begin);
        for (; position > fileBegin + files.at(file).text.size(); ++file) {
            fileBegin += files.at(file).text.size() + 1;
        }
        found.insert(section.key, {file, lineAt(files.at(file).text, position - fileBegin)});
    }
    return found;
}

void ThemeFolder::checkSections(const QVector<SheetFile> &files)
{
    const QHash<QString, Header> found = headers(files);
    for (int i = 0; i < files.size(); ++i) {
        const SheetFile &file = files.at(i);
        for (const auto &[key, section] : m_sections) {
            const Header header = found.value(key);
            if (header.file != i) {
                continue;
            }
            if (!isUnderstood(section)) {
                add(Problem::Error, file.path, header.line,
                    QStringLiteral("The toolkit cannot parse the section \"%1\"").arg(key));
            }
            checkImages(section, file);
        }
    }
}

void ThemeFolder::checkImages(const QString &section, const SheetFile &file)
{
    static const QRegularExpression address(QStringLiteral("url\\(\\s*[\"']?([^\"')]*)"));
    QRegularExpressionMatchIterator matches = address.globalMatch(section);
    while (matches.hasNext()) {
        const QString image = matches.next().captured(1).trimmed();
        const QString name = QFileInfo(image).fileName();
        const bool isCopy = image.startsWith(m_tempImageFolder + QLatin1Char('/'));
        const bool isThere = isCopy ? !m_copies || m_copies->contains(name)
                                    : QFileInfo(image).isFile() || image.startsWith(QLatin1Char(':'));
        if (!isThere) {
            add(Problem::Warning, file.path, lineAt(file.text, file.text.indexOf('/' + name.toUtf8())),
                isCopy ? QStringLiteral("\"%1\" is no copy of an image in \"tmp_images\"").arg(name)
                       : QStringLiteral("There is no image \"%1\"").arg(image));
        }
    }
}

void ThemeFolder::readLook()
{
    const QString file = path(QStringLiteral("theme.json"));
    if (!QFileInfo(file).isSymLink() && isMissing(file)) {
        return;
    }
    if (const std::optional<JsonFile> look = readJson(file)) {
        m_look = ThemeLook(look->object,
                           [this, &file, &look](ThemeLook::Fault, const QStringList &path, const QString &text) {
                               add(Problem::Warning, file, lineOfName(look->bytes, path.last()), text);
                           });
    }
}

} // namespace Vela
