// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "views/table-test.h"

#include "support/controls.h"
#include "support/environment.h"

#include <QApplication>
#include <QWheelEvent>
#include <QtTest>

VelaTableColumnsInfo declared(const Columns &columns)
{
    VelaTableColumnsInfo info;
    for (const Column &column : columns) {
        info.addColumn(QString::fromLatin1(column.title), column.width, column.resizable, column.ratio);
    }
    return info;
}

QVector<int> baseWidths(const Columns &columns)
{
    QVector<int> widths;
    for (const Column &column : columns) {
        widths.append(expectedPixels(column.width));
    }
    return widths;
}

QVector<int> widthsOf(const QHeaderView *header, int count)
{
    QVector<int> widths;
    for (int i = 0; i < count; ++i) {
        widths.append(header->sectionSize(i));
    }
    return widths;
}

TableWindow::TableWindow(const Columns &columns, const QSize &size) :
    table(new VelaTableWidget(declared(columns), this)),
    body(table->getTable()),
    header(table->getHeader()),
    area(table->findChild<QScrollArea *>()),
    m_count(columns.size())
{
    table->setGeometry(QRect(QPoint(0, 0), size));
    resize(900, 560);
}

bool TableWindow::showAndWait()
{
    const bool isActive = TestWindow::showAndWait();
    QTest::mouseMove(windowHandle(), QPoint(width() - 2, height() - 2));
    return isActive;
}

void TableWindow::addRows(int count)
{
    body->setRowCount(count);
    for (int row = 0; row < count; ++row) {
        for (int i = 0; i < m_count; ++i) {
            body->setItem(row, i, new QTableWidgetItem(QStringLiteral("%1/%2").arg(row).arg(i)));
        }
    }
}

int TableWindow::headerLeft(int column) const
{
    return header->viewport()->mapTo(this, QPoint(header->sectionViewportPosition(column), 0)).x();
}

int TableWindow::bodyLeft(int column) const
{
    return body->viewport()->mapTo(this, QPoint(body->columnViewportPosition(column), 0)).x();
}

QPoint TableWindow::rightEdge(int section) const
{
    return {headerLeft(section) + header->sectionSize(section) - 1, headerCenter().y()};
}

void TableWindow::drag(int section, int distance)
{
    constexpr int Steps = 4;
    const QPoint start = rightEdge(section);
    QTest::mouseMove(windowHandle(), start);
    QTest::mousePress(windowHandle(), Qt::LeftButton, {}, start);
    for (int i = 1; i <= Steps; ++i) {
        QTest::mouseMove(windowHandle(), start + QPoint(distance * i / Steps, 0));
        QCoreApplication::processEvents();
    }
    QTest::mouseRelease(windowHandle(), Qt::LeftButton, {}, start + QPoint(distance, 0));
    QCoreApplication::processEvents();
}

void TableWindow::wheel(const QPoint &position, const QPoint &angle)
{
    QWheelEvent event(position, mapToGlobal(position), QPoint(), angle, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    QSpontaneKeyEvent::setSpontaneous(&event);
    QApplication::instance()->notify(windowHandle(), &event);
}

void TableTest::initTestCase()
{
    installSheets(m_folder,
                  "== component.table_header ==\nQHeaderView { background: white; border: none }\n"
                  "QHeaderView::section { background: red; border: none; padding: 0px }\n"
                  "QHeaderView::section:last { background: blue }\n"
                  "== component.table ==\nQTableView { border: none; background: white }\n"
                  "== component.scrollbar ==\nQScrollBar:vertical { width: 12px; background: lime; margin: 0px }\n"
                  "QScrollBar:horizontal { height: 12px; background: lime; margin: 0px }\n"
                  "QScrollBar::handle { background: green }\n"
                  "QScrollBar::add-line, QScrollBar::sub-line { width: 0px; height: 0px }\n");
}
