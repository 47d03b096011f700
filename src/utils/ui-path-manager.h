// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "vela_export.h"

#include <QString>

#include <map>

namespace Vela {
struct LookTables;
}

/// The application's folders by key.
///
/// The library reads two keys: "resource_path", the read-only folder that holds `images.json`, `images/` and usually
/// the style sheets, and "user_data_path", a writable folder for generated images. Set both before
/// ImageManager::initialize(). Neither path may hold digits directly before "px", see StyleManager::initialize(). GUI
/// thread only.
class VELA_EXPORT UIPathManager
{
public:
    /// The one instance, created on first use.
    static UIPathManager *getInstance();

    /// Stores @p path under the case-sensitive @p key, exactly as given: nothing is checked, and no separator is
    /// added or removed. Others append "/images" and the like to it, so leave out a trailing "/".
    /// A key that is there already is overwritten, with a warning that names the new path.
    void setPath(const QString &key, const QString &path);

    /// The path stored under @p key; an empty string, with a warning, for an unknown key.
    QString getPath(const QString &key);

private:
    friend struct Vela::LookTables; // keeps and replaces all of it

    UIPathManager() = default;
    ~UIPathManager() = default;
    Q_DISABLE_COPY_MOVE(UIPathManager)

    std::map<QString, QString> m_paths;
};
