// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "theme-program.h"

#include <QDir>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QString Buttons = QStringLiteral("styles/buttons.qss");
const QString English = QStringLiteral("strings/enu.json");

const QByteArray CancelFocus = "QPushButton:focus {\n    border: 2px solid #2160C4;\n    padding: 5px 17px;\n}\n";

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class ThemePicturesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aFaultOfTheLookGivesItsFindingAndNoOther_data();
    void aFaultOfTheLookGivesItsFindingAndNoOther();
    void twoRunsGiveTheSameFiles();
    void whatDiffersIsToldByCellWithAPicture();
};

void ThemePicturesTest::aFaultOfTheLookGivesItsFindingAndNoOther_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    QTest::addColumn<QString>("rule");
    QTest::addColumn<QByteArray>("at");
    const auto row = [](const char *name, const QString &file, const QByteArray &from, const QByteArray &to,
                        const char *rule, const QByteArray &at) {
        QTest::newRow(name) << file << from << to << QString::fromLatin1(rule) << at;
    };
    row("faint text", Buttons, "color: #FFFFFF;", "color: #6F9BE8;", "contrast-low", "== component.apply_button ==");
    row("faint text of one state", Buttons, "QPushButton:hover {\n    background-color: #EEF3F9;",
        "QPushButton:hover {\n    background-color: #45525F;", "contrast-low", "== component.cancel_button ==");
    row("faint text of a selected row", QStringLiteral("styles/table-and-paging.qss"),
        "QTableView::item:selected {\n    color: #17202B;", "QTableView::item:selected {\n    color: #B0B8C0;",
        "contrast-low", "== component.table ==");
    const auto faint = [&row](const char *name, const char *file, const QByteArray &key, const QByteArray &rule,
                              const QByteArray &color) {
        row(name, QString::fromLatin1(file), rule + color, rule + "#D0D4D8", "contrast-low",
            "== component." + key + " ==");
    };
    faint("faint days", "styles/date.qss", "date_selector",
          "QTableView#qt_calendar_calendarview {\n    font-size: 13px;\n    color: ", "#17202B");
    faint("faint days that cannot be chosen", "styles/date.qss", "date_selector",
          "QTableView#qt_calendar_calendarview:disabled {\n    color: ", "#667382");
    faint("faint names of a path", "styles/tree-and-path.qss", "button_path_name_button",
          "== component.button_path_name_button ==\nQPushButton {\n    font-size: 13px;\n    color: ", "#17202B");
    faint("faint message", "styles/messages.qss", "message_sheet_text",
          "== component.message_sheet_text ==\nQLabel {\n    font-size: 14px;\n    color: ", "#17202B");
    faint("faint titles of columns", "styles/table-and-paging.qss", "table_header",
          "QHeaderView::section {\n    font-size: 12px;\n    font-weight: 600;\n    color: ", "#45525F");
    faint("faint text beside a field", "styles/inputs.qss", "lineedit_label",
          "== component.lineedit_label ==\nQLabel {\n    font-size: 13px;\n    color: ", "#45525F");
    row("focus that is not seen", Buttons, CancelFocus, "", "focus-invisible", "== component.cancel_button ==");
    row("disabled as if enabled", Buttons,
        "QPushButton:disabled {\n    color: #667382;\n    background-color: #EEF1F5;\n    border-color: #EEF1F5;\n}\n",
        "", "disabled-invisible", "== component.default_button ==");
    row("small target", Buttons, "    padding: 2px;\n", "    padding: 0px;\n", "target-small",
        "== component.icon_button ==");
    row("caption that is cut", English, "\"Cancel\"",
        '"' + QByteArray("Take all of it back ").repeated(5).trimmed() + '"', "caption-cut", "\"cancel\"");
    row("caption that is cut in other languages", English, "\"Cancel\"",
        '"' + QByteArray("abcdef ").repeated(6).trimmed() + '"', "caption-cut-longer", "");
}

void ThemePicturesTest::aFaultOfTheLookGivesItsFindingAndNoOther()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    QFETCH(QString, rule);
    QFETCH(QByteArray, at);
    const ThemeCopy theme;
    theme.replace(file, from, to);
    const ThemeRun run =
        runThemeProgram({QStringLiteral("check"), theme.path(), QStringLiteral("--format"), QStringLiteral("json")});
    const QJsonArray findings = QJsonDocument::fromJson(run.out).array();
    QVERIFY2(findings.size() == 1, run.out.constData());
    const QJsonObject finding = findings.first().toObject();
    QCOMPARE(finding.value(QLatin1String("rule")).toString(), rule);
    QCOMPARE(finding.value(QLatin1String("file")).toString(), theme.path() + u'/' + file);
    const QByteArray text = theme.read(file);
    QCOMPARE(finding.value(QLatin1String("line")).toInt(),
             at.isEmpty() ? 0 : text.left(text.indexOf(at)).count('\n') + 1);
}

void ThemePicturesTest::twoRunsGiveTheSameFiles()
{
    const QTemporaryDir first;
    const QTemporaryDir second;
    for (const QTemporaryDir *folder : {&first, &second}) {
        const ThemeRun run = runThemeProgram({QStringLiteral("render"), referenceTheme(), folder->path()});
        QCOMPARE(run.errors, QByteArray());
        QCOMPARE(run.exitCode, 0);
    }
    const QStringList files = QDir(first.path()).entryList(QDir::Files);
    QCOMPARE(files, QDir(second.path()).entryList(QDir::Files));
    QVERIFY(files.size() > 900);
    const QByteArray sheet = contentOf(first.filePath(QStringLiteral("index.html")));
    for (const QString &file : files) {
        QCOMPARE(contentOf(first.filePath(file)), contentOf(second.filePath(file)));
        if (file.endsWith(QLatin1String(".png"))) {
            QVERIFY2(sheet.contains("src=\"" + file.toUtf8() + '"'), qPrintable(file));
        }
    }
}

void ThemePicturesTest::whatDiffersIsToldByCellWithAPicture()
{
    const QTemporaryDir approved;
    const QTemporaryDir differences;
    QCOMPARE(runThemeProgram({QStringLiteral("render"), referenceTheme(), approved.path(), QStringLiteral("--compact")})
                 .exitCode,
             0);
    const ThemeCopy theme;
    theme.replace(Buttons, "QPushButton:hover {\n    background-color: #1B53AD;\n",
                  "QPushButton:hover {\n    background-color: #1B53AE;\n");
    const ThemeRun run = runThemeProgram(
        {QStringLiteral("compare"), theme.path(), approved.path(), QStringLiteral("--output"), differences.path()});
    QCOMPARE(run.exitCode, 1);
    const QList<QByteArray> lines = run.out.trimmed().split('\n');
    QCOMPARE(lines.size(), 10); // one state at five scales and in two directions
    QVERIFY(std::all_of(lines.cbegin(), lines.cend(),
                        [](const QByteArray &line) { return line.startsWith("apply-button-hover-"); }));
    QVERIFY(run.out.contains(" pixels differ"));

    // Pixels are red where the pictures differ.
    const QImage picture(differences.filePath(QStringLiteral("apply-button-hover-1-ltr.png")));
    QCOMPARE(picture.size(), QImage(approved.filePath(QStringLiteral("apply-button-hover-1-ltr.png"))).size());
    QCOMPARE(picture.pixelColor(picture.rect().center() / 2 + QPoint(4, 4)), QColor(220, 0, 0));
    QVERIFY(picture.pixelColor(0, 0) != QColor(220, 0, 0));
}

QTEST_GUILESS_MAIN(ThemePicturesTest)
#include "tst_theme_pictures.moc"
