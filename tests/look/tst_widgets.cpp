// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/paging/vela-paging-bar.h"
#include "component/vela-button-path.h"
#include "component/vela-button.h"
#include "component/vela-check-box.h"
#include "component/vela-combo-box.h"
#include "component/vela-countdown-msg-box.h"
#include "component/vela-date-selector.h"
#include "component/vela-filter-bar.h"
#include "component/vela-footbar.h"
#include "component/vela-input-sheet.h"
#include "component/vela-label.h"
#include "component/vela-line-edit.h"
#include "component/vela-menu.h"
#include "component/vela-msg-sheet.h"
#include "component/vela-table-widget.h"
#include "component/vela-tree-widget.h"
#include "support/controls.h"
#include "support/log-capture.h"
#include "utils/help-window.h"

#include <QtTest>

#include <memory>

namespace {

using Make = QWidget *(*)(QWidget *parent);

// A widget whose parent is the only argument, and may be left out.
template<typename Widget>
QWidget *make(QWidget *parent)
{
    return parent ? new Widget(parent) : new Widget;
}

// A widget with a text in front of its parent.
template<typename Widget>
QWidget *makeWithText(QWidget *parent)
{
    return parent ? new Widget(QStringLiteral("text"), parent) : new Widget(QStringLiteral("text"));
}

// A button, which has no parent at first.
template<int Kind>
QWidget *makeButton(QWidget *parent)
{
    auto *button = new VelaButton(QStringLiteral("text"), Kind);
    button->setParent(parent);
    return button;
}

QWidget *makeIconButton(QWidget *parent)
{
    auto *button = new VelaIconButton(QPixmap());
    button->setParent(parent);
    return button;
}

QWidget *makeCountdown(QWidget *parent)
{
    return parent ? new VelaCountdownMessageBox(3, parent) : new VelaCountdownMessageBox(3);
}

QWidget *makeQuestion(QWidget *parent)
{
    return parent ? new VelaMessageSheet(VelaMessageSheet::QuestionMessage, parent)
                  : new VelaMessageSheet(VelaMessageSheet::QuestionMessage);
}

QWidget *makeTable(QWidget *parent)
{
    return parent ? new VelaTableWidget(VelaTableColumnsInfo(), parent) : new VelaTableWidget(VelaTableColumnsInfo());
}

QWidget *makePath(QWidget *parent)
{
    auto *path = parent ? new VelaButtonPath(parent) : new VelaButtonPath;
    path->refresh(QStringLiteral("a/b"));
    return path;
}

QWidget *makePagingBar(QWidget *parent)
{
    static VelaPagingModel model(50);
    auto *bar = parent ? new VelaPagingBar(&model, parent) : new VelaPagingBar(&model);
    bar->setFooterText(QStringLiteral("text"));
    return bar;
}

QWidget *makeHelp(QWidget *parent)
{
    return parent ? new HelpWindow(HelpContext(), parent) : new HelpWindow(HelpContext());
}

// A class, what it declares apart from its base, and the sections of style sheets that it asks for, in order.
struct WidgetClass
{
    const QMetaObject &type;
    const QMetaObject &base;
    Make make;
    const char *declared;
    const char *sections;
};

const WidgetClass WidgetClasses[] = {
    {VelaButton::staticMetaObject, QPushButton::staticMetaObject, makeButton<VelaButton::ApplyButton>, "Kind",
     "apply_button"},
    {VelaButton::staticMetaObject, QPushButton::staticMetaObject, makeButton<VelaButton::CancelButton>, "Kind",
     "cancel_button"},
    {VelaButton::staticMetaObject, QPushButton::staticMetaObject, makeButton<VelaButton::SelectPagingButton>, "Kind",
     "select_paging_button"},
    {VelaButton::staticMetaObject, QPushButton::staticMetaObject, makeButton<VelaButton::NonselectPagingButton>, "Kind",
     "nonselect_paging_button"},
    {VelaButton::staticMetaObject, QPushButton::staticMetaObject, makeButton<VelaButton::DefaultButton>, "Kind",
     "default_button"},
    {VelaButton::staticMetaObject, QPushButton::staticMetaObject, makeButton<VelaButton::RedButton>, "Kind",
     "red_button"},
    {VelaIconButton::staticMetaObject, QToolButton::staticMetaObject, makeIconButton, "", "icon_button"},
    {VelaCheckBox::staticMetaObject, QCheckBox::staticMetaObject, makeWithText<VelaCheckBox>, "", "checkbox"},
    {VelaRadioButton::staticMetaObject, QRadioButton::staticMetaObject, makeWithText<VelaRadioButton>, "",
     "radio_button"},
    {VelaComboBox::staticMetaObject, QComboBox::staticMetaObject, make<VelaComboBox>, "", "combobox scrollbar"},
    {VelaFootbar::staticMetaObject, QWidget::staticMetaObject, make<VelaFootbar>, "", ""},
    {VelaLabel::staticMetaObject, QLabel::staticMetaObject, make<VelaLabel>, "", "label"},
    {VelaLabel::staticMetaObject, QLabel::staticMetaObject, makeWithText<VelaLabel>, "", "label"},
    {VelaLineEdit::staticMetaObject, QWidget::staticMetaObject, make<VelaLineEdit>, "",
     "lineedit_label lineedit lineedit_label"},
    {VelaMenu::staticMetaObject, QMenu::staticMetaObject, make<VelaMenu>, "", ""},
    {VelaCalanderView::staticMetaObject, QAbstractItemView::staticMetaObject, make<VelaCalanderView>,
     "sigDateSelect(QDate) selectToday() pageChanged(int,int) slotMonthTriggered(QAction*)",
     "cancel_button table_header table"},
    {VelaDateSelector::staticMetaObject, QComboBox::staticMetaObject, makeWithText<VelaDateSelector>,
     "dateSelect(QDate)", "cancel_button table_header table date_selector menu"},
    {HelpWindow::staticMetaObject, QDialog::staticMetaObject, makeHelp,
     "sigAbortRequest() slotReceiveReply(QNetworkReply*) slotQueryTimeout()", "scrollbar"},
    {VelaButtonPath::staticMetaObject, QTableWidget::staticMetaObject, makePath,
     "sigUpdatePath(QString) slotUpdatePath(QString) slotPathBarClicked(int)",
     "menu button_path_change_folder_btn button_path button_path_name_button button_path_arrow "
     "button_path_name_button"},
    {VelaFilterBar::staticMetaObject, QLineEdit::staticMetaObject, make<VelaFilterBar>,
     "sigKeywordChanged(QString) slotKeywordChange()", "icon_button filter_search_button lineedit filter_bar_padding"},
    {VelaPagingBar::staticMetaObject, QWidget::staticMetaObject, makePagingBar,
     "sigPageChanged() sigRefresh() pageClick(int) next_5_page() prev_5_page() first_page() last_page()",
     "icon_button icon_button icon_button icon_button nonselect_paging_button nonselect_paging_button "
     "select_paging_button nonselect_paging_button nonselect_paging_button icon_button paging_bar_border "
     "paging_bar_label"},
    {VelaCountdownMessageBox::staticMetaObject, QMessageBox::staticMetaObject, makeCountdown, "slotTick()",
     "info_message_box apply_button cancel_button"},
    {VelaInputSheet::staticMetaObject, VelaSheet::staticMetaObject, make<VelaInputSheet>,
     "done(int) quit() buttonClick(QAbstractButton*)", "apply_button cancel_button message_sheet_other lineedit"},
    {VelaMessageSheet::staticMetaObject, VelaSheet::staticMetaObject, makeQuestion,
     "done(int) quit() buttonClick(QAbstractButton*) MessageType",
     "apply_button cancel_button message_sheet_other message_sheet_text"},
    {VelaTableWidget::staticMetaObject, QWidget::staticMetaObject, makeTable,
     "slotSectionResized(int,int,int) slotVerticalScrollRangeChanged(int,int) slotTableResized(QSize)",
     "table_header table scrollbar"},
    {VelaTreeWidget::staticMetaObject, QTreeWidget::staticMetaObject, make<VelaTreeWidget>,
     "sigMouseRightClickEvent(QMouseEvent*) sigKeyPressEvent(QKeyEvent*)", ""},
};

QStringList listOf(const char *names)
{
    return QString::fromLatin1(names).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

Q_DECLARE_METATYPE(const WidgetClass *)

// What is to be said of every widget, in a program that has installed nothing.
class WidgetsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();

    void theClassDeclaresWhatIsItsOwn();
    void theParentMayBeLeftOut();
    void itIsFoundAmongItsParentsChildren();
    void withoutItsSheetsItIsUnstyledAndTheyAreLogged();
};

void WidgetsTest::initTestCase_data()
{
    QTest::addColumn<const WidgetClass *>("widget");
    for (const WidgetClass &widget : WidgetClasses) {
        QTest::addRow("%s of %s", widget.type.className(), widget.sections) << &widget;
    }
}

void WidgetsTest::theClassDeclaresWhatIsItsOwn()
{
    QFETCH_GLOBAL(const WidgetClass *, widget);
    const LogCapture silence;
    QCOMPARE(widget->type.superClass(), &widget->base);
    QCOMPARE(ownDeclarations(widget->type), listOf(widget->declared));
    QCOMPARE(std::unique_ptr<QWidget>(widget->make(nullptr))->metaObject(), &widget->type);
}

void WidgetsTest::theParentMayBeLeftOut()
{
    QFETCH_GLOBAL(const WidgetClass *, widget);
    const LogCapture silence;
    QWidget parent;
    QCOMPARE(widget->make(&parent)->parentWidget(), &parent);
    QVERIFY(!std::unique_ptr<QWidget>(widget->make(nullptr))->parent());
}

// Each class can be told from others of its base.
void WidgetsTest::itIsFoundAmongItsParentsChildren()
{
    QFETCH_GLOBAL(const WidgetClass *, widget);
    const LogCapture silence;
    QWidget parent;
    const QWidget *made = widget->make(&parent);
    const auto isOfTheClass = [&](const QObject *child) { return widget->type.cast(child) == child; };
    QVERIFY(isOfTheClass(made));
    for (const WidgetClass &other : WidgetClasses) {
        if (&other.type != &widget->type) {
            QVERIFY(!isOfTheClass(other.make(&parent)));
        }
    }
}

void WidgetsTest::withoutItsSheetsItIsUnstyledAndTheyAreLogged()
{
    QFETCH_GLOBAL(const WidgetClass *, widget);
    LogCapture log;
    const std::unique_ptr<QWidget> made(widget->make(nullptr));
    QStringList expected;
    const QStringList sections = listOf(widget->sections);
    for (const QString &section : sections) {
        expected.append(QStringLiteral("Cannot find stylesheet \"component.%1\"").arg(section));
    }
    QCOMPARE(log.takeTexts().filter(QStringLiteral("stylesheet")), expected);
    QCOMPARE(made->styleSheet(), QString());
}

QTEST_MAIN(WidgetsTest)
#include "tst_widgets.moc"
