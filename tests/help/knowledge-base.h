// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QHash>
#include <QSslCertificate>
#include <QSslKey>
#include <QSslSocket>
#include <QString>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QVector>

#include <functional>

/// Certificates made for this run: an authority's, and two that it has signed.
class Certificates
{
public:
    /// What has gone wrong, or an empty text.
    QString create();

    QSslCertificate certificate(const QString &name) const;
    QSslKey key(const QString &name) const;

private:
    QString path(const QString &name, const char *suffix) const;
    QString sign(const QString &name, const QString &authority, const QString &host) const;
    QString request(const QString &name, const QStringList &arguments) const;

    const QTemporaryDir m_folder;
};

/// The knowledge base together with the proxy on the way to it: connections asked for by CONNECT end here.
class KnowledgeBase : public QTcpServer
{
public:
    /// What it does with a connection: each step up to the named one, and then it waits.
    enum Manner { Answers, RefusesTheConnection, IgnoresTheConnection, IgnoresTheHandshake };

    explicit KnowledgeBase(const Certificates &certificates) : m_certificates(certificates)
    {
        listen(QHostAddress::LocalHost);
    }

    int openConnections() const;

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
    void incomingConnection(qintptr descriptor) override;

private:
    void read(QSslSocket *socket);

    const Certificates &m_certificates;
    QVector<QSslSocket *> m_sockets;
    QHash<QSslSocket *, QByteArray> m_received;
};
