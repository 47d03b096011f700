// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-combo-box.h"
#include "component/vela-countdown-msg-box.h"
#include "component/vela-date-selector.h"
#include "component/vela-filter-bar.h"
#include "component/vela-line-edit.h"
#include "component/vela-msg-box.h"
#include "component/vela-tree-widget.h"
#include "style-manager/style-manager.h"
#include "support/color-counts.h"
#include "support/environment.h"
#include "support/resource-folder.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCalendarWidget>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QTimer>
#include <QtTest>

using Show = void (*)(const QString &text);
using Create = QWidget *(*)();
Q_DECLARE_METATYPE(Show)
Q_DECLARE_METATYPE(Create)

namespace {

// A role of the palette that the theme is made from.
QColor paletteColor(const char *role)
{
    QFile file(QStringLiteral(VELA_THEME_SOURCE_DIR "/palettes/light.json"));
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("cannot read %s", qPrintable(file.fileName()));
    }
    return QColor(QJsonDocument::fromJson(file.readAll()).object().value(QLatin1String(role)).toString());
}

const QColor Surface = paletteColor("surface");
const QColor Text = paletteColor("text");
const QColor Placeholder = paletteColor("placeholder");
const QColor DisabledText = paletteColor("disabled_text");
const QColor DisabledPlaceholder = paletteColor("disabled_placeholder");
const QColor DisabledSurface = paletteColor("disabled_surface");
const QColor Accent = paletteColor("accent");
const QColor Selected = paletteColor("selected");
const QColor Error = paletteColor("error");

const char Keyword[] = "HHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHH"; // more than fits

constexpr int BoxWait = 5; // milliseconds between two looks for a box

// The part rect of a widget, in logical pixels.
QImage picture(QWidget *widget, const QRect &rect)
{
    return widget->grab(rect).toImage().convertToFormat(QImage::Format_RGB32);
}

int count(const QImage &image, const QColor &color)
{
    return colorCounts(image).value(color.rgb());
}

// The colour that is furthest from surface, which is that of the text that stands on it.
QColor inkOn(const QColor &surface, const QImage &image)
{
    const auto distance = [&surface](const QColor &color) { return qAbs(qGray(color.rgb()) - qGray(surface.rgb())); };
    QColor ink = surface;
    for (const QRgb color : colorsIn(image)) {
        ink = distance(color) > distance(ink) ? QColor(color) : ink;
    }
    return ink;
}

// The place of something that stands on surface.
QRect inkRect(const QColor &surface, const QImage &image)
{
    QRect rect;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            rect |= image.pixelColor(x, y) == surface ? QRect() : QRect(x, y, 1, 1);
        }
    }
    return rect;
}

// Thin strokes are smoothed, so that none of their pixels may have the very colour.
bool isNear(const QColor &one, const QColor &other)
{
    constexpr int Tolerance = 16; // difference of a channel
    return qAbs(one.red() - other.red()) <= Tolerance && qAbs(one.green() - other.green()) <= Tolerance
        && qAbs(one.blue() - other.blue()) <= Tolerance;
}

// length characters in words of up to eight.
QString sentence(int length)
{
    QString text;
    for (int i = 0; i < length; ++i) {
        text += (i % 9 == 8) ? QLatin1Char(' ') : QLatin1Char('a' + i % 26);
    }
    return text;
}

// What box cuts of its labels' texts and its buttons' captions.
QStringList cutTexts(const QMessageBox *box)
{
    QStringList cut;
    for (const QLabel *label : box->findChildren<QLabel *>()) {
        if (!label->isVisible() || label->text().isEmpty()) {
            continue;
        }
        const QRect room = label->contentsRect();
        const int wrap = label->wordWrap() ? Qt::TextWordWrap : 0;
        const QSize needed =
            label->fontMetrics().boundingRect(QRect(0, 0, room.width(), 0), wrap | Qt::AlignLeft, label->text()).size();
        if (needed.width() > room.width() || needed.height() > room.height()) {
            cut.append(label->text());
        }
    }
    for (const QAbstractButton *button : box->findChildren<QAbstractButton *>()) {
        if (button->isVisible() && button->width() < button->sizeHint().width()) {
            cut.append(button->text());
        }
    }
    return cut;
}

// A tree as an application sets it up, whose rows are a checked one with a child and one that cannot be checked.
class Tree : public VelaTreeWidget
{
public:
    Tree()
    {
        setHeaderHidden(true);
        setItemDelegate(&m_delegate);
        setBackgroundColor(Selected, Surface);
        setStyleSheet(getStyleSheet("component.tree_item", false));
        addRow(QStringLiteral("HHHH"), Qt::Checked)->addChild(new FileSystemTreeWidgetItem);
        QTreeWidgetItem *inactive = addRow(QStringLiteral("HHHH"), Qt::Unchecked);
        inactive->setFlags(inactive->flags() & ~Qt::ItemIsUserCheckable);
        resize(expectedPixels(300), expectedPixels(200));
        show();
    }

    QRect rowRect(int row) const
    {
        const QRect rect = visualItemRect(topLevelItem(row));
        return QRect(0, rect.top(), viewport()->width(), rect.height());
    }
    QImage rowPicture(int row) const { return picture(viewport(), rowRect(row)); }
    QImage branchPicture(int row) const
    {
        const QRect rect = rowRect(row);
        const bool isMirrored = layoutDirection() == Qt::RightToLeft;
        const int left = isMirrored ? rect.width() - indentation() : 0;
        return picture(viewport(), QRect(left, rect.top(), indentation(), rect.height()));
    }

private:
    QTreeWidgetItem *addRow(const QString &text, Qt::CheckState state)
    {
        auto *item = new FileSystemTreeWidgetItem;
        item->setText(0, text);
        item->setCheckState(0, state);
        addTopLevelItem(item);
        return item;
    }

    ItemDelegate m_delegate;
};

// What field, or the field in it, shows as text, and as a placeholder if that is empty.
QImage fieldPicture(QWidget *field, const QString &text, bool isEnabled)
{
    auto *lineEdit = qobject_cast<QLineEdit *>(field);
    lineEdit = lineEdit ? lineEdit : field->findChild<QLineEdit *>();
    lineEdit->setPlaceholderText(QString::fromLatin1(Keyword));
    lineEdit->setText(text);
    field->setEnabled(isEnabled);
    field->ensurePolished();
    field->resize(expectedPixels(200), field->sizeHint().height());
    const int inset = expectedPixels(4); // width of the border
    const int left = expectedPixels(45); // width of the filter bar's button
    const QRect middle = lineEdit->rect().adjusted(left, inset, -expectedPixels(30), -inset);
    return picture(lineEdit, middle);
}

} // namespace

class ThemeLooksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void boxesShowTheirWholeText_data();
    void boxesShowTheirWholeText();
    void theCountdownBoxShowsItsWholeText_data();
    void theCountdownBoxShowsItsWholeText();

    void placeholdersLookAnotherWayThanTexts_data();
    void placeholdersLookAnotherWayThanTexts();
    void theKeywordStaysClearOfTheButton_data();
    void theKeywordStaysClearOfTheButton();
    void theErrorStandsAtTheTextsEnd_data();
    void theErrorStandsAtTheTextsEnd();

    void theTreesCurrentRowHasARingWhileTheTreeHasTheFocus();
    void theTreesCheckBoxesAreTheThemes();
    void theTreesBranchesAreTheThemes_data() { theErrorStandsAtTheTextsEnd_data(); }
    void theTreesBranchesAreTheThemes();
    void rowsThatCannotBeCheckedAreGrey();

    void daysThatCannotBeChosenLookAnotherWay();
};

void ThemeLooksTest::initTestCase()
{
    installReferenceTheme();
}

void ThemeLooksTest::boxesShowTheirWholeText_data()
{
    QTest::addColumn<Show>("show");
    QTest::addColumn<int>("length");
    struct Kind
    {
        const char *name;
        Show show;
    };
    const Kind kinds[] = {
        {"information", [](const QString &text) { showInfoMsg(QString(), text, nullptr); }},
        {"warning", [](const QString &text) { showWarningMsg(QString(), text, nullptr); }},
        {"warning with more to say",
         [](const QString &text) { showWarningMsg(QString(), sentence(10), text, nullptr); }},
        {"question", [](const QString &text) { showConfirmMsg(QString(), text, nullptr); }},
        {"question with captions",
         [](const QString &text) {
             showConfirmMsgCustomBtn(
                 QString(), text,
                 MsgBoxCustomBtnText(QStringLiteral("Delete all of them"), QStringLiteral("Keep them for now")),
                 nullptr);
         }},
        {"upgrade", [](const QString &text) { showUpgradingMsg(QString(), text, nullptr); }},
    };
    for (const Kind &kind : kinds) {
        for (int length = 10; length <= 200; length += 10) {
            QTest::newRow(qPrintable(QStringLiteral("%1, %2").arg(QLatin1String(kind.name)).arg(length)))
                << kind.show << length;
        }
    }
}

void ThemeLooksTest::boxesShowTheirWholeText()
{
    QFETCH(Show, show);
    QFETCH(int, length);
    bool isSeen = false;
    QStringList cut;
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (box && box->isVisible()) {
            timer.stop();
            isSeen = true;
            cut = cutTexts(box);
            box->done(QMessageBox::Ok);
        }
    });
    timer.start(BoxWait);
    show(sentence(length));
    QVERIFY(isSeen);
    QCOMPARE(cut, QStringList());
}

void ThemeLooksTest::theCountdownBoxShowsItsWholeText_data()
{
    QTest::addColumn<int>("length");
    for (int length = 10; length <= 200; length += 10) {
        QTest::newRow(qPrintable(QString::number(length))) << length;
    }
}

void ThemeLooksTest::theCountdownBoxShowsItsWholeText()
{
    QFETCH(int, length);
    VelaCountdownMessageBox box(600);
    box.setIcon(QMessageBox::Information);
    box.setText(sentence(length));
    box.show();
    QVERIFY(QTest::qWaitForWindowExposed(&box));
    QCOMPARE(cutTexts(&box), QStringList());
}

void ThemeLooksTest::placeholdersLookAnotherWayThanTexts_data()
{
    QTest::addColumn<Create>("create");
    QTest::newRow("field") << Create([]() -> QWidget * { return new VelaLineEdit(nullptr); });
    QTest::newRow("filter bar") << Create([]() -> QWidget * { return new VelaFilterBar; });
    QTest::newRow("combo box") << Create([]() -> QWidget * {
        auto *combo = new VelaComboBox;
        combo->setEditable(true);
        return combo;
    });
}

void ThemeLooksTest::placeholdersLookAnotherWayThanTexts()
{
    QFETCH(Create, create);
    const QScopedPointer<QWidget> field(create());
    const QString keyword = QString::fromLatin1(Keyword);
    QVERIFY(isNear(inkOn(Surface, fieldPicture(field.data(), keyword, true)), Text));
    QVERIFY(isNear(inkOn(Surface, fieldPicture(field.data(), QString(), true)), Placeholder));
    QVERIFY(isNear(inkOn(DisabledSurface, fieldPicture(field.data(), keyword, false)), DisabledText));
    QVERIFY(isNear(inkOn(DisabledSurface, fieldPicture(field.data(), QString(), false)), DisabledPlaceholder));
    QVERIFY(isNear(inkOn(Surface, fieldPicture(field.data(), keyword, true)), Text));
}

void ThemeLooksTest::theKeywordStaysClearOfTheButton_data()
{
    QTest::addColumn<Qt::LayoutDirection>("first");
    QTest::addColumn<Qt::LayoutDirection>("then");
    QTest::newRow("left to right") << Qt::LeftToRight << Qt::LeftToRight;
    QTest::newRow("right to left") << Qt::RightToLeft << Qt::RightToLeft;
    QTest::newRow("right to left later") << Qt::LeftToRight << Qt::RightToLeft;
    QTest::newRow("left to right later") << Qt::RightToLeft << Qt::LeftToRight;
}

void ThemeLooksTest::theKeywordStaysClearOfTheButton()
{
    QFETCH(Qt::LayoutDirection, first);
    QFETCH(Qt::LayoutDirection, then);
    VelaFilterBar bar;
    bar.setLayoutDirection(first);
    bar.resize(expectedPixels(200), bar.height());
    bar.show();
    bar.setLayoutDirection(then);
    const QRect leftEnd(0, 0, expectedPixels(38), bar.height());
    const QRect rightEnd(bar.width() - expectedPixels(38), 0, expectedPixels(34), bar.height());
    const QImage button = picture(&bar, leftEnd);
    bar.setText(QString::fromLatin1(Keyword));
    bar.setCursorPosition(0);
    QCOMPARE(picture(&bar, leftEnd), button);
    QVERIFY(count(picture(&bar, rightEnd), Text) > 0);
}

void ThemeLooksTest::theErrorStandsAtTheTextsEnd_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::newRow("left to right") << Qt::LeftToRight;
    QTest::newRow("right to left") << Qt::RightToLeft;
}

void ThemeLooksTest::theErrorStandsAtTheTextsEnd()
{
    QFETCH(Qt::LayoutDirection, direction);
    VelaLineEdit field(nullptr);
    field.setLayoutDirection(direction);
    field.setError(true);
    field.resize(expectedPixels(200), field.sizeHint().height());
    field.show();
    const auto endPicture = [&field, direction] {
        const QRect rect = field.getLineEdit()->rect().adjusted(3, 3, -3, -3);
        const int width = expectedPixels(22);
        const int left = direction == Qt::RightToLeft ? rect.left() : rect.right() - width;
        return picture(field.getLineEdit(), QRect(left, rect.top(), width, rect.height()));
    };
    const QImage error = endPicture();
    QVERIFY(count(error, Error) > 0);
    field.getLineEdit()->setText(QString::fromLatin1(Keyword));
    field.getLineEdit()->setCursorPosition(0);
    QCOMPARE(endPicture(), error);
}

void ThemeLooksTest::theTreesCurrentRowHasARingWhileTheTreeHasTheFocus()
{
    Tree tree;
    tree.setCurrentItem(tree.topLevelItem(0));
    QVERIFY(QTest::qWaitForWindowExposed(&tree));
    tree.clearFocus();
    const QImage idle = tree.rowPicture(0);
    tree.activateWindow();
    tree.setFocus();
    QVERIFY(QTest::qWaitForWindowActive(&tree));
    QTRY_VERIFY(tree.hasFocus());
    const QImage focused = tree.rowPicture(0);
    QVERIFY(focused != idle);
    for (int x = 0; x < focused.width(); ++x) {
        for (int y = 0; y < focused.height(); ++y) {
            // The ring is no darker than the accent, however it is smoothed at its corners.
            const bool isAnother = focused.pixel(x, y) != idle.pixel(x, y);
            QVERIFY(!isAnother || qGray(focused.pixel(x, y)) >= qGray(Accent.rgb()));
        }
    }
    QVERIFY(count(focused, Accent) > count(idle, Accent) + focused.width() / 2);
}

void ThemeLooksTest::theTreesCheckBoxesAreTheThemes()
{
    Tree tree;
    tree.clearSelection();
    const QImage checked = tree.rowPicture(0);
    // Most of a drawn box of 16 pixels is the accent.
    const int side = expectedPixels(16) * expectedRatio();
    QVERIFY(count(checked, Accent) > side * side / 2);
    tree.topLevelItem(0)->setCheckState(0, Qt::Unchecked);
    QCOMPARE(count(tree.rowPicture(0), Accent), 0);
    tree.topLevelItem(0)->setCheckState(0, Qt::PartiallyChecked);
    QVERIFY(count(tree.rowPicture(0), Accent) > side * side / 2);
    QVERIFY(tree.rowPicture(0) != checked);
}

void ThemeLooksTest::theTreesBranchesAreTheThemes()
{
    QFETCH(Qt::LayoutDirection, direction);
    Tree tree;
    tree.clearSelection();
    tree.setLayoutDirection(direction);
    tree.setStyleSheet(tree.styleSheet());
    const QImage closed = tree.branchPicture(0);
    tree.topLevelItem(0)->setExpanded(true);
    const QImage open = tree.branchPicture(0);
    for (const QImage &branch : {closed, open}) {
        const QColor line = inkOn(Surface, branch); // a bluish grey, where the platform's is a neutral one
        QVERIFY(qGray(line.rgb()) < 128);
        QVERIFY(line.blue() - line.red() > 16);
    }
    QVERIFY(open != closed);
    QCOMPARE(inkOn(Surface, tree.branchPicture(1)), Surface);

    // The drawing points to where the text is: its middle line reaches furthest there.
    const auto reach = [&closed, direction](int y) {
        for (int step = 0; step < closed.width(); ++step) {
            const int x = direction == Qt::RightToLeft ? step : closed.width() - 1 - step;
            if (qGray(closed.pixel(x, y)) < 200) {
                return closed.width() - step;
            }
        }
        return 0;
    };
    const int middle = closed.height() / 2;
    QVERIFY(reach(middle) > reach(middle - 3 * expectedRatio()));
    QVERIFY(reach(middle) > reach(middle + 3 * expectedRatio()));
}

void ThemeLooksTest::rowsThatCannotBeCheckedAreGrey()
{
    Tree tree;
    tree.clearSelection();
    const QRect text = tree.rowRect(1).adjusted(tree.indentation() + expectedPixels(26), 0, 0, 0);
    QVERIFY(isNear(inkOn(Surface, picture(tree.viewport(), text)), DisabledText));
    tree.topLevelItem(1)->setSelected(true);
    QVERIFY(isNear(inkOn(Selected, picture(tree.viewport(), text)), DisabledText));
}

void ThemeLooksTest::daysThatCannotBeChosenLookAnotherWay()
{
    VelaCalanderView view;
    view.setStyleSheet(getStyleSheet("component.date_selector", false) + getStyleSheet("component.menu", false));
    view.resize(expectedPixels(280), expectedPixels(260));
    view.show();
    view.setCurrentPage(2026, 9); // a month that begins on a Tuesday
    auto *calendar = view.findChild<QCalendarWidget *>();
    calendar->setSelectedDate(QDate(2026, 9, 15));
    auto *grid = view.findChild<QTableView *>(QStringLiteral("qt_calendar_calendarview"));
    const auto dayPicture = [grid](int row, int column) {
        return picture(grid->viewport(), grid->visualRect(grid->model()->index(row, column)));
    };
    const QImage free = dayPicture(1, 4); // the tenth of the month
    QCOMPARE(free.pixelColor(1, 1), Surface);
    QVERIFY(isNear(inkOn(Surface, free), Text));

    const QRect eighth = inkRect(Surface, dayPicture(1, 2));

    view.setMinimumDate(QDate(2026, 9, 9));
    view.setMaximumDate(QDate(2026, 9, 23));
    QCOMPARE(dayPicture(1, 4), free);
    for (const int column : {0, 1, 2}) { // days up to the eighth
        const QImage day = dayPicture(1, column);
        QCOMPARE(day.pixelColor(1, 1), DisabledSurface);
        QVERIFY(isNear(inkOn(DisabledSurface, day), DisabledText));
    }
    const QRect moved = inkRect(DisabledSurface, dayPicture(1, 2)); // may be off sideways by parts of a pixel
    QVERIFY(eighth.adjusted(-1, 0, 1, 0).contains(moved));
    QCOMPARE(moved.height(), eighth.height());
    QCOMPARE(dayPicture(1, 3).pixelColor(1, 1), Surface); // the ninth of the month
    QCOMPARE(dayPicture(3, 3).pixelColor(1, 1), Surface); // the 23rd of the month
    QCOMPARE(dayPicture(3, 4).pixelColor(1, 1), DisabledSurface);
}

QTEST_MAIN(ThemeLooksTest)
#include "tst_theme_looks.moc"
