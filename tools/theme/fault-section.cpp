// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "fault-section.h"

#include "findings.h"
#include "look/keys_p.h"
#include "sheet-text.h"

#include <StyleManager>

#include <QWidget>

#include <algorithm>

namespace {

struct Section
{
    QString key;
    QString text;
};

QVector<Section> sectionsIn(const QString &sheet)
{
    QVector<Section> sections;
    for (const Vela::StyleEntry &entry : Vela::StyleEntries) {
        const QString text = sheet.isEmpty() ? QString() : getStyleSheet(entry.key, false);
        if (!text.isEmpty() && sheet.contains(text)) {
            sections.append({QString::fromLatin1(entry.key), text});
        }
    }
    return sections;
}

SourceLine headerOf(const QString &key, const SheetText &sheets)
{
    const auto &sections = sheets.sections();
    const auto section =
        std::find_if(sections.begin(), sections.end(), [&key](const ThemeSection &known) { return known.key == key; });
    return section == sections.end() ? SourceLine {QString(), 0} : section->header;
}

} // namespace

QStringList sectionsOf(const QWidget *widget)
{
    QStringList keys;
    for (; widget; widget = widget->parentWidget()) {
        const QVector<Section> sections = sectionsIn(widget->styleSheet());
        for (const Section &section : sections) {
            keys.append(section.key);
        }
    }
    return keys;
}

QString sectionAtFault(QWidget *widget, const std::function<bool()> &isFaulty)
{
    QString found;
    for (QWidget *styled = widget; styled; styled = styled->parentWidget()) {
        const QString sheet = styled->styleSheet();
        const QVector<Section> sections = sectionsIn(sheet);
        for (const Section &section : sections) {
            styled->setStyleSheet(QString(sheet).remove(section.text));
            const bool isFaultyWithout = isFaulty();
            styled->setStyleSheet(sheet);
            found = isFaultyWithout ? found : section.key;
        }
    }
    return found;
}

bool isToldOfSection(const char *rule, const QString &key, const SheetText &sheets, const Findings &findings)
{
    const SourceLine header = headerOf(key, sheets);
    const QVector<Finding> &all = findings.all();
    return std::any_of(all.cbegin(), all.cend(), [&](const Finding &finding) {
        return finding.file == header.file && finding.line == header.line && qstrcmp(finding.rule->name, rule) == 0;
    });
}

void addToSection(const char *rule, const QString &key, const QString &text, const SheetText &sheets,
                  Findings *findings)
{
    const SourceLine header = headerOf(key, sheets);
    if (header.line > 0 && !isToldOfSection(rule, key, sheets, *findings)) {
        findings->add(rule, header.file, header.line, QStringLiteral("%1: %2").arg(key, text));
    }
}
