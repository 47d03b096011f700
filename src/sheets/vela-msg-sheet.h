// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "component/vela-sheet.h"
#include "vela_export.h"

#include <QLabel>
#include <QMessageBox>
#include <QProxyStyle>

#include <memory>

class QAbstractButton;
class DialogButtonBoxStylePrivate;
class MessageLabelPrivate;
class QKeyEvent;
class VelaMessageSheetPrivate;

/// Captions of the two buttons of a question; an empty one stands for the default.
class VELA_EXPORT MsgBoxCustomBtnText
{
public:
    /// The captions of Ok and of cancel.
    MsgBoxCustomBtnText(QString okText, QString cancelText);

    QString okText; ///< caption of Ok
    QString cancelText; ///< caption of the button that answers QMessageBox::Discard
};

/// Label that is always as high as its text needs at its width.
class VELA_EXPORT MessageLabel : public QLabel
{
    Q_OBJECT

public:
    /// An empty label.
    explicit MessageLabel(QWidget *parent = nullptr);
    ~MessageLabel() override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    const std::unique_ptr<MessageLabelPrivate> d;
};

/// Gives button boxes the same order of buttons on every desktop.
class VELA_EXPORT DialogButtonBoxStyle : public QProxyStyle
{
    Q_OBJECT

public:
    DialogButtonBoxStyle();
    ~DialogButtonBoxStyle() override;

    int styleHint(StyleHint hint, const QStyleOption *option = nullptr, const QWidget *widget = nullptr,
                  QStyleHintReturn *returnData = nullptr) const override;

private:
    const std::unique_ptr<DialogButtonBoxStylePrivate> d;
};

/// Message box that is shown inside its window: an icon, a text, perhaps an informative text and up to two buttons.
///
/// While it is up it keeps keyboard focus and keys of its window to itself: shortcuts, access keys and menu bars below
/// it are not reached, its own and those of other windows are. Space answers Ok as Return and Enter do, except on a
/// focused cancel button, which it presses. Results are QMessageBox::Ok (0x400) and, for the button with the cancel
/// caption, QMessageBox::Discard (0x800000). It needs a parent, from whose width its own is computed, and is usually an
/// object on the stack, put into a VelaMask before exec(); the functions of vela-msg-box.h do that.
///
/// Icons and style sheets that are missing are logged and left out; a caption without a text shows its key.
class VELA_EXPORT VelaMessageSheet : public VelaSheet
{
    Q_OBJECT

public:
    /// Decides icon, buttons and style key; any other value has neither icon nor buttons.
    enum MessageType : int {
        AppMessage = 0, ///< the application's icon, no button
        InfoMessage = 1, ///< Ok
        WarningMessage = 2, ///< Ok
        QuestionMessage = 3, ///< Ok and cancel
        UpgradeMessage = 4, ///< Ok, captioned as an upgrade, and cancel
        WarningQuestionMessage = 5, ///< Ok and cancel
        ProcessingMessage = 6, ///< an animation, no button
    };
    Q_ENUM(MessageType)

    /// A sheet without a text.
    explicit VelaMessageSheet(MessageType type, QWidget *parent = nullptr);
    /// A sheet with @p text, which may be rich.
    VelaMessageSheet(MessageType type, const QString &text, QWidget *parent = nullptr);
    /// The same with a second text below the first one, see setInformativeText().
    VelaMessageSheet(MessageType type, const QString &text, const QString &informativeText, QWidget *parent = nullptr);
    /// The same with captions of one's own for its buttons.
    VelaMessageSheet(MessageType type, const QString &text, const MsgBoxCustomBtnText &captions,
                     QWidget *parent = nullptr);
    /// A sheet of type ProcessingMessage with the animation in @p movieFile, which exec() starts.
    VelaMessageSheet(const QString &text, const QString &movieFile, QWidget *parent = nullptr);
    ~VelaMessageSheet() override;

    /// Sets the text, which may be rich.
    void setText(const QString &text);
    /// The text above the informative one.
    QString text() const;
    /// Sets the text below it, which may be rich; an empty one removes it.
    void setInformativeText(const QString &text);
    /// The second text; empty without one.
    QString informativeText() const;
    /// Shows @p pixmap in place of the type's icon, or of the animation, until the type is set again. It is as large as
    /// its pixels are by its device pixel ratio; a null one takes no place.
    void setIcon(const QPixmap &pixmap);
    /// Sets the sheet up anew for @p type, with default captions. The buttons are new ones. Each call leaves the former
    /// buttons' style behind, which goes with the sheet: some 16 kB.
    void setMessageType(MessageType type);
    /// The type that was set last.
    MessageType messageType() const;
    /// Whether the window cannot be closed while the sheet is up; it cannot at first. exec() also takes the window's
    /// close button away then, and done() gives it back, so set it before the sheet is shown.
    void setBlockWindowButton(bool block);
    /// Whether it does so.
    bool blocksWindowButton() const;

    /// The button of that code, null if there is none.
    QPushButton *button(QMessageBox::StandardButton which) const;
    /// Makes @p button the default one, if it is not null. That changes its look only: Return, Enter and Space in the
    /// window answer Ok. In a QDialog the dialog's own button is the default no more, nor is it since Ok was made one.
    void setDefaultButton(QPushButton *button);

    /// Shows the sheet and returns at once; finished() brings the answer. The window's close button stays.
    void showSheet() override;
    /// Shows the sheet and waits for the answer, in an event loop: timers and replies keep arriving. Returns the
    /// button's value or what done() was called with, 0 at once while it already waits, and the application's exit code
    /// when that is told to quit, -1 at once where it has been told already. A dialog that is ended meanwhile takes the
    /// sheet out of sight, which waits on: end the sheet first, by done().
    ///
    /// When the window is destroyed meanwhile the result is 0, finished() is not emitted, and the sheet is not
    /// destroyed with the window: it has no parent then, and one on the heap is its caller's to delete.
    int exec();

    bool eventFilter(QObject *watched, QEvent *event) override;

    /// Moves the focus for a Tab or Backtab that has reached the window @p watched.
    void restrictedFocus(QObject *watched, QKeyEvent *event);
    /// Notes the first of the widgets that were visible when the sheet was shown, and that take the focus now: where
    /// Tab goes from the last one. Called whenever the sheet is shown.
    void markFirstFocusWidget();
    /// Notes the last of them, where Backtab goes from the first one.
    void markLastFocusWidget();

public Q_SLOTS:
    /// Answers with @p ret and hides the sheet; the focus goes back to where it was.
    void done(int ret);
    /// Answers with 0.
    void quit();
    /// Answers with the code of @p which, 0 for a button that is not the sheet's.
    void buttonClick(QAbstractButton *which);

protected:
    void showEvent(QShowEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void customEvent(QEvent *event) override;

private:
    VelaMessageSheetPrivate *const d;
};
