// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// A table that is sorted across all of its pages by a click on a heading.

#include <VelaPagingBar>
#include <VelaPagingModel>
#include <VelaTableWidget>
#include <VelaTheme>

#include <QApplication>
#include <QHeaderView>
#include <QVBoxLayout>

#include <algorithm>
#include <numeric>
#include <vector>

namespace {

constexpr int RowsPerPage = 25;
constexpr int Count = 1000;

VelaTableColumnsInfo columns()
{
    VelaTableColumnsInfo columns;
    columns.addColumn(QStringLiteral("Number"), 120, true, 1.0);
    return columns;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    VelaTheme::getInstance()->load(application.arguments().value(1, QStringLiteral(THEME)), QStringLiteral("enu"));
    std::vector<int> numbers(Count);
    std::iota(numbers.begin(), numbers.end(), 1);

    QWidget window;
    VelaPagingModel pages(RowsPerPage);
    auto *table = new VelaTableWidget(columns());
    auto *bar = new VelaPagingBar(&pages);
    auto *layout = new QVBoxLayout(&window);
    layout->addWidget(table);
    layout->addWidget(bar);
    bar->setItemCount(Count);
    QHeaderView *header = table->getHeader();
    header->setSectionsClickable(true);
    header->setSortIndicatorShown(true);

    const auto showPage = [&] {
        const int count = std::min(RowsPerPage, Count - pages.startItem());
        table->getTable()->setRowCount(count);
        for (int row = 0; row < count; ++row) {
            const int number = numbers.at(static_cast<std::size_t>(pages.startItem() + row));
            table->getTable()->setItem(row, 0, new QTableWidgetItem(QString::number(number)));
        }
    };
    QObject::connect(bar, &VelaPagingBar::sigPageChanged, table, showPage);
    // The header has turned its indicator already. The section above the scroll bar is clickable too.
    QObject::connect(header, &QHeaderView::sectionClicked, table, [&](int section) {
        if (section == 0) {
            const bool isAscending = header->sortIndicatorOrder() == Qt::AscendingOrder;
            std::sort(numbers.begin(), numbers.end(), [=](int a, int b) { return isAscending ? a < b : b < a; });
        }
        bar->reset(); // to the first page, which tells of it
    });
    header->setSortIndicator(0, Qt::AscendingOrder);
    showPage();
    window.show();
    return application.exec();
}
