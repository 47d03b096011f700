// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "navigation/paging-test.h"

class VelaPagingBarFooterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installBar(m_folder); }

    void footerLabelsStandFromTheRefreshButtonToTheLeft();
    void aFooterLabelIsSetUp();
    void anExistingLabelKeepsItsWidthUntilItIsGivenAnother();
    void setFooterTextAfterThreeLabelsLeavesOneOfTheFirstsWidth();
    void surplusLabelsStayHiddenAndAreNotUsedAgain();
    void noInfosRemoveAllLabels();
    void hidingTheRefreshButtonFirstGivesTheRightmostStyle();
    void hidingTheRefreshButtonLaterRestylesNothing();
    void onlyTheFirstLabelHasTheRightmostStyle();
    void withoutTheRefreshButtonTheFirstLabelIsAtTheRightEdge();

private:
    ResourceFolder m_folder;
};

void VelaPagingBarFooterTest::footerLabelsStandFromTheRefreshButtonToTheLeft()
{
    BarWindow window;
    const QStringList texts {QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("three")};
    window.bar->setFooterInfos({{texts.at(0), 0}, {texts.at(1), 60}, {texts.at(2), 0}});
    QVERIFY(window.showAndWait());
    QCOMPARE(window.labelTexts(), texts);
    const QWidget *right = window.refreshButton();
    for (const QLabel *label : window.labels()) {
        QCOMPARE(rightOf(label, window.bar), leftOf(right, window.bar));
        right = label;
    }
}

void VelaPagingBarFooterTest::aFooterLabelIsSetUp()
{
    for (int width : {0, 33, 150}) {
        BarWindow window;
        window.bar->setFooterInfo({QStringLiteral("1 to 50"), width});
        QVERIFY(window.showAndWait());
        QCOMPARE(window.labelTexts(), QStringList {QStringLiteral("1 to 50")});
        const QLabel *label = window.labels().constFirst();
        QCOMPARE(label->alignment(), Qt::AlignRight | Qt::AlignVCenter);
        QCOMPARE(label->height(), expectedPixels(19));
        QCOMPARE(label->minimumHeight(), expectedPixels(19));
        QCOMPARE(label->maximumHeight(), expectedPixels(19));
        QCOMPARE(label->width(), width == 0 ? label->sizeHint().width() : expectedPixels(width));
        QCOMPARE(label->styleSheet(), ordinarySheet());
        QVERIFY(label->styleSheet().contains(QStringLiteral("padding-left: %1px").arg(expectedPixels(5))));
    }
}

void VelaPagingBarFooterTest::anExistingLabelKeepsItsWidthUntilItIsGivenAnother()
{
    BarWindow window;
    window.bar->setFooterInfo({QStringLiteral("first"), 0});
    QVERIFY(window.showAndWait());
    QLabel *label = window.labels().constFirst();
    const struct
    {
        int given;
        int expected;
    } steps[] = {{120, 120}, {0, 120}, {77, 77}, {0, 77}};
    for (const auto &step : steps) {
        const QString text = QStringLiteral("width %1").arg(step.given);
        window.bar->setFooterInfo({text, step.given});
        QCOMPARE(window.labels(), QList<QLabel *> {label});
        QCOMPARE(label->text(), text);
        QCOMPARE(label->minimumWidth(), expectedPixels(step.expected));
        QCOMPARE(label->maximumWidth(), expectedPixels(step.expected));
    }
}

void VelaPagingBarFooterTest::setFooterTextAfterThreeLabelsLeavesOneOfTheFirstsWidth()
{
    BarWindow window;
    window.bar->setFooterInfos({{QStringLiteral("a"), 91}, {QStringLiteral("b"), 60}, {QStringLiteral("c"), 0}});
    QVERIFY(window.showAndWait());
    window.bar->setFooterText(QStringLiteral("only"));
    QCOMPARE(window.labelTexts(), QStringList {QStringLiteral("only")});
    QCOMPARE(window.labels().constFirst()->width(), expectedPixels(91));
}

void VelaPagingBarFooterTest::surplusLabelsStayHiddenAndAreNotUsedAgain()
{
    BarWindow window;
    window.bar->setFooterInfos({{QStringLiteral("a"), 0}, {QStringLiteral("b"), 60}});
    QVERIFY(window.showAndWait());
    const QPointer<QLabel> dropped = window.labels().at(1);
    window.bar->setFooterText(QStringLiteral("a"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(dropped);
    QVERIFY(dropped->isHidden());
    QVERIFY(!window.rowOf(dropped));
    QVERIFY(window.bar->isAncestorOf(dropped));
    QCOMPARE(dropped->text(), QStringLiteral("b"));

    window.bar->setFooterInfos({{QStringLiteral("a"), 0}, {QStringLiteral("c"), 0}});
    QTRY_COMPARE(window.labelTexts(), (QStringList {QStringLiteral("a"), QStringLiteral("c")}));
    QVERIFY(window.labels().at(1) != dropped);
    QVERIFY(dropped->isHidden());
    QCOMPARE(window.bar->findChildren<QLabel *>().size(), 3);
    delete window.bar;
    QVERIFY(!dropped);
}

void VelaPagingBarFooterTest::noInfosRemoveAllLabels()
{
    BarWindow window;
    window.bar->setFooterInfos({{QStringLiteral("a"), 0}, {QStringLiteral("b"), 60}});
    QVERIFY(window.showAndWait());
    window.bar->setFooterInfos({});
    QVERIFY(window.labels().isEmpty());
}

void VelaPagingBarFooterTest::hidingTheRefreshButtonFirstGivesTheRightmostStyle()
{
    for (bool isHidden : {false, true}) {
        for (bool isBarShown : {false, true}) {
            BarWindow window;
            QVERIFY(!isBarShown || window.showAndWait());
            window.bar->setRefreshButtonHidden(isHidden);
            window.bar->setFooterText(QStringLiteral("x"));
            QVERIFY(window.showAndWait());
            QTRY_COMPARE(window.labels().size(), 1);
            QLabel *label = window.labels().constFirst();
            QCOMPARE(window.refreshButton()->isVisible(), !isHidden);
            QCOMPARE(label->styleSheet(), isHidden ? rightmostSheet() : ordinarySheet());
            QCOMPARE(paintedColor(label, QPoint(0, 0)), QColor(isHidden ? Qt::green : Qt::red));
        }
    }
}

void VelaPagingBarFooterTest::hidingTheRefreshButtonLaterRestylesNothing()
{
    BarWindow window;
    window.bar->setFooterText(QStringLiteral("x"));
    window.bar->setRefreshButtonHidden(true);
    window.bar->setFooterText(QStringLiteral("y"));
    QVERIFY(window.showAndWait());
    QCOMPARE(window.labels().constFirst()->styleSheet(), ordinarySheet());

    BarWindow other;
    other.bar->setRefreshButtonHidden(true);
    other.bar->setFooterText(QStringLiteral("x"));
    other.bar->setRefreshButtonHidden(false);
    other.bar->setFooterText(QStringLiteral("y"));
    QVERIFY(other.showAndWait());
    QCOMPARE(other.labels().constFirst()->styleSheet(), rightmostSheet());
}

void VelaPagingBarFooterTest::onlyTheFirstLabelHasTheRightmostStyle()
{
    BarWindow window;
    window.bar->setRefreshButtonHidden(true);
    window.bar->setFooterInfos({{QStringLiteral("a"), 0}, {QStringLiteral("b"), 0}});
    QVERIFY(window.showAndWait());
    QCOMPARE(window.labels().at(0)->styleSheet(), rightmostSheet());
    QCOMPARE(window.labels().at(1)->styleSheet(), ordinarySheet());
}

void VelaPagingBarFooterTest::withoutTheRefreshButtonTheFirstLabelIsAtTheRightEdge()
{
    BarWindow window;
    window.bar->setFooterText(QStringLiteral("x"));
    window.bar->setRefreshButtonHidden(true);
    QVERIFY(window.showAndWait());
    QCOMPARE(rightOf(window.labels().constFirst(), window.bar), window.bar->width());
}

QTEST_MAIN(VelaPagingBarFooterTest)

#include "tst_vela_paging_bar_footer.moc"
