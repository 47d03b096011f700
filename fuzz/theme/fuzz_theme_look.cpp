// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// What a theme.json tells, entry by entry, and what is said of entries that make no sense.

#include "support/input.h"
#include "support/widgets.h"
#include "theme/theme-look_p.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QMetaEnum>

using namespace Vela;

namespace {

using Fault = ThemeLook::Fault;
using Faults = QMap<QStringList, int>; // by the path of the entry

struct Expected
{
    Faults faults;
    QPalette palette;
    QPalette toolTip;
    QFont font;
    Look::Colors colors;
};

// "window_text" is WindowText.
QPalette::ColorRole roleOf(const QString &key)
{
    QString name;
    const QStringList words = key.split(QLatin1Char('_'));
    for (const QString &word : words) {
        name += word.left(1).toUpper() + word.mid(1);
    }
    bool isRole = false;
    const int role = QMetaEnum::fromType<QPalette::ColorRole>().keyToValue(name.toLatin1().constData(), &isRole);
    if (!isRole) {
        qFatal("there is no role \"%s\"", qPrintable(key));
    }
    return static_cast<QPalette::ColorRole>(role);
}

// Of an object at path: what its colours are, and the faults of its entries.
QMap<QString, QColor> colorsOf(const QJsonObject &object, const QStringList &path, Faults &faults)
{
    QMap<QString, QColor> colors;
    for (auto it = object.begin(); it != object.end(); ++it) {
        const QColor color(it.value().toString());
        if (!ThemeLook::keys(path).contains(it.key())) {
            faults[path + QStringList(it.key())] = int(Fault::Key);
        } else if (!it.value().isObject() || path.size() > 1) {
            if (color.isValid()) {
                colors[it.key()] = color;
            } else {
                faults[path + QStringList(it.key())] = int(Fault::Color);
            }
        } else {
            faults[path + QStringList(it.key())] = int(Fault::Color);
        }
    }
    return colors;
}

void expectPalette(QJsonObject object, Expected &expected)
{
    const QString palette = QStringLiteral("palette");
    const std::pair<QString, QPalette::ColorGroup> groups[] = {{QStringLiteral("disabled"), QPalette::Disabled},
                                                               {QStringLiteral("inactive"), QPalette::Inactive}};
    const QJsonObject all = object;
    object.remove(groups[0].first);
    object.remove(groups[1].first);
    const auto colors = colorsOf(object, {palette}, expected.faults);
    for (auto it = colors.begin(); it != colors.end(); ++it) {
        expected.palette.setColor(QPalette::All, roleOf(it.key()), it.value());
    }
    for (const auto &[key, group] : groups) {
        if (!all.contains(key)) {
            continue;
        }
        if (!all.value(key).isObject()) {
            expected.faults[{palette, key}] = int(Fault::Value);
        }
        const auto groupColors = colorsOf(all.value(key).toObject(), {palette, key}, expected.faults);
        for (auto it = groupColors.begin(); it != groupColors.end(); ++it) {
            expected.palette.setColor(group, roleOf(it.key()), it.value());
        }
    }
}

void expectFont(const QJsonObject &object, Expected &expected)
{
    constexpr int Weights[] = {0, 12, 25, 50, 57, 63, 75, 81, 87}; // of 100, 200 ... 900
    for (auto it = object.begin(); it != object.end(); ++it) {
        bool isGood = true;
        if (it.key() == QLatin1String("family")) {
            isGood = it.value().isString();
            if (!it.value().toString().isEmpty()) {
                expected.font.setFamily(it.value().toString());
            }
        } else if (it.key() == QLatin1String("point_size")) {
            const double size = it.value().toDouble();
            isGood = size > 0.0 && size <= 1000.0;
            if (isGood) {
                expected.font.setPointSizeF(size);
            }
        } else if (it.key() == QLatin1String("weight")) {
            const int weight = it.value().toInt();
            isGood = weight >= 100 && weight <= 900 && weight % 100 == 0;
            if (isGood) {
                expected.font.setWeight(Weights[weight / 100 - 1]);
            }
        } else {
            expected.faults[{QStringLiteral("font"), it.key()}] = int(Fault::Key);
        }
        if (!isGood) {
            expected.faults[{QStringLiteral("font"), it.key()}] = int(Fault::Value);
        }
    }
}

Expected expectedOf(const QJsonObject &look)
{
    Expected expected;
    for (auto it = look.begin(); it != look.end(); ++it) {
        const QString key = it.key();
        if (!ThemeLook::keys({}).contains(key)) {
            expected.faults[{key}] = int(Fault::Key);
            continue;
        }
        if (!it.value().isObject()) {
            expected.faults[{key}] = int(Fault::Value);
        }
        const QJsonObject object = it.value().toObject();
        if (key == QLatin1String("palette")) {
            expectPalette(object, expected);
        } else if (key == QLatin1String("font")) {
            expectFont(object, expected);
        } else if (key == QLatin1String("tool_tip")) {
            const auto colors = colorsOf(object, {key}, expected.faults);
            for (auto color = colors.begin(); color != colors.end(); ++color) {
                expected.toolTip.setColor(QPalette::All, roleOf(QLatin1String("tool_tip_") + color.key()),
                                          color.value());
            }
        } else {
            const auto colors = colorsOf(object, {key}, expected.faults);
            for (const ColorEntry &entry : ColorEntries) {
                expected.colors[static_cast<std::size_t>(entry.color)] = colors.value(QLatin1String(entry.key));
            }
        }
    }
    return expected;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    startApplication();
    const QJsonObject object = QJsonDocument::fromJson(FuzzInput(data, size).rest()).object();
    Expected expected = expectedOf(object);

    Faults faults;
    int count = 0;
    const ThemeLook look(object, [&](Fault fault, const QStringList &path, const QString &) {
        faults[path] = int(fault);
        ++count;
    });
    agree("faults", faults, expected.faults);
    agree("number of faults", count, expected.faults.size());
    agree("palette", look.palette(QPalette()), expected.palette);
    agree("tool tip", look.toolTipPalette(QPalette()), expected.toolTip);
    agree("font", look.font(QFont()), expected.font);
    agree("colours are the same", look.colors() == expected.colors, true);
    return 0;
}
