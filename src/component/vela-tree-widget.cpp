#include "component/vela-tree-widget.h"

#include "style-manager/scaled.h"
#include "style-manager/style-manager.h"

#include <QLineEdit>
#include <QPainter>
#include <QPersistentModelIndex>
#include <QRegExpValidator>
#include <QScrollBar>

QRect g_check_rect;

namespace {

// Logical pixels.
constexpr int HighlightRadius = 3;
constexpr int HighlightRightMargin = 3;
constexpr int RowHeight = 28;
constexpr int VisibleWidth = 100; // of an item that need not be scrolled to

// Pixels that a frame of the usual width moves rows down in the tree, in whose coordinates the pointer is looked for.
constexpr int FrameWidth = 1;

// No dot in front; nowhere what some file system does not allow.
const char FolderNamePattern[] = R"(^[^\.\\\/:*?"<>|][^\\\/:*?"<>|]*)";

} // namespace

VelaTreeWidget::VelaTreeWidget(QWidget *parent) : QTreeWidget(parent)
{
    viewport()->setAttribute(Qt::WA_Hover); // or rows would not be painted again when the pointer moves
    // The base paints the rows again, but not their neighbours, which the outline juts out into.
    connect(this, &QTreeWidget::itemSelectionChanged, viewport(), qOverload<>(&QWidget::update));
}

void VelaTreeWidget::setBackgroundColor(QColor selected, QColor hover)
{
    selectedColor = selected;
    hoverColor = hover;
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

void VelaTreeWidget::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::RightButton) {
        Q_EMIT sigMouseRightClickEvent(event);
    }
    QTreeWidget::mousePressEvent(event);
}

void VelaTreeWidget::keyPressEvent(QKeyEvent *event)
{
    Q_EMIT sigKeyPressEvent(event);
    QTreeWidget::keyPressEvent(event);
}

// Each time the tree gets the focus the change of the current item is told anew, to those who announce it for instance;
// the tree's own handling of the focus would be in the way.
void VelaTreeWidget::focusInEvent(QFocusEvent *)
{
    if (!currentItem()) {
        setCurrentItem(itemAt(0, 0));
        return;
    }
    const QPersistentModelIndex current = indexFromItem(currentItem()); // who is told may remove items
    setCurrentItem(nullptr);
    setCurrentItem(itemFromIndex(current));
}

// With frames of other widths the highlighted row is not always the one under the pointer, which the base paints again.
bool VelaTreeWidget::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverMove
        || event->type() == QEvent::HoverLeave) {
        const auto *hover = static_cast<QHoverEvent *>(event);
        const auto rowFor = [this](const QPoint &pointer) {
            return visualRect(indexAt(QPoint(0, pointer.y() + viewport()->y() - FrameWidth)));
        };
        const QRect left = rowFor(hover->oldPos());
        const QRect entered = rowFor(hover->pos());
        if (left != entered || event->type() != QEvent::HoverMove) {
            for (const QRect &row : {left, entered}) {
                viewport()->update(0, row.top() - 1, viewport()->width(), row.height() + 2);
            }
        }
    }
    return QTreeWidget::viewportEvent(event);
}

void VelaTreeWidget::drawRow(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const QTreeWidgetItem *item = itemFromIndex(index);
    const bool isSelected = selectionModel()->isRowSelected(index.row(), index.parent());
    const auto isHovered = [&] {
        return option.rect.translated(0, FrameWidth).contains(mapFromGlobal(QCursor::pos()));
    };
    if (item && (isSelected || isHovered())) {
        const double dpi = DPIinfo::getInstance()->getDPI();
        QRect highlight = option.rect;
        highlight.setWidth(truncated(highlight.width() - HighlightRightMargin * dpi));
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setBrush(QBrush(isSelected ? selectedColor : hoverColor, Qt::SolidPattern));
        painter->setPen(QColor(0xff, 0xff, 0xff));
        painter->drawRoundedRect(highlight, scaled(HighlightRadius), scaled(HighlightRadius));
        painter->restore();
    }

    // Whether a row can be checked is what marks it as active in this tree.
    QStyleOptionViewItem rowOption(option);
    if (!item || !item->flags().testFlag(Qt::ItemIsUserCheckable)) {
        rowOption.state &= ~QStyle::State_Enabled;
    }
    QTreeWidget::drawRow(painter, rowOption, index);
}

ItemDelegate::ItemDelegate() = default;

QSize ItemDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    return {QItemDelegate::sizeHint(option, index).width(), scaled(RowHeight)};
}

void ItemDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    if (auto *lineEdit = qobject_cast<QLineEdit *>(editor)) {
        auto *validator = new QRegExpValidator(QRegExp(QString::fromLatin1(FolderNamePattern)));
        connect(lineEdit, &QObject::destroyed, validator, [validator] { delete validator; }); // editors do not own it
        lineEdit->setValidator(validator);
        lineEdit->setStyleSheet(getStyleSheet("component.tree_item", false));
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

FileSystemTreeWidgetItem::FileSystemTreeWidgetItem() : clientData(0) { }

FileSystemTreeWidgetItem::~FileSystemTreeWidgetItem() = default;

const QString &FileSystemTreeWidgetItem::getPath() const
{
    return path;
}

bool FileSystemTreeWidgetItem::operator<(const QTreeWidgetItem &other) const
{
    const auto &otherItem = dynamic_cast<const FileSystemTreeWidgetItem &>(other);
    return otherItem.path != QLatin1String("home") && QTreeWidgetItem::operator<(other);
}
