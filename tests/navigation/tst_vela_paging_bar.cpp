// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "image-manager/image-manager.h"
#include "navigation/paging-test.h"
#include "support/log-capture.h"

#include <QSignalMapper>

#include <climits>
#include <memory>

class VelaPagingBarTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void withoutItsModelTheBarKeepsWhatItShows();
    void theBarTellsItsModel();
    void theBarResetsItsModel();
    void theBarDoesNotOwnItsModel();
    void beforeAnyPageIsSetAllButtonsAreEnabledAndOnlyTheMiddleOneHasANumber();
    void everythingStandsInOrderFromLeftToRight();
    void sizesAndGapsAreScaled();
    void everyPartIsAligned();
    void theFooterLiesInItsMargins();
    void aPageButtonGrowsWithItsNumber();
    void theMiddleButtonIsTheSelectedOne();
    void navigationButtonsHaveToolTipsAndImages();
    void theRefreshButtonAsksForItsImagesByTheirNames();
    void theRefreshButtonHasItsOwnImagesAndAnAccessibleName();
    void theBorderIsStyledByItsName();

    void theCurrentPageIsInTheMiddleAndTheOthersAroundIt();
    void theRowStaysWhereItIsFromPageToPage();
    void zeroItemsLeaveOnlyTheMiddleButtonEnabled();
    void theLastPageDisablesForwardAndLast();
    void aPageBeyondTheLastIsBlankButKept();
    void jumpsAtTheEndsOfIntegersDoNotOverflow();
    void setPageAndSetItemCountEmitNothing();
    void setItemCountKeepsThePageBeyondTheLast();
    void setItemCountShowsTheModelsPage();
    void resetEmitsEvenOnPageOne();
    void navigationSlotsClampAndEmitOnce_data();
    void navigationSlotsClampAndEmitOnce();
    void jumpsStartFromTheModelsPage();
    void clicksOnTheNavigationButtonsReachTheirSlots();
    void aClickOnANumberTurnsToItsPage();
    void pageClickOfABlankOrUnknownButtonTurnsToPageZero();
    void pageClickTurnsToTheNumberEvenBeyondTheLastPage();
    void theNewPageIsInTheModelWhenItIsTold();
    void aClickOnRefreshEmitsAndLeavesThePage();

    void twoThousandMillionItems();

private:
    ResourceFolder m_folder;
    QStringList m_loggedWithoutImages;
};

void VelaPagingBarTest::initTestCase()
{
    LogCapture log;
    VelaPagingModel model(50);
    VelaPagingBar bar(&model);
    m_loggedWithoutImages = log.takeTexts().filter(QStringLiteral("pixmap"));
    installBar(m_folder);
}

void VelaPagingBarTest::theBarTellsItsModel()
{
    VelaPagingModel model(10);
    const VelaPagingBar bar(&model);
    QCOMPARE(bar.model(), &model);
}

void VelaPagingBarTest::theBarResetsItsModel()
{
    VelaPagingModel model(50);
    model.setItemCount(230);
    model.setNowPage(4);
    const VelaPagingBar bar(&model);
    QCOMPARE(model.nowPage(), 1);
    QCOMPARE(model.itemCount(), 0);
    QCOMPARE(model.rowLimit(), 50);
}

void VelaPagingBarTest::theBarDoesNotOwnItsModel()
{
    VelaPagingModel model(50);
    QPointer<VelaPagingModel> watched(&model);
    delete new VelaPagingBar(&model);
    QVERIFY(watched);
    QVERIFY(!model.parent());
}

void VelaPagingBarTest::beforeAnyPageIsSetAllButtonsAreEnabledAndOnlyTheMiddleOneHasANumber()
{
    LogCapture log;
    Shown<BarWindow> window;
    QCOMPARE(window.numbers(), QStringLiteral("||1||"));
    QCOMPARE(window.enabled(), QStringLiteral("PPPPPNNNN"));
    QVERIFY(window.refreshButton()->isVisible());
    QVERIFY(window.labels().isEmpty());
    QCOMPARE(window.bar->findChildren<QSignalMapper *>(QString(), Qt::FindDirectChildrenOnly).size(), 1);
    QCOMPARE(log.takeTexts(), QStringList());
}

void VelaPagingBarTest::everythingStandsInOrderFromLeftToRight()
{
    BarWindow window;
    window.bar->setFooterInfos({{QStringLiteral("first"), 80}, {QStringLiteral("second"), 80}});
    QVERIFY(window.showAndWait());
    QList<QWidget *> expected {window.iconButtons().at(0), window.iconButtons().at(1)};
    for (VelaButton *button : window.pageButtons()) {
        expected.append(button);
    }
    expected += {window.iconButtons().at(2), window.iconButtons().at(3), window.labels().at(1), window.labels().at(0),
                 window.iconButtons().at(4)};
    for (int i = 1; i < expected.size(); ++i) {
        QVERIFY2(rightOf(expected.at(i - 1), window.bar) <= leftOf(expected.at(i), window.bar),
                 qPrintable(QString::number(i)));
    }
    QCOMPARE(window.iconButtons().at(0)->toolTip(), QStringLiteral("To the first"));
    QCOMPARE(window.labels().at(0)->text(), QStringLiteral("first"));
}

void VelaPagingBarTest::sizesAndGapsAreScaled()
{
    BarWindow window(50, 230);
    window.bar->setFooterText(QStringLiteral("range"));
    QVERIFY(window.showAndWait());
    const VelaPagingBar *bar = window.bar;
    const auto *border = bar->findChild<QWidget *>(QStringLiteral("PAGINGBARBORDER"));
    QCOMPARE(border->height(), expectedPixels(29));
    QCOMPARE(border->minimumHeight(), expectedPixels(29));
    QCOMPARE(border->maximumHeight(), expectedPixels(29));
    QCOMPARE(border->width(), bar->width());
    QCOMPARE(leftOf(window.navigation(First), bar), expectedPixels(50));
    QCOMPARE(leftOf(window.navigation(BackFive), bar), rightOf(window.navigation(First), bar));
    QCOMPARE(leftOf(window.navigation(Last), bar), rightOf(window.navigation(ForwardFive), bar));
    QCOMPARE(leftOf(window.labels().at(0), bar), rightOf(window.navigation(Last), bar) + expectedPixels(50));
    QCOMPARE(leftOf(window.refreshButton(), bar), rightOf(window.labels().at(0), bar));
    QCOMPARE(rightOf(window.refreshButton(), bar), bar->width());
    QCOMPARE(window.refreshButton()->size(), QSize(expectedPixels(24), expectedPixels(24)));

    const QList<VelaButton *> pages = window.pageButtons();
    QCOMPARE(pages.size(), 5);
    for (const VelaButton *page : pages) {
        QCOMPARE(page->minimumHeight(), expectedPixels(27));
        QCOMPARE(page->maximumHeight(), expectedPixels(27));
        QCOMPARE(page->minimumWidth(), expectedPixels(28));
        QCOMPARE(page->size(), QSize(expectedPixels(28), expectedPixels(27)));
    }
    for (int i = 1; i < pages.size(); ++i) {
        QCOMPARE(leftOf(pages.at(i), bar) - rightOf(pages.at(i - 1), bar), expectedPixels(4));
    }
    const int gapAtLeft = leftOf(pages.first(), bar) - rightOf(window.navigation(BackFive), bar);
    const int gapAtRight = leftOf(window.navigation(ForwardFive), bar) - rightOf(pages.last(), bar);
    QVERIFY(gapAtLeft > 0);
    QVERIFY(qAbs(gapAtLeft - gapAtRight) <= 1);
}

void VelaPagingBarTest::everyPartIsAligned()
{
    BarWindow window(50, 230);
    window.bar->setFooterText(QStringLiteral("range"));
    QVERIFY(window.showAndWait());
    const Qt::Alignment expected[] = {Qt::AlignLeft, Qt::AlignLeft, Qt::AlignRight, Qt::AlignRight};
    for (Navigation which : {First, BackFive, ForwardFive, Last}) {
        QCOMPARE(window.alignmentOf(window.navigation(which)), expected[which]);
    }
    for (VelaButton *button : window.pageButtons()) {
        QCOMPARE(window.alignmentOf(button), Qt::Alignment(Qt::AlignHCenter));
    }
    QCOMPARE(window.alignmentOf(window.refreshButton()), Qt::Alignment(Qt::AlignCenter));
    QCOMPARE(window.alignmentOf(window.labels().constFirst()), Qt::Alignment());
}

void VelaPagingBarTest::theFooterLiesInItsMargins()
{
    Shown<BarWindow> window;
    const QHBoxLayout *footer = window.rowOf(window.refreshButton());
    QCOMPARE(footer->direction(), QBoxLayout::RightToLeft);
    QCOMPARE(footer->alignment(), Qt::AlignRight | Qt::AlignVCenter);
    QCOMPARE(footer->contentsMargins(), QMargins(0, expectedPixels(2), 0, 0));
    QCOMPARE(window.refreshButton()->y(), (expectedPixels(29) + expectedPixels(2) - expectedPixels(24)) / 2);
}

void VelaPagingBarTest::aPageButtonGrowsWithItsNumber()
{
    BarWindow window(1, 2000000000);
    window.bar->setPage(1234567890);
    QVERIFY(window.showAndWait());
    const VelaButton *middle = window.pageButtons().at(2);
    QVERIFY(middle->width() >= middle->fontMetrics().horizontalAdvance(QStringLiteral("1234567890")));
}

void VelaPagingBarTest::theMiddleButtonIsTheSelectedOne()
{
    Shown<BarWindow> window(50, 230);
    const QList<VelaButton *> pages = window.pageButtons();
    for (int i = 0; i < pages.size(); ++i) {
        QCOMPARE(paintedColor(pages.at(i), QPoint(2, 2)), i == 2 ? QColor(0, 0, 0xff) : QColor(0x80, 0x80, 0x80));
    }
}

void VelaPagingBarTest::navigationButtonsHaveToolTipsAndImages()
{
    Shown<BarWindow> window;
    const QStringList toolTips {QStringLiteral("To the first"), QStringLiteral("Five back"), QStringLiteral("Five on"),
                                QStringLiteral("To the last")};
    for (int i = 0; i < toolTips.size(); ++i) {
        QCOMPARE(window.iconButtons().at(i)->toolTip(), toolTips.at(i));
        const int fileSize = 48 + 8 * i;
        QCOMPARE(window.iconButtons().at(i)->iconSize(),
                 expectedImageSize(QSize(fileSize, fileSize)) / expectedRatio());
    }
}

// Where there is an image, the state of "bt_pagebar_refresh" and the name of its own lead to the same file.
void VelaPagingBarTest::theRefreshButtonAsksForItsImagesByTheirNames()
{
    for (const char *state : {"hover", "disable"}) {
        const QString warning =
            QStringLiteral("Cannot load pixmap \"bt_pagebar_refresh_%1\"").arg(QLatin1String(state));
        QCOMPARE(m_loggedWithoutImages.count(warning), 1);
    }
}

void VelaPagingBarTest::theRefreshButtonHasItsOwnImagesAndAnAccessibleName()
{
    Shown<BarWindow> window;
    VelaIconButton *button = window.refreshButton();
    QCOMPARE(button->accessibleName(), QStringLiteral("Load anew"));
    QCOMPARE(button->toolTip(), QString());
    QTest::mouseMove(window.windowHandle(), QPoint(1, 1));
    QTest::mouseMove(window.windowHandle(), QPoint(2, 2));
    QCOMPARE(paintedColor(button), QColor(Qt::cyan));
    QTest::mouseMove(window.windowHandle(), button->mapTo(&window, button->rect().center()));
    QCOMPARE(paintedColor(button), QColor(Qt::yellow));
    QTest::mouseMove(window.windowHandle(), QPoint(2, 2));
    const QImage shown = getGlobalImage("bt_pagebar_refresh_disable", ImageManager::IMAGE_NORMAL).toImage();
    button->setEnabled(false);
    QCOMPARE(button->icon().pixmap(shown.size()).toImage().pixelColor(5, 5), shown.pixelColor(5, 5));
}

void VelaPagingBarTest::theBorderIsStyledByItsName()
{
    BarWindow window;
    const auto *border = window.bar->findChild<QWidget *>(QStringLiteral("PAGINGBARBORDER"));
    QVERIFY(border);
    QCOMPARE(border->metaObject()->className(), "QWidget");
    QCOMPARE(border->styleSheet(), getStyleSheet("component.paging_bar_border", false));
    QVERIFY(window.showAndWait());
    QCOMPARE(paintedColor(window.bar, QPoint(2, 2)), QColor(0x12, 0x34, 0x56));
}

void VelaPagingBarTest::theCurrentPageIsInTheMiddleAndTheOthersAroundIt()
{
    Shown<BarWindow> window;
    for (int items : {0, 1, 50, 51, 230, 500, 501, 2000000000, INT_MAX}) {
        for (int limit : {1, 7, 50, INT_MAX}) {
            window.model.setRowLimit(limit);
            window.bar->setItemCount(items);
            const int pages = window.model.pageCount();
            const int last = qMin(pages, INT_MAX - 3);
            for (int page : {INT_MIN, -7, -1,       0,        1,        2,    3,        4,        5,     9,      10,
                             11,      12, last - 3, last - 2, last - 1, last, last + 1, last + 2, pages, INT_MAX}) {
                QStringList numbers;
                QString enabled;
                for (qint64 number = qint64(page) - 2; number <= qint64(page) + 2; ++number) {
                    const bool exists = number >= 1 && number <= pages;
                    numbers.append(exists ? QString::number(number) : QStringLiteral(" "));
                    enabled += QLatin1Char(exists ? 'P' : '-');
                }
                enabled += QLatin1String(page == 1 ? "--" : "NN");
                enabled += QLatin1String(page < pages ? "NN" : "--");

                window.bar->setPage(page);
                QCOMPARE(window.numbers(), numbers.join(QLatin1Char('|')));
                QCOMPARE(window.enabled(), enabled);
                QCOMPARE(window.model.nowPage(), page);
                QCOMPARE(window.model.itemCount(), items);
            }
        }
    }
    QVERIFY(window.pageChanged.isEmpty());
}

void VelaPagingBarTest::theRowStaysWhereItIsFromPageToPage()
{
    Shown<BarWindow> window(50, 450);
    const auto places = [&window] {
        QCoreApplication::processEvents();
        QVector<QRect> rectangles;
        for (const VelaButton *button : window.pageButtons()) {
            rectangles.append(button->geometry());
        }
        return rectangles;
    };
    const QVector<QRect> atFirst = places();
    for (int page = 1; page <= 12; ++page) {
        window.bar->setPage(page);
        QCOMPARE(places(), atFirst);
    }
}

void VelaPagingBarTest::zeroItemsLeaveOnlyTheMiddleButtonEnabled()
{
    Shown<BarWindow> window(50, 0);
    QCOMPARE(window.model.pageCount(), 1);
    QCOMPARE(window.numbers(), QStringLiteral(" | |1| | "));
    QCOMPARE(window.enabled(), QStringLiteral("--P------"));
}

void VelaPagingBarTest::theLastPageDisablesForwardAndLast()
{
    Shown<BarWindow> window(50, 230);
    window.bar->setPage(5);
    QCOMPARE(window.numbers(), QStringLiteral("3|4|5| | "));
    QCOMPARE(window.enabled(), QStringLiteral("PPP--NN--"));
}

void VelaPagingBarTest::aPageBeyondTheLastIsBlankButKept()
{
    Shown<BarWindow> window(50, 230);
    window.bar->setPage(9);
    QCOMPARE(window.numbers(), QStringLiteral(" | | | | "));
    QCOMPARE(window.enabled(), QStringLiteral("-----NN--"));
    QCOMPARE(window.model.nowPage(), 9);
    QCOMPARE(window.model.startItem(), 400);
}

void VelaPagingBarTest::jumpsAtTheEndsOfIntegersDoNotOverflow()
{
    BarWindow window(1, INT_MAX);
    window.bar->last_page();
    window.bar->next_5_page();
    QCOMPARE(window.model.nowPage(), INT_MAX);
    window.bar->setPage(INT_MIN);
    window.bar->prev_5_page();
    QCOMPARE(window.model.nowPage(), 1);
}

void VelaPagingBarTest::setPageAndSetItemCountEmitNothing()
{
    BarWindow window(50, 230);
    window.bar->setPage(3);
    window.bar->setItemCount(1000);
    window.bar->setPage(99);
    QVERIFY(window.pageChanged.isEmpty());
    QVERIFY(window.refreshed.isEmpty());
}

void VelaPagingBarTest::setItemCountKeepsThePageBeyondTheLast()
{
    Shown<BarWindow> window(50, 500);
    window.bar->setPage(8);
    window.bar->setItemCount(100);
    QCOMPARE(window.model.nowPage(), 8);
    QCOMPARE(window.model.itemCount(), 100);
    QCOMPARE(window.enabled(), QStringLiteral("-----NN--"));
    QVERIFY(window.pageChanged.isEmpty());
}

void VelaPagingBarTest::setItemCountShowsTheModelsPage()
{
    Shown<BarWindow> window(50, 1000);
    window.model.setNowPage(3); // a change that the bar has not made
    window.bar->setItemCount(500);
    QCOMPARE(window.model.nowPage(), 3);
    QCOMPARE(window.numbers(), QStringLiteral("1|2|3|4|5"));
}

void VelaPagingBarTest::resetEmitsEvenOnPageOne()
{
    Shown<BarWindow> window(50, 230);
    window.bar->reset();
    QCOMPARE(window.pageChanged.count(), 1);
    QCOMPARE(window.model.nowPage(), 1);
    window.bar->setPage(4);
    window.bar->reset();
    QCOMPARE(window.pageChanged.count(), 2);
    QCOMPARE(window.model.nowPage(), 1);
    QCOMPARE(window.numbers(), QStringLiteral(" | |1|2|3"));
    QCOMPARE(window.model.itemCount(), 230);
}

void VelaPagingBarTest::navigationSlotsClampAndEmitOnce_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<int>("pages");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    const struct
    {
        int pages;
        int from;
        int back;
        int on;
    } rows[] = {{5, 3, 1, 5},   {5, 1, 1, 5},     {5, 5, 1, 5},     {5, 9, 4, 5},    {20, 6, 1, 11},
                {20, 7, 2, 12}, {20, 15, 10, 20}, {20, 16, 11, 20}, {20, -8, 1, -3}, {1, 1, 1, 1}};
    for (const auto &row : rows) {
        QTest::addRow("back from %d of %d", row.from, row.pages)
            << QByteArray("prev_5_page") << row.pages << row.from << row.back;
        QTest::addRow("on from %d of %d", row.from, row.pages)
            << QByteArray("next_5_page") << row.pages << row.from << row.on;
        QTest::addRow("first from %d of %d", row.from, row.pages)
            << QByteArray("first_page") << row.pages << row.from << 1;
        QTest::addRow("last from %d of %d", row.from, row.pages)
            << QByteArray("last_page") << row.pages << row.from << row.pages;
    }
}

void VelaPagingBarTest::navigationSlotsClampAndEmitOnce()
{
    QFETCH(QByteArray, slot);
    QFETCH(int, pages);
    QFETCH(int, from);
    QFETCH(int, to);
    BarWindow window(50, pages * 50);
    window.bar->setPage(from);
    QVERIFY(QMetaObject::invokeMethod(window.bar, slot.constData()));
    QCOMPARE(window.model.nowPage(), to);
    QCOMPARE(window.pageChanged.count(), 1);
    QVERIFY(window.refreshed.isEmpty());
}

void VelaPagingBarTest::jumpsStartFromTheModelsPage()
{
    BarWindow window(50, 1000);
    window.model.setNowPage(12); // a change that the bar has not made
    window.bar->next_5_page();
    QCOMPARE(window.model.nowPage(), 17);
    window.model.setNowPage(9);
    window.bar->prev_5_page();
    QCOMPARE(window.model.nowPage(), 4);
}

void VelaPagingBarTest::clicksOnTheNavigationButtonsReachTheirSlots()
{
    Shown<BarWindow> window(50, 1000);
    const struct
    {
        Navigation button;
        int page;
    } steps[] = {{ForwardFive, 6}, {ForwardFive, 11}, {BackFive, 6}, {Last, 20}, {BackFive, 15}, {First, 1}};
    int emitted = 0;
    for (const auto &step : steps) {
        window.click(window.navigation(step.button));
        QCOMPARE(window.model.nowPage(), step.page);
        QCOMPARE(window.pageChanged.count(), ++emitted);
    }
    window.click(window.navigation(First)); // a button that is disabled
    QCOMPARE(window.pageChanged.count(), emitted);
}

void VelaPagingBarTest::aClickOnANumberTurnsToItsPage()
{
    Shown<BarWindow> window(50, 1000);
    for (int button = 0; button < 5; ++button) { // the middle one turns to the page that it is on
        window.bar->setPage(10);
        window.click(window.pageButtons().at(button));
        QCOMPARE(window.model.nowPage(), 8 + button);
        QCOMPARE(window.pageButtons().at(2)->text(), QString::number(8 + button));
        QCOMPARE(window.pageChanged.count(), button + 1);
    }
}

void VelaPagingBarTest::pageClickOfABlankOrUnknownButtonTurnsToPageZero()
{
    for (int index : {0, 1, -1, 5, INT_MAX, INT_MIN}) {
        BarWindow window(50, 230);
        window.bar->pageClick(index);
        QCOMPARE(window.model.nowPage(), 0);
        QCOMPARE(window.pageChanged.count(), 1);
    }
}

void VelaPagingBarTest::pageClickTurnsToTheNumberEvenBeyondTheLastPage()
{
    BarWindow window(50, 1000);
    window.bar->setPage(10);
    window.model.setItemCount(50); // a change that the bar has not made, whose buttons keep their numbers
    window.bar->pageClick(3);
    QCOMPARE(window.model.nowPage(), 11);
}

void VelaPagingBarTest::theNewPageIsInTheModelWhenItIsTold()
{
    BarWindow window(50, 1000);
    QVector<int> told;
    connect(window.bar, &VelaPagingBar::sigPageChanged, this, [&] { told.append(window.model.startItem()); });
    window.bar->next_5_page();
    window.bar->last_page();
    window.bar->pageClick(1);
    window.bar->reset();
    QCOMPARE(told, (QVector<int> {250, 950, 900, 0}));
}

void VelaPagingBarTest::aClickOnRefreshEmitsAndLeavesThePage()
{
    BarWindow window(50, 1000);
    window.bar->setPage(7);
    QVERIFY(window.showAndWait());
    window.click(window.refreshButton());
    QCOMPARE(window.refreshed.count(), 1);
    QCOMPARE(window.model.nowPage(), 7);
    QVERIFY(window.pageChanged.isEmpty());
}

void VelaPagingBarTest::twoThousandMillionItems()
{
    Shown<BarWindow> window(30, 2000000000);
    window.click(window.navigation(Last));
    QCOMPARE(window.model.nowPage(), 66666667);
    QCOMPARE(window.model.startItem(), 1999999980);
    window.click(window.navigation(BackFive));
    QCOMPARE(window.numbers(), QStringLiteral("66666660|66666661|66666662|66666663|66666664"));
    QCOMPARE(window.model.startItem(), 1999999830);
    window.click(window.pageButtons().at(4));
    QCOMPARE(window.model.nowPage(), 66666664);
    QCOMPARE(window.pageChanged.count(), 3);
}

void VelaPagingBarTest::withoutItsModelTheBarKeepsWhatItShows()
{
    auto model = std::make_unique<VelaPagingModel>(10);
    VelaPagingBar bar(model.get());
    bar.setItemCount(1000);
    bar.setPage(7);
    const QSignalSpy pageChanged(&bar, &VelaPagingBar::sigPageChanged);
    model.reset();
    QCOMPARE(bar.model(), nullptr);

    bar.setItemCount(5);
    bar.setPage(1);
    bar.pageClick(1);
    bar.next_5_page();
    bar.prev_5_page();
    bar.first_page();
    bar.last_page();
    bar.reset();
    QCOMPARE(pageChanged.count(), 0);
    QStringList numbers;
    const auto buttons = bar.findChildren<VelaButton *>();
    for (const VelaButton *button : buttons) {
        numbers.append(button->text());
    }
    numbers.sort();
    QCOMPARE(numbers,
             QStringList({QStringLiteral("5"), QStringLiteral("6"), QStringLiteral("7"), QStringLiteral("8"),
                          QStringLiteral("9")}));
}

QTEST_MAIN(VelaPagingBarTest)
#include "tst_vela_paging_bar.moc"
