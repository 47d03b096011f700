#include "support/resource-folder.h"
#include "widget-states.h"

#include <VelaButton>

#include <QAbstractButton>
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

/// What is seen of @p widget on the ground of its window.
QImage picture(const QWidget *widget)
{
    QCoreApplication::processEvents();
    return widget->window()->grab(widget->geometry()).toImage();
}

void movePointer(QWindow *window, const QWidget *widget)
{
    QTest::mouseMove(window, Outside + QPoint(1, 1)); // a move to where the pointer was already is none
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
    void aFrozenWidgetStaysSoWhenItIsShownAgain_data();
    void aFrozenWidgetStaysSoWhenItIsShownAgain();
    void aFrozenWidgetHeedsNeitherPointerNorKeyboard();
    void focusIsNotKnownWithoutAStyleSheet();
    void eachStateHasAColumn();
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

void WidgetStatesTest::aFrozenWidgetStaysSoWhenItIsShownAgain_data()
{
    aFrozenWidgetLooksLikeOneInThatState_data();
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

void WidgetStatesTest::eachStateHasAColumn()
{
    const QList<QWidget *> widgets = inAllStates([] { return new VelaButton(QStringLiteral("Apply")); });
    QCOMPARE(widgets.size(), stateColumns().size());
    QVERIFY(!widgets.contains(nullptr));
    qDeleteAll(widgets);
}

QTEST_MAIN(WidgetStatesTest)

#include "tst_widget_states.moc"
