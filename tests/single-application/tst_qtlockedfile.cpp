// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "single-application/instance-process.h"
#include "single-application/qtlockedfile.h"
#include "support/log-capture.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

const QString Locked = QStringLiteral("locked");
const QString Refused = QStringLiteral("refused");
constexpr int LongEnough = 300; // milliseconds for what must not come

} // namespace

class QtLockedFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void itIsNotLockedAtFirst();
    void itOpensLikeAnyFileButNotTruncated();
    void aFileThatIsNotOpenCannotBeLocked();
    void lockModesReplaceEachOther();
    void noLockUnlocks();
    void aWriteLockTakesAFileThatIsOpenForWriting();
    void locksExcludeThoseOfOtherProcesses_data();
    void locksExcludeThoseOfOtherProcesses();
    void anotherProcessWaitsForTheLock();
    void itWaitsForAnotherProcess();
    void theDestructorUnlocks();
    void aKilledProcessHoldsNoLock();
    void aClosedFileHasNoLock();
    void whatIsWrittenIsThereWhenTheLockIsGone_data();
    void whatIsWrittenIsThereWhenTheLockIsGone();
    void whatCannotBeWrittenKeepsTheLock();
    void theContentIsThatOfAnyFile();

private:
    QString otherProcessTries(const QString &manner) const;

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_name;
};

void QtLockedFileTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_name = m_folder->filePath(QStringLiteral("file"));
}

QString QtLockedFileTest::otherProcessTries(const QString &manner) const
{
    InstanceProcess process(m_name, QStringLiteral("lock"), manner);
    process.line();
    return process.line();
}

void QtLockedFileTest::itIsNotLockedAtFirst()
{
    const QtLockedFile nameless;
    QCOMPARE(nameless.fileName(), QString());
    const QtLockedFile file(m_name);
    QCOMPARE(file.fileName(), m_name);
    QVERIFY(!file.isOpen());
    QVERIFY(!file.isLocked());
    QCOMPARE(file.lockMode(), QtLockedFile::NoLock);
    QCOMPARE(static_cast<int>(QtLockedFile::NoLock), 0);
    QCOMPARE(static_cast<int>(QtLockedFile::ReadLock), 1);
    QCOMPARE(static_cast<int>(QtLockedFile::WriteLock), 2);
}

void QtLockedFileTest::itOpensLikeAnyFileButNotTruncated()
{
    QtLockedFile file(m_name);
    QVERIFY(!file.open(QIODevice::ReadOnly)); // there is no such file yet
    LogCapture log;
    QVERIFY(!file.open(QIODevice::ReadWrite | QIODevice::Truncate));
    QCOMPARE(log.takeTexts(), QStringList {QStringLiteral("A locked file cannot be opened with Truncate.")});
    QVERIFY(!QFile::exists(m_name));
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(QFile::exists(m_name));
    QCOMPARE(log.takeTexts(), QStringList());
}

void QtLockedFileTest::aFileThatIsNotOpenCannotBeLocked()
{
    QtLockedFile file(m_name);
    LogCapture log;
    QVERIFY(!file.lock(QtLockedFile::WriteLock, false));
    QVERIFY(!file.unlock());
    QCOMPARE(log.takeTexts(),
             (QStringList {QStringLiteral("A file that is not open cannot be locked."),
                           QStringLiteral("A file that is not open cannot be unlocked.")}));
    QVERIFY(!file.isLocked());
}

void QtLockedFileTest::lockModesReplaceEachOther()
{
    QtLockedFile file(m_name);
    QVERIFY(file.open(QIODevice::ReadWrite));
    for (const auto mode :
         {QtLockedFile::ReadLock, QtLockedFile::WriteLock, QtLockedFile::WriteLock, QtLockedFile::ReadLock}) {
        QVERIFY(file.lock(mode));
        QVERIFY(file.isLocked());
        QCOMPARE(file.lockMode(), mode);
        QCOMPARE(otherProcessTries(QStringLiteral("read")), mode == QtLockedFile::ReadLock ? Locked : Refused);
    }
}

void QtLockedFileTest::noLockUnlocks()
{
    QtLockedFile file(m_name);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.unlock()); // there is nothing to unlock
    for (const bool byMode : {false, true}) {
        QVERIFY(file.lock(QtLockedFile::WriteLock));
        QVERIFY(byMode ? file.lock(QtLockedFile::NoLock) : file.unlock());
        QVERIFY(!file.isLocked());
        QCOMPARE(file.lockMode(), QtLockedFile::NoLock);
        QCOMPARE(otherProcessTries(QStringLiteral("write")), Locked);
    }
}

void QtLockedFileTest::aWriteLockTakesAFileThatIsOpenForWriting()
{
    QVERIFY(QFile(m_name).open(QIODevice::WriteOnly));
    QtLockedFile file(m_name);
    QVERIFY(file.open(QIODevice::ReadOnly));
    LogCapture log;
    QVERIFY(!file.lock(QtLockedFile::WriteLock, false));
    const QStringList texts = log.takeTexts();
    QCOMPARE(texts.size(), 1);
    QVERIFY2(texts.first().startsWith(QStringLiteral("Cannot lock \"%1\": ").arg(m_name)), qPrintable(texts.first()));
    QVERIFY(!file.isLocked());
    QVERIFY(file.lock(QtLockedFile::ReadLock, false));
}

void QtLockedFileTest::locksExcludeThoseOfOtherProcesses_data()
{
    QTest::addColumn<int>("held");
    QTest::addColumn<QString>("tried");
    QTest::addColumn<QString>("expected");
    QTest::newRow("none, read") << int(QtLockedFile::NoLock) << QStringLiteral("read") << Locked;
    QTest::newRow("none, write") << int(QtLockedFile::NoLock) << QStringLiteral("write") << Locked;
    QTest::newRow("read, read") << int(QtLockedFile::ReadLock) << QStringLiteral("read") << Locked;
    QTest::newRow("read, write") << int(QtLockedFile::ReadLock) << QStringLiteral("write") << Refused;
    QTest::newRow("write, read") << int(QtLockedFile::WriteLock) << QStringLiteral("read") << Refused;
    QTest::newRow("write, write") << int(QtLockedFile::WriteLock) << QStringLiteral("write") << Refused;
}

void QtLockedFileTest::locksExcludeThoseOfOtherProcesses()
{
    QFETCH(int, held);
    QFETCH(QString, tried);
    QFETCH(QString, expected);
    QtLockedFile file(m_name);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.lock(static_cast<QtLockedFile::LockMode>(held)));
    QCOMPARE(otherProcessTries(tried), expected);
}

void QtLockedFileTest::anotherProcessWaitsForTheLock()
{
    QtLockedFile file(m_name);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.lock(QtLockedFile::WriteLock));
    InstanceProcess process(m_name, QStringLiteral("lock"), QStringLiteral("write-blocks"));
    QCOMPARE(process.line(), QStringLiteral("trying"));
    QTest::qWait(LongEnough);
    QVERIFY(!process.hasLine());
    QVERIFY(file.unlock());
    QCOMPARE(process.line(), Locked);
}

void QtLockedFileTest::itWaitsForAnotherProcess()
{
    InstanceProcess process(m_name, QStringLiteral("lock"), QStringLiteral("write"));
    QCOMPARE(process.line(), QStringLiteral("trying"));
    QCOMPARE(process.line(), Locked);
    QtLockedFile file(m_name);
    QVERIFY(file.open(QIODevice::ReadWrite));
    LogCapture log;
    QVERIFY(!file.lock(QtLockedFile::WriteLock, false));
    QVERIFY(!file.isLocked());
    QCOMPARE(log.takeTexts(), QStringList());
    process.closeInput();
    QVERIFY(file.lock(QtLockedFile::WriteLock)); // waits until then
    QVERIFY(process.end());
}

void QtLockedFileTest::theDestructorUnlocks()
{
    {
        QtLockedFile file(m_name);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.lock(QtLockedFile::WriteLock));
    }
    QCOMPARE(otherProcessTries(QStringLiteral("write")), Locked);
}

void QtLockedFileTest::aKilledProcessHoldsNoLock()
{
    InstanceProcess process(m_name, QStringLiteral("lock"), QStringLiteral("write"));
    QCOMPARE(process.lines(2).last(), Locked);
    QtLockedFile file(m_name);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(!file.lock(QtLockedFile::WriteLock, false));
    process.kill();
    QVERIFY(file.lock(QtLockedFile::WriteLock, false));
}

void QtLockedFileTest::aClosedFileHasNoLock()
{
    QtLockedFile file(m_name);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.lock(QtLockedFile::WriteLock));
    file.close();
    QVERIFY(!file.isLocked());
    QCOMPARE(file.lockMode(), QtLockedFile::NoLock);

    InstanceProcess process(m_name, QStringLiteral("lock"), QStringLiteral("write"));
    QCOMPARE(process.lines(2).last(), Locked);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(!file.isLocked());
    QCOMPARE(file.lockMode(), QtLockedFile::NoLock);
    QVERIFY(!file.lock(QtLockedFile::WriteLock, false));
    QVERIFY(process.end());
    QVERIFY(file.lock(QtLockedFile::WriteLock, false));
    QCOMPARE(otherProcessTries(QStringLiteral("read")), Refused);
}

void QtLockedFileTest::whatIsWrittenIsThereWhenTheLockIsGone_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("no lock") << int(QtLockedFile::NoLock);
    QTest::newRow("a read lock, that others can have too") << int(QtLockedFile::ReadLock);
}

void QtLockedFileTest::whatIsWrittenIsThereWhenTheLockIsGone()
{
    QFETCH(int, mode);
    QtLockedFile file(m_name);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.lock(QtLockedFile::WriteLock));
    QCOMPARE(file.write("content"), 7);
    QCOMPARE(QFileInfo(m_name).size(), 0); // what was written is buffered until then
    QVERIFY(file.lock(static_cast<QtLockedFile::LockMode>(mode)));
    QCOMPARE(QFileInfo(m_name).size(), 7);
}

void QtLockedFileTest::whatCannotBeWrittenKeepsTheLock()
{
    QtLockedFile file(QStringLiteral("/dev/full"));
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.lock(QtLockedFile::ReadLock, false));
    QCOMPARE(file.write("content"), 7);
    QVERIFY(!file.unlock());
    QCOMPARE(file.lockMode(), QtLockedFile::ReadLock);
    QVERIFY(!file.lock(QtLockedFile::WriteLock, false));
    QCOMPARE(file.lockMode(), QtLockedFile::ReadLock);
}

void QtLockedFileTest::theContentIsThatOfAnyFile()
{
    QtLockedFile file(m_name);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.lock(QtLockedFile::WriteLock));
    QCOMPARE(file.write("content"), 7);
    QVERIFY(file.seek(0));
    QCOMPARE(file.readAll(), QByteArray("content"));
    QVERIFY(file.unlock());
    QCOMPARE(file.size(), 7);
}

QTEST_GUILESS_MAIN(QtLockedFileTest)
#include "tst_qtlockedfile.moc"
