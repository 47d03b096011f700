// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "theme-json.h"

#include "findings.h"
#include "json-file.h"

#include "look/keys_p.h"

#include <QColor>

namespace {

const QString FileName = QStringLiteral("theme.json");

QStringList roles()
{
    return {
        QStringLiteral("window"),        QStringLiteral("window_text"),
        QStringLiteral("base"),          QStringLiteral("alternate_base"),
        QStringLiteral("text"),          QStringLiteral("placeholder_text"),
        QStringLiteral("button"),        QStringLiteral("button_text"),
        QStringLiteral("bright_text"),   QStringLiteral("light"),
        QStringLiteral("midlight"),      QStringLiteral("mid"),
        QStringLiteral("dark"),          QStringLiteral("shadow"),
        QStringLiteral("highlight"),     QStringLiteral("highlighted_text"),
        QStringLiteral("link"),          QStringLiteral("link_visited"),
        QStringLiteral("tool_tip_base"), QStringLiteral("tool_tip_text"),
    };
}

QStringList colorKeys()
{
    QStringList keys;
    for (const Vela::ColorEntry &entry : Vela::ColorEntries) {
        keys.append(QString::fromLatin1(entry.key));
    }
    return keys;
}

class ThemeJsonCheck
{
public:
    ThemeJsonCheck(const JsonFile &file, Findings *findings) : m_file(file), m_findings(findings) { }

    void run()
    {
        const QString palette = QStringLiteral("palette");
        checkKeys({}, {palette, QStringLiteral("font"), QStringLiteral("tool_tip"), QStringLiteral("colors")});
        const QStringList groups = {QStringLiteral("disabled"), QStringLiteral("inactive")};
        checkColors({palette}, roles(), groups);
        for (const QString &group : groups) {
            checkColors({palette, group}, roles(), {});
        }
        checkColors({QStringLiteral("tool_tip")}, {QStringLiteral("text"), QStringLiteral("base")}, {});
        checkColors({QStringLiteral("colors")}, colorKeys(), {});
        const QStringList objects = {palette, QStringLiteral("font"), QStringLiteral("tool_tip"),
                                     QStringLiteral("colors")};
        for (const QString &key : objects) {
            if (m_file.object().contains(key) && !m_file.object().value(key).isObject()) {
                m_findings->add("theme-key", FileName, m_file.lineOf(key),
                                QStringLiteral("\"%1\" is no object").arg(key));
            }
        }
        for (const QString &key : {QStringLiteral("point_size"), QStringLiteral("weight")}) {
            const QJsonValue value = objectAt({QStringLiteral("font")}).value(key);
            if (!value.isUndefined() && !value.isDouble()) {
                m_findings->add("theme-key", FileName, m_file.lineOf(key, {QStringLiteral("font")}),
                                QStringLiteral("\"%1\" is no number").arg(key));
            }
        }
        checkKeys({QStringLiteral("font")},
                  {QStringLiteral("family"), QStringLiteral("point_size"), QStringLiteral("weight")});
    }

private:
    QJsonObject objectAt(const QStringList &path) const
    {
        QJsonObject object = m_file.object();
        for (const QString &key : path) {
            object = object.value(key).toObject();
        }
        return object;
    }

    void checkKeys(const QStringList &path, const QStringList &known)
    {
        const QJsonObject object = objectAt(path);
        for (auto it = object.begin(); it != object.end(); ++it) {
            if (!known.contains(it.key())) {
                m_findings->add("theme-key", FileName, m_file.lineOf(it.key(), path),
                                QStringLiteral("unknown entry \"%1\"").arg(it.key()) + suggestion(it.key(), known));
            }
        }
    }

    void checkColors(const QStringList &path, const QStringList &known, const QStringList &objects)
    {
        checkKeys(path, known + objects);
        const QJsonObject object = objectAt(path);
        for (auto it = object.begin(); it != object.end(); ++it) {
            if (known.contains(it.key()) && !QColor::isValidColor(it.value().toString())) {
                m_findings->add("theme-color", FileName, m_file.lineOf(it.key(), path),
                                QStringLiteral("no colour for \"%1\": \"%2\"").arg(it.key(), it.value().toString()));
            }
        }
    }

    const JsonFile &m_file;
    Findings *const m_findings;
};

} // namespace

void checkThemeJson(const QString &folder, Findings *findings)
{
    const JsonFile file(folder, FileName, "theme-json", findings);
    if (file.isValid()) {
        ThemeJsonCheck(file, findings).run();
    }
}
