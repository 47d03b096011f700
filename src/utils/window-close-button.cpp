// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "utils/window-close-button.h"

#include "utils/window-close-button_p.h"

#include <QGuiApplication>
#include <QWidget>
#include <QWindow>

#include <X11/Xlib-xcb.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace Vela::Private {

// The property's content, as programs of a 64-bit system write it: the fields are longs in memory, and what goes to
// the server are the first elements of 32 bits of that memory, not the fields' values. Window managers have always
// been given these words, and in their order they withdraw all functions of the window.
struct MotifHints
{
    long flags;
    long functions;
    long decorations;
    long inputMode;
    long status;
};

} // namespace Vela::Private

using Vela::Private::MotifHints;

namespace {

constexpr MotifHints DefaultHints {0, 1, 1, 0, 0}; // hints of a window without the property
constexpr long FunctionsAreValid = 1;
constexpr long ResizeAndMove = 6;
constexpr long NoDecorations = 0;

constexpr int ElementBits = 32;
constexpr int ElementCount = 5; // elements written
constexpr int MaximalElements = 20; // elements asked for

// By default a connection is left open on purpose, as documented. Packagers choose otherwise.
struct CloseIfChosen
{
    void operator()(Display *display) const
    {
        if (VELA_CLOSE_X_CONNECTIONS) {
            XCloseDisplay(display);
        }
    }
};

struct Free
{
    void operator()(void *memory) const { std::free(memory); }
};

MotifHints readHints(xcb_connection_t *connection, xcb_window_t window, xcb_atom_t property)
{
    const xcb_get_property_cookie_t cookie =
        xcb_get_property_unchecked(connection, false, window, property, property, 0, MaximalElements);
    const std::unique_ptr<xcb_get_property_reply_t, Free> reply(xcb_get_property_reply(connection, cookie, nullptr));
    if (!reply || reply->format != ElementBits || reply->type != property) {
        return DefaultHints;
    }
    // A property of five elements fills half of the memory.
    MotifHints hints {};
    const auto size = static_cast<std::size_t>(xcb_get_property_value_length(reply.get()));
    std::memcpy(&hints, xcb_get_property_value(reply.get()), std::min(size, sizeof(hints)));
    return hints;
}

void writeHints(xcb_connection_t *connection, xcb_window_t window, xcb_atom_t property, const MotifHints &hints)
{
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, property, property, ElementBits, ElementCount,
                        &hints);
    xcb_flush(connection);
}

} // namespace

void SHAPISetCloseButtonOfWindowEnable(QWidget *widget, bool enable, void **savedState)
{
    const QWindow *handle = widget->window()->windowHandle();
    if (!handle || QGuiApplication::platformName() != QLatin1String("xcb")) {
        return;
    }
    const auto window = static_cast<xcb_window_t>(handle->winId());

    const std::unique_ptr<Display, CloseIfChosen> display(XOpenDisplay(nullptr));
    if (!display) {
        return;
    }
    xcb_connection_t *connection = XGetXCBConnection(display.get());
    XSetEventQueueOwner(display.get(), XCBOwnsEventQueue);
    const auto property = static_cast<xcb_atom_t>(XInternAtom(display.get(), "_MOTIF_WM_HINTS", False));

    MotifHints hints = readHints(connection, window, property);
    if (enable) {
        if (!*savedState) {
            return;
        }
        const std::unique_ptr<MotifHints> saved(static_cast<MotifHints *>(*savedState));
        *savedState = nullptr;
        hints = *saved;
    } else {
        *savedState = new MotifHints(hints);
        hints.flags = FunctionsAreValid;
        hints.functions = ResizeAndMove;
        hints.decorations = NoDecorations;
    }
    writeHints(connection, window, property, hints);
}

namespace Vela::Private {

namespace {

void setCloseButtonEnabled(QWidget *widget, bool enable, KeptHints &kept)
{
    void *state = kept.release();
    SHAPISetCloseButtonOfWindowEnable(widget, enable, &state);
    kept.reset(static_cast<MotifHints *>(state));
}

} // namespace

void DeleteHints::operator()(MotifHints *hints) const
{
    delete hints;
}

void takeCloseButton(QWidget *widget, KeptHints &kept)
{
    kept.reset();
    setCloseButtonEnabled(widget, false, kept);
}

void giveCloseButtonBack(QWidget *widget, KeptHints &kept)
{
    setCloseButtonEnabled(widget, true, kept);
}

} // namespace Vela::Private
