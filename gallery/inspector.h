// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "check-run.h"
#include "inspection.h"
#include "theme-watch.h"

#include <QPointer>
#include <QWidget>

class QLabel;
class QPlainTextEdit;

/// A window that tells what a widget has from the theme, and what is wrong with the theme: all that vela-theme finds in
/// its files and in the looks that they give. Both follow each save.
class Inspector : public QWidget
{
    Q_OBJECT

public:
    explicit Inspector(QWidget *parent);

    /// Shows @p widget, and the window.
    void inspect(QWidget *widget);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void standBeside(const QRect &gallery);
    QWidget *createSections();
    QWidget *createFindings();
    QPlainTextEdit *addText(QWidget *column, const QString &title);
    void refresh();
    void check();
    void showFindings();
    void tellOfCheck(const QString &state);

    QPointer<QWidget> m_widget;
    QLabel *m_title;
    QLabel *m_keys;
    QLabel *m_images;
    QLabel *m_texts;
    QPlainTextEdit *m_raw;
    QPlainTextEdit *m_scaled;
    QPlainTextEdit *m_widgetFindings;
    QPlainTextEdit *m_findings;
    QString m_folder;
    ThemeWatch m_watch;
    CheckRun m_check;
    Inspection m_inspection;
    Findings m_found;
    bool m_isCheckDue = true; // which is done while the window is seen
};

/// Opens the inspector of a gallery while it lives: F12 inspects the widget under the pointer or, where there is none,
/// the one with the keyboard focus. It is the same in menus and message boxes.
class InspectorKey : public QObject
{
    Q_OBJECT

public:
    explicit InspectorKey(QWidget *gallery);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void inspect();

    QWidget *const m_gallery;
    QPointer<Inspector> m_inspector; // made when it is first asked for
};
