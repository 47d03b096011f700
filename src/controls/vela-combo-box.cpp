// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "controls/vela-combo-box.h"

#include "look/look_p.h"
#include "scale/dpi-info.h"

#include <QAbstractItemView>
#include <QPointer>
#include <QStyledItemDelegate>

using namespace Vela;

namespace {

constexpr double Padding = 6.0; // logical pixels

QString comboBoxSheet()
{
    const QString pad = QString::number(DPIinfo::getInstance()->getDPI() * Padding, 'g', 6);
    const QString padding =
        QLatin1String("padding-left: ") + pad + QLatin1String("px; \npadding-right: ") + pad + QLatin1String("px;");
    const QString border = QStringLiteral("border: 1px solid #C8D2DC;");
    const QString boxSheet = Look::sheet(Style::ComboBox).arg(padding).arg(border); // clazy:exclude=qstring-arg
    return boxSheet + Look::sheet(Style::ScrollBar);
}

} // namespace

class VelaComboBoxPrivate
{
public:
    VelaComboBoxPrivate() = default;
    ~VelaComboBoxPrivate() { delete delegate; }
    Q_DISABLE_COPY(VelaComboBoxPrivate)

    // Its view does not own it.
    const QPointer<QStyledItemDelegate> delegate = new QStyledItemDelegate;
};

VelaComboBox::VelaComboBox(QWidget *parent) : QComboBox(parent), d(std::make_unique<VelaComboBoxPrivate>())
{
    setStyleSheet(comboBoxSheet());
    // The delegate that the view has by itself does not follow the sheet's rules for items.
    view()->setItemDelegate(d->delegate);
}

VelaComboBox::~VelaComboBox() = default;
