// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QRandomGenerator>
#include <QString>
#include <QVector>

/// Texts put together at random from the given parts; the same ones in every run.
class GeneratedText
{
public:
    GeneratedText(QVector<QString> parts, int maximalCount) :
        m_parts(std::move(parts)), m_maximalCount(maximalCount) { }

    QString next()
    {
        QString text;
        const int count = m_random.bounded(m_maximalCount + 1);
        for (int i = 0; i < count; ++i) {
            text += m_parts.at(m_random.bounded(m_parts.size()));
        }
        return text;
    }

    /// A number from 0 up to, but without, @p end.
    int bounded(int end) { return m_random.bounded(end); }

private:
    static constexpr quint32 Seed = 20261121;

    QRandomGenerator m_random {Seed};
    QVector<QString> m_parts;
    int m_maximalCount;
};
