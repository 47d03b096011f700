// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// A theme's texts in two languages, read from their files.

#include "support/input.h"
#include "support/widgets.h"
#include "theme/theme-folder_p.h"

#include <QDir>
#include <QJsonDocument>
#include <QTemporaryDir>

using namespace Vela;

namespace {

using Texts = QMap<QString, QString>;

constexpr char Separator = '\xFF'; // byte that no UTF-8 holds

// What a table adds to texts; false where it is none, or has values that are no texts.
bool addLiterally(const QByteArray &json, Texts &texts)
{
    QJsonParseError error;
    const QJsonDocument table = QJsonDocument::fromJson(json, &error);
    bool isGood = error.error == QJsonParseError::NoError && table.isObject();
    const QVariantMap values = table.object().toVariantMap();
    for (auto it = values.begin(); it != values.end(); ++it) {
        if (it.value().type() == QVariant::String) {
            texts[it.key()] = it.value().toString();
        } else {
            isGood = false;
        }
    }
    return isGood;
}

// A table with every text that the library asks for.
QByteArray wholeTable()
{
    static const QByteArray table = [] {
        QJsonObject object;
        for (const TextEntry &entry : TextEntries) {
            object.insert(QLatin1String(entry.key), QStringLiteral("text"));
        }
        return QJsonDocument(object).toJson();
    }();
    return table;
}

int problemsOf(const VelaTheme::Problems &problems, VelaTheme::Problem::Severity severity)
{
    return static_cast<int>(std::count_if(problems.begin(), problems.end(), [severity](const auto &problem) {
        return problem.severity == severity && problem.line >= 0 && !problem.toString().isEmpty();
    }));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    startApplication();
    static const QTemporaryDir folder;
    static const bool isMade = QDir(folder.path()).mkdir(QStringLiteral("strings"));
    Q_UNUSED(isMade)
    FuzzInput input(data, size);
    const bool isFallbackWhole = input.take<quint8>() % 4 != 0;
    const QByteArray own = input.takeUpTo(Separator);
    const QByteArray fallback = isFallbackWhole ? wholeTable() : input.rest();
    const auto write = [](const char *name, const QByteArray &bytes) {
        QFile file(folder.filePath(QLatin1String(name)));
        file.open(QIODevice::WriteOnly);
        file.write(bytes);
    };
    write("strings/enu.json", fallback);
    write("strings/ger.json", own);

    Texts texts;
    const bool isFallbackGood = addLiterally(fallback, texts);
    const bool isGood = addLiterally(own, texts) && isFallbackGood;
    int missing = 0;
    for (const TextEntry &entry : TextEntries) {
        missing += texts.contains(QLatin1String(entry.key)) ? 0 : 1;
    }

    ThemeFolder theme(folder.path(), QString());
    theme.readTexts(QStringLiteral("ger"), QStringLiteral("enu"));
    agree("texts", theme.texts(), texts);
    agree("whether the theme is taken", !VelaTheme::hasErrors(theme.problems()), isGood);
    agree("warnings", problemsOf(theme.problems(), VelaTheme::Problem::Warning), isGood ? missing : 0);
    return 0;
}
