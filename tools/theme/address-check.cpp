// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "address-check.h"

#include "scaled-text.h"
#include "section-findings.h"
#include "sheet-syntax.h"
#include "theme-images.h"

namespace {

QString nameWithoutEnding(const QString &name)
{
    return name.endsWith(QLatin1String(".png")) ? name.chopped(4) : name;
}

} // namespace

void AddressCheck::run(const SheetDeclaration &declaration, SectionFindings *findings)
{
    const QStringList addresses = addressesIn(declaration.value);
    for (const QString &address : addresses) {
        checkAddress(declaration, address, findings);
    }
}

void AddressCheck::checkAddress(const SheetDeclaration &declaration, const QString &address, SectionFindings *findings)
{
    const QString drawnFolder = QStringLiteral("IMG_LOC/");
    const QString scaledFolder = QStringLiteral("TMPIMG_LOC/");
    const bool isDrawn = address.startsWith(drawnFolder);
    const bool isScaled = address.startsWith(scaledFolder);
    QString name = address.section(QLatin1Char('/'), 1);
    (isScaled ? m_used.scaled : m_used.drawn)
        .insert(nameWithoutEnding(isScaled && name.startsWith(QLatin1String("tmp_")) ? name.mid(4) : name));
    if (holdsLength(address)) {
        findings->add("image-digits", declaration.begin,
                      QStringLiteral("the digits before \"px\" are scaled: %1").arg(atEachScale(name)));
    } else if (isDrawn) {
        checkDrawnImage(declaration, name, findings);
    } else if (isScaled && m_images.hasCatalogue()) {
        checkScaledImage(declaration, name, findings);
    } else if (!isScaled && !address.startsWith(QLatin1Char(':')) && !address.startsWith(QLatin1String("qrc:"))
               && !address.startsWith(QLatin1Char('/'))) {
        findings->add(
            "address-outside", declaration.begin,
            QStringLiteral("\"%1\" is looked for in the program's working folder: begin with IMG_LOC/").arg(address));
    }
}

void AddressCheck::checkDrawnImage(const SheetDeclaration &declaration, const QString &file, SectionFindings *findings)
{
    const QString name = nameWithoutEnding(file);
    if (!m_images.files().contains(file)) {
        reportMissing(declaration, file, findings);
    } else if (m_images.scaledNames().contains(name) && !m_images.names().contains(name)
               && !m_text.contains("TMPIMG_LOC/tmp_" + name.toUtf8() + ".png")) {
        findings->add("image-folder", declaration.begin,
                      QStringLiteral("\"%1\" is listed under \"tmp_images\": use TMPIMG_LOC/tmp_%1.png").arg(name));
    } else if (declaration.name == QLatin1String("background-image")
               || declaration.name == QLatin1String("background")) {
        findings->add("image-unscaled", declaration.begin,
                      QStringLiteral("the background is painted four times as large as \"%1\" is meant").arg(name));
    }
}

void AddressCheck::checkScaledImage(const SheetDeclaration &declaration, const QString &file, SectionFindings *findings)
{
    const QString name = nameWithoutEnding(file.startsWith(QLatin1String("tmp_")) ? file.mid(4) : file);
    const QString near = nearest(name, m_images.scaledNames());
    if (!near.isEmpty() && near != name && !m_images.files().contains(near + QLatin1String(".png"))
        && m_images.files().contains(name + QLatin1String(".png"))) {
        return; // it is listed by a misspelt name, which is told where it is listed
    }
    if (!file.startsWith(QLatin1String("tmp_"))) {
        findings->add("image-missing", declaration.begin,
                      QStringLiteral("the copy's name begins with \"tmp_\": TMPIMG_LOC/tmp_%1").arg(file));
    } else if (m_images.scaledNames().contains(name)) {
        return; // whether it exists is told where it is listed
    } else if (m_images.names().contains(name)) {
        findings->add(
            "image-folder", declaration.begin,
            QStringLiteral(
                "\"%1\" is listed under \"images\" only, so that there is no copy: list it under \"tmp_images\"")
                .arg(name));
    } else if (m_images.files().contains(name + QLatin1String(".png"))) {
        findings->add("image-folder", declaration.begin,
                      QStringLiteral("\"%1\" is not listed under \"tmp_images\", so that there is no copy").arg(name));
    } else {
        reportMissing(declaration, name + QLatin1String(".png"), findings);
    }
}

void AddressCheck::reportMissing(const SheetDeclaration &declaration, const QString &file, SectionFindings *findings)
{
    const QString other = m_images.inOtherCase(file);
    if (!other.isEmpty()) {
        m_used.drawn.insert(nameWithoutEnding(other));
        findings->add("image-case", declaration.begin,
                      QStringLiteral("the file's name is images/%1, and not images/%2").arg(other, file));
        return;
    }
    const QStringList files = m_images.files().values();
    m_used.drawn.insert(nameWithoutEnding(nearest(file, files))); // is not unused besides
    findings->add("image-missing", declaration.begin,
                  QStringLiteral("there is no images/%1").arg(file) + suggestion(file, files));
}
