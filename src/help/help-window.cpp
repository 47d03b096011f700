// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "help/help-window.h"

#include "look/look-change_p.h"
#include "look/look_p.h"

#include <QFile>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTextBrowser>
#include <QTextCodec>
#include <QTextStream>
#include <QTimer>
#include <QUrlQuery>
#include <QVBoxLayout>

using namespace Vela;

namespace {

constexpr int QueryTimeout = 10000; // milliseconds
constexpr qint64 MaximalPageSize = 64 * 1024 * 1024; // bytes

struct Language
{
    const char *code;
    const char *helpCode;
};

// What the knowledge base calls a language, and the languages that it has no pages in.
constexpr Language Languages[] = {
    {"deu", "ger"}, {"esn", "spn"}, {"fra", "fre"}, {"dan", "enu"}, {"sve", "enu"}, {"hun", "enu"},
    {"trk", "enu"}, {"nor", "enu"}, {"ptg", "enu"}, {"ptb", "enu"}, {"tha", "enu"},
};

QString helpLanguage(const QString &code)
{
    for (const Language &language : Languages) {
        if (code == QLatin1String(language.code)) {
            return QString::fromLatin1(language.helpCode);
        }
    }
    return code;
}

// By itself a browser takes a page that it is led to and that declares no encoding as Latin-1.
class Browser : public QTextBrowser
{
public:
    using QTextBrowser::QTextBrowser;

    QVariant loadResource(int type, const QUrl &name) override
    {
        const QVariant resource = QTextBrowser::loadResource(type, name);
        if (type != QTextDocument::HtmlResource || resource.type() != QVariant::ByteArray) {
            return resource;
        }
        const QByteArray page = resource.toByteArray();
        return QTextCodec::codecForHtml(page, QTextCodec::codecForName("UTF-8"))->toUnicode(page);
    }
};

} // namespace

class HelpWindowPrivate
{
public:
    explicit HelpWindowPrivate(const HelpContext &helpContext) : context(helpContext)
    {
        context.lang = helpLanguage(context.lang);
        offlinePath = context.helpRoot + QLatin1Char('/') + context.lang;
    }

    HelpContext context;
    QString offlinePath;
    QTextBrowser *browser = nullptr;
    QNetworkAccessManager network;
    QTimer timer;
};

HelpWindow::HelpWindow(const HelpContext &context, QWidget *parent) :
    QDialog(parent), d(std::make_unique<HelpWindowPrivate>(context))
{
    d->browser = new Browser(this);
    d->browser->setSearchPaths({d->offlinePath});
    d->browser->setOpenExternalLinks(true);
    d->browser->setAccessibleName(Look::spoken(SpokenText::Help));

    retrieveHelpContent();

    auto *column = new QVBoxLayout(this);
    column->addWidget(d->browser);
    setWindowModality(Qt::ApplicationModal);
    setStyleSheet(Look::sheet(Style::ScrollBar));
}

HelpWindow::~HelpWindow() = default;

void HelpWindow::customEvent(QEvent *event)
{
    if (const auto *change = LookChange::of(event)) {
        change->restyle(this, Style::ScrollBar);
        change->renewAccessibleName(d->browser, SpokenText::Help);
    }
    QDialog::customEvent(event);
}

void HelpWindow::retrieveHelpContent()
{
    connect(&d->network, &QNetworkAccessManager::finished, this, &HelpWindow::slotReceiveReply);
    d->timer.setSingleShot(true);
    // A timer of the default type may end half a second early.
    d->timer.setTimerType(Qt::PreciseTimer);
    connect(&d->timer, &QTimer::timeout, this, &HelpWindow::slotQueryTimeout);
    query();
}

void HelpWindow::query()
{
    QUrlQuery items;
    items.addQueryItem(QStringLiteral("action"), QStringLiteral("findHelpFile"));
    items.addQueryItem(QStringLiteral("section"), d->context.section);
    items.addQueryItem(QStringLiteral("lang"), d->context.lang);
    items.addQueryItem(QStringLiteral("link"), d->context.link);
    items.addQueryItem(QStringLiteral("unique"), QStringLiteral("corvana_utility_help"));
    items.addQueryItem(QStringLiteral("version"), QStringLiteral("1.0"));
    QUrl url(QStringLiteral("https://" VELA_KNOWLEDGE_BASE_HOST "/cgi/knowledgebase/"));
    url.setQuery(items);

    d->timer.start(QueryTimeout);
    QNetworkReply *reply = d->network.get(QNetworkRequest(url));
    connect(this, &HelpWindow::sigAbortRequest, reply, &QNetworkReply::abort);
    // A limited read buffer would not do: a compressed page never gets out of one.
    connect(reply, &QNetworkReply::readyRead, this, [reply] {
        if (reply->bytesAvailable() > MaximalPageSize) {
            reply->abort();
        }
    });
}

void HelpWindow::slotReceiveReply(QNetworkReply *reply)
{
    d->timer.stop();
    reply->deleteLater();
    if (reply->error() == QNetworkReply::NoError) {
        const QByteArray page = reply->readAll();
        // The size lets it read past null bytes.
        d->browser->setText(QString::fromUtf8(page.constData(), page.size()));
    } else {
        fallbackOfflineHelp();
    }
}

void HelpWindow::slotQueryTimeout()
{
    Q_EMIT sigAbortRequest();
}

void HelpWindow::fallbackOfflineHelp()
{
    QFile file(d->offlinePath + QLatin1Char('/') + d->context.link);
    if (!file.open(QIODevice::ReadOnly)) {
        return;
    }
    QTextStream stream(&file);
    stream.setCodec("UTF-8");
    d->browser->setText(stream.readAll());
}
