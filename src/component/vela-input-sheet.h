#pragma once

#include "component/vela-sheet.h"
#include "vela_export.h"

#include <QMessageBox>

class QAbstractButton;
class QLineEdit;
class VelaInputSheetPrivate;

/// Asks for a line of text inside its window: a prompt, a line edit, Ok and cancel.
///
/// Results are those of VelaMessageSheet. It needs a parent, from whose width its own is computed; put it into a
/// VelaMask before exec() to dim the window.
class VELA_EXPORT VelaInputSheet : public VelaSheet
{
    Q_OBJECT

public:
    explicit VelaInputSheet(QWidget *parent = nullptr);
    explicit VelaInputSheet(const QString &text, QWidget *parent = nullptr);
    ~VelaInputSheet() override;

    /// Sets the prompt, which may be rich text.
    void setText(const QString &text);
    /// The line edit, which stays the sheet's, to be given a validator, a placeholder or an echo mode.
    QLineEdit *getLineEdit();
    /// What was typed, whatever the answer was.
    QString getContent();

    /// The button of that code, null if there is none.
    QPushButton *button(QMessageBox::StandardButton which) const;
    /// Makes @p button a default button; null changes nothing.
    void setDefaultButton(QPushButton *button);
    /// Whether the window cannot be closed while the sheet is up; it cannot at first. exec() also takes the window's
    /// close button away then, and done() gives it back, so set it before the sheet is shown.
    void setBlockWindowButton(bool block);

    /// Shows the sheet with the focus in the line edit and returns at once; finished() brings the answer.
    void showSheet() override;
    /// Shows the sheet and waits for the answer, in an event loop; 0 when the window is destroyed meanwhile.
    int exec();

    /// Keeps the keys of the window for the sheet, and the window open while setBlockWindowButton() asks for it.
    bool eventFilter(QObject *watched, QEvent *event) override;

public Q_SLOTS:
    /// Answers with @p ret and hides the sheet.
    void done(int ret);
    /// Answers with 0.
    void quit();
    /// Answers with the code of @p which, a button of the sheet.
    void buttonClick(QAbstractButton *which);

protected:
    bool focusNextPrevChild(bool next) override;

private:
    VelaInputSheetPrivate *const d;
};
