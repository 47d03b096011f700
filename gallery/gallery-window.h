// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "command-line.h"
#include "theme-watch.h"
#include "themes.h"

#include <VelaTheme>

#include <QSet>
#include <QString>
#include <QWidget>

class GalleryPage;
class LogView;
class QLabel;
class QListWidget;
class QStackedWidget;

/// The main window: the list of pages and the switches, the chosen page, and below it the log. A theme that is saved
/// while it is in force is read again.
class GalleryWindow : public QWidget
{
    Q_OBJECT

public:
    /// @p themes can be chosen.
    explicit GalleryWindow(const std::vector<ThemeEntry> &themes);

    /// Shows the page of that name, which is made when it is first shown. There being none changes nothing.
    void showPage(const QString &name);

    /// The page that is shown; there is one once showPage() has been called.
    GalleryPage *currentPage() const;

    LogView *log() const;

    /// Lists what is wrong with the theme and was not listed before.
    void addProblems(const VelaTheme::Problems &problems);

    /// What is shown, for a window that takes this one's place.
    GalleryState state() const;

Q_SIGNALS:
    /// A scale was chosen, which only a new process can have.
    void scaleChosen(double scale);

private:
    void fillSideBar(const std::vector<ThemeEntry> &themes);
    QWidget *createContent();
    void setCurrentPage(int index);
    void scrollToFocus(const QWidget *focused);
    void renewLook();
    int sideBarWidth() const;
    void reloadTheme();

    QWidget *m_sideBar;
    QLabel *m_title;
    QListWidget *m_list;
    QStackedWidget *m_pages;
    LogView *m_log;
    ThemeWatch m_watch;
    QSet<QString> m_problems; // problems of the theme that have been listed
};
