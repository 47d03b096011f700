#include "style-manager/style-manager.h"

#include "image-manager/image-manager.h"
#include "style-manager/sheet-sections.h"
#include "utils/util.h"

#include <QFile>

namespace {

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
        if (file.open(QIODevice::ReadOnly | QIODevice::Text)) {
            text += QString::fromUtf8(file.readAll());
        }
        text += QLatin1Char('\n');
    }
    return text;
}

void insertImageFolders(QString &text)
{
    // The second name is part of the first, so the first must be gone by then.
    text.replace(QLatin1String("TMPIMG_LOC"), ImageManager::getInstance()->getTempImageFolder());
    text.replace(QLatin1String("IMG_LOC"), ImageManager::getInstance()->getImageFolder());
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
    readSections(removeComments(text), m_sections);
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
