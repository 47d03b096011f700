// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// An image file, whatever is in it, and its copy.

#include "image-manager/image-manager.h"
#include "scale/dpi-info.h"
#include "support/input.h"
#include "support/widgets.h"
#include "utils/ui-path-manager.h"

#include <QBuffer>
#include <QDir>
#include <QImageReader>
#include <QTemporaryDir>

namespace {

constexpr int MaximalPixels = 1000000; // more than that is for the toolkit to decode, and takes its time

void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    file.write(bytes);
}

bool isHuge(const QByteArray &bytes)
{
    QBuffer device;
    device.setData(bytes);
    const QSize size = QImageReader(&device).size();
    return qint64(size.width()) * size.height() > MaximalPixels;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    startApplication();
    static const QTemporaryDir folder;
    static const bool isSetUp = [] {
        QDir(folder.path()).mkdir(QStringLiteral("images"));
        write(folder.filePath(QStringLiteral("images.json")), R"({ "images": ["x"], "tmp_images": ["x"] })");
        UIPathManager::getInstance()->setPath(QStringLiteral("resource_path"), folder.path());
        UIPathManager::getInstance()->setPath(QStringLiteral("user_data_path"), folder.path());
        return true;
    }();
    Q_UNUSED(isSetUp)
    const QByteArray bytes = FuzzInput(data, size).rest();
    if (isHuge(bytes)) {
        return -1;
    }
    const QString path = folder.filePath(QStringLiteral("images/x.png"));
    write(path, bytes);
    ImageManager::getInstance()->initialize(ImageManager::INIT_PRELOAD);

    const QPixmap original = QPixmap::fromImage(QImage(path)); // not out of the cache of pixmaps
    QSize target = original.size() / 4.0;
    target *= DPIinfo::getInstance()->getDPI();
    const QPixmap expected = original.scaled(target, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    const QPixmap actual = getGlobalImage("x", ImageManager::IMAGE_NORMAL);
    agree("size", actual.size(), expected.size());
    agree("image is the same", actual.toImage() == expected.toImage(), true);
    const QImage copy(folder.filePath(QStringLiteral("tmp_images/tmp_x.png")));
    agree("size of the copy", copy.size(), expected.size());
    return 0;
}
