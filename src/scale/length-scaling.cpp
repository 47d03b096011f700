// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "scale/length-scaling_p.h"

#include "scale/truncated.h"

#include <QByteArray>
#include <QVarLengthArray>

#include <algorithm>
#include <limits>

namespace {

// A length in the text: [begin, end) is its number, "px" follows.
struct Length
{
    int begin;
    int end;
};
using Lengths = QVarLengthArray<Length, 64>;

constexpr int UnitSize = 2; // "px"
constexpr int SearchStep = 3; // from the start of one match to where the search for the next begins

// A search goes on three characters behind the start of a match. A number of up to three characters is over by then; of
// a longer one the tail is found again, as a number of its own.
constexpr int LongestWholeNumber = SearchStep;

constexpr int ExactDigits = 15; // any integer of that many digits is a double exactly
constexpr int MaximalIntegerDigits = 309; // an integer of more is infinite as a double
constexpr int MaximalFractionDigits = 800; // of more only whether they are all zero can matter for the rounding
constexpr int LongestResult = 11 + UnitSize; // "-2147483648px"

bool isAsciiDigit(QChar character)
{
    return character >= QLatin1Char('0') && character <= QLatin1Char('9');
}

bool isDigit(QChar character)
{
    return character.unicode() < 0x80 ? isAsciiDigit(character) : character.isDigit();
}

// Start of the run of digits that ends before end; end itself if there is none.
int startOfDigits(const QChar *text, int end)
{
    while (end > 0 && isDigit(text[end - 1])) {
        --end;
    }
    return end;
}

// Start of the number that ends before end; end itself if there is none.
int startOfNumber(const QChar *text, int end)
{
    const int lastRun = startOfDigits(text, end);
    if (lastRun > 0 && text[lastRun - 1] == QLatin1Char('.')) {
        const int point = lastRun - 1;
        const int firstRun = startOfDigits(text, point);
        if (firstRun < point) {
            return firstRun;
        }
    }
    return lastRun;
}

Lengths findLengths(const QString &sheet)
{
    Lengths lengths;
    const QChar *text = sheet.constData();
    for (int i = sheet.indexOf(QLatin1Char('x'), 1); i > 0; i = sheet.indexOf(QLatin1Char('x'), i + 1)) {
        const int end = i - 1;
        if (text[end] != QLatin1Char('p')) {
            continue;
        }
        const int begin = startOfNumber(text, end);
        if (begin < end) {
            lengths.append({begin, end});
        }
    }
    return lengths;
}

// A number too long to be one plain length, whose tails count as numbers too. Asked for tails from left to right it
// answers each in constant time.
class LongNumber
{
public:
    LongNumber(const QChar *text, Length length) : m_begin(text + length.begin), m_end(text + length.end)
    {
        m_point = std::find(m_begin, m_end, QLatin1Char('.'));
        m_significant = m_begin;
        m_pastForeignDigits = m_begin;
        m_pastNonZeroDigits = m_begin;
        for (const QChar *it = m_begin; it != m_end; ++it) {
            if (it == m_point) {
                continue;
            }
            if (!isAsciiDigit(*it)) {
                m_pastForeignDigits = it + 1;
            }
            if (*it != QLatin1Char('0')) {
                m_pastNonZeroDigits = it + 1;
            }
        }
    }

    // The value of the number from start, a digit, on.
    double valueFrom(const QChar *start)
    {
        if (start < m_pastForeignDigits) {
            return 0.0;
        }
        const QChar *integerEnd = start < m_point ? m_point : m_end;
        m_significant = std::max(m_significant, start);
        while (m_significant < integerEnd && *m_significant == QLatin1Char('0')) {
            ++m_significant;
        }
        if (integerEnd - m_significant > MaximalIntegerDigits) {
            return std::numeric_limits<double>::infinity();
        }

        QByteArray digits("0");
        append(digits, m_significant, integerEnd);
        if (integerEnd < m_end) {
            const QChar *fraction = integerEnd + 1;
            const QChar *fractionEnd = fraction + std::min<qptrdiff>(m_end - fraction, MaximalFractionDigits);
            digits.append('.');
            append(digits, fraction, fractionEnd);
            if (fractionEnd < m_pastNonZeroDigits) {
                digits.append('1');
            }
        }
        return digits.toDouble();
    }

private:
    static void append(QByteArray &digits, const QChar *begin, const QChar *end)
    {
        std::for_each(begin, end, [&digits](QChar digit) { digits.append(digit.toLatin1()); });
    }

    const QChar *m_begin;
    const QChar *m_end;
    const QChar *m_point; // m_end if there is none
    const QChar *m_significant; // first digit that is not a leading zero, from the last start on
    const QChar *m_pastForeignDigits; // behind the last digit that is not one of 0 to 9
    const QChar *m_pastNonZeroDigits;
};

// The value of a number short enough to be one plain length.
double valueOfShortNumber(const QChar *begin, const QChar *end)
{
    static_assert(LongestWholeNumber <= ExactDigits);
    int digits = 0;
    int divisor = 1;
    bool isFraction = false;
    for (const QChar *it = begin; it != end; ++it) {
        if (*it == QLatin1Char('.')) {
            isFraction = true;
        } else if (!isAsciiDigit(*it)) {
            return 0.0;
        } else {
            digits = digits * 10 + (it->unicode() - '0');
            divisor *= isFraction ? 10 : 1;
        }
    }
    return static_cast<double>(digits) / divisor;
}

// Writes the scaled text; pieces and numbers are paired by their count, also where the tails of long numbers have put
// them out of step.
class Writer
{
public:
    Writer(const QString &sheet, const Lengths &lengths, double factor) :
        m_text(sheet.constData()),
        m_size(sheet.size()),
        m_lengths(lengths),
        m_factor(factor),
        m_result(capacity(), Qt::Uninitialized),
        m_out(m_result.data())
    {
    }

    QString write()
    {
        for (const Length &length : m_lengths) {
            if (length.end - length.begin <= LongestWholeNumber) {
                writePiece();
                writeLength(valueOfShortNumber(m_text + length.begin, m_text + length.end));
            } else {
                writeLongNumber(length);
            }
        }
        writePiece();
        m_result.resize(static_cast<int>(m_out - m_result.constData()));
        return std::move(m_result);
    }

private:
    int capacity() const
    {
        int matches = 0;
        for (const Length &length : m_lengths) {
            matches += (length.end - length.begin + SearchStep - 1) / SearchStep;
        }
        return m_size + matches * LongestResult;
    }

    void writeLongNumber(Length length)
    {
        LongNumber number(m_text, length);
        for (int start = length.begin; start < length.end; start += SearchStep) {
            if (m_text[start] == QLatin1Char('.')) {
                ++start;
            }
            if (start < length.end) {
                writePiece();
                writeLength(number.valueFrom(m_text + start));
            }
        }
    }

    // Writes the next piece of text between two lengths; nothing if there are no more.
    void writePiece()
    {
        if (m_piece > m_lengths.size()) {
            return;
        }
        const int begin = m_piece == 0 ? 0 : m_lengths[m_piece - 1].end + UnitSize;
        const int end = m_piece == m_lengths.size() ? m_size : m_lengths[m_piece].begin;
        m_out = std::copy(m_text + begin, m_text + end, m_out);
        ++m_piece;
    }

    void writeLength(double value)
    {
        const int scaled = truncated(value * m_factor);
        if (scaled < 0) {
            *m_out++ = QLatin1Char('-');
        }
        unsigned rest = scaled < 0 ? 0u - static_cast<unsigned>(scaled) : static_cast<unsigned>(scaled);
        QChar digits[std::numeric_limits<unsigned>::digits10 + 1];
        QChar *const digitsEnd = std::end(digits);
        QChar *digit = digitsEnd;
        do {
            *--digit = QLatin1Char(static_cast<char>('0' + rest % 10));
            rest /= 10;
        } while (rest != 0);
        m_out = std::copy(digit, digitsEnd, m_out);
        *m_out++ = QLatin1Char('p');
        *m_out++ = QLatin1Char('x');
    }

    const QChar *m_text;
    int m_size;
    const Lengths &m_lengths;
    double m_factor;
    QString m_result;
    QChar *m_out;
    int m_piece = 0;
};

} // namespace

QString scaleLengths(const QString &sheet, double factor)
{
    const Lengths lengths = findLengths(sheet);
    return lengths.isEmpty() ? sheet : Writer(sheet, lengths, factor).write();
}
