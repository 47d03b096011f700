// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "look/look_p.h"
#include "look/metrics_p.h"
#include "scale/scaled.h"
#include "views/vela-tree-widget.h"

#include <QApplication>
#include <QCache>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPointer>
#include <QRegExpValidator>
#include <QTextLayout>

#include <functional>

using namespace Vela;

QRect g_check_rect;

namespace {

constexpr int KeptTextCount = 100; // more than the rows of a window
constexpr int LongestKeptText = 1000; // characters, more than fit into a row

// Names without a dot in front, and without what some file system does not allow.
const char FolderNamePattern[] = R"(^[^\.\\\/:*?"<>|][^\\\/:*?"<>|]*)";

// A text that was laid out in one line, which takes longer than to draw it.
struct ShapedText
{
    ShapedText(const QString &text, const QFont &font, const QTextOption &option, int width) : layout(text, font)
    {
        layout.setCacheEnabled(true);
        layout.setTextOption(option);
        layout.beginLayout();
        line = layout.createLine();
        line.setLineWidth(width);
        layout.endLayout();
    }

    bool isFor(const QFont &font, const QTextOption &option, int width) const
    {
        return line.width() == width && layout.font() == font && layout.textOption().alignment() == option.alignment()
            && layout.textOption().textDirection() == option.textDirection();
    }

    bool fitsInto(const QSize &size) const
    {
        return line.textLength() == layout.text().length() && line.naturalTextWidth() <= size.width()
            && line.height() <= size.height();
    }

    QTextLayout layout;
    QTextLine line;
};

// The room that the base gives to a text, which it works out by laying the text out.
struct MeasuredText
{
    QFont font;
    QRect rect;
};

// Whether the text is one line and short enough to be kept.
bool isPlain(const QString &text, const QStyleOptionViewItem &option)
{
    return !option.features.testFlag(QStyleOptionViewItem::WrapText) && text.size() <= LongestKeptText
        && !text.contains(QLatin1Char('\n')) && !text.contains(QChar::LineSeparator);
}

} // namespace

class ItemDelegatePrivate
{
public:
    ~ItemDelegatePrivate() { QObject::disconnect(forgetting); }

    void keepTextsWhileFontsLast();
    QRect measuredRect(const QString &text, const QFont &font, const std::function<QRect()> &measure);
    const ShapedText &shapedText(const QString &text, const QStyleOptionViewItem &option, int width);

    QCache<QString, ShapedText> shapedTexts {KeptTextCount};
    QCache<QString, MeasuredText> measuredTexts {KeptTextCount};
    bool baseKeepsIcon = false; // whether drawDecoration() would draw the icon of the row before
    QMetaObject::Connection forgetting; // connection to the application, which may come after its delegates
};

void ItemDelegatePrivate::keepTextsWhileFontsLast()
{
    if (!forgetting) {
        shapedTexts.clear();
        measuredTexts.clear();
        forgetting = QObject::connect(qApp, &QGuiApplication::fontDatabaseChanged, qApp, [this] {
            shapedTexts.clear();
            measuredTexts.clear();
        });
    }
}

QRect ItemDelegatePrivate::measuredRect(const QString &text, const QFont &font, const std::function<QRect()> &measure)
{
    keepTextsWhileFontsLast();
    MeasuredText *measured = measuredTexts.object(text);
    if (!measured || measured->font != font) {
        measured = new MeasuredText {font, measure()};
        measuredTexts.insert(text, measured);
    }
    return measured->rect;
}

const ShapedText &ItemDelegatePrivate::shapedText(const QString &text, const QStyleOptionViewItem &option, int width)
{
    QTextOption textOption(QStyle::visualAlignment(option.direction, option.displayAlignment));
    textOption.setTextDirection(option.direction);
    textOption.setWrapMode(QTextOption::ManualWrap);
    keepTextsWhileFontsLast();
    ShapedText *shaped = shapedTexts.object(text);
    if (!shaped || !shaped->isFor(option.font, textOption, width)) {
        shaped = new ShapedText(text, option.font, textOption, width);
        shapedTexts.insert(text, shaped);
    }
    return *shaped;
}

ItemDelegate::ItemDelegate() : d(std::make_unique<ItemDelegatePrivate>()) { }

ItemDelegate::~ItemDelegate() = default;

// The base measures a text for each paint anew. What has a check box or an icon is left to it.
void ItemDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const QVariant value = index.data(Qt::DisplayRole);
    const QString text = value.userType() == QMetaType::QString ? value.toString() : QString();
    const bool hasIcon = index.data(Qt::DecorationRole).isValid();
    const bool isLeftToBase =
        text.isEmpty() || !isPlain(text, option) || hasIcon || index.data(Qt::CheckStateRole).isValid();
    if (isLeftToBase || d->baseKeepsIcon) {
        QItemDelegate::paint(painter, option, index);
        d->baseKeepsIcon = hasIcon;
        return;
    }
    const QStyleOptionViewItem itemOption = setOptions(index, option);
    QRect checkRect;
    QRect iconRect;
    QRect textRect = d->measuredRect(text, itemOption.font, [&] {
        const QRect room(0, 0, QWIDGETSIZE_MAX, itemOption.rect.height());
        return textRectangle(painter, room, itemOption.font, text);
    });
    doLayout(itemOption, &checkRect, &iconRect, &textRect, false);

    painter->save();
    if (hasClipping()) {
        painter->setClipRect(itemOption.rect);
    }
    drawBackground(painter, itemOption, index);
    drawCheck(painter, itemOption, checkRect, Qt::Unchecked);
    drawDecoration(painter, itemOption, iconRect, QPixmap());
    drawDisplay(painter, itemOption, textRect, text);
    drawFocus(painter, itemOption, textRect);
    painter->restore();
}

QSize ItemDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    return {QItemDelegate::sizeHint(option, index).width(), scaled(Metric::RowHeight)};
}

void ItemDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    if (auto *lineEdit = qobject_cast<QLineEdit *>(editor)) {
        auto *validator = new QRegExpValidator(QRegExp(QString::fromLatin1(FolderNamePattern)));
        connect(lineEdit, &QObject::destroyed, validator, [validator] { delete validator; }); // editors do not own it
        lineEdit->setValidator(validator);
        lineEdit->setStyleSheet(Look::sheet(Style::TreeItem));
        lineEdit->setAttribute(Qt::WA_MacShowFocusRect, false);
        lineEdit->selectAll();
    }
    QItemDelegate::setEditorData(editor, index);
}

bool ItemDelegate::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        auto *keyEvent = static_cast<QKeyEvent *>(event);
        if (keyEvent->key() == Qt::Key_Escape) {
            // Those who are told may ask a question, in whose event loop the view may be deleted.
            const QPointer<ItemDelegate> alive(this);
            const QPointer<QObject> editor(object);
            Q_EMIT sigKeyPressed(keyEvent);
            if (!alive || !editor) {
                return true;
            }
        }
    }
    return QItemDelegate::eventFilter(object, event);
}

void ItemDelegate::drawCheck(QPainter *painter, const QStyleOptionViewItem &option, const QRect &rect,
                             Qt::CheckState state) const
{
    g_check_rect = rect;
    QItemDelegate::drawCheck(painter, option, rect, state);
}

// The base lays a text out anew for each paint. What takes more than one plain line is left to it.
void ItemDelegate::drawDisplay(QPainter *painter, const QStyleOptionViewItem &option, const QRect &rect,
                               const QString &text) const
{
    const bool isKept = !(option.state & (QStyle::State_Selected | QStyle::State_Editing)) && isPlain(text, option);
    const QStyle *style = option.widget ? option.widget->style() : QApplication::style();
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, option.widget) + 1;
    const QRect place = rect.adjusted(margin, 0, -margin, 0);
    const ShapedText *shaped = isKept ? &d->shapedText(text, option, place.width()) : nullptr;
    if (!shaped || !shaped->fitsInto(place.size())) {
        QItemDelegate::drawDisplay(painter, option, rect, text);
        return;
    }
    const QRect lineRect = QStyle::alignedRect(option.direction, option.displayAlignment,
                                               QSize(place.width(), static_cast<int>(shaped->line.height())), place);
    const bool isEnabled = option.state.testFlag(QStyle::State_Enabled);
    const bool isActive = option.state.testFlag(QStyle::State_Active);
    painter->setPen(option.palette.color(
        isEnabled ? isActive ? QPalette::Normal : QPalette::Inactive : QPalette::Disabled, QPalette::Text));
    shaped->layout.draw(painter, lineRect.topLeft(), {}, lineRect);
}
