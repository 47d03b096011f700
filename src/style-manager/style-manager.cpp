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
        if (file.open(QIODevice::ReadOnly)) {
            QByteArray content = file.readAll();
            // As a device in text mode does, which takes much longer where there are none.
            if (content.contains('\r')) {
                content.replace("\r", "");
            }
            text += QString::fromUtf8(content);
        }
        text += QLatin1Char('\n');
    }
    return text;
}

/// Unlike QString::replace() this moves each character once only, however many matches there are.
void replaceAll(QString &text, QLatin1String name, const QString &value)
{
    QString result;
    int done = 0;
    for (int i = text.indexOf(name.front()); i >= 0; i = text.indexOf(name.front(), i)) {
        if (!QStringView(text).mid(i).startsWith(name)) {
            ++i;
            continue;
        }
        if (done == 0) {
            result.reserve(text.size());
        }
        result.append(text.constData() + done, i - done);
        result.append(value);
        i += name.size();
        done = i;
    }
    if (done > 0) {
        text = result.append(text.constData() + done, text.size() - done);
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
