// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "component/vela-sheet.h"
#include "vela_export.h"

#include <QMessageBox>

class QAbstractButton;
class QLineEdit;
class VelaInputSheetPrivate;

/// Asks for a line of text inside its window: a prompt, a line edit, Ok and cancel.
///
/// Results are those of VelaMessageSheet, and so is what it does with the keys of its window. It needs a parent, from
/// whose width its own is computed; put it into a VelaMask before exec() to dim the window.
class VELA_EXPORT VelaInputSheet : public VelaSheet
{
    Q_OBJECT

public:
    /// A sheet without a prompt.
    explicit VelaInputSheet(QWidget *parent = nullptr);
    /// A sheet with @p text as its prompt.
    explicit VelaInputSheet(const QString &text, QWidget *parent = nullptr);
    ~VelaInputSheet() override;

    /// Sets the prompt, which may be rich text.
    void setText(const QString &text);
    /// The prompt.
    QString text() const;
    /// The line edit, which stays the sheet's, to be given a validator, a placeholder or an echo mode.
    QLineEdit *getLineEdit();
    /// What was typed, whatever the answer was.
    QString getContent();

    /// The button of that code, null if there is none.
    QPushButton *button(QMessageBox::StandardButton which) const;
    /// Makes @p button the default one, if it is not null. That changes its look only: Return, Enter and Space in the
    /// window answer Ok. In a QDialog the dialog's own button is the default no more, nor is it since Ok was made one.
    void setDefaultButton(QPushButton *button);
    /// Whether the window cannot be closed while the sheet is up; it cannot at first. exec() also takes the window's
    /// close button away then, and done() gives it back, so set it before the sheet is shown.
    void setBlockWindowButton(bool block);
    /// Whether it does so.
    bool blocksWindowButton() const;

    /// Shows the sheet with the focus in the line edit and returns at once; finished() brings the answer.
    void showSheet() override;
    /// Shows the sheet and waits for the answer, in an event loop: timers and replies keep arriving. Returns the
    /// button's value or what done() was called with, 0 at once while it already waits, and the application's exit code
    /// when that is told to quit, -1 at once where it has been told already. A dialog that is ended meanwhile takes the
    /// sheet out of sight, which waits on: end the sheet first, by done().
    ///
    /// When the window is destroyed meanwhile the result is 0, finished() is not emitted, and the sheet is not
    /// destroyed with the window: it has no parent then, and one on the heap is its caller's to delete.
    int exec();

    /// Keeps the keys of the window for the sheet, and the window open while setBlockWindowButton() asks for it.
    bool eventFilter(QObject *watched, QEvent *event) override;

public Q_SLOTS:
    /// Answers with @p ret and hides the sheet; the focus goes back to where it was.
    void done(int ret);
    /// Answers with 0.
    void quit();
    /// Answers with the code of @p which, 0 for a button that is not the sheet's.
    void buttonClick(QAbstractButton *which);

protected:
    bool focusNextPrevChild(bool next) override;
    void customEvent(QEvent *event) override;

private:
    VelaInputSheetPrivate *const d;
};
