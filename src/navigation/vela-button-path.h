// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "vela_export.h"

#include <QTableWidget>

#include <memory>

class QPushButton;
class VelaButtonPathPrivate;

/// Breadcrumb bar: the folders of a path as a row of buttons.
///
/// A click asks for a path and does nothing else; the client changes folder and calls slotUpdatePath() or refresh(),
/// from the slot itself if it likes. When the row is wider than the bar, its end is in view and a menu at the left
/// lists the folders that are not. Tab stops at each name, in full view, and leaves the bar at its ends.
class VELA_EXPORT VelaButtonPath : public QTableWidget
{
    Q_OBJECT

public:
    /// An empty bar.
    explicit VelaButtonPath(QWidget *parent = nullptr);
    ~VelaButtonPath() override;

    /// Rebuilds the row for @p path, whose parts are separated by "/"; empty parts are skipped. The row is cut to the
    /// width that the bar has now: when the bar is shown first or resized, call it again.
    void refresh(QString path);
    /// The path up to the button at @p index, an even number; without a "/" in front. An odd number gives a path that
    /// ends with "/", one beyond the last button the whole path, and a negative one an empty path.
    QString getPath(int index);
    /// Sets the widths of the arrows, and calls setChangeFolderBtn() if the row was too wide at the last refresh().
    void updateColumnSize();
    /// Shows the menu's button for a row of @p totalWidth pixels, fills the menu and scrolls to the end. Only refresh()
    /// empties the menu: what it lists already is listed again.
    void setChangeFolderBtn(int totalWidth);

Q_SIGNALS:
    /// The folder at @p path was chosen.
    void sigUpdatePath(QString path);

public Q_SLOTS:
    /// The same as refresh().
    void slotUpdatePath(QString path);
    /// Emits sigUpdatePath() with getPath() of @p btn_id.
    void slotPathBarClicked(int btn_id);

protected:
    void customEvent(QEvent *event) override;

private:
    const std::unique_ptr<VelaButtonPathPrivate> d;
};
