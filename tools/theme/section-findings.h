// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "findings.h"
#include "sheet-text.h"

/// Findings in one section, by positions in its body.
class SectionFindings
{
public:
    SectionFindings(const ThemeSection &section, Findings *findings) : m_section(section), m_findings(findings) { }

    const QString &key() const { return m_section.key; }
    void add(const char *rule, int position, const QString &text)
    {
        const SourceLine line = m_section.lineOf(position);
        m_findings->add(rule, line.file, line.line, text);
    }
    void addToHeader(const char *rule, const QString &text)
    {
        m_findings->add(rule, m_section.header.file, m_section.header.line, text);
    }
    /// Whether there is one on the same line.
    bool hasAny(int position) const
    {
        const SourceLine line = m_section.lineOf(position);
        return m_findings->hasAny(line.file, line.line);
    }
    bool isFull() const { return m_findings->isFull(); }

private:
    const ThemeSection &m_section;
    Findings *const m_findings;
};
