// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "views/tree-test.h"

#include "support/environment.h"

#include <QBackingStore>
#include <QHeaderView>
#include <QLineEdit>
#include <QScreen>
#include <QScrollBar>
#include <QtTest>

PlainTree::PlainTree(int rowCount)
{
    setItemDelegate(&m_delegate);
    setHeaderHidden(true);
    setRootIsDecorated(false);
    setFrame(0);
    setFocusPolicy(Qt::NoFocus); // the first item would be selected once the window is active
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setColumnCount(1);
    setSheetlessPalette();
    for (int i = 0; i < rowCount; ++i) {
        addTopLevelItem(new FileSystemTreeWidgetItem);
    }
    setGeometry(100, 100, 300, 350);
    leaveBehind();
}

void PlainTree::setFrame(int width)
{
    setFrameStyle(width > 0 ? QFrame::Box | QFrame::Plain : QFrame::NoFrame);
    setLineWidth(width);
}

bool PlainTree::showAndWait()
{
    show();
    return QTest::qWaitForWindowExposed(this);
}

void PlainTree::pointAt(const QPoint &position)
{
    QCursor::setPos(mapToGlobal(position));
    QCoreApplication::processEvents();
}

void PlainTree::moveTo(const QPoint &position)
{
    pointAt(position);
    QTest::mouseMove(windowHandle(), position - QPoint(1, 0));
}

void PlainTree::leaveBehind()
{
    pointAt(QPoint(width() + 40, height() + 40));
}

QRect PlainTree::rowRect(int row) const
{
    const QRect rect = visualItemRect(topLevelItem(row));
    return QRect(0, rect.top(), viewport()->width(), rect.height());
}

QImage PlainTree::painted() const
{
    return viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

QImage PlainTree::shown() const
{
    QCoreApplication::processEvents();
    // What is not on any screen is grabbed in the wrong size when there are more device pixels than pixels; what is
    // on an X server is scrolled there and nowhere else.
    const auto *buffer = dynamic_cast<QImage *>(backingStore()->paintDevice());
    const bool isOffscreen = QGuiApplication::platformName() == QLatin1String("offscreen");
    const QImage window = isOffscreen && buffer ? *buffer : screen()->grabWindow(winId()).toImage();
    const QRect rect = viewport()->geometry();
    return window.copy(QRect(rect.topLeft() * expectedRatio(), rect.size() * expectedRatio()))
        .convertToFormat(QImage::Format_RGB32);
}

void PlainTree::setSheetlessPalette()
{
    QPalette colors = palette();
    colors.setColor(QPalette::Base, Ground);
    colors.setColor(QPalette::Highlight, Qt::transparent);
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        colors.setColor(group, QPalette::Text, EnabledText);
        colors.setColor(group, QPalette::HighlightedText, EnabledText);
    }
    colors.setColor(QPalette::Disabled, QPalette::Text, DisabledText);
    colors.setColor(QPalette::Disabled, QPalette::HighlightedText, DisabledText);
    setPalette(colors);
}

FolderWindow::FolderWindow(const QStringList &names) :
    ControlWindow(new VelaTreeWidget(nullptr)), tree(static_cast<VelaTreeWidget *>(control))
{
    tree->setItemDelegate(&delegate);
    tree->setHeaderHidden(true);
    tree->setSelectionMode(QAbstractItemView::SingleSelection);
    for (const QString &name : names) {
        add(name);
    }
}

FileSystemTreeWidgetItem *FolderWindow::add(const QString &name)
{
    auto *item = new FileSystemTreeWidgetItem;
    item->setText(0, name);
    item->setFlags(item->flags() | Qt::ItemIsEditable);
    tree->addTopLevelItem(item);
    return item;
}

bool FolderWindow::showWide()
{
    tree->header()->setStretchLastSection(false);
    tree->setColumnWidth(0, 3000);
    return showAndWait() && QTest::qWaitFor([this] { return tree->horizontalScrollBar()->maximum() > 300; });
}

QLineEdit *FolderWindow::startRenaming()
{
    tree->setFocus();
    tree->setCurrentItem(tree->topLevelItem(0));
    key(Qt::Key_F2);
    return editor();
}

QLineEdit *FolderWindow::editor() const
{
    return tree->viewport()->findChild<QLineEdit *>();
}

QPoint FolderWindow::middleOf(int row) const
{
    return tree->visualItemRect(tree->topLevelItem(row)).center();
}
