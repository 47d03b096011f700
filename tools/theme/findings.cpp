// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "findings.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace {

// Sorted by name.
constexpr Rule Rules[] = {
    {"address-comment", true,
     "\"//\" begins a comment in an address too. It takes the rest of the line away, and the line break. Write a "
     "folder's "
     "name with single slashes; addresses of the network cannot be shown."},
    {"address-outside", true,
     "An address is looked for in the program's working folder unless it begins with IMG_LOC or TMPIMG_LOC, which "
     "stand "
     "for the theme's images and their scaled copies, or with \":\" for the application's own resources."},
    {"border-uneven", false,
     "In one state a border grows and the padding gives way, but as each length is scaled for itself and cut to a "
     "whole "
     "number their sum is another at some scale, and the content jumps. Paddings that leave 2 when divided by 4 come "
     "out even at every scale."},
    {"border-vanishes", true,
     "Lengths are cut to whole numbers once they are scaled. A border below 1px is none at some scale."},
    {"brace-stray", true, "A \"}\" that closes nothing. The toolkit refuses the whole section for it."},
    {"brace-unclosed", true,
     "A \"{\" whose \"}\" is missing. What follows is taken for declarations, up to the section's end."},
    {"caption-cut", true,
     "A text has more to show than the place where a widget shows it. It was measured in that widget, with the theme's "
     "font. Where a text is named, shorten it; where a section is, give it more room."},
    {"caption-cut-longer", false,
     "Texts of other languages are longer than English ones, and some are read right to left. A caption that is a "
     "third longer has more to show than the place where a widget shows it. Give the widget's section more room."},
    {"catalogue-entry", true,
     "The arrays \"images\" and \"tmp_images\" of images.json hold names: the file's, without state and without "
     "\".png\". Anything else is taken for an empty name."},
    {"catalogue-json", true,
     "images.json cannot be read, so no image is shown at all. The library takes a list that it cannot read for an "
     "empty "
     "one, which only vela.theme tells."},
    {"catalogue-key", false,
     "images.json holds \"images\" and \"tmp_images\". The library ignores anything else in it."},
    {"class-unknown", false,
     "A rule names a class that neither the toolkit nor the library has. If it is one of your application, say so in a "
     "comment: /* vela-theme: allow class-unknown: ... */"},
    {"class-unreached", true,
     "A rule is about a class that no widget with this section has or holds, so that it never applies. \"vela-theme "
     "contract\" tells for each section what its rules reach."},
    {"color-invalid", true,
     "The toolkit does not know this colour and ignores the declaration. It takes #RGB, #RRGGBB, #AARRGGBB, rgb(), "
     "rgba(), hsv(), hsl(), palette(), gradients and the names of SVG."},
    {"comment-glues-header", true,
     "A \"//\" comment takes its line break along, so that the next line is joined to the line in front. A header is "
     "none "
     "then, and its section ends up in the one before. Use /* ... */."},
    {"comment-stray", true, "A \"*/\" that closes nothing. The toolkit refuses the whole section for it."},
    {"comment-unclosed", true,
     "A \"/*\" whose \"*/\" is missing, or stands only behind a later \"/*\". All in between is lost, sections too. "
     "Comments cannot hold comments."},
    {"contrast-low", true,
     "Text must have a contrast of at least 4.5 to 1 to what it stands on, disabled text 3 to 1. It was measured in "
     "the "
     "widget's picture."},
    {"control-character", true, "A control character that has no business in a style sheet, such as a null byte."},
    {"declaration-form", true,
     "A declaration is \"property: value;\". The toolkit leaves out what it cannot read, up to the next \";\"."},
    {"disabled-invisible", true, "A disabled widget looks as if it were enabled."},
    {"focus-invisible", true,
     "A widget looks the same with the keyboard focus as without it, so that people who use the keyboard cannot tell "
     "where they are."},
    {"header-empty", true, "A header without a key. The lines behind it go into the next section that has one."},
    {"header-form", true,
     "A header begins with \"==\" in the first column and ends with \"==\" as the last characters of its line. "
     "Anything "
     "else is a line of the section before."},
    {"image-case", true,
     "A file's name differs in upper and lower case. They are the same on some systems and two files on most."},
    {"image-digits", true,
     "Every number directly before \"px\" is scaled, in a file's name too: arrow_16px.png becomes arrow_20px.png at "
     "scale "
     "1.25. Give the image another name."},
    {"image-folder", true,
     "An image listed only under \"images\" has no copy in TMPIMG_LOC, and one listed only under \"tmp_images\" is "
     "meant "
     "to be used by TMPIMG_LOC/tmp_<name>.png: in IMG_LOC it is four times as large."},
    {"image-large", true, "An image of more than 8192 pixels a side."},
    {"image-listed-twice", false, "A name stands in images.json twice. The first one is of no use."},
    {"image-missing", true, "There is no such file among the theme's images."},
    {"image-name-blank", true,
     "Blanks are removed from names under \"tmp_images\" and kept under \"images\". Use none."},
    {"image-not-png", true, "Images are PNG files, by content and not only by name."},
    {"image-sides", true,
     "Images are drawn at four times their size on the screen. A side that cannot be divided by 4 is rounded, and the "
     "image blurs."},
    {"image-small", true,
     "An image is smaller than four times the place that its widget has for it, so that it is blown up."},
    {"image-state-missing", true,
     "A button asks for its image in four states: name.png, name_hover.png, name_click.png and name_disable.png. For "
     "one "
     "that is missing it shows the normal one."},
    {"image-state-size", true, "The states of an image have not the same size, so that the button's content jumps."},
    {"image-unlisted", true, "The library asks for this image, but images.json does not list it under \"images\"."},
    {"image-unscaled", false,
     "A background is painted in the image's own size, and style sheets cannot scale it. List the image under "
     "\"tmp_images\" and use TMPIMG_LOC/tmp_<name>.png."},
    {"image-unused", false, "A file that neither images.json nor a style sheet names."},
    {"key-doubled", true,
     "A section of the same key stands before this one. The later one replaces it, without a word."},
    {"key-missing", true,
     "The library asks for a section that no style sheet of the theme has. Its widgets look as the toolkit leaves "
     "them."},
    {"key-unknown", true, "The library never asks for a section of this key."},
    {"keyword-unknown", true, "The toolkit does not know this word for the property, and ignores the declaration."},
    {"length-fraction", false, "Lengths are cut to whole numbers once they are scaled: 1.5px is 1px at scale 1."},
    {"length-long", true,
     "A length may have at most three characters before \"px\". The tail of a longer one is taken for a length of its "
     "own, "
     "and all numbers behind it are put out of step with their text."},
    {"length-unit", true,
     "Only lengths in \"px\" are scaled, with the unit in lower case directly behind the number. A number without a "
     "unit, "
     "or with another one, stays as it is or counts as 0."},
    {"line-breaks", true,
     "Carriage returns are removed. Where they are all that ends a line, the file is one line, without a header."},
    {"marker-missing", true,
     "The widget puts something in the place of these markers, each of which has to stand in the section once."},
    {"marker-unknown", true, "The widget puts nothing in the place of this marker."},
    {"object-unknown", false,
     "A rule is about an object of a name that no widget with this section has or holds, so that it never applies. If "
     "your application gives that name, say so: /* vela-theme: allow object-unknown: ... */"},
    {"path-digits", true,
     "Every number directly before \"px\" is scaled, in the path of the theme's folder too, so that no image of a "
     "style "
     "sheet is found at another scale than 1. Rename the folder."},
    {"property-unknown", true, "The toolkit does not know this property and ignores it."},
    {"property-value", true, "A condition on a property that never holds."},
    {"rule-never-matches", true, "A rule that never applies, whatever the widget does."},
    {"section-refused", true,
     "The toolkit's own parser refuses the section, and the widget has none of it. The line is that of the first rule "
     "that it stops at."},
    {"selector-form", true,
     "What stands in front of \"{\" is no selector, such as \"QPushButton:hover, QPushButton#name::part\"."},
    {"silence-reason", false,
     "A finding can be silenced at its place: /* vela-theme: allow RULE: REASON */ on the line before, or on the same "
     "line. Name a rule, and tell the reader why."},
    {"silence-unused", false, "A comment silences a rule that finds nothing here. Take it out."},
    {"state-unknown", true, "The toolkit does not know this state, so that the rule never applies."},
    {"styles-missing", true, "There are no style sheets (styles/*.qss) in the theme's folder."},
    {"subcontrol-unknown", true, "The toolkit does not know this part of a widget."},
    {"target-small", true, "What is clicked needs at least 24 by 24 logical pixels."},
    {"text-before-header", true,
     "Text before a file's first header belongs to the section before it, in the file before, or else to the next "
     "one."},
    {"text-doubled", true, "A key stands in a file of texts twice. The later text replaces the first one."},
    {"text-empty", true, "An empty text."},
    {"text-indistinct", false,
     "The calendar shows the first three letters of a month. Two of them cannot be told apart."},
    {"text-json", true, "A file of texts cannot be read."},
    {"text-marker", true, "A text's markers (%1) are not those that the widget fills."},
    {"text-missing", true, "The library asks for this text. A missing one shows its key."},
    {"text-type", true, "Not a text."},
    {"text-unknown", false, "The library never asks for a text of this key."},
    {"theme-color", true, "theme.json holds a colour that cannot be read."},
    {"theme-json", true, "theme.json cannot be read."},
    {"theme-key", true, "The library never asks for an entry of this name in theme.json."},
    {"theme-value", true,
     "theme.json holds a value that the library cannot use: \"palette\", \"font\", \"tool_tip\" and \"colors\" are "
     "objects; a font has a family's name, a size in points above 0 and a weight of 100, 200 ... 900."},
    {"utf8", true, "Style sheets and texts are UTF-8. What is not shows as a replacement character."},
};

constexpr int MaximalFindings = 1000; // behind as many nobody reads on
constexpr int MaximalDistance = 3;

// Number of characters to insert, take out, replace or swap to get from one to the other; more than limit if they
// are more than that.
int distance(const QString &one, const QString &other, int limit)
{
    if (qAbs(one.size() - other.size()) > limit) {
        return limit + 1;
    }
    QVector<QVector<int>> rows(one.size() + 1, QVector<int>(other.size() + 1));
    for (int i = 0; i <= one.size(); ++i) {
        for (int k = 0; k <= other.size(); ++k) {
            if (i == 0 || k == 0) {
                rows[i][k] = i + k;
                continue;
            }
            const bool isEqual = one.at(i - 1) == other.at(k - 1);
            rows[i][k] = std::min({rows[i - 1][k] + 1, rows[i][k - 1] + 1, rows[i - 1][k - 1] + (isEqual ? 0 : 1)});
            if (i > 1 && k > 1 && one.at(i - 1) == other.at(k - 2) && one.at(i - 2) == other.at(k - 1)) {
                rows[i][k] = std::min(rows[i][k], rows[i - 2][k - 2] + 1);
            }
        }
    }
    return rows[one.size()][other.size()];
}

QString placeOf(const Finding &finding, const QString &folder)
{
    return folder + (finding.file.isEmpty() ? QString() : u'/' + finding.file);
}

QString inOneLine(QString text)
{
    std::replace_if(
        text.begin(), text.end(), [](QChar character) { return character.category() == QChar::Other_Control; },
        QChar(u' '));
    return text;
}

const char *severityOf(const Finding &finding)
{
    return finding.rule->isError ? "error" : "warning";
}

} // namespace

const Rule *findRule(const QString &name)
{
    const auto rule = std::find_if(std::begin(Rules), std::end(Rules),
                                   [&name](const Rule &r) { return name == QLatin1String(r.name); });
    return rule == std::end(Rules) ? nullptr : rule;
}

QStringList ruleNames()
{
    QStringList names;
    for (const Rule &rule : Rules) {
        names.append(QString::fromLatin1(rule.name));
    }
    return names;
}

void Findings::add(const char *name, const QString &file, int line, const QString &text)
{
    const Rule *rule = findRule(QString::fromLatin1(name));
    Q_ASSERT(rule);
    if (!isFull()) {
        m_findings.append({file, line, rule, text});
    }
}

bool Findings::isFull() const
{
    return m_findings.size() >= MaximalFindings;
}

bool Findings::hasAny(const QString &file, int line) const
{
    return std::any_of(m_findings.cbegin(), m_findings.cend(),
                       [&](const Finding &finding) { return finding.line == line && finding.file == file; });
}

bool Findings::hasRule(const char *rule) const
{
    return std::any_of(m_findings.cbegin(), m_findings.cend(),
                       [rule](const Finding &finding) { return qstrcmp(finding.rule->name, rule) == 0; });
}

void Findings::sort()
{
    std::stable_sort(m_findings.begin(), m_findings.end(), [](const Finding &one, const Finding &other) {
        return std::tie(one.file, one.line) < std::tie(other.file, other.line);
    });
}

QString asText(const Findings &findings, const QString &folder)
{
    QString text;
    for (const Finding &finding : findings.all()) {
        text += placeOf(finding, folder) + u':';
        if (finding.line > 0) {
            text += QString::number(finding.line) + u':';
        }
        text += QStringLiteral(" %1: ").arg(QLatin1String(severityOf(finding))) + inOneLine(finding.text)
            + QStringLiteral(" [%1]\n").arg(QLatin1String(finding.rule->name));
    }
    return text;
}

QByteArray asJson(const Findings &findings, const QString &folder)
{
    QJsonArray array;
    for (const Finding &finding : findings.all()) {
        array.append(QJsonObject {
            {QStringLiteral("file"), placeOf(finding, folder)},
            {QStringLiteral("line"), finding.line},
            {QStringLiteral("severity"), QLatin1String(severityOf(finding))},
            {QStringLiteral("rule"), QLatin1String(finding.rule->name)},
            {QStringLiteral("text"), finding.text},
        });
    }
    return QJsonDocument(array).toJson();
}

QString nearest(const QString &name, const QStringList &known)
{
    QString found;
    int least = std::min(MaximalDistance, std::max(1, name.size() / 3)) + 1;
    if (name.size() > 100) {
        return found;
    }
    for (const QString &candidate : known) {
        const int here = distance(name.toLower(), candidate.toLower(), least);
        if (here < least) {
            least = here;
            found = candidate;
        }
    }
    return found;
}

QString suggestion(const QString &name, const QStringList &known)
{
    const QString found = nearest(name, known);
    return found.isEmpty() ? QString() : QStringLiteral(", did you mean \"%1\"?").arg(found);
}
