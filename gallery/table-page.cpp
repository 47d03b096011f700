// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "chrome.h"
#include "gallery-page.h"
#include "pages.h"
#include "scale/scaled.h"

#include <VelaPagingBar>
#include <VelaPagingModel>
#include <VelaTableWidget>

#include <QDate>
#include <QHeaderView>
#include <QLocale>
#include <QVBoxLayout>

#include <algorithm>
#include <functional>

namespace {

constexpr int TableHeight = 420;
constexpr int Spacing = 8;
constexpr int FileCount = 4800;
constexpr int RowsPerPage = 50;
constexpr int RangeWidth = 130;
constexpr int TotalWidth = 110;

struct File
{
    QString name;
    int kilobytes;
    QDate date;
    QString owner;
};

enum Column { Name, Size, Date, Owner, ColumnCount };

// The files are the same each time, and in no order.
std::vector<File> createFiles()
{
    const QStringList kinds {QStringLiteral("Invoice"), QStringLiteral("Photo"), QStringLiteral("Minutes"),
                             QStringLiteral("Draft"), QStringLiteral("Scan")};
    const QStringList suffixes {QStringLiteral("pdf"), QStringLiteral("jpg"), QStringLiteral("docx"),
                                QStringLiteral("txt"), QStringLiteral("png")};
    const QStringList owners {QStringLiteral("Ada"), QStringLiteral("Grace"), QStringLiteral("Edsger"),
                              QStringLiteral("Barbara")};
    const QDate latest(2026, 11, 20);
    std::vector<File> files;
    for (int i = 0; i < FileCount; ++i) {
        const int mixed = i * 7919 % FileCount;
        const int kind = mixed % kinds.size();
        files.push_back({QStringLiteral("%1 %2.%3").arg(kinds.at(kind)).arg(mixed + 1).arg(suffixes.at(kind)),
                         mixed * 37 % 9973 + 1, latest.addDays(-(mixed * 13 % 2000)),
                         owners.at(mixed % owners.size())});
    }
    return files;
}

VelaTableColumnsInfo createColumns()
{
    VelaTableColumnsInfo columns;
    columns.addColumn(QStringLiteral("Name"), 180, true, 0.7);
    columns.addColumn(QStringLiteral("Size"), 90, false, 0.0);
    columns.addColumn(QStringLiteral("Changed"), 110, true, 0.0);
    columns.addColumn(QStringLiteral("Owner"), 80, true, 0.3);
    return columns;
}

// A list of files, shown a page at a time: the client's side of a table and a paging bar.
class FileList : public QWidget
{
public:
    explicit FileList(GalleryPage *page);

private:
    void sortBy(int column);
    void showPage();

    std::vector<File> m_files = createFiles();
    int m_sortColumn = Name;
    Qt::SortOrder m_order = Qt::DescendingOrder;
    VelaPagingModel m_model {RowsPerPage};
    // The bar is a member as well, so that it goes before its model.
    VelaPagingBar m_bar {&m_model};
    VelaTableWidget *m_table = new VelaTableWidget(createColumns());
};

FileList::FileList(GalleryPage *page)
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(scaled(Spacing));
    column->addWidget(m_table);
    column->addWidget(&m_bar);
    m_table->setFixedHeight(scaled(TableHeight));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);

    m_bar.setItemCount(FileCount);
    QHeaderView *header = m_table->getHeader();
    header->setSectionsClickable(true);
    header->setSortIndicatorShown(true);
    connect(header, &QHeaderView::sectionClicked, this, &FileList::sortBy);
    connect(&m_bar, &VelaPagingBar::sigPageChanged, this, &FileList::showPage);
    connect(&m_bar, &VelaPagingBar::sigRefresh, this, &FileList::showPage);
    page->logSignal(QStringLiteral("Header"), header, &QHeaderView::sectionClicked);
    page->logSignal(QStringLiteral("Paging bar"), &m_bar, &VelaPagingBar::sigPageChanged);
    page->logSignal(QStringLiteral("Paging bar"), &m_bar, &VelaPagingBar::sigRefresh);
    sortBy(Name);
}

void FileList::sortBy(int column)
{
    static const std::function<bool(const File &, const File &)> comparisons[ColumnCount] = {
        [](const File &left, const File &right) { return left.name < right.name; },
        [](const File &left, const File &right) { return left.kilobytes < right.kilobytes; },
        [](const File &left, const File &right) { return left.date < right.date; },
        [](const File &left, const File &right) { return left.owner < right.owner; },
    };
    // The section above the scroll bar has been given the indicator by the click.
    if (column >= ColumnCount) {
        m_table->getHeader()->setSortIndicator(m_sortColumn, m_order);
        return;
    }
    const bool isSame = column == m_sortColumn;
    m_order = isSame && m_order == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
    m_sortColumn = column;
    const auto &isLess = comparisons[column];
    std::stable_sort(m_files.begin(), m_files.end(), [&](const File &left, const File &right) {
        return m_order == Qt::AscendingOrder ? isLess(left, right) : isLess(right, left);
    });
    m_table->getHeader()->setSortIndicator(column, m_order);
    m_bar.reset();
}

void FileList::showPage()
{
    const QLocale locale;
    const int first = m_model.startItem();
    const int count = std::min(RowsPerPage, FileCount - first);
    QTableWidget *table = m_table->getTable();
    table->setRowCount(count);
    for (int row = 0; row < count; ++row) {
        const File &file = m_files.at(static_cast<std::size_t>(first + row));
        const QString texts[ColumnCount] = {file.name, QStringLiteral("%1 KB").arg(locale.toString(file.kilobytes)),
                                            locale.toString(file.date, QLocale::ShortFormat), file.owner};
        for (int column = 0; column < ColumnCount; ++column) {
            table->setItem(row, column, new QTableWidgetItem(texts[column]));
        }
    }
    table->scrollToTop();
    m_bar.setFooterInfos({{QStringLiteral("%1\u2013%2").arg(first + 1).arg(first + count), RangeWidth},
                          {QStringLiteral("%1 files").arg(locale.toString(FileCount)), TotalWidth}});
}

} // namespace

GalleryPage *createTablePage(const QString &title)
{
    auto *page = new GalleryPage(title,
                                 QStringLiteral("A long list, a page at a time. A click on a heading sorts it. The "
                                                "edge of Changed can be dragged; Name and Owner stretch with the "
                                                "window."));
    page->addSection(
        QStringLiteral("VelaTableWidget and VelaPagingBar"),
        QStringLiteral("component.table, component.table_header, component.scrollbar, component.paging_bar_\u2026"));
    page->addWide(new FileList(page));
    return page;
}
