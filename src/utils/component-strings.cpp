// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "utils/component-strings.h"

#include "utils/debug-message.h"

ComponentStrings *ComponentStrings::getInstance()
{
    static ComponentStrings instance;
    return &instance;
}

void ComponentStrings::installStrings(const QMap<QString, QString> &strings)
{
    m_strings = strings;
}

QString ComponentStrings::getString(const QString &key)
{
    const auto entry = m_strings.constFind(key);
    if (entry == m_strings.constEnd()) {
        qCWarning(debug_message) << "Cannot find key in ComponentStrings" << key;
        return key;
    }
    return *entry;
}

bool ComponentStrings::contains(const QString &key) const
{
    return m_strings.contains(key);
}
