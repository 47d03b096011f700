// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "image-manager/image-manager.h"
#include "style-manager/dpi-info.h"
#include "support/comparison.h"
#include "support/resources.h"

#include <QApplication>
#include <QHash>
#include <QPixmapCache>

#include <algorithm>
#include <map>

namespace {

constexpr double LoadingTarget = 1.0;
constexpr double RequestTarget = 1.2;

constexpr int ImageCount = 24;
constexpr int Sizes[] = {64, 96, 128, 256}; // sizes of theme images, four times their logical size
constexpr const char *Variants[] = {"", "_hover", "_click", "_disable"};

QStringList imageNames()
{
    QStringList names;
    for (int i = 0; i < ImageCount; ++i) {
        names.append(QLatin1String("bt_toolbar_") + QString::number(i));
    }
    return names;
}

// Draws and lists images, and of each the first variantCount variants. As ImageManager forgets no name,
// all sets of images here have the same ones.
void writeImages(const Resources &resources, int variantCount)
{
    const QStringList names = imageNames();
    for (int i = 0; i < ImageCount; ++i) {
        for (int variant = 0; variant < variantCount; ++variant) {
            resources.writeImage(names[i] + QLatin1String(Variants[variant]), Sizes[i % std::size(Sizes)]);
        }
    }
    resources.writeCatalogue(names);
}

void loadBare(const QString &path)
{
    const QPixmap original(path);
    const QSize size = original.size() / 4.0 * DPIinfo::getInstance()->getDPI() * DPIinfo::getInstance()->getDPR();
    benchmark::DoNotOptimize(original.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

// Loads and scales the same files, none of them from the pixmap cache.
Side bareLoading(const Resources &resources, int variantCount)
{
    QStringList paths;
    for (const QString &name : imageNames()) {
        for (int variant = 0; variant < variantCount; ++variant) {
            paths.append(resources.imagePath(name + QLatin1String(Variants[variant])));
        }
    }
    return [paths](benchmark::State &state) {
        for (auto iteration : state) {
            Q_UNUSED(iteration)
            std::for_each(paths.begin(), paths.end(), loadBare);
            state.PauseTiming();
            QPixmapCache::clear();
            state.ResumeTiming();
        }
    };
}

void compareLoading(const Resources &resources, const std::string &what, int variantCount)
{
    const Side floor = bareLoading(resources, variantCount);
    compare(
        "INIT_PRELOAD, " + what, LoadingTarget,
        [&resources](benchmark::State &state) {
            resources.setAsPaths();
            for (auto iteration : state) {
                Q_UNUSED(iteration)
                ImageManager::getInstance()->initialize(ImageManager::INIT_PRELOAD);
            }
        },
        floor);
    compare(
        "first requests, " + what, LoadingTarget,
        [&resources](benchmark::State &state) {
            resources.setAsPaths();
            const QStringList names = imageNames();
            for (auto iteration : state) {
                Q_UNUSED(iteration)
                state.PauseTiming();
                ImageManager::getInstance()->initialize(ImageManager::INIT_LAZY);
                state.ResumeTiming();
                for (const QString &name : names) {
                    benchmark::DoNotOptimize(ImageManager::getInstance()->getImage(name, ImageManager::IMAGE_NORMAL));
                }
            }
        },
        floor);
}

// Compares INIT_LAZY with all images listed against a start with none.
void compareLazyStart(const Resources &full, const Resources &empty)
{
    const auto start = [](const Resources &resources) {
        return [&resources](benchmark::State &state) {
            resources.setAsPaths();
            for (auto iteration : state) {
                Q_UNUSED(iteration)
                ImageManager::getInstance()->initialize(ImageManager::INIT_LAZY);
            }
        };
    };
    compare("INIT_LAZY, 24 images against none", std::nullopt, start(full), start(empty));
}

// Compares with a look-up in Images, which maps names to pixmaps, and a shared copy.
template<typename Images>
void compareRequest(const Resources &resources, const char *what)
{
    compare(
        what, RequestTarget,
        [&resources](benchmark::State &state) {
            resources.setAsPaths();
            ImageManager::getInstance()->initialize(ImageManager::INIT_PRELOAD);
            const QStringList names = imageNames();
            for (auto iteration : state) {
                Q_UNUSED(iteration)
                for (const QString &name : names) {
                    benchmark::DoNotOptimize(ImageManager::getInstance()->getImage(name, ImageManager::IMAGE_NORMAL));
                }
            }
        },
        [](benchmark::State &state) {
            const QStringList names = imageNames();
            Images images;
            for (const QString &name : names) {
                images[name] = QPixmap(16, 16);
            }
            for (auto iteration : state) {
                Q_UNUSED(iteration)
                for (const QString &name : names) {
                    benchmark::DoNotOptimize(QPixmap(images[name]));
                }
            }
        });
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    const Resources withVariants;
    writeImages(withVariants, 4);
    const Resources normalOnly;
    writeImages(normalOnly, 1);
    const Resources empty;
    empty.writeCatalogue({});

    compareLoading(withVariants, "all variants", 4);
    compareLoading(normalOnly, "normal variant only", 1);
    compareLazyStart(withVariants, empty);
    compareRequest<std::map<QString, QPixmap>>(withVariants, "request of a loaded image");
    compareRequest<QHash<QString, QPixmap>>(withVariants, "request of a loaded image, floor a hash");
    return runComparisons(argc, argv);
}
