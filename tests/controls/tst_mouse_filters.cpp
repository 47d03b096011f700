// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/mouse-filters.h"
#include "support/controls.h"

#include <QApplication>
#include <QPushButton>
#include <QWheelEvent>
#include <QtTest>

#include <memory>

namespace {

const QSet<int> Releases {QEvent::MouseButtonRelease};
const QSet<int> Buttons {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick};

// A widget that takes the focus, in a window, under a filter.
class FilteredWindow : public ControlWindow
{
public:
    explicit FilteredWindow(QWidget *filtered, QObject *filter) : ControlWindow(filtered)
    {
        control->setFocusPolicy(Qt::StrongFocus);
        control->setMouseTracking(true);
        control->setFixedSize(100, 40);
        control->installEventFilter(filter);
    }

    void wheel()
    {
        const QPoint position = control->geometry().center();
        QWheelEvent event(position, mapToGlobal(position), QPoint(), QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&event);
        QApplication::instance()->notify(windowHandle(), &event);
    }
};

// The types of the events that a widget handles itself.
class Recorder : public QWidget
{
public:
    bool took(QEvent::Type type) const { return m_types.contains(type); }

protected:
    bool event(QEvent *event) override
    {
        m_types.insert(event->type());
        return QWidget::event(event);
    }

private:
    QSet<int> m_types;
};

void addFilters()
{
    QTest::addColumn<bool>("isForReleases");
    QTest::newRow("buttons") << false;
    QTest::newRow("releases") << true;
}

std::unique_ptr<QObject> createFilter(bool isForReleases)
{
    return isForReleases ? std::unique_ptr<QObject>(new MouseReleaseFilter) : std::make_unique<MouseButtonFilter>();
}

} // namespace

class MouseFiltersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theFiltersHaveNoParentAndDeclareNothing();
    void filtersConsumeTheirEventsAlone_data() { addFilters(); }
    void filtersConsumeTheirEventsAlone();
    void filtersLetTheRestReachAWidget_data() { addFilters(); }
    void filtersLetTheRestReachAWidget();
    void aButtonUnderAReleaseFilterIsPressedForGood();
    void aButtonUnderAButtonFilterIsLeftAlone();
};

void MouseFiltersTest::theFiltersHaveNoParentAndDeclareNothing()
{
    QVERIFY(!MouseButtonFilter().parent());
    QVERIFY(!MouseReleaseFilter().parent());
    QCOMPARE(ownDeclarations(MouseButtonFilter::staticMetaObject), QStringList());
    QCOMPARE(ownDeclarations(MouseReleaseFilter::staticMetaObject), QStringList());
}

void MouseFiltersTest::filtersConsumeTheirEventsAlone()
{
    QFETCH(bool, isForReleases);
    const std::unique_ptr<QObject> filter = createFilter(isForReleases);
    const QSet<int> consumed = isForReleases ? Releases : Buttons;
    QObject watched;
    for (int type = QEvent::None; type < QEvent::User + 2; ++type) {
        QEvent event(static_cast<QEvent::Type>(type));
        QVERIFY2(filter->eventFilter(&watched, &event) == consumed.contains(type), qPrintable(QString::number(type)));
    }
}

void MouseFiltersTest::filtersLetTheRestReachAWidget()
{
    QFETCH(bool, isForReleases);
    const std::unique_ptr<QObject> filter = createFilter(isForReleases);
    auto *recorder = new Recorder;
    Shown<FilteredWindow> window(recorder, filter.get());
    recorder->setFocus();
    window.enter();
    window.click();
    QTest::mouseDClick(window.windowHandle(), Qt::LeftButton, {}, recorder->geometry().center());
    QTest::mouseMove(window.windowHandle(), recorder->geometry().center() + QPoint(3, 3));
    window.wheel();
    window.key(Qt::Key_A);
    for (const QEvent::Type type : {QEvent::Enter, QEvent::MouseMove, QEvent::Wheel, QEvent::KeyPress,
                                    QEvent::KeyRelease, QEvent::FocusIn, QEvent::Paint}) {
        QVERIFY2(recorder->took(type), qPrintable(QString::number(type)));
    }
    QVERIFY(!recorder->took(QEvent::MouseButtonRelease));
    QCOMPARE(recorder->took(QEvent::MouseButtonPress), isForReleases);
    QCOMPARE(recorder->took(QEvent::MouseButtonDblClick), isForReleases);
}

void MouseFiltersTest::aButtonUnderAReleaseFilterIsPressedForGood()
{
    MouseReleaseFilter filter;
    auto *button = new QPushButton;
    Shown<FilteredWindow> window(button, &filter);
    const QSignalSpy pressed(button, &QAbstractButton::pressed);
    const QSignalSpy clicked(button, &QAbstractButton::clicked);
    window.click();
    QCOMPARE(pressed.count(), 1);
    QCOMPARE(clicked.count(), 0);
    QVERIFY(button->isDown());
    button->removeEventFilter(&filter);
    window.click();
    QCOMPARE(clicked.count(), 1);
}

void MouseFiltersTest::aButtonUnderAButtonFilterIsLeftAlone()
{
    MouseButtonFilter filter;
    auto *button = new QPushButton;
    Shown<FilteredWindow> window(button, &filter);
    const QSignalSpy pressed(button, &QAbstractButton::pressed);
    const QSignalSpy clicked(button, &QAbstractButton::clicked);
    window.click();
    QCOMPARE(pressed.count(), 0);
    button->setFocus();
    window.key(Qt::Key_Space); // keys are no mouse buttons
    QCOMPARE(clicked.count(), 1);
}

QTEST_MAIN(MouseFiltersTest)
#include "tst_mouse_filters.moc"
