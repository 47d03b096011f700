// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "restart.h"

#include <QFile>
#include <QVector>
#include <QtMath>

#include <unistd.h>

namespace {

constexpr double ReferenceDpi = 96.0;

} // namespace

void restart(const QString &program, const QStringList &arguments, double scale)
{
    QList<QByteArray> bytes;
    for (const QString &argument : arguments) {
        bytes.append(QFile::encodeName(argument));
    }
    QVector<char *> pointers;
    for (QByteArray &argument : bytes) {
        pointers.append(argument.data());
    }
    pointers.append(nullptr);
    qputenv("QT_FONT_DPI", QByteArray::number(qRound(scale * ReferenceDpi)));
    execv(QFile::encodeName(program).constData(), pointers.constData());
}
