// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "theme-watch.h"

#include <QPointer>
#include <QWidget>

class QLabel;
class QPlainTextEdit;

/// A window that tells what a widget has from the theme, and what is wrong with the theme's files. Both follow each
/// save.
class Inspector : public QWidget
{
    Q_OBJECT

public:
    explicit Inspector(QWidget *parent);

    /// Shows @p widget, and the window.
    void inspect(QWidget *widget);

private:
    void standBeside(const QRect &gallery);
    QWidget *createSections();
    QWidget *createFindings();
    QPlainTextEdit *addText(QWidget *column, const QString &title);
    void refresh();
    void check();

    QPointer<QWidget> m_widget;
    QLabel *m_title;
    QLabel *m_keys;
    QLabel *m_images;
    QLabel *m_texts;
    QPlainTextEdit *m_raw;
    QPlainTextEdit *m_scaled;
    QPlainTextEdit *m_findings;
    ThemeWatch m_watch;
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
