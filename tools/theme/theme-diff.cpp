// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "theme-diff.h"

#include "findings.h"
#include "sheet-syntax.h"
#include "sheet-text.h"
#include "text-check.h"

#include <VelaTheme>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>

namespace {

using Words = QMap<QString, QString>; // what stands where

// What each rule of a section says, by selector and property. A later rule of the same selector wins.
Words rulesOf(const ThemeSection &section)
{
    Words words;
    const SheetSyntax syntax = readSyntax(section.body);
    for (const SheetRule &rule : syntax.rules) {
        for (const SheetDeclaration &declaration : rule.declarations) {
            if (rule.selectors.isEmpty()) {
                words.insert(declaration.name, declaration.value.simplified());
            }
            for (const SheetSelector &selector : rule.selectors) {
                words.insert(selector.text.simplified() + QStringLiteral(" ") + declaration.name,
                             declaration.value.simplified());
            }
        }
    }
    return words;
}

void compare(const Words &before, const Words &after, const QString &where, QStringList *lines)
{
    Words all = before;
    all.insert(after);
    for (auto it = all.cbegin(); it != all.cend(); ++it) {
        const QString place = where + QStringLiteral(": ") + it.key();
        if (!after.contains(it.key())) {
            lines->append(QStringLiteral("%1 was \"%2\" and is gone").arg(place, before.value(it.key())));
        } else if (!before.contains(it.key())) {
            lines->append(QStringLiteral("%1 is new: \"%2\"").arg(place, after.value(it.key())));
        } else if (before.value(it.key()) != after.value(it.key())) {
            lines->append(QStringLiteral("%1 was \"%2\" and is \"%3\"")
                              .arg(place, before.value(it.key()), after.value(it.key())));
        }
    }
}

void compareSheets(const QString &before, const QString &after, QStringList *lines)
{
    const auto sections = [](const QString &folder) {
        Findings ignored;
        const SheetText text(folder, &ignored);
        QMap<QString, Words> rules;
        for (const ThemeSection &section : text.sections()) {
            rules.insert(section.key, rulesOf(section));
        }
        return rules;
    };
    const QMap<QString, Words> old = sections(before);
    const QMap<QString, Words> now = sections(after);
    QMap<QString, Words> all = old;
    all.insert(now);
    const QStringList keys = all.keys();
    for (const QString &key : keys) {
        if (!now.contains(key)) {
            lines->append(QStringLiteral("section %1 is gone").arg(key));
        } else if (!old.contains(key)) {
            lines->append(QStringLiteral("section %1 is new").arg(key));
        } else {
            compare(old.value(key), now.value(key), key, lines);
        }
    }
}

QString inWords(const QImage &before, const QImage &after)
{
    if (before.size() != after.size()) {
        return QStringLiteral("was %1 x %2 pixels and is %3 x %4")
            .arg(before.width())
            .arg(before.height())
            .arg(after.width())
            .arg(after.height());
    }
    const QImage one = before.convertToFormat(QImage::Format_ARGB32);
    const QImage other = after.convertToFormat(QImage::Format_ARGB32);
    int different = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            different += one.pixel(x, y) != other.pixel(x, y) ? 1 : 0;
        }
    }
    return different == 0 ? QString()
                          : QStringLiteral("is drawn otherwise in %1 % of its pixels")
                                .arg(100.0 * different / (one.width() * one.height()), 0, 'f', 1);
}

void compareImages(const QString &before, const QString &after, QStringList *lines)
{
    const auto files = [](const QString &folder) {
        return QDir(folder + QStringLiteral("/images")).entryList({QStringLiteral("*.png")}, QDir::Files, QDir::Name);
    };
    const QStringList old = files(before);
    const QStringList now = files(after);
    QStringList all = old + now;
    all.removeDuplicates();
    all.sort();
    for (const QString &file : qAsConst(all)) {
        const QString place = QStringLiteral("images/") + file;
        if (!now.contains(file)) {
            lines->append(QStringLiteral("image %1 is gone").arg(place));
        } else if (!old.contains(file)) {
            lines->append(QStringLiteral("image %1 is new").arg(place));
        } else {
            const QString words = inWords(QImage(before + u'/' + place), QImage(after + u'/' + place));
            if (!words.isEmpty()) {
                lines->append(QStringLiteral("image %1 %2").arg(place, words));
            }
        }
    }
}

void flatten(const QJsonValue &value, const QString &path, Words *words)
{
    if (value.isObject()) {
        const QJsonObject object = value.toObject();
        for (auto it = object.begin(); it != object.end(); ++it) {
            flatten(it.value(), path.isEmpty() ? it.key() : path + QStringLiteral(" ") + it.key(), words);
        }
    } else if (value.isArray()) {
        const QJsonArray array = value.toArray();
        bool isListOfTexts = true;
        QStringList texts;
        for (const QJsonValue &element : array) {
            const QJsonObject object = element.toObject();
            const QString name =
                object.value(QLatin1String("key")).toString() + object.value(QLatin1String("name")).toString();
            isListOfTexts = isListOfTexts && element.isString();
            texts.append(element.toString());
            if (element.isObject()) {
                flatten(element, path + QStringLiteral(" ") + name, words);
            }
        }
        if (isListOfTexts) {
            texts.sort();
            words->insert(path, texts.join(QStringLiteral(", ")));
        }
    } else {
        words->insert(path, value.toVariant().toString());
    }
}

QJsonObject readObject(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
}

void compareJson(const QString &before, const QString &after, const QString &file, QStringList *lines)
{
    Words old;
    Words now;
    flatten(readObject(before + u'/' + file), QString(), &old);
    flatten(readObject(after + u'/' + file), QString(), &now);
    compare(old, now, file, lines);
}

void compareTexts(const QString &before, const QString &after, QStringList *lines)
{
    const QStringList old = VelaTheme::languages(before);
    const QStringList now = VelaTheme::languages(after);
    QStringList all = old + now;
    all.removeDuplicates();
    all.sort();
    for (const QString &language : qAsConst(all)) {
        if (!now.contains(language)) {
            lines->append(QStringLiteral("texts strings/%1.json are gone").arg(language));
        } else if (!old.contains(language)) {
            lines->append(QStringLiteral("texts strings/%1.json are new").arg(language));
        } else {
            compare(textsOf(before, language), textsOf(after, language),
                    QStringLiteral("strings/%1.json").arg(language), lines);
        }
    }
}

} // namespace

QStringList themeDifferences(const QString &before, const QString &after)
{
    QStringList lines;
    compareSheets(before, after, &lines);
    compareJson(before, after, QStringLiteral("images.json"), &lines);
    compareImages(before, after, &lines);
    compareTexts(before, after, &lines);
    compareJson(before, after, QStringLiteral("theme.json"), &lines);
    return lines;
}

QStringList contractDifferences(const QString &before, const QString &after, QString *errorText)
{
    Words words[2];
    int i = 0;
    for (const QString &path : {before, after}) {
        const QJsonObject contract = readObject(path);
        if (!contract.contains(QLatin1String("contractVersion"))) {
            *errorText = QStringLiteral("'%1' is neither a theme's folder nor a contract.").arg(path);
            return {};
        }
        flatten(contract, QString(), &words[i++]);
    }
    QStringList lines;
    compare(words[0], words[1], QStringLiteral("contract"), &lines);
    return lines;
}
