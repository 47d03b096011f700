// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-input-sheet.h"
#include "component/vela-msg-sheet.h"

#include <QApplication>

#include <cstring>
#include <memory>

// Deletes a sheet with its window when there is no application any more.
int main(int argc, char **argv)
{
    std::unique_ptr<QWidget> window;
    const QApplication application(argc, argv);
    window = std::make_unique<QWidget>();
    if (argc > 1 && std::strcmp(argv[1], "input") == 0) {
        new VelaInputSheet(QStringLiteral("text"), window.get());
    } else {
        new VelaMessageSheet(VelaMessageSheet::InfoMessage, QStringLiteral("text"), window.get());
    }
    return 0;
}
