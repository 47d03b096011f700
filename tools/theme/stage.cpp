// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "stage.h"

#include "text-check.h"

#include <ComponentStrings>
#include <ImageManager>
#include <StyleManager>
#include <UIPathManager>
#include <VelaLineEdit>
#include <VelaSheet>
#include <VelaTableWidget>
#include <VelaTheme>

#include "scale/scaled.h"

#include <QtWidgets>

namespace {

constexpr int Margin = 8; // of the page around a widget, logical pixels

// A sheet has its height once it is shown and its texts are wrapped.
void fitToSheet(QWidget *window)
{
    auto *sheet = window->findChild<VelaSheet *>(QString(), Qt::FindDirectChildrenOnly);
    if (sheet) {
        sheet->show();
        for (int pass = 0; pass < 3; ++pass) {
            QCoreApplication::sendPostedEvents();
            sheet->resize(sheet->width(), sheet->sizeHint().height());
        }
        window->setFixedSize(sheet->size());
    }
}

void sendMouse(QWidget *widget, QEvent::Type type, Qt::MouseButton button)
{
    QMouseEvent event(type, widget->rect().center(), widget->mapToGlobal(widget->rect().center()), button, button,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

void hover(QWidget *widget)
{
    const QPointF centre = widget->rect().center();
    widget->setAttribute(Qt::WA_UnderMouse);
    QEnterEvent enter(centre, centre, widget->mapToGlobal(centre.toPoint()));
    QCoreApplication::sendEvent(widget, &enter);
    QHoverEvent over(QEvent::HoverEnter, centre, QPointF(-1, -1));
    QCoreApplication::sendEvent(widget, &over);
    sendMouse(widget, QEvent::MouseMove, Qt::NoButton);
}

// The part of a widget that takes the focus and the pointer.
QWidget *activePart(QWidget *widget)
{
    if (auto *lineEdit = qobject_cast<VelaLineEdit *>(widget)) {
        return lineEdit->getLineEdit();
    }
    if (auto *made = qobject_cast<VelaTableWidget *>(widget)) {
        return made->getTable();
    }
    return widget;
}

} // namespace

QString nameOf(StageState state)
{
    static const char *const names[] = {"normal", "hover", "pressed", "focus", "disabled", "checked", "error"};
    return QString::fromLatin1(names[static_cast<int>(state)]);
}

void useTheme(const QString &folder, const QString &language)
{
    static const QTemporaryDir userData;
    UIPathManager::getInstance()->setPath(QStringLiteral("user_data_path"), userData.path());
    if (!VelaTheme::hasErrors(VelaTheme::getInstance()->load(folder, language))) {
        return;
    }
    // What can be shown of one with errors.
    ComponentStrings::getInstance()->installStrings(textsOf(folder, language));
    UIPathManager::getInstance()->setPath(QStringLiteral("resource_path"), folder);
    ImageManager::getInstance()->initialize(ImageManager::INIT_LAZY);
    const QDir styles(folder + QStringLiteral("/styles"));
    std::vector<QString> sheets;
    const QStringList names = styles.entryList({QStringLiteral("*.qss")}, QDir::Files, QDir::Name);
    for (const QString &name : names) {
        sheets.push_back(styles.filePath(name));
    }
    StyleManager::getInstance()->initialize(sheets);
}

StagedWidget::StagedWidget(const StageWidget &widget, StageState state, Qt::LayoutDirection direction) :
    m_page(std::make_unique<QWidget>())
{
    m_page->setLayoutDirection(direction);
    m_page->setAttribute(Qt::WA_DontShowOnScreen);
    m_widget = widget.create(m_page.get());
    m_widget->ensurePolished();
    const int margin = scaled(Margin);
    m_widget->resize(m_widget->sizeHint().expandedTo(m_widget->minimumSize()).boundedTo(m_widget->maximumSize()));
    m_widget->show();
    m_page->show();
    fitToSheet(m_widget);
    m_widget->move(margin, margin); // where a dialog does not put itself
    m_page->resize(m_widget->size() + QSize(2 * margin, 2 * margin));
    enter(state);
    for (int pass = 0; pass < 3; ++pass) { // layouts inside layouts
        QCoreApplication::sendPostedEvents();
    }
}

StagedWidget::~StagedWidget() = default;

void StagedWidget::enter(StageState state)
{
    QWidget *part = activePart(m_widget);
    switch (state) {
    case StageState::Normal:
        break;
    case StageState::Hovered:
        hover(part);
        break;
    case StageState::Pressed:
        hover(part);
        sendMouse(part, QEvent::MouseButtonPress, Qt::LeftButton);
        break;
    case StageState::Focused:
        QApplication::setActiveWindow(m_page.get());
        part->setFocus(Qt::TabFocusReason);
        break;
    case StageState::Disabled:
        m_widget->setEnabled(false);
        break;
    case StageState::Checked:
        if (auto *choice = qobject_cast<QAbstractButton *>(m_widget)) {
            choice->setChecked(true);
        }
        break;
    case StageState::Error:
        if (auto *lineEdit = qobject_cast<VelaLineEdit *>(m_widget)) {
            lineEdit->setError(true);
        }
        break;
    }
}

QImage StagedWidget::picture() const
{
    QPixmap page = m_page->grab();
    if (m_widget->isWindow()) { // a message box, which stands beside the page
        const int margin = scaled(Margin);
        QPainter(&page).drawPixmap(margin, margin, m_widget->grab());
    }
    return page.toImage().convertToFormat(QImage::Format_RGB32);
}

QImage StagedWidget::widgetPicture() const
{
    const QPixmap picture = m_widget->isWindow() ? m_widget->grab() : m_page->grab(m_widget->geometry());
    return picture.toImage().convertToFormat(QImage::Format_RGB32);
}
