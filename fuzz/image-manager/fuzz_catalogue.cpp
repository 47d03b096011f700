// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// A catalogue of images: which names are known then, at which size, and which copies are written.

#include "image-manager/image-manager.h"
#include "look/look-tables_p.h"
#include "scale/dpi-info.h"
#include "support/input.h"
#include "support/widgets.h"
#include "utils/ui-path-manager.h"

#include <QCache>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

namespace {

constexpr const char *Suffixes[] = {"", "_hover", "_click", "_disable"};

QSize scaledLiterally(QSize size)
{
    size /= 4.0;
    return size * DPIinfo::getInstance()->getDPI();
}

class ResourceFolder
{
public:
    ResourceFolder()
    {
        QDir(m_folder.path()).mkpath(QStringLiteral("images"));
        write("a", {8, 8});
        write("a_hover", {30, 30});
        write("b_click", {5, 64});
        write("bb", {1, 1});
        QFile broken(m_folder.filePath(QStringLiteral("images/c.png")));
        broken.open(QIODevice::WriteOnly);
        broken.write("no image");
        UIPathManager::getInstance()->setPath(QStringLiteral("resource_path"), m_folder.path());
        UIPathManager::getInstance()->setPath(QStringLiteral("user_data_path"), m_folder.path());
    }

    // The size of an image in the file, empty if there is none. The files stay as they are.
    QSize sizeOf(const QString &name) const
    {
        static QCache<QString, QSize> sizes(10000);
        if (!sizes.contains(name)) {
            const QString path = m_folder.filePath(QStringLiteral("images/") + name + QStringLiteral(".png"));
            sizes.insert(name, new QSize(QImage(path).size()));
        }
        return *sizes[name];
    }

    QString copyOf(const QString &name) const
    {
        return m_folder.path() + QStringLiteral("/tmp_images/tmp_") + name + QStringLiteral(".png");
    }

    QString catalogue() const { return m_folder.filePath(QStringLiteral("images.json")); }

private:
    void write(const char *name, QSize size) const
    {
        QImage image(size, QImage::Format_ARGB32);
        image.fill(Qt::red);
        image.save(m_folder.filePath(QStringLiteral("images/%1.png").arg(QLatin1String(name))));
    }

    QTemporaryDir m_folder;
};

QStringList namesIn(const QJsonValue &array)
{
    QStringList names;
    const QJsonArray values = array.toArray();
    for (const QJsonValue &value : values) {
        names.append(value.isString() ? value.toString() : QString());
    }
    return names;
}

void checkImages(const ResourceFolder &folder, const QStringList &names, ImageManager::InitializeType type)
{
    for (const QString &name : names + QStringList {QStringLiteral("a"), QStringLiteral("none")}) {
        QSize normal;
        for (int i = 0; i < 4; ++i) {
            const QSize file = names.contains(name) && (type == 0 || type == 1)
                ? folder.sizeOf(name + QLatin1String(Suffixes[i]))
                : QSize();
            QSize expected = file.isEmpty() ? normal : scaledLiterally(file);
            const QSize actual =
                ImageManager::getInstance()->getImage(name, static_cast<ImageManager::ImageType>(i)).size();
            // What is scaled to nothing is no image, but is there.
            if (file.isEmpty() || !expected.isEmpty()) {
                agree("size", actual, expected.isEmpty() ? QSize(0, 0) : expected);
            }
            normal = i == 0 ? actual : normal;
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    startApplication();
    static const ResourceFolder folder;
    static const Vela::LookTables fresh = Vela::LookTables::installed();
    FuzzInput input(data, size);
    const auto type = static_cast<ImageManager::InitializeType>(input.take<quint8>() % 3);
    const QByteArray json = input.rest();
    {
        QFile file(folder.catalogue());
        file.open(QIODevice::WriteOnly);
        file.write(json);
    }
    fresh.install();
    ImageManager::getInstance()->initialize(type);

    const QByteArray bytes = QByteArray(json).replace('\r', QByteArray()); // as files are read in text mode
    const QJsonObject catalogue = QJsonDocument::fromJson(textOf(bytes).toUtf8()).object();
    checkImages(folder, namesIn(catalogue.value(QLatin1String("images"))), type);
    const QStringList copies = namesIn(catalogue.value(QLatin1String("tmp_images")));
    for (QString name : copies) {
        name.remove(QLatin1Char(' '));
        const QString copy = folder.copyOf(name);
        const bool isFileName =
            !name.contains(QLatin1Char('/')) && !name.contains(QChar(0)) && name.toUtf8().size() < 200;
        if (isFileName) {
            agree("copy is there", QFile::exists(copy), true);
            agree("size of a copy", QImage(copy).size(), scaledLiterally(folder.sizeOf(name)));
        }
    }
    for (QString name : copies) {
        QFile::remove(folder.copyOf(name.remove(QLatin1Char(' '))));
    }
    return 0;
}
