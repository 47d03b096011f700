// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "check.h"
#include "theme-program.h"

#include <QBuffer>
#include <QDir>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

#include <cstring>
#include <functional>

#include <sys/resource.h>

using Seed = std::function<void(const ThemeCopy &theme)>;
Q_DECLARE_METATYPE(Seed)

namespace {

const QString Buttons = QStringLiteral("styles/buttons.qss");
const QString Choices = QStringLiteral("styles/choices.qss");
const QString Combo = QStringLiteral("styles/combo-and-menu.qss");
const QString Inputs = QStringLiteral("styles/inputs.qss");
const QString Tables = QStringLiteral("styles/table-and-paging.qss");
const QString Catalogue = QStringLiteral("images.json");
const QString English = QStringLiteral("strings/enu.json");

const QByteArray ApplyRule = "== component.apply_button ==\nQPushButton {\n";

QString inWords(const Findings &findings)
{
    return asText(findings, QString());
}

Seed replacing(const QString &file, const QByteArray &from, const QByteArray &to)
{
    return [=](const ThemeCopy &theme) { theme.replace(file, from, to); };
}

// Puts a declaration into the first rule.
Seed declaring(const QByteArray &declaration)
{
    return replacing(Buttons, ApplyRule, ApplyRule + declaration + '\n');
}

// Puts a rule behind the last one of the check boxes' section.
Seed ruling(const QByteArray &rule)
{
    return replacing(Choices, "== component.radio_button ==", rule + "\n== component.radio_button ==");
}

void resizeImage(const ThemeCopy &theme, const QString &file, const QSize &size)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(Qt::red);
    QBuffer png;
    image.save(&png, "PNG");
    theme.write(file, png.data());
}

int lineOf(const QByteArray &content, const QByteArray &text)
{
    const int position = content.indexOf(text);
    return position < 0 ? -1 : content.left(position).count('\n') + 1;
}

// The processor's time that programs have taken which this one has started.
double secondsOfPrograms()
{
    rusage usage {};
    getrusage(RUSAGE_CHILDREN, &usage);
    return static_cast<double>(usage.ru_utime.tv_sec) + static_cast<double>(usage.ru_utime.tv_usec) / 1e6;
}

} // namespace

class ThemeCheckTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void referenceThemesAreClean_data();
    void referenceThemesAreClean();
    void aFaultGivesItsFindingAndNoOther_data();
    void aFaultGivesItsFindingAndNoOther();
    void whatIsNoFaultGivesNoFinding_data();
    void whatIsNoFaultGivesNoFinding();
    void digitsInTheFoldersPathAreTold();
    void aLongLengthIsShownAsItComesOut();
    void aFindingIsOneLineOfText();
    void aFindingAsJsonTellsTheSame();
    void aCommentSilencesARuleAtItsPlace();
    void everyRuleIsExplained();
    void whatCannotBeCheckedEndsWithTwo_data();
    void whatCannotBeCheckedEndsWithTwo();
    void aMegabyteTakesNoMoreThanItsLength();
};

void ThemeCheckTest::referenceThemesAreClean_data()
{
    QTest::addColumn<QString>("theme");
    for (const char *name : {"light", "dark", "high-contrast"}) {
        QTest::newRow(name) << referenceTheme(QString::fromLatin1(name));
    }
}

void ThemeCheckTest::referenceThemesAreClean()
{
    QFETCH(QString, theme);
    const ThemeRun run = runThemeProgram({QStringLiteral("check"), theme});
    QCOMPARE(run.out, QByteArray());
    QCOMPARE(run.exitCode, 0);
}

void ThemeCheckTest::aFaultGivesItsFindingAndNoOther_data()
{
    QTest::addColumn<Seed>("seed");
    QTest::addColumn<QString>("rule");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("at"); // text on the finding's line; empty for the file as a whole

    const auto row = [](const char *name, const Seed &seed, const char *rule, const QString &file,
                        const QByteArray &at) {
        QTest::newRow(name) << seed << QString::fromLatin1(rule) << file << at;
    };
    const auto declaration = [&row](const char *name, const char *text, const char *rule) {
        row(name, declaring(text), rule, Buttons, text);
    };
    const auto selector = [&row](const char *name, const char *text, const char *rule) {
        row(name, ruling(QByteArray(text) + " {\n    color: red;\n}"), rule, Choices, text);
    };

    // Sheets, as they are cut
    row("not UTF-8", replacing(Buttons, "affirmative", "aff\xefrmative"), "utf8", Buttons, "aff");
    row(
        "UTF-16",
        [](const ThemeCopy &theme) {
            const QString text = QString::fromUtf8(theme.read(Buttons));
            theme.write(Buttons,
                        "\xff\xfe" + QByteArray(reinterpret_cast<const char *>(text.utf16()), 2 * text.size()));
        },
        "utf8", Buttons, "\xff\xfe");
    row("rule before the first header", replacing(Buttons, ApplyRule, "QLabel { color: red; }\n" + ApplyRule),
        "text-before-header", Buttons, "QLabel { color: red; }");
    row(
        "rule before a later file's first header",
        [](const ThemeCopy &theme) { theme.write(Inputs, "QLabel { color: red; }\n" + theme.read(Inputs)); },
        "text-before-header", Inputs, "QLabel { color: red; }");
    row("header glued behind a comment",
        replacing(Buttons,
                  "}\n\n/* The way out of a dialog; the calendar's button for today is a lower one of it. */\n==",
                  "} // the way out\n=="),
        "comment-glues-header", Buttons, "// the way out");
    row("comment behind a header",
        replacing(Buttons, "== component.red_button ==", "== component.red_button == // stop"), "comment-glues-header",
        Buttons, "// stop");
    row("header behind a blank", replacing(Buttons, "== component.red_button", " == component.red_button"),
        "header-form", Buttons, "component.red_button");
    row("header in front of a blank", replacing(Buttons, "red_button ==", "red_button == "), "header-form", Buttons,
        "component.red_button");
    row("header with single marks", replacing(Buttons, "== component.red_button ==", "= component.red_button ="),
        "header-form", Buttons, "component.red_button");
    row("header with one mark at its end", replacing(Buttons, "component.red_button ==", "component.red_button ="),
        "header-form", Buttons, "component.red_button");
    row("header without marks at its end", replacing(Buttons, "component.red_button ==", "component.red_button"),
        "header-form", Buttons, "component.red_button");
    row("header with tabs", replacing(Buttons, "== component.red_button ==", "==\tcomponent.red_button\t=="),
        "header-form", Buttons, "component.red_button");
    row("header without a key",
        replacing(Buttons, "== component.red_button ==", "==\nQLabel {}\n== component.red_button =="), "header-empty",
        Buttons, "==\nQLabel");
    row("misspelt key", replacing(Buttons, "component.red_button", "component.red_buton"), "key-unknown", Buttons,
        "component.red_buton");
    row("key in capitals", replacing(Buttons, "component.red_button", "component.Red_Button"), "key-unknown", Buttons,
        "component.Red_Button");
    row("key that is none",
        replacing(Buttons,
                  "== component.red_button ==", "== component.nothing ==\nQLabel {}\n== component.red_button =="),
        "key-unknown", Buttons, "component.nothing");
    row("key twice",
        replacing(Buttons, "== component.red_button ==",
                  "== component.apply_button ==\nQPushButton {}\n== component.red_button =="),
        "key-doubled", Buttons, "== component.apply_button ==\nQPushButton {}");
    row(
        "section missing",
        [](const ThemeCopy &theme) { theme.write(QStringLiteral("styles/scrollbar.qss"), "/* none */\n"); },
        "key-missing", QStringLiteral("styles"), QByteArray());
    row("header of another format", replacing(Buttons, "== component.red_button ==", "[component.red_button]"),
        "header-form", Buttons, "[component.red_button]");
    row("header between dashes", replacing(Buttons, "== component.red_button ==", "-- component.red_button --"),
        "header-form", Buttons, "-- component.red_button");
    row("key without its beginning", replacing(Buttons, "component.red_button", "red_button"), "key-unknown", Buttons,
        "red_button ==");
    row("two keys", replacing(Buttons, "component.red_button", "component.red_button, my.button"), "key-unknown",
        Buttons, "my.button");
    row("comment not closed within a rule",
        replacing(Buttons, ApplyRule, ApplyRule + "color: red; /* as ever\n}\nQPushButton {\n"), "comment-unclosed",
        Buttons, "as ever");
    row("comment not closed before a brace",
        replacing(Choices,
                  "== component.radio_button ==", "QCheckBox { color: red; /* as ever }\n== component.radio_button =="),
        "comment-unclosed", Choices, "as ever");
    row("text behind a header", replacing(Buttons, "component.red_button ==", "component.red_button == end"),
        "header-form", Buttons, "component.red_button");
    row("null byte", replacing(Buttons, "color: #FFFFFF", QByteArray("color: \0#FFFFFF", 15)), "control-character",
        Buttons, QByteArray("\0", 1));
    row(
        "line breaks that are carriage returns",
        [](const ThemeCopy &theme) { theme.write(Inputs, theme.read(Inputs).replace('\n', '\r')); }, "line-breaks",
        Inputs, "component.lineedit");
    row("brace not closed", replacing(Buttons, "    outline: none;\n}\n", "    outline: none;\n"), "brace-unclosed",
        Buttons, "QPushButton {");
    row(
        "last brace not closed",
        [](const ThemeCopy &theme) {
            const QByteArray text = theme.read(Inputs).trimmed();
            theme.write(Inputs, text.chopped(1));
        },
        "brace-unclosed", Inputs, "QToolButton::menu-indicator {");
    row("brace too many", replacing(Buttons, "    outline: none;\n}\n", "    outline: none;\n}\n} \n"), "brace-stray",
        Buttons, "} \n");
    row("comment not closed", replacing(Buttons, "only blue surface. */", "only blue surface."), "comment-unclosed",
        Buttons, "/* The affirmative");
    row(
        "last comment of a file not closed",
        [](const ThemeCopy &theme) { theme.write(Inputs, theme.read(Inputs) + "/* end"); }, "comment-unclosed", Inputs,
        "/* end");
    row("comment closed twice", replacing(Buttons, "only blue surface. */", "only blue surface. */ */"),
        "comment-stray", Buttons, "only blue surface.");
    row("address with slashes", replacing(Choices, "url(\"IMG_LOC/check_off.png\")", "url(\"IMG_LOC//check_off.png\")"),
        "address-comment", Choices, "IMG_LOC//");
    row("rule within a rule", ruling("QCheckBox {\n    color: red;\n    QCheckBox:hover { color: blue; }\n}"),
        "brace-unclosed", Choices, "QCheckBox {\n    color: red;\n    QCheckBox:hover");
    row("rules of another language", ruling("@media screen { QCheckBox { color: red; } }"), "brace-unclosed", Choices,
        "@media");
    row("refused selector", ruling("QCheckBox & QLabel {\n    color: red;\n}"), "section-refused", Choices,
        "QCheckBox & QLabel");
    row("selector without a state", ruling("QCheckBox: {\n    color: red;\n}"), "section-refused", Choices,
        "QCheckBox: {");
    row("text behind the last rule", ruling("QCheckBox\n"), "section-refused", Choices, "QCheckBox\n\n");

    // Declarations
    declaration("four digits", "width: 1000px;", "length-long");
    declaration("four characters", "width: 12.5px;", "length-long");
    declaration("fraction", "padding: 1.5px;", "length-fraction");
    declaration("border that vanishes", "border: 0.5px solid #2160C4;", "border-vanishes");
    declaration("blank before the unit", "padding: 6 px;", "length-unit");
    declaration("unit in capitals", "padding: 6PX;", "length-unit");
    declaration("unit that is none", "padding: 6dp;", "length-unit");
    declaration("number without a unit", "min-width: 80;", "length-unit");
    declaration("points that are no font's", "padding: 6pt;", "length-unit");
    declaration("length in percent", "min-width: 50%;", "length-unit");
    declaration("length that is reckoned", "padding: calc(1px + 2px);", "length-unit");
    declaration("font of no size", "font-size: 0px;", "length-unit");
    declaration("image without an address", "image: IMG_LOC/bt_add.png;", "section-refused");
    declaration("address of another system", "image: url(IMG_LOC\\bt_add.png);", "address-outside");
    declaration("two colours", "color: red blue;", "color-invalid");
    declaration("misspelt weight", "font-weight: blod;", "keyword-unknown");
    declaration("misspelt property", "backgroud-color: red;", "property-unknown");
    declaration("British property", "colour: red;", "property-unknown");
    declaration("five digits of a colour", "color: #12345;", "color-invalid");
    declaration("letter in a colour", "color: #12345G;", "color-invalid");
    declaration("colour without its mark", "color: 2160C4;", "color-invalid");
    declaration("misspelt colour", "background-color: whte;", "color-invalid");
    declaration("colour of a border", "border: 1px solid gren;", "color-invalid");
    declaration("colour out of range", "color: rgb(300, 0, 0);", "color-invalid");
    declaration("colour that was to be filled in", "color: @accent@;", "color-invalid");
    declaration("variable", "color: $accent;", "color-invalid");
    declaration("misspelt importance", "color: red !importan;", "color-invalid");
    declaration("colour in a gradient",
                "background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 #FFFFF, stop:1 red);", "color-invalid");
    declaration("misspelt gradient", "background: qlinergradient(x1:0, x2:0, stop:0 #FFFFFF, stop:1 red);",
                "color-invalid");
    declaration("gradient of another language", "background-color: linear-gradient(red, blue);", "color-invalid");
    declaration("colour of two channels", "color: rgb(1, 2);", "color-invalid");
    declaration("no such role", "color: palette(windowtext);", "color-invalid");
    declaration("word that a property does not take", "text-align: centre;", "keyword-unknown");
    declaration("misspelt style of a border", "border: 1px sollid red;", "color-invalid");
    declaration("digits of another script", "padding: \xef\xbc\x91px;", "length-unit");
    declaration("blank before the unit of a border", "border: 1 px solid red;", "length-unit");
    declaration("no colon", "color red;", "declaration-form");
    declaration("no value", "color: ;", "declaration-form");
    declaration("no semicolon", "color: red\n    padding: 2px;", "declaration-form");
    declaration("no closing parenthesis", "color: rgb(1, 2, 3;", "declaration-form");
    declaration("no closing quote", "image: url(\"IMG_LOC/bt_add.png);", "declaration-form");
    declaration("marker of another section", "padding: %1;", "marker-unknown");
    row("border that jumps", replacing(Buttons, "padding: 5px 17px", "padding: 5px 16px"), "border-uneven", Buttons,
        "QPushButton:focus");
    row("marker missing", replacing(Combo, "    %2\n", ""), "marker-missing", Combo, "== component.combobox");
    row("marker twice", replacing(Combo, "    %2\n", "    %2\n    %2\n"), "marker-missing", Combo,
        "== component.combobox");

    // Selectors
    selector("misspelt class", "QChekBox", "class-unknown");
    selector("class that is none", "NoSuchWidget", "class-unknown");
    selector("class of another widget", "QRadioButton", "class-unreached");
    selector("object that is none", "QCheckBox#agree", "object-unknown");
    selector("misspelt state", "QCheckBox:hovered", "state-unknown");
    selector("part with one colon", "QCheckBox:indicator", "state-unknown");
    selector("misspelt part", "QCheckBox::indicater", "subcontrol-unknown");
    selector("part of another class", "QCheckBox::drop-down", "rule-never-matches");
    selector("states that exclude each other", "QCheckBox:enabled:disabled", "rule-never-matches");
    row("quote not closed in a rule of one line",
        replacing(Choices,
                  "== component.radio_button ==", "QCheckBox { font-family: \"Arial; }\n== component.radio_button =="),
        "declaration-form", Choices, "Arial;");
    selector("selector that the toolkit has not", "QCheckBox + QLabel", "selector-form");
    selector("pointer over what is disabled", "QCheckBox:disabled:hover", "rule-never-matches");
    selector("state and its contrary", "QCheckBox:hover:!hover", "rule-never-matches");
    selector("state of another class", "QCheckBox:editable", "rule-never-matches");
    selector("child of what has none", "QLabel QCheckBox", "rule-never-matches");
    selector("property that is none", "QCheckBox[eror=\"true\"]", "property-value");
    row("value that is none", replacing(Inputs, "QLineEdit[error=\"true\"]:hover", "QLineEdit[error=\"yes\"]:hover"),
        "property-value", Inputs, "error=\"yes\"");
    row("object of another class", replacing(Tables, "QWidget#PAGINGBARBORDER", "QLabel#PAGINGBARBORDER"),
        "class-unreached", Tables, "QLabel#PAGINGBARBORDER");
    row("misspelt object", replacing(Tables, "QWidget#PAGINGBARBORDER", "QWidget#PAGINGBARBODER"), "object-unknown",
        Tables, "PAGINGBARBODER");

    // Images of sheets
    row("image that is none", replacing(Choices, "IMG_LOC/check_off.png", "IMG_LOC/chek_off.png"), "image-missing",
        Choices, "chek_off");
    row("image in another case", replacing(Choices, "IMG_LOC/check_off.png", "IMG_LOC/Check_Off.png"), "image-case",
        Choices, "Check_Off");
    row(
        "digits in an image's name",
        [](const ThemeCopy &theme) {
            theme.rename(QStringLiteral("images/check_off.png"), QStringLiteral("images/check_16px.png"));
            theme.replace(Choices, "IMG_LOC/check_off.png", "IMG_LOC/check_16px.png");
            QByteArray tree = theme.read(QStringLiteral("styles/tree-and-path.qss"));
            theme.write(QStringLiteral("styles/tree-and-path.qss"),
                        tree.replace("IMG_LOC/check_off.png", "IMG_LOC/check_on.png"));
        },
        "image-digits", Choices, "check_16px");
    row("address outside", replacing(Choices, "IMG_LOC/check_off.png", "images/check_off.png"), "address-outside",
        Choices, "\"images/check_off.png");
    row("copy that is not listed", replacing(Choices, "IMG_LOC/check_off.png", "TMPIMG_LOC/tmp_check_off.png"),
        "image-folder", Choices, "TMPIMG_LOC");
    row("copy that is listed under images", replacing(Choices, "IMG_LOC/check_off.png", "TMPIMG_LOC/tmp_folder.png"),
        "image-folder", Choices, "TMPIMG_LOC");
    row("drawing that is listed under tmp_images",
        replacing(Inputs, "TMPIMG_LOC/tmp_field_error.png", "IMG_LOC/field_error.png"), "image-folder", Inputs,
        "IMG_LOC/field_error.png");
    row("copy without its beginning", replacing(Inputs, "TMPIMG_LOC/tmp_field_error.png", "TMPIMG_LOC/field_error.png"),
        "image-missing", Inputs, "TMPIMG_LOC/field_error.png");
    row("background of four times its size", declaring("background-image: url(\"IMG_LOC/bt_add.png\");"),
        "image-unscaled", Buttons, "background-image");

    // Images
    row("broken catalogue", replacing(Catalogue, "\"app_img\",", "\"app_img\""), "catalogue-json", Catalogue,
        "\"bg_tutorial_b\"");
    row(
        "catalogue missing", [](const ThemeCopy &theme) { theme.remove(Catalogue); }, "catalogue-json", Catalogue, "");
    row("misspelt list", replacing(Catalogue, "{", "{\n    \"image\": [],"), "catalogue-key", Catalogue, "\"image\"");
    row("number in a list", replacing(Catalogue, "\"bt_add\"", "\"bt_add\", 7"), "catalogue-entry", Catalogue,
        "\"images\"");
    row("nothing in a list", replacing(Catalogue, "\"bt_add\"", "null"), "catalogue-entry", Catalogue, "\"images\"");
    row("name with a folder", replacing(Catalogue, "\"bt_add\"", "\"images/bt_add\""), "image-missing", Catalogue,
        "images/bt_add");
    row("misspelt list of copies", replacing(Catalogue, "\"tmp_images\"", "\"tmp_image\""), "catalogue-key", Catalogue,
        "\"tmp_image\"");
    row("name with its ending", replacing(Catalogue, "\"bt_add\"", "\"bt_add.png\""), "catalogue-entry", Catalogue,
        "bt_add.png");
    row("name with a blank", replacing(Catalogue, "\"bt_add\"", "\"bt_add \""), "image-name-blank", Catalogue,
        "bt_add ");
    row("name twice", replacing(Catalogue, "\"bt_add\"", "\"bt_add\",\n\"bt_add\""), "image-listed-twice", Catalogue,
        "\"bt_add\"");
    row("image not listed", replacing(Catalogue, "        \"folder\",\n", ""), "image-unlisted", Catalogue,
        "\"images\"");
    row("listed image misspelt", replacing(Catalogue, "\"folder\"", "\"foldr\""), "image-missing", Catalogue, "foldr");
    row(
        "listed image missing", [](const ThemeCopy &theme) { theme.remove(QStringLiteral("images/app_img.png")); },
        "image-missing", Catalogue, "app_img");
    row(
        "listed image in another case",
        [](const ThemeCopy &theme) {
            theme.rename(QStringLiteral("images/app_img.png"), QStringLiteral("images/App_img.png"));
        },
        "image-case", Catalogue, "app_img");
    row(
        "folder of images missing",
        [](const ThemeCopy &theme) {
            const QStringList files = QDir(theme.path() + QStringLiteral("/images")).entryList(QDir::Files);
            for (const QString &file : files) {
                theme.remove(QStringLiteral("images/") + file);
            }
            QDir().rmdir(theme.path() + QStringLiteral("/images"));
        },
        "image-missing", QStringLiteral("images"), "");
    row(
        "state missing",
        [](const ThemeCopy &theme) { theme.remove(QStringLiteral("images/bt_pagebar_next_click.png")); },
        "image-state-missing", Catalogue, "\"bt_pagebar_next\"");
    row(
        "state in another case",
        [](const ThemeCopy &theme) {
            theme.rename(QStringLiteral("images/bt_pagebar_next_click.png"),
                         QStringLiteral("images/bt_pagebar_next_Click.png"));
        },
        "image-case", Catalogue, "\"bt_pagebar_next\"");
    row(
        "image never used",
        [](const ThemeCopy &theme) {
            resizeImage(theme, QStringLiteral("images/forgotten.png"), {64, 64});
        },
        "image-unused", QStringLiteral("images/forgotten.png"), "");
    row(
        "file that is no image",
        [](const ThemeCopy &theme) { theme.write(QStringLiteral("images/notes.txt"), "notes"); }, "image-unused",
        QStringLiteral("images/notes.txt"), "");
    row("copy never used", replacing(Catalogue, "\"field_error\"", "\"field_error\",\n        \"check_off_x\""),
        "image-missing", Catalogue, "check_off_x");
    row(
        "not PNG", [](const ThemeCopy &theme) { theme.write(QStringLiteral("images/app_img.png"), "GIF89a"); },
        "image-not-png", QStringLiteral("images/app_img.png"), "");
    row(
        "PNG cut short",
        [](const ThemeCopy &theme) {
            theme.write(QStringLiteral("images/app_img.png"),
                        theme.read(QStringLiteral("images/app_img.png")).left(60));
        },
        "image-not-png", QStringLiteral("images/app_img.png"), "");
    row(
        "sides that do not divide",
        [](const ThemeCopy &theme) {
            resizeImage(theme, QStringLiteral("images/app_img.png"), {130, 130});
        },
        "image-sides", QStringLiteral("images/app_img.png"), "");
    row(
        "too large",
        [](const ThemeCopy &theme) {
            resizeImage(theme, QStringLiteral("images/app_img.png"), {8196, 128});
        },
        "image-large", QStringLiteral("images/app_img.png"), "");
    row(
        "too small",
        [](const ThemeCopy &theme) {
            resizeImage(theme, QStringLiteral("images/app_img.png"), {64, 64});
        },
        "image-small", QStringLiteral("images/app_img.png"), "");
    row(
        "state of another size",
        [](const ThemeCopy &theme) {
            resizeImage(theme, QStringLiteral("images/bt_add_hover.png"), {96, 96});
        },
        "image-state-size", QStringLiteral("images/bt_add_hover.png"), "");

    row("list that is no array", replacing(Catalogue, "\"images\": [", "\"images\": 7, \"tmp_images\": ["),
        "catalogue-entry", Catalogue, "\"images\"");
    row("misspelt copy", replacing(Catalogue, "\"field_error\"", "\"field_eror\""), "image-missing", Catalogue,
        "field_eror");
    row(
        "ending in capitals",
        [](const ThemeCopy &theme) {
            theme.rename(QStringLiteral("images/app_img.png"), QStringLiteral("images/app_img.PNG"));
        },
        "image-case", Catalogue, "app_img");
    row(
        "state of another size, of a sheet's image",
        [](const ThemeCopy &theme) {
            resizeImage(theme, QStringLiteral("images/check_off_focus.png"), {80, 80});
        },
        "image-state-size", QStringLiteral("images/check_off_focus.png"), "");

    // Texts
    row("broken texts", replacing(English, "\"OK\",", "\"OK\""), "text-json", English, "\"cancel\"");
    row("text missing", replacing(English, "    \"today\": \"Today\",\n", ""), "text-missing", English, "");
    row("misspelt text", replacing(English, "\"today\":", "\"todya\":"), "text-unknown", English, "todya");
    row("unknown text", replacing(English, "\"today\":", "\"nothing_of_ours\": \"x\",\n\"today\":"), "text-unknown",
        English, "nothing_of_ours");
    row("text twice", replacing(English, "    \"today\":", "    \"today\": \"Today\",\n\"today\" :"), "text-doubled",
        English, "\"today\" :");
    row("text that is a number", replacing(English, "\"Today\"", "7"), "text-type", English, "\"today\"");
    row("empty text", replacing(English, "\"Today\"", "\"\""), "text-empty", English, "\"today\"");
    row("marker where none is filled", replacing(English, "\"Today\"", "\"Today %1\""), "text-marker", English,
        "\"today\"");
    row("marker missing from a text", replacing(English, "\"Page %1 of %2\"", "\"Page %1\""), "text-marker", English,
        "accessible_page_of");
    row("months that begin alike", replacing(English, "\"March\"", "\"Mayor\""), "text-indistinct", English,
        "\"month_may\"");
    row("weekdays that are the same", replacing(English, "\"Tuesday\"", "\"Monday\""), "text-indistinct", English,
        "\"tuesday\"");

    // theme.json
    row(
        "broken theme.json",
        [](const ThemeCopy &theme) { theme.write(QStringLiteral("theme.json"), "{\n\"palette\": }\n"); }, "theme-json",
        QStringLiteral("theme.json"), "\"palette\"");
    row("misspelt colour of the theme", replacing(QStringLiteral("theme.json"), "\"mask\"", "\"msk\""), "theme-key",
        QStringLiteral("theme.json"), "\"msk\"");
    row("no colour in theme.json", replacing(QStringLiteral("theme.json"), "\"window\": \"#", "\"window\": \"#1"),
        "theme-color", QStringLiteral("theme.json"), "\"window\"");
    const auto look = [&row](const char *name, const QByteArray &content, const char *rule, const QByteArray &at) {
        row(
            name, [content](const ThemeCopy &theme) { theme.write(QStringLiteral("theme.json"), content); }, rule,
            QStringLiteral("theme.json"), at);
    };
    look("weight that a font has not", "{\n\"font\": {\n\"weight\": 450}}", "theme-value", "\"weight\"");
    look("weight that is no number", "{\n\"font\": {\n\"weight\": \"bold\"}}", "theme-value", "\"weight\"");
    look("size of nothing", "{\n\"font\": {\n\"point_size\": 0}}", "theme-value", "\"point_size\"");
    look("family that is no name", "{\n\"font\": {\n\"family\": 7}}", "theme-value", "\"family\"");
    look("font that is no object", "{\n\"font\": \"Noto Sans\"}", "theme-value", "\"font\"");
    look("key of a palette's group",
         "{\n\"palette\": {\"text\": \"#000000\",\n\"disabled\": {\n\"texts\": \"#000000\"}}}", "theme-key",
         "\"texts\"");
    look("colour of a palette's group",
         "{\n\"palette\": {\"text\": \"#000000\",\n\"disabled\": {\n\"text\" : \"no\"}}}", "theme-color", "\"text\" :");

    // Silences
    row("silence without a reason", declaring("/* vela-theme: allow length-fraction */ padding: 2px;"),
        "silence-reason", Buttons, "vela-theme:");
    row("silence of no rule", declaring("/* vela-theme: allow anything: I like it */ padding: 2px;"), "silence-reason",
        Buttons, "vela-theme:");
    row("silence of nothing", declaring("/* vela-theme: allow length-fraction: looks better */ padding: 2px;"),
        "silence-unused", Buttons, "vela-theme:");
}

void ThemeCheckTest::aFaultGivesItsFindingAndNoOther()
{
    QFETCH(Seed, seed);
    QFETCH(QString, rule);
    QFETCH(QString, file);
    QFETCH(QByteArray, at);
    const ThemeCopy theme;
    seed(theme);
    const Findings findings = checkTheme(theme.path(), CheckedParts::Files);
    QVERIFY2(findings.all().size() == 1, qPrintable(inWords(findings)));
    const Finding finding = findings.all().first();
    QCOMPARE(QString::fromLatin1(finding.rule->name), rule);
    QCOMPARE(finding.file, file);
    if (!at.isEmpty()) {
        QCOMPARE(finding.line, lineOf(theme.read(file), at));
    }
}

void ThemeCheckTest::whatIsNoFaultGivesNoFinding_data()
{
    QTest::addColumn<Seed>("seed");
    const auto declaration = [](const char *name, const char *text) { QTest::newRow(name) << declaring(text); };
    const auto selector = [](const char *name, const char *text) {
        QTest::newRow(name) << ruling(QByteArray(text) + " {\n    color: red;\n}");
    };
    declaration(
        "gradient",
        "background-color: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 #FFFFFF, stop: 1 rgba(0, 0, 0, 50%));");
    declaration("colours by function", "color: rgba(1, 2, 3, 4); background: hsl(120, 50%, 50%);");
    declaration("colour of the palette", "color: palette(button-text);");
    declaration("colours with transparency", "color: #80FFFFFF; border-color: red green blue #123;");
    declaration("what no other rule takes back", "color: red !important;");
    declaration("size of a font in points", "font-size: 10pt; font-weight: 450;");
    declaration("nothing", "border: none; padding: 0; margin: 0px auto;");
    declaration("points", "font: bold 10pt \"Noto Sans\"; font-weight: 600;");
    declaration("line comment", "padding: 2px; // as ever");
    declaration("comment of a folder", "/* images/*.png */ padding: 2px;");
    declaration("property of the toolkit", "qproperty-flat: true;");
    declaration("application's own image", "image: url(:/logo.png);");
    declaration("semicolon in a string", "font-family: \"a;b\";");
    selector("base class", "QAbstractButton:hover");
    selector("any class", "*:focus");
    selector("window of the application", "QMainWindow > QCheckBox");
    selector("class of the application around it", "QDialog#settings QCheckBox");
    selector("negated state", "QCheckBox:!hover:checked");
    selector("property of the class", "QCheckBox[tristate=\"true\"]");
    selector("tool tip", "QToolTip");
    QTest::newRow("application's own section") << replacing(
        Choices,
        "== component.radio_button ==", "== my.toolbar ==\nMyBar#main { color: red; }\n== component.radio_button ==");
    QTest::newRow("section without a class") << replacing(
        Tables, "== component.paging_bar_border ==", "== my.other ==\ncolor: red;\n== component.paging_bar_border ==");
    QTest::newRow("byte order mark") << Seed(
        [](const ThemeCopy &theme) { theme.write(Inputs, "\xef\xbb\xbf" + theme.read(Inputs)); });
    QTest::newRow("line breaks of other systems")
        << Seed([](const ThemeCopy &theme) { theme.write(Inputs, theme.read(Inputs).replace("\n", "\r\n")); });
    QTest::newRow("section in a comment")
        << replacing(Choices, "== component.radio_button ==",
                     "/*\n== component.old ==\nQLabel { color: red; }\n*/\n== component.radio_button ==");
    QTest::newRow("image of the application") << Seed([](const ThemeCopy &theme) {
        resizeImage(theme, QStringLiteral("images/logo.png"), {400, 100});
        theme.replace(Catalogue, "\"bt_add\"", "\"bt_add\", \"logo\"");
    });
}

void ThemeCheckTest::whatIsNoFaultGivesNoFinding()
{
    QFETCH(Seed, seed);
    const ThemeCopy theme;
    seed(theme);
    QCOMPARE(inWords(checkTheme(theme.path(), CheckedParts::Files)), QString());
}

void ThemeCheckTest::digitsInTheFoldersPathAreTold()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("theme-16px"));
    QVERIFY(QFile::link(referenceTheme(), path));
    const Findings findings = checkTheme(path, CheckedParts::Files);
    QVERIFY2(findings.all().size() == 1, qPrintable(inWords(findings)));
    QCOMPARE(findings.all().first().rule->name, "path-digits");
}

void ThemeCheckTest::aLongLengthIsShownAsItComesOut()
{
    const ThemeCopy theme;
    declaring("width: 1000px;")(theme);
    const QString text = checkTheme(theme.path(), CheckedParts::Files).all().constFirst().text;
    for (const char *result : {"\"width: 1000px;0px\" at 1", "\"width: 1250px;0px\" at 1.25",
                               "\"width: 1500px;0px\" at 1.5", "\"width: 2000px;0px\" at 2"}) {
        QVERIFY2(text.contains(QString::fromLatin1(result)), qPrintable(text));
    }
}

void ThemeCheckTest::aFindingIsOneLineOfText()
{
    const ThemeCopy theme;
    declaring("color: #12345;")(theme);
    const int line = lineOf(theme.read(Buttons), "color: #12345;");
    QCOMPARE(
        QString::fromUtf8(runThemeProgram({QStringLiteral("check"), theme.path()}).out),
        QStringLiteral("%1/%2:%3: error: no colour: #12345 [color-invalid]\n").arg(theme.path(), Buttons).arg(line));
}

void ThemeCheckTest::aCommentSilencesARuleAtItsPlace()
{
    const QByteArray silence = "/* vela-theme: allow length-fraction: thinner at scale 1 */\n";
    {
        const ThemeCopy theme;
        declaring(silence + "    padding: 1.5px;")(theme);
        QCOMPARE(inWords(checkTheme(theme.path(), CheckedParts::Files)), QString());
    }
    const ThemeCopy theme;
    declaring(silence + "    padding: 2px;\n    margin: 1.5px;")(theme);
    QCOMPARE(checkTheme(theme.path(), CheckedParts::Files).all().size(),
             2); // the silence is of no use, and the fraction is told
}

void ThemeCheckTest::aFindingAsJsonTellsTheSame()
{
    const ThemeCopy theme;
    declaring("color: #12345;")(theme);
    const ThemeRun run =
        runThemeProgram({QStringLiteral("check"), QStringLiteral("--format"), QStringLiteral("json"), theme.path()});
    QCOMPARE(run.exitCode, 1);
    const QJsonArray findings = QJsonDocument::fromJson(run.out).array();
    QCOMPARE(findings.size(), 1);
    const QJsonObject expected {
        {QStringLiteral("file"), QString(theme.path() + u'/' + Buttons)},
        {QStringLiteral("line"), lineOf(theme.read(Buttons), "color: #12345;")},
        {QStringLiteral("rule"), QStringLiteral("color-invalid")},
        {QStringLiteral("severity"), QStringLiteral("error")},
        {QStringLiteral("text"), QStringLiteral("no colour: #12345")},
    };
    QCOMPARE(findings.first().toObject(), expected);
}

void ThemeCheckTest::everyRuleIsExplained()
{
    for (const QString &rule : ruleNames()) {
        QVERIFY2(std::strlen(findRule(rule)->explanation) > 10, qPrintable(rule));
    }
    const ThemeRun run =
        runThemeProgram({QStringLiteral("check"), QStringLiteral("--explain"), QStringLiteral("color-invalid")});
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.out.startsWith("color-invalid (error)\n\n"));
    QVERIFY(run.out.contains(findRule(QStringLiteral("color-invalid"))->explanation));
}

void ThemeCheckTest::whatCannotBeCheckedEndsWithTwo_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("nothing") << QStringList();
    QTest::newRow("no such command") << QStringList {QStringLiteral("chek")};
    QTest::newRow("no folder") << QStringList {QStringLiteral("check")};
    QTest::newRow("no such folder") << QStringList {QStringLiteral("check"), QStringLiteral("/nonexistent")};
    QTest::newRow("no such format") << QStringList {QStringLiteral("check"), referenceTheme(),
                                                    QStringLiteral("--format"), QStringLiteral("xml")};
    QTest::newRow("folder without a name") << QStringList {QStringLiteral("check"), QString()};
    QTest::newRow("file for a folder") << QStringList {QStringLiteral("check"),
                                                       referenceTheme() + QStringLiteral("/images.json")};
    QTest::newRow("arguments of a contract") << QStringList {QStringLiteral("contract"), QStringLiteral("all")};
    QTest::newRow("source without a name")
        << QStringList {QStringLiteral("new"), QString(), QStringLiteral("--accent"), QStringLiteral("#0a7f5a")};
    QTest::newRow("pictures without a name") << QStringList {QStringLiteral("render"), referenceTheme(), QString()};
    QTest::newRow("pictures of no theme") << QStringList {
        QStringLiteral("render"), referenceTheme() + QStringLiteral("/images"), QStringLiteral("/nonexistent")};
    QTest::newRow("screen that is none") << QStringList {QStringLiteral("render"), referenceTheme(),
                                                         QStringLiteral("/nonexistent"), QStringLiteral("--screen"),
                                                         QStringLiteral("99")};
    QTest::newRow("no such option") << QStringList {QStringLiteral("check"), referenceTheme(),
                                                    QStringLiteral("--quickly")};
}

void ThemeCheckTest::whatCannotBeCheckedEndsWithTwo()
{
    QFETCH(QStringList, arguments);
    const ThemeRun run = runThemeProgram(arguments);
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.out, QByteArray());
    QCOMPARE(run.status, QProcess::NormalExit);
    QVERIFY(!run.errors.isEmpty());
}

// A search of all files for each section takes five seconds.
void ThemeCheckTest::aMegabyteTakesNoMoreThanItsLength()
{
#ifdef VELA_SANITIZED
    constexpr double Allowed = 20;
#else
    constexpr double Allowed = 3;
#endif
    const QByteArray rules = "QPushButton#more:hover {\n    color: #123456;\n    padding: 2px 6px;\n}\n";
    QByteArray sheet;
    for (int section = 0; sheet.size() < 1024 * 1024; ++section) {
        sheet += "== app.panel_" + QByteArray::number(section) + " ==\n" + rules.repeated(15);
    }
    const ThemeCopy theme;
    theme.write(QStringLiteral("styles/application.qss"), sheet);
    const double before = secondsOfPrograms();
    QCOMPARE(runThemeProgram({QStringLiteral("check"), theme.path()}).out, QByteArray());
    const double seconds = secondsOfPrograms() - before;
    QVERIFY2(seconds < Allowed, qPrintable(QString::number(seconds)));
}

QTEST_MAIN(ThemeCheckTest)
#include "tst_theme_check.moc"
