// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "commands.h"

#include "vela_components_version.h"

#include <QCoreApplication>

int main(int argc, char **argv)
{
    QCoreApplication::setApplicationName(QStringLiteral("vela-theme"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VELA_COMPONENTS_VERSION_STRING));
    return runCommand(argc, argv);
}
