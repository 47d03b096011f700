// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "utils/ui-path-manager.h"

#include "utils/debug-message.h"

UIPathManager *UIPathManager::getInstance()
{
    static UIPathManager instance;
    return &instance;
}

void UIPathManager::setPath(const QString &key, const QString &path)
{
    const auto [entry, isNew] = m_paths.try_emplace(key, path);
    if (isNew) {
        return;
    }

    qCWarning(debug_message) << "Existing path is" << path << "with key" << key << "but overwrite it now";
    entry->second = path;
}

QString UIPathManager::getPath(const QString &key)
{
    const auto entry = m_paths.find(key);
    if (entry == m_paths.end()) {
        qCWarning(debug_message) << "Cannot find path by key" << key;
        return QString();
    }
    return entry->second;
}
