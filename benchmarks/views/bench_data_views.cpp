// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/paging/vela-paging-bar.h"
#include "component/vela-button-path.h"
#include "component/vela-button.h"
#include "component/vela-table-widget.h"
#include "component/vela-tree-widget.h"
#include "image-manager/image-manager.h"
#include "style-manager/style-manager.h"
#include "support/comparison.h"
#include "support/panels.h"
#include "support/resources.h"

#include <QApplication>
#include <QCursor>
#include <QHeaderView>
#include <QLoggingCategory>
#include <QPushButton>
#include <QResizeEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QTableWidget>
#include <QTreeWidget>

#include <malloc.h>

#include <functional>
#include <memory>

namespace {

constexpr double TableTarget = 1.25;
constexpr double HeapTarget = 1.2;
constexpr double TreeTarget = 1.05;
constexpr double MovingTarget = 1.05;
constexpr double JumpTarget = 1.1;
constexpr double PagingTarget = 1.2;
constexpr double ShallowPathTarget = 1.3;
constexpr double RowPathTarget = 1.25;
constexpr double DeepPathTarget = 1.0;

constexpr int Columns = 50;
constexpr int ColumnWidth = 10; // least width of a column
constexpr int Rows = 100000;
constexpr int HeaderWidth = 20000;
constexpr int HeaderHeight = 30;
constexpr int RowHeight = 28;
constexpr int BarHeight = 28;
constexpr QSize WindowSize(900, 600);
const QPoint TreePosition(100, 100);
constexpr int WheelStep = 3;

QString sheetOf(const char *key)
{
    return getStyleSheet(key, false);
}

// ---- table

using MakeTable = std::function<QTableWidget *(QWidget *parent)>;

// Columns that stretch alike and fill the table.
QTableWidget *table(QWidget *parent)
{
    VelaTableColumnsInfo columns;
    for (int i = 0; i < Columns; ++i) {
        columns.addColumn(QStringLiteral("Column %1").arg(i), ColumnWidth, true, 1.0 / Columns);
    }
    auto *widget = new VelaTableWidget(columns, parent);
    widget->resize(WindowSize);
    return widget->getTable();
}

// A table whose columns share its width, by a header above it.
class Stretcher : public QObject
{
public:
    Stretcher(QHeaderView *header, QTableWidget *body) : QObject(body), m_header(header)
    {
        body->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Resize) {
            const int width = static_cast<QResizeEvent *>(event)->size().width();
            for (int i = 0; i < Columns; ++i) {
                m_header->resizeSection(i, width / Columns);
            }
        }
        return false;
    }

private:
    QHeaderView *const m_header;
};

// A header above the rows, put together from what Qt has.
QTableWidget *tableBelowHeader(QWidget *parent, QAbstractItemModel *headerModel)
{
    auto *widget = new QWidget(parent);
    auto *area = new QScrollArea(widget);
    auto *header = new QHeaderView(Qt::Horizontal, area);
    auto *body = new QTableWidget(0, Columns, widget);
    header->setModel(headerModel);
    header->setStyleSheet(sheetOf("component.table_header"));
    header->setFixedSize(HeaderWidth, HeaderHeight);
    header->setMinimumSectionSize(0);
    body->horizontalHeader()->setMinimumSectionSize(0);
    for (int i = 0; i < Columns; ++i) {
        header->resizeSection(i, ColumnWidth);
        body->horizontalHeader()->resizeSection(i, ColumnWidth);
    }
    body->horizontalHeader()->hide();
    body->verticalHeader()->hide();
    body->verticalHeader()->setDefaultSectionSize(RowHeight);
    body->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    body->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    body->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    body->setShowGrid(false);
    body->setStyleSheet(sheetOf("component.table") + sheetOf("component.scrollbar"));
    area->setWidget(header);
    area->setFixedHeight(HeaderHeight);
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setStyleSheet(QStringLiteral("QScrollArea { border: none; }"));
    auto *column = new QVBoxLayout(widget);
    column->setSpacing(0);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(area);
    column->addWidget(body);
    QObject::connect(header, &QHeaderView::sectionResized, body,
                     [body](int index, int, int size) { body->horizontalHeader()->resizeSection(index, size); });
    QObject::connect(body->horizontalScrollBar(), &QScrollBar::valueChanged, area->horizontalScrollBar(),
                     &QScrollBar::setValue);
    new Stretcher(header, body);
    widget->resize(WindowSize);
    return body;
}

template<typename Model>
void setTitles(Model *model)
{
    QStringList titles;
    for (int i = 0; i < Columns; ++i) {
        titles.append(QStringLiteral("Column %1").arg(i));
    }
    model->setHorizontalHeaderLabels(titles);
}

// One whose header shows the model of another table, as ours does.
QTableWidget *bareTable(QWidget *parent)
{
    auto *titles = new QTableWidget(0, Columns + 1);
    QTableWidget *body = tableBelowHeader(parent, titles->model());
    titles->setParent(body->parentWidget());
    titles->hide();
    setTitles(titles);
    return body;
}

// The shortest code for one.
QTableWidget *shortTable(QWidget *parent)
{
    auto *titles = new QStandardItemModel(0, Columns + 1);
    QTableWidget *body = tableBelowHeader(parent, titles);
    titles->setParent(body->parentWidget());
    setTitles(titles);
    return body;
}

// Counts what a table without rows has allocated by the time it has been painted.
void weighTables(benchmark::State &state, const MakeTable &make)
{
    QWidget window;
    window.resize(WindowSize);
    window.show();
    QApplication::processEvents();
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        const std::size_t before = mallinfo2().uordblks;
        QTableWidget *body = make(&window);
        const PaintWatcher watcher(body->viewport());
        body->parentWidget()->show();
        watcher.waitForPaint();
        QApplication::processEvents();
        setBytes(state, mallinfo2().uordblks - before);

        delete body->parentWidget();
        QApplication::processEvents();
    }
}

void constructTables(benchmark::State &state, const MakeTable &make, int rowCount)
{
    QWidget window;
    window.resize(WindowSize);
    window.show();
    QApplication::processEvents();
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        QTableWidget *body = make(&window);
        body->setRowCount(rowCount);
        const PaintWatcher watcher(body->viewport());
        body->parentWidget()->show();
        watcher.waitForPaint();

        state.PauseTiming();
        delete body->parentWidget();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}

void resizeTables(benchmark::State &state, const MakeTable &make)
{
    QWidget window;
    window.resize(WindowSize);
    QTableWidget *body = make(&window);
    body->setRowCount(Rows);
    for (int row = 0; row < Rows; ++row) {
        body->setItem(row, 0, new QTableWidgetItem(QStringLiteral("Row %1").arg(row)));
    }
    window.show();
    QApplication::processEvents();
    QWidget *widget = body->parentWidget();
    int width = WindowSize.width();
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        width = width == WindowSize.width() ? width + Columns : WindowSize.width(); // one pixel more for each column
        widget->resize(width, WindowSize.height());
        QApplication::processEvents();
    }
}

void compareTables(const char *what, int rowCount)
{
    compare(
        what, TableTarget, [rowCount](benchmark::State &state) { constructTables(state, table, rowCount); },
        [rowCount](benchmark::State &state) { constructTables(state, bareTable, rowCount); });
}

// ---- tree

struct Ours
{
    using Tree = VelaTreeWidget;
    using Delegate = ItemDelegate;
    using Item = FileSystemTreeWidgetItem;
};

// Rows of the same height, items with a path.
struct Bare
{
    class Delegate : public QItemDelegate
    {
    public:
        QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
        {
            return {QItemDelegate::sizeHint(option, index).width(), RowHeight};
        }
    };

    class Item : public QTreeWidgetItem
    {
    public:
        QString path;
    };

    using Tree = QTreeWidget;
};

template<typename Side>
std::unique_ptr<typename Side::Tree> tree(int count)
{
    auto tree = std::make_unique<typename Side::Tree>();
    auto *delegate = new typename Side::Delegate;
    delegate->setParent(tree.get());
    tree->setItemDelegate(delegate);
    tree->setHeaderHidden(true);
    tree->setUniformRowHeights(true);
    QList<QTreeWidgetItem *> items;
    items.reserve(count);
    for (int i = 0; i < count; ++i) {
        auto *item = new typename Side::Item;
        item->setText(0, QStringLiteral("Folder %1").arg(i));
        item->path = QStringLiteral("/folders/%1").arg(i);
        items.append(item);
    }
    tree->addTopLevelItems(items);
    tree->setGeometry(QRect(TreePosition, WindowSize));
    return tree;
}

template<typename Side>
void constructTrees(benchmark::State &state, int count)
{
    QCursor::setPos(0, 0);
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        auto shownTree = tree<Side>(count);
        const PaintWatcher watcher(shownTree->viewport());
        shownTree->show();
        watcher.waitForPaint();

        state.PauseTiming();
        shownTree.reset();
        state.ResumeTiming();
    }
}

// Scrolls by step rows at a time, with the pointer at pointer; ours highlights the row under it, so it paints more.
template<typename Side>
void scrollTrees(benchmark::State &state, int count, int step, const QPoint &pointer)
{
    const auto shownTree = tree<Side>(count);
    QCursor::setPos(pointer);
    shownTree->show();
    QApplication::processEvents();
    QScrollBar *bar = shownTree->verticalScrollBar();
    int value = 0;
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        value = (value + step) % bar->maximum();
        bar->setValue(value);
        QApplication::processEvents();
    }
}

void compareTrees(const std::string &size, int count)
{
    const auto compareScrolling = [&](const std::string &how, double target, int step, const QPoint &pointer) {
        compare(
            "VelaTreeWidget, " + size + " items, " + how, target,
            [=](benchmark::State &state) { scrollTrees<Ours>(state, count, step, pointer); },
            [=](benchmark::State &state) { scrollTrees<Bare>(state, count, step, pointer); });
    };
    compare(
        "VelaTreeWidget, " + size + " items, first paint", TreeTarget,
        [count](benchmark::State &state) { constructTrees<Ours>(state, count); },
        [count](benchmark::State &state) { constructTrees<Bare>(state, count); });
    compareScrolling("scrolling", MovingTarget, WheelStep, QPoint(0, 0));
    for (const int step : {1, WheelStep, 10, 30, 1237, 40000}) {
        if (step < count) {
            compareScrolling("jump of " + std::to_string(step), JumpTarget, step, TreePosition + QPoint(300, 300));
        }
    }
}

// ---- paging

// The buttons are the library's on both sides: bench_buttons compares those.
QWidget *barePagingBar(QWidget *parent)
{
    auto *bar = new QWidget(parent);
    auto *border = new QWidget(bar);
    border->setStyleSheet(sheetOf("component.paging_bar_border"));
    auto *row = new QHBoxLayout(border);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    const auto addIcon = [row](const char *image) { row->addWidget(new VelaIconButton(QString::fromLatin1(image))); };
    addIcon("bt_pagebar_back");
    addIcon("bt_pagebar_backend");
    for (int i = 0; i < 5; ++i) {
        row->addWidget(
            new VelaButton(QString(), i == 2 ? VelaButton::SelectPagingButton : VelaButton::NonselectPagingButton));
    }
    addIcon("bt_pagebar_nextend");
    addIcon("bt_pagebar_next");
    addIcon("bt_pagebar_refresh");
    auto *outer = new QHBoxLayout(bar);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->addWidget(border);
    return bar;
}

void turnPages(benchmark::State &state, int itemCount)
{
    VelaPagingModel model(50);
    QWidget window;
    VelaPagingBar bar(&model, &window);
    bar.setItemCount(itemCount);
    window.show();
    QApplication::processEvents();
    const int pages = model.pageCount();
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        bar.setPage(pages / 2);
        bar.setPage(pages);
    }
}

// ---- breadcrumb

QString pathOf(int depth)
{
    QString path;
    for (int i = 0; i < depth; ++i) {
        path += QStringLiteral("/folder %1").arg(i);
    }
    return path;
}

// The buttons of a path in a table, a column at a time.
void fillBarePath(QTableWidget *table, int depth)
{
    table->clear();
    table->setColumnCount(0);
    const auto add = [table](QPushButton *button, const char *styleKey, int width, int height) {
        button->setFlat(true);
        button->setStyleSheet(sheetOf(styleKey));
        button->setFixedSize(width, height);
        const int column = table->columnCount();
        table->insertColumn(column);
        table->setCellWidget(0, column, button);
        table->setColumnWidth(column, width);
    };
    for (int i = 0; i < depth; ++i) {
        if (i > 0) {
            auto *arrow = new QPushButton(table->viewport());
            arrow->setIcon(getGlobalImage("bt_next", ImageManager::IMAGE_NORMAL));
            add(arrow, "component.button_path_arrow", 6, BarHeight);
        }
        const QString name = QStringLiteral("folder %1").arg(i);
        auto *button = new QPushButton(name, table->viewport());
        add(button, "component.button_path_name_button", button->fontMetrics().horizontalAdvance(name) + 16,
            BarHeight - 2);
    }
    table->horizontalScrollBar()->setValue(table->horizontalScrollBar()->maximum());
}

void setUpBarePath(QTableWidget *table)
{
    table->insertRow(0);
    table->horizontalHeader()->hide();
    table->verticalHeader()->hide();
    table->setShowGrid(false);
    table->horizontalHeader()->setMinimumSectionSize(0);
    table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    table->setStyleSheet(sheetOf("component.button_path"));
    table->setFixedHeight(BarHeight);
}

// The shortest code for such a path: a row of buttons in a scroll area.
class ButtonRow : public QScrollArea
{
public:
    explicit ButtonRow(QWidget *parent) : QScrollArea(parent), m_row(new QWidget)
    {
        setFixedHeight(BarHeight);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setStyleSheet(sheetOf("component.button_path"));
        setWidgetResizable(true);
        setWidget(m_row);
        auto *layout = new QHBoxLayout(m_row);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(0);
        layout->setAlignment(Qt::AlignLeft);
    }

    QWidget *row() const { return m_row; }

    void refresh(int depth)
    {
        qDeleteAll(m_row->findChildren<QPushButton *>());
        for (int i = 0; i < depth; ++i) {
            if (i > 0) {
                auto *arrow = new QPushButton(m_row);
                arrow->setIcon(getGlobalImage("bt_next", ImageManager::IMAGE_NORMAL));
                add(arrow, "component.button_path_arrow");
                arrow->setFixedSize(6, BarHeight);
            }
            auto *button = new QPushButton(QStringLiteral("folder %1").arg(i), m_row);
            add(button, "component.button_path_name_button");
            button->setFixedHeight(BarHeight - 2);
        }
        m_row->layout()->activate();
        horizontalScrollBar()->setValue(horizontalScrollBar()->maximum());
    }

private:
    void add(QPushButton *button, const char *styleKey)
    {
        button->setFlat(true);
        button->setStyleSheet(sheetOf(styleKey));
        m_row->layout()->addWidget(button);
    }

    QWidget *const m_row;
};

// The parts of a path that are painted when it is.
QWidget *paintedPart(QTableWidget *path)
{
    return path->viewport();
}

QWidget *paintedPart(ButtonRow *path)
{
    return path->row();
}

// The time from nothing to the first paint.
template<typename Path, typename Fill>
void constructPaths(benchmark::State &state, Fill fill)
{
    QWidget window;
    window.resize(WindowSize);
    window.show();
    QApplication::processEvents();
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        auto *path = new Path(&window);
        fill(path, true);
        const PaintWatcher watcher(paintedPart(path));
        path->show();
        watcher.waitForPaint();

        state.PauseTiming();
        delete path;
        QApplication::processEvents();
        state.ResumeTiming();
    }
}

template<typename Path, typename Fill>
void refreshPaths(benchmark::State &state, Fill fill)
{
    QWidget window;
    window.resize(WindowSize);
    Path path(&window);
    path.resize(WindowSize.width(), BarHeight);
    fill(&path, true);
    window.show();
    QApplication::processEvents();
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        fill(&path, false);
        QApplication::processEvents();
    }
}

void comparePaths(int depth, double target)
{
    const QString path = pathOf(depth);
    const auto fill = [path](VelaButtonPath *bar, bool) { bar->refresh(path); };
    const auto fillBare = [depth](QTableWidget *table, bool isNew) {
        if (isNew) {
            setUpBarePath(table);
        }
        fillBarePath(table, depth);
    };
    const std::string name = "VelaButtonPath, depth " + std::to_string(depth);
    compare(
        name + ", first paint", target,
        [fill](benchmark::State &state) { constructPaths<VelaButtonPath>(state, fill); },
        [fillBare](benchmark::State &state) { constructPaths<QTableWidget>(state, fillBare); });
    compare(
        name + ", refresh", target, [fill](benchmark::State &state) { refreshPaths<VelaButtonPath>(state, fill); },
        [fillBare](benchmark::State &state) { refreshPaths<QTableWidget>(state, fillBare); });
}

void comparePathsToRows(int depth)
{
    const QString path = pathOf(depth);
    const auto fill = [path](VelaButtonPath *bar, bool) { bar->refresh(path); };
    const auto fillRow = [depth](ButtonRow *row, bool) { row->refresh(depth); };
    const std::string name = "VelaButtonPath, depth " + std::to_string(depth);
    compare(
        name + ", first paint, floor a row", RowPathTarget,
        [fill](benchmark::State &state) { constructPaths<VelaButtonPath>(state, fill); },
        [fillRow](benchmark::State &state) { constructPaths<ButtonRow>(state, fillRow); });
    compare(
        name + ", refresh, floor a row", RowPathTarget,
        [fill](benchmark::State &state) { refreshPaths<VelaButtonPath>(state, fill); },
        [fillRow](benchmark::State &state) { refreshPaths<ButtonRow>(state, fillRow); });
}

// Whether the time grows with the depth and no faster: twice the path against the path twice.
void compareGrowth(int depth)
{
    const auto refresh = [](benchmark::State &state, int partCount, int times) {
        const QString path = pathOf(partCount);
        QWidget window;
        window.resize(WindowSize);
        VelaButtonPath bar(&window);
        bar.resize(WindowSize.width(), BarHeight);
        window.show();
        for (auto iteration : state) {
            Q_UNUSED(iteration)
            for (int i = 0; i < times; ++i) {
                bar.refresh(path);
            }
        }
    };
    compare(
        "VelaButtonPath, depth " + std::to_string(depth) + ", against half twice", std::nullopt,
        [refresh, depth](benchmark::State &state) { refresh(state, depth, 1); },
        [refresh, depth](benchmark::State &state) { refresh(state, depth / 2, 2); });
}

QByteArray sheets()
{
    return headed("component.table", "QTableWidget { color: #17202b; border: none }")
        + headed("component.table_header", "QHeaderView::section { padding: 4px; border: none }")
        + headed("component.scrollbar", "QScrollBar { width: 12px }")
        + headed("component.paging_bar_border", "QWidget#PAGINGBARBORDER { border: none }")
        + headed("component.icon_button", buttonSheet("QToolButton"))
        + headed("component.select_paging_button", buttonSheet("QPushButton"))
        + headed("component.nonselect_paging_button", buttonSheet("QPushButton"))
        + headed("component.button_path", "QTableWidget, QScrollArea { border: 1px solid #c8d2dc }")
        + headed("component.button_path_arrow", "QPushButton { border: none }")
        + headed("component.button_path_name_button", buttonSheet("QPushButton"))
        + headed("component.button_path_change_folder_btn", "QToolButton { border: none }")
        + headed("component.menu", buttonSheet("QMenu"));
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    const Resources resources;
    const QStringList images {QStringLiteral("bt_next"),
                              QStringLiteral("folder"),
                              QStringLiteral("bt_pagebar_back"),
                              QStringLiteral("bt_pagebar_backend"),
                              QStringLiteral("bt_pagebar_nextend"),
                              QStringLiteral("bt_pagebar_next"),
                              QStringLiteral("bt_pagebar_refresh"),
                              QStringLiteral("bt_pagebar_refresh_hover"),
                              QStringLiteral("bt_pagebar_refresh_disable")};
    for (const QString &image : images) {
        resources.writeImage(image, 64);
    }
    resources.writeCatalogue(images);
    ImageManager::getInstance()->initialize(ImageManager::INIT_LAZY);
    StyleManager::getInstance()->initialize({resources.writeSheet(QStringLiteral("views.qss"), sheets())});
    QLoggingCategory::setFilterRules(QStringLiteral("debug.message.warning=false")); // texts and states are left out

    compareTables("VelaTableWidget, first paint", 0);
    compareTables("VelaTableWidget, 100000 rows, first paint", Rows);
    compare(
        "VelaTableWidget, 100000 rows, resizing", MovingTarget,
        [](benchmark::State &state) { resizeTables(state, table); },
        [](benchmark::State &state) { resizeTables(state, bareTable); });
    compareBytes(
        "VelaTableWidget, heap without rows", HeapTarget, [](benchmark::State &state) { weighTables(state, table); },
        [](benchmark::State &state) { weighTables(state, shortTable); });
    compareBytes(
        "VelaTableWidget, heap without rows, floor with a hidden table", HeapTarget,
        [](benchmark::State &state) { weighTables(state, table); },
        [](benchmark::State &state) { weighTables(state, bareTable); });
    compareTrees("10000", 10000);
    compareTrees("100000", 100000);
    compare(
        "VelaPagingBar, first paint", PagingTarget,
        [](benchmark::State &state) {
            VelaPagingModel model(50);
            showPanels(state, 1, [&model](QWidget *parent) { return new VelaPagingBar(&model, parent); });
        },
        [](benchmark::State &state) { showPanels(state, 1, barePagingBar); });
    compare(
        "VelaPagingBar, 2000000000 items, against 1000", std::nullopt,
        [](benchmark::State &state) { turnPages(state, 2000000000); },
        [](benchmark::State &state) { turnPages(state, 1000); });
    comparePaths(8, ShallowPathTarget);
    comparePathsToRows(8);
    comparePaths(200, DeepPathTarget);
    compareGrowth(2000);
    return runComparisons(argc, argv);
}
