// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// The folders that an application sets up for the library, empty, in a temporary place.
class Resources
{
public:
    Resources();

    /// Makes these folders the ones that UIPathManager knows.
    void use() const;

    QString path(const QString &name) const;
    QString writeSheet(const QString &name, const QByteArray &text) const;
    /// Draws an image of @p size by @p size pixels that a PNG does not shrink to nothing.
    void writeImage(const QString &name, int size) const;
    void writeCatalogue(const QStringList &images) const;

private:
    QTemporaryDir m_folder;
};

/// @p body as the section of @p key.
QByteArray headed(const char *key, const QByteArray &body);

/// The rules of a themed button of @p widgetClass: at rest, hovered, focused, pressed and disabled.
QByteArray buttonSheet(const char *widgetClass);

/// A file of style sections with comments, of about @p size bytes.
QByteArray sheetFile(int size);

/// A section of about @p size bytes without comments.
QByteArray sheetSection(int size);
