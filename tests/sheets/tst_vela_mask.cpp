// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-mask.h"
#include "support/controls.h"
#include "support/environment.h"
#include "support/log-capture.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QResizeEvent>
#include <QStyle>
#include <QtTest>

#include <memory>
#include <type_traits>

static_assert(std::is_base_of_v<QFrame, VelaMask>);
static_assert(std::is_base_of_v<QObject, ParentEventFilterWidget>);
static_assert(!std::is_base_of_v<QWidget, ParentEventFilterWidget>);

namespace {

const QColor Dimming(0, 0, 0, 20);
constexpr QSize WindowSize(320, 240);
constexpr QSize ContentSize(80, 60);
constexpr QRect ButtonPlace(10, 10, 60, 30);
constexpr QRect FieldPlace(10, 190, 120, 30);

// A panel of fixed size as content of a mask; without one of its own its colour would be the mask's.
class Panel : public QWidget
{
public:
    explicit Panel(QWidget *parent = nullptr) : QWidget(parent)
    {
        setPalette(QPalette(Qt::yellow));
        setAutoFillBackground(true);
        setFixedSize(ContentSize);
    }
};

// A white window with a button at its top left and a field, which has the focus, at its bottom left.
class CoveredWindow : public TestWindow
{
public:
    CoveredWindow() : button(new QPushButton(this)), field(new QLineEdit(this))
    {
        setPalette(QPalette(Qt::white));
        button->setGeometry(ButtonPlace);
        field->setGeometry(FieldPlace);
        field->setFocus();
        resize(WindowSize);
    }

    // Puts a mask with a panel over the window.
    Panel *cover()
    {
        auto *content = new Panel;
        VelaMask::createMask(content, this, Dimming);
        return content;
    }
    VelaMask *mask() const { return findChild<VelaMask *>(); }

    QPushButton *const button;
    QLineEdit *const field;
};

// A channel of above drawn over an opaque below.
int blended(int above, int below, int alpha)
{
    return qRound((above * alpha + below * (255 - alpha)) / 255.0);
}

// Whether the colours differ by no more than what is lost in rounding.
bool areAlike(const QColor &left, const QColor &right)
{
    return qAbs(left.red() - right.red()) <= 1 && qAbs(left.green() - right.green()) <= 1
        && qAbs(left.blue() - right.blue()) <= 1;
}

QColor drawnOver(const QColor &above, const QColor &below)
{
    return {blended(above.red(), below.red(), above.alpha()), blended(above.green(), below.green(), above.alpha()),
            blended(above.blue(), below.blue(), above.alpha())};
}

using Factory = QWidget *(*)(QWidget *widget, QWidget *parent);

QWidget *createPlain(QWidget *widget, QWidget *parent)
{
    return VelaMask::createMask(widget, parent, Dimming);
}

QWidget *createWithMargins(QWidget *widget, QWidget *parent)
{
    return VelaMask::createMaskWithCustomizedMargin(widget, parent, Dimming, 5, 6, 7, 8);
}

void addFactories()
{
    QTest::addColumn<Factory>("create");
    QTest::newRow("createMask") << &createPlain;
    QTest::newRow("createMaskWithCustomizedMargin") << &createWithMargins;
}

} // namespace

Q_DECLARE_METATYPE(Factory)
Q_DECLARE_METATYPE(QMargins)

class VelaMaskTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theClassesAddNothingToTheirBases();
    void aMaskIsAFrameInTheCoveredWidget();

    void aNullContentYieldsNullAndNoMask_data() { addFactories(); }
    void aNullContentYieldsNullAndNoMask();
    void aNullParentStandsForTheContentsParent_data() { addFactories(); }
    void aNullParentStandsForTheContentsParent();
    void noParentAtAllYieldsNull_data() { addFactories(); }
    void noParentAtAllYieldsNull();
    void theContentIsReturnedAndNotTheMask_data() { addFactories(); }
    void theContentIsReturnedAndNotTheMask();

    void theContentIsAloneInAHorizontalLayout();
    void theContentFillsTheMaskWithinItsMargins();
    void marginsAreTheStylesUnlessGiven();
    void givenMarginsAreScaledAndTruncated_data();
    void givenMarginsAreScaledAndTruncated();

    void allColorGroupsHaveTheColor();
    void theColorIsDrawnOverTheWholeWindow_data();
    void theColorIsDrawnOverTheWholeWindow();
    void theContentIsNotDimmed();

    void aNewMaskIsNotShown();
    void showingAndHidingTheContentShowsAndHidesTheMask();
    void theMaskOfAHiddenWindowIsShownWithIt();
    void onlyItsContentShowsAndHidesAMask();
    void itsEventFilterConsumesNothing_data();
    void itsEventFilterConsumesNothing();

    void theMaskIsAsLargeAsTheWindow();
    void theMaskFollowsTheWindowsSize();
    void resizingTheCoveredWidgetGivesTheWindowsSize();
    void onlyTheCoveredWidgetIsWatched();
    void theMaskIsNeverMoved();
    void resizeFixesTheWindowsSize();
    void theParentsFilterBelongsToTheMask();
    void theParentsFilterLooksAtResizesOfTheParentAlone();

    void clicksLandOnTheMask();
    void theMaskPassesClicksOnToTheCoveredWidget();
    void aHiddenMaskKeepsNoClicks();
    void keysReachTheFocusedWidgetBeneath();

    void theContentIsDeletedWithTheMask();
    void aMaskOutlivesItsContentHiddenAndEmpty();
    void contentInANewMaskLeavesTheFormerOneAlone();
    void contentThatComesBackHasItsMaskAgain();
    void anEmptyMaskWatchesNothing_data();
    void anEmptyMaskWatchesNothing();
    void everyCallLeavesOneMoreMask();
    void masksAreDeletedWithTheWindow();
    void aMaskMayBeDeletedWhileItIsShown_data();
    void aMaskMayBeDeletedWhileItIsShown();
};

void VelaMaskTest::theClassesAddNothingToTheirBases()
{
    QCOMPARE(VelaMask::staticMetaObject.className(), "VelaMask");
    QCOMPARE(VelaMask::staticMetaObject.superClass()->className(), "QFrame");
    QCOMPARE(ownDeclarations(VelaMask::staticMetaObject), QStringList());
    QCOMPARE(ownDeclarations(ParentEventFilterWidget::staticMetaObject), QStringList());
}

void VelaMaskTest::aMaskIsAFrameInTheCoveredWidget()
{
    QWidget covered;
    auto *content = new QWidget;
    const auto *mask = new VelaMask(content, &covered, Dimming);
    QCOMPARE(mask->parentWidget(), &covered);
    QCOMPARE(mask->windowFlags(), QFrame(&covered).windowFlags());
    QVERIFY(!mask->isWindow());
    QCOMPARE(mask->pos(), QPoint(0, 0));
    QCOMPARE(content->parentWidget(), mask);

    const auto *other = new VelaMask(new QWidget, &covered, Dimming, 1, 2, 3, 4);
    QCOMPARE(other->parentWidget(), &covered);
    QVERIFY(!other->isWindow());
}

void VelaMaskTest::aNullContentYieldsNullAndNoMask()
{
    QFETCH(Factory, create);
    LogCapture log;
    QWidget covered;
    QVERIFY(!create(nullptr, &covered));
    QVERIFY(!create(nullptr, nullptr));
    QVERIFY(covered.children().isEmpty());
    QCOMPARE(log.takeTexts(), QStringList());
}

void VelaMaskTest::aNullParentStandsForTheContentsParent()
{
    QFETCH(Factory, create);
    QWidget window;
    QWidget covered(&window);
    auto *content = new QWidget(&covered);
    QCOMPARE(create(content, nullptr), content);
    const auto *mask = covered.findChild<VelaMask *>(QString(), Qt::FindDirectChildrenOnly);
    QVERIFY(mask);
    QCOMPARE(content->parentWidget(), mask);
}

void VelaMaskTest::noParentAtAllYieldsNull()
{
    QFETCH(Factory, create);
    LogCapture log;
    const QWidgetList before = QApplication::allWidgets();
    {
        QWidget content;
        QVERIFY(!create(&content, nullptr));
        QVERIFY(!content.parentWidget());
        QCOMPARE(QApplication::allWidgets().count(), before.count() + 1);
    }
    QCOMPARE(QApplication::allWidgets().count(), before.count());
    QCOMPARE(log.takeTexts(), QStringList());
}

void VelaMaskTest::theContentIsReturnedAndNotTheMask()
{
    QFETCH(Factory, create);
    CoveredWindow window;
    QWidget formerParent;
    auto *content = new QWidget(&formerParent);
    QCOMPARE(create(content, &window), content);
    QVERIFY(formerParent.children().isEmpty());
    QVERIFY(window.mask());
    QCOMPARE(content->parentWidget(), window.mask());
}

void VelaMaskTest::theContentIsAloneInAHorizontalLayout()
{
    QWidget covered;
    auto *content = new QWidget;
    const VelaMask mask(content, &covered, Dimming);
    const auto *row = qobject_cast<QHBoxLayout *>(mask.layout());
    QVERIFY(row);
    QCOMPARE(row->count(), 1);
    QCOMPARE(row->itemAt(0)->widget(), content);
    QCOMPARE(row->itemAt(0)->alignment(), Qt::Alignment());
    QCOMPARE(row->stretch(0), 0);
}

void VelaMaskTest::theContentFillsTheMaskWithinItsMargins()
{
    CoveredWindow window;
    auto *content = new QWidget;
    VelaMask::createMaskWithCustomizedMargin(content, &window, Dimming, 20, 30, 40, 50);
    QVERIFY(window.showAndWait());
    content->show();
    const QMargins margins(expectedPixels(20), expectedPixels(30), expectedPixels(40), expectedPixels(50));
    QTRY_COMPARE(content->geometry(), window.rect().marginsRemoved(margins));
    window.resize(WindowSize + QSize(50, 70));
    QTRY_COMPARE(content->geometry(), window.rect().marginsRemoved(margins));
    QCOMPARE(window.size(), WindowSize + QSize(50, 70));
}

void VelaMaskTest::marginsAreTheStylesUnlessGiven()
{
    QWidget covered;
    const VelaMask mask(new QWidget, &covered, Dimming);
    const auto metric = [&mask](QStyle::PixelMetric which) { return mask.style()->pixelMetric(which, nullptr, &mask); };
    const QMargins margins = mask.layout()->contentsMargins();
    QCOMPARE(margins,
             QMargins(metric(QStyle::PM_LayoutLeftMargin), metric(QStyle::PM_LayoutTopMargin),
                      metric(QStyle::PM_LayoutRightMargin), metric(QStyle::PM_LayoutBottomMargin)));
    QVERIFY(!margins.isNull());
    const VelaMask flush(new QWidget, &covered, Dimming, 0, 0, 0, 0);
    QVERIFY(flush.layout()->contentsMargins().isNull()); // zero is a margin like any other
}

void VelaMaskTest::givenMarginsAreScaledAndTruncated_data()
{
    QTest::addColumn<QMargins>("logical");
    QTest::newRow("all different") << QMargins(5, 6, 7, 8);
    QTest::newRow("odd") << QMargins(1, 3, 9, 11);
    QTest::newRow("large") << QMargins(101, 33, 57, 99);
}

void VelaMaskTest::givenMarginsAreScaledAndTruncated()
{
    QFETCH(QMargins, logical);
    QWidget covered;
    auto *content = new QWidget(&covered);
    VelaMask::createMaskWithCustomizedMargin(content, nullptr, Dimming, logical.left(), logical.top(), logical.right(),
                                             logical.bottom());
    QCOMPARE(covered.findChild<VelaMask *>()->layout()->contentsMargins(),
             QMargins(expectedPixels(logical.left()), expectedPixels(logical.top()), expectedPixels(logical.right()),
                      expectedPixels(logical.bottom())));
}

void VelaMaskTest::allColorGroupsHaveTheColor()
{
    QWidget covered;
    QPalette palette;
    palette.setColor(QPalette::WindowText, Qt::red);
    covered.setPalette(palette);
    const VelaMask mask(new QWidget, &covered, QColor(1, 2, 3, 4));
    QVERIFY(mask.autoFillBackground());
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        QCOMPARE(mask.palette().color(group, QPalette::Window), QColor(1, 2, 3, 4));
        QCOMPARE(mask.palette().color(group, QPalette::WindowText), QColor(Qt::red)); // the other colours stay
    }
}

void VelaMaskTest::theColorIsDrawnOverTheWholeWindow_data()
{
    QTest::addColumn<QColor>("color");
    QTest::newRow("slight black") << Dimming;
    QTest::newRow("slight white") << QColor(255, 255, 255, 20);
    QTest::newRow("half blue") << QColor(0, 0, 255, 128);
    QTest::newRow("opaque") << QColor(10, 20, 30);
    QTest::newRow("transparent") << QColor(0, 0, 0, 0);
}

void VelaMaskTest::theColorIsDrawnOverTheWholeWindow()
{
    QFETCH(QColor, color);
    CoveredWindow window;
    QWidget patch(&window);
    patch.setPalette(QPalette(QColor(200, 100, 50)));
    patch.setAutoFillBackground(true);
    patch.setGeometry(200, 10, 40, 40);
    auto *content = new Panel(&window);
    VelaMask::createMask(content, &window, color);
    content->hide();
    QVERIFY(window.showAndWait());
    window.mask()->hide();
    const QPoint onPatch = patch.geometry().center();
    const QPoint places[] = {window.rect().topLeft(), window.rect().topRight(), window.rect().bottomLeft(),
                             window.rect().bottomRight(), onPatch};
    for (const QPoint &place : places) {
        QCOMPARE(paintedColor(&window, place), place == onPatch ? QColor(200, 100, 50) : QColor(Qt::white));
    }
    content->show();
    for (const QPoint &place : places) {
        const QColor expected = drawnOver(color, place == onPatch ? QColor(200, 100, 50) : QColor(Qt::white));
        const QColor painted = paintedColor(&window, place);
        QVERIFY2(areAlike(painted, expected), qPrintable(painted.name() + QLatin1Char(' ') + expected.name()));
    }
}

void VelaMaskTest::theContentIsNotDimmed()
{
    CoveredWindow window;
    auto *content = new Panel;
    VelaMask::createMask(content, &window, QColor(0, 0, 0, 128));
    QVERIFY(window.showAndWait());
    content->show();
    QCoreApplication::sendPostedEvents(); // what the layout has posted
    QCOMPARE(paintedColor(&window, content->mapTo(&window, content->rect().center())), QColor(Qt::yellow));
}

void VelaMaskTest::aNewMaskIsNotShown()
{
    Shown<CoveredWindow> window;
    Panel *content = window.cover();
    QVERIFY(window.mask()->isHidden());
    QCoreApplication::processEvents();
    QVERIFY(window.mask()->isHidden());
    QVERIFY(!content->isVisible());
}

void VelaMaskTest::showingAndHidingTheContentShowsAndHidesTheMask()
{
    Shown<CoveredWindow> window;
    Panel *content = window.cover();
    for (int i = 0; i < 3; ++i) {
        content->show();
        QVERIFY(window.mask()->isVisible());
        QVERIFY(content->isVisible());
        content->hide();
        QVERIFY(window.mask()->isHidden());
        QVERIFY(!content->isVisible());
    }
}

void VelaMaskTest::theMaskOfAHiddenWindowIsShownWithIt()
{
    CoveredWindow window;
    Panel *content = window.cover();
    content->show();
    QVERIFY(!window.mask()->isVisible());
    QVERIFY(window.showAndWait());
    QVERIFY(window.mask()->isVisible());
    QVERIFY(content->isVisible());
    window.hide();
    window.show();
    QVERIFY(window.mask()->isVisible()); // hiding the window did not count as hiding the content
    QVERIFY(content->isVisible());
}

void VelaMaskTest::onlyItsContentShowsAndHidesAMask()
{
    Shown<CoveredWindow> window;
    auto *content = new Panel;
    auto *child = new QWidget(content);
    VelaMask::createMask(content, &window, Dimming);
    VelaMask *mask = window.mask();

    QEvent shown(QEvent::ShowToParent);
    QEvent hidden(QEvent::HideToParent);
    mask->eventFilter(child, &shown);
    mask->eventFilter(&window, &shown);
    mask->eventFilter(mask, &shown);
    QVERIFY(mask->isHidden());
    mask->eventFilter(content, &shown);
    QVERIFY(!mask->isHidden());
    mask->eventFilter(child, &hidden);
    mask->eventFilter(&window, &hidden);
    QVERIFY(!mask->isHidden());
    mask->eventFilter(content, &hidden);
    QVERIFY(mask->isHidden());

    content->hide();
    content->show();
    child->hide();
    window.button->hide();
    QVERIFY(mask->isVisible());
}

void VelaMaskTest::itsEventFilterConsumesNothing_data()
{
    QTest::addColumn<QEvent::Type>("type");
    QTest::newRow("shown") << QEvent::ShowToParent;
    QTest::newRow("hidden") << QEvent::HideToParent;
    QTest::newRow("resized") << QEvent::Resize;
    QTest::newRow("closed") << QEvent::Close;
    QTest::newRow("pressed") << QEvent::MouseButtonPress;
    QTest::newRow("key") << QEvent::KeyPress;
}

void VelaMaskTest::itsEventFilterConsumesNothing()
{
    QFETCH(QEvent::Type, type);
    CoveredWindow window;
    auto *content = new QWidget;
    VelaMask::createMask(content, &window, Dimming);
    auto *filter = window.findChild<ParentEventFilterWidget *>();
    QEvent event(type);
    for (QObject *watched : std::initializer_list<QObject *> {content, &window, this}) {
        QVERIFY(!window.mask()->eventFilter(watched, &event));
        QVERIFY(!filter->eventFilter(watched, &event));
    }
}

void VelaMaskTest::theMaskIsAsLargeAsTheWindow()
{
    CoveredWindow window;
    const VelaMask mask(new QWidget, &window, Dimming);
    QCOMPARE(mask.minimumSize(), WindowSize);
    QCOMPARE(mask.maximumSize(), WindowSize);
    QCOMPARE(mask.geometry(), QRect(QPoint(0, 0), WindowSize));

    QWidget covered(&window);
    covered.setGeometry(30, 40, 100, 50);
    const VelaMask inner(new QWidget, &covered, Dimming);
    QCOMPARE(inner.geometry(), QRect(QPoint(0, 0), WindowSize));
}

void VelaMaskTest::theMaskFollowsTheWindowsSize()
{
    Shown<CoveredWindow> window;
    Panel *content = window.cover();
    for (const bool isShown : {true, false}) {
        content->setVisible(isShown);
        for (const QSize &size : {QSize(500, 400), QSize(200, 160), WindowSize}) {
            window.resize(size);
            QTRY_COMPARE(window.size(), size);
            QTRY_COMPARE(window.mask()->size(), size);
            QCOMPARE(window.mask()->maximumSize(), size);
            QCOMPARE(window.mask()->pos(), QPoint(0, 0));
        }
    }
}

void VelaMaskTest::resizingTheCoveredWidgetGivesTheWindowsSize()
{
    CoveredWindow window;
    QWidget covered(&window);
    covered.setGeometry(30, 40, 100, 50);
    auto *content = new Panel;
    VelaMask::createMask(content, &covered, Dimming);
    QVERIFY(window.showAndWait());
    content->show();
    VelaMask *mask = window.mask();
    mask->setFixedSize(1, 1);
    covered.resize(120, 60);
    QCOMPARE(mask->size(), WindowSize);
    QCOMPARE(mask->pos(), QPoint(0, 0)); // a place in the covered widget
}

void VelaMaskTest::onlyTheCoveredWidgetIsWatched()
{
    CoveredWindow window;
    QWidget covered(&window);
    covered.setGeometry(30, 40, 100, 50);
    auto *content = new Panel;
    VelaMask::createMask(content, &covered, Dimming);
    QVERIFY(window.showAndWait());
    content->show();
    const QSize larger = WindowSize + QSize(60, 40);
    window.resize(larger);
    QTRY_COMPARE(window.size(), larger);
    window.button->resize(33, 22);
    QCOMPARE(window.mask()->size(), WindowSize);
    covered.resize(99, 49);
    QCOMPARE(window.mask()->size(), larger);
}

void VelaMaskTest::theMaskIsNeverMoved()
{
    Shown<CoveredWindow> window;
    Panel *content = window.cover();
    content->show();
    window.mask()->move(7, 8);
    window.resize(WindowSize + QSize(10, 10));
    QTRY_COMPARE(window.mask()->size(), WindowSize + QSize(10, 10));
    content->hide();
    content->show();
    QCOMPARE(window.mask()->pos(), QPoint(7, 8));
}

void VelaMaskTest::resizeFixesTheWindowsSize()
{
    CoveredWindow window;
    VelaMask mask(new QWidget, &window, Dimming);
    mask.setFixedSize(3, 4);
    mask.resize();
    QCOMPARE(mask.size(), WindowSize);
    QCOMPARE(mask.minimumSize(), WindowSize);
    QCOMPARE(mask.maximumSize(), WindowSize);
}

void VelaMaskTest::theParentsFilterBelongsToTheMask()
{
    CoveredWindow window;
    VelaMask::createMask(new QWidget, &window, Dimming);
    QCOMPARE(window.mask()->findChildren<ParentEventFilterWidget *>(QString(), Qt::FindDirectChildrenOnly).count(), 1);
    const ParentEventFilterWidget loose(window.mask(), &window);
    QVERIFY(!loose.parent());
}

void VelaMaskTest::theParentsFilterLooksAtResizesOfTheParentAlone()
{
    CoveredWindow window;
    VelaMask mask(new QWidget, &window, Dimming);
    ParentEventFilterWidget filter(&mask, &window);
    QResizeEvent resized(WindowSize, WindowSize);
    QEvent moved(QEvent::Move);
    mask.setFixedSize(1, 1);
    QVERIFY(!filter.eventFilter(window.button, &resized));
    QVERIFY(!filter.eventFilter(&mask, &resized));
    QVERIFY(!filter.eventFilter(&window, &moved));
    QCOMPARE(mask.size(), QSize(1, 1));
    QVERIFY(!filter.eventFilter(&window, &resized));
    QCOMPARE(mask.size(), WindowSize);
}

void VelaMaskTest::clicksLandOnTheMask()
{
    Shown<CoveredWindow> window;
    window.cover()->show();
    const QSignalSpy clicked(window.button, &QPushButton::clicked);
    EventCounter onMask(window.mask(), QEvent::MouseButtonPress);
    window.click(ButtonPlace.center());
    QCOMPARE(clicked.count(), 0);
    QCOMPARE(onMask.take(), 1);
    for (const QPoint &corner :
         {window.rect().topLeft(), window.rect().topRight(), window.rect().bottomLeft(), window.rect().bottomRight()}) {
        QCOMPARE(window.childAt(corner), window.mask());
    }
}

void VelaMaskTest::theMaskPassesClicksOnToTheCoveredWidget()
{
    Shown<CoveredWindow> window;
    window.cover()->show();
    EventCounter onWindow(&window, QEvent::MouseButtonPress);
    window.click(ButtonPlace.center());
    QCOMPARE(onWindow.take(), 1); // a widget that handles no input does the same
}

void VelaMaskTest::aHiddenMaskKeepsNoClicks()
{
    Shown<CoveredWindow> window;
    Panel *content = window.cover();
    content->show();
    content->hide();
    const QSignalSpy clicked(window.button, &QPushButton::clicked);
    window.click(ButtonPlace.center());
    QCOMPARE(clicked.count(), 1);
}

void VelaMaskTest::keysReachTheFocusedWidgetBeneath()
{
    Shown<CoveredWindow> window;
    window.cover()->show();
    window.click(ButtonPlace.center());
    QTest::keyClick(window.windowHandle(), Qt::Key_A);
    QCOMPARE(window.field->text(), QStringLiteral("a"));
    QVERIFY(window.field->hasFocus());
    QCOMPARE(window.mask()->focusPolicy(), Qt::NoFocus);
}

void VelaMaskTest::theContentIsDeletedWithTheMask()
{
    QWidget covered;
    QPointer<QWidget> content(new QWidget);
    auto mask = std::make_unique<VelaMask>(content, &covered, Dimming);
    const QPointer<ParentEventFilterWidget> filter(mask->findChild<ParentEventFilterWidget *>());
    QVERIFY(filter);
    mask.reset();
    QVERIFY(!content);
    QVERIFY(!filter);
    covered.resize(50, 60); // nobody is left who would follow
    QVERIFY(covered.children().isEmpty());
}

void VelaMaskTest::aMaskOutlivesItsContentHiddenAndEmpty()
{
    Shown<CoveredWindow> window;
    for (const bool isHiddenBefore : {true, false}) {
        QPointer<VelaMask> mask;
        {
            Panel content;
            VelaMask::createMask(&content, &window, Dimming);
            mask = qobject_cast<VelaMask *>(content.parentWidget());
            content.show();
            QVERIFY(mask->isVisible());
            content.setVisible(!isHiddenBefore);
        }
        QVERIFY(mask);
        QVERIFY(mask->isHidden());
        QCOMPARE(mask->layout()->count(), 0);
        QVERIFY(mask->findChildren<QWidget *>().isEmpty());
    }
    window.resize(WindowSize + QSize(1, 2));
    QTRY_COMPARE(window.size(), WindowSize + QSize(1, 2));
    QVERIFY(window.mask()->isHidden());
}

// A sheet that is put into a new mask for each answer, in one window or another, does this.
void VelaMaskTest::contentInANewMaskLeavesTheFormerOneAlone()
{
    CoveredWindow window;
    CoveredWindow other;
    QVERIFY(window.showAndWait());
    Panel content;
    VelaMask::createMask(&content, &window, Dimming);
    content.show();
    QVERIFY(window.mask()->isVisible());

    VelaMask::createMask(&content, &window, Dimming);
    content.show();
    QVERIFY(window.mask()->isHidden());
    QVERIFY(content.parentWidget()->isVisible());

    VelaMask::createMask(&content, &other, Dimming);
    content.show();
    QCOMPARE(window.childAt(ButtonPlace.center()), window.button);
    content.hide();
    VelaMask::createMask(&content, &window, Dimming);
    content.show();
    QVERIFY(other.mask()->isHidden());
}

void VelaMaskTest::contentThatComesBackHasItsMaskAgain()
{
    Shown<CoveredWindow> window;
    Panel *content = window.cover();
    content->show();
    content->setParent(nullptr);
    content->show();
    QVERIFY(window.mask()->isHidden());
    content->hide();
    window.resize(WindowSize + QSize(2, 1));
    QTRY_COMPARE(window.size(), WindowSize + QSize(2, 1));

    content->setParent(window.mask());
    QVERIFY(window.mask()->isHidden());
    content->show();
    QVERIFY(window.mask()->isVisible());
    QCOMPARE(window.mask()->size(), window.size());
    content->hide();
    QVERIFY(window.mask()->isHidden());
}

void VelaMaskTest::anEmptyMaskWatchesNothing_data()
{
    QTest::addColumn<bool>("isContentDeleted"); // whether the content is deleted, or else moves to another window
    QTest::newRow("content deleted") << true;
    QTest::newRow("content in another window") << false;
}

// Thousands of them may be in a window, which would ask each at every event.
void VelaMaskTest::anEmptyMaskWatchesNothing()
{
    QFETCH(bool, isContentDeleted);
    CoveredWindow window;
    CoveredWindow other;
    QVERIFY(window.showAndWait());
    Panel *content = window.cover();
    content->show();
    VelaMask *mask = window.mask();
    if (isContentDeleted) {
        delete content;
    } else {
        VelaMask::createMask(content, &other, Dimming);
    }
    mask->setFixedSize(1, 1);
    QResizeEvent resized(WindowSize, WindowSize);
    QCoreApplication::sendEvent(&window, &resized);
    QCOMPARE(mask->size(), QSize(1, 1));
}

void VelaMaskTest::everyCallLeavesOneMoreMask()
{
    Shown<CoveredWindow> window;
    for (int calls = 1; calls <= 3; ++calls) {
        {
            Panel content;
            VelaMask::createMask(&content, &window, Dimming);
            content.show();
        }
        const auto masks = window.findChildren<VelaMask *>();
        QCOMPARE(masks.count(), calls);
        QCOMPARE(std::count_if(masks.begin(), masks.end(), [](const VelaMask *mask) { return mask->isHidden(); }),
                 calls);
    }
}

void VelaMaskTest::masksAreDeletedWithTheWindow()
{
    QPointer<VelaMask> mask;
    QPointer<QWidget> content(new QWidget);
    {
        CoveredWindow window;
        VelaMask::createMask(content, &window, Dimming);
        mask = window.mask();
        QVERIFY(mask);
    }
    QVERIFY(!mask);
    QVERIFY(!content);
}

void VelaMaskTest::aMaskMayBeDeletedWhileItIsShown_data()
{
    QTest::addColumn<bool>("isContentFirst");
    QTest::newRow("content after the rest") << false;
    QTest::newRow("content before the rest") << true;
}

void VelaMaskTest::aMaskMayBeDeletedWhileItIsShown()
{
    QFETCH(bool, isContentFirst);
    Shown<CoveredWindow> window;
    Panel *content = window.cover();
    content->show();
    if (isContentFirst) {
        content->lower(); // children are deleted in their stacking order
    }
    const QSignalSpy destroyed(content, &QObject::destroyed);
    delete window.mask();
    QCOMPARE(destroyed.count(), 1);
    QVERIFY(!window.mask());
    QCOMPARE(window.childAt(ButtonPlace.center()), window.button);
}

QTEST_MAIN(VelaMaskTest)
#include "tst_vela_mask.moc"
