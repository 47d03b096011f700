// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "theme/theme-look_p.h"

#include <QJsonObject>
#include <QToolTip>

#include <algorithm>
#include <iterator>

namespace Vela {

namespace {

using Fault = ThemeLook::Fault;

struct Role
{
    const char *key;
    QPalette::ColorRole role;
};

constexpr Role Roles[] = {
    {"window", QPalette::Window},
    {"window_text", QPalette::WindowText},
    {"base", QPalette::Base},
    {"alternate_base", QPalette::AlternateBase},
    {"text", QPalette::Text},
    {"placeholder_text", QPalette::PlaceholderText},
    {"button", QPalette::Button},
    {"button_text", QPalette::ButtonText},
    {"bright_text", QPalette::BrightText},
    {"light", QPalette::Light},
    {"midlight", QPalette::Midlight},
    {"mid", QPalette::Mid},
    {"dark", QPalette::Dark},
    {"shadow", QPalette::Shadow},
    {"highlight", QPalette::Highlight},
    {"highlighted_text", QPalette::HighlightedText},
    {"link", QPalette::Link},
    {"link_visited", QPalette::LinkVisited},
    {"tool_tip_base", QPalette::ToolTipBase},
    {"tool_tip_text", QPalette::ToolTipText},
};

constexpr Role ToolTipRoles[] = {
    {"base", QPalette::ToolTipBase},
    {"text", QPalette::ToolTipText},
};

// Weights as style sheets have them, and as QFont has them.
struct Weight
{
    int inSheets;
    QFont::Weight weight;
};

constexpr Weight Weights[] = {
    {100, QFont::Thin},   {200, QFont::ExtraLight}, {300, QFont::Light},
    {400, QFont::Normal}, {500, QFont::Medium},     {600, QFont::DemiBold},
    {700, QFont::Bold},   {800, QFont::ExtraBold},  {900, QFont::Black},
};

constexpr double MaximalFontSize = 1000.0; // points

template<typename Entries>
auto find(const Entries &entries, const QString &key)
{
    return std::find_if(std::begin(entries), std::end(entries),
                        [&key](const auto &entry) { return key == QLatin1String(entry.key); });
}

// The colour, invalid after a complaint.
QColor colorIn(const QJsonValue &value, const QString &key, const ThemeLook::Complaint &complaint)
{
    const QColor color(value.toString());
    if (!color.isValid()) {
        complaint(Fault::Color, {key}, QStringLiteral("\"%1\" is no colour").arg(key));
    }
    return color;
}

void complainOfKey(const QString &key, const ThemeLook::Complaint &complaint)
{
    complaint(Fault::Key, {key}, QStringLiteral("\"%1\" has no meaning here").arg(key));
}

// The objects that each key must have as its value.
QJsonObject objectIn(const QJsonValue &value, const QString &key, const ThemeLook::Complaint &complaint)
{
    if (!value.isObject()) {
        complaint(Fault::Value, {key}, QStringLiteral("\"%1\" is no object").arg(key));
    }
    return value.toObject();
}

// Of what stands in the object under key.
ThemeLook::Complaint within(const QString &key, const ThemeLook::Complaint &complaint)
{
    return [key, complaint](Fault fault, const QStringList &path, const QString &text) {
        complaint(fault, QStringList(key) + path, text);
    };
}

template<typename Entries>
QStringList keysOf(const Entries &entries)
{
    QStringList keys;
    for (const auto &entry : entries) {
        keys.append(QString::fromLatin1(entry.key));
    }
    return keys;
}

} // namespace

ThemeLook::ThemeLook(const QJsonObject &object, const Complaint &complaint)
{
    for (auto it = object.begin(); it != object.end(); ++it) {
        const QString key = it.key();
        if (key == QLatin1String("palette")) {
            readPalette(objectIn(it.value(), key, complaint), QPalette::All, within(key, complaint));
        } else if (key == QLatin1String("font")) {
            readFont(objectIn(it.value(), key, complaint), within(key, complaint));
        } else if (key == QLatin1String("tool_tip")) {
            readToolTip(objectIn(it.value(), key, complaint), within(key, complaint));
        } else if (key == QLatin1String("colors")) {
            readColors(objectIn(it.value(), key, complaint), within(key, complaint));
        } else {
            complainOfKey(key, complaint);
        }
    }
}

QStringList ThemeLook::keys(const QStringList &path)
{
    const QString palette = QStringLiteral("palette");
    const QStringList groups = {QStringLiteral("disabled"), QStringLiteral("inactive")};
    const QString object = path.value(0);
    if (path.isEmpty()) {
        return {palette, QStringLiteral("font"), QStringLiteral("tool_tip"), QStringLiteral("colors")};
    }
    if (object == palette) {
        return keysOf(Roles) + (path.size() == 1 ? groups : QStringList());
    }
    if (object == QLatin1String("font")) {
        return {QStringLiteral("family"), QStringLiteral("point_size"), QStringLiteral("weight")};
    }
    return object == QLatin1String("tool_tip") ? keysOf(ToolTipRoles) : keysOf(ColorEntries);
}

// The groups come after what holds for all of them.
void ThemeLook::readPalette(const QJsonObject &object, QPalette::ColorGroup group, const Complaint &complaint)
{
    const QString disabled = QStringLiteral("disabled");
    const QString inactive = QStringLiteral("inactive");
    const bool hasGroups = group == QPalette::All;
    for (auto it = object.begin(); it != object.end(); ++it) {
        const QString key = it.key();
        if (hasGroups && (key == disabled || key == inactive)) {
            continue;
        }
        const auto role = find(Roles, key);
        if (role == std::end(Roles)) {
            complainOfKey(key, complaint);
        } else if (const QColor color = colorIn(it.value(), key, complaint); color.isValid()) {
            m_palette.append({group, role->role, color});
        }
    }
    if (hasGroups && object.contains(disabled)) {
        readPalette(objectIn(object.value(disabled), disabled, complaint), QPalette::Disabled,
                    within(disabled, complaint));
    }
    if (hasGroups && object.contains(inactive)) {
        readPalette(objectIn(object.value(inactive), inactive, complaint), QPalette::Inactive,
                    within(inactive, complaint));
    }
}

void ThemeLook::readFont(const QJsonObject &object, const Complaint &complaint)
{
    for (auto it = object.begin(); it != object.end(); ++it) {
        const QString key = it.key();
        if (key == QLatin1String("family")) {
            m_fontFamily = it.value().toString();
            if (!it.value().isString()) {
                complaint(Fault::Value, {key}, QStringLiteral("\"%1\" is no name of a font").arg(key));
            }
        } else if (key == QLatin1String("point_size")) {
            m_fontSize = it.value().toDouble();
            if (m_fontSize <= 0.0 || m_fontSize > MaximalFontSize) {
                complaint(Fault::Value, {key}, QStringLiteral("\"%1\" is no size of a font").arg(key));
                m_fontSize = 0.0;
            }
        } else if (key == QLatin1String("weight")) {
            const auto *weight = std::find_if(std::begin(Weights), std::end(Weights), [&it](const Weight &known) {
                return known.inSheets == it.value().toInt();
            });
            if (weight == std::end(Weights)) {
                complaint(Fault::Value, {key}, QStringLiteral("\"%1\" is none of 100, 200 ... 900").arg(key));
            } else {
                m_fontWeight = weight->weight;
            }
        } else {
            complainOfKey(key, complaint);
        }
    }
}

void ThemeLook::readToolTip(const QJsonObject &object, const Complaint &complaint)
{
    for (auto it = object.begin(); it != object.end(); ++it) {
        const auto role = find(ToolTipRoles, it.key());
        if (role == std::end(ToolTipRoles)) {
            complainOfKey(it.key(), complaint);
        } else if (const QColor color = colorIn(it.value(), it.key(), complaint); color.isValid()) {
            m_toolTip.append({QPalette::All, role->role, color});
        }
    }
}

void ThemeLook::readColors(const QJsonObject &object, const Complaint &complaint)
{
    for (auto it = object.begin(); it != object.end(); ++it) {
        const auto entry = find(ColorEntries, it.key());
        if (entry == std::end(ColorEntries)) {
            complainOfKey(it.key(), complaint);
        } else {
            m_colors[static_cast<std::size_t>(entry->color)] = colorIn(it.value(), it.key(), complaint);
        }
    }
}

QPalette ThemeLook::painted(QPalette palette, const QVector<PaletteColor> &colors)
{
    for (const PaletteColor &entry : colors) {
        palette.setColor(entry.group, entry.role, entry.color);
    }
    return palette;
}

QPalette ThemeLook::palette(QPalette base) const
{
    return painted(std::move(base), m_palette);
}

QFont ThemeLook::font(QFont base) const
{
    if (!m_fontFamily.isEmpty()) {
        base.setFamily(m_fontFamily);
    }
    if (m_fontSize > 0.0) {
        base.setPointSizeF(m_fontSize);
    }
    if (m_fontWeight >= 0) {
        base.setWeight(m_fontWeight);
    }
    return base;
}

QPalette ThemeLook::toolTipPalette(QPalette base) const
{
    return painted(std::move(base), m_toolTip);
}

} // namespace Vela
