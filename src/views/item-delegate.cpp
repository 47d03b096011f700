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
#include <QRegExpValidator>
#include <QTextLayout>

using namespace Vela;

QRect g_check_rect;

namespace {

constexpr int ShapedTextCount = 100; // more than the rows of a window
constexpr int LongestShapedText = 1000; // characters, more than fit into a row

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

} // namespace

class ItemDelegatePrivate
{
public:
    ~ItemDelegatePrivate() { QObject::disconnect(forgetting); }

    const ShapedText &shapedText(const QString &text, const QStyleOptionViewItem &option, int width);

    QCache<QString, ShapedText> shapedTexts {ShapedTextCount};
    QMetaObject::Connection forgetting; // connection to the application, which may come after its delegates
};

const ShapedText &ItemDelegatePrivate::shapedText(const QString &text, const QStyleOptionViewItem &option, int width)
{
    QTextOption textOption(QStyle::visualAlignment(option.direction, option.displayAlignment));
    textOption.setTextDirection(option.direction);
    textOption.setWrapMode(QTextOption::ManualWrap);
    if (!forgetting) {
        shapedTexts.clear();
        forgetting =
            QObject::connect(qApp, &QGuiApplication::fontDatabaseChanged, qApp, [this] { shapedTexts.clear(); });
    }
    ShapedText *shaped = shapedTexts.object(text);
    if (!shaped || !shaped->isFor(option.font, textOption, width)) {
        shaped = new ShapedText(text, option.font, textOption, width);
        shapedTexts.insert(text, shaped);
    }
    return *shaped;
}

ItemDelegate::ItemDelegate() : d(std::make_unique<ItemDelegatePrivate>()) { }

ItemDelegate::~ItemDelegate() = default;

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
            Q_EMIT sigKeyPressed(keyEvent);
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
    const bool isPlain = !(option.state & (QStyle::State_Selected | QStyle::State_Editing))
        && !option.features.testFlag(QStyleOptionViewItem::WrapText) && text.size() <= LongestShapedText
        && !text.contains(QLatin1Char('\n')) && !text.contains(QChar::LineSeparator);
    const QStyle *style = option.widget ? option.widget->style() : QApplication::style();
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, option.widget) + 1;
    const QRect place = rect.adjusted(margin, 0, -margin, 0);
    const ShapedText *shaped = isPlain ? &d->shapedText(text, option, place.width()) : nullptr;
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
