// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-mask.h"
#include "component/vela-sheet.h"
#include "image-manager/image-manager.h"
#include "support/color-counts.h"
#include "support/controls.h"
#include "support/environment.h"
#include "support/log-capture.h"
#include "support/resource-folder.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QStyle>
#include <QVBoxLayout>
#include <QtTest>

#include <algorithm>
#include <functional>
#include <type_traits>

static_assert(std::is_base_of_v<QFrame, VelaSheet>);
static_assert(std::is_abstract_v<VelaSheet>);

namespace {

constexpr int Shadow = 22; // logical pixels
constexpr int FileSize = Shadow * 4; // images are drawn at four times their size

// A piece of the shadow: where it begins, and whether it is as wide or as high as the body or else as the shadow.
struct Piece
{
    const char *imageName;
    bool isAtRight;
    bool isAtBottom;
    bool isWide;
    bool isHigh;
};

// The pieces in the order in which their images are requested.
constexpr Piece Pieces[] = {
    {"bg_tutorial_l", false, false, false, true},   {"bg_tutorial_r", true, false, false, true},
    {"bg_tutorial_t", false, false, true, false},   {"bg_tutorial_b", false, true, true, false},
    {"bg_tutorial_lt", false, false, false, false}, {"bg_tutorial_rt", true, false, false, false},
    {"bg_tutorial_lb", false, true, false, false},  {"bg_tutorial_rb", true, true, false, false},
};
constexpr int EdgeCount = 4;
constexpr int PieceCount = 8;

const QColor Background(150, 200, 250);
constexpr QSize ImagelessSize(200, 150);

// Colours of the quarters of each image: top left, top right, bottom left, bottom right.
constexpr int QuarterCount = 4;

QColor quarterColor(int piece, int quarter)
{
    return {30 * piece, 10 + 60 * quarter, 240 - 20 * piece};
}

// The colour of an image of one colour only; each set of images has others.
QColor plainColor(int piece, int set = 0)
{
    return QColor::fromHsv(piece * 40 + set * 20, 255, 255).toRgb();
}

int shadowWidth()
{
    return expectedPixels(Shadow);
}

QRect placeOf(const Piece &piece, const QSize &size)
{
    const int s = shadowWidth();
    const int x = piece.isAtRight ? size.width() - s : piece.isWide ? s : 0;
    const int y = piece.isAtBottom ? size.height() - s : piece.isHigh ? s : 0;
    return {x, y, piece.isWide ? size.width() - 2 * s : s, piece.isHigh ? size.height() - 2 * s : s};
}

QRect bodyOf(const QSize &size)
{
    const int s = shadowWidth();
    return {s, s, size.width() - 2 * s, size.height() - 2 * s};
}

class Sheet : public VelaSheet
{
public:
    using VelaSheet::VelaSheet;

    void showSheet() override { show(); }
};

// What a widget paints, a pixel for each logical one; null where the pixels of one differ.
QImage paintedImage(QWidget *widget)
{
    const QImage painted = widget->grab().toImage().convertToFormat(QImage::Format_RGB32);
    QImage logical(widget->size(), QImage::Format_RGB32);
    const int ratio = painted.width() / widget->width();
    if (painted.size() != logical.size() * expectedRatio()) {
        return {};
    }
    for (int y = 0; y < painted.height(); ++y) {
        for (int x = 0; x < painted.width(); ++x) {
            const QPoint place(x / ratio, y / ratio);
            if (x % ratio == 0 && y % ratio == 0) {
                logical.setPixel(place, painted.pixel(x, y));
            } else if (logical.pixel(place) != painted.pixel(x, y)) {
                return {};
            }
        }
    }
    return logical;
}

// The point in a quarter of place that is farthest from the borders of the quarters.
QPoint middleOfQuarter(const QRect &place, int quarter)
{
    const int column = quarter % 2;
    const int row = quarter / 2;
    return place.topLeft() + QPoint(place.width() * (1 + 2 * column) / 4, place.height() * (1 + 2 * row) / 4);
}

// Whether both images have the same pixels; tells the first that differs.
bool isSameImage(const QImage &painted, const QImage &expected)
{
    if (painted.size() != expected.size()) {
        qWarning() << "sizes" << painted.size() << expected.size();
        return false;
    }
    for (int y = 0; y < expected.height(); ++y) {
        for (int x = 0; x < expected.width(); ++x) {
            if (painted.pixel(x, y) != expected.pixel(x, y)) {
                qWarning() << "pixel" << x << y << painted.pixelColor(x, y).name() << expected.pixelColor(x, y).name();
                return false;
            }
        }
    }
    return true;
}

} // namespace

class VelaSheetTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void imagesAreRequestedAtEachPaintInTheirOrder();
    void withoutImagesTheBodyIsPaintedAlone();

    void theClassAddsOneSignal();
    void aSheetIsAnOrdinaryChildOfItsParent();
    void showSheetIsCalledThroughTheBase();
    void theSignalHandsOnTheResult();

    void theShadowIsTruncatedToPixels();
    void theContentsMarginsAreTheShadow();
    void showingSetsTheMarginsAgain();

    void setWidgetCentersTheWidget();
    void setWidgetAdjustsTheSize();
    void theSheetOwnsItsWidget();
    void aSecondWidgetReplacesTheLayout();
    void anyFormerLayoutIsDeleted();
    void aSheetInAMaskFillsItWithinTheMargins();

    void everyPixelIsShadowOrBody_data();
    void everyPixelIsShadowOrBody();
    void imagesAreStretchedOverTheirPieces_data();
    void imagesAreStretchedOverTheirPieces();
    void edgesAreScaledWithoutSmoothing();
    void theNormalVariantsAreUsed();
    void imagesAreFetchedAfreshAtEachPaint();
    void edgesFollowTheSizeAndTheImagesOfEachPaint();
    void aSheetSmallerThanItsShadowHasNoEdges_data();
    void aSheetSmallerThanItsShadowHasNoEdges();
    void noFrameIsDrawn();
    void drawShadowDrawsTheBandAlone();
    void drawShadowDrawsWhereThePainterIs();

private:
    void installImages(const std::function<QImage(int piece)> &imageOf);
    void installPlainImages(int set = 0);
    void installQuarteredImages(const QSize &fileSize);

    ResourceFolder m_folder;
    QVector<QStringList> m_loggedWithoutImages; // what was logged at each paint
    QImage m_paintedWithoutImages;
};

void VelaSheetTest::initTestCase()
{
    Sheet sheet;
    sheet.setPalette(QPalette(Background));
    sheet.resize(ImagelessSize);
    LogCapture log;
    for (int paints = 0; paints < 2; ++paints) {
        m_paintedWithoutImages = paintedImage(&sheet);
        m_loggedWithoutImages.append(log.takeTexts());
    }
    installPlainImages();
}

void VelaSheetTest::installImages(const std::function<QImage(int piece)> &imageOf)
{
    QStringList names;
    for (int i = 0; i < PieceCount; ++i) {
        const QString name = QLatin1String(Pieces[i].imageName);
        names.append(name);
        m_folder.writeImage(name, imageOf(i));
        for (const char *suffix : {"_hover", "_click", "_disable"}) {
            m_folder.writeImage(name + QLatin1String(suffix), QSize(FileSize, FileSize), Qt::black);
        }
    }
    m_folder.writeCatalogue(names);
    m_folder.setAsPaths();
    ImageManager::getInstance()->initialize(ImageManager::INIT_LAZY);
}

void VelaSheetTest::installPlainImages(int set)
{
    installImages([set](int piece) {
        QImage image(FileSize, FileSize, QImage::Format_RGB32);
        image.fill(plainColor(piece, set));
        return image;
    });
}

void VelaSheetTest::installQuarteredImages(const QSize &fileSize)
{
    installImages([fileSize](int piece) {
        QImage image(fileSize, QImage::Format_RGB32);
        const QSize half = fileSize / 2;
        QPainter painter(&image);
        for (int quarter = 0; quarter < QuarterCount; ++quarter) {
            const QPoint corner(quarter % 2 * half.width(), quarter / 2 * half.height());
            painter.fillRect(QRect(corner, half), quarterColor(piece, quarter));
        }
        return image;
    });
}

void VelaSheetTest::imagesAreRequestedAtEachPaintInTheirOrder()
{
    QStringList expected;
    for (const Piece &piece : Pieces) {
        expected.append(QStringLiteral("Cannot load pixmap \"%1\"").arg(QLatin1String(piece.imageName)));
    }
    QCOMPARE(m_loggedWithoutImages, (QVector<QStringList> {expected, expected}));
}

void VelaSheetTest::withoutImagesTheBodyIsPaintedAlone()
{
    QImage expected(ImagelessSize, QImage::Format_RGB32);
    expected.fill(Background);
    QPainter(&expected).fillRect(bodyOf(ImagelessSize), Qt::white);
    QVERIFY(isSameImage(m_paintedWithoutImages, expected));
}

void VelaSheetTest::theClassAddsOneSignal()
{
    QCOMPARE(VelaSheet::staticMetaObject.className(), "VelaSheet");
    QCOMPARE(VelaSheet::staticMetaObject.superClass()->className(), "QFrame");
    QCOMPARE(ownDeclarations(VelaSheet::staticMetaObject), QStringList(QStringLiteral("finished(int)")));
    const int index = VelaSheet::staticMetaObject.indexOfSignal("finished(int)");
    QVERIFY(index >= 0);
    QCOMPARE(VelaSheet::staticMetaObject.method(index).parameterNames(), QList<QByteArray> {"ret"});
}

void VelaSheetTest::aSheetIsAnOrdinaryChildOfItsParent()
{
    QWidget parent;
    const Sheet sheet(&parent);
    QCOMPARE(sheet.parentWidget(), &parent);
    QCOMPARE(sheet.windowFlags(), QFrame(&parent).windowFlags());
    QVERIFY(!sheet.isWindow());
    QVERIFY(!sheet.layout());
    QVERIFY(!Sheet(nullptr).parent());
}

void VelaSheetTest::showSheetIsCalledThroughTheBase()
{
    Sheet sheet;
    VelaSheet &base = sheet;
    base.showSheet();
    QVERIFY(sheet.isVisible());
}

void VelaSheetTest::theSignalHandsOnTheResult()
{
    Sheet sheet;
    const QSignalSpy finished(&sheet, &VelaSheet::finished);
    sheet.show();
    sheet.close();
    QCOMPARE(finished.count(), 0); // only subclasses emit it
    Q_EMIT sheet.finished(0x400);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(finished.at(0).at(0).toInt(), 0x400);
}

void VelaSheetTest::theShadowIsTruncatedToPixels()
{
    const QMap<double, int> widths {{1.0, 22}, {1.25, 27}, {1.5, 33}};
    QVERIFY(widths.contains(expectedScale()));
    const Sheet sheet;
    QCOMPARE(sheet.contentsMargins().left(), widths.value(expectedScale()));
}

void VelaSheetTest::theContentsMarginsAreTheShadow()
{
    const Sheet sheet;
    const int s = shadowWidth();
    QCOMPARE(sheet.contentsMargins(), QMargins(s, s, s, s));
    QWidget parent;
    const Sheet child(&parent);
    QCOMPARE(child.contentsMargins(), QMargins(s, s, s, s));
}

void VelaSheetTest::showingSetsTheMarginsAgain()
{
    const int s = shadowWidth();
    Sheet sheet;
    for (int i = 0; i < 2; ++i) {
        sheet.setContentsMargins(1, 2, 3, 4);
        QCOMPARE(sheet.contentsMargins(), QMargins(1, 2, 3, 4));
        sheet.show();
        QCOMPARE(sheet.contentsMargins(), QMargins(s, s, s, s));
        sheet.hide();
    }
}

void VelaSheetTest::setWidgetCentersTheWidget()
{
    Sheet sheet;
    auto *widget = new QWidget;
    widget->setFixedSize(60, 40);
    sheet.setWidget(widget);
    const auto *row = qobject_cast<QHBoxLayout *>(sheet.layout());
    QVERIFY(row);
    QCOMPARE(row->count(), 1);
    QCOMPARE(row->itemAt(0)->widget(), widget);
    QCOMPARE(row->itemAt(0)->alignment(), Qt::Alignment(Qt::AlignCenter));
    QCOMPARE(row->stretch(0), 0);

    sheet.resize(300, 220);
    sheet.show();
    QTRY_COMPARE(sheet.size(), QSize(300, 220));
    QCOMPARE(widget->geometry(), QRect(120, 90, 60, 40));
}

void VelaSheetTest::setWidgetAdjustsTheSize()
{
    QWidget parent;
    Sheet sheet(&parent);
    parent.show();
    sheet.hide(); // a widget that comes into a visible one is shown later, and has no size before
    const auto metric = [&sheet](QStyle::PixelMetric which) {
        return sheet.style()->pixelMetric(which, nullptr, &sheet);
    };
    const QSize band(2 * shadowWidth() + metric(QStyle::PM_LayoutLeftMargin) + metric(QStyle::PM_LayoutRightMargin),
                     2 * shadowWidth() + metric(QStyle::PM_LayoutTopMargin) + metric(QStyle::PM_LayoutBottomMargin));
    for (const QSize &size : {QSize(100, 50), QSize(60, 80)}) {
        auto *widget = new QWidget;
        widget->setFixedSize(size);
        sheet.setWidget(widget);
        QCOMPARE(sheet.size(), size + band);
    }
}

void VelaSheetTest::theSheetOwnsItsWidget()
{
    QWidget formerParent;
    QPointer<QWidget> widget(new QWidget(&formerParent));
    {
        Sheet sheet;
        sheet.setWidget(widget);
        QCOMPARE(widget->parentWidget(), &sheet);
    }
    QVERIFY(!widget);
}

void VelaSheetTest::aSecondWidgetReplacesTheLayout()
{
    Sheet sheet;
    auto *first = new QWidget;
    auto *second = new QWidget;
    first->setFixedSize(60, 40);
    second->setFixedSize(90, 50);
    sheet.setWidget(first);
    sheet.show();
    QVERIFY(QTest::qWaitForWindowExposed(&sheet));
    const QPointer<QLayout> firstLayout(sheet.layout());
    sheet.setWidget(second);
    QVERIFY(!firstLayout);
    QCOMPARE(sheet.layout()->count(), 1);
    QCOMPARE(sheet.layout()->indexOf(first), -1);
    QCOMPARE(sheet.layout()->indexOf(second), 0);
    QCOMPARE(first->parentWidget(), &sheet);
    QVERIFY(first->isVisible());

    const QRect place = first->geometry();
    sheet.resize(400, 300);
    QTRY_COMPARE(sheet.size(), QSize(400, 300));
    QTRY_COMPARE(second->geometry(), QRect(155, 125, 90, 50));
    QCOMPARE(first->geometry(), place);
}

void VelaSheetTest::anyFormerLayoutIsDeleted()
{
    Sheet sheet;
    const QPointer<QVBoxLayout> column(new QVBoxLayout(&sheet));
    const QPointer<QWidget> inColumn(new QWidget);
    column->addWidget(inColumn);
    LogCapture log;
    sheet.setWidget(new QWidget);
    QVERIFY(!column);
    QVERIFY(inColumn);
    QVERIFY(qobject_cast<QHBoxLayout *>(sheet.layout()));
    QCOMPARE(log.takeTexts(), QStringList());
}

void VelaSheetTest::aSheetInAMaskFillsItWithinTheMargins()
{
    QWidget window;
    window.resize(400, 300);
    auto *sheet = new Sheet(&window);
    auto *widget = new QWidget;
    widget->setFixedSize(60, 40);
    sheet->setWidget(widget);
    VelaMask::createMaskWithCustomizedMargin(sheet, &window, QColor(0, 0, 0, 20), 40, 30, 20, 10);
    window.show();
    sheet->showSheet();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const QMargins margins(expectedPixels(40), expectedPixels(30), expectedPixels(20), expectedPixels(10));
    QTRY_COMPARE(sheet->geometry(), QRect(0, 0, 400, 300).marginsRemoved(margins));
    sheet->hide();
    QVERIFY(!window.findChild<VelaMask *>()->isVisible());
}

void VelaSheetTest::everyPixelIsShadowOrBody_data()
{
    QTest::addColumn<QSize>("body");
    QTest::newRow("wide") << QSize(161, 70);
    QTest::newRow("high") << QSize(40, 131);
    QTest::newRow("a pixel") << QSize(1, 1);
    QTest::newRow("no body") << QSize(0, 0);
    QTest::newRow("no width") << QSize(0, 30);
    QTest::newRow("no height") << QSize(30, 0);
}

void VelaSheetTest::everyPixelIsShadowOrBody()
{
    QFETCH(QSize, body);
    installPlainImages();
    Sheet sheet;
    sheet.resize(body + 2 * QSize(shadowWidth(), shadowWidth()));
    QImage expected(sheet.size(), QImage::Format_RGB32);
    expected.fill(Qt::black); // a colour that is seen nowhere
    QPainter painter(&expected);
    for (int i = 0; i < PieceCount; ++i) {
        painter.fillRect(placeOf(Pieces[i], sheet.size()), plainColor(i));
    }
    painter.fillRect(bodyOf(sheet.size()), Qt::white);
    painter.end();
    QVERIFY(isSameImage(paintedImage(&sheet), expected));
}

void VelaSheetTest::imagesAreStretchedOverTheirPieces_data()
{
    QTest::addColumn<QSize>("fileSize");
    QTest::addColumn<QSize>("body");
    QTest::newRow("as large as a corner") << QSize(FileSize, FileSize) << QSize(200, 120);
    QTest::newRow("small") << QSize(64, 40) << QSize(200, 120);
    QTest::newRow("large") << QSize(480, 640) << QSize(12, 16);
}

void VelaSheetTest::imagesAreStretchedOverTheirPieces()
{
    QFETCH(QSize, fileSize);
    QFETCH(QSize, body);
    installQuarteredImages(fileSize);
    Sheet sheet;
    sheet.resize(body + 2 * QSize(shadowWidth(), shadowWidth()));
    const QImage painted = sheet.grab().toImage();
    for (int i = 0; i < PieceCount; ++i) {
        for (int quarter = 0; quarter < QuarterCount; ++quarter) {
            const QPoint place = middleOfQuarter(placeOf(Pieces[i], sheet.size()), quarter);
            QVERIFY2(painted.pixelColor(place * expectedRatio()) == quarterColor(i, quarter),
                     qPrintable(QStringLiteral("%1, quarter %2: %3")
                                    .arg(QLatin1String(Pieces[i].imageName))
                                    .arg(quarter)
                                    .arg(painted.pixelColor(place * expectedRatio()).name())));
        }
    }
}

void VelaSheetTest::edgesAreScaledWithoutSmoothing()
{
    installQuarteredImages({FileSize, FileSize});
    Sheet sheet;
    sheet.resize(400, 300);
    const QImage painted = sheet.grab().toImage().convertToFormat(QImage::Format_RGB32);
    for (int i = 0; i < EdgeCount; ++i) {
        const QPixmap loaded = getGlobalImage(Pieces[i].imageName, ImageManager::IMAGE_NORMAL);
        const QRect place = placeOf(Pieces[i], sheet.size());
        const QRect pixels(place.topLeft() * expectedRatio(), place.size() * expectedRatio());
        const QSet<QRgb> given = colorsIn(loaded.toImage().convertToFormat(QImage::Format_RGB32));
        const QSet<QRgb> used = colorsIn(painted.copy(pixels));
        QVERIFY(used.size() >= QuarterCount);
        QVERIFY2(given.contains(used), Pieces[i].imageName);
    }
}

void VelaSheetTest::theNormalVariantsAreUsed()
{
    installPlainImages();
    LogCapture log;
    Sheet sheet;
    sheet.resize(200, 150);
    sheet.setEnabled(false);
    const QSet<QRgb> colors = colorsIn(paintedImage(&sheet));
    QCOMPARE(colors.size(), PieceCount + 1);
    QVERIFY(!colors.contains(QColor(Qt::black).rgb()));
    QCOMPARE(log.takeTexts(), QStringList());
}

void VelaSheetTest::imagesAreFetchedAfreshAtEachPaint()
{
    Sheet sheet;
    sheet.resize(200, 150);
    for (const int set : {0, 1, 0}) {
        installPlainImages(set);
        const QImage painted = paintedImage(&sheet);
        for (int i = 0; i < PieceCount; ++i) {
            QCOMPARE(painted.pixelColor(placeOf(Pieces[i], sheet.size()).center()), plainColor(i, set));
        }
    }
}

void VelaSheetTest::edgesFollowTheSizeAndTheImagesOfEachPaint()
{
    Sheet sheet;
    for (const int fileSize : {FileSize, 64, FileSize}) {
        installImages([fileSize](int piece) {
            QImage image(fileSize, fileSize, QImage::Format_RGB32);
            for (int y = 0; y < fileSize; ++y) {
                for (int x = 0; x < fileSize; ++x) {
                    image.setPixel(x, y, qRgb(x * 20, y * 20, piece * 30)); // colours unlike those beside them
                }
            }
            return image;
        });
        for (const QSize &size : {QSize(200, 150), QSize(260, 150), QSize(260, 210), QSize(200, 150)}) {
            sheet.resize(size);
            Sheet fresh;
            fresh.resize(size);
            const QImage expected = fresh.grab().toImage();
            QCOMPARE(sheet.grab().toImage(), expected);
            QCOMPARE(sheet.grab().toImage(), expected);
        }
    }
}

void VelaSheetTest::aSheetSmallerThanItsShadowHasNoEdges_data()
{
    QTest::addColumn<QSize>("body");
    QTest::newRow("narrow") << QSize(-10, 60);
    QTest::newRow("low") << QSize(60, -10);
    QTest::newRow("narrow and low") << QSize(-20, -10);
    QTest::newRow("no width and low") << QSize(0, -15);
    QTest::newRow("smaller than a corner") << QSize(-40, -38);
}

void VelaSheetTest::aSheetSmallerThanItsShadowHasNoEdges()
{
    QFETCH(QSize, body);
    installPlainImages();
    LogCapture log;
    Sheet sheet;
    sheet.resize(body + 2 * QSize(shadowWidth(), shadowWidth()));
    const QImage painted = paintedImage(&sheet);
    QCOMPARE(log.takeTexts(), QStringList());
    QCOMPARE(painted.size(), sheet.size());

    QImage expected(sheet.size(), QImage::Format_RGB32);
    QPainter painter(&expected);
    for (int i = 0; i < PieceCount; ++i) {
        const QRect place = placeOf(Pieces[i], sheet.size());
        if (!place.isEmpty()) {
            painter.fillRect(place, plainColor(i));
        } else {
            QVERIFY2(!colorsIn(painted).contains(plainColor(i).rgb()), Pieces[i].imageName);
        }
    }
    painter.end();
    const QRect bodyPlace = bodyOf(sheet.size()).normalized(); // what is there is not settled
    for (int y = 0; y < sheet.height(); ++y) {
        for (int x = 0; x < sheet.width(); ++x) {
            QVERIFY(bodyPlace.contains(x, y) || painted.pixelColor(x, y) == expected.pixelColor(x, y));
        }
    }
}

void VelaSheetTest::noFrameIsDrawn()
{
    installPlainImages();
    Sheet sheet;
    sheet.resize(200, 150);
    const QImage plain = paintedImage(&sheet);
    sheet.setFrameStyle(int(QFrame::Box) | int(QFrame::Plain));
    sheet.setLineWidth(5);
    QVERIFY(isSameImage(paintedImage(&sheet), plain));
}

void VelaSheetTest::drawShadowDrawsTheBandAlone()
{
    installPlainImages();
    Sheet sheet;
    sheet.resize(200, 150);
    QImage image(sheet.size(), QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    sheet.drawShadow(painter);
    painter.end();
    QImage expected(sheet.size(), QImage::Format_ARGB32);
    expected.fill(Qt::transparent);
    QPainter expectedPainter(&expected);
    for (int i = 0; i < PieceCount; ++i) {
        expectedPainter.fillRect(placeOf(Pieces[i], sheet.size()), plainColor(i));
    }
    expectedPainter.end();
    QVERIFY(isSameImage(image, expected));
}

void VelaSheetTest::drawShadowDrawsWhereThePainterIs()
{
    installPlainImages();
    Sheet sheet;
    sheet.resize(120, 110);
    QImage image(sheet.size() + QSize(30, 20), QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.translate(30, 20);
    sheet.drawShadow(painter);
    painter.end();
    QCOMPARE(image.pixelColor(29, 20).alpha(), 0);
    QCOMPARE(image.pixelColor(30, 19).alpha(), 0);
    QCOMPARE(image.pixelColor(30, 20), plainColor(EdgeCount));
    QCOMPARE(image.pixelColor(149, 129), plainColor(PieceCount - 1));
}

QTEST_MAIN(VelaSheetTest)
#include "tst_vela_sheet.moc"
