// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "inspection.h"

#include "json-file.h"
#include "sheet-syntax.h"
#include "sheet-text.h"
#include "text-check.h"
#include "theme-images.h"
#include "themes.h"

#include <DPIinfo>
#include <ImageManager>
#include <VelaTheme>

#include <QAbstractButton>
#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <utility>

namespace {

struct State
{
    const char *ending;
    ImageManager::ImageType type;
};

constexpr State States[] = {
    {"", ImageManager::IMAGE_NORMAL},
    {"_hover", ImageManager::IMAGE_HOVER},
    {"_click", ImageManager::IMAGE_CLICK},
    {"_disable", ImageManager::IMAGE_DISABLE},
};

// Of what a section or text becomes once its markers are filled, its blanks and line breaks aside.
QString patternOf(const QString &text)
{
    static const QRegularExpression marker(QStringLiteral("TMPIMG_LOC|IMG_LOC|%\\d"));
    QStringList parts = text.simplified().split(marker);
    for (QString &part : parts) {
        part = QRegularExpression::escape(part);
    }
    return parts.join(QStringLiteral("[^{}]*?"));
}

QString placeOf(const QString &file, int line)
{
    return QStringLiteral("%1:%2").arg(file).arg(line);
}

QString titleOf(const QWidget *widget)
{
    QString title = QString::fromLatin1(widget->metaObject()->className());
    const QString text = widget->property("text").toString().simplified();
    const QString told = text.isEmpty() ? widget->accessibleName() : text;
    if (!widget->objectName().isEmpty()) {
        title += u'#' + widget->objectName();
    }
    return told.isEmpty() ? title : title + QStringLiteral(" \u201c%1\u201d").arg(told);
}

// Of sections with the same text, the first one; of those that stand within another, the outer one.
QVector<InspectedSection> sectionsOf(const QString &sheet, const std::vector<ThemeSection> &known)
{
    struct Match
    {
        int begin; // in the sheet
        int length;
        const ThemeSection *section;
    };
    const QString wanted = sheet.simplified();
    QVector<Match> matches;
    for (const ThemeSection &section : known) {
        const QString text = DPIinfo::getInstance()->getScaledStyleSheet(QString::fromUtf8(section.body));
        const QRegularExpressionMatch match = QRegularExpression(patternOf(text)).match(wanted);
        const bool isReplaced = std::any_of(&section + 1, known.data() + known.size(),
                                            [&section](const auto &later) { return later.key == section.key; });
        if (match.capturedLength() > 0 && !isReplaced) {
            matches.append({match.capturedStart(), match.capturedLength(), &section});
        }
    }
    std::stable_sort(matches.begin(), matches.end(),
                     [](const Match &one, const Match &other) { return one.length > other.length; });
    QVector<Match> outer;
    for (const Match &match : qAsConst(matches)) {
        const bool isWithin = std::any_of(outer.cbegin(), outer.cend(), [&match](const Match &other) {
            return match.begin < other.begin + other.length && other.begin < match.begin + match.length;
        });
        if (!isWithin) {
            outer.append(match);
        }
    }
    std::sort(outer.begin(), outer.end(), [](const Match &one, const Match &other) { return one.begin < other.begin; });

    QVector<InspectedSection> sections;
    for (const Match &match : qAsConst(outer)) {
        const SourceLine &header = match.section->header;
        const QString raw = QString::fromUtf8(match.section->body).trimmed();
        const QVector<SourceLine> &lines = match.section->lines;
        const bool isInOneFile = !lines.isEmpty() && lines.constLast().file == header.file;
        const int lastLine = isInOneFile ? lines.constLast().line : header.line;
        sections.append({match.section->key, header.file, header.line, lastLine, raw,
                         DPIinfo::getInstance()->getScaledStyleSheet(raw)});
    }
    return sections;
}

QImage shownImage(const QWidget *widget)
{
    if (const auto *label = qobject_cast<const QLabel *>(widget)) {
        return label->pixmap(Qt::ReturnByValue).toImage();
    }
    if (const auto *button = qobject_cast<const QAbstractButton *>(widget)) {
        const QIcon::Mode mode = button->isEnabled() ? QIcon::Normal : QIcon::Disabled;
        return button->icon().pixmap(button->icon().availableSizes(mode).value(0), mode).toImage();
    }
    return QImage();
}

// Of the images of the catalogue that have a file: others would be complained of.
QStringList imagesShown(const QWidget *widget, const ThemeImages &images)
{
    const QImage shown = shownImage(widget);
    QStringList found;
    for (const QString &name : images.names()) {
        for (const State &state : States) {
            const QString file = name + QLatin1String(state.ending) + QStringLiteral(".png");
            if (!shown.isNull() && images.files().contains(file)
                && getGlobalImage(name, state.type).toImage() == shown) {
                found.append(QStringLiteral("%1: images/%2").arg(name, file));
            }
        }
    }
    return found;
}

QStringList imagesNamed(const QVector<InspectedSection> &sections)
{
    QStringList found;
    for (const InspectedSection &section : sections) {
        const SheetSyntax syntax = readSyntax(section.raw.toUtf8());
        for (const SheetRule &rule : syntax.rules) {
            for (const SheetDeclaration &declaration : rule.declarations) {
                found += addressesIn(declaration.value);
            }
        }
    }
    found.removeDuplicates();
    return found;
}

QStringList textsShown(const QWidget *widget, const QString &folder)
{
    const QString language = shownLanguage();
    const QString file = QStringLiteral("strings/%1.json").arg(language);
    const QMap<QString, QString> texts = textsOf(folder, language);
    Findings ignored;
    const JsonFile lines(folder, file, "text-json", &ignored);
    QStringList found;
    for (const char *property :
         {"text", "title", "windowTitle", "toolTip", "placeholderText", "accessibleName", "accessibleDescription"}) {
        const QString shown = widget->property(property).toString().remove(u'&').simplified();
        int longest = 1; // "Page %1" would fit where "Page %1 of %2" is shown
        QStringList keys;
        for (auto it = texts.cbegin(); it != texts.cend(); ++it) {
            const QRegularExpression pattern(QRegularExpression::anchoredPattern(patternOf(it.value())));
            if (it.value().size() >= longest && pattern.match(shown).hasMatch()) {
                keys = it.value().size() > longest ? QStringList(it.key()) : keys + QStringList(it.key());
                longest = it.value().size();
            }
        }
        for (const QString &key : qAsConst(keys)) {
            found.append(QStringLiteral("%1: %2").arg(key, placeOf(file, lines.lineOf(key))));
        }
    }
    found.removeDuplicates();
    return found;
}

QWidget *childAt(QWidget *widget, const QPoint &position)
{
    const QObjectList children = widget->children();
    for (auto it = children.crbegin(); it != children.crend(); ++it) { // the last one lies on top
        auto *child = qobject_cast<QWidget *>(*it);
        if (child && child->isVisible() && !child->isWindow() && child->geometry().contains(position)) {
            return childAt(child, position - child->pos());
        }
    }
    return widget;
}

} // namespace

Inspection inspect(const QWidget *widget)
{
    const QString folder = VelaTheme::getInstance()->folder();
    Findings ignored;
    const SheetText text(folder, &ignored);
    const ThemeImages images(folder, &ignored);

    Inspection inspection;
    inspection.title = titleOf(widget);
    for (const QWidget *outer = widget; outer && inspection.sections.isEmpty(); outer = outer->parentWidget()) {
        if (!outer->styleSheet().isEmpty()) {
            inspection.sections = sectionsOf(outer->styleSheet(), text.sections());
        }
    }
    inspection.images = imagesShown(widget, images) + imagesNamed(inspection.sections);
    inspection.texts = textsShown(widget, folder);
    return inspection;
}

Findings findingsOf(const Inspection &inspection, const Findings &all)
{
    QSet<QString> places;
    for (const InspectedSection &section : inspection.sections) {
        for (int line = section.firstLine; line <= section.lastLine; ++line) {
            places.insert(placeOf(section.file, line));
        }
    }
    const QStringList named = inspection.images + inspection.texts;
    for (QString name : named) {
        name.replace(QLatin1String("TMPIMG_LOC/tmp_"), QLatin1String("images/"));
        name.replace(QLatin1String("IMG_LOC/"), QLatin1String("images/"));
        places.insert(name.mid(name.indexOf(u' ') + 1));
    }
    Findings found;
    for (const Finding &finding : all.all()) {
        if (places.contains(finding.line > 0 ? placeOf(finding.file, finding.line) : finding.file)) {
            found.add(finding.rule->name, finding.file, finding.line, finding.text);
        }
    }
    return found;
}

QWidget *widgetAt(const QPoint &position)
{
    QWidget *window = QApplication::topLevelAt(position);
    return window ? childAt(window, window->mapFromGlobal(position)) : nullptr;
}
