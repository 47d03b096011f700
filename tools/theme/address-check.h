// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QSet>
#include <QString>

class SectionFindings;
class SheetText;
class ThemeImages;
struct SheetDeclaration;

/// Images that style sheets name.
struct UsedImages
{
    QSet<QString> drawn; ///< through IMG_LOC
    QSet<QString> scaled; ///< through TMPIMG_LOC, without "tmp_"
};

/// Checks the images that style sheets name.
class AddressCheck
{
public:
    AddressCheck(const SheetText &text, const ThemeImages &images) : m_text(text), m_images(images) { }

    void run(const SheetDeclaration &declaration, SectionFindings *findings);
    /// Those of all declarations so far.
    const UsedImages &used() const { return m_used; }

private:
    void checkAddress(const SheetDeclaration &declaration, const QString &address, SectionFindings *findings);
    void checkDrawnImage(const SheetDeclaration &declaration, const QString &file, SectionFindings *findings);
    void checkScaledImage(const SheetDeclaration &declaration, const QString &file, SectionFindings *findings);
    void reportMissing(const SheetDeclaration &declaration, const QString &file, SectionFindings *findings);

    const SheetText &m_text;
    const ThemeImages &m_images;
    UsedImages m_used;
};
