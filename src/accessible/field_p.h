// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QAccessibleWidget>

class QLineEdit;

namespace Vela::Accessible {

/// A line of text that belongs to a widget of the library, which knows a name for it and whether it is wrong.
class Field : public QAccessibleWidget, public QAccessibleTextInterface, public QAccessibleEditableTextInterface
{
public:
    explicit Field(QLineEdit *field);

    QString text(QAccessible::Text text) const override;
    QAccessible::State state() const override;
    void setText(QAccessible::Text text, const QString &value) override;
    void *interface_cast(QAccessible::InterfaceType type) override;

    void selection(int index, int *start, int *end) const override;
    int selectionCount() const override;
    void addSelection(int start, int end) override;
    void removeSelection(int index) override;
    void setSelection(int index, int start, int end) override;
    int cursorPosition() const override;
    void setCursorPosition(int position) override;
    QString text(int start, int end) const override;
    int characterCount() const override;
    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint &point) const override;
    void scrollToSubstring(int start, int end) override;
    QString attributes(int offset, int *start, int *end) const override;

    void deleteText(int start, int end) override;
    void insertText(int offset, const QString &text) override;
    void replaceText(int start, int end, const QString &text) override;

protected:
    QLineEdit *field() const;
    /// Name where the application has given the field none.
    virtual QString name() const = 0;
    /// What is wrong with the text, empty if nothing is.
    virtual QString error() const;
};

/// Field of a VelaLineEdit: named by that and what stands around it.
class CompoundField : public Field
{
public:
    using Field::Field;

protected:
    QString name() const override;
    QString error() const override;
};

/// Field of a VelaInputSheet: named by the prompt.
class PromptedField : public Field
{
public:
    using Field::Field;

protected:
    QString name() const override;
};

/// Field of a VelaComboBox that can be edited: named as that is.
class ComboField : public Field
{
public:
    using Field::Field;

protected:
    QString name() const override;
};

/// A VelaFilterBar.
class FilterField : public Field
{
public:
    using Field::Field;

protected:
    QString name() const override;
};

} // namespace Vela::Accessible
