// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "json-file.h"

#include <QSet>
#include <QSize>
#include <QString>
#include <QStringList>

class Findings;
struct UsedImages;

/// The catalogue of a theme and the files in its folder of images.
class ThemeImages
{
public:
    ThemeImages(const QString &folder, Findings *findings);

    /// Whether images.json could be read.
    bool hasCatalogue() const { return m_catalogue.isValid(); }
    /// File names with their endings.
    const QSet<QString> &files() const { return m_files; }
    /// Names under "images".
    const QStringList &names() const { return m_names; }
    /// Names under "tmp_images", without blanks, which the library removes.
    const QStringList &scaledNames() const { return m_scaledNames; }
    /// The file whose name differs from @p file in upper and lower case only, empty if there is none.
    QString inOtherCase(const QString &file) const;

    /// Checks catalogue and files; call it once it is known what style sheets use.
    void check(const UsedImages &used);

    /// Bytes that the images take in memory at a scale and ratio: all that are listed, or those that the library asks
    /// for.
    qint64 bytes(double scale, double ratio, bool ofAll) const;

private:
    void readCatalogue();
    void checkNames();
    void checkListedFiles();
    void checkStates(const QString &name);
    void checkStateSizes();
    void checkContract();
    void checkContent(const QString &file);
    void checkSmallness();
    void checkUse(const UsedImages &used);
    bool isStateOfListed(const QString &name) const;
    QSize sizeOf(const QString &name) const;
    bool isSpoilt(const QString &name) const;

    const QString m_folder;
    Findings *const m_findings;
    const JsonFile m_catalogue;
    QSet<QString> m_files;
    QStringList m_names;
    QStringList m_scaledNames;
    QSet<QString> m_spoilt; // names of images with a finding
    bool m_hasNameless = false; // whether something in the catalogue is no name
    mutable QHash<QString, QSize> m_sizes;
};
