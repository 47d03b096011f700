// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// Many processes of one application, on two displays, send each other messages while their first is killed again and
// again, and a process of another user connects to it and removes its socket as often as it can. What sendMessage()
// said is held against what was received:
// - what has been sent was received once, unless the process was killed between its acknowledgement and its slot: then
//   one message at most is missing for a kill, and the killed process has received nothing after that was sent
// - nothing is received twice, and nothing that was not sent
// And where the folder for temporary files cannot be written to, be it another user's or a container's that is
// read-only, everybody is told at once that nobody was reached.
//
// Needs Xvfb, and the superuser, who can be another user for a while.
//
// Usage: crowd [PROCESSES [MESSAGES [KILLS]]]

#include "single-application/qtsingleapplication.h"
#include "support/x-server.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QProcess>
#include <QTemporaryDir>
#include <QTemporaryFile>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <random>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr char Id[] = "crowd";
constexpr int SendTimeout = 60000; // milliseconds
constexpr uid_t Stranger = 65534;
constexpr auto ShortestLife = 20ms; // of a first process
constexpr int LongestLife = 100; // milliseconds more
constexpr auto AtOnce = 3s; // a program's start and end, on a machine that has much to do

qint64 now()
{
    return std::chrono::duration_cast<std::chrono::microseconds>(Clock::now().time_since_epoch()).count();
}

// ---- a process of the crowd

// One line by one call, which is there though the process be killed behind it.
void note(int log, const QString &line)
{
    const QByteArray bytes = line.toUtf8() + '\n';
    if (::write(log, bytes.constData(), static_cast<size_t>(bytes.size())) != bytes.size()) {
        std::abort();
    }
}

// Sends its messages, or receives those of others once it is the first, until it is killed.
int runInstance(int argc, char **argv)
{
    QtSingleApplication application(QString::fromLatin1(Id), argc, argv);
    const int count = std::atoi(argv[2]);
    const int log = ::open(argv[3], O_WRONLY | O_CREAT | O_APPEND, 0600);
    QObject::connect(&application, &QtSingleApplication::messageReceived, [log](const QString &message) {
        note(log, QStringLiteral("received %1 %2").arg(message.section(u' ', 0, 0)).arg(now()));
    });
    int sent = 0;
    for (int i = 0; sent < count; ++i) {
        const QString name = QStringLiteral("%1-%2").arg(::getpid()).arg(i);
        // Now and then one that is not taken at once.
        const QString message = name + u' ' + QString(i % 50 == 0 ? 300000 : 10, u'x');
        const qint64 begin = now();
        const bool isSent = application.sendMessage(message, SendTimeout);
        if (!isSent && !application.isRunning()) {
            note(log, QStringLiteral("first"));
            return QtSingleApplication::exec();
        }
        sent += isSent; // or again, under another name
        note(log,
             QStringLiteral("%1 %2 %3 %4")
                 .arg(isSent ? QStringLiteral("sent") : QStringLiteral("failed"), name)
                 .arg(begin)
                 .arg(now()));
    }
    note(log, QStringLiteral("done"));
    return EXIT_SUCCESS;
}

// ---- those who watch it

pid_t start(const QByteArray &log, int messages, const QString &display)
{
    const pid_t process = ::fork();
    if (process == 0) {
        ::setenv("DISPLAY", qPrintable(display), 1);
        ::setenv("QT_QPA_PLATFORM", "xcb", 1);
        ::execl("/proc/self/exe", "crowd", "instance", QByteArray::number(messages).constData(), log.constData(),
                nullptr);
        ::_exit(EXIT_FAILURE);
    }
    return process;
}

QByteArray onlyFile(const QString &folder, const QString &filter)
{
    const QFileInfoList files = QDir(folder).entryInfoList({filter}, QDir::Files | QDir::System);
    return files.isEmpty() ? QByteArray() : QFile::encodeName(files.constFirst().filePath());
}

// The process that has the lock, or 0. The file is opened once, as who closes it would release a lock of his own only.
pid_t firstProcess(const QString &folder)
{
    const int file = ::open(onlyFile(folder, QStringLiteral("*-lockfile")).constData(), O_RDWR | O_CLOEXEC);
    struct flock lock = {};
    lock.l_type = F_WRLCK;
    const bool isKnown = file >= 0 && ::fcntl(file, F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
    ::close(file);
    return isKnown ? lock.l_pid : 0;
}

// Runs the steps as another user until it is killed.
pid_t startStranger(const QString &folder)
{
    const pid_t process = ::fork();
    if (process != 0) {
        return process;
    }
    if (::setuid(Stranger) != 0) {
        ::_exit(EXIT_FAILURE);
    }
    for (;;) {
        const QByteArray socketPath = onlyFile(folder, QStringLiteral("qtsingleapp-*[!e]"));
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        std::copy(socketPath.begin(), socketPath.end(), address.sun_path);
        const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
        if (::connect(socket, reinterpret_cast<sockaddr *>(&address), sizeof(address)) == 0
            || ::unlink(socketPath.constData()) == 0) {
            ::_exit(EXIT_SUCCESS); // who must not be able to do that
        }
        ::close(socket);
        std::this_thread::sleep_for(5ms);
    }
}

bool hasEnded(pid_t process)
{
    return ::waitpid(process, nullptr, WNOHANG) == process;
}

struct Sending
{
    qint64 begin;
    qint64 end;
};

// The end of a first process.
struct Kill
{
    qint64 time;
    qint64 lastReceipt;
};

struct Story
{
    QHash<QByteArray, Sending> sent;
    QHash<QByteArray, int> received;
    QHash<QByteArray, qint64> killTimes; // by the log of the process
    std::map<qint64, Kill> kills; // by their times
    int failed = 0;
    int firsts = 0;

    void read(const QByteArray &log)
    {
        QFile file(QFile::decodeName(log));
        if (!file.open(QIODevice::ReadOnly)) {
            return;
        }
        qint64 lastReceipt = 0;
        while (!file.atEnd()) {
            const QList<QByteArray> words = file.readLine().trimmed().split(' ');
            if (words.at(0) == "sent") {
                sent.insert(words.at(1), {words.at(2).toLongLong(), words.at(3).toLongLong()});
            } else if (words.at(0) == "received") {
                ++received[words.at(1)];
                lastReceipt = words.at(2).toLongLong();
            }
            failed += words.at(0) == "failed";
            firsts += words.at(0) == "first";
        }
        if (killTimes.contains(log)) {
            kills[killTimes.value(log)] = {killTimes.value(log), lastReceipt};
        }
    }

    // Whether all is as it must be.
    bool isGood()
    {
        const size_t killed = kills.size();
        int missing = 0;
        int lost = 0;
        int doubled = 0;
        int unasked = 0;
        for (auto it = sent.begin(); it != sent.end(); ++it) {
            if (received.contains(it.key())) {
                continue;
            }
            const auto kill = kills.lower_bound(it->begin);
            const bool isExcused = kill != kills.end() && kill->second.lastReceipt <= it->end;
            missing += isExcused;
            lost += !isExcused;
            if (isExcused) {
                kills.erase(kill);
            }
        }
        for (auto it = received.begin(); it != received.end(); ++it) {
            doubled += it.value() > 1;
            unasked += !sent.contains(it.key());
        }
        std::printf("crowd: %d sent, %d received by %d first processes one after another, %zu of which were killed\n"
                    "crowd: %d acknowledged by a process that was killed before its slot, %d lost, %d doubled\n"
                    "crowd: %d attempts in vain, and %d messages received whose sender does not know it\n",
                    sent.size(), received.size(), firsts, killed, missing, lost, doubled, failed, unasked);
        return lost == 0 && doubled == 0 && !sent.isEmpty();
    }
};

bool crowd(int processes, int messages, int kills)
{
    QTemporaryDir folder(QStringLiteral("/tmp/crowd-XXXXXX"));
    ::chmod(QFile::encodeName(folder.path()).constData(), 01777); // as of all who are there
    ::setenv("TMPDIR", QFile::encodeName(folder.path()).constData(), 1);
    const XServer servers[2];
    if (servers[0].display().isEmpty() || servers[1].display().isEmpty()) {
        std::printf("crowd: no X server: %s\n", qPrintable(servers[0].errorString()));
        return false;
    }
    Story story;
    std::vector<QByteArray> logs;
    std::map<pid_t, QByteArray> living; // with its log
    const auto startOne = [&] {
        logs.push_back(QFile::encodeName(folder.filePath(QStringLiteral("log-%1").arg(logs.size()))));
        living[start(logs.back(), messages, servers[logs.size() % 2].display())] = logs.back();
    };
    for (int i = 0; i < processes; ++i) {
        startOne();
    }
    const pid_t stranger = startStranger(folder.path());
    std::mt19937 random(std::random_device {}());
    auto nextKill = Clock::now() + ShortestLife;
    const auto deadline = Clock::now() + 10min;
    // All but the first end by themselves.
    while (living.size() > 1 && Clock::now() < deadline) {
        std::this_thread::sleep_for(5ms);
        for (auto it = living.begin(); it != living.end();) {
            it = hasEnded(it->first) ? living.erase(it) : std::next(it);
        }
        if (story.killTimes.size() < kills && Clock::now() > nextKill) {
            const pid_t first = firstProcess(folder.path());
            if (living.count(first) > 0) {
                story.killTimes[living.at(first)] = now();
                ::kill(first, SIGKILL);
                ::waitpid(first, nullptr, 0);
                living.erase(first);
                startOne();
            }
            nextKill = Clock::now() + ShortestLife + std::chrono::milliseconds(random() % LongestLife);
        }
    }
    const bool hasStrangerFailed = !hasEnded(stranger);
    ::kill(stranger, SIGKILL);
    const bool isInTime = living.size() <= 1;
    for (const auto &[process, log] : living) {
        ::kill(process, SIGTERM);
        ::waitpid(process, nullptr, 0);
    }
    for (const QByteArray &log : logs) {
        story.read(log);
    }
    std::printf("crowd: %zu processes on two displays, %d messages each; a stranger %s\n", logs.size(), messages,
                hasStrangerFailed ? "was kept out" : "HAS GOT IN");
    return story.isGood() && hasStrangerFailed && isInTime;
}

// How many processes, all at once, go on alone and soon with that folder.
int countAlone(int processes, const QByteArray &folder, uid_t user, std::vector<const char *> command)
{
    command.push_back(nullptr);
    std::vector<pid_t> all;
    const auto begin = Clock::now();
    for (int i = 0; i < processes; ++i) {
        all.push_back(::fork());
        if (all.back() == 0) {
            ::setenv("TMPDIR", folder.constData(), 1);
            ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
            ::dup2(::open("/dev/null", O_WRONLY), STDERR_FILENO); // where each says why
            if (::setuid(user) == 0) {
                ::execvp(command.front(), const_cast<char *const *>(command.data()));
            }
            ::_exit(EXIT_FAILURE);
        }
    }
    int good = 0;
    for (const pid_t process : all) {
        int status = 0;
        ::waitpid(process, &status, 0);
        good += WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS && Clock::now() - begin < AtOnce;
    }
    return good;
}

// Nobody can have the place, which all are told at once: of a folder that is another user's, and in containers in which
// it is read-only even for the superuser.
bool withoutFolder(int processes)
{
    const QTemporaryDir folder(QStringLiteral("/tmp/crowd-XXXXXX"));
    const QByteArray path = QFile::encodeName(folder.path());
    ::chmod(path.constData(), 0555);
    const QByteArray program = QFile::encodeName(QCoreApplication::applicationFilePath());
    const int strangers = countAlone(processes, path, Stranger, {program.constData(), "alone"});
    const int contained =
        countAlone(processes, path, ::getuid(),
                   {"unshare", "--mount", "sh", "-c", "mount -t tmpfs -o ro none \"$TMPDIR\" && exec \"$0\" alone",
                    program.constData()});
    std::printf("crowd: %d of %d processes go on alone where no file can be made, and %d in containers\n", strangers,
                processes, contained);
    return strangers == processes && contained == processes;
}

int runAlone(int argc, char **argv)
{
    QtSingleApplication application(QString::fromLatin1(Id), argc, argv);
    const bool isAlone = !application.sendMessage(QStringLiteral("text"), SendTimeout) && !application.isRunning();
    return isAlone && !QTemporaryFile().open() ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

int main(int argc, char **argv)
{
    const QByteArray task = argc > 1 ? argv[1] : "";
    if (task == "instance") {
        return runInstance(argc, argv);
    }
    if (task == "alone") {
        return runAlone(argc, argv);
    }
    if (::geteuid() != 0) {
        std::fprintf(stderr, "crowd: only the superuser can be another user\n");
        return EXIT_FAILURE;
    }
    const auto number = [argc, argv](int index, int otherwise) {
        return argc > index ? std::atoi(argv[index]) : otherwise;
    };
    const QCoreApplication application(argc, argv); // starts the servers
    const bool isGood = crowd(number(1, 50), number(2, 200), number(3, 30));
    return withoutFolder(10) && isGood ? EXIT_SUCCESS : EXIT_FAILURE;
}
