// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "vela_export.h"

#include <QLineEdit>

#include <memory>

class QMenu;
class VelaFilterBarPrivate;

/// Search field for filtering a list, with a button at its left that opens a menu of the client's.
///
/// The keyword is reported when Return is pressed, and only then; the filtering is the client's business. The field's
/// look is that of "component.lineedit" followed by "component.filter_bar_padding", the button's that of
/// "component.filter_search_button" with the image "bt_search_dropdown".
class VELA_EXPORT VelaFilterBar : public QLineEdit
{
    Q_OBJECT

public:
    /// An empty field without a menu.
    explicit VelaFilterBar(QWidget *parent = nullptr);
    ~VelaFilterBar() override;

    /// Sets the menu that the button opens, and Key_Down in the field; the bar does not take ownership.
    void setMenu(QMenu *menu);
    /// The menu that the button opens; null without one.
    QMenu *menu() const;

Q_SIGNALS:
    /// Return was pressed; @p keyword is the whole text, possibly empty.
    void sigKeywordChanged(QString keyword);

public Q_SLOTS:
    /// Emits sigKeywordChanged() with the text.
    void slotKeywordChange();

protected:
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void customEvent(QEvent *event) override;

private:
    const std::unique_ptr<VelaFilterBarPrivate> d;
};
