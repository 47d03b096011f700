// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

class QImage;

/// An application's resource and user-data folder for the time of a test.
class ResourceFolder
{
public:
    ResourceFolder();

    QString path() const;
    QString userDataPath() const;
    QString imagePath(const QString &name) const;
    QString tempImagePath(const QString &name) const;

    /// Sets both folder keys to this folder; what UIPathManager logs of it is swallowed.
    void setAsPaths() const;

    void writeFile(const QString &relativePath, const QByteArray &content) const;
    void writeCatalogue(const QStringList &images, const QStringList &tempImages = {}) const;
    void writeImage(const QString &name, const QImage &image) const;
    void writeImage(const QString &name, const QSize &size, const QColor &color) const;
    void removeImage(const QString &name) const;

private:
    QTemporaryDir m_folder;
};

/// Makes the start-up calls with the reference theme, once a process: folders, English texts, images and all sheets.
void installReferenceTheme();
