// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// Opens help windows whose knowledge base fails, each in its own way and all at once: each shows a page in ten seconds,
// and what they take of memory is bounded. Needs openssl, and no display.

#include "help/help-test.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QNetworkProxy>
#include <QSslConfiguration>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr int LongestWait = 10500; // milliseconds until there is a page: ten seconds, and the time to show it
constexpr int Drip = 100; // milliseconds from one byte to the next
constexpr long MemoryAtMost = 200 * 1024; // kilobytes for all of them at once, of which one gets up to 64 MiB

using Answer = std::function<void(QSslSocket *)>;

struct Fault
{
    const char *name;
    Answer answer;
    QString shown;
};

Answer writes(const QByteArray &bytes)
{
    return [bytes](QSslSocket *socket) { socket->write(bytes); };
}

// Writes the head, and then the rest a part at a time.
Answer drips(const QByteArray &head, const QByteArray &part, int pause)
{
    return [head, part, pause](QSslSocket *socket) {
        socket->write(head);
        auto *timer = new QTimer(socket);
        QObject::connect(timer, &QTimer::timeout, socket, [socket, part] {
            if (socket->bytesToWrite() < 1024 * 1024) {
                socket->write(part);
            }
        });
        timer->start(pause);
    };
}

Answer endsAfter(const QByteArray &bytes)
{
    return [bytes](QSslSocket *socket) {
        socket->write(bytes);
        socket->flush();
        QTimer::singleShot(Drip, socket, &QSslSocket::abort);
    };
}

const QByteArray Endless = "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\n\r\n";

std::vector<Fault> faults()
{
    const QByteArray body = page(Online);
    return {
        {"none", writes(KnowledgeBase::ok(body)), Online},
        {"nothing comes", writes(QByteArray()), Offline},
        {"nothing comes behind the header", writes(KnowledgeBase::ok(QByteArray(), 100)), Offline},
        {"a byte at a time, for ever", drips(Endless, "x", Drip), Offline},
        {"a header that does not end", drips("HTTP/1.1 200 OK\r\n", "X-Header: x\r\n", Drip), Offline},
        {"a body that does not end", drips(Endless, QByteArray(512 * 1024, 'x'), 0), Offline},
        {"longer than it says", writes(KnowledgeBase::ok(body, 10)), QString()},
        {"shorter than it says", endsAfter(KnowledgeBase::ok(body, body.size() + 1)), Offline},
        {"no HTTP", endsAfter("garbage\r\n\r\n" + QByteArray(1000, '\xff')), Offline},
        {"sends elsewhere for ever",
         writes("HTTP/1.1 302 Found\r\nLocation: https://help.vela.invalid/cgi/knowledgebase/\r\n"
                "Content-Length: 0\r\n\r\n"),
         QString()},
        {"500 with a page", writes("HTTP/1.1 500 Broken\r\nContent-Length: 3\r\n\r\nbad"), Offline},
        {"an empty page", writes(KnowledgeBase::ok(QByteArray())), QString()},
        {"reset in its body", endsAfter("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n20\r\nhalf"), Offline},
        // The toolkit takes that for the last chunk, and so for an empty page.
        {"chunks that are none", endsAfter("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\nzz\r\nhalf\r\n"),
         QString()},
        {"bytes that are no UTF-8", writes(KnowledgeBase::ok("\xff\xfe\x80")), QStringLiteral("\ufffd\ufffd\ufffd")},
    };
}

long peakMemory()
{
    std::ifstream status("/proc/self/status");
    std::string word;
    long kilobytes = 0;
    while (status >> word) {
        if (word == "VmHWM:") {
            status >> kilobytes;
        }
    }
    return kilobytes;
}

struct Watched
{
    std::unique_ptr<Help> help;
    qint64 time = -1; // when its page was there, or -1 while it is empty
};

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    Certificates certificates;
    const QString error = certificates.create();
    if (!error.isEmpty()) {
        std::fprintf(stderr, "help_faults: %s\n", qPrintable(error));
        return EXIT_FAILURE;
    }
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setCaCertificates({certificates.certificate(QStringLiteral("authority"))});
    QSslConfiguration::setDefaultConfiguration(configuration);
    const ResourceFolder installed;
    installed.writeFile(QStringLiteral("enu/page.html"), page(Offline));
    const std::vector<Fault> all = faults();
    KnowledgeBase base(certificates);
    base.answer = [&all](QSslSocket *socket, const QByteArray &request) {
        const int begin = request.indexOf("section=") + 8;
        all.at(static_cast<size_t>(request.mid(begin, request.indexOf('&', begin) - begin).toInt())).answer(socket);
    };
    QNetworkProxy::setApplicationProxy(
        QNetworkProxy(QNetworkProxy::HttpProxy, QStringLiteral("127.0.0.1"), base.serverPort()));

    const long before = peakMemory();
    QElapsedTimer elapsed;
    elapsed.start();
    std::vector<Watched> windows(all.size());
    for (size_t i = 0; i < all.size(); ++i) {
        HelpContext helpContext = context(installed.path());
        helpContext.section = QString::number(i);
        windows.at(i).help = std::make_unique<Help>(helpContext);
    }
    while (elapsed.elapsed() < LongestWait) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
        for (size_t i = 0; i < all.size(); ++i) {
            Watched &watched = windows.at(i);
            if (watched.time < 0 && !watched.help->text().isEmpty()) {
                watched.time = elapsed.elapsed();
            }
        }
    }

    int failed = 0;
    for (size_t i = 0; i < all.size(); ++i) {
        const QString text = windows.at(i).help->text();
        const bool isGood = text == all.at(i).shown;
        failed += !isGood;
        std::printf("help: %-34s %6lld ms  %s\n", all.at(i).name, static_cast<long long>(windows.at(i).time),
                    isGood ? "ok" : qPrintable(QLatin1String("FAILED: ") + text.left(100)));
    }
    const long taken = peakMemory() - before;
    std::printf("help: %ld MiB at most, of %ld\n", taken / 1024, MemoryAtMost / 1024);
    return failed == 0 && taken <= MemoryAtMost ? EXIT_SUCCESS : EXIT_FAILURE;
}
