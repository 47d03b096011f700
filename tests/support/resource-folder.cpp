// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "support/resource-folder.h"

#include "image-manager/image-manager.h"
#include "style-manager/style-manager.h"
#include "support/log-capture.h"
#include "utils/component-strings.h"
#include "utils/ui-path-manager.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

void setPaths(const QString &resources, const QString &userData)
{
    const LogCapture silence; // a key that is set again is logged
    UIPathManager::getInstance()->setPath(QStringLiteral("resource_path"), resources);
    UIPathManager::getInstance()->setPath(QStringLiteral("user_data_path"), userData);
}

QMap<QString, QString> readStrings(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("cannot read %s", qPrintable(path));
    }
    QMap<QString, QString> strings;
    const QJsonObject object = QJsonDocument::fromJson(file.readAll()).object();
    for (auto it = object.begin(); it != object.end(); ++it) {
        strings.insert(it.key(), it.value().toString());
    }
    return strings;
}

std::vector<QString> sheetsIn(const QDir &folder)
{
    std::vector<QString> files;
    const QStringList names = folder.entryList({QStringLiteral("*.qss")}, QDir::Files, QDir::Name);
    for (const QString &name : names) {
        files.push_back(folder.filePath(name));
    }
    return files;
}

} // namespace

ResourceFolder::ResourceFolder()
{
    QDir(path()).mkpath(QStringLiteral("images"));
}

QString ResourceFolder::path() const
{
    return m_folder.path();
}

QString ResourceFolder::userDataPath() const
{
    return m_folder.filePath(QStringLiteral("user-data"));
}

QString ResourceFolder::imagePath(const QString &name) const
{
    return m_folder.filePath(QStringLiteral("images/") + name + QStringLiteral(".png"));
}

QString ResourceFolder::tempImagePath(const QString &name) const
{
    return userDataPath() + QStringLiteral("/tmp_images/tmp_") + name + QStringLiteral(".png");
}

void ResourceFolder::setAsPaths() const
{
    setPaths(path(), userDataPath());
}

void ResourceFolder::writeFile(const QString &relativePath, const QByteArray &content) const
{
    const QString filePath = m_folder.filePath(relativePath);
    QDir().mkpath(QFileInfo(filePath).path());
    QFile file(filePath);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("cannot write %s", qPrintable(filePath));
    }
}

void ResourceFolder::writeCatalogue(const QStringList &images, const QStringList &tempImages) const
{
    const QJsonObject catalogue {
        {QStringLiteral("images"), QJsonArray::fromStringList(images)},
        {QStringLiteral("tmp_images"), QJsonArray::fromStringList(tempImages)},
    };
    writeFile(QStringLiteral("images.json"), QJsonDocument(catalogue).toJson());
}

void ResourceFolder::writeImage(const QString &name, const QImage &image) const
{
    QDir().mkpath(QFileInfo(imagePath(name)).path());
    if (!image.save(imagePath(name), "PNG")) {
        qFatal("cannot write %s", qPrintable(imagePath(name)));
    }
}

void ResourceFolder::writeImage(const QString &name, const QSize &size, const QColor &color) const
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(color);
    writeImage(name, image);
}

void ResourceFolder::removeImage(const QString &name) const
{
    if (!QFile::remove(imagePath(name))) {
        qFatal("cannot remove %s", qPrintable(imagePath(name)));
    }
}

void installReferenceTheme()
{
    static const QTemporaryDir userData;
    static const bool installed = [] {
        const QDir theme(QStringLiteral(VELA_THEME_DIR));
        setPaths(theme.path(), userData.path());
        ComponentStrings::getInstance()->installStrings(
            readStrings(theme.filePath(QStringLiteral("strings/enu.json"))));
        ImageManager::getInstance()->initialize(ImageManager::INIT_LAZY);
        StyleManager::getInstance()->initialize(sheetsIn(QDir(theme.filePath(QStringLiteral("styles")))));
        return true;
    }();
    Q_UNUSED(installed)
}
