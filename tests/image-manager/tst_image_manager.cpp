// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "image-manager/image-manager.h"
#include "support/environment.h"
#include "support/log-capture.h"
#include "support/resource-folder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>
#include <QPixmapCache>
#include <QtTest>

#include <memory>

using InitializeType = ImageManager::InitializeType;
using ImageType = ImageManager::ImageType;

Q_DECLARE_METATYPE(ImageManager::InitializeType)

namespace {

constexpr ImageType States[] = {ImageManager::IMAGE_NORMAL, ImageManager::IMAGE_HOVER, ImageManager::IMAGE_CLICK,
                                ImageManager::IMAGE_DISABLE};
constexpr const char *Suffixes[] = {"", "_hover", "_click", "_disable"};
const QColor Colors[] = {Qt::red, Qt::green, Qt::blue, Qt::gray};

QColor colorOf(const QPixmap &pixmap)
{
    return pixmap.toImage().pixelColor(pixmap.width() / 2, pixmap.height() / 2);
}

// Something with edges, gradients and alpha, so that the way of scaling shows.
QImage drawing(const QSize &size)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient gradient(0, 0, size.width(), size.height());
    gradient.setColorAt(0, Qt::yellow);
    gradient.setColorAt(1, QColor(20, 40, 200, 60));
    painter.setBrush(gradient);
    painter.drawEllipse(image.rect().adjusted(1, 1, -1, -1));
    painter.drawLine(0, 0, size.width(), size.height());
    return image;
}

QString missingVariant(const QString &name, int type)
{
    return QStringLiteral("Cannot load pixmap \"%1\" with type %2 [use default icon]").arg(name).arg(type);
}

QString unlisted(const QString &name)
{
    return QStringLiteral("Cannot load pixmap \"%1\"").arg(name);
}

} // namespace

class ImageManagerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void valuesOfTheEnumerations();
    void aDefaultImageFileIsEmptyAndNotLoaded();
    void copyingAnImageFileCopiesAllOfIt();
    void askingForAFolderBeforeInitializeAborts_data();
    void askingForAFolderBeforeInitializeAborts();
    void anImageBeforeInitializeIsUnlisted();
    void thereIsOneInstance();
    void theFoldersAreThoseOfThePaths();
    void theTempImageFolderIsMadeWithItsParents();

    void eachStateHasItsFile_data();
    void eachStateHasItsFile();
    void theSizeIsAQuarterTimesScaleTimesRatioRoundedAtEachStep_data();
    void theSizeIsAQuarterTimesScaleTimesRatioRoundedAtEachStep();
    void examplesOfSizes();
    void theRatioOfAPixmapIsTheScreens();
    void scalingIsSmoothAndKeepsTheAspectRatio();
    void anImageTooThinForItsSizeIsNullWithoutAWarning();
    void theFreeFunctionsForward();
    void aRequestCopiesNoPixels();

    void aMissingVariantIsReplacedByTheNormalOneEachTime_data() { eachStateHasItsFile_data(); }
    void aMissingVariantIsReplacedByTheNormalOneEachTime();
    void withoutANormalImageAVariantStillWorks();
    void anUnlistedNameIsNullAndLogged();
    void namesAreCaseSensitive();
    void aTypeOutOfRangeIsAMissingVariant();

    void lazyDecodesNothingButTempImages();
    void lazyLoadsAnImageWithAllItsVariantsAtItsFirstRequest();
    void lazyLoadsAnImageOnce();
    void anyOneVariantMakesAnImageLoaded_data();
    void anyOneVariantMakesAnImageLoaded();
    void lazyTriesAnImageWithoutAnyFileAgainAndAgain();
    void aVariantOnceMissingStaysMissing();
    void preloadLoadsEverythingAtOnce();
    void preloadingAgainLoadsEverythingAgain();
    void anyOtherTypeLoadsNothingEver_data();
    void anyOtherTypeLoadsNothingEver();
    void nothingStaysInThePixmapCache_data() { eachStateHasItsFile_data(); }
    void nothingStaysInThePixmapCache();

    void aNameListedTwiceIsOneImageReset();
    void initializingAgainKeepsImagesThatAreNotListedAnyMore();
    void blanksStayInNamesOfImages();
    void aCopyIsWrittenForEachTempImage();
    void blanksAreRemovedFromNamesOfTempImages();
    void theCopyHasTheLogicalSizeWithoutTheRatio_data();
    void theCopyHasTheLogicalSizeWithoutTheRatio();
    void aCopyIsRewrittenAtEachStart();
    void aMissingOriginalLeavesAnEmptyCopy();
    void tempImagesNeedNotBeListedAsImages();

    void aCatalogueThatCannotBeUsedIsAnEmptyOne_data();
    void aCatalogueThatCannotBeUsedIsAnEmptyOne();
    void otherKeysOfTheCatalogueAreIgnored();
    void aNameThatIsNoStringIsAnEmptyName();
    void aCatalogueIsReadAsUtf8();
    void aTruncatedImageIsMissing();
    void aFolderInPlaceOfAnImageIsAMissingOne();
    void anUnwritableUserDataFolderIsPassedOverInSilence();
    void namesMayHaveSlashesAndAnyLetters();

private:
    void initialize(InitializeType type = ImageManager::INIT_LAZY) const;
    void writeAllStates(const QString &name) const;

    std::unique_ptr<ResourceFolder> m_folder;
};

void ImageManagerTest::init()
{
    m_folder = std::make_unique<ResourceFolder>();
    m_folder->setAsPaths();
}

// Initialises the manager, which is to log nothing.
void ImageManagerTest::initialize(InitializeType type) const
{
    LogCapture log;
    ImageManager::getInstance()->initialize(type);
    QCOMPARE(log.takeTexts(), QStringList());
}

void ImageManagerTest::writeAllStates(const QString &name) const
{
    for (ImageType state : States) {
        m_folder->writeImage(name + QLatin1String(Suffixes[state]), QSize(64, 64), Colors[state]);
    }
}

void ImageManagerTest::valuesOfTheEnumerations()
{
    QCOMPARE(int(ImageManager::INIT_PRELOAD), 0);
    QCOMPARE(int(ImageManager::INIT_LAZY), 1);
    QCOMPARE(int(ImageManager::IMAGE_NORMAL), 0);
    QCOMPARE(int(ImageManager::IMAGE_HOVER), 1);
    QCOMPARE(int(ImageManager::IMAGE_CLICK), 2);
    QCOMPARE(int(ImageManager::IMAGE_DISABLE), 3);
}

void ImageManagerTest::aDefaultImageFileIsEmptyAndNotLoaded()
{
    const ImageManager::ImageFile image;
    QVERIFY(!image.loaded);
    for (ImageType state : States) {
        QVERIFY(image.names[state].isEmpty());
        QVERIFY(image.pixmaps[state].isNull());
    }
}

void ImageManagerTest::copyingAnImageFileCopiesAllOfIt()
{
    ImageManager::ImageFile image;
    for (ImageType state : States) {
        image.names[state] = QString::number(state);
        image.pixmaps[state] = QPixmap(state + 1, 1);
    }
    image.loaded = true;

    ImageManager::ImageFile copy;
    copy = image;

    QVERIFY(copy.loaded);
    for (ImageType state : States) {
        QCOMPARE(copy.names[state], QString::number(state));
        QCOMPARE(copy.pixmaps[state].cacheKey(), image.pixmaps[state].cacheKey());
    }
}

void ImageManagerTest::askingForAFolderBeforeInitializeAborts_data()
{
    QTest::addColumn<QString>("folder");
    QTest::newRow("images") << QStringLiteral("image-folder");
    QTest::newRow("generated images") << QStringLiteral("temp-image-folder");
}

void ImageManagerTest::askingForAFolderBeforeInitializeAborts()
{
    QFETCH(QString, folder);
    bool crashed = false;
    qputenv("QT_MESSAGE_PATTERN", "%{category} %{type}: %{message}"); // the program inherits the pattern
    const QString errors = runAndReadErrors(QStringLiteral(VELA_UNINITIALIZED), {folder}, &crashed);
    qunsetenv("QT_MESSAGE_PATTERN");
    QVERIFY(crashed);
    QVERIFY2(errors.contains(QLatin1String("debug.message warning: ImageManager is not initialized")),
             qPrintable(errors));
}

void ImageManagerTest::anImageBeforeInitializeIsUnlisted()
{
    bool crashed = true;
    const QString errors = runAndReadErrors(QStringLiteral(VELA_UNINITIALIZED), {QStringLiteral("image")}, &crashed);
    QVERIFY(!crashed);
    QVERIFY2(errors.contains(unlisted(QStringLiteral("icon_warning"))), qPrintable(errors));
}

void ImageManagerTest::thereIsOneInstance()
{
    QVERIFY(ImageManager::getInstance());
    QCOMPARE(ImageManager::getInstance(), ImageManager::getInstance());
}

void ImageManagerTest::theFoldersAreThoseOfThePaths()
{
    initialize();
    QCOMPARE(ImageManager::getInstance()->getImageFolder(), m_folder->path() + QStringLiteral("/images"));
    QCOMPARE(ImageManager::getInstance()->getTempImageFolder(),
             m_folder->userDataPath() + QStringLiteral("/tmp_images"));
}

void ImageManagerTest::theTempImageFolderIsMadeWithItsParents()
{
    QVERIFY(!QFile::exists(m_folder->userDataPath()));
    initialize();
    QVERIFY(QFileInfo(m_folder->userDataPath() + QStringLiteral("/tmp_images")).isDir());
}

void ImageManagerTest::eachStateHasItsFile_data()
{
    QTest::addColumn<InitializeType>("type");
    QTest::newRow("preload") << ImageManager::INIT_PRELOAD;
    QTest::newRow("lazy") << ImageManager::INIT_LAZY;
}

void ImageManagerTest::eachStateHasItsFile()
{
    QFETCH(InitializeType, type);
    writeAllStates(QStringLiteral("bt"));
    m_folder->writeCatalogue({QStringLiteral("bt")});
    initialize(type);
    LogCapture log;

    for (ImageType state : States) {
        QCOMPARE(colorOf(ImageManager::getInstance()->getImage(QStringLiteral("bt"), state)), Colors[state]);
    }
    QCOMPARE(log.takeTexts(), QStringList());
}

void ImageManagerTest::theSizeIsAQuarterTimesScaleTimesRatioRoundedAtEachStep_data()
{
    QTest::addColumn<QSize>("size");
    for (int side : {2, 3, 4, 5, 6, 10, 25, 30, 31, 64, 66, 100, 202, 255}) {
        QTest::newRow(qPrintable(QString::number(side))) << QSize(side, side);
    }
}

void ImageManagerTest::theSizeIsAQuarterTimesScaleTimesRatioRoundedAtEachStep()
{
    QFETCH(QSize, size);
    m_folder->writeImage(QStringLiteral("icon"), size, Qt::red);
    m_folder->writeCatalogue({QStringLiteral("icon")});
    initialize();
    QCOMPARE(getGlobalImage("icon", ImageManager::IMAGE_NORMAL).size(), expectedImageSize(size));
}

void ImageManagerTest::examplesOfSizes()
{
    m_folder->writeImage(QStringLiteral("even"), QSize(64, 64), Qt::red);
    m_folder->writeImage(QStringLiteral("odd"), QSize(30, 30), Qt::red);
    m_folder->writeCatalogue({QStringLiteral("even"), QStringLiteral("odd")});
    initialize();

    const QPixmap even = getGlobalImage("even", ImageManager::IMAGE_NORMAL);
    const int side = expectedScale() == 1.5 ? 24 : expectedScale() == 1.25 ? 20 : 16;
    QCOMPARE(even.size(), QSize(side, side) * expectedRatio());
    QCOMPARE(even.size() / even.devicePixelRatio(), QSize(side, side));
    if (expectedScale() == 1.0) {
        QCOMPARE(getGlobalImage("odd", ImageManager::IMAGE_NORMAL).size(), QSize(8, 8) * expectedRatio());
    }
}

void ImageManagerTest::theRatioOfAPixmapIsTheScreens()
{
    m_folder->writeImage(QStringLiteral("icon"), QSize(64, 32), Qt::red);
    m_folder->writeCatalogue({QStringLiteral("icon")});
    initialize();
    QCOMPARE(getGlobalImage("icon", ImageManager::IMAGE_NORMAL).devicePixelRatio(), qreal(expectedRatio()));
}

void ImageManagerTest::scalingIsSmoothAndKeepsTheAspectRatio()
{
    const QSize size(202, 90); // a size whose quarter has a fraction in either direction
    m_folder->writeImage(QStringLiteral("icon"), drawing(size));
    m_folder->writeCatalogue({QStringLiteral("icon")});
    initialize();

    QPixmap expected = QPixmap(m_folder->imagePath(QStringLiteral("icon")))
                           .scaled(expectedImageSize(size), Qt::KeepAspectRatio, Qt::SmoothTransformation);
    expected.setDevicePixelRatio(expectedRatio());
    QCOMPARE(getGlobalImage("icon", ImageManager::IMAGE_NORMAL).toImage(), expected.toImage());
}

void ImageManagerTest::anImageTooThinForItsSizeIsNullWithoutAWarning()
{
    m_folder->writeImage(QStringLiteral("line"), QSize(1, 64), Qt::red);
    m_folder->writeCatalogue({QStringLiteral("line")}, {QStringLiteral("line")});
    initialize();
    LogCapture log;
    QVERIFY(getGlobalImage("line", ImageManager::IMAGE_NORMAL).isNull());
    QCOMPARE(log.takeTexts(), QStringList());
}

void ImageManagerTest::theFreeFunctionsForward()
{
    writeAllStates(QStringLiteral("bt"));
    m_folder->writeCatalogue({QStringLiteral("bt")});
    initialize();
    for (ImageType state : States) {
        const qint64 key = ImageManager::getInstance()->getImage(QStringLiteral("bt"), state).cacheKey();
        QCOMPARE(getGlobalImage("bt", state).cacheKey(), key);
        QCOMPARE(getGlobalImage(QStringLiteral("bt"), state).cacheKey(), key);
    }
}

void ImageManagerTest::aRequestCopiesNoPixels()
{
    writeAllStates(QStringLiteral("bt"));
    m_folder->writeCatalogue({QStringLiteral("bt")});
    initialize();
    QCOMPARE(getGlobalImage("bt", ImageManager::IMAGE_HOVER).cacheKey(),
             getGlobalImage("bt", ImageManager::IMAGE_HOVER).cacheKey());
}

void ImageManagerTest::aMissingVariantIsReplacedByTheNormalOneEachTime()
{
    QFETCH(InitializeType, type);
    writeAllStates(QStringLiteral("bt"));
    m_folder->removeImage(QStringLiteral("bt_hover"));
    m_folder->writeCatalogue({QStringLiteral("bt")});
    initialize(type);
    LogCapture log;

    for (int i = 0; i < 2; ++i) {
        QCOMPARE(colorOf(getGlobalImage("bt", ImageManager::IMAGE_HOVER)), QColor(Qt::red));
        QCOMPARE(log.takeTexts(), QStringList {missingVariant(QStringLiteral("bt"), 1)});
    }
    QCOMPARE(colorOf(getGlobalImage("bt", ImageManager::IMAGE_CLICK)), QColor(Qt::blue));
    QCOMPARE(log.takeTexts(), QStringList());
}

void ImageManagerTest::withoutANormalImageAVariantStillWorks()
{
    writeAllStates(QStringLiteral("bt"));
    m_folder->removeImage(QStringLiteral("bt"));
    m_folder->removeImage(QStringLiteral("bt_click"));
    m_folder->writeCatalogue({QStringLiteral("bt")});
    initialize();
    LogCapture log;

    QCOMPARE(colorOf(getGlobalImage("bt", ImageManager::IMAGE_HOVER)), QColor(Qt::green));
    QCOMPARE(log.takeTexts(), QStringList());
    QVERIFY(getGlobalImage("bt", ImageManager::IMAGE_CLICK).isNull());
    QVERIFY(getGlobalImage("bt", ImageManager::IMAGE_NORMAL).isNull());
    QCOMPARE(log.takeTexts(),
             (QStringList {missingVariant(QStringLiteral("bt"), 2), missingVariant(QStringLiteral("bt"), 0)}));
}

void ImageManagerTest::anUnlistedNameIsNullAndLogged()
{
    writeAllStates(QStringLiteral("unlisted"));
    m_folder->writeCatalogue({QStringLiteral("bt")});
    initialize();
    LogCapture log;

    for (int i = 0; i < 2; ++i) { // asking does not list the image
        QVERIFY(getGlobalImage("unlisted", ImageManager::IMAGE_NORMAL).isNull());
        QCOMPARE(log.takeTexts(), QStringList {unlisted(QStringLiteral("unlisted"))});
    }
}

void ImageManagerTest::namesAreCaseSensitive()
{
    writeAllStates(QStringLiteral("lower"));
    m_folder->writeCatalogue({QStringLiteral("lower")});
    initialize();
    LogCapture log;
    QVERIFY(getGlobalImage("Lower", ImageManager::IMAGE_NORMAL).isNull());
    QCOMPARE(log.takeTexts(), QStringList {unlisted(QStringLiteral("Lower"))});
}

void ImageManagerTest::aTypeOutOfRangeIsAMissingVariant()
{
    writeAllStates(QStringLiteral("bt"));
    m_folder->writeCatalogue({QStringLiteral("bt")});
    initialize();
    LogCapture log;
    for (int type : {4, -1, 1000}) {
        QCOMPARE(colorOf(getGlobalImage("bt", static_cast<ImageType>(type))), QColor(Qt::red));
        QCOMPARE(log.takeTexts(), QStringList {missingVariant(QStringLiteral("bt"), type)});
    }
}

void ImageManagerTest::lazyDecodesNothingButTempImages()
{
    writeAllStates(QStringLiteral("early"));
    writeAllStates(QStringLiteral("late"));
    m_folder->writeCatalogue({QStringLiteral("early"), QStringLiteral("late")}, {QStringLiteral("early")});
    initialize();

    // What is decoded now was not decoded before.
    for (ImageType state : States) {
        m_folder->writeImage(QLatin1String("early") + QLatin1String(Suffixes[state]), QSize(64, 64), Qt::black);
        m_folder->writeImage(QLatin1String("late") + QLatin1String(Suffixes[state]), QSize(64, 64), Qt::black);
    }
    QVERIFY(QFile::exists(m_folder->tempImagePath(QStringLiteral("early"))));
    for (ImageType state : States) {
        QCOMPARE(colorOf(getGlobalImage("early", state)), QColor(Qt::black));
        QCOMPARE(colorOf(getGlobalImage("late", state)), QColor(Qt::black));
    }
}

void ImageManagerTest::lazyLoadsAnImageWithAllItsVariantsAtItsFirstRequest()
{
    writeAllStates(QStringLiteral("bt"));
    m_folder->writeCatalogue({QStringLiteral("bt")});
    initialize();
    getGlobalImage("bt", ImageManager::IMAGE_DISABLE);
    for (ImageType state : States) {
        m_folder->removeImage(QLatin1String("bt") + QLatin1String(Suffixes[state]));
    }
    LogCapture log;

    for (ImageType state : States) {
        QCOMPARE(colorOf(getGlobalImage("bt", state)), Colors[state]);
    }
    QCOMPARE(log.takeTexts(), QStringList());
}

void ImageManagerTest::lazyLoadsAnImageOnce()
{
    writeAllStates(QStringLiteral("bt"));
    m_folder->writeCatalogue({QStringLiteral("bt")});
    initialize();
    const qint64 key = getGlobalImage("bt", ImageManager::IMAGE_NORMAL).cacheKey();
    m_folder->writeImage(QStringLiteral("bt"), QSize(64, 64), Qt::black);

    QCOMPARE(getGlobalImage("bt", ImageManager::IMAGE_NORMAL).cacheKey(), key);
}

void ImageManagerTest::anyOneVariantMakesAnImageLoaded_data()
{
    QTest::addColumn<int>("state");
    for (ImageType state : States) {
        QTest::newRow(qPrintable(QLatin1String("bt") + QLatin1String(Suffixes[state]))) << int(state);
    }
}

void ImageManagerTest::anyOneVariantMakesAnImageLoaded()
{
    QFETCH(int, state);
    const QString name = QLatin1String("bt") + QLatin1String(Suffixes[state]);
    m_folder->writeImage(name, QSize(64, 64), Colors[state]);
    m_folder->writeCatalogue({QStringLiteral("bt")});
    initialize();
    getGlobalImage("bt", static_cast<ImageType>(state));
    m_folder->writeImage(name, QSize(64, 64), Qt::black);

    QCOMPARE(colorOf(getGlobalImage("bt", static_cast<ImageType>(state))), Colors[state]);
}

// An image without any file is looked for at each request, under the names that are left: none, so under ".png".
void ImageManagerTest::lazyTriesAnImageWithoutAnyFileAgainAndAgain()
{
    m_folder->writeCatalogue({QStringLiteral("bt")});
    initialize();
    LogCapture log;
    for (int i = 0; i < 2; ++i) {
        QVERIFY(getGlobalImage("bt", ImageManager::IMAGE_NORMAL).isNull());
        QCOMPARE(log.takeTexts(), QStringList {missingVariant(QStringLiteral("bt"), 0)});
    }

    m_folder->writeImage(QString(), QSize(64, 64), Qt::magenta);
    QCOMPARE(colorOf(getGlobalImage("bt", ImageManager::IMAGE_NORMAL)), QColor(Qt::magenta));
    QCOMPARE(log.takeTexts(), QStringList {missingVariant(QStringLiteral("bt"), 0)});
}

void ImageManagerTest::aVariantOnceMissingStaysMissing()
{
    m_folder->writeCatalogue({QStringLiteral("bt")});
    initialize();
    LogCapture log;
    getGlobalImage("bt", ImageManager::IMAGE_NORMAL);
    log.takeTexts();
    writeAllStates(QStringLiteral("bt"));

    QVERIFY(getGlobalImage("bt", ImageManager::IMAGE_NORMAL).isNull());
    QCOMPARE(log.takeTexts(), QStringList {missingVariant(QStringLiteral("bt"), 0)});
}

void ImageManagerTest::preloadLoadsEverythingAtOnce()
{
    writeAllStates(QStringLiteral("bt"));
    m_folder->writeCatalogue({QStringLiteral("bt")});
    initialize(ImageManager::INIT_PRELOAD);
    for (ImageType state : States) {
        m_folder->removeImage(QLatin1String("bt") + QLatin1String(Suffixes[state]));
    }

    for (ImageType state : States) {
        QCOMPARE(colorOf(getGlobalImage("bt", state)), Colors[state]);
    }
}

void ImageManagerTest::preloadingAgainLoadsEverythingAgain()
{
    writeAllStates(QStringLiteral("bt"));
    m_folder->writeCatalogue({QStringLiteral("bt")});
    initialize(ImageManager::INIT_PRELOAD);
    m_folder->writeImage(QStringLiteral("bt"), QSize(64, 64), Qt::black);
    m_folder->writeCatalogue({}); // the image is not listed anew, but kept as it is
    initialize(ImageManager::INIT_PRELOAD);

    QCOMPARE(colorOf(getGlobalImage("bt", ImageManager::IMAGE_NORMAL)), QColor(Qt::black));
}

void ImageManagerTest::anyOtherTypeLoadsNothingEver_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("2") << 2;
    QTest::newRow("-1") << -1;
}

void ImageManagerTest::anyOtherTypeLoadsNothingEver()
{
    QFETCH(int, type);
    writeAllStates(QStringLiteral("bt"));
    m_folder->writeCatalogue({QStringLiteral("bt")});
    initialize(static_cast<InitializeType>(type));
    LogCapture log;

    for (ImageType state : States) {
        QVERIFY(getGlobalImage("bt", state).isNull());
    }
    QCOMPARE(log.takeTexts(), QStringList());
}

void ImageManagerTest::nothingStaysInThePixmapCache()
{
    QFETCH(InitializeType, type);
    const QPixmap witness(8, 8);
    QPixmapCache::clear();
    const int previousLimit = QPixmapCache::cacheLimit();
    QPixmapCache::setCacheLimit(20); // kilobytes: room for the witness, but not for one original of 64 by 64 besides it
    QVERIFY(QPixmapCache::insert(QStringLiteral("witness"), witness));

    writeAllStates(QStringLiteral("bt"));
    m_folder->writeCatalogue({QStringLiteral("bt")}, {QStringLiteral("bt")});
    initialize(type);
    getGlobalImage("bt", ImageManager::IMAGE_NORMAL);

    QPixmap found;
    QVERIFY(QPixmapCache::find(QStringLiteral("witness"), &found));
    QPixmapCache::setCacheLimit(previousLimit);
}

void ImageManagerTest::aNameListedTwiceIsOneImageReset()
{
    writeAllStates(QStringLiteral("bt"));
    m_folder->writeCatalogue({QStringLiteral("bt"), QStringLiteral("bt")});
    initialize();
    QCOMPARE(colorOf(getGlobalImage("bt", ImageManager::IMAGE_NORMAL)), QColor(Qt::red));

    m_folder->writeImage(QStringLiteral("bt"), QSize(64, 64), Qt::black);
    initialize(); // lists the image once more
    QCOMPARE(colorOf(getGlobalImage("bt", ImageManager::IMAGE_NORMAL)), QColor(Qt::black));
}

void ImageManagerTest::initializingAgainKeepsImagesThatAreNotListedAnyMore()
{
    writeAllStates(QStringLiteral("kept"));
    m_folder->writeCatalogue({QStringLiteral("kept")});
    initialize();
    getGlobalImage("kept", ImageManager::IMAGE_NORMAL);
    m_folder->writeCatalogue({});
    initialize();
    LogCapture log;

    QCOMPARE(colorOf(getGlobalImage("kept", ImageManager::IMAGE_CLICK)), QColor(Qt::blue));
    QCOMPARE(log.takeTexts(), QStringList());
}

void ImageManagerTest::blanksStayInNamesOfImages()
{
    writeAllStates(QStringLiteral("bt next"));
    m_folder->writeCatalogue({QStringLiteral("bt next")});
    initialize();
    QCOMPARE(colorOf(getGlobalImage("bt next", ImageManager::IMAGE_HOVER)), QColor(Qt::green));
    LogCapture log;
    QVERIFY(getGlobalImage("btnext", ImageManager::IMAGE_NORMAL).isNull());
    QCOMPARE(log.takeTexts(), QStringList {unlisted(QStringLiteral("btnext"))});
}

void ImageManagerTest::aCopyIsWrittenForEachTempImage()
{
    m_folder->writeImage(QStringLiteral("one"), drawing(QSize(64, 64)));
    m_folder->writeImage(QStringLiteral("two"), QSize(64, 64), Qt::red);
    m_folder->writeCatalogue({QStringLiteral("one"), QStringLiteral("two")}, {QStringLiteral("one")});
    initialize();

    QFile copy(m_folder->tempImagePath(QStringLiteral("one")));
    QVERIFY(copy.open(QIODevice::ReadOnly));
    QCOMPARE(QImageReader::imageFormat(&copy), QByteArrayLiteral("png"));
    QVERIFY(!QFile::exists(m_folder->tempImagePath(QStringLiteral("two"))));
}

void ImageManagerTest::blanksAreRemovedFromNamesOfTempImages()
{
    m_folder->writeImage(QStringLiteral("btnext"), QSize(64, 64), Qt::red);
    m_folder->writeImage(QStringLiteral("bt next"), QSize(64, 64), Qt::black);
    m_folder->writeCatalogue({}, {QStringLiteral(" bt  next ")});
    initialize();
    QCOMPARE(colorOf(QPixmap(m_folder->tempImagePath(QStringLiteral("btnext")))), QColor(Qt::red));
    QVERIFY(!QFile::exists(m_folder->tempImagePath(QStringLiteral("bt next"))));
}

void ImageManagerTest::theCopyHasTheLogicalSizeWithoutTheRatio_data()
{
    theSizeIsAQuarterTimesScaleTimesRatioRoundedAtEachStep_data();
}

void ImageManagerTest::theCopyHasTheLogicalSizeWithoutTheRatio()
{
    QFETCH(QSize, size);
    m_folder->writeImage(QStringLiteral("icon"), drawing(size));
    m_folder->writeCatalogue({}, {QStringLiteral("icon")});
    initialize();

    const QSize copySize = expectedImageSize(size) / expectedRatio();
    const QPixmap expected = QPixmap(m_folder->imagePath(QStringLiteral("icon")))
                                 .scaled(copySize, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    const QImage copy(m_folder->tempImagePath(QStringLiteral("icon")));
    QCOMPARE(copy.size(), copySize);
    QCOMPARE(copy, expected.toImage().convertToFormat(copy.format()));
}

void ImageManagerTest::aCopyIsRewrittenAtEachStart()
{
    m_folder->writeImage(QStringLiteral("icon"), QSize(64, 64), Qt::red);
    m_folder->writeCatalogue({}, {QStringLiteral("icon")});
    initialize();
    m_folder->writeImage(QStringLiteral("icon"), QSize(64, 64), Qt::black);
    initialize();
    QCOMPARE(QImage(m_folder->tempImagePath(QStringLiteral("icon"))).pixelColor(3, 3), QColor(Qt::black));
}

void ImageManagerTest::aMissingOriginalLeavesAnEmptyCopy()
{
    m_folder->writeImage(QStringLiteral("icon"), QSize(64, 64), Qt::red);
    m_folder->writeCatalogue({}, {QStringLiteral("icon"), QStringLiteral("never there")});
    initialize();
    m_folder->removeImage(QStringLiteral("icon"));
    initialize(); // fails if anything is logged
    for (const QString &name : {QStringLiteral("icon"), QStringLiteral("neverthere")}) {
        QVERIFY(QFile::exists(m_folder->tempImagePath(name)));
        QCOMPARE(QFileInfo(m_folder->tempImagePath(name)).size(), qint64(0));
    }
}

void ImageManagerTest::tempImagesNeedNotBeListedAsImages()
{
    m_folder->writeImage(QStringLiteral("sheets only"), QSize(64, 64), Qt::red);
    m_folder->writeImage(QStringLiteral("only"), QSize(64, 64), Qt::red);
    m_folder->writeCatalogue({}, {QStringLiteral("only")});
    initialize();
    LogCapture log;
    QVERIFY(getGlobalImage("only", ImageManager::IMAGE_NORMAL).isNull());
    QCOMPARE(log.takeTexts(), QStringList {unlisted(QStringLiteral("only"))});
}

void ImageManagerTest::aCatalogueThatCannotBeUsedIsAnEmptyOne_data()
{
    QTest::addColumn<QByteArray>("catalogue");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("not JSON") << QByteArrayLiteral("images: bt");
    QTest::newRow("truncated") << QByteArrayLiteral("{ \"images\": [\"fresh\"");
    QTest::newRow("an array") << QByteArrayLiteral("[\"fresh\"]");
    QTest::newRow("a string") << QByteArrayLiteral("\"fresh\"");
    QTest::newRow("no array") << QByteArrayLiteral("{ \"images\": \"fresh\", \"tmp_images\": { \"fresh\": 1 } }");
    QTest::newRow("other case") << QByteArrayLiteral("{ \"Images\": [\"fresh\"], \"TMP_IMAGES\": [\"fresh\"] }");
    QTest::newRow("binary") << QByteArray(1000, '\xff');
}

void ImageManagerTest::aCatalogueThatCannotBeUsedIsAnEmptyOne()
{
    QFETCH(QByteArray, catalogue);
    writeAllStates(QStringLiteral("fresh"));
    m_folder->writeFile(QStringLiteral("images.json"), catalogue);
    initialize();
    LogCapture log;
    QVERIFY(getGlobalImage("fresh", ImageManager::IMAGE_NORMAL).isNull());
    QCOMPARE(log.takeTexts(), QStringList {unlisted(QStringLiteral("fresh"))});
    QVERIFY(!QFile::exists(m_folder->tempImagePath(QStringLiteral("fresh"))));
}

void ImageManagerTest::otherKeysOfTheCatalogueAreIgnored()
{
    writeAllStates(QStringLiteral("bt"));
    m_folder->writeFile(QStringLiteral("images.json"),
                        "{ \"version\": 3, \"images\": [\"bt\"], \"more\": [\"other\"] }");
    initialize();
    QCOMPARE(colorOf(getGlobalImage("bt", ImageManager::IMAGE_NORMAL)), QColor(Qt::red));
    LogCapture log;
    QVERIFY(getGlobalImage("other", ImageManager::IMAGE_NORMAL).isNull());
    QCOMPARE(log.takeTexts().size(), 1);
}

void ImageManagerTest::aNameThatIsNoStringIsAnEmptyName()
{
    writeAllStates(QStringLiteral("bt"));
    writeAllStates(QString()); // files such as "_hover.png"
    m_folder->writeFile(QStringLiteral("images.json"), "{ \"images\": [1, \"bt\", null], \"tmp_images\": [true] }");
    initialize();

    QCOMPARE(colorOf(getGlobalImage("", ImageManager::IMAGE_HOVER)), QColor(Qt::green));
    QCOMPARE(colorOf(getGlobalImage("bt", ImageManager::IMAGE_NORMAL)), QColor(Qt::red));
    QVERIFY(QFile::exists(m_folder->tempImagePath(QString())));
}

void ImageManagerTest::aCatalogueIsReadAsUtf8()
{
    const QString name = QString::fromUtf8("b\u00fcro\u65e5");
    writeAllStates(name);
    const QByteArray listed = "[\"" + name.toUtf8() + "\"]";
    m_folder->writeFile(QStringLiteral("images.json"),
                        "\xef\xbb\xbf{ \"images\":\r\n " + listed + ", \"tmp_images\": " + listed + " }");
    initialize();
    QCOMPARE(colorOf(getGlobalImage(name, ImageManager::IMAGE_CLICK)), QColor(Qt::blue));
    QCOMPARE(colorOf(getGlobalImage(name.toUtf8().constData(), ImageManager::IMAGE_CLICK)), QColor(Qt::blue));
    QVERIFY(QFileInfo(m_folder->tempImagePath(name)).size() > 0);
}

void ImageManagerTest::aTruncatedImageIsMissing()
{
    writeAllStates(QStringLiteral("bt"));
    m_folder->writeFile(QStringLiteral("images/bt_hover.png"), QByteArrayLiteral("\x89PNG\r\n\x1a\n"));
    m_folder->writeFile(QStringLiteral("images/bt_click.png"), QByteArrayLiteral("no image"));
    m_folder->writeCatalogue({QStringLiteral("bt")}, {QStringLiteral("bt_hover")});
    initialize();

    LogCapture log;
    QCOMPARE(colorOf(getGlobalImage("bt", ImageManager::IMAGE_HOVER)), QColor(Qt::red));
    QCOMPARE(colorOf(getGlobalImage("bt", ImageManager::IMAGE_CLICK)), QColor(Qt::red));
    QVERIFY(log.takeTexts().contains(missingVariant(QStringLiteral("bt"), 1)));
    QCOMPARE(QFileInfo(m_folder->tempImagePath(QStringLiteral("bt_hover"))).size(), qint64(0));
}

void ImageManagerTest::aFolderInPlaceOfAnImageIsAMissingOne()
{
    writeAllStates(QStringLiteral("bt"));
    m_folder->removeImage(QStringLiteral("bt_disable"));
    QVERIFY(QDir().mkpath(m_folder->imagePath(QStringLiteral("bt_disable"))));
    QVERIFY(QDir().mkpath(m_folder->tempImagePath(QStringLiteral("bt"))));
    m_folder->writeCatalogue({QStringLiteral("bt")}, {QStringLiteral("bt"), QStringLiteral("bt_disable")});
    initialize();
    LogCapture log;
    QCOMPARE(colorOf(getGlobalImage("bt", ImageManager::IMAGE_DISABLE)), QColor(Qt::red));
    QCOMPARE(log.takeTexts(), QStringList {missingVariant(QStringLiteral("bt"), 3)});
}

void ImageManagerTest::anUnwritableUserDataFolderIsPassedOverInSilence()
{
    m_folder->writeFile(QStringLiteral("user-data"), "a file where the folder should be");
    writeAllStates(QStringLiteral("bt"));
    m_folder->writeCatalogue({QStringLiteral("bt")}, {QStringLiteral("bt")});
    initialize();
    QCOMPARE(colorOf(getGlobalImage("bt", ImageManager::IMAGE_NORMAL)), QColor(Qt::red));
    QCOMPARE(ImageManager::getInstance()->getTempImageFolder(),
             m_folder->userDataPath() + QStringLiteral("/tmp_images"));
}

void ImageManagerTest::namesMayHaveSlashesAndAnyLetters()
{
    const QStringList names {QStringLiteral("folder/icon"), QStringLiteral("../images/up"),
                             QString::fromUtf8("\u00e4\u65e5"), QStringLiteral("a%1b"), QStringLiteral("a\"b")};
    for (const QString &name : names) {
        writeAllStates(name);
    }
    m_folder->writeCatalogue(names, names);
    initialize();
    LogCapture log;
    for (const QString &name : names) {
        QCOMPARE(colorOf(getGlobalImage(name, ImageManager::IMAGE_CLICK)), QColor(Qt::blue));
    }
    QCOMPARE(log.takeTexts(), QStringList());
    // No folder is made below that of the generated images.
    QVERIFY(!QFile::exists(m_folder->tempImagePath(QStringLiteral("folder/icon"))));
    QVERIFY(QFileInfo(m_folder->tempImagePath(QStringLiteral("a%1b"))).size() > 0);
}

QTEST_MAIN(ImageManagerTest)
#include "tst_image_manager.moc"
