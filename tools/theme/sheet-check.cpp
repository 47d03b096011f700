// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "sheet-check.h"

#include "findings.h"
#include "sheet-syntax.h"
#include "sheet-text.h"
#include "theme-images.h"
#include "toolkit-words.h"

#include "look/keys_p.h"
#include "scale/length-scaling_p.h"
#include "style-manager/toolkit-parser_p.h"

#include <QColor>
#include <QHash>
#include <QMetaEnum>
#include <QMetaProperty>
#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace {

constexpr std::array<double, 4> Scales {1.0, 1.25, 1.5, 2.0};

QStringList listOf(const char *text)
{
    return QString::fromLatin1(text).split(QStringLiteral(", "), Qt::SkipEmptyParts);
}

const Vela::StyleEntry *entryOf(const QString &key)
{
    const auto entry = std::find_if(std::begin(Vela::StyleEntries), std::end(Vela::StyleEntries),
                                    [&key](const Vela::StyleEntry &e) { return key == QLatin1String(e.key); });
    return entry == std::end(Vela::StyleEntries) ? nullptr : entry;
}

QStringList libraryKeys()
{
    QStringList keys;
    for (const Vela::StyleEntry &entry : Vela::StyleEntries) {
        keys.append(QString::fromLatin1(entry.key));
    }
    return keys;
}

QString atEachScale(const QString &text)
{
    QStringList results;
    for (const double scale : Scales) {
        results.append(QStringLiteral("\"%1\" at %2").arg(scaleLengths(text, scale)).arg(scale));
    }
    return results.join(QLatin1String(", "));
}

// The whole number that a length such as "2px" is at a scale.
int scaledLength(const QString &length, double scale)
{
    QString scaled = scaleLengths(length, scale);
    scaled.chop(scaled.endsWith(QLatin1String("px")) ? 2 : 0);
    return static_cast<int>(scaled.toDouble());
}

// A value with blanks in place of addresses, strings and what is in parentheses.
QString outerText(const QString &value)
{
    QString text = value;
    int depth = 0;
    QChar quote;
    for (QChar &character : text) {
        const QChar now = character;
        const bool isInside = depth > 0 || !quote.isNull();
        if (!quote.isNull()) {
            quote = now == quote ? QChar() : quote;
        } else if (now == QLatin1Char('"') || now == QLatin1Char('\'')) {
            quote = now;
            character = QLatin1Char(' ');
        } else if (now == QLatin1Char('(')) {
            ++depth;
        } else if (now == QLatin1Char(')')) {
            depth = std::max(0, depth - 1);
        }
        if (isInside) {
            character = QLatin1Char(' ');
        }
    }
    return text;
}

bool isBorder(const QString &property)
{
    return (property.startsWith(QLatin1String("border")) || property.startsWith(QLatin1String("outline")))
        && !property.endsWith(QLatin1String("-image")) && !property.endsWith(QLatin1String("radius"));
}

bool isHexColor(const QString &text)
{
    static const QRegularExpression form(
        QStringLiteral("^#([0-9A-Fa-f]{3}|[0-9A-Fa-f]{6}|[0-9A-Fa-f]{8}|[0-9A-Fa-f]{9}|[0-9A-Fa-f]{12})$"));
    return form.match(text).hasMatch();
}

bool isColorFunction(const QString &name, const QString &arguments)
{
    const QStringList values = arguments.split(QLatin1Char(','));
    if (name == QLatin1String("palette")) {
        return Toolkit::paletteRoles().contains(arguments.trimmed());
    }
    static const QStringList withThree = {QStringLiteral("rgb"), QStringLiteral("hsv"), QStringLiteral("hsl")};
    const bool isPlain = withThree.contains(name);
    if (!isPlain && !(name.endsWith(QLatin1Char('a')) && withThree.contains(name.chopped(1)))) {
        return false;
    }
    if (values.size() != 4 && (values.size() != 3 || !isPlain)) {
        return false;
    }
    const int most = name.startsWith(QLatin1String("rgb")) ? 255 : 359;
    return std::all_of(values.cbegin(), values.cend(), [most](const QString &value) {
        QString number = value.trimmed();
        const bool isPercentage = number.endsWith(QLatin1Char('%'));
        number.chop(isPercentage ? 1 : 0);
        bool isNumber = false;
        const double parsed = number.toDouble(&isNumber);
        return isNumber && parsed >= 0 && parsed <= (isPercentage ? 100 : most);
    });
}

// Checks one section.
class SectionCheck
{
public:
    SectionCheck(const ThemeSection &section, const SheetText &text, const ThemeImages &images, UsedImages *used,
                 Findings *findings) :
        m_section(section),
        m_text(text),
        m_entry(entryOf(section.key)),
        m_images(images),
        m_used(used),
        m_findings(findings)
    {
        if (m_entry) {
            m_reached = listOf(m_entry->reaches) + listOf(m_entry->setByApplications);
        }
    }

    void run()
    {
        const QByteArray body = bodyWithoutMarkers();
        const SheetSyntax syntax = readSyntax(body);
        checkBraces(syntax);
        for (const SheetRule &rule : syntax.rules) {
            for (const SheetDeclaration &declaration : rule.declarations) {
                if (m_findings->isFull()) {
                    return;
                }
                checkDeclaration(declaration);
            }
        }
        checkRefusal(body, syntax);
        for (const SheetRule &rule : syntax.rules) {
            for (const SheetSelector &selector : rule.selectors) {
                if (m_findings->isFull()) {
                    return;
                }
                checkSelector(selector);
            }
        }
        checkBordersAreEven(syntax);
    }

private:
    void add(const char *rule, int position, const QString &text)
    {
        const SourceLine line = m_section.lineOf(position);
        m_findings->add(rule, line.file, line.line, text);
    }

    bool hasFinding(int position) const
    {
        const SourceLine line = m_section.lineOf(position);
        return m_findings->hasAny(line.file, line.line);
    }

    // ---- the section as a whole

    QByteArray bodyWithoutMarkers()
    {
        QByteArray body = m_section.body;
        const QStringList wanted = m_entry ? listOf(m_entry->markers) : QStringList();
        for (const QString &marker : wanted) {
            const int count = body.count(marker.toLatin1());
            if (count != 1) {
                m_findings->add("marker-missing", m_section.header.file, m_section.header.line,
                                QStringLiteral("%1 has to have %2 once, and has it %3 times")
                                    .arg(m_section.key, marker, QString::number(count)));
            }
            body.replace(marker.toLatin1(), QByteArray(marker.size(), ' '));
        }
        static const QRegularExpression marker(QStringLiteral("(?<![\\d.])%\\d+"));
        const QString text = QString::fromLatin1(body); // a character for each byte
        for (auto matches = marker.globalMatch(text); m_entry && matches.hasNext();) {
            const QRegularExpressionMatch match = matches.next();
            const int position = match.capturedStart();
            add("marker-unknown", position, QStringLiteral("nothing is put in the place of %1").arg(match.captured()));
            body.replace(position, match.capturedLength(), QByteArray(match.capturedLength(), ' '));
        }
        return body;
    }

    void checkBraces(const SheetSyntax &syntax)
    {
        for (const int position : syntax.unclosedBraces) {
            add("brace-unclosed", position, QStringLiteral("the \"{\" of this rule is never closed"));
        }
        for (const int position : syntax.strayBraces) {
            add("brace-stray", position, QStringLiteral("\"}\" closes nothing"));
        }
        for (const int position : syntax.unclosedQuotes) {
            add("declaration-form", position, QStringLiteral("the quote is not closed on its line"));
        }
    }

    void checkRefusal(const QByteArray &body, const SheetSyntax &syntax)
    {
        if (!syntax.isSound() || !m_areDeclarationsSound) {
            return;
        }
        // The text from one rule on, up to the end of the one before another.
        const QVector<SheetRule> &rules = syntax.rules;
        const auto isGood = [&](int from, int to) {
            const int begin = from == 0 ? 0 : rules.at(from - 1).end;
            const int end = to == 0 ? begin : rules.at(to - 1).end;
            return Vela::isUnderstood(QString::fromUtf8(body.mid(begin, end - begin)));
        };
        // In parts, since the toolkit takes the square of the time for much that it skips.
        constexpr int PartSize = 16384;
        int good = 0;
        int bad = -1;
        while (good < rules.size() && bad < 0) {
            int last = good + 1;
            while (last < rules.size() && rules.at(last).end - rules.at(good).begin < PartSize) {
                ++last;
            }
            (isGood(good, last) ? good : bad) = last;
        }
        const int begin = good;
        while (bad - good > 1) {
            const int middle = (good + bad) / 2;
            (isGood(begin, middle) ? good : bad) = middle;
        }
        const int rest = rules.isEmpty() ? 0 : rules.last().end;
        if (bad < 0 && Vela::isUnderstood(QString::fromUtf8(body.mid(rules.isEmpty() ? 0 : rules.last().begin)))) {
            return;
        }
        int position = bad < 0 ? rest : rules.at(bad - 1).begin;
        while (position < body.size() - 1 && isspace(static_cast<unsigned char>(body.at(position)))) {
            ++position;
        }
        if (!hasFinding(position)) {
            const QByteArray line = body.mid(position, body.indexOf('\n', position) - position);
            add("section-refused", position,
                QStringLiteral("the toolkit refuses %1 because of this: %2")
                    .arg(m_section.key, QString::fromUtf8(line.left(60)).trimmed()));
        }
        m_isRefused = true;
    }

    // ---- declarations

    void checkDeclaration(const SheetDeclaration &declaration)
    {
        if (hasFinding(declaration.begin)) {
            return;
        }
        if (!checkForm(declaration)) {
            m_areDeclarationsSound = false;
            return;
        }
        const QString &property = declaration.name;
        if (!Toolkit::properties().contains(property) && !property.startsWith(QLatin1String("qproperty-"))
            && !property.startsWith(QLatin1String("-qt-")) && !property.startsWith(QLatin1String("-vela-"))) {
            add("property-unknown", declaration.begin,
                QStringLiteral("unknown property \"%1\"").arg(property) + suggestion(property, Toolkit::properties()));
            return;
        }
        for (const auto check : {&SectionCheck::checkLengths, &SectionCheck::checkColors, &SectionCheck::checkKeywords,
                                 &SectionCheck::checkAddresses}) {
            (this->*check)(declaration);
            if (hasFinding(declaration.begin)) {
                return;
            }
        }
    }

    bool checkForm(const SheetDeclaration &declaration)
    {
        static const QRegularExpression name(QStringLiteral("^[a-z-][\\w-]*$"));
        const QString shown = declaration.text.left(60).simplified();
        const QString outer = outerText(declaration.value);
        if (!name.match(declaration.name).hasMatch() || declaration.value.isEmpty()) {
            add("declaration-form", declaration.begin, QStringLiteral("no \"property: value\": %1").arg(shown));
            return false;
        }
        if (outer.contains(QLatin1Char(':'))) {
            const QString next = outer.section(QLatin1Char(':'), 0, 0).simplified().section(QLatin1Char(' '), -1);
            add("declaration-form", declaration.begin,
                QStringLiteral("a \";\" is missing in front of \"%1\": %2").arg(next, shown));
            return false;
        }
        if (declaration.value.count(QLatin1Char('(')) != declaration.value.count(QLatin1Char(')'))) {
            add("declaration-form", declaration.begin, QStringLiteral("a parenthesis is missing: %1").arg(shown));
            return false;
        }
        return true;
    }

    void checkLengths(const SheetDeclaration &declaration)
    {
        static const QRegularExpression number(
            QStringLiteral("(?<![\\w#.-])-?(\\d+\\.?\\d*|\\.\\d+)(\\s*)(px\\b|[A-Za-z%]*)"),
            QRegularExpression::CaseInsensitiveOption);
        static const QStringList units = {QStringLiteral("px"), QStringLiteral("pt"), QStringLiteral("em"),
                                          QStringLiteral("ex"), QStringLiteral("%")};
        if (Toolkit::isColor(declaration.name)) {
            return;
        }
        const QString outer = outerText(declaration.value);
        static const QRegularExpression foreignDigit(QStringLiteral("(?![0-9])\\p{Nd}[\\p{Nd}.]*px"));
        if (const QRegularExpressionMatch match = foreignDigit.match(outer); match.hasMatch()) {
            add("length-unit", declaration.begin,
                QStringLiteral("\"%1\" is 0: write it in the digits 0 to 9").arg(match.captured()));
            return;
        }
        for (auto matches = number.globalMatch(outer); matches.hasNext();) {
            const QRegularExpressionMatch match = matches.next();
            const QString digits = match.captured(1);
            const bool isApart = !match.captured(2).isEmpty();
            const QString unit = match.captured(3);
            const bool isPixels = unit.compare(QLatin1String("px"), Qt::CaseInsensitive) == 0;
            if (isPixels && (isApart || unit != QLatin1String("px"))) {
                add("length-unit", declaration.begin,
                    QStringLiteral("\"%1\" is not scaled: write \"%2px\"").arg(match.captured().trimmed(), digits));
            } else if (!isApart && !unit.isEmpty() && !units.contains(unit)) {
                add("length-unit", declaration.begin,
                    QStringLiteral("\"%1\" has an unknown unit").arg(match.captured()));
            } else if ((isApart || unit.isEmpty()) && digits.toDouble() != 0.0
                       && (Toolkit::isLength(declaration.name) || isBorder(declaration.name))) {
                add("length-unit", declaration.begin,
                    QStringLiteral("\"%1\" without \"px\" is not scaled").arg(match.captured().trimmed()));
            } else if (isPixels) {
                checkLength(declaration, digits);
            }
        }
    }

    void checkLength(const SheetDeclaration &declaration, const QString &digits)
    {
        constexpr int LongestLength = 3;
        const QString length = digits + QLatin1String("px");
        if (digits.size() > LongestLength && !digits.startsWith(QLatin1Char('.'))) {
            add("length-long", declaration.begin,
                QStringLiteral("\"%1\" has more than three characters before \"px\", so that the line becomes %2")
                    .arg(length, atEachScale(declaration.text + QLatin1Char(';'))));
            return;
        }
        if (!digits.contains(QLatin1Char('.'))) {
            return;
        }
        const bool vanishes = std::any_of(Scales.cbegin(), Scales.cend(),
                                          [&length](double scale) { return scaledLength(length, scale) == 0; });
        if (isBorder(declaration.name) && vanishes && digits.toDouble() > 0.0) {
            add("border-vanishes", declaration.begin,
                QStringLiteral("a border of \"%1\" is none at some scale: it is %2").arg(length, atEachScale(length)));
        } else {
            add("length-fraction", declaration.begin,
                QStringLiteral("the fraction of \"%1\" is lost: it is %2").arg(length, atEachScale(length)));
        }
    }

    void checkColors(const SheetDeclaration &declaration)
    {
        const bool isColor = Toolkit::isColor(declaration.name);
        if (!isColor && !Toolkit::holdsColor(declaration.name)) {
            return;
        }
        static const QRegularExpression part(
            QStringLiteral("(#\\w*)|([A-Za-z][\\w-]*)\\(([^()]*)\\)|([A-Za-z][\\w-]*)\\(|\"[^\"]*\"|([A-Za-z][\\w-]*)"
                           "|([\\d.]+\\w*)"));
        for (auto parts = part.globalMatch(declaration.value); parts.hasNext();) {
            const QRegularExpressionMatch match = parts.next();
            const QString hex = match.captured(1);
            const QString function = match.captured(2).toLower();
            const QString word = match.captured(5).toLower();
            bool isValid = true;
            if (!hex.isEmpty()) {
                isValid = isHexColor(hex);
            } else if (!function.isEmpty()) {
                isValid = function == QLatin1String("url") || function.endsWith(QLatin1String("gradient"))
                    || isColorFunction(function, match.captured(3));
            } else if (!match.captured(4).isEmpty()) { // a gradient with colours made by functions
                return;
            } else if (!word.isEmpty()) {
                isValid = QColor::isValidColor(word) || word == QLatin1String("transparent")
                    || (!isColor && Toolkit::keywords().contains(word));
            } else if (isColor && !match.captured(6).isEmpty()) {
                isValid = false;
            }
            if (!isValid) {
                add("color-invalid", declaration.begin,
                    QStringLiteral("no colour%1: %2")
                            .arg(isColor ? QString() : QStringLiteral(" or keyword"), match.captured())
                        + (isColor ? QString() : suggestion(word, Toolkit::keywords())));
                return;
            }
        }
    }

    void checkKeywords(const SheetDeclaration &declaration)
    {
        const QStringList known = Toolkit::keywordsOf(declaration.name);
        if (known.isEmpty()) {
            return;
        }
        const QStringList words = declaration.value.toLower().simplified().split(QLatin1Char(' '));
        for (const QString &word : words) {
            if (!known.contains(word)) {
                add("keyword-unknown", declaration.begin,
                    QStringLiteral("\"%1\" cannot be \"%2\"").arg(declaration.name, word) + suggestion(word, known));
                return;
            }
        }
    }

    // ---- addresses

    void checkAddresses(const SheetDeclaration &declaration)
    {
        const QStringList addresses = addressesIn(declaration.value);
        for (const QString &address : addresses) {
            checkAddress(declaration, address);
        }
    }

    void checkAddress(const SheetDeclaration &declaration, const QString &address)
    {
        static const QRegularExpression digits(QStringLiteral("\\dpx"));
        const QString drawnFolder = QStringLiteral("IMG_LOC/");
        const QString scaledFolder = QStringLiteral("TMPIMG_LOC/");
        const bool isDrawn = address.startsWith(drawnFolder);
        const bool isScaled = address.startsWith(scaledFolder);
        QString name = address.section(QLatin1Char('/'), 1);
        (isScaled ? m_used->scaled : m_used->drawn)
            .insert(nameWithoutEnding(isScaled && name.startsWith(QLatin1String("tmp_")) ? name.mid(4) : name));
        if (address.contains(digits)) {
            add("image-digits", declaration.begin,
                QStringLiteral("the digits before \"px\" are scaled: %1").arg(atEachScale(name)));
        } else if (isDrawn) {
            checkDrawnImage(declaration, name);
        } else if (isScaled && m_images.hasCatalogue()) {
            checkScaledImage(declaration, name);
        } else if (!isScaled && !address.startsWith(QLatin1Char(':')) && !address.startsWith(QLatin1String("qrc:"))
                   && !address.startsWith(QLatin1Char('/'))) {
            add("address-outside", declaration.begin,
                QStringLiteral("\"%1\" is looked for in the program's working folder: begin with IMG_LOC/")
                    .arg(address));
        }
    }

    static QString nameWithoutEnding(const QString &name)
    {
        return name.endsWith(QLatin1String(".png")) ? name.chopped(4) : name;
    }

    void checkDrawnImage(const SheetDeclaration &declaration, const QString &file)
    {
        const QString name = nameWithoutEnding(file);
        if (!m_images.files().contains(file)) {
            reportMissing(declaration, file);
        } else if (m_images.scaledNames().contains(name) && !m_images.names().contains(name)
                   && !m_text.contains("TMPIMG_LOC/tmp_" + name.toUtf8() + ".png")) {
            add("image-folder", declaration.begin,
                QStringLiteral("\"%1\" is listed under \"tmp_images\": use TMPIMG_LOC/tmp_%1.png").arg(name));
        } else if (declaration.name == QLatin1String("background-image")
                   || declaration.name == QLatin1String("background")) {
            add("image-unscaled", declaration.begin,
                QStringLiteral("the background is painted four times as large as \"%1\" is meant").arg(name));
        }
    }

    void checkScaledImage(const SheetDeclaration &declaration, const QString &file)
    {
        const QString name = nameWithoutEnding(file.startsWith(QLatin1String("tmp_")) ? file.mid(4) : file);
        const QString near = nearest(name, m_images.scaledNames());
        if (!near.isEmpty() && near != name && !m_images.files().contains(near + QLatin1String(".png"))
            && m_images.files().contains(name + QLatin1String(".png"))) {
            return; // it is listed by a misspelt name, which is told where it is listed
        }
        if (!file.startsWith(QLatin1String("tmp_"))) {
            add("image-missing", declaration.begin,
                QStringLiteral("the copy's name begins with \"tmp_\": TMPIMG_LOC/tmp_%1").arg(file));
        } else if (m_images.scaledNames().contains(name)) {
            return; // whether it exists is told where it is listed
        } else if (m_images.names().contains(name)) {
            add("image-folder", declaration.begin,
                QStringLiteral(
                    "\"%1\" is listed under \"images\" only, so that there is no copy: list it under \"tmp_images\"")
                    .arg(name));
        } else if (m_images.files().contains(name + QLatin1String(".png"))) {
            add("image-folder", declaration.begin,
                QStringLiteral("\"%1\" is not listed under \"tmp_images\", so that there is no copy").arg(name));
        } else {
            reportMissing(declaration, name + QLatin1String(".png"));
        }
    }

    void reportMissing(const SheetDeclaration &declaration, const QString &file)
    {
        const QString other = m_images.inOtherCase(file);
        if (!other.isEmpty()) {
            m_used->drawn.insert(nameWithoutEnding(other));
            add("image-case", declaration.begin,
                QStringLiteral("the file's name is images/%1, and not images/%2").arg(other, file));
            return;
        }
        const QStringList files = m_images.files().values();
        m_used->drawn.insert(nameWithoutEnding(nearest(file, files))); // is not unused besides
        add("image-missing", declaration.begin,
            QStringLiteral("there is no images/%1").arg(file) + suggestion(file, files));
    }

    // ---- selectors

    void checkSelector(const SheetSelector &selector)
    {
        if (m_isRefused || hasFinding(selector.begin) || selector.text.startsWith(QLatin1Char('@'))) {
            return;
        }
        if (!selector.isUnderstood) {
            add("selector-form", selector.begin, QStringLiteral("no selector: %1").arg(selector.text.left(60)));
            return;
        }
        for (int i = 0; i < selector.compounds.size(); ++i) {
            const Compound &compound = selector.compounds.at(i);
            const bool isSubject = i == selector.compounds.size() - 1;
            if (!checkElement(selector, compound, isSubject) || !checkIds(selector, compound, isSubject)
                || !checkParts(selector, compound) || !checkAttributes(selector, compound)) {
                return;
            }
        }
    }

    bool checkElement(const SheetSelector &selector, const Compound &compound, bool isSubject)
    {
        const QStringList named = compound.exactClasses
            + (compound.element.isEmpty() || compound.element == QLatin1String("*") ? QStringList()
                                                                                    : QStringList(compound.element));
        for (const QString &name : named) {
            if (name == QLatin1String("QToolTip")) {
                continue;
            }
            if (!Toolkit::classNamed(name)) {
                const bool isForeign =
                    !name.startsWith(QLatin1Char('Q')) && nearest(name, Toolkit::classes()).isEmpty();
                if (isForeign && !m_entry) {
                    continue; // a class of the application in a section of the application
                }
                add("class-unknown", selector.begin,
                    QStringLiteral("there is no class \"%1\"%2")
                        .arg(name,
                             isForeign ? QStringLiteral(" in toolkit and library")
                                       : suggestion(name, Toolkit::classes())));
                return false;
            }
            if (isSubject && m_entry && !isReached(name)) {
                add("class-unreached", selector.begin,
                    QStringLiteral("%1 reaches no %2, but %3")
                        .arg(m_section.key, name, m_reached.join(QLatin1String(", "))));
                return false;
            }
            if (!isSubject && isLeaf(name)) {
                add("rule-never-matches", selector.begin, QStringLiteral("a %1 holds no other widgets").arg(name));
                return false;
            }
        }
        return true;
    }

    bool isReached(const QString &name) const
    {
        return std::any_of(m_reached.cbegin(), m_reached.cend(), [&name](const QString &reached) {
            const QString type =
                reached.startsWith(QLatin1Char('#')) ? Toolkit::classOfObject(reached.mid(1)) : reached;
            return Toolkit::isBase(name, Toolkit::classNamed(type));
        });
    }

    static bool isLeaf(const QString &name)
    {
        static const QStringList leaves = {QStringLiteral("QLabel"), QStringLiteral("QCheckBox"),
                                           QStringLiteral("QRadioButton"), QStringLiteral("QScrollBar"),
                                           QStringLiteral("QProgressBar")};
        return leaves.contains(name);
    }

    bool checkIds(const SheetSelector &selector, const Compound &compound, bool isSubject)
    {
        for (const QString &id : compound.ids) {
            QStringList known;
            for (const QString &name : qAsConst(m_reached)) {
                if (name.startsWith(QLatin1Char('#'))) {
                    known.append(name.mid(1));
                }
            }
            if (m_entry && !known.contains(id) && (isSubject || !nearest(id, known).isEmpty())) {
                add("object-unknown", selector.begin,
                    QStringLiteral("%1 reaches no object \"%2\"").arg(m_section.key, id) + suggestion(id, known));
                return false;
            }
            const QMetaObject *type = Toolkit::classNamed(Toolkit::classOfObject(id));
            if (type && Toolkit::classNamed(compound.element) && !Toolkit::isBase(compound.element, type)) {
                add("rule-never-matches", selector.begin,
                    QStringLiteral("\"%1\" is a %2, and no %3")
                        .arg(id, QString::fromLatin1(type->className()), compound.element));
                return false;
            }
        }
        return true;
    }

    bool checkParts(const SheetSelector &selector, const Compound &compound)
    {
        const QMetaObject *type = Toolkit::classNamed(compound.element);
        const QString &part = compound.subControl;
        if (!part.isEmpty() && !Toolkit::subControls().contains(part)) {
            add("subcontrol-unknown", selector.begin,
                QStringLiteral("unknown part \"::%1\"").arg(part) + suggestion(part, Toolkit::subControls()));
            return false;
        }
        if (!part.isEmpty() && type && !Toolkit::hasSubControl(type, part)) {
            add("rule-never-matches", selector.begin,
                QStringLiteral("a %1 has no part \"::%2\"").arg(compound.element, part));
            return false;
        }
        for (QString state : compound.states) {
            const bool isNegated = state.startsWith(QLatin1Char('!'));
            state.remove(QLatin1Char('!'));
            if (!Toolkit::states().contains(state)) {
                const bool isPart = Toolkit::subControls().contains(state);
                add("state-unknown", selector.begin,
                    QStringLiteral("unknown state \":%1\"").arg(state)
                        + (isPart ? QStringLiteral(": a part has two colons, \"::%1\"").arg(state)
                                  : suggestion(state, Toolkit::states())));
                return false;
            }
            if (!isNegated && type && !Toolkit::hasState(type, part, state)) {
                add("rule-never-matches", selector.begin,
                    QStringLiteral("a %1 is never \":%2\"").arg(compound.element, state));
                return false;
            }
        }
        const QString contradiction = contradictionIn(compound.states);
        if (!contradiction.isEmpty()) {
            add("rule-never-matches", selector.begin,
                QStringLiteral("nothing is %1 at the same time").arg(contradiction));
            return false;
        }
        return true;
    }

    static QString contradictionIn(const QStringList &states)
    {
        static const QStringList groups[] = {
            {QStringLiteral("enabled"), QStringLiteral("disabled")},
            {QStringLiteral("checked"), QStringLiteral("unchecked"), QStringLiteral("indeterminate")},
            {QStringLiteral("on"), QStringLiteral("off")},
            {QStringLiteral("open"), QStringLiteral("closed")},
            {QStringLiteral("horizontal"), QStringLiteral("vertical")},
        };
        for (const QString &state : states) {
            if (states.contains(QLatin1Char('!') + state)) {
                return QStringLiteral("\":%1\" and \":!%1\"").arg(state);
            }
        }
        for (const QStringList &group : groups) {
            QStringList held;
            for (const QString &state : group) {
                if (states.contains(state)) {
                    held.append(QStringLiteral("\":%1\"").arg(state));
                }
            }
            if (held.size() > 1) {
                return held.join(QLatin1String(" and "));
            }
        }
        return QString();
    }

    bool checkAttributes(const SheetSelector &selector, const Compound &compound)
    {
        for (const AttributeCondition &attribute : compound.attributes) {
            const QString listed = m_entry ? QString::fromLatin1(m_entry->properties) : QString();
            const QString dynamicName = listed.section(QLatin1String(": "), 0, 0);
            QStringList values;
            if (attribute.name == dynamicName && !dynamicName.isEmpty()) {
                values = listed.section(QLatin1String(": "), 1).split(QLatin1String(", "));
            } else if (!hasProperty(compound, attribute.name, &values)) {
                add("property-value", selector.begin,
                    QStringLiteral("no widget of this section has the property \"%1\"%2")
                        .arg(attribute.name, suggestion(attribute.name, {dynamicName})));
                return false;
            }
            if (!values.isEmpty() && attribute.comparison == QLatin1String("=") && !values.contains(attribute.value)) {
                add("property-value", selector.begin,
                    QStringLiteral("\"%1\" is never \"%2\", but %3")
                        .arg(attribute.name, attribute.value, values.join(QLatin1String(" or "))));
                return false;
            }
        }
        return true;
    }

    // Of a property of the class; what can be told of its values goes to values.
    bool hasProperty(const Compound &compound, const QString &name, QStringList *values) const
    {
        QStringList types = Toolkit::classNamed(compound.element) ? QStringList(compound.element) : m_reached;
        if (types.isEmpty()) {
            return true;
        }
        for (const QString &type : types) {
            const QMetaObject *metaObject = Toolkit::classNamed(type);
            const int index = metaObject ? metaObject->indexOfProperty(name.toLatin1().constData()) : -1;
            if (index >= 0) {
                if (metaObject->property(index).type() == QVariant::Bool) {
                    *values = QStringList {QStringLiteral("true"), QStringLiteral("false")};
                }
                return true;
            }
        }
        // A class that applications derive may have more, and they may give the widget what they like.
        return false;
    }

    // ---- borders

    using Lengths = QHash<QString, QString>; // by property and side, such as "padding-left"

    static void takeLengths(const SheetDeclaration &declaration, Lengths *lengths)
    {
        static const QStringList sides = {QStringLiteral("top"), QStringLiteral("right"), QStringLiteral("bottom"),
                                          QStringLiteral("left")};
        static const QRegularExpression length(QStringLiteral("\\b\\d{1,3}px\\b"));
        static const QRegularExpression side(QStringLiteral("^(border|padding)-(top|right|bottom|left)(-width)?$"));
        QStringList values;
        for (auto matches = length.globalMatch(declaration.value); matches.hasNext();) {
            values.append(matches.next().captured());
        }
        const bool isNone = declaration.value == QLatin1String("none") || declaration.value == QLatin1String("0");
        if (isNone) {
            values = QStringList(QStringLiteral("0px"));
        }
        if (values.isEmpty()) {
            return;
        }
        const QRegularExpressionMatch ofSide = side.match(declaration.name);
        if (ofSide.hasMatch()) {
            lengths->insert(ofSide.captured(1) + QLatin1Char('-') + ofSide.captured(2), values.first());
            return;
        }
        const bool isBorderOfAll =
            declaration.name == QLatin1String("border") || declaration.name == QLatin1String("border-width");
        if (!isBorderOfAll && declaration.name != QLatin1String("padding")) {
            return;
        }
        const QString right = values.value(1, values.first());
        const QStringList all = {values.first(), right, values.value(2, values.first()), values.value(3, right)};
        for (int i = 0; i < sides.size(); ++i) {
            lengths->insert((isBorderOfAll ? QStringLiteral("border-") : QStringLiteral("padding-")) + sides.at(i),
                            declaration.name == QLatin1String("border") ? values.first() : all.at(i));
        }
    }

    void checkBordersAreEven(const SheetSyntax &syntax)
    {
        QHash<QString, Lengths> atRest;
        for (int pass = 0; pass < 2; ++pass) {
            for (const SheetRule &rule : syntax.rules) {
                Lengths lengths;
                for (const SheetDeclaration &declaration : rule.declarations) {
                    takeLengths(declaration, &lengths);
                }
                if (lengths.isEmpty()) {
                    continue;
                }
                for (const SheetSelector &selector : rule.selectors) {
                    const QStringList states = selector.compounds.last().states;
                    QString target = selector.text;
                    for (const QString &state : states) {
                        target.remove(QLatin1Char(':') + state);
                    }
                    if (pass == 0 && states.isEmpty()) {
                        for (auto it = lengths.cbegin(); it != lengths.cend(); ++it) {
                            atRest[target].insert(it.key(), it.value());
                        }
                    } else if (pass == 1 && !states.isEmpty()) {
                        compareLengths(selector, atRest.value(target), lengths);
                    }
                }
            }
        }
    }

    void compareLengths(const SheetSelector &selector, const Lengths &atRest, const Lengths &inState)
    {
        for (const char *name : {"top", "right", "bottom", "left"}) {
            const QString border = QStringLiteral("border-") + QLatin1String(name);
            const QString padding = QStringLiteral("padding-") + QLatin1String(name);
            if (!inState.contains(border) || !inState.contains(padding) || !atRest.contains(border)
                || !atRest.contains(padding)) {
                continue;
            }
            const auto sum = [&](const Lengths &lengths, double scale) {
                return scaledLength(lengths.value(border), scale) + scaledLength(lengths.value(padding), scale);
            };
            if (atRest.value(padding) == inState.value(padding)) {
                continue; // it gives no way, so that nothing is meant to stay
            }
            for (const double scale : Scales) {
                if (sum(atRest, scale) != sum(inState, scale) && !hasFinding(selector.begin)) {
                    add("border-uneven", selector.begin,
                        QStringLiteral("at scale %1 border and padding are %2 pixels at the %3, and %4 at rest")
                            .arg(QString::number(scale), QString::number(sum(inState, scale)), QLatin1String(name),
                                 QString::number(sum(atRest, scale))));
                    return;
                }
            }
        }
    }

    const ThemeSection &m_section;
    const SheetText &m_text;
    const Vela::StyleEntry *const m_entry; // null for a section of the application's own
    const ThemeImages &m_images;
    UsedImages *const m_used;
    Findings *const m_findings;
    QStringList m_reached;
    bool m_isRefused = false;
    bool m_areDeclarationsSound = true;
};

void checkKeys(const SheetText &text, Findings *findings)
{
    if (text.files().isEmpty()) {
        return;
    }
    const QStringList known = libraryKeys();
    QHash<QString, SourceLine> found;
    QStringList meant;
    for (const ThemeSection &section : text.sections()) {
        if (findings->isFull()) {
            return;
        }
        const QString near = known.contains(section.key) ? QString() : nearest(section.key, known);
        if (!known.contains(section.key) && (section.key.startsWith(QLatin1String("component.")) || !near.isEmpty())) {
            findings->add("key-unknown", section.header.file, section.header.line,
                          QStringLiteral("unknown key \"%1\"").arg(section.key) + suggestion(section.key, known));
            meant.append(near);
        }
        if (found.contains(section.key)) {
            const SourceLine first = found.value(section.key);
            findings->add("key-doubled", section.header.file, section.header.line,
                          QStringLiteral("%1 stands at %2:%3 already, and this one replaces it")
                              .arg(section.key, first.file, QString::number(first.line)));
        } else {
            found.insert(section.key, section.header);
        }
    }
    for (const QString &key : known) {
        if (!found.contains(key) && !meant.contains(key) && !text.mentionedKeys().contains(key)) {
            findings->add(
                "key-missing", QStringLiteral("styles"), 0,
                QStringLiteral("no section %1, which %2 asks for").arg(key, QString::fromLatin1(entryOf(key)->usedBy)));
        }
    }
}

} // namespace

UsedImages checkSheets(const SheetText &text, const ThemeImages &images, Findings *findings)
{
    UsedImages used;
    checkKeys(text, findings);
    for (const ThemeSection &section : text.sections()) {
        SectionCheck(section, text, images, &used, findings).run();
    }
    return used;
}

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
