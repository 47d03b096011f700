#include "navigation/vela-filter-bar.h"

#include "controls/vela-button.h"
#include "scale/scaled.h"
#include "style-manager/style-manager.h"

#include <QKeyEvent>

namespace {

// Logical pixels.
constexpr QPoint ButtonPosition(4, 2);
constexpr QSize ButtonSize(34, 24);
constexpr int Height = 28;

} // namespace

VelaFilterBar::VelaFilterBar(QWidget *parent) : QLineEdit(parent)
{
    setAttribute(Qt::WA_MacShowFocusRect, false);
    createSearchButton();
    const QString fieldSheet = getStyleSheet("component.lineedit", false);
    setStyleSheet(fieldSheet + getStyleSheet("component.filter_bar_padding", false));
    setFixedHeight(scaled(Height));
    connect(this, &QLineEdit::returnPressed, this, &VelaFilterBar::slotKeywordChange);
}

void VelaFilterBar::createSearchButton()
{
    m_searchButton = new VelaIconButton(QStringLiteral("bt_search_dropdown"));
    m_searchButton->setFocusPolicy(Qt::NoFocus);
    m_searchButton->setParent(this);
    m_searchButton->setStyleSheet(getStyleSheet("component.filter_search_button", false));
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
