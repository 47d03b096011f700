// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "accessible/field_p.h"

#include "accessible/plain-text_p.h"
#include "component/vela-input-sheet.h"
#include "component/vela-line-edit.h"
#include "look/look_p.h"

#include <QLabel>
#include <QLineEdit>

namespace Vela::Accessible {

namespace {

QString firstOf(std::initializer_list<QString> texts)
{
    for (const QString &text : texts) {
        if (!text.isEmpty()) {
            return text;
        }
    }
    return QString();
}

// The label that has widget as buddy.
QString buddyText(const QWidget *widget)
{
    const auto labels = widget->parentWidget() ? widget->parentWidget()->findChildren<QLabel *>() : QList<QLabel *>();
    for (const QLabel *label : labels) {
        if (label->buddy() == widget) {
            return plainLabel(label);
        }
    }
    return QString();
}

} // namespace

Field::Field(QLineEdit *field) : QAccessibleWidget(field, QAccessible::EditableText)
{
    addControllingSignal(QStringLiteral("textChanged(const QString&)"));
    addControllingSignal(QStringLiteral("returnPressed()"));
}

QLineEdit *Field::field() const
{
    return static_cast<QLineEdit *>(widget());
}

QString Field::error() const
{
    return QString();
}

QString Field::text(QAccessible::Text text) const
{
    switch (text) {
    case QAccessible::Name:
        return firstOf({QAccessibleWidget::text(text), name(), field()->placeholderText()});
    case QAccessible::Description: {
        const QString description = firstOf({QAccessibleWidget::text(text), field()->placeholderText()});
        return joined({error(), description == this->text(QAccessible::Name) ? QString() : description});
    }
    case QAccessible::Value:
        return field()->displayText();
    default:
        return QAccessibleWidget::text(text);
    }
}

QAccessible::State Field::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.readOnly = field()->isReadOnly();
    state.editable = !field()->isReadOnly();
    state.passwordEdit = field()->echoMode() != QLineEdit::Normal;
    state.selectableText = true;
    state.supportsAutoCompletion = field()->completer() != nullptr;
    return state;
}

void Field::setText(QAccessible::Text text, const QString &value)
{
    if (text != QAccessible::Value) {
        QAccessibleWidget::setText(text, value);
    } else if (!field()->isReadOnly() && field()->isEnabled()) {
        replaceText(0, characterCount(), value);
    }
}

void *Field::interface_cast(QAccessible::InterfaceType type)
{
    switch (type) {
    case QAccessible::TextInterface:
        return static_cast<QAccessibleTextInterface *>(this);
    case QAccessible::EditableTextInterface:
        return static_cast<QAccessibleEditableTextInterface *>(this);
    default:
        return QAccessibleWidget::interface_cast(type);
    }
}

void Field::selection(int index, int *start, int *end) const
{
    *start = 0;
    *end = 0;
    if (index == 0 && field()->hasSelectedText()) {
        *start = field()->selectionStart();
        *end = field()->selectionEnd();
    }
}

int Field::selectionCount() const
{
    return field()->hasSelectedText() ? 1 : 0;
}

void Field::addSelection(int start, int end)
{
    setSelection(0, start, end);
}

void Field::removeSelection(int index)
{
    if (index == 0) {
        field()->deselect();
    }
}

void Field::setSelection(int index, int start, int end)
{
    if (index == 0) {
        field()->setSelection(start, end - start);
    }
}

int Field::cursorPosition() const
{
    return field()->cursorPosition();
}

void Field::setCursorPosition(int position)
{
    field()->setCursorPosition(position);
}

QString Field::text(int start, int end) const
{
    return start < end ? field()->displayText().mid(start, end - start) : QString();
}

int Field::characterCount() const
{
    return field()->displayText().size();
}

QRect Field::characterRect(int offset) const
{
    if (offset < 0 || offset > characterCount()) {
        return QRect();
    }
    // The first place from where a click sets the cursor there is in the middle of the character before it.
    const QRect room = field()->rect();
    int x = room.left();
    while (x < room.right() && field()->cursorPositionAt(QPoint(x, room.center().y())) != offset) {
        ++x;
    }
    const QFontMetrics metrics = field()->fontMetrics();
    const bool isRightToLeft = field()->displayText().isRightToLeft();
    const QString before = isRightToLeft ? text(offset, offset + 1) : text(offset - 1, offset);
    x += metrics.horizontalAdvance(before) / 2;
    const QRect rect(x, room.top(), metrics.horizontalAdvance(text(offset, offset + 1)), room.height());
    return rect.translated(field()->mapToGlobal(QPoint(0, 0)));
}

int Field::offsetAtPoint(const QPoint &point) const
{
    const QPoint position = field()->mapFromGlobal(point);
    return field()->rect().contains(position) ? field()->cursorPositionAt(position) : -1;
}

void Field::scrollToSubstring(int start, int end)
{
    field()->setCursorPosition(end);
    field()->setCursorPosition(start);
}

QString Field::attributes(int offset, int *start, int *end) const
{
    const bool isWithin = offset >= 0 && offset <= characterCount();
    *start = isWithin ? 0 : offset;
    *end = isWithin ? characterCount() : offset;
    return QString();
}

void Field::deleteText(int start, int end)
{
    replaceText(start, end, QString());
}

void Field::insertText(int offset, const QString &text)
{
    replaceText(offset, offset, text);
}

// The text is inserted as it would be typed, so that a validator or input mask is asked.
void Field::replaceText(int start, int end, const QString &text)
{
    if (field()->isReadOnly() || !field()->isEnabled()) {
        return;
    }
    field()->setSelection(start, end - start);
    field()->insert(text);
}

QString CompoundField::name() const
{
    auto *compound = static_cast<VelaLineEdit *>(widget()->parentWidget());
    return firstOf({compound->accessibleName(), buddyText(compound), plainLabel(compound->getPreLabel())});
}

QString CompoundField::error() const
{
    const auto *compound = static_cast<const VelaLineEdit *>(widget()->parentWidget());
    return compound->hasError() ? Look::spoken(SpokenText::InvalidEntry) : QString();
}

QString PromptedField::name() const
{
    return plain(static_cast<const VelaInputSheet *>(widget()->parentWidget())->text());
}

QString ComboField::name() const
{
    const QWidget *combo = widget()->parentWidget();
    return firstOf({combo->accessibleName(), buddyText(combo)});
}

// A placeholder says more.
QString FilterField::name() const
{
    return field()->placeholderText().isEmpty() ? Look::spoken(SpokenText::Filter) : QString();
}

} // namespace Vela::Accessible
