// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// The first instance with a peer that sends whatever it likes, in pieces, through a real socket.

#include "single-application/qtlocalpeer.h"
#include "support/input.h"
#include "support/widgets.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QStringList>
#include <QTemporaryDir>

#include <sys/socket.h>
#include <sys/un.h>

namespace {

constexpr quint32 MaximalSize = 64 * 1024 * 1024; // bytes of a message
constexpr int Patience = 5000; // milliseconds, more than any answer takes

// A server in a folder of its own.
class First
{
public:
    First()
    {
        qputenv("TMPDIR", QFile::encodeName(m_folder.path()));
        m_peer = new QtLocalPeer(nullptr, QStringLiteral("fuzzed"));
        agree("it is a client", m_peer->isClient(), false);
        QObject::connect(m_peer, &QtLocalPeer::messageReceived, [this](const QString &text) { received.append(text); });
    }

    QByteArray socketPath() const
    {
        const QStringList names = QDir(m_folder.path()).entryList({QStringLiteral("qtsingleapp-*")}, QDir::System);
        agree("sockets", names.size(), 1);
        return QFile::encodeName(m_folder.filePath(names.first()));
    }

    QStringList received;

private:
    QTemporaryDir m_folder;
    QtLocalPeer *m_peer = nullptr;
};

class Connection
{
public:
    explicit Connection(const QByteArray &path) : m_socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0))
    {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        qstrncpy(address.sun_path, path.constData(), sizeof(address.sun_path));
        if (::connect(m_socket, reinterpret_cast<const sockaddr *>(&address), sizeof(address)) != 0) {
            qFatal("cannot connect");
        }
    }
    ~Connection() { ::close(m_socket); }
    Q_DISABLE_COPY_MOVE(Connection)

    void send(const QByteArray &bytes) const
    {
        // A peer that has been sent away is told so by a failure.
        (void)::send(m_socket, bytes.constData(), static_cast<std::size_t>(bytes.size()), MSG_NOSIGNAL);
    }

    // Reads what has come; false once the other end has closed.
    bool receive()
    {
        char buffer[16];
        const auto size = ::recv(m_socket, buffer, sizeof(buffer), 0);
        if (size > 0) {
            answer.append(buffer, static_cast<int>(size));
        }
        return size > 0 || (size < 0 && errno == EAGAIN);
    }

    QByteArray answer;

private:
    const int m_socket;
};

void runEvents()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    startApplication();
    static auto *const first = new First;
    static const QByteArray path = first->socketPath();
    FuzzInput input(data, size);
    const int pieces = input.takeIndex(4); // how many of the pieces end at bytes that the input tells
    QList<int> ends;
    for (int i = 0; i < pieces; ++i) {
        ends.append(input.take<quint8>());
    }
    const QByteArray bytes = input.rest();
    ends.append(bytes.size());
    std::sort(ends.begin(), ends.end());

    quint32 announced = 0;
    for (const char byte : bytes.left(4)) {
        announced = announced * 256 + static_cast<unsigned char>(byte);
    }
    const bool isKnown = bytes.size() >= 4;
    const bool isTooLong = isKnown && announced > MaximalSize;
    const bool isWhole = isKnown && !isTooLong && bytes.size() - 4 >= static_cast<int>(announced);

    first->received.clear();
    {
        Connection connection(path);
        int sent = 0;
        for (const int end : qAsConst(ends)) {
            if (end > sent) {
                connection.send(bytes.mid(sent, end - sent));
                sent = qMin(end, bytes.size());
                runEvents();
            }
        }
        const QDeadlineTimer deadline(Patience);
        bool isOpen = true;
        for (int turns = 0; isOpen && (isWhole || isTooLong || turns < 2); ++turns) {
            runEvents();
            isOpen = connection.receive();
            if (deadline.hasExpired()) {
                break;
            }
        }
        agree("connection is open", isOpen, !isWhole && !isTooLong);
        agree("answer", connection.answer, isWhole ? QByteArray("ack") : QByteArray());
    }
    runEvents();
    const QStringList expected =
        isWhole ? QStringList(textOf('.' + bytes.mid(4, static_cast<int>(announced))).mid(1)) : QStringList();
    agree("messages", first->received, expected);
    return 0;
}
