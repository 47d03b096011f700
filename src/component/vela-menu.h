#pragma once

#include "vela_export.h"

#include <QMenu>

/// Menu that moves back into the available area of its screen each time it is shown. It has no style sheet of its own;
/// set "component.menu" or another.
class VELA_EXPORT VelaMenu : public QMenu
{
    Q_OBJECT

public:
    explicit VelaMenu(QWidget *parent = nullptr);

protected:
    void showEvent(QShowEvent *event) override;
};
