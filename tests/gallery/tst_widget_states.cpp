// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "gallery-page.h"
#include "pages.h"
#include "support/resource-folder.h"
#include "widget-states.h"

#include <VelaButton>
#include <VelaComboBox>
#include <VelaTableWidget>

#include <QAbstractButton>
#include <QHeaderView>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QtTest>

namespace {

const QPoint Outside(1, 1); // in the window's margin

struct Kind
{
    const char *name;
    QAbstractButton *(*create)();
};

const Kind Kinds[] = {
    {"apply", []() -> QAbstractButton * { return new VelaButton(QStringLiteral("Apply"), VelaButton::ApplyButton); }},
    {"cancel", []() -> QAbstractButton * { return new VelaButton(QStringLiteral("Apply"), VelaButton::CancelButton); }},
    {"page",
     []() -> QAbstractButton * { return new VelaButton(QStringLiteral("4"), VelaButton::NonselectPagingButton); }},
    {"icon", []() -> QAbstractButton * { return new VelaIconButton(QStringLiteral("bt_settings")); }},
};

struct State
{
    const char *name;
    WidgetState state;
    void (*bringAbout)(QWindow *window, QAbstractButton *button);
};

// What is seen of widget on the ground of its window.
QImage picture(const QWidget *widget)
{
    QCoreApplication::processEvents();
    return widget->window()->grab(widget->geometry()).toImage();
}

void movePointer(QWindow *window, const QWidget *widget)
{
    QTest::mouseMove(window, Outside + QPoint(1, 1)); // a move to where the pointer is already counts for none
    QTest::mouseMove(window, widget->geometry().center());
    QCoreApplication::processEvents();
}

const State States[] = {
    {"hovered", WidgetState::Hovered, [](QWindow *window, QAbstractButton *button) { movePointer(window, button); }},
    {"pressed", WidgetState::Pressed,
     [](QWindow *window, QAbstractButton *button) {
         button->setFocusPolicy(Qt::NoFocus); // a click gives the focus as well, which is another state
         movePointer(window, button);
         QTest::mousePress(window, Qt::LeftButton, {}, button->geometry().center());
     }},
    {"focused", WidgetState::Focused, [](QWindow *, QAbstractButton *button) { button->setFocus(Qt::TabFocusReason); }},
    {"disabled", WidgetState::Disabled, [](QWindow *, QAbstractButton *button) { button->setEnabled(false); }},
};

} // namespace

class WidgetStatesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void aFrozenWidgetLooksLikeOneInThatState_data();
    void aFrozenWidgetLooksLikeOneInThatState();
    void aFrozenWidgetStaysSoWhenItIsShownAgain_data() { aFrozenWidgetLooksLikeOneInThatState_data(); }
    void aFrozenWidgetStaysSoWhenItIsShownAgain();
    void aFrozenWidgetHeedsNeitherPointerNorKeyboard();
    void focusIsNotKnownWithoutAStyleSheet();
    void aComboBoxFrozenAsPressedOpensNoList();
    void focusMovesNoTextOfAComboBox();
    void eachStateHasAColumn();

    void sectionsAreAboveTheirColumnsAndTheLastAboveTheScrollBar();
    void aClickBesideTheHeadingsLeavesTheSortIndicator();
};

void WidgetStatesTest::initTestCase()
{
    installReferenceTheme();
}

void WidgetStatesTest::aFrozenWidgetLooksLikeOneInThatState_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("state");
    for (int kind = 0; kind < int(std::size(Kinds)); ++kind) {
        for (int state = 0; state < int(std::size(States)); ++state) {
            QTest::addRow("%s %s", Kinds[kind].name, States[state].name) << kind << state;
        }
    }
}

void WidgetStatesTest::aFrozenWidgetLooksLikeOneInThatState()
{
    QFETCH(int, kind);
    QFETCH(int, state);
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    layout->setContentsMargins(30, 30, 30, 30);
    QAbstractButton *real = Kinds[kind].create();
    QAbstractButton *frozen = Kinds[kind].create();
    auto *neighbour = new VelaButton(QStringLiteral("takes the focus first"));
    for (QWidget *widget :
         {static_cast<QWidget *>(neighbour), static_cast<QWidget *>(real), static_cast<QWidget *>(frozen)}) {
        layout->addWidget(widget);
    }
    QVERIFY(freeze(frozen, States[state].state));
    neighbour->setFocus();
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));

    const QImage atRest = picture(real);
    States[state].bringAbout(window.windowHandle(), real);
    const QImage inState = picture(real);
    QVERIFY(inState != atRest);
    QCOMPARE(picture(frozen), inState);
}

void WidgetStatesTest::aFrozenWidgetStaysSoWhenItIsShownAgain()
{
    QFETCH(int, kind);
    QFETCH(int, state);
    QWidget window;
    QAbstractButton *button = Kinds[kind].create();
    (new QVBoxLayout(&window))->addWidget(button);
    QVERIFY(freeze(button, States[state].state));
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    const QImage first = picture(button);
    window.hide();
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QCOMPARE(picture(button), first);
}

void WidgetStatesTest::aFrozenWidgetHeedsNeitherPointerNorKeyboard()
{
    QWidget window;
    auto *button = new VelaButton(QStringLiteral("Apply"), VelaButton::ApplyButton);
    auto *layout = new QVBoxLayout(&window);
    layout->setContentsMargins(30, 30, 30, 30);
    layout->addWidget(button);
    QVERIFY(freeze(button, WidgetState::Hovered));
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    const QImage before = picture(button);
    QSignalSpy pressed(button, &VelaButton::pressed);
    movePointer(window.windowHandle(), button);
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, button->geometry().center());
    QTest::keyClick(&window, Qt::Key_Tab);
    QTest::keyClick(&window, Qt::Key_Space);
    QTest::mouseMove(window.windowHandle(), Outside);
    QCoreApplication::processEvents();
    QCOMPARE(pressed.count(), 0);
    QCOMPARE(picture(button), before);
}

void WidgetStatesTest::focusIsNotKnownWithoutAStyleSheet()
{
    VelaButton unstyled(QStringLiteral("Plain"), 6);
    QVERIFY(!freeze(&unstyled, WidgetState::Focused));
}

void WidgetStatesTest::aComboBoxFrozenAsPressedOpensNoList()
{
    QWidget window;
    VelaComboBox real(&window);
    VelaComboBox frozen(&window);
    for (VelaComboBox *combo : {&real, &frozen}) {
        combo->setFocusPolicy(Qt::NoFocus);
        combo->addItem(QStringLiteral("Every day"));
        combo->resize(combo->sizeHint());
        combo->move(10, 10);
    }
    real.move(10, 60);
    window.resize(300, 200);
    QVERIFY(freeze(&frozen, WidgetState::Pressed));
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    const QImage atRest = picture(&real);
    QVERIFY(!QApplication::activePopupWidget());
    QVERIFY(picture(&frozen) != atRest);

    real.showPopup();
    QCOMPARE(picture(&frozen), picture(&real));
}

void WidgetStatesTest::focusMovesNoTextOfAComboBox()
{
    VelaComboBox combo;
    combo.addItem(QStringLiteral("Every day"));
    combo.resize(combo.sizeHint());
    const auto textArea = [&combo](QStyle::State state) {
        QStyleOptionComboBox option;
        option.initFrom(&combo);
        option.state |= state;
        return combo.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &combo);
    };
    QVERIFY(textArea(QStyle::State_None).isValid());
    QCOMPARE(textArea(QStyle::State_HasFocus), textArea(QStyle::State_None));
    QCOMPARE(textArea(QStyle::State_On), textArea(QStyle::State_None)); // the area while its list is open
}

void WidgetStatesTest::eachStateHasAColumn()
{
    const QList<QWidget *> widgets = inAllStates([] { return new VelaButton(QStringLiteral("Apply")); });
    QCOMPARE(widgets.size(), stateColumns().size());
    QVERIFY(!widgets.contains(nullptr));
    qDeleteAll(widgets);
}

void WidgetStatesTest::sectionsAreAboveTheirColumnsAndTheLastAboveTheScrollBar()
{
    VelaTableColumnsInfo columns;
    columns.addColumn(QStringLiteral("Name"), 100, true, 1.0);
    columns.addColumn(QStringLiteral("Size"), 60, false, 0.0);
    VelaTableWidget table(columns);
    const QTableWidget *rows = table.getTable();
    const QHeaderView *header = table.getHeader();
    table.getTable()->setRowCount(100);
    table.resize(500, 300);
    table.show();
    QVERIFY(QTest::qWaitForWindowExposed(&table));

    const auto sectionLeft = [&](int section) {
        return header->viewport()->mapTo(&table, QPoint(header->sectionViewportPosition(section), 0)).x();
    };
    for (int i = 0; i < columns.columnCount(); ++i) {
        QCOMPARE(sectionLeft(i), rows->viewport()->mapTo(&table, QPoint(rows->columnViewportPosition(i), 0)).x());
        QCOMPARE(header->sectionSize(i), rows->columnWidth(i));
    }
    const QScrollBar *bar = rows->verticalScrollBar();
    QTRY_VERIFY(bar->isVisible());
    const int last = columns.columnCount();
    QCOMPARE(sectionLeft(last), bar->mapTo(&table, QPoint(0, 0)).x());
    QCOMPARE(header->sectionSize(last), bar->width());
}

void WidgetStatesTest::aClickBesideTheHeadingsLeavesTheSortIndicator()
{
    const QScopedPointer<GalleryPage> page(createTablePage(QStringLiteral("Table")));
    QHeaderView *header = page->findChild<VelaTableWidget *>()->getHeader();
    page->show();
    QVERIFY(QTest::qWaitForWindowExposed(page.data()));
    const auto click = [&](int section) {
        const int x = header->sectionViewportPosition(section) + header->sectionSize(section) / 2;
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(x, header->height() / 2));
    };
    for (const Qt::SortOrder order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
        click(1);
        click(header->count() - 1);
        QCOMPARE(header->sortIndicatorSection(), 1);
        QCOMPARE(header->sortIndicatorOrder(), order);
    }
}

QTEST_MAIN(WidgetStatesTest)

#include "tst_widget_states.moc"
