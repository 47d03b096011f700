// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// Replies of the knowledge base, and the installed page where there is none.

#include "help/help-window.h"
#include "support/input.h"
#include "support/widgets.h"

#include <QNetworkReply>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QTextStream>

namespace {

// A reply that has come, whole or as an error.
class Reply : public QNetworkReply
{
public:
    Reply(const QByteArray &page, bool isError) : m_page(page)
    {
        open(QIODevice::ReadOnly);
        if (isError) {
            setError(ContentNotFoundError, QStringLiteral("there is none"));
        }
        setFinished(true);
    }

    void abort() override { }
    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override { return m_page.size() + QNetworkReply::bytesAvailable(); }

protected:
    qint64 readData(char *data, qint64 maximal) override
    {
        const int size = static_cast<int>(qMin(maximal, qint64(m_page.size())));
        std::copy_n(m_page.constData(), size, data);
        m_page.remove(0, size);
        return size;
    }

private:
    QByteArray m_page;
};

// As a text stream reads it.
QString installedPage(const QString &path)
{
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    QTextStream stream(&file);
    stream.setCodec("UTF-8");
    return stream.readAll();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    startApplication();
    static const QTemporaryDir folder;
    static auto *const window = [] {
        HelpContext context;
        context.lang = QStringLiteral("."); // the folder itself
        context.helpRoot = folder.path();
        context.link = QStringLiteral("page.html");
        return new HelpWindow(context);
    }();
    static const auto *const browser = window->findChild<QTextBrowser *>();
    static auto *const expected = new QTextBrowser;
    FuzzInput input(data, size);
    const bool isError = input.take<quint8>() % 2 == 1;
    const QByteArray bytes = input.rest();
    const QString path = folder.filePath(QStringLiteral("page.html"));
    {
        QFile file(path);
        file.open(QIODevice::WriteOnly);
        file.write(isError ? bytes : "installed");
    }

    auto *reply = new Reply(isError ? "error" : bytes, isError);
    window->slotReceiveReply(reply);
    expected->setText(isError ? installedPage(path) : textOf(bytes));
    agree("page", browser->toHtml(), expected->toHtml());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return 0;
}
