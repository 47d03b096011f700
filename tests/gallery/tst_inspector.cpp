// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "gallery-page.h"
#include "gallery-window.h"
#include "inspection.h"
#include "inspector.h"
#include "support/environment.h"
#include "support/theme-copy.h"

#include <DPIinfo>
#include <StyleManager>
#include <VelaButton>
#include <VelaCheckBox>
#include <VelaComboBox>
#include <VelaDateSelector>
#include <VelaLineEdit>
#include <VelaMenu>
#include <VelaTableWidget>
#include <VelaTheme>

#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScopedPointer>
#include <QScreen>
#include <QTableWidget>
#include <QtTest>

#include <algorithm>
#include <functional>

Q_DECLARE_METATYPE(std::function<QWidget *()>)

namespace {

const QString Buttons = QStringLiteral("styles/buttons.qss");
const QString English = QStringLiteral("strings/enu.json");
constexpr int Patience = 30000; // milliseconds in which a theme is checked, with sanitizers and other tests beside

int lineOf(const QByteArray &content, const QByteArray &text)
{
    const int position = content.indexOf(text);
    return position < 0 ? -1 : content.left(position).count('\n') + 1;
}

QStringList keysOf(const Inspection &inspection)
{
    QStringList keys;
    for (const InspectedSection &section : inspection.sections) {
        keys.append(section.key);
    }
    return keys;
}

QString shown(const Inspector *inspector, const char *name)
{
    const auto *text = inspector->findChild<QPlainTextEdit *>(QString::fromLatin1(name));
    return text ? text->toPlainText() : inspector->findChild<QLabel *>(QString::fromLatin1(name))->text();
}

} // namespace

class InspectorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theGalleryHasNoneBeforeTheKey();
    void theKeyShowsTheWidgetUnderThePointer();
    void withoutAPointerTheFocusIsShown();
    void theKeyIsTheSameInAMenu();
    void aWidgetHasItsSections_data();
    void aWidgetHasItsSections();
    void imagesAreNamedWithTheirFiles();
    void textsAreNamedWithTheirLines();
    void sectionsFollowEachSave();
    void findingsFollowEachSave();
    void findingsOfTheLookAreToldToo();
    void findingsOfTheWidgetStandByThemselves();
    void theGalleryGoesOnWhileTheThemeIsChecked();
    void aThemeIsCheckedOnceTheWindowIsSeenAgain();
    void anotherThemeIsShown();

private:
    void load(const QString &folder);
    QWidget *button(const QString &text) const;
    Inspector *inspect(QWidget *widget);

    const OwnDataFolder m_dataFolder;
    const ThemeCopy m_theme;
    QScopedPointer<GalleryWindow> m_window;
    QScopedPointer<InspectorKey> m_key;
};

void InspectorTest::load(const QString &folder)
{
    QVERIFY(!VelaTheme::hasErrors(VelaTheme::getInstance()->load(folder, QStringLiteral("enu"))));
}

void InspectorTest::init()
{
    for (const QString &file : {Buttons, English}) {
        QFile::remove(m_theme.filePath(file));
        QVERIFY(QFile::copy(referenceTheme(QStringLiteral("light")) + u'/' + file, m_theme.filePath(file)));
    }
    load(m_theme.path());
    m_window.reset(new GalleryWindow({}));
    m_key.reset(new InspectorKey(m_window.data()));
    m_window->showPage(QStringLiteral("buttons"));
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.data()));
}

void InspectorTest::cleanup()
{
    m_key.reset();
    m_window.reset();
}

QWidget *InspectorTest::button(const QString &text) const
{
    const auto buttons = m_window->findChildren<QAbstractButton *>();
    const auto found = std::find_if(buttons.begin(), buttons.end(), [&text](const QAbstractButton *candidate) {
        return candidate->text() == text && !candidate->testAttribute(Qt::WA_TransparentForMouseEvents);
    });
    return found == buttons.end() ? nullptr : *found;
}

// As a person does it who points at the widget.
Inspector *InspectorTest::inspect(QWidget *widget)
{
    const auto centre = [widget] { return widget->mapToGlobal(widget->rect().center()); };
    const QPoint aim = widget->screen()->availableGeometry().center();
    widget->window()->move(widget->window()->pos() + aim - centre()); // as it may be larger than the screen
    if (!QTest::qWaitFor([&] {
            QCursor::setPos(centre());
            return QCursor::pos() == centre() && QApplication::topLevelAt(centre()) == widget->window();
        })) {
        return nullptr;
    }
    QTest::keyClick(widget->window(), Qt::Key_F12);
    return m_window->findChild<Inspector *>();
}

void InspectorTest::theGalleryHasNoneBeforeTheKey()
{
    QTest::keyClick(m_window.data(), Qt::Key_F11);
    QTest::keyClick(m_window.data(), Qt::Key_F12, Qt::ControlModifier);
    QVERIFY(!m_window->findChild<Inspector *>());
}

void InspectorTest::theKeyShowsTheWidgetUnderThePointer()
{
    Inspector *inspector = inspect(button(QStringLiteral("Apply")));
    QVERIFY(inspector);
    QVERIFY(inspector->isVisible());
    QCOMPARE(shown(inspector, "title"), QStringLiteral("VelaButton \u201cApply\u201d"));
    QCOMPARE(shown(inspector, "sections"),
             QStringLiteral("component.apply_button: %1:%2")
                 .arg(Buttons)
                 .arg(lineOf(m_theme.read(Buttons), "== component.apply_button ==")));
    const QString raw = getStyleSheet("component.apply_button", true).trimmed();
    const QString header = QStringLiteral("== component.apply_button ==\n");
    QCOMPARE(shown(inspector, "raw").trimmed(), header + raw);
    QCOMPARE(shown(inspector, "scaled").trimmed(), header + DPIinfo::getInstance()->getScaledStyleSheet(raw));
    QCOMPARE(shown(inspector, "findings"), QString());

    inspector->hide(); // it may lie in the way
    QCOMPARE(inspect(button(QStringLiteral("Cancel"))), inspector);
    QCOMPARE(shown(inspector, "title"), QStringLiteral("VelaButton \u201cCancel\u201d"));
}

void InspectorTest::withoutAPointerTheFocusIsShown()
{
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.data()));
    button(QStringLiteral("Apply"))->setFocus();
    m_window->move(100, 100);
    const QPoint outside(m_window->mapToGlobal(QPoint(-60, -60)));
    QCursor::setPos(outside);
    QTRY_VERIFY(!QApplication::topLevelAt(QCursor::pos()));
    QTest::keyClick(m_window.data(), Qt::Key_F12);
    const auto *inspector = m_window->findChild<Inspector *>();
    QVERIFY(inspector);
    QCOMPARE(shown(inspector, "title"), QStringLiteral("VelaButton \u201cApply\u201d"));
}

void InspectorTest::theKeyIsTheSameInAMenu()
{
    VelaMenu menu;
    menu.setStyleSheet(getStyleSheet("component.menu", false));
    menu.addAction(QStringLiteral("Copy"));
    menu.popup(m_window->mapToGlobal(m_window->rect().center()));
    QVERIFY(QTest::qWaitForWindowExposed(&menu));
    const Inspector *inspector = inspect(&menu);
    QVERIFY(inspector);
    QVERIFY(shown(inspector, "sections").startsWith(QStringLiteral("component.menu: ")));
}

void InspectorTest::aWidgetHasItsSections_data()
{
    using Make = std::function<QWidget *()>;
    QTest::addColumn<Make>("make");
    QTest::addColumn<QString>("part"); // object or class of the child that is looked at, empty for the widget itself
    QTest::addColumn<QStringList>("keys");
    const auto row = [](const char *name, const Make &make, const char *part, const char *keys) {
        QTest::newRow(name) << make << QString::fromLatin1(part)
                            << QString::fromLatin1(keys).split(u' ', Qt::SkipEmptyParts);
    };
    row(
        "check box", [] { return new VelaCheckBox(QStringLiteral("x")); }, "", "component.checkbox");
    row(
        "combo box", [] { return new VelaComboBox; }, "", "component.combobox component.scrollbar");
    row(
        "calendar's arrow", [] { return new VelaDateSelector(QStringLiteral("x")); }, "qt_calendar_prevmonth",
        "component.date_selector component.menu");
    row(
        "field", [] { return new VelaLineEdit; }, "QLineEdit", "component.lineedit");
    row(
        "text beside a field", [] { return new VelaLineEdit; }, "QLabel", "component.lineedit_label");
    row(
        "header of a table",
        [] {
            VelaTableColumnsInfo columns;
            columns.addColumn(QStringLiteral("x"), 10, true, 0.0);
            return new VelaTableWidget(columns);
        },
        "QHeaderView", "component.table_header");
    row(
        "other widget", [] { return new QLabel(QStringLiteral("x")); }, "", "");
}

void InspectorTest::aWidgetHasItsSections()
{
    QFETCH(std::function<QWidget *()>, make);
    QFETCH(QString, part);
    QFETCH(QStringList, keys);
    const QScopedPointer<QWidget> widget(make());
    const QWidget *inspected = part.isEmpty() ? widget.data() : nullptr;
    const auto children = widget->findChildren<QWidget *>();
    for (const QWidget *child : children) {
        if (!inspected && (child->objectName() == part || child->inherits(part.toLatin1().constData()))) {
            inspected = child;
        }
    }
    QVERIFY(inspected);
    QCOMPARE(keysOf(::inspect(inspected)), keys);
}

void InspectorTest::imagesAreNamedWithTheirFiles()
{
    VelaIconButton icon(QStringLiteral("bt_add"));
    icon.ensurePolished();
    QVERIFY(::inspect(&icon).images.contains(QStringLiteral("bt_add: images/bt_add.png")));
    icon.setEnabled(false);
    QVERIFY(::inspect(&icon).images.contains(QStringLiteral("bt_add: images/bt_add_disable.png")));
    const VelaCheckBox box(QStringLiteral("x"));
    QVERIFY(::inspect(&box).images.contains(QStringLiteral("IMG_LOC/check_off.png")));
}

void InspectorTest::textsAreNamedWithTheirLines()
{
    const VelaButton cancel(QStringLiteral("Cancel"));
    QCOMPARE(
        ::inspect(&cancel).texts,
        QStringList(QStringLiteral("cancel: %1:%2").arg(English).arg(lineOf(m_theme.read(English), "\"cancel\""))));
    QWidget page;
    page.setAccessibleName(QStringLiteral("Page 3 of 7"));
    QCOMPARE(::inspect(&page).texts,
             QStringList(QStringLiteral("accessible_page_of: %1:%2")
                             .arg(English)
                             .arg(lineOf(m_theme.read(English), "\"accessible_page_of\""))));
    const VelaButton other(QStringLiteral("Cancel it"));
    QCOMPARE(::inspect(&other).texts, QStringList());
}

void InspectorTest::sectionsFollowEachSave()
{
    const Inspector *inspector = inspect(button(QStringLiteral("Apply")));
    m_theme.replace(Buttons, "== component.apply_button ==\n",
                    "/* one\n line */\n== component.apply_button ==\nQPushButton { margin: 7px; }\n");
    QTRY_VERIFY_WITH_TIMEOUT(shown(inspector, "raw").contains(QStringLiteral("margin: 7px")), Patience);
    QVERIFY(shown(inspector, "scaled")
                .contains(DPIinfo::getInstance()->getScaledStyleSheet(QStringLiteral("margin: 7px"))));
    QCOMPARE(shown(inspector, "sections"),
             QStringLiteral("component.apply_button: %1:%2")
                 .arg(Buttons)
                 .arg(lineOf(m_theme.read(Buttons), "== component.apply_button ==")));
}

void InspectorTest::findingsFollowEachSave()
{
    const Inspector *inspector = inspect(button(QStringLiteral("Apply")));
    const QByteArray whole = m_theme.read(Buttons);
    m_theme.replace(Buttons, "== component.apply_button ==\nQPushButton {\n",
                    "== component.apply_button ==\nQPushButton {\ncolor: #12345;\n");
    QTRY_VERIFY_WITH_TIMEOUT(shown(inspector, "findings")
                                 .contains(QStringLiteral("%1:%2: error: no colour: #12345 [color-invalid]")
                                               .arg(Buttons)
                                               .arg(lineOf(m_theme.read(Buttons), "color: #12345"))),
                             Patience);
    m_theme.write(Buttons, whole);
    QTRY_COMPARE_WITH_TIMEOUT(shown(inspector, "findings"), QString(), Patience);
}

// Of the texts too, which the gallery itself cannot measure in another language.
void InspectorTest::findingsOfTheLookAreToldToo()
{
    const Inspector *inspector = inspect(button(QStringLiteral("Apply")));
    m_theme.replace(Buttons, "color: #FFFFFF;", "color: #6F9BE8;");
    m_theme.replace(English, "\"Today\"", "\"" + QByteArray("The day that it is ").repeated(6) + "\"");
    const QString place = QStringLiteral("%1:%2: error: ");
    const QString contrast = place.arg(Buttons).arg(lineOf(m_theme.read(Buttons), "== component.apply_button =="));
    QTRY_VERIFY_WITH_TIMEOUT(
        shown(inspector, "findings").contains(contrast + QStringLiteral("component.apply_button: the text of")),
        Patience);
    QVERIFY(
        shown(inspector, "findings")
            .contains(place.arg(English).arg(lineOf(m_theme.read(English), "\"today\"")) + QStringLiteral("\"The")));
    for (const QString &file : {Buttons, English}) {
        m_theme.replace(file, file == Buttons ? "color: #6F9BE8;" : QByteArray("The day that it is ").repeated(6),
                        file == Buttons ? "color: #FFFFFF;" : "Today");
    }
    QTRY_COMPARE_WITH_TIMEOUT(shown(inspector, "findings"), QString(), Patience);
}

void InspectorTest::findingsOfTheWidgetStandByThemselves()
{
    Inspector *inspector = inspect(button(QStringLiteral("Apply")));
    for (const QByteArray key : {"apply", "cancel"}) {
        const QByteArray rule = "== component." + key + "_button ==\nQPushButton {\n";
        m_theme.replace(Buttons, rule, rule + "color: " + key + "dish;\n");
    }
    QTRY_COMPARE_WITH_TIMEOUT(shown(inspector, "findings").count(u'\n'), 2, Patience);
    QTRY_VERIFY_WITH_TIMEOUT(shown(inspector, "widgetFindings").contains(QStringLiteral("no colour: applydish")),
                             Patience);
    QCOMPARE(shown(inspector, "widgetFindings").count(u'\n'), 1);

    inspector->hide(); // it may lie in the way
    QCOMPARE(inspect(button(QStringLiteral("Cancel"))), inspector);
    QTRY_VERIFY_WITH_TIMEOUT(shown(inspector, "widgetFindings").contains(QStringLiteral("no colour: canceldish")),
                             Patience);
    QCOMPARE(shown(inspector, "widgetFindings").count(u'\n'), 1);
}

void InspectorTest::theGalleryGoesOnWhileTheThemeIsChecked()
{
    const Inspector *inspector = inspect(button(QStringLiteral("Apply")));
    const auto *findings = inspector->findChild<QPlainTextEdit *>(QStringLiteral("findings"));
    QTRY_COMPARE_WITH_TIMEOUT(findings->placeholderText(), QStringLiteral("Nothing is wrong."), Patience);
    auto *apply = qobject_cast<QAbstractButton *>(button(QStringLiteral("Apply")));
    const QSignalSpy clicks(apply, &QAbstractButton::clicked);
    m_theme.replace(Buttons, "color: #FFFFFF;", "color: #6F9BE8;");
    QTRY_COMPARE_WITH_TIMEOUT(findings->placeholderText(), QStringLiteral("It is being checked."), Patience);
    apply->click();
    QCOMPARE(clicks.size(), 1);
    QVERIFY(findings->toPlainText().isEmpty());
    QTRY_VERIFY_WITH_TIMEOUT(!findings->toPlainText().isEmpty(), Patience);
}

void InspectorTest::aThemeIsCheckedOnceTheWindowIsSeenAgain()
{
    Inspector *inspector = inspect(button(QStringLiteral("Apply")));
    const auto *findings = inspector->findChild<QPlainTextEdit *>(QStringLiteral("findings"));
    QTRY_COMPARE_WITH_TIMEOUT(findings->placeholderText(), QStringLiteral("Nothing is wrong."), Patience);
    inspector->hide();
    const QSignalSpy reloads(VelaTheme::getInstance(), &VelaTheme::changed);
    m_theme.replace(Buttons, "color: #FFFFFF;", "color: #6F9BE8;");
    QTRY_COMPARE_WITH_TIMEOUT(reloads.size(), 1, Patience);
    QCOMPARE(findings->toPlainText(), QString());
    inspector->show();
    QTRY_VERIFY_WITH_TIMEOUT(!findings->toPlainText().isEmpty(), Patience);
}

void InspectorTest::anotherThemeIsShown()
{
    const Inspector *inspector = inspect(button(QStringLiteral("Apply")));
    const QString light = shown(inspector, "raw");
    load(referenceTheme(QStringLiteral("dark")));
    QVERIFY(shown(inspector, "raw") != light);
    QVERIFY(shown(inspector, "sections").startsWith(QStringLiteral("component.apply_button: ")));
}

QTEST_MAIN(InspectorTest)

#include "tst_inspector.moc"
