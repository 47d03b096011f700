// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "style-manager/dpi-info.h"
#include "support/environment.h"

#include <QScreen>
#include <QtTest>

class DpiInfoTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thereIsOneInstance();
    void theFactorIsTheLogicalDpiDividedBy96();
    void theRatioIsTheScreens();
    void sheetsAreScaledByTheFactorAloneAndNotByTheRatio();
    void examples();
};

void DpiInfoTest::thereIsOneInstance()
{
    QVERIFY(DPIinfo::getInstance());
    QCOMPARE(DPIinfo::getInstance(), DPIinfo::getInstance());
}

void DpiInfoTest::theFactorIsTheLogicalDpiDividedBy96()
{
    QCOMPARE(DPIinfo::getInstance()->getDPI(), expectedScale());
    QCOMPARE(DPIinfo::getInstance()->getDPI(), QGuiApplication::primaryScreen()->logicalDotsPerInchX() / 96.0);
}

void DpiInfoTest::theRatioIsTheScreens()
{
    QCOMPARE(DPIinfo::getInstance()->getDPR(), double(expectedRatio()));
    QCOMPARE(DPIinfo::getInstance()->getDPR(), QGuiApplication::primaryScreen()->devicePixelRatio());
}

void DpiInfoTest::sheetsAreScaledByTheFactorAloneAndNotByTheRatio()
{
    for (int length = 0; length < 1000; ++length) {
        QCOMPARE(DPIinfo::getInstance()->getScaledStyleSheet(QStringLiteral("{width: %1px;}").arg(length)),
                 QStringLiteral("{width: %1px;}").arg(expectedPixels(length)));
    }
}

void DpiInfoTest::examples()
{
    const QString sheet = QStringLiteral("min-width: 80px; padding: 0px 12px; border: 1.5px");
    const QString expected = QStringLiteral("min-width: %1px; padding: 0px %2px; border: %3px")
                                 .arg(expectedPixels(80.0))
                                 .arg(expectedPixels(12.0))
                                 .arg(expectedPixels(1.5));
    QCOMPARE(DPIinfo::getInstance()->getScaledStyleSheet(sheet), expected);
    if (expectedScale() == 1.0) {
        QCOMPARE(DPIinfo::getInstance()->getScaledStyleSheet(QStringLiteral("a{width: 1000px;}")),
                 QStringLiteral("a{width: 1000px;}0px"));
    }
}

QTEST_MAIN(DpiInfoTest)
#include "tst_dpi_info.moc"
