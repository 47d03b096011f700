// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "help/knowledge-base.h"

#include <QFile>
#include <QHostAddress>
#include <QProcess>

#include <utility>

namespace {

const QString Host = QStringLiteral("help.vela.invalid");

} // namespace

QString Certificates::create()
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

QSslCertificate Certificates::certificate(const QString &name) const
{
    return QSslCertificate::fromPath(path(name, "pem"), QSsl::Pem, QSslCertificate::PatternSyntax::FixedString)
        .value(0);
}

QSslKey Certificates::key(const QString &name) const
{
    QFile file(path(name, "key"));
    return file.open(QIODevice::ReadOnly) ? QSslKey(&file, QSsl::Rsa) : QSslKey();
}

QString Certificates::path(const QString &name, const char *suffix) const
{
    return m_folder.filePath(name + QLatin1Char('.') + QLatin1String(suffix));
}

QString Certificates::sign(const QString &name, const QString &authority, const QString &host) const
{
    return request(name,
                   {QStringLiteral("-subj"), QLatin1String("/CN=") + host, QStringLiteral("-addext"),
                    QLatin1String("subjectAltName=DNS:") + host, QStringLiteral("-CA"), path(authority, "pem"),
                    QStringLiteral("-CAkey"), path(authority, "key")});
}

QString Certificates::request(const QString &name, const QStringList &arguments) const
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

int KnowledgeBase::openConnections() const
{
    int count = 0;
    for (const QSslSocket *socket : m_sockets) {
        count += socket->state() == QAbstractSocket::ConnectedState;
    }
    return count;
}

void KnowledgeBase::incomingConnection(qintptr descriptor)
{
    auto *socket = new QSslSocket(this);
    socket->setSocketDescriptor(descriptor);
    m_sockets.append(socket);
    connect(socket, &QSslSocket::readyRead, this, [this, socket] { read(socket); });
}

void KnowledgeBase::read(QSslSocket *socket)
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
