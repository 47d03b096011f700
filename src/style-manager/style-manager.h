// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "style-manager/dpi-info.h"
#include "vela_export.h"

#include <QString>

#include <map>
#include <vector>

namespace Vela {
struct LookTables;
}

/// The style sheets of all widgets by key ("component.apply_button"), read from the application's files.
///
/// A file is UTF-8 text, cut into sections by header lines such as `== component.label ==`: lines that begin and end
/// with "==". A section's key is its header without any "=" and blank. Block comments and "//" comments are removed
/// before that, the latter together with their line break. GUI thread only.
class VELA_EXPORT StyleManager
{
public:
    /// The one instance, created on first use.
    static StyleManager *getInstance();

    /// Reads @p files in their order. A section replaces an earlier one of the same key, of an earlier call too. A file
    /// that does not exist is skipped with a warning.
    ///
    /// "TMPIMG_LOC" and "IMG_LOC" in the text become ImageManager's folders, so ImageManager::initialize() must have
    /// run: the process is aborted otherwise. Digits before "px" in a folder's path are scaled with the lengths, and
    /// its images are not found then: have none in "resource_path" and "user_data_path".
    void initialize(const std::vector<QString> &files);

    /// The section under @p key: as it was read when @p raw, otherwise scaled by DPIinfo::getScaledStyleSheet(), anew
    /// at each call. An empty string, with a warning, for an unknown key.
    QString getStyleSheet(const QString &key, bool raw);

private:
    friend struct Vela::LookTables; // friend that keeps and replaces the whole state

    StyleManager() = default;
    ~StyleManager() = default;
    Q_DISABLE_COPY_MOVE(StyleManager)

    std::map<QString, QString> m_sections;
};

/// The same as StyleManager::getStyleSheet(); @p key is UTF-8.
VELA_EXPORT QString getStyleSheet(const char *key, bool raw);
/// The same as StyleManager::getStyleSheet().
VELA_EXPORT QString getStyleSheet(const QString &key, bool raw);
