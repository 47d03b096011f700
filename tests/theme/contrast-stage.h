// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "support/test-window.h"

#include <QColor>
#include <QDir>
#include <QTemporaryDir>
#include <QVector>

/// Name of the theme that is measured: that of VELA_TEST_THEME, or else the light one.
QString themeName();
QDir themeFolder();
/// One of the theme's own colours.
QColor themeColor(const char *name);

/// The colour that widgets stand on: a "page", "field", "sheet" or "popup".
QColor surface(const QByteArray &name);

using Create = QWidget *(*)();

/// Rows of each of the widgets on a page, a field and a sheet, for RowStage.
void addSurfaces(const QVector<QPair<const char *, Create>> &widgets);

/// A surface with a widget on it, as an application's window, a field's or a sheet's body is one.
class Stage : public TestWindow
{
public:
    explicit Stage(QWidget *content, const QColor &surface = ::surface("page"));

    QWidget *content() const { return m_content; }
    QColor surface() const { return m_surface; }

private:
    QWidget *const m_content;
    const QColor m_surface;
};

/// What the row of the running test asks for.
class RowStage : public Stage
{
public:
    RowStage();
};

/// Base of the tests that measure a theme.
class ContrastTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

private:
    QTemporaryDir m_userData;
};

/// Where a widget is in @p root, as far as that shows it.
QRect rectIn(const QWidget *widget, const QWidget *root);

QList<QWidget *> withDescendants(QWidget *root);

/// Class and object name.
QString nameOf(const QWidget *widget);
