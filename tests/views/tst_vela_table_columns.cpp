// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-table-widget.h"
#include "support/environment.h"
#include "views/table-test.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QtTest>

#include <cmath>
#include <limits>

namespace {

const QColor HeaderColor(Qt::red);
const QColor FillerColor(Qt::blue);
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();
const Columns Narrow {{"A", 6, true, 0.0}, {"B", 6, false, 0.0}, {"C", 1, true, 0.0}, {"D", 0, true, 0.0}};

// The widths of the columns of a table whose rows have available pixels.
QVector<int> expectedWidths(const Columns &columns, int available)
{
    double fixedWidth = 0.0;
    for (const Column &column : columns) {
        if (!column.resizable || column.ratio == 0.0) {
            fixedWidth += column.width;
        }
    }
    const double rest = std::trunc(available - fixedWidth * expectedScale());
    QVector<int> widths;
    for (const Column &column : columns) {
        const double base = column.width * expectedScale();
        const double share = std::trunc(rest * column.ratio);
        const bool takesShare = column.resizable && column.ratio != 0.0 && share >= base; // false if the share is NaN
        widths.append(static_cast<int>(takesShare ? share : base));
    }
    return widths;
}

} // namespace

class VelaTableColumnsTest : public TableTest
{
    Q_OBJECT

private Q_SLOTS:
    void addingAColumnReturnsItsIndex();
    void noArgumentOfAColumnIsChecked_data();
    void noArgumentOfAColumnIsChecked();
    void aColumnIsEmptyByDefault();
    void copiesOfTheDeclarationAreIndependent();
    void aTableKeepsTheDeclarationThatItWasMadeFrom();

    void columnsBeginWithTheirBaseWidths_data();
    void columnsBeginWithTheirBaseWidths();
    void columnsStretch_data();
    void columnsStretch();
    void columnsStretchToWhatTheSlotIsGiven();
    void anyDeclarationIsSurvived();
    void fixedColumnsMayBeWiderThanAnIntCanSay();
    void columnsThatStretchByOneFillTheRows();
    void tablesNarrowerThanTheFixedColumnsHaveBaseWidths();
    void aDeclarationWithoutStretchingKeepsAllWidths();
    void theResizeIsReportedBeforeItIsHandled();
    void theBodyFollowsTheHeader();
    void theFillersWidthReachesNoColumn();

    void theFillerIsTwelvePixelsWideOnScreen();
    void theFillerLiesAboveTheVerticalScrollBar();
    void narrowColumnsAreAsNarrowOnScreen();

    void draggingAnEdgeResizesTheColumn();
    void draggingKeepsAUsableMinimum_data();
    void draggingKeepsAUsableMinimum();
    void fixedColumnsAndTheFillerAreNotDragged();
    void aDragOutlastsResizingUnlessTheColumnStretches();
    void edgesAreDraggedWhereTheyAreScrolledTo();
};

void VelaTableColumnsTest::addingAColumnReturnsItsIndex()
{
    VelaTableColumnsInfo columns;
    QCOMPARE(columns.columnCount(), 0);
    for (int i = 0; i < 100; ++i) {
        QCOMPARE(columns.addColumn(QString::number(i), i, true, 0.0), i);
        QCOMPARE(columns.columnCount(), i + 1);
    }
    for (int i = 0; i < 100; ++i) {
        QCOMPARE(columns.column(i).title, QString::number(i));
        QCOMPARE(columns.column(i).width, i);
    }
}

void VelaTableColumnsTest::noArgumentOfAColumnIsChecked_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<int>("width");
    QTest::addColumn<bool>("resizable");
    QTest::addColumn<double>("ratio");
    QTest::newRow("usual") << QStringLiteral("Name") << 100 << true << 0.5;
    QTest::newRow("empty title") << QString() << 100 << false << 0.0;
    QTest::newRow("no width") << QStringLiteral("Name") << 0 << true << 1.0;
    QTest::newRow("negative width") << QStringLiteral("Name") << -40 << true << 1.0;
    QTest::newRow("lowest width") << QStringLiteral("Name") << std::numeric_limits<int>::min() << true << 1.0;
    QTest::newRow("highest width") << QStringLiteral("Name") << std::numeric_limits<int>::max() << true << 1.0;
    QTest::newRow("negative ratio") << QStringLiteral("Name") << 100 << true << -3.0;
    QTest::newRow("ratio above 1") << QStringLiteral("Name") << 100 << true << 17.5;
    QTest::newRow("infinite ratio") << QStringLiteral("Name") << 100 << true << Infinity;
    QTest::newRow("ratio of a fixed one") << QStringLiteral("Name") << 100 << false << 0.5;
    QTest::newRow("no ratio at all") << QStringLiteral("Name") << 100 << true << NotANumber;
}

void VelaTableColumnsTest::noArgumentOfAColumnIsChecked()
{
    QFETCH(QString, title);
    QFETCH(int, width);
    QFETCH(bool, resizable);
    QFETCH(double, ratio);
    VelaTableColumnsInfo columns;
    columns.addColumn(title, width, resizable, ratio);
    const VelaTableColumnsInfo::ColumnInfo &column = columns.column(0);
    QCOMPARE(column.title, title);
    QCOMPARE(column.width, width);
    QCOMPARE(column.resizable, resizable);
    QCOMPARE(std::isnan(column.stretchRatio), std::isnan(ratio));
    QVERIFY(std::isnan(ratio) || column.stretchRatio == ratio);
}

void VelaTableColumnsTest::aColumnIsEmptyByDefault()
{
    const VelaTableColumnsInfo::ColumnInfo column;
    QVERIFY(column.title.isEmpty());
    QCOMPARE(column.width, 0);
    QVERIFY(!column.resizable);
    QCOMPARE(column.stretchRatio, 0.0);
}

void VelaTableColumnsTest::copiesOfTheDeclarationAreIndependent()
{
    VelaTableColumnsInfo source = declared(Mixed);
    VelaTableColumnsInfo target = declared(Plain);
    target = source;
    QCOMPARE(target.columnCount(), Mixed.size());
    for (int i = 0; i < Mixed.size(); ++i) {
        QCOMPARE(target.column(i).title, QString::fromLatin1(Mixed.at(i).title));
        QCOMPARE(target.column(i).width, Mixed.at(i).width);
        QCOMPARE(target.column(i).resizable, Mixed.at(i).resizable);
        QCOMPARE(target.column(i).stretchRatio, Mixed.at(i).ratio);
    }
    source.addColumn(QStringLiteral("New"), 10, false, 0.0);
    QCOMPARE(target.columnCount(), Mixed.size());
    source = VelaTableColumnsInfo();
    QCOMPARE(source.columnCount(), 0);
    QCOMPARE(target.columnCount(), Mixed.size());
}

void VelaTableColumnsTest::aTableKeepsTheDeclarationThatItWasMadeFrom()
{
    VelaTableColumnsInfo source = declared(Mixed);
    VelaTableWidget table(source);
    source.addColumn(QStringLiteral("New"), 500, false, 0.0);
    QCOMPARE(table.getTable()->columnCount(), Mixed.size());
    source = declared(Plain);
    table.slotTableResized(QSize(1000, 100));
    QCOMPARE(widthsOf(table.getHeader(), Mixed.size()), expectedWidths(Mixed, 1000));
}

void VelaTableColumnsTest::columnsBeginWithTheirBaseWidths_data()
{
    QTest::addColumn<Columns>("columns");
    QTest::newRow("mixed") << Mixed;
    QTest::newRow("plain") << Plain;
    QTest::newRow("wide") << Wide;
    QTest::newRow("narrow") << Narrow;
    QTest::newRow("odd widths") << Columns {{"A", 33, true, 0.0}, {"B", 77, false, 0.3}, {"C", 151, true, 1.0}};
}

void VelaTableColumnsTest::columnsBeginWithTheirBaseWidths()
{
    QFETCH(Columns, columns);
    VelaTableWidget table(declared(columns));
    const QHeaderView *header = table.getHeader();
    const QHeaderView *bodyHeader = table.getTable()->horizontalHeader();
    const auto count = columns.size();
    QCOMPARE(widthsOf(header, count), baseWidths(columns));
    QCOMPARE(widthsOf(bodyHeader, count), baseWidths(columns));
    QCOMPARE(header->sectionSize(count), expectedPixels(FillerWidth));
    QCOMPARE(header->sectionResizeMode(count), QHeaderView::Fixed);
    for (int i = 0; i < count; ++i) {
        const QHeaderView::ResizeMode mode = columns.at(i).resizable ? QHeaderView::Interactive : QHeaderView::Fixed;
        QCOMPARE(header->sectionResizeMode(i), mode);
        QCOMPARE(bodyHeader->sectionResizeMode(i), mode);
    }
}

void VelaTableColumnsTest::columnsStretch_data()
{
    QTest::addColumn<Columns>("columns");
    QTest::newRow("all of it") << Columns {{"A", 50, true, 1.0}};
    QTest::newRow("mixed") << Mixed;
    QTest::newRow("thirds") << Columns {{"A", 40, true, 1.0 / 3}, {"B", 40, true, 1.0 / 3}, {"C", 40, true, 1.0 / 3}};
    QTest::newRow("sum above 1") << Columns {{"A", 40, true, 0.9}, {"B", 33, false, 0.0}, {"C", 40, true, 1.7}};
    QTest::newRow("sum below 1") << Columns {{"A", 41, true, 0.11}, {"B", 33, false, 0.0}, {"C", 41, true, 0.23}};
    QTest::newRow("ratio of a fixed one is ignored")
        << Columns {{"A", 60, true, 0.5}, {"B", 71, false, 0.5}, {"C", 20, true, 0.5}};
    QTest::newRow("negative ratio") << Columns {{"A", 60, true, -0.5}, {"B", 70, true, 1.0}};
    QTest::newRow("NaN counts as stretching") << Columns {{"A", 60, true, NotANumber}, {"B", 70, true, 1.0}};
    QTest::newRow("NaN of a fixed one") << Columns {{"A", 60, false, NotANumber}, {"B", 70, true, 1.0}};
    QTest::newRow("negative zero") << Columns {{"A", 60, true, -0.0}, {"B", 70, true, 1.0}};
    QTest::newRow("tiny ratio") << Columns {{"A", 60, true, 1e-300}, {"B", 70, true, 1.0}};
    QTest::newRow("odd widths") << Columns {{"A", 33, false, 0.0}, {"B", 77, true, 0.35}, {"C", 101, true, 0.65}};
    QTest::newRow("no base width") << Columns {{"A", 0, true, 0.4}, {"B", 55, false, 0.0}, {"C", 0, true, 0.6}};
    QTest::newRow("negative fixed width") << Columns {{"A", -100, false, 0.0}, {"B", 55, true, 1.0}};
    Columns many;
    for (int i = 0; i < 50; ++i) {
        many.append({"Column", 3 + i, i % 3 != 0, i % 2 == 0 ? 0.0 : 0.04});
    }
    QTest::newRow("fifty") << many;
}

void VelaTableColumnsTest::columnsStretch()
{
    QFETCH(Columns, columns);
    Shown<TableWindow> window(columns);
    for (const int width : {20, 99, 100, 101, 149, 150, 151, 200, 313, 400, 555, 640, 731, 850, 333, 120}) {
        window.table->resize(width, 200 + width % 7);
        const QVector<int> expected = expectedWidths(columns, window.body->viewport()->width());
        for (int i = 0; i < columns.size(); ++i) {
            if (columns.at(i).width >= 0) { // no section has a negative width
                QCOMPARE(window.headerWidths().at(i), expected.at(i));
                QCOMPARE(window.bodyWidths().at(i), expected.at(i));
            }
        }
        QCOMPARE(window.header->sectionSize(static_cast<int>(columns.size())), expectedPixels(FillerWidth));
    }
}

void VelaTableColumnsTest::columnsStretchToWhatTheSlotIsGiven()
{
    VelaTableWidget table(declared(Mixed));
    for (int width = 0; width < 1500; ++width) {
        table.slotTableResized(QSize(width, -width));
        QCOMPARE(widthsOf(table.getHeader(), Mixed.size()), expectedWidths(Mixed, width));
        QCOMPARE(widthsOf(table.getTable()->horizontalHeader(), Mixed.size()), expectedWidths(Mixed, width));
    }
    for (const int width : {-1, -1000, std::numeric_limits<int>::min()}) {
        table.slotTableResized(QSize(width, 10));
        QCOMPARE(widthsOf(table.getHeader(), Mixed.size()), baseWidths(Mixed));
    }
}

void VelaTableColumnsTest::anyDeclarationIsSurvived()
{
    constexpr int Lowest = std::numeric_limits<int>::min();
    constexpr int Highest = std::numeric_limits<int>::max();
    Shown<TableWindow> window(Columns {{"A", 50, true, 0.5},
                                       {"B", Lowest, false, 0.0},
                                       {"C", Lowest, false, 0.0},
                                       {"D", Lowest, true, 1.0},
                                       {"E", -7, true, NotANumber},
                                       {"F", 40, true, Infinity},
                                       {"G", 40, true, -Infinity},
                                       {"H", Highest, true, 0.0},
                                       {"I", Highest, true, 1e300},
                                       {"J", 33, false, Infinity}});
    for (const int width : {700, 10, 400}) {
        window.table->resize(width, 200);
        QCOMPARE(window.header->sectionSize(6), expectedPixels(40));
        QCOMPARE(window.header->sectionSize(9), expectedPixels(33));
        QCOMPARE(window.header->sectionSize(10), expectedPixels(FillerWidth));
        QCOMPARE(window.bodyWidths(), window.headerWidths());
    }
}

void VelaTableColumnsTest::fixedColumnsMayBeWiderThanAnIntCanSay()
{
    // Of too small a sum this share would still be a width that the header takes.
    VelaTableWidget table(
        declared({{"A", 2000000000, false, 0.0}, {"B", 2000000000, false, 0.0}, {"C", 50, true, 0.001}}));
    table.slotTableResized(QSize(700, 200));
    QCOMPARE(table.getHeader()->sectionSize(2), expectedPixels(50));
    QCOMPARE(table.getTable()->columnWidth(2), expectedPixels(50));
}

void VelaTableColumnsTest::columnsThatStretchByOneFillTheRows()
{
    Shown<TableWindow> window(Columns {{"A", 50, true, 0.5}, {"B", 60, false, 0.0}, {"C", 50, true, 0.5}});
    const int available = window.body->viewport()->width();
    QCOMPARE(available, TableSize.width() - expectedPixels(FillerWidth)); // the scroll bar is as wide as the filler
    const int unfilled = available - window.body->horizontalHeader()->length();
    QVERIFY(unfilled == 0 || unfilled == 1); // what two halves of an odd width leave
    QVERIFY(!window.body->horizontalScrollBar()->isVisible());
}

void VelaTableColumnsTest::tablesNarrowerThanTheFixedColumnsHaveBaseWidths()
{
    const Columns columns {{"A", 70, true, 0.5}, {"B", 400, false, 0.0}, {"C", 35, true, 0.5}, {"D", 1, true, 2.0}};
    Shown<TableWindow> window(columns, QSize(expectedPixels(580), 200));
    QVERIFY(window.headerWidths() != baseWidths(columns));
    window.table->resize(expectedPixels(300), 200);
    QCOMPARE(window.headerWidths(), baseWidths(columns));
    QCOMPARE(window.bodyWidths(), baseWidths(columns));
}

void VelaTableColumnsTest::aDeclarationWithoutStretchingKeepsAllWidths()
{
    TableWindow window(Plain);
    const QSignalSpy resized(window.header, &QHeaderView::sectionResized);
    QVERIFY(window.showAndWait());
    for (const int width : {10, 100, 500, 890, 300}) {
        window.table->resize(width, 200);
        QCOMPARE(window.headerWidths(), baseWidths(Plain));
        QCOMPARE(window.bodyWidths(), baseWidths(Plain));
    }
    QCOMPARE(resized.count(), 0);
}

void VelaTableColumnsTest::theResizeIsReportedBeforeItIsHandled()
{
    ResizeSignalTableWidget body(0, 3);
    body.resize(400, 200);
    body.show();
    QVERIFY(QTest::qWaitForWindowExposed(&body));
    const int pageStep = body.horizontalScrollBar()->pageStep();
    QSize reported;
    int pageStepThen = 0;
    QObject::connect(&body, &ResizeSignalTableWidget::sigResized, &body, [&](QSize size) {
        reported = size;
        pageStepThen = body.horizontalScrollBar()->pageStep();
    });
    QResizeEvent event(QSize(123, 45), QSize(400, 200));
    QCoreApplication::sendEvent(body.viewport(), &event);
    QCOMPARE(reported, QSize(123, 45)); // the size of the event
    body.resize(300, 200);
    QCOMPARE(reported, body.viewport()->size());
    QCOMPARE(pageStepThen, pageStep);
    QVERIFY(body.horizontalScrollBar()->pageStep() != pageStep);
}

void VelaTableColumnsTest::theBodyFollowsTheHeader()
{
    VelaTableWidget table(declared(Mixed));
    for (int i = 0; i < Mixed.size(); ++i) {
        table.getHeader()->resizeSection(i, 41 + i);
        QCOMPARE(table.getTable()->columnWidth(i), 41 + i);
    }
    table.slotSectionResized(1, -5, 77); // the former size does not count
    QCOMPARE(table.getTable()->columnWidth(1), 77);
    QCOMPARE(table.getHeader()->sectionSize(1), 42); // no width flows back
    table.getTable()->setColumnWidth(0, 99);
    QCOMPARE(table.getHeader()->sectionSize(0), 41);
}

void VelaTableColumnsTest::theFillersWidthReachesNoColumn()
{
    VelaTableWidget table(declared(Mixed));
    table.getHeader()->resizeSection(static_cast<int>(Mixed.size()), 200);
    QCOMPARE(widthsOf(table.getTable()->horizontalHeader(), Mixed.size()), baseWidths(Mixed));
    table.slotSectionResized(-1, 0, 50);
    table.slotSectionResized(1000, 0, 50);
    QCOMPARE(widthsOf(table.getTable()->horizontalHeader(), Mixed.size()), baseWidths(Mixed));
}

void VelaTableColumnsTest::theFillerIsTwelvePixelsWideOnScreen()
{
    Shown<TableWindow> window(Mixed);
    const QImage seen = window.area->grab().toImage();
    const int y = seen.height() / 2;
    int firstOfFiller = -1;
    int pixels = 0;
    for (int x = 0; x < seen.width(); ++x) {
        if (seen.pixelColor(x, y) == FillerColor) {
            firstOfFiller = firstOfFiller < 0 ? x : firstOfFiller;
            ++pixels;
        }
    }
    QCOMPARE(pixels, expectedPixels(FillerWidth) * expectedRatio());
    int columnsWidth = 0;
    for (const int width : expectedWidths(Mixed, window.body->viewport()->width())) {
        columnsWidth += width;
    }
    QCOMPARE(firstOfFiller, columnsWidth * expectedRatio());
    QCOMPARE(seen.pixelColor(2, seen.height() - 3), HeaderColor); // a place below a title
}

void VelaTableColumnsTest::theFillerLiesAboveTheVerticalScrollBar()
{
    TableWindow window({{"A", 50, true, 1.0}, {"B", 60, false, 0.0}});
    window.addRows(50);
    QVERIFY(window.showAndWait());
    const QScrollBar *bar = window.body->verticalScrollBar();
    QTRY_VERIFY(bar->isVisible());
    QCOMPARE(bar->mapTo(&window, QPoint()).x(), window.headerLeft(2));
    QCOMPARE(bar->width(), window.header->sectionSize(2));
}

void VelaTableColumnsTest::narrowColumnsAreAsNarrowOnScreen()
{
    TableWindow window(Narrow);
    window.addRows(1);
    QVERIFY(window.showAndWait());
    QCOMPARE(window.headerWidths(), baseWidths(Narrow));
    QCOMPARE(window.bodyWidths(), baseWidths(Narrow));
    const QImage seen = window.area->grab().toImage();
    int pixels = 0;
    for (int x = 0; x < seen.width() && seen.pixelColor(x, 1) != FillerColor; ++x) {
        ++pixels;
    }
    int columnsWidth = 0;
    for (const int width : baseWidths(Narrow)) {
        columnsWidth += width;
    }
    QCOMPARE(pixels, columnsWidth * expectedRatio());
}

void VelaTableColumnsTest::draggingAnEdgeResizesTheColumn()
{
    TableWindow window(Plain);
    window.addRows(2);
    QVERIFY(window.showAndWait());
    QVector<int> expected = baseWidths(Plain);
    const auto isDragged = [&](int column, int distance) {
        window.drag(column, distance);
        expected[column] += distance;
        return window.headerWidths() == expected && window.bodyWidths() == expected;
    };
    QVERIFY(isDragged(0, 60));
    QVERIFY(isDragged(0, -40));
    QVERIFY(isDragged(2, 100));
    QVERIFY(isDragged(2, -1));
    QCOMPARE(window.headerLeft(2), window.bodyLeft(2));
}

void VelaTableColumnsTest::draggingKeepsAUsableMinimum_data()
{
    QTest::addColumn<Columns>("columns");
    QTest::newRow("plain") << Plain;
    QTest::newRow("stretching") << Columns {{"A", 90, true, 0.5}, {"B", 70, true, 0.5}};
    QTest::newRow("declared narrower") << Columns {{"A", 6, true, 0.0}, {"B", 70, true, 0.0}};
}

void VelaTableColumnsTest::draggingKeepsAUsableMinimum()
{
    QFETCH(Columns, columns);
    Shown<TableWindow> window(columns);
    const int usable = QHeaderView(Qt::Horizontal).minimumSectionSize(); // the least width of any header's section
    QVERIFY(usable > expectedPixels(FillerWidth));
    for (int i = 0; i < 2; ++i) { // the second time from the minimum
        window.drag(0, 1 - window.header->sectionSize(0));
        QCOMPARE(window.header->sectionSize(0), usable);
        QCOMPARE(window.body->columnWidth(0), usable);
    }
    window.drag(0, 30); // the edge can still be caught
    QCOMPARE(window.header->sectionSize(0), usable + 30);
    QCOMPARE(window.body->columnWidth(0), usable + 30);
}

void VelaTableColumnsTest::fixedColumnsAndTheFillerAreNotDragged()
{
    Shown<TableWindow> window(Plain);
    const int filler = static_cast<int>(Plain.size());
    for (const int section : {1, filler}) {
        for (const int distance : {50, -20}) {
            window.drag(section, distance);
            QCOMPARE(window.headerWidths(), baseWidths(Plain));
            QCOMPARE(window.bodyWidths(), baseWidths(Plain));
            QCOMPARE(window.header->sectionSize(filler), expectedPixels(FillerWidth));
        }
    }
}

void VelaTableColumnsTest::aDragOutlastsResizingUnlessTheColumnStretches()
{
    Shown<TableWindow> window(Mixed);
    window.drag(2, -30); // a column without a ratio
    window.drag(0, -50);
    QVector<int> expected = expectedWidths(Mixed, window.body->viewport()->width());
    expected[2] -= 30;
    expected[0] -= 50;
    QCOMPARE(window.headerWidths(), expected);
    for (const QSize &size : {QSize(600, 280), QSize(500, 280), QSize(800, 280)}) { // lower, narrower and wider tables
        window.table->resize(size);
        expected = expectedWidths(Mixed, window.body->viewport()->width());
        expected[2] -= 30;
        QCOMPARE(window.headerWidths(), expected);
        QCOMPARE(window.bodyWidths(), expected);
    }
}

void VelaTableColumnsTest::edgesAreDraggedWhereTheyAreScrolledTo()
{
    Shown<TableWindow> window(Wide);
    window.body->horizontalScrollBar()->setValue(expectedPixels(500));
    QVector<int> expected = baseWidths(Wide);
    window.drag(2, -77);
    expected[2] -= 77;
    QCOMPARE(window.headerWidths(), expected);
    QCOMPARE(window.bodyWidths(), expected);
    QCOMPARE(window.area->horizontalScrollBar()->value(), expectedPixels(500));
    QCOMPARE(window.headerLeft(2), window.bodyLeft(2));
}

QTEST_MAIN(VelaTableColumnsTest)
#include "tst_vela_table_columns.moc"
