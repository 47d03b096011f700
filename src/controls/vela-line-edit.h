// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "vela_export.h"

#include <QWidget>

#include <memory>

class QLabel;
class QLineEdit;
class VelaLineEditPrivate;

/// A line of text to edit with an optional text in front of it and behind it, a validator and an error look.
///
/// The field takes its look from "component.lineedit", the texts theirs from "component.lineedit_label".
class VELA_EXPORT VelaLineEdit : public QWidget
{
    Q_OBJECT

public:
    /// An empty field between two empty texts.
    explicit VelaLineEdit(QWidget *parent = nullptr);
    ~VelaLineEdit() override;

    /// Margins around the row in logical pixels; 0 at first.
    void setMargins(int left, int top, int right, int bottom);
    /// Margins around the row in logical pixels.
    QMargins margins() const;
    /// Space between the texts and the field in logical pixels; 0 at first.
    void setSpacing(int spacing);
    /// Space between the texts and the field in logical pixels.
    int spacing() const;

    /// Sets what validate() asks, without asking it; null for nothing.
    void setValidator(bool (*validator)(const QString &));
    /// Whether the validator accepts the field's text; true without a validator. Leaves the error look alone.
    bool validate();

    /// Sets the field's dynamic property "error", on which style sheets select, and brings its look up to date.
    void setError(bool error);
    /// Whether the field looks like one with an error; false at first.
    bool hasError() const;

    /// The text in front of the field, empty at first. It belongs to this widget.
    QLabel *getPreLabel();
    /// The text behind the field, empty at first. It belongs to this widget.
    QLabel *getPostLabel();
    /// The field, which belongs to this widget.
    QLineEdit *getLineEdit();
    /// The text in the field.
    QString getEditText() const;

protected:
    void customEvent(QEvent *event) override;

private:
    const std::unique_ptr<VelaLineEditPrivate> d;
};
