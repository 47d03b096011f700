// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "support/x-connection.h"

#include <QtTest>

#include <xcb/xcb.h>

#include <cstdlib>

namespace {

constexpr quint32 WholeLength = 1024; // in words, more than any property here has

struct Free
{
    void operator()(void *memory) const { std::free(memory); }
};

template<typename Reply>
using Owned = std::unique_ptr<Reply, Free>;

template<typename Element>
QVector<quint32> elementsOf(const void *value, int bytes)
{
    const auto *first = static_cast<const Element *>(value);
    return QVector<quint32>(first, first + bytes / int(sizeof(Element)));
}

QVector<quint32> elementsOf(const void *value, int bytes, int format)
{
    switch (format) {
    case 8:
        return elementsOf<quint8>(value, bytes);
    case 16:
        return elementsOf<quint16>(value, bytes);
    default:
        return elementsOf<quint32>(value, bytes);
    }
}

QByteArray bytesOf(const XProperty &property)
{
    QByteArray bytes;
    for (const quint32 element : property.elements) {
        bytes.append(reinterpret_cast<const char *>(&element), property.format / 8); // the lower bytes come first
    }
    return bytes;
}

} // namespace

static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN);

bool operator==(const XProperty &left, const XProperty &right)
{
    return left.type == right.type && left.format == right.format && left.elements == right.elements;
}

char *toString(const XProperty &property)
{
    if (property.type.isEmpty()) {
        return qstrdup("no property");
    }
    QByteArray text = property.type + " of " + QByteArray::number(property.format) + " bits:";
    for (const quint32 element : property.elements) {
        text += ' ' + QByteArray::number(element);
    }
    return qstrdup(text.constData());
}

XConnection::XConnection(const QString &display) :
    m_connection(xcb_connect(display.isEmpty() ? nullptr : qPrintable(display), nullptr))
{
}

XConnection::~XConnection()
{
    xcb_disconnect(m_connection);
}

bool XConnection::isOpen() const
{
    return xcb_connection_has_error(m_connection) == 0;
}

XWindow XConnection::rootWindow() const
{
    return xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
}

XWindow XConnection::frameOf(XWindow window) const
{
    const Owned<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, window), nullptr));
    return !tree || tree->parent == tree->root ? window : frameOf(tree->parent);
}

XProperty XConnection::property(XWindow window, const char *name) const
{
    const auto cookie =
        xcb_get_property(m_connection, false, window, atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, WholeLength);
    const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(m_connection, cookie, nullptr));
    if (!reply || reply->type == XCB_NONE) {
        return {};
    }
    const int bytes = xcb_get_property_value_length(reply.get());
    return {atomName(reply->type), reply->format,
            elementsOf(xcb_get_property_value(reply.get()), bytes, reply->format)};
}

QStringList XConnection::atoms(XWindow window, const char *name) const
{
    QStringList names;
    const XProperty list = property(window, name);
    for (const quint32 element : list.elements) {
        names.append(QString::fromLatin1(atomName(element)));
    }
    return names;
}

void XConnection::setProperty(XWindow window, const char *name, const XProperty &property) const
{
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, atom(name), atom(property.type),
                        quint8(property.format), quint32(property.elements.size()), bytesOf(property).constData());
    synchronize();
}

void XConnection::removeProperty(XWindow window, const char *name) const
{
    xcb_delete_property(m_connection, window, atom(name));
    synchronize();
}

void XConnection::watch(XWindow window, const char *name)
{
    const quint32 mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(m_connection, window, XCB_CW_EVENT_MASK, &mask);
    m_watchedWindow = window;
    m_watchedProperty = atom(name);
    changes(); // forgets the changes that were before
    m_changes = 0;
}

int XConnection::changes()
{
    synchronize();
    while (const auto event = Owned<xcb_generic_event_t>(xcb_poll_for_event(m_connection))) {
        if (event->response_type == XCB_PROPERTY_NOTIFY) {
            const auto *change = reinterpret_cast<const xcb_property_notify_event_t *>(event.get());
            const bool isWatched = change->window == m_watchedWindow && change->atom == m_watchedProperty;
            m_changes += isWatched ? 1 : 0;
        }
    }
    return m_changes;
}

QImage XConnection::grab(XWindow window) const
{
    const Owned<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, window), nullptr));
    if (!geometry) {
        return {};
    }
    const auto cookie =
        xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, window, 0, 0, geometry->width, geometry->height, ~0U);
    const Owned<xcb_get_image_reply_t> reply(xcb_get_image_reply(m_connection, cookie, nullptr));
    if (!reply) {
        return {};
    }
    return QImage(xcb_get_image_data(reply.get()), geometry->width, geometry->height, QImage::Format_RGB32).copy();
}

void XConnection::click(XWindow window, const QPoint &position) const
{
    xcb_button_press_event_t event {};
    event.detail = XCB_BUTTON_INDEX_1;
    event.root = rootWindow();
    event.event = window;
    event.event_x = qint16(position.x());
    event.event_y = qint16(position.y());
    event.same_screen = true;

    event.response_type = XCB_BUTTON_PRESS;
    xcb_send_event(m_connection, false, window, XCB_EVENT_MASK_BUTTON_PRESS, reinterpret_cast<const char *>(&event));
    event.response_type = XCB_BUTTON_RELEASE;
    event.state = XCB_BUTTON_MASK_1;
    xcb_send_event(m_connection, false, window, XCB_EVENT_MASK_BUTTON_RELEASE, reinterpret_cast<const char *>(&event));
    synchronize();
}

void XConnection::askToClose(XWindow window) const
{
    xcb_client_message_event_t event {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom("WM_PROTOCOLS");
    event.data.data32[0] = atom("WM_DELETE_WINDOW");
    xcb_send_event(m_connection, false, window, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char *>(&event));
    synchronize();
}

quint32 XConnection::atom(const QByteArray &name) const
{
    const auto cookie = xcb_intern_atom(m_connection, false, quint16(name.size()), name.constData());
    const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(m_connection, cookie, nullptr));
    return reply ? reply->atom : XCB_NONE;
}

QByteArray XConnection::atomName(quint32 atom) const
{
    const Owned<xcb_get_atom_name_reply_t> reply(
        xcb_get_atom_name_reply(m_connection, xcb_get_atom_name(m_connection, atom), nullptr));
    return reply ? QByteArray(xcb_get_atom_name_name(reply.get()), xcb_get_atom_name_name_length(reply.get()))
                 : QByteArray();
}

void XConnection::synchronize() const
{
    const auto cookie = xcb_get_input_focus(m_connection);
    const Owned<xcb_get_input_focus_reply_t> reply(xcb_get_input_focus_reply(m_connection, cookie, nullptr));
}
