// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "image-manager/image-manager.h"
#include "look/look_p.h"

#include <QHash>
#include <QMap>

#include <map>

namespace Vela {

/// All that an application has installed, as one value: to be kept, replaced as a whole, or put back.
struct LookTables
{
    static LookTables installed();
    void install() const;

    std::map<QString, QString> paths;
    QMap<QString, QString> texts;
    std::map<QString, QString> sections;
    ImageManager::InitializeType imageLoading = ImageManager::INIT_PRELOAD;
    QString imageFolder;
    QString tempImageFolder;
    QHash<QString, ImageManager::ImageFile> images;
    Look::Colors colors;
};

} // namespace Vela
