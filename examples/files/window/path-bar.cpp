// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "path-bar.h"

#include "disk/native-path.h"
#include "look.h"
#include "texts/texts.h"

#include <QDir>
#include <QResizeEvent>

PathBar::PathBar(QWidget *parent) : VelaButtonPath(parent)
{
    connect(this, &VelaButtonPath::sigUpdatePath, this, &PathBar::choose);
    followTheme(this, [this] {
        setAccessibleName(text("path"));
        renew();
    });
}

PathBar::~PathBar() = default;

void PathBar::setFolder(const QString &folder)
{
    m_folder = folder;
    renew();
}

// The row is cut to the width that the bar had when it was made.
void PathBar::resizeEvent(QResizeEvent *event)
{
    VelaButtonPath::resizeEvent(event);
    if (event->size().width() != event->oldSize().width()) {
        QMetaObject::invokeMethod(this, &PathBar::renew, Qt::QueuedConnection);
    }
}

void PathBar::renew()
{
    const bool isAtHome = isWithin(m_folder, QDir::homePath());
    QString folder = isAtHome ? QDir::homePath() : QStringLiteral("/");
    QStringList names {isAtHome ? text("home") : text("computer")};
    m_folders = QStringList {folder};
    const QStringList rest = m_folder.mid(folder.size()).split(u'/', Qt::SkipEmptyParts);
    for (const QString &name : rest) {
        folder = joinedPath(folder, name);
        m_folders.append(folder);
        names.append(shownName(name));
    }
    refresh(names.join(u'/'));
}

// Its buttons have the names as they are shown, from which no folder can be found: their number tells which one it is.
void PathBar::choose(const QString &shownPath)
{
    Q_EMIT chosen(m_folders.value(shownPath.count(u'/')));
}
