// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "stage.h"

#include "text-check.h"

#include <ComponentStrings>
#include <ImageManager>
#include <MessageLabel>
#include <StyleManager>
#include <UIPathManager>
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
#include <VelaSheet>
#include <VelaTableColumnsInfo>
#include <VelaTableWidget>
#include <VelaTheme>
#include <VelaTreeWidget>

#include "scale/scaled.h"

#include <QtWidgets>

#include <algorithm>

namespace {

constexpr int Margin = 8; // of the page around a widget, logical pixels
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

// A sheet has its height once it is shown and its texts are wrapped.
void fitToSheet(QWidget *window)
{
    auto *sheet = window->findChild<VelaSheet *>(QString(), Qt::FindDirectChildrenOnly);
    if (sheet) {
        sheet->show();
        for (int pass = 0; pass < 3; ++pass) {
            QCoreApplication::sendPostedEvents();
            sheet->resize(sheet->width(), sheet->sizeHint().height());
        }
        window->setFixedSize(sheet->size());
    }
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

void sendMouse(QWidget *widget, QEvent::Type type, Qt::MouseButton button)
{
    QMouseEvent event(type, widget->rect().center(), widget->mapToGlobal(widget->rect().center()), button, button,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

void hover(QWidget *widget)
{
    const QPointF centre = widget->rect().center();
    widget->setAttribute(Qt::WA_UnderMouse);
    QEnterEvent enter(centre, centre, widget->mapToGlobal(centre.toPoint()));
    QCoreApplication::sendEvent(widget, &enter);
    QHoverEvent over(QEvent::HoverEnter, centre, QPointF(-1, -1));
    QCoreApplication::sendEvent(widget, &over);
    sendMouse(widget, QEvent::MouseMove, Qt::NoButton);
}

// The part of a widget that takes the focus and the pointer.
QWidget *activePart(QWidget *widget)
{
    if (auto *lineEdit = qobject_cast<VelaLineEdit *>(widget)) {
        return lineEdit->getLineEdit();
    }
    if (auto *made = qobject_cast<VelaTableWidget *>(widget)) {
        return made->getTable();
    }
    return widget;
}

QVector<StageWidget> makeStageWidgets()
{
    const QVector<State> ofButtons = {State::Normal, State::Hovered, State::Pressed, State::Focused, State::Disabled};
    const QVector<State> ofChoices = ofButtons + QVector<State> {State::Checked};
    const QVector<State> ofFields = {State::Normal, State::Hovered, State::Focused, State::Disabled};
    const QVector<State> ofViews = {State::Normal, State::Focused, State::Disabled};
    const QVector<State> ofTexts = {State::Normal, State::Disabled};
    return {
        {"apply-button", "component.apply_button", ofButtons, true, button(VelaButton::ApplyButton)},
        {"cancel-button", "component.cancel_button", ofButtons, true, button(VelaButton::CancelButton)},
        {"default-button", "component.default_button", ofButtons, true, button(VelaButton::DefaultButton)},
        {"red-button", "component.red_button", ofButtons, true, button(VelaButton::RedButton)},
        {"select-paging-button", "component.select_paging_button", ofButtons, false,
         button(VelaButton::SelectPagingButton)},
        {"nonselect-paging-button", "component.nonselect_paging_button", ofButtons, false,
         button(VelaButton::NonselectPagingButton)},
        {"icon-button", "component.icon_button", ofButtons, true, iconButton},
        {"check-box", "component.checkbox", ofChoices, true,
         [](QWidget *parent) { return new VelaCheckBox(Sample, parent); }},
        {"radio-button", "component.radio_button", ofChoices, true,
         [](QWidget *parent) { return new VelaRadioButton(Sample, parent); }},
        {"combo-box", "component.combobox", ofFields, true, [](QWidget *parent) { return comboBox(parent, false); }},
        {"editable-combo-box", "component.combobox", ofFields, true,
         [](QWidget *parent) { return comboBox(parent, true); }},
        {"line-edit", "component.lineedit", ofFields + QVector<State> {State::Error}, true, field},
        {"filter-bar", "component.lineedit", ofFields, true, filterBar},
        {"date-selector", "component.date_selector", ofFields, true, dateSelector},
        {"label", "component.label", ofTexts, false,
         [](QWidget *parent) {
             auto *made = new VelaLabel(parent);
             made->setText(Sample);
             return made;
         }},
        {"paging-label", "component.paging_bar_label", ofTexts, false,
         [](QWidget *parent) { return label(parent, "component.paging_bar_label"); }},
        {"rightmost-paging-label", "component.paging_bar_rightmost_label", ofTexts, false,
         [](QWidget *parent) { return label(parent, "component.paging_bar_rightmost_label"); }},
        {"calendar", "component.date_selector", {State::Normal, State::Disabled}, false, calendar},
        {"menu", "component.menu", {State::Normal}, false, menu},
        {"paging-bar", "component.paging_bar_border", {State::Normal, State::Disabled}, false, pagingBar},
        {"path", "component.button_path", {State::Normal, State::Disabled}, false, path},
        {"table", "component.table", ofViews, false, table},
        {"tree", "component.tree_item", ofViews, false, tree},
        {"scroll-bar", "component.scrollbar", {State::Normal, State::Disabled}, false, scrollBar},
        {"information-sheet",
         "component.message_sheet_other",
         {State::Normal},
         false,
         messageSheet(VelaMessageSheet::InfoMessage)},
        {"question-sheet",
         "component.message_sheet_other",
         {State::Normal},
         false,
         messageSheet(VelaMessageSheet::QuestionMessage)},
        {"processing-sheet",
         "component.message_sheet_processing",
         {State::Normal},
         false,
         messageSheet(VelaMessageSheet::ProcessingMessage)},
        {"input-sheet",
         "component.message_sheet_other",
         {State::Normal},
         false,
         [](QWidget *parent) {
             return inWindow(parent, [](QWidget *window) { return new VelaInputSheet(Sample, window); });
         }},
        {"information-box",
         "component.info_message_box",
         {State::Normal},
         false,
         messageBox("component.info_message_box", QMessageBox::Information)},
        {"warning-box",
         "component.warning_message_box",
         {State::Normal},
         false,
         messageBox("component.warning_message_box", QMessageBox::Warning)},
        {"question-box",
         "component.confirm_message_box",
         {State::Normal},
         false,
         messageBox("component.confirm_message_box", QMessageBox::Question)},
        {"upgrading-box",
         "component.upgrading_message_box",
         {State::Normal},
         false,
         messageBox("component.upgrading_message_box", QMessageBox::Information)},
    };
}

} // namespace

QString nameOf(StageState state)
{
    static const char *const names[] = {"normal", "hover", "pressed", "focus", "disabled", "checked", "error"};
    return QString::fromLatin1(names[static_cast<int>(state)]);
}

const QVector<StageWidget> &stageWidgets()
{
    static const QVector<StageWidget> widgets = makeStageWidgets();
    return widgets;
}

void useTheme(const QString &folder, const QString &language)
{
    static const QTemporaryDir userData;
    UIPathManager::getInstance()->setPath(QStringLiteral("user_data_path"), userData.path());
    if (!VelaTheme::hasErrors(VelaTheme::getInstance()->load(folder, language))) {
        return;
    }
    // What can be shown of one with errors.
    ComponentStrings::getInstance()->installStrings(textsOf(folder, language));
    UIPathManager::getInstance()->setPath(QStringLiteral("resource_path"), folder);
    ImageManager::getInstance()->initialize(ImageManager::INIT_LAZY);
    const QDir styles(folder + QStringLiteral("/styles"));
    std::vector<QString> sheets;
    const QStringList names = styles.entryList({QStringLiteral("*.qss")}, QDir::Files, QDir::Name);
    for (const QString &name : names) {
        sheets.push_back(styles.filePath(name));
    }
    StyleManager::getInstance()->initialize(sheets);
}

Stage::Stage(const StageWidget &widget, StageState state, Qt::LayoutDirection direction) :
    m_page(std::make_unique<QWidget>())
{
    m_page->setLayoutDirection(direction);
    m_page->setAttribute(Qt::WA_DontShowOnScreen);
    m_widget = widget.create(m_page.get());
    m_widget->ensurePolished();
    const int margin = scaled(Margin);
    m_widget->resize(m_widget->sizeHint().expandedTo(m_widget->minimumSize()).boundedTo(m_widget->maximumSize()));
    m_widget->show();
    m_page->show();
    fitToSheet(m_widget);
    m_widget->move(margin, margin); // where a dialog does not put itself
    m_page->resize(m_widget->size() + QSize(2 * margin, 2 * margin));
    enter(state);
    for (int pass = 0; pass < 3; ++pass) { // layouts inside layouts
        QCoreApplication::sendPostedEvents();
    }
}

Stage::~Stage() = default;

void Stage::enter(StageState state)
{
    QWidget *part = activePart(m_widget);
    switch (state) {
    case StageState::Normal:
        break;
    case StageState::Hovered:
        hover(part);
        break;
    case StageState::Pressed:
        hover(part);
        sendMouse(part, QEvent::MouseButtonPress, Qt::LeftButton);
        break;
    case StageState::Focused:
        QApplication::setActiveWindow(m_page.get());
        part->setFocus(Qt::TabFocusReason);
        break;
    case StageState::Disabled:
        m_widget->setEnabled(false);
        break;
    case StageState::Checked:
        if (auto *choice = qobject_cast<QAbstractButton *>(m_widget)) {
            choice->setChecked(true);
        }
        break;
    case StageState::Error:
        if (auto *lineEdit = qobject_cast<VelaLineEdit *>(m_widget)) {
            lineEdit->setError(true);
        }
        break;
    }
}

QImage Stage::picture() const
{
    QPixmap page = m_page->grab();
    if (m_widget->isWindow()) { // a message box, which stands beside the page
        const int margin = scaled(Margin);
        QPainter(&page).drawPixmap(margin, margin, m_widget->grab());
    }
    return page.toImage().convertToFormat(QImage::Format_RGB32);
}

QImage Stage::widgetPicture() const
{
    const QPixmap picture = m_widget->isWindow() ? m_widget->grab() : m_page->grab(m_widget->geometry());
    return picture.toImage().convertToFormat(QImage::Format_RGB32);
}
