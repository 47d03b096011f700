// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "disk/native-path.h"
#include "listing/folder-model.h"

#include <QtTest>

#include <cerrno>

Q_DECLARE_METATYPE(Filter)

namespace {

constexpr int ManyFiles = 6000; // of which the first are shown before the rest is known
constexpr int Patience = 20000;

QStringList shownNames(const FolderModel &model)
{
    QStringList names;
    for (int row = 0; row < model.count(); ++row) {
        names.append(model.at(row).name);
    }
    return names;
}

} // namespace

class FolderModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::English)); }
    void init();

    void filesAreSortedByNameBehindFolders();
    void filesAreSortedByEachColumn_data();
    void filesAreSortedByEachColumn();
    void theFilterLeavesWhatFits_data();
    void theFilterLeavesWhatFits();
    void theFirstOfManyFilesAreDescribedAtOnce();
    void aFolderThatChangesIsReadAgain();
    void whatCannotBeReadIsTold();
    void theLastOfSeveralFoldersIsShown();

private:
    void write(const QByteArray &name, int size, const QDate &changed = QDate(2026, 1, 1));
    void open(FolderModel *model);

    QScopedPointer<QTemporaryDir> m_folder;
};

void FolderModelTest::init()
{
    m_folder.reset(new QTemporaryDir);
    QVERIFY(m_folder->isValid());
}

void FolderModelTest::write(const QByteArray &name, int size, const QDate &changed)
{
    QFile file(m_folder->filePath(QString::fromUtf8(name)));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.resize(size));
    QVERIFY(file.setFileTime(changed.startOfDay().addSecs(3600), QFileDevice::FileModificationTime));
}

void FolderModelTest::open(FolderModel *model)
{
    QSignalSpy opened(model, &FolderModel::opened);
    model->open(m_folder->path());
    QVERIFY(opened.wait(Patience));
    QTRY_VERIFY_WITH_TIMEOUT(!model->isBusy(), Patience);
}

void FolderModelTest::filesAreSortedByNameBehindFolders()
{
    write("file 10", 1);
    write("File 9", 1);
    write("a", 1);
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("z")));
    FolderModel model(KindTable::ofLibrary());
    open(&model);
    QCOMPARE(shownNames(model).join(u'|'), QStringLiteral("z|a|File 9|file 10"));
}

void FolderModelTest::filesAreSortedByEachColumn_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("names");
    QTest::newRow("name") << int(NameColumn) << "a.txt|b.cpp|c.png";
    QTest::newRow("size") << int(SizeColumn) << "b.cpp|c.png|a.txt";
    QTest::newRow("changed") << int(ChangedColumn) << "c.png|a.txt|b.cpp";
    QTest::newRow("kind") << int(KindColumn) << "b.cpp|c.png|a.txt";
}

void FolderModelTest::filesAreSortedByEachColumn()
{
    QFETCH(const int, column);
    QFETCH(const QString, names);
    write("a.txt", 30, QDate(2026, 1, 2));
    write("b.cpp", 10, QDate(2026, 1, 3));
    write("c.png", 20, QDate(2026, 1, 1));
    FolderModel model(KindTable::ofLibrary());
    open(&model);

    QSignalSpy changed(&model, &FolderModel::changed);
    model.setOrder({column, Qt::AscendingOrder});
    QVERIFY(changed.wait(Patience));
    QCOMPARE(shownNames(model).join(u'|'), names);

    model.setOrder({column, Qt::DescendingOrder});
    QVERIFY(changed.wait(Patience));
    QStringList reversed = names.split(u'|');
    std::reverse(reversed.begin(), reversed.end());
    QCOMPARE(shownNames(model), reversed);
}

void FolderModelTest::theFilterLeavesWhatFits_data()
{
    QTest::addColumn<Filter>("filter");
    QTest::addColumn<QString>("names");
    QTest::newRow("none") << Filter() << "Letter.doc|photo.JPG|x.zip";
    QTest::newRow("hidden") << Filter {{}, {}, {}, {}, true} << ".dot|Letter.doc|photo.JPG|x.zip";
    QTest::newRow("keyword") << Filter {QStringLiteral("LETTER"), {}, {}, {}, false} << "Letter.doc";
    QTest::newRow("kinds") << Filter {{}, Kind::Picture | Kind::Archive, {}, {}, false} << "photo.JPG|x.zip";
    QTest::newRow("from") << Filter {{}, {}, QDate(2026, 2, 2), {}, false} << "photo.JPG|x.zip";
    QTest::newRow("to") << Filter {{}, {}, {}, QDate(2026, 2, 2), false} << "Letter.doc|photo.JPG";
    QTest::newRow("one day") << Filter {{}, {}, QDate(2026, 2, 2), QDate(2026, 2, 2), false} << "photo.JPG";
}

void FolderModelTest::theFilterLeavesWhatFits()
{
    QFETCH(const Filter, filter);
    QFETCH(const QString, names);
    write(".dot", 1);
    write("Letter.doc", 1, QDate(2026, 2, 1));
    write("photo.JPG", 1, QDate(2026, 2, 2));
    write("x.zip", 1, QDate(2026, 2, 3));
    FolderModel model(KindTable::ofLibrary());
    model.setFilter(filter);
    open(&model);
    QCOMPARE(shownNames(model).join(u'|'), names);
}

void FolderModelTest::theFirstOfManyFilesAreDescribedAtOnce()
{
    for (int i = 0; i < ManyFiles; ++i) {
        QFile file(m_folder->filePath(QStringLiteral("f%1").arg(i)));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    FolderModel model(KindTable::ofLibrary());
    QVector<qint64> sizes;
    connect(&model, &FolderModel::opened, this, [&] {
        sizes = {model.at(0).size, model.at(ManyFiles - 1).size};
        QCOMPARE(model.count(), ManyFiles);
    });
    open(&model);
    QCOMPARE(sizes, QVector<qint64>({0, FileEntry::NotRead}));
    QCOMPARE(model.at(ManyFiles - 1).size, 0);
    QCOMPARE(model.at(ManyFiles - 1).name, QStringLiteral("f5999"));
}

void FolderModelTest::aFolderThatChangesIsReadAgain()
{
    write("a", 1);
    FolderModel model(KindTable::ofLibrary());
    open(&model);
    QCOMPARE(model.count(), 1);
    write("b", 1);
    QTRY_COMPARE_WITH_TIMEOUT(model.count(), 2, Patience);
    QCOMPARE(model.rowOf(QStringLiteral("b")), 1);
}

void FolderModelTest::whatCannotBeReadIsTold()
{
    FolderModel model(KindTable::ofLibrary());
    open(&model);
    DiskError told;
    connect(&model, &FolderModel::failed, this, [&told](const DiskError &error) { told = error; });
    const QString missing = m_folder->filePath(QStringLiteral("missing"));
    model.open(missing);
    QTRY_COMPARE_WITH_TIMEOUT(told.code, ENOENT, Patience);
    QCOMPARE(told.path, missing);
    QCOMPARE(model.folder(), m_folder->path());
}

void FolderModelTest::theLastOfSeveralFoldersIsShown()
{
    FolderModel model(KindTable::ofLibrary());
    QSignalSpy opened(&model, &FolderModel::opened);
    model.open(QStringLiteral("/"));
    model.open(QStringLiteral("/etc"));
    model.open(m_folder->path());
    QVERIFY(opened.wait(Patience));
    QCOMPARE(model.folder(), m_folder->path());
    QTRY_VERIFY_WITH_TIMEOUT(!model.isBusy(), Patience);
    QCOMPARE(opened.count(), 1);
}

QTEST_GUILESS_MAIN(FolderModelTest)
#include "tst_files_folder_model.moc"
