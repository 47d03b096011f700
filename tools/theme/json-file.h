// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QHash>
#include <QJsonObject>
#include <QString>
#include <QVector>

class Findings;

/// A text in a JSON file, with its place.
struct JsonText
{
    QString text;
    bool isKey;
    QStringList path; ///< keys of the objects and arrays that it stands in, or is the value of
    int line; ///< from 1 on
};

/// A JSON file of a theme that has to hold an object.
class JsonFile
{
public:
    /// What is wrong with it is told as a finding of @p rule.
    JsonFile(const QString &folder, const QString &name, const char *rule, Findings *findings);

    bool exists() const { return m_exists; }
    bool isValid() const { return m_isValid; }
    const QJsonObject &object() const { return m_object; }
    /// All texts of it in their order.
    const QVector<JsonText> &texts() const { return m_texts; }
    /// The line of a key of the object at @p path, 1 if there is none.
    int lineOf(const QString &key, const QStringList &path = {}) const;
    /// The line of a text in an array of the outermost object; that of the array if there is none.
    int lineInArray(const QString &array, const QString &text) const;

private:
    void findTexts(const QByteArray &content);

    bool m_exists = false;
    bool m_isValid = false;
    QJsonObject m_object;
    QVector<JsonText> m_texts;
    QHash<QString, int> m_lines; // of texts by kind and path, where they stand for the first time
};
