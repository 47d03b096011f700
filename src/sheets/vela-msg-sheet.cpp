// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "sheets/vela-msg-sheet.h"

#include "image-manager/image-manager.h"
#include "scale/scaled.h"
#include "sheets/sheet-run_p.h"
#include "style-manager/style-manager.h"
#include "utils/component-strings.h"
#include "utils/util.h"

#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QMovie>
#include <QPointer>
#include <QPushButton>

#include <algorithm>

namespace {

// Logical pixels.
constexpr int MSG_BOX_MIN_WIDTH = 480;
constexpr int MSG_BOX_MAX_WIDTH = 540;
constexpr int WindowMargin = 40; // what a sheet leaves of its window's width
constexpr int Margin = 10;
constexpr int TextBottomMargin = 4;
constexpr int InformativeTextSpacing = 6;
constexpr int IconSpacing = 20;
constexpr int ButtonSpacing = 20;
constexpr int ButtonHeight = 32;
constexpr int OkMinimumWidth = 120;
constexpr int CancelMinimumWidth = 80;
constexpr int MovieSize = 32;

struct TypeLook
{
    const char *iconName; // null for none
    QDialogButtonBox::StandardButtons buttons;
};

const TypeLook TypeLooks[] = {
    {"app_img", QDialogButtonBox::NoButton}, // AppMessage
    {"icon_information", QDialogButtonBox::Ok}, // InfoMessage
    {"icon_warning", QDialogButtonBox::Ok}, // WarningMessage
    {"icon_question", QDialogButtonBox::Ok | QDialogButtonBox::Discard}, // QuestionMessage
    {"icon_information", QDialogButtonBox::Ok | QDialogButtonBox::Discard}, // UpgradeMessage
    {"icon_warning", QDialogButtonBox::Ok | QDialogButtonBox::Discard}, // WarningQuestionMessage
};
constexpr int LookCount = sizeof(TypeLooks) / sizeof(TypeLooks[0]);

TypeLook lookOf(VelaMessageSheet::MessageType type)
{
    return type >= 0 && type < LookCount ? TypeLooks[type] : TypeLook {nullptr, QDialogButtonBox::NoButton};
}

QString captionOr(const QString &custom, const char *key)
{
    return custom.isEmpty() ? ComponentStrings::getInstance()->getString(QString::fromLatin1(key)) : custom;
}

bool takesFocus(const QWidget *widget)
{
    return widget && widget->focusPolicy() != Qt::NoFocus;
}

} // namespace

MsgBoxCustomBtnText::MsgBoxCustomBtnText(QString ok, QString cancel) :
    okText(std::move(ok)), cancelText(std::move(cancel))
{
}

MessageLabel::MessageLabel(QWidget *parent) : QLabel(parent) { }

void MessageLabel::resizeEvent(QResizeEvent *)
{
    setMinimumHeight(0); // or the height asked for would never be less than the last one
    setFixedHeight(qMax(0, heightForWidth(width())));
}

int DialogButtonBoxStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                                    QStyleHintReturn *returnData) const
{
    if (hint == QStyle::SH_DialogButtonLayout) {
        return QDialogButtonBox::WinLayout;
    }
    return QProxyStyle::styleHint(hint, option, widget, returnData);
}

class VelaMessageSheetPrivate : public QObject
{
public:
    explicit VelaMessageSheetPrivate(VelaMessageSheet *sheet);

    void initialize(const MsgBoxCustomBtnText &captions = {QString(), QString()});
    void setUpOkButton(const QString &customCaption);
    void setUpCancelButton(const QString &customCaption);
    void setUpTexts();
    void setIconPixmap(const QPixmap &pixmap);
    void setUpLabel(QLabel *label);
    int getPreferredWidth() const;
    void setupLayout();
    bool hasIcon() const;
    QPushButton *button(QMessageBox::StandardButton which) const;

    VelaMessageSheet *const q;
    MessageLabel *const textLabel;
    MessageLabel *informativeLabel = nullptr;
    QLabel *const iconLabel;
    VelaMessageSheet::MessageType type = VelaMessageSheet::AppMessage;
    QDialogButtonBox *const buttonBox;
    SheetRun run;
    QPointer<QMovie> runningMovie; // that exec() has started
    QVector<QPointer<QWidget>> focusList; // some may be deleted before it is made again
    QPointer<QWidget> firstFocusWidget;
    QPointer<QWidget> lastFocusWidget;
};

VelaMessageSheetPrivate::VelaMessageSheetPrivate(VelaMessageSheet *sheet) :
    QObject(sheet),
    q(sheet),
    textLabel(new MessageLabel(sheet)),
    iconLabel(new QLabel(sheet)),
    buttonBox(new QDialogButtonBox(sheet)),
    run(sheet)
{
}

void VelaMessageSheetPrivate::initialize(const MsgBoxCustomBtnText &captions)
{
    // The sheet comes first: styled children are polished again when an ancestor is given a style sheet.
    const bool isProcessing = type == VelaMessageSheet::AppMessage || type == VelaMessageSheet::ProcessingMessage;
    q->setStyleSheet(
        getStyleSheet(isProcessing ? "component.message_sheet_processing" : "component.message_sheet_other", false));

    const TypeLook look = lookOf(type);
    if (look.iconName) {
        iconLabel->setPixmap(getGlobalImage(look.iconName, ImageManager::IMAGE_NORMAL));
    } else if (!iconLabel->movie()) {
        iconLabel->clear();
    }
    // The sheet owns the styles, since setStyle() does not take ownership, and keeps the former ones: the box's
    // children may still refer to them.
    auto *style = new DialogButtonBoxStyle;
    style->setParent(q);
    buttonBox->setStyle(style);
    buttonBox->setStandardButtons(look.buttons);
    setUpOkButton(captions.okText);
    setUpCancelButton(captions.cancelText);
    connect(buttonBox, &QDialogButtonBox::clicked, q, &VelaMessageSheet::buttonClick, Qt::UniqueConnection);
    setupLayout();
    setUpTexts();
}

void VelaMessageSheetPrivate::setUpOkButton(const QString &customCaption)
{
    QPushButton *ok = button(QMessageBox::Ok);
    if (!ok) {
        return;
    }
    const bool isUpgrade = type == VelaMessageSheet::UpgradeMessage;
    ok->setText(captionOr(customCaption, isUpgrade ? "wizard_client_upgrade" : "ok"));
    ok->setDefault(true);
    ok->setStyleSheet(getStyleSheet("component.apply_button", false));
    ok->setFixedHeight(scaled(ButtonHeight));
    ok->setMinimumWidth(scaled(OkMinimumWidth));
    ok->installEventFilter(q);
}

void VelaMessageSheetPrivate::setUpCancelButton(const QString &customCaption)
{
    QPushButton *cancel = button(QMessageBox::Discard);
    if (!cancel) {
        return;
    }
    cancel->setText(captionOr(customCaption, "cancel"));
    cancel->setStyleSheet(getStyleSheet("component.cancel_button", false));
    cancel->setFixedHeight(scaled(ButtonHeight));
    cancel->setMinimumWidth(scaled(CancelMinimumWidth));
    cancel->installEventFilter(q);
}

void VelaMessageSheetPrivate::setUpTexts()
{
    textLabel->installEventFilter(q);
    textLabel->setStyleSheet(getStyleSheet("component.message_sheet_text", false));
    if (informativeLabel) {
        informativeLabel->installEventFilter(q);
        informativeLabel->setStyleSheet(getStyleSheet("component.message_sheet_informative_text", false));
    }
}

void VelaMessageSheetPrivate::setIconPixmap(const QPixmap &pixmap)
{
    iconLabel->setPixmap(pixmap);
    setupLayout();
}

void VelaMessageSheetPrivate::setUpLabel(QLabel *label)
{
    label->setWordWrap(true);
    label->setFocusPolicy(Qt::StrongFocus);
    label->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Maximum);
}

/// Logical pixels. A parent of exactly 540 gives the minimum, 480, though one of 539 gives 499: sheets have this width.
int VelaMessageSheetPrivate::getPreferredWidth() const
{
    const QWidget *parent = q->parentWidget();
    if (!parent) {
        return MSG_BOX_MIN_WIDTH;
    }
    const double width = parent->width() / DPIinfo::getInstance()->getDPI();
    if (width == MSG_BOX_MAX_WIDTH) {
        return MSG_BOX_MIN_WIDTH;
    }
    return width - WindowMargin > MSG_BOX_MAX_WIDTH ? MSG_BOX_MAX_WIDTH : static_cast<int>(width - WindowMargin);
}

bool VelaMessageSheetPrivate::hasIcon() const
{
    return !iconLabel->pixmap(Qt::ReturnByValue).isNull() || iconLabel->movie();
}

void VelaMessageSheetPrivate::setupLayout()
{
    delete q->layout();
    for (MessageLabel *label : {textLabel, informativeLabel}) {
        if (label) { // or it would keep the height of the text or width that it had before
            label->setMinimumHeight(0);
            label->setMaximumHeight(QWIDGETSIZE_MAX);
        }
    }
    auto *column = new QVBoxLayout(q);
    column->setContentsMargins(scaled(Margin), scaled(Margin), scaled(Margin), scaled(Margin));
    column->setSpacing(0);

    auto *texts = new QVBoxLayout;
    texts->setContentsMargins(0, 0, 0, scaled(TextBottomMargin));
    texts->setSpacing(0);
    texts->addWidget(textLabel);
    if (informativeLabel) {
        texts->addSpacing(scaled(InformativeTextSpacing));
        texts->addWidget(informativeLabel);
    }

    auto *row = new QHBoxLayout;
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    iconLabel->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Maximum);
    if (hasIcon()) {
        row->addWidget(iconLabel, 0, Qt::AlignTop);
        row->addSpacing(scaled(IconSpacing));
    }
    row->addLayout(texts);
    column->addLayout(row);
    const bool hasButtons = !buttonBox->buttons().isEmpty();
    if (hasButtons) {
        column->addSpacing(scaled(ButtonSpacing));
        column->addWidget(buttonBox);
    }
    buttonBox->setVisible(hasButtons); // or, empty, it would lie over the texts and take their clicks

    q->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Maximum);
    q->setFixedWidth(scaled(getPreferredWidth()));
    q->updateGeometry();
    q->adjustSize();
}

QPushButton *VelaMessageSheetPrivate::button(QMessageBox::StandardButton which) const
{
    return buttonBox->button(static_cast<QDialogButtonBox::StandardButton>(which));
}

VelaMessageSheet::VelaMessageSheet(MessageType type, QWidget *parent) :
    VelaSheet(parent), d(new VelaMessageSheetPrivate(this))
{
    d->type = type;
    d->initialize();
}

VelaMessageSheet::VelaMessageSheet(MessageType type, const QString &text, QWidget *parent) :
    VelaMessageSheet(type, parent)
{
    setText(text);
}

VelaMessageSheet::VelaMessageSheet(MessageType type, const QString &text, const QString &informativeText,
                                   QWidget *parent) :
    VelaMessageSheet(type, text, parent)
{
    setInformativeText(informativeText);
}

VelaMessageSheet::VelaMessageSheet(MessageType type, const QString &text, const MsgBoxCustomBtnText &captions,
                                   QWidget *parent) :
    VelaSheet(parent), d(new VelaMessageSheetPrivate(this))
{
    d->type = type;
    d->initialize(captions);
    setText(text);
}

VelaMessageSheet::VelaMessageSheet(const QString &text, const QString &movieFile, QWidget *parent) :
    VelaMessageSheet(ProcessingMessage, parent)
{
    auto *movie = new QMovie(movieFile, QByteArray(), this);
    movie->setScaledSize(QSize(scaled(MovieSize), scaled(MovieSize)));
    d->iconLabel->setMovie(movie);
    setText(text);
}

VelaMessageSheet::~VelaMessageSheet()
{
    d->run.abandon();
}

void VelaMessageSheet::setText(const QString &text)
{
    const QString paragraph = QStringLiteral("<p style='line-height: 24px;'>%1</p>").arg(text);
    d->textLabel->setText(DPIinfo::getInstance()->getScaledStyleSheet(paragraph));
    d->textLabel->setAlignment(Qt::AlignTop);
    d->setUpLabel(d->textLabel);
    d->setupLayout();
}

void VelaMessageSheet::setInformativeText(const QString &text)
{
    if (text.isEmpty()) {
        if (d->informativeLabel) {
            d->informativeLabel->hide();
            d->informativeLabel->deleteLater();
            d->informativeLabel = nullptr;
        }
    } else {
        if (!d->informativeLabel) {
            d->informativeLabel = new MessageLabel(this);
            d->informativeLabel->setTextInteractionFlags(Qt::TextInteractionFlags(
                style()->styleHint(QStyle::SH_MessageBox_TextInteractionFlags, nullptr, this)));
            d->informativeLabel->setAlignment(Qt::AlignTop | Qt::AlignLeft);
            d->informativeLabel->setOpenExternalLinks(true);
            d->setUpLabel(d->informativeLabel);
        }
        const QString paragraph = QStringLiteral("<p style='line-height: 20px;'>%1</p>").arg(text);
        d->informativeLabel->setText(DPIinfo::getInstance()->getScaledStyleSheet(paragraph));
    }
    d->setupLayout();
}

void VelaMessageSheet::setIcon(const QPixmap &pixmap)
{
    d->setIconPixmap(pixmap);
}

void VelaMessageSheet::setMessageType(MessageType type)
{
    d->type = type;
    d->initialize();
}

void VelaMessageSheet::setBlockWindowButton(bool block)
{
    d->run.setBlockWindowButton(block);
}

QPushButton *VelaMessageSheet::button(QMessageBox::StandardButton which) const
{
    return d->button(which);
}

void VelaMessageSheet::setDefaultButton(QPushButton *button)
{
    if (button) {
        button->setDefault(true);
    }
}

void VelaMessageSheet::showSheet()
{
    show();
    d->run.watchWindow();
}

int VelaMessageSheet::exec()
{
    if (d->run.isWaiting()) {
        return 0;
    }
    d->run.begin();
    d->textLabel->setFocus(Qt::TabFocusReason);
    QMovie *movie = d->iconLabel->movie();
    if (d->type == ProcessingMessage && movie && movie->isValid()) {
        d->runningMovie = movie;
        movie->start();
    }
    return d->run.wait();
}

void VelaMessageSheet::done(int ret)
{
    if (d->runningMovie) {
        d->runningMovie->stop();
    }
    d->run.end(ret);
}

void VelaMessageSheet::quit()
{
    done(0);
}

void VelaMessageSheet::buttonClick(QAbstractButton *which)
{
    done(d->buttonBox->standardButton(which));
}

void VelaMessageSheet::showEvent(QShowEvent *event)
{
    d->buttonBox->setFocusPolicy(Qt::NoFocus);
    for (QMessageBox::StandardButton which : {QMessageBox::Ok, QMessageBox::Discard}) {
        if (QPushButton *shown = button(which)) {
            shown->setFocusPolicy(Qt::StrongFocus);
        }
    }
    d->focusList.clear();
    const QList<QWidget *> visible = accessibleList(this, AccessibleFilter({this}, Qt::NoFocus));
    for (QWidget *widget : visible) {
        d->focusList.append(widget);
    }
    markFirstFocusWidget();
    markLastFocusWidget();
    VelaSheet::showEvent(event);
}

void VelaMessageSheet::markFirstFocusWidget()
{
    const auto first = std::find_if(d->focusList.cbegin(), d->focusList.cend(), takesFocus);
    d->firstFocusWidget = first == d->focusList.cend() ? nullptr : *first;
}

void VelaMessageSheet::markLastFocusWidget()
{
    const auto last = std::find_if(d->focusList.crbegin(), d->focusList.crend(), takesFocus);
    d->lastFocusWidget = last == d->focusList.crend() ? nullptr : *last;
}

bool VelaMessageSheet::eventFilter(QObject *watched, QEvent *event)
{
    if (d->run.refusesClose(event)) {
        return true;
    }
    if (watched != window() || event->type() != QEvent::KeyPress || !isVisible()) {
        return false;
    }

    auto *keyEvent = static_cast<QKeyEvent *>(event);
    switch (keyEvent->key()) {
    case Qt::Key_Escape:
        if (QPushButton *cancel = button(QMessageBox::Discard)) {
            cancel->click();
        }
        break;
    case Qt::Key_Enter:
    case Qt::Key_Return:
    case Qt::Key_Space:
        if (QPushButton *ok = button(QMessageBox::Ok)) {
            ok->click();
        }
        break;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        restrictedFocus(watched, keyEvent);
        break;
    default:
        break;
    }
    return true; // no key gets past the sheet
}

// The walk starts from the window, not from the widget that has the focus, so it does not step from widget to widget;
// the applications know it so.
void VelaMessageSheet::restrictedFocus(QObject *watched, QKeyEvent *event)
{
    auto *start = qobject_cast<QWidget *>(watched);
    if (!start) {
        return;
    }
    const bool forward = event->key() == Qt::Key_Tab;
    QWidget *widget = start;
    do {
        widget = forward ? widget->nextInFocusChain() : widget->previousInFocusChain();
    } while (widget != start && !takesFocus(widget));

    if (!d->focusList.contains(widget)) {
        widget = forward ? d->firstFocusWidget : d->lastFocusWidget;
    }
    if (widget) {
        widget->setFocus(Qt::TabFocusReason);
    }
}

// A Tab in a widget of the sheet is answered by that widget, before the window sees it, and asks here.
bool VelaMessageSheet::focusNextPrevChild(bool next)
{
    if (!isVisible()) { // it is being hidden, and the focus goes back to the window
        return VelaSheet::focusNextPrevChild(next);
    }
    d->run.moveFocus(next);
    return true;
}
