// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QString>
#include <QTimer>

/// Tells of changes in a folder and all below it, however the files are saved: rewritten, or replaced by others of
/// their names.
class ThemeWatch : public QObject
{
    Q_OBJECT

public:
    ThemeWatch();

    /// Watches @p folder, and none that it has watched before.
    void setFolder(const QString &folder);

Q_SIGNALS:
    /// Something has changed, and nothing more for a moment.
    void changed();

private:
    void watchAll();

    QString m_folder;
    QFileSystemWatcher m_watcher;
    QTimer m_delay;
};
