// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "sheets/vela-input-sheet.h"

#include "scale/scaled.h"
#include "sheets/sheet-run_p.h"
#include "sheets/vela-msg-sheet.h"
#include "style-manager/style-manager.h"
#include "utils/component-strings.h"

#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

// Logical pixels.
constexpr int MSG_BOX_FIX_WIDTH = 480;
constexpr int WindowMargin = 40; // what a sheet leaves of its window's width
constexpr int Margin = 10;
constexpr int LineEditHeight = 28;
constexpr int LineEditSpacing = 8;
constexpr int ButtonSpacing = 24;

struct ButtonLook
{
    QDialogButtonBox::StandardButton which;
    const char *captionKey;
    const char *styleKey;
};

constexpr ButtonLook ButtonLooks[] = {
    {QDialogButtonBox::Ok, "ok", "component.apply_button"},
    {QDialogButtonBox::Discard, "cancel", "component.cancel_button"},
};

} // namespace

class VelaInputSheetPrivate : public QObject
{
public:
    explicit VelaInputSheetPrivate(VelaInputSheet *sheet);

    void initialize();
    void setupLayout();
    int getPreferredWidth() const;

    VelaInputSheet *const q;
    MessageLabel *const promptLabel;
    QLineEdit *const lineEdit;
    QDialogButtonBox *const buttonBox;
    SheetRun run;
};

VelaInputSheetPrivate::VelaInputSheetPrivate(VelaInputSheet *sheet) :
    QObject(sheet),
    q(sheet),
    promptLabel(new MessageLabel(sheet)),
    lineEdit(new QLineEdit(sheet)),
    buttonBox(new QDialogButtonBox(sheet)),
    run(sheet)
{
}

void VelaInputSheetPrivate::initialize()
{
    // The sheet comes first: styled children are polished again when an ancestor is given a style sheet.
    const QMargins shadow = q->contentsMargins(); // which a frame loses when it is styled
    q->setStyleSheet(getStyleSheet("component.message_sheet_other", false));
    q->ensurePolished();
    q->setContentsMargins(shadow);
    buttonBox->setStandardButtons(QDialogButtonBox::Ok | QDialogButtonBox::Discard);
    for (const ButtonLook &look : ButtonLooks) {
        QPushButton *button = buttonBox->button(look.which);
        button->setText(ComponentStrings::getInstance()->getString(QString::fromLatin1(look.captionKey)));
        button->setStyleSheet(getStyleSheet(look.styleKey, false));
    }
    buttonBox->button(QDialogButtonBox::Ok)->setDefault(true);
    connect(buttonBox, &QDialogButtonBox::clicked, q, &VelaInputSheet::buttonClick);
    setupLayout();
}

/// Logical pixels.
int VelaInputSheetPrivate::getPreferredWidth() const
{
    const QWidget *parent = q->parentWidget();
    if (!parent) {
        return MSG_BOX_FIX_WIDTH;
    }
    const double width = parent->width() / DPIinfo::getInstance()->getDPI();
    return width < MSG_BOX_FIX_WIDTH + WindowMargin ? static_cast<int>(width - WindowMargin) : MSG_BOX_FIX_WIDTH;
}

void VelaInputSheetPrivate::setupLayout()
{
    delete q->layout();
    auto *column = new QVBoxLayout(q);
    lineEdit->setFixedHeight(scaled(LineEditHeight));
    lineEdit->setStyleSheet(getStyleSheet("component.lineedit", false));

    column->setContentsMargins(scaled(Margin), scaled(Margin), scaled(Margin), scaled(Margin));
    column->setSpacing(0);
    column->addWidget(promptLabel);
    column->addSpacing(scaled(LineEditSpacing));
    column->addWidget(lineEdit);
    if (!buttonBox->buttons().isEmpty()) {
        column->addSpacing(scaled(ButtonSpacing));
        column->addWidget(buttonBox);
    }

    q->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Maximum);
    q->setFixedWidth(scaled(getPreferredWidth()));
    // The label takes this height when it gets its width; the sheet's own height, which comes first, counts on it.
    promptLabel->setMinimumHeight(0); // or it would need no less than for the prompt or width that it had before
    const int textWidth = q->contentsRect().width() - 2 * scaled(Margin);
    promptLabel->setFixedHeight(qMax(0, promptLabel->heightForWidth(textWidth)));
    q->updateGeometry();
    q->adjustSize();
}

VelaInputSheet::VelaInputSheet(QWidget *parent) : VelaSheet(parent), d(new VelaInputSheetPrivate(this))
{
    d->initialize();
}

VelaInputSheet::VelaInputSheet(const QString &text, QWidget *parent) : VelaInputSheet(parent)
{
    setText(text);
}

VelaInputSheet::~VelaInputSheet()
{
    d->run.abandon();
}

void VelaInputSheet::setText(const QString &text)
{
    const QString paragraph = QStringLiteral("<p style='line-height: 20px;'>%1</p>").arg(text);
    d->promptLabel->setText(DPIinfo::getInstance()->getScaledStyleSheet(paragraph));
    d->promptLabel->setWordWrap(true);
    d->promptLabel->setAlignment(Qt::AlignTop);
    d->promptLabel->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Maximum);
    d->setupLayout();
}

QLineEdit *VelaInputSheet::getLineEdit()
{
    return d->lineEdit;
}

QString VelaInputSheet::getContent()
{
    return d->lineEdit->text();
}

QPushButton *VelaInputSheet::button(QMessageBox::StandardButton which) const
{
    return d->buttonBox->button(static_cast<QDialogButtonBox::StandardButton>(which));
}

void VelaInputSheet::setDefaultButton(QPushButton *button)
{
    if (button) {
        button->setDefault(true);
    }
}

void VelaInputSheet::setBlockWindowButton(bool block)
{
    d->run.setBlockWindowButton(block);
}

void VelaInputSheet::showSheet()
{
    show();
    d->run.watchWindow();
    d->lineEdit->setFocus();
}

int VelaInputSheet::exec()
{
    if (d->run.isWaiting()) {
        return 0;
    }
    d->run.begin();
    setFocus(Qt::TabFocusReason);
    d->lineEdit->setFocus();
    return d->run.wait();
}

void VelaInputSheet::done(int ret)
{
    d->run.end(ret);
}

void VelaInputSheet::quit()
{
    done(0);
}

void VelaInputSheet::buttonClick(QAbstractButton *which)
{
    done(d->buttonBox->standardButton(which));
}

bool VelaInputSheet::eventFilter(QObject *watched, QEvent *event)
{
    if (d->run.refusesClose(event)) {
        return true;
    }
    if (watched != window() || event->type() != QEvent::KeyPress) {
        return false;
    }

    QPushButton *clicked = nullptr;
    switch (static_cast<QKeyEvent *>(event)->key()) {
    case Qt::Key_Escape:
        clicked = button(QMessageBox::Discard);
        break;
    case Qt::Key_Enter:
    case Qt::Key_Return:
    case Qt::Key_Space:
        clicked = button(QMessageBox::Ok);
        break;
    default:
        break;
    }
    if (clicked) {
        clicked->click();
    }
    return true; // no key gets past the sheet
}

// A Tab in a widget of the sheet is answered by that widget, before the window sees it, and asks here.
bool VelaInputSheet::focusNextPrevChild(bool next)
{
    if (!isVisible()) { // it is being hidden, and the focus goes back to the window
        return VelaSheet::focusNextPrevChild(next);
    }
    d->run.moveFocus(next);
    return true;
}
