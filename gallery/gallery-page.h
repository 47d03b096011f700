// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDebug>
#include <QList>
#include <QMetaMethod>
#include <QString>
#include <QStringList>
#include <QWidget>

class QGridLayout;
class QVBoxLayout;

/// A page of the gallery: a title, and sections that hold examples in rows.
class GalleryPage : public QWidget
{
    Q_OBJECT

public:
    GalleryPage(const QString &title, const QString &introduction);

    /// Begins a section; @p columns are the headings above the widgets of its examples. Without headings the widgets
    /// stand side by side in no columns.
    void addSection(const QString &title, const QString &description, const QStringList &columns = {});

    /// Adds a row to the section: what is seen there, a quieter line below that for programmers and authors of themes,
    /// and the widgets, of which a null one leaves its column empty.
    void addExample(const QString &caption, const QString &detail, const QList<QWidget *> &widgets);

    /// Adds a row to the section that @p widget fills.
    void addWide(QWidget *widget);

    /// Logs each emission of @p signal, with its arguments, under @p caption.
    template<typename Sender, typename Class, typename... Arguments>
    void logSignal(const QString &caption, Sender *sender, void (Class::*signal)(Arguments...));

Q_SIGNALS:
    void logged(const QString &entry);

private:
    QVBoxLayout *m_sections;
    QGridLayout *m_examples = nullptr; // examples of the last section
    bool m_hasColumns = false; // whether the last section has headings
};

/// @p value as the debug stream writes it.
template<typename Value>
QString debugText(const Value &value)
{
    QString text;
    QDebug(&text).nospace() << value;
    return text;
}

template<typename Sender, typename Class, typename... Arguments>
void GalleryPage::logSignal(const QString &caption, Sender *sender, void (Class::*signal)(Arguments...))
{
    const QString name = QString::fromLatin1(QMetaMethod::fromSignal(signal).name());
    connect(sender, signal, this, [this, caption, name](const Arguments &...arguments) {
        QStringList texts;
        (texts.append(debugText(arguments)), ...);
        Q_EMIT logged(caption + QStringLiteral(": ") + name + u'(' + texts.join(QStringLiteral(", ")) + u')');
    });
}
