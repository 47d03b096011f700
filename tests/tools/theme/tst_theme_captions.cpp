// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "caption-check.h"
#include "caption-stage.h"
#include "drawn-texts.h"
#include "findings.h"
#include "look-check.h"
#include "sheet-text.h"
#include "stage.h"
#include "theme-program.h"

#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QSet>
#include <QtTest>

namespace {

const QString Buttons = QStringLiteral("styles/buttons.qss");
const QString Date = QStringLiteral("styles/date.qss");
const QString English = QStringLiteral("strings/enu.json");
const QString German = QStringLiteral("strings/deu.json");
const QString Inputs = QStringLiteral("styles/inputs.qss");
const QString Menu = QStringLiteral("styles/combo-and-menu.qss");
const QString Messages = QStringLiteral("styles/messages.qss");
const QString Tables = QStringLiteral("styles/table-and-paging.qss");

// How a text is used, as the contract says it in brackets, where no theme can cut it.
struct Uncut
{
    const char *use;
    const char *reason;
};

constexpr Uncut UncutUses[] = {
    {"tool tip", "a tool tip is made as large as its text"},
    {"accessible name", "it is spoken"},
    {"accessible name of an arrow", "it is spoken"},
};

bool canBeCut(const QString &use)
{
    return std::none_of(std::begin(UncutUses), std::end(UncutUses),
                        [&use](const Uncut &uncut) { return use == QLatin1String(uncut.use); });
}

// Names of users, with what is said of them in brackets.
QMap<QString, QString> usersOf(const Vela::TextEntry &entry)
{
    static const QRegularExpression user(QStringLiteral("([^,(]+?)\\s*(?:\\(([^)]*)\\))?(?:, |$)"));
    QMap<QString, QString> users;
    for (auto matches = user.globalMatch(QString::fromLatin1(entry.usedBy)); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        users.insert(match.captured(1), match.captured(2));
    }
    return users;
}

QString place(const Vela::TextEntry &entry, const QString &user)
{
    return QStringLiteral("%1 in %2").arg(QLatin1String(entry.key), user);
}

QVector<ShownCaption> captionsOf(const QString &theme)
{
    useTheme(theme, QStringLiteral("enu"));
    QVector<ShownCaption> captions;
    showCaptions([&captions](const auto &measure) { captions = measure(); });
    return captions;
}

// A theme in two languages.
class SmallTheme : public ThemeCopy
{
public:
    SmallTheme()
    {
        const QStringList files = QDir(path() + QStringLiteral("/strings")).entryList(QDir::Files);
        for (const QString &file : files) {
            const QString name = QStringLiteral("strings/") + file;
            if (name != English && name != German) {
                remove(name);
            }
        }
    }
};

QByteArray longText(const QByteArray &words)
{
    return words.repeated(6).trimmed();
}

int lineOf(const QByteArray &content, const QByteArray &text)
{
    const int position = content.indexOf(text);
    return position < 0 ? -1 : content.left(position).count('\n') + 1;
}

} // namespace

class ThemeCaptionsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyTextIsMeasuredWhereItIsShown();
    void whatIsSeenIsNoMoreThanTheTexts();
    void textsAreToldAsTheyArePainted();
    void aTextThatIsTooLongIsToldAtItsLine_data();
    void aTextThatIsTooLongIsToldAtItsLine();
    void aSectionWithoutRoomIsToldAtItsHeader_data();
    void aSectionWithoutRoomIsToldAtItsHeader();

private:
    void checkFinding(const ThemeCopy &theme, const Findings &findings);
};

void ThemeCaptionsTest::everyTextIsMeasuredWhereItIsShown()
{
    QStringList measured;
    const QVector<ShownCaption> captions = captionsOf(referenceTheme());
    for (const ShownCaption &caption : captions) {
        measured.append(place(Vela::TextEntries[static_cast<int>(caption.text)], QLatin1String(caption.user)));
    }
    measured.removeDuplicates();
    measured.sort();
    QStringList shown;
    for (const Vela::TextEntry &entry : Vela::TextEntries) {
        const QMap<QString, QString> users = usersOf(entry);
        QVERIFY2(!users.isEmpty(), entry.key);
        for (auto user = users.cbegin(); user != users.cend(); ++user) {
            if (canBeCut(user.value())) {
                shown.append(place(entry, user.key()));
            }
        }
    }
    shown.sort();
    QCOMPARE(measured, shown);
}

void ThemeCaptionsTest::whatIsSeenIsNoMoreThanTheTexts()
{
    const QVector<ShownCaption> captions = captionsOf(referenceTheme());
    QSet<QString> shown;
    for (const ShownCaption &caption : captions) {
        QVERIFY2(!caption.isCut, qPrintable(caption.caption));
        shown.insert(caption.caption);
    }
    for (const char *text : {"OK", "OK(59)", "Cancel", "Upgrade", "Today", "September", "Sep", "W"}) {
        QVERIFY2(shown.contains(QString::fromLatin1(text)), text);
    }
}

void ThemeCaptionsTest::textsAreToldAsTheyArePainted()
{
    QWidget window;
    window.resize(300, 100);
    QLabel whole(QStringLiteral("whole"), &window);
    whole.setGeometry(10, 10, 200, 30);
    QLabel cut(QStringLiteral("a long text"), &window);
    cut.setGeometry(10, 50, 20, 30);
    QLabel low(QStringLiteral("low"), &window);
    low.setGeometry(100, 50, 100, 4);
    QLabel outside(QStringLiteral("outside"), &window);
    outside.setGeometry(280, 10, 100, 30);
    QPushButton elided(QStringLiteral("x\u2026"), &window);
    elided.setGeometry(100, 60, 100, 30);
    QLabel behind(QStringLiteral("behind"), &window);
    behind.setGeometry(10, 120, 100, 30);

    QMap<QString, bool> isCut;
    const QVector<DrawnText> texts = drawnTexts(&window);
    for (const DrawnText &text : texts) {
        isCut.insert(text.text, text.isCut);
    }
    const QMap<QString, bool> expected {
        {QStringLiteral("whole"), false},  {QStringLiteral("a long text"), true}, {QStringLiteral("low"), true},
        {QStringLiteral("outside"), true}, {QStringLiteral("x\u2026"), true},
    };
    QCOMPARE(isCut, expected);
    QVERIFY(whole.geometry().contains(texts.constFirst().rect.toAlignedRect()));
    QCOMPARE(window.childAt(texts.at(1).seenAt), &cut);
}

void ThemeCaptionsTest::checkFinding(const ThemeCopy &theme, const Findings &findings)
{
    QFETCH(QString, file);
    QFETCH(QByteArray, at);
    QVERIFY2(findings.all().size() == 1, qPrintable(asText(findings, QString())));
    QCOMPARE(asText(findings, QString()).count(u'\n'), 1);
    const Finding &finding = findings.all().constFirst();
    QCOMPARE(finding.rule->name, "caption-cut");
    QCOMPARE(finding.file, file);
    QCOMPARE(finding.line, lineOf(theme.read(file), at));
}

void ThemeCaptionsTest::aTextThatIsTooLongIsToldAtItsLine_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    QTest::addColumn<QByteArray>("at");
    const auto row = [](const char *name, const QString &file, const QByteArray &text, const QByteArray &words,
                        const QByteArray &at) {
        QTest::newRow(name) << file << '"' + text + '"' << '"' + longText(words) + '"' << at;
    };
    row("answer", English, "OK", "Yes, do all of it ", "\"ok\"");
    row("answer in another language", German, "Abbrechen", "Abbrechen und verwerfen ", "\"cancel\"");
    row("answer of an upgrade", English, "Upgrade", "Upgrade all of it ", "\"wizard_client_upgrade\"");
    row("today", English, "Today", "The day that it is ", "\"today\"");
    row("month", English, "August", "The eighth month ", "\"month_aug\"");
    QTest::newRow("two lines, told in one")
        << English << QByteArray("\"Today\"") << QByteArray("\"To\\nday\"") << QByteArray("\"today\"");
    QTest::newRow("first letter of a weekday")
        << English << QByteArray("\"Sunday\"") << QByteArray("\"\xef\xb7\xbd Sunday\"") << QByteArray("\"sunday\"");
}

void ThemeCaptionsTest::aTextThatIsTooLongIsToldAtItsLine()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    const SmallTheme theme;
    theme.replace(file, from, to);
    useTheme(theme.path(), QStringLiteral("enu"));
    Findings findings;
    const SheetText sheets(theme.path(), &findings);
    checkCaptions(theme.path(), sheets, &findings);
    checkFinding(theme, findings);
}

void ThemeCaptionsTest::aSectionWithoutRoomIsToldAtItsHeader_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QByteArray>("rule");
    QTest::addColumn<QByteArray>("at");
    const auto row = [](const char *name, const QString &file, const QByteArray &key, const QByteArray &rule) {
        const QByteArray header = "== component." + key + " ==\n";
        QTest::newRow(name) << file << header << rule << header;
    };
    row("button", Buttons, "apply_button", "QPushButton { max-width: 30px; }");
    row("button that is too low", Buttons, "default_button", "QPushButton { max-height: 24px; padding: 14px; }");
    row("large letters under the pointer", Buttons, "cancel_button", "QPushButton:hover { font-size: 40px; }");
    row("today", Buttons, "cancel_button", "QPushButton#qt_calendar_today_button { max-width: 20px; }");
    row("input sheet", Messages, "message_sheet_other",
        "VelaInputSheet QPushButton { min-width: 20px; max-width: 20px; }");
    row("countdown and information", Messages, "info_message_box", "QPushButton { max-width: 20px; }");
    row("warning", Messages, "warning_message_box", "QPushButton { max-width: 20px; }");
    row("month", Date, "date_selector", "QToolButton#qt_calendar_monthbutton { max-width: 20px; }");
    row("year", Date, "date_selector", "QToolButton#qt_calendar_yearbutton { max-width: 20px; }");
    row("days", Date, "date_selector", "QTableView#qt_calendar_calendarview { font-size: 50px; }");
    row("menu", Menu, "menu", "QMenu::item { width: 20px; }");
    row("combo box", Menu, "combobox", "QComboBox::drop-down { width: 130px; }");
    row("check box", QStringLiteral("styles/choices.qss"), "checkbox", "QCheckBox { max-width: 40px; }");
    row("texts beside a field", Inputs, "lineedit_label", "QLabel { max-width: 20px; }");
    row("search", Inputs, "filter_bar_padding", "QLineEdit { padding-left: 130px; }");
    row("footer of a list", Tables, "paging_bar_label", "QLabel { max-width: 20px; }");
    row("rows", Tables, "table", "QTableWidget::item { padding: 0px 50px; }");
    row("titles of columns", Tables, "table_header", "QHeaderView::section { padding: 0px 50px; }");
}

void ThemeCaptionsTest::aSectionWithoutRoomIsToldAtItsHeader()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, key);
    QFETCH(QByteArray, rule);
    const SmallTheme theme;
    const QByteArray sheet = theme.read(file);
    const int next = sheet.indexOf("\n== ", sheet.indexOf(key) + key.size());
    const int end = sheet.lastIndexOf("}\n", next) + 2; // the section's last rule, in front of a comment on the next
    theme.write(file, sheet.left(end) + rule + '\n' + sheet.mid(end));
    Findings findings;
    const SheetText sheets(theme.path(), &findings);
    checkLooks(theme.path(), sheets, &findings);
    checkFinding(theme, findings);
}

QTEST_MAIN(ThemeCaptionsTest)
#include "tst_theme_captions.moc"
