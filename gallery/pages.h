// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

#include <vector>

class GalleryPage;

/// A page of the gallery: its name on the command line, its title in the list, and what makes it.
struct PageEntry
{
    QString name;
    QString title;
    GalleryPage *(*create)(const QString &title);
};

/// All pages, in the order of the list.
const std::vector<PageEntry> &galleryPages();

QStringList pageNames();

GalleryPage *createBarsPage(const QString &title);
GalleryPage *createButtonsPage(const QString &title);
GalleryPage *createCountdownPage(const QString &title);
GalleryPage *createDatesPage(const QString &title);
GalleryPage *createFoldersPage(const QString &title);
GalleryPage *createHelpPage(const QString &title);
GalleryPage *createInputSheetPage(const QString &title);
GalleryPage *createInputsPage(const QString &title);
GalleryPage *createMenusPage(const QString &title);
GalleryPage *createMessagesPage(const QString &title);
GalleryPage *createTablePage(const QString &title);
