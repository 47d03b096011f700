// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "navigation/vela-button-path.h"

#include "look/look-change_p.h"
#include "look/look_p.h"
#include "look/metrics_p.h"
#include "navigation/path-buttons_p.h"
#include "scale/scaled.h"
#include "utils/accessible-event_p.h"

#include <QCoreApplication>
#include <QEvent>
#include <QHeaderView>
#include <QList>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalMapper>
#include <QToolButton>
#include <QVector>

#include <utility>

using namespace Vela;

namespace {

// Logical pixels, but for the icon.
constexpr int MenuButtonSize = 26;
constexpr int MenuButtonOffset = 1;
constexpr QSize MenuIconSize(20, 20); // pixels, at any scale

bool isArrow(int column)
{
    return column % 2 == 1;
}

// Menu that is styled as it opens, which that of a path that fits never does.
class LateStyledMenu : public QMenu
{
public:
    explicit LateStyledMenu(const QString &sheet)
    {
        Look::setFirstStyleSheet(this, sheet);
        QCoreApplication::removePostedEvents(this, QEvent::PolishRequest);
    }

    QSize sizeHint() const override
    {
        ensurePolished();
        return QMenu::sizeHint();
    }

protected:
    bool event(QEvent *event) override
    {
        const bool isRecognized = QMenu::event(event);
        if (event->type() == QEvent::Polish) {
            // How it scrolls and follows the pointer it has asked the sheet without rules.
            QEvent change(QEvent::StyleChange);
            changeEvent(&change);
        }
        return isRecognized;
    }
};

QString nameOn(const QPushButton *button)
{
    return button->text().replace(QLatin1String("&&"), QLatin1String("&"));
}

// Puts pixmap in the place of the icon with that key, which the button was given; one of the application's stays.
void renewIcon(QAbstractButton *button, qint64 &key, const QPixmap &pixmap)
{
    if (button->icon().cacheKey() == key) {
        button->setIcon(pixmap);
        key = button->icon().cacheKey();
    }
}

} // namespace

class VelaButtonPathPrivate
{
public:
    explicit VelaButtonPathPrivate(VelaButtonPath *bar) :
        q(bar), menuButton(new QToolButton(bar)), nameMapper(new QSignalMapper(bar)), menuMapper(new QSignalMapper(bar))
    {
    }

    void setUpTable();
    void setUpMenuButton();
    void clear();
    void clearMenu();
    void discard(QAction *action);
    void discard(QPushButton *button);
    void setButton(int column, QPushButton *button);
    void setTabOrder();
    void showInFull(int column);
    void renew(const LookChange &change);

    VelaButtonPath *const q;
    QList<QPushButton *> buttons; // names at even indices, arrows at odd ones
    QVector<qint64> iconKeys; // keys of the icons that they were given
    QToolButton *const menuButton;
    qint64 menuIconKey = 0;
    std::unique_ptr<QMenu> menu;
    int visibleWidth = 0;
    QSignalMapper *const nameMapper;
    QSignalMapper *const menuMapper;
    QVector<QObject *> sources; // senders of the clicks that are being told of, the innermost last
};

void VelaButtonPathPrivate::setUpTable()
{
    q->insertRow(0);
    q->horizontalHeader()->hide();
    // Otherwise arrows would be wider than they are made.
    q->horizontalHeader()->setMinimumSectionSize(0);
    q->verticalHeader()->hide();
    q->setShowGrid(false);
    q->setSelectionMode(QAbstractItemView::NoSelection);
    q->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    q->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    q->setFocusPolicy(Qt::NoFocus);
    q->setTabKeyNavigation(false);
    q->setFixedHeight(scaled(Metric::FieldHeight));
}

void VelaButtonPathPrivate::setUpMenuButton()
{
    menu = std::make_unique<LateStyledMenu>(Look::sheet(Style::Menu));
    menuButton->setMenu(menu.get());
    menuButton->setIcon(Look::image(Image::Folder));
    menuIconKey = menuButton->icon().cacheKey();
    menuButton->setIconSize(MenuIconSize);
    menuButton->setPopupMode(QToolButton::InstantPopup);
    menuButton->hide();
    menuButton->setFixedSize(scaled(MenuButtonSize), scaled(MenuButtonSize));
    menuButton->move(scaled(MenuButtonOffset), scaled(MenuButtonOffset)); // at the left in both directions
}

void VelaButtonPathPrivate::clearMenu()
{
    const QList<QAction *> actions = menu->actions();
    for (QAction *action : actions) {
        discard(action);
    }
}

void VelaButtonPathPrivate::clear()
{
    clearMenu();
    while (!buttons.isEmpty()) { // whoever sees one lose the focus may refresh the bar
        const QList<QPushButton *> former = std::exchange(buttons, {});
        for (QPushButton *button : former) {
            discard(button);
        }
    }
    iconKeys.clear();
    q->clear();
    q->setColumnCount(0);
}

// A menu closes before it triggers the chosen action, and whoever gets the focus then may refresh the bar: the action
// is needed until that event is over, and still stands for its column.
void VelaButtonPathPrivate::discard(QAction *action)
{
    menu->removeAction(action);
    action->setParent(nullptr);
    if (sources.contains(action)) {
        // The action is deleted once the choice is told.
        menuMapper->removeMappings(action);
    } else {
        action->deleteLater();
    }
}

void VelaButtonPathPrivate::discard(QPushButton *button)
{
    if (sources.contains(button)) {
        nameMapper->removeMappings(button);
        // Otherwise a neighbour of the bar might get the focus.
        button->clearFocus();
        // The button is deleted once the click is told; the table might do that earlier.
        button->setParent(nullptr);
    } else {
        delete button;
    }
}

void VelaButtonPathPrivate::setButton(int column, QPushButton *button)
{
    buttons.append(button);
    iconKeys.append(button->icon().cacheKey());
    q->setCellWidget(0, column, button);
    if (!isArrow(column)) {
        q->setColumnWidth(column, button->width());
    }
}

// New widgets are the window's last stops.
void VelaButtonPathPrivate::setTabOrder()
{
    QWidget *previous = menuButton;
    for (int column = 0; column < buttons.size(); column += 2) {
        QWidget::setTabOrder(previous, buttons.at(column));
        previous = buttons.at(column);
    }
}

// The table shows a cell that gets the focus as well, but under the menu's button. Of a name that is too long the
// beginning counts.
void VelaButtonPathPrivate::showInFull(int column)
{
    const int left = q->columnViewportPosition(column);
    const int right = left + q->columnWidth(column);
    const int covered = menuButton->isVisible() ? menuButton->geometry().right() + 1 - q->viewport()->x() : 0;
    const int atLeft = left - covered; // minus the pixels that are hidden at the left, if negative
    const int atRight = right - q->viewport()->width(); // pixels that are hidden at the right, if positive

    QScrollBar *bar = q->horizontalScrollBar();
    if (q->isRightToLeft()) {
        bar->setValue(bar->value() - qMax(qMin(0, atLeft), atRight));
    } else {
        bar->setValue(bar->value() + qMin(qMax(0, atRight), atLeft));
    }
}

void VelaButtonPathPrivate::renew(const LookChange &change)
{
    if (!change.isOfEverything()) {
        return;
    }
    change.restyle(q, Style::ButtonPath);
    change.restyle(menu.get(), Style::Menu);
    change.restyle(menuButton, Style::ButtonPathMenuButton);
    renewIcon(menuButton, menuIconKey, change.now(Image::Folder));

    bool isOtherWidth = false;
    for (int column = 0; column < buttons.size(); ++column) {
        QPushButton *button = buttons.at(column);
        if (isArrow(column)) {
            change.restyle(button, Style::ButtonPathArrow);
            renewIcon(button, iconKeys[column], change.now(Image::PathArrow));
            continue;
        }
        change.restyle(button, Style::ButtonPathName);
        button->ensurePolished();
        const int width = widthOfPathName(nameOn(button), button);
        if (width != button->width()) {
            button->setFixedWidth(width);
            q->setColumnWidth(column, width);
            isOtherWidth = true;
        }
    }
    if (isOtherWidth) {
        clearMenu();
        menuButton->hide();
        q->updateColumnSize();
    }
}

VelaButtonPath::VelaButtonPath(QWidget *parent) : QTableWidget(parent), d(std::make_unique<VelaButtonPathPrivate>(this))
{
    d->setUpTable();
    d->setUpMenuButton();
    connect(d->nameMapper, &QSignalMapper::mappedInt, this, &VelaButtonPath::slotPathBarClicked);
    connect(d->menuMapper, &QSignalMapper::mappedInt, this, &VelaButtonPath::slotPathBarClicked);
    const QString menuButtonSheet = Look::sheet(Style::ButtonPathMenuButton);
    setStyleSheet(Look::sheet(Style::ButtonPath));
    d->menuButton->setStyleSheet(menuButtonSheet); // would be styled anew with the bar's sheet set after it
    forgetSpokenBase(this);
}

VelaButtonPath::~VelaButtonPath() = default;

void VelaButtonPath::customEvent(QEvent *event)
{
    if (const auto *change = LookChange::of(event)) {
        d->renew(*change);
    }
    QTableWidget::customEvent(event);
}

void VelaButtonPath::refresh(QString path)
{
    d->visibleWidth = horizontalScrollBar()->pageStep();
    d->menuButton->hide();
    d->clear();

    const QStringList names = path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    // All columns at once: inserting one by one moves the widgets of all others each time.
    setColumnCount(qMax(0, 2 * names.size() - 1));
    for (int i = 0; i < names.size(); ++i) {
        if (i > 0) {
            d->setButton(2 * i - 1, createPathArrow(viewport()));
        }
        QPushButton *button = createPathName(names.at(i), viewport(), [this, i] { d->showInFull(2 * i); });
        connect(button, &QPushButton::clicked, d->nameMapper, qOverload<>(&QSignalMapper::map));
        d->nameMapper->setMapping(button, 2 * i);
        d->setButton(2 * i, button);
    }
    d->setTabOrder();
    updateColumnSize();
}

QString VelaButtonPath::getPath(int index)
{
    QString path;
    const int last = qMin(index, d->buttons.size() - 1);
    for (int i = 0; i <= last; ++i) {
        path += isArrow(i) ? QStringLiteral("/") : nameOn(d->buttons.at(i));
    }
    return path;
}

void VelaButtonPath::updateColumnSize()
{
    int total = 0;
    for (int column = 0; column < columnCount(); ++column) {
        if (isArrow(column)) {
            setColumnWidth(column, scaled(PathArrowWidth));
        }
        total += columnWidth(column);
    }
    if (d->visibleWidth < total) {
        setChangeFolderBtn(total);
    }
}

void VelaButtonPath::setChangeFolderBtn(int totalWidth)
{
    d->menuButton->show();
    const int overflow = totalWidth - d->visibleWidth; // pixels hidden at the left once the end is in view
    int left = 0;
    for (int column = 0; column < columnCount(); ++column) {
        const int right = left + columnWidth(column);
        if (!isArrow(column)) {
            if (left < overflow || right > overflow) {
                auto *action = new QAction(d->buttons.at(column)->text(), d->menu.get());
                d->menu->addAction(action);
                connect(action, &QAction::triggered, d->menuMapper, qOverload<>(&QSignalMapper::map));
                d->menuMapper->setMapping(action, column);
            }
            if (right > overflow) {
                break;
            }
        }
        left = right;
    }
    // By itself the scroll bar's range follows the new columns only later.
    updateGeometries();
    horizontalScrollBar()->setValue(horizontalScrollBar()->maximum());
}

void VelaButtonPath::slotUpdatePath(QString path)
{
    refresh(path);
}

void VelaButtonPath::slotPathBarClicked(int btn_id)
{
    const bool isOwn = sender() == d->nameMapper || sender() == d->menuMapper;
    const auto *mapper = isOwn ? static_cast<QSignalMapper *>(sender()) : nullptr;
    const QPointer<QObject> source(mapper ? mapper->mapping(btn_id) : nullptr);
    d->sources.append(source);
    const QPointer<VelaButtonPath> alive(this);
    Q_EMIT sigUpdatePath(getPath(btn_id));
    if (alive) {
        d->sources.removeLast();
    }
    const bool isDiscarded = source && !source->parent();
    if (isDiscarded) {
        source->deleteLater();
    }
}
