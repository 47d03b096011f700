// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "listing/arrangement.h"

#include <QWidget>

class QAction;
class QLabel;
class VelaButton;
class VelaDateSelector;
class VelaFilterBar;

/// What files are filtered by: a keyword with kinds in its menu, and between which days they have changed.
class FilterRow : public QWidget
{
    Q_OBJECT

public:
    explicit FilterRow(QWidget *parent = nullptr);
    ~FilterRow() override;

    /// What has been entered, with nothing said of hidden files.
    Filter filter() const;
    /// Empties it all; changed() follows.
    void clear();
    void focusKeyword();

Q_SIGNALS:
    void changed();

private:
    void createKinds();
    void createDates();
    void renewDates();
    void layOut();
    void retranslate();

    VelaFilterBar *m_keyword;
    QVector<QAction *> m_kinds;
    QLabel *m_between;
    VelaDateSelector *m_from;
    VelaDateSelector *m_to;
    VelaButton *m_clear;
};
