// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "silences.h"

#include "findings.h"
#include "sheet-text.h"

#include <QRegularExpression>

void applySilences(const SheetText &text, Findings *findings)
{
    static const QRegularExpression form(
        QStringLiteral("vela-theme:\\s*allow\\b\\s*([\\w-]*)\\s*:?\\s*(.*?)\\s*(?:\\*/|$)"));
    for (int file = 0; file < text.files().size(); ++file) {
        const QString &name = text.files().at(file);
        if (!text.original(file).contains("vela-theme:")) {
            continue;
        }
        const QStringList lines = QString::fromUtf8(text.original(file)).split(QLatin1Char('\n'));
        const QStringList code = QString::fromUtf8(withBlankComments(text.original(file))).split(QLatin1Char('\n'));
        for (int i = 0; i < lines.size(); ++i) {
            const QRegularExpressionMatch match = form.match(lines.at(i));
            if (!match.hasMatch()) {
                continue;
            }
            const QString rule = match.captured(1);
            if (!findRule(rule) || match.captured(2).isEmpty()) {
                findings->add("silence-reason", name, i + 1,
                              findRule(rule)
                                  ? QStringLiteral("no reason is given for silencing %1").arg(rule)
                                  : QStringLiteral("no rule \"%1\"").arg(rule) + suggestion(rule, ruleNames()));
                continue;
            }
            // Its place is the line itself or, where there is nothing else on it, the next one with something.
            int place = i;
            while (place < code.size() - 1 && code.at(place).trimmed().isEmpty()) {
                ++place;
            }
            const int before = findings->all().size();
            findings->remove([&](const Finding &finding) {
                return finding.file == name && finding.line == place + 1 && rule == QLatin1String(finding.rule->name);
            });
            if (findings->all().size() == before) {
                findings->add("silence-unused", name, i + 1, QStringLiteral("%1 finds nothing here").arg(rule));
            }
        }
    }
}
