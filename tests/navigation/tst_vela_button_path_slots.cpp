// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-button-path.h"
#include "navigation/path-test.h"
#include "support/environment.h"

#include <QAction>
#include <QMenu>
#include <QSignalMapper>
#include <QTimer>
#include <QtTest>

#include <memory>
#include <vector>

namespace {

using Reaction = void (*)(VelaButtonPath *, const QString &);

// A list in step with a bar: has the focus, and refreshes the bar with its own path when a closing menu gives it back.
// (Window managers give and take the focus of windows when they get round to it, a menu being open or not.)
class Follower : public QWidget
{
public:
    explicit Follower(PathWindow *window) : QWidget(window), m_bar(window->bar)
    {
        move(0, m_bar->maximumHeight());
        setFocusPolicy(Qt::StrongFocus);
    }

    bool takeFocus()
    {
        window()->activateWindow();
        if (!QTest::qWaitForWindowActive(window())) {
            return false;
        }
        setFocus();
        m_popupClosings = 0;
        return hasFocus();
    }

    // How many menus have closed since the focus was taken.
    int popupClosings() const { return m_popupClosings; }

protected:
    void focusInEvent(QFocusEvent *event) override
    {
        if (event->reason() == Qt::PopupFocusReason) {
            ++m_popupClosings;
            m_bar->refresh(QString());
            m_bar->refresh(LongPath);
        }
    }

private:
    VelaButtonPath *const m_bar;
    int m_popupClosings = 0;
};

} // namespace

Q_DECLARE_METATYPE(Reaction)

class VelaButtonPathSlotsTest : public PathTest
{
    Q_OBJECT

private Q_SLOTS:
    void aRefreshAsANameLosesTheFocusIsTheLast();
    void anotherMapperOfAnApplicationKeepsItsObjects();
    void aRefreshAsTheMenuClosesLosesNoChoice_data();
    void aRefreshAsTheMenuClosesLosesNoChoice();

    void aSlotMayRefreshAndSoDeleteTheClickedButton_data() { addReactions(); }
    void aSlotMayRefreshAndSoDeleteTheClickedButton();
    void aSlotMayRefreshAndSoDeleteTheChosenAction_data() { addReactions(); }
    void aSlotMayRefreshAndSoDeleteTheChosenAction();
    void aSlotMayClickTheRowThatItMade();
    void aSlotMayHaveTheBarDeletedLater();
    void theBarMayBeDeletedWhenItsSlotIsCalled();

private:
    void addReactions();
    void checkAfterReaction(PathWindow *window, const QPointer<QObject> &source, const QString &path);
};

void VelaButtonPathSlotsTest::aRefreshAsTheMenuClosesLosesNoChoice_data()
{
    QTest::addColumn<bool>("isByKey");
    QTest::newRow("by the mouse") << false;
    QTest::newRow("by the keyboard") << true;
}

void VelaButtonPathSlotsTest::aRefreshAsTheMenuClosesLosesNoChoice()
{
    QFETCH(bool, isByKey);
    PathWindow window(expectedPixels(60));
    Follower follower(&window);
    QVERIFY(window.showAndWait());
    window.refresh(LongPath);
    QVERIFY(follower.takeFocus());
    QTRY_VERIFY(window.menuButton()->isVisible());
    const QStringList menuTexts = window.menuTexts();
    QPointer<QAction> action;
    window.useMenu([&](QMenu *menu) {
        action = menu->actions().at(1);
        if (isByKey) {
            menu->setActiveAction(action);
            QTest::keyClick(menu, Qt::Key_Return);
        } else {
            QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
        }
    });
    QCOMPARE(follower.popupClosings(), 1);
    QCOMPARE(window.chosen.count(), 1);
    QCOMPARE(window.chosen.at(0).at(0).toString(), QStringLiteral("first/second"));
    QTRY_VERIFY(!action);
    QCOMPARE(window.menuTexts(), menuTexts);
    window.clickInMenu(0); // names made meanwhile can be chosen as well
    QCOMPARE(follower.popupClosings(), 2);
    QCOMPARE(window.chosen.count(), 2);
    QCOMPARE(window.chosen.at(1).at(0).toString(), QStringLiteral("first"));
}

// What a client's slot may do to the bar while it hears of a click.
void VelaButtonPathSlotsTest::addReactions()
{
    QTest::addColumn<Reaction>("react");
    QTest::addColumn<QString>("path"); // the path after it
    const struct
    {
        const char *name;
        Reaction react;
        const char *path;
    } reactions[] = {
        {"goes there", [](VelaButtonPath *bar, const QString &chosen) { bar->refresh(chosen); }, "first/second"},
        {"stays", [](VelaButtonPath *bar, const QString &) { bar->refresh(LongPath); }, "first/second/third/fourth"},
        {"goes deeper", [](VelaButtonPath *bar, const QString &chosen) { bar->slotUpdatePath(chosen + LongPath); },
         "first/secondfirst/second/third/fourth"},
        {"goes nowhere", [](VelaButtonPath *bar, const QString &) { bar->refresh(QString()); }, ""},
        {"goes twice",
         [](VelaButtonPath *bar, const QString &chosen) {
             bar->refresh(QString());
             bar->refresh(chosen);
         },
         "first/second"},
        {"goes there while it waits",
         [](VelaButtonPath *bar, const QString &chosen) {
             QEventLoop loop;
             QTimer::singleShot(0, bar, [&] {
                 bar->refresh(chosen);
                 QTimer::singleShot(0, &loop, &QEventLoop::quit);
             });
             loop.exec();
         },
         "first/second"},
        {"goes there and chooses once more",
         [](VelaButtonPath *bar, const QString &chosen) {
             bar->refresh(chosen);
             const QSignalBlocker silence(bar);
             bar->slotPathBarClicked(0);
             bar->refresh(chosen);
         },
         "first/second"},
    };
    for (const auto &reaction : reactions) {
        QTest::newRow(reaction.name) << reaction.react << QString::fromLatin1(reaction.path);
    }
}

// Whether the window is in order after a slot's reaction to a click on source.
void VelaButtonPathSlotsTest::checkAfterReaction(PathWindow *window, const QPointer<QObject> &source,
                                                 const QString &path)
{
    QTRY_VERIFY(!source);
    const QStringList names = namesIn(path);
    QCOMPARE(window->chosen.count(), 1);
    QCOMPARE(window->chosen.at(0).at(0).toString(), QStringLiteral("first/second"));
    QCOMPARE(window->allButtons().size(), qMax(0, 2 * names.size() - 1));
    QCOMPARE(window->bar->getPath(INT_MAX), names.join(QLatin1Char('/')));
    window->chosen.clear();
    window->bar->disconnect(this);
    for (int i = 0; i < names.size(); ++i) {
        window->nameButton(i)->click();
        QCOMPARE(window->chosen.takeFirst().at(0).toString(), names.mid(0, i + 1).join(QLatin1Char('/')));
    }
    QVERIFY(window->chosen.isEmpty());
}

void VelaButtonPathSlotsTest::aSlotMayRefreshAndSoDeleteTheClickedButton()
{
    QFETCH(Reaction, react);
    QFETCH(QString, path);
    for (bool isByKey : {false, true}) {
        Shown<PathWindow> window;
        window.refresh(LongPath);
        const QPointer<QPushButton> button(window.nameButton(1));
        connect(window.bar, &VelaButtonPath::sigUpdatePath, this, [&](const QString &chosen) {
            react(window.bar, chosen);
            QVERIFY(!window.allButtons().contains(button));
        });
        if (isByKey) {
            QTest::keyClick(button, Qt::Key_Space);
        } else {
            window.click(button);
        }
        checkAfterReaction(&window, button.data(), path);
    }
}

void VelaButtonPathSlotsTest::aSlotMayRefreshAndSoDeleteTheChosenAction()
{
    QFETCH(Reaction, react);
    QFETCH(QString, path);
    for (bool isFollowed : {false, true}) { // a followed action is no longer the menu's when it is triggered
        for (bool isByKey : {false, true}) {
            Shown<PathWindow> window(expectedPixels(60));
            window.refresh(LongPath);
            std::unique_ptr<Follower> follower;
            if (isFollowed) {
                follower = std::make_unique<Follower>(&window);
                follower->show();
                QVERIFY(follower->takeFocus());
            }
            const QPointer<QAction> action(window.menuButton()->menu()->actions().at(1));
            const QSignalSpy told(action, &QAction::triggered); // hears of it after the bar
            connect(window.bar, &VelaButtonPath::sigUpdatePath, this, [&](const QString &chosen) {
                react(window.bar, chosen);
                QVERIFY(!window.menuButton()->menu()->actions().contains(action));
            });
            if (isByKey) {
                window.useMenu([&](QMenu *menu) {
                    menu->setActiveAction(action);
                    QTest::keyClick(menu, Qt::Key_Return);
                });
            } else {
                window.clickInMenu(1);
            }
            QCOMPARE(told.count(), 1);
            checkAfterReaction(&window, action.data(), path);
        }
    }
}

void VelaButtonPathSlotsTest::aSlotMayClickTheRowThatItMade()
{
    Shown<PathWindow> window;
    window.bar->refresh(LongPath);
    constexpr int Clicks = 8;
    std::vector<std::unique_ptr<QSignalSpy>> told;
    const auto clickNext = [&] {
        if (told.size() < Clicks) {
            told.push_back(std::make_unique<QSignalSpy>(window.nameButton(1), &QPushButton::clicked));
            window.nameButton(1)->click();
        }
    };
    connect(window.bar, &VelaButtonPath::sigUpdatePath, this, [&] {
        window.bar->refresh(LongPath);
        clickNext();
    });
    clickNext();
    QCOMPARE(window.chosen.count(), Clicks);
    QCOMPARE(told.size(), std::size_t(Clicks));
    for (const std::unique_ptr<QSignalSpy> &spy : told) {
        QCOMPARE(spy->count(), 1);
    }
}

void VelaButtonPathSlotsTest::aSlotMayHaveTheBarDeletedLater()
{
    Shown<PathWindow> window(expectedPixels(60));
    window.refresh(LongPath);
    const QPointer<VelaButtonPath> bar(window.bar);
    connect(window.bar, &VelaButtonPath::sigUpdatePath, this, [&] {
        bar->refresh(QString());
        bar->deleteLater();
    });
    window.nameButton(1)->click();
    QTRY_VERIFY(!bar);
}

void VelaButtonPathSlotsTest::theBarMayBeDeletedWhenItsSlotIsCalled()
{
    auto *bar = new VelaButtonPath;
    bar->refresh(LongPath);
    QString chosen;
    connect(bar, &VelaButtonPath::sigUpdatePath, this, [&](const QString &path) {
        chosen = path;
        delete bar;
    });
    bar->slotPathBarClicked(2);
    QCOMPARE(chosen, QStringLiteral("first/second"));
}

void VelaButtonPathSlotsTest::aRefreshAsANameLosesTheFocusIsTheLast()
{
    Shown<PathWindow> window;
    window.refresh(QStringLiteral("a/b/c"));
    window.nameButton(0)->setFocusPolicy(Qt::StrongFocus);
    window.nameButton(0)->setFocus();
    QCOMPARE(QApplication::focusWidget(), window.nameButton(0));
    QMetaObject::Connection again;
    again = connect(qApp, &QApplication::focusChanged, this, [&] {
        disconnect(again);
        window.bar->refresh(QStringLiteral("d/e"));
    });
    window.refresh(QStringLiteral("f"));
    QCOMPARE(window.buttonTexts(), QStringList {QStringLiteral("f")});
}

void VelaButtonPathSlotsTest::anotherMapperOfAnApplicationKeepsItsObjects()
{
    Shown<PathWindow> window;
    window.refresh(QStringLiteral("a/b"));
    QAction action;
    QSignalMapper mapper;
    mapper.setMapping(&action, 0);
    connect(&action, &QAction::triggered, &mapper, qOverload<>(&QSignalMapper::map));
    connect(&mapper, &QSignalMapper::mappedInt, window.bar, &VelaButtonPath::slotPathBarClicked);
    const QSignalSpy deleted(&action, &QObject::destroyed);
    action.trigger();
    QCOMPARE(window.chosen.count(), 1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(deleted.count(), 0);
}

QTEST_MAIN(VelaButtonPathSlotsTest)
#include "tst_vela_button_path_slots.moc"
