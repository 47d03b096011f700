// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "vela_export.h"

#include <QColor>
#include <QItemDelegate>
#include <QTreeWidget>

#include <memory>

class FileSystemTreeWidgetItemPrivate;
class ItemDelegatePrivate;
class QKeyEvent;
class QMouseEvent;
class VelaTreeWidgetPrivate;

/// Where the last check indicator was drawn by any ItemDelegate, in the coordinates of its view's viewport: to decide
/// whether a click fell on it. Null until the first is drawn; after a paint it is that of the last row painted.
extern VELA_EXPORT QRect g_check_rect;

/// Tree that paints a rounded highlight of its own and draws rows that cannot be checked as disabled.
///
/// It comes with Qt's delegate; setItemDelegate() installs an ItemDelegate, which stays the caller's.
///
/// Whenever the tree gets the focus, be it back from a popup that closes, the current item is told of anew:
/// currentItemChanged() is emitted with no current item and then with the same one again, and a selection of several
/// rows shrinks to its row, or with MultiSelection loses or regains that row. A tree without a current item makes the
/// topmost visible one current. The answer to a message gives the focus back as well: a slot that shows one has to
/// remember the item that it has told of, or it will be called without end.
class VELA_EXPORT VelaTreeWidget : public QTreeWidget
{
    Q_OBJECT

public:
    /// An empty tree.
    explicit VelaTreeWidget(QWidget *parent = nullptr);
    ~VelaTreeWidget() override;

    /// Sets the colours of the highlight; before that it is black.
    void setBackgroundColor(QColor selected, QColor hover);
    /// The colour of selected rows; invalid before it is set.
    QColor selectedColor() const;
    /// The colour of the row under the pointer; invalid before it is set.
    QColor hoverColor() const;
    /// Scrolls sideways so that the beginning of @p item is in view.
    void updateScrollArea(QTreeWidgetItem *item);

Q_SIGNALS:
    /// The right button was pressed; emitted before the tree acts on it. @p event lives as long as the emission.
    void sigMouseRightClickEvent(QMouseEvent *event);
    /// A key was pressed; emitted before the tree acts on it. @p event lives as long as the emission.
    void sigKeyPressEvent(QKeyEvent *event);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void drawRow(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void customEvent(QEvent *event) override;

private:
    const std::unique_ptr<VelaTreeWidgetPrivate> d;
};

/// Delegate for a VelaTreeWidget: tall rows, and an editor that accepts valid names of folders only.
class VELA_EXPORT ItemDelegate : public QItemDelegate
{
    Q_OBJECT

public:
    /// A delegate without a parent.
    ItemDelegate();
    ~ItemDelegate() override;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;

Q_SIGNALS:
    /// Escape was pressed in an editor, which it closes. @p event lives as long as the emission.
    void sigKeyPressed(QKeyEvent *event);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;
    void drawCheck(QPainter *painter, const QStyleOptionViewItem &option, const QRect &rect,
                   Qt::CheckState state) const override;
    void drawDisplay(QPainter *painter, const QStyleOptionViewItem &option, const QRect &rect,
                     const QString &text) const override;

private:
    const std::unique_ptr<ItemDelegatePrivate> d;
};

/// Item for a folder; in ascending order nothing sorts before the one whose path is "home".
class VELA_EXPORT FileSystemTreeWidgetItem : public QTreeWidgetItem
{
public:
    /// An item without a path, in no tree.
    FileSystemTreeWidgetItem();
    /// A copy without the children, in no tree.
    FileSystemTreeWidgetItem(const FileSystemTreeWidgetItem &other);
    ~FileSystemTreeWidgetItem() override;
    /// Takes texts, data and path of @p other; children and tree stay.
    FileSystemTreeWidgetItem &operator=(const FileSystemTreeWidgetItem &other);

    /// The path.
    const QString &getPath() const;

    /// @p other must be a FileSystemTreeWidgetItem too; std::bad_cast is thrown otherwise.
    bool operator<(const QTreeWidgetItem &other) const override;

    QString path; ///< the folder's, "home" for the one that is sorted first
    qint64 clientData; ///< the client's own, 0 at first; copied with the item

private:
    const std::unique_ptr<FileSystemTreeWidgetItemPrivate> d;
};
