// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "support/test-window.h"

#include <QMessageBox>
#include <QPointer>
#include <QTimer>

#include <functional>

class QAbstractButton;
class QLineEdit;
class QPushButton;
class ResourceFolder;
class VelaInputSheet;
class VelaMessageSheet;
class VelaSheet;

constexpr int OkCode = 0x400;
constexpr int CancelCode = 0x800000;
constexpr int NoAnswer = -1; // result of a sheet that nobody answered in time
constexpr int Patience = 10000; // milliseconds

/// Makes the start-up calls with what sheets ask for: images, captions "OK" and "Cancel", style sheets.
void installSheetTheme(ResourceFolder &folder);

/// A window of two fields, the upper one with the focus, that ends up below a sheet. Counts what reaches it, and is
/// never closed.
class SheetWindow : public TestWindow
{
public:
    SheetWindow();

    /// Sends what a user's key makes of itself, through the window and whatever has the focus in it.
    void press(int key, Qt::KeyboardModifiers modifiers = {});
    /// Sends the window a key that nothing in it has wanted. Returns whether it ended there.
    bool send(int key);

    QLineEdit *const above;
    QLineEdit *const below;
    int closings = 0;
    int keys = 0;

protected:
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
};

/// Runs exec() of a sheet with @p action in its event loop, which ends after a while if nobody answers.
template<typename Sheet>
int execute(Sheet *sheet, const std::function<void()> &action)
{
    QTimer::singleShot(0, sheet, action);
    QTimer guard;
    QObject::connect(&guard, &QTimer::timeout, sheet, [sheet] { sheet->done(NoAnswer); });
    guard.start(Patience);
    return sheet->exec();
}

/// A sheet of one of the kinds that wait for an answer, in a mask over its window, both kinds behind one face.
class ModalSheet
{
public:
    enum Kind { Message, Input };

    /// Rows "message" and "input" of a column "kind"; a test runs with both when its global data are these.
    static void addKinds();
    /// The kind of the global row.
    static Kind currentKind();

    ModalSheet(Kind kind, QWidget *parent);
    /// A sheet of the current kind.
    explicit ModalSheet(QWidget *parent);
    ~ModalSheet();
    Q_DISABLE_COPY_MOVE(ModalSheet)

    VelaSheet *get() const;
    VelaSheet *operator->() const;
    /// Leaves the sheet to its parents and to the caller.
    VelaSheet *release();
    void reset();

    int exec();
    int execute(const std::function<void()> &action);
    void done(int result);
    void quit();
    void buttonClick(QAbstractButton *button);
    void setBlockWindowButton(bool block);
    void setDefaultButton(QPushButton *button);
    QPushButton *button(QMessageBox::StandardButton which) const;
    QPushButton *ok() const;
    QPushButton *cancel() const;
    /// The widget that has the focus at first.
    QWidget *firstFocus() const;

private:
    template<typename Use>
    auto use(const Use &use) const;

    QPointer<VelaSheet> m_sheet; // null once it has died with its window
    VelaMessageSheet *m_message = nullptr; // the sheet if it is a message
    VelaInputSheet *m_input = nullptr; // the sheet if it is an input sheet
};

/// A sheet of the current kind over a window that is active. The window can be closed: each run that takes its close
/// button away and gives it back keeps two connections to an X server, which all tests of a program share.
class ShownSheet
{
public:
    ShownSheet();

    QPushButton *ok() const;
    QPushButton *cancel() const;
    int execute(const std::function<void()> &action);

    Shown<SheetWindow> window;
    ModalSheet sheet;
};

Q_DECLARE_METATYPE(ModalSheet::Kind)
