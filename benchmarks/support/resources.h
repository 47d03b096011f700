// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "support/resource-folder.h"

#include <QByteArray>

/// The folders that an application sets up for the library, with what comparisons put into them.
class Resources : public ResourceFolder
{
public:
    Resources();

    using ResourceFolder::writeImage;
    /// Draws an image of @p size by @p size pixels that a PNG does not shrink to nothing.
    void writeImage(const QString &name, int size) const;
    /// Writes a file of style sheets and returns its path.
    QString writeSheet(const QString &name, const QByteArray &text) const;
};

/// @p body as the section of @p key.
QByteArray headed(const char *key, const QByteArray &body);

/// The rules of a themed button of @p widgetClass: at rest, hovered, focused, pressed and disabled.
QByteArray buttonSheet(const char *widgetClass);

/// A file of style sections with comments, of about @p size bytes.
QByteArray sheetFile(int size);

/// A section of about @p size bytes without comments.
QByteArray sheetSection(int size);
