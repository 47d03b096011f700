// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "theme-watch.h"

#include <QDir>
#include <QDirIterator>

namespace {

constexpr int DelayMs = 200; // time in which an editor, or a build of a theme, writes one file after the other

QStringList allIn(const QString &folder)
{
    QStringList paths(folder);
    QDirIterator it(folder, QDir::AllEntries | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        paths.append(it.next());
    }
    return paths;
}

// The folder that is there, in which the missing one would be made.
QString nearestFolder(QString folder)
{
    while (!QFileInfo::exists(folder)) {
        folder = QFileInfo(folder).path();
    }
    return folder;
}

} // namespace

ThemeWatch::ThemeWatch()
{
    m_delay.setSingleShot(true);
    m_delay.setInterval(DelayMs);
    for (const auto signal : {&QFileSystemWatcher::fileChanged, &QFileSystemWatcher::directoryChanged}) {
        connect(&m_watcher, signal, &m_delay, qOverload<>(&QTimer::start));
    }
    connect(&m_delay, &QTimer::timeout, this, [this] {
        watchAll();
        Q_EMIT changed();
    });
}

void ThemeWatch::setFolder(const QString &folder)
{
    const QString absoluteFolder = QDir(folder).absolutePath();
    if (m_folder == absoluteFolder) {
        return;
    }
    m_folder = absoluteFolder;
    m_delay.stop();
    watchAll();
}

// Everything is watched anew: a file that was replaced is watched no longer, though its path may still be listed.
void ThemeWatch::watchAll()
{
    const QStringList former = m_watcher.files() + m_watcher.directories();
    if (!former.isEmpty()) {
        m_watcher.removePaths(former);
    }
    m_watcher.addPaths(QFileInfo::exists(m_folder) ? allIn(m_folder) : QStringList(nearestFolder(m_folder)));
}
