// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "component/paging/vela-paging-bar.h"
#include "component/vela-button.h"
#include "style-manager/style-manager.h"
#include "support/controls.h"
#include "support/environment.h"
#include "support/resource-folder.h"
#include "utils/component-strings.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

#include <algorithm>

inline constexpr char BarSheets[] =
    "== component.select_paging_button ==\nQPushButton { background: #0000ff; border: none }\n"
    "== component.nonselect_paging_button ==\nQPushButton { background: #808080; border: none }\n"
    "== component.icon_button ==\nQToolButton { border: none; padding: 0px }\n"
    "== component.paging_bar_border ==\n#PAGINGBARBORDER { background: #123456 }\n"
    "== component.paging_bar_label ==\nQLabel { background: #ff0000; padding-left: 5px }\n"
    "== component.paging_bar_rightmost_label ==\nQLabel { background: #00ff00; padding-left: 5px }\n";

inline const QString BarImages[] = {
    QStringLiteral("bt_pagebar_backend"), QStringLiteral("bt_pagebar_back"),    QStringLiteral("bt_pagebar_next"),
    QStringLiteral("bt_pagebar_nextend"), QStringLiteral("bt_pagebar_refresh"),
};

enum Navigation { First, BackFive, ForwardFive, Last };

constexpr int BarWidth = 850; // logical pixels; fits on a screen at any scale

inline QString ordinarySheet()
{
    return getStyleSheet("component.paging_bar_label", false);
}

inline QString rightmostSheet()
{
    return getStyleSheet("component.paging_bar_rightmost_label", false);
}

inline int leftOf(const QWidget *widget, const QWidget *bar)
{
    return widget->mapTo(bar, QPoint(0, 0)).x();
}

inline int rightOf(const QWidget *widget, const QWidget *bar)
{
    return leftOf(widget, bar) + widget->width();
}

template<typename Widget>
QList<Widget *> sortedByPlace(QList<Widget *> widgets, const QWidget *bar)
{
    std::sort(widgets.begin(), widgets.end(),
              [bar](const Widget *left, const Widget *right) { return leftOf(left, bar) < leftOf(right, bar); });
    return widgets;
}

/// Makes the start-up calls with what a bar asks for.
inline void installBar(const ResourceFolder &folder)
{
    int size = 40;
    for (const QString &name : BarImages) {
        size += 8;
        for (const char *state : {"", "_hover", "_click", "_disable"}) {
            folder.writeImage(name + QLatin1String(state), QSize(size, size), Qt::gray);
        }
    }
    folder.writeImage(QStringLiteral("bt_pagebar_refresh"), QSize(80, 80), Qt::cyan);
    folder.writeImage(QStringLiteral("bt_pagebar_refresh_hover"), QSize(80, 80), Qt::yellow);
    folder.writeImage(QStringLiteral("bt_pagebar_refresh_disable"), QSize(80, 80), Qt::magenta);
    QStringList names {QStringLiteral("bt_pagebar_refresh_hover"), QStringLiteral("bt_pagebar_refresh_disable")};
    for (const QString &name : BarImages) {
        names.append(name);
    }
    folder.writeCatalogue(names);
    installSheets(folder, BarSheets);
    ComponentStrings::getInstance()->installStrings({
        {QStringLiteral("first_page"), QStringLiteral("To the first")},
        {QStringLiteral("prev_5_pages"), QStringLiteral("Five back")},
        {QStringLiteral("last_page"), QStringLiteral("To the last")},
        {QStringLiteral("next_5_pages"), QStringLiteral("Five on")},
        {QStringLiteral("pagebar_refresh"), QStringLiteral("Load anew")},
    });
}

/// A shown bar with its model; everything in it is found by where it is on screen.
class BarWindow : public TestWindow
{
public:
    explicit BarWindow(int rowLimit = 50, int itemCount = -1) :
        model(rowLimit),
        bar(new VelaPagingBar(&model, this)),
        pageChanged(bar, &VelaPagingBar::sigPageChanged),
        refreshed(bar, &VelaPagingBar::sigRefresh)
    {
        if (itemCount >= 0) {
            bar->setItemCount(itemCount);
        }
        bar->resize(expectedPixels(BarWidth), expectedPixels(29));
        resize(bar->size());
    }
    ~BarWindow() override { delete bar; } // the bar goes before its model

    QList<VelaButton *> pageButtons() const { return sortedByPlace(bar->findChildren<VelaButton *>(), bar); }
    QList<VelaIconButton *> iconButtons() const { return sortedByPlace(bar->findChildren<VelaIconButton *>(), bar); }
    VelaIconButton *navigation(Navigation which) const { return iconButtons().at(which); }
    VelaIconButton *refreshButton() const
    {
        const QList<VelaIconButton *> buttons = bar->findChildren<VelaIconButton *>();
        return *std::find_if(buttons.begin(), buttons.end(),
                             [](const VelaIconButton *button) { return !button->accessibleName().isEmpty(); });
    }

    /// The layout that has @p widget in it.
    QHBoxLayout *rowOf(QWidget *widget) const
    {
        const QList<QHBoxLayout *> rows = bar->findChildren<QHBoxLayout *>();
        const auto row = std::find_if(rows.begin(), rows.end(),
                                      [widget](QHBoxLayout *layout) { return layout->indexOf(widget) >= 0; });
        return row == rows.end() ? nullptr : *row;
    }

    Qt::Alignment alignmentOf(QWidget *widget) const
    {
        const QHBoxLayout *row = rowOf(widget);
        return row->itemAt(row->indexOf(widget))->alignment();
    }

    /// The footer's labels from the right to the left.
    QList<QLabel *> labels() const
    {
        QList<QLabel *> shown;
        const QList<QLabel *> all = bar->findChildren<QLabel *>();
        std::copy_if(all.begin(), all.end(), std::back_inserter(shown),
                     [](const QLabel *label) { return label->isVisible(); });
        shown = sortedByPlace(shown, bar);
        std::reverse(shown.begin(), shown.end());
        return shown;
    }

    QStringList labelTexts() const
    {
        QStringList texts;
        for (const QLabel *label : labels()) {
            texts.append(label->text());
        }
        return texts;
    }

    /// The texts of the page buttons, with lines between.
    QString numbers() const
    {
        QStringList texts;
        for (const VelaButton *button : pageButtons()) {
            texts.append(button->text());
        }
        return texts.join(QLatin1Char('|'));
    }

    /// P for each page button and N for each navigation button that is enabled, - for one that is not.
    QString enabled() const
    {
        QString states;
        for (const VelaButton *button : pageButtons()) {
            states += QLatin1Char(button->isEnabled() ? 'P' : '-');
        }
        for (Navigation which : {First, BackFive, ForwardFive, Last}) {
            states += QLatin1Char(navigation(which)->isEnabled() ? 'N' : '-');
        }
        return states;
    }

    VelaPagingModel model;
    const QPointer<VelaPagingBar> bar;
    QSignalSpy pageChanged;
    QSignalSpy refreshed;
};
