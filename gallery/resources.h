// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ImageManager>

#include <QMap>
#include <QString>
#include <QStringList>

#include <vector>

/// What an application of the library brings along, read from its theme folder: texts, list of images, style sheets.
class Resources
{
public:
    /// The folder of the reference theme, which stands where it was installed beside the program.
    static QString referenceFolder();

    explicit Resources(const QString &folder);

    /// Reads the folder, with the texts of @p language or, when that is empty, in the system's language. False when
    /// something is missing or malformed; errorText() tells what.
    bool read(const QString &language);
    QString errorText() const;

    /// What was not as expected, but no reason to stop.
    QStringList warnings() const;

    /// Code of the language that the texts are in.
    QString language() const;

    /// The library's start-up calls, in the order that it asks for. Afterwards widgets can be made.
    void install(ImageManager::InitializeType imageLoading);

private:
    bool fail(const QString &text);
    QString path(const QString &name) const;
    bool checkFolder();
    bool chooseLanguage(const QString &language);
    bool readStrings();
    bool findStyleSheets();

    QString m_folder;
    QString m_language;
    QMap<QString, QString> m_strings;
    std::vector<QString> m_styleSheets;
    QString m_errorText;
    QStringList m_warnings;
};
