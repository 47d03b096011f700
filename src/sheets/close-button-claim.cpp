// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "sheets/close-button-claim_p.h"

#include <QVector>

#include <algorithm>
#include <utility>

namespace Vela::Private {

namespace {

// The claims that are made, in the order in which they were.
QVector<CloseButtonClaim *> &claims()
{
    static auto &claims = *new QVector<CloseButtonClaim *>; // stays to the end, as sheets may be static
    return claims;
}

} // namespace

CloseButtonClaim::~CloseButtonClaim()
{
    if (isMade()) {
        giveBack(m_window);
    }
}

bool CloseButtonClaim::isMade() const
{
    return m_hints != nullptr;
}

void CloseButtonClaim::make(QWidget *window)
{
    if (isMade()) {
        return;
    }
    m_window = window;
    takeCloseButton(window, m_hints);
    if (isMade()) {
        claims().append(this);
    }
}

void CloseButtonClaim::giveBack(QWidget *window)
{
    if (window) {
        handOn();
        giveCloseButtonBack(window, m_hints);
    }
    drop();
}

void CloseButtonClaim::drop()
{
    claims().removeOne(this);
    m_hints.reset();
}

void CloseButtonClaim::handOn()
{
    const auto own = std::find(claims().cbegin(), claims().cend(), this);
    const auto later = std::find_if(own, claims().cend(), [this](const CloseButtonClaim *claim) {
        return claim != this && claim->m_window == m_window;
    });
    if (later != claims().cend()) {
        std::swap(m_hints, (*later)->m_hints);
    }
}

} // namespace Vela::Private
