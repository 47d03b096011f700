// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "component/vela-button.h"

#include <QString>

class VelaSheet;

/// What is written on the widgets: letters of thick strokes.
const QString Sample = QStringLiteral("HHHH");

using Create = QWidget *(*)();
Q_DECLARE_METATYPE(Create)

template<VelaButton::Kind Type>
QWidget *createButton()
{
    return new VelaButton(Sample, Type);
}

QWidget *createIconButton();
QWidget *createCheckBox();
QWidget *createRadioButton();
QWidget *createLabel();
QWidget *createField();
QWidget *createFieldThatIsRead();
QWidget *createFieldWithAnError();
QWidget *createFilterBar();
QWidget *createComboBox();
QWidget *createEditableComboBox();
QWidget *createPagingBar();
QWidget *createPath();
QWidget *createDateSelector();
QWidget *createTable();
QWidget *createTree();

/// A body for sheets, with room for the widest of them.
QWidget *createBody();

/// A row for each kind of sheet.
void addSheets();
/// The sheet of the current row, over @p body.
VelaSheet *createSheetOfRow(QWidget *body);
