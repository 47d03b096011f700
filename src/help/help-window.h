// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "vela_export.h"

#include <QDialog>

#include <memory>

class HelpWindowPrivate;
class QNetworkReply;

/// Which help page is meant. Of a null string the query has the name alone, without "=".
struct HelpContext
{
    QString lang; ///< three-letter code, see VelaLocale
    /// Folder of the installed help, with one folder a language. Their names are the help's own codes, which the query
    /// has as well: "ger" for "deu", "spn" for "esn", "fre" for "fra", and English ("enu") for languages without help
    /// pages: "dan", "sve", "hun", "trk", "nor", "ptg", "ptb" and "tha". All other codes are the same.
    QString helpRoot;
    QString link; ///< name of the page's file in the folder of a language
    QString section; ///< section of the help that the page belongs to
};

/// Application-modal dialog with one help page: from the knowledge base on the web or, when that fails or takes more
/// than ten seconds or brings more than 64 MiB, from the installed help. A page that is missing there too leaves the
/// window empty. These pages are UTF-8, and HTML where they begin with a tag or `<!DOCTYPE`; with a comment before it,
/// as any other text, they are shown as they are. Those that their links lead to in the installed help are what they
/// declare, UTF-8 by default.
///
/// The request starts at once; show the dialog, with exec() for instance. The host of the knowledge base is set when
/// the library is built (VELA_KNOWLEDGE_BASE_HOST).
class VELA_EXPORT HelpWindow : public QDialog
{
    Q_OBJECT

public:
    /// A window with the page of @p context, which is asked for at once.
    explicit HelpWindow(const HelpContext &context, QWidget *parent = nullptr);
    ~HelpWindow() override;

Q_SIGNALS:
    /// The request has taken too long and is given up.
    void sigAbortRequest();

public Q_SLOTS:
    /// Shows the page that the finished reply brings, or the installed one if it has failed; deletes the reply later.
    void slotReceiveReply(QNetworkReply *reply);
    /// Emits sigAbortRequest(), which ends the request if it is still pending: the installed page is shown.
    void slotQueryTimeout();

protected:
    void customEvent(QEvent *event) override;

private:
    void retrieveHelpContent();
    void query();
    void fallbackOfflineHelp();

    const std::unique_ptr<HelpWindowPrivate> d;
};
