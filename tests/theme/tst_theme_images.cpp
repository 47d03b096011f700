// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "contrast.h"
#include "sheet-rules.h"
#include "support/color-counts.h"

#include <QDir>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPainter>
#include <QPixmap>
#include <QRegularExpression>
#include <QtTest>

namespace {

constexpr int FileScale = 4; // pixels of a file for each logical pixel
constexpr int ShadowWidth = 22; // logical pixels
constexpr int ShadowFile = ShadowWidth * FileScale;

struct Drawing
{
    const char *name;
    QSize size; // logical pixels
};

// Images that widgets of the library ask for by name.
constexpr Drawing Requested[] = {
    {"app_img", {32, 32}},
    {"bg_tutorial_b", {22, 22}},
    {"bg_tutorial_l", {22, 22}},
    {"bg_tutorial_lb", {22, 22}},
    {"bg_tutorial_lt", {22, 22}},
    {"bg_tutorial_r", {22, 22}},
    {"bg_tutorial_rb", {22, 22}},
    {"bg_tutorial_rt", {22, 22}},
    {"bg_tutorial_t", {22, 22}},
    {"bt_next", {16, 16}},
    {"bt_pagebar_back", {16, 16}},
    {"bt_pagebar_backend", {16, 16}},
    {"bt_pagebar_next", {16, 16}},
    {"bt_pagebar_nextend", {16, 16}},
    {"bt_pagebar_refresh", {16, 16}},
    {"bt_pagebar_refresh_disable", {16, 16}},
    {"bt_pagebar_refresh_hover", {16, 16}},
    {"bt_search_dropdown", {28, 16}},
    {"folder", {20, 20}},
    {"icon_information", {32, 32}},
    {"icon_question", {32, 32}},
    {"icon_warning", {32, 32}},
};

const QStringList States = {QStringLiteral("_hover"), QStringLiteral("_click"), QStringLiteral("_disable")};

// A factor of the screen and the pixels that it has for each pixel.
struct Screen
{
    const char *name;
    double scale;
    int ratio;
};

constexpr Screen Screens[] = {
    {"scale 1", 1.0, 1},
    {"scale 1.25", 1.25, 1},
    {"scale 1.5", 1.5, 1},
    {"ratio 2", 1.0, 2},
};

QDir themeFolder()
{
    return QDir(QStringLiteral(VELA_THEME_DIR));
}

QImage readImage(const QString &name)
{
    return QImage(themeFolder().filePath(QStringLiteral("images/%1.png").arg(name)))
        .convertToFormat(QImage::Format_ARGB32);
}

QImage shadowPiece(const char *name)
{
    return readImage(QStringLiteral("bg_tutorial_") + QLatin1String(name));
}

// Whether a name stands in the catalogue for one state of another.
bool isStateOfAnother(const QString &name, const QStringList &names)
{
    return std::any_of(States.cbegin(), States.cend(), [&name, &names](const QString &state) {
        return name.endsWith(state) && names.contains(name.left(name.size() - state.size()));
    });
}

// The opacity of a shadow's edge from the body outwards.
QVector<int> fallOff(const QImage &edge, const QPoint &from, const QPoint &step)
{
    QVector<int> alphas;
    for (QPoint point = from; edge.rect().contains(point); point += step) {
        alphas.append(qAlpha(edge.pixel(point)));
    }
    return alphas;
}

// A piece at the size at which a screen has it.
QPixmap onScreen(const QImage &piece, const Screen &screen)
{
    QPixmap pixmap = QPixmap::fromImage(piece);
    const QSize size = pixmap.size() / double(FileScale) * screen.scale * double(screen.ratio);
    pixmap = pixmap.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    pixmap.setDevicePixelRatio(screen.ratio);
    return pixmap;
}

} // namespace

class TestThemeImages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyRequestedImageIsListed_data();
    void everyRequestedImageIsListed();
    void requestedImagesHaveTheirSize_data();
    void requestedImagesHaveTheirSize();
    void listedImagesAreThere();
    void buttonImagesHaveAllStates();
    void namesAreSortedAndWithoutBlanks();
    void sizesAreMultiplesOfFour();
    void drawingsAreClearAtTheirCorners();
    void everyFileIsUsed();
    void indicatorsShowTheFocus();
    void edgesAreEvenAlongTheirLength();
    void shadowFallsOffFromTheBody_data();
    void shadowFallsOffFromTheBody();
    void cornersMeetTheEdges();
    void cornersAreRound();
    void shadowIsBlackAndSoft();
    void shadowHasNoSeam_data();
    void shadowHasNoSeam();

private:
    QStringList m_images;
    QStringList m_tempImages;
    QStringList m_files; // base names of all PNG files
};

void TestThemeImages::initTestCase()
{
    QFile file(themeFolder().filePath(QStringLiteral("images.json")));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QJsonParseError error;
    const QJsonObject catalogue = QJsonDocument::fromJson(file.readAll(), &error).object();
    QCOMPARE(error.error, QJsonParseError::NoError);
    for (const QJsonValue &name : catalogue.value(QLatin1String("images")).toArray()) {
        m_images.append(name.toString());
    }
    for (const QJsonValue &name : catalogue.value(QLatin1String("tmp_images")).toArray()) {
        m_tempImages.append(name.toString());
    }
    const QDir images(themeFolder().filePath(QStringLiteral("images")));
    for (const QFileInfo &image : images.entryInfoList({QStringLiteral("*.png")}, QDir::Files)) {
        m_files.append(image.completeBaseName());
    }
    QVERIFY(!m_files.isEmpty());
}

void TestThemeImages::everyRequestedImageIsListed_data()
{
    QTest::addColumn<QString>("name");
    for (const Drawing &drawing : Requested) {
        QTest::newRow(drawing.name) << QString::fromLatin1(drawing.name);
    }
}

void TestThemeImages::everyRequestedImageIsListed()
{
    QFETCH(QString, name);
    QCOMPARE(m_images.count(name), 1);
}

void TestThemeImages::requestedImagesHaveTheirSize_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QSize>("size");
    for (const Drawing &drawing : Requested) {
        QTest::newRow(drawing.name) << QString::fromLatin1(drawing.name) << drawing.size;
    }
}

void TestThemeImages::requestedImagesHaveTheirSize()
{
    QFETCH(QString, name);
    QFETCH(QSize, size);
    QCOMPARE(readImage(name).size(), size * FileScale);
}

void TestThemeImages::listedImagesAreThere()
{
    for (const QString &name : m_images + m_tempImages) {
        QVERIFY2(!readImage(name).isNull(), qPrintable(name));
    }
}

void TestThemeImages::buttonImagesHaveAllStates()
{
    int count = 0;
    for (const QString &name : qAsConst(m_images)) {
        if (!name.startsWith(QLatin1String("bt_")) || isStateOfAnother(name, m_images)) {
            continue;
        }
        ++count;
        QVector<QImage> variants = {readImage(name)};
        for (const QString &state : States) {
            const QImage variant = readImage(name + state);
            QVERIFY2(variant.size() == variants.first().size(), qPrintable(name + state));
            QVERIFY2(!variants.contains(variant), qPrintable(name + state));
            variants.append(variant);
        }
    }
    QVERIFY(count > 0);
}

void TestThemeImages::namesAreSortedAndWithoutBlanks()
{
    for (const QStringList &names : {m_images, m_tempImages}) {
        QStringList sorted = names;
        sorted.sort();
        sorted.removeDuplicates();
        QCOMPARE(names, sorted);
        QVERIFY(!names.join(QString()).contains(QLatin1Char(' ')));
    }
}

void TestThemeImages::sizesAreMultiplesOfFour()
{
    for (const QString &name : qAsConst(m_files)) {
        const QSize size = readImage(name).size();
        QVERIFY2(size.width() % FileScale == 0 && size.height() % FileScale == 0, qPrintable(name));
    }
}

void TestThemeImages::drawingsAreClearAtTheirCorners()
{
    for (const QString &name : qAsConst(m_files)) {
        if (name.startsWith(QLatin1String("bg_tutorial_"))) {
            continue;
        }
        const QImage image = readImage(name);
        const QRect area = image.rect();
        for (const QPoint &corner : {area.topLeft(), area.topRight(), area.bottomLeft(), area.bottomRight()}) {
            QVERIFY2(qAlpha(image.pixel(corner)) == 0, qPrintable(name));
        }
        const QSet<QRgb> colors = colorsIn(image);
        QVERIFY2(std::any_of(colors.cbegin(), colors.cend(), [](QRgb color) { return qAlpha(color) == 255; }),
                 qPrintable(name));
    }
}

void TestThemeImages::everyFileIsUsed()
{
    QString sheets;
    const QDir styles(themeFolder().filePath(QStringLiteral("styles")));
    for (const QFileInfo &sheet : styles.entryInfoList({QStringLiteral("*.qss")}, QDir::Files)) {
        QFile file(sheet.filePath());
        QVERIFY(file.open(QIODevice::ReadOnly));
        sheets += QString::fromUtf8(file.readAll());
    }
    for (const QString &name : qAsConst(m_files)) {
        const bool isListed =
            m_images.contains(name) || m_tempImages.contains(name) || isStateOfAnother(name, m_images);
        QVERIFY2(isListed || sheets.contains(QStringLiteral("IMG_LOC/%1.png").arg(name)), qPrintable(name));
    }
}

void TestThemeImages::indicatorsShowTheFocus()
{
    constexpr double VisibleContrast = 3.0;
    const QPoint onTheRing(11 * FileScale, 1 * FileScale);
    for (const char *name : {"check_mixed", "check_off", "check_on", "radio_off", "radio_on"}) {
        const QString drawing = QString::fromLatin1(name);
        QCOMPARE(qAlpha(readImage(drawing).pixel(onTheRing)), 0);
        const QColor ring = readImage(drawing + QStringLiteral("_focus")).pixelColor(onTheRing);
        QCOMPARE(ring.alpha(), 255);
        for (const char *page : {"#FFFFFF", "#F5F7FA"}) {
            QVERIFY2(contrast(ring, QString::fromLatin1(page)) >= VisibleContrast, name);
        }
    }
}

void TestThemeImages::edgesAreEvenAlongTheirLength()
{
    for (const char *name : {"l", "r"}) {
        const QImage edge = shadowPiece(name);
        for (int y = 1; y < edge.height(); ++y) {
            QCOMPARE(edge.copy(0, y, edge.width(), 1), edge.copy(0, 0, edge.width(), 1));
        }
    }
    for (const char *name : {"t", "b"}) {
        const QImage edge = shadowPiece(name);
        for (int x = 1; x < edge.width(); ++x) {
            QCOMPARE(edge.copy(x, 0, 1, edge.height()), edge.copy(0, 0, 1, edge.height()));
        }
    }
}

void TestThemeImages::shadowFallsOffFromTheBody_data()
{
    QTest::addColumn<QString>("piece");
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("step");
    constexpr int Last = ShadowFile - 1;
    QTest::newRow("left") << "l" << QPoint(Last, 0) << QPoint(-1, 0);
    QTest::newRow("right") << "r" << QPoint(0, 0) << QPoint(1, 0);
    QTest::newRow("top") << "t" << QPoint(0, Last) << QPoint(0, -1);
    QTest::newRow("bottom") << "b" << QPoint(0, 0) << QPoint(0, 1);
    QTest::newRow("left top") << "lt" << QPoint(Last, Last) << QPoint(-1, -1);
    QTest::newRow("right top") << "rt" << QPoint(0, Last) << QPoint(1, -1);
    QTest::newRow("left bottom") << "lb" << QPoint(Last, 0) << QPoint(-1, 1);
    QTest::newRow("right bottom") << "rb" << QPoint(0, 0) << QPoint(1, 1);
}

void TestThemeImages::shadowFallsOffFromTheBody()
{
    QFETCH(QString, piece);
    QFETCH(QPoint, from);
    QFETCH(QPoint, step);
    const QVector<int> alphas = fallOff(shadowPiece(qPrintable(piece)), from, step);
    QCOMPARE(alphas.size(), ShadowFile);
    QVERIFY(std::is_sorted(alphas.crbegin(), alphas.crend()));
    QVERIFY(alphas.first() > 0);
    QCOMPARE(alphas.last(), 0);
    for (int i = 1; i < alphas.size(); ++i) {
        QVERIFY(alphas.at(i - 1) - alphas.at(i) <= 2);
    }
}

void TestThemeImages::cornersMeetTheEdges()
{
    constexpr int Last = ShadowFile - 1;
    const QPoint right(1, 0);
    const QPoint down(0, 1);
    struct Meeting
    {
        const char *corner;
        QPoint cornerFrom;
        const char *edge;
        QPoint edgeFrom;
        QPoint along;
    };
    const Meeting meetings[] = {
        {"lt", {Last, 0}, "t", {0, 0}, down}, {"lt", {0, Last}, "l", {0, 0}, right},
        {"rt", {0, 0}, "t", {Last, 0}, down}, {"rt", {0, Last}, "r", {0, 0}, right},
        {"lb", {Last, 0}, "b", {0, 0}, down}, {"lb", {0, 0}, "l", {0, Last}, right},
        {"rb", {0, 0}, "b", {Last, 0}, down}, {"rb", {0, 0}, "r", {0, Last}, right},
    };
    for (const Meeting &meeting : meetings) {
        const QVector<int> ofCorner = fallOff(shadowPiece(meeting.corner), meeting.cornerFrom, meeting.along);
        const QVector<int> ofEdge = fallOff(shadowPiece(meeting.edge), meeting.edgeFrom, meeting.along);
        QCOMPARE(ofCorner.size(), ofEdge.size());
        for (int i = 0; i < ofCorner.size(); ++i) {
            QVERIFY2(qAbs(ofCorner.at(i) - ofEdge.at(i)) <= 1, meeting.corner);
        }
    }
}

void TestThemeImages::cornersAreRound()
{
    const QImage corner = shadowPiece("lt");
    QCOMPARE(corner, corner.transformed(QTransform(0, 1, 1, 0, 0, 0)));
    QCOMPARE(shadowPiece("rt"), corner.mirrored(true, false));
    QCOMPARE(shadowPiece("lb"), corner.mirrored(false, true));
    QCOMPARE(shadowPiece("rb"), corner.mirrored(true, true));
    QCOMPARE(shadowPiece("r"), shadowPiece("l").mirrored(true, false));
    QCOMPARE(shadowPiece("b"), shadowPiece("t").mirrored(false, true));
}

void TestThemeImages::shadowIsBlackAndSoft()
{
    for (const char *name : {"l", "r", "t", "b", "lt", "rt", "lb", "rb"}) {
        for (const QRgb color : colorsIn(shadowPiece(name))) {
            QCOMPARE(color & RGB_MASK, QRgb(0));
            QVERIFY(qAlpha(color) <= 48);
        }
    }
}

void TestThemeImages::shadowHasNoSeam_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < int(std::size(Screens)); ++i) {
        QTest::newRow(Screens[i].name) << i;
    }
}

// The left and the top of a sheet as it is painted: stretched corner, edges stretched without smoothing.
void TestThemeImages::shadowHasNoSeam()
{
    QFETCH(int, index);
    const Screen &screen = Screens[index];
    const int width = int(ShadowWidth * screen.scale);
    constexpr int Length = 40;
    const int extent = width + Length;

    QImage painted(QSize(extent, extent) * screen.ratio, QImage::Format_ARGB32_Premultiplied);
    painted.setDevicePixelRatio(screen.ratio);
    painted.fill(Qt::white);
    {
        QPainter painter(&painted);
        painter.drawPixmap(QRect(0, 0, width, width), onScreen(shadowPiece("lt"), screen));
        const QSize left(width, Length);
        painter.drawPixmap(
            QRect(QPoint(0, width), left),
            onScreen(shadowPiece("l"), screen).scaled(left, Qt::IgnoreAspectRatio, Qt::FastTransformation));
        const QSize top(Length, width);
        painter.drawPixmap(
            QRect(QPoint(width, 0), top),
            onScreen(shadowPiece("t"), screen).scaled(top, Qt::IgnoreAspectRatio, Qt::FastTransformation));
    }
    const int seam = width * screen.ratio;
    for (int i = 0; i < seam; ++i) {
        QVERIFY(qAbs(qGray(painted.pixel(i, seam - 1)) - qGray(painted.pixel(i, seam))) <= 2);
        QVERIFY(qAbs(qGray(painted.pixel(seam - 1, i)) - qGray(painted.pixel(seam, i))) <= 2);
    }
}

QTEST_MAIN(TestThemeImages)
#include "tst_theme_images.moc"
