// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "file-table.h"

#include "disk/native-path.h"
#include "look.h"
#include "scale/scaled.h"
#include "texts/texts.h"
#include "utils/tool-tip.h"

#include <ImageManager>
#include <VelaTableWidget>

#include <QDateTime>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLocale>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int RowsPerPage = 100;
constexpr int RangeWidth = 150;
constexpr int TotalWidth = 130;
constexpr int IconSize = 20;

struct ColumnRow
{
    const char *titleKey;
    int width; // logical pixels
    bool resizable;
    double stretchRatio;
};

constexpr ColumnRow Columns[ColumnCount] = {
    {"column_name", 180, true, 0.65},
    {"column_size", 90, true, 0.0},
    {"column_changed", 160, true, 0.0},
    {"column_kind", 110, true, 0.35},
};

VelaTableColumnsInfo createColumns()
{
    VelaTableColumnsInfo columns;
    for (const ColumnRow &column : Columns) {
        columns.addColumn(text(column.titleKey), column.width, column.resizable, column.stretchRatio);
    }
    return columns;
}

QString sizeText(const FileEntry &entry)
{
    if (entry.isFolder) {
        return {};
    }
    return entry.size == FileEntry::NotRead ? QStringLiteral("…") : QLocale().formattedDataSize(entry.size, 1);
}

QString changedText(const FileEntry &entry)
{
    return entry.size == FileEntry::NotRead
        ? QString()
        : QLocale().toString(QDateTime::fromSecsSinceEpoch(entry.changed), QLocale::ShortFormat);
}

} // namespace

FileTable::FileTable(FolderModel *model, QWidget *parent) :
    QWidget(parent),
    m_model(model),
    m_pages(RowsPerPage),
    m_bar(&m_pages),
    m_table(new VelaTableWidget(createColumns())),
    m_rows(m_table->getTable())
{
    createTable();
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_table, 1);
    column->addWidget(&m_bar);
    connectSignals();
    followTheme(this, [this] { retranslate(); });
}

FileTable::~FileTable() = default;

QStringList FileTable::selectedNames() const
{
    QStringList names;
    const QModelIndexList indexes = m_rows->selectionModel()->selectedRows();
    for (const QModelIndex &index : indexes) {
        names.append(m_rows->item(index.row(), NameColumn)->data(Qt::UserRole).toString());
    }
    return names;
}

qint64 FileTable::selectedBytes() const
{
    qint64 bytes = 0;
    const QModelIndexList indexes = m_rows->selectionModel()->selectedRows();
    for (const QModelIndex &index : indexes) {
        bytes += m_rows->item(index.row(), SizeColumn)->data(Qt::UserRole).toLongLong();
    }
    return bytes;
}

void FileTable::chooseCurrent()
{
    choose(m_rows->currentRow());
}

void FileTable::await(const QString &name)
{
    m_awaited = name;
}

void FileTable::select(const QString &name)
{
    await(name);
    const int row = m_model->rowOf(name);
    if (row != -1 && row / RowsPerPage + 1 != m_pages.nowPage()) {
        m_bar.setPage(row / RowsPerPage + 1);
    }
    showPage();
}

void FileTable::focusRows()
{
    m_rows->setFocus(Qt::OtherFocusReason);
}

// Rows have a current one at first, which is not selected: the Down key selects it. Return is told as activated() on
// some desktops only.
bool FileTable::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_rows && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        const bool isPlain = static_cast<QKeyEvent *>(event)->modifiers() == Qt::NoModifier
            || static_cast<QKeyEvent *>(event)->modifiers() == Qt::KeypadModifier;
        if (key == Qt::Key_Down && !m_rows->selectionModel()->hasSelection()) {
            m_rows->selectRow(std::max(m_rows->currentRow(), 0));
            return true;
        }
        if (isPlain && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
            chooseCurrent();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void FileTable::createTable()
{
    m_rows->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_rows->setWordWrap(false);
    m_rows->setTextElideMode(Qt::ElideMiddle);
    m_rows->setIconSize(QSize(scaled(IconSize), scaled(IconSize)));
    m_rows->setContextMenuPolicy(Qt::CustomContextMenu);
    m_rows->installEventFilter(this);
    QHeaderView *header = m_table->getHeader();
    header->setSectionsClickable(true);
    header->setSortIndicatorShown(true);
}

void FileTable::connectSignals()
{
    connect(m_table->getHeader(), &QHeaderView::sectionClicked, this, &FileTable::sortBy);
    connect(m_rows, &QTableWidget::cellDoubleClicked, this, &FileTable::choose);
    connect(m_rows, &QTableWidget::itemSelectionChanged, this, &FileTable::selectionChanged);
    connect(m_rows, &QWidget::customContextMenuRequested, this,
            [this](const QPoint &position) { Q_EMIT menuWanted(m_rows->viewport()->mapToGlobal(position)); });
    connect(&m_bar, &VelaPagingBar::sigPageChanged, this, &FileTable::showPage);
    connect(&m_bar, &VelaPagingBar::sigRefresh, m_model, &FolderModel::reload);
    connect(m_model, &FolderModel::opened, this, &FileTable::showFolder);
    connect(m_model, &FolderModel::changed, this, &FileTable::renew);
}

void FileTable::retranslate()
{
    m_rows->setAccessibleName(text("files"));
    for (int column = 0; column < ColumnCount; ++column) {
        m_table->getHeader()->model()->setHeaderData(column, Qt::Horizontal, text(Columns[column].titleKey));
    }
    showPage();
}

void FileTable::sortBy(int column)
{
    Order order = m_model->order();
    // The section above the scroll bar has been given the indicator by the click.
    if (column < ColumnCount) {
        const bool isTurned = column == order.column && order.direction == Qt::AscendingOrder;
        order = {column, isTurned ? Qt::DescendingOrder : Qt::AscendingOrder};
        m_bar.setPage(1);
        m_model->setOrder(order);
    }
    m_table->getHeader()->setSortIndicator(order.column, order.direction);
}

void FileTable::showFolder()
{
    const QString awaited = m_awaited;
    m_rows->setRowCount(0);
    m_bar.setPage(1);
    m_awaited = awaited;
    renew();
    m_rows->scrollToTop();
}

void FileTable::renew()
{
    m_table->getHeader()->setSortIndicator(m_model->order().column, m_model->order().direction);
    m_bar.setItemCount(m_model->count());
    if (m_pages.nowPage() > m_pages.pageCount()) {
        m_bar.setPage(m_pages.pageCount());
    }
    const int row = m_awaited.isEmpty() ? -1 : m_model->rowOf(m_awaited);
    if (row != -1) {
        m_bar.setPage(row / RowsPerPage + 1);
    }
    showPage();
}

// What was selected and is still there stays selected.
void FileTable::showPage()
{
    QStringList selected = selectedNames();
    const int first = m_pages.startItem();
    const int count = std::clamp(m_model->count() - first, 0, RowsPerPage);
    {
        const QSignalBlocker blocker(m_rows);
        m_rows->clearSelection();
        m_rows->setRowCount(count);
        for (int row = 0; row < count; ++row) {
            fillRow(row, m_model->at(first + row));
        }
    }
    if (!m_awaited.isEmpty() && m_model->rowOf(m_awaited) != -1) {
        selected = QStringList(m_awaited);
        m_awaited.clear();
    }
    selectRows(selected);
    showRange(first, count);
    Q_EMIT selectionChanged();
}

void FileTable::selectRows(const QStringList &names)
{
    QItemSelection selection;
    for (int row = 0; row < m_rows->rowCount() && !names.isEmpty(); ++row) {
        if (names.contains(m_rows->item(row, NameColumn)->data(Qt::UserRole).toString())) {
            const QModelIndex index = m_rows->model()->index(row, 0);
            selection.select(index, m_rows->model()->index(row, ColumnCount - 1));
            m_rows->selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
        }
    }
    m_rows->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    if (!selection.isEmpty()) {
        m_rows->scrollTo(selection.indexes().constFirst());
    }
}

void FileTable::fillRow(int row, const FileEntry &entry)
{
    const QString texts[ColumnCount] = {shownName(entry.name), sizeText(entry), changedText(entry),
                                        descriptionOf(entry)};
    for (int column = 0; column < ColumnCount; ++column) {
        QTableWidgetItem *item = m_rows->item(row, column);
        if (!item) {
            item = new QTableWidgetItem;
            m_rows->setItem(row, column, item);
        }
        item->setText(texts[column]);
    }
    QTableWidgetItem *name = m_rows->item(row, NameColumn);
    name->setData(Qt::UserRole, entry.name);
    name->setIcon(getGlobalImage(imageOf(entry), ImageManager::IMAGE_NORMAL));
    name->setToolTip(getHtmlEscapedStringForToolTip(texts[NameColumn]));
    m_rows->item(row, SizeColumn)->setData(Qt::UserRole, entry.size);
    m_rows->item(row, SizeColumn)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

void FileTable::showRange(int first, int count)
{
    const QLocale locale;
    const QString range =
        count == 0 ? QString() : text("range").arg(locale.toString(first + 1), locale.toString(first + count));
    m_bar.setFooterInfos({{range, RangeWidth}, {text("count").arg(locale.toString(m_model->count())), TotalWidth}});
}

void FileTable::choose(int row)
{
    if (row >= 0 && row < m_rows->rowCount()) {
        Q_EMIT chosen(m_model->at(m_pages.startItem() + row));
    }
}
