// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// Measures in each state of the widgets whether what tells something without words is seen.

#include "component/vela-button-path.h"
#include "component/vela-line-edit.h"
#include "component/vela-mask.h"
#include "component/vela-msg-sheet.h"
#include "component/vela-tree-widget.h"
#include "contrast-samples.h"
#include "contrast-stage.h"
#include "in-state.h"
#include "pixel-contrast.h"
#include "style-manager/style-manager.h"
#include "support/color-counts.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QScrollBar>
#include <QStyleOptionButton>
#include <QTableView>
#include <QTreeView>
#include <QtTest>

class ThemeMarkContrastTest : public ContrastTest
{
    Q_OBJECT

private Q_SLOTS:
    void focusIsSeen_data();
    void focusIsSeen();
    void focusOnASheetIsSeen_data() { addSheets(); }
    void focusOnASheetIsSeen();
    void theCurrentRowOfATreeIsSeen();
    void errorsAreSeen_data() { addSurfaces({{"field", createFieldWithAnError}}); }
    void errorsAreSeen();
    void bordersOfFieldsAreSeen_data();
    void bordersOfFieldsAreSeen();
    void indicatorsAreSeen_data() { addSurfaces({{"check box", createCheckBox}, {"radio button", createRadioButton}}); }
    void indicatorsAreSeen();
    void iconsAreSeen_data() { addSurfaces({{"icon button", createIconButton}}); }
    void iconsAreSeen();
    void drawingsAreSeen_data();
    void drawingsAreSeen();
    void handlesOfScrollBarsAreSeen();
    void theEdgeOfASheetIsSeen();
};

namespace {

constexpr double VisibleContrast = 3.0; // least contrast of rings, of borders that tell something, and of icons

QRect indicatorRect(QAbstractButton *button)
{
    QStyleOptionButton option;
    option.initFrom(button);
    const auto element =
        qobject_cast<QRadioButton *>(button) ? QStyle::SE_RadioButtonIndicator : QStyle::SE_CheckBoxIndicator;
    return button->style()->subElementRect(element, &option, button);
}

// The colour of most of a drawing's solid pixels.
QColor drawingColor(const QString &image)
{
    const QImage drawing(themeFolder().filePath(QStringLiteral("images/%1.png").arg(image)));
    const QHash<QRgb, int> counts = colorCounts(drawing);
    QRgb color = 0;
    int most = 0;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
        if (qAlpha(it.key()) == 255 && it.value() > most) {
            color = it.key();
            most = it.value();
        }
    }
    return QColor(color);
}

// The left border of a widget, in the middle of its height, on what it is to be told from.
ColorPair borderPair(QWidget *stage, const QWidget *field, const QColor &against)
{
    const QRect rect = rectIn(field, stage);
    const QImage picture = enlargedPicture(stage, QRect(rect.left(), rect.center().y(), 1, 1));
    return {picture.pixelColor(1, 1), against, 0};
}

QColor insideOf(QWidget *stage, const QWidget *field)
{
    const QRect rect = rectIn(field, stage).adjusted(3, 3, -3, -3);
    return frequentColors(enlargedPicture(stage, rect), 1).constFirst();
}

bool showsFocus(const QWidget *widget)
{
    const bool isControl = qobject_cast<const QAbstractButton *>(widget) || qobject_cast<const QLineEdit *>(widget)
        || qobject_cast<const QComboBox *>(widget) || qobject_cast<const MessageLabel *>(widget);
    const bool hasRows = qobject_cast<const QTreeView *>(widget) || qobject_cast<const QTableView *>(widget);
    return (isControl || (hasRows && !qobject_cast<const VelaButtonPath *>(widget))) && widget->isVisible()
        && widget->isEnabled() && (widget->focusPolicy() & Qt::TabFocus);
}

// A ring is as long as the widget's shorter side at least. It stands out against what was there before, or against the
// surfaces on both sides of it.
QString focusFault(QWidget *root, QWidget *widget, const QColor &outside)
{
    // An editable combo box shows the focus of its field.
    const auto *box = qobject_cast<const QComboBox *>(widget->parentWidget());
    const QWidget *framed = box ? box : widget;
    const QRect rect = rectIn(framed, root);
    const QColor inside = insideOf(root, framed);
    const QImage idle = enlargedPicture(root, rect);
    const InState inState(widget, State::Focused);
    const QVector<ColorPair> pairs = differences(enlargedPicture(root, rect), idle);
    const int least = qMin(rect.width(), rect.height()) * Enlargement * 2; // pixels of the enlarged picture
    const bool isSeen = std::any_of(pairs.cbegin(), pairs.cend(), [&](const ColorPair &pair) {
        const double around = qMin(contrast(pair.ink, outside), contrast(pair.ink, inside));
        return pair.count >= least && qMax(contrast(pair.ink, pair.ground), around) >= VisibleContrast;
    });
    return isSeen ? QString() : nameOf(widget);
}

QStringList focusFaults(QWidget *root, const QColor &outside)
{
    QStringList faults;
    int count = 0;
    for (QWidget *widget : withDescendants(root)) {
        if (showsFocus(widget)) {
            ++count;
            faults.append(focusFault(root, widget, outside));
        }
    }
    faults.removeAll(QString());
    return count > 0 ? faults : QStringList(QStringLiteral("nothing takes the focus"));
}

} // namespace

void ThemeMarkContrastTest::focusIsSeen_data()
{
    addSurfaces({
        {"apply button", createButton<VelaButton::ApplyButton>},
        {"cancel button", createButton<VelaButton::CancelButton>},
        {"default button", createButton<VelaButton::DefaultButton>},
        {"red button", createButton<VelaButton::RedButton>},
        {"selected paging button", createButton<VelaButton::SelectPagingButton>},
        {"other paging button", createButton<VelaButton::NonselectPagingButton>},
        {"icon button", createIconButton},
        {"check box", createCheckBox},
        {"radio button", createRadioButton},
        {"field", createField},
        {"field with an error", createFieldWithAnError},
        {"filter bar", createFilterBar},
        {"combo box", createComboBox},
        {"editable combo box", createEditableComboBox},
        {"date selector", createDateSelector},
        {"path", createPath},
        {"tree", createTree},
        {"table", createTable},
    });
}

void ThemeMarkContrastTest::focusIsSeen()
{
    Shown<RowStage> stage;
    QCOMPARE(focusFaults(&stage, stage.surface()).join(u'\n'), QString());
}

void ThemeMarkContrastTest::focusOnASheetIsSeen()
{
    Shown<Stage> stage(createBody());
    VelaSheet *sheet = createSheetOfRow(stage.content());
    sheet->show();
    QCOMPARE(focusFaults(sheet, surface("sheet")).join(u'\n'), QString());
}

void ThemeMarkContrastTest::theCurrentRowOfATreeIsSeen()
{
    Shown<Stage> stage(createTree());
    auto *tree = qobject_cast<VelaTreeWidget *>(stage.content());
    tree->setCurrentItem(tree->topLevelItem(1));
    const QRect row = tree->visualItemRect(tree->topLevelItem(1)).adjusted(-tree->indentation(), 0, 0, 0);
    const QImage idle = enlargedPicture(tree->viewport(), row);
    tree->setFocus();
    QTRY_VERIFY(tree->hasFocus());
    const QVector<ColorPair> pairs = differences(enlargedPicture(tree->viewport(), row), idle);
    QVERIFY(!pairs.isEmpty());
    QCOMPARE(fault(pairs.first(), VisibleContrast), QString());
}

void ThemeMarkContrastTest::errorsAreSeen()
{
    Shown<RowStage> stage;
    QLineEdit *field = qobject_cast<VelaLineEdit *>(stage.content())->getLineEdit();
    for (const State state : {State::Normal, State::Hovered, State::Focused}) {
        const InState inState(field, state);
        for (const QColor &ground : {stage.surface(), insideOf(&stage, field)}) {
            QCOMPARE(fault(borderPair(&stage, field, ground), VisibleContrast), QString());
        }
    }
    const ColorPair mark {drawingColor(QStringLiteral("field_error")), insideOf(&stage, field), 0};
    QCOMPARE(fault(mark, VisibleContrast), QString());
}

void ThemeMarkContrastTest::bordersOfFieldsAreSeen_data()
{
    QVector<QPair<const char *, Create>> widgets = {
        {"cancel button", createButton<VelaButton::CancelButton>},
        {"field", createField},
        {"filter bar", createFilterBar},
        {"combo box", createComboBox},
        {"date selector", createDateSelector},
        {"path", createPath},
        {"tree", createTree},
    };
    if (themeName() == QLatin1String("high-contrast")) { // elsewhere the surface of the button is enough
        widgets.append({"default button", createButton<VelaButton::DefaultButton>});
    }
    addSurfaces(widgets);
}

void ThemeMarkContrastTest::bordersOfFieldsAreSeen()
{
    Shown<RowStage> stage;
    QWidget *field = stage.content()->findChild<QLineEdit *>();
    field = qobject_cast<VelaLineEdit *>(stage.content()) ? field : stage.content();
    for (const State state : {State::Normal, State::Hovered}) {
        const InState inState(field, state);
        QCOMPARE(fault(borderPair(&stage, field, stage.surface()), VisibleContrast), QString());
    }
}

void ThemeMarkContrastTest::indicatorsAreSeen()
{
    Shown<RowStage> stage;
    auto *button = qobject_cast<QAbstractButton *>(stage.content());
    auto *checkBox = qobject_cast<QCheckBox *>(button);
    const QColor ground = stage.surface();
    const QRect rect = indicatorRect(button).translated(button->pos());
    for (const Qt::CheckState value : {Qt::Unchecked, Qt::Checked, Qt::PartiallyChecked}) {
        if (checkBox) {
            checkBox->setCheckState(value);
        } else if (value != Qt::PartiallyChecked) {
            button->setChecked(value == Qt::Checked);
        }
        for (const StateRow &row : States) {
            if (row.state == State::Disabled) {
                continue;
            }
            const InState inState(button, row.state);
            const QVector<QColor> colors = frequentColors(enlargedPicture(&stage, rect), 15 * Enlargement);
            const QString name = QStringLiteral("%1 %2").arg(QLatin1String(row.name)).arg(value);
            const bool isSeen = std::any_of(colors.cbegin(), colors.cend(), [&ground](const QColor &color) {
                return contrast(color, ground) >= VisibleContrast;
            });
            QVERIFY2(isSeen, qPrintable(name));
            if (button->isChecked() || value == Qt::PartiallyChecked) {
                const QImage middle = enlargedPicture(&stage, rect.adjusted(6, 6, -6, -6));
                const QVector<QColor> inside = frequentColors(middle, 10 * Enlargement);
                QVERIFY2(inside.size() >= 2, qPrintable(name));
                QVERIFY2(contrast(inside.at(0), inside.at(1)) >= VisibleContrast, qPrintable(name));
            }
        }
    }
}

void ThemeMarkContrastTest::iconsAreSeen()
{
    Shown<RowStage> stage;
    struct Row
    {
        State state;
        const char *suffix;
    };
    for (const Row &row : {Row {State::Normal, ""}, {State::Hovered, "_hover"}, {State::Pressed, "_click"}}) {
        const InState inState(stage.content(), row.state);
        const QImage image = enlargedPicture(&stage, rectIn(stage.content(), &stage));
        const ColorPair pair {drawingColor(QStringLiteral("bt_settings") + QLatin1String(row.suffix)),
                              frequentColors(image, 1).constFirst(), 0};
        QCOMPARE(fault(pair, VisibleContrast), QString());
    }
}

void ThemeMarkContrastTest::drawingsAreSeen_data()
{
    QTest::addColumn<QByteArray>("surfaceName");
    struct Row
    {
        const char *drawing;
        const char *surface;
    };
    for (const Row &row : {Row {"arrow_down", "field"},
                           {"arrow_up", "field"},
                           {"arrow_right", "popup"},
                           {"arrow_left", "popup"},
                           {"menu_check", "popup"},
                           {"icon_information", "sheet"},
                           {"icon_question", "sheet"},
                           {"bt_pagebar_next", "page"},
                           {"bt_pagebar_nextend", "popup"},
                           {"bt_next", "field"},
                           {"bt_search_dropdown", "field"},
                           {"bt_pagebar_refresh", "page"}}) {
        QTest::newRow(row.drawing) << QByteArray(row.surface);
    }
}

void ThemeMarkContrastTest::drawingsAreSeen()
{
    QFETCH(QByteArray, surfaceName);
    const ColorPair pair {drawingColor(QLatin1String(QTest::currentDataTag())), surface(surfaceName), 0};
    QCOMPARE(fault(pair, VisibleContrast), QString());
}

// As with fields, those of the light theme are fainter until the pointer is there.
void ThemeMarkContrastTest::handlesOfScrollBarsAreSeen()
{
    auto *bar = new QScrollBar(Qt::Horizontal);
    bar->setStyleSheet(getStyleSheet("component.scrollbar", false));
    bar->setMinimumWidth(200);
    bar->setRange(0, 10);
    bar->setPageStep(100); // a long handle, in which the middle lies
    Shown<Stage> stage(bar);
    QStyleOptionSlider option;
    option.initFrom(bar);
    for (const State state : {State::Normal, State::Hovered, State::Pressed}) {
        const InState inState(bar, state);
        const QVector<QColor> colors = frequentColors(enlargedPicture(&stage, rectIn(bar, &stage)), 30 * Enlargement);
        QVERIFY(colors.size() >= 2);
        QCOMPARE(fault({colors.at(0), colors.at(1), 0}, VisibleContrast), QString());
    }
}

void ThemeMarkContrastTest::theEdgeOfASheetIsSeen()
{
    Shown<Stage> stage(createBody());
    VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, Sample, stage.content());
    VelaMask::createMask(&sheet, stage.content(), themeColor("mask"));
    sheet.show();
    const int shadow = sheet.contentsMargins().left();
    const int middle = sheet.height() / 2;
    const QColor within = enlargedPicture(&sheet, QRect(shadow + 3, middle, 1, 1)).pixelColor(1, 1);
    const QColor edge = enlargedPicture(&sheet, QRect(shadow - 1, middle, 1, 1)).pixelColor(1, 1);
    if (themeName() == QLatin1String("high-contrast")) {
        QVERIFY2(contrast(edge, within) >= VisibleContrast, qPrintable(edge.name()));
    } else {
        QVERIFY2(edge != within, qPrintable(edge.name()));
    }
}

QTEST_MAIN(ThemeMarkContrastTest)
#include "tst_theme_mark_contrast.moc"
