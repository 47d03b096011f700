// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "contrast.h"
#include "sheet-rules.h"

#include "support/log-capture.h"

#include <QCalendarWidget>
#include <QComboBox>
#include <QDir>
#include <QHeaderView>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTreeView>
#include <QtTest>

namespace {

constexpr double ReadableContrast = 4.5;
constexpr double DisabledContrast = 3.0;
constexpr double VisibleContrast = 3.0; // least contrast of a focus ring

// What an unpainted widget may stand on.
const QStringList Pages = {QStringLiteral("#FFFFFF"), QStringLiteral("#F5F7FA")};

const QStringList Keys = {
    QStringLiteral("component.apply_button"),
    QStringLiteral("component.button_path"),
    QStringLiteral("component.button_path_arrow"),
    QStringLiteral("component.button_path_change_folder_btn"),
    QStringLiteral("component.button_path_name_button"),
    QStringLiteral("component.cancel_button"),
    QStringLiteral("component.checkbox"),
    QStringLiteral("component.combobox"),
    QStringLiteral("component.confirm_message_box"),
    QStringLiteral("component.date_selector"),
    QStringLiteral("component.default_button"),
    QStringLiteral("component.filter_bar_padding"),
    QStringLiteral("component.filter_search_button"),
    QStringLiteral("component.icon_button"),
    QStringLiteral("component.info_message_box"),
    QStringLiteral("component.label"),
    QStringLiteral("component.lineedit"),
    QStringLiteral("component.lineedit_label"),
    QStringLiteral("component.menu"),
    QStringLiteral("component.message_sheet_informative_text"),
    QStringLiteral("component.message_sheet_other"),
    QStringLiteral("component.message_sheet_processing"),
    QStringLiteral("component.message_sheet_text"),
    QStringLiteral("component.nonselect_paging_button"),
    QStringLiteral("component.paging_bar_border"),
    QStringLiteral("component.paging_bar_label"),
    QStringLiteral("component.paging_bar_rightmost_label"),
    QStringLiteral("component.radio_button"),
    QStringLiteral("component.red_button"),
    QStringLiteral("component.scrollbar"),
    QStringLiteral("component.select_paging_button"),
    QStringLiteral("component.table"),
    QStringLiteral("component.table_header"),
    QStringLiteral("component.tree_item"),
    QStringLiteral("component.upgrading_message_box"),
    QStringLiteral("component.warning_message_box"),
};

// What a person can act on, and the states in which it looks another way.
struct Control
{
    const char *key;
    const char *target;
    const char *states;
};

constexpr Control Controls[] = {
    {"component.apply_button", "QPushButton", "hover focus pressed disabled"},
    {"component.button_path", "QTableView", "hover disabled"},
    {"component.button_path_arrow", "QPushButton", "focus"},
    {"component.button_path_change_folder_btn", "QToolButton", "hover focus pressed disabled"},
    {"component.button_path_name_button", "QPushButton", "hover focus pressed disabled"},
    {"component.cancel_button", "QPushButton", "hover focus pressed disabled"},
    {"component.checkbox", "QCheckBox", "disabled"},
    {"component.checkbox", "QCheckBox::indicator", "checked indeterminate"},
    {"component.combobox", "QComboBox", "hover focus on pressed disabled"},
    {"component.combobox", "QComboBox QAbstractItemView::item", "hover selected disabled"},
    {"component.date_selector", "QCalendarWidget QToolButton", "hover focus pressed disabled"},
    {"component.date_selector", "QComboBox", "hover focus on pressed disabled"},
    {"component.date_selector", "QSpinBox#qt_calendar_yearedit", "focus"},
    {"component.default_button", "QPushButton", "hover focus pressed disabled"},
    {"component.filter_search_button", "QToolButton", "hover pressed"},
    {"component.icon_button", "QToolButton", "hover focus pressed disabled"},
    {"component.lineedit", "QLineEdit", "hover focus disabled [error=\"true\"]"},
    {"component.menu", "QMenu::item", "selected pressed disabled"},
    {"component.message_sheet_informative_text", "QLabel", "focus"},
    {"component.message_sheet_text", "QLabel", "focus"},
    {"component.nonselect_paging_button", "QPushButton", "hover focus pressed disabled"},
    {"component.radio_button", "QRadioButton", "disabled"},
    {"component.red_button", "QPushButton", "hover focus pressed disabled"},
    {"component.scrollbar", "QScrollBar::handle", "hover pressed disabled"},
    {"component.select_paging_button", "QPushButton", "hover focus pressed disabled"},
    {"component.table", "QTableView", "focus disabled"},
    {"component.table", "QTableView::item", "hover selected disabled"},
    {"component.table_header", "QHeaderView::section", "hover pressed disabled"},
    {"component.tree_item", "QLineEdit", "hover focus disabled"},
    {"component.tree_item", "QTreeView", "focus disabled"},
};

// An indicator has a drawing for every pair of these.
struct Indicator
{
    const char *key;
    const char *target;
    const char *values;
};

constexpr Indicator Indicators[] = {
    {"component.checkbox", "QCheckBox::indicator", "unchecked checked indeterminate"},
    {"component.radio_button", "QRadioButton::indicator", "unchecked checked"},
};

constexpr double Scales[] = {1.0, 1.25, 1.5, 1.75, 2.0, 2.5, 3.0};

const QString Transparent = QStringLiteral("transparent");

QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '));
}

QDir themeFolder()
{
    return QDir(QStringLiteral(VELA_THEME_DIR));
}

QString readText(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// What the combo box puts into its template.
QString withComboFragments(QString text)
{
    return text.replace(QStringLiteral("%1"), QStringLiteral("padding-left: 6px;\npadding-right: 6px;"))
        .replace(QStringLiteral("%2"), QStringLiteral("border: 1px solid #C8D2DC;"));
}

QString withFolders(QString text)
{
    return text.replace(QStringLiteral("TMPIMG_LOC/tmp_"), themeFolder().filePath(QStringLiteral("images/")))
        .replace(QStringLiteral("IMG_LOC"), themeFolder().filePath(QStringLiteral("images")));
}

int scaledLength(const QString &length, double scale)
{
    return int(QString(length).remove(QStringLiteral("px")).toDouble() * scale);
}

} // namespace

class TestThemeSheets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyKeyHasOneSection_data();
    void everyKeyHasOneSection();
    void thereAreNoOtherSections();
    void everySelectorNamesAClass();
    void lengthsHaveAtMostThreeCharacters();
    void lengthsAreWholeNumbers();
    void nothingLooksLikeALineComment();
    void commentsStandOnLinesOfTheirOwn();
    void imageAddressesAreQuotedAndHoldNoLength();
    void imageAddressesResolve();
    void theToolkitUnderstandsEverySection_data() { everyKeyHasOneSection_data(); }
    void theToolkitUnderstandsEverySection();
    void theComboBoxSectionIsATemplate();
    void textIsReadableInEveryState_data();
    void textIsReadableInEveryState();
    void selectedTextIsReadable();
    void placeholdersAreReadable();
    void controlsLookAnotherWayInEveryState_data();
    void controlsLookAnotherWayInEveryState();
    void indicatorsHaveADrawingForEveryState();
    void focusIsVisible_data();
    void focusIsVisible();
    void focusMovesNothing_data();
    void focusMovesNothing();

private:
    const Section &section(const QString &key) const;
    QString background(const Section &section, const QString &target, const QStringList &states) const;
    QString foreground(const Section &section, const QString &target, const QStringList &states) const;

    QMap<QString, QString> m_files; // text by file name, as it stands
    QMap<QString, Section> m_sections;
    QStringList m_keys;
    QStringList m_tempImages;
};

void TestThemeSheets::initTestCase()
{
    const QDir styles(themeFolder().filePath(QStringLiteral("styles")));
    for (const QString &name : styles.entryList({QStringLiteral("*.qss")}, QDir::Files)) {
        const QString text = readText(styles.filePath(name));
        m_files.insert(name, text);
        for (const Section &section : readSections(withComboFragments(text))) {
            m_keys.append(section.key);
            m_sections.insert(section.key, section);
        }
    }
    QVERIFY(!m_files.isEmpty());

    const QJsonObject catalogue =
        QJsonDocument::fromJson(readText(themeFolder().filePath(QStringLiteral("images.json"))).toUtf8()).object();
    for (const QJsonValue &name : catalogue.value(QLatin1String("tmp_images")).toArray()) {
        m_tempImages.append(name.toString());
    }
}

const Section &TestThemeSheets::section(const QString &key) const
{
    static const Section none;
    const auto found = m_sections.constFind(key);
    return found == m_sections.constEnd() ? none : *found;
}

// The colour behind target, or "transparent". A sub-control without a surface of its own lies on its
// widget's.
QString TestThemeSheets::background(const Section &section, const QString &target, const QStringList &states) const
{
    const QString own = section.resolved(target, states).value(QStringLiteral("background-color"), Transparent);
    const int subControl = target.indexOf(QLatin1String("::"));
    return own == Transparent && subControl > 0 ? background(section, target.left(subControl), states) : own;
}

QString TestThemeSheets::foreground(const Section &section, const QString &target, const QStringList &states) const
{
    const QString own = section.resolved(target, states).value(QStringLiteral("color"));
    const int subControl = target.indexOf(QLatin1String("::"));
    return own.isEmpty() && subControl > 0 ? foreground(section, target.left(subControl), states) : own;
}

void TestThemeSheets::everyKeyHasOneSection_data()
{
    QTest::addColumn<QString>("key");
    for (const QString &key : Keys) {
        QTest::newRow(qPrintable(key)) << key;
    }
}

void TestThemeSheets::everyKeyHasOneSection()
{
    QFETCH(QString, key);
    QCOMPARE(m_keys.count(key), 1);
    QVERIFY(!section(key).rules.isEmpty());
}

void TestThemeSheets::thereAreNoOtherSections()
{
    QStringList keys = m_keys;
    keys.sort();
    QCOMPARE(Keys.size(), 36);
    QCOMPARE(keys, Keys);
}

void TestThemeSheets::everySelectorNamesAClass()
{
    for (const Section &section : qAsConst(m_sections)) {
        for (const Rule &rule : section.rules) {
            QVERIFY2(rule.selector.isValid(), qPrintable(section.key));
            QVERIFY2(!rule.declarations.isEmpty(), qPrintable(section.key));
        }
    }
}

void TestThemeSheets::lengthsHaveAtMostThreeCharacters()
{
    static const QRegularExpression length(QStringLiteral("(\\d+\\.?\\d*)px"));
    for (auto file = m_files.cbegin(); file != m_files.cend(); ++file) {
        for (auto matches = length.globalMatch(file.value()); matches.hasNext();) {
            const QString number = matches.next().captured(1);
            QVERIFY2(number.size() <= 3, qPrintable(file.key() + QStringLiteral(": ") + number));
        }
    }
}

void TestThemeSheets::lengthsAreWholeNumbers()
{
    static const QRegularExpression fraction(QStringLiteral("\\.\\d*px"));
    for (auto file = m_files.cbegin(); file != m_files.cend(); ++file) {
        QVERIFY2(!file.value().contains(fraction), qPrintable(file.key()));
    }
}

void TestThemeSheets::nothingLooksLikeALineComment()
{
    for (auto file = m_files.cbegin(); file != m_files.cend(); ++file) {
        QVERIFY2(!file.value().contains(QLatin1String("//")), qPrintable(file.key()));
        QVERIFY2(!file.value().contains(QLatin1Char('\r')), qPrintable(file.key()));
    }
}

void TestThemeSheets::commentsStandOnLinesOfTheirOwn()
{
    for (auto file = m_files.cbegin(); file != m_files.cend(); ++file) {
        const QString &text = file.value();
        int end = 0;
        for (int begin = 0; (begin = text.indexOf(QLatin1String("/*"), end)) >= 0;) {
            end = text.indexOf(QLatin1String("*/"), begin);
            QVERIFY2(end > begin, qPrintable(file.key()));
            end += 2;
            QVERIFY2(begin == 0 || text.at(begin - 1) == QLatin1Char('\n'), qPrintable(file.key()));
            QVERIFY2(end == text.size() || text.at(end) == QLatin1Char('\n'), qPrintable(file.key()));
            QVERIFY2(!text.midRef(begin, end - begin).contains(QLatin1String("\n==")), qPrintable(file.key()));
        }
        QVERIFY2(!withoutComments(text).contains(QLatin1String("*/")), qPrintable(file.key()));
    }
}

void TestThemeSheets::imageAddressesAreQuotedAndHoldNoLength()
{
    static const QRegularExpression address(QStringLiteral("url\\(([^)]*)\\)"));
    static const QRegularExpression length(QStringLiteral("\\dpx"));
    for (auto file = m_files.cbegin(); file != m_files.cend(); ++file) {
        for (auto matches = address.globalMatch(file.value()); matches.hasNext();) {
            const QString url = matches.next().captured(1);
            QVERIFY2(url.size() > 2 && url.startsWith(QLatin1Char('"')) && url.endsWith(QLatin1Char('"')),
                     qPrintable(url));
            QVERIFY2(!url.contains(length), qPrintable(url));
        }
    }
}

void TestThemeSheets::imageAddressesResolve()
{
    static const QRegularExpression address(QStringLiteral("url\\(\"([^\"]*)\"\\)"));
    static const QRegularExpression drawn(QStringLiteral("^IMG_LOC/(\\w+)\\.png$"));
    static const QRegularExpression generated(QStringLiteral("^TMPIMG_LOC/tmp_(\\w+)\\.png$"));
    const QDir images(themeFolder().filePath(QStringLiteral("images")));
    int count = 0;
    for (const QString &text : qAsConst(m_files)) {
        for (auto matches = address.globalMatch(text); matches.hasNext(); ++count) {
            const QString url = matches.next().captured(1);
            const QRegularExpressionMatch asDrawn = drawn.match(url);
            const QRegularExpressionMatch asGenerated = generated.match(url);
            QVERIFY2(asDrawn.hasMatch() || asGenerated.hasMatch(), qPrintable(url));
            if (asGenerated.hasMatch()) {
                QVERIFY2(m_tempImages.contains(asGenerated.captured(1)), qPrintable(url));
            }
            const QString name = asDrawn.hasMatch() ? asDrawn.captured(1) : asGenerated.captured(1);
            QVERIFY2(images.exists(name + QStringLiteral(".png")), qPrintable(url));
        }
    }
    QVERIFY(count > 0);
    for (const QString &name : qAsConst(m_tempImages)) {
        const QString url = QStringLiteral("TMPIMG_LOC/tmp_%1.png").arg(name);
        QVERIFY2(
            std::any_of(m_files.cbegin(), m_files.cend(), [&url](const QString &text) { return text.contains(url); }),
            qPrintable(url));
    }
}

void TestThemeSheets::theToolkitUnderstandsEverySection()
{
    QFETCH(QString, key);
    // Each of the classes that the sections are about, so that each of their rules is looked at.
    const std::unique_ptr<QWidget> widgets[] = {
        std::make_unique<QPushButton>(), std::make_unique<QLineEdit>(),       std::make_unique<QLabel>(),
        std::make_unique<QComboBox>(),   std::make_unique<QCalendarWidget>(), std::make_unique<QTreeView>(),
        std::make_unique<QWidget>(),
    };
    LogCapture log;
    for (const std::unique_ptr<QWidget> &widget : widgets) {
        widget->setStyleSheet(withFolders(section(key).text));
        widget->ensurePolished();
    }
    QCOMPARE(log.takeTexts(), QStringList());
}

void TestThemeSheets::theComboBoxSectionIsATemplate()
{
    const QString text = m_files.value(QStringLiteral("combo-and-menu.qss"));
    QCOMPARE(withoutComments(text).count(QStringLiteral("%1")), 1);
    QCOMPARE(withoutComments(text).count(QStringLiteral("%2")), 1);
    static const QRegularExpression marker(QStringLiteral("%\\d"));
    QCOMPARE(withoutComments(text).count(marker), 2);
}

void TestThemeSheets::textIsReadableInEveryState_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("target");
    for (const Section &section : qAsConst(m_sections)) {
        for (const QString &target : section.targets()) {
            if (!foreground(section, target, {}).isEmpty()) {
                QTest::newRow(qPrintable(section.key + QLatin1Char(' ') + target)) << section.key << target;
            }
        }
    }
}

void TestThemeSheets::textIsReadableInEveryState()
{
    QFETCH(QString, key);
    QFETCH(QString, target);
    const Section &section = this->section(key);
    const QVector<Rule> rules = section.rulesOf(target);
    for (const Rule &one : rules) {
        for (const Rule &other : rules) {
            const QStringList states = one.selector.states + other.selector.states;
            const QString color = foreground(section, target, states);
            const QString surface = background(section, target, states);
            const double least = states.contains(QStringLiteral("disabled")) ? DisabledContrast : ReadableContrast;
            for (const QString &page : Pages) {
                const double measured = contrast(color, surface == Transparent ? page : surface);
                QVERIFY2(
                    measured >= least,
                    qPrintable(QStringLiteral("%1 on %2 in state \"%3\": %4")
                                   .arg(color, surface == Transparent ? page : surface, states.join(QLatin1Char(' ')))
                                   .arg(measured)));
            }
        }
    }
}

void TestThemeSheets::selectedTextIsReadable()
{
    int count = 0;
    for (const Section &section : qAsConst(m_sections)) {
        for (const QString &target : section.targets()) {
            const Declarations declarations = section.resolved(target, {});
            const QString color = declarations.value(QStringLiteral("selection-color"));
            const QString surface = declarations.value(QStringLiteral("selection-background-color"));
            QCOMPARE(color.isEmpty(), surface.isEmpty());
            if (surface == Transparent) { // a tree's, which the widget paints in colours of its own
                QVERIFY2(contrast(color, QStringLiteral("#DCE8FA")) >= ReadableContrast, qPrintable(section.key));
            } else if (!color.isEmpty()) {
                QVERIFY2(contrast(color, surface) >= ReadableContrast, qPrintable(section.key));
                ++count;
            }
        }
    }
    QVERIFY(count > 0);
}

void TestThemeSheets::placeholdersAreReadable()
{
    for (const QString &key : {QStringLiteral("component.lineedit"), QStringLiteral("component.tree_item")}) {
        QLineEdit field;
        field.setStyleSheet(withFolders(section(key).text));
        field.ensurePolished();
        const QColor color = field.palette().color(QPalette::PlaceholderText);
        const QColor surface(background(section(key), QStringLiteral("QLineEdit"), {}));
        const auto blended = [&color](int ink, int paper) {
            return qRound(ink * color.alphaF() + paper * (1 - color.alphaF()));
        };
        const QColor seen(blended(color.red(), surface.red()), blended(color.green(), surface.green()),
                          blended(color.blue(), surface.blue()));
        QVERIFY(contrast(seen, surface) >= ReadableContrast);
    }
}

void TestThemeSheets::controlsLookAnotherWayInEveryState_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("state");
    for (const Control &control : Controls) {
        for (const QString &state : words(control.states)) {
            QTest::newRow(qPrintable(
                QStringLiteral("%1 %2 %3").arg(QLatin1String(control.key), QLatin1String(control.target), state)))
                << QString::fromLatin1(control.key) << QString::fromLatin1(control.target) << state;
        }
    }
}

void TestThemeSheets::controlsLookAnotherWayInEveryState()
{
    QFETCH(QString, key);
    QFETCH(QString, target);
    QFETCH(QString, state);
    const Section &section = this->section(key);
    QVERIFY(section.resolved(target, {state}) != section.resolved(target, {}));
}

void TestThemeSheets::indicatorsHaveADrawingForEveryState()
{
    const QString image = QStringLiteral("image");
    for (const Indicator &indicator : Indicators) {
        const Section &section = this->section(QString::fromLatin1(indicator.key));
        QStringList drawings;
        for (const QString &value : words(indicator.values)) {
            drawings.append(section.resolved(QString::fromLatin1(indicator.target), {value}).value(image));
            for (const QString &state : words("hover focus pressed disabled")) {
                drawings.append(section.resolved(QString::fromLatin1(indicator.target), {value, state}).value(image));
            }
        }
        QVERIFY(!drawings.contains(QString()));
        QCOMPARE(drawings.removeDuplicates(), 0);
    }
}

void TestThemeSheets::focusIsVisible_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("target");
    for (const Control &control : Controls) {
        if (words(control.states).contains(QStringLiteral("focus"))) {
            QTest::newRow(control.key) << QString::fromLatin1(control.key) << QString::fromLatin1(control.target);
        }
    }
}

void TestThemeSheets::focusIsVisible()
{
    QFETCH(QString, key);
    QFETCH(QString, target);
    const Section &section = this->section(key);
    const Declarations idle = section.resolved(target, {});
    const Declarations focused = section.resolved(target, {QStringLiteral("focus")});
    const QString width = QStringLiteral("border-bottom-width");
    bool found = false;
    for (const QString &side : words("left bottom")) {
        const QString name = QStringLiteral("border-%1-color").arg(side);
        const QString color = focused.value(name);
        const bool isAnother = color != idle.value(name) || focused.value(width) != idle.value(width);
        const bool isSeen = std::all_of(Pages.cbegin(), Pages.cend(), [&color](const QString &page) {
            return !color.isEmpty() && color != Transparent && contrast(color, page) >= VisibleContrast;
        });
        found = found || (isAnother && isSeen);
    }
    QVERIFY(found);
}

void TestThemeSheets::focusMovesNothing_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("target");
    for (const Section &section : qAsConst(m_sections)) {
        for (const QString &target : section.targets()) {
            const QVector<Rule> rules = section.rulesOf(target);
            const bool takesFocus = std::any_of(rules.cbegin(), rules.cend(), [](const Rule &rule) {
                return rule.selector.hasState(QStringLiteral("focus"));
            });
            // The arrow's image is centred in more room than it needs.
            if (takesFocus && section.key != QLatin1String("component.button_path_arrow")) {
                QTest::newRow(qPrintable(section.key + QLatin1Char(' ') + target)) << section.key << target;
            }
        }
    }
}

void TestThemeSheets::focusMovesNothing()
{
    QFETCH(QString, key);
    QFETCH(QString, target);
    // The filter bar's padding comes on top of the field's section.
    Section section = this->section(key);
    if (key == QLatin1String("component.filter_bar_padding")) {
        section.rules = this->section(QStringLiteral("component.lineedit")).rules + section.rules;
    }
    // Today's button has a height of its own, in which its text is centred.
    const bool isCentred = target.endsWith(QLatin1String("today_button"));
    const QStringList sides = isCentred ? words("left right") : words("top right bottom left");
    for (const Rule &rule : section.rulesOf(target)) {
        QStringList idle = rule.selector.states;
        idle.removeAll(QStringLiteral("focus"));
        const Declarations before = section.resolved(target, idle);
        const Declarations after = section.resolved(target, idle + QStringList {QStringLiteral("focus")});
        for (const double scale : Scales) {
            for (const QString &side : sides) {
                const auto inset = [&side, scale](const Declarations &declarations) {
                    return scaledLength(declarations.value(QStringLiteral("border-%1-width").arg(side)), scale)
                        + scaledLength(declarations.value(QStringLiteral("padding-%1").arg(side)), scale);
                };
                QVERIFY2(inset(before) == inset(after),
                         qPrintable(QStringLiteral("%1 at scale %2 in state \"%3\"")
                                        .arg(side)
                                        .arg(scale)
                                        .arg(idle.join(QLatin1Char(' ')))));
            }
        }
    }
}

QTEST_MAIN(TestThemeSheets)
#include "tst_theme_sheets.moc"
