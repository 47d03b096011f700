// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "start-in-designer.h"

#include <ComponentStrings>
#include <ImageManager>
#include <StyleManager>
#include <UIPathManager>

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>

namespace {

QString themeFolder()
{
    const QString chosen = qEnvironmentVariable("VELA_DESIGNER_THEME");
    if (!chosen.isEmpty()) {
        return chosen;
    }
    const QString found =
        QStandardPaths::locate(QStandardPaths::GenericDataLocation, QStringLiteral("vela-components/themes/light"),
                               QStandardPaths::LocateDirectory);
    return found.isEmpty() ? QStringLiteral(VELA_THEME_INSTALL_DIR) : found;
}

QMap<QString, QString> texts(const QString &folder)
{
    QFile file(folder + QLatin1String("/strings/enu.json"));
    QMap<QString, QString> texts;
    if (file.open(QIODevice::ReadOnly)) {
        const QJsonObject object = QJsonDocument::fromJson(file.readAll()).object();
        for (auto it = object.begin(); it != object.end(); ++it) {
            texts.insert(it.key(), it.value().toString());
        }
    }
    return texts;
}

std::vector<QString> styleSheets(const QString &folder)
{
    std::vector<QString> files;
    const QDir styles(folder + QLatin1String("/styles"));
    const QStringList names = styles.entryList({QStringLiteral("*.qss")}, QDir::Files, QDir::Name);
    for (const QString &name : names) {
        files.push_back(styles.filePath(name));
    }
    return files;
}

} // namespace

// The calls come one by one: VelaTheme would give Designer itself the theme's palette and font.
void startInDesigner()
{
    static bool isStarted = false;
    if (isStarted) {
        return;
    }
    isStarted = true;
    const QString folder = themeFolder();
    UIPathManager::getInstance()->setPath(QStringLiteral("resource_path"), folder);
    UIPathManager::getInstance()->setPath(QStringLiteral("user_data_path"),
                                          QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation)
                                              + QLatin1String("/vela-components-designer"));
    ComponentStrings::getInstance()->installStrings(texts(folder));
    ImageManager::getInstance()->initialize(ImageManager::INIT_LAZY);
    StyleManager::getInstance()->initialize(styleSheets(folder));
}
