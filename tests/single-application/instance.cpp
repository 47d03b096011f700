// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// A process of a single-instance application, driven by its arguments: an id, or nothing to have that of the program,
// and then what to do.

#include "single-application/qtlockedfile.h"
#include "single-application/qtsingleapplication.h"

#include <QCryptographicHash>
#include <QSocketNotifier>
#include <QTextStream>
#include <QThread>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <vector>

#include <sys/resource.h>
#include <sys/types.h>
#include <unistd.h>

namespace {

constexpr rlim_t FewDescriptors = 60;
constexpr int WithoutDescriptors = 500; // milliseconds
constexpr unsigned long BusyTime = 12000; // milliseconds for each message, longer than an idle connection lives

void say(const QString &line)
{
    QTextStream(stdout) << line << '\n' << Qt::flush;
}

// A text that is short, whatever the message is like.
QString digest(const QString &message)
{
    return QString::fromLatin1(QCryptographicHash::hash(message.toUtf8(), QCryptographicHash::Md5).toHex());
}

void limitDescriptors(rlim_t count)
{
    rlimit limit = {};
    ::getrlimit(RLIMIT_NOFILE, &limit);
    limit.rlim_cur = count;
    ::setrlimit(RLIMIT_NOFILE, &limit);
}

// Opens as many files as it can, and closes them a while after.
void useUpDescriptors()
{
    auto descriptors = std::make_shared<std::vector<int>>();
    for (int descriptor = ::dup(STDIN_FILENO); descriptor != -1; descriptor = ::dup(STDIN_FILENO)) {
        descriptors->push_back(descriptor);
    }
    QTimer::singleShot(WithoutDescriptors, qApp,
                       [descriptors] { std::for_each(descriptors->begin(), descriptors->end(), ::close); });
}

// Tells whether this process is the first. If so, reports the messages until its standard input is closed.
int serve(QtSingleApplication *application, const QString &manner)
{
    if (application->isRunning()) {
        say(QStringLiteral("client"));
        return EXIT_SUCCESS;
    }
    const bool isBusy = manner == QLatin1String("busy");
    QObject::connect(application, &QtSingleApplication::messageReceived, [isBusy](const QString &message) {
        say(digest(message));
        QThread::msleep(isBusy ? BusyTime : 0);
    });
    if (manner.endsWith(QLatin1String("descriptors"))) {
        limitDescriptors(FewDescriptors);
    }
    if (manner == QLatin1String("no descriptors")) {
        useUpDescriptors();
    }
    say(QStringLiteral("first"));
    return QtSingleApplication::exec();
}

// Sends that many messages, each of its own; tells their digests and whether each has been taken.
int send(QtSingleApplication *application, int count)
{
    for (int i = 0; i < count; ++i) {
        const QString text = QStringLiteral("%1 Grüße 日本 %2 ").arg(::getpid()).arg(i);
        const QString message = text.repeated(i % 20 == 0 ? 10000 : 1);
        const bool isTaken = application->sendMessage(message, 60000);
        say((isTaken ? QStringLiteral("sent ") : QStringLiteral("failed ")) + digest(message));
    }
    return EXIT_SUCCESS;
}

// Shows a window, minimised or else covered by a second one, that messages bring to the front unless it is "passive".
int showWindow(QtSingleApplication *application, const QString &manner)
{
    QWidget window;
    window.setWindowTitle(QStringLiteral("activation window"));
    window.setGeometry(100, 100, 300, 200);
    if (manner == QLatin1String("covered")) {
        window.show();
    } else {
        window.showMinimized();
    }
    QWidget other;
    other.setGeometry(100, 100, 300, 200);
    other.show();
    application->setActivationWindow(&window, manner != QLatin1String("passive"));
    const int patience = manner == QLatin1String("passive") ? 3000 : 20000;
    QObject::connect(application, &QtSingleApplication::messageReceived, &window, [&window, patience](const QString &) {
        // Window managers take their time: tells it as soon as it is so, or that it has not come about.
        auto *poll = new QTimer(&window);
        auto elapsed = std::make_shared<int>(0);
        QObject::connect(poll, &QTimer::timeout, &window, [&window, poll, elapsed, patience] {
            *elapsed += poll->interval();
            const bool isBack = !window.isMinimized() && window.isActiveWindow();
            if (isBack || *elapsed > patience) {
                say(isBack ? QStringLiteral("in front") : QStringLiteral("not in front"));
                poll->stop();
            }
        });
        poll->start(50);
    });
    say(application->isRunning() ? QStringLiteral("client") : QStringLiteral("first"));
    say(QString::number(window.winId()));
    say(QString::number(other.winId()));
    return QtSingleApplication::exec();
}

// Takes a lock on the file and keeps it until standard input is closed. "blocks" waits for it.
int lockFile(const QString &name, const QString &manner)
{
    QtLockedFile file(name);
    if (!file.open(QIODevice::ReadWrite)) {
        say(QStringLiteral("cannot open"));
        return EXIT_FAILURE;
    }
    const bool isRead = manner.startsWith(QLatin1String("read"));
    const bool blocks = manner.endsWith(QLatin1String("blocks"));
    say(QStringLiteral("trying"));
    say(file.lock(isRead ? QtLockedFile::ReadLock : QtLockedFile::WriteLock, blocks) ? QStringLiteral("locked")
                                                                                     : QStringLiteral("refused"));
    return QCoreApplication::exec();
}

void endWithStandardInput()
{
    auto *notifier = new QSocketNotifier(STDIN_FILENO, QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, &QCoreApplication::quit);
}

} // namespace

int main(int argc, char **argv)
{
    const QString id = QString::fromLocal8Bit(argv[1]);
    const QString task = QString::fromLocal8Bit(argv[2]);
    const QString argument = QString::fromLocal8Bit(argc > 3 ? argv[3] : "");
    if (task == QLatin1String("lock")) {
        const QCoreApplication application(argc, argv);
        endWithStandardInput();
        return lockFile(id, argument);
    }
    const std::unique_ptr<QtSingleApplication> application(
        id.isEmpty() ? new QtSingleApplication(argc, argv, argument != QLatin1String("without GUI"))
                     : new QtSingleApplication(id, argc, argv));
    endWithStandardInput();
    if (task == QLatin1String("id")) {
        say(application->id());
        return EXIT_SUCCESS;
    }
    if (task == QLatin1String("serve")) {
        return serve(application.get(), argument);
    }
    if (task == QLatin1String("send")) {
        return send(application.get(), argument.toInt());
    }
    if (task == QLatin1String("show")) {
        return showWindow(application.get(), argument);
    }
    say(QStringLiteral("unknown task"));
    return EXIT_FAILURE;
}
