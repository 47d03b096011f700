#include "controls/vela-combo-box.h"

#include "style-manager/style-manager.h"

#include <QAbstractItemView>
#include <QStyledItemDelegate>

namespace {

constexpr double Padding = 6.0; // logical pixels

QString comboBoxSheet()
{
    const QString pad = QString::number(DPIinfo::getInstance()->getDPI() * Padding, 'g', 6);
    const QString padding =
        QLatin1String("padding-left: ") + pad + QLatin1String("px; \npadding-right: ") + pad + QLatin1String("px;");
    const QString border = QStringLiteral("border: 1px solid #C8D2DC;");
    const QString boxSheet = getStyleSheet("component.combobox", false).arg(padding).arg(border);
    return boxSheet + getStyleSheet("component.scrollbar", false);
}

} // namespace

VelaComboBox::VelaComboBox(QWidget *parent) : QComboBox(parent)
{
    setStyleSheet(comboBoxSheet());

    // The delegate that a combo box has by itself does not follow the sheet's rules for items.
    auto *delegate = new QStyledItemDelegate;
    view()->setItemDelegate(delegate);
    connect(this, &QObject::destroyed, delegate, [delegate] { delete delegate; }); // views do not own delegates
}
