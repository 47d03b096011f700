// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "support/controls.h"

#include "image-manager/image-manager.h"
#include "style-manager/style-manager.h"
#include "support/resource-folder.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QMenu>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QPixmap>
#include <QtTest>

#include <utility>

namespace {

constexpr int WindowMargin = 30;
const QPoint Outside(1, 1); // in the margin

} // namespace

void installSheets(const ResourceFolder &folder, const QByteArray &sheets)
{
    const QString fileName = QStringLiteral("sheets.qss");
    folder.setAsPaths();
    folder.writeFile(fileName, sheets + "== end ==\n"); // no section gets the file's last line break
    ImageManager::getInstance()->initialize(ImageManager::INIT_LAZY);
    StyleManager::getInstance()->initialize({folder.path() + QLatin1Char('/') + fileName});
}

QStringList ownDeclarations(const QMetaObject &metaObject)
{
    QStringList names;
    for (int i = metaObject.methodOffset(); i < metaObject.methodCount(); ++i) {
        names.append(QString::fromLatin1(metaObject.method(i).methodSignature()));
    }
    for (int i = metaObject.propertyOffset(); i < metaObject.propertyCount(); ++i) {
        names.append(QString::fromLatin1(metaObject.property(i).name()));
    }
    for (int i = metaObject.enumeratorOffset(); i < metaObject.enumeratorCount(); ++i) {
        names.append(QString::fromLatin1(metaObject.enumerator(i).name()));
    }
    return names;
}

QStringList differingProperties(const QMetaObject &metaObject, const QObject &left, const QObject &right,
                                const QStringList &ignored)
{
    QStringList names;
    for (int i = 0; i < metaObject.propertyCount(); ++i) {
        const QMetaProperty property = metaObject.property(i);
        const QString name = QString::fromLatin1(property.name());
        if (!ignored.contains(name) && property.read(&left) != property.read(&right)) {
            names.append(name);
        }
    }
    return names;
}

QColor paintedColor(QWidget *widget, const QPoint &position)
{
    const QPixmap pixmap = widget->grab();
    return pixmap.toImage().pixelColor(position * pixmap.devicePixelRatio());
}

QColor paintedColor(QWidget *widget)
{
    return paintedColor(widget, widget->rect().center());
}

ControlWindow::ControlWindow(QWidget *shownControl) : control(shownControl), neighbour(new QLineEdit)
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(WindowMargin, WindowMargin, WindowMargin, WindowMargin);
    row->addWidget(control, 0, Qt::AlignLeft);
    row->addWidget(neighbour);
    neighbour->setFocus();
}

bool ControlWindow::showAndWait()
{
    const bool isActive = TestWindow::showAndWait();
    // The window must have seen the pointer for an enter to count, and a move to where it was already is none.
    QTest::mouseMove(windowHandle(), Outside + QPoint(1, 1));
    leave();
    return isActive;
}

void ControlWindow::enter()
{
    QTest::mouseMove(windowHandle(), center());
}

void ControlWindow::leave()
{
    QTest::mouseMove(windowHandle(), Outside);
}

void ControlWindow::press(Qt::MouseButton which)
{
    QTest::mousePress(windowHandle(), which, {}, center());
}

void ControlWindow::release(Qt::MouseButton which)
{
    QTest::mouseRelease(windowHandle(), which, {}, center());
}

void ControlWindow::click()
{
    press();
    release();
}

void ControlWindow::key(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(windowHandle(), key, modifiers);
}

void ControlWindow::type(const QString &text)
{
    for (const QChar character : text) {
        QTest::keyClick(windowHandle(), character.toLatin1());
    }
}

QPoint ControlWindow::center() const
{
    return control->geometry().center();
}

EventCounter::EventCounter(QObject *watched, QEvent::Type type) : m_type(type)
{
    watched->installEventFilter(this);
}

int EventCounter::take()
{
    return std::exchange(m_count, 0);
}

bool EventCounter::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == m_type) {
        ++m_count;
    }
    return QObject::eventFilter(watched, event);
}

MenuUser::MenuUser(QMenu *menu, std::function<void()> use) : m_use(std::move(use))
{
    menu->installEventFilter(this);
}

bool MenuUser::hasUsed() const
{
    return m_hasUsed;
}

bool MenuUser::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Show) {
        auto *menu = static_cast<QMenu *>(watched);
        QMetaObject::invokeMethod(
            this,
            [this, menu] {
                m_hasUsed = QTest::qWaitForWindowExposed(menu); // or the platform would give it the focus afterwards
                if (m_use) {
                    m_use();
                }
                menu->close();
            },
            Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
}
