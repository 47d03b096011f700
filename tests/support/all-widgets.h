// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "component/paging/vela-paging-bar.h"
#include "component/vela-tree-widget.h"

#include <QWidget>

/// Every widget of the library, in every state that asks for something of its own, below one window.
class AllWidgets : public QWidget
{
public:
    AllWidgets();

private:
    void addControls();
    void addSheets();
    void addViews();
    void addNavigation();

    VelaPagingModel m_pages {10};
    ItemDelegate m_delegate;
};
