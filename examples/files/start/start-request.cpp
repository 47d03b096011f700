// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "start-request.h"

#include "disk/native-path.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFile>

namespace {

constexpr QChar Separator(u'\n'); // of what is percent-encoded, since names may hold anything

QString encoded(const QString &text)
{
    return QString::fromLatin1(bytesFromPath(text).toPercentEncoding());
}

QString decoded(const QString &text)
{
    return pathFromBytes(QByteArray::fromPercentEncoding(text.toLatin1()));
}

// The toolkit decodes arguments by the user's encoding, which an unknown name does not survive.
QString absoluteFolder(const QString &argument)
{
    if (argument.isEmpty()) {
        return {};
    }
    const QString path = argument.startsWith(QLatin1String("file://")) ? decoded(argument.mid(7)) : argument;
    return QDir::cleanPath(QDir::current().absoluteFilePath(path));
}

} // namespace

QString StartRequest::toMessage() const
{
    return QStringList {encoded(folder), encoded(theme), encoded(language)}.join(Separator);
}

StartRequest StartRequest::fromMessage(const QString &message)
{
    const QStringList parts = message.split(Separator);
    return {decoded(parts.value(0)), decoded(parts.value(1)), decoded(parts.value(2))};
}

StartRequest readArguments(const QStringList &arguments, QString *answer, bool *isHelp)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Shows and arranges your files."));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption theme(QStringLiteral("theme"), QStringLiteral("light, dark or high-contrast."),
                                   QStringLiteral("name"));
    const QCommandLineOption language(QStringLiteral("language"), QStringLiteral("enu, deu, chs, ara, ..."),
                                      QStringLiteral("code"));
    parser.addOptions({theme, language});
    parser.addPositionalArgument(QStringLiteral("folder"), QStringLiteral("What to show first."),
                                 QStringLiteral("[folder]"));
    if (!parser.parse(arguments)) {
        *answer = parser.errorText();
    } else if (parser.isSet(help)) {
        *answer = parser.helpText();
        *isHelp = true;
    }
    return {absoluteFolder(parser.positionalArguments().value(0)), parser.value(theme), parser.value(language)};
}
