// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "look/keys_p.h"
#include "sheets/sheet-run_p.h"

#include <QMessageBox>
#include <QObject>
#include <QRect>

#include <utility>

class MessageLabel;
class QDialogButtonBox;
class QLabel;
class QPushButton;
class QVBoxLayout;
class VelaSheet;

namespace Vela {
class LookChange;
}

namespace Vela::Private {

/// What the sheets that wait for an answer have in common: a text at the top, a box of buttons at the bottom, a width
/// by a rule, and their modal run.
class ModalSheet : public QObject
{
public:
    bool eventFilter(QObject *watched, QEvent *event) override;

    QPushButton *button(QMessageBox::StandardButton which) const;
    /// Whether the sheet answers @p event, a key that has reached the window @p watched.
    bool isKeyOfWindow(const QObject *watched, const QEvent *event) const;
    /// Clicks the button that @p key stands for, if the sheet has it.
    void answer(int key);
    /// Shows the sheet and returns the answer to it, 0 at once while it waits for one.
    int exec();
    /// Lays the sheet out anew, in the width that its parent leaves it.
    void setupLayout();

    MessageLabel *const textLabel;
    QDialogButtonBox *buttonBox = nullptr;
    SheetRun run;

protected:
    /// Width of a sheet whose parent is so wide, both in logical pixels.
    using WidthRule = int (*)(double parentWidth);

    /// @p buttonSpacing, in logical pixels, is above the buttons.
    ModalSheet(VelaSheet *sheet, WidthRule widthRule, int buttonSpacing);

    /// Makes the box: after what is above it, for that is the order in which Tab visits them.
    void addButtonBox();
    struct ButtonLook
    {
        QString caption;
        QString sheet;
    };
    /// What a button with @p customCaption, or @p caption where that is empty, is to look like.
    static ButtonLook buttonLook(Style style, const QString &customCaption, Text caption);
    /// Gives a button its look, if the box has it.
    void setUpButton(QMessageBox::StandardButton which, const ButtonLook &look);
    /// Sets @p text, which may be rich, in lines as high as that, in logical pixels.
    static void setParagraph(QLabel *label, const QString &text, int lineHeight);
    /// Renews the looks of the sheet and of its buttons; of the latter the captions too.
    void renew(const LookChange &change, Style style, Text okCaption);
    /// Lets @p label break its lines. Its height does not depend on its width then, for a layout, until it is given
    /// another text or alignment: sheets are as high as they are by this, so it is part of the order of the calls.
    static void wrapText(QLabel *label);

private:
    /// Renews the looks of what stands above the buttons.
    virtual void renewContent(const LookChange &change) = 0;
    /// Puts what stands above the buttons into @p column.
    virtual void fill(QVBoxLayout *column) = 0;
    /// The sheet has its width, but not yet its height.
    virtual void fitToWidth() { }
    /// The sheet is up, and about to wait.
    virtual void started() = 0;

    int preferredWidth() const;
    /// What the button box is laid out by: the order of its buttons and the area of one, in pixels.
    using BoxLayout = std::pair<int, QRect>;
    BoxLayout boxLayout() const;
    bool buttonsHaveStyleOfBox() const;

    VelaSheet *const m_sheet;
    const QWidget *m_parent; // the former one while the sheet comes to another
    BoxLayout m_boxLayout;
    const WidthRule m_widthRule;
    const int m_buttonSpacing;
};

} // namespace Vela::Private
