// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "findings.h"
#include "image-manager/image-manager.h"
#include "look/keys_p.h"
#include "style-manager/dpi-info.h"
#include "support/log-capture.h"
#include "support/resource-folder.h"
#include "theme-images.h"
#include "theme-program.h"

#include <QtTest>

namespace {

// Bytes of the pixels that the image manager keeps of the named images, those of no variant counted twice.
qint64 bytesOf(const QStringList &names)
{
    qint64 sum = 0;
    const LogCapture silence; // a variant without a file is logged
    QSet<qint64> seen;
    for (const QString &name : names) {
        for (int state = 0; state < ImageManager::ImageFile::VariantCount; ++state) {
            const QPixmap pixmap = getGlobalImage(name, static_cast<ImageManager::ImageType>(state));
            if (!seen.contains(pixmap.cacheKey())) {
                seen.insert(pixmap.cacheKey());
                sum += pixmap.toImage().sizeInBytes();
            }
        }
    }
    return sum;
}

} // namespace

class ThemeMemoryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theForecastIsWithinAHundredth();
};

void ThemeMemoryTest::theForecastIsWithinAHundredth()
{
    installReferenceTheme();
    Findings findings;
    const ThemeImages images(referenceTheme(), &findings);
    QStringList asked;
    for (const Vela::ImageEntry &entry : Vela::ImageEntries) {
        asked.append(QString::fromLatin1(entry.name));
    }
    const double scale = DPIinfo::getInstance()->getDPI();
    const double ratio = DPIinfo::getInstance()->getDPR();
    for (const bool isOfAll : {true, false}) {
        const auto real = static_cast<double>(bytesOf(isOfAll ? images.names() : asked));
        QVERIFY(real > 0);
        const double error = (static_cast<double>(images.bytes(scale, ratio, isOfAll)) - real) / real;
        QVERIFY2(qAbs(error) < 0.01, qPrintable(QString::number(error)));
    }
}

QTEST_MAIN(ThemeMemoryTest)
#include "tst_theme_memory.moc"
