// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "gallery-page.h"
#include "gallery-window.h"
#include "pages.h"
#include "support/environment.h"
#include "support/theme-copy.h"

#include <VelaButtonPath>
#include <VelaCalanderView>
#include <VelaCountdownMessageBox>
#include <VelaMessageSheet>
#include <VelaTheme>

#include <QAbstractAnimation>
#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QMovie>
#include <QPointer>
#include <QScopedPointer>
#include <QTimer>
#include <QtTest>

#include <algorithm>

namespace {

constexpr int MostStops = 200; // of a window, far more than there are
constexpr int LayoutPasses = 10;

// What had the focus. It may be gone when the focus is elsewhere.
struct Stop
{
    QString name;
    QRect place; // in the page, null outside of it
    QPointer<QWidget> widget;
    bool isSeen = false; // whether it looks different without the focus
};

Stop stopAt(QWidget *widget, const GalleryPage *page)
{
    const QString name = QStringLiteral("%1 %2 \"%3\"")
                             .arg(QString::fromLatin1(widget->metaObject()->className()), widget->objectName(),
                                  widget->property("text").toString());
    const bool isOnPage = page->isAncestorOf(widget);
    return {name, isOnPage ? QRect(widget->mapTo(page, QPoint()), widget->size()) : QRect(), widget};
}

QStringList namesOf(const QVector<Stop> &stops)
{
    QStringList names;
    for (const Stop &stop : stops) {
        names.append(stop.name);
    }
    return names;
}

// Whether other is read behind one: further down, in the same row further to the right, or within it.
bool isReadBehind(const QRect &one, const QRect &other)
{
    return other.top() > one.bottom() || (other.left() > one.left() && other.bottom() >= one.top())
        || one.contains(other);
}

const QWidget *barOf(const QWidget *widget)
{
    while (widget && !qobject_cast<const VelaCalanderView *>(widget) && !qobject_cast<const VelaButtonPath *>(widget)) {
        widget = widget->parentWidget();
    }
    return widget;
}

// A calendar has an order of its own: both arrows come before what is between them. A path scrolls.
bool isInOrder(const Stop &one, const Stop &other)
{
    const QWidget *bar = one.widget ? barOf(one.widget) : nullptr;
    const bool isInOneBar = bar && other.widget && barOf(other.widget) == bar;
    return isInOneBar || one.place.isNull() || other.place.isNull() || isReadBehind(one.place, other.place);
}

} // namespace

// What one reaches who has no mouse.
class GalleryKeysTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void tabVisitsWhatIsOnAPageAndComesBack_data();
    void tabVisitsWhatIsOnAPageAndComesBack();
    void nothingMovesButASheetThatIsProcessing_data() { tabVisitsWhatIsOnAPageAndComesBack_data(); }
    void nothingMovesButASheetThatIsProcessing();
    void accessKeysAreShownAndWork_data() { tabVisitsWhatIsOnAPageAndComesBack_data(); }
    void accessKeysAreShownAndWork();

private:
    QVector<QWidget *> widgetsWithAccessKeys() const;
    bool showsItsAccessKey(QWidget *widget) const;
    QVector<Stop> roundTrip(Qt::Key key);

    const OwnDataFolder m_dataFolder;
    QScopedPointer<GalleryWindow> m_window;
};

void GalleryKeysTest::initTestCase()
{
    QApplication::setCursorFlashTime(0); // or the pictures of fields would differ by themselves
    VelaTheme::getInstance()->load(referenceTheme(QStringLiteral("light")), QStringLiteral("enu"));
    m_window.reset(new GalleryWindow({}));
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.data()));
}

void GalleryKeysTest::cleanupTestCase()
{
    m_window.reset();
}

// The stops between the list of pages and the list of pages.
QVector<Stop> GalleryKeysTest::roundTrip(Qt::Key key)
{
    auto *list = m_window->findChild<QWidget *>(QStringLiteral("pageList"));
    list->setFocus(Qt::TabFocusReason);
    QVector<Stop> stops;
    QImage focused;
    const auto picture = [this](const Stop &stop) { return m_window->currentPage()->grab(stop.place).toImage(); };
    while (stops.size() < MostStops) {
        QTest::keyClick(m_window->windowHandle(), key, key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
        if (!stops.isEmpty() && stops.constLast().widget) {
            stops.last().isSeen = picture(stops.constLast()) != focused;
        }
        QWidget *widget = QApplication::focusWidget();
        if (!widget || widget == list) {
            break;
        }
        stops.append(stopAt(widget, m_window->currentPage()));
        focused = picture(stops.constLast());
    }
    return stops;
}

void GalleryKeysTest::tabVisitsWhatIsOnAPageAndComesBack_data()
{
    QTest::addColumn<QString>("name");
    for (const PageEntry &page : galleryPages()) {
        QTest::newRow(qPrintable(page.name)) << page.name;
    }
}

void GalleryKeysTest::tabVisitsWhatIsOnAPageAndComesBack()
{
    QFETCH(QString, name);
    m_window->showPage(name);
    for (int pass = 0; pass < LayoutPasses; ++pass) {
        QCoreApplication::processEvents();
    }
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.data()));
    const QVector<Stop> stops = roundTrip(Qt::Key_Tab);
    QVERIFY2(stops.size() < MostStops, qPrintable(stops.constLast().name)); // or Tab is trapped
    QVERIFY(std::any_of(stops.begin(), stops.end(), [](const Stop &stop) { return !stop.place.isNull(); }));
    for (int i = 1; i < stops.size(); ++i) {
        QVERIFY2(isInOrder(stops.at(i - 1), stops.at(i)), qPrintable(stops.at(i - 1).name + u' ' + stops.at(i).name));
    }
    for (const Stop &stop : stops) {
        const bool isStyled = stop.name != QLatin1String("VelaButton  \"Plain\"");
        const bool isToBeSeen = isStyled && stop.widget && !stop.place.isNull();
        QVERIFY2(stop.isSeen || !isToBeSeen, qPrintable(stop.name));
    }
    QStringList back = namesOf(roundTrip(Qt::Key_Backtab));
    std::reverse(back.begin(), back.end());
    QCOMPARE(back, namesOf(stops));
}

void GalleryKeysTest::nothingMovesButASheetThatIsProcessing()
{
    QFETCH(QString, name);
    m_window->showPage(name);
    for (int pass = 0; pass < LayoutPasses; ++pass) {
        QCoreApplication::processEvents();
    }
    const auto labels = m_window->currentPage()->findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        const bool isMoving = label->movie() && label->movie()->state() == QMovie::Running;
        QVERIFY(!isMoving || qobject_cast<VelaMessageSheet *>(label->parentWidget()));
    }
    const auto animations = m_window->findChildren<QAbstractAnimation *>();
    QVERIFY(std::none_of(animations.begin(), animations.end(), [](const QAbstractAnimation *animation) {
        return animation->state() == QAbstractAnimation::Running && animation->loopCount() < 0;
    }));
    const auto timers = m_window->findChildren<QTimer *>();
    for (const QTimer *timer : timers) {
        const bool isRepeating = timer->isActive() && !timer->isSingleShot();
        QVERIFY(!isRepeating || qobject_cast<VelaCountdownMessageBox *>(timer->parent()));
    }
}

// Buttons, and labels that lead to a widget. Those that only show a state take no keys.
QVector<QWidget *> GalleryKeysTest::widgetsWithAccessKeys() const
{
    QVector<QWidget *> found;
    const auto widgets = m_window->findChildren<QWidget *>();
    for (QWidget *widget : widgets) {
        const auto *label = qobject_cast<const QLabel *>(widget);
        const bool takesKeys = label
            ? label->buddy() != nullptr
            : qobject_cast<const QAbstractButton *>(widget) && widget->focusPolicy() != Qt::NoFocus;
        const QString text = widget->property("text").toString();
        if (takesKeys && widget->isVisible() && widget->isEnabled() && !QKeySequence::mnemonic(text).isEmpty()) {
            found.append(widget);
        }
    }
    return found;
}

// It is the underline that the picture of the same text without the key has not.
bool GalleryKeysTest::showsItsAccessKey(QWidget *widget) const
{
    const QString text = widget->property("text").toString();
    const QImage picture = widget->grab().toImage();
    widget->setProperty("text", QString(text).remove(u'&'));
    const QImage without = widget->grab().toImage();
    widget->setProperty("text", text);
    return picture.size() == without.size() && picture != without;
}

void GalleryKeysTest::accessKeysAreShownAndWork()
{
    QFETCH(QString, name);
    m_window->showPage(name);
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.data()));
    const QVector<QWidget *> widgets = widgetsWithAccessKeys();
    QStringList keys;
    for (QWidget *widget : widgets) {
        const QKeySequence sequence = QKeySequence::mnemonic(widget->property("text").toString());
        keys.append(sequence.toString(QKeySequence::PortableText));
        QVERIFY2(showsItsAccessKey(widget), qPrintable(keys.constLast()));

        m_window->findChild<QWidget *>(QStringLiteral("pageList"))->setFocus();
        const auto *label = qobject_cast<const QLabel *>(widget);
        const QScopedPointer<QSignalSpy> clicks(label ? nullptr : new QSignalSpy(widget, SIGNAL(clicked(bool))));
        QTest::keyClick(m_window->windowHandle(), static_cast<Qt::Key>(sequence[0] & ~Qt::ALT), Qt::AltModifier);
        QTRY_VERIFY2(label ? label->buddy()->hasFocus() : clicks->size() == 1, qPrintable(keys.constLast()));
    }
    QApplication::setLayoutDirection(Qt::LeftToRight); // which one of the keys has changed
    keys.sort();
    // Those of the bar at the side are on every page, and one page has a key of its own.
    QStringList expected {QStringLiteral("Alt+C"), QStringLiteral("Alt+L"), QStringLiteral("Alt+R"),
                          QStringLiteral("Alt+T")};
    expected += name == QStringLiteral("buttons") ? QStringList(QStringLiteral("Alt+S")) : QStringList();
    expected.sort();
    QCOMPARE(keys, expected);
}

QTEST_MAIN(GalleryKeysTest)
#include "tst_gallery_keys.moc"
