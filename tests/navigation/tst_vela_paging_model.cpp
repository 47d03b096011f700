// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/paging/vela-paging-bar.h"
#include "support/controls.h"

#include <QRandomGenerator>
#include <QtTest>

#include <climits>

namespace {

// The least number of pages, at least one, that hold all items: looked for by halves.
int pagesOf(int items, int limit)
{
    qint64 tooFew = 0;
    qint64 enough = qMax(items, 1);
    while (enough - tooFew > 1) {
        const qint64 middle = (tooFew + enough) / 2;
        (middle * limit >= items ? enough : tooFew) = middle;
    }
    return int(enough);
}

} // namespace

class VelaPagingModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itStartsOnPageOneOfNothing();
    void itKeepsWhatItIsGivenUnchecked();
    void itHasNoSignalsSlotsOrProperties();
    void pagesAreCounted_data();
    void pagesAreCounted();
    void allPagesTogetherHoldAllItems();
    void aRowLimitOfZeroOrLessGivesOnePage();
    void theFirstItemOfAPageIsCountedFromZero_data();
    void theFirstItemOfAPageIsCountedFromZero();
};

void VelaPagingModelTest::itStartsOnPageOneOfNothing()
{
    QObject parent;
    const auto *model = new VelaPagingModel(25, &parent);
    QCOMPARE(model->rowLimit(), 25);
    QCOMPARE(model->itemCount(), 0);
    QCOMPARE(model->nowPage(), 1);
    QCOMPARE(model->parent(), &parent);
    QVERIFY(!VelaPagingModel(1).parent());
}

void VelaPagingModelTest::itKeepsWhatItIsGivenUnchecked()
{
    VelaPagingModel model(-7);
    QCOMPARE(model.rowLimit(), -7);
    for (int value : {0, -1, 5, INT_MAX, INT_MIN}) {
        model.setRowLimit(value);
        model.setItemCount(value);
        model.setNowPage(value);
        QCOMPARE(model.rowLimit(), value);
        QCOMPARE(model.itemCount(), value);
        QCOMPARE(model.nowPage(), value);
    }
}

void VelaPagingModelTest::itHasNoSignalsSlotsOrProperties()
{
    QCOMPARE(VelaPagingModel::staticMetaObject.className(), "VelaPagingModel");
    QCOMPARE(ownDeclarations(VelaPagingModel::staticMetaObject), QStringList());
}

void VelaPagingModelTest::pagesAreCounted_data()
{
    QTest::addColumn<int>("items");
    QTest::addColumn<int>("limit");
    QTest::addColumn<int>("pages");
    QTest::newRow("none") << 0 << 50 << 1;
    QTest::newRow("one") << 1 << 50 << 1;
    QTest::newRow("one short of a page") << 49 << 50 << 1;
    QTest::newRow("a page") << 50 << 50 << 1;
    QTest::newRow("one more than a page") << 51 << 50 << 2;
    QTest::newRow("230 of 50") << 230 << 50 << 5;
    QTest::newRow("250 of 50") << 250 << 50 << 5;
    QTest::newRow("251 of 50") << 251 << 50 << 6;
    QTest::newRow("pages of one") << 7 << 1 << 7;
    QTest::newRow("negative, less than a page") << -1 << 50 << 1;
    QTest::newRow("negative, a page") << -50 << 50 << 1;
    QTest::newRow("negative, more than a page") << -175 << 50 << 1;
    QTest::newRow("most") << INT_MAX << 1 << INT_MAX;
    QTest::newRow("most of two") << INT_MAX << 2 << 1073741824;
    QTest::newRow("most on one page") << INT_MAX << INT_MAX << 1;
    QTest::newRow("least") << INT_MIN << 1 << 1;
}

void VelaPagingModelTest::pagesAreCounted()
{
    QFETCH(int, items);
    QFETCH(int, limit);
    QFETCH(int, pages);
    VelaPagingModel model(limit);
    model.setItemCount(items);
    QCOMPARE(model.pageCount(), pages);
}

void VelaPagingModelTest::allPagesTogetherHoldAllItems()
{
    QRandomGenerator random(1);
    for (int i = 0; i < 20000; ++i) {
        const int items = random.bounded(2000000001) >> random.bounded(31);
        const int limit = 1 + (random.bounded(2000000000) >> random.bounded(31));
        VelaPagingModel model(limit);
        model.setItemCount(items);
        QCOMPARE(model.pageCount(), pagesOf(items, limit));
        model.setNowPage(model.pageCount());
        QCOMPARE(model.startItem(), items == 0 ? 0 : (items - 1) / limit * limit);
    }
}

void VelaPagingModelTest::aRowLimitOfZeroOrLessGivesOnePage()
{
    for (int limit : {0, -1, -50, INT_MIN}) {
        VelaPagingModel model(limit);
        for (int items : {0, 230, INT_MAX, INT_MIN}) {
            model.setItemCount(items);
            QCOMPARE(model.pageCount(), 1);
        }
    }
}

void VelaPagingModelTest::theFirstItemOfAPageIsCountedFromZero_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<int>("limit");
    QTest::addColumn<int>("item");
    QTest::newRow("first") << 1 << 50 << 0;
    QTest::newRow("second") << 2 << 50 << 50;
    QTest::newRow("ninth") << 9 << 50 << 400;
    QTest::newRow("zeroth") << 0 << 50 << -50;
    QTest::newRow("before it") << -3 << 10 << -40;
    QTest::newRow("last of many") << 40000000 << 50 << 1999999950;
    QTest::newRow("at the end") << INT_MAX << 1 << INT_MAX - 1;
    QTest::newRow("wraps around") << 3 << 1073741824 << INT_MIN;
    QTest::newRow("far below the first wraps around") << -50000000 << 50 << 1794967246;
    QTest::newRow("lowest page wraps around") << INT_MIN << 1 << INT_MAX;
}

void VelaPagingModelTest::theFirstItemOfAPageIsCountedFromZero()
{
    QFETCH(int, page);
    QFETCH(int, limit);
    QFETCH(int, item);
    VelaPagingModel model(limit);
    model.setNowPage(page);
    QCOMPARE(model.startItem(), item);
}

QTEST_GUILESS_MAIN(VelaPagingModelTest)

#include "tst_vela_paging_model.moc"
