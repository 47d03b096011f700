// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// What the check knows to find, and says about it.
struct Rule
{
    const char *name;
    bool isError; ///< otherwise a warning
    const char *explanation;
};

/// The rule of that name, null if there is none.
const Rule *findRule(const QString &name);
/// The names of all rules, sorted.
QStringList ruleNames();

/// Something that is wrong with a theme.
struct Finding
{
    QString file; ///< relative to the theme's folder
    int line; ///< from 1 on; 0 for the file, or the folder, as a whole
    const Rule *rule;
    QString text;
};

/// What has been found so far.
class Findings
{
public:
    /// Takes a finding down, while there are not too many to be of use.
    void add(const char *rule, const QString &file, int line, const QString &text);

    bool hasAny(const QString &file, int line) const;
    bool hasRule(const char *rule) const;
    bool isFull() const;
    const QVector<Finding> &all() const { return m_findings; }
    /// Takes out what @p isUnwanted holds for.
    template<typename Predicate>
    void remove(Predicate isUnwanted)
    {
        m_findings.erase(std::remove_if(m_findings.begin(), m_findings.end(), isUnwanted), m_findings.end());
    }
    /// By file and line.
    void sort();

private:
    QVector<Finding> m_findings;
};

/// "file:line: error: text [rule]", a line for each, with @p folder in front of the files.
QString asText(const Findings &findings, const QString &folder);
/// The same as a JSON array of objects.
QByteArray asJson(const Findings &findings, const QString &folder);

/// The one of @p known that differs from @p name in fewest characters, empty if all differ in too many.
QString nearest(const QString &name, const QStringList &known);
/// ", did you mean "..."?", or nothing.
QString suggestion(const QString &name, const QStringList &known);
