// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "accessible/unnamed-controls.h"
#include "component/paging/vela-paging-bar.h"
#include "component/vela-button-path.h"
#include "component/vela-button.h"
#include "component/vela-check-box.h"
#include "component/vela-combo-box.h"
#include "component/vela-date-selector.h"
#include "component/vela-filter-bar.h"
#include "component/vela-input-sheet.h"
#include "component/vela-line-edit.h"
#include "component/vela-mask.h"
#include "component/vela-table-widget.h"
#include "component/vela-tree-widget.h"
#include "support/log-capture.h"
#include "support/resource-folder.h"
#include "utils/help-window.h"

#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>
#include <QtTest>

class UnnamedControlsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installReferenceTheme(); }

    void whatHasNoNameIsTold();
    void whatIsHiddenIsNotTold();
    void whatLiesBelowASheetIsNotTold();
    void theLibrarysWidgetsNeedNoNameOfTheApplication();
    void theHelpWindowNeedsNone();
};

void UnnamedControlsTest::whatHasNoNameIsTold()
{
    QWidget window;
    auto *field = new QLineEdit(&window);
    field->setObjectName(QStringLiteral("quota"));
    auto *icon = new VelaIconButton(QStringLiteral("bt_settings"));
    icon->setParent(&window);
    icon->setFocusPolicy(Qt::StrongFocus);
    new QLabel(QStringLiteral("label"), &window);
    window.show();
    const QStringList expected {QStringLiteral("QWidget > QLineEdit \"quota\": takes the focus and has no name"),
                                QStringLiteral("QWidget > VelaIconButton: takes the focus and has no name")};
    QCOMPARE(unnamedControls(&window), expected);
    field->setAccessibleName(QStringLiteral("Quota"));
    icon->setToolTip(QStringLiteral("Settings"));
    QCOMPARE(unnamedControls(&window), QStringList());
}

void UnnamedControlsTest::whatIsHiddenIsNotTold()
{
    QWidget window;
    auto *field = new QLineEdit(&window);
    window.show();
    QCOMPARE(unnamedControls(&window).size(), 1);
    field->hide();
    QCOMPARE(unnamedControls(&window), QStringList());
}

void UnnamedControlsTest::whatLiesBelowASheetIsNotTold()
{
    QWidget window;
    new QLineEdit(&window);
    window.resize(600, 400);
    window.show();
    VelaInputSheet sheet(QStringLiteral("Name"), &window);
    VelaMask::createMask(&sheet, &window, QColor(0, 0, 0, 20));
    sheet.showSheet();
    QCOMPARE(unnamedControls(&window), QStringList());
    sheet.done(0);
    QCOMPARE(unnamedControls(&window).size(), 1);
}

// Only the application can name these: a combo box, an empty check box, a field alone.
void UnnamedControlsTest::theLibrarysWidgetsNeedNoNameOfTheApplication()
{
    QWidget window;
    auto *column = new QVBoxLayout(&window);
    column->addWidget(new VelaButton(QStringLiteral("Go"), VelaButton::ApplyButton));
    column->addWidget(new VelaCheckBox(QStringLiteral("Check"), nullptr));
    column->addWidget(new VelaRadioButton(QStringLiteral("Choose"), nullptr));
    auto *combo = new VelaComboBox;
    combo->addItem(QStringLiteral("One"));
    column->addWidget(combo);
    auto *field = new VelaLineEdit;
    field->getPreLabel()->setText(QStringLiteral("Quota"));
    column->addWidget(field);
    column->addWidget(new VelaFilterBar);
    column->addWidget(new VelaDateSelector(QStringLiteral("No date")));
    column->addWidget(new VelaCalanderView);
    VelaPagingModel model(10);
    auto *bar = new VelaPagingBar(&model);
    bar->setItemCount(500);
    column->addWidget(bar);
    auto *path = new VelaButtonPath;
    path->refresh(QStringLiteral("a/b/c"));
    column->addWidget(path);
    VelaTableColumnsInfo columns;
    columns.addColumn(QStringLiteral("Title"), 100, true, 1.0);
    auto *table = new VelaTableWidget(columns);
    table->getTable()->setRowCount(1);
    table->getTable()->setItem(0, 0, new QTableWidgetItem(QStringLiteral("cell")));
    column->addWidget(table);
    auto *tree = new VelaTreeWidget;
    tree->addTopLevelItem(new QTreeWidgetItem(QStringList(QStringLiteral("row"))));
    column->addWidget(tree);
    window.show();
    QCOMPARE(unnamedControls(&window), QStringList());
    delete bar; // the bar goes before its model
}

void UnnamedControlsTest::theHelpWindowNeedsNone()
{
    const LogCapture log; // the network is not there, which is logged
    HelpContext context;
    HelpWindow window(context);
    window.show();
    QCOMPARE(unnamedControls(&window), QStringList());
}

QTEST_MAIN(UnnamedControlsTest)
#include "tst_unnamed_controls.moc"
