// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "image-manager/image-manager.h"

#include "scale/dpi-info.h"
#include "utils/debug-message.h"
#include "utils/theme-message_p.h"
#include "utils/ui-path-manager.h"

#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdlib>

namespace {

constexpr double DrawnScale = 4.0; // images are drawn at this multiple of their logical size

constexpr const char *VariantSuffixes[ImageManager::ImageFile::VariantCount] = {"", "_hover", "_click", "_disable"};

// The pixmap in the file, null if there is none. Unlike QPixmap::load() this leaves nothing in the pixmap cache, where
// full-size originals would push out what is really shown, and gives up at once where there is no file.
QPixmap readPixmap(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return QPixmap();
    }
    QImageReader reader(&file);
    const QImage image = reader.read();
    if (image.isNull()) {
        qCWarning(vela_theme).noquote().nospace()
            << path << ": the image cannot be read (" << reader.errorString() << "). Save it as PNG.";
    }
    return QPixmap::fromImage(image);
}

QPixmap scaledTo(const QPixmap &pixmap, const QSize &size)
{
    return pixmap.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

const QString &folderOrAbort(const QString &folder)
{
    if (folder.isEmpty()) {
        qCWarning(debug_message) << "ImageManager is not initialized";
        std::abort();
    }
    return folder;
}

} // namespace

ImageManager *ImageManager::getInstance()
{
    static ImageManager instance;
    return &instance;
}

void ImageManager::initialize(InitializeType type)
{
    m_type = type;
    m_imageFolder = UIPathManager::getInstance()->getPath(QStringLiteral("resource_path")) + QLatin1String("/images");
    m_tempImageFolder =
        UIPathManager::getInstance()->getPath(QStringLiteral("user_data_path")) + QLatin1String("/tmp_images");
    QDir().mkpath(m_tempImageFolder);
    readJson();
    if (m_type == INIT_PRELOAD) {
        prepareImages();
    }
}

void ImageManager::readJson()
{
    QFile file(UIPathManager::getInstance()->getPath(QStringLiteral("resource_path")) + QLatin1String("/images.json"));
    QString text;
    if (file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        const QByteArray bytes = file.readAll();
        // A conversion of the array itself would stop at a null byte.
        text = QString::fromUtf8(bytes.constData(), bytes.size());
    }
    QJsonParseError error;
    const QByteArray json = text.toUtf8();
    const QJsonObject catalogue = QJsonDocument::fromJson(json, &error).object();
    if (error.error != QJsonParseError::NoError) {
        qCWarning(vela_theme).noquote().nospace()
            << file.fileName() << ':' << json.left(error.offset).count('\n') + 1
            << ": the list of images cannot be read, so that there are none: " << error.errorString() << '.';
    }

    const QJsonArray images = catalogue.value(QLatin1String("images")).toArray();
    for (const QJsonValue &name : images) {
        parseJson(name.toString());
    }

    const QJsonArray tempImages = catalogue.value(QLatin1String("tmp_images")).toArray();
    for (const QJsonValue &name : tempImages) {
        prepareTempImage(name.toString().remove(QLatin1Char(' ')));
    }
}

void ImageManager::parseJson(const QString &name)
{
    ImageFile image;
    for (int i = 0; i < ImageFile::VariantCount; ++i) {
        image.names[i] = name + QLatin1String(VariantSuffixes[i]);
    }
    m_images[name] = image;
}

void ImageManager::lazyLoad(const QString &name)
{
    ImageFile &image = m_images[name];
    if (!image.loaded) {
        load(image);
    }
}

void ImageManager::prepareImages()
{
    QStringList names = m_images.keys();
    names.sort();
    for (const QString &name : qAsConst(names)) {
        load(m_images[name]);
    }
}

void ImageManager::load(ImageFile &image)
{
    const double scale = DPIinfo::getInstance()->getDPI();
    const double ratio = DPIinfo::getInstance()->getDPR();
    for (int i = 0; i < ImageFile::VariantCount; ++i) {
        const QPixmap original = readPixmap(getImageFullPath(image.names[i]));
        if (original.isNull()) {
            // An image that has failed before has lost its names, and has been told of.
            if (i == IMAGE_NORMAL && !image.names[IMAGE_HOVER].isEmpty()
                && !QFile::exists(getImageFullPath(image.names[i]))) {
                qCWarning(vela_theme).noquote().nospace()
                    << getImageFullPath(image.names[i])
                    << ": there is no such image, but \"images.json\" lists it. Add the file, or take it off the list.";
            }
            image.names[i].clear();
            continue;
        }
        // Each step rounds, so one multiplication would give other sizes.
        const QSize size = original.size() / DrawnScale * scale * ratio;
        image.pixmaps[i] = scaledTo(original, size);
        if (image.pixmaps[i].isNull() && !size.isEmpty()) { // there is no memory for it
            image.names[i].clear();
            continue;
        }
        image.pixmaps[i].setDevicePixelRatio(ratio);
        image.loaded = true;
    }
}

void ImageManager::prepareTempImage(const QString &name)
{
    QPixmap pixmap = readPixmap(getImageFullPath(name));
    if (!pixmap.isNull()) {
        pixmap = scaledTo(pixmap, pixmap.size() / DrawnScale * DPIinfo::getInstance()->getDPI());
    }

    // Without an original an empty file is left behind, never a copy of an earlier run at another scale.
    QFile file(getTempImageFullPath(name));
    if (file.open(QIODevice::WriteOnly)) {
        pixmap.save(&file, "PNG");
    }
}

QString ImageManager::getImageFullPath(const QString &name)
{
    return m_imageFolder + QDir::separator() + name + QLatin1String(".png");
}

QString ImageManager::getTempImageFullPath(const QString &name)
{
    return m_tempImageFolder + QDir::separator() + QLatin1String("tmp_") + name + QLatin1String(".png");
}

QPixmap ImageManager::getImage(const QString &name, ImageType type)
{
    auto entry = m_images.constFind(name);
    if (entry == m_images.constEnd()) {
        qCWarning(debug_message) << "Cannot load pixmap" << name;
        return QPixmap();
    }

    if (m_type == INIT_LAZY && !entry->loaded) {
        lazyLoad(name);
        entry = m_images.constFind(name);
    }
    const bool isVariant = type >= 0 && type < ImageFile::VariantCount;
    if (!isVariant || entry->names[type].isEmpty()) {
        qCWarning(debug_message) << "Cannot load pixmap" << name << "with type" << int(type) << "[use default icon]";
        return entry->pixmaps[IMAGE_NORMAL];
    }
    return entry->pixmaps[type];
}

const QString &ImageManager::getImageFolder()
{
    return folderOrAbort(m_imageFolder);
}

const QString &ImageManager::getTempImageFolder()
{
    return folderOrAbort(m_tempImageFolder);
}

QPixmap getGlobalImage(const char *name, ImageManager::ImageType type)
{
    return ImageManager::getInstance()->getImage(QString::fromUtf8(name), type);
}

QPixmap getGlobalImage(const QString &name, ImageManager::ImageType type)
{
    return ImageManager::getInstance()->getImage(name, type);
}
