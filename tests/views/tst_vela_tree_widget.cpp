// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-tree-widget.h"
#include "support/controls.h"
#include "support/environment.h"
#include "support/log-capture.h"
#include "support/resource-folder.h"

#include <QBackingStore>
#include <QHeaderView>
#include <QLineEdit>
#include <QPainter>
#include <QPointer>
#include <QScreen>
#include <QScrollBar>
#include <QSpinBox>
#include <QValidator>
#include <QtTest>

#include <algorithm>
#include <cstdlib>
#include <typeinfo>

Q_DECLARE_METATYPE(QAbstractItemView::ScrollMode)
Q_DECLARE_METATYPE(Qt::MouseButton)

namespace {

const QColor Ground(0x20, 0x30, 0x40); // what a white line shows on
const QColor Selected(0xd0, 0x40, 0x10);
const QColor Hovered(0x10, 0x90, 0x60);
const QColor EnabledText(Qt::red);
const QColor DisabledText(Qt::blue);
const char TreeItemSheet[] = "QLineEdit { background: yellow; padding: 2px }";
const QString ForbiddenCharacters = QStringLiteral("\\/:*?\"<>|");

/// A tree in a window at a known place, of @p rowCount rows without text whose highlight alone is painted.
class PlainTree : public VelaTreeWidget
{
public:
    explicit PlainTree(int rowCount = 6)
    {
        setItemDelegate(&m_delegate);
        setHeaderHidden(true);
        setRootIsDecorated(false);
        setFrame(0);
        setFocusPolicy(Qt::NoFocus); // or the first item would be selected once the window is active
        setSelectionMode(QAbstractItemView::ExtendedSelection);
        setColumnCount(1);
        setSheetlessPalette();
        for (int i = 0; i < rowCount; ++i) {
            addTopLevelItem(new FileSystemTreeWidgetItem);
        }
        setGeometry(100, 100, 300, 350);
        leaveBehind();
    }

    void setFrame(int width)
    {
        setFrameStyle(width > 0 ? QFrame::Box | QFrame::Plain : QFrame::NoFrame);
        setLineWidth(width);
    }

    bool showAndWait()
    {
        show();
        return QTest::qWaitForWindowExposed(this);
    }

    /// Puts the pointer at @p position, in the tree's coordinates.
    void pointAt(const QPoint &position)
    {
        QCursor::setPos(mapToGlobal(position));
        QCoreApplication::processEvents();
    }

    /// Lets the window know, too, which not every platform does; a move to where the pointer is would be none.
    void moveTo(const QPoint &position)
    {
        pointAt(position);
        QTest::mouseMove(windowHandle(), position - QPoint(1, 0));
    }

    void leaveBehind() { pointAt(QPoint(width() + 40, height() + 40)); }

    QRect rowRect(int row) const
    {
        const QRect rect = visualItemRect(topLevelItem(row));
        return QRect(0, rect.top(), viewport()->width(), rect.height());
    }

    /// The viewport, painted for the occasion.
    QImage painted() const { return viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32); }

    /// The viewport as it is on the screen.
    QImage shown() const
    {
        QCoreApplication::processEvents();
        // What is not on any screen is grabbed in the wrong size when there are more device pixels than pixels; what is
        // on an X server is scrolled there and nowhere else.
        const auto *buffer = dynamic_cast<QImage *>(backingStore()->paintDevice());
        const bool isOffscreen = QGuiApplication::platformName() == QLatin1String("offscreen");
        const QImage window = isOffscreen && buffer ? *buffer : screen()->grabWindow(winId()).toImage();
        const QRect rect = viewport()->geometry();
        return window.copy(QRect(rect.topLeft() * expectedRatio(), rect.size() * expectedRatio()))
            .convertToFormat(QImage::Format_RGB32);
    }

private:
    void setSheetlessPalette()
    {
        QPalette colors = palette();
        colors.setColor(QPalette::Base, Ground);
        colors.setColor(QPalette::Highlight, Qt::transparent);
        for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
            colors.setColor(group, QPalette::Text, EnabledText);
            colors.setColor(group, QPalette::HighlightedText, EnabledText);
        }
        colors.setColor(QPalette::Disabled, QPalette::Text, DisabledText);
        colors.setColor(QPalette::Disabled, QPalette::HighlightedText, DisabledText);
        setPalette(colors);
    }

    ItemDelegate m_delegate;
};

/// What a tree of empty rows looks like when the rows of @p highlights have these colours.
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

/// Where the pictures differ by more than rounding; empty if nowhere.
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

/// How many pixels of @p row have just that colour.
int pixelsOf(const PlainTree &tree, int row, const QColor &color)
{
    const QImage image = tree.painted();
    const QRect rect = tree.rowRect(row);
    int count = 0;
    for (int y = rect.top() * expectedRatio(); y < (rect.bottom() + 1) * expectedRatio(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += image.pixelColor(x, y) == color;
        }
    }
    return count;
}

QStringList numbers(int count)
{
    QStringList names;
    for (int i = 0; i < count; ++i) {
        names.append(QString::number(i));
    }
    return names;
}

/// A tree with the names of some folders, in a window with something else that can have the focus.
class FolderWindow : public ControlWindow
{
public:
    explicit FolderWindow(const QStringList &names = {QStringLiteral("Documents"), QStringLiteral("Music")}) :
        ControlWindow(new VelaTreeWidget(nullptr)), tree(static_cast<VelaTreeWidget *>(control))
    {
        tree->setItemDelegate(&delegate);
        tree->setHeaderHidden(true);
        tree->setSelectionMode(QAbstractItemView::SingleSelection);
        for (const QString &name : names) {
            add(name);
        }
    }

    FileSystemTreeWidgetItem *add(const QString &name)
    {
        auto *item = new FileSystemTreeWidgetItem;
        item->setText(0, name);
        item->setFlags(item->flags() | Qt::ItemIsEditable);
        tree->addTopLevelItem(item);
        return item;
    }

    /// Shows it with a tree that can be scrolled sideways by 300 pixels and more.
    bool showWide()
    {
        tree->header()->setStretchLastSection(false);
        tree->setColumnWidth(0, 3000);
        return showAndWait() && QTest::qWaitFor([this] { return tree->horizontalScrollBar()->maximum() > 300; });
    }

    /// Opens the editor of the first row by the keyboard.
    QLineEdit *startRenaming()
    {
        tree->setFocus();
        tree->setCurrentItem(tree->topLevelItem(0));
        key(Qt::Key_F2);
        return editor();
    }

    QLineEdit *editor() const { return tree->viewport()->findChild<QLineEdit *>(); }

    QPoint middleOf(int row) const { return tree->visualItemRect(tree->topLevelItem(row)).center(); }

    VelaTreeWidget *const tree;
    ItemDelegate delegate;
};

/// The members that only views call.
class OpenDelegate : public ItemDelegate
{
public:
    using ItemDelegate::drawCheck;
    using ItemDelegate::eventFilter;
};

/// Knows which check rectangles it was asked to draw.
class CheckRecorder : public ItemDelegate
{
public:
    mutable QVector<QRect> rects;

protected:
    void drawCheck(QPainter *painter, const QStyleOptionViewItem &option, const QRect &rect,
                   Qt::CheckState state) const override
    {
        rects.append(rect);
        ItemDelegate::drawCheck(painter, option, rect, state);
    }
};

QStringList texts(const QTreeWidget &tree)
{
    QStringList all;
    for (int i = 0; i < tree.topLevelItemCount(); ++i) {
        all.append(tree.topLevelItem(i)->text(0));
    }
    return all;
}

} // namespace

class VelaTreeWidgetTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void theCheckRectangleIsNullAtFirst();
    void aMissingSheetIsLoggedByTheEditor();
    void theTreeDeclaresItsTwoSignals();
    void theDelegateDeclaresItsSignalAndHasNoParent();
    void theParentMayBeLeftOut();
    void theTreeInstallsNothingItself();

    void nothingIsHighlightedWithoutSelectionOrPointer();
    void theRowUnderThePointerIsHighlighted();
    void aSelectedRowHasTheSelectionsColorEvenUnderThePointer();
    void withoutColorsHighlightsAreBlackWithAWhiteOutline();
    void translucentHighlightsLetTheGroundThroughAtAnyWidth();
    void theHighlightsRightMarginAndCornersStayFree();
    void theHighlightFollowsThePointer_data();
    void theHighlightFollowsThePointer();
    void theWindowFollowsThePointer_data();
    void theWindowFollowsThePointer();
    void anOutlineStaysWhenItsNeighbourIsPaintedAlone();
    void theWindowFollowsTheSelection();
    void theWindowFollowsTheWheelUnderAPointerAtRest();
    void theWindowFollowsJumpsUnderAPointerAtRest_data();
    void theWindowFollowsJumpsUnderAPointerAtRest();
    void aJumpLooksForNoMoreRowsThanInTheBase_data();
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
    void focusTellsOfTheCurrentItemAnew_data();
    void focusTellsOfTheCurrentItemAnew();
    void focusShrinksASelectionOfSeveralRows();
    void aClickThatGivesTheFocusHitsItsRow_data();
    void aClickThatGivesTheFocusHitsItsRow();
    void aCurrentItemThatIsRemovedMeanwhileStaysRemoved();

    void rowsAreOfAFixedHeight_data();
    void rowsAreOfAFixedHeight();
    void theEditorIsSetUpForFolderNames();
    void everyCallMakesANewValidator();
    void validatorsGoWithTheirEditor();
    void anEditorOfAnotherKindGetsItsDataOnly();
    void namesAreCheckedAsTheyAreTyped_data();
    void namesAreCheckedAsTheyAreTyped();
    void aPastedNameIsTakenOrRefusedAsAWhole();
    void aFolderIsRenamedByTheKeyboard();
    void typingReplacesTheOldName();
    void anEmptyNameIsNotTaken();
    void escapeIsToldOfAndClosesTheEditor();
    void otherKeysInTheEditorAreNotToldOf();
    void onlyPressesOfEscapeAreToldOf();

    void theLastCheckDrawnIsPublished();
    void theDrawnCheckShowsItsState();
    void aClickIntoTheCheckRectangleChecksTheRow();
    void allDelegatesShareTheCheckRectangle();

    void anItemBeginsWithoutAPath();
    void itemsAreOrderedByTextAndNoneBeforeHome_data();
    void itemsAreOrderedByTextAndNoneBeforeHome();
    void theSortColumnDecides();
    void homeStaysInFrontWhenSorted_data();
    void homeStaysInFrontWhenSorted();
    void anItemOfAnotherClassCannotBeCompared();

private:
    ResourceFolder m_folder;
    QRect m_firstCheckRect;
    QStringList m_loggedWithoutSheet;
};

void VelaTreeWidgetTest::initTestCase()
{
    m_firstCheckRect = g_check_rect;
    qRegisterMetaType<QKeyEvent *>("QKeyEvent*"); // for spies
    qRegisterMetaType<QMouseEvent *>("QMouseEvent*");
    qRegisterMetaType<QTreeWidgetItem *>("QTreeWidgetItem*");

    LogCapture log;
    QLineEdit editor;
    const QTreeWidget tree;
    ItemDelegate().setEditorData(&editor, tree.model()->index(0, 0));
    m_loggedWithoutSheet = log.takeTexts();

    installSheets(m_folder, QByteArray("== component.tree_item ==\n") + TreeItemSheet + '\n');
}

void VelaTreeWidgetTest::theCheckRectangleIsNullAtFirst()
{
    QVERIFY(m_firstCheckRect.isNull());
    QCOMPARE(m_firstCheckRect.topLeft(), QPoint(0, 0));
    QCOMPARE(m_firstCheckRect.bottomRight(), QPoint(-1, -1));
}

void VelaTreeWidgetTest::aMissingSheetIsLoggedByTheEditor()
{
    QCOMPARE(m_loggedWithoutSheet, QStringList(QStringLiteral("Cannot find stylesheet \"component.tree_item\"")));
}

void VelaTreeWidgetTest::theTreeDeclaresItsTwoSignals()
{
    QCOMPARE(ownDeclarations(VelaTreeWidget::staticMetaObject),
             (QStringList {QStringLiteral("sigMouseRightClickEvent(QMouseEvent*)"),
                           QStringLiteral("sigKeyPressEvent(QKeyEvent*)")}));
}

void VelaTreeWidgetTest::theDelegateDeclaresItsSignalAndHasNoParent()
{
    QCOMPARE(ownDeclarations(ItemDelegate::staticMetaObject), QStringList(QStringLiteral("sigKeyPressed(QKeyEvent*)")));
    QVERIFY(!ItemDelegate().parent());
}

void VelaTreeWidgetTest::theParentMayBeLeftOut()
{
    QWidget parent;
    const VelaTreeWidget child(&parent);
    QCOMPARE(child.parentWidget(), &parent);
    QVERIFY(!VelaTreeWidget().parent());
}

void VelaTreeWidgetTest::theTreeInstallsNothingItself()
{
    const VelaTreeWidget tree;
    QVERIFY(!qobject_cast<ItemDelegate *>(tree.itemDelegate()));
    QCOMPARE(tree.topLevelItemCount(), 0);
    QVERIFY(tree.styleSheet().isEmpty());
}

void VelaTreeWidgetTest::nothingIsHighlightedWithoutSelectionOrPointer()
{
    PlainTree tree;
    tree.setBackgroundColor(Selected, Hovered);
    QVERIFY(tree.showAndWait());
    tree.leaveBehind();
    QCOMPARE(difference(tree.painted(), expectedPicture(tree, {})), QString());
}

void VelaTreeWidgetTest::theRowUnderThePointerIsHighlighted()
{
    PlainTree tree;
    tree.setBackgroundColor(Selected, Hovered);
    QVERIFY(tree.showAndWait());
    for (const int row : {0, 3, 5}) {
        tree.pointAt(tree.rowRect(row).center());
        QCOMPARE(difference(tree.painted(), expectedPicture(tree, {{row, Hovered}})), QString());
    }
}

void VelaTreeWidgetTest::aSelectedRowHasTheSelectionsColorEvenUnderThePointer()
{
    PlainTree tree;
    tree.setBackgroundColor(Selected, Hovered);
    QVERIFY(tree.showAndWait());
    tree.topLevelItem(1)->setSelected(true);
    tree.topLevelItem(4)->setSelected(true);
    tree.pointAt(tree.rowRect(1).center());
    QCOMPARE(difference(tree.painted(), expectedPicture(tree, {{1, Selected}, {4, Selected}})), QString());
    tree.pointAt(tree.rowRect(2).center());
    QCOMPARE(difference(tree.painted(), expectedPicture(tree, {{1, Selected}, {2, Hovered}, {4, Selected}})),
             QString());
}

void VelaTreeWidgetTest::withoutColorsHighlightsAreBlackWithAWhiteOutline()
{
    PlainTree tree;
    QVERIFY(tree.showAndWait());
    tree.topLevelItem(0)->setSelected(true);
    tree.pointAt(tree.rowRect(2).center());
    QCOMPARE(difference(tree.painted(), expectedPicture(tree, {{0, Qt::black}, {2, Qt::black}})), QString());
}

void VelaTreeWidgetTest::translucentHighlightsLetTheGroundThroughAtAnyWidth()
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

void VelaTreeWidgetTest::theHighlightsRightMarginAndCornersStayFree()
{
    PlainTree tree;
    tree.setBackgroundColor(Selected, Hovered);
    QVERIFY(tree.showAndWait());
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

void VelaTreeWidgetTest::theHighlightFollowsThePointer_data()
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
void VelaTreeWidgetTest::theHighlightFollowsThePointer()
{
    QFETCH(const int, frameWidth);
    QFETCH(const bool, isHeaderShown);
    PlainTree tree;
    tree.setBackgroundColor(Selected, Hovered);
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

void VelaTreeWidgetTest::theWindowFollowsThePointer_data()
{
    theHighlightFollowsThePointer_data();
}

void VelaTreeWidgetTest::theWindowFollowsThePointer()
{
    QFETCH(const int, frameWidth);
    QFETCH(const bool, isHeaderShown);
    PlainTree tree;
    tree.setBackgroundColor(Selected, Hovered);
    tree.setHeaderHidden(!isHeaderShown);
    tree.setFrame(frameWidth);
    QVERIFY(tree.showAndWait());
    const QRect rows(tree.rowRect(1).bottomLeft(), tree.rowRect(3).topRight());
    for (int y = rows.top(); y <= rows.bottom(); ++y) { // a slow hand
        tree.moveTo(tree.viewport()->pos() + QPoint(rows.center().x(), y));
        QTRY_COMPARE(difference(tree.shown(), tree.painted()), QString());
    }
    for (const int row : {0, 5, 2}) { // a fast one
        tree.moveTo(tree.viewport()->pos() + tree.rowRect(row).center());
        QTRY_COMPARE(difference(tree.shown(), tree.painted()), QString());
    }
    const QPoint nowhere = frameWidth > 0 ? QPoint(tree.width() - 1, tree.height() / 2) // the frame
                                          : QPoint(tree.width() / 2, tree.height() - 1); // below all rows
    tree.moveTo(nowhere);
    QTRY_COMPARE(difference(tree.shown(), expectedPicture(tree, {})), QString());
}

void VelaTreeWidgetTest::anOutlineStaysWhenItsNeighbourIsPaintedAlone()
{
    PlainTree tree;
    tree.setBackgroundColor(Selected, Hovered);
    QVERIFY(tree.showAndWait());
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

void VelaTreeWidgetTest::theWindowFollowsTheSelection()
{
    PlainTree tree;
    tree.setBackgroundColor(Selected, Hovered);
    QVERIFY(tree.showAndWait());
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

void VelaTreeWidgetTest::theWindowFollowsTheWheelUnderAPointerAtRest()
{
    PlainTree tree(60);
    tree.setBackgroundColor(Selected, Hovered);
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

void VelaTreeWidgetTest::theWindowFollowsJumpsUnderAPointerAtRest_data()
{
    QTest::addColumn<QAbstractItemView::ScrollMode>("mode");
    QTest::newRow("rows") << QAbstractItemView::ScrollPerItem;
    QTest::newRow("pixels") << QAbstractItemView::ScrollPerPixel;
}

void VelaTreeWidgetTest::theWindowFollowsJumpsUnderAPointerAtRest()
{
    QFETCH(const QAbstractItemView::ScrollMode, mode);
    PlainTree tree(3000);
    tree.setBackgroundColor(Selected, Hovered);
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

/// How often a tree of many rows looks for the place of one until it has painted a jump under the pointer.
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

void VelaTreeWidgetTest::aJumpLooksForNoMoreRowsThanInTheBase_data()
{
    theWindowFollowsJumpsUnderAPointerAtRest_data();
}

// Each look-up walks all rows between the one asked for and the last one asked for.
void VelaTreeWidgetTest::aJumpLooksForNoMoreRowsThanInTheBase()
{
    QFETCH(const QAbstractItemView::ScrollMode, mode);
    const int expected = lookUpsOfAJump<QTreeWidget>(mode);
    QVERIFY(expected > 0);
    QCOMPARE(lookUpsOfAJump<VelaTreeWidget>(mode), expected);
}

void VelaTreeWidgetTest::theWindowFollowsRowsThatMoveUnderAPointerAtRest_data()
{
    QTest::addColumn<bool>("isExpanded"); // or else rows are inserted
    QTest::newRow("expanding") << true;
    QTest::newRow("inserting") << false;
}

void VelaTreeWidgetTest::theWindowFollowsRowsThatMoveUnderAPointerAtRest()
{
    QFETCH(const bool, isExpanded);
    PlainTree tree;
    tree.setBackgroundColor(Selected, Hovered);
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
void VelaTreeWidgetTest::theWindowFollowsAPointerThatIsAheadOfItsEvents()
{
    PlainTree tree;
    tree.setBackgroundColor(Selected, Hovered);
    QVERIFY(tree.showAndWait());
    tree.moveTo(tree.rowRect(1).center());
    QTRY_COMPARE(difference(tree.shown(), expectedPicture(tree, {{1, Hovered}})), QString());
    for (const int row : {4, 2}) {
        QCursor::setPos(tree.mapToGlobal(tree.rowRect(row).center()));
        tree.viewport()->repaint(tree.rowRect(row));
        tree.moveTo(tree.rowRect(row).center());
        QTRY_COMPARE(difference(tree.shown(), expectedPicture(tree, {{row, Hovered}})), QString());
    }
}

void VelaTreeWidgetTest::allRowsOfAPaintSeeThePointerAtOnePlace()
{
    class Mover : public ItemDelegate
    {
    public:
        void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
        {
            QCursor::setPos(positions.value(index.row(), QCursor::pos()));
            ItemDelegate::paint(painter, option, index);
        }

        QMap<int, QPoint> positions; // where the pointer goes when a row is painted
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

void VelaTreeWidgetTest::aRowDrawnOutsideOfAPaintLooksForThePointer()
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

void VelaTreeWidgetTest::theWindowFollowsScrollingSideways()
{
    PlainTree tree;
    tree.setBackgroundColor(Selected, Hovered);
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

void VelaTreeWidgetTest::aRowOfWhichOnlySomeCellsAreSelectedIsNot()
{
    PlainTree tree;
    tree.setBackgroundColor(Selected, Hovered);
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

void VelaTreeWidgetTest::childrenAreHighlightedByThemselves()
{
    PlainTree tree(2);
    tree.setBackgroundColor(Selected, Hovered);
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

void VelaTreeWidgetTest::theContentIsPaintedOnTheHighlight()
{
    PlainTree tree;
    tree.setBackgroundColor(Selected, Hovered);
    QVERIFY(tree.showAndWait());
    tree.leaveBehind();
    QPalette colors = tree.palette();
    colors.setColor(QPalette::Highlight, Qt::magenta);
    tree.setPalette(colors);
    tree.topLevelItem(1)->setSelected(true);
    QCOMPARE(paintedColor(tree.viewport(), tree.rowRect(1).center()), QColor(Qt::magenta));
}

void VelaTreeWidgetTest::highlightsAreScrolledWithTheirRows()
{
    PlainTree tree(40);
    tree.setBackgroundColor(Selected, Hovered);
    tree.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    tree.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QVERIFY(tree.showAndWait());
    tree.topLevelItem(11)->setSelected(true);
    tree.verticalScrollBar()->setValue(10);
    QCOMPARE(tree.itemAt(0, 0), tree.topLevelItem(10));
    tree.pointAt(tree.rowRect(13).center());
    QCOMPARE(difference(tree.painted(), expectedPicture(tree, {{11, Selected}, {13, Hovered}})), QString());
}

void VelaTreeWidgetTest::rowsThatCannotBeCheckedAreGreyed_data()
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

void VelaTreeWidgetTest::rowsThatCannotBeCheckedAreGreyed()
{
    QFETCH(const bool, isCheckable);
    QFETCH(const bool, isSelected);
    QFETCH(const bool, isEnabled);
    QFETCH(const QColor, expected);
    PlainTree tree;
    tree.setBackgroundColor(Qt::black, Qt::black);
    QFont font = tree.font();
    font.setPixelSize(expectedPixels(24)); // letters of which something is not blended
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

void VelaTreeWidgetTest::aGreyedRowCanStillBeChosen()
{
    FolderWindow window;
    QVERIFY(window.showAndWait());
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
    QTest::newRow("near the left end, scrolled") << 20 << false << 40 << true; // stops at the bar's minimum
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
    tree.updateScrollArea(tree.topLevelItem(0)->child(0)); // its parent is collapsed
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
    FolderWindow window(
        {QStringLiteral("Desktop"), QStringLiteral("Documents"), QStringLiteral("Music"), QStringLiteral("Videos")});
    QVERIFY(window.showAndWait());
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
    FolderWindow window;
    QVERIFY(window.showAndWait());
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
    FolderWindow window;
    QVERIFY(window.showAndWait());
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
    FolderWindow window((QStringList()));
    QVERIFY(window.showAndWait());
    QSignalSpy spy(window.tree, &QTreeWidget::currentItemChanged);
    window.tree->setFocus();
    QVERIFY(window.tree->hasFocus());
    QVERIFY(!window.tree->currentItem());
    QCOMPARE(spy.count(), 0);
}

void VelaTreeWidgetTest::focusTellsOfTheCurrentItemAnew_data()
{
    focusMakesTheTopmostVisibleItemCurrent_data();
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

    for (int i = 0; i < 2; ++i) { // each time
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

    // In the uppermost pixels of a row: any scrolling would put another one there.
    const QRect clicked = tree->visualItemRect(tree->topLevelItem(32));
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {},
                      tree->viewport()->mapTo(&window, QPoint(clicked.center().x(), clicked.top())));
    QVERIFY(tree->hasFocus());
    QCOMPARE(tree->indexOfTopLevelItem(tree->currentItem()), 32);
    QVERIFY(tree->topLevelItem(32)->isSelected());
    QCOMPARE(tree->verticalScrollBar()->value(), scrolled);
    QCOMPARE(tree->hasAutoScroll(), isAutoScrolling);
}

void VelaTreeWidgetTest::aCurrentItemThatIsRemovedMeanwhileStaysRemoved()
{
    FolderWindow window;
    QVERIFY(window.showAndWait());
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

void VelaTreeWidgetTest::rowsAreOfAFixedHeight_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("pixelSize");
    QTest::newRow("no text") << QString() << 12;
    QTest::newRow("short") << QStringLiteral("a") << 12;
    QTest::newRow("long") << QString(200, QLatin1Char('m')) << 12;
    QTest::newRow("two lines") << QStringLiteral("one\ntwo") << 12;
    QTest::newRow("large") << QStringLiteral("a") << 90;
}

void VelaTreeWidgetTest::rowsAreOfAFixedHeight()
{
    QFETCH(const QString, text);
    QFETCH(const int, pixelSize);
    PlainTree tree;
    QTreeWidgetItem *item = tree.topLevelItem(0);
    item->setText(0, text);
    QStyleOptionViewItem option;
    option.font.setPixelSize(pixelSize);
    option.fontMetrics = QFontMetrics(option.font);
    const QModelIndex index = tree.model()->index(0, 0);
    const QSize hint = tree.itemDelegate()->sizeHint(option, index);
    QCOMPARE(hint, QSize(QItemDelegate().sizeHint(option, index).width(), expectedPixels(28)));
    QVERIFY(tree.showAndWait());
    QCOMPARE(tree.visualItemRect(item).height(), expectedPixels(28));
}

void VelaTreeWidgetTest::theEditorIsSetUpForFolderNames()
{
    FolderWindow window;
    QVERIFY(window.showAndWait());
    QLineEdit *editor = window.startRenaming();
    QVERIFY(editor);
    QVERIFY(editor->hasFocus());
    QCOMPARE(editor->text(), QStringLiteral("Documents"));
    QCOMPARE(editor->selectedText(), QStringLiteral("Documents"));
    QCOMPARE(editor->styleSheet().trimmed(),
             QString::fromLatin1(TreeItemSheet)
                 .replace(QLatin1String("2px"), QStringLiteral("%1px").arg(expectedPixels(2))));
    const auto *validator = qobject_cast<const QRegExpValidator *>(editor->validator());
    QVERIFY(validator);
    QVERIFY(!validator->parent());
    QCOMPARE(validator->regExp().pattern(), QStringLiteral(R"(^[^\.\\\/:*?"<>|][^\\\/:*?"<>|]*)"));
    QCOMPARE(validator->regExp().caseSensitivity(), Qt::CaseSensitive);
    QCOMPARE(validator->regExp().patternSyntax(), QRegExp::RegExp);

    QLineEdit withFocusRect;
    withFocusRect.setAttribute(Qt::WA_MacShowFocusRect);
    window.delegate.setEditorData(&withFocusRect, window.tree->model()->index(0, 0));
    QVERIFY(!withFocusRect.testAttribute(Qt::WA_MacShowFocusRect));
}

void VelaTreeWidgetTest::everyCallMakesANewValidator()
{
    FolderWindow window;
    QVERIFY(window.showAndWait());
    QLineEdit *editor = window.startRenaming();
    QVERIFY(editor);
    const QPointer<const QValidator> first = editor->validator();
    window.tree->topLevelItem(0)->setText(0, QStringLiteral("Papers")); // shown in the editor at once
    QCOMPARE(editor->text(), QStringLiteral("Papers"));
    QVERIFY(editor->validator());
    QVERIFY(editor->validator() != first);
}

void VelaTreeWidgetTest::validatorsGoWithTheirEditor()
{
    const PlainTree tree(1);
    const ItemDelegate delegate;
    auto *editor = new QLineEdit;
    QVector<QPointer<const QValidator>> validators;
    for (int i = 0; i < 3; ++i) {
        delegate.setEditorData(editor, tree.model()->index(0, 0));
        validators.append(editor->validator());
        QVERIFY(validators.last());
    }
    delete editor;
    for (const QPointer<const QValidator> &validator : qAsConst(validators)) {
        QVERIFY(!validator);
    }
}

void VelaTreeWidgetTest::anEditorOfAnotherKindGetsItsDataOnly()
{
    const PlainTree tree(1);
    tree.topLevelItem(0)->setData(0, Qt::EditRole, 42);
    QSpinBox editor;
    ItemDelegate().setEditorData(&editor, tree.model()->index(0, 0));
    QCOMPARE(editor.value(), 42);
    QVERIFY(editor.styleSheet().isEmpty());
}

void VelaTreeWidgetTest::namesAreCheckedAsTheyAreTyped_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("taken");
    QTest::newRow("letters and digits") << QStringLiteral("Photos2026") << QStringLiteral("Photos2026");
    QTest::newRow("blanks") << QStringLiteral(" a b ") << QStringLiteral(" a b ");
    QTest::newRow("a dot inside") << QStringLiteral("a.x") << QStringLiteral("a.x");
    QTest::newRow("dots at the end") << QStringLiteral("a..") << QStringLiteral("a..");
    QTest::newRow("a dot in front") << QStringLiteral(".x") << QStringLiteral("x");
    QTest::newRow("dots in front") << QStringLiteral("..x.y") << QStringLiteral("x.y");
    QTest::newRow("other marks") << QStringLiteral("-_!#$%&'()+,;=@[]^`{}~")
                                 << QStringLiteral("-_!#$%&'()+,;=@[]^`{}~");
    for (const QChar character : ForbiddenCharacters) {
        QTest::addRow("%c in front", character.toLatin1()) << character + QStringLiteral("ab") << QStringLiteral("ab");
        QTest::addRow("%c inside", character.toLatin1())
            << QStringLiteral("a") + character + QStringLiteral("b") << QStringLiteral("ab");
        QTest::addRow("%c at the end", character.toLatin1())
            << QStringLiteral("ab") + character << QStringLiteral("ab");
    }
}

void VelaTreeWidgetTest::namesAreCheckedAsTheyAreTyped()
{
    QFETCH(const QString, typed);
    QFETCH(const QString, taken);
    FolderWindow window;
    QVERIFY(window.showAndWait());
    QLineEdit *editor = window.startRenaming();
    QVERIFY(editor);
    editor->clear();
    QTest::keyClicks(editor, typed);
    QCOMPARE(editor->text(), taken);
}

void VelaTreeWidgetTest::aPastedNameIsTakenOrRefusedAsAWhole()
{
    FolderWindow window;
    QVERIFY(window.showAndWait());
    QLineEdit *editor = window.startRenaming();
    QVERIFY(editor);
    for (const QString &refused : {QStringLiteral("a/b"), QStringLiteral(".ab"), QStringLiteral("ab?")}) {
        editor->clear();
        editor->insert(refused);
        QCOMPARE(editor->text(), QString());
    }
    const QString taken = QString::fromUtf8("Größe – 大小.x");
    editor->insert(taken);
    QCOMPARE(editor->text(), taken);
}

void VelaTreeWidgetTest::aFolderIsRenamedByTheKeyboard()
{
    FolderWindow window;
    QVERIFY(window.showAndWait());
    QLineEdit *editor = window.startRenaming();
    QVERIFY(editor);
    QSignalSpy spy(window.tree, &QTreeWidget::itemChanged);
    window.key(Qt::Key_End);
    window.type(QStringLiteral(" 2"));
    window.key(Qt::Key_Return);
    QTRY_VERIFY(!window.editor());
    QCOMPARE(window.tree->topLevelItem(0)->text(0), QStringLiteral("Documents 2"));
    QCOMPARE(spy.count(), 1);
}

void VelaTreeWidgetTest::typingReplacesTheOldName()
{
    FolderWindow window;
    QVERIFY(window.showAndWait());
    QVERIFY(window.startRenaming());
    window.type(QStringLiteral("Papers"));
    window.key(Qt::Key_Return);
    QTRY_COMPARE(window.tree->topLevelItem(0)->text(0), QStringLiteral("Papers"));
}

void VelaTreeWidgetTest::anEmptyNameIsNotTaken()
{
    FolderWindow window;
    QVERIFY(window.showAndWait());
    QVERIFY(window.startRenaming());
    window.key(Qt::Key_Delete);
    QCOMPARE(window.editor()->text(), QString());
    window.key(Qt::Key_Return);
    QCoreApplication::processEvents();
    QVERIFY(window.editor());
    QCOMPARE(window.tree->topLevelItem(0)->text(0), QStringLiteral("Documents"));
}

void VelaTreeWidgetTest::escapeIsToldOfAndClosesTheEditor()
{
    FolderWindow window;
    QVERIFY(window.showAndWait());
    QVERIFY(window.startRenaming());
    QVector<int> keys;
    bool wasOpen = false;
    connect(&window.delegate, &ItemDelegate::sigKeyPressed, this, [&](QKeyEvent *event) {
        keys.append(event->key());
        wasOpen = window.editor();
    });
    window.type(QStringLiteral("Papers"));
    QVERIFY(keys.isEmpty());
    window.key(Qt::Key_Escape);
    QCOMPARE(keys, QVector<int> {Qt::Key_Escape});
    QVERIFY(wasOpen);
    QTRY_VERIFY(!window.editor());
    QCOMPARE(window.tree->topLevelItem(0)->text(0), QStringLiteral("Documents"));
}

void VelaTreeWidgetTest::otherKeysInTheEditorAreNotToldOf()
{
    FolderWindow window;
    QVERIFY(window.showAndWait());
    QVERIFY(window.startRenaming());
    QSignalSpy spy(&window.delegate, &ItemDelegate::sigKeyPressed);
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_Home, Qt::Key_Backspace, Qt::Key_F2, Qt::Key_Return}) {
        window.key(key);
    }
    QTRY_VERIFY(!window.editor());
    QCOMPARE(spy.count(), 0);
}

void VelaTreeWidgetTest::onlyPressesOfEscapeAreToldOf()
{
    OpenDelegate delegate;
    QItemDelegate base;
    QLineEdit editor;
    QSignalSpy spy(&delegate, &ItemDelegate::sigKeyPressed);
    for (const QEvent::Type type : {QEvent::ShortcutOverride, QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, Qt::Key_Escape, Qt::NoModifier);
        QKeyEvent sameEvent(type, Qt::Key_Escape, Qt::NoModifier);
        const bool isSwallowed = delegate.eventFilter(&editor, &event);
        QCOMPARE(isSwallowed, static_cast<QObject &>(base).eventFilter(&editor, &sameEvent));
        QCOMPARE(spy.count(), type == QEvent::KeyRelease || type == QEvent::KeyPress ? 1 : 0);
    }
}

void VelaTreeWidgetTest::theLastCheckDrawnIsPublished()
{
    PlainTree tree;
    CheckRecorder recorder;
    tree.setItemDelegate(&recorder);
    for (int i = 0; i < tree.topLevelItemCount(); ++i) {
        tree.topLevelItem(i)->setCheckState(0, Qt::Checked);
    }
    QVERIFY(tree.showAndWait());
    recorder.rects.clear();
    tree.painted();
    QCOMPARE(recorder.rects.size(), tree.topLevelItemCount());
    QVERIFY(tree.rowRect(5).contains(recorder.rects.last()));
    QVERIFY(g_check_rect.isValid());
    QCOMPARE(g_check_rect, recorder.rects.last());

    tree.topLevelItem(5)->setData(0, Qt::CheckStateRole, QVariant());
    tree.painted();
    QVERIFY(!g_check_rect.isValid()); // the last row has none
    tree.setItemDelegate(nullptr);
}

void VelaTreeWidgetTest::theDrawnCheckShowsItsState()
{
    PlainTree tree(1);
    QVERIFY(tree.showAndWait());
    tree.leaveBehind();
    QTreeWidgetItem *item = tree.topLevelItem(0);
    item->setCheckState(0, Qt::Checked);
    const QImage checked = tree.painted();
    item->setCheckState(0, Qt::Unchecked);
    const QImage unchecked = tree.painted();
    QVERIFY(g_check_rect.isValid());
    QRect differing;
    for (int y = 0; y < checked.height(); ++y) {
        for (int x = 0; x < checked.width(); ++x) {
            if (checked.pixel(x, y) != unchecked.pixel(x, y)) {
                differing |= QRect(x, y, 1, 1);
            }
        }
    }
    QVERIFY(differing.isValid());
    const QRect check(g_check_rect.topLeft() * expectedRatio(), g_check_rect.size() * expectedRatio());
    QVERIFY(check.contains(differing));
}

void VelaTreeWidgetTest::aClickIntoTheCheckRectangleChecksTheRow()
{
    FolderWindow window;
    QVERIFY(window.showAndWait());
    QTreeWidgetItem *first = window.tree->topLevelItem(0);
    QTreeWidgetItem *last = window.tree->topLevelItem(1);
    first->setCheckState(0, Qt::Unchecked);
    last->setCheckState(0, Qt::Unchecked);
    window.tree->viewport()->grab();
    QTest::mouseClick(window.tree->viewport(), Qt::LeftButton, {}, g_check_rect.center());
    QCOMPARE(first->checkState(0), Qt::Unchecked);
    QCOMPARE(last->checkState(0), Qt::Checked);
}

void VelaTreeWidgetTest::allDelegatesShareTheCheckRectangle()
{
    QImage image(100, 100, QImage::Format_RGB32);
    QPainter painter(&image);
    const OpenDelegate one;
    const OpenDelegate other;
    one.drawCheck(&painter, QStyleOptionViewItem(), QRect(1, 2, 13, 14), Qt::Checked);
    QCOMPARE(g_check_rect, QRect(1, 2, 13, 14));
    other.drawCheck(&painter, QStyleOptionViewItem(), QRect(30, 40, 15, 16), Qt::PartiallyChecked);
    QCOMPARE(g_check_rect, QRect(30, 40, 15, 16));
    one.drawCheck(&painter, QStyleOptionViewItem(), QRect(), Qt::Unchecked);
    QCOMPARE(g_check_rect, QRect());
}

void VelaTreeWidgetTest::anItemBeginsWithoutAPath()
{
    FileSystemTreeWidgetItem item;
    QCOMPARE(item.type(), static_cast<int>(QTreeWidgetItem::Type));
    QCOMPARE(item.path, QString());
    QCOMPARE(item.clientData, Q_INT64_C(0));
    QCOMPARE(item.columnCount(), 0);
    item.path = QStringLiteral("home/music");
    QCOMPARE(item.getPath(), QStringLiteral("home/music"));
    QCOMPARE(&item.getPath(), &item.path);
}

void VelaTreeWidgetTest::itemsAreOrderedByTextAndNoneBeforeHome_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("otherText");
    QTest::addColumn<QString>("otherPath");
    QTest::addColumn<bool>("isLess");
    const auto add = [](const char *what, const char *text, const char *path, const char *otherText,
                        const char *otherPath, bool isLess) {
        QTest::newRow(what) << QString::fromLatin1(text) << QString::fromLatin1(path) << QString::fromLatin1(otherText)
                            << QString::fromLatin1(otherPath) << isLess;
    };
    add("by text", "a", "1", "b", "0", true);
    add("by text, the other way", "b", "0", "a", "1", false);
    add("same text", "a", "0", "a", "1", false);
    add("before home", "a", "x", "b", "home", false);
    add("after home", "c", "x", "b", "home", false);
    add("home by its text, before", "a", "home", "b", "x", true);
    add("home by its text, after", "z", "home", "b", "x", false);
    add("home against home", "a", "home", "b", "home", false);
    add("below home", "a", "x", "b", "home/music", true);
    add("another case", "a", "x", "b", "Home", true);
    add("with a slash", "a", "x", "b", "/home", true);
    add("only the text is home", "a", "x", "home", "y", true);
    add("empty paths", "a", "", "b", "", true);
}

void VelaTreeWidgetTest::itemsAreOrderedByTextAndNoneBeforeHome()
{
    QFETCH(const QString, text);
    QFETCH(const QString, path);
    QFETCH(const QString, otherText);
    QFETCH(const QString, otherPath);
    QFETCH(const bool, isLess);
    FileSystemTreeWidgetItem item;
    item.setText(0, text);
    item.path = path;
    FileSystemTreeWidgetItem other;
    other.setText(0, otherText);
    other.path = otherPath;
    QCOMPARE(item < other, isLess);
}

void VelaTreeWidgetTest::theSortColumnDecides()
{
    VelaTreeWidget tree;
    tree.setColumnCount(2);
    for (const char *name : {"b", "c", "a"}) {
        auto *item = new FileSystemTreeWidgetItem;
        item->setText(0, QString::fromLatin1(name));
        item->setText(1, QStringLiteral("%1").arg(-tree.topLevelItemCount(), 3)); // " 0", " -1", " -2"
        tree.addTopLevelItem(item);
    }
    tree.sortItems(0, Qt::AscendingOrder);
    QCOMPARE(texts(tree), QStringLiteral("a b c").split(QLatin1Char(' ')));
    tree.topLevelItem(0)->setText(1, QStringLiteral("3"));
    tree.topLevelItem(1)->setText(1, QStringLiteral("1"));
    tree.topLevelItem(2)->setText(1, QStringLiteral("2"));
    tree.sortItems(1, Qt::AscendingOrder);
    QCOMPARE(texts(tree), QStringLiteral("b c a").split(QLatin1Char(' ')));
}

void VelaTreeWidgetTest::homeStaysInFrontWhenSorted_data()
{
    QTest::addColumn<QString>("homeText");
    QTest::addColumn<int>("count");
    for (const QString &text : {QStringLiteral("Aaa"), QStringLiteral("Home"), QStringLiteral("Zzz")}) {
        for (const int count : {1, 6, 50, 1000}) {
            QTest::addRow("%s among %d", qPrintable(text), count) << text << count;
        }
    }
}

void VelaTreeWidgetTest::homeStaysInFrontWhenSorted()
{
    QFETCH(const QString, homeText);
    QFETCH(const int, count);
    VelaTreeWidget tree;
    auto *home = new FileSystemTreeWidgetItem;
    home->setText(0, homeText);
    home->path = QStringLiteral("home");
    tree.addTopLevelItem(home);
    QStringList others;
    for (int i = 0; i < count; ++i) {
        auto *item = new FileSystemTreeWidgetItem;
        item->setText(0, QStringLiteral("M%1").arg((i * 7919) % 1009, 4, 10, QLatin1Char('0')));
        others.append(item->text(0));
        tree.addTopLevelItem(item);
    }
    tree.sortItems(0, Qt::AscendingOrder);
    others.sort();
    QCOMPARE(texts(tree), QStringList(homeText) + others);
}

void VelaTreeWidgetTest::anItemOfAnotherClassCannotBeCompared()
{
    const FileSystemTreeWidgetItem item;
    const QTreeWidgetItem other;
    QVERIFY_EXCEPTION_THROWN(static_cast<void>(item < other), std::bad_cast);
}

QTEST_MAIN(VelaTreeWidgetTest)
#include "tst_vela_tree_widget.moc"
