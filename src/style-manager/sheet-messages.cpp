// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "style-manager/sheet-messages_p.h"

#include "style-manager/sheet-sections_p.h"
#include "style-manager/toolkit-parser_p.h"
#include "utils/theme-message_p.h"

#include <QFile>

#include <algorithm>

namespace Vela {

namespace {

// Where the first rule of a section begins up to which the toolkit refuses all of it.
int beginOfRefusal(const QByteArray &text, const SheetSection &section)
{
    if (section.lines.empty()) {
        return section.header.begin;
    }
    const TextRange lines = section.lines.back();
    int begin = lines.begin;
    for (int brace = text.indexOf('}', begin); brace >= 0 && brace < lines.end; brace = text.indexOf('}', begin)) {
        if (!isUnderstood(QString::fromUtf8(text.mid(begin, brace + 1 - begin)))) {
            break;
        }
        begin = brace + 1;
    }
    while (begin < lines.end - 1 && (text.at(begin) == '\n' || text.at(begin) == ' ')) {
        ++begin;
    }
    return begin;
}

} // namespace

void tellRefusedSections(const std::vector<QString> &files)
{
    for (const QString &path : files) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) {
            continue;
        }
        const QByteArray text = readSheets(file);
        RemovedComments removed;
        const QByteArray plain = removeComments(text, &removed);
        for (const SheetSection &section : findSections(plain)) {
            if (isUnderstood(section.body)) {
                continue;
            }
            const int position = beginOfRefusal(plain, section);
            const int original = removed.positionBefore(position);
            const auto line = std::count(text.cbegin(), text.cbegin() + original, '\n') + 1;
            qCWarning(vela_theme).noquote().nospace() << section.key << ", " << path << ':' << line
                                                      << ": Qt cannot parse this and leaves the whole section out. "
                                                         "Correct the rule; \"vela-theme check\" tells "
                                                         "what is wrong with it.";
        }
    }
}

} // namespace Vela
