// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "image-manager/image-manager.h"
#include "style-manager/style-manager.h"

#include <QGuiApplication>

#include <cstdio>
#include <cstring>

// Ends normally only if the library fails to abort it.
int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    const char *what = argc > 1 ? argv[1] : "";
    if (std::strcmp(what, "image-folder") == 0) {
        ImageManager::getInstance()->getImageFolder();
    } else if (std::strcmp(what, "temp-image-folder") == 0) {
        ImageManager::getInstance()->getTempImageFolder();
    } else if (std::strcmp(what, "style-manager") == 0) {
        StyleManager::getInstance()->initialize({});
    } else if (std::strcmp(what, "image") == 0) {
        const QPixmap pixmap = getGlobalImage("icon_warning", ImageManager::IMAGE_NORMAL);
        return pixmap.isNull() ? 0 : 1;
    } else {
        std::fputs("usage: uninitialized image-folder|temp-image-folder|style-manager|image\n", stderr);
        return 2;
    }
    return 0;
}
