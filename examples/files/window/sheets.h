// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <VelaInputSheet>
#include <VelaMessageSheet>

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <functional>

/// The messages and questions of a window: sheets that wait for their answer while the rest goes on.
class Sheets : public QObject
{
    Q_OBJECT

public:
    explicit Sheets(QWidget *window);
    ~Sheets() override;

    /// Texts may be rich: escape names.
    void warn(const QString &message, const QString &details = QString());
    void inform(const QString &message, const QString &details);
    /// Calls @p agreed when the answer is yes, whose button has the text @p yes.
    void ask(const QString &message, const QString &details, const QString &yes, const std::function<void()> &agreed);

    /// What is wrong with a name, in words; empty for nothing.
    using Check = std::function<QString(const QString &)>;
    /// Asks for a name until @p accept has no fault to find, or the user gives up. While @p check finds one, it is
    /// shown and Ok is disabled.
    void askForName(const QString &prompt, const QString &name, const Check &check, const Check &accept);

    /// Counts down seconds in which the user can prevent what @p message announces, and calls @p passed then.
    void countDown(int seconds, const QString &title, const QString &message, const std::function<void()> &passed);

    /// A sheet that says that work goes on which cannot be stopped, once it has taken a while and until hideBusy().
    void showBusy(const QString &message);
    void hideBusy();

private:
    void show(VelaMessageSheet *sheet, const std::function<void()> &agreed);
    void runBusy();

    QWidget *const m_window;
    QString m_busyMessage;
    QTimer m_busyTimer;
    QPointer<VelaMessageSheet> m_busy;
};
