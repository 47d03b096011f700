// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-button.h"
#include "image-manager/image-manager.h"
#include "style-manager/style-manager.h"
#include "support/comparison.h"
#include "support/panels.h"
#include "support/resources.h"

#include <QApplication>

namespace {

constexpr int ButtonCount = 50;
constexpr double Target = 1.2;
constexpr double ShortestTarget = 1.05;

QPixmap iconPixmap()
{
    QPixmap pixmap(20, 20);
    pixmap.fill(Qt::darkCyan);
    return pixmap;
}

QWidget *bareButton(QWidget *parent, const QString &sheet)
{
    auto *button = new QPushButton(QStringLiteral("Continue"), parent);
    button->setFlat(true);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    button->setStyleSheet(sheet);
    return button;
}

QWidget *bareToolButton(QWidget *parent, const QIcon &icon, const QString &sheet)
{
    auto *button = new QToolButton(parent);
    button->setIcon(icon);
    button->setIconSize(QSize(20, 20));
    button->setToolButtonStyle(Qt::ToolButtonIconOnly);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    button->setStyleSheet(sheet);
    button->setPopupMode(QToolButton::InstantPopup);
    return button;
}

// No more than a button with this look takes.
QWidget *shortToolButton(QWidget *parent, const QIcon &icon, const QString &sheet)
{
    auto *button = new QToolButton(parent);
    button->setIcon(icon);
    button->setIconSize(QSize(20, 20));
    button->setStyleSheet(sheet);
    return button;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    const Resources resources;
    ImageManager::getInstance()->initialize(ImageManager::INIT_LAZY);
    StyleManager::getInstance()->initialize(
        {resources.writeSheet(QStringLiteral("buttons.qss"),
                              headed("component.apply_button", buttonSheet("QPushButton"))
                                  + headed("component.icon_button", buttonSheet("QToolButton")))});

    const QString sheet = getStyleSheet("component.apply_button", false);
    compare(
        "VelaButton, first paint", Target,
        [](benchmark::State &state) {
            showPanels(state, ButtonCount,
                       [](QWidget *) { return new VelaButton(QStringLiteral("Continue"), VelaButton::ApplyButton); });
        },
        [sheet](benchmark::State &state) {
            showPanels(state, ButtonCount, [&sheet](QWidget *parent) { return bareButton(parent, sheet); });
        });

    const QPixmap pixmap = iconPixmap();
    const QString iconSheet = getStyleSheet("component.icon_button", false);
    compare(
        "VelaIconButton, first paint", Target,
        [pixmap](benchmark::State &state) {
            showPanels(state, ButtonCount, [&pixmap](QWidget *) { return new VelaIconButton(pixmap); });
        },
        [pixmap, iconSheet](benchmark::State &state) {
            showPanels(state, ButtonCount,
                       [&](QWidget *parent) { return bareToolButton(parent, QIcon(pixmap), iconSheet); });
        });
    const auto showOurs = [pixmap](benchmark::State &state) {
        showPanels(state, ButtonCount, [&pixmap](QWidget *) { return new VelaIconButton(pixmap); });
    };
    compare("VelaIconButton, first paint, shortest floor", ShortestTarget, showOurs,
            [pixmap, iconSheet](benchmark::State &state) {
                showPanels(state, ButtonCount,
                           [&](QWidget *parent) { return shortToolButton(parent, QIcon(pixmap), iconSheet); });
            });
    compare(
        "VelaIconButton, first paint, made under its parent, shortest floor", ShortestTarget,
        [pixmap](benchmark::State &state) {
            showPanels(state, ButtonCount, [&pixmap](QWidget *parent) { return new VelaIconButton(pixmap, parent); });
        },
        [pixmap, iconSheet](benchmark::State &state) {
            showPanels(state, ButtonCount,
                       [&](QWidget *parent) { return shortToolButton(parent, QIcon(pixmap), iconSheet); });
        });
    compare("VelaIconButton, first paint, floor without a parent", ShortestTarget, showOurs,
            [pixmap, iconSheet](benchmark::State &state) {
                showPanels(state, ButtonCount,
                           [&](QWidget *) { return shortToolButton(nullptr, QIcon(pixmap), iconSheet); });
            });
    return runComparisons(argc, argv);
}
