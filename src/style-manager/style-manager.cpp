// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "style-manager/style-manager.h"

#include "image-manager/image-manager.h"
#include "style-manager/sheet-sections_p.h"
#include "utils/debug-message.h"

#include <QCoreApplication>
#include <QFile>

#include <algorithm>
#include <cstring>
#include <numeric>
#include <string_view>
#include <utility>

// In the room above all others, which none of them knows. It is to be there before the first widget, also in a static
// library, of which a program gets nothing that is not named.
namespace Vela::Accessible {
void install();
}

namespace {

bool isAscii(const QByteArray &text)
{
    const auto unite = [](char all, char character) { return static_cast<char>(all | character); };
    return static_cast<unsigned char>(std::accumulate(text.cbegin(), text.cend(), '\0', unite)) < 0x80;
}

// The text in the file, valid UTF-8.
QByteArray readText(QFile &file)
{
    QByteArray text = file.readAll();
    // As a device in text mode does, which looks for carriage returns a byte at a time.
    if (std::memchr(text.constData(), '\r', static_cast<std::size_t>(text.size()))) {
        text.replace("\r", "");
    }
    // Given the whole array, QString::fromUtf8() would stop at a null byte.
    return isAscii(text) ? text : QString::fromUtf8(text.constData(), text.size()).toUtf8();
}

// The files' texts one after another, each followed by a line break so that it never runs into the next.
QByteArray readFiles(const std::vector<QString> &files)
{
    QByteArray text;
    for (const QString &path : files) {
        QFile file(path);
        if (!file.exists()) {
            qCWarning(debug_message) << "file" << path << "not exist";
            continue;
        }
        if (file.open(QIODevice::ReadOnly)) {
            text += readText(file);
        }
        text += '\n';
    }
    return text;
}

// Replaces each name by value, which is no shorter. Unlike QByteArray::replace() it moves a byte only
// once, however many matches there are.
void replaceAll(QByteArray &text, std::string_view name, const QByteArray &value)
{
    const std::string_view view(text.constData(), static_cast<std::size_t>(text.size()));
    std::vector<std::size_t> matches;
    for (auto i = view.find(name); i != view.npos; i = view.find(name, i + name.size())) {
        matches.push_back(i);
    }
    if (matches.empty()) {
        return;
    }

    std::size_t end = view.size();
    text.resize(text.size() + static_cast<int>(matches.size()) * (value.size() - static_cast<int>(name.size())));
    const char *begin = text.constData();
    char *out = text.data() + text.size();
    for (auto match = matches.crbegin(); match != matches.crend(); ++match) {
        out = std::copy_backward(begin + *match + name.size(), begin + end, out);
        out = std::copy_backward(value.cbegin(), value.cend(), out);
        end = *match;
    }
}

void insertImageFolders(QByteArray &text)
{
    // The second name is part of the first, so the first must be gone by then.
    replaceAll(text, "TMPIMG_LOC", ImageManager::getInstance()->getTempImageFolder().toUtf8());
    replaceAll(text, "IMG_LOC", ImageManager::getInstance()->getImageFolder().toUtf8());
}

} // namespace

StyleManager *StyleManager::getInstance()
{
    static StyleManager instance;
    static bool isInstalled = false;
    if (!isInstalled && QCoreApplication::instance()) {
        Vela::Accessible::install();
        isInstalled = true;
    }
    return &instance;
}

void StyleManager::initialize(const std::vector<QString> &files)
{
    QByteArray text = readFiles(files);
    insertImageFolders(text);
    readSections(removeComments(std::move(text)), m_sections);
}

QString StyleManager::getStyleSheet(const QString &key, bool raw)
{
    const auto entry = m_sections.find(key);
    if (entry == m_sections.end()) {
        qCWarning(debug_message) << "Cannot find stylesheet" << key;
        return QString();
    }
    return raw ? entry->second : DPIinfo::getInstance()->getScaledStyleSheet(entry->second);
}

QString getStyleSheet(const char *key, bool raw)
{
    return StyleManager::getInstance()->getStyleSheet(QString::fromUtf8(key), raw);
}

QString getStyleSheet(const QString &key, bool raw)
{
    return StyleManager::getInstance()->getStyleSheet(key, raw);
}
