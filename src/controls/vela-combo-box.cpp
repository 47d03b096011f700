// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "controls/vela-combo-box.h"

#include "look/look-change_p.h"
#include "look/look_p.h"
#include "scale/dpi-info.h"

#include <QAbstractItemView>
#include <QPointer>
#include <QStyledItemDelegate>

using namespace Vela;

namespace {

constexpr double Padding = 6.0; // logical pixels

QString comboBoxSheet(const QString &boxSheet, const QColor &borderColor, const QString &scrollBarSheet)
{
    const QString pad = QString::number(DPIinfo::getInstance()->getDPI() * Padding, 'g', 6);
    const QString padding =
        QLatin1String("padding-left: ") + pad + QLatin1String("px; \npadding-right: ") + pad + QLatin1String("px;");
    const QString border = QStringLiteral("border: 1px solid %1;").arg(borderColor.name().toUpper());
    return boxSheet.arg(padding).arg(border) + scrollBarSheet; // clazy:exclude=qstring-arg
}

} // namespace

class VelaComboBoxPrivate
{
public:
    VelaComboBoxPrivate() = default;
    ~VelaComboBoxPrivate() { delete delegate; }
    Q_DISABLE_COPY(VelaComboBoxPrivate)

    // The combo box's view does not own it.
    const QPointer<QStyledItemDelegate> delegate = new QStyledItemDelegate;
};

VelaComboBox::VelaComboBox(QWidget *parent) : QComboBox(parent), d(std::make_unique<VelaComboBoxPrivate>())
{
    const QString boxSheet = Look::sheet(Style::ComboBox);
    setStyleSheet(comboBoxSheet(boxSheet, Look::color(Color::ComboBoxBorder), Look::sheet(Style::ScrollBar)));
    // The delegate that the view has by itself does not follow the sheet's rules for items.
    view()->setItemDelegate(d->delegate);
}

VelaComboBox::~VelaComboBox() = default;

void VelaComboBox::customEvent(QEvent *event)
{
    if (const auto *change = LookChange::of(event)) {
        if (change->isOfEverything()) {
            const QString former = comboBoxSheet(change->former(Style::ComboBox), change->former(Color::ComboBoxBorder),
                                                 change->former(Style::ScrollBar));
            change->restyle(this, former,
                            comboBoxSheet(change->now(Style::ComboBox), Look::color(Color::ComboBoxBorder),
                                          change->now(Style::ScrollBar)));
        }
    }
    QComboBox::customEvent(event);
}
