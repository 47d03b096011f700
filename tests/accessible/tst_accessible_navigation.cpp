// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "accessible/accessible.h"
#include "component/paging/vela-paging-bar.h"
#include "component/vela-button-path.h"
#include "component/vela-button.h"
#include "support/log-capture.h"
#include "support/resource-folder.h"
#include "utils/component-strings.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QToolButton>
#include <QtTest>

class AccessibleNavigationTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installReferenceTheme(); }

    void aPagingBarTellsWhichPageIsShown();
    void pagesAreNamedByTheirNumbers();
    void aPagingBarCanHaveAnotherName();
    void whatTheBarIsMadeOfKeepsItsNames();
    void aPathIsAListOfLinks();
    void theLastLinkIsWhereOneIs();
    void aLinkIsPressedThroughTheInterface();
    void namesThatDoNotFitAreBehindAButtonWithAName();
    void aLinkIsFoundUnderThePointer();
    void withoutTextsInTheTableTheyAreEnglishAndNothingIsLogged();
};

void AccessibleNavigationTest::aPagingBarTellsWhichPageIsShown()
{
    VelaPagingModel model(50);
    VelaPagingBar bar(&model);
    bar.setItemCount(4800);
    bar.setPage(3);
    QCOMPARE(number(spoken(&bar)->role()), number(QAccessible::Grouping));
    QCOMPARE(nameOf(&bar), QStringLiteral("Pages"));
    QCOMPARE(descriptionOf(&bar), QStringLiteral("Page 3 of 96"));
    bar.next_5_page();
    QCOMPARE(descriptionOf(&bar), QStringLiteral("Page 8 of 96"));
}

void AccessibleNavigationTest::pagesAreNamedByTheirNumbers()
{
    VelaPagingModel model(50);
    VelaPagingBar bar(&model);
    bar.setItemCount(4800);
    bar.setPage(2);
    bar.show();
    const QStringList expected {
        QStringLiteral("Grouping Pages, Page 2 of 96"),          QStringLiteral("Button First page, Page 2 of 96"),
        QStringLiteral("Button Previous 5 pages, Page 2 of 96"), QStringLiteral("Button Page 1, Page 2 of 96"),
        QStringLiteral("Button Page 2 of 96, current"),          QStringLiteral("Button Page 3, Page 2 of 96"),
        QStringLiteral("Button Page 4, Page 2 of 96"),           QStringLiteral("Button Next 5 pages, Page 2 of 96"),
        QStringLiteral("Button Last page, Page 2 of 96"),        QStringLiteral("Button Refresh, Page 2 of 96")};
    QCOMPARE(transcript(spoken(&bar)), expected); // there is no blank button
}

void AccessibleNavigationTest::aPagingBarCanHaveAnotherName()
{
    VelaPagingModel model(50);
    VelaPagingBar bar(&model);
    bar.setAccessibleName(QStringLiteral("Search results"));
    QCOMPARE(nameOf(&bar), QStringLiteral("Search results"));
}

void AccessibleNavigationTest::whatTheBarIsMadeOfKeepsItsNames()
{
    VelaPagingModel model(50);
    const VelaPagingBar bar(&model);
    QStringList names;
    for (const QWidget *widget : bar.findChildren<QWidget *>()) {
        names.append(widget->accessibleName());
    }
    names.removeAll(QString());
    QCOMPARE(names, QStringList {QStringLiteral("Refresh")});
}

void AccessibleNavigationTest::aPathIsAListOfLinks()
{
    VelaButtonPath path;
    path.resize(2000, path.height());
    path.show();
    path.refresh(QStringLiteral("/home/Tom & Jerry/Pictures"));
    QCOMPARE(number(spoken(&path)->role()), number(QAccessible::List));
    QCOMPARE(nameOf(&path), QStringLiteral("Path"));
    const QStringList expected {QStringLiteral("home"), QStringLiteral("Tom & Jerry"), QStringLiteral("Pictures")};
    QCOMPARE(namesIn(spoken(&path)), expected);
    for (int i = 0; i < spoken(&path)->childCount(); ++i) {
        QAccessibleInterface *link = spoken(&path)->child(i);
        QCOMPARE(number(link->role()), number(QAccessible::Link));
        QCOMPARE(link->parent(), spoken(&path));
        QCOMPARE(spoken(&path)->indexOfChild(link), i);
    }
}

void AccessibleNavigationTest::theLastLinkIsWhereOneIs()
{
    VelaButtonPath path;
    path.refresh(QStringLiteral("a/b"));
    QCOMPARE(spoken(&path)->child(0)->text(QAccessible::Description), QString());
    QCOMPARE(spoken(&path)->child(1)->text(QAccessible::Description), QStringLiteral("current"));
}

void AccessibleNavigationTest::aLinkIsPressedThroughTheInterface()
{
    VelaButtonPath path;
    path.refresh(QStringLiteral("a/b/c"));
    const QSignalSpy chosen(&path, &VelaButtonPath::sigUpdatePath);
    spoken(&path)->child(1)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QTRY_COMPARE(chosen.count(), 1);
    QCOMPARE(chosen.at(0).at(0).toString(), QStringLiteral("a/b"));
}

void AccessibleNavigationTest::namesThatDoNotFitAreBehindAButtonWithAName()
{
    VelaButtonPath path;
    path.resize(150, path.height());
    path.show();
    QVERIFY(QTest::qWaitForWindowExposed(&path));
    path.refresh(QStringLiteral("A long name of a folder/Another long name of a folder/Last"));
    QAccessibleInterface *menuButton = spoken(&path)->child(0);
    QCOMPARE(menuButton->text(QAccessible::Name), QStringLiteral("More folders"));
    QCOMPARE(number(menuButton->role()), number(QAccessible::ButtonMenu));
    QVERIFY(spoken(&path)->child(1)->state().offscreen);
    QVERIFY(!spoken(&path)->child(3)->state().offscreen);
    path.refresh(QStringLiteral("a"));
    QCOMPARE(namesIn(spoken(&path)), QStringList {QStringLiteral("a")});
}

void AccessibleNavigationTest::aLinkIsFoundUnderThePointer()
{
    VelaButtonPath path;
    path.resize(800, path.height());
    path.show();
    QVERIFY(QTest::qWaitForWindowExposed(&path));
    path.refresh(QStringLiteral("one/two"));
    QTRY_VERIFY(path.cellWidget(0, 2)->x() > path.cellWidget(0, 0)->x()); // laid out by then
    for (int column : {0, 2}) {
        QWidget *button = path.cellWidget(0, column);
        const QPoint middle = button->mapToGlobal(button->rect().center());
        QCOMPARE(spoken(&path)->childAt(middle.x(), middle.y()), spoken(button));
    }
}

void AccessibleNavigationTest::withoutTextsInTheTableTheyAreEnglishAndNothingIsLogged()
{
    VelaPagingModel model(50);
    VelaPagingBar bar(&model);
    bar.setItemCount(100);
    VelaButtonPath path;
    ComponentStrings::getInstance()->installStrings({{QStringLiteral("accessible_path"), QStringLiteral("Pfad")}});
    LogCapture log;
    QCOMPARE(descriptionOf(&bar), QStringLiteral("Page 1 of 2"));
    QCOMPARE(nameOf(&path), QStringLiteral("Pfad"));
    QCOMPARE(log.takeTexts(), QStringList());
}

QTEST_MAIN(AccessibleNavigationTest)
#include "tst_accessible_navigation.moc"
