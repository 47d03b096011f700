// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "accessible/button_p.h"
#include "accessible/group_p.h"

class VelaButtonPath;
class VelaPagingBar;

namespace Vela::Accessible {

/// Which page of how many @p bar shows.
QString placeIn(const VelaPagingBar *bar);

/// A VelaPagingBar: tells which page of how many is shown.
class PagingBar : public QAccessibleWidget
{
public:
    explicit PagingBar(QWidget *bar);

    QString text(QAccessible::Text text) const override;
};

/// A VelaButton. In a VelaPagingBar it stands for a page; one that has no page is blank, and not told of.
class PageButton : public Button
{
public:
    explicit PageButton(QAbstractButton *button);

    QAccessible::State state() const override;

protected:
    QString name() const override;
    QString description() const override;

private:
    VelaPagingBar *bar() const;
    bool isCurrent() const;
};

/// A VelaButtonPath: a list of links, with the menu's button in front while it is shown.
class Path : public Group
{
public:
    explicit Path(QWidget *path);

    QAccessibleInterface *child(int index) const override;
    QString text(QAccessible::Text text) const override;

protected:
    QList<QWidget *> parts() const override;
};

/// Name in a VelaButtonPath, the last of which is where one is.
class Link : public Button
{
public:
    explicit Link(QAbstractButton *button);

    QAccessibleInterface *parent() const override;
    QAccessible::State state() const override;

protected:
    QString description() const override;

private:
    VelaButtonPath *path() const;
};

} // namespace Vela::Accessible
