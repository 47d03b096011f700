// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "json-file.h"

#include "findings.h"
#include "sheet-text.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

namespace {

QString placeOf(const QString &text, const QStringList &path, bool isKey)
{
    return (path + QStringList(text)).join(QChar()) + (isKey ? u':' : u',');
}

} // namespace

JsonFile::JsonFile(const QString &folder, const QString &name, const char *rule, Findings *findings)
{
    QFile file(folder + u'/' + name);
    m_exists = file.exists();
    if (!m_exists) {
        return;
    }
    if (!file.open(QIODevice::ReadOnly)) {
        findings->add(rule, name, 0, file.errorString());
        return;
    }
    const QByteArray content = file.readAll();
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(content, &error);
    if (error.error != QJsonParseError::NoError) {
        findings->add(rule, name, lineNumber(content, error.offset),
                      QStringLiteral("%1 at byte %2").arg(error.errorString()).arg(error.offset));
        return;
    }
    if (!document.isObject()) {
        findings->add(rule, name, 1, QStringLiteral("there is no object in it"));
        return;
    }
    m_isValid = true;
    m_object = document.object();
    findTexts(content);
}

int JsonFile::lineOf(const QString &key, const QStringList &path) const
{
    return m_lines.value(placeOf(key, path, true), 1);
}

int JsonFile::lineInArray(const QString &array, const QString &text) const
{
    return m_lines.value(placeOf(text, {array}, false), lineOf(array));
}

// The parser has found the text to be sound, so that quotes, brackets and colons tell all.
void JsonFile::findTexts(const QByteArray &content)
{
    QStringList path;
    QStringList lastKeys {QString()};
    int line = 1;
    for (int i = 0; i < content.size(); ++i) {
        const char character = content.at(i);
        if (character == '\n') {
            ++line;
        } else if (character == '{' || character == '[') {
            if (lastKeys.size() > 1 || !lastKeys.last().isEmpty()) {
                path.append(lastKeys.last());
            }
            lastKeys.append(QString());
        } else if (character == '}' || character == ']') {
            lastKeys.removeLast();
            if (!path.isEmpty()) {
                path.removeLast();
            }
        } else if (character == '"') {
            int end = i + 1;
            while (end < content.size() && content.at(end) != '"') {
                end += content.at(end) == '\\' ? 2 : 1;
            }
            const QByteArray literal = '[' + content.mid(i, end + 1 - i) + ']';
            int next = end + 1;
            while (next < content.size() && isspace(static_cast<unsigned char>(content.at(next)))) {
                ++next;
            }
            const bool isKey = next < content.size() && content.at(next) == ':';
            const QString text = QJsonDocument::fromJson(literal).array().at(0).toString();
            m_texts.append({text, isKey, path, line});
            const QString place = placeOf(text, path, isKey);
            if (!m_lines.contains(place)) {
                m_lines.insert(place, line);
            }
            if (isKey) {
                lastKeys.last() = text;
            }
            i = end;
        }
    }
}
