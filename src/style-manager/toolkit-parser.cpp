// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "style-manager/toolkit-parser_p.h"

#include <QThread>
#include <QWidget>

namespace Vela {

namespace {

// The toolkit tells by a warning only that it refuses a sheet. All other messages are passed on.
class RefusalListener
{
public:
    RefusalListener()
    {
        thread = QThread::currentThread();
        isRefused = false;
        passOn = qInstallMessageHandler(nullptr); // is known before other threads may ask for it
        qInstallMessageHandler(listen);
    }
    ~RefusalListener() { qInstallMessageHandler(passOn); }
    Q_DISABLE_COPY_MOVE(RefusalListener)

    bool hasHeard() const { return isRefused; }

private:
    static void listen(QtMsgType type, const QMessageLogContext &context, const QString &message)
    {
        const bool isOurs = QThread::currentThread() == thread;
        if (isOurs && message.startsWith(QLatin1String("Could not parse stylesheet"))) {
            isRefused = true;
        } else if (!isOurs || !message.startsWith(QLatin1String("Could not create pixmap from"))) {
            passOn(type, context, message);
        }
    }

    static inline QThread *thread = nullptr;
    static inline bool isRefused = false;
    static inline QtMessageHandler passOn = nullptr;
};

} // namespace

// What the toolkit cannot parse as rules it reads once more as declarations, of which it skips those that it does not
// know, without a word. Whether a rule in front of the sheet holds tells that.
bool isUnderstood(const QString &sheet)
{
    constexpr int Width = 4321;
    const RefusalListener listener;
    QString filled = sheet;
    filled.remove(QLatin1String("%1")).remove(QLatin1String("%2")); // places where a combo box puts in its own
    const bool hasRules = filled.contains(QLatin1Char('{'));
    QWidget probe;
    probe.setObjectName(QStringLiteral("vela_probe"));
    probe.setStyleSheet(hasRules ? QStringLiteral("#vela_probe { min-width: %1px; }\n").arg(Width) + filled : filled);
    probe.ensurePolished();
    return !listener.hasHeard() && (!hasRules || probe.minimumWidth() == Width);
}

} // namespace Vela
