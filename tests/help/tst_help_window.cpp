// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "help/help-test.h"
#include "style-manager/style-manager.h"
#include "support/environment.h"
#include "support/log-capture.h"

#include <QElapsedTimer>
#include <QHostAddress>
#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QPointer>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTimer>
#include <QVBoxLayout>
#include <QtTest>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace {

const QString Host = QStringLiteral("help.vela.invalid");
constexpr int TimeLimit = 10000; // milliseconds that a request may take
constexpr int MaximalPageSize = 64 * 1024 * 1024; // bytes

} // namespace

Q_DECLARE_METATYPE(HelpContext)

class HelpWindowTest : public HelpTest
{
    Q_OBJECT

private Q_SLOTS:
    void aContextIsEmptyAtFirstAndCopied();
    void itIsAnApplicationModalDialogFilledByItsBrowser();
    void itHasTheScrollBarsSheet();
    void theRequestIsAPlainGetOfTheFixedAddress_data();
    void theRequestIsAPlainGetOfTheFixedAddress();
    void theLanguageIsNormalised_data();
    void theLanguageIsNormalised();
    void reservedCharactersAreEscapedInTheQuery();
    void theRequestStartsBeforeTheDialogIsShown();
    void itsContextIsACopy();
    void anAnswerIsShown();
    void anAnswerOfAnotherStatusIsShownToo_data();
    void anAnswerOfAnotherStatusIsShownToo();
    void anEmptyAnswerLeavesItEmpty();
    void anAnswerInPiecesIsShownWhole();
    void anHttpErrorShowsTheOfflinePage_data();
    void anHttpErrorShowsTheOfflinePage();
    void aRefusedConnectionShowsTheOfflinePage();
    void aMissingProxyShowsTheOfflinePage();
    void anEndlessBodyShowsTheOfflinePage();
    void aBodyThatUnfoldsShowsTheOfflinePage();
    void aLongPageIsShown();
    void aHalfSentBodyShowsTheOfflinePage();
    void aWrongCertificateShowsTheOfflinePage_data();
    void aWrongCertificateShowsTheOfflinePage();
    void aMissingOfflinePageLeavesItEmpty_data();
    void aMissingOfflinePageLeavesItEmpty();
    void nothingIsLogged();
    void thereIsOneRequestOnly();
    void aReplyIsDeletedLater_data();
    void aReplyIsDeletedLater();
    void theTimeOutSlotAbortsTheRequest();
    void theTimeOutAfterTheAnswerChangesNothing();
    void destroyingItCancelsTheRequest();
    void closingItDestroysItWhereThatIsAskedFor();
    void afterTenSecondsTheOfflinePageIsShownForGood();
};

void HelpWindowTest::aContextIsEmptyAtFirstAndCopied()
{
    HelpContext context;
    for (const QString &field : {context.lang, context.helpRoot, context.link, context.section}) {
        QCOMPARE(field, QString());
    }
    context = {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("d")};
    HelpContext copy;
    copy = context;
    QCOMPARE((QStringList {copy.lang, copy.helpRoot, copy.link, copy.section}),
             (QStringList {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("d")}));
}

void HelpWindowTest::itIsAnApplicationModalDialogFilledByItsBrowser()
{
    QWidget parent;
    HelpWindow window(context(root()), &parent);
    QCOMPARE(window.parentWidget(), &parent);
    QCOMPARE(window.windowModality(), Qt::ApplicationModal);
    QCOMPARE(window.windowTitle(), QString());
    QVERIFY(!window.testAttribute(Qt::WA_Resized));
    QDialog plain(&parent);
    const auto *plainColumn = new QVBoxLayout(&plain);
    QCOMPARE(window.windowFlags(), plain.windowFlags());
    const QList<QTextBrowser *> browsers = window.findChildren<QTextBrowser *>();
    QCOMPARE(browsers.size(), 1);
    QCOMPARE(window.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly),
             QList<QWidget *> {browsers.first()});
    auto *column = qobject_cast<QVBoxLayout *>(window.layout());
    QVERIFY(column);
    QCOMPARE(column->count(), 1);
    QCOMPARE(column->itemAt(0)->widget(), browsers.first());
    QCOMPARE(column->contentsMargins(), plainColumn->contentsMargins());
    QCOMPARE(browsers.first()->searchPaths(), QStringList {root() + QStringLiteral("/enu")});
    QVERIFY(browsers.first()->openExternalLinks());
    QCOMPARE(browsers.first()->toPlainText(), QString());
}

void HelpWindowTest::itHasTheScrollBarsSheet()
{
    answerWith(KnowledgeBase::ok(page(QStringLiteral("line<br>").repeated(100))));
    const Help help(context(root()));
    QCOMPARE(help.window->styleSheet(), getStyleSheet("component.scrollbar", false));
    help.show();
    QTRY_VERIFY_WITH_TIMEOUT(help.browser()->verticalScrollBar()->isVisible(), Patience);
    QCOMPARE(help.browser()->verticalScrollBar()->width(), expectedPixels(23));
}

void HelpWindowTest::theRequestIsAPlainGetOfTheFixedAddress_data()
{
    QTest::addColumn<HelpContext>("asked");
    QTest::addColumn<QByteArray>("items");
    QTest::newRow("a page") << context(root()) << QByteArray("section=chapter&lang=enu&link=page.html");
    QTest::newRow("null strings") << HelpContext() << QByteArray("section&lang&link");
}

void HelpWindowTest::theRequestIsAPlainGetOfTheFixedAddress()
{
    QFETCH(HelpContext, asked);
    QFETCH(QByteArray, items);
    const QByteArray address =
        "/cgi/knowledgebase/?action=findHelpFile&" + items + "&unique=corvana_utility_help&version=1.0";
    const Help help(asked);
    QTRY_COMPARE_WITH_TIMEOUT(m_knowledgeBase->requests.size(), 1, Patience);
    QCOMPARE(m_knowledgeBase->connectLines, QByteArrayList {"CONNECT help.vela.invalid:443 HTTP/1.1"});
    const QByteArray request = m_knowledgeBase->requests.first();
    QCOMPARE(request.left(request.indexOf("\r\n")), QByteArray("GET " + address + " HTTP/1.1"));

    QNetworkAccessManager network;
    network.get(QNetworkRequest(QUrl(QStringLiteral("https://") + Host + QString::fromLatin1(address))));
    QTRY_COMPARE_WITH_TIMEOUT(m_knowledgeBase->requests.size(), 2, Patience);
    QCOMPARE(request, m_knowledgeBase->requests.last()); // there are no headers but those that Qt adds by itself
}

void HelpWindowTest::theLanguageIsNormalised_data()
{
    QTest::addColumn<QString>("lang");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *lang, const char *expected) {
        QTest::newRow(*lang ? lang : "none") << QString::fromLatin1(lang) << QString::fromLatin1(expected);
    };
    row("deu", "ger");
    row("esn", "spn");
    row("fra", "fre");
    for (const char *lang : {"dan", "sve", "hun", "trk", "nor", "ptg", "ptb", "tha"}) {
        row(lang, "enu");
    }
    for (const char *lang : {"enu", "jpn", "ger", "spn", "fre", "chs", "cht", "ita", "krn", "DEU", "xyz", ""}) {
        row(lang, lang);
    }
}

void HelpWindowTest::theLanguageIsNormalised()
{
    QFETCH(QString, lang);
    QFETCH(QString, expected);
    answerWith(KnowledgeBase::notFound());
    writeHelp(expected + QStringLiteral("/page.html"), page(QString(Offline + QLatin1Char(' ') + expected)));
    const Help help(context(root(), lang));
    QCOMPARE(help.browser()->searchPaths(), QStringList {root() + QLatin1Char('/') + expected});
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), QString(Offline + QLatin1Char(' ') + expected), Patience);
    QVERIFY(m_knowledgeBase->requests.first().contains("&lang=" + expected.toLatin1() + '&'));
}

void HelpWindowTest::reservedCharactersAreEscapedInTheQuery()
{
    HelpContext odd = context(root());
    odd.section = QStringLiteral("a&b=c#d e+f%");
    odd.link = QStringLiteral("ü/日.html?x");
    const Help help(odd);
    QTRY_COMPARE_WITH_TIMEOUT(m_knowledgeBase->requests.size(), 1, Patience);
    const QByteArray line = m_knowledgeBase->requests.first().split('\n').first();
    const QByteArray address = line.mid(4, line.lastIndexOf(' ') - 4);
    QVERIFY2(address.contains("section=a%26b%3Dc%23d%20e+f%25&lang="), address.constData());
    QVERIFY2(address.contains("link=%C3%BC/%E6%97%A5.html?x&unique="), address.constData());
}

void HelpWindowTest::theRequestStartsBeforeTheDialogIsShown()
{
    const Help help(context(root()));
    QVERIFY(!help.window->isVisible());
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), Online, Patience);
    QVERIFY(!help.window->isVisible());
}

void HelpWindowTest::itsContextIsACopy()
{
    m_knowledgeBase->manner = KnowledgeBase::RefusesTheConnection;
    HelpContext changing = context(root(), QStringLiteral("deu"));
    const Help help(changing);
    QCOMPARE(changing.lang, QStringLiteral("deu"));
    changing = HelpContext();
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), QString(Offline + QStringLiteral(" ger")), Patience);
}

void HelpWindowTest::anAnswerIsShown()
{
    const Help help(context(root()));
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), Online, Patience); // the text is read as UTF-8, and as HTML
}

void HelpWindowTest::anAnswerOfAnotherStatusIsShownToo_data()
{
    QTest::addColumn<QByteArray>("head");
    QTest::newRow("203") << QByteArray("203 Non-Authoritative Information");
    QTest::newRow("302, not followed") << QByteArray("302 Found\r\nLocation: https://help.vela.invalid/other");
}

void HelpWindowTest::anAnswerOfAnotherStatusIsShownToo()
{
    QFETCH(QByteArray, head);
    answerWith(KnowledgeBase::ok(page(Online)).replace("200 OK", head));
    const Help help(context(root()));
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), Online, Patience);
    QCOMPARE(m_knowledgeBase->requests.size(), 1);
}

void HelpWindowTest::anEmptyAnswerLeavesItEmpty()
{
    answerWith(KnowledgeBase::ok(QByteArray()));
    const Help help(context(root()));
    QTRY_COMPARE_WITH_TIMEOUT(m_knowledgeBase->requests.size(), 1, Patience);
    QTest::qWait(300);
    QCOMPARE(help.text(), QString());
}

void HelpWindowTest::anAnswerInPiecesIsShownWhole()
{
    const QByteArray body = page(QString(Online + QStringLiteral("x").repeated(200000)));
    m_knowledgeBase->answer = [body](QSslSocket *socket, const QByteArray &) {
        const QByteArray whole = KnowledgeBase::ok(body);
        const int split = whole.indexOf("Gr\xC3") + 3; // a split within a letter
        socket->write(whole.left(split));
        QTimer::singleShot(200, socket, [socket, whole, split] { socket->write(whole.mid(split)); });
    };
    const Help help(context(root()));
    QTRY_COMPARE_WITH_TIMEOUT(help.text().size(), Online.size() + 200000, Patience);
    QVERIFY(help.text().startsWith(Online));
}

void HelpWindowTest::anHttpErrorShowsTheOfflinePage_data()
{
    QTest::addColumn<QByteArray>("status");
    for (const char *status : {"400 Bad Request", "401 Unauthorized", "403 Forbidden", "404 Not Found", "410 Gone",
                               "500 Internal Server Error", "503 Service Unavailable"}) {
        QTest::newRow(status) << QByteArray(status);
    }
    QTest::newRow("a question for a password")
        << QByteArray("401 Unauthorized\r\nWWW-Authenticate: Basic realm=\"help\"");
}

void HelpWindowTest::anHttpErrorShowsTheOfflinePage()
{
    QFETCH(QByteArray, status);
    answerWith(KnowledgeBase::ok(page(QStringLiteral("an error page"))).replace("200 OK", status));
    const Help help(context(root()));
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), QString(Offline + QStringLiteral(" enu")), Patience);
    QCOMPARE(m_knowledgeBase->requests.size(), 1);
}

void HelpWindowTest::aRefusedConnectionShowsTheOfflinePage()
{
    m_knowledgeBase->manner = KnowledgeBase::RefusesTheConnection;
    const Help help(context(root()));
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), QString(Offline + QStringLiteral(" enu")), Patience);
    QCOMPARE(m_knowledgeBase->requests.size(), 0);
}

void HelpWindowTest::aMissingProxyShowsTheOfflinePage()
{
    QTcpServer closed;
    QVERIFY(closed.listen(QHostAddress::LocalHost));
    const quint16 port = closed.serverPort();
    closed.close();
    QNetworkProxy::setApplicationProxy(QNetworkProxy(QNetworkProxy::HttpProxy, QStringLiteral("127.0.0.1"), port));
    const Help help(context(root()));
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), QString(Offline + QStringLiteral(" enu")), Patience);
}

void HelpWindowTest::anEndlessBodyShowsTheOfflinePage()
{
    m_knowledgeBase->answer = [](QSslSocket *socket, const QByteArray &) {
        constexpr int ChunkSize = 1 << 20;
        socket->write("HTTP/1.1 200 OK\r\nContent-Type: text/html\r\n\r\n");
        const auto sendMore = [socket] {
            if (socket->bytesToWrite() + socket->encryptedBytesToWrite() < ChunkSize) {
                socket->write(QByteArray(ChunkSize, 'v'));
            }
        };
        connect(socket, &QSslSocket::encryptedBytesWritten, socket, sendMore);
        sendMore();
    };
    const Help help(context(root()));
    const QSignalSpy aborted(help.window.get(), &HelpWindow::sigAbortRequest);
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), QString(Offline + QStringLiteral(" enu")), Patience);
    QCOMPARE(aborted.count(), 0); // the time has not run out either
    QTRY_COMPARE_WITH_TIMEOUT(m_knowledgeBase->openConnections(), 0, Patience);
}

void HelpWindowTest::aBodyThatUnfoldsShowsTheOfflinePage()
{
    constexpr int HeaderOfQt = 4; // bytes in front of what is compressed
    const QByteArray body = qCompress("<!--" + QByteArray(MaximalPageSize, 'v')).mid(HeaderOfQt);
    answerWith(KnowledgeBase::ok(body).replace("Content-Type", "Content-Encoding: deflate\r\nContent-Type"));
    const Help help(context(root()));
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), QString(Offline + QStringLiteral(" enu")), Patience);
}

void HelpWindowTest::aLongPageIsShown()
{
    const QByteArray comment = "<!--" + QByteArray(MaximalPageSize, 'v') + "-->";
    const QByteArray body = page(Online) + comment;
    answerWith(KnowledgeBase::ok(body.left(MaximalPageSize - 3) + "-->"));
    const Help help(context(root()));
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), Online, Patience);
}

void HelpWindowTest::aHalfSentBodyShowsTheOfflinePage()
{
    m_knowledgeBase->answer = [](QSslSocket *socket, const QByteArray &) {
        const QByteArray body = page(Online);
        socket->write(KnowledgeBase::ok(body, body.size() * 2));
        socket->disconnectFromHost();
    };
    const Help help(context(root()));
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), QString(Offline + QStringLiteral(" enu")), Patience);
    QVERIFY(!m_knowledgeBase->requests.isEmpty());
}

void HelpWindowTest::aWrongCertificateShowsTheOfflinePage_data()
{
    QTest::addColumn<QString>("certificate");
    QTest::newRow("of another host") << QStringLiteral("otherHost");
    QTest::newRow("of an unknown authority") << QStringLiteral("untrusted");
}

void HelpWindowTest::aWrongCertificateShowsTheOfflinePage()
{
    QFETCH(QString, certificate);
    m_knowledgeBase->certificate = certificate;
    const Help help(context(root()));
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), QString(Offline + QStringLiteral(" enu")), Patience);
    QCOMPARE(m_knowledgeBase->connectLines.size(), 1);
    QCOMPARE(m_knowledgeBase->requests.size(), 0); // nothing is told to a stranger
}

void HelpWindowTest::aMissingOfflinePageLeavesItEmpty_data()
{
    QTest::addColumn<QString>("root");
    QTest::addColumn<QString>("link");
    QTest::newRow("page") << root() << QStringLiteral("missing.html");
    QTest::newRow("root") << QString(root() + QStringLiteral("/missing")) << QStringLiteral("page.html");
    QTest::newRow("name, so that the path is a folder's") << root() << QString();
    QTest::newRow("both") << QString() << QString();
}

void HelpWindowTest::aMissingOfflinePageLeavesItEmpty()
{
    QFETCH(QString, root);
    QFETCH(QString, link);
    m_knowledgeBase->manner = KnowledgeBase::RefusesTheConnection;
    HelpContext missing = context(root);
    missing.link = link;
    LogCapture log;
    const Help help(missing);
    QTRY_COMPARE_WITH_TIMEOUT(m_knowledgeBase->connectLines.size(), 1, Patience);
    QTest::qWait(300);
    QCOMPARE(help.text(), QString());
    QVERIFY(!QFileInfo(root + QStringLiteral("/enu/") + link).isFile()); // the file is not made either
    QCOMPARE(log.takeTexts(), QStringList());
}

void HelpWindowTest::nothingIsLogged()
{
    LogCapture log;
    {
        const Help help(context(root()));
        QTRY_COMPARE_WITH_TIMEOUT(help.text(), Online, Patience);
        m_knowledgeBase->manner = KnowledgeBase::RefusesTheConnection;
        const Help refused(context(root()));
        QTRY_COMPARE_WITH_TIMEOUT(refused.text(), QString(Offline + QStringLiteral(" enu")), Patience);
    }
    QCOMPARE(log.takeTexts(), QStringList());
}

void HelpWindowTest::thereIsOneRequestOnly()
{
    answerWith(KnowledgeBase::notFound());
    const Help help(context(root()));
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), QString(Offline + QStringLiteral(" enu")), Patience);
    help.show();
    help.window->close();
    help.show();
    QTest::qWait(300);
    QCOMPARE(m_knowledgeBase->requests.size(), 1);
}

void HelpWindowTest::aReplyIsDeletedLater_data()
{
    QTest::addColumn<QUrl>("address");
    QTest::addColumn<QString>("expected");
    QTest::newRow("answer") << QUrl(QStringLiteral("data:text/html,<p>own</p>")) << QStringLiteral("own");
    QTest::newRow("error") << QUrl::fromLocalFile(root() + QStringLiteral("/missing"))
                           << QString(Offline + QStringLiteral(" enu"));
}

void HelpWindowTest::aReplyIsDeletedLater()
{
    QFETCH(QUrl, address);
    QFETCH(QString, expected);
    m_knowledgeBase->manner = KnowledgeBase::IgnoresTheConnection;
    const Help help(context(root()));
    QNetworkAccessManager network;
    const QPointer<QNetworkReply> reply = network.get(QNetworkRequest(address));
    QTRY_VERIFY_WITH_TIMEOUT(reply->isFinished(), Patience);
    help.window->slotReceiveReply(reply);
    QCOMPARE(help.text(), expected);
    QVERIFY(reply);
    QTRY_VERIFY_WITH_TIMEOUT(!reply, Patience);
}

void HelpWindowTest::theTimeOutSlotAbortsTheRequest()
{
    LogCapture log;
    m_knowledgeBase->answer = [](QSslSocket *, const QByteArray &) {};
    const Help help(context(root()));
    const QSignalSpy aborted(help.window.get(), &HelpWindow::sigAbortRequest);
    QTRY_COMPARE_WITH_TIMEOUT(m_knowledgeBase->requests.size(), 1, Patience);
    QCOMPARE(help.text(), QString());
    help.window->slotQueryTimeout();
    QCOMPARE(aborted.count(), 1);
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), QString(Offline + QStringLiteral(" enu")), Patience);
    QTRY_COMPARE_WITH_TIMEOUT(m_knowledgeBase->openConnections(), 0, Patience);
    QCOMPARE(log.takeTexts(), QStringList());
}

void HelpWindowTest::theTimeOutAfterTheAnswerChangesNothing()
{
    const Help help(context(root()));
    const QSignalSpy aborted(help.window.get(), &HelpWindow::sigAbortRequest);
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), Online, Patience);
    help.window->slotQueryTimeout();
    QCOMPARE(aborted.count(), 1);
    QTest::qWait(100);
    QCOMPARE(help.text(), Online);
}

void HelpWindowTest::destroyingItCancelsTheRequest()
{
    m_knowledgeBase->answer = [](QSslSocket *, const QByteArray &) {};
    auto help = std::make_unique<Help>(context(root()));
    QTRY_COMPARE_WITH_TIMEOUT(m_knowledgeBase->requests.size(), 1, Patience);
    QCOMPARE(m_knowledgeBase->openConnections(), 1);
    help.reset();
    QTRY_COMPARE_WITH_TIMEOUT(m_knowledgeBase->openConnections(), 0, Patience);
    for (int delay : {0, 5, 20, 50}) { // times at which it is connecting, encrypting or sending
        const Help brief(context(root()));
        QTest::qWait(delay);
    }
    QTRY_COMPARE_WITH_TIMEOUT(m_knowledgeBase->openConnections(), 0, Patience);
}

void HelpWindowTest::closingItDestroysItWhereThatIsAskedFor()
{
    m_knowledgeBase->answer = [](QSslSocket *, const QByteArray &) {};
    const QPointer<HelpWindow> window = new HelpWindow(context(root()), nullptr);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window));
    QTRY_COMPARE_WITH_TIMEOUT(m_knowledgeBase->requests.size(), 1, Patience);
    QTest::keyPress(window->windowHandle(), Qt::Key_Escape);
    QTRY_VERIFY_WITH_TIMEOUT(!window || !window->isVisible(), Patience);
    if (window) {
        window->close();
    }
    QTRY_VERIFY_WITH_TIMEOUT(!window, Patience);
    QTRY_COMPARE_WITH_TIMEOUT(m_knowledgeBase->openConnections(), 0, Patience);
}

void HelpWindowTest::afterTenSecondsTheOfflinePageIsShownForGood()
{
    constexpr int Tolerance = 500; // milliseconds; a timer of the test tells it, which a loaded machine delays as well
    const QString offline = Offline + QStringLiteral(" enu");
    struct Case
    {
        const char *name;
        KnowledgeBase::Manner manner;
        std::function<void(QSslSocket *, const QByteArray &)> answer;
        QString expected;
        bool isAborted;
    };
    const QByteArray online = KnowledgeBase::ok(page(Online));
    const auto late = [online](int delay) {
        return [online, delay](QSslSocket *socket, const QByteArray &) {
            QTimer::singleShot(delay, Qt::PreciseTimer, socket, [socket, online] { socket->write(online); });
        };
    };
    const auto silent = [](QSslSocket *, const QByteArray &) {};
    const auto missing = [](QSslSocket *socket, const QByteArray &) { socket->write(KnowledgeBase::notFound()); };
    const auto unended = [online](QSslSocket *socket, const QByteArray &) { socket->write(online.chopped(5)); };
    const Case cases[] = {
        {"connection not answered", KnowledgeBase::IgnoresTheConnection, silent, offline, true},
        {"handshake not answered", KnowledgeBase::IgnoresTheHandshake, silent, offline, true},
        {"request not answered", KnowledgeBase::Answers, silent, offline, true},
        {"body not ended", KnowledgeBase::Answers, unended, offline, true},
        {"answer after eleven seconds", KnowledgeBase::Answers, late(TimeLimit + 1000), offline, true},
        {"answer in time", KnowledgeBase::Answers, late(TimeLimit / 2), Online, false},
        {"answer at once", KnowledgeBase::Answers, late(0), Online, false},
        {"404 at once", KnowledgeBase::Answers, missing, offline, false},
    };

    struct Run
    {
        std::unique_ptr<Help> help;
        std::unique_ptr<QSignalSpy> aborted;
        QElapsedTimer clock;
        qint64 abortedAfter = -1;
        int abortedInTime = 0;
    };
    std::vector<std::unique_ptr<KnowledgeBase>> servers;
    std::vector<std::unique_ptr<Run>> runs;
    for (const Case &one : cases) {
        auto server = std::make_unique<KnowledgeBase>(m_certificates);
        server->manner = one.manner;
        server->answer = one.answer;
        QNetworkProxy::setApplicationProxy(
            QNetworkProxy(QNetworkProxy::HttpProxy, QStringLiteral("127.0.0.1"), server->serverPort()));
        auto run = std::make_unique<Run>();
        run->clock.start();
        run->help = std::make_unique<Help>(context(root()));
        run->aborted = std::make_unique<QSignalSpy>(run->help->window.get(), &HelpWindow::sigAbortRequest);
        connect(run->help->window.get(), &HelpWindow::sigAbortRequest, this,
                [run = run.get()] { run->abortedAfter = run->clock.elapsed(); });
        QTimer::singleShot(TimeLimit + Tolerance, Qt::PreciseTimer, run->help->window.get(),
                           [run = run.get()] { run->abortedInTime = run->aborted->count(); });
        QTRY_COMPARE_WITH_TIMEOUT(server->connectLines.size(), 1, Patience);
        servers.push_back(std::move(server));
        runs.push_back(std::move(run));
    }
    QTRY_VERIFY_WITH_TIMEOUT(runs.back()->clock.elapsed() > TimeLimit + 2000, TimeLimit + 5000);

    for (std::size_t i = 0; i < runs.size(); ++i) {
        const Run &run = *runs[i];
        const int aborted = cases[i].isAborted ? 1 : 0;
        QTRY_VERIFY2(run.help->text() == cases[i].expected, cases[i].name);
        QVERIFY2(run.aborted->count() == aborted, cases[i].name);
        QVERIFY2(run.abortedInTime == aborted, cases[i].name);
        if (cases[i].isAborted) {
            QVERIFY2(run.abortedAfter >= TimeLimit,
                     qPrintable(QStringLiteral("%1: %2 ms").arg(QLatin1String(cases[i].name)).arg(run.abortedAfter)));
        }
    }
}

QTEST_MAIN(HelpWindowTest)
#include "tst_help_window.moc"
