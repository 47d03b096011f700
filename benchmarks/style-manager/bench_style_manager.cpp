// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "image-manager/image-manager.h"
#include "style-manager/style-manager.h"
#include "support/comparison.h"
#include "support/resources.h"

#include <QApplication>
#include <QFile>

namespace {

constexpr double InitializeTarget = 3.5;
constexpr double ShortSectionTarget = 1.2;
constexpr double LongSectionTarget = 1.05;

constexpr int Kilobyte = 1024;
constexpr int Megabyte = 1024 * Kilobyte;

// Returns text without its comments, in one pass; a comment that is never closed is left standing.
QString withoutComments(const QString &text)
{
    QString result(text.size(), Qt::Uninitialized);
    QChar *out = result.data();
    const QChar *const end = text.constEnd();
    bool closesBlocks = true;
    bool closesLines = true;
    for (const QChar *in = text.constBegin(); in != end;) {
        const QChar *comment = in;
        if (*in == QLatin1Char('/') && in[1] == QLatin1Char('*') && closesBlocks) {
            for (in += 2; in != end && !(*in == QLatin1Char('*') && in[1] == QLatin1Char('/')); ++in) { }
            closesBlocks = in != end;
            in = closesBlocks ? in + 2 : comment;
        } else if (*in == QLatin1Char('/') && in[1] == QLatin1Char('/') && closesLines) {
            for (in += 2; in != end && *in != QLatin1Char('\n'); ++in) { }
            closesLines = in != end;
            in = closesLines ? in + 1 : comment;
        } else {
            *out++ = *in++;
        }
    }
    result.resize(static_cast<int>(out - result.constData()));
    return result;
}

// Returns text with the number before each "px" multiplied, the number's digits gone back over from the unit.
QString scaled(const QString &text, double factor)
{
    QString result;
    result.reserve(text.size() + text.size() / 8);
    int done = 0;
    for (int x = text.indexOf(QLatin1Char('x'), 1); x > 0; x = text.indexOf(QLatin1Char('x'), x + 1)) {
        if (text[x - 1] != QLatin1Char('p')) {
            continue;
        }
        int begin = x - 1;
        int number = 0;
        for (int weight = 1; begin > done && text[begin - 1].isDigit(); weight *= 10) {
            number += (text[--begin].unicode() - '0') * weight;
        }
        if (begin < x - 1) {
            result.append(text.constData() + done, begin - done);
            result.append(QString::number(static_cast<int>(number * factor)));
            done = x - 1;
        }
    }
    return result.append(text.constData() + done, text.size() - done);
}

QString readFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("cannot read %s", qUtf8Printable(path));
    }
    return QString::fromUtf8(file.readAll());
}

QByteArray repeated(const QByteArray &text, int size)
{
    return text.repeated(size / text.size());
}

QByteArray headersOnly(int size)
{
    QByteArray text;
    for (int i = 0; text.size() < size; ++i) {
        text += "== component.widget_" + QByteArray::number(i % 100) + " ==\n";
    }
    return text;
}

// Compares initialize() with a file of content against one pass over its text, from memory and, when
// alsoFromFile, with the reading of the file.
void compareInitialize(const Resources &resources, const std::string &what, const QByteArray &content,
                       bool alsoFromFile = false)
{
    const QString path = resources.writeSheet(QString::fromStdString(what) + QLatin1String(".qss"), content);
    const Side ours = [path](benchmark::State &state) {
        for (auto iteration : state) {
            Q_UNUSED(iteration)
            StyleManager::getInstance()->initialize({path});
        }
    };
    compare("initialize, " + what, InitializeTarget, ours, [path](benchmark::State &state) {
        const QString text = readFile(path);
        for (auto iteration : state) {
            Q_UNUSED(iteration)
            benchmark::DoNotOptimize(withoutComments(text));
        }
    });
    if (alsoFromFile) {
        compare("initialize, " + what + ", floor reads the file", std::nullopt, ours, [path](benchmark::State &state) {
            for (auto iteration : state) {
                Q_UNUSED(iteration)
                benchmark::DoNotOptimize(withoutComments(readFile(path)));
            }
        });
    }
}

// Compares getStyleSheet() of a section body against a bare scanner; without a target only to be seen.
void compareGetStyleSheet(const Resources &resources, const std::string &what, std::optional<double> target,
                          const QByteArray &body)
{
    const QString key = QString::fromStdString(what).remove(QLatin1Char(' '));
    const QString path = resources.writeSheet(key + QLatin1String(".qss"), headed(qUtf8Printable(key), body));
    StyleManager::getInstance()->initialize({path});
    compare(
        "getStyleSheet, " + what, target,
        [key](benchmark::State &state) {
            for (auto iteration : state) {
                Q_UNUSED(iteration)
                benchmark::DoNotOptimize(StyleManager::getInstance()->getStyleSheet(key, false));
            }
        },
        [key](benchmark::State &state) {
            const QString section = StyleManager::getInstance()->getStyleSheet(key, true);
            const double factor = DPIinfo::getInstance()->getDPI();
            for (auto iteration : state) {
                Q_UNUSED(iteration)
                benchmark::DoNotOptimize(scaled(section, factor));
            }
        });
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    const Resources resources;
    ImageManager::getInstance()->initialize(ImageManager::INIT_LAZY);

    compareInitialize(resources, "10 KB", sheetFile(10 * Kilobyte), true);
    compareInitialize(resources, "100 KB", sheetFile(100 * Kilobyte), true);
    compareInitialize(resources, "1 MB", sheetFile(Megabyte), true);
    compareInitialize(resources, "10 MB", sheetFile(10 * Megabyte), true);

    constexpr std::pair<const char *, const char *> HostileTexts[] = {
        {"unclosed block comments", "/* "},
        {"slashes", "/"},
        {"equals signs", "="},
        {"unended line comments", "//a "},
        {"one line", "QLabel { margin: 1px } "},
        {"line breaks", "\n"},
        {"headers without a key", "==\n"},
    };
    for (const auto &[what, text] : HostileTexts) {
        compareInitialize(resources, std::string("1 MB of ") + what, repeated(text, Megabyte));
        compareInitialize(resources, std::string("10 MB of ") + what, repeated(text, 10 * Megabyte));
    }
    compareInitialize(resources, "1 MB of headers", headersOnly(Megabyte));
    compareInitialize(resources, "10 MB of headers", headersOnly(10 * Megabyte));

    compareGetStyleSheet(resources, "500 B", ShortSectionTarget, sheetSection(500));
    compareGetStyleSheet(resources, "100 KB", LongSectionTarget, sheetSection(100 * Kilobyte));
    compareGetStyleSheet(resources, "64 KB of digits", std::nullopt, repeated("7", 64 * Kilobyte) + "px");
    compareGetStyleSheet(resources, "640 KB of digits", std::nullopt, repeated("7", 640 * Kilobyte) + "px");
    compareGetStyleSheet(resources, "64 KB of digits and points", std::nullopt, repeated("1.", 64 * Kilobyte) + "1px");
    compareGetStyleSheet(resources, "640 KB of digits and points", std::nullopt,
                         repeated("1.", 640 * Kilobyte) + "1px");
    compareGetStyleSheet(resources, "64 KB of lengths", std::nullopt, repeated("7px", 64 * Kilobyte));
    compareGetStyleSheet(resources, "640 KB of lengths", std::nullopt, repeated("7px", 640 * Kilobyte));
    return runComparisons(argc, argv);
}
