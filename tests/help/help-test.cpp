// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "help/help-test.h"

#include "support/controls.h"

#include <QNetworkProxy>
#include <QSslConfiguration>
#include <QTextCursor>
#include <QTextDocument>
#include <QtTest>

QByteArray page(const QString &text)
{
    return "<html><body><p>" + text.toUtf8() + "</p></body></html>";
}

HelpContext context(const QString &root, const QString &lang)
{
    HelpContext context;
    context.lang = lang;
    context.helpRoot = root;
    context.link = QStringLiteral("page.html");
    context.section = QStringLiteral("chapter");
    return context;
}

void addOnlineAndOffline()
{
    QTest::addColumn<bool>("isOnline");
    QTest::newRow("online page") << true;
    QTest::newRow("offline page") << false;
}

void Help::show() const
{
    window->resize(400, 300);
    window->show();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
}

void Help::click(const QString &shownText) const
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

void HelpTest::initTestCase()
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

void HelpTest::init()
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

void HelpTest::cleanup()
{
    m_knowledgeBase.reset();
}

void HelpTest::writeHelp(const QString &name, const QByteArray &content) const
{
    const QFileInfo file(root() + QLatin1Char('/') + name);
    QVERIFY(file.dir().mkpath(QStringLiteral(".")));
    QFile page(file.filePath());
    QVERIFY(page.open(QIODevice::WriteOnly));
    page.write(content);
}

void HelpTest::answerWith(const QByteArray &answer)
{
    m_knowledgeBase->answer = [answer](QSslSocket *socket, const QByteArray &) { socket->write(answer); };
}

HelpContext HelpTest::offer(const QByteArray &content, bool isOnline)
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
