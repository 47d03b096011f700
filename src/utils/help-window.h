#pragma once

#include "vela_export.h"

#include <QDialog>

#include <memory>

class HelpWindowPrivate;
class QNetworkReply;

/// Which help page is meant.
struct HelpContext
{
    QString lang; ///< three-letter code, see VelaLocale
    QString helpRoot; ///< folder of the installed help, with one folder a language
    QString link; ///< name of the page's file in the folder of a language
    QString section; ///< section of the help that the page belongs to
};

/// Application-modal dialog with one help page: from the knowledge base on the web or, when that fails or takes more
/// than ten seconds, from the installed help. A page that is missing there too leaves the window empty.
///
/// The request starts at once; show the dialog, with exec() for instance. The host of the knowledge base is set when
/// the library is built (VELA_KNOWLEDGE_BASE_HOST).
class VELA_EXPORT HelpWindow : public QDialog
{
    Q_OBJECT

public:
    explicit HelpWindow(const HelpContext &context, QWidget *parent = nullptr);
    ~HelpWindow() override;

Q_SIGNALS:
    /// The request has taken too long and is given up.
    void sigAbortRequest();

public Q_SLOTS:
    void slotReceiveReply(QNetworkReply *reply);
    void slotQueryTimeout();

private:
    void retrieveHelpContent();
    void query();
    void fallbackOfflineHelp();

    const std::unique_ptr<HelpWindowPrivate> d;
};
