#include "style-manager/style-manager.h"
#include "support/controls.h"
#include "support/environment.h"
#include "support/log-capture.h"
#include "support/resource-folder.h"
#include "utils/help-window.h"

#include <QDesktopServices>
#include <QElapsedTimer>
#include <QHostAddress>
#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QPointer>
#include <QProcess>
#include <QScopeGuard>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslSocket>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QTextCodec>
#include <QTextCursor>
#include <QTextDocument>
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
constexpr int Patience = 8000; // for what is to come at once
constexpr int MaximalPageSize = 64 * 1024 * 1024; // bytes

/// Certificates made for this run: an authority's, and two that it has signed.
class Certificates
{
public:
    /// An empty text, or what has gone wrong.
    QString create()
    {
        const QStringList selfSigned {QStringLiteral("-subj"), QStringLiteral("/CN=Test authority")};
        for (const QString &authority : {QStringLiteral("authority"), QStringLiteral("stranger")}) {
            const QString error = request(authority, selfSigned);
            if (!error.isEmpty()) {
                return error;
            }
        }
        return sign(QStringLiteral("right"), QStringLiteral("authority"), Host)
            + sign(QStringLiteral("otherHost"), QStringLiteral("authority"), QStringLiteral("other.vela.invalid"))
            + sign(QStringLiteral("untrusted"), QStringLiteral("stranger"), Host);
    }

    QSslCertificate certificate(const QString &name) const
    {
        return QSslCertificate::fromPath(path(name, "pem"), QSsl::Pem, QSslCertificate::PatternSyntax::FixedString)
            .value(0);
    }
    QSslKey key(const QString &name) const
    {
        QFile file(path(name, "key"));
        return file.open(QIODevice::ReadOnly) ? QSslKey(&file, QSsl::Rsa) : QSslKey();
    }

private:
    QString path(const QString &name, const char *suffix) const
    {
        return m_folder.filePath(name + QLatin1Char('.') + QLatin1String(suffix));
    }

    QString sign(const QString &name, const QString &authority, const QString &host) const
    {
        return request(name,
                       {QStringLiteral("-subj"), QLatin1String("/CN=") + host, QStringLiteral("-addext"),
                        QLatin1String("subjectAltName=DNS:") + host, QStringLiteral("-CA"), path(authority, "pem"),
                        QStringLiteral("-CAkey"), path(authority, "key")});
    }

    QString request(const QString &name, const QStringList &arguments) const
    {
        QProcess openssl;
        openssl.start(QStringLiteral("openssl"),
                      QStringList {QStringLiteral("req"), QStringLiteral("-x509"), QStringLiteral("-newkey"),
                                   QStringLiteral("rsa:2048"), QStringLiteral("-nodes"), QStringLiteral("-days"),
                                   QStringLiteral("2"), QStringLiteral("-keyout"), path(name, "key"),
                                   QStringLiteral("-out"), path(name, "pem")}
                          + arguments);
        if (openssl.waitForFinished() && openssl.exitCode() == 0) {
            return QString();
        }
        return openssl.errorString() + QLatin1Char('\n') + QString::fromUtf8(openssl.readAllStandardError());
    }

    const QTemporaryDir m_folder;
};

/// The knowledge base together with the proxy on the way to it: connections asked for by CONNECT end here.
class KnowledgeBase : public QTcpServer
{
public:
    /// What it does with a connection; each is done up to here and then waits.
    enum Manner { Answers, RefusesTheConnection, IgnoresTheConnection, IgnoresTheHandshake };

    explicit KnowledgeBase(const Certificates &certificates) : m_certificates(certificates)
    {
        listen(QHostAddress::LocalHost);
    }

    int openConnections() const
    {
        int count = 0;
        for (const QSslSocket *socket : m_sockets) {
            count += socket->state() == QAbstractSocket::ConnectedState;
        }
        return count;
    }

    static QByteArray ok(const QByteArray &body, int length = -1)
    {
        return "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nContent-Length: "
            + QByteArray::number(length < 0 ? body.size() : length) + "\r\n\r\n" + body;
    }
    static QByteArray notFound() { return "HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n"; }

    Manner manner = Answers;
    QString certificate = QStringLiteral("right");
    /// Answers a request, given whole.
    std::function<void(QSslSocket *, const QByteArray &)> answer;
    QByteArrayList connectLines;
    QByteArrayList requests;

protected:
    void incomingConnection(qintptr descriptor) override
    {
        auto *socket = new QSslSocket(this);
        socket->setSocketDescriptor(descriptor);
        m_sockets.append(socket);
        connect(socket, &QSslSocket::readyRead, this, [this, socket] { read(socket); });
    }

private:
    void read(QSslSocket *socket)
    {
        QByteArray &received = m_received[socket];
        received += socket->readAll();
        if (!received.endsWith("\r\n\r\n")) {
            return;
        }
        const QByteArray whole = std::exchange(received, {});
        if (socket->isEncrypted()) {
            requests.append(whole);
            answer(socket, whole);
            return;
        }
        connectLines.append(whole.left(whole.indexOf("\r\n")));
        if (manner == RefusesTheConnection) {
            socket->write("HTTP/1.1 503 Service Unavailable\r\nContent-Length: 0\r\n\r\n");
            socket->disconnectFromHost();
        } else if (manner != IgnoresTheConnection) {
            socket->write("HTTP/1.1 200 Connection established\r\n\r\n");
            if (manner == Answers) {
                socket->setLocalCertificate(m_certificates.certificate(certificate));
                socket->setPrivateKey(m_certificates.key(certificate));
                socket->startServerEncryption();
            }
        }
    }

    const Certificates &m_certificates;
    QVector<QSslSocket *> m_sockets;
    QHash<QSslSocket *, QByteArray> m_received;
};

HelpContext context(const QString &root, const QString &lang = QStringLiteral("enu"))
{
    HelpContext context;
    context.lang = lang;
    context.helpRoot = root;
    context.link = QStringLiteral("page.html");
    context.section = QStringLiteral("chapter");
    return context;
}

/// A help window and what a user sees of it.
class Help
{
public:
    explicit Help(const HelpContext &helpContext) : window(new HelpWindow(helpContext, nullptr)) { }

    QTextBrowser *browser() const { return window->findChild<QTextBrowser *>(); }
    QString text() const { return browser()->toPlainText(); }

    void show() const
    {
        window->resize(400, 300);
        window->show();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
    }

    /// Clicks the middle of a text that is shown.
    void click(const QString &shownText) const
    {
        const QTextCursor found = browser()->document()->find(shownText);
        QVERIFY(!found.isNull());
        QTextCursor start = found;
        start.setPosition(found.selectionStart());
        const QPoint middle = (browser()->cursorRect(start).center() + browser()->cursorRect(found).center()) / 2;
        const QPoint position = browser()->viewport()->mapTo(window.get(), middle);
        QTest::mouseMove(window->windowHandle(), position);
        QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, position);
    }

    const std::unique_ptr<HelpWindow> window;
};

const QString Online = QStringLiteral("Online Grüße ü 日本");
const QString Offline = QStringLiteral("Offline Grüße ü 日本");

QByteArray page(const QString &text)
{
    return "<html><body><p>" + text.toUtf8() + "</p></body></html>";
}

/// Records what is asked to be opened outside.
class ExternalLinks : public QObject
{
    Q_OBJECT

public:
    ExternalLinks() { QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "open"); }
    ~ExternalLinks() override { QDesktopServices::unsetUrlHandler(QStringLiteral("https")); }

    QList<QUrl> opened;

public Q_SLOTS:
    void open(const QUrl &url) { opened.append(url); }
};

void addOnlineAndOffline()
{
    QTest::addColumn<bool>("isOnline");
    QTest::newRow("online page") << true;
    QTest::newRow("offline page") << false;
}

} // namespace

Q_DECLARE_METATYPE(HelpContext)

class HelpWindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void withoutItsSheetItIsLogged();
    void aContextIsEmptyAtFirstAndCopied();
    void itDeclaresASignalAndTwoSlots();
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
    void aPlainTextIsShownAsItIs_data();
    void aPlainTextIsShownAsItIs();
    void aPageDoesNotEndAtANullByte_data();
    void aPageDoesNotEndAtANullByte();
    void aPageIsUtf8WhateverTheLocale_data();
    void aPageIsUtf8WhateverTheLocale();
    void aPageIsUtf8WhateverItDeclares_data();
    void aPageIsUtf8WhateverItDeclares();
    void aByteOrderMarkOfAnOfflinePageCounts();
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

    void imagesOfAPageAreThoseOfTheOfflineFolder_data();
    void imagesOfAPageAreThoseOfTheOfflineFolder();
    void linksOfAPageLeadIntoTheOfflineFolder_data();
    void linksOfAPageLeadIntoTheOfflineFolder();
    void aLinkedPageIsWhatItDeclaresAndUtf8ByDefault_data();
    void aLinkedPageIsWhatItDeclaresAndUtf8ByDefault();
    void externalLinksAreOpenedOutside();

    void afterTenSecondsTheOfflinePageIsShownForGood();

private:
    QString root() const { return m_help.path(); }
    void writeHelp(const QString &name, const QByteArray &content) const;
    void answerWith(const QByteArray &answer);
    HelpContext offer(const QByteArray &content, bool isOnline);

    ResourceFolder m_folder;
    const QTemporaryDir m_help;
    Certificates m_certificates;
    std::unique_ptr<KnowledgeBase> m_knowledgeBase;
};

void HelpWindowTest::initTestCase()
{
    QVERIFY2(QSslSocket::supportsSsl(), "Qt finds no library for TLS");
    const QString error = m_certificates.create();
    QVERIFY2(error.isEmpty(), qPrintable(QLatin1String("openssl is needed (scripts/setup --checks): ") + error));
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setCaCertificates({m_certificates.certificate(QStringLiteral("authority"))});
    QSslConfiguration::setDefaultConfiguration(configuration);
    for (const char *lang : {"enu", "ger", "jpn"}) {
        writeHelp(QLatin1String(lang) + QStringLiteral("/page.html"),
                  page(QString(Offline + QLatin1Char(' ') + QLatin1String(lang))));
    }
    m_folder.setAsPaths();
}

// One knowledge base for each test: what a window still asks for after its end must not reach that of the next.
void HelpWindowTest::init()
{
    m_knowledgeBase = std::make_unique<KnowledgeBase>(m_certificates);
    QVERIFY(m_knowledgeBase->isListening());
    answerWith(KnowledgeBase::ok(page(Online)));
    QNetworkProxy::setApplicationProxy(
        QNetworkProxy(QNetworkProxy::HttpProxy, QStringLiteral("127.0.0.1"), m_knowledgeBase->serverPort()));
    if (QTest::currentTestFunction() != QByteArray("withoutItsSheetItIsLogged")) {
        installSheets(m_folder, "== component.scrollbar ==\nQScrollBar:vertical { width: 23px }\n");
    }
}

void HelpWindowTest::cleanup()
{
    m_knowledgeBase.reset();
}

void HelpWindowTest::writeHelp(const QString &name, const QByteArray &content) const
{
    const QFileInfo file(root() + QLatin1Char('/') + name);
    QVERIFY(file.dir().mkpath(QStringLiteral(".")));
    QFile page(file.filePath());
    QVERIFY(page.open(QIODevice::WriteOnly));
    page.write(content);
}

void HelpWindowTest::answerWith(const QByteArray &answer)
{
    m_knowledgeBase->answer = [answer](QSslSocket *socket, const QByteArray &) { socket->write(answer); };
}

/// Returns the context of a page that only the knowledge base has, or only the installed help.
HelpContext HelpWindowTest::offer(const QByteArray &content, bool isOnline)
{
    const QString name = QStringLiteral("offered.html");
    const QString installed = QStringLiteral("enu/") + name;
    QFile::remove(root() + QLatin1Char('/') + installed);
    if (isOnline) {
        answerWith(KnowledgeBase::ok(content));
    } else {
        writeHelp(installed, content);
        answerWith(KnowledgeBase::notFound());
    }
    HelpContext offered = context(root());
    offered.link = name;
    return offered;
}

// The first: no sheets are installed yet.
void HelpWindowTest::withoutItsSheetItIsLogged()
{
    LogCapture log;
    const Help help(context(root()));
    QCOMPARE(log.takeTexts(), QStringList {QStringLiteral("Cannot find stylesheet \"component.scrollbar\"")});
    QCOMPARE(help.window->styleSheet(), QString());
}

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

void HelpWindowTest::itDeclaresASignalAndTwoSlots()
{
    QCOMPARE(HelpWindow::staticMetaObject.className(), "HelpWindow");
    QCOMPARE(HelpWindow::staticMetaObject.superClass(), &QDialog::staticMetaObject);
    QCOMPARE(ownDeclarations(HelpWindow::staticMetaObject),
             (QStringList {QStringLiteral("sigAbortRequest()"), QStringLiteral("slotReceiveReply(QNetworkReply*)"),
                           QStringLiteral("slotQueryTimeout()")}));
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
    QCOMPARE(request, m_knowledgeBase->requests.last()); // no headers but those that Qt adds by itself
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
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), Online, Patience); // UTF-8, and HTML as such
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

void HelpWindowTest::aPlainTextIsShownAsItIs_data()
{
    addOnlineAndOffline();
}

void HelpWindowTest::aPlainTextIsShownAsItIs()
{
    QFETCH(bool, isOnline);
    const Help help(offer("2 < 3 & Grüße\nnext", isOnline));
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), QStringLiteral("2 < 3 & Grüße\nnext"), Patience);
}

void HelpWindowTest::aPageDoesNotEndAtANullByte_data()
{
    addOnlineAndOffline();
}

void HelpWindowTest::aPageDoesNotEndAtANullByte()
{
    QFETCH(bool, isOnline);
    const Help help(offer(page(QStringLiteral("before\0after")), isOnline));
    QTRY_VERIFY_WITH_TIMEOUT(help.text().startsWith(QStringLiteral("before")), Patience);
    QVERIFY2(help.text().endsWith(QStringLiteral("after")), qPrintable(help.text()));
}

void HelpWindowTest::aPageIsUtf8WhateverTheLocale_data()
{
    addOnlineAndOffline();
}

void HelpWindowTest::aPageIsUtf8WhateverTheLocale()
{
    QFETCH(bool, isOnline);
    QTextCodec *const before = QTextCodec::codecForLocale();
    const auto restore = qScopeGuard([before] { QTextCodec::setCodecForLocale(before); });
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
    const Help help(offer(page(Online), isOnline));
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), Online, Patience);
}

void HelpWindowTest::aPageIsUtf8WhateverItDeclares_data()
{
    addOnlineAndOffline();
}

void HelpWindowTest::aPageIsUtf8WhateverItDeclares()
{
    QFETCH(bool, isOnline);
    const QByteArray declaration =
        "<head><meta http-equiv=\"Content-Type\" content=\"text/html; charset=iso-8859-1\"></head><body>";
    const Help help(offer(page(Online).replace("<body>", declaration), isOnline));
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), Online, Patience);
}

void HelpWindowTest::aByteOrderMarkOfAnOfflinePageCounts()
{
    const QByteArray utf16 = QTextCodec::codecForName("UTF-16")->fromUnicode(QString::fromUtf8(page(Offline)));
    const Help help(offer(utf16, false));
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), Offline, Patience);
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
        const int split = whole.indexOf("Gr\xC3") + 3; // within a letter
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
    qint64 sent = 0;
    m_knowledgeBase->answer = [&sent](QSslSocket *socket, const QByteArray &) {
        constexpr int ChunkSize = 1 << 20;
        socket->write("HTTP/1.1 200 OK\r\nContent-Type: text/html\r\n\r\n");
        const auto sendMore = [socket, &sent] {
            if (socket->bytesToWrite() + socket->encryptedBytesToWrite() < ChunkSize) {
                sent += socket->write(QByteArray(ChunkSize, 'v'));
            }
        };
        connect(socket, &QSslSocket::encryptedBytesWritten, socket, sendMore);
        sendMore();
    };
    const Help help(context(root()));
    const QSignalSpy aborted(help.window.get(), &HelpWindow::sigAbortRequest);
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), QString(Offline + QStringLiteral(" enu")), Patience);
    QVERIFY2(sent < qint64(MaximalPageSize) * 3 / 2, qPrintable(QString::number(sent)));
    QCOMPARE(aborted.count(), 0); // nor has the time run out
    QTRY_COMPARE_WITH_TIMEOUT(m_knowledgeBase->openConnections(), 0, Patience);
}

void HelpWindowTest::aBodyThatUnfoldsShowsTheOfflinePage()
{
    constexpr int HeaderOfQt = 4; // bytes in front of what is compressed
    const QByteArray body = qCompress(QByteArray(MaximalPageSize + (1 << 20), 'v')).mid(HeaderOfQt);
    answerWith(KnowledgeBase::ok(body).replace("Content-Type", "Content-Encoding: deflate\r\nContent-Type"));
    const Help help(context(root()));
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), QString(Offline + QStringLiteral(" enu")), Patience);
}

// Most of it a comment, which costs the browser little.
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
    QVERIFY(!QFileInfo(root + QStringLiteral("/enu/") + link).isFile()); // nor is it made
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
    for (int delay : {0, 5, 20, 50}) { // while it is being connected, encrypted, sent
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

void HelpWindowTest::imagesOfAPageAreThoseOfTheOfflineFolder_data()
{
    addOnlineAndOffline();
}

void HelpWindowTest::imagesOfAPageAreThoseOfTheOfflineFolder()
{
    QFETCH(bool, isOnline);
    QVERIFY(QDir(root()).mkpath(QStringLiteral("enu/images")));
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QVERIFY(image.save(root() + QStringLiteral("/enu/images/picture.png")));
    const Help help(offer("<html><body><p><img src=\"images/picture.png\"></p></body></html>", isOnline));
    help.show();
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), QString(QChar::ObjectReplacementCharacter), Patience);
    QTRY_COMPARE_WITH_TIMEOUT(paintedColor(help.browser()->viewport(), QPoint(15, 20)), QColor(Qt::magenta), Patience);
}

void HelpWindowTest::linksOfAPageLeadIntoTheOfflineFolder_data()
{
    addOnlineAndOffline();
}

void HelpWindowTest::linksOfAPageLeadIntoTheOfflineFolder()
{
    QFETCH(bool, isOnline);
    writeHelp(QStringLiteral("enu/other.html"), page(QStringLiteral("the other page")));
    const Help help(offer("<html><body><p><a href=\"other.html\">onward</a></p></body></html>", isOnline));
    help.show();
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), QStringLiteral("onward"), Patience);
    const ExternalLinks external;
    help.click(QStringLiteral("onward"));
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), QStringLiteral("the other page"), Patience);
    QCOMPARE(external.opened, QList<QUrl>());
}

void HelpWindowTest::aLinkedPageIsWhatItDeclaresAndUtf8ByDefault_data()
{
    QTest::addColumn<QByteArray>("codec");
    QTest::addColumn<QByteArray>("declaration");
    const auto declared = [](const char *codec) -> QByteArray {
        return "<meta http-equiv=\"Content-Type\" content=\"text/html; charset=" + QByteArray(codec) + "\">";
    };
    QTest::newRow("nothing") << QByteArray("UTF-8") << QByteArray();
    QTest::newRow("UTF-8") << QByteArray("UTF-8") << declared("utf-8");
    QTest::newRow("UTF-8, in short") << QByteArray("UTF-8") << QByteArray("<meta charset=\"utf-8\">");
    QTest::newRow("Latin-1") << QByteArray("ISO-8859-1") << declared("iso-8859-1");
    QTest::newRow("Windows") << QByteArray("Windows-1252") << declared("windows-1252");
    QTest::newRow("what nobody knows") << QByteArray("UTF-8") << declared("no-such-codec");
    QTest::newRow("by a mark") << QByteArray("UTF-16") << QByteArray();
}

void HelpWindowTest::aLinkedPageIsWhatItDeclaresAndUtf8ByDefault()
{
    QFETCH(QByteArray, codec);
    QFETCH(QByteArray, declaration);
    const QString text = QStringLiteral("Grüße");
    const QString whole = QStringLiteral("<html><head>%1</head><body><p>%2</p></body></html>")
                              .arg(QString::fromLatin1(declaration), text);
    writeHelp(QStringLiteral("enu/other.html"), QTextCodec::codecForName(codec)->fromUnicode(whole));
    const Help help(offer("<html><body><p><a href=\"other.html\">onward</a></p></body></html>", false));
    help.show();
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), QStringLiteral("onward"), Patience);
    help.click(QStringLiteral("onward"));
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), text, Patience);
    help.browser()->reload();
    QCOMPARE(help.text(), text);
}

void HelpWindowTest::externalLinksAreOpenedOutside()
{
    answerWith(
        KnowledgeBase::ok("<html><body><p><a href=\"https://shop.vela.invalid/a?b\">shop</a></p></body></html>"));
    const Help help(context(root()));
    help.show();
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), QStringLiteral("shop"), Patience);
    const ExternalLinks external;
    help.click(QStringLiteral("shop"));
    QTRY_COMPARE_WITH_TIMEOUT(external.opened, QList<QUrl> {QUrl(QStringLiteral("https://shop.vela.invalid/a?b"))},
                              Patience);
    QCOMPARE(help.text(), QStringLiteral("shop"));
}

// What takes ten seconds, all at once.
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
        {"answer in time", KnowledgeBase::Answers, late(TimeLimit - 3000), Online, false},
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
        QVERIFY2(run.help->text() == cases[i].expected, cases[i].name);
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
