#include "navigation/vela-filter-bar.h"

#include "controls/vela-button.h"
#include "look/look_p.h"
#include "look/metrics_p.h"
#include "scale/scaled.h"

#include <QKeyEvent>

using namespace Vela;

namespace {

// Logical pixels.
constexpr QPoint ButtonPosition(4, 2);
constexpr QSize ButtonSize(34, 24);

} // namespace

VelaFilterBar::VelaFilterBar(QWidget *parent) : QLineEdit(parent)
{
    setAttribute(Qt::WA_MacShowFocusRect, false);
    createSearchButton();
    const QString fieldSheet = Look::sheet(Style::LineEdit);
    setStyleSheet(fieldSheet + Look::sheet(Style::FilterBarPadding));
    setFixedHeight(scaled(Metric::FieldHeight));
    connect(this, &QLineEdit::returnPressed, this, &VelaFilterBar::slotKeywordChange);
}

void VelaFilterBar::createSearchButton()
{
    m_searchButton = new VelaIconButton(Look::nameOf(Image::SearchMenu));
    m_searchButton->setFocusPolicy(Qt::NoFocus);
    m_searchButton->setParent(this);
    m_searchButton->setStyleSheet(Look::sheet(Style::FilterSearchButton));
    m_searchButton->move(scaled(ButtonPosition.x()), scaled(ButtonPosition.y()));
    m_searchButton->setCursor(Qt::ArrowCursor);
    m_searchButton->setFixedSize(scaled(ButtonSize.width()), scaled(ButtonSize.height()));
}

void VelaFilterBar::setMenu(QMenu *menu)
{
    m_searchButton->setMenu(menu);
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
    if (m_searchButton->menu()) {
        m_searchButton->showMenu();
    }
}
