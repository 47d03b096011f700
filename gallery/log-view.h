#pragma once

#include <QString>
#include <QWidget>

class QPlainTextEdit;

/// What the widgets emit and the library warns of, with the time.
class LogView : public QWidget
{
    Q_OBJECT

public:
    LogView();

    void addSignal(const QString &text);
    void addWarning(const QString &text);

private:
    void add(const QString &text, const QString &color);

    QPlainTextEdit *m_text;
};
