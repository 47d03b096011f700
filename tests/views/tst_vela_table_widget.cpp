// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-table-widget.h"
#include "style-manager/style-manager.h"
#include "support/controls.h"
#include "support/environment.h"
#include "support/log-capture.h"
#include "support/resource-folder.h"

#include <QApplication>
#include <QCheckBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QTouchDevice>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <QtTest>

#include <cmath>
#include <limits>

namespace {

const QColor HeaderColor(Qt::red);
const QColor FillerColor(Qt::blue);
constexpr int FillerWidth = 12;
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();
const QSize TableSize(600, 300);

struct Column
{
    const char *title;
    int width;
    bool resizable;
    double ratio;
};
using Columns = QVector<Column>;

const Columns Mixed {
    {"Name", 100, true, 0.75}, {"Size", 60, false, 0.0}, {"Date", 80, true, 0.0}, {"By", 50, true, 0.25}};
const Columns Plain {{"A", 90, true, 0.0}, {"B", 70, false, 0.0}, {"C", 110, true, 0.0}};
const Columns Wide {{"A", 300, true, 0.0}, {"B", 300, false, 0.0}, {"C", 300, true, 0.0}, {"D", 300, true, 0.0}};
const Columns Narrow {{"A", 6, true, 0.0}, {"B", 6, false, 0.0}, {"C", 1, true, 0.0}, {"D", 0, true, 0.0}};

VelaTableColumnsInfo declared(const Columns &columns)
{
    VelaTableColumnsInfo info;
    for (const Column &column : columns) {
        info.addColumn(QString::fromLatin1(column.title), column.width, column.resizable, column.ratio);
    }
    return info;
}

/// The widths of the columns of a table whose rows have @p available pixels.
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
        const bool takesShare = column.resizable && column.ratio != 0.0 && share >= base; // never if it is NaN
        widths.append(static_cast<int>(takesShare ? share : base));
    }
    return widths;
}

QVector<int> baseWidths(const Columns &columns)
{
    QVector<int> widths;
    for (const Column &column : columns) {
        widths.append(expectedPixels(column.width));
    }
    return widths;
}

QVector<int> widthsOf(const QHeaderView *header, int count)
{
    QVector<int> widths;
    for (int i = 0; i < count; ++i) {
        widths.append(header->sectionSize(i));
    }
    return widths;
}

/// A window with a table that can be given any size, whatever the window manager does to the window.
class TableWindow : public QWidget
{
public:
    explicit TableWindow(const Columns &columns, const QSize &size = TableSize) :
        table(new VelaTableWidget(declared(columns), this)),
        body(table->getTable()),
        header(table->getHeader()),
        area(table->findChild<QScrollArea *>()),
        m_count(columns.size())
    {
        table->setGeometry(QRect(QPoint(0, 0), size));
        resize(900, 560);
    }

    bool showAndWait()
    {
        show();
        const bool isActive = QTest::qWaitForWindowActive(this);
        QTest::mouseMove(windowHandle(), QPoint(width() - 2, height() - 2));
        return isActive;
    }

    void addRows(int count)
    {
        body->setRowCount(count);
        for (int row = 0; row < count; ++row) {
            for (int i = 0; i < m_count; ++i) {
                body->setItem(row, i, new QTableWidgetItem(QStringLiteral("%1/%2").arg(row).arg(i)));
            }
        }
    }

    /// Of the declared columns, as the header and as the rows show them.
    QVector<int> headerWidths() const { return widthsOf(header, m_count); }
    QVector<int> bodyWidths() const { return widthsOf(body->horizontalHeader(), m_count); }

    /// Where the header and the rows show the left edge of a column, in the window.
    int headerLeft(int column) const
    {
        return header->viewport()->mapTo(this, QPoint(header->sectionViewportPosition(column), 0)).x();
    }
    int bodyLeft(int column) const
    {
        return body->viewport()->mapTo(this, QPoint(body->columnViewportPosition(column), 0)).x();
    }

    QPoint headerCenter() const { return area->mapTo(this, area->rect().center()); }
    /// Just inside of the right edge of a section, where it is dragged.
    QPoint rightEdge(int section) const
    {
        return {headerLeft(section) + header->sectionSize(section) - 1, headerCenter().y()};
    }

    /// Drags the right edge of @p section in steps, as a hand does.
    void drag(int section, int distance)
    {
        constexpr int Steps = 4;
        const QPoint start = rightEdge(section);
        QTest::mouseMove(windowHandle(), start);
        QTest::mousePress(windowHandle(), Qt::LeftButton, {}, start);
        for (int i = 1; i <= Steps; ++i) {
            QTest::mouseMove(windowHandle(), start + QPoint(distance * i / Steps, 0));
            QCoreApplication::processEvents();
        }
        QTest::mouseRelease(windowHandle(), Qt::LeftButton, {}, start + QPoint(distance, 0));
        QCoreApplication::processEvents();
    }

    /// Turns the wheel over @p position; only what seems to come from the system goes from a widget to its parent.
    void wheel(const QPoint &position, const QPoint &angle)
    {
        QWheelEvent event(position, mapToGlobal(position), QPoint(), angle, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&event);
        QApplication::instance()->notify(windowHandle(), &event);
    }

    VelaTableWidget *const table;
    QTableWidget *const body;
    QHeaderView *const header;
    QScrollArea *const area;

private:
    const int m_count;
};

} // namespace

Q_DECLARE_METATYPE(Columns)

class VelaTableWidgetTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void addingAColumnReturnsItsIndex();
    void noArgumentOfAColumnIsChecked_data();
    void noArgumentOfAColumnIsChecked();
    void aColumnIsEmptyByDefault();
    void copiesOfTheDeclarationAreIndependent();
    void aTableKeepsTheDeclarationThatItWasMadeFrom();

    void missingSheetsAreLogged();
    void theParentMayBeLeftOut();
    void theClassesDeclareTheirSlotsAndSignals();
    void theHeaderShowsTheTitlesAndAnEmptyLastSection();
    void theHeaderIsSetUp();
    void theHeaderAreaIsSetUp();
    void theBodyIsSetUp();
    void theHeaderLiesAboveTheBody();
    void aDeclarationWithoutColumnsGivesTheFillerAlone();
    void nothingIsLeftWhenTheTableIsGone();

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

    void wheelsOverTheHeaderDoNotScrollIt_data();
    void wheelsOverTheHeaderDoNotScrollIt();
    void fingersOnTheHeaderDoNotScrollIt();
    void keysForTheHeaderDoNotScrollIt_data();
    void keysForTheHeaderDoNotScrollIt();
    void focusMovingAlongTheHeaderDoesNotScrollIt();
    void theHeaderTakesNoFocus();
    void tabLeavesTheTableAndArrowKeysMoveInIt();
    void draggingAcrossTheHeaderDoesNotScrollIt();
    void theHeaderFollowsBeforeTheTableIsShown();
    void theHeaderFollowsAWheelOverTheRows();
    void theHeaderFollowsTheScrollBar();
    void theHeaderFollowsTheKeyboard();
    void theHeaderFollowsWhenGrowingEndsScrolling();
    void theHeaderStaysWhenRowsAreScrolled();
    void headerAndRowsAreInLineFromRightToLeft();

    void theVerticalScrollBarShowsWhileThereIsMore();
    void theSlotLooksAtTheMaximumAlone();
    void noTriggerEditsACell();
    void aClickSelectsTheWholeRow();
    void rowsAreOfTheirHeight();

private:
    ResourceFolder m_folder;
    QStringList m_loggedWithoutSheets;
};

void VelaTableWidgetTest::initTestCase()
{
    LogCapture log;
    const VelaTableWidget table {VelaTableColumnsInfo()};
    m_loggedWithoutSheets = log.takeTexts().filter(QStringLiteral("stylesheet"));

    installSheets(m_folder,
                  "== component.table_header ==\nQHeaderView { background: white; border: none }\n"
                  "QHeaderView::section { background: red; border: none; padding: 0px }\n"
                  "QHeaderView::section:last { background: blue }\n"
                  "== component.table ==\nQTableView { border: none; background: white }\n"
                  "== component.scrollbar ==\nQScrollBar:vertical { width: 12px; background: lime; margin: 0px }\n"
                  "QScrollBar:horizontal { height: 12px; background: lime; margin: 0px }\n"
                  "QScrollBar::handle { background: green }\n"
                  "QScrollBar::add-line, QScrollBar::sub-line { width: 0px; height: 0px }\n");
}

void VelaTableWidgetTest::addingAColumnReturnsItsIndex()
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

void VelaTableWidgetTest::noArgumentOfAColumnIsChecked_data()
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

void VelaTableWidgetTest::noArgumentOfAColumnIsChecked()
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

void VelaTableWidgetTest::aColumnIsEmptyByDefault()
{
    const VelaTableColumnsInfo::ColumnInfo column;
    QVERIFY(column.title.isEmpty());
    QCOMPARE(column.width, 0);
    QVERIFY(!column.resizable);
    QCOMPARE(column.stretchRatio, 0.0);
}

void VelaTableWidgetTest::copiesOfTheDeclarationAreIndependent()
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

void VelaTableWidgetTest::aTableKeepsTheDeclarationThatItWasMadeFrom()
{
    VelaTableColumnsInfo source = declared(Mixed);
    VelaTableWidget table(source);
    source.addColumn(QStringLiteral("New"), 500, false, 0.0);
    QCOMPARE(table.getTable()->columnCount(), Mixed.size());
    source = declared(Plain);
    table.slotTableResized(QSize(1000, 100));
    QCOMPARE(widthsOf(table.getHeader(), Mixed.size()), expectedWidths(Mixed, 1000));
}

void VelaTableWidgetTest::missingSheetsAreLogged()
{
    QStringList expected;
    for (const char *key : {"table_header", "table", "scrollbar"}) {
        expected.append(QStringLiteral("Cannot find stylesheet \"component.%1\"").arg(QLatin1String(key)));
    }
    QCOMPARE(m_loggedWithoutSheets, expected);
}

void VelaTableWidgetTest::theParentMayBeLeftOut()
{
    QWidget parent;
    const VelaTableWidget child(declared(Plain), &parent);
    QCOMPARE(child.parentWidget(), &parent);
    QVERIFY(!VelaTableWidget(declared(Plain)).parent());
    QVERIFY(!ResizeSignalTableWidget(2, 3).parent());
    QCOMPARE(ResizeSignalTableWidget(2, 3).rowCount(), 2);
    QCOMPARE(ResizeSignalTableWidget(2, 3).columnCount(), 3);
}

void VelaTableWidgetTest::theClassesDeclareTheirSlotsAndSignals()
{
    QCOMPARE(ownDeclarations(VelaTableWidget::staticMetaObject),
             (QStringList {QStringLiteral("slotSectionResized(int,int,int)"),
                           QStringLiteral("slotVerticalScrollRangeChanged(int,int)"),
                           QStringLiteral("slotTableResized(QSize)")}));
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
    TableWindow window({});
    QVERIFY(window.showAndWait());
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

void VelaTableWidgetTest::columnsBeginWithTheirBaseWidths_data()
{
    QTest::addColumn<Columns>("columns");
    QTest::newRow("mixed") << Mixed;
    QTest::newRow("plain") << Plain;
    QTest::newRow("wide") << Wide;
    QTest::newRow("narrow") << Narrow;
    QTest::newRow("odd widths") << Columns {{"A", 33, true, 0.0}, {"B", 77, false, 0.3}, {"C", 151, true, 1.0}};
}

void VelaTableWidgetTest::columnsBeginWithTheirBaseWidths()
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

void VelaTableWidgetTest::columnsStretch_data()
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

void VelaTableWidgetTest::columnsStretch()
{
    QFETCH(Columns, columns);
    TableWindow window(columns);
    QVERIFY(window.showAndWait());
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

void VelaTableWidgetTest::columnsStretchToWhatTheSlotIsGiven()
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

void VelaTableWidgetTest::anyDeclarationIsSurvived()
{
    constexpr int Lowest = std::numeric_limits<int>::min();
    constexpr int Highest = std::numeric_limits<int>::max();
    TableWindow window({{"A", 50, true, 0.5},
                        {"B", Lowest, false, 0.0},
                        {"C", Lowest, false, 0.0},
                        {"D", Lowest, true, 1.0},
                        {"E", -7, true, NotANumber},
                        {"F", 40, true, Infinity},
                        {"G", 40, true, -Infinity},
                        {"H", Highest, true, 0.0},
                        {"I", Highest, true, 1e300},
                        {"J", 33, false, Infinity}});
    QVERIFY(window.showAndWait());
    for (const int width : {700, 10, 400}) {
        window.table->resize(width, 200);
        QCOMPARE(window.header->sectionSize(6), expectedPixels(40));
        QCOMPARE(window.header->sectionSize(9), expectedPixels(33));
        QCOMPARE(window.header->sectionSize(10), expectedPixels(FillerWidth));
        QCOMPARE(window.bodyWidths(), window.headerWidths());
    }
}

void VelaTableWidgetTest::fixedColumnsMayBeWiderThanAnIntCanSay()
{
    // Of too small a sum this share would still be a width that the header takes.
    VelaTableWidget table(
        declared({{"A", 2000000000, false, 0.0}, {"B", 2000000000, false, 0.0}, {"C", 50, true, 0.001}}));
    table.slotTableResized(QSize(700, 200));
    QCOMPARE(table.getHeader()->sectionSize(2), expectedPixels(50));
    QCOMPARE(table.getTable()->columnWidth(2), expectedPixels(50));
}

void VelaTableWidgetTest::columnsThatStretchByOneFillTheRows()
{
    TableWindow window({{"A", 50, true, 0.5}, {"B", 60, false, 0.0}, {"C", 50, true, 0.5}});
    QVERIFY(window.showAndWait());
    const int available = window.body->viewport()->width();
    QCOMPARE(available, TableSize.width() - expectedPixels(FillerWidth)); // the scroll bar is as wide as the filler
    const int unfilled = available - window.body->horizontalHeader()->length();
    QVERIFY(unfilled == 0 || unfilled == 1); // what two halves of an odd width leave
    QVERIFY(!window.body->horizontalScrollBar()->isVisible());
}

void VelaTableWidgetTest::tablesNarrowerThanTheFixedColumnsHaveBaseWidths()
{
    const Columns columns {{"A", 70, true, 0.5}, {"B", 400, false, 0.0}, {"C", 35, true, 0.5}, {"D", 1, true, 2.0}};
    TableWindow window(columns, QSize(expectedPixels(580), 200));
    QVERIFY(window.showAndWait());
    QVERIFY(window.headerWidths() != baseWidths(columns));
    window.table->resize(expectedPixels(300), 200);
    QCOMPARE(window.headerWidths(), baseWidths(columns));
    QCOMPARE(window.bodyWidths(), baseWidths(columns));
}

void VelaTableWidgetTest::aDeclarationWithoutStretchingKeepsAllWidths()
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

void VelaTableWidgetTest::theResizeIsReportedBeforeItIsHandled()
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
    QCOMPARE(reported, QSize(123, 45)); // the event's
    body.resize(300, 200);
    QCOMPARE(reported, body.viewport()->size());
    QCOMPARE(pageStepThen, pageStep);
    QVERIFY(body.horizontalScrollBar()->pageStep() != pageStep);
}

void VelaTableWidgetTest::theBodyFollowsTheHeader()
{
    VelaTableWidget table(declared(Mixed));
    for (int i = 0; i < Mixed.size(); ++i) {
        table.getHeader()->resizeSection(i, 41 + i);
        QCOMPARE(table.getTable()->columnWidth(i), 41 + i);
    }
    table.slotSectionResized(1, -5, 77); // whatever the size was
    QCOMPARE(table.getTable()->columnWidth(1), 77);
    QCOMPARE(table.getHeader()->sectionSize(1), 42); // nothing flows back
    table.getTable()->setColumnWidth(0, 99);
    QCOMPARE(table.getHeader()->sectionSize(0), 41);
}

void VelaTableWidgetTest::theFillersWidthReachesNoColumn()
{
    VelaTableWidget table(declared(Mixed));
    table.getHeader()->resizeSection(static_cast<int>(Mixed.size()), 200);
    QCOMPARE(widthsOf(table.getTable()->horizontalHeader(), Mixed.size()), baseWidths(Mixed));
    table.slotSectionResized(-1, 0, 50);
    table.slotSectionResized(1000, 0, 50);
    QCOMPARE(widthsOf(table.getTable()->horizontalHeader(), Mixed.size()), baseWidths(Mixed));
}

void VelaTableWidgetTest::theFillerIsTwelvePixelsWideOnScreen()
{
    TableWindow window(Mixed);
    QVERIFY(window.showAndWait());
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
    QCOMPARE(seen.pixelColor(2, seen.height() - 3), HeaderColor); // below a title
}

void VelaTableWidgetTest::theFillerLiesAboveTheVerticalScrollBar()
{
    TableWindow window({{"A", 50, true, 1.0}, {"B", 60, false, 0.0}});
    window.addRows(50);
    QVERIFY(window.showAndWait());
    const QScrollBar *bar = window.body->verticalScrollBar();
    QTRY_VERIFY(bar->isVisible());
    QCOMPARE(bar->mapTo(&window, QPoint()).x(), window.headerLeft(2));
    QCOMPARE(bar->width(), window.header->sectionSize(2));
}

void VelaTableWidgetTest::narrowColumnsAreAsNarrowOnScreen()
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

void VelaTableWidgetTest::draggingAnEdgeResizesTheColumn()
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

void VelaTableWidgetTest::draggingKeepsAUsableMinimum_data()
{
    QTest::addColumn<Columns>("columns");
    QTest::newRow("plain") << Plain;
    QTest::newRow("stretching") << Columns {{"A", 90, true, 0.5}, {"B", 70, true, 0.5}};
    QTest::newRow("declared narrower") << Columns {{"A", 6, true, 0.0}, {"B", 70, true, 0.0}};
}

void VelaTableWidgetTest::draggingKeepsAUsableMinimum()
{
    QFETCH(Columns, columns);
    TableWindow window(columns);
    QVERIFY(window.showAndWait());
    const int usable = QHeaderView(Qt::Horizontal).minimumSectionSize(); // of any header
    QVERIFY(usable > expectedPixels(FillerWidth));
    for (int i = 0; i < 2; ++i) { // again from the minimum
        window.drag(0, 1 - window.header->sectionSize(0));
        QCOMPARE(window.header->sectionSize(0), usable);
        QCOMPARE(window.body->columnWidth(0), usable);
    }
    window.drag(0, 30); // still there to be caught
    QCOMPARE(window.header->sectionSize(0), usable + 30);
    QCOMPARE(window.body->columnWidth(0), usable + 30);
}

void VelaTableWidgetTest::fixedColumnsAndTheFillerAreNotDragged()
{
    TableWindow window(Plain);
    QVERIFY(window.showAndWait());
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

void VelaTableWidgetTest::aDragOutlastsResizingUnlessTheColumnStretches()
{
    TableWindow window(Mixed);
    QVERIFY(window.showAndWait());
    window.drag(2, -30); // no ratio
    window.drag(0, -50);
    QVector<int> expected = expectedWidths(Mixed, window.body->viewport()->width());
    expected[2] -= 30;
    expected[0] -= 50;
    QCOMPARE(window.headerWidths(), expected);
    for (const QSize &size : {QSize(600, 280), QSize(500, 280), QSize(800, 280)}) { // lower, narrower, wider
        window.table->resize(size);
        expected = expectedWidths(Mixed, window.body->viewport()->width());
        expected[2] -= 30;
        QCOMPARE(window.headerWidths(), expected);
        QCOMPARE(window.bodyWidths(), expected);
    }
}

void VelaTableWidgetTest::edgesAreDraggedWhereTheyAreScrolledTo()
{
    TableWindow window(Wide);
    QVERIFY(window.showAndWait());
    window.body->horizontalScrollBar()->setValue(expectedPixels(500));
    QVector<int> expected = baseWidths(Wide);
    window.drag(2, -77);
    expected[2] -= 77;
    QCOMPARE(window.headerWidths(), expected);
    QCOMPARE(window.bodyWidths(), expected);
    QCOMPARE(window.area->horizontalScrollBar()->value(), expectedPixels(500));
    QCOMPARE(window.headerLeft(2), window.bodyLeft(2));
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
    QCOMPARE(passedOn.take(), 5); // so that what the table stands in can scroll
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

    pan(window.body->mapTo(&window, window.body->rect().center())); // over the rows it does scroll
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
    TableWindow window(Wide);
    QVERIFY(window.showAndWait());
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
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, window.headerCenter());
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

void VelaTableWidgetTest::draggingAcrossTheHeaderDoesNotScrollIt()
{
    TableWindow window(Wide);
    QVERIFY(window.showAndWait());
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
    TableWindow window(columns, QSize(expectedPixels(400), 300));
    QVERIFY(window.showAndWait());
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
    TableWindow window(Mixed);
    QVERIFY(window.showAndWait());
    const QScrollBar *bar = window.body->verticalScrollBar();
    QVERIFY(!bar->isVisible());
    const int viewportWidth = window.body->viewport()->width();
    const int fitting = window.body->viewport()->height() / expectedPixels(28);
    for (const auto &step : {std::pair(1, false), std::pair(fitting, false), std::pair(fitting + 1, true),
                             std::pair(200, true), std::pair(fitting, false), std::pair(fitting + 1, true)}) {
        window.body->setRowCount(step.first);
        QTRY_COMPARE(bar->maximum() != 0, step.second);
        QCOMPARE(bar->isVisible(), step.second);
        QCOMPARE(window.body->viewport()->width(), viewportWidth); // its place is kept
    }
    window.table->resize(TableSize + QSize(0, expectedPixels(28)));
    QTRY_VERIFY(!bar->isVisible());
    window.table->resize(TableSize);
    QTRY_VERIFY(bar->isVisible());
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
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, cell);
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, cell);
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
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {},
                          window.body->viewport()->mapTo(&window, cell.center()));
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
