// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "stage.h"

#include <StyleManager>
#include <VelaButton>
#include <VelaButtonPath>
#include <VelaCalanderView>
#include <VelaCheckBox>
#include <VelaComboBox>
#include <VelaDateSelector>
#include <VelaFilterBar>
#include <VelaIconButton>
#include <VelaInputSheet>
#include <VelaLabel>
#include <VelaLineEdit>
#include <VelaMenu>
#include <VelaMessageSheet>
#include <VelaPagingBar>
#include <VelaRadioButton>
#include <VelaTableColumnsInfo>
#include <VelaTableWidget>
#include <VelaTreeWidget>

#include "scale/scaled.h"

#include <QtWidgets>

namespace {

constexpr int FieldWidth = 160; // logical pixels
constexpr int ViewWidth = 300;
constexpr int ViewHeight = 130;
constexpr int SheetWindowWidth = 560;

// Filled strokes, of which the colour can be told, and some that go below the line.
const QString Sample = QStringLiteral("HEIM gq");

using State = StageState;

QWidget *withWidth(QWidget *widget, int width)
{
    widget->setFixedWidth(scaled(width));
    return widget;
}

std::function<QWidget *(QWidget *)> button(int kind)
{
    return [kind](QWidget *parent) -> QWidget * {
        auto *made = new VelaButton(Sample, kind);
        made->setParent(parent);
        return made;
    };
}

QWidget *iconButton(QWidget *parent)
{
    auto *made = new VelaIconButton(QStringLiteral("bt_search_dropdown"));
    made->setParent(parent);
    return made;
}

QWidget *comboBox(QWidget *parent, bool isEditable)
{
    auto *made = new VelaComboBox(parent);
    made->addItems({Sample, QStringLiteral("2")});
    made->setEditable(isEditable);
    return withWidth(made, FieldWidth);
}

QWidget *field(QWidget *parent)
{
    auto *made = new VelaLineEdit(parent);
    made->getPreLabel()->setText(Sample);
    made->getLineEdit()->setText(Sample);
    return withWidth(made, 2 * FieldWidth);
}

QWidget *filterBar(QWidget *parent)
{
    auto *made = new VelaFilterBar(parent);
    made->setText(Sample);
    return withWidth(made, FieldWidth);
}

QWidget *dateSelector(QWidget *parent)
{
    auto *made = new VelaDateSelector(QStringLiteral("-"), parent);
    made->dateSelect(QDate(2020, 2, 3));
    return withWidth(made, FieldWidth);
}

// Of a month that is not the one of today.
QWidget *calendar(QWidget *parent)
{
    auto *made = new VelaCalanderView(parent);
    made->setStyleSheet(getStyleSheet("component.date_selector", false) + getStyleSheet("component.menu", false));
    made->setCurrentPage(2020, 2);
    auto *grid = made->findChild<QCalendarWidget *>();
    grid->setSelectedDate(QDate(2020, 2, 3));
    made->setFixedSize(made->sizeHint().expandedTo(grid->sizeHint()));
    return made;
}

QWidget *menu(QWidget *parent)
{
    auto *made = new VelaMenu(parent);
    made->setWindowFlags(Qt::Widget);
    made->setStyleSheet(getStyleSheet("component.menu", false));
    made->addAction(Sample);
    made->addSeparator();
    QAction *checked = made->addAction(Sample);
    checked->setCheckable(true);
    checked->setChecked(true);
    made->addAction(Sample)->setEnabled(false);
    made->setFixedSize(made->sizeHint());
    return made;
}

QWidget *pagingBar(QWidget *parent)
{
    auto *model = new VelaPagingModel(10, parent);
    auto *made = new VelaPagingBar(model, parent);
    made->setItemCount(95);
    made->setPage(3);
    made->setFooterText(Sample);
    return withWidth(made, 2 * ViewWidth);
}

QWidget *path(QWidget *parent)
{
    auto *made = new VelaButtonPath(parent);
    made->setFixedSize(scaled(ViewWidth), made->sizeHint().height());
    made->setFixedHeight(scaled(28));
    made->refresh(QStringLiteral("HEIM/EIM"));
    return made;
}

QWidget *table(QWidget *parent)
{
    VelaTableColumnsInfo columns;
    columns.addColumn(Sample, 120, true, 0.0);
    columns.addColumn(Sample, 120, true, 1.0);
    auto *made = new VelaTableWidget(columns, parent);
    QTableWidget *rows = made->getTable();
    rows->setRowCount(3);
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 2; ++column) {
            rows->setItem(row, column, new QTableWidgetItem(Sample));
        }
    }
    rows->selectRow(1);
    made->setFixedSize(scaled(ViewWidth), scaled(ViewHeight));
    return made;
}

QWidget *tree(QWidget *parent)
{
    auto *made = new VelaTreeWidget(parent);
    made->setHeaderHidden(true);
    auto *delegate = new ItemDelegate;
    delegate->setParent(made);
    made->setItemDelegate(delegate);
    made->setStyleSheet(getStyleSheet("component.tree_item", false) + getStyleSheet("component.scrollbar", false));
    for (const Qt::CheckState state : {Qt::Unchecked, Qt::Checked, Qt::PartiallyChecked}) {
        auto *item = new QTreeWidgetItem(made, {Sample});
        item->setCheckState(0, state);
        new QTreeWidgetItem(item, {Sample});
    }
    made->topLevelItem(0)->setExpanded(true);
    made->setCurrentItem(made->topLevelItem(0));
    made->setFixedSize(scaled(ViewWidth), scaled(ViewHeight));
    return made;
}

// A sheet has the width of its window.
QWidget *inWindow(QWidget *parent, const std::function<QWidget *(QWidget *window)> &create)
{
    auto *window = new QWidget(parent);
    window->setFixedWidth(scaled(SheetWindowWidth));
    create(window);
    return window;
}

std::function<QWidget *(QWidget *)> messageSheet(VelaMessageSheet::MessageType type)
{
    return [type](QWidget *parent) {
        return inWindow(parent, [type](QWidget *window) { return new VelaMessageSheet(type, Sample, Sample, window); });
    };
}

std::function<QWidget *(QWidget *)> messageBox(const char *key, QMessageBox::Icon icon)
{
    return [key, icon](QWidget *parent) -> QWidget * {
        auto *made = new QMessageBox(icon, QString(), Sample, QMessageBox::NoButton, parent, Qt::Widget);
        made->setStyleSheet(getStyleSheet(key, false));
        made->addButton(new VelaButton(Sample, VelaButton::ApplyButton), QMessageBox::AcceptRole);
        return made;
    };
}

QWidget *label(QWidget *parent, const char *key)
{
    auto *made = new QLabel(Sample, parent);
    made->setStyleSheet(getStyleSheet(key, false));
    return made;
}

QWidget *scrollBar(QWidget *parent)
{
    auto *made = new QScrollBar(Qt::Horizontal, parent);
    made->setStyleSheet(getStyleSheet("component.scrollbar", false));
    made->setRange(0, 100);
    made->setPageStep(50);
    return withWidth(made, FieldWidth);
}

QVector<StageWidget> makeStageWidgets()
{
    const QVector<State> ofButtons = {State::Normal, State::Hovered, State::Pressed, State::Focused, State::Disabled};
    const QVector<State> ofChoices = ofButtons + QVector<State> {State::Checked};
    const QVector<State> ofFields = {State::Normal, State::Hovered, State::Focused, State::Disabled};
    const QVector<State> ofViews = {State::Normal, State::Focused, State::Disabled};
    const QVector<State> ofTexts = {State::Normal, State::Disabled};
    return {
        {"apply-button", "component.apply_button", ofButtons, true, true, button(VelaButton::ApplyButton)},
        {"cancel-button", "component.cancel_button", ofButtons, true, true, button(VelaButton::CancelButton)},
        {"default-button", "component.default_button", ofButtons, true, true, button(VelaButton::DefaultButton)},
        {"red-button", "component.red_button", ofButtons, true, true, button(VelaButton::RedButton)},
        {"select-paging-button", "component.select_paging_button", ofButtons, false, true,
         button(VelaButton::SelectPagingButton)},
        {"nonselect-paging-button", "component.nonselect_paging_button", ofButtons, false, true,
         button(VelaButton::NonselectPagingButton)},
        {"icon-button", "component.icon_button", ofButtons, true, false, iconButton},
        {"check-box", "component.checkbox", ofChoices, true, true,
         [](QWidget *parent) { return new VelaCheckBox(Sample, parent); }},
        {"radio-button", "component.radio_button", ofChoices, true, true,
         [](QWidget *parent) { return new VelaRadioButton(Sample, parent); }},
        {"combo-box", "component.combobox", ofFields, true, true,
         [](QWidget *parent) { return comboBox(parent, false); }},
        {"editable-combo-box", "component.combobox", ofFields, true, true,
         [](QWidget *parent) { return comboBox(parent, true); }},
        {"line-edit", "component.lineedit", ofFields + QVector<State> {State::Error}, true, true, field},
        {"filter-bar", "component.lineedit", ofFields, true, true, filterBar},
        {"date-selector", "component.date_selector", ofFields, true, true, dateSelector},
        {"label", "component.label", ofTexts, false, true,
         [](QWidget *parent) {
             auto *made = new VelaLabel(parent);
             made->setText(Sample);
             return made;
         }},
        {"paging-label", "component.paging_bar_label", ofTexts, false, true,
         [](QWidget *parent) { return label(parent, "component.paging_bar_label"); }},
        {"rightmost-paging-label", "component.paging_bar_rightmost_label", ofTexts, false, true,
         [](QWidget *parent) { return label(parent, "component.paging_bar_rightmost_label"); }},
        {"calendar", "component.date_selector", {State::Normal, State::Disabled}, false, false, calendar},
        {"menu", "component.menu", {State::Normal}, false, true, menu},
        {"paging-bar", "component.paging_bar_border", {State::Normal, State::Disabled}, false, false, pagingBar},
        {"path", "component.button_path", {State::Normal, State::Disabled}, false, false, path},
        {"table", "component.table", ofViews, false, true, table},
        {"tree", "component.tree_item", ofViews, false, false, tree},
        {"scroll-bar", "component.scrollbar", {State::Normal, State::Disabled}, false, false, scrollBar},
        {"information-sheet",
         "component.message_sheet_other",
         {State::Normal},
         false,
         false,
         messageSheet(VelaMessageSheet::InfoMessage)},
        {"question-sheet",
         "component.message_sheet_other",
         {State::Normal},
         false,
         false,
         messageSheet(VelaMessageSheet::QuestionMessage)},
        {"processing-sheet",
         "component.message_sheet_processing",
         {State::Normal},
         false,
         false,
         messageSheet(VelaMessageSheet::ProcessingMessage)},
        {"input-sheet",
         "component.message_sheet_other",
         {State::Normal},
         false,
         false,
         [](QWidget *parent) {
             return inWindow(parent, [](QWidget *window) { return new VelaInputSheet(Sample, window); });
         }},
        {"information-box",
         "component.info_message_box",
         {State::Normal},
         false,
         false,
         messageBox("component.info_message_box", QMessageBox::Information)},
        {"warning-box",
         "component.warning_message_box",
         {State::Normal},
         false,
         false,
         messageBox("component.warning_message_box", QMessageBox::Warning)},
        {"question-box",
         "component.confirm_message_box",
         {State::Normal},
         false,
         false,
         messageBox("component.confirm_message_box", QMessageBox::Question)},
        {"upgrading-box",
         "component.upgrading_message_box",
         {State::Normal},
         false,
         false,
         messageBox("component.upgrading_message_box", QMessageBox::Information)},
    };
}

} // namespace

const QVector<StageWidget> &stageWidgets()
{
    static const QVector<StageWidget> widgets = makeStageWidgets();
    return widgets;
}
