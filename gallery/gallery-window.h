// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QWidget>

class GalleryPage;
class LogView;
class QListWidget;
class QStackedWidget;

/// The main window: the list of pages, the chosen page, and below it the log.
class GalleryWindow : public QWidget
{
    Q_OBJECT

public:
    /// @p language is only told to the person.
    explicit GalleryWindow(const QString &language);

    /// Shows the page of that name, which is made when it is first shown. There being none changes nothing.
    void showPage(const QString &name);

    /// The page that is shown; there is one once showPage() has been called.
    GalleryPage *currentPage() const;

    LogView *log() const;

private:
    QWidget *createSideBar(const QString &language);
    QWidget *createContent();
    void setCurrentPage(int index);

    QListWidget *m_list;
    QStackedWidget *m_pages;
    LogView *m_log;
};
