// A process of a single-instance application, driven by its arguments: an id, and then what to do.

#include "single-application/qtlockedfile.h"
#include "single-application/qtsingleapplication.h"

#include <QCryptographicHash>
#include <QSocketNotifier>
#include <QTextStream>
#include <QTimer>
#include <QWidget>

#include <cstdlib>
#include <memory>

#include <sys/types.h>
#include <unistd.h>

namespace {

void say(const QString &line)
{
    QTextStream(stdout) << line << '\n' << Qt::flush;
}

/// Short, whatever the message is like.
QString digest(const QString &message)
{
    return QString::fromLatin1(QCryptographicHash::hash(message.toUtf8(), QCryptographicHash::Md5).toHex());
}

/// Tells whether it is the first. If so, reports the messages until its standard input is closed; otherwise ends.
int serve(QtSingleApplication *application)
{
    if (application->isRunning()) {
        say(QStringLiteral("client"));
        return EXIT_SUCCESS;
    }
    QObject::connect(application, &QtSingleApplication::messageReceived,
                     [](const QString &message) { say(digest(message)); });
    say(QStringLiteral("first"));
    return QtSingleApplication::exec();
}

/// Sends that many messages, each of its own; tells their digests and whether each has been taken.
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

/// Shows a window, minimised, that messages bring back; a second one covers its place.
int showMinimised(QtSingleApplication *application, bool activateOnMessage)
{
    QWidget window;
    window.setWindowTitle(QStringLiteral("activation window"));
    window.resize(300, 200);
    window.showMinimized();
    QWidget other;
    other.resize(300, 200);
    other.show();
    application->setActivationWindow(&window, activateOnMessage);
    QObject::connect(application, &QtSingleApplication::messageReceived, [&window](const QString &) {
        // Window managers take their time; tell it as soon as it is so, or that it has not come about.
        auto *poll = new QTimer(&window);
        auto elapsed = std::make_shared<int>(0);
        QObject::connect(poll, &QTimer::timeout, &window, [&window, poll, elapsed] {
            *elapsed += poll->interval();
            const bool isBack = !window.isMinimized() && window.isActiveWindow();
            if (isBack || *elapsed > 3000) {
                say(isBack ? QStringLiteral("in front") : QStringLiteral("not in front"));
                poll->stop();
            }
        });
        poll->start(50);
    });
    say(application->isRunning() ? QStringLiteral("client") : QStringLiteral("first"));
    return QtSingleApplication::exec();
}

/// Takes a lock on the file and keeps it until standard input is closed. "blocks" waits for it.
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
    QtSingleApplication application(id, argc, argv);
    endWithStandardInput();
    if (task == QLatin1String("serve")) {
        return serve(&application);
    }
    if (task == QLatin1String("send")) {
        return send(&application, argument.toInt());
    }
    if (task == QLatin1String("minimised")) {
        return showMinimised(&application, argument != QLatin1String("passive"));
    }
    say(QStringLiteral("unknown task"));
    return EXIT_FAILURE;
}
