// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "navigation/vela-filter-bar.h"

#include "controls/vela-button.h"
#include "look/look-change_p.h"
#include "look/look_p.h"
#include "look/metrics_p.h"
#include "scale/scaled.h"

#include <QKeyEvent>
#include <QStyle>

using namespace Vela;

namespace {

// Logical pixels.
constexpr QPoint ButtonPosition(4, 2);
constexpr QSize ButtonSize(34, 24);

} // namespace

class VelaFilterBarPrivate
{
public:
    void createSearchButton();
    void placeSearchButton(VelaFilterBar *bar, const QString &sheet);

    VelaIconButton *searchButton = nullptr;
};

void VelaFilterBarPrivate::createSearchButton()
{
    searchButton = new VelaIconButton(Look::nameOf(Image::SearchMenu));
    searchButton->setFocusPolicy(Qt::NoFocus);
}

// A button that has a sheet as it comes into the field is styled by that, and again when it is shown.
void VelaFilterBarPrivate::placeSearchButton(VelaFilterBar *bar, const QString &sheet)
{
    searchButton->setStyleSheet(QString());
    searchButton->setParent(bar);
    searchButton->setStyleSheet(sheet);
    searchButton->move(scaled(ButtonPosition.x()), scaled(ButtonPosition.y()));
    searchButton->setCursor(Qt::ArrowCursor);
    searchButton->setFixedSize(scaled(ButtonSize.width()), scaled(ButtonSize.height()));
}

VelaFilterBar::VelaFilterBar(QWidget *parent) : QLineEdit(parent), d(std::make_unique<VelaFilterBarPrivate>())
{
    setAttribute(Qt::WA_MacShowFocusRect, false);
    d->createSearchButton();
    const QString buttonSheet = Look::sheet(Style::FilterSearchButton);
    const QString fieldSheet = Look::sheet(Style::LineEdit);
    setStyleSheet(fieldSheet + Look::sheet(Style::FilterBarPadding));
    d->placeSearchButton(this, buttonSheet);
    setFixedHeight(scaled(Metric::FieldHeight));
    connect(this, &QLineEdit::returnPressed, this, &VelaFilterBar::slotKeywordChange);
}

VelaFilterBar::~VelaFilterBar() = default;

void VelaFilterBar::customEvent(QEvent *event)
{
    if (const auto *change = LookChange::of(event)) {
        change->restyle(this, Style::LineEdit, Style::FilterBarPadding);
        change->restyle(d->searchButton, Style::FilterSearchButton);
    }
    QLineEdit::customEvent(event);
}

// A sheet can give the text other room right to left, but its rules are chosen anew only when the field is polished.
void VelaFilterBar::changeEvent(QEvent *event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange) {
        style()->polish(this);
    }
}

void VelaFilterBar::setMenu(QMenu *menu)
{
    d->searchButton->setMenu(menu);
}

QMenu *VelaFilterBar::menu() const
{
    return d->searchButton->menu();
}

void VelaFilterBar::slotKeywordChange()
{
    Q_EMIT sigKeywordChanged(text());
}

void VelaFilterBar::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Down) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    if (menu()) {
        d->searchButton->showMenu();
    }
}
