// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "views/vela-tree-widget.h"

#include "look/look-change_p.h"
#include "look/look_p.h"
#include "look/metrics_p.h"
#include "scale/dpi-info.h"
#include "scale/scaled.h"
#include "utils/accessible-event_p.h"

#include <QApplication>
#include <QFocusEvent>
#include <QLineEdit>
#include <QPaintEvent>
#include <QPainter>
#include <QPersistentModelIndex>
#include <QPixmapCache>
#include <QPointer>
#include <QScrollBar>

#include <optional>

using namespace Vela;

namespace {

// Logical pixels.
constexpr int HighlightRadius = 3;
constexpr int HighlightRightMargin = 3;
constexpr int VisibleWidth = 100; // part of an item that is in view without scrolling

constexpr int OutlineWidth = 1; // pixels, half of it within the highlight

// Pixels that a frame of the usual width moves rows down in the tree, in whose coordinates the pointer is looked for.
constexpr int FrameWidth = 1;

void paintHighlight(QPainter *painter, const QRect &rect, const QColor &color)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(QBrush(color, Qt::SolidPattern));
    painter->setPen(Look::color(Color::TreeOutline));
    painter->drawRoundedRect(rect, scaled(HighlightRadius), scaled(HighlightRadius));
    painter->restore();
}

// Where the outline is one device pixel wide, it takes longer to paint than two rows, so that its picture is kept.
void drawHighlight(QPainter *painter, const QRect &rect, const QColor &color)
{
    if (rect.isEmpty() || painter->deviceTransform().type() > QTransform::TxTranslate) {
        paintHighlight(painter, rect, color);
        return;
    }
    const QString key =
        QStringLiteral("vela-tree-highlight/%1/%2/%3").arg(rect.width()).arg(rect.height()).arg(color.rgba());
    QPixmap picture;
    if (!QPixmapCache::find(key, &picture)) {
        picture = QPixmap(rect.size() + 2 * QSize(OutlineWidth, OutlineWidth));
        picture.fill(Qt::transparent);
        QPainter picturePainter(&picture);
        paintHighlight(&picturePainter, QRect(QPoint(OutlineWidth, OutlineWidth), rect.size()), color);
        picturePainter.end();
        QPixmapCache::insert(key, picture);
    }
    painter->drawPixmap(rect.topLeft() - QPoint(OutlineWidth, OutlineWidth), picture);
}

} // namespace

class VelaTreeWidgetPrivate
{
public:
    explicit VelaTreeWidgetPrivate(VelaTreeWidget *tree) : q(tree) { }

    QPoint pointer() const;
    QModelIndex rowUnderPointer() const;
    QRegion regionOfRowsToPaint(const QRegion &region) const;
    void updateHoveredRow();
    QColor highlightColor(bool isSelected) const;
    void renew(const LookChange &change);

    VelaTreeWidget *const q;
    QColor selectedColor;
    QColor hoverColor;
    QPersistentModelIndex hoveredRow; // highlighted row, as it is painted or will be by the updates that are due
    bool isPaintOfAllDue = false; // whether a paint is due that spares rows their own updates
    std::optional<QPoint> paintPointer; // pointer's place during a paint
};

VelaTreeWidget::VelaTreeWidget(QWidget *parent) : QTreeWidget(parent), d(std::make_unique<VelaTreeWidgetPrivate>(this))
{
    viewport()->setAttribute(Qt::WA_Hover); // rows are painted again when the pointer moves
    // The base paints the rows again, but not what the outline covers of their neighbours.
    connect(this, &QTreeWidget::itemSelectionChanged, viewport(), qOverload<>(&QWidget::update));
    forgetSpokenBase(this);
}

VelaTreeWidget::~VelaTreeWidget() = default;

void VelaTreeWidget::customEvent(QEvent *event)
{
    if (const auto *change = LookChange::of(event)) {
        d->renew(*change);
    }
    QTreeWidget::customEvent(event);
}

void VelaTreeWidget::setBackgroundColor(QColor selected, QColor hover)
{
    d->selectedColor = selected;
    d->hoverColor = hover;
}

QColor VelaTreeWidget::selectedColor() const
{
    return d->selectedColor;
}

QColor VelaTreeWidget::hoverColor() const
{
    return d->hoverColor;
}

void VelaTreeWidget::updateScrollArea(QTreeWidgetItem *item)
{
    const int width = viewport()->rect().width();
    const int left = visualItemRect(item).left();
    if (left >= 0 && left + scaled(VisibleWidth) <= width) {
        return;
    }
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + left - width / 2);
}

// Those who are told of what the user does may ask a question, in whose event loop the tree may be deleted.

void VelaTreeWidget::mousePressEvent(QMouseEvent *event)
{
    const QPointer<VelaTreeWidget> alive(this);
    if (event->button() == Qt::RightButton) {
        Q_EMIT sigMouseRightClickEvent(event);
    }
    if (alive) {
        QTreeWidget::mousePressEvent(event);
    }
}

void VelaTreeWidget::keyPressEvent(QKeyEvent *event)
{
    const QPointer<VelaTreeWidget> alive(this);
    Q_EMIT sigKeyPressEvent(event);
    if (alive) {
        QTreeWidget::keyPressEvent(event);
    }
}

// Each time the tree gets the focus the change of the current item is told anew, to those who announce it for instance;
// the tree's own handling of the focus would be in the way.
void VelaTreeWidget::focusInEvent(QFocusEvent *event)
{
    const bool isScrolling = hasAutoScroll();
    if (event->reason() == Qt::MouseFocusReason) {
        setAutoScroll(false); // the click, which is still to come, would hit another row
    }
    if (currentItem()) {
        const QPersistentModelIndex current = indexFromItem(currentItem()); // those who are told may remove items
        setCurrentItem(nullptr);
        setCurrentItem(itemFromIndex(current));
    } else {
        setCurrentItem(itemAt(0, 0));
    }
    setAutoScroll(isScrolling);
}

bool VelaTreeWidget::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverMove
        || event->type() == QEvent::HoverLeave) {
        d->updateHoveredRow();
    }
    return QTreeWidget::viewportEvent(event);
}

// The pointer is looked up once for all rows, as asking an X server takes longer than painting a row.
void VelaTreeWidget::paintEvent(QPaintEvent *event)
{
    d->paintPointer = d->pointer();
    QPaintEvent withNeighbours(d->regionOfRowsToPaint(event->region()));
    QTreeWidget::paintEvent(&withNeighbours);
    d->updateHoveredRow(); // rows move under a pointer at rest, too
    d->isPaintOfAllDue = false;
    d->paintPointer.reset();
}

// A row that is highlighted has its outline on its neighbours, too, one of which may be all that is to be painted.
QRegion VelaTreeWidgetPrivate::regionOfRowsToPaint(const QRegion &region) const
{
    QRegion rows = region;
    const QModelIndex hovered = rowUnderPointer();
    for (const QRect &rect : region) {
        for (const int y : {rect.top() - OutlineWidth, rect.bottom() + OutlineWidth}) {
            const QModelIndex row = q->indexAt(QPoint(0, y));
            if (row.isValid() && (row == hovered || q->selectionModel()->isRowSelected(row.row(), row.parent()))) {
                rows += QRect(0, y, q->viewport()->width(), OutlineWidth);
            }
        }
    }
    return rows;
}

void VelaTreeWidget::scrollContentsBy(int dx, int dy)
{
    QTreeWidget::scrollContentsBy(dx, dy);
    const bool isJump = qAbs(dy) > viewport()->height() / scaled(Metric::RowHeight);
    if (dx != 0 || isJump) {
        viewport()->update(); // the ends of highlights stay where they are; after a jump the base does so, too
        d->isPaintOfAllDue = true; // without it, looking for the row that was highlighted would walk all rows between
    } else if (viewport()->underMouse() || d->hoveredRow.isValid()) {
        d->updateHoveredRow(); // the next paint would do so too late for itself
    }
}

QPoint VelaTreeWidgetPrivate::pointer() const
{
    return paintPointer ? *paintPointer : q->mapFromGlobal(QCursor::pos());
}

QModelIndex VelaTreeWidgetPrivate::rowUnderPointer() const
{
    const QPoint position = pointer();
    const bool isWithin = position.x() >= 0 && position.x() < q->viewport()->width();
    return isWithin ? q->indexAt(QPoint(0, position.y() - FrameWidth)) : QModelIndex();
}

// The base paints the row under the pointer again, which is not always the one that is highlighted, and nothing of what
// the outline covers of its neighbours.
void VelaTreeWidgetPrivate::updateHoveredRow()
{
    const QModelIndex row = rowUnderPointer();
    if (row == hoveredRow) {
        return;
    }
    if (!isPaintOfAllDue) {
        for (const QModelIndex &changed : {QModelIndex(hoveredRow), row}) {
            const QRect rect = q->visualRect(changed);
            q->viewport()->update(0, rect.top() - 1, q->viewport()->width(), rect.height() + 2);
        }
    }
    hoveredRow = row;
}

QColor VelaTreeWidgetPrivate::highlightColor(bool isSelected) const
{
    const QColor &color = isSelected ? selectedColor : hoverColor;
    return color.isValid() ? color : Look::color(isSelected ? Color::TreeSelected : Color::TreeHovered);
}

// The tree's own sheet is the application's, who mostly gives it these sections.
void VelaTreeWidgetPrivate::renew(const LookChange &change)
{
    if (!q->styleSheet().isEmpty()) {
        change.restyle(q, Style::TreeItem);
        change.restyle(q, Style::TreeItem, Style::ScrollBar);
    }
    const QList<QLineEdit *> editors = q->viewport()->findChildren<QLineEdit *>();
    for (QLineEdit *editor : editors) {
        change.restyle(editor, Style::TreeItem);
    }
    q->viewport()->update(); // the colours that it paints of its own are new
}

void VelaTreeWidget::drawRow(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const QTreeWidgetItem *item = itemFromIndex(index);
    const bool isSelected = selectionModel()->isRowSelected(index.row(), index.parent());
    if (item && (isSelected || option.rect.translated(0, FrameWidth).contains(d->pointer()))) {
        const double dpi = DPIinfo::getInstance()->getDPI();
        QRect highlight = option.rect;
        highlight.setWidth(truncated(highlight.width() - HighlightRightMargin * dpi));
        drawHighlight(painter, highlight, d->highlightColor(isSelected));
    }

    // Whether a row can be checked is what marks it as active in this tree.
    QStyleOptionViewItem rowOption(option);
    if (!item || !item->flags().testFlag(Qt::ItemIsUserCheckable)) {
        rowOption.state &= ~QStyle::State_Enabled;
    }
    QTreeWidget::drawRow(painter, rowOption, index);
}
