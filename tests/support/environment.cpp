// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "support/environment.h"

#include <QProcess>
#include <QStringList>

#include <cmath>

namespace {

constexpr double ReferenceDpi = 96.0;
constexpr double DrawnScale = 4.0;

double variable(const char *name, double defaultValue)
{
    bool isNumber = false;
    const double value = qgetenv(name).toDouble(&isNumber);
    return isNumber ? value : defaultValue;
}

int roundedAtEachStep(int length)
{
    const double logical = std::round(length / DrawnScale);
    const double scaled = std::round(logical * expectedScale());
    return static_cast<int>(std::round(scaled * expectedRatio()));
}

} // namespace

double expectedScale()
{
    return variable("QT_FONT_DPI", ReferenceDpi) / ReferenceDpi;
}

int expectedRatio()
{
    return static_cast<int>(variable("QT_SCALE_FACTOR", 1.0));
}

int expectedPixels(double logical)
{
    return static_cast<int>(logical * expectedScale());
}

QSize expectedImageSize(const QSize &fileSize)
{
    return {roundedAtEachStep(fileSize.width()), roundedAtEachStep(fileSize.height())};
}

QString runAndReadErrors(const QString &program, const QStringList &arguments, bool *crashed)
{
    QProcess process;
    process.start(program, arguments);
    const bool ended = process.waitForFinished();
    *crashed = ended && process.exitStatus() == QProcess::CrashExit;
    return QString::fromUtf8(process.readAllStandardError());
}
