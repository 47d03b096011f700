// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "accessible/accessible.h"
#include "component/paging/vela-paging-bar.h"
#include "component/vela-button-path.h"
#include "component/vela-countdown-msg-box.h"
#include "component/vela-date-selector.h"
#include "component/vela-input-sheet.h"
#include "component/vela-line-edit.h"
#include "component/vela-mask.h"
#include "component/vela-msg-sheet.h"
#include "component/vela-table-widget.h"
#include "component/vela-tree-widget.h"
#include "support/log-capture.h"
#include "support/modal-sheet.h"
#include "support/resource-folder.h"

#include <QCalendarWidget>
#include <QLineEdit>
#include <QMetaEnum>
#include <QPushButton>
#include <QTableView>
#include <QToolButton>
#include <QtTest>

#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <algorithm>

namespace {

// What an assistive tool is told while it listens, a line an event: "type name, description" of what it is about.
class Listener
{
public:
    Listener()
    {
        s_lines.clear();
        QAccessible::installUpdateHandler(&Listener::write);
        setActive(true);
    }
    ~Listener()
    {
        setActive(false);
        QAccessible::installUpdateHandler(nullptr);
    }
    Q_DISABLE_COPY_MOVE(Listener)

    QStringList linesOf(const char *type) const
    {
        const QStringList lines = s_lines.filter(QRegularExpression(QLatin1Char('^') + QLatin1String(type)));
        s_lines.clear();
        return lines;
    }

private:
    static void setActive(bool active)
    {
        QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(active);
    }

    static void write(QAccessibleEvent *event)
    {
        const QAccessibleInterface *interface = event->accessibleInterface();
        const QString description = interface->text(QAccessible::Description);
        s_lines.append(QString::fromLatin1(QMetaEnum::fromType<QAccessible::Event>().valueToKey(event->type()))
                       + QLatin1Char(' ') + interface->text(QAccessible::Name)
                       + (description.isEmpty() ? QString() : QLatin1String(", ") + description));
    }

    static QStringList s_lines;
};

QStringList Listener::s_lines;

} // namespace

class AccessibleEventsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void whileNobodyListensNothingIsMade();
    void viewsThatAreMadeWhileSomebodyListensSpeakForThemselves();
    void aMessageIsAnnouncedAndTakenBack();
    void anInputSheetIsAnnounced();
    void whenASheetComesAndGoesItsWindowHasOtherChildren();
    void aCountdownIsAnnouncedAtItsStartAtTenAndAtItsEnd();
    void anErrorIsTold();
    void anotherPageIsTold();
    void anotherPageIsToldWhereTheFocusIs();
    void theCurrentRowOfATreeIsTold();
    void theCurrentCellOfATableIsTold();
    void theCurrentDayIsTold();
    void theCurrentNameOfAPathIsTold();
};

void AccessibleEventsTest::initTestCase()
{
    installReferenceTheme();
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
}

void AccessibleEventsTest::whileNobodyListensNothingIsMade()
{
    static QStringList asked;
    asked.clear();
    VelaPagingModel model(10);
    VelaPagingBar bar(&model);
    VelaLineEdit field;
    SheetWindow window;
    VelaInputSheet sheet(QStringLiteral("Name"), &window);
    const auto factory = [](const QString &className, QObject *) -> QAccessibleInterface * {
        asked.append(className);
        return nullptr;
    };
    QAccessible::installFactory(factory);
    bar.setItemCount(1000);
    field.setError(true);
    sheet.showSheet();
    sheet.done(0);
    QAccessible::removeFactory(factory);
    for (const char *className : {"VelaPagingBar", "QLineEdit", "VelaInputSheet", "SheetWindow"}) {
        QVERIFY2(!asked.contains(QLatin1String(className)), className);
    }
}

void AccessibleEventsTest::viewsThatAreMadeWhileSomebodyListensSpeakForThemselves()
{
    const Listener listener;
    VelaTreeWidget tree;
    VelaButtonPath path(nullptr);
    VelaTableColumnsInfo columns;
    columns.addColumn(QStringLiteral("Name"), 100, true, 1);
    VelaTableWidget table(columns);
    QCOMPARE(spoken(&tree)->text(QAccessible::Name), QStringLiteral("Folders"));
    QCOMPARE(spoken(&path)->text(QAccessible::Name), QStringLiteral("Path"));
    QCOMPARE(spoken(table.getTable())->text(QAccessible::Name), QStringLiteral("Name"));
}

void AccessibleEventsTest::aMessageIsAnnouncedAndTakenBack()
{
    Shown<SheetWindow> window;
    VelaMessageSheet sheet(VelaMessageSheet::WarningMessage, QStringLiteral("Careful"), QStringLiteral("It is hot."),
                           &window);
    VelaMask::createMask(&sheet, &window, QColor(0, 0, 0, 20));
    const Listener listener;
    sheet.showSheet();
    const QStringList came = listener.linesOf("(Alert|DialogStart|DialogEnd)");
    const QStringList expected {QStringLiteral("Alert Careful, It is hot."),
                                QStringLiteral("DialogStart Careful, It is hot.")};
    QCOMPARE(came, expected);
    sheet.done(0);
    QCOMPARE(listener.linesOf("(Alert|DialogStart|DialogEnd)"),
             QStringList {QStringLiteral("DialogEnd Careful, It is hot.")});
    sheet.done(0); // is no answer any more
    QCOMPARE(listener.linesOf("Dialog"), QStringList());
}

void AccessibleEventsTest::anInputSheetIsAnnounced()
{
    Shown<SheetWindow> window;
    VelaInputSheet sheet(QStringLiteral("Name"), &window);
    VelaMask::createMask(&sheet, &window, QColor(0, 0, 0, 20));
    const Listener listener;
    QStringList came;
    execute(&sheet, [&] {
        came = listener.linesOf("(Alert|Dialog|Focus)");
        sheet.done(0);
    });
    QVERIFY(came.contains(QStringLiteral("DialogStart Name")));
    QCOMPARE(came.last(), QStringLiteral("Focus Name"));
    QVERIFY(came.filter(QStringLiteral("Alert")).isEmpty());
    QVERIFY(listener.linesOf("DialogEnd").contains(QStringLiteral("DialogEnd Name")));
}

void AccessibleEventsTest::whenASheetComesAndGoesItsWindowHasOtherChildren()
{
    SheetWindow window;
    window.setWindowTitle(QStringLiteral("Window"));
    QVERIFY(window.showAndWait());
    VelaInputSheet sheet(QStringLiteral("Name"), &window);
    const Listener listener;
    sheet.showSheet();
    QCOMPARE(listener.linesOf("ObjectReorder"), QStringList {QStringLiteral("ObjectReorder Window")});
    sheet.done(0);
    QCOMPARE(listener.linesOf("ObjectReorder"), QStringList {QStringLiteral("ObjectReorder Window")});
}

// The focus is told with a name that stays: a tool does not say it again.
void AccessibleEventsTest::aCountdownIsAnnouncedAtItsStartAtTenAndAtItsEnd()
{
    constexpr int Seconds = 13;
    VelaCountdownMessageBox box(Seconds);
    box.setText(QStringLiteral("Restart"));
    const Listener listener;
    box.show();
    for (int left = Seconds - 1; left > 0; --left) {
        box.slotTick();
    }
    box.hide();
    const QStringList expected {QStringLiteral("DescriptionChanged OK, Seconds left: 12"),
                                QStringLiteral("DescriptionChanged OK, Seconds left: 10"),
                                QStringLiteral("DescriptionChanged OK, Seconds left: 0")};
    QCOMPARE(listener.linesOf("DescriptionChanged OK"), expected);
}

void AccessibleEventsTest::anErrorIsTold()
{
    VelaLineEdit field;
    field.getPreLabel()->setText(QStringLiteral("Quota"));
    const Listener listener;
    field.setError(true);
    QCOMPARE(listener.linesOf("DescriptionChanged"),
             QStringList {QStringLiteral("DescriptionChanged Quota, Invalid entry")});
    field.setError(false);
    QCOMPARE(listener.linesOf("DescriptionChanged"), QStringList {QStringLiteral("DescriptionChanged Quota")});
}

void AccessibleEventsTest::anotherPageIsTold()
{
    VelaPagingModel model(10);
    VelaPagingBar bar(&model);
    bar.setItemCount(1000);
    const Listener listener;
    bar.setPage(7);
    QCOMPARE(listener.linesOf("DescriptionChanged"),
             QStringList {QStringLiteral("DescriptionChanged Pages, Page 7 of 100")});
}

void AccessibleEventsTest::anotherPageIsToldWhereTheFocusIs()
{
    VelaPagingModel model(10);
    VelaPagingBar bar(&model);
    bar.setItemCount(1000);
    bar.show();
    QVERIFY(QTest::qWaitForWindowActive(&bar));
    const auto buttons = bar.findChildren<QToolButton *>();
    const auto next = std::find_if(buttons.begin(), buttons.end(), [](const QToolButton *button) {
        return button->toolTip() == QLatin1String("Next 5 pages");
    });
    (*next)->setFocus();
    const Listener listener;
    bar.next_5_page();
    const QStringList lines = listener.linesOf("DescriptionChanged");
    const QStringList expected {QStringLiteral("DescriptionChanged Pages, Page 6 of 100"),
                                QStringLiteral("DescriptionChanged Next 5 pages, Page 6 of 100")};
    QCOMPARE(lines, expected);
}

void AccessibleEventsTest::theCurrentRowOfATreeIsTold()
{
    VelaTreeWidget tree;
    for (const char *name : {"Home", "Work"}) {
        auto *folder = new QTreeWidgetItem(QStringList(QString::fromLatin1(name)));
        tree.addTopLevelItem(folder);
        folder->addChild(new QTreeWidgetItem(QStringList(QStringLiteral("in ") + QString::fromLatin1(name))));
    }
    tree.expandAll();
    tree.show();
    QVERIFY(QTest::qWaitForWindowActive(&tree));
    tree.setFocus();
    const Listener listener;
    QTest::keyClick(&tree, Qt::Key_Down);
    QTest::keyClick(&tree, Qt::Key_Down);
    QStringList lines = listener.linesOf("Focus");
    lines.removeDuplicates();
    const QStringList expected {QStringLiteral("Focus in Home, Level 2"), QStringLiteral("Focus Work, Level 1")};
    QCOMPARE(lines, expected);
}

void AccessibleEventsTest::theCurrentCellOfATableIsTold()
{
    VelaTableColumnsInfo columns;
    columns.addColumn(QStringLiteral("Name"), 100, true, 0.0);
    columns.addColumn(QStringLiteral("Size"), 100, true, 0.0);
    VelaTableWidget table(columns);
    table.getTable()->setRowCount(3);
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 2; ++column) {
            const QString text = QStringLiteral("%1/%2").arg(row).arg(column);
            table.getTable()->setItem(row, column, new QTableWidgetItem(text));
        }
    }
    table.show();
    QVERIFY(QTest::qWaitForWindowActive(&table));
    table.getTable()->setFocus();
    table.getTable()->setCurrentCell(0, 0);
    const Listener listener;
    QTest::keyClick(table.getTable(), Qt::Key_Down);
    QTest::keyClick(table.getTable(), Qt::Key_Right);
    QStringList lines = listener.linesOf("Focus");
    lines.removeDuplicates();
    const QStringList expected {QStringLiteral("Focus 1/0"), QStringLiteral("Focus 1/1")};
    QCOMPARE(lines, expected);
}

void AccessibleEventsTest::theCurrentDayIsTold()
{
    VelaCalanderView calendar;
    calendar.findChild<QCalendarWidget *>()->setSelectedDate(QDate(2024, 4, 17));
    calendar.show();
    QVERIFY(QTest::qWaitForWindowActive(&calendar));
    auto *grid = calendar.findChild<QTableView *>(QStringLiteral("qt_calendar_calendarview"));
    grid->setFocus();
    const Listener listener;
    QTest::keyClick(grid, Qt::Key_Right);
    QVERIFY(listener.linesOf("Focus").contains(QStringLiteral("Focus Thursday, April 18, 2024")));
}

void AccessibleEventsTest::theCurrentNameOfAPathIsTold()
{
    VelaButtonPath path;
    path.resize(400, 30);
    path.refresh(QStringLiteral("letters/2026/may"));
    path.show();
    QVERIFY(QTest::qWaitForWindowActive(&path));
    LogCapture log;
    const Listener listener;
    path.cellWidget(0, 2)->setFocus(Qt::TabFocusReason);
    QStringList told = listener.linesOf("Focus");
    told.removeDuplicates();
    QCOMPARE(told, QStringList(QStringLiteral("Focus 2026")));
    QCOMPARE(log.takeTexts(), QStringList());
}

QTEST_MAIN(AccessibleEventsTest)
#include "tst_accessible_events.moc"
