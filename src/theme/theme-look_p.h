// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "look/look_p.h"

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>

class QJsonObject;
class QJsonValue;

namespace Vela {

/// What a theme.json tells: the look of what lies outside of the style sheets. What it does not tell stays.
class ThemeLook
{
public:
    ThemeLook() = default;
    /// What makes no sense of an entry.
    enum class Fault {
        Key,
        Color,
        Value, ///< other than a colour
    };
    /// Tells of each entry that makes no sense, by its key behind those of the objects around it.
    using Complaint = std::function<void(Fault fault, const QStringList &path, const QString &text)>;
    ThemeLook(const QJsonObject &object, const Complaint &complaint);

    /// The keys that have a meaning in the object at @p path.
    static QStringList keys(const QStringList &path);

    QPalette palette(QPalette base) const;
    QFont font(QFont base) const;
    QPalette toolTipPalette(QPalette base) const;
    const Look::Colors &colors() const { return m_colors; }

private:
    struct PaletteColor
    {
        QPalette::ColorGroup group;
        QPalette::ColorRole role;
        QColor color;
    };

    static QPalette painted(QPalette palette, const QVector<PaletteColor> &colors);
    void readPalette(const QJsonObject &object, QPalette::ColorGroup group, const Complaint &complaint);
    void readFont(const QJsonObject &object, const Complaint &complaint);
    void readToolTip(const QJsonObject &object, const Complaint &complaint);
    void readColors(const QJsonObject &object, const Complaint &complaint);

    QVector<PaletteColor> m_palette;
    QVector<PaletteColor> m_toolTip;
    QString m_fontFamily;
    double m_fontSize = 0.0; // points, 0 for none
    int m_fontWeight = -1; // weight as QFont counts, -1 for none
    Look::Colors m_colors;
};

} // namespace Vela
