// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "style-manager/style-manager.h"

#include "image-manager/image-manager.h"
#include "style-manager/sheet-messages_p.h"
#include "style-manager/sheet-sections_p.h"
#include "utils/debug-message.h"
#include "utils/theme-message_p.h"

#include <QCoreApplication>
#include <QFile>
#include <QPointer>

#include <utility>

// A function of the room above all others, which none of them knows. It must be there before the first widget, also in
// a static library, of which a program gets nothing that is not named.
namespace Vela::Accessible {
void install();
}

namespace {

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
            text += readSheets(file);
        }
        text += '\n';
    }
    return text;
}

} // namespace

StyleManager *StyleManager::getInstance()
{
    static StyleManager instance;
    static QPointer<QCoreApplication> served; // with its application the toolkit forgets what is installed
    if (!served && QCoreApplication::instance()) {
        Vela::Accessible::install();
        served = QCoreApplication::instance();
    }
    return &instance;
}

void StyleManager::initialize(const std::vector<QString> &files)
{
    QByteArray text = readFiles(files);
    ImageManager *images = ImageManager::getInstance();
    const QByteArray tempImageFolder = images->getTempImageFolder().toUtf8();
    insertImageFolders(text, images->getImageFolder().toUtf8(), tempImageFolder);
    readSections(removeComments(std::move(text)), m_sections);
    if (vela_theme().isWarningEnabled()) {
        Vela::tellRefusedSections(files);
    }
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
