// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-input-sheet.h"
#include "component/vela-msg-sheet.h"

#include <QApplication>

#include <cstring>
#include <memory>

namespace {

template<typename Sheet>
void answer(Sheet &sheet)
{
    sheet.showSheet();
    sheet.done(0);
}

} // namespace

// Deletes a sheet with its window, or a static one, when there is no application any more.
int main(int argc, char **argv)
{
    std::unique_ptr<QWidget> window;
    const QApplication application(argc, argv);
    window = std::make_unique<QWidget>();
    if (argc > 2) {
        if (std::strcmp(argv[1], "input") == 0) {
            static VelaInputSheet sheet(QStringLiteral("text"), nullptr);
            answer(sheet);
        } else {
            static VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("text"), nullptr);
            answer(sheet);
        }
    } else if (argc > 1 && std::strcmp(argv[1], "input") == 0) {
        new VelaInputSheet(QStringLiteral("text"), window.get());
    } else {
        new VelaMessageSheet(VelaMessageSheet::InfoMessage, QStringLiteral("text"), window.get());
    }
    return 0;
}
