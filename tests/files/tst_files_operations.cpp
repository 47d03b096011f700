// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "disk/native-path.h"
#include "operations/copy-tree.h"
#include "operations/job.h"
#include "operations/naming.h"
#include "operations/removal.h"
#include "operations/transfer.h"

#include <QtTest>

#include <cerrno>
#include <dirent.h>
#include <functional>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr uid_t OtherUser = 65534;
constexpr char SmallDisk[] = "size=256k";
constexpr qint64 BigFile = 4 * 1024 * 1024; // bytes, more than a block of a copy
constexpr qint64 EndlessFile = qint64(1) << 36; // bytes, more than a copy gets through in any time that a test takes

void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

// All that is in a folder, as the disk has it: with hidden files and bad names, each folder behind what is in it.
QByteArrayList allIn(const QString &path)
{
    QByteArrayList names;
    DIR *folder = opendir(bytesFromPath(path).constData());
    while (const dirent *entry = folder ? readdir(folder) : nullptr) {
        const QByteArray name(entry->d_name);
        if (name != "." && name != "..") {
            names.append(name);
        }
    }
    if (folder) {
        closedir(folder);
    }
    std::sort(names.begin(), names.end());
    return names;
}

// A file system that is full soon, for as long as this lives.
class SmallDiskMount
{
public:
    explicit SmallDiskMount(const QString &folder) :
        m_folder(folder.toLocal8Bit()), m_isThere(mount("tmpfs", m_folder.constData(), "tmpfs", 0, SmallDisk) == 0)
    {
    }
    ~SmallDiskMount()
    {
        if (m_isThere) {
            umount2(m_folder.constData(), MNT_DETACH);
        }
    }
    Q_DISABLE_COPY_MOVE(SmallDiskMount)

    bool isThere() const { return m_isThere; }

private:
    const QByteArray m_folder;
    const bool m_isThere;
};

// The code of the first error of some work, which another user does.
int codeAsOtherUser(const std::function<Outcome()> &work)
{
    const pid_t child = fork();
    if (child == 0) {
        const bool isOther =
            setresgid(OtherUser, OtherUser, OtherUser) == 0 && setresuid(OtherUser, OtherUser, OtherUser) == 0;
        const Outcome outcome = isOther ? work() : Outcome();
        _exit(outcome.errors.isEmpty() ? 0 : outcome.errors.constFirst().code & 0x7F);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace

class FilesOperationsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aRenameNeverReplaces();
    void aRenameWorksOnBytes();
    void namesAreRefusedForAReason_data();
    void namesAreRefusedForAReason();
    void numbersStandBeforeTheSuffix();

    void aCopyIsWhole();
    void aCopyOntoANameThatIsTakenGetsANumber();
    void aMoveOntoANameThatIsTakenGetsANumber();
    void aFolderIsNotPutIntoItself();
    void aPipeIsNotCopied();
    void aFullDiskIsAsItWas();
    void aMoveToAFullDiskLeavesTheSource();
    void aMoveToAnotherDiskTakesTheSourceAway();
    void aStoppedCopyLeavesNothing();
    void aKilledCopyLeavesNoFileUnderItsName();
    void aFolderThatVanishesIsTold();
    void withoutPermissionNothingChanges();
    void whatIsNotReadableIsNotCopiedInPart();

    void trashKeepsTheFile();
    void withoutAWastebasketNothingChanges();
    void trashRefusesNamesThatItCannotTake();
    void removalTakesAllThatIsInAFolder();
    void aJobDoesAllThatItIsGivenInTurn();
    void aJobEndsWithItsOwner();

private:
    QString path(const char *name) const { return m_folder->path() + u'/' + QString::fromUtf8(name); }
    Outcome run(const TransferRequest &request);

    QScopedPointer<QTemporaryDir> m_folder; // with the folders "from" and "to"
    Progress m_progress;
};

void FilesOperationsTest::init()
{
    m_folder.reset(new QTemporaryDir);
    QVERIFY(m_folder->isValid());
    qputenv("HOME", m_folder->path().toLocal8Bit()); // has the wastebasket of its own disk only
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("from")));
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("to")));
}

// QTemporaryDir leaves names that are no UTF-8.
void FilesOperationsTest::cleanup()
{
    QVERIFY(!removeTree(m_folder->path()));
}

Outcome FilesOperationsTest::run(const TransferRequest &request)
{
    Progress progress;
    return transfer(request, &progress);
}

void FilesOperationsTest::aRenameNeverReplaces()
{
    write(path("a"), "first");
    write(path("b"), "second");
    QCOMPARE(renameFile(path("a"), path("b")).code, EEXIST);
    QCOMPARE(contentOf(path("a")), QByteArray("first"));
    QCOMPARE(contentOf(path("b")), QByteArray("second"));
    QCOMPARE(createFolder(path("b")).code, EEXIST);
    QCOMPARE(renameFile(path("missing"), path("c")).code, ENOENT);
    QCOMPARE(renameFile(path("a"), path("c")).code, 0);
    QCOMPARE(contentOf(path("c")), QByteArray("first"));
}

void FilesOperationsTest::aRenameWorksOnBytes()
{
    const QString bad = pathFromBytes(path("from/").toUtf8() + "\xFF\n");
    write(path("from/a"), "x");
    QCOMPARE(renameFile(path("from/a"), bad).code, 0);
    QCOMPARE(allIn(path("from")), QByteArrayList({"\xFF\n"}));
    QCOMPARE(run({{bad}, path("to"), false}).errors.size(), 0);
    QCOMPARE(allIn(path("to")), QByteArrayList({"\xFF\n"}));
    QCOMPARE(renameFile(bad, path("from/good")).code, 0);
    QCOMPARE(allIn(path("from")), QByteArrayList({"good"}));
}

void FilesOperationsTest::namesAreRefusedForAReason_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("fault");
    QTest::newRow("good") << "a b.txt" << QByteArray();
    QTest::newRow("hidden") << ".a" << QByteArray();
    QTest::newRow("empty") << "" << QByteArray("name_empty");
    QTest::newRow("blank") << "  " << QByteArray("name_empty");
    QTest::newRow("slash") << "a/b" << QByteArray("name_slash");
    QTest::newRow("point") << "." << QByteArray("name_dots");
    QTest::newRow("points") << ".." << QByteArray("name_dots");
    QTest::newRow("as long as can be") << QString(255, u'a') << QByteArray();
    QTest::newRow("too long") << QString(128, u'ü') << QByteArray("name_long");
}

void FilesOperationsTest::namesAreRefusedForAReason()
{
    QFETCH(const QString, name);
    QFETCH(const QByteArray, fault);
    QCOMPARE(QByteArray(faultOfName(name)), fault);
}

void FilesOperationsTest::numbersStandBeforeTheSuffix()
{
    QCOMPARE(numberedName(QStringLiteral("a.txt"), 1), QStringLiteral("a.txt"));
    QCOMPARE(numberedName(QStringLiteral("a.txt"), 2), QStringLiteral("a (2).txt"));
    QCOMPARE(numberedName(QStringLiteral("a"), 3), QStringLiteral("a (3)"));
    QCOMPARE(numberedName(QStringLiteral(".a"), 2), QStringLiteral(".a (2)"));
}

void FilesOperationsTest::aCopyIsWhole()
{
    QVERIFY(QDir(path("from")).mkpath(QStringLiteral("tree/inner")));
    write(path("from/tree/inner/file"), "content");
    QVERIFY(QFile::setPermissions(path("from/tree/inner/file"), QFile::ReadOwner | QFile::ExeOwner));
    QVERIFY(QFile::link(QStringLiteral("nowhere"), path("from/tree/link")));
    const Outcome outcome = run({{path("from/tree")}, path("to"), false});
    QCOMPARE(outcome.errors.size(), 0);
    QCOMPARE(outcome.made, QStringList(QStringLiteral("tree")));
    QCOMPARE(contentOf(path("to/tree/inner/file")), QByteArray("content"));
    QVERIFY(QFileInfo(path("to/tree/inner/file")).isExecutable());
    QCOMPARE(QFileInfo(path("to/tree/inner/file")).lastModified(),
             QFileInfo(path("from/tree/inner/file")).lastModified());
    QVERIFY(QFileInfo(path("to/tree/link")).isSymLink());
    QCOMPARE(allIn(path("to")), QByteArrayList({"tree"}));
    QCOMPARE(contentOf(path("from/tree/inner/file")), QByteArray("content"));
}

void FilesOperationsTest::aCopyOntoANameThatIsTakenGetsANumber()
{
    write(path("from/a.txt"), "new");
    write(path("to/a.txt"), "old");
    QCOMPARE(run({{path("from/a.txt")}, path("to"), false}).made, QStringList(QStringLiteral("a (2).txt")));
    QCOMPARE(run({{path("from/a.txt")}, path("from"), false}).made, QStringList(QStringLiteral("a (2).txt")));
    QCOMPARE(contentOf(path("to/a.txt")), QByteArray("old"));
    QCOMPARE(contentOf(path("to/a (2).txt")), QByteArray("new"));
}

void FilesOperationsTest::aMoveOntoANameThatIsTakenGetsANumber()
{
    write(path("from/a"), "new");
    write(path("to/a"), "old");
    QCOMPARE(run({{path("from/a")}, path("to"), true}).made, QStringList(QStringLiteral("a (2)")));
    QCOMPARE(allIn(path("from")), QByteArrayList());
    QCOMPARE(contentOf(path("to/a")), QByteArray("old"));
    QCOMPARE(contentOf(path("to/a (2)")), QByteArray("new"));
    QCOMPARE(run({{path("to/a")}, path("to"), true}).errors.size(), 0);
    QCOMPARE(allIn(path("to")), QByteArrayList({"a", "a (2)"}));
}

void FilesOperationsTest::aFolderIsNotPutIntoItself()
{
    QVERIFY(QDir(path("from")).mkdir(QStringLiteral("inner")));
    QVERIFY(QFile::link(path("from/inner"), path("way")));
    for (const char *target : {"from", "from/inner", "way"}) {
        for (const bool isMove : {false, true}) {
            const Outcome outcome = run({{path("from")}, path(target), isMove});
            QCOMPARE(outcome.errors.size(), 1);
            QCOMPARE(outcome.errors.constFirst().code, IntoItself);
        }
    }
    QCOMPARE(allIn(path("from")), QByteArrayList({"inner"}));
    QCOMPARE(allIn(path("from/inner")), QByteArrayList());
}

void FilesOperationsTest::aPipeIsNotCopied()
{
    QCOMPARE(mkfifo(path("from/pipe").toLocal8Bit().constData(), S_IRUSR | S_IWUSR), 0);
    const Outcome outcome = run({{path("from")}, path("to"), false});
    QCOMPARE(outcome.errors.size(), 1);
    QCOMPARE(outcome.errors.constFirst().code, NotCopyable);
    QCOMPARE(outcome.errors.constFirst().path, path("from/pipe"));
    QCOMPARE(allIn(path("to")), QByteArrayList());
}

void FilesOperationsTest::aFullDiskIsAsItWas()
{
    const SmallDiskMount disk(path("to"));
    if (!disk.isThere()) {
        QSKIP("Only the superuser can mount a small disk");
    }
    write(path("from/big"), QByteArray(1024 * 1024, 'x'));
    write(path("from/small"), "x");
    write(path("to/there"), "there");
    const Outcome outcome = run({{path("from/big"), path("from/small")}, path("to"), false});
    QCOMPARE(outcome.errors.size(), 1);
    QCOMPARE(outcome.errors.constFirst().code, ENOSPC);
    QCOMPARE(outcome.errors.constFirst().path, path("from/big"));
    QCOMPARE(allIn(path("to")), QByteArrayList({"there"}));
    QCOMPARE(contentOf(path("to/there")), QByteArray("there"));
}

void FilesOperationsTest::aMoveToAFullDiskLeavesTheSource()
{
    const SmallDiskMount disk(path("to"));
    if (!disk.isThere()) {
        QSKIP("Only the superuser can mount a small disk");
    }
    QVERIFY(QDir(path("from")).mkdir(QStringLiteral("tree")));
    write(path("from/tree/a"), QByteArray(100 * 1024, 'a'));
    write(path("from/tree/b"), QByteArray(1024 * 1024, 'b'));
    const Outcome outcome = run({{path("from/tree")}, path("to"), true});
    QCOMPARE(outcome.errors.size(), 1);
    QCOMPARE(outcome.errors.constFirst().code, ENOSPC);
    QCOMPARE(outcome.errors.constFirst().path, path("from/tree/b"));
    QCOMPARE(allIn(path("to")), QByteArrayList());
    QCOMPARE(allIn(path("from/tree")), QByteArrayList({"a", "b"}));
}

void FilesOperationsTest::aMoveToAnotherDiskTakesTheSourceAway()
{
    const SmallDiskMount disk(path("to"));
    if (!disk.isThere()) {
        QSKIP("Only the superuser can mount a small disk");
    }
    write(path("from/a"), "content");
    QCOMPARE(run({{path("from/a")}, path("to"), true}).errors.size(), 0);
    QCOMPARE(contentOf(path("to/a")), QByteArray("content"));
    QCOMPARE(allIn(path("from")), QByteArrayList());
}

void FilesOperationsTest::aStoppedCopyLeavesNothing()
{
    QFile endless(path("from/big"));
    QVERIFY(endless.open(QIODevice::WriteOnly) && endless.resize(EndlessFile));
    Progress progress;
    Outcome outcome;
    std::thread copying([&] { outcome = transfer({{path("from/big")}, path("to"), false}, &progress); });
    while (progress.done == 0) {
        std::this_thread::yield();
    }
    progress.isStopped = true;
    copying.join();
    QVERIFY(outcome.isStopped);
    QVERIFY(progress.done < EndlessFile);
    QCOMPARE(allIn(path("to")), QByteArrayList());
    QCOMPARE(outcome.made, QStringList());
}

void FilesOperationsTest::aKilledCopyLeavesNoFileUnderItsName()
{
    write(path("from/big"), QByteArray(int(BigFile), 'x'));
    const pid_t child = fork();
    if (child == 0) {
        const rlimit noCore {0, 0};
        const rlimit half {BigFile / 2, BigFile / 2}; // whose end the system kills a program at
        Progress progress;
        if (setrlimit(RLIMIT_CORE, &noCore) == 0 && setrlimit(RLIMIT_FSIZE, &half) == 0) {
            transfer({{path("from/big")}, path("to"), false}, &progress);
        }
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    QVERIFY(WIFSIGNALED(status));
    const QByteArrayList left = allIn(path("to"));
    QCOMPARE(left.size(), 1);
    QVERIFY(left.constFirst() != "big");
}

void FilesOperationsTest::aFolderThatVanishesIsTold()
{
    write(path("from/a"), "x");
    QVERIFY(QDir(path("to")).removeRecursively());
    for (const bool isMove : {false, true}) {
        const Outcome outcome = run({{path("from/a")}, path("to"), isMove});
        QCOMPARE(outcome.errors.size(), 1);
        QCOMPARE(outcome.errors.constFirst().code, ENOENT);
    }
    QCOMPARE(contentOf(path("from/a")), QByteArray("x"));
    QCOMPARE(run({{path("gone")}, path("from"), false}).errors.constFirst().code, ENOENT);
}

void FilesOperationsTest::withoutPermissionNothingChanges()
{
    if (geteuid() != 0) {
        QSKIP("Only the superuser can become another user");
    }
    write(path("from/a"), "x");
    for (const char *folder : {"", "from", "to"}) {
        QCOMPARE(chmod(path(folder).toLocal8Bit().constData(), 0755), 0);
    }
    const QStringList source {path("from/a")};
    QCOMPARE(codeAsOtherUser([&] { return run({source, path("to"), false}); }), EACCES);
    QCOMPARE(codeAsOtherUser([&] { return run({source, path("to"), true}); }), EACCES);
    QCOMPARE(codeAsOtherUser([&] { return moveToTrash(source, &m_progress); }), EACCES);
    QCOMPARE(codeAsOtherUser([&] { return removeForGood(source, &m_progress); }), EACCES);
    QCOMPARE(codeAsOtherUser([&] { return Outcome {{}, {renameFile(path("from/a"), path("from/b"))}}; }), EACCES);
    QCOMPARE(codeAsOtherUser([&] { return Outcome {{}, {createFolder(path("from/b"))}}; }), EACCES);
    QCOMPARE(allIn(path("from")), QByteArrayList({"a"}));
    QCOMPARE(allIn(path("to")), QByteArrayList());
}

void FilesOperationsTest::whatIsNotReadableIsNotCopiedInPart()
{
    if (geteuid() != 0) {
        QSKIP("Only the superuser can become another user");
    }
    QVERIFY(QDir(path("from")).mkpath(QStringLiteral("tree/locked")));
    write(path("from/tree/locked/file"), "x");
    write(path("from/tree/secret"), "x");
    QCOMPARE(chmod(path("from/tree/secret").toLocal8Bit().constData(), 0600), 0);
    QCOMPARE(chmod(path("from/tree/locked").toLocal8Bit().constData(), 0555), 0); // neither can its copy be changed
    QCOMPARE(chmod(path("").toLocal8Bit().constData(), 0755), 0);
    QCOMPARE(chmod(path("to").toLocal8Bit().constData(), 0777), 0);
    QCOMPARE(codeAsOtherUser([&] { return run({{path("from/tree")}, path("to"), false}); }), EACCES);
    QCOMPARE(allIn(path("to")), QByteArrayList());
}

void FilesOperationsTest::trashKeepsTheFile()
{
    qputenv("XDG_DATA_HOME", path("data").toLocal8Bit());
    write(path("from/a"), "content");
    QCOMPARE(moveToTrash({path("from/a")}, &m_progress).errors.size(), 0);
    qunsetenv("XDG_DATA_HOME");
    QCOMPARE(allIn(path("from")), QByteArrayList());
    QDirIterator found(m_folder->path(), {QStringLiteral("a")}, QDir::Files | QDir::Hidden,
                       QDirIterator::Subdirectories);
    QVERIFY(found.hasNext());
    QCOMPARE(contentOf(found.next()), QByteArray("content"));
}

void FilesOperationsTest::withoutAWastebasketNothingChanges()
{
    write(path("from/a"), "content");
    write(path("data"), "no folder");
    qputenv("XDG_DATA_HOME", path("data").toLocal8Bit());
    const Outcome outcome = moveToTrash({path("from/a")}, &m_progress);
    qunsetenv("XDG_DATA_HOME");
    QCOMPARE(outcome.errors.size(), 1);
    QCOMPARE(outcome.errors.constFirst().code, NotTrashed);
    QCOMPARE(contentOf(path("from/a")), QByteArray("content"));
}

void FilesOperationsTest::trashRefusesNamesThatItCannotTake()
{
    const QString bad = pathFromBytes(path("from/").toUtf8() + "\xFF");
    write(path("from/a"), "x");
    QCOMPARE(renameFile(path("from/a"), bad).code, 0);
    const Outcome outcome = moveToTrash({bad, path("from/gone")}, &m_progress);
    QCOMPARE(outcome.errors.size(), 2);
    QCOMPARE(outcome.errors.at(0).code, NameNotKnown);
    QCOMPARE(outcome.errors.at(1).code, ENOENT);
    QCOMPARE(allIn(path("from")), QByteArrayList({"\xFF"}));
}

void FilesOperationsTest::removalTakesAllThatIsInAFolder()
{
    QVERIFY(QDir(path("from")).mkpath(QStringLiteral("tree/inner")));
    write(path("from/tree/inner/file"), "x");
    write(path("to/kept"), "x");
    QVERIFY(QFile::link(path("to"), path("from/tree/way out")));
    const QString bad = pathFromBytes(path("from/tree/").toUtf8() + "\xFF");
    write(path("from/a"), "x");
    QCOMPARE(renameFile(path("from/a"), bad).code, 0);
    QCOMPARE(removeForGood({path("from/tree")}, &m_progress).errors.size(), 0);
    QCOMPARE(allIn(path("from")), QByteArrayList());
    QCOMPARE(allIn(path("to")), QByteArrayList({"kept"}));
}

void FilesOperationsTest::aJobDoesAllThatItIsGivenInTurn()
{
    Job job;
    QStringList told;
    std::atomic<int> under {0};
    const auto tell = [&](const char *what) { return [&told, what] { told.append(QString::fromLatin1(what)); }; };
    const auto give = [&](const char *begun, const char *done, const std::function<void()> &after) {
        job.start(
            [&](Progress *progress) {
                const bool isAlone = ++under == 1;
                while (!progress->isStopped) {
                    std::this_thread::yield();
                }
                --under;
                Outcome outcome;
                outcome.isStopped = isAlone;
                return outcome;
            },
            [=, &told](const Outcome &outcome) {
                told.append(outcome.isStopped ? QString::fromLatin1(done) : QStringLiteral("two at once"));
                after();
            },
            tell(begun));
    };
    give("first", "first done", [&] { give("third", "third done", [] {}); });
    give("second", "second done", [] {});
    for (const char *so : {"first", "first|first done|second", "first|first done|second|second done|third"}) {
        QTRY_COMPARE(told.join(u'|'), QString::fromLatin1(so));
        QVERIFY(job.isRunning());
        job.stop();
    }
    QTRY_COMPARE(told.size(), 6);
    QCOMPARE(told.constLast(), QStringLiteral("third done"));
    QVERIFY(!job.isRunning());
}

void FilesOperationsTest::aJobEndsWithItsOwner()
{
    std::atomic<bool> hasSeenStop {false};
    {
        Job job;
        QSignalSpy started(&job, &Job::started);
        job.start(
            [&](Progress *progress) {
                while (!progress->isStopped) {
                    std::this_thread::yield();
                }
                hasSeenStop = true;
                return Outcome();
            },
            [](const Outcome &) { QFAIL("nobody is there to be told"); });
        QCOMPARE(started.count(), 1);
        QVERIFY(job.isRunning());
        QCOMPARE(job.percentage(), -1);
    }
    QVERIFY(hasSeenStop);
}

QTEST_GUILESS_MAIN(FilesOperationsTest)
#include "tst_files_operations.moc"
