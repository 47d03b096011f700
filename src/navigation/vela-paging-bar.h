// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "vela_export.h"

#include <QWidget>

#include <memory>
#include <vector>

class VelaPagingBarPrivate;
class VelaPagingModelPrivate;

/// The numbers of a list that is shown a page at a time. Nothing is checked or clamped.
class VELA_EXPORT VelaPagingModel : public QObject
{
    Q_OBJECT

public:
    /// A list without items, on its first page, of @p rowLimit items a page.
    explicit VelaPagingModel(int rowLimit, QObject *parent = nullptr);
    ~VelaPagingModel() override;

    /// Items on a page. A bar shows another limit once its setItemCount() or setPage() is called.
    int rowLimit() const;
    /// Sets that number.
    void setRowLimit(int rowLimit);
    /// Items in all.
    int itemCount() const;
    /// Sets that number.
    void setItemCount(int itemCount);
    /// Current page, counted from 1.
    int nowPage() const;
    /// Sets that page.
    void setNowPage(int nowPage);

    /// Number of pages, at least 1; 1 when the row limit is 0 or less.
    int pageCount() const;
    /// Index of the current page's first item, counted from 0. Beyond the range of an int, which only a page beyond the
    /// last or far below the first can reach, it wraps around.
    int startItem() const;

private:
    const std::unique_ptr<VelaPagingModelPrivate> d;
};

/// One label in the footer of a VelaPagingBar.
struct PagingFooterInfo
{
    QString text; ///< what the label shows
    qint32 width = 0; ///< logical pixels; 0 for the text's own
};

/// Bar to move through the pages of a list: buttons for the first page, five back, five numbered pages around the
/// current one, five on and the last page; at the right labels of the client's and a button to refresh.
///
/// The bar sets the model's current page and says so; the client reads the model and loads that page.
class VELA_EXPORT VelaPagingBar : public QWidget
{
    Q_OBJECT

public:
    /// A bar for @p model, which stays the client's and is to outlive it; page and item count of the model are reset to
    /// 1 and 0. Without its model a bar keeps showing what it shows.
    explicit VelaPagingBar(VelaPagingModel *model, QWidget *parent = nullptr);
    ~VelaPagingBar() override;

    /// What the bar was made for: page and item count are read there. Null once it is gone.
    VelaPagingModel *model() const;

    /// Sets the number of items and keeps the page, even if it is beyond the last one now.
    void setItemCount(int count);
    /// Turns to @p page, even if there is no such page, without emitting anything.
    void setPage(int page);
    /// Turns to the first page and emits sigPageChanged().
    void reset();

    /// Shows @p text in one label and drops any other. It is as wide as the text, unless it has been given a width.
    void setFooterText(const QString &text);
    /// Shows @p info in one label and drops any other.
    void setFooterInfo(const PagingFooterInfo &info);
    /// Shows one label for each of @p infos, the first next to the refresh button. A width of 0 leaves a label that is
    /// there already the width that it has. A label that is dropped stays hidden, some 10 kB, until the bar goes.
    void setFooterInfos(const std::vector<PagingFooterInfo> &infos);
    /// Hides or shows the refresh button. The first label's style depends on it when that label is made, and only then.
    void setRefreshButtonHidden(bool hidden);

Q_SIGNALS:
    /// A button was used to turn to a page, perhaps the same one; read it from the model.
    void sigPageChanged();
    /// The refresh button was clicked.
    void sigRefresh();

public Q_SLOTS:
    /// Turns to the page of the numbered button at index @p page, 0 to 4.
    void pageClick(int page);
    /// Turns five pages on, or to the last page if there are fewer.
    void next_5_page();
    /// Turns five pages back, or to the first page if there are fewer.
    void prev_5_page();
    /// Turns to the first page.
    void first_page();
    /// Turns to the last page.
    void last_page();

protected:
    void customEvent(QEvent *event) override;

private:
    const std::unique_ptr<VelaPagingBarPrivate> d;
};
