// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "settings.h"

#include "disk/native-path.h"

#include <QSettings>

#include <algorithm>

Settings Settings::read()
{
    const QSettings file;
    Settings settings;
    settings.theme = file.value(QStringLiteral("theme"), QStringLiteral("light")).toString();
    settings.language = file.value(QStringLiteral("language")).toString();
    settings.folder = pathFromBytes(file.value(QStringLiteral("folder")).toByteArray());
    settings.order.column = std::clamp(file.value(QStringLiteral("sortColumn")).toInt(), 0, ColumnCount - 1);
    const bool isDescending = file.value(QStringLiteral("sortDescending")).toBool();
    settings.order.direction = isDescending ? Qt::DescendingOrder : Qt::AscendingOrder;
    settings.withHidden = file.value(QStringLiteral("showHidden")).toBool();
    settings.geometry = file.value(QStringLiteral("geometry")).toByteArray();
    settings.split = file.value(QStringLiteral("split")).toByteArray();
    return settings;
}

void Settings::write() const
{
    QSettings file;
    file.setValue(QStringLiteral("theme"), theme);
    file.setValue(QStringLiteral("language"), language);
    file.setValue(QStringLiteral("folder"), bytesFromPath(folder));
    file.setValue(QStringLiteral("sortColumn"), order.column);
    file.setValue(QStringLiteral("sortDescending"), order.direction == Qt::DescendingOrder);
    file.setValue(QStringLiteral("showHidden"), withHidden);
    file.setValue(QStringLiteral("geometry"), geometry);
    file.setValue(QStringLiteral("split"), split);
}
