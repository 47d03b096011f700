// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QApplication>

/// The application that images, fonts and widgets need. It is never deleted: what is static may outlive it.
inline void startApplication()
{
    static int count = 1;
    static char name[] = "fuzzer";
    static char *arguments[] = {name, nullptr};
    static const auto *application = new QApplication(count, arguments);
    Q_UNUSED(application)
}
