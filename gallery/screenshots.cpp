// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "screenshots.h"

#include "gallery-page.h"
#include "gallery-window.h"

#include <QCoreApplication>
#include <QDir>
#include <QPixmap>
#include <QTextStream>

namespace {

// Wrapped texts ask for another height once they know their width, and so do the layouts around them, one by one.
constexpr int LayoutPasses = 10;

// What is seen of widget once everything that waits in the event loop has been done.
QPixmap picture(QWidget *widget)
{
    for (int pass = 0; pass < LayoutPasses; ++pass) {
        QCoreApplication::processEvents();
    }
    return widget->grab();
}

QString save(const QPixmap &pixmap, const QString &path)
{
    if (!pixmap.save(path, "PNG")) {
        return QStringLiteral("Cannot write '%1'.").arg(QDir::toNativeSeparators(path));
    }
    QTextStream(stdout) << QDir::toNativeSeparators(path) << '\n';
    return {};
}

} // namespace

QString saveScreenshots(GalleryWindow *window, const QStringList &pages, const QString &folder)
{
    if (!QDir().mkpath(folder)) {
        return QStringLiteral("Cannot make the folder '%1'.").arg(QDir::toNativeSeparators(folder));
    }
    window->setAttribute(Qt::WA_DontShowOnScreen);
    window->show();

    const QDir dir(folder);
    for (const QString &name : pages) {
        window->showPage(name);
        const QString error = save(picture(window->currentPage()), dir.filePath(name + QStringLiteral(".png")));
        if (!error.isEmpty()) {
            return error;
        }
    }
    window->showPage(pages.constFirst());
    return save(picture(window), dir.filePath(QStringLiteral("main-window.png")));
}
