// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "contrast-samples.h"

#include "component/paging/vela-paging-bar.h"
#include "component/vela-button-path.h"
#include "component/vela-check-box.h"
#include "component/vela-combo-box.h"
#include "component/vela-date-selector.h"
#include "component/vela-filter-bar.h"
#include "component/vela-input-sheet.h"
#include "component/vela-label.h"
#include "component/vela-line-edit.h"
#include "component/vela-msg-sheet.h"
#include "component/vela-table-widget.h"
#include "component/vela-tree-widget.h"
#include "contrast-stage.h"
#include "style-manager/style-manager.h"

#include <QLineEdit>
#include <QtTest>

QWidget *createIconButton()
{
    return new VelaIconButton(QStringLiteral("bt_settings"));
}

QWidget *createCheckBox()
{
    return new VelaCheckBox(Sample);
}

QWidget *createRadioButton()
{
    return new VelaRadioButton(Sample);
}

QWidget *createLabel()
{
    return new VelaLabel(Sample);
}

static VelaLineEdit *createLineEdit()
{
    auto *row = new VelaLineEdit(nullptr);
    row->getPreLabel()->setText(Sample);
    row->getPostLabel()->setText(Sample);
    row->getLineEdit()->setMinimumWidth(120);
    return row;
}

QWidget *createField()
{
    return createLineEdit();
}

QWidget *createFieldThatIsRead()
{
    VelaLineEdit *row = createLineEdit();
    row->getLineEdit()->setReadOnly(true);
    return row;
}

QWidget *createFieldWithAnError()
{
    VelaLineEdit *row = createLineEdit();
    row->setError(true);
    return row;
}

QWidget *createFilterBar()
{
    auto *bar = new VelaFilterBar;
    bar->setMinimumWidth(200);
    return bar;
}

QWidget *createComboBox()
{
    auto *box = new VelaComboBox;
    box->addItems({Sample, QString()});
    return box;
}

QWidget *createEditableComboBox()
{
    auto *box = new VelaComboBox;
    box->setEditable(true);
    box->addItem(Sample);
    return box;
}

QWidget *createPagingBar()
{
    auto *model = new VelaPagingModel(10);
    model->setItemCount(95);
    auto *bar = new VelaPagingBar(model);
    model->setParent(bar);
    bar->setFooterInfos({{Sample, 60}, {Sample, 60}});
    bar->setMinimumWidth(700);
    return bar;
}

QWidget *createPath()
{
    auto *path = new VelaButtonPath;
    path->setMinimumWidth(400);
    path->refresh(QStringLiteral("HHHH/HHHH/HHHH"));
    return path;
}

QWidget *createDateSelector()
{
    return new VelaDateSelector(Sample);
}

QWidget *createTable()
{
    VelaTableColumnsInfo columns;
    columns.addColumn(Sample, 100, true, 1.0);
    columns.addColumn(Sample, 100, true, 0.0);
    auto *table = new VelaTableWidget(columns);
    table->getTable()->setRowCount(4);
    for (int row = 0; row < 4; ++row) {
        table->getTable()->setItem(row, 0, new QTableWidgetItem(Sample));
    }
    table->setMinimumSize(300, 200);
    return table;
}

QWidget *createTree()
{
    auto *tree = new VelaTreeWidget;
    tree->setHeaderHidden(true);
    static ItemDelegate delegate;
    tree->setItemDelegate(&delegate);
    tree->setStyleSheet(getStyleSheet("component.tree_item", false));
    tree->setBackgroundColor(themeColor("tree_selected"), themeColor("tree_hovered"));
    for (int row = 0; row < 3; ++row) {
        auto *item = new FileSystemTreeWidgetItem;
        item->setText(0, Sample);
        tree->addTopLevelItem(item);
    }
    tree->setMinimumSize(200, 120);
    return tree;
}

QWidget *createBody()
{
    auto *body = new QWidget;
    body->setMinimumSize(700, 400);
    return body;
}

void addSheets()
{
    QTest::addColumn<int>("type");
    QTest::newRow("application") << int(VelaMessageSheet::AppMessage);
    QTest::newRow("information") << int(VelaMessageSheet::InfoMessage);
    QTest::newRow("warning") << int(VelaMessageSheet::WarningMessage);
    QTest::newRow("question") << int(VelaMessageSheet::QuestionMessage);
    QTest::newRow("upgrade") << int(VelaMessageSheet::UpgradeMessage);
    QTest::newRow("question of a warning") << int(VelaMessageSheet::WarningQuestionMessage);
    QTest::newRow("processing") << int(VelaMessageSheet::ProcessingMessage);
    QTest::newRow("input") << -1;
}

VelaSheet *createSheetOfRow(QWidget *body)
{
    QFETCH(int, type);
    if (type < 0) {
        return new VelaInputSheet(Sample, body);
    }
    return new VelaMessageSheet(VelaMessageSheet::MessageType(type), Sample, Sample, body);
}
