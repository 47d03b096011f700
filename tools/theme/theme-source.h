// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <memory>

class QTemporaryDir;

/// Whether @p folder is what a theme is made from: a palette, and perhaps files that lie over the reference theme's.
bool isThemeSource(const QString &folder);

/// A theme folder, made from a source where that is given.
class BuiltTheme
{
public:
    explicit BuiltTheme(const QString &folder);
    ~BuiltTheme();

    /// What went wrong, empty if nothing did.
    const QString &errorText() const { return m_errorText; }
    const QString &path() const { return m_path; }

private:
    void build(const QString &source);

    std::unique_ptr<QTemporaryDir> m_work; // null where nothing had to be made
    QString m_path;
    QString m_errorText;
};

/// Writes the source of a theme in the colours of an accent to @p folder, which must not hold anything. Returns what
/// went wrong, empty if nothing did.
QString writeThemeSource(const QString &folder, const QString &accent, const QString &base);
