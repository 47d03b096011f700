#include "style-manager/style-manager.h"

#include "image-manager/image-manager.h"
#include "style-manager/sheet-sections.h"
#include "utils/util.h"

#include <QFile>

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

/// What a device in text mode would give, which looks for carriage returns a byte at a time.
QByteArray readText(QFile &file)
{
    QByteArray content = file.readAll();
    if (std::memchr(content.constData(), '\r', static_cast<std::size_t>(content.size()))) {
        content.replace("\r", "");
    }
    return content;
}

/// The files' texts one after another, each followed by a line break so that it never runs into the next.
QString readFiles(const std::vector<QString> &files)
{
    QString text;
    for (const QString &path : files) {
        QFile file(path);
        if (!file.exists()) {
            qCWarning(debug_message) << "file" << path << "not exist";
            continue;
        }
        if (file.open(QIODevice::ReadOnly)) {
            text += QString::fromUtf8(readText(file));
        }
        text += QLatin1Char('\n');
    }
    return text;
}

/// Replaces each @p name by @p value, which is no shorter. Unlike QString::replace() it moves a character only once,
/// however many matches there are.
void replaceAll(QString &text, QLatin1String name, const QString &value)
{
    Q_ASSERT(value.size() >= name.size());
    std::vector<int> matches;
    for (int i = text.indexOf(name.front()); i >= 0; i = text.indexOf(name.front(), i)) {
        if (QStringView(text).mid(i).startsWith(name)) {
            matches.push_back(i);
            i += name.size();
        } else {
            ++i;
        }
    }

    int end = text.size();
    text.resize(end + static_cast<int>(matches.size()) * (value.size() - name.size()));
    QChar *out = text.data() + text.size();
    for (auto match = matches.crbegin(); match != matches.crend(); ++match) {
        const QChar *characters = text.constData();
        out = std::copy_backward(characters + *match + name.size(), characters + end, out);
        out = std::copy_backward(value.cbegin(), value.cend(), out);
        end = *match;
    }
}

void insertImageFolders(QString &text)
{
    // The second name is part of the first, so the first must be gone by then.
    replaceAll(text, QLatin1String("TMPIMG_LOC"), ImageManager::getInstance()->getTempImageFolder());
    replaceAll(text, QLatin1String("IMG_LOC"), ImageManager::getInstance()->getImageFolder());
}

} // namespace

StyleManager *StyleManager::getInstance()
{
    static StyleManager instance;
    return &instance;
}

void StyleManager::initialize(const std::vector<QString> &files)
{
    QString text = readFiles(files);
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
