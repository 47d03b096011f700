// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-table-widget.h"
#include "style-manager/style-manager.h"
#include "support/controls.h"
#include "support/environment.h"
#include "views/table-test.h"

#include <QApplication>
#include <QCheckBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QTouchDevice>
#include <QVBoxLayout>
#include <QtTest>

class VelaTableWidgetTest : public TableTest
{
    Q_OBJECT

private Q_SLOTS:

    void theRowsHaveNoParentAtFirst();
    void theRowsDeclareTheirSignal();
    void theHeaderShowsTheTitlesAndAnEmptyLastSection();
    void theHeaderIsSetUp();
    void theHeaderAreaIsSetUp();
    void theBodyIsSetUp();
    void theHeaderLiesAboveTheBody();
    void aDeclarationWithoutColumnsGivesTheFillerAlone();
    void nothingIsLeftWhenTheTableIsGone();

    void wheelsOverTheHeaderDoNotScrollIt_data();
    void wheelsOverTheHeaderDoNotScrollIt();
    void fingersOnTheHeaderDoNotScrollIt();
    void keysForTheHeaderDoNotScrollIt_data();
    void keysForTheHeaderDoNotScrollIt();
    void focusMovingAlongTheHeaderDoesNotScrollIt();
    void theHeaderTakesNoFocus();
    void tabLeavesTheTableAndArrowKeysMoveInIt();
    void aLetterGoesToTheRowThatBeginsWithIt();
    void theMenuKeyAsksForTheMenuOfTheCurrentRow();
    void draggingAcrossTheHeaderDoesNotScrollIt();
    void theHeaderFollowsBeforeTheTableIsShown();
    void theHeaderFollowsAWheelOverTheRows();
    void theHeaderFollowsTheScrollBar();
    void theHeaderFollowsTheKeyboard();
    void theHeaderFollowsWhenGrowingEndsScrolling();
    void theHeaderStaysWhenRowsAreScrolled();
    void headerAndRowsAreInLineFromRightToLeft();

    void theVerticalScrollBarShowsWhileThereIsMore();
    void underAParentWithASheetTheScrollBarsAreTheThemes();
    void theSlotLooksAtTheMaximumAlone();
    void noTriggerEditsACell();
    void aClickSelectsTheWholeRow();
    void rowsAreOfTheirHeight();

private:
};

void VelaTableWidgetTest::theRowsHaveNoParentAtFirst()
{
    QVERIFY(!ResizeSignalTableWidget(2, 3).parent());
    QCOMPARE(ResizeSignalTableWidget(2, 3).rowCount(), 2);
    QCOMPARE(ResizeSignalTableWidget(2, 3).columnCount(), 3);
}

void VelaTableWidgetTest::theRowsDeclareTheirSignal()
{
    QCOMPARE(ownDeclarations(ResizeSignalTableWidget::staticMetaObject),
             QStringList {QStringLiteral("sigResized(QSize)")});
}

void VelaTableWidgetTest::theHeaderShowsTheTitlesAndAnEmptyLastSection()
{
    VelaTableWidget table(declared(Mixed));
    const QHeaderView *header = table.getHeader();
    QCOMPARE(header->count(), Mixed.size() + 1);
    QStringList titles;
    for (int i = 0; i < header->count(); ++i) {
        titles.append(header->model()->headerData(i, Qt::Horizontal).toString());
    }
    QCOMPARE(titles,
             (QStringList {QStringLiteral("Name"), QStringLiteral("Size"), QStringLiteral("Date"), QStringLiteral("By"),
                           QString()}));
    QCOMPARE(header->model()->rowCount(), 0);
    QCOMPARE(table.getTable()->columnCount(), Mixed.size());
    QCOMPARE(table.getTable()->rowCount(), 0);
    QVERIFY(table.getTable()->model() != header->model());
}

void VelaTableWidgetTest::theHeaderIsSetUp()
{
    VelaTableWidget table(declared(Mixed));
    const QHeaderView *header = table.getHeader();
    QCOMPARE(header->orientation(), Qt::Horizontal);
    QCOMPARE(header->defaultAlignment(), Qt::AlignLeft | Qt::AlignVCenter);
    QCOMPARE(header->horizontalScrollMode(), QAbstractItemView::ScrollPerPixel);
    QCOMPARE(header->styleSheet(), getStyleSheet("component.table_header", false));
    QCOMPARE(header->minimumSize(), QSize(expectedPixels(20000), expectedPixels(30)));
    QCOMPARE(header->maximumSize(), QSize(expectedPixels(20000), expectedPixels(30)));
    QVERIFY(header != table.getTable()->horizontalHeader());
}

void VelaTableWidgetTest::theHeaderAreaIsSetUp()
{
    VelaTableWidget table(declared(Mixed));
    const auto *area = table.findChild<QScrollArea *>(QString(), Qt::FindDirectChildrenOnly);
    QVERIFY(area);
    QCOMPARE(area->widget(), static_cast<QWidget *>(table.getHeader()));
    QCOMPARE(area->minimumHeight(), expectedPixels(30));
    QCOMPARE(area->maximumHeight(), expectedPixels(30));
    QCOMPARE(area->focusPolicy(), Qt::NoFocus);
    QCOMPARE(area->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(area->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(area->styleSheet(), QStringLiteral("QScrollArea { border: none; }"));
}

void VelaTableWidgetTest::theBodyIsSetUp()
{
    VelaTableWidget table(declared(Mixed));
    const QTableWidget *body = table.getTable();
    QVERIFY(qobject_cast<const ResizeSignalTableWidget *>(body));
    QCOMPARE(body->selectionBehavior(), QAbstractItemView::SelectRows);
    QCOMPARE(body->editTriggers(), QAbstractItemView::NoEditTriggers);
    QVERIFY(body->verticalHeader()->isHidden());
    QVERIFY(body->horizontalHeader()->isHidden());
    QCOMPARE(body->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
    QCOMPARE(body->horizontalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    QCOMPARE(body->verticalScrollMode(), QAbstractItemView::ScrollPerPixel);
    QCOMPARE(body->horizontalScrollMode(), QAbstractItemView::ScrollPerPixel);
    QCOMPARE(body->verticalHeader()->defaultSectionSize(), expectedPixels(28));
    QCOMPARE(body->styleSheet(), getStyleSheet("component.table", false) + getStyleSheet("component.scrollbar", false));
    QVERIFY(!body->showGrid());
    QVERIFY(body->verticalScrollBar()->isHidden());
}

void VelaTableWidgetTest::theHeaderLiesAboveTheBody()
{
    TableWindow window(Mixed);
    const auto *column = qobject_cast<QVBoxLayout *>(window.table->layout());
    QVERIFY(column);
    QCOMPARE(column->spacing(), 0);
    QCOMPARE(column->contentsMargins(), QMargins());
    QCOMPARE(column->count(), 2);
    QCOMPARE(column->itemAt(0)->widget(), static_cast<QWidget *>(window.area));
    QCOMPARE(column->itemAt(1)->widget(), static_cast<QWidget *>(window.body));
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(column->stretch(i), 0);
        QCOMPARE(column->itemAt(i)->alignment(), Qt::Alignment());
    }
    QVERIFY(window.showAndWait());
    const int top = expectedPixels(30);
    QCOMPARE(window.area->geometry(), QRect(0, 0, TableSize.width(), top));
    QCOMPARE(window.body->geometry(), QRect(0, top, TableSize.width(), TableSize.height() - top));
}

void VelaTableWidgetTest::aDeclarationWithoutColumnsGivesTheFillerAlone()
{
    Shown<TableWindow> window(Columns {});
    window.table->resize(300, 200);
    QCOMPARE(window.header->count(), 1);
    QCOMPARE(window.header->sectionSize(0), expectedPixels(FillerWidth));
    QCOMPARE(window.body->columnCount(), 0);
}

void VelaTableWidgetTest::nothingIsLeftWhenTheTableIsGone()
{
    const QWidgetList before = QApplication::allWidgets();
    {
        TableWindow window(Mixed);
        window.addRows(3);
        QVERIFY(window.showAndWait());
        QPointer<QAbstractItemModel> headerModel(window.header->model());
        delete window.table;
        QVERIFY(!headerModel);
    }
    for (QWidget *widget : QApplication::allWidgets()) {
        QVERIFY2(before.contains(widget), widget->metaObject()->className());
    }
}

void VelaTableWidgetTest::wheelsOverTheHeaderDoNotScrollIt_data()
{
    QTest::addColumn<QPoint>("angle");
    QTest::newRow("right") << QPoint(-120, 0);
    QTest::newRow("left") << QPoint(120, 0);
    QTest::newRow("down") << QPoint(0, -120);
    QTest::newRow("up") << QPoint(0, 120);
    QTest::newRow("slanting") << QPoint(-240, -120);
}

void VelaTableWidgetTest::wheelsOverTheHeaderDoNotScrollIt()
{
    QFETCH(QPoint, angle);
    TableWindow window(Wide);
    window.addRows(3);
    QVERIFY(window.showAndWait());
    window.body->horizontalScrollBar()->setValue(100);
    EventCounter passedOn(&window, QEvent::Wheel);
    for (int i = 0; i < 5; ++i) {
        window.wheel(window.headerCenter(), angle);
    }
    QCOMPARE(passedOn.take(), 5); // an area around the table can scroll by them
    QCOMPARE(window.area->horizontalScrollBar()->value(), window.body->horizontalScrollBar()->value());
    QCOMPARE(window.headerLeft(0), -100);
    QCOMPARE(window.bodyLeft(0), -100);
    QCOMPARE(window.area->verticalScrollBar()->value(), 0);
}

void VelaTableWidgetTest::fingersOnTheHeaderDoNotScrollIt()
{
    TableWindow window(Wide);
    window.addRows(3);
    QVERIFY(window.showAndWait());
    window.body->horizontalScrollBar()->setValue(100);
    QTouchDevice *const screen = QTest::createTouchDevice();
    const auto pan = [&](const QPoint &start) {
        QWindow *const handle = window.windowHandle();
        const QPoint apart(40, 0);
        QPoint finger = start;
        QTest::touchEvent(handle, screen).press(0, finger, handle).press(1, finger + apart, handle);
        for (int i = 0; i < 8; ++i) {
            finger.rx() -= 20;
            QTest::touchEvent(handle, screen).move(0, finger, handle).move(1, finger + apart, handle);
        }
        QTest::touchEvent(handle, screen).release(0, finger, handle).release(1, finger + apart, handle);
        QCoreApplication::processEvents();
    };
    pan(window.headerCenter());
    QCOMPARE(window.area->horizontalScrollBar()->value(), 100);
    QCOMPARE(window.headerLeft(0), window.bodyLeft(0));

    pan(window.body->mapTo(&window, window.body->rect().center())); // the rows do scroll
    QVERIFY(window.body->horizontalScrollBar()->value() > 100);
    QCOMPARE(window.headerLeft(0), window.bodyLeft(0));
}

void VelaTableWidgetTest::keysForTheHeaderDoNotScrollIt_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("left") << Qt::Key_Left;
    QTest::newRow("right") << Qt::Key_Right;
    QTest::newRow("up") << Qt::Key_Up;
    QTest::newRow("down") << Qt::Key_Down;
    QTest::newRow("page up") << Qt::Key_PageUp;
    QTest::newRow("page down") << Qt::Key_PageDown;
}

void VelaTableWidgetTest::keysForTheHeaderDoNotScrollIt()
{
    QFETCH(Qt::Key, key);
    Shown<TableWindow> window(Wide);
    window.body->horizontalScrollBar()->setValue(100);
    EventCounter passedOn(&window, QEvent::KeyPress);
    QTest::keyClick(window.header, key);
    QCOMPARE(passedOn.take(), 1);
    QCOMPARE(window.area->horizontalScrollBar()->value(), 100);
    QCOMPARE(window.area->verticalScrollBar()->value(), 0);
}

void VelaTableWidgetTest::focusMovingAlongTheHeaderDoesNotScrollIt()
{
    TableWindow window(Wide);
    const auto addCheckBox = [&window](int section) {
        auto *box = new QCheckBox(window.header->viewport());
        box->move(window.header->sectionViewportPosition(section), 0);
        return box;
    };
    QCheckBox *const first = addCheckBox(0);
    QCheckBox *const last = addCheckBox(3);
    QVERIFY(window.showAndWait());
    first->setFocus();
    for (QCheckBox *next : {last, first}) {
        QTest::keyClick(window.windowHandle(), Qt::Key_Tab, next == last ? Qt::NoModifier : Qt::ShiftModifier);
        QVERIFY(next->hasFocus());
        QCOMPARE(window.area->horizontalScrollBar()->value(), 0);
        QCOMPARE(window.headerLeft(3), window.bodyLeft(3));
    }
}

void VelaTableWidgetTest::theHeaderTakesNoFocus()
{
    TableWindow window(Wide);
    auto *neighbour = new QLineEdit(&window);
    neighbour->move(0, TableSize.height());
    QVERIFY(window.showAndWait());
    neighbour->setFocus();
    window.click(window.headerCenter());
    QVERIFY(neighbour->hasFocus());
    QSet<QWidget *> visited;
    for (int i = 0; i < 4; ++i) {
        QTest::keyClick(window.windowHandle(), Qt::Key_Tab);
        visited.insert(window.focusWidget());
    }
    QCOMPARE(visited, (QSet<QWidget *> {neighbour, window.body}));
    QCOMPARE(window.header->focusPolicy(), Qt::NoFocus);
}

void VelaTableWidgetTest::tabLeavesTheTableAndArrowKeysMoveInIt()
{
    QWidget host;
    auto *column = new QVBoxLayout(&host);
    auto *before = new QLineEdit;
    auto *table = new VelaTableWidget(declared(Plain));
    auto *after = new QLineEdit;
    for (QWidget *widget :
         {static_cast<QWidget *>(before), static_cast<QWidget *>(table), static_cast<QWidget *>(after)}) {
        column->addWidget(widget);
    }
    QTableWidget *const body = table->getTable();
    body->setRowCount(3);
    host.show();
    QVERIFY(QTest::qWaitForWindowActive(&host));
    const auto press = [&host](Qt::Key key) {
        QTest::keyClick(host.windowHandle(), key, key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
    };

    for (const auto &cell : {std::pair(0, 0), std::pair(1, 1), std::pair(2, 2)}) {
        before->setFocus();
        press(Qt::Key_Tab);
        QVERIFY(body->hasFocus());
        body->setCurrentCell(cell.first, cell.second);
        press(Qt::Key_Tab);
        QVERIFY(after->hasFocus());
        press(Qt::Key_Backtab);
        QVERIFY(body->hasFocus());
        press(Qt::Key_Backtab);
        QVERIFY(before->hasFocus());
        QCOMPARE(std::pair(body->currentRow(), body->currentColumn()), cell);
    }
    body->setFocus();
    body->setCurrentCell(1, 1);
    for (const auto &step : {std::pair(Qt::Key_Right, std::pair(1, 2)), std::pair(Qt::Key_Down, std::pair(2, 2)),
                             std::pair(Qt::Key_Left, std::pair(2, 1)), std::pair(Qt::Key_Up, std::pair(1, 1))}) {
        press(step.first);
        QCOMPARE(std::pair(body->currentRow(), body->currentColumn()), step.second);
        QVERIFY(body->hasFocus());
    }
}

void VelaTableWidgetTest::aLetterGoesToTheRowThatBeginsWithIt()
{
    TableWindow window(Plain);
    QVERIFY(window.showAndWait());
    window.body->setRowCount(3);
    for (int row = 0; row < 3; ++row) {
        window.body->setItem(row, 0, new QTableWidgetItem(QString(QLatin1Char(char('a' + row)))));
    }
    window.body->setFocus();
    window.body->setCurrentCell(0, 0);
    QTest::keyClick(window.windowHandle(), Qt::Key_C);
    QCOMPARE(window.body->currentRow(), 2);
}

void VelaTableWidgetTest::theMenuKeyAsksForTheMenuOfTheCurrentRow()
{
    TableWindow window(Plain);
    QVERIFY(window.showAndWait());
    window.addRows(3);
    window.body->setContextMenuPolicy(Qt::CustomContextMenu);
    window.body->setFocus();
    window.body->setCurrentCell(2, 0);
    const QSignalSpy asked(window.body, &QWidget::customContextMenuRequested);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint()); // which platforms make of the key
    QCoreApplication::sendEvent(window.windowHandle(), &event);
    QCOMPARE(asked.count(), 1);
    QCOMPARE(window.body->rowAt(asked.first().first().toPoint().y()), 2);
}

void VelaTableWidgetTest::draggingAcrossTheHeaderDoesNotScrollIt()
{
    Shown<TableWindow> window(Wide);
    window.body->horizontalScrollBar()->setValue(100);
    const QPoint start = window.headerCenter();
    QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, start);
    for (const int x : {start.x() - 100, 5, TableSize.width() - 1, TableSize.width() + 150}) {
        QTest::mouseMove(window.windowHandle(), QPoint(x, start.y()));
    }
    QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, start);
    QCOMPARE(window.area->horizontalScrollBar()->value(), 100);
    QCOMPARE(window.headerWidths(), baseWidths(Wide));
}

void VelaTableWidgetTest::theHeaderFollowsBeforeTheTableIsShown()
{
    TableWindow window(Wide);
    window.addRows(3);
    window.body->scrollToItem(window.body->item(0, 3));
    QVERIFY(window.showAndWait());
    QVERIFY(window.body->horizontalScrollBar()->value() > 0);
    for (int i = 0; i < Wide.size(); ++i) {
        QCOMPARE(window.headerLeft(i), window.bodyLeft(i));
    }
}

void VelaTableWidgetTest::theHeaderFollowsAWheelOverTheRows()
{
    TableWindow window(Wide);
    window.addRows(3);
    QVERIFY(window.showAndWait());
    const QPoint overRows = window.body->mapTo(&window, window.body->rect().center());
    const QScrollBar *bar = window.body->horizontalScrollBar();
    int value = 0;
    for (int i = 0; i < 3; ++i) {
        window.wheel(overRows, QPoint(-15, 0)); // an eighth of a notch
        QVERIFY(bar->value() > value);
        value = bar->value();
        QCOMPARE(window.area->horizontalScrollBar()->value(), value);
        QCOMPARE(window.headerLeft(0), -value);
        QCOMPARE(window.bodyLeft(0), -value);
    }
    for (int i = 0; i < 100; ++i) {
        window.wheel(overRows, QPoint(-120, 0));
    }
    QCOMPARE(bar->value(), bar->maximum());
    for (int i = 0; i < Wide.size(); ++i) {
        QCOMPARE(window.headerLeft(i), window.bodyLeft(i));
    }
    window.wheel(overRows, QPoint(120, 0));
    QVERIFY(bar->value() < bar->maximum());
    QCOMPARE(window.headerLeft(0), window.bodyLeft(0));
}

void VelaTableWidgetTest::theHeaderFollowsTheScrollBar()
{
    TableWindow window(Wide);
    window.addRows(3);
    QVERIFY(window.showAndWait());
    QScrollBar *const bar = window.body->horizontalScrollBar();
    QTRY_VERIFY(bar->isVisible());
    const QPoint handle = bar->mapTo(&window, QPoint(20, bar->height() / 2));
    QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, handle);
    int last = 0;
    for (const int distance : {30, 90, 150}) {
        QTest::mouseMove(window.windowHandle(), handle + QPoint(distance, 0));
        QVERIFY(bar->value() > last);
        last = bar->value();
        QCOMPARE(window.area->horizontalScrollBar()->value(), last);
        QCOMPARE(window.headerLeft(1), window.bodyLeft(1));
    }
    QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, handle + QPoint(150, 0));
    for (int value = bar->maximum(); value >= 0; value -= 7) {
        bar->setValue(value);
        QCOMPARE(window.area->horizontalScrollBar()->value(), value);
    }
}

void VelaTableWidgetTest::theHeaderFollowsTheKeyboard()
{
    TableWindow window(Wide);
    window.addRows(3);
    QVERIFY(window.showAndWait());
    window.body->setFocus();
    window.body->setCurrentCell(0, 0);
    for (int i = 1; i < Wide.size(); ++i) {
        QTest::keyClick(window.windowHandle(), Qt::Key_Right);
        QCOMPARE(window.body->currentColumn(), i);
        QCOMPARE(window.headerLeft(i), window.bodyLeft(i));
    }
    QVERIFY(window.body->horizontalScrollBar()->value() > 0);
}

void VelaTableWidgetTest::theHeaderFollowsWhenGrowingEndsScrolling()
{
    const Columns columns {{"A", 300, false, 0.0}, {"B", 250, true, 0.0}};
    Shown<TableWindow> window(columns, QSize(expectedPixels(400), 300));
    QScrollBar *const bar = window.body->horizontalScrollBar();
    bar->setValue(bar->maximum());
    const int before = bar->value();
    QVERIFY(before > 0);
    window.table->resize(window.table->width() + before / 2, 300);
    QCOMPARE(window.area->horizontalScrollBar()->value(), bar->value());
    QCOMPARE(window.headerLeft(1), window.bodyLeft(1));
    window.table->resize(expectedPixels(580), 300);
    QCOMPARE(bar->value(), 0);
    QCOMPARE(window.area->horizontalScrollBar()->value(), 0);
}

void VelaTableWidgetTest::theHeaderStaysWhenRowsAreScrolled()
{
    TableWindow window(Mixed);
    window.addRows(100);
    QVERIFY(window.showAndWait());
    const QImage header = window.area->grab().toImage();
    window.wheel(window.body->mapTo(&window, window.body->rect().center()), QPoint(0, -240));
    QVERIFY(window.body->verticalScrollBar()->value() > 0);
    QCOMPARE(window.area->verticalScrollBar()->value(), 0);
    QCOMPARE(window.area->grab().toImage(), header);
}

void VelaTableWidgetTest::headerAndRowsAreInLineFromRightToLeft()
{
    TableWindow window(Wide);
    window.setLayoutDirection(Qt::RightToLeft);
    window.addRows(3);
    QVERIFY(window.showAndWait());
    QScrollBar *const bar = window.body->horizontalScrollBar();
    for (const int value : {0, 50, bar->maximum()}) {
        bar->setValue(value);
        const int offset = window.headerLeft(0) - window.bodyLeft(0);
        QCOMPARE(window.area->horizontalScrollBar()->value(), value);
        QCOMPARE(offset, 0);
    }
}

void VelaTableWidgetTest::theVerticalScrollBarShowsWhileThereIsMore()
{
    Shown<TableWindow> window(Mixed);
    const QScrollBar *bar = window.body->verticalScrollBar();
    QVERIFY(!bar->isVisible());
    const int viewportWidth = window.body->viewport()->width();
    const int fitting = window.body->viewport()->height() / expectedPixels(28);
    for (const auto &step : {std::pair(1, false), std::pair(fitting, false), std::pair(fitting + 1, true),
                             std::pair(200, true), std::pair(fitting, false), std::pair(fitting + 1, true)}) {
        window.body->setRowCount(step.first);
        QTRY_COMPARE(bar->maximum() != 0, step.second);
        QCOMPARE(bar->isVisible(), step.second);
        QCOMPARE(window.body->viewport()->width(), viewportWidth); // the scroll bar keeps its place
    }
    window.table->resize(TableSize + QSize(0, expectedPixels(28)));
    QTRY_VERIFY(!bar->isVisible());
    window.table->resize(TableSize);
    QTRY_VERIFY(bar->isVisible());
}

void VelaTableWidgetTest::underAParentWithASheetTheScrollBarsAreTheThemes()
{
    const auto picture = [](const QString &sheetOfWindow) {
        QWidget window;
        window.setStyleSheet(sheetOfWindow);
        auto *table = new VelaTableWidget(declared(Wide), &window);
        table->getTable()->setRowCount(100);
        table->resize(TableSize);
        return table->grab().toImage();
    };
    const QImage expected = picture(QString());
    QCOMPARE(expected.pixelColor(expected.width() - 2, expected.height() / 2), QColor(Qt::green)); // of the handle
    QCOMPARE(picture(QStringLiteral("QLabel { color: red }")), expected);
}

void VelaTableWidgetTest::theSlotLooksAtTheMaximumAlone()
{
    VelaTableWidget table(declared(Mixed));
    const QScrollBar *bar = table.getTable()->verticalScrollBar();
    for (const int minimum : {0, -5, 7}) {
        table.slotVerticalScrollRangeChanged(minimum, 1);
        QVERIFY(!bar->isHidden());
        table.slotVerticalScrollRangeChanged(minimum, 0);
        QVERIFY(bar->isHidden());
        table.slotVerticalScrollRangeChanged(minimum, -1);
        QVERIFY(!bar->isHidden());
    }
}

void VelaTableWidgetTest::noTriggerEditsACell()
{
    TableWindow window(Mixed);
    window.addRows(3);
    QVERIFY(window.showAndWait());
    const QPoint cell =
        window.body->viewport()->mapTo(&window, window.body->visualItemRect(window.body->item(1, 1)).center());
    window.click(cell);
    window.click(cell);
    QTest::mouseDClick(window.windowHandle(), Qt::LeftButton, {}, cell);
    for (const Qt::Key key : {Qt::Key_F2, Qt::Key_X, Qt::Key_Return, Qt::Key_Space}) {
        QTest::keyClick(window.windowHandle(), key);
        QVERIFY(!window.body->findChild<QLineEdit *>());
    }
    QCOMPARE(window.body->item(1, 1)->text(), QStringLiteral("1/1"));
}

void VelaTableWidgetTest::aClickSelectsTheWholeRow()
{
    TableWindow window(Mixed);
    window.addRows(3);
    QVERIFY(window.showAndWait());
    for (int i = 0; i < Mixed.size(); ++i) {
        const int row = i % 3;
        const QRect cell = window.body->visualItemRect(window.body->item(row, i));
        window.click(window.body->viewport()->mapTo(&window, cell.center()));
        const QModelIndexList indexes = window.body->selectionModel()->selectedRows();
        QCOMPARE(indexes.size(), 1);
        QCOMPARE(indexes.at(0).row(), row);
        QCOMPARE(window.body->selectedItems().size(), Mixed.size());
    }
}

void VelaTableWidgetTest::rowsAreOfTheirHeight()
{
    TableWindow window(Mixed);
    window.addRows(4);
    QVERIFY(window.showAndWait());
    for (int row = 0; row < 4; ++row) {
        QCOMPARE(window.body->rowHeight(row), expectedPixels(28));
        QCOMPARE(window.body->rowViewportPosition(row), row * expectedPixels(28));
    }
}

QTEST_MAIN(VelaTableWidgetTest)
#include "tst_vela_table_widget.moc"
