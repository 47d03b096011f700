// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "native-path.h"

#include <QFile>

namespace {

constexpr ushort FirstEscape = 0xDC80; // stands for the byte 0x80
constexpr ushort LastEscape = 0xDCFF;
constexpr ushort FirstControlPicture = 0x2400; // of the character 0
constexpr ushort DeletePicture = 0x2421;
constexpr char Delete = 0x7F;

// Of the sequence that begins with this byte, if it is one.
int sequenceLength(uchar lead)
{
    if (lead < 0xC0) {
        return 1;
    }
    return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

bool isEscape(const QString &text, int i)
{
    const ushort unit = text.at(i).unicode();
    return unit >= FirstEscape && unit <= LastEscape && (i == 0 || !text.at(i - 1).isHighSurrogate());
}

uchar escapedByte(QChar escape)
{
    return static_cast<uchar>(escape.unicode() - FirstEscape + 0x80);
}

// Marks that turn the order of what follows.
bool isDirectionOverride(QChar character)
{
    return (character.unicode() >= 0x202A && character.unicode() <= 0x202E)
        || (character.unicode() >= 0x2066 && character.unicode() <= 0x2069);
}

QString shownCharacter(QChar character)
{
    if (character.unicode() < ' ') {
        return QChar(static_cast<ushort>(FirstControlPicture + character.unicode()));
    }
    if (character == QLatin1Char(Delete)) {
        return QChar(DeletePicture);
    }
    const bool isSeen = !isDirectionOverride(character) && character != QChar::LineSeparator
        && character != QChar::ParagraphSeparator && character.category() != QChar::Other_Control;
    return isSeen ? QString(character) : QString(QChar(QChar::ReplacementCharacter));
}

} // namespace

QString pathFromBytes(const QByteArray &bytes)
{
    const QString whole = QString::fromUtf8(bytes);
    if (whole.toUtf8() == bytes) {
        return whole;
    }
    QString path;
    for (int i = 0; i < bytes.size();) {
        const QByteArray sequence = bytes.mid(i, sequenceLength(static_cast<uchar>(bytes.at(i))));
        const QString character = QString::fromUtf8(sequence);
        if (character.toUtf8() == sequence) {
            path += character;
            i += sequence.size();
        } else {
            path += QChar(static_cast<ushort>(FirstEscape + static_cast<uchar>(bytes.at(i)) - 0x80));
            ++i;
        }
    }
    return path;
}

QByteArray bytesFromPath(const QString &path)
{
    QByteArray bytes;
    int begin = 0;
    for (int i = 0; i < path.size(); ++i) {
        if (isEscape(path, i)) {
            bytes += path.mid(begin, i - begin).toUtf8();
            bytes += static_cast<char>(escapedByte(path.at(i)));
            begin = i + 1;
        }
    }
    return bytes + path.mid(begin).toUtf8();
}

QString shownName(const QString &name)
{
    QString shown;
    for (int i = 0; i < name.size(); ++i) {
        shown += isEscape(name, i) ? QStringLiteral("\\x%1").arg(escapedByte(name.at(i)), 2, 16, QLatin1Char('0'))
                                   : shownCharacter(name.at(i));
    }
    return shown;
}

bool isKnownToToolkit(const QString &path)
{
    return QFile::encodeName(path) == bytesFromPath(path);
}

QString joinedPath(const QString &folder, const QString &name)
{
    return (folder.endsWith(u'/') ? folder : QString(folder + u'/')) + name;
}

QString nameOfPath(const QString &path)
{
    return path.mid(path.lastIndexOf(u'/') + 1);
}

QString parentOfPath(const QString &path)
{
    const int slash = path.lastIndexOf(u'/');
    return slash > 0 ? path.left(slash) : QStringLiteral("/");
}

bool isWithin(const QString &path, const QString &folder)
{
    return path == folder || path.startsWith(joinedPath(folder, QString()));
}
