// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-tree-widget.h"

#include <QtTest>

#include <typeinfo>

namespace {

QStringList texts(const QTreeWidget &tree)
{
    QStringList all;
    for (int i = 0; i < tree.topLevelItemCount(); ++i) {
        all.append(tree.topLevelItem(i)->text(0));
    }
    return all;
}

} // namespace

class FileSystemTreeWidgetItemTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anItemBeginsWithoutAPath();
    void aCopyHasTheTextsAndThePath();
    void itemsAreOrderedByTextAndNoneBeforeHome_data();
    void itemsAreOrderedByTextAndNoneBeforeHome();
    void theSortColumnDecides();
    void homeStaysInFrontWhenSorted_data();
    void homeStaysInFrontWhenSorted();
    void anItemOfAnotherClassCannotBeCompared();
};

void FileSystemTreeWidgetItemTest::anItemBeginsWithoutAPath()
{
    FileSystemTreeWidgetItem item;
    QCOMPARE(item.type(), static_cast<int>(QTreeWidgetItem::Type));
    QCOMPARE(item.path, QString());
    QCOMPARE(item.clientData, Q_INT64_C(0));
    QCOMPARE(item.columnCount(), 0);
    item.path = QStringLiteral("home/music");
    QCOMPARE(item.getPath(), QStringLiteral("home/music"));
    QCOMPARE(&item.getPath(), &item.path);
}

void FileSystemTreeWidgetItemTest::aCopyHasTheTextsAndThePath()
{
    FileSystemTreeWidgetItem item;
    item.setText(0, QStringLiteral("Music"));
    item.path = QStringLiteral("home/music");
    item.clientData = 7;

    const FileSystemTreeWidgetItem copy(item);
    FileSystemTreeWidgetItem assigned;
    assigned = item;
    item.path.clear();
    for (const FileSystemTreeWidgetItem *made : {&copy, &qAsConst(assigned)}) {
        QCOMPARE(made->text(0), QStringLiteral("Music"));
        QCOMPARE(made->path, QStringLiteral("home/music"));
        QCOMPARE(made->clientData, Q_INT64_C(7));
    }
}

void FileSystemTreeWidgetItemTest::itemsAreOrderedByTextAndNoneBeforeHome_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("otherText");
    QTest::addColumn<QString>("otherPath");
    QTest::addColumn<bool>("isLess");
    const auto add = [](const char *what, const char *text, const char *path, const char *otherText,
                        const char *otherPath, bool isLess) {
        QTest::newRow(what) << QString::fromLatin1(text) << QString::fromLatin1(path) << QString::fromLatin1(otherText)
                            << QString::fromLatin1(otherPath) << isLess;
    };
    add("by text", "a", "1", "b", "0", true);
    add("by text, the other way", "b", "0", "a", "1", false);
    add("same text", "a", "0", "a", "1", false);
    add("before home", "a", "x", "b", "home", false);
    add("after home", "c", "x", "b", "home", false);
    add("home by its text, before", "a", "home", "b", "x", true);
    add("home by its text, after", "z", "home", "b", "x", false);
    add("home against home", "a", "home", "b", "home", false);
    add("below home", "a", "x", "b", "home/music", true);
    add("another case", "a", "x", "b", "Home", true);
    add("with a slash", "a", "x", "b", "/home", true);
    add("only the text is home", "a", "x", "home", "y", true);
    add("empty paths", "a", "", "b", "", true);
}

void FileSystemTreeWidgetItemTest::itemsAreOrderedByTextAndNoneBeforeHome()
{
    QFETCH(const QString, text);
    QFETCH(const QString, path);
    QFETCH(const QString, otherText);
    QFETCH(const QString, otherPath);
    QFETCH(const bool, isLess);
    FileSystemTreeWidgetItem item;
    item.setText(0, text);
    item.path = path;
    FileSystemTreeWidgetItem other;
    other.setText(0, otherText);
    other.path = otherPath;
    QCOMPARE(item < other, isLess);
}

void FileSystemTreeWidgetItemTest::theSortColumnDecides()
{
    VelaTreeWidget tree;
    tree.setColumnCount(2);
    for (const char *name : {"b", "c", "a"}) {
        auto *item = new FileSystemTreeWidgetItem;
        item->setText(0, QString::fromLatin1(name));
        item->setText(1, QStringLiteral("%1").arg(-tree.topLevelItemCount(), 3)); // " 0", " -1", " -2"
        tree.addTopLevelItem(item);
    }
    tree.sortItems(0, Qt::AscendingOrder);
    QCOMPARE(texts(tree), QStringLiteral("a b c").split(QLatin1Char(' ')));
    tree.topLevelItem(0)->setText(1, QStringLiteral("3"));
    tree.topLevelItem(1)->setText(1, QStringLiteral("1"));
    tree.topLevelItem(2)->setText(1, QStringLiteral("2"));
    tree.sortItems(1, Qt::AscendingOrder);
    QCOMPARE(texts(tree), QStringLiteral("b c a").split(QLatin1Char(' ')));
}

void FileSystemTreeWidgetItemTest::homeStaysInFrontWhenSorted_data()
{
    QTest::addColumn<QString>("homeText");
    QTest::addColumn<int>("count");
    for (const QString &text : {QStringLiteral("Aaa"), QStringLiteral("Home"), QStringLiteral("Zzz")}) {
        for (const int count : {1, 6, 50, 1000}) {
            QTest::addRow("%s among %d", qPrintable(text), count) << text << count;
        }
    }
}

void FileSystemTreeWidgetItemTest::homeStaysInFrontWhenSorted()
{
    QFETCH(const QString, homeText);
    QFETCH(const int, count);
    VelaTreeWidget tree;
    auto *home = new FileSystemTreeWidgetItem;
    home->setText(0, homeText);
    home->path = QStringLiteral("home");
    tree.addTopLevelItem(home);
    QStringList others;
    for (int i = 0; i < count; ++i) {
        auto *item = new FileSystemTreeWidgetItem;
        item->setText(0, QStringLiteral("M%1").arg((i * 7919) % 1009, 4, 10, QLatin1Char('0')));
        others.append(item->text(0));
        tree.addTopLevelItem(item);
    }
    tree.sortItems(0, Qt::AscendingOrder);
    others.sort();
    QCOMPARE(texts(tree), QStringList(homeText) + others);
}

void FileSystemTreeWidgetItemTest::anItemOfAnotherClassCannotBeCompared()
{
    const FileSystemTreeWidgetItem item;
    const QTreeWidgetItem other;
    QVERIFY_EXCEPTION_THROWN(static_cast<void>(item < other), std::bad_cast);
}

QTEST_MAIN(FileSystemTreeWidgetItemTest)
#include "tst_file_system_tree_widget_item.moc"
