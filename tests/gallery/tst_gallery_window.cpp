// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "command-line.h"
#include "gallery-page.h"
#include "gallery-window.h"
#include "log-view.h"
#include "pages.h"
#include "support/log-capture.h"
#include "support/resource-folder.h"
#include "utils/unnamed-controls.h"
#include "warning-log.h"

#include <QAbstractButton>
#include <QPlainTextEdit>
#include <QScopedPointer>
#include <QtTest>

namespace {

// Of a start with arguments behind the program's name.
QString instanceId(const QStringList &arguments)
{
    CommandLine commandLine;
    commandLine.parse(QStringList(QStringLiteral("vela-gallery")) + arguments);
    return commandLine.instanceId();
}

} // namespace

class GalleryWindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void everyPageOpens_data();
    void everyPageOpens();
    void nothingOnAPageIsWithoutAName_data() { everyPageOpens_data(); }
    void nothingOnAPageIsWithoutAName();
    void aPageIsMadeOnce();
    void aPageThatThereIsNotChangesNothing();
    void signalsAreListedWithTheirArguments();
    void framesAroundWidgetsHaveNoStyleSheet();
    void warningsOfTheLibraryAreListed();
    void theListOfSignalsCanBeCleared();
    void eachThemeFolderHasAnInstance();
    void eachDisplayHasAnInstance();

private:
    QAbstractButton *button(const QString &text) const;
    QStringList loggedLines() const;

    QScopedPointer<GalleryWindow> m_window;
};

void GalleryWindowTest::initTestCase()
{
    installReferenceTheme();
}

void GalleryWindowTest::init()
{
    m_window.reset(new GalleryWindow(QStringLiteral("enu")));
    m_window->showPage(QStringLiteral("buttons"));
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.data()));
}

void GalleryWindowTest::cleanup()
{
    m_window.reset();
}

// The button of that text that takes clicks, which is not one of those that only show a state.
QAbstractButton *GalleryWindowTest::button(const QString &text) const
{
    const QList<QAbstractButton *> buttons = m_window->findChildren<QAbstractButton *>();
    const auto found = std::find_if(buttons.begin(), buttons.end(), [&](const QAbstractButton *candidate) {
        return candidate->text() == text && !candidate->testAttribute(Qt::WA_TransparentForMouseEvents);
    });
    return found == buttons.end() ? nullptr : *found;
}

// The lines of the log without their times.
QStringList GalleryWindowTest::loggedLines() const
{
    QStringList lines = m_window->findChild<QPlainTextEdit *>()->toPlainText().split(u'\n', Qt::SkipEmptyParts);
    for (QString &line : lines) {
        line = line.mid(8).trimmed();
    }
    return lines;
}

void GalleryWindowTest::everyPageOpens_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("title");
    for (const PageEntry &page : galleryPages()) {
        QTest::newRow(qPrintable(page.name)) << page.name << page.title;
    }
}

void GalleryWindowTest::everyPageOpens()
{
    QFETCH(QString, name);
    QFETCH(QString, title);
    LogCapture log;
    m_window->showPage(name);
    QCOMPARE(m_window->currentPage()->accessibleName(), title);
    QVERIFY(m_window->currentPage()->isVisible());
    QCOMPARE(m_window->windowTitle(), QString(title + QStringLiteral(" \u2013 Vela Gallery")));
    QCOMPARE(log.takeTexts(), QStringList());
}

// For those who hear the page.
void GalleryWindowTest::nothingOnAPageIsWithoutAName()
{
    QFETCH(QString, name);
    m_window->showPage(name);
    m_window->show();
    QCOMPARE(unnamedControls(m_window.data()).join(QLatin1Char('\n')), QString());
}

void GalleryWindowTest::aPageIsMadeOnce()
{
    GalleryPage *page = m_window->currentPage();
    m_window->showPage(QStringLiteral("buttons"));
    QCOMPARE(m_window->currentPage(), page);
}

void GalleryWindowTest::aPageThatThereIsNotChangesNothing()
{
    GalleryPage *page = m_window->currentPage();
    for (const char *name : {"", "no-such-page", "Buttons"}) {
        m_window->showPage(QString::fromLatin1(name));
        QCOMPARE(m_window->currentPage(), page);
    }
}

void GalleryWindowTest::signalsAreListedWithTheirArguments()
{
    QTest::mouseClick(button(QStringLiteral("Apply")), Qt::LeftButton);
    QCOMPARE(loggedLines(),
             QStringList({QStringLiteral("Apply: pressed()"), QStringLiteral("Apply: released()"),
                          QStringLiteral("Apply: clicked(false)")}));
}

void GalleryWindowTest::framesAroundWidgetsHaveNoStyleSheet()
{
    const QWidget *widget = button(QStringLiteral("Apply"));
    QVERIFY(!widget->styleSheet().isEmpty());
    while ((widget = widget->parentWidget())) {
        QCOMPARE(widget->styleSheet(), QString());
    }
}

void GalleryWindowTest::warningsOfTheLibraryAreListed()
{
    LogCapture outer;
    {
        const WarningLog warnings;
        connect(&warnings, &WarningLog::warned, m_window->log(), &LogView::addWarning);
        button(QStringLiteral("Unknown image"))->click();
        QTRY_VERIFY(loggedLines().contains(QStringLiteral("Warning: Cannot load pixmap \"no_such_image\"")));
        qWarning("of another category");
    }
    QCoreApplication::processEvents();
    QVERIFY(!loggedLines().contains(QStringLiteral("Warning: of another category")));
    const QStringList passedOn = outer.takeTexts();
    QVERIFY(passedOn.contains(QStringLiteral("Cannot load pixmap \"no_such_image\"")));
    QVERIFY(passedOn.contains(QStringLiteral("default: of another category")));
}

void GalleryWindowTest::theListOfSignalsCanBeCleared()
{
    button(QStringLiteral("Apply"))->click();
    QVERIFY(!loggedLines().isEmpty());
    button(QStringLiteral("Clear"))->click();
    QCOMPARE(loggedLines(), QStringList());
}

void GalleryWindowTest::eachThemeFolderHasAnInstance()
{
    const auto idOf = [](const QString &folder) { return instanceId({QStringLiteral("--resources"), folder}); };
    const QString none = instanceId({});
    QCOMPARE(instanceId({QStringLiteral("--page"), pageNames().constLast()}), none);
    QVERIFY(idOf(QStringLiteral("/")) != none);
    QCOMPARE(idOf(QStringLiteral("/.")), idOf(QStringLiteral("/")));
    // A folder that is missing is no default either.
    QVERIFY(idOf(QStringLiteral("/missing/one")) != none);
    QVERIFY(idOf(QStringLiteral("/missing/one")) != idOf(QStringLiteral("/missing/other")));
    QCOMPARE(idOf(QStringLiteral("/missing/other/../one/")), idOf(QStringLiteral("/missing/one")));
}

void GalleryWindowTest::eachDisplayHasAnInstance()
{
    const auto idOn = [](const QString &option, const QString &display) { return instanceId({option, display}); };
    const QString option = QStringLiteral("-display");
    const QString display = QStringLiteral(":77");
    const QString own = instanceId({});
    QVERIFY(idOn(option, display) != own);
    QVERIFY(idOn(option, display) != idOn(option, QStringLiteral(":78")));
    QCOMPARE(idOn(QStringLiteral("-") + option, display), idOn(option, display));
    QCOMPARE(instanceId({option}), own); // without the value

    const QByteArray outer = qgetenv("DISPLAY");
    const bool hasDisplay = qEnvironmentVariableIsSet("DISPLAY");
    qputenv("DISPLAY", display.toLatin1());
    const QString onDisplay = instanceId({});
    hasDisplay ? qputenv("DISPLAY", outer) : qunsetenv("DISPLAY");
    QCOMPARE(onDisplay, idOn(option, display));
}

QTEST_MAIN(GalleryWindowTest)

#include "tst_gallery_window.moc"
