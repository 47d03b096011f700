// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "navigation/vela-paging-bar.h"

class VelaPagingModelPrivate
{
public:
    qint32 rowLimit;
    qint32 itemCount = 0;
    qint32 nowPage = 1;
};

VelaPagingModel::VelaPagingModel(int rowLimit, QObject *parent) :
    QObject(parent), d(new VelaPagingModelPrivate {rowLimit})
{
}

VelaPagingModel::~VelaPagingModel() = default;

int VelaPagingModel::rowLimit() const
{
    return d->rowLimit;
}

void VelaPagingModel::setRowLimit(int rowLimit)
{
    d->rowLimit = rowLimit;
}

int VelaPagingModel::itemCount() const
{
    return d->itemCount;
}

void VelaPagingModel::setItemCount(int itemCount)
{
    d->itemCount = itemCount;
}

int VelaPagingModel::nowPage() const
{
    return d->nowPage;
}

void VelaPagingModel::setNowPage(int nowPage)
{
    d->nowPage = nowPage;
}

int VelaPagingModel::pageCount() const
{
    if (d->rowLimit <= 0) {
        return 1;
    }
    const int pages = d->itemCount / d->rowLimit + (d->itemCount % d->rowLimit == 0 ? 0 : 1);
    return qMax(pages, 1);
}

int VelaPagingModel::startItem() const
{
    return static_cast<int>((static_cast<qint64>(d->nowPage) - 1) * d->rowLimit);
}
