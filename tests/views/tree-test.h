// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "component/vela-tree-widget.h"
#include "support/controls.h"

#include <QImage>

class QLineEdit;

// What a PlainTree is painted in.
inline const QColor Ground(0x20, 0x30, 0x40); // colour that a white line shows on
inline const QColor EnabledText(Qt::red);
inline const QColor DisabledText(Qt::blue);

/// A tree in a window at a known place, of @p rowCount rows without text whose highlight alone is painted.
class PlainTree : public VelaTreeWidget
{
public:
    explicit PlainTree(int rowCount = 6);

    void setFrame(int width);

    bool showAndWait();

    /// Puts the pointer at @p position, in the tree's coordinates.
    void pointAt(const QPoint &position);
    /// Lets the window know, too, which not every platform does by itself. The pointer must not be there already.
    void moveTo(const QPoint &position);
    void leaveBehind();

    QRect rowRect(int row) const;

    /// The viewport as it is painted now.
    QImage painted() const;
    /// The viewport as it is on the screen.
    QImage shown() const;

private:
    void setSheetlessPalette();

    ItemDelegate m_delegate;
};

/// A tree with the names of some folders, in a window with something else that can have the focus.
class FolderWindow : public ControlWindow
{
public:
    explicit FolderWindow(const QStringList &names = {QStringLiteral("Documents"), QStringLiteral("Music")});

    FileSystemTreeWidgetItem *add(const QString &name);

    /// Shows the window with a tree that can be scrolled sideways by 300 pixels and more.
    bool showWide();

    /// Opens the editor of the first row by the keyboard.
    QLineEdit *startRenaming();
    QLineEdit *editor() const;

    QPoint middleOf(int row) const;

    VelaTreeWidget *const tree;
    ItemDelegate delegate;
};
