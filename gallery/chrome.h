// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <functional>

class QAbstractScrollArea;
class QLabel;
class QObject;

/// The look of the gallery itself: what stands around the library's widgets. Its colours are those of the application's
/// palette, which the theme sets.
///
/// No widget that holds widgets of the library is given a style sheet, since it would reach into them.

enum class TextStyle {
    PageTitle,
    SectionTitle,
    Body,
    Detail, ///< smaller and quieter text
};

/// Calls @p renew now, and whenever the theme or its language has changed while @p owner lives.
void followTheme(QObject *owner, const std::function<void()> &renew);

/// Gives @p widget these sections of the style sheets, one behind the other, of each theme anew.
void followSections(QWidget *widget, const QStringList &keys);

/// Gives @p area the scroll bars of the theme.
void styleScrollBars(QAbstractScrollArea *area);

/// Holds a widget that is only to be looked at: neither the pointer nor Tab reaches it.
class Stage : public QWidget
{
public:
    Stage();

protected:
    void showEvent(QShowEvent *event) override;
};

/// What dims a window below a sheet: a dark one has to be dimmed more.
QColor maskColor();

QLabel *createText(const QString &text, TextStyle style);
