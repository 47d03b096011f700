// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "help/knowledge-base.h"
#include "support/resource-folder.h"
#include "utils/help-window.h"

#include <QObject>
#include <QTextBrowser>

#include <memory>

constexpr int Patience = 8000; // milliseconds for what comes at once

inline const QString Online = QStringLiteral("Online Grüße ü 日本");
inline const QString Offline = QStringLiteral("Offline Grüße ü 日本");

QByteArray page(const QString &text);
/// The context of the page "page.html".
HelpContext context(const QString &root, const QString &lang = QStringLiteral("enu"));
/// Rows of a column "isOnline".
void addOnlineAndOffline();

/// A help window and what a user sees of it.
class Help
{
public:
    explicit Help(const HelpContext &helpContext) : window(new HelpWindow(helpContext, nullptr)) { }

    QTextBrowser *browser() const { return window->findChild<QTextBrowser *>(); }
    QString text() const { return browser()->toPlainText(); }

    void show() const;
    /// Clicks the middle of a text that is shown.
    void click(const QString &shownText) const;

    const std::unique_ptr<HelpWindow> window;
};

/// Gives each test a knowledge base, and all of them an installed help.
class HelpTest : public QObject
{
    Q_OBJECT

protected:
    QString root() const { return m_help.path(); }
    void writeHelp(const QString &name, const QByteArray &content) const;
    void answerWith(const QByteArray &answer);
    /// The context of a page that only the knowledge base has, or only the installed help.
    HelpContext offer(const QByteArray &content, bool isOnline);

    Certificates m_certificates;
    std::unique_ptr<KnowledgeBase> m_knowledgeBase;

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

private:
    ResourceFolder m_folder;
    const QTemporaryDir m_help;
};
