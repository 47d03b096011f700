// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "accessible/button_p.h"

class QMessageBox;

namespace Vela::Accessible {

/// A button of a VelaCountdownMessageBox. The name of the one that clicks itself does not count, its description does.
class CountdownButton : public Button
{
public:
    using Button::Button;

    /// How long it takes until @p box answers itself, empty if it does not.
    static QString timeLeft(const QMessageBox *box);

protected:
    QString name() const override;
    QString description() const override;

private:
    bool isCounting() const;
};

} // namespace Vela::Accessible
