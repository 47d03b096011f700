// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-footbar.h"
#include "support/environment.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QtTest>

namespace {

QMargins expectedMargins(int left, int top, int right, int bottom)
{
    return {expectedPixels(left), expectedPixels(top), expectedPixels(right), expectedPixels(bottom)};
}

QHBoxLayout *rowOf(const VelaFootbar &bar)
{
    return qobject_cast<QHBoxLayout *>(bar.layout());
}

} // namespace

class VelaFootbarTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewBarHasAnEmptyRowAndNoSheet();
    void nothingIsLaidOutOrOwnedBeforeInit();
    void aBarWithoutWidgetsHoldsTheStretchOnly();
    void initSetsMarginsSpacingAndAlignment();
    void gettersGiveBackWhatWasSet();
    void theRowIsLeftStretchRight();
    void theGroupsStandAtTheirEnds_data();
    void theGroupsStandAtTheirEnds();
    void widgetsAreCentredVertically();
    void marginsAndSpacingAreScaledAndTruncated();
    void initOverwritesWhatWasSetBefore();
    void aSecondInitAddsEverythingAgain();
    void whatIsPushedAfterInitWaitsForTheNext();
    void theLastPushedToTheRightStandsAtTheFarRight();
    void aWidgetDeletedBeforeInitIsLeftOut();
    void aWidgetDeletedBetweenTwoInitsIsLeftOut();
    void theBarOwnsItsWidgetsAfterInit();
};

void VelaFootbarTest::gettersGiveBackWhatWasSet()
{
    VelaFootbar bar;
    QCOMPARE(bar.margins(), QMargins());
    QCOMPARE(bar.spacing(), -1);

    bar.init();
    QCOMPARE(bar.margins(), QMargins(20, 8, 20, 8));
    QCOMPARE(bar.spacing(), 10);

    bar.setMargins(1, 2, 3, 4);
    bar.setSpacing(5);
    QCOMPARE(bar.margins(), QMargins(1, 2, 3, 4));
    QCOMPARE(bar.spacing(), 5);
}

void VelaFootbarTest::aNewBarHasAnEmptyRowAndNoSheet()
{
    const VelaFootbar bar;
    QVERIFY(rowOf(bar));
    QCOMPARE(rowOf(bar)->count(), 0);
    QCOMPARE(bar.styleSheet(), QString());
    QVERIFY(!bar.parent());
}

void VelaFootbarTest::nothingIsLaidOutOrOwnedBeforeInit()
{
    QPushButton left;
    QPushButton right;
    {
        VelaFootbar bar;
        bar.pushLeftWidget(&left);
        bar.pushRightWidget(&right);
        QCOMPARE(rowOf(bar)->count(), 0);
        QVERIFY(!left.parent());
        QVERIFY(!right.parent());
    } // neither is deleted here
    QVERIFY(!left.parent());
}

void VelaFootbarTest::aBarWithoutWidgetsHoldsTheStretchOnly()
{
    VelaFootbar bar;
    bar.init();
    QCOMPARE(rowOf(bar)->count(), 1);
    QVERIFY(rowOf(bar)->itemAt(0)->spacerItem());
    QCOMPARE(rowOf(bar)->stretch(0), 1);
}

void VelaFootbarTest::initSetsMarginsSpacingAndAlignment()
{
    VelaFootbar bar;
    bar.init();
    QCOMPARE(rowOf(bar)->contentsMargins(), expectedMargins(20, 8, 20, 8));
    QCOMPARE(rowOf(bar)->spacing(), expectedPixels(10));
    QCOMPARE(rowOf(bar)->alignment(), Qt::AlignLeft);
    if (expectedScale() == 1.5) {
        QCOMPARE(rowOf(bar)->contentsMargins(), QMargins(30, 12, 30, 12));
        QCOMPARE(rowOf(bar)->spacing(), 15);
    }
    if (expectedScale() == 1.25) {
        QCOMPARE(rowOf(bar)->contentsMargins(), QMargins(25, 10, 25, 10));
        QCOMPARE(rowOf(bar)->spacing(), 12);
    }
}

void VelaFootbarTest::theRowIsLeftStretchRight()
{
    VelaFootbar bar;
    QPushButton *const buttons[] = {new QPushButton, new QPushButton, new QPushButton, new QPushButton};
    bar.pushRightWidget(buttons[2]);
    bar.pushLeftWidget(buttons[0]);
    bar.pushRightWidget(buttons[3]);
    bar.pushLeftWidget(buttons[1]);
    bar.init();

    QHBoxLayout *row = rowOf(bar);
    QCOMPARE(row->count(), 5);
    QVERIFY(row->itemAt(2)->spacerItem());
    const int positions[] = {0, 1, 3, 4};
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(row->itemAt(positions[i])->widget(), static_cast<QWidget *>(buttons[i]));
        QCOMPARE(row->stretch(positions[i]), 0);
        QCOMPARE(row->itemAt(positions[i])->alignment(), Qt::AlignVCenter);
    }
    QCOMPARE(row->stretch(2), 1);
}

void VelaFootbarTest::theGroupsStandAtTheirEnds_data()
{
    QTest::addColumn<int>("width");
    QTest::newRow("narrow") << 500;
    QTest::newRow("wide") << 1100;
}

void VelaFootbarTest::theGroupsStandAtTheirEnds()
{
    QFETCH(int, width);
    VelaFootbar bar;
    QVector<QWidget *> widgets;
    for (int i = 0; i < 4; ++i) {
        widgets.append(new QWidget);
        widgets.last()->setFixedSize(50, 20);
        i < 2 ? bar.pushLeftWidget(widgets.last()) : bar.pushRightWidget(widgets.last());
    }
    bar.init();
    bar.resize(width, 60);
    bar.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    bar.resize(width, 60);
    QTRY_COMPARE(bar.width(), width);

    const int margin = expectedPixels(20);
    const int step = 50 + expectedPixels(10);
    QTRY_COMPARE(widgets[0]->x(), margin);
    QCOMPARE(widgets[1]->x(), margin + step);
    QCOMPARE(widgets[3]->x(), width - margin - 50);
    QCOMPARE(widgets[2]->x(), width - margin - 50 - step);
}

void VelaFootbarTest::widgetsAreCentredVertically()
{
    VelaFootbar bar;
    auto *low = new QWidget;
    low->setFixedSize(20, 10);
    auto *high = new QWidget;
    high->setFixedSize(20, 50);
    bar.pushLeftWidget(low);
    bar.pushRightWidget(high);
    bar.init();
    bar.resize(300, bar.sizeHint().height());
    bar.layout()->activate();
    QCOMPARE(low->geometry().center().y(), high->geometry().center().y());
}

void VelaFootbarTest::marginsAndSpacingAreScaledAndTruncated()
{
    VelaFootbar bar;
    bar.init();
    bar.setMargins(1, 2, 3, 5);
    bar.setSpacing(7);
    QCOMPARE(rowOf(bar)->contentsMargins(), expectedMargins(1, 2, 3, 5));
    QCOMPARE(rowOf(bar)->spacing(), expectedPixels(7));
}

void VelaFootbarTest::initOverwritesWhatWasSetBefore()
{
    VelaFootbar bar;
    bar.setMargins(1, 2, 3, 5);
    bar.setSpacing(7);
    bar.init();
    QCOMPARE(rowOf(bar)->contentsMargins(), expectedMargins(20, 8, 20, 8));
    QCOMPARE(rowOf(bar)->spacing(), expectedPixels(10));
}

void VelaFootbarTest::aSecondInitAddsEverythingAgain()
{
    VelaFootbar bar;
    auto *left = new QPushButton;
    bar.pushLeftWidget(left);
    bar.init();
    QCOMPARE(rowOf(bar)->count(), 2);
    bar.init();
    int stretches = 0;
    for (int i = 0; i < rowOf(bar)->count(); ++i) {
        stretches += rowOf(bar)->itemAt(i)->spacerItem() ? 1 : 0;
    }
    QCOMPARE(stretches, 2);
    QCOMPARE(rowOf(bar)->count(), 3); // a widget is in a layout only once
    QVERIFY(rowOf(bar)->itemAt(0)->spacerItem());
    QCOMPARE(rowOf(bar)->itemAt(1)->widget(), static_cast<QWidget *>(left));
}

void VelaFootbarTest::whatIsPushedAfterInitWaitsForTheNext()
{
    VelaFootbar bar;
    bar.init();
    QPushButton late;
    bar.pushLeftWidget(&late);
    bar.pushRightWidget(&late);
    QCOMPARE(rowOf(bar)->count(), 1);
    QVERIFY(!late.parent());
}

void VelaFootbarTest::theLastPushedToTheRightStandsAtTheFarRight()
{
    VelaFootbar bar;
    auto *ok = new QPushButton(QStringLiteral("OK"));
    auto *cancel = new QPushButton(QStringLiteral("Cancel"));
    bar.pushRightWidget(ok);
    bar.pushRightWidget(cancel);
    bar.init();
    bar.resize(600, 60);
    bar.layout()->activate();
    QCOMPARE(cancel->geometry().right(), 600 - 1 - expectedPixels(20));
    QCOMPARE(ok->geometry().right(), cancel->x() - 1 - expectedPixels(10));
}

void VelaFootbarTest::aWidgetDeletedBeforeInitIsLeftOut()
{
    VelaFootbar bar;
    auto *left = new QPushButton;
    auto *right = new QPushButton;
    {
        QPushButton firstOfGroup;
        QPushButton lastOfGroup;
        bar.pushLeftWidget(&firstOfGroup);
        bar.pushLeftWidget(left);
        bar.pushRightWidget(right);
        bar.pushRightWidget(&lastOfGroup);
    }
    bar.init();
    QCOMPARE(rowOf(bar)->count(), 3);
    QCOMPARE(rowOf(bar)->itemAt(0)->widget(), static_cast<QWidget *>(left));
    QCOMPARE(rowOf(bar)->itemAt(2)->widget(), static_cast<QWidget *>(right));
}

void VelaFootbarTest::aWidgetDeletedBetweenTwoInitsIsLeftOut()
{
    VelaFootbar bar;
    auto *kept = new QPushButton;
    auto *deleted = new QPushButton;
    bar.pushLeftWidget(deleted);
    bar.pushRightWidget(kept);
    bar.init();
    delete deleted;
    bar.init();
    QCOMPARE(bar.findChildren<QPushButton *>(), QList<QPushButton *> {kept});
    QCOMPARE(rowOf(bar)->itemAt(rowOf(bar)->count() - 1)->widget(), static_cast<QWidget *>(kept));
}

void VelaFootbarTest::theBarOwnsItsWidgetsAfterInit()
{
    const QPointer<QPushButton> left(new QPushButton);
    const QPointer<QPushButton> right(new QPushButton);
    {
        VelaFootbar bar;
        bar.pushLeftWidget(left);
        bar.pushRightWidget(right);
        bar.init();
        QCOMPARE(left->parentWidget(), static_cast<QWidget *>(&bar));
    }
    QVERIFY(!left);
    QVERIFY(!right);
}

QTEST_MAIN(VelaFootbarTest)
#include "tst_vela_footbar.moc"
