// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// Does what applications do on a system on which one call fails, for each call that there is, and then all from that
// one on: whatever it is, the program goes on, in time, with what is documented. Each attempt is a process of its own.
// Needs no display; the scenarios of the close button take an X server (scripts/x-session).
//
// Usage: starved [SCENARIO [KIND [CALL ERRNO [lasts]]]]
// KIND is 0 for files, 1 for sockets and 2 for images; with a call one attempt is run again, in this process.

#include "faults.h"

#include "component/vela-input-sheet.h"
#include "component/vela-mask.h"
#include "component/vela-msg-box.h"
#include "component/vela-msg-sheet.h"
#include "help/help-test.h"
#include "image-manager/image-manager.h"
#include "look/keys_p.h"
#include "single-application/qtlocalpeer.h"
#include "style-manager/style-manager.h"
#include "support/all-widgets.h"
#include "support/log-capture.h"
#include "support/theme-copy.h"
#include "support/x-connection.h"
#include "utils/component-strings.h"
#include "utils/help-window.h"
#include "utils/ui-path-manager.h"

#include "VelaTheme"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalSocket>
#include <QNetworkProxy>
#include <QPalette>
#include <QSslConfiguration>
#include <QTextBrowser>
#include <QTimer>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <set>
#include <thread>
#include <vector>

#include <dlfcn.h>
#include <execinfo.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace std::chrono_literals;

constexpr auto Patience = 20s; // time for an attempt, more than any time-out of the library
constexpr auto TimeToPaint = 50ms; // until a sheet that is up is answered
constexpr int SendTimeout = 3000; // milliseconds

// How an attempt ends, as the exit status of its process.
enum Ending { AsEver = 0, AsDocumented = 10, Wrong = 11, ToolkitEnded = 12 };

// What the toolkit itself does not survive, whoever uses it: texts and cursors painted where there is no memory for
// what they are painted on, and pictures written for which there is none.
constexpr const char *NotSurvived[] = {"QRasterPaintEngine11alphaPenBlt", "QTextLayout10drawCursor", "png_write_row"};
constexpr int Frames = 6; // among the innermost of which one of them is

Faults wanted = {Faults::File, 0, 0, false};

// Between begin and end of its life calls fail.
class Starvation
{
public:
    explicit Starvation(int report) : m_report(report) { beginFaults(&wanted); }
    ~Starvation() { end(); }
    Q_DISABLE_COPY_MOVE(Starvation)

    void end()
    {
        if (m_report < 0) {
            return;
        }
        const char *failed = "";
        const int calls = endFaults(&failed);
        ::dprintf(m_report, "%d %s\n", calls, failed);
        m_report = -1;
    }

private:
    int m_report;
};

int report = -1; // where an attempt tells what it has called

Ending wrong(const QString &what)
{
    std::printf("    %s\n", qPrintable(what));
    std::fflush(stdout);
    return Wrong;
}

Ending asEverIf(bool isAsEver)
{
    return isAsEver ? AsEver : AsDocumented;
}

// ---- what the registries hold

// All that the library asks for of a theme, and whether anything that is missing is told when it is asked for.
struct Look
{
    std::map<QString, QString> sections;
    std::map<QString, QImage> images;
    std::map<QString, QString> texts;
    QPalette palette;
    QStringList untold;

    static Look installed()
    {
        Look look;
        look.palette = QApplication::palette();
        LogCapture log;
        for (const auto &entry : Vela::StyleEntries) {
            const QString key = QString::fromLatin1(entry.key);
            // How a file ends depends on whether there is another.
            look.sections[key] = StyleManager::getInstance()->getStyleSheet(key, true).trimmed();
            look.mustBeTold(look.sections[key].isEmpty(), key, &log);
        }
        for (const auto &entry : Vela::ImageEntries) {
            const QString name = QString::fromLatin1(entry.name);
            look.images[name] = ImageManager::getInstance()->getImage(name, ImageManager::IMAGE_NORMAL).toImage();
            look.mustBeTold(look.images[name].isNull(), name, &log);
        }
        for (const auto &entry : Vela::TextEntries) {
            const QString key = QString::fromLatin1(entry.key);
            look.texts[key] = ComponentStrings::getInstance()->getString(key);
            log.takeTexts();
        }
        return look;
    }

    // Each is as in the other, or is missing.
    QString difference(const Look &whole) const
    {
        for (const auto &[key, section] : sections) {
            if (!section.isEmpty() && section != whole.sections.at(key)) {
                return QStringLiteral("the section %1 is another").arg(key);
            }
        }
        for (const auto &[name, image] : images) {
            if (!image.isNull() && image != whole.images.at(name)) {
                return QStringLiteral("the image %1 is another").arg(name);
            }
        }
        return untold.isEmpty() ? QString() : untold.join(QLatin1Char(' ')) + QStringLiteral(" not told");
    }

    bool operator==(const Look &other) const
    {
        return sections == other.sections && images == other.images && texts == other.texts && palette == other.palette;
    }

private:
    void mustBeTold(bool isMissing, const QString &key, LogCapture *log)
    {
        const bool isTold = !log->takeTexts().filter(key).isEmpty();
        if (isMissing && !isTold) {
            untold.append(key);
        }
    }
};

std::vector<QString> sheetsOfTheme()
{
    const QDir folder(QStringLiteral(VELA_THEME_DIR "/styles"));
    std::vector<QString> files;
    const QStringList names = folder.entryList({QStringLiteral("*.qss")}, QDir::Files, QDir::Name);
    for (const QString &name : names) {
        files.push_back(folder.filePath(name));
    }
    return files;
}

QMap<QString, QString> textsOfTheme()
{
    QFile file(QStringLiteral(VELA_THEME_DIR "/strings/enu.json"));
    QMap<QString, QString> texts;
    const bool isOpen = file.open(QIODevice::ReadOnly);
    const QJsonObject object = QJsonDocument::fromJson(isOpen ? file.readAll() : QByteArray()).object();
    for (auto it = object.begin(); it != object.end(); ++it) {
        texts.insert(it.key(), it.value().toString());
    }
    return texts;
}

void startUp(ImageManager::InitializeType type, const std::vector<QString> &sheets, const QMap<QString, QString> &texts)
{
    const LogCapture silence;
    ComponentStrings::getInstance()->installStrings(texts);
    ImageManager::getInstance()->initialize(type);
    StyleManager::getInstance()->initialize(sheets);
}

void setFolders(const QString &userData)
{
    UIPathManager::getInstance()->setPath(QStringLiteral("resource_path"), QStringLiteral(VELA_THEME_DIR));
    UIPathManager::getInstance()->setPath(QStringLiteral("user_data_path"), userData);
}

// ---- what applications do

template<typename Sheet>
bool isAnswered(const std::function<int(QWidget *)> &ask)
{
    QWidget window;
    window.resize(600, 400);
    window.show();
    QApplication::processEvents();
    QTimer::singleShot(TimeToPaint, &window, [&window] { window.findChild<Sheet *>()->done(QMessageBox::Ok); });
    return ask(&window) == QMessageBox::Ok;
}

Ending startUpOf(ImageManager::InitializeType type)
{
    const QTemporaryDir userData;
    const std::vector<QString> sheets = sheetsOfTheme();
    const QMap<QString, QString> texts = textsOfTheme();
    {
        const Starvation starvation(report);
        setFolders(userData.path());
        startUp(type, sheets, texts);
    }
    const Look starved = Look::installed();
    AllWidgets widgets;
    widgets.grab();
    startUp(type, sheets, texts);
    const Look whole = Look::installed();
    const QString difference = starved.difference(whole);
    return difference.isEmpty() ? asEverIf(starved == whole) : wrong(difference);
}

Ending startUpPreloading()
{
    return startUpOf(ImageManager::INIT_PRELOAD);
}

Ending startUpLazily()
{
    return startUpOf(ImageManager::INIT_LAZY);
}

Ending images()
{
    const QTemporaryDir userData;
    setFolders(userData.path());
    startUp(ImageManager::INIT_LAZY, sheetsOfTheme(), textsOfTheme());
    int missing = 0;
    int told = 0;
    {
        LogCapture log;
        const Starvation starvation(report);
        for (const auto &entry : Vela::ImageEntries) {
            for (int type = ImageManager::IMAGE_NORMAL; type <= ImageManager::IMAGE_DISABLE; ++type) {
                missing += getGlobalImage(entry.name, static_cast<ImageManager::ImageType>(type)).isNull();
            }
        }
        told = log.takeTexts().filter(QStringLiteral("Cannot load pixmap")).size();
    }
    const Look later = Look::installed();
    startUp(ImageManager::INIT_LAZY, sheetsOfTheme(), textsOfTheme());
    const QString difference = later.difference(Look::installed());
    if (missing > told || !difference.isEmpty()) {
        return wrong(QStringLiteral("%1 missing, %2 told; %3").arg(missing).arg(told).arg(difference));
    }
    return asEverIf(missing == 0);
}

Ending theme()
{
    const OwnDataFolder data;
    VelaTheme *const theme = VelaTheme::getInstance();
    const QString light = referenceTheme(QStringLiteral("light"));
    const QString dark = referenceTheme(QStringLiteral("dark"));
    theme->load(light, QStringLiteral("enu"));
    AllWidgets widgets;
    widgets.show();
    QApplication::processEvents();
    const Look before = Look::installed();
    bool isTaken = false;
    {
        const Starvation starvation(report);
        isTaken = !VelaTheme::hasErrors(theme->load(dark, QStringLiteral("deu")));
        QApplication::processEvents();
    }
    const Look after = Look::installed();
    if ((theme->folder() == dark) != isTaken) {
        return wrong(QStringLiteral("the theme in force is %1").arg(theme->folder()));
    }
    if (!isTaken) {
        return after == before ? AsDocumented : wrong(QStringLiteral("a theme that is refused has changed something"));
    }
    theme->load(dark, QStringLiteral("deu"));
    const Look whole = Look::installed();
    if (after.sections != whole.sections || after.texts != whole.texts || after.palette != whole.palette) {
        return wrong(QStringLiteral("a theme that is taken is not whole"));
    }
    const QString difference = after.difference(whole);
    return difference.isEmpty() ? asEverIf(after == whole) : wrong(difference);
}

Ending message()
{
    const QTemporaryDir userData;
    setFolders(userData.path());
    startUp(ImageManager::INIT_LAZY, sheetsOfTheme(), textsOfTheme());
    const Starvation starvation(report);
    return isAnswered<VelaMessageSheet>(
               [](QWidget *window) { return showConfirmMsg(QString(), QStringLiteral("text"), window); })
        ? AsEver
        : wrong(QStringLiteral("it was not answered"));
}

Ending input()
{
    const QTemporaryDir userData;
    setFolders(userData.path());
    startUp(ImageManager::INIT_LAZY, sheetsOfTheme(), textsOfTheme());
    const Starvation starvation(report);
    return isAnswered<VelaInputSheet>([](QWidget *window) {
        VelaInputSheet sheet(QStringLiteral("text"), window);
        VelaMask::createMask(&sheet, window, Qt::black);
        return sheet.exec();
    })
        ? AsEver
        : wrong(QStringLiteral("it was not answered"));
}

// ---- other processes

// A process that runs the steps, tells by what it writes, and ends with its standard input.
class Other
{
public:
    explicit Other(const std::function<void(int in, int out)> &steps)
    {
        int in[2];
        int out[2];
        if (::pipe(in) != 0 || ::pipe(out) != 0) {
            qFatal("no pipes");
        }
        m_process = ::fork();
        if (m_process == 0) {
            ::close(in[1]);
            ::close(out[0]);
            steps(in[0], out[1]);
            ::_exit(0);
        }
        ::close(in[0]);
        ::close(out[1]);
        m_in = in[1];
        m_out = out[0];
    }
    ~Other()
    {
        endInput();
        ::close(m_out);
        ::kill(m_process, SIGKILL);
        ::waitpid(m_process, nullptr, 0);
    }
    Q_DISABLE_COPY_MOVE(Other)

    void go() const { Q_UNUSED(::write(m_in, "g", 1)) }
    void endInput()
    {
        if (m_in >= 0) {
            ::close(m_in);
            m_in = -1;
        }
    }
    // A byte that it tells, or 0 when none comes in time.
    char hear(int milliseconds) const
    {
        pollfd readable = {m_out, POLLIN, 0};
        char byte = 0;
        return ::poll(&readable, 1, milliseconds) > 0 && ::read(m_out, &byte, 1) == 1 ? byte : '\0';
    }

private:
    pid_t m_process = -1;
    int m_in = -1;
    int m_out = -1;
};

void tell(int out, char byte)
{
    Q_UNUSED(::write(out, &byte, 1))
}

bool isSignalled(int in, int milliseconds)
{
    pollfd readable = {in, POLLIN, 0};
    return ::poll(&readable, 1, milliseconds) > 0;
}

// ---- help

const QTemporaryDir &installedHelp()
{
    static const QTemporaryDir folder;
    return folder;
}

void installHelp()
{
    QDir(installedHelp().path()).mkpath(QStringLiteral("enu"));
    QFile file(installedHelp().filePath(QStringLiteral("enu/page.html")));
    if (file.open(QIODevice::WriteOnly)) {
        file.write(page(Offline));
    }
}

// What a help window shows in the end. It has ten seconds, as without a fault.
Ending help(const QString &expected)
{
    const QString root = installedHelp().path();
    const QTemporaryDir userData;
    setFolders(userData.path());
    startUp(ImageManager::INIT_LAZY, sheetsOfTheme(), textsOfTheme());
    QElapsedTimer elapsed;
    elapsed.start();
    QString text;
    bool hasEnded = false;
    {
        const Starvation starvation(report);
        const HelpWindow window(context(root), nullptr);
        // The last that a reply makes is its window's text.
        const auto *browser = window.findChild<QTextBrowser *>();
        QObject::connect(&window, &HelpWindow::sigAbortRequest, [&hasEnded] { hasEnded = true; });
        while (browser->document()->isEmpty() && elapsed.elapsed() < 10500
               && !(hasEnded && elapsed.elapsed() > 10200)) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 100);
            std::this_thread::sleep_for(1ms);
        }
        text = browser->toPlainText();
    }
    if (text == expected) {
        return AsEver;
    }
    // Without its file the installed page is empty.
    const bool isDocumented = text == Offline || (text.isEmpty() && wanted.kind == Faults::File);
    return isDocumented ? AsDocumented : wrong(QStringLiteral("the page is \"%1\"").arg(text));
}

Ending helpInstalled()
{
    // Nobody listens there.
    QNetworkProxy::setApplicationProxy(QNetworkProxy(QNetworkProxy::HttpProxy, QStringLiteral("127.0.0.1"), 1));
    return help(Offline);
}

// In a process that does not starve.
void startKnowledgeBase()
{
    installHelp();
    static Certificates certificates;
    const QString error = certificates.create();
    if (!error.isEmpty()) {
        qFatal("%s", qPrintable(error));
    }
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setCaCertificates({certificates.certificate(QStringLiteral("authority"))});
    QSslConfiguration::setDefaultConfiguration(configuration);
    static const Other process([](int in, int out) {
        KnowledgeBase base(certificates);
        base.answer = [](QSslSocket *socket, const QByteArray &) { socket->write(KnowledgeBase::ok(page(Online))); };
        tell(out, static_cast<char>(base.serverPort() / 256));
        tell(out, static_cast<char>(base.serverPort() % 256));
        while (!isSignalled(in, 1)) {
            QCoreApplication::processEvents();
        }
    });
    const int high = static_cast<uchar>(process.hear(SendTimeout));
    const int low = static_cast<uchar>(process.hear(SendTimeout));
    QNetworkProxy::setApplicationProxy(
        QNetworkProxy(QNetworkProxy::HttpProxy, QStringLiteral("127.0.0.1"), static_cast<quint16>(256 * high + low)));
}

Ending helpOnline()
{
    return help(Online);
}

// ---- single instance

QString ownId()
{
    return QStringLiteral("starved-%1").arg(::getpid());
}

// The first process is the starved one. What it has not received, its sender knows.
Ending first()
{
    const QString id = ownId();
    const Other sender([&id](int in, int out) {
        char go = 0;
        if (::read(in, &go, 1) == 1) {
            QtLocalPeer peer(nullptr, id);
            tell(out, peer.sendMessage(QStringLiteral("text"), SendTimeout) ? 's' : 'f');
        }
    });
    LogCapture log;
    int received = 0;
    char told = '\0';
    {
        const Starvation starvation(report);
        QtLocalPeer peer(nullptr, id);
        QObject::connect(&peer, &QtLocalPeer::messageReceived, [&received] { ++received; });
        peer.isClient();
        sender.go();
        QElapsedTimer elapsed;
        for (elapsed.start(); !told && elapsed.elapsed() < 2 * SendTimeout;) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
            told = sender.hear(1);
        }
        QCoreApplication::processEvents();
    }
    if (!told) {
        return wrong(QStringLiteral("the sender has hung"));
    }
    if (told == 's' && received != 1) {
        return wrong(QStringLiteral("sent, and received %1 times").arg(received));
    }
    if (received == 1 && told == 's') {
        return AsEver;
    }
    return received > 1 ? wrong(QStringLiteral("received %1 times").arg(received)) : AsDocumented;
}

// The sender is the starved one. It knows whether its message has been received.
Ending second()
{
    const QString id = ownId();
    Other server([&id](int in, int out) {
        QtLocalPeer peer(nullptr, id);
        QObject::connect(&peer, &QtLocalPeer::messageReceived, [out] { tell(out, 'r'); });
        tell(out, peer.isClient() ? 'c' : '1');
        while (!isSignalled(in, 1)) {
            QCoreApplication::processEvents();
        }
    });
    if (server.hear(SendTimeout) != '1') {
        return wrong(QStringLiteral("there is no first"));
    }
    LogCapture log;
    bool isSent = false;
    QElapsedTimer elapsed;
    elapsed.start();
    {
        const Starvation starvation(report);
        QtLocalPeer peer(nullptr, id);
        isSent = peer.sendMessage(QStringLiteral("text"), SendTimeout);
    }
    const auto time = elapsed.elapsed();
    int received = 0;
    while (server.hear(isSent && received == 0 ? SendTimeout : 50) == 'r') {
        ++received;
    }
    if (time > SendTimeout + 500) {
        return wrong(QStringLiteral("it took %1 ms").arg(time));
    }
    if (received > 1 || (isSent && received != 1)) {
        return wrong(QStringLiteral("%1, and received %2 times")
                         .arg(isSent ? QStringLiteral("sent") : QStringLiteral("not sent"))
                         .arg(received));
    }
    return asEverIf(isSent);
}

// ---- the X server

// No connection is left on the server while a message takes its window's close button.
Ending messageOnAFullServer()
{
    const QTemporaryDir userData;
    setFolders(userData.path());
    startUp(ImageManager::INIT_LAZY, sheetsOfTheme(), textsOfTheme());
    std::vector<std::unique_ptr<XConnection>> connections;
    do {
        connections.push_back(std::make_unique<XConnection>());
    } while (connections.back()->isOpen() && connections.size() < 5000);
    if (connections.back()->isOpen()) {
        return wrong(QStringLiteral("the server is not to be filled"));
    }
    const Starvation starvation(report);
    return isAnswered<VelaMessageSheet>(
               [](QWidget *window) { return showConfirmMsg(QString(), QStringLiteral("text"), window); })
        ? AsEver
        : wrong(QStringLiteral("it was not answered"));
}

// ---- all of them

struct Scenario
{
    const char *name;
    Ending (*run)();
    std::set<Faults::Kind> kinds;
    void (*prepare)() = nullptr; // once for all attempts
};

const Scenario Scenarios[] = {
    {"start-up", startUpLazily, {Faults::File, Faults::Image}},
    {"start-up-preloading", startUpPreloading, {Faults::File, Faults::Image}},
    {"images", images, {Faults::File, Faults::Image}},
    {"theme", theme, {Faults::File, Faults::Image}},
    {"message", message, {Faults::File, Faults::Image}},
    {"input", input, {Faults::File, Faults::Image}},
    {"help-installed", helpInstalled, {Faults::File, Faults::Socket}, installHelp},
    {"help-online", helpOnline, {Faults::File, Faults::Socket}, startKnowledgeBase},
    {"first", first, {Faults::File, Faults::Socket}},
    {"second", second, {Faults::File, Faults::Socket}},
};

const std::map<Faults::Kind, std::vector<int>> Errors = {
    {Faults::File, {EIO, EMFILE, EACCES, ENOSPC, Faults::Short}},
    {Faults::Socket, {ECONNREFUSED, EMFILE, EACCES, ENOMEM, Faults::Short}},
    {Faults::Image, {ENOMEM}},
};

const char *const KindNames[] = {"files", "sockets", "images"};

// Tells a death in the toolkit that is known from all others.
void handleCrash(int signal)
{
    void *frames[Frames];
    const int count = ::backtrace(frames, Frames);
    for (int i = 0; i < count && wanted.kind == Faults::Image; ++i) {
        Dl_info info = {};
        const bool isKnown = ::dladdr(frames[i], &info) != 0 && info.dli_sname;
        for (const char *function : NotSurvived) {
            if (isKnown && std::strstr(info.dli_sname, function)) {
                ::_exit(ToolkitEnded);
            }
        }
    }
    ::signal(signal, SIG_DFL);
    ::raise(signal);
}

struct Attempt
{
    int status = 0; // as waitpid() has it
    bool isLate = false;
    int calls = 0;
    QByteArray failed; // name of the call
};

// In a process of its own, since the registries are there once in each.
Attempt attempt(const Scenario &scenario, const Faults &faults)
{
    int pipe[2];
    if (::pipe2(pipe, O_CLOEXEC) != 0) {
        qFatal("no pipe");
    }
    const pid_t process = ::fork();
    if (process == 0) {
        wanted = faults;
        report = pipe[1];
        // What is logged is judged where it matters, and is too much to be read.
        ::dup2(::open("/dev/null", O_WRONLY), STDERR_FILENO);
        ::signal(SIGSEGV, handleCrash);
        ::_exit(scenario.run());
    }
    ::close(pipe[1]);
    Attempt result;
    const auto deadline = std::chrono::steady_clock::now() + Patience;
    while (::waitpid(process, &result.status, WNOHANG) == 0) {
        if (std::chrono::steady_clock::now() > deadline) {
            result.isLate = true;
            ::kill(process, SIGKILL);
            ::waitpid(process, &result.status, 0);
            break;
        }
        std::this_thread::sleep_for(1ms);
    }
    char told[100] = "";
    const ssize_t size = ::read(pipe[0], told, sizeof(told) - 1);
    ::close(pipe[0]);
    const QList<QByteArray> words = QByteArray(told, static_cast<int>(std::max<ssize_t>(size, 0))).trimmed().split(' ');
    result.calls = words.value(0).toInt();
    result.failed = words.value(1);
    return result;
}

QByteArray nameOf(int error)
{
    return error == Faults::Short ? QByteArray("short") : QByteArray(::strerrorname_np(error));
}

struct Tally
{
    int attempts = 0;
    int asEver = 0;
    int asDocumented = 0;
    int notSurvived = 0;
    int failed = 0;
};

void judge(const Scenario &scenario, const Faults &faults, Tally *tally)
{
    const Attempt result = attempt(scenario, faults);
    const bool hasEnded = WIFEXITED(result.status);
    const int ending = hasEnded ? WEXITSTATUS(result.status) : Wrong;
    ++tally->attempts;
    if (!result.isLate && hasEnded && ending == AsEver) {
        ++tally->asEver;
    } else if (!result.isLate && hasEnded && ending == AsDocumented) {
        ++tally->asDocumented;
    } else if (!result.isLate && hasEnded && ending == ToolkitEnded) {
        ++tally->notSurvived;
    } else {
        ++tally->failed;
        std::printf("  FAILED: call %d%s (%s), %s: %s %d\n", faults.at, faults.lasts ? " and all further ones" : "",
                    result.failed.constData(), nameOf(faults.error).constData(),
                    result.isLate  ? "too late"
                        : hasEnded ? "exit status"
                                   : "signal",
                    hasEnded ? ending : WTERMSIG(result.status));
        std::fflush(stdout);
    }
}

// Whether all has ended well.
bool starve(const Scenario &scenario, const std::set<Faults::Kind> &kinds, int stride)
{
    bool isGood = true;
    for (const Faults::Kind kind : kinds) {
        Tally tally;
        int calls = 0;
        for (const int error : Errors.at(kind)) {
            const Attempt undisturbed = attempt(scenario, {kind, 0, error, false});
            if (!WIFEXITED(undisturbed.status) || WEXITSTATUS(undisturbed.status) != AsEver) {
                std::printf("  FAILED without a fault: status %d, %d calls\n", undisturbed.status, undisturbed.calls);
                return false;
            }
            calls = std::max(calls, undisturbed.calls);
            for (int at = 1; at <= undisturbed.calls; at += stride) {
                judge(scenario, {kind, at, error, false}, &tally);
                if (error != Faults::Short) {
                    judge(scenario, {kind, at, error, true}, &tally);
                }
            }
        }
        std::printf("%-20s %-8s %5d calls, %6d attempts: %6d as ever, %6d as documented, %3d not survived by the "
                    "toolkit, %3d failed\n",
                    scenario.name, KindNames[kind], calls, tally.attempts, tally.asEver, tally.asDocumented,
                    tally.notSurvived, tally.failed);
        std::fflush(stdout);
        isGood = isGood && tally.failed == 0;
    }
    return isGood;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QByteArray name = argc > 1 ? argv[1] : "";
    const int stride = std::max(1, qEnvironmentVariableIntValue("VELA_STARVED_STRIDE"));
    if (name == "full-x-server") {
        const Ending ending = messageOnAFullServer();
        std::printf("full-x-server: %s\n", ending == AsEver ? "as ever" : "FAILED");
        return ending;
    }
    bool isGood = true;
    for (const Scenario &scenario : Scenarios) {
        if (!name.isEmpty() && name != scenario.name) {
            continue;
        }
        if (scenario.prepare) {
            scenario.prepare();
        }
        if (argc > 4) {
            const Faults::Kind kind = static_cast<Faults::Kind>(std::atoi(argv[2]));
            wanted = {kind, std::atoi(argv[3]), std::atoi(argv[4]), argc > 5};
            report = STDOUT_FILENO;
            return scenario.run();
        }
        const std::set<Faults::Kind> kinds =
            argc > 2 ? std::set<Faults::Kind> {static_cast<Faults::Kind>(std::atoi(argv[2]))} : scenario.kinds;
        isGood = starve(scenario, kinds, stride) && isGood;
    }
    return isGood ? EXIT_SUCCESS : EXIT_FAILURE;
}
