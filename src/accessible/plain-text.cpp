// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "accessible/plain-text_p.h"

#include <QLabel>
#include <QTextDocument>
#include <QTextDocumentFragment>

namespace Vela::Accessible {

QString plain(const QString &richText)
{
    return QTextDocumentFragment::fromHtml(richText).toPlainText().simplified();
}

QString withoutAccessKey(QString caption)
{
    const QChar literal(1); // stands for an ampersand that is shown
    return caption.replace(QLatin1String("&&"), literal).remove(QLatin1Char('&')).replace(literal, QLatin1Char('&'));
}

QString plainToolTip(const QWidget *widget)
{
    const QString text = widget->toolTip();
    return Qt::mightBeRichText(text) ? plain(text) : text;
}

QString plainLabel(const QLabel *label)
{
    const QString text = label->text();
    const bool isRich =
        label->textFormat() == Qt::RichText || (label->textFormat() == Qt::AutoText && Qt::mightBeRichText(text));
    if (isRich) {
        return plain(text);
    }
    return label->buddy() ? withoutAccessKey(text) : text;
}

QString joined(const QStringList &texts)
{
    QStringList kept = texts;
    kept.removeAll(QString());
    return kept.join(QLatin1String(", "));
}

} // namespace Vela::Accessible
