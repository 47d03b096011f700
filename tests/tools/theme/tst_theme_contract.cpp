// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "theme-program.h"

#include "look/keys_p.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QtTest>

namespace {

QByteArray fileOf(const QString &name)
{
    QFile file(QStringLiteral(VELA_SOURCE_DIR "/") + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray contract(const QString &format)
{
    return runThemeProgram({QStringLiteral("contract"), QStringLiteral("--format"), format}).out;
}

template<typename Entry, std::size_t Size>
QStringList namesOf(const Entry (&entries)[Size], const char *Entry::*name)
{
    QStringList names;
    for (const Entry &entry : entries) {
        names.append(QString::fromLatin1(entry.*name));
    }
    return names;
}

QStringList namesIn(const QJsonObject &contract, const char *list, const char *name)
{
    QStringList names;
    const QJsonArray array = contract.value(QLatin1String(list)).toArray();
    for (const QJsonValue &entry : array) {
        names.append(entry.toObject().value(QLatin1String(name)).toString());
    }
    return names;
}

// What a value has that its schema does not allow, empty if nothing. Knows as much of JSON Schema as the contract uses.
QString violation(const QJsonValue &value, const QJsonObject &schema)
{
    const QString type = schema.value(QLatin1String("type")).toString();
    const bool fits = type == QLatin1String("object") ? value.isObject()
        : type == QLatin1String("array")              ? value.isArray()
        : type == QLatin1String("string")             ? value.isString()
        : type == QLatin1String("integer")            ? value.isDouble() && value.toInt(-1) == value.toDouble()
                                                      : false;
    if (!fits) {
        return QStringLiteral("no ") + type;
    }
    const QJsonArray required = schema.value(QLatin1String("required")).toArray();
    for (const QJsonValue &key : required) {
        if (!value.toObject().contains(key.toString())) {
            return QStringLiteral("lacks ") + key.toString();
        }
    }
    const QJsonObject properties = schema.value(QLatin1String("properties")).toObject();
    const QJsonObject object = value.toObject();
    for (auto it = object.begin(); it != object.end(); ++it) {
        const QJsonObject ofKey = properties.contains(it.key())
            ? properties.value(it.key()).toObject()
            : schema.value(QLatin1String("additionalProperties")).toObject();
        const QString found = ofKey.isEmpty() ? QStringLiteral("unknown") : violation(it.value(), ofKey);
        if (!found.isEmpty()) {
            return it.key() + QStringLiteral(": ") + found;
        }
    }
    const QJsonArray array = value.toArray();
    for (const QJsonValue &element : array) {
        const QString found = violation(element, schema.value(QLatin1String("items")).toObject());
        if (!found.isEmpty()) {
            return found;
        }
    }
    return QString();
}

} // namespace

class ThemeContractTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itHoldsAllThatTheLibraryAsksFor();
    void itKeepsToItsSchema();
    void thePageAndTheFileAreThePrograms();
};

// The tables that it is made from are held against what widgets really ask for by the test of the keys.
void ThemeContractTest::itHoldsAllThatTheLibraryAsksFor()
{
    const QJsonObject object = QJsonDocument::fromJson(contract(QStringLiteral("json"))).object();
    QCOMPARE(namesIn(object, "styles", "key"), namesOf(Vela::StyleEntries, &Vela::StyleEntry::key));
    QCOMPARE(namesIn(object, "images", "name"), namesOf(Vela::ImageEntries, &Vela::ImageEntry::name));
    QCOMPARE(namesIn(object, "texts", "key"), namesOf(Vela::TextEntries, &Vela::TextEntry::key));
    QCOMPARE(namesIn(object, "spokenTexts", "key"), namesOf(Vela::SpokenTextEntries, &Vela::SpokenTextEntry::key));
    QCOMPARE(namesIn(object, "colors", "key"), namesOf(Vela::ColorEntries, &Vela::ColorEntry::key));
    QCOMPARE(namesIn(object, "folders", "key"), namesOf(Vela::FolderEntries, &Vela::FolderEntry::key));
}

void ThemeContractTest::itKeepsToItsSchema()
{
    const QJsonObject schema =
        QJsonDocument::fromJson(fileOf(QStringLiteral("tools/theme/theme-contract.schema.json"))).object();
    QVERIFY(!schema.isEmpty());
    QJsonObject object = QJsonDocument::fromJson(contract(QStringLiteral("json"))).object();
    QCOMPARE(violation(object, schema), QString());
    object.insert(QStringLiteral("styles"), QJsonArray {QJsonObject {{QStringLiteral("key"), 7}}});
    QVERIFY(!violation(object, schema).isEmpty());
}

void ThemeContractTest::thePageAndTheFileAreThePrograms()
{
    QCOMPARE(QString::fromUtf8(fileOf(QStringLiteral("docs/theme-contract.md"))),
             QString::fromUtf8(contract(QStringLiteral("markdown"))));
    QCOMPARE(QString::fromUtf8(fileOf(QStringLiteral("tools/theme/theme-contract.json"))),
             QString::fromUtf8(contract(QStringLiteral("json"))));
}

QTEST_GUILESS_MAIN(ThemeContractTest)
#include "tst_theme_contract.moc"
