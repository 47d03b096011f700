// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "look-check.h"

#include "contrast.h"
#include "findings.h"
#include "json-file.h"
#include "sheet-text.h"
#include "stage.h"
#include "text-check.h"

#include <ComponentStrings>
#include <VelaCalanderView>
#include <VelaCountdownMessageBox>
#include <VelaInputSheet>
#include <VelaLineEdit>
#include <VelaMessageSheet>
#include <VelaTableWidget>
#include <VelaTheme>
#include <VelaTreeWidget>

#include <QtWidgets>

#include <algorithm>

namespace {

constexpr double ReadableContrast = 4.5;
constexpr double DisabledContrast = 3.0;
constexpr double SeenContrast = 1.15; // of two states of the same pixel
constexpr int SeenDifference = 24; // of a channel, where they are equally bright
constexpr ushort FullBlock = 0x2588; // a character without thin strokes, which would be blended with what they stand on
constexpr int SmallestTarget = 24; // logical pixels
constexpr int SheetWindowWidth = 600; // logical pixels, of a small window

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

class LookCheck
{
public:
    LookCheck(const SheetText &text, Findings *findings) : m_text(text), m_findings(findings) { }

    void run()
    {
        for (const StageWidget &widget : stageWidgets()) {
            checkSize(widget);
            checkStates(widget);
            if (widget.showsWords) {
                checkContrast(widget);
            }
        }
    }

private:
    void add(const char *rule, const StageWidget &widget, const QString &text)
    {
        for (const ThemeSection &section : m_text.sections()) {
            if (section.key == QLatin1String(widget.key)) {
                const QVector<Finding> &all = m_findings->all();
                const bool isTold = std::any_of(all.cbegin(), all.cend(), [&](const Finding &finding) {
                    return finding.file == section.header.file && finding.line == section.header.line
                        && qstrcmp(finding.rule->name, rule) == 0;
                });
                if (isTold) { // of another widget with the section
                    return;
                }
                m_findings->add(rule, section.header.file, section.header.line,
                                QStringLiteral("%1: %2").arg(section.key, text));
                return;
            }
        }
    }

    void checkSize(const StageWidget &widget)
    {
        if (!widget.isClicked) {
            return;
        }
        const StagedWidget stage(widget, StageState::Normal, Qt::LeftToRight);
        const QSize size = stage.widget()->size();
        if (size.width() < SmallestTarget || size.height() < SmallestTarget) {
            add("target-small", widget,
                QStringLiteral("the %1 is %2 by %3 logical pixels large")
                    .arg(QLatin1String(widget.name))
                    .arg(size.width())
                    .arg(size.height()));
        }
    }

    void checkStates(const StageWidget &widget)
    {
        const QImage normal = StagedWidget(widget, StageState::Normal, Qt::LeftToRight).widgetPicture();
        constexpr int Thickness = 4; // of what must change at least, if it were as long as the widget is high
        if (widget.states.contains(StageState::Focused)) {
            const QImage focused = StagedWidget(widget, StageState::Focused, Qt::LeftToRight).widgetPicture();
            if (countChanged(normal, focused) < Thickness * std::min(normal.height(), normal.width())) {
                add("focus-invisible", widget,
                    QStringLiteral("the %1 looks the same with the keyboard focus").arg(QLatin1String(widget.name)));
            }
        }
        if (widget.states.contains(StageState::Disabled)) {
            const QImage disabled = StagedWidget(widget, StageState::Disabled, Qt::LeftToRight).widgetPicture();
            if (countChanged(normal, disabled) < std::min(normal.height(), normal.width())) {
                add("disabled-invisible", widget,
                    QStringLiteral("the %1 looks the same when it is disabled").arg(QLatin1String(widget.name)));
            }
        }
    }

    void checkContrast(const StageWidget &widget)
    {
        QStringList states;
        double least = ReadableContrast;
        for (const StageState state : widget.states) {
            const StagedWidget stage(widget, state, Qt::LeftToRight);
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
                    least = std::min(least, found);
                }
            }
            if (isLow) {
                states.append(nameOf(state));
            }
        }
        if (!states.isEmpty()) {
            add("contrast-low", widget,
                QStringLiteral("the text of the %1 has a contrast of %2 to 1 (%3)")
                    .arg(QLatin1String(widget.name))
                    .arg(least, 0, 'f', 1)
                    .arg(states.join(QStringLiteral(", "))));
        }
    }

    const SheetText &m_text;
    Findings *const m_findings;
};

// ---- captions

// The longest caption of those buttons that are narrower than they need to be: the others may have given way to it.
QString cutCaption(const QWidget *window)
{
    QString cut;
    const QList<QAbstractButton *> buttons = window->findChildren<QAbstractButton *>();
    for (const QAbstractButton *button : buttons) {
        if (button->isVisibleTo(window) && !button->text().isEmpty() && button->width() < button->sizeHint().width()
            && button->text().size() > cut.size()) {
            cut = button->text();
        }
    }
    return cut;
}

// What is cut of the texts that are installed, in the widgets that show them.
QStringList cutCaptions(Qt::LayoutDirection direction)
{
    QWidget window;
    window.setAttribute(Qt::WA_DontShowOnScreen);
    window.setLayoutDirection(direction);
    window.resize(SheetWindowWidth, SheetWindowWidth);
    const QString text = QStringLiteral("text");
    QList<QWidget *> shown {
        new VelaMessageSheet(VelaMessageSheet::QuestionMessage, text, &window),
        new VelaMessageSheet(VelaMessageSheet::UpgradeMessage, text, &window),
        new VelaInputSheet(text, &window),
        new VelaCalanderView(&window),
    };
    window.show();
    QStringList cut;
    for (QWidget *widget : qAsConst(shown)) {
        widget->show();
        widget->resize(widget->sizeHint().expandedTo(widget->minimumSize()).boundedTo(widget->maximumSize()));
        if (widget->layout()) {
            widget->layout()->activate();
        }
        cut.append(cutCaption(widget));
    }
    cut.removeAll(QString());
    cut.removeDuplicates();
    return cut;
}

void checkCaptions(const QString &folder, Findings *findings)
{
    const QStringList languages = VelaTheme::languages(folder);
    for (const QString &language : languages) {
        const QMap<QString, QString> texts = textsOf(folder, language);
        ComponentStrings::getInstance()->installStrings(texts);
        const QStringList cut = cutCaptions(Qt::LeftToRight);
        for (const QString &caption : cut) {
            const QString file = QStringLiteral("strings/%1.json").arg(language);
            Findings ignored;
            const int line = JsonFile(folder, file, "text-json", &ignored).lineOf(texts.key(caption));
            findings->add("caption-cut", file, line, QStringLiteral("the caption \"%1\" is cut").arg(caption));
        }
    }
    if (languages.isEmpty() || hasErrorIn(*findings, {"strings"})) {
        return;
    }
    const QString model = mainLanguageOf(folder);
    ComponentStrings::getInstance()->installStrings(lengthened(textsOf(folder, model)));
    const QStringList cut = cutCaptions(Qt::RightToLeft);
    for (const QString &caption : cut) {
        findings->add("caption-cut-longer", QStringLiteral("strings/%1.json").arg(model), 0,
                      QStringLiteral("the caption \"%1\", a third longer and right to left, is cut").arg(caption));
    }
}

} // namespace

void checkLooks(const QString &folder, const SheetText &text, Findings *findings)
{
    if (hasErrorIn(*findings, {"styles", "images"})) {
        return;
    }
    // What is missing has been told.
    QLoggingCategory::setFilterRules(QStringLiteral("debug.message.warning=false"));
    useTheme(folder, mainLanguageOf(folder));
    LookCheck(text, findings).run();
    if (!hasErrorIn(*findings, {"strings"})) {
        checkCaptions(folder, findings);
    }
}
