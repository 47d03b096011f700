// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QAccessibleWidget>

class QAbstractButton;

namespace Vela::Accessible {

/// A button: of pictures, that its tool tip or menu names, or of a caption that means more than it says.
class Button : public QAccessibleWidget
{
public:
    explicit Button(QAbstractButton *button, QAccessible::Role role = QAccessible::Button);

    QString text(QAccessible::Text text) const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString &name) override;
    QStringList keyBindingsForAction(const QString &name) const override;

protected:
    QAbstractButton *button() const;
    /// Name where the application has given none.
    virtual QString name() const;
    /// Description where the application has given none.
    virtual QString description() const;
};

/// Button of pictures: a VelaIconButton or the menu's button of a VelaButtonPath.
class IconButton : public Button
{
public:
    explicit IconButton(QAbstractButton *button);

protected:
    QString name() const override;
    QString description() const override;
};

} // namespace Vela::Accessible
