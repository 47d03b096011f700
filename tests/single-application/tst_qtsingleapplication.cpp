// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "single-application/instance-process.h"
#include "single-application/qtsingleapplication.h"
#include "support/controls.h"
#include "support/x-connection.h"

#include <QFileInfo>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QWidget>
#include <QtTest>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <vector>

#include <xcb/xcb.h>

namespace {

const QString First = QStringLiteral("first");
const QString Client = QStringLiteral("client");
const QString Id = QStringLiteral("vela-test-application");

constexpr int Patience = 20000; // milliseconds

using Processes = std::vector<std::unique_ptr<InstanceProcess>>;

Processes start(int count, const QString &id, const QString &task, const QString &argument = QString())
{
    Processes processes;
    for (int i = 0; i < count; ++i) {
        processes.push_back(std::make_unique<InstanceProcess>(id, task, argument));
    }
    return processes;
}

bool hasWindowManager()
{
    return QGuiApplication::platformName() == QLatin1String("xcb");
}

// The windows of the root window, frames among them, from the lowest up. (_NET_CLIENT_LIST_STACKING will not do: jwm
// lists it from the top down.)
QVector<quint32> stack(quint32 rootWindow)
{
    const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> connection(xcb_connect(nullptr, nullptr),
                                                                                  xcb_disconnect);
    const std::unique_ptr<xcb_query_tree_reply_t, decltype(&std::free)> tree(
        xcb_query_tree_reply(connection.get(), xcb_query_tree(connection.get(), rootWindow), nullptr), std::free);
    if (!tree) {
        return {};
    }
    const quint32 *first = xcb_query_tree_children(tree.get());
    return {first, first + xcb_query_tree_children_length(tree.get())};
}

// Whether a window manager has framed both, upper nearer to the user.
bool isAbove(quint32 upper, quint32 lower)
{
    const XConnection x;
    const QVector<quint32> frames = stack(x.rootWindow());
    const quint32 upperFrame = x.frameOf(upper);
    const quint32 lowerFrame = x.frameOf(lower);
    return upperFrame != upper && lowerFrame != lower && frames.contains(lowerFrame)
        && frames.indexOf(upperFrame) > frames.indexOf(lowerFrame);
}

// Whether the windows come to be so, asking until the first time. (QTRY_VERIFY asks again after that, when the window
// manager may be moving them past each other.)
bool comesAbove(quint32 upper, quint32 lower)
{
    return QTest::qWaitFor([=] { return isAbove(upper, lower); }, Patience);
}

// What QWidget::raise() leaves to be seen on every platform.
class RaiseCounter : public QObject
{
public:
    int count() const { return m_count; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        m_count += event->type() == QEvent::ZOrderChange ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }

private:
    int m_count = 0;
};

} // namespace

class QtSingleApplicationTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void theIdIsThatGiven();
    void withoutAnIdItIsTheFilePath_data();
    void withoutAnIdItIsTheFilePath();
    void processesOfAProgramWithoutAnIdFindEachOther();
    void theDeclarationsAreThePublishedOnes();
    void theFirstIsNotRunningYet();
    void theActivationWindowIsNotOwned();
    void withoutAnActivationWindowNothingIsActivated();
    void activatingKeepsOtherStates();
    void activatingRaises();

    void oneOfManyBecomesTheFirst();
    void manyFindAFirstThatHasLostAFile_data();
    void manyFindAFirstThatHasLostAFile();
    void noMessageIsLost();
    void messagesOfOneSenderComeInTheirOrder();
    void aKilledFirstIsFollowedByTheNext();
    void afterTheFirstHasEndedTheNextIsTheFirst();
    void applicationsOfOtherIdsAreStrangers();
    void aMessageBringsTheActivationWindowToTheFront_data();
    void aMessageBringsTheActivationWindowToTheFront();
    void aMessageLeavesAPassiveWindowAlone();

private:
    std::unique_ptr<QTemporaryDir> m_folder;
};

void QtSingleApplicationTest::init()
{
    // A folder for this test's sockets and locks. Their paths must be short.
    m_folder = std::make_unique<QTemporaryDir>(QStringLiteral("/tmp/vela-XXXXXX"));
    QVERIFY(m_folder->isValid());
    qputenv("TMPDIR", QFile::encodeName(m_folder->path()));
}

static QtSingleApplication *application()
{
    return static_cast<QtSingleApplication *>(qApp);
}

void QtSingleApplicationTest::theIdIsThatGiven()
{
    QCOMPARE(application()->id(), Id);
}

void QtSingleApplicationTest::withoutAnIdItIsTheFilePath_data()
{
    QTest::addColumn<QString>("argument");
    QTest::newRow("with windows") << QString();
    QTest::newRow("without windows") << QStringLiteral("without GUI");
}

void QtSingleApplicationTest::withoutAnIdItIsTheFilePath()
{
    QFETCH(QString, argument);
    InstanceProcess process(QString(), QStringLiteral("id"), argument);
    QCOMPARE(process.line(), QFileInfo(InstanceProcess::program()).canonicalFilePath());
}

void QtSingleApplicationTest::processesOfAProgramWithoutAnIdFindEachOther()
{
    InstanceProcess first(QString(), QStringLiteral("serve"));
    QCOMPARE(first.line(), First);
    InstanceProcess second(QString(), QStringLiteral("serve"));
    QCOMPARE(second.line(), Client);
    InstanceProcess sender(QString(), QStringLiteral("send"), QStringLiteral("1"));
    QVERIFY(sender.line().startsWith(QStringLiteral("sent ")));
    QVERIFY(!first.line().isEmpty());
}

void QtSingleApplicationTest::theDeclarationsAreThePublishedOnes()
{
    QCOMPARE(QtSingleApplication::staticMetaObject.superClass(), &QApplication::staticMetaObject);
    QStringList declarations = ownDeclarations(QtSingleApplication::staticMetaObject);
    declarations.sort();
    QCOMPARE(declarations,
             (QStringList {QStringLiteral("activateWindow()"), QStringLiteral("messageReceived(QString)"),
                           QStringLiteral("sendMessage(QString)"), QStringLiteral("sendMessage(QString,int)")}));
}

void QtSingleApplicationTest::theFirstIsNotRunningYet()
{
    QVERIFY(!application()->isRunning());
    QVERIFY(!application()->isRunning());
    QVERIFY(!application()->sendMessage(QStringLiteral("to myself"), 100));
}

void QtSingleApplicationTest::theActivationWindowIsNotOwned()
{
    QCOMPARE(application()->activationWindow(), nullptr);
    {
        QWidget window;
        application()->setActivationWindow(&window);
        QCOMPARE(application()->activationWindow(), &window);
    }
    QCOMPARE(application()->activationWindow(), nullptr);
    application()->activateWindow();
}

void QtSingleApplicationTest::withoutAnActivationWindowNothingIsActivated()
{
    application()->setActivationWindow(nullptr);
    QWidget window;
    window.showMinimized();
    application()->activateWindow();
    QTest::qWait(50);
    QVERIFY(window.isMinimized());
}

void QtSingleApplicationTest::activatingKeepsOtherStates()
{
    QWidget window;
    application()->setActivationWindow(&window);
    window.setWindowState(Qt::WindowMinimized | Qt::WindowMaximized);
    application()->activateWindow();
    QCOMPARE(window.windowState() & ~Qt::WindowActive, Qt::WindowStates(Qt::WindowMaximized));
}

void QtSingleApplicationTest::activatingRaises()
{
    QWidget window;
    window.show();
    RaiseCounter raises;
    window.installEventFilter(&raises);
    application()->setActivationWindow(&window);
    QCOMPARE(raises.count(), 0);
    application()->activateWindow();
    QCOMPARE(raises.count(), 1);
}

void QtSingleApplicationTest::oneOfManyBecomesTheFirst()
{
    const Processes processes = start(50, Id, QStringLiteral("serve"));
    QStringList answers;
    for (const auto &process : processes) {
        answers.append(process->line());
    }
    QCOMPARE(answers.count(First), 1);
    QCOMPARE(answers.count(Client), 49);
}

void QtSingleApplicationTest::manyFindAFirstThatHasLostAFile_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("lock file") << int(QDir::Files);
    QTest::newRow("socket") << int(QDir::System);
}

void QtSingleApplicationTest::manyFindAFirstThatHasLostAFile()
{
    QFETCH(int, kind);
    constexpr int Senders = 50;
    InstanceProcess first(Id, QStringLiteral("serve"));
    QCOMPARE(first.line(), First);
    const QStringList files = QDir(m_folder->path()).entryList(QDir::Filters(kind));
    QCOMPARE(files.size(), 1);
    QVERIFY(QFile::remove(m_folder->filePath(files.constFirst())));
    const Processes others = start(Senders, Id, QStringLiteral("serve"));
    const Processes senders = start(Senders, Id, QStringLiteral("send"), QStringLiteral("1"));
    for (const auto &other : others) {
        QCOMPARE(other->line(), Client);
    }
    for (const auto &sender : senders) {
        QVERIFY(sender->line().startsWith(QStringLiteral("sent ")));
    }
    QCOMPARE(first.lines(Senders).size(), Senders);
    QVERIFY(first.end());
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files | QDir::System).size(), 1); // the lock file alone
}

void QtSingleApplicationTest::noMessageIsLost()
{
    constexpr int Senders = 50;
    constexpr int MessagesEach = 200;
    InstanceProcess first(Id, QStringLiteral("serve"));
    QCOMPARE(first.line(), First);
    const Processes senders = start(Senders, Id, QStringLiteral("send"), QString::number(MessagesEach));
    QStringList received = first.lines(Senders * MessagesEach);
    QStringList sent;
    for (const auto &sender : senders) {
        sent += sender->linesToEnd();
    }
    QCOMPARE(sent.size(), Senders * MessagesEach);
    QCOMPARE(sent.filter(QStringLiteral("failed")), QStringList());
    sent.replaceInStrings(QStringLiteral("sent "), QString());
    std::sort(sent.begin(), sent.end());
    std::sort(received.begin(), received.end());
    QCOMPARE(received, sent);
    QTest::qWait(100);
    QVERIFY(!first.hasLine());
    QVERIFY(first.end());
}

void QtSingleApplicationTest::messagesOfOneSenderComeInTheirOrder()
{
    InstanceProcess first(Id, QStringLiteral("serve"));
    QCOMPARE(first.line(), First);
    InstanceProcess sender(Id, QStringLiteral("send"), QStringLiteral("100"));
    QStringList sent = sender.linesToEnd();
    sent.replaceInStrings(QStringLiteral("sent "), QString());
    QCOMPARE(first.lines(100), sent);
}

void QtSingleApplicationTest::aKilledFirstIsFollowedByTheNext()
{
    InstanceProcess first(Id, QStringLiteral("serve"));
    QCOMPARE(first.line(), First);
    first.kill();
    // A process that was killed leaves the lock file and the socket.
    QCOMPARE(QDir(m_folder->path()).entryList({QStringLiteral("qtsingleapp-*")}, QDir::Files | QDir::System).size(), 2);

    InstanceProcess next(Id, QStringLiteral("serve"));
    QCOMPARE(next.line(), First);
    InstanceProcess sender(Id, QStringLiteral("send"), QStringLiteral("1"));
    QVERIFY(sender.line().startsWith(QStringLiteral("sent ")));
    QVERIFY(!next.line().isEmpty());
}

void QtSingleApplicationTest::afterTheFirstHasEndedTheNextIsTheFirst()
{
    for (int i = 0; i < 3; ++i) {
        InstanceProcess process(Id, QStringLiteral("serve"));
        QCOMPARE(process.line(), First);
        QVERIFY(process.end());
    }
}

void QtSingleApplicationTest::applicationsOfOtherIdsAreStrangers()
{
    InstanceProcess one(Id, QStringLiteral("serve"));
    InstanceProcess other(Id + QStringLiteral("-2"), QStringLiteral("serve"));
    QCOMPARE(one.line(), First);
    QCOMPARE(other.line(), First);
}

void QtSingleApplicationTest::aMessageBringsTheActivationWindowToTheFront_data()
{
    QTest::addColumn<QString>("manner");
    QTest::newRow("minimised") << QStringLiteral("minimised");
    QTest::newRow("covered") << QStringLiteral("covered");
}

void QtSingleApplicationTest::aMessageBringsTheActivationWindowToTheFront()
{
    QFETCH(QString, manner);
    InstanceProcess first(Id, QStringLiteral("show"), manner);
    QCOMPARE(first.line(), First);
    const quint32 window = first.line().toUInt();
    const quint32 other = first.line().toUInt();
    if (hasWindowManager() && manner == QStringLiteral("covered")) {
        QVERIFY(comesAbove(other, window));
    }
    InstanceProcess sender(Id, QStringLiteral("send"), QStringLiteral("1"));
    QCOMPARE(first.line(), QStringLiteral("in front"));
    if (hasWindowManager()) {
        QVERIFY(comesAbove(window, other));
    }
}

void QtSingleApplicationTest::aMessageLeavesAPassiveWindowAlone()
{
    InstanceProcess first(Id, QStringLiteral("show"), QStringLiteral("passive"));
    QCOMPARE(first.lines(3).constFirst(), First);
    InstanceProcess sender(Id, QStringLiteral("send"), QStringLiteral("1"));
    QCOMPARE(first.line(), QStringLiteral("not in front"));
}

int main(int argc, char **argv)
{
    // The object under test takes the place of the application that the test macros make. Nobody else has its files.
    const QTemporaryDir folder(QStringLiteral("/tmp/vela-XXXXXX"));
    qputenv("TMPDIR", QFile::encodeName(folder.path()));
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(folder.path())); // every process complains where there is none
    QtSingleApplication application(Id, argc, argv);
    QtSingleApplicationTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_qtsingleapplication.moc"
