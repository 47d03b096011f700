// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "support/color-counts.h"
#include "support/controls.h"
#include "support/environment.h"
#include "views/tree-test.h"

#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>
#include <QtTest>

#include <algorithm>
#include <cstdlib>

Q_DECLARE_METATYPE(QAbstractItemView::ScrollMode)

namespace {

const QColor Selected(0xd0, 0x40, 0x10);
const QColor Hovered(0x10, 0x90, 0x60);

// A tree whose highlights can be told apart.
class ColoredTree : public PlainTree
{
public:
    explicit ColoredTree(int rowCount = 6) : PlainTree(rowCount) { setBackgroundColor(Selected, Hovered); }
};

// What a tree of empty rows looks like when the rows of highlights have these colours.
QImage expectedPicture(const PlainTree &tree, const QMap<int, QColor> &highlights)
{
    QImage image(tree.viewport()->size() * expectedRatio(), QImage::Format_RGB32);
    image.setDevicePixelRatio(expectedRatio());
    image.fill(Ground);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::white);
    for (auto row = highlights.begin(); row != highlights.end(); ++row) {
        QRect rect = tree.rowRect(row.key());
        rect.setWidth(static_cast<int>(rect.width() - 3 * expectedScale()));
        painter.setBrush(row.value());
        painter.drawRoundedRect(rect, expectedPixels(3), expectedPixels(3), Qt::AbsoluteSize);
    }
    return image;
}

// Where the pictures differ by more than rounding; empty if they do not.
QString difference(const QImage &actual, const QImage &expected)
{
    if (actual == expected) {
        return QString();
    }
    if (actual.size() != expected.size()) {
        return QStringLiteral("size");
    }
    for (int y = 0; y < actual.height(); ++y) {
        for (int x = 0; x < actual.width(); ++x) {
            const QColor is(actual.pixel(x, y));
            const QColor shouldBe(expected.pixel(x, y));
            const int distance = std::max({std::abs(is.red() - shouldBe.red()), std::abs(is.green() - shouldBe.green()),
                                           std::abs(is.blue() - shouldBe.blue())});
            if (distance > 2) {
                return QStringLiteral("%1,%2: %3 instead of %4").arg(x).arg(y).arg(is.name(), shouldBe.name());
            }
        }
    }
    return QString();
}

// How many pixels of a row have exactly that colour.
int pixelsOf(const PlainTree &tree, int row, const QColor &color)
{
    const QImage image = tree.painted();
    const QRect rect = tree.rowRect(row);
    const QRect pixels(0, rect.top() * expectedRatio(), image.width(), rect.height() * expectedRatio());
    return colorCounts(image.copy(pixels)).value(color.rgb());
}

// How often a tree of many rows looks for the place of one until it has painted a jump under the pointer.
template<typename Tree>
int lookUpsOfAJump(QAbstractItemView::ScrollMode mode)
{
    class CountingTree : public Tree
    {
    public:
        QRect visualRect(const QModelIndex &index) const override
        {
            ++lookUpCount;
            return Tree::visualRect(index);
        }

        mutable int lookUpCount = 0;
    };
    CountingTree tree;
    tree.setVerticalScrollMode(mode);
    tree.setHeaderHidden(true);
    for (int i = 0; i < 3000; ++i) {
        tree.addTopLevelItem(new QTreeWidgetItem({QString::number(i)}));
    }
    tree.setGeometry(100, 100, 300, 350);
    tree.show();
    if (!QTest::qWaitForWindowExposed(&tree)) {
        return -1;
    }
    QCursor::setPos(tree.mapToGlobal(tree.rect().center()));
    EventCounter paints(tree.viewport(), QEvent::Paint);
    const auto jumpTo = [&tree, &paints](int quarter) {
        paints.take();
        tree.lookUpCount = 0;
        QScrollBar *bar = tree.verticalScrollBar();
        bar->setValue(bar->maximum() * quarter / 4);
        return QTest::qWaitFor([&paints] { return paints.take() > 0; });
    };
    return jumpTo(1) && jumpTo(3) ? tree.lookUpCount : -1;
}

} // namespace

class TreeHighlightTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingIsHighlightedWithoutSelectionOrPointer();
    void theRowUnderThePointerIsHighlighted();
    void aSelectedRowHasTheSelectionsColorEvenUnderThePointer();
    void withoutColorsHighlightsAreBlackWithAWhiteOutline();
    void translucentHighlightsLetTheGroundThroughAtAnyWidth();
    void theHighlightsRightMarginAndCornersStayFree();
    void theHighlightFollowsThePointer_data();
    void theHighlightFollowsThePointer();
    void theWindowFollowsThePointer_data() { theHighlightFollowsThePointer_data(); }
    void theWindowFollowsThePointer();
    void anOutlineStaysWhenItsNeighbourIsPaintedAlone();
    void theWindowFollowsTheSelection();
    void theWindowFollowsTheWheelUnderAPointerAtRest();
    void theWindowFollowsJumpsUnderAPointerAtRest_data();
    void theWindowFollowsJumpsUnderAPointerAtRest();
    void aJumpLooksForNoMoreRowsThanInTheBase_data() { theWindowFollowsJumpsUnderAPointerAtRest_data(); }
    void aJumpLooksForNoMoreRowsThanInTheBase();
    void theWindowFollowsRowsThatMoveUnderAPointerAtRest_data();
    void theWindowFollowsRowsThatMoveUnderAPointerAtRest();
    void theWindowFollowsAPointerThatIsAheadOfItsEvents();
    void theWindowFollowsScrollingSideways();
    void allRowsOfAPaintSeeThePointerAtOnePlace();
    void aRowDrawnOutsideOfAPaintLooksForThePointer();
    void aRowOfWhichOnlySomeCellsAreSelectedIsNot();
    void childrenAreHighlightedByThemselves();
    void theContentIsPaintedOnTheHighlight();
    void highlightsAreScrolledWithTheirRows();

    void rowsThatCannotBeCheckedAreGreyed_data();
    void rowsThatCannotBeCheckedAreGreyed();
};

void TreeHighlightTest::nothingIsHighlightedWithoutSelectionOrPointer()
{
    Shown<ColoredTree> tree;
    tree.leaveBehind();
    QCOMPARE(difference(tree.painted(), expectedPicture(tree, {})), QString());
}

void TreeHighlightTest::theRowUnderThePointerIsHighlighted()
{
    Shown<ColoredTree> tree;
    for (const int row : {0, 3, 5}) {
        tree.pointAt(tree.rowRect(row).center());
        QCOMPARE(difference(tree.painted(), expectedPicture(tree, {{row, Hovered}})), QString());
    }
}

void TreeHighlightTest::aSelectedRowHasTheSelectionsColorEvenUnderThePointer()
{
    Shown<ColoredTree> tree;
    tree.topLevelItem(1)->setSelected(true);
    tree.topLevelItem(4)->setSelected(true);
    tree.pointAt(tree.rowRect(1).center());
    QCOMPARE(difference(tree.painted(), expectedPicture(tree, {{1, Selected}, {4, Selected}})), QString());
    tree.pointAt(tree.rowRect(2).center());
    QCOMPARE(difference(tree.painted(), expectedPicture(tree, {{1, Selected}, {2, Hovered}, {4, Selected}})),
             QString());
}

void TreeHighlightTest::withoutColorsHighlightsAreBlackWithAWhiteOutline()
{
    Shown<PlainTree> tree;
    tree.topLevelItem(0)->setSelected(true);
    tree.pointAt(tree.rowRect(2).center());
    QCOMPARE(difference(tree.painted(), expectedPicture(tree, {{0, Qt::black}, {2, Qt::black}})), QString());
}

void TreeHighlightTest::translucentHighlightsLetTheGroundThroughAtAnyWidth()
{
    const QColor selected(0xd0, 0x40, 0x10, 0x90);
    const QColor hovered(0x10, 0x90, 0x60, 0x40);
    PlainTree tree;
    tree.setBackgroundColor(selected, hovered);
    QVERIFY(tree.showAndWait());
    tree.topLevelItem(1)->setSelected(true);
    for (const int width : {300, 211, 420}) {
        tree.resize(width, tree.height());
        QTRY_COMPARE(tree.viewport()->width(), width);
        tree.pointAt(tree.rowRect(3).center());
        QCOMPARE(difference(tree.painted(), expectedPicture(tree, {{1, selected}, {3, hovered}})), QString());
    }
}

void TreeHighlightTest::theHighlightsRightMarginAndCornersStayFree()
{
    Shown<ColoredTree> tree;
    tree.leaveBehind();
    tree.topLevelItem(1)->setSelected(true);
    const QRect row = tree.rowRect(1);
    QVERIFY(expectedPixels(3) > 1);
    QCOMPARE(paintedColor(tree.viewport(), QPoint(row.right(), row.center().y())), Ground);
    QCOMPARE(paintedColor(tree.viewport(), row.center()), Selected);
    QVERIFY(paintedColor(tree.viewport(), row.topLeft()) != Selected);
    const QColor outline = paintedColor(tree.viewport(), QPoint(row.center().x(), row.top()));
    QVERIFY2(outline.green() > Selected.green() && outline.blue() > Selected.blue(), qPrintable(outline.name()));
}

void TreeHighlightTest::theHighlightFollowsThePointer_data()
{
    QTest::addColumn<int>("frameWidth");
    QTest::addColumn<bool>("isHeaderShown");
    for (const int frameWidth : {0, 1, 5}) {
        for (const bool isHeaderShown : {false, true}) {
            QTest::addRow("frame of %d, header %s", frameWidth, isHeaderShown ? "shown" : "hidden")
                << frameWidth << isHeaderShown;
        }
    }
}

// The pointer is looked for in the coordinates of the tree, the row painted in those of the viewport, so that a frame
// or a header puts them apart; one pixel is made good.
void TreeHighlightTest::theHighlightFollowsThePointer()
{
    QFETCH(const int, frameWidth);
    QFETCH(const bool, isHeaderShown);
    ColoredTree tree;
    tree.setHeaderHidden(!isHeaderShown);
    tree.setFrame(frameWidth);
    QVERIFY(tree.showAndWait());
    QCOMPARE(tree.viewport()->pos().x(), frameWidth);
    QCOMPARE(tree.viewport()->pos().y() > frameWidth, isHeaderShown);

    const QRect row = tree.rowRect(2);
    QVector<QPoint> pointers {{-1, row.center().y()},
                              {0, row.center().y()},
                              {row.width() - 1, row.center().y()},
                              {row.width(), row.center().y()}};
    for (const int y : {row.top() - 1, row.top(), row.top() + 1, row.bottom(), row.bottom() + 1, row.bottom() + 2}) {
        pointers.append({row.center().x(), y});
    }
    for (const QPoint &pointer : qAsConst(pointers)) {
        tree.pointAt(pointer);
        QMap<int, QColor> highlights;
        for (int i = 0; i < tree.topLevelItemCount(); ++i) {
            const QRect rect = tree.rowRect(i);
            const bool isWithin = pointer.x() >= 0 && pointer.x() < rect.width() && pointer.y() >= rect.top() + 1
                && pointer.y() <= rect.bottom() + 1;
            if (isWithin) {
                highlights.insert(i, Hovered);
            }
        }
        const QString found = difference(tree.painted(), expectedPicture(tree, highlights));
        QVERIFY2(found.isEmpty(),
                 qPrintable(QStringLiteral("pointer at %1,%2: %3").arg(pointer.x()).arg(pointer.y()).arg(found)));
    }
}

void TreeHighlightTest::theWindowFollowsThePointer()
{
    QFETCH(const int, frameWidth);
    QFETCH(const bool, isHeaderShown);
    ColoredTree tree;
    tree.setHeaderHidden(!isHeaderShown);
    tree.setFrame(frameWidth);
    QVERIFY(tree.showAndWait());
    const QRect rows(tree.rowRect(1).bottomLeft(), tree.rowRect(3).topRight());
    for (int y = rows.top(); y <= rows.bottom(); ++y) { // a slow hand
        tree.moveTo(tree.viewport()->pos() + QPoint(rows.center().x(), y));
        QTRY_COMPARE(difference(tree.shown(), tree.painted()), QString());
    }
    for (const int row : {0, 5, 2}) { // a fast hand
        tree.moveTo(tree.viewport()->pos() + tree.rowRect(row).center());
        QTRY_COMPARE(difference(tree.shown(), tree.painted()), QString());
    }
    const QPoint nowhere = frameWidth > 0 ? QPoint(tree.width() - 1, tree.height() / 2) // a point on the frame
                                          : QPoint(tree.width() / 2, tree.height() - 1); // a point below all rows
    tree.moveTo(nowhere);
    QTRY_COMPARE(difference(tree.shown(), expectedPicture(tree, {})), QString());
}

void TreeHighlightTest::anOutlineStaysWhenItsNeighbourIsPaintedAlone()
{
    Shown<ColoredTree> tree;
    tree.topLevelItem(1)->setSelected(true);
    tree.moveTo(tree.rowRect(4).center());
    const QMap<int, QColor> highlights {{1, Selected}, {4, Hovered}};
    QTRY_COMPARE(difference(tree.shown(), expectedPicture(tree, highlights)), QString());
    for (const int row : {0, 2, 3, 5}) {
        EventCounter paints(tree.viewport(), QEvent::Paint);
        tree.viewport()->update(tree.rowRect(row));
        QVERIFY(QTest::qWaitFor([&paints] { return paints.take() > 0; }));
        QCOMPARE(difference(tree.shown(), expectedPicture(tree, highlights)), QString());
    }
}

void TreeHighlightTest::theWindowFollowsTheSelection()
{
    Shown<ColoredTree> tree;
    tree.leaveBehind();
    for (const int row : {2, 0, 1, 5}) {
        tree.clearSelection();
        tree.topLevelItem(row)->setSelected(true);
        QTRY_COMPARE(difference(tree.shown(), expectedPicture(tree, {{row, Selected}})), QString());
        tree.viewport()->update();
    }
    tree.clearSelection();
    QTRY_COMPARE(difference(tree.shown(), expectedPicture(tree, {})), QString());
}

void TreeHighlightTest::theWindowFollowsTheWheelUnderAPointerAtRest()
{
    ColoredTree tree(60);
    tree.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    tree.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QVERIFY(tree.showAndWait());
    tree.topLevelItem(5)->setSelected(true);
    const QPoint pointer = tree.rowRect(3).center();
    tree.moveTo(pointer);
    QTRY_COMPARE(difference(tree.shown(), expectedPicture(tree, {{3, Hovered}, {5, Selected}})), QString());
    for (const int turn : {-120, 120, -120, 120}) {
        const int before = tree.verticalScrollBar()->value();
        QWheelEvent wheel(pointer, tree.mapToGlobal(pointer), QPoint(), QPoint(0, turn), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(tree.viewport(), &wheel);
        QVERIFY(tree.verticalScrollBar()->value() != before);
        QTRY_COMPARE(difference(tree.shown(), tree.painted()), QString());
    }
}

void TreeHighlightTest::theWindowFollowsJumpsUnderAPointerAtRest_data()
{
    QTest::addColumn<QAbstractItemView::ScrollMode>("mode");
    QTest::newRow("rows") << QAbstractItemView::ScrollPerItem;
    QTest::newRow("pixels") << QAbstractItemView::ScrollPerPixel;
}

void TreeHighlightTest::theWindowFollowsJumpsUnderAPointerAtRest()
{
    QFETCH(const QAbstractItemView::ScrollMode, mode);
    ColoredTree tree(3000);
    tree.setVerticalScrollMode(mode);
    tree.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    tree.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QVERIFY(tree.showAndWait());
    tree.topLevelItem(1240)->setSelected(true);
    const QPoint pointer = tree.rowRect(3).center();
    tree.moveTo(pointer);
    QTRY_COMPARE(difference(tree.shown(), expectedPicture(tree, {{3, Hovered}})), QString());
    for (const int row : {1237, 1238, 1237, 0, 13, 2900, 2888, 40}) {
        tree.verticalScrollBar()->setValue(mode == QAbstractItemView::ScrollPerItem ? row
                                                                                    : row * tree.rowRect(0).height());
        QCOMPARE(tree.itemAt(0, 0), tree.topLevelItem(row));
        QTRY_COMPARE(difference(tree.shown(), tree.painted()), QString());
        const bool isSelectedUnderPointer = row + 3 == 1240;
        QCOMPARE(paintedColor(tree.viewport(), pointer), isSelectedUnderPointer ? Selected : Hovered);
        tree.moveTo(tree.rowRect(row + 5).center());
        QTRY_COMPARE(difference(tree.shown(), tree.painted()), QString());
        tree.moveTo(pointer);
        QTRY_COMPARE(difference(tree.shown(), tree.painted()), QString());
    }
}

// Each look-up walks all rows between the one asked for and the last one asked for.
void TreeHighlightTest::aJumpLooksForNoMoreRowsThanInTheBase()
{
    QFETCH(const QAbstractItemView::ScrollMode, mode);
    const int expected = lookUpsOfAJump<QTreeWidget>(mode);
    QVERIFY(expected > 0);
    QCOMPARE(lookUpsOfAJump<VelaTreeWidget>(mode), expected);
}

void TreeHighlightTest::theWindowFollowsRowsThatMoveUnderAPointerAtRest_data()
{
    QTest::addColumn<bool>("isExpanded"); // whether rows are expanded, or else inserted
    QTest::newRow("expanding") << true;
    QTest::newRow("inserting") << false;
}

void TreeHighlightTest::theWindowFollowsRowsThatMoveUnderAPointerAtRest()
{
    QFETCH(const bool, isExpanded);
    ColoredTree tree;
    tree.setAnimated(false);
    for (int i = 0; i < 3; ++i) {
        tree.topLevelItem(0)->addChild(new FileSystemTreeWidgetItem);
    }
    QVERIFY(tree.showAndWait());
    QTreeWidgetItem *item = tree.topLevelItem(2);
    const QPoint pointer = tree.rowRect(2).center();
    tree.moveTo(pointer);
    QTRY_COMPARE(difference(tree.shown(), expectedPicture(tree, {{2, Hovered}})), QString());

    if (isExpanded) {
        tree.topLevelItem(0)->setExpanded(true);
    } else {
        tree.insertTopLevelItems(0, {new FileSystemTreeWidgetItem, new FileSystemTreeWidgetItem});
    }
    const int row = tree.indexOfTopLevelItem(item);
    QVERIFY(!tree.rowRect(row).contains(pointer));
    QTRY_COMPARE(difference(tree.shown(), tree.painted()), QString());
    QCOMPARE(paintedColor(tree.viewport(), pointer), Hovered);
    for (const int next : {row, row + 1, row}) {
        tree.moveTo(tree.rowRect(next).center());
        QTRY_COMPARE(difference(tree.shown(), expectedPicture(tree, {{next, Hovered}})), QString());
    }
}

// A part of the rows may be painted after the pointer has moved and before the tree has heard of it.
void TreeHighlightTest::theWindowFollowsAPointerThatIsAheadOfItsEvents()
{
    Shown<ColoredTree> tree;
    tree.moveTo(tree.rowRect(1).center());
    QTRY_COMPARE(difference(tree.shown(), expectedPicture(tree, {{1, Hovered}})), QString());
    for (const int row : {4, 2}) {
        QCursor::setPos(tree.mapToGlobal(tree.rowRect(row).center()));
        tree.viewport()->repaint(tree.rowRect(row));
        tree.moveTo(tree.rowRect(row).center());
        QTRY_COMPARE(difference(tree.shown(), expectedPicture(tree, {{row, Hovered}})), QString());
    }
}

void TreeHighlightTest::allRowsOfAPaintSeeThePointerAtOnePlace()
{
    class Mover : public ItemDelegate
    {
    public:
        void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
        {
            QCursor::setPos(positions.value(index.row(), QCursor::pos()));
            ItemDelegate::paint(painter, option, index);
        }

        QMap<int, QPoint> positions; // places that the pointer goes to when a row is painted
    };
    PlainTree tree;
    Mover mover;
    tree.setItemDelegate(&mover);
    tree.setBackgroundColor(Selected, Hovered);
    QVERIFY(tree.showAndWait());
    for (const int row : {0, 3}) {
        tree.pointAt(tree.rowRect(row).center());
        mover.positions = {{0, tree.mapToGlobal(tree.rowRect(5).center())}};
        const QImage painted = tree.painted();
        mover.positions.clear();
        QCOMPARE(difference(painted, expectedPicture(tree, {{row, Hovered}})), QString());
        QCOMPARE(difference(tree.painted(), expectedPicture(tree, {{5, Hovered}})), QString());
    }
    tree.setItemDelegate(nullptr);
}

void TreeHighlightTest::aRowDrawnOutsideOfAPaintLooksForThePointer()
{
    class OpenTree : public PlainTree
    {
    public:
        QColor drawnColor(int row) const
        {
            QImage image(viewport()->size(), QImage::Format_RGB32);
            image.fill(Ground);
            QPainter painter(&image);
            QStyleOptionViewItem option = viewOptions();
            option.rect = rowRect(row);
            drawRow(&painter, option, indexFromItem(topLevelItem(row)));
            return image.pixelColor(option.rect.center());
        }
    };
    OpenTree tree;
    tree.setBackgroundColor(Selected, Hovered);
    QVERIFY(tree.showAndWait());
    tree.leaveBehind();
    tree.painted();
    QCOMPARE(tree.drawnColor(2), Ground);
    for (const int row : {2, 4}) {
        tree.pointAt(tree.rowRect(row).center());
        QCOMPARE(tree.drawnColor(row), Hovered);
        tree.painted();
        QCOMPARE(tree.drawnColor(row), Hovered);
    }
    QCOMPARE(tree.drawnColor(2), Ground);
}

void TreeHighlightTest::theWindowFollowsScrollingSideways()
{
    ColoredTree tree;
    tree.header()->setStretchLastSection(false);
    QVERIFY(tree.showAndWait());
    tree.setColumnWidth(0, 3000);
    tree.topLevelItem(1)->setSelected(true);
    tree.moveTo(tree.rowRect(3).center());
    const QMap<int, QColor> highlights {{1, Selected}, {3, Hovered}};
    QTRY_COMPARE(difference(tree.shown(), expectedPicture(tree, highlights)), QString());
    for (const int value : {40, 41, 0, 700}) {
        tree.horizontalScrollBar()->setValue(value);
        QCOMPARE(tree.horizontalScrollBar()->value(), value);
        QTRY_COMPARE(difference(tree.shown(), expectedPicture(tree, highlights)), QString());
    }
}

void TreeHighlightTest::aRowOfWhichOnlySomeCellsAreSelectedIsNot()
{
    ColoredTree tree;
    tree.setColumnCount(2);
    tree.setSelectionBehavior(QAbstractItemView::SelectItems);
    QVERIFY(tree.showAndWait());
    tree.leaveBehind();
    QItemSelectionModel *selection = tree.selectionModel();
    selection->select(tree.model()->index(1, 0), QItemSelectionModel::Select);
    QCOMPARE(difference(tree.painted(), expectedPicture(tree, {})), QString());
    selection->select(tree.model()->index(1, 1), QItemSelectionModel::Select);
    QCOMPARE(difference(tree.painted(), expectedPicture(tree, {{1, Selected}})), QString());
}

void TreeHighlightTest::childrenAreHighlightedByThemselves()
{
    ColoredTree tree(2);
    auto *child = new FileSystemTreeWidgetItem;
    tree.topLevelItem(0)->addChild(child);
    tree.expandAll();
    QVERIFY(tree.showAndWait());
    tree.leaveBehind();
    child->setSelected(true);
    const QRect childRect = tree.visualItemRect(child);
    QVERIFY(childRect.left() > 0);
    QCOMPARE(paintedColor(tree.viewport(), childRect.center()), Selected);
    // The highlight is that of the whole row, the indentation included.
    QCOMPARE(paintedColor(tree.viewport(), QPoint(expectedPixels(3) + 2, childRect.center().y())), Selected);
    QCOMPARE(paintedColor(tree.viewport(), tree.rowRect(0).center()), Ground);
    QCOMPARE(paintedColor(tree.viewport(), tree.rowRect(1).center()), Ground);
}

void TreeHighlightTest::theContentIsPaintedOnTheHighlight()
{
    Shown<ColoredTree> tree;
    tree.leaveBehind();
    QPalette colors = tree.palette();
    colors.setColor(QPalette::Highlight, Qt::magenta);
    tree.setPalette(colors);
    tree.topLevelItem(1)->setSelected(true);
    QCOMPARE(paintedColor(tree.viewport(), tree.rowRect(1).center()), QColor(Qt::magenta));
}

void TreeHighlightTest::highlightsAreScrolledWithTheirRows()
{
    ColoredTree tree(40);
    tree.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    tree.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QVERIFY(tree.showAndWait());
    tree.topLevelItem(11)->setSelected(true);
    tree.verticalScrollBar()->setValue(10);
    QCOMPARE(tree.itemAt(0, 0), tree.topLevelItem(10));
    tree.pointAt(tree.rowRect(13).center());
    QCOMPARE(difference(tree.painted(), expectedPicture(tree, {{11, Selected}, {13, Hovered}})), QString());
}

void TreeHighlightTest::rowsThatCannotBeCheckedAreGreyed_data()
{
    QTest::addColumn<bool>("isCheckable");
    QTest::addColumn<bool>("isSelected");
    QTest::addColumn<bool>("isEnabled");
    QTest::addColumn<QColor>("expected");
    QTest::newRow("checkable") << true << false << true << EnabledText;
    QTest::newRow("checkable, selected") << true << true << true << EnabledText;
    QTest::newRow("not checkable") << false << false << true << DisabledText;
    QTest::newRow("not checkable, selected") << false << true << true << DisabledText;
    QTest::newRow("checkable, disabled") << true << false << false << DisabledText;
}

void TreeHighlightTest::rowsThatCannotBeCheckedAreGreyed()
{
    QFETCH(const bool, isCheckable);
    QFETCH(const bool, isSelected);
    QFETCH(const bool, isEnabled);
    QFETCH(const QColor, expected);
    PlainTree tree;
    tree.setBackgroundColor(Qt::black, Qt::black);
    QFont font = tree.font();
    font.setPixelSize(expectedPixels(24)); // a size at which not all of a letter is blended
    font.setBold(true);
    tree.setFont(font);
    QVERIFY(tree.showAndWait());
    tree.leaveBehind();
    QTreeWidgetItem *item = tree.topLevelItem(1);
    item->setText(0, QStringLiteral("HHHH"));
    item->setFlags(Qt::ItemIsSelectable | (isEnabled ? Qt::ItemIsEnabled : Qt::NoItemFlags)
                   | (isCheckable ? Qt::ItemIsUserCheckable : Qt::NoItemFlags));
    item->setSelected(isSelected);
    const QColor other = expected == EnabledText ? DisabledText : EnabledText;
    QVERIFY(pixelsOf(tree, 1, expected) > 20);
    QCOMPARE(pixelsOf(tree, 1, other), 0);
}

QTEST_MAIN(TreeHighlightTest)
#include "tst_tree_highlight.moc"
