// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "navigation/path-buttons_p.h"

#include "look/look_p.h"
#include "look/metrics_p.h"
#include "look/mirrored_p.h"
#include "scale/scaled.h"

#include <QFocusEvent>
#include <QPushButton>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace Vela {

namespace {

// Logical pixels.
constexpr int NameHeight = 26;
constexpr int NamePadding = 16; // room beside a name, both sides together

QString withoutMnemonic(QString name)
{
    return name.replace(QLatin1Char('&'), QLatin1String("&&"));
}

// Name that the keyboard finds in full view. Under a press of the mouse nothing may move.
class NameButton : public QPushButton
{
public:
    explicit NameButton(std::function<void()> showInFull) : m_showInFull(std::move(showInFull)) { }

protected:
    void focusInEvent(QFocusEvent *event) override
    {
        QPushButton::focusInEvent(event);
        switch (event->reason()) {
        case Qt::MouseFocusReason:
        case Qt::ActiveWindowFocusReason: // reason of the first press into an inactive window
        case Qt::PopupFocusReason:
            break;
        default:
            m_showInFull();
        }
    }

private:
    const std::function<void()> m_showInFull;
};

// Arrow that points in the direction of reading.
class ArrowButton : public QPushButton
{
public:
    using QPushButton::QPushButton;

protected:
    void paintEvent(QPaintEvent *) override
    {
        QStylePainter painter(this);
        QStyleOptionButton option;
        initStyleOption(&option);
        option.icon = Look::mirrored(option.icon, option.iconSize, this);
        painter.drawControl(QStyle::CE_PushButton, option);
    }
};

} // namespace

QPushButton *createPathArrow(QWidget *parent)
{
    auto *arrow = new ArrowButton(parent);
    arrow->setIcon(Look::image(Image::PathArrow));
    arrow->setFlat(true);
    arrow->setFocusPolicy(Qt::NoFocus);
    arrow->setStyleSheet(Look::sheet(Style::ButtonPathArrow));
    arrow->setFixedSize(scaled(PathArrowWidth), scaled(Metric::FieldHeight));
    return arrow;
}

int widthOfPathName(const QString &name, const QPushButton *button)
{
    return scaled(button->fontMetrics().horizontalAdvance(name) + NamePadding);
}

QPushButton *createPathName(const QString &name, QWidget *parent, std::function<void()> showInFull)
{
    auto *button = new NameButton(std::move(showInFull));
    button->setFlat(true);
    Look::adopt(button, parent, Look::sheet(Style::ButtonPathName));
    button->setText(withoutMnemonic(name)); // is told to screen readers, which ask for the path around it
    button->setFixedHeight(scaled(NameHeight)); // unless the sheet has another
    // The sheet may set the font.
    button->ensurePolished();
    button->setFixedWidth(widthOfPathName(name, button));
    return button;
}

} // namespace Vela
