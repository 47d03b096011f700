// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "sheets/fake-window-hints.h"

#include "utils/window-close-button_p.h"

namespace Vela::Private {

static int kept = 0;

struct MotifHints
{
    explicit MotifHints(int hints) : value(hints) { ++kept; }
    ~MotifHints() { --kept; }
    Q_DISABLE_COPY_MOVE(MotifHints)

    const int value;
};

void DeleteHints::operator()(MotifHints *hints) const
{
    delete hints;
}

void takeCloseButton(QWidget *widget, KeptHints &keptHints)
{
    if (fakeHints().contains(widget)) {
        keptHints.reset(new MotifHints(fakeHints().value(widget)));
        fakeHints()[widget] = FakeHintsAway;
    }
}

void giveCloseButtonBack(QWidget *widget, KeptHints &keptHints)
{
    if (keptHints) {
        fakeHints()[widget] = keptHints->value;
        keptHints.reset();
    }
}

} // namespace Vela::Private

QHash<const QWidget *, int> &fakeHints()
{
    static QHash<const QWidget *, int> hints;
    return hints;
}

int fakeHintsKept()
{
    return Vela::Private::kept;
}
