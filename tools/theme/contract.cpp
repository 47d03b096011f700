// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "contract.h"

#include "look/keys_p.h"
#include "vela_components_version.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

namespace {

constexpr int ContractVersion = 1; // raised when an entry changes its meaning, not when there are more
constexpr char SchemaName[] = "theme-contract.schema.json";

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

QStringList statesOf(const Vela::ImageEntry &entry)
{
    QStringList states {QStringLiteral("normal")};
    if (entry.states == Vela::ImageStates::All) {
        states += {QStringLiteral("hover"), QStringLiteral("click"), QStringLiteral("disable")};
    }
    return states;
}

QJsonObject propertiesOf(const Vela::StyleEntry &entry)
{
    const QString name = text(entry.properties).section(QStringLiteral(": "), 0, 0);
    if (name.isEmpty()) {
        return {};
    }
    return {{name,
             QJsonArray::fromStringList(
                 text(entry.properties).section(QStringLiteral(": "), 1).split(QStringLiteral(", ")))}};
}

QJsonArray styles()
{
    QJsonArray array;
    for (const Vela::StyleEntry &entry : Vela::StyleEntries) {
        QStringList classes;
        QStringList objects;
        const QStringList reached = listOf(entry.reaches);
        for (const QString &name : reached) {
            name.startsWith(u'#') ? objects.append(name.mid(1)) : classes.append(name);
        }
        array.append(QJsonObject {
            {QStringLiteral("key"), text(entry.key)},
            {QStringLiteral("usedBy"), text(entry.usedBy)},
            {QStringLiteral("classes"), QJsonArray::fromStringList(classes)},
            {QStringLiteral("objects"), QJsonArray::fromStringList(objects)},
            {QStringLiteral("setByApplicationsOn"), QJsonArray::fromStringList(listOf(entry.setByApplications))},
            {QStringLiteral("properties"), propertiesOf(entry)},
            {QStringLiteral("markers"), QJsonArray::fromStringList(listOf(entry.markers))},
        });
    }
    return array;
}

QJsonArray images()
{
    QJsonArray array;
    for (const Vela::ImageEntry &entry : Vela::ImageEntries) {
        array.append(QJsonObject {
            {QStringLiteral("name"), text(entry.name)},
            {QStringLiteral("usedBy"), text(entry.usedBy)},
            {QStringLiteral("states"), QJsonArray::fromStringList(statesOf(entry))},
            {QStringLiteral("width"), entry.width},
            {QStringLiteral("height"), entry.height},
        });
    }
    return array;
}

QJsonArray texts()
{
    QJsonArray array;
    for (const Vela::TextEntry &entry : Vela::TextEntries) {
        array.append(QJsonObject {
            {QStringLiteral("key"), text(entry.key)},
            {QStringLiteral("usedBy"), text(entry.usedBy)},
            {QStringLiteral("markers"), QJsonArray::fromStringList(listOf(entry.markers))},
        });
    }
    return array;
}

QJsonArray spokenTexts()
{
    QJsonArray array;
    for (const Vela::SpokenTextEntry &entry : Vela::SpokenTextEntries) {
        array.append(QJsonObject {
            {QStringLiteral("key"), text(entry.key)},
            {QStringLiteral("usedBy"), text(entry.usedBy)},
            {QStringLiteral("fallback"), text(entry.fallback)},
            {QStringLiteral("markers"), QJsonArray::fromStringList(listOf(entry.markers))},
        });
    }
    return array;
}

QJsonArray folders()
{
    QJsonArray array;
    for (const Vela::FolderEntry &entry : Vela::FolderEntries) {
        array.append(
            QJsonObject {{QStringLiteral("key"), text(entry.key)}, {QStringLiteral("usedBy"), text(entry.usedBy)}});
    }
    return array;
}

// What a colour is unless a theme says otherwise. One that is not valid is painted black.
QString standardOf(const Vela::ColorEntry &entry)
{
    return (entry.standard.isValid() ? entry.standard : QColor(Qt::black)).name(QColor::HexArgb).toUpper();
}

QJsonArray colors()
{
    QJsonArray array;
    for (const Vela::ColorEntry &entry : Vela::ColorEntries) {
        array.append(QJsonObject {
            {QStringLiteral("key"), text(entry.key)},
            {QStringLiteral("usedBy"), text(entry.usedBy)},
            {QStringLiteral("standard"), standardOf(entry)},
        });
    }
    return array;
}

// A row of a table in Markdown.
QString row(const QStringList &cells)
{
    return QStringLiteral("| ") + cells.join(QStringLiteral(" | ")) + QStringLiteral(" |\n");
}

QString code(const QString &text)
{
    return text.isEmpty() ? QString() : u'`' + text + u'`';
}

} // namespace

QStringList listOf(const char *names)
{
    return QString::fromLatin1(names).split(QStringLiteral(", "), Qt::SkipEmptyParts);
}

QByteArray contractAsJson()
{
    return QJsonDocument(QJsonObject {
                             {QStringLiteral("$schema"), text(SchemaName)},
                             {QStringLiteral("contractVersion"), ContractVersion},
                             {QStringLiteral("libraryVersion"), QStringLiteral(VELA_COMPONENTS_VERSION_STRING)},
                             {QStringLiteral("styles"), styles()},
                             {QStringLiteral("images"), images()},
                             {QStringLiteral("texts"), texts()},
                             {QStringLiteral("spokenTexts"), spokenTexts()},
                             {QStringLiteral("colors"), colors()},
                             {QStringLiteral("folders"), folders()},
                         })
        .toJson();
}

QString contractAsMarkdown()
{
    QString page = QStringLiteral(
        "<!-- SPDX-FileCopyrightText: 2026 The Vela Components authors\n     SPDX-License-Identifier: MIT -->\n\n"
        "# What a theme must hold\n\n"
        "Written by `vela-theme contract --format markdown` from what the library's widgets ask for; "
        "`vela-theme check` holds a theme against it.\n\n## Sections of the style sheets\n\n");
    page += row({QStringLiteral("Key"), QStringLiteral("Used by"), QStringLiteral("Rules reach")})
        + QStringLiteral("|---|---|---|\n");
    for (const Vela::StyleEntry &entry : Vela::StyleEntries) {
        QString reaches = text(entry.reaches);
        if (*entry.setByApplications) {
            reaches += QStringLiteral("; where applications set it: ") + text(entry.setByApplications);
        }
        if (*entry.properties) {
            reaches += QStringLiteral("; property ") + text(entry.properties);
        }
        if (*entry.markers) {
            reaches += QStringLiteral("; markers ") + text(entry.markers);
        }
        page += row({code(text(entry.key)), text(entry.usedBy), reaches});
    }
    page += QStringLiteral("\n## Images\n\nSizes are logical pixels; the PNG files are four times as large.\n\n")
        + row({QStringLiteral("Name"), QStringLiteral("Used by"), QStringLiteral("States"), QStringLiteral("Size")})
        + QStringLiteral("|---|---|---|---|\n");
    for (const Vela::ImageEntry &entry : Vela::ImageEntries) {
        page += row({code(text(entry.name)), text(entry.usedBy), statesOf(entry).join(QStringLiteral(", ")),
                     QStringLiteral("%1 x %2").arg(entry.width).arg(entry.height)});
    }
    page += QStringLiteral("\n## Texts\n\n")
        + row({QStringLiteral("Key"), QStringLiteral("Used by"), QStringLiteral("Markers")})
        + QStringLiteral("|---|---|---|\n");
    for (const Vela::TextEntry &entry : Vela::TextEntries) {
        page += row({code(text(entry.key)), text(entry.usedBy), text(entry.markers)});
    }
    page +=
        QStringLiteral(
            "\n## Texts that are only spoken\n\nA table may lack them: screen readers get the English ones then.\n\n")
        + row({QStringLiteral("Key"), QStringLiteral("English"), QStringLiteral("Used by"), QStringLiteral("Markers")})
        + QStringLiteral("|---|---|---|---|\n");
    for (const Vela::SpokenTextEntry &entry : Vela::SpokenTextEntries) {
        page += row({code(text(entry.key)), text(entry.fallback), text(entry.usedBy), text(entry.markers)});
    }
    page += QStringLiteral("\n## Colours of theme.json\n\n")
        + row({QStringLiteral("Key"), QStringLiteral("Standard, #AARRGGBB"), QStringLiteral("Used by")})
        + QStringLiteral("|---|---|---|\n");
    for (const Vela::ColorEntry &entry : Vela::ColorEntries) {
        page += row({code(text(entry.key)), code(standardOf(entry)), text(entry.usedBy)});
    }
    page += QStringLiteral("\n## Folders\n\n") + row({QStringLiteral("Key"), QStringLiteral("Used by")})
        + QStringLiteral("|---|---|\n");
    for (const Vela::FolderEntry &entry : Vela::FolderEntries) {
        page += row({code(text(entry.key)), text(entry.usedBy)});
    }
    return page;
}
