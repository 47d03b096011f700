// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "check.h"
#include "findings.h"
#include "theme-program.h"

#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>
#include <ctime>

// Arbitrary files: whatever they hold, the check tells of it, and ends. VELA_FUZZ_SECONDS makes it go on for so long,
// and VELA_FUZZ_SEED begin elsewhere; a failure tells the seed that leads to it again.

namespace {

constexpr int ShortRounds = 25; // of each file, where no time is given
constexpr int LongestSheet = 100000;
constexpr uint FirstSeed = 7;

// What has a meaning in some file of a theme, or nearly.
const char *const Words[] = {
    "/*",
    "*/",
    "//",
    "==",
    "== component.label ==\n",
    "== ==\n",
    "==\n",
    "= a =\n",
    "{",
    "}",
    "QLabel {",
    "a{}",
    ";",
    ":",
    "::",
    ":hover",
    ":!hover",
    ",",
    "[",
    "]",
    "[a=\"b\"]",
    "(",
    ")",
    "\"",
    "'",
    "\\",
    "#",
    "#a",
    "#12345",
    "%1",
    "%2",
    "%9",
    "%",
    "url(",
    "url(\"IMG_LOC/bt_add.png\")",
    "IMG_LOC",
    "TMPIMG_LOC/",
    "tmp_",
    "12345px",
    "1.5px",
    ".5px",
    "-1px",
    "px",
    "6 px",
    "color: red;",
    "border: ",
    "padding: ",
    "background:",
    "rgba(1,2,3,",
    "qlineargradient(",
    "@import",
    "<!--",
    "!important",
    "\n",
    "\r",
    "\t",
    "\f",
    "*",
    ">",
    " ",
    "{\"a\": ",
    "[[",
    "\"images\":",
    "\"font\": {",
    "null",
    "\xef\xbb\xbf",
    "\xff\xfe",
    "\xc3",
    "\xf0\x9f\x98\x80",
    "/* vela-theme: allow color-invalid: x */",
    "IEND",
    "IDAT",
    "IHDR",
    "PLTE",
    "\x89PNG\r\n\x1a\n",
};

double fuzzSeconds()
{
    return qEnvironmentVariable("VELA_FUZZ_SECONDS").toDouble();
}

class Mutator
{
public:
    explicit Mutator(uint seed) : m_random(seed) { }

    QByteArray mutated(QByteArray bytes)
    {
        if (below(20) == 0) {
            bytes = noise(below(3000));
        }
        for (int rounds = 1 + below(6); rounds > 0; --rounds) {
            change(bytes);
        }
        return bytes.left(LongestSheet);
    }

private:
    int below(int end) { return m_random.bounded(std::max(1, end)); }

    QByteArray noise(int size)
    {
        QByteArray bytes;
        while (bytes.size() < size) {
            bytes.append(static_cast<char>(below(256)));
        }
        return bytes;
    }

    QByteArray word()
    {
        const int index = below(static_cast<int>(std::size(Words)) + 1);
        return index < static_cast<int>(std::size(Words)) ? QByteArray(Words[index]) : QByteArray(1, '\0');
    }

    void change(QByteArray &bytes)
    {
        const int position = below(bytes.size() + 1);
        switch (below(8)) {
        case 0:
            bytes.insert(position, noise(1 + below(8)));
            break;
        case 1:
            bytes.insert(position, word());
            break;
        case 2:
            bytes.insert(position, word().repeated(1 + below(below(10) == 0 ? 20000 : 40)));
            break;
        case 3:
            bytes.remove(position, 1 + below(below(2) == 0 ? 3 : 400));
            break;
        case 4:
            bytes.truncate(position);
            break;
        case 5: // a part stands twice
            bytes.insert(position, bytes.mid(below(bytes.size()), below(600)));
            break;
        case 6: // all of a character
            if (!bytes.isEmpty()) {
                bytes.replace(QByteArray(1, bytes.at(position % bytes.size())), below(2) == 0 ? QByteArray() : word());
            }
            break;
        default:
            if (!bytes.isEmpty()) {
                bytes[position % bytes.size()] = static_cast<char>(below(256));
            }
        }
    }

    QRandomGenerator m_random;
};

} // namespace

class ThemeFuzzTest : public QObject
{
    Q_OBJECT

public:
    static void initMain()
    {
        if (fuzzSeconds() > 0) {
            qputenv("QTEST_FUNCTION_TIMEOUT", QByteArray::number(static_cast<qint64>(2000 * fuzzSeconds())));
        }
    }

private Q_SLOTS:
    void arbitraryFilesAreCheckedToTheEnd_data();
    void arbitraryFilesAreCheckedToTheEnd();
};

void ThemeFuzzTest::arbitraryFilesAreCheckedToTheEnd_data()
{
    QTest::addColumn<QString>("file");
    for (const char *file : {"styles/buttons.qss", "styles/combo-and-menu.qss", "styles/date.qss", "images.json",
                             "strings/enu.json", "theme.json", "images/app_img.png"}) {
        QTest::newRow(file) << QString::fromLatin1(file);
    }
}

void ThemeFuzzTest::arbitraryFilesAreCheckedToTheEnd()
{
    constexpr double MostSeconds = 10; // of the processor's time, for one check
    constexpr int Files = 7;
    QFETCH(QString, file);
    const double seconds = fuzzSeconds() / Files;
    const ThemeCopy theme;
    const QByteArray original = theme.read(file);
    uint seed =
        qEnvironmentVariableIsSet("VELA_FUZZ_SEED") ? qEnvironmentVariable("VELA_FUZZ_SEED").toUInt() : FirstSeed;
    int faulty = 0;
    int round = 0;
    QElapsedTimer sinceBegin;
    sinceBegin.start();
    for (; seconds > 0 ? sinceBegin.elapsed() < seconds * 1000 : round < ShortRounds; ++round, ++seed) {
        theme.write(file, Mutator(seed).mutated(original));
        const std::clock_t begin = std::clock();
        const QString found = asText(checkTheme(theme.path(), CheckedParts::Files), QStringLiteral("theme"));
        QVERIFY2(static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC < MostSeconds,
                 qPrintable(QString::number(seed)));
        faulty += found.isEmpty() ? 0 : 1;
        QVERIFY2(found.count(u'\n') <= 1001, qPrintable(QString::number(seed)));
    }
    qInfo("%d of %d have faults, up to seed %u", faulty, round, seed - 1);
    QVERIFY(faulty > round / 2);
}

QTEST_MAIN(ThemeFuzzTest)

#include "tst_theme_fuzz.moc"
