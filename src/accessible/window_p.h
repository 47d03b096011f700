// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QAccessibleWidget>

namespace Vela::Accessible {

/// A window of the application. While a sheet is up in it, it holds nothing but the sheet: what lies below the mask
/// cannot be reached.
class Window : public QAccessibleWidget
{
public:
    Window(QWidget *window, QAccessible::Role role);

    QAccessibleInterface *child(int index) const override;
    int childCount() const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QAccessibleInterface *childAt(int x, int y) const override;

    /// What lies over all else in @p window: the uppermost sheet or the content of a mask, null if nothing does.
    static QWidget *uppermost(const QWidget *window);
};

/// A sheet. It stands for its mask, too.
class Sheet : public QAccessibleWidget
{
public:
    explicit Sheet(QWidget *sheet);

    QAccessibleInterface *parent() const override;
    QString text(QAccessible::Text text) const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;

private:
    QStringList texts() const;
};

/// A VelaCountdownMessageBox.
class CountdownBox : public QAccessibleWidget
{
public:
    explicit CountdownBox(QWidget *box);

    QString text(QAccessible::Text text) const override;
    QAccessible::State state() const override;
};

} // namespace Vela::Accessible
