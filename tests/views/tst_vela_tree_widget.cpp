// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "support/environment.h"
#include "views/tree-test.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QtTest>

Q_DECLARE_METATYPE(Qt::MouseButton)

namespace {

QStringList numbers(int count)
{
    QStringList names;
    for (int i = 0; i < count; ++i) {
        names.append(QString::number(i));
    }
    return names;
}

} // namespace

class VelaTreeWidgetTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void itTellsItsColours();
    void theTreeInstallsNothingItself();

    void aGreyedRowCanStillBeChosen();

    void anItemIsScrolledToOnlyIfItsBeginningIsHidden_data();
    void anItemIsScrolledToOnlyIfItsBeginningIsHidden();
    void aShortItemLeftOfTheViewIsScrolledTo();
    void scrollingToNothingOrToAHiddenItemIsHarmless();

    void everyKeyIsToldOfBeforeTheTreeActs_data();
    void everyKeyIsToldOfBeforeTheTreeActs();
    void aRightClickIsToldOfBeforeTheTreeActs();
    void otherButtonsAreNotToldOf_data();
    void otherButtonsAreNotToldOf();

    void focusMakesTheTopmostVisibleItemCurrent_data();
    void focusMakesTheTopmostVisibleItemCurrent();
    void focusInAnEmptyTreeLeavesNoItemCurrent();
    void focusTellsOfTheCurrentItemAnew_data() { focusMakesTheTopmostVisibleItemCurrent_data(); }
    void focusTellsOfTheCurrentItemAnew();
    void focusShrinksASelectionOfSeveralRows();
    void aClickThatGivesTheFocusHitsItsRow_data();
    void aClickThatGivesTheFocusHitsItsRow();
    void aCurrentItemThatIsRemovedMeanwhileStaysRemoved();
    void aLetterGoesToTheRowThatBeginsWithIt();
    void theMenuKeyAsksForTheMenuOfTheCurrentRow();
    void theTreeMayGoAsItTellsOfAKeyOrARightClick();
};

void VelaTreeWidgetTest::initTestCase()
{
    qRegisterMetaType<QKeyEvent *>("QKeyEvent*"); // spies ask for it by name
    qRegisterMetaType<QMouseEvent *>("QMouseEvent*");
    qRegisterMetaType<QTreeWidgetItem *>("QTreeWidgetItem*");
}

void VelaTreeWidgetTest::theTreeInstallsNothingItself()
{
    const VelaTreeWidget tree;
    QVERIFY(!qobject_cast<ItemDelegate *>(tree.itemDelegate()));
    QCOMPARE(tree.topLevelItemCount(), 0);
    QVERIFY(tree.styleSheet().isEmpty());
}

void VelaTreeWidgetTest::aGreyedRowCanStillBeChosen()
{
    Shown<FolderWindow> window;
    QTreeWidgetItem *item = window.tree->topLevelItem(1);
    item->setFlags(item->flags() & ~Qt::ItemIsUserCheckable);
    QTest::mouseClick(window.tree->viewport(), Qt::LeftButton, {}, window.middleOf(1));
    QCOMPARE(window.tree->currentItem(), item);
    QVERIFY(item->isSelected());
}

void VelaTreeWidgetTest::anItemIsScrolledToOnlyIfItsBeginningIsHidden_data()
{
    // The item's left edge without scrolling is the indentation. "fromRight" counts from the viewport's right edge.
    QTest::addColumn<int>("left");
    QTest::addColumn<bool>("isFromRight");
    QTest::addColumn<int>("scrolled");
    QTest::addColumn<bool>("scrolls");
    const int needed = expectedPixels(100);
    QTest::newRow("at the left edge") << 60 << false << 60 << false;
    QTest::newRow("one pixel hidden") << 60 << false << 61 << true;
    QTest::newRow("all hidden at the left") << 60 << false << 700 << true;
    QTest::newRow("in the middle") << 120 << false << 0 << false;
    QTest::newRow("just enough") << -needed << true << 0 << false;
    QTest::newRow("one pixel too little") << -needed + 1 << true << 0 << true;
    QTest::newRow("at the right edge") << 0 << true << 0 << true;
    QTest::newRow("far to the right") << 400 << true << 0 << true;
    QTest::newRow("just enough when scrolled") << -needed + 50 << true << 50 << false;
    QTest::newRow("one pixel too little when scrolled") << -needed + 51 << true << 50 << true;
    QTest::newRow("near the left end, scrolled") << 20 << false << 40 << true; // the scroll bar stops at its minimum
}

void VelaTreeWidgetTest::anItemIsScrolledToOnlyIfItsBeginningIsHidden()
{
    QFETCH(const int, left);
    QFETCH(const bool, isFromRight);
    QFETCH(const int, scrolled);
    QFETCH(const bool, scrolls);
    PlainTree tree(1);
    auto *child = new FileSystemTreeWidgetItem;
    child->setText(0, QStringLiteral("x"));
    tree.topLevelItem(0)->addChild(child);
    tree.expandAll();
    tree.header()->setStretchLastSection(false);
    tree.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QVERIFY(tree.showAndWait());
    tree.setColumnWidth(0, 4000);
    const int width = tree.viewport()->width();
    tree.setIndentation(isFromRight ? width + left : left);
    QTRY_VERIFY(tree.horizontalScrollBar()->maximum() > 2000);
    tree.horizontalScrollBar()->setValue(scrolled);
    QCOMPARE(tree.visualItemRect(child).left(), tree.indentation() - scrolled);

    const int middle = qBound(0, tree.indentation() - width / 2, tree.horizontalScrollBar()->maximum());
    tree.updateScrollArea(child);
    QCOMPARE(tree.horizontalScrollBar()->value(), scrolls ? middle : scrolled);
    if (scrolls && middle > 0) {
        QCOMPARE(tree.visualItemRect(child).left(), width / 2);
    }
}

void VelaTreeWidgetTest::aShortItemLeftOfTheViewIsScrolledTo()
{
    PlainTree tree(1);
    tree.setColumnCount(2);
    tree.header()->setStretchLastSection(false);
    QVERIFY(tree.showAndWait());
    tree.setColumnWidth(0, 40);
    tree.setColumnWidth(1, 3000);
    QTRY_VERIFY(tree.horizontalScrollBar()->maximum() > 2000);
    tree.horizontalScrollBar()->setValue(20);
    QTreeWidgetItem *item = tree.topLevelItem(0);
    const QRect before = tree.visualItemRect(item);
    QCOMPARE(before.left(), -20);
    tree.updateScrollArea(item);
    QCOMPARE(tree.horizontalScrollBar()->value(), 0);
}

void VelaTreeWidgetTest::scrollingToNothingOrToAHiddenItemIsHarmless()
{
    PlainTree tree(1);
    tree.topLevelItem(0)->addChild(new FileSystemTreeWidgetItem);
    QVERIFY(tree.showAndWait());
    tree.updateScrollArea(nullptr);
    tree.updateScrollArea(tree.topLevelItem(0)->child(0)); // an item whose parent is collapsed
    QCOMPARE(tree.horizontalScrollBar()->value(), 0);
}

void VelaTreeWidgetTest::everyKeyIsToldOfBeforeTheTreeActs_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<int>("row");
    QTest::newRow("down") << Qt::Key_Down << 2;
    QTest::newRow("up") << Qt::Key_Up << 0;
    QTest::newRow("end") << Qt::Key_End << 3;
    QTest::newRow("a letter, which looks for an item") << Qt::Key_V << 3;
    QTest::newRow("escape") << Qt::Key_Escape << 1;
    QTest::newRow("return") << Qt::Key_Return << 1;
    QTest::newRow("shift") << Qt::Key_Shift << 1;
    QTest::newRow("a function key") << Qt::Key_F9 << 1;
}

void VelaTreeWidgetTest::everyKeyIsToldOfBeforeTheTreeActs()
{
    QFETCH(const Qt::Key, key);
    QFETCH(const int, row);
    Shown<FolderWindow> window(QStringList {QStringLiteral("Desktop"), QStringLiteral("Documents"),
                                            QStringLiteral("Music"), QStringLiteral("Videos")});
    VelaTreeWidget *tree = window.tree;
    tree->setFocus();
    tree->setCurrentItem(tree->topLevelItem(1));
    QVector<int> keys;
    int rowWhenTold = -1;
    connect(tree, &VelaTreeWidget::sigKeyPressEvent, this, [&](QKeyEvent *event) {
        keys.append(event->key());
        rowWhenTold = tree->indexOfTopLevelItem(tree->currentItem());
    });
    window.key(key);
    QCOMPARE(keys, QVector<int> {key});
    QCOMPARE(rowWhenTold, 1);
    QCOMPARE(tree->indexOfTopLevelItem(tree->currentItem()), row);
}

void VelaTreeWidgetTest::aRightClickIsToldOfBeforeTheTreeActs()
{
    Shown<FolderWindow> window;
    VelaTreeWidget *tree = window.tree;
    tree->setCurrentItem(tree->topLevelItem(0));
    int count = 0;
    bool wasSelected = true;
    QPoint position;
    connect(tree, &VelaTreeWidget::sigMouseRightClickEvent, this, [&](QMouseEvent *event) {
        ++count;
        QCOMPARE(event->button(), Qt::RightButton);
        wasSelected = tree->topLevelItem(1)->isSelected();
        position = event->pos();
    });
    QTest::mouseClick(tree->viewport(), Qt::RightButton, {}, window.middleOf(1));
    QCOMPARE(count, 1);
    QVERIFY(!wasSelected);
    QCOMPARE(position, window.middleOf(1));
    QVERIFY(tree->topLevelItem(1)->isSelected());
    QCOMPARE(tree->currentItem(), tree->topLevelItem(1));
}

void VelaTreeWidgetTest::otherButtonsAreNotToldOf_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::newRow("left") << Qt::LeftButton;
    QTest::newRow("middle") << Qt::MiddleButton;
    QTest::newRow("back") << Qt::BackButton;
}

void VelaTreeWidgetTest::otherButtonsAreNotToldOf()
{
    QFETCH(const Qt::MouseButton, button);
    Shown<FolderWindow> window;
    QSignalSpy spy(window.tree, &VelaTreeWidget::sigMouseRightClickEvent);
    QTest::mouseClick(window.tree->viewport(), button, {}, window.middleOf(1));
    QCOMPARE(spy.count(), 0);
    QCOMPARE(window.tree->currentItem(), window.tree->topLevelItem(1)); // the tree has acted
}

void VelaTreeWidgetTest::focusMakesTheTopmostVisibleItemCurrent_data()
{
    QTest::addColumn<int>("down");
    QTest::addColumn<int>("sideways");
    QTest::newRow("not scrolled") << 0 << 0;
    QTest::newRow("scrolled down") << 12 << 0;
    QTest::newRow("scrolled sideways") << 0 << 300;
    QTest::newRow("scrolled down and sideways") << 12 << 300;
}

void VelaTreeWidgetTest::focusMakesTheTopmostVisibleItemCurrent()
{
    QFETCH(const int, down);
    QFETCH(const int, sideways);
    FolderWindow window(numbers(60));
    QVERIFY(window.showWide());
    VelaTreeWidget *tree = window.tree;
    tree->verticalScrollBar()->setValue(down);
    tree->horizontalScrollBar()->setValue(sideways);
    QVERIFY(!tree->currentItem());
    tree->setFocus(Qt::TabFocusReason);
    QVERIFY(tree->hasFocus());
    QCOMPARE(tree->indexOfTopLevelItem(tree->currentItem()), down);
}

void VelaTreeWidgetTest::focusInAnEmptyTreeLeavesNoItemCurrent()
{
    Shown<FolderWindow> window((QStringList()));
    QSignalSpy spy(window.tree, &QTreeWidget::currentItemChanged);
    window.tree->setFocus();
    QVERIFY(window.tree->hasFocus());
    QVERIFY(!window.tree->currentItem());
    QCOMPARE(spy.count(), 0);
}

void VelaTreeWidgetTest::focusTellsOfTheCurrentItemAnew()
{
    QFETCH(const int, down);
    QFETCH(const int, sideways);
    FolderWindow window(numbers(60));
    QVERIFY(window.showWide());
    VelaTreeWidget *tree = window.tree;
    QTreeWidgetItem *item = tree->topLevelItem(down + 1);
    tree->setCurrentItem(item);

    for (int i = 0; i < 2; ++i) { // each time, not only once
        window.neighbour->setFocus();
        tree->verticalScrollBar()->setValue(down);
        tree->horizontalScrollBar()->setValue(sideways);
        QVector<QTreeWidgetItem *> told;
        const QMetaObject::Connection connection = connect(tree, &QTreeWidget::currentItemChanged, this,
                                                           [&](QTreeWidgetItem *current, QTreeWidgetItem *previous) {
                                                               told += {current, previous};
                                                           });
        tree->setFocus(Qt::TabFocusReason);
        QVERIFY(tree->hasFocus());
        disconnect(connection);
        QCOMPARE(told, (QVector<QTreeWidgetItem *> {nullptr, item, item, nullptr}));
        QCOMPARE(tree->currentItem(), item);
        QVERIFY(item->isSelected());
    }
}

void VelaTreeWidgetTest::focusShrinksASelectionOfSeveralRows()
{
    FolderWindow window;
    window.add(QStringLiteral("Videos"));
    window.tree->setSelectionMode(QAbstractItemView::ExtendedSelection);
    QVERIFY(window.showAndWait());
    window.tree->setCurrentItem(window.tree->topLevelItem(1));
    window.tree->selectAll();
    QCOMPARE(window.tree->selectedItems().size(), 3);
    window.tree->setFocus();
    QVERIFY(window.tree->hasFocus());
    QCOMPARE(window.tree->selectedItems(), QList<QTreeWidgetItem *> {window.tree->topLevelItem(1)});
}

void VelaTreeWidgetTest::aClickThatGivesTheFocusHitsItsRow_data()
{
    QTest::addColumn<bool>("hasCurrentItem");
    QTest::addColumn<bool>("isAutoScrolling");
    QTest::newRow("the current row is out of view") << true << true;
    QTest::newRow("no row is current, and the topmost is cut") << false << true;
    QTest::newRow("the tree is not to scroll") << true << false;
}

void VelaTreeWidgetTest::aClickThatGivesTheFocusHitsItsRow()
{
    QFETCH(const bool, hasCurrentItem);
    QFETCH(const bool, isAutoScrolling);
    FolderWindow window(numbers(60));
    VelaTreeWidget *tree = window.tree;
    tree->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    tree->setAutoScroll(isAutoScrolling);
    QVERIFY(window.showAndWait());
    if (hasCurrentItem) {
        tree->setCurrentItem(tree->topLevelItem(0));
    }
    const int rowHeight = tree->visualItemRect(tree->topLevelItem(0)).height();
    const int scrolled = 31 * rowHeight - 2; // two pixels of the row above are in view
    tree->verticalScrollBar()->setValue(scrolled);
    QCOMPARE(tree->verticalScrollBar()->value(), scrolled);
    QVERIFY(window.neighbour->hasFocus());

    // A row's uppermost pixels: any scrolling would put another row there.
    const QRect clicked = tree->visualItemRect(tree->topLevelItem(32));
    window.click(tree->viewport()->mapTo(&window, QPoint(clicked.center().x(), clicked.top())));
    QVERIFY(tree->hasFocus());
    QCOMPARE(tree->indexOfTopLevelItem(tree->currentItem()), 32);
    QVERIFY(tree->topLevelItem(32)->isSelected());
    QCOMPARE(tree->verticalScrollBar()->value(), scrolled);
    QCOMPARE(tree->hasAutoScroll(), isAutoScrolling);
}

void VelaTreeWidgetTest::aCurrentItemThatIsRemovedMeanwhileStaysRemoved()
{
    Shown<FolderWindow> window;
    VelaTreeWidget *tree = window.tree;
    tree->setCurrentItem(tree->topLevelItem(0));
    connect(tree, &QTreeWidget::currentItemChanged, tree, [tree](QTreeWidgetItem *current) {
        if (!current) {
            tree->clear();
        }
    });
    tree->setFocus();
    QVERIFY(tree->hasFocus());
    QVERIFY(!tree->currentItem());
    QCOMPARE(tree->topLevelItemCount(), 0);
}

void VelaTreeWidgetTest::itTellsItsColours()
{
    VelaTreeWidget tree;
    QVERIFY(!tree.selectedColor().isValid());
    QVERIFY(!tree.hoverColor().isValid());
    tree.setBackgroundColor(Qt::red, Qt::blue);
    QCOMPARE(tree.selectedColor(), QColor(Qt::red));
    QCOMPARE(tree.hoverColor(), QColor(Qt::blue));
}

void VelaTreeWidgetTest::aLetterGoesToTheRowThatBeginsWithIt()
{
    Shown<FolderWindow> window;
    window.tree->setFocus();
    QCOMPARE(window.tree->currentItem(), window.tree->topLevelItem(0));
    window.key(Qt::Key_M);
    QCOMPARE(window.tree->currentItem(), window.tree->topLevelItem(1));
}

void VelaTreeWidgetTest::theMenuKeyAsksForTheMenuOfTheCurrentRow()
{
    Shown<FolderWindow> window;
    window.tree->setContextMenuPolicy(Qt::CustomContextMenu);
    window.tree->setFocus();
    window.tree->setCurrentItem(window.tree->topLevelItem(1));
    const QSignalSpy asked(window.tree, &QWidget::customContextMenuRequested);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint()); // which platforms make of the key
    QCoreApplication::sendEvent(window.windowHandle(), &event);
    QCOMPARE(asked.count(), 1);
    QCOMPARE(window.tree->itemAt(asked.first().first().toPoint()), window.tree->topLevelItem(1));
}

void VelaTreeWidgetTest::theTreeMayGoAsItTellsOfAKeyOrARightClick()
{
    const QPointer<VelaTreeWidget> tree(new VelaTreeWidget);
    connect(tree, &VelaTreeWidget::sigKeyPressEvent, this, [tree] { delete tree; });
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier);
    QCoreApplication::sendEvent(tree, &key);
    QVERIFY(!tree);

    const QPointer<VelaTreeWidget> other(new VelaTreeWidget);
    connect(other, &VelaTreeWidget::sigMouseRightClickEvent, this, [other] { delete other; });
    QMouseEvent click(QEvent::MouseButtonPress, QPointF(5, 5), Qt::RightButton, Qt::RightButton, Qt::NoModifier);
    QCoreApplication::sendEvent(other->viewport(), &click);
    QVERIFY(!other);
}

QTEST_MAIN(VelaTreeWidgetTest)
#include "tst_vela_tree_widget.moc"
