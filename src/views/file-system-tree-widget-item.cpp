// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "views/vela-tree-widget.h"

class FileSystemTreeWidgetItemPrivate
{
};

FileSystemTreeWidgetItem::FileSystemTreeWidgetItem() : clientData(0) { }

FileSystemTreeWidgetItem::FileSystemTreeWidgetItem(const FileSystemTreeWidgetItem &other) :
    QTreeWidgetItem(other), path(other.path), clientData(other.clientData)
{
}

FileSystemTreeWidgetItem::~FileSystemTreeWidgetItem() = default;

FileSystemTreeWidgetItem &FileSystemTreeWidgetItem::operator=(const FileSystemTreeWidgetItem &other)
{
    QTreeWidgetItem::operator=(other);
    path = other.path;
    clientData = other.clientData;
    return *this;
}

const QString &FileSystemTreeWidgetItem::getPath() const
{
    return path;
}

bool FileSystemTreeWidgetItem::operator<(const QTreeWidgetItem &other) const
{
    const auto &otherItem = dynamic_cast<const FileSystemTreeWidgetItem &>(other);
    return otherItem.path != QLatin1String("home") && QTreeWidgetItem::operator<(other);
}
