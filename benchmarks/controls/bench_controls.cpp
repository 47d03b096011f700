// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-button.h"
#include "component/vela-check-box.h"
#include "component/vela-combo-box.h"
#include "component/vela-filter-bar.h"
#include "component/vela-footbar.h"
#include "component/vela-label.h"
#include "component/vela-line-edit.h"
#include "component/vela-menu.h"
#include "image-manager/image-manager.h"
#include "style-manager/style-manager.h"
#include "support/comparison.h"
#include "support/panels.h"
#include "support/resources.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QStyledItemDelegate>

namespace {

constexpr int Count = 40;
constexpr double Target = 1.05;

using MakeWidget = QWidget *(*)(QWidget *parent);

template<typename Widget>
Widget *styled(Widget *widget, const QString &sheet)
{
    widget->setStyleSheet(sheet);
    return widget;
}

QString sheetOf(const char *key)
{
    return getStyleSheet(key, false);
}

QWidget *bareLineEdit(QWidget *parent)
{
    auto *widget = new QWidget(parent);
    auto *row = new QHBoxLayout(widget);
    row->setAlignment(Qt::AlignLeft);
    row->setSpacing(0);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(styled(new QLabel(widget), sheetOf("component.lineedit_label")));
    row->addWidget(styled(new QLineEdit(widget), sheetOf("component.lineedit")));
    row->addWidget(styled(new QLabel(widget), sheetOf("component.lineedit_label")));
    return widget;
}

QWidget *bareComboBox(QWidget *parent)
{
    const QString sheet = sheetOf("component.combobox")
                              .arg(QStringLiteral("padding-left: 6px; \npadding-right: 6px;"))
                              .arg(QStringLiteral("border: 1px solid #C8D2DC;"))
        + sheetOf("component.scrollbar");
    auto *combo = styled(new QComboBox(parent), sheet);
    combo->view()->setItemDelegate(new QStyledItemDelegate(combo));
    return combo;
}

QWidget *footbar(QWidget *parent)
{
    auto *bar = new VelaFootbar(parent);
    bar->pushLeftWidget(new QPushButton(QStringLiteral("Help"), bar));
    bar->pushRightWidget(new QPushButton(QStringLiteral("OK"), bar));
    bar->pushRightWidget(new QPushButton(QStringLiteral("Cancel"), bar));
    bar->init();
    return bar;
}

QWidget *bareFootbar(QWidget *parent)
{
    auto *bar = new QWidget(parent);
    auto *row = new QHBoxLayout(bar);
    row->setContentsMargins(20, 8, 20, 8);
    row->setSpacing(10);
    row->setAlignment(Qt::AlignLeft);
    row->addWidget(new QPushButton(QStringLiteral("Help"), bar), 0, Qt::AlignVCenter);
    row->addStretch(1);
    row->addWidget(new QPushButton(QStringLiteral("OK"), bar), 0, Qt::AlignVCenter);
    row->addWidget(new QPushButton(QStringLiteral("Cancel"), bar), 0, Qt::AlignVCenter);
    return bar;
}

// The button in the field is the library's on both sides: bench_buttons compares that.
QWidget *bareFilterBar(QWidget *parent)
{
    auto *field =
        styled(new QLineEdit(parent), sheetOf("component.lineedit") + sheetOf("component.filter_bar_padding"));
    field->setFixedHeight(28);
    auto *button = new VelaIconButton(QStringLiteral("bt_search_dropdown"));
    button->setFocusPolicy(Qt::NoFocus);
    button->setParent(field);
    button->setStyleSheet(sheetOf("component.filter_search_button"));
    button->move(4, 2);
    button->setCursor(Qt::ArrowCursor);
    button->setFixedSize(34, 24);
    return field;
}

// A field with a stock button in it.
QWidget *shortFilterBar(QWidget *parent)
{
    auto *field =
        styled(new QLineEdit(parent), sheetOf("component.lineedit") + sheetOf("component.filter_bar_padding"));
    field->setFixedHeight(28);
    auto *button = styled(new QToolButton(field), sheetOf("component.filter_search_button"));
    button->setIcon(getGlobalImage("bt_search_dropdown", ImageManager::IMAGE_NORMAL));
    button->setIconSize(QSize(16, 16));
    button->setCursor(Qt::ArrowCursor);
    button->setGeometry(4, 2, 34, 24);
    return field;
}

struct Control
{
    const char *what;
    MakeWidget ours;
    MakeWidget floor;
};

const QString Text = QStringLiteral("Keep the files for ninety days");

const Control Controls[] = {
    {"VelaCheckBox, first paint", [](QWidget *parent) -> QWidget * { return new VelaCheckBox(Text, parent); },
     [](QWidget *parent) -> QWidget * { return styled(new QCheckBox(Text, parent), sheetOf("component.checkbox")); }},
    {"VelaRadioButton, first paint", [](QWidget *parent) -> QWidget * { return new VelaRadioButton(Text, parent); },
     [](QWidget *parent) -> QWidget * {
         return styled(new QRadioButton(Text, parent), sheetOf("component.radio_button"));
     }},
    {"VelaLabel, first paint", [](QWidget *parent) -> QWidget * { return new VelaLabel(Text, parent); },
     [](QWidget *parent) -> QWidget * { return styled(new QLabel(Text, parent), sheetOf("component.label")); }},
    {"VelaLineEdit, first paint", [](QWidget *parent) -> QWidget * { return new VelaLineEdit(parent); }, bareLineEdit},
    {"VelaComboBox, first paint", [](QWidget *parent) -> QWidget * { return new VelaComboBox(parent); }, bareComboBox},
    {"VelaFootbar, first paint", footbar, bareFootbar},
    {"VelaFilterBar, first paint", [](QWidget *parent) -> QWidget * { return new VelaFilterBar(parent); },
     bareFilterBar},
    {"VelaFilterBar, first paint, shortest floor",
     [](QWidget *parent) -> QWidget * { return new VelaFilterBar(parent); }, shortFilterBar},
};

template<typename Menu>
void openMenus(benchmark::State &state)
{
    const QString sheet = sheetOf("component.menu");
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        Menu menu;
        menu.setStyleSheet(sheet);
        for (int i = 0; i < 10; ++i) {
            menu.addAction(Text);
        }
        const PaintWatcher watcher(&menu);
        menu.popup(QPoint(100, 100));
        watcher.waitForPaint();
        menu.close();
    }
}

QByteArray sheets()
{
    return headed("component.checkbox", buttonSheet("QCheckBox"))
        + headed("component.radio_button", buttonSheet("QRadioButton"))
        + headed("component.label", "QLabel { color: #17202b; padding: 1px }")
        + headed("component.lineedit_label", "QLabel { color: #4a5763; padding: 1px }")
        + headed("component.lineedit", buttonSheet("QLineEdit"))
        + headed("component.combobox", buttonSheet("QComboBox") + "QComboBox { %1 %2 }")
        + headed("component.scrollbar", "QScrollBar { width: 12px }") + headed("component.menu", buttonSheet("QMenu"))
        + headed("component.icon_button", buttonSheet("QToolButton"))
        + headed("component.filter_search_button", "QToolButton { border: none }")
        + headed("component.filter_bar_padding", "QLineEdit { padding-left: 40px }");
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    const Resources resources;
    for (const char *state : {"", "_hover", "_click", "_disable"}) {
        resources.writeImage(QLatin1String("bt_search_dropdown") + QLatin1String(state), 64);
    }
    resources.writeCatalogue({QStringLiteral("bt_search_dropdown")});
    ImageManager::getInstance()->initialize(ImageManager::INIT_LAZY);
    StyleManager::getInstance()->initialize({resources.writeSheet(QStringLiteral("controls.qss"), sheets())});

    for (const Control &control : Controls) {
        compare(
            control.what, Target, [&control](benchmark::State &state) { showPanels(state, Count, control.ours); },
            [&control](benchmark::State &state) { showPanels(state, Count, control.floor); });
    }
    compare("VelaMenu, first paint", Target, openMenus<VelaMenu>, openMenus<QMenu>);
    return runComparisons(argc, argv);
}
