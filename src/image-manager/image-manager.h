// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "vela_export.h"

#include <QHash>
#include <QPixmap>
#include <QString>

namespace Vela {
struct LookTables;
}

/// The application's images by name and state, sized for the screen.
///
/// An image is drawn at four times its logical size. It and its state variants are the PNG files `<name>.png`,
/// `<name>_hover.png`, `<name>_click.png` and `<name>_disable.png` in the folder "images" of "resource_path", where
/// `images.json` lists the names: `{ "images": ["icon_warning", ...], "tmp_images": ["bt_next", ...] }`. Of each name
/// under "tmp_images" a copy scaled for the screen, without the device pixel ratio, `tmp_<name>.png`, is written to the
/// folder "tmp_images" of "user_data_path", for style sheets, which cannot scale an image. GUI thread only.
class VELA_EXPORT ImageManager
{
public:
    /// When images are loaded. Any other value loads nothing, ever.
    enum InitializeType : int {
        INIT_PRELOAD = 0, ///< loads all images in initialize()
        INIT_LAZY = 1, ///< loads an image, with its variants, at its first request
    };

    /// State of an image.
    enum ImageType : int {
        IMAGE_NORMAL = 0,
        IMAGE_HOVER = 1,
        IMAGE_CLICK = 2,
        IMAGE_DISABLE = 3,
    };

    /// A listed image; the arrays are indexed by ImageType.
    struct ImageFile
    {
        /// How many states an image has.
        static constexpr int VariantCount = 4;

        QString names[VariantCount]; ///< file names without ".png"; empty for a variant that could not be loaded
        QPixmap pixmaps[VariantCount]; ///< null for a variant that could not be loaded
        bool loaded = false; ///< whether at least one variant could be loaded
    };

    /// The one instance, created on first use.
    static ImageManager *getInstance();

    /// Reads `images.json`, writes the copies of its "tmp_images" and, with INIT_PRELOAD, loads all images. Needs both
    /// folders of UIPathManager and a QApplication. A list or an image that cannot be read is told of in
    /// "vela.theme" only, and a folder that cannot be written is passed over in silence.
    void initialize(InitializeType type);

    /// The image of @p name in state @p type. Its size in device pixels is the file's divided by 4, times
    /// DPIinfo::getDPI(), times DPIinfo::getDPR(), rounded at each step; its device pixel ratio is set.
    ///
    /// A variant that is missing is replaced by the normal one, with a warning. A null pixmap is returned when that is
    /// missing too and, with a warning, for a name that is not listed. A @p type out of range is a missing variant.
    QPixmap getImage(const QString &name, ImageType type);

    /// "resource_path" + "/images". Logs a warning and aborts the process before initialize(): style sheets read
    /// without it would silently lose all their images.
    const QString &getImageFolder();

    /// "user_data_path" + "/tmp_images"; aborts like getImageFolder().
    const QString &getTempImageFolder();

private:
    friend struct Vela::LookTables; // friend that keeps and replaces the whole state

    ImageManager() = default;
    ~ImageManager() = default;
    Q_DISABLE_COPY_MOVE(ImageManager)

    void readJson();
    void parseJson(const QString &name);
    void lazyLoad(const QString &name);
    void prepareImages();
    void prepareTempImage(const QString &name);
    QString getImageFullPath(const QString &name);
    QString getTempImageFullPath(const QString &name);

    void load(ImageFile &image);

    InitializeType m_type = INIT_PRELOAD;
    QString m_imageFolder;
    QString m_tempImageFolder;
    QHash<QString, ImageFile> m_images;
};

/// The same as ImageManager::getImage(); @p name is UTF-8.
VELA_EXPORT QPixmap getGlobalImage(const char *name, ImageManager::ImageType type);
/// The same as ImageManager::getImage().
VELA_EXPORT QPixmap getGlobalImage(const QString &name, ImageManager::ImageType type);
