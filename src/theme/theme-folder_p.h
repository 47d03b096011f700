// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "theme/theme-look_p.h"
#include "theme/vela-theme.h"

#include <QHash>
#include <QJsonObject>
#include <QMap>

#include <map>
#include <optional>

class QFile;

namespace Vela {

/// A theme folder's files, read without touching what is in force.
class ThemeFolder
{
public:
    /// Sheets are to find their scaled images in @p tempImageFolder.
    ThemeFolder(QString folder, QString tempImageFolder);

    /// Reads all of it. What is wrong is in problems() then.
    void read(const QString &language, const QString &fallbackLanguage);
    /// Reads the texts only.
    void readTexts(const QString &language, const QString &fallbackLanguage);

    const QMap<QString, QString> &texts() const { return m_texts; }
    const std::map<QString, QString> &sections() const { return m_sections; }
    const ThemeLook &look() const { return m_look; }
    const VelaTheme::Problems &problems() const { return m_problems; }

private:
    using Severity = VelaTheme::Problem::Severity;

    struct JsonFile
    {
        QByteArray bytes;
        QJsonObject object;
    };

    struct SheetFile
    {
        QString path;
        QByteArray text;
    };

    // Place of a section's header.
    struct Header
    {
        int file = 0; // index of the file
        int line = 0; // counted from 1
    };

    void add(Severity severity, const QString &file, int line, const QString &text);
    QString path(const QString &name) const;
    QString imageFolder() const;
    std::optional<QByteArray> readFile(const QString &file);
    bool isWholeOf(const QFile &device);
    std::optional<JsonFile> readJson(const QString &file);
    void addTexts(const QString &language);
    QString imagePath(const QString &name) const;
    void checkImage(const QString &file);
    void readCatalogue();
    void readSheets();
    static QHash<QString, Header> headers(const QVector<SheetFile> &files);
    void checkSections(const QVector<SheetFile> &files);
    void checkImages(const QString &section, const SheetFile &file);
    void readLook();

    const QString m_folder;
    const QString m_tempImageFolder;
    QMap<QString, QString> m_texts;
    std::optional<QStringList> m_copies; // names of the scaled images; unknown without a catalogue
    std::map<QString, QString> m_sections;
    ThemeLook m_look;
    VelaTheme::Problems m_problems;
};

} // namespace Vela
