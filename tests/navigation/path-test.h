// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "component/vela-button-path.h"
#include "support/resource-folder.h"
#include "support/test-window.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QToolButton>

#include <functional>

class QMenu;
class QScrollBar;

inline const QString LongPath = QStringLiteral("first/second/third/fourth");
constexpr int WideBar = 4000;

/// The parts of @p path that have a character, found one character at a time.
QStringList namesIn(const QString &path);

/// A bar in a window, wide enough at first for any path of the tests.
class PathWindow : public TestWindow
{
public:
    explicit PathWindow(int width = WideBar);

    /// Refreshes the bar and lays the row out.
    void refresh(const QString &path);

    /// Gives the row of the next refresh this visible width.
    void setVisibleWidth(int width) { bar->resize(bar->width() + width - bar->viewport()->width(), bar->height()); }

    QPushButton *button(int column) const { return qobject_cast<QPushButton *>(bar->cellWidget(0, column)); }
    QPushButton *nameButton(int i) const { return button(2 * i); }
    QList<QPushButton *> allButtons() const { return bar->findChildren<QPushButton *>(); }
    QToolButton *menuButton() const { return bar->findChild<QToolButton *>(QString(), Qt::FindDirectChildrenOnly); }
    QScrollBar *scrollBar() const { return bar->horizontalScrollBar(); }

    QStringList buttonTexts() const;
    QStringList menuTexts() const;
    int totalWidth() const;

    /// Where each name ends, from the row's left end.
    QVector<int> rightEdges() const;

    /// Presses the menu's button and does @p choose with the open menu; returns when the menu is closed.
    void useMenu(const std::function<void(QMenu *)> &choose);
    void clickInMenu(int i);

    VelaButtonPath *const bar;
    QSignalSpy chosen;
};

/// Gives all tests a theme of a path.
class PathTest : public QObject
{
    Q_OBJECT

protected:
    ResourceFolder m_folder;

protected Q_SLOTS:
    void initTestCase();
};
