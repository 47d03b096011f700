// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "text-check.h"

#include "findings.h"
#include "json-file.h"

#include <VelaTheme>

#include "look/keys_p.h"

#include <QFile>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>

namespace {

using Vela::Text;

constexpr int ShownLettersOfMonth = 3;

constexpr Text Months[] = {Text::January,   Text::February, Text::March,    Text::April,
                           Text::May,       Text::June,     Text::July,     Text::August,
                           Text::September, Text::October,  Text::November, Text::December};
constexpr Text Weekdays[] = {Text::Sunday,   Text::Monday, Text::Tuesday, Text::Wednesday,
                             Text::Thursday, Text::Friday, Text::Saturday};

QString keyOf(Text text)
{
    return QString::fromLatin1(Vela::TextEntries[static_cast<int>(text)].key);
}

QStringList markersIn(const QString &text)
{
    static const QRegularExpression marker(QStringLiteral("%(?:L?\\d{1,2}|n)"));
    QStringList markers;
    for (auto matches = marker.globalMatch(text); matches.hasNext();) {
        markers.append(matches.next().captured());
    }
    markers.sort();
    return markers;
}

class LanguageCheck
{
public:
    LanguageCheck(const QString &folder, const QString &language, Findings *findings) :
        m_name(QStringLiteral("strings/%1.json").arg(language)),
        m_file(folder, m_name, "text-json", findings),
        m_findings(findings)
    {
    }

    void run()
    {
        if (!m_file.isValid()) {
            return;
        }
        checkKeys();
        for (const Vela::TextEntry &entry : Vela::TextEntries) {
            checkText(entry.key, entry.markers);
        }
        for (const Vela::SpokenTextEntry &entry : Vela::SpokenTextEntries) {
            checkText(entry.key, entry.markers);
        }
        checkDistinct(std::begin(Months), std::end(Months), ShownLettersOfMonth);
        checkDistinct(std::begin(Weekdays), std::end(Weekdays), 0);
    }

private:
    void add(const char *rule, const QString &key, const QString &text)
    {
        m_findings->add(rule, m_name, m_file.lineOf(key), text);
    }

    QString textOf(const QString &key) const { return m_file.object().value(key).toString(); }

    void checkKeys()
    {
        QStringList needed;
        for (const Vela::TextEntry &entry : Vela::TextEntries) {
            needed.append(QString::fromLatin1(entry.key));
        }
        QStringList known = needed;
        for (const Vela::SpokenTextEntry &entry : Vela::SpokenTextEntries) {
            known.append(QString::fromLatin1(entry.key));
        }
        QSet<QString> seen;
        QStringList meant;
        for (const JsonText &text : m_file.texts()) {
            if (!text.isKey || !text.path.isEmpty() || m_findings->isFull()) {
                continue;
            }
            if (seen.contains(text.text)) {
                m_findings->add("text-doubled", m_name, text.line,
                                QStringLiteral("\"%1\" stands here twice").arg(text.text));
            } else if (!known.contains(text.text)) {
                m_findings->add("text-unknown", m_name, text.line,
                                QStringLiteral("unknown key \"%1\"").arg(text.text) + suggestion(text.text, known));
                meant.append(nearest(text.text, known));
            }
            seen.insert(text.text);
        }
        for (const QString &key : qAsConst(needed)) {
            if (!seen.contains(key) && !meant.contains(key)) {
                m_findings->add("text-missing", m_name, 0, QStringLiteral("no text \"%1\"").arg(key));
            }
        }
    }

    void checkText(const char *latin1Key, const char *wantedMarkers)
    {
        const QString key = QString::fromLatin1(latin1Key);
        const QJsonValue value = m_file.object().value(key);
        if (value.isUndefined()) {
            return;
        }
        if (!value.isString()) {
            add("text-type", key, QStringLiteral("the value of \"%1\" is no text").arg(key));
        } else if (value.toString().trimmed().isEmpty()) {
            add("text-empty", key, QStringLiteral("\"%1\" is empty").arg(key));
        } else {
            QStringList wanted = QString::fromLatin1(wantedMarkers).split(QStringLiteral(", "), Qt::SkipEmptyParts);
            wanted.sort();
            const QStringList markers = markersIn(value.toString());
            if (markers != wanted) {
                add("text-marker", key,
                    QStringLiteral("\"%1\" has the markers (%2), and the widget fills (%3)")
                        .arg(key, markers.join(QLatin1String(", ")), wanted.join(QLatin1String(", "))));
            }
        }
    }

    // Of each two texts that look the same; of months in their first letters.
    template<typename Iterator>
    void checkDistinct(Iterator begin, Iterator end, int letters)
    {
        for (Iterator one = begin; one != end; ++one) {
            for (Iterator other = begin; other != one; ++other) {
                const QString first = textOf(keyOf(*other));
                const QString second = textOf(keyOf(*one));
                if (first.trimmed().isEmpty() || second.trimmed().isEmpty()) {
                    continue;
                }
                // In many languages these two begin alike and nobody can help it.
                const bool isJuneAndJuly = *other == Text::June && *one == Text::July;
                const bool isAlike =
                    first == second || (letters > 0 && first.left(letters) == second.left(letters) && !isJuneAndJuly);
                if (isAlike) {
                    add("text-indistinct", keyOf(*one),
                        QStringLiteral("\"%1\" cannot be told from \"%2\", \"%3\"").arg(second, keyOf(*other), first));
                    break;
                }
            }
        }
    }

    const QString m_name;
    const JsonFile m_file;
    Findings *const m_findings;
};

} // namespace

QString mainLanguageOf(const QString &folder)
{
    const QStringList languages = VelaTheme::languages(folder);
    const QString english = QStringLiteral("enu");
    return languages.contains(english) ? english : languages.value(0);
}

QMap<QString, QString> textsOf(const QString &folder, const QString &language)
{
    QMap<QString, QString> texts;
    QFile file(folder + QStringLiteral("/strings/%1.json").arg(language));
    if (file.open(QIODevice::ReadOnly)) {
        const QJsonObject object = QJsonDocument::fromJson(file.readAll()).object();
        for (auto it = object.begin(); it != object.end(); ++it) {
            texts.insert(it.key(), it.value().toString());
        }
    }
    return texts;
}

QMap<QString, QString> shortTexts()
{
    QMap<QString, QString> texts;
    for (const Vela::TextEntry &entry : Vela::TextEntries) {
        texts.insert(QString::fromLatin1(entry.key), QStringLiteral("Cancel"));
    }
    return texts;
}

QMap<QString, QString> lengthened(const QMap<QString, QString> &texts)
{
    QMap<QString, QString> longer;
    for (auto it = texts.cbegin(); it != texts.cend(); ++it) {
        const QString &text = it.value();
        longer.insert(it.key(), u'[' + text + text.left((text.size() + 2) / 3) + u']');
    }
    return longer;
}

void checkTexts(const QString &folder, Findings *findings)
{
    const QStringList languages = VelaTheme::languages(folder);
    for (const QString &language : languages) {
        LanguageCheck(folder, language, findings).run();
    }
}
