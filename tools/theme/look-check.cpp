// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "look-check.h"

#include "caption-check.h"
#include "contrast.h"
#include "drawn-texts.h"
#include "fault-section.h"
#include "findings.h"
#include "sheet-text.h"
#include "stage.h"
#include "text-check.h"

#include <ComponentStrings>
#include <VelaLineEdit>
#include <VelaTableWidget>

#include <QtWidgets>

#include <algorithm>

namespace {

constexpr double ReadableContrast = 4.5;
constexpr double DisabledContrast = 3.0;
constexpr double SeenContrast = 1.15; // of two states of the same pixel
constexpr int SeenDifference = 24; // of a channel, where they are equally bright
constexpr ushort FullBlock = 0x2588; // a character without thin strokes, which would be blended with what they stand on
constexpr int SmallestTarget = 24; // logical pixels

bool areToldApart(QRgb one, QRgb other)
{
    const int difference =
        std::max({qAbs(qRed(one) - qRed(other)), qAbs(qGreen(one) - qGreen(other)), qAbs(qBlue(one) - qBlue(other))});
    return difference >= SeenDifference || contrast(one, other) >= SeenContrast;
}

// Pixels that are told apart in both pictures.
int countChanged(const QImage &one, const QImage &other)
{
    if (one.size() != other.size()) {
        return one.width() * one.height();
    }
    int changed = 0;
    for (int y = 0; y < one.height(); ++y) {
        const auto *first = reinterpret_cast<const QRgb *>(one.constScanLine(y));
        const auto *second = reinterpret_cast<const QRgb *>(other.constScanLine(y));
        for (int x = 0; x < one.width(); ++x) {
            changed += first[x] != second[x] && areToldApart(first[x], second[x]) ? 1 : 0;
        }
    }
    return changed;
}

// Puts words in the place of those that a widget shows. Nothing else about it changes.
void setWords(QWidget *widget, const QString &words)
{
    if (auto *button = qobject_cast<QAbstractButton *>(widget)) {
        button->setText(words);
    } else if (auto *label = qobject_cast<QLabel *>(widget)) {
        label->setText(words);
    } else if (auto *lineEdit = qobject_cast<QLineEdit *>(widget)) {
        lineEdit->setText(words);
    } else if (auto *field = qobject_cast<VelaLineEdit *>(widget)) {
        field->getLineEdit()->setText(words);
    } else if (auto *comboBox = qobject_cast<QComboBox *>(widget)) {
        const QSignalBlocker silence(comboBox);
        comboBox->setItemText(comboBox->currentIndex(), words);
        if (comboBox->isEditable()) {
            comboBox->setEditText(words);
        }
    } else if (auto *table = qobject_cast<VelaTableWidget *>(widget)) {
        const auto items = table->getTable()->findItems(QString(), Qt::MatchContains);
        for (QTableWidgetItem *item : items) {
            item->setText(words);
        }
    } else if (auto *menu = qobject_cast<QMenu *>(widget)) {
        const QList<QAction *> actions = menu->actions();
        for (QAction *action : actions) {
            if (!action->isSeparator()) {
                action->setText(words);
            }
        }
    }
}

// A text of a widget: its place, and whether it is disabled.
struct ShownText
{
    QRect rect; // in the widget, logical pixels
    bool isDisabled;
};

QVector<ShownText> textsOf(QWidget *widget)
{
    QVector<ShownText> texts;
    if (auto *table = qobject_cast<VelaTableWidget *>(widget)) {
        QTableWidget *rows = table->getTable();
        const auto items = rows->findItems(QString(), Qt::MatchContains);
        for (const QTableWidgetItem *item : items) {
            const QRect rect = rows->visualItemRect(item);
            texts.append({QRect(rows->viewport()->mapTo(widget, rect.topLeft()), rect.size()), !widget->isEnabled()});
        }
    } else if (auto *menu = qobject_cast<QMenu *>(widget)) {
        const QList<QAction *> actions = menu->actions();
        for (QAction *action : actions) {
            if (!action->isSeparator()) {
                texts.append({menu->actionGeometry(action), !action->isEnabled()});
            }
        }
    } else {
        texts.append({widget->rect(), !widget->isEnabled()});
    }
    return texts;
}

// The contrast of the strongest pixel of a text; nothing if it has none.
double contrastIn(const QImage &with, const QImage &without, const QRect &rect)
{
    double most = 0;
    const QRect seen = rect.intersected(with.rect());
    for (int y = seen.top(); y <= seen.bottom(); ++y) {
        for (int x = seen.left(); x <= seen.right(); ++x) {
            if (with.pixel(x, y) != without.pixel(x, y)) {
                most = std::max(most, contrast(with.pixel(x, y), without.pixel(x, y)));
            }
        }
    }
    return most;
}

// The contrast of a text to what it stands on: the colour that there is most of around its letters.
double contrastOf(const DrawnText &text, const QImage &picture, int width)
{
    constexpr int Margin = 2; // pixels
    const qreal ratio = static_cast<qreal>(picture.width()) / width;
    const QRectF place(text.rect.topLeft() * ratio, text.rect.size() * ratio);
    const QRect seen = place.toAlignedRect().adjusted(-Margin, -Margin, Margin, Margin).intersected(picture.rect());
    QHash<QRgb, int> counts;
    QRgb surface = qRgb(255, 255, 255);
    for (int y = seen.top(); y <= seen.bottom(); ++y) {
        for (int x = seen.left(); x <= seen.right(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            surface = ++counts[pixel] > counts.value(surface) ? pixel : surface;
        }
    }
    QImage blended(1, 1, QImage::Format_RGB32);
    blended.fill(surface);
    QPainter(&blended).fillRect(blended.rect(), text.color);
    return contrast(blended.pixel(0, 0), surface);
}

bool hasErrorIn(const Findings &findings, std::initializer_list<const char *> beginnings)
{
    const QVector<Finding> &all = findings.all();
    return std::any_of(all.cbegin(), all.cend(), [&beginnings](const Finding &finding) {
        return finding.rule->isError
            && std::any_of(beginnings.begin(), beginnings.end(), [&finding](const char *beginning) {
                   return finding.file.startsWith(QLatin1String(beginning));
               });
    });
}

// What was seen of a widget in a state.
struct SeenState
{
    StageState state;
    QImage picture;
};

class LookCheck
{
public:
    LookCheck(const SheetText &sheets, Findings *findings) : m_sheets(sheets), m_findings(findings) { }

    void run()
    {
        for (const StageWidget &widget : stageWidgets()) {
            check(widget);
        }
    }

private:
    void add(const char *rule, const StageWidget &widget, const QString &text)
    {
        addToSection(rule, QString::fromLatin1(widget.key), text, m_sheets, m_findings);
    }

    bool isToldToCut(const StageWidget &widget) const
    {
        return isToldOfSection("caption-cut", QString::fromLatin1(widget.key), m_sheets, *m_findings);
    }

    void check(const StageWidget &widget)
    {
        QVector<SeenState> seen;
        QStringList lowStates;
        double least = ReadableContrast;
        for (const StageState state : widget.states) {
            const StagedWidget stage(widget, state, Qt::LeftToRight);
            if (state == StageState::Normal) {
                checkSize(widget, stage.widget()->size());
            }
            const bool isCut = checkTexts(widget, stage);
            seen.append({state, stage.widgetPicture()});
            if (!isCut) {
                checkDrawnContrast(widget, stage, state);
            }
            if (widget.showsWords && !isCut && !isToldToCut(widget) && hasLowContrast(stage, &least)) {
                lowStates.append(nameOf(state));
            }
        }
        checkStates(widget, seen);
        if (!lowStates.isEmpty()) {
            add("contrast-low", widget,
                QStringLiteral("the text of the %1 has a contrast of %2 to 1 (%3)")
                    .arg(QLatin1String(widget.name))
                    .arg(least, 0, 'f', 1)
                    .arg(lowStates.join(QStringLiteral(", "))));
        }
    }

    void checkSize(const StageWidget &widget, const QSize &size)
    {
        if (widget.isClicked && (size.width() < SmallestTarget || size.height() < SmallestTarget)) {
            add("target-small", widget,
                QStringLiteral("the %1 is %2 by %3 logical pixels large")
                    .arg(QLatin1String(widget.name))
                    .arg(size.width())
                    .arg(size.height()));
        }
    }

    // Whether a text is cut.
    bool checkTexts(const StageWidget &widget, const StagedWidget &stage)
    {
        QWidget *shown = stage.widget();
        const QVector<DrawnText> texts = drawnTexts(shown);
        const auto cut = std::find_if(texts.cbegin(), texts.cend(), [](const DrawnText &text) { return text.isCut; });
        if (cut == texts.cend()) {
            return false;
        }
        const QString key = sectionAtFault(partAt(stage, *cut), [&] {
            QCoreApplication::sendPostedEvents();
            return drawnTexts(shown).value(static_cast<int>(cut - texts.cbegin())).isCut;
        });
        addToSection("caption-cut", key.isEmpty() ? QString::fromLatin1(widget.key) : key,
                     QStringLiteral("the text \"%1\" of the %2 is cut").arg(cut->text, QLatin1String(widget.name)),
                     m_sheets, m_findings);
        return true;
    }

    // Of those texts that are not replaced by what can be measured better.
    void checkDrawnContrast(const StageWidget &widget, const StagedWidget &stage, StageState state)
    {
        const QVector<DrawnText> texts = drawnTexts(stage.widget());
        const QImage picture = stage.widgetPicture();
        for (int i = 0; i < texts.size(); ++i) {
            const QWidget *part = partAt(stage, texts.at(i));
            if (widget.showsWords && sectionsOf(part).value(0) == QLatin1String(widget.key)) {
                continue;
            }
            const bool isDisabled = state == StageState::Disabled
                || texts.at(i).color == part->palette().color(QPalette::Disabled, QPalette::Text);
            const double needed = isDisabled ? DisabledContrast : ReadableContrast;
            const double found = contrastOf(texts.at(i), picture, stage.widget()->width());
            if (found < needed) {
                const QString key = sectionAtFault(partAt(stage, texts.at(i)), [&] {
                    QCoreApplication::sendPostedEvents();
                    const DrawnText text = drawnTexts(stage.widget()).value(i);
                    return contrastOf(text, stage.widgetPicture(), stage.widget()->width()) < needed;
                });
                addToSection("contrast-low", key.isEmpty() ? QString::fromLatin1(widget.key) : key,
                             QStringLiteral("the text \"%1\" of the %2 has a contrast of %3 to 1 (%4)")
                                 .arg(texts.at(i).text, QLatin1String(widget.name))
                                 .arg(found, 0, 'f', 1)
                                 .arg(nameOf(state)),
                             m_sheets, m_findings);
                return;
            }
        }
    }

    static QWidget *partAt(const StagedWidget &stage, const DrawnText &text)
    {
        QWidget *part = stage.widget()->childAt(text.seenAt);
        return part ? part : stage.widget();
    }

    void checkStates(const StageWidget &widget, const QVector<SeenState> &seen)
    {
        const QImage &normal = seen.constFirst().picture;
        const int side = std::min(normal.height(), normal.width());
        constexpr int Thickness = 4; // of what must change at least, if it were as long as the widget is high
        for (const SeenState &other : seen) {
            const int changed = countChanged(normal, other.picture);
            if (other.state == StageState::Focused && changed < Thickness * side) {
                add("focus-invisible", widget,
                    QStringLiteral("the %1 looks the same with the keyboard focus").arg(QLatin1String(widget.name)));
            }
            if (other.state == StageState::Disabled && changed < side) {
                add("disabled-invisible", widget,
                    QStringLiteral("the %1 looks the same when it is disabled").arg(QLatin1String(widget.name)));
            }
        }
    }

    // Whether a text is hard to read, and what the least contrast is of all that are.
    static bool hasLowContrast(const StagedWidget &stage, double *least)
    {
        const QVector<ShownText> texts = textsOf(stage.widget());
        setWords(stage.widget(), QString(QChar(FullBlock)));
        const QImage with = stage.widgetPicture();
        setWords(stage.widget(), QStringLiteral(" "));
        const QImage without = stage.widgetPicture();
        const qreal ratio = static_cast<qreal>(with.width()) / stage.widget()->width();
        bool isLow = false;
        for (const ShownText &text : texts) {
            const QRect rect(text.rect.topLeft() * ratio, text.rect.size() * ratio);
            const double found = contrastIn(with, without, rect);
            const double needed = text.isDisabled ? DisabledContrast : ReadableContrast;
            if (found < needed) {
                isLow = true;
                *least = std::min(*least, found);
            }
        }
        return isLow;
    }

    const SheetText &m_sheets;
    Findings *const m_findings;
};

} // namespace

void checkLooks(const QString &folder, const SheetText &sheets, Findings *findings)
{
    if (hasErrorIn(*findings, {"styles", "images"})) {
        return;
    }
    // What is missing has been told.
    QLoggingCategory::setFilterRules(QStringLiteral("debug.message.warning=false"));
    const QString language = mainLanguageOf(folder);
    useTheme(folder, language);
    ComponentStrings::getInstance()->installStrings(shortTexts());
    LookCheck(sheets, findings).run();
    ComponentStrings::getInstance()->installStrings(textsOf(folder, language));
    if (!hasErrorIn(*findings, {"strings"})) {
        checkCaptions(folder, sheets, findings);
    }
}
