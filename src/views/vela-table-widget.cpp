// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "views/vela-table-widget.h"

#include "look/look-change_p.h"
#include "look/look_p.h"
#include "look/metrics_p.h"
#include "scale/dpi-info.h"
#include "scale/scaled.h"
#include "utils/accessible-event_p.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QPointer>
#include <QResizeEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

using namespace Vela;

namespace {

// Logical pixels.
constexpr int HeaderWidth = 20000; // more than any sum of sections, clipped by the area around the header
constexpr int HeaderHeight = 30;
constexpr int FillerWidth = 12; // part of the header above the vertical scroll bar

// Header whose sections are as narrow as they are declared, while one that a person drags keeps a usable width.
class TableHeader : public QHeaderView
{
public:
    explicit TableHeader(QWidget *parent) : QHeaderView(Qt::Horizontal, parent), m_usableSize(minimumSectionSize())
    {
        setMinimumSectionSize(0);
        connect(this, &QHeaderView::sectionResized, this, [this](int index) { m_resized = index; });
    }

protected:
    void mouseMoveEvent(QMouseEvent *event) override
    {
        const QPointer<TableHeader> alive(this); // while sections are resized the table may be made anew
        m_resized = -1;
        QHeaderView::mouseMoveEvent(event);
        if (alive && m_resized >= 0 && sectionSize(m_resized) < m_usableSize) {
            resizeSection(m_resized, m_usableSize);
        }
    }

private:
    const int m_usableSize;
    int m_resized = -1; // section that the current move of the mouse has resized
};

// Clips the header, and follows the rows alone: no wheel, no key and no widget in the header that takes the focus
// scrolls it.
class HeaderArea : public QScrollArea
{
public:
    using QScrollArea::QScrollArea;

protected:
    void wheelEvent(QWheelEvent *event) override { event->ignore(); }
    void keyPressEvent(QKeyEvent *event) override { event->ignore(); }
    bool focusNextPrevChild(bool next) override
    {
        // The area's own function scrolls.
        return QWidget::focusNextPrevChild(next); // NOLINT(bugprone-parent-virtual-call)
    }
};

bool isStretching(const VelaTableColumnsInfo::ColumnInfo &column)
{
    // A ratio that is no number stretches, too.
    return column.resizable && column.stretchRatio != 0.0;
}

QHeaderView::ResizeMode resizeModeOf(const VelaTableColumnsInfo::ColumnInfo &column)
{
    return column.resizable ? QHeaderView::Interactive : QHeaderView::Fixed;
}

} // namespace

class VelaTableColumnsInfoPrivate : public QSharedData
{
public:
    std::vector<VelaTableColumnsInfo::ColumnInfo> columns;
};

VelaTableColumnsInfo::VelaTableColumnsInfo() : d(new VelaTableColumnsInfoPrivate) { }

VelaTableColumnsInfo::VelaTableColumnsInfo(const VelaTableColumnsInfo &other) = default;

VelaTableColumnsInfo::~VelaTableColumnsInfo() = default;

VelaTableColumnsInfo &VelaTableColumnsInfo::operator=(const VelaTableColumnsInfo &other) = default;

int VelaTableColumnsInfo::addColumn(const QString &title, int width, bool resizable, double stretchRatio)
{
    d->columns.push_back({title, width, resizable, stretchRatio});
    return columnCount() - 1;
}

int VelaTableColumnsInfo::columnCount() const
{
    return static_cast<int>(d->columns.size());
}

const VelaTableColumnsInfo::ColumnInfo &VelaTableColumnsInfo::column(int index) const
{
    return d->columns[static_cast<std::size_t>(index)];
}

class ResizeSignalTableWidgetPrivate
{
};

ResizeSignalTableWidget::ResizeSignalTableWidget(int rows, int columns) : QTableWidget(rows, columns)
{
    forgetSpokenBase(this);
}

ResizeSignalTableWidget::~ResizeSignalTableWidget() = default;

void ResizeSignalTableWidget::resizeEvent(QResizeEvent *event)
{
    const QPointer<ResizeSignalTableWidget> alive(this);
    Q_EMIT sigResized(event->size());
    if (alive) {
        QTableWidget::resizeEvent(event);
    }
}

class VelaTableWidgetPrivate
{
public:
    explicit VelaTableWidgetPrivate(const VelaTableColumnsInfo &declared) :
        columns(declared), headerModel(0, declared.columnCount() + 1)
    {
    }

    void createHeader(VelaTableWidget *table);
    void createBody();
    void sizeColumns();
    void setUpBody();
    void layOut(VelaTableWidget *table);

    const VelaTableColumnsInfo columns;
    QTableWidget headerModel; // table, itself never shown, whose columns the header shows
    QScrollArea *headerArea = nullptr;
    QHeaderView *header = nullptr;
    ResizeSignalTableWidget *body = nullptr;
};

void VelaTableWidgetPrivate::createHeader(VelaTableWidget *table)
{
    // The area is in its place before it is styled: a styled widget that is given another parent is polished again.
    headerArea = new HeaderArea(table);
    header = new TableHeader(headerArea);
    headerArea->setWidget(header);

    header->setModel(headerModel.model());
    header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    header->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    header->setStyleSheet(Look::sheet(Style::TableHeader));
    header->setFixedSize(scaled(HeaderWidth), scaled(HeaderHeight));

    QStringList labels;
    for (int i = 0; i < columns.columnCount(); ++i) {
        labels.append(columns.column(i).title);
    }
    labels.append(QString());
    headerModel.setHorizontalHeaderLabels(labels);
}

void VelaTableWidgetPrivate::createBody()
{
    body = new ResizeSignalTableWidget(0, columns.columnCount());
    body->horizontalHeader()->setMinimumSectionSize(0);
    headerModel.horizontalHeader()->setMinimumSectionSize(0);
}

void VelaTableWidgetPrivate::sizeColumns()
{
    const int filler = columns.columnCount();
    for (int i = 0; i < filler; ++i) {
        const VelaTableColumnsInfo::ColumnInfo &column = columns.column(i);
        const int width = scaled(column.width);
        header->resizeSection(i, width);
        headerModel.horizontalHeader()->resizeSection(i, width);
        body->horizontalHeader()->resizeSection(i, width);
        header->setSectionResizeMode(i, resizeModeOf(column));
        body->horizontalHeader()->setSectionResizeMode(i, resizeModeOf(column));
    }
    header->resizeSection(filler, scaled(FillerWidth));
    headerModel.horizontalHeader()->resizeSection(filler, scaled(FillerWidth));
    header->setSectionResizeMode(filler, QHeaderView::Fixed);
}

void VelaTableWidgetPrivate::setUpBody()
{
    body->setSelectionBehavior(QAbstractItemView::SelectRows);
    body->setEditTriggers(QAbstractItemView::NoEditTriggers);
    body->setTabKeyNavigation(false);
    body->verticalHeader()->hide();
    body->horizontalHeader()->hide();
    body->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    body->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    body->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    body->verticalHeader()->setDefaultSectionSize(scaled(Metric::RowHeight));
    const QString sheet = Look::sheet(Style::Table);
    body->setStyleSheet(sheet + Look::sheet(Style::ScrollBar));
    body->setShowGrid(false);
    body->verticalScrollBar()->hide();
}

void VelaTableWidgetPrivate::layOut(VelaTableWidget *table)
{
    auto *column = new QVBoxLayout(table);
    column->setSpacing(0);
    column->setContentsMargins(0, 0, 0, 0);

    headerArea->setFixedHeight(scaled(HeaderHeight));
    headerArea->setFocusPolicy(Qt::NoFocus);
    headerArea->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    headerArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    headerArea->setStyleSheet(QStringLiteral("QScrollArea { border: none; }"));

    column->addWidget(headerArea);
    column->addWidget(body);
}

VelaTableWidget::VelaTableWidget(const VelaTableColumnsInfo &columns, QWidget *parent) :
    QWidget(parent), d(std::make_unique<VelaTableWidgetPrivate>(columns))
{
    initailze();
}

VelaTableWidget::~VelaTableWidget()
{
    // The header shows the model of a table that goes with the private object, before the children do.
    d->header->setModel(nullptr);
}

void VelaTableWidget::customEvent(QEvent *event)
{
    if (const auto *change = LookChange::of(event)) {
        change->restyle(d->header, Style::TableHeader);
        change->restyle(d->body, Style::Table, Style::ScrollBar);
    }
    QWidget::customEvent(event);
}

void VelaTableWidget::initailze()
{
    d->createHeader(this);
    d->createBody();
    d->sizeColumns();
    d->setUpBody();
    d->layOut(this);

    connect(d->header, &QHeaderView::sectionResized, this, &VelaTableWidget::slotSectionResized);
    connect(d->body->verticalScrollBar(), &QScrollBar::rangeChanged, this,
            &VelaTableWidget::slotVerticalScrollRangeChanged);
    connect(d->body, &ResizeSignalTableWidget::sigResized, this, &VelaTableWidget::slotTableResized);

    // The value that is told does not serve: scrolling may do the pending layout, which scrolls again, and then the
    // older value is the last to be told.
    QScrollBar *const bodyBar = d->body->horizontalScrollBar();
    QScrollBar *const headerBar = d->headerArea->horizontalScrollBar();
    connect(bodyBar, &QScrollBar::valueChanged, headerBar,
            [bodyBar, headerBar] { headerBar->setValue(bodyBar->value()); });
}

QTableWidget *VelaTableWidget::getTable()
{
    return d->body;
}

QHeaderView *VelaTableWidget::getHeader()
{
    return d->header;
}

void VelaTableWidget::slotSectionResized(int index, int, int new_size)
{
    d->body->horizontalHeader()->resizeSection(index, new_size);
}

void VelaTableWidget::slotVerticalScrollRangeChanged(int, int max)
{
    d->body->verticalScrollBar()->setVisible(max != 0);
}

void VelaTableWidget::slotTableResized(QSize size)
{
    const double dpi = DPIinfo::getInstance()->getDPI();
    qint64 fixedSum = 0;
    for (int i = 0; i < d->columns.columnCount(); ++i) {
        const VelaTableColumnsInfo::ColumnInfo &column = d->columns.column(i);
        fixedSum += isStretching(column) ? 0 : column.width;
    }
    const int free = truncated(size.width() - static_cast<double>(fixedSum) * dpi);

    for (int i = 0; i < d->columns.columnCount(); ++i) {
        const VelaTableColumnsInfo::ColumnInfo &column = d->columns.column(i);
        if (isStretching(column)) {
            const double minimum = column.width * dpi;
            const int width = truncated(free * column.stretchRatio);
            d->header->resizeSection(i, minimum > width ? truncated(minimum) : width);
        }
    }
}
