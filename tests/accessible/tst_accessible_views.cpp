// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "accessible/accessible.h"
#include "component/vela-table-widget.h"
#include "component/vela-tree-widget.h"
#include "support/resource-folder.h"

#include <QHeaderView>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

namespace {

VelaTableColumnsInfo threeColumns()
{
    VelaTableColumnsInfo columns;
    columns.addColumn(QStringLiteral("Name"), 100, true, 1.0);
    columns.addColumn(QStringLiteral("Size"), 60, false, 0.0);
    columns.addColumn(QStringLiteral("Changed"), 80, true, 0.0);
    return columns;
}

class Files : public VelaTableWidget
{
public:
    Files() : VelaTableWidget(threeColumns())
    {
        table->setRowCount(4);
        for (int row = 0; row < 4; ++row) {
            for (int column = 0; column < 3; ++column) {
                const QString text = QLatin1Char('a' + row) + QString::number(column);
                table->setItem(row, column, new QTableWidgetItem(text));
            }
        }
        resize(400, 200);
    }

    QAccessibleTableInterface *rows() const { return spoken(table)->tableInterface(); }
    QAccessibleInterface *cell(int row, int column) const { return rows()->cellAt(row, column); }

    QTableWidget *const table = getTable();
};

class Folders : public VelaTreeWidget
{
public:
    Folders()
    {
        setHeaderHidden(true);
        for (const char *name : {"Home", "Work"}) {
            auto *folder = new FileSystemTreeWidgetItem;
            folder->setText(0, QString::fromLatin1(name));
            folder->setCheckState(0, Qt::Unchecked);
            addTopLevelItem(folder);
        }
        for (const char *name : {"Letters", "Pictures"}) {
            auto *folder = new FileSystemTreeWidgetItem;
            folder->setText(0, QString::fromLatin1(name));
            topLevelItem(0)->addChild(folder);
        }
        resize(300, 200);
    }
};

} // namespace

class AccessibleViewsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installReferenceTheme(); }

    void aTableTellsTheTitlesOfItsColumns();
    void theHeaderOfATableIsThatOfItsRows();
    void theSortOrderIsTold();
    void aHeaderIsClickedThroughTheInterface();
    void aHeaderThatCannotBeClickedOffersNothing();
    void cellsTellTheirPlaces();
    void cellsAreNumberedAsTheToolkitNumbersThem();
    void aTableIsNamedByTheApplicationOrItsTitles();
    void rowsAreSelectedThroughTheInterface();
    void aCellIsClickedThroughTheInterface();
    void theCurrentCellHasTheFocus();
    void cellsThatStayKeepTheirInterfaces();
    void aCellOutOfViewSaysSo();
    void aWidgetInACellIsFound();
    void aCellIsFoundUnderThePointer();

    void rowsOfATreeTellTheirLevels();
    void rowsOfATreeTellWhetherTheyAreUnfolded();
    void rowsOfATreeTellWhetherTheyAreChecked();
    void aFoldedBranchIsNotToldOf();
    void aRowIsUnfoldedThroughTheInterface();
    void aRowIsCheckedThroughTheInterface();
    void aTreeHasAName();
    void rowsAreNumberedAsTheToolkitNumbersThem();
    void aTreeFollowsItsItems();
    void hiddenRowsAreNotToldOf();
    void rowsThatAreHiddenAndShownAreFollowed();
    void aRowThatIsNotBelowTheRootStillHasALevel();
    void hiddenRowsOutOfViewAreFollowed();
};

void AccessibleViewsTest::aTableTellsTheTitlesOfItsColumns()
{
    const Files files;
    QCOMPARE(files.rows()->columnDescription(0), QStringLiteral("Name"));
    QCOMPARE(files.rows()->columnDescription(2), QStringLiteral("Changed"));
    const auto headers = files.cell(1, 1)->tableCellInterface()->columnHeaderCells();
    QCOMPARE(headers.size(), 1);
    QCOMPARE(headers.first()->text(QAccessible::Name), QStringLiteral("Size"));
    QCOMPARE(number(headers.first()->role()), number(QAccessible::ColumnHeader));
    QVERIFY(!files.table->horizontalHeaderItem(0)); // applications find there what they found before
}

void AccessibleViewsTest::theHeaderOfATableIsThatOfItsRows()
{
    Files files;
    files.show();
    QVERIFY(QTest::qWaitForWindowExposed(&files));
    QCOMPARE(spoken(&files)->childCount(), 1);
    QCOMPARE(spoken(&files)->child(0), spoken(files.table));
    const QStringList names = namesIn(spoken(files.table));
    const QStringList begin {QStringLiteral("Name"), QStringLiteral("Size"), QStringLiteral("Changed"),
                             QStringLiteral("a0")};
    QCOMPARE(names.mid(0, 4), begin);
    QCOMPARE(names.size(), 3 + 4 * 3);

    const QRect section = files.cell(0, 1)->tableCellInterface()->columnHeaderCells().first()->rect();
    const QHeaderView *header = files.getHeader();
    const QPoint topLeft = header->viewport()->mapToGlobal(QPoint(header->sectionViewportPosition(1), 0));
    QCOMPARE(section, QRect(topLeft, QSize(header->sectionSize(1), header->viewport()->height())));
}

void AccessibleViewsTest::theSortOrderIsTold()
{
    Files files;
    const auto description = [&files](int column) {
        return files.cell(0, column)->tableCellInterface()->columnHeaderCells().first()->text(QAccessible::Description);
    };
    QCOMPARE(description(0), QString());
    files.getHeader()->setSortIndicatorShown(true);
    files.getHeader()->setSortIndicator(1, Qt::AscendingOrder);
    QCOMPARE(description(1), QStringLiteral("sorted ascending"));
    QCOMPARE(description(0), QString());
    files.getHeader()->setSortIndicator(1, Qt::DescendingOrder);
    QCOMPARE(description(1), QStringLiteral("sorted descending"));
}

void AccessibleViewsTest::aHeaderIsClickedThroughTheInterface()
{
    Files files;
    files.getHeader()->setSectionsClickable(true);
    files.show();
    QVERIFY(QTest::qWaitForWindowExposed(&files));
    const QSignalSpy clicked(files.getHeader(), &QHeaderView::sectionClicked);
    QAccessibleInterface *section = files.cell(0, 2)->tableCellInterface()->columnHeaderCells().first();
    section->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(clicked.at(0).at(0).toInt(), 2);
}

void AccessibleViewsTest::aHeaderThatCannotBeClickedOffersNothing()
{
    Files files;
    files.getHeader()->setSectionsClickable(false);
    files.show();
    QAccessibleInterface *section = files.cell(0, 2)->tableCellInterface()->columnHeaderCells().first();
    QCOMPARE(section->actionInterface()->actionNames(), QStringList());
}

void AccessibleViewsTest::cellsTellTheirPlaces()
{
    const Files files;
    QCOMPARE(files.rows()->rowCount(), 4);
    QCOMPARE(files.rows()->columnCount(), 3);
    QAccessibleInterface *cell = files.cell(2, 1);
    QCOMPARE(cell->text(QAccessible::Name), QStringLiteral("c1"));
    QCOMPARE(cell->tableCellInterface()->rowIndex(), 2);
    QCOMPARE(cell->tableCellInterface()->columnIndex(), 1);
    QCOMPARE(cell->tableCellInterface()->table(), spoken(files.table));
    QVERIFY(!files.cell(4, 0));
    QVERIFY(!files.cell(0, 3));
    QVERIFY(!files.cell(-1, 0));
}

// Cells row by row behind a row of headers, each row behind a header of its own.
void AccessibleViewsTest::cellsAreNumberedAsTheToolkitNumbersThem()
{
    const Files files;
    QAccessibleInterface *table = spoken(files.table);
    QCOMPARE(table->childCount(), (4 + 1) * (3 + 1));
    QCOMPARE(table->child((2 + 1) * 4 + 1 + 1), files.cell(2, 1));
    for (int i = 0; i < table->childCount(); ++i) {
        QVERIFY(table->child(i));
        QCOMPARE(table->indexOfChild(table->child(i)), i);
        QCOMPARE(table->child(i)->parent(), table);
    }
    QVERIFY(!table->child(-1));
    QVERIFY(!table->child(table->childCount()));
}

void AccessibleViewsTest::aTableIsNamedByTheApplicationOrItsTitles()
{
    Files files;
    QCOMPARE(nameOf(files.table), QStringLiteral("Name, Size, Changed"));
    files.setAccessibleName(QStringLiteral("Files"));
    QCOMPARE(nameOf(files.table), QStringLiteral("Files"));
    files.table->setAccessibleName(QStringLiteral("Rows"));
    QCOMPARE(nameOf(files.table), QStringLiteral("Rows"));
}

void AccessibleViewsTest::rowsAreSelectedThroughTheInterface()
{
    const Files files;
    QVERIFY(files.rows()->selectRow(2));
    QVERIFY(files.rows()->isRowSelected(2));
    QVERIFY(files.cell(2, 0)->state().selected);
    QCOMPARE(files.rows()->selectedRows(), QList<int> {2});
    QCOMPARE(files.rows()->selectedCellCount(), 3);
    QVERIFY(files.rows()->unselectRow(2));
    QCOMPARE(files.table->selectedItems().size(), 0);
    QVERIFY(!files.rows()->selectRow(4));
}

void AccessibleViewsTest::aCellIsClickedThroughTheInterface()
{
    Files files;
    files.show();
    QVERIFY(QTest::qWaitForWindowExposed(&files));
    const QSignalSpy clicked(files.table, &QTableWidget::cellClicked);
    files.cell(3, 1)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(files.table->currentRow(), 3);
}

void AccessibleViewsTest::theCurrentCellHasTheFocus()
{
    Files files;
    files.show();
    QVERIFY(QTest::qWaitForWindowActive(&files));
    files.table->setCurrentCell(1, 2);
    QVERIFY(!files.cell(1, 2)->state().focused || files.table->hasFocus());
    files.table->setFocus();
    QVERIFY(files.cell(1, 2)->state().focused);
    QVERIFY(!files.cell(1, 1)->state().focused);
    QCOMPARE(spoken(files.table)->focusChild(), files.cell(1, 2));
}

void AccessibleViewsTest::cellsThatStayKeepTheirInterfaces()
{
    const Files files;
    QAccessibleInterface *cell = files.cell(2, 0);
    files.table->insertRow(0);
    QAccessibleTableModelChangeEvent change(files.table, QAccessibleTableModelChangeEvent::RowsInserted);
    files.rows()->modelChange(&change);
    QCOMPARE(files.cell(3, 0), cell);
    QCOMPARE(cell->tableCellInterface()->rowIndex(), 3);
    const QAccessible::Id id = QAccessible::uniqueId(cell);
    files.table->removeRow(3);
    QVERIFY(!cell->isValid());
    files.rows()->modelChange(&change);
    QVERIFY(!QAccessible::accessibleInterface(id));
}

void AccessibleViewsTest::aCellOutOfViewSaysSo()
{
    Files files;
    files.table->setRowCount(200);
    files.table->setItem(199, 0, new QTableWidgetItem(QStringLiteral("last")));
    files.show();
    QVERIFY(QTest::qWaitForWindowExposed(&files));
    QVERIFY(!files.cell(0, 0)->state().offscreen);
    QVERIFY(files.cell(199, 0)->state().offscreen);
}

void AccessibleViewsTest::aWidgetInACellIsFound()
{
    const Files files;
    auto *button = new QPushButton(QStringLiteral("Open"));
    files.table->setCellWidget(0, 1, button);
    QCOMPARE(namesIn(files.cell(0, 1)).size(), 0); // the button is not shown yet
    QCOMPARE(files.cell(0, 1)->childCount(), 1);
    QCOMPARE(files.cell(0, 1)->child(0), spoken(button));
    QCOMPARE(files.cell(0, 1)->indexOfChild(spoken(button)), 0);
}

void AccessibleViewsTest::aCellIsFoundUnderThePointer()
{
    Files files;
    files.show();
    QVERIFY(QTest::qWaitForWindowExposed(&files));
    const QPoint middle = files.cell(2, 1)->rect().center();
    QCOMPARE(spoken(files.table)->childAt(middle.x(), middle.y()), files.cell(2, 1));
    QAccessibleInterface *header = files.cell(2, 1)->tableCellInterface()->columnHeaderCells().first();
    const QPoint above = header->rect().center();
    QCOMPARE(spoken(files.table)->childAt(above.x(), above.y()), header);
}

void AccessibleViewsTest::rowsOfATreeTellTheirLevels()
{
    Folders folders;
    folders.expandAll();
    folders.show();
    const QStringList expected {QStringLiteral("Tree Folders"), QStringLiteral("TreeItem Home, Level 1"),
                                QStringLiteral("TreeItem Letters, Level 2"),
                                QStringLiteral("TreeItem Pictures, Level 2"), QStringLiteral("TreeItem Work, Level 1")};
    QCOMPARE(transcript(spoken(&folders)), expected);
}

void AccessibleViewsTest::rowsOfATreeTellWhetherTheyAreUnfolded()
{
    Folders folders;
    QAccessibleInterface *home = spoken(&folders)->tableInterface()->cellAt(0, 0);
    QVERIFY(home->state().expandable);
    QVERIFY(home->state().collapsed);
    folders.expandItem(folders.topLevelItem(0));
    QVERIFY(home->state().expanded);
    QVERIFY(!home->state().collapsed);
    QVERIFY(!spoken(&folders)->tableInterface()->cellAt(1, 0)->state().expandable);
}

void AccessibleViewsTest::rowsOfATreeTellWhetherTheyAreChecked()
{
    Folders folders;
    folders.expandAll();
    QAccessibleInterface *home = spoken(&folders)->tableInterface()->cellAt(0, 0);
    QVERIFY(home->state().checkable);
    QVERIFY(!home->state().checked);
    folders.topLevelItem(0)->setCheckState(0, Qt::Checked);
    QVERIFY(home->state().checked);
    folders.topLevelItem(0)->setCheckState(0, Qt::PartiallyChecked);
    QVERIFY(home->state().checkStateMixed);
    QVERIFY(!spoken(&folders)->tableInterface()->cellAt(1, 0)->state().checkable); // Letters has no box
}

void AccessibleViewsTest::aFoldedBranchIsNotToldOf()
{
    Folders folders;
    QCOMPARE(spoken(&folders)->tableInterface()->rowCount(), 2);
    folders.expandAll();
    QCOMPARE(spoken(&folders)->tableInterface()->rowCount(), 4);
    QAccessibleInterface *letters = spoken(&folders)->tableInterface()->cellAt(1, 0);
    folders.collapseAll();
    QCOMPARE(spoken(&folders)->tableInterface()->rowCount(), 2);
    QVERIFY(letters->state().invisible);
    QCOMPARE(spoken(&folders)->indexOfChild(letters), -1);
}

void AccessibleViewsTest::aRowIsUnfoldedThroughTheInterface()
{
    Folders folders;
    QAccessibleInterface *home = spoken(&folders)->tableInterface()->cellAt(0, 0);
    home->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    QVERIFY(folders.topLevelItem(0)->isExpanded());
    home->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    QVERIFY(!folders.topLevelItem(0)->isExpanded());
}

void AccessibleViewsTest::aRowIsCheckedThroughTheInterface()
{
    Folders folders;
    QAccessibleInterface *work = spoken(&folders)->tableInterface()->cellAt(1, 0);
    work->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    QCOMPARE(folders.topLevelItem(1)->checkState(0), Qt::Checked);
    work->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    QCOMPARE(folders.topLevelItem(1)->checkState(0), Qt::Unchecked);
}

void AccessibleViewsTest::aTreeHasAName()
{
    Folders folders;
    QCOMPARE(nameOf(&folders), QStringLiteral("Folders"));
    folders.setAccessibleName(QStringLiteral("Backup"));
    QCOMPARE(nameOf(&folders), QStringLiteral("Backup"));
}

// Rows one by one behind the header, hidden or not.
void AccessibleViewsTest::rowsAreNumberedAsTheToolkitNumbersThem()
{
    Folders folders;
    folders.expandAll();
    QAccessibleInterface *tree = spoken(&folders);
    QCOMPARE(tree->childCount(), 5);
    QCOMPARE(tree->child(2)->text(QAccessible::Name), QStringLiteral("Letters"));
    for (int i = 0; i < tree->childCount(); ++i) {
        QCOMPARE(tree->indexOfChild(tree->child(i)), i);
    }
    QVERIFY(tree->child(0)->state().invisible);
}

void AccessibleViewsTest::aTreeFollowsItsItems()
{
    Folders folders;
    QAccessibleTableInterface *tree = spoken(&folders)->tableInterface();
    QCOMPARE(tree->rowCount(), 2);
    folders.addTopLevelItem(new FileSystemTreeWidgetItem);
    QCOMPARE(tree->rowCount(), 3);
    delete folders.takeTopLevelItem(0);
    QCOMPARE(tree->rowCount(), 2);
    QCOMPARE(tree->cellAt(0, 0)->text(QAccessible::Name), QStringLiteral("Work"));
    folders.clear();
    QCOMPARE(tree->rowCount(), 0);
}

void AccessibleViewsTest::hiddenRowsAreNotToldOf()
{
    Folders folders;
    folders.topLevelItem(0)->setHidden(true);
    QCOMPARE(spoken(&folders)->tableInterface()->rowCount(), 1);
    QCOMPARE(spoken(&folders)->tableInterface()->cellAt(0, 0)->text(QAccessible::Name), QStringLiteral("Work"));
}

void AccessibleViewsTest::rowsThatAreHiddenAndShownAreFollowed()
{
    Folders folders;
    folders.show();
    QVERIFY(QTest::qWaitForWindowExposed(&folders));
    QAccessibleTableInterface *tree = spoken(&folders)->tableInterface();
    QCOMPARE(tree->rowCount(), 2);
    folders.topLevelItem(0)->setHidden(true);
    QTRY_COMPARE(tree->rowCount(), 1);
    QCOMPARE(tree->cellAt(0, 0)->text(QAccessible::Name), QStringLiteral("Work"));
    folders.topLevelItem(0)->setHidden(false);
    folders.topLevelItem(1)->setHidden(true);
    QTRY_COMPARE(tree->cellAt(0, 0)->text(QAccessible::Name), QStringLiteral("Home"));
    QCOMPARE(tree->rowCount(), 1);
    folders.topLevelItem(1)->setHidden(false);
    QTRY_COMPARE(tree->rowCount(), 2);
}

void AccessibleViewsTest::aRowThatIsNotBelowTheRootStillHasALevel()
{
    Folders folders;
    const QAccessibleInterface *work = spoken(&folders)->tableInterface()->cellAt(1, 0);
    folders.setRootIndex(folders.model()->index(0, 0));
    QCOMPARE(work->text(QAccessible::Description), QStringLiteral("Level 1"));
}

void AccessibleViewsTest::hiddenRowsOutOfViewAreFollowed()
{
    Folders folders;
    for (int row = 0; row < 200; ++row) {
        folders.addTopLevelItem(new FileSystemTreeWidgetItem);
    }
    folders.show();
    QVERIFY(QTest::qWaitForWindowExposed(&folders));
    QAccessibleTableInterface *tree = spoken(&folders)->tableInterface();
    QCOMPARE(tree->rowCount(), 202);
    folders.topLevelItem(150)->setHidden(true);
    QTRY_COMPARE(tree->rowCount(), 201);
    folders.scrollToBottom();
    folders.topLevelItem(0)->setHidden(true);
    QTRY_COMPARE(tree->rowCount(), 200);
}

QTEST_MAIN(AccessibleViewsTest)
#include "tst_accessible_views.moc"
