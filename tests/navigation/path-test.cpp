// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "navigation/path-test.h"

#include "support/controls.h"

#include <QMenu>
#include <QScrollBar>
#include <QtTest>

namespace {

const char Sheets[] = "== component.menu ==\nQMenu { background: #ffff00; margin: 3px }\n"
                      "== component.button_path_change_folder_btn ==\n"
                      "QToolButton { background: #ff0000; border: none; margin: 0px }\n"
                      "QToolButton::menu-indicator { image: none }\n"
                      "== component.button_path ==\nQTableView { background: #123456; border: none }\n"
                      "== component.button_path_arrow ==\nQPushButton { background: #00ff00; border: none }\n"
                      "== component.button_path_name_button ==\n"
                      "QPushButton { background: #0000ff; border: none; font-size: 14px }\n";

} // namespace

QStringList namesIn(const QString &path)
{
    QStringList names;
    bool isInName = false;
    for (const QChar character : path) {
        if (character == QLatin1Char('/')) {
            isInName = false;
            continue;
        }
        if (!isInName) {
            names.append(QString());
        }
        isInName = true;
        names.last() += character;
    }
    return names;
}

PathWindow::PathWindow(int width) : bar(new VelaButtonPath(this)), chosen(bar, &VelaButtonPath::sigUpdatePath)
{
    bar->resize(width, bar->maximumHeight());
    resize(600, 100);
}

void PathWindow::refresh(const QString &path)
{
    bar->refresh(path);
    QCoreApplication::processEvents();
}

QStringList PathWindow::buttonTexts() const
{
    QStringList texts;
    for (int column = 0; column < bar->columnCount(); ++column) {
        texts.append(button(column)->text());
    }
    return texts;
}

QStringList PathWindow::menuTexts() const
{
    QStringList texts;
    const QList<QAction *> actions = menuButton()->menu()->actions();
    for (const QAction *action : actions) {
        texts.append(action->text());
    }
    return texts;
}

int PathWindow::totalWidth() const
{
    int total = 0;
    for (int column = 0; column < bar->columnCount(); ++column) {
        total += bar->columnWidth(column);
    }
    return total;
}

QVector<int> PathWindow::rightEdges() const
{
    QVector<int> edges;
    int right = 0;
    for (int column = 0; column < bar->columnCount(); ++column) {
        right += bar->columnWidth(column);
        if (column % 2 == 0) {
            edges.append(right);
        }
    }
    return edges;
}

void PathWindow::useMenu(const std::function<void(QMenu *)> &choose)
{
    QMenu *menu = menuButton()->menu();
    const MenuUser user(menu, [&] { choose(menu); });
    const QPoint center = menuButton()->mapTo(this, menuButton()->rect().center());
    QTest::mousePress(windowHandle(), Qt::LeftButton, {}, center);
    QTest::mouseRelease(windowHandle(), Qt::LeftButton, {}, center);
    QVERIFY(user.hasUsed());
}

void PathWindow::clickInMenu(int i)
{
    useMenu([i](QMenu *menu) {
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(menu->actions().at(i)).center());
    });
}

void PathTest::initTestCase()
{
    m_folder.writeImage(QStringLiteral("folder"), QSize(80, 80), Qt::cyan);
    m_folder.writeImage(QStringLiteral("bt_next"), QSize(80, 80), Qt::magenta);
    m_folder.writeCatalogue({QStringLiteral("folder"), QStringLiteral("bt_next")});
    installSheets(m_folder, Sheets);
}
