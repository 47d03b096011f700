// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>
#include <memory>

class QWidget;

/// The states that widgets are shown in.
enum class StageState {
    Normal,
    Hovered,
    Pressed,
    Focused,
    Disabled,
    Checked,
    Error,
};

QString nameOf(StageState state);

/// A widget of the library, and what of it is looked at.
struct StageWidget
{
    const char *name;
    const char *key; ///< the section that its look comes from
    QVector<StageState> states;
    bool isClicked; ///< whether it is a target of clicks as a whole
    bool showsWords; ///< whether it shows texts that can be told from all else in its picture
    std::function<QWidget *(QWidget *parent)> create;
};

/// All widgets of the contract.
const QVector<StageWidget> &stageWidgets();

/// Makes the library's start-up calls with the theme in @p folder, in one of its languages.
void useTheme(const QString &folder, const QString &language);

/// A widget on the page of its theme, in a state.
class StagedWidget
{
public:
    StagedWidget(const StageWidget &widget, StageState state, Qt::LayoutDirection direction);
    ~StagedWidget();

    QWidget *widget() const { return m_widget; }
    /// What is seen of the widget, with a margin around it.
    QImage picture() const;
    /// What is seen of the widget alone.
    QImage widgetPicture() const;

private:
    void enter(StageState state);

    std::unique_ptr<QWidget> m_page;
    QWidget *m_widget;
};
