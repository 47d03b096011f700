// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "support/all-widgets.h"

#include "component/vela-button-path.h"
#include "component/vela-button.h"
#include "component/vela-check-box.h"
#include "component/vela-combo-box.h"
#include "component/vela-countdown-msg-box.h"
#include "component/vela-date-selector.h"
#include "component/vela-filter-bar.h"
#include "component/vela-footbar.h"
#include "component/vela-input-sheet.h"
#include "component/vela-label.h"
#include "component/vela-line-edit.h"
#include "component/vela-menu.h"
#include "component/vela-msg-sheet.h"
#include "component/vela-table-widget.h"
#include "utils/help-window.h"

AllWidgets::AllWidgets()
{
    addControls();
    addSheets();
    addViews();
    addNavigation();
    new VelaDateSelector(QStringLiteral("none"), this);
    new HelpWindow(HelpContext(), this);
}

void AllWidgets::addControls()
{
    for (int kind = VelaButton::ApplyButton; kind <= VelaButton::RedButton; ++kind) {
        (new VelaButton(QStringLiteral("text"), kind))->setParent(this);
    }
    (new VelaIconButton(QPixmap()))->setParent(this);
    new VelaCheckBox(QString(), this);
    new VelaRadioButton(QString(), this);
    (new VelaComboBox(this))->setEditable(true);
    new VelaFootbar(this);
    new VelaLabel(this);
    (new VelaLineEdit(this))->setError(true);
    new VelaMenu(this);
}

void AllWidgets::addSheets()
{
    for (int type = VelaMessageSheet::AppMessage; type <= VelaMessageSheet::ProcessingMessage; ++type) {
        const auto messageType = static_cast<VelaMessageSheet::MessageType>(type);
        auto *sheet = new VelaMessageSheet(messageType, QStringLiteral("text"), QStringLiteral("more"), this);
        sheet->setMessageType(messageType); // styles the second text
        sheet->grab(); // paints the shadow
    }
    new VelaInputSheet(QStringLiteral("text"), this);
    (new VelaCountdownMessageBox(1, this))->setInformativeText(QStringLiteral("more"));
}

void AllWidgets::addViews()
{
    VelaTableColumnsInfo columns;
    columns.addColumn(QStringLiteral("title"), 10, true, 0.0);
    new VelaTableWidget(columns, this);

    auto *tree = new VelaTreeWidget(this);
    tree->setItemDelegate(&m_delegate);
    auto *item = new QTreeWidgetItem(tree, {QStringLiteral("item")});
    item->setFlags(item->flags() | Qt::ItemIsEditable);
    tree->openPersistentEditor(item);
}

void AllWidgets::addNavigation()
{
    auto *bar = new VelaPagingBar(&m_pages, this);
    bar->setFooterText(QStringLiteral("text"));
    auto *bareBar = new VelaPagingBar(&m_pages, this);
    bareBar->setRefreshButtonHidden(true);
    bareBar->setFooterText(QStringLiteral("text"));
    (new VelaButtonPath(this))->refresh(QStringLiteral("a/b"));
    new VelaFilterBar(this);
}
