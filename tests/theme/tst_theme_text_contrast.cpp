// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// Measures in each state of the widgets whether what they write can be read.

#include "component/vela-combo-box.h"
#include "component/vela-countdown-msg-box.h"
#include "component/vela-date-selector.h"
#include "component/vela-menu.h"
#include "component/vela-msg-box.h"
#include "component/vela-table-widget.h"
#include "component/vela-tree-widget.h"
#include "contrast-samples.h"
#include "contrast-stage.h"
#include "in-state.h"
#include "pixel-contrast.h"
#include "style-manager/style-manager.h"
#include "utils/help-window.h"

#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QPointer>
#include <QSpinBox>
#include <QTableView>
#include <QTextBrowser>
#include <QTimer>
#include <QToolButton>
#include <QToolTip>
#include <QtTest>

class ThemeTextContrastTest : public ContrastTest
{
    Q_OBJECT

private Q_SLOTS:
    void textsCanBeRead_data();
    void textsCanBeRead();
    void textsOfSheetsCanBeRead_data() { addSheets(); }
    void textsOfSheetsCanBeRead();
    void textsOfBoxesCanBeRead_data();
    void textsOfBoxesCanBeRead();
    void textsOfACountdownCanBeRead();
    void rowsOfATableCanBeRead();
    void rowsOfATreeCanBeRead();
    void rowsOfAComboBoxCanBeRead();
    void entriesOfAMenuCanBeRead();
    void daysOfTheCalendarCanBeRead();
    void textsOfTheApplicationCanBeRead();
    void toolTipsCanBeRead();
    void pagesOfTheHelpCanBeRead();
};

namespace {

constexpr double DisabledTextContrast = 3.0;

double textContrast()
{
    return themeName() == QLatin1String("high-contrast") ? 7.0 : 4.5;
}

// Where a widget's text is written: the property, or null of one without a text.
const char *textProperty(const QWidget *widget)
{
    const auto *label = qobject_cast<const QLabel *>(widget);
    if (qobject_cast<const QToolButton *>(widget)
        && qobject_cast<const QToolButton *>(widget)->toolButtonStyle() == Qt::ToolButtonIconOnly) {
        return nullptr;
    }
    if (qobject_cast<const QAbstractButton *>(widget) || qobject_cast<const QLineEdit *>(widget)
        || (label && !label->text().isEmpty())) {
        return "text";
    }
    const auto *box = qobject_cast<const QComboBox *>(widget);
    if (box && !box->isEditable() && box->findText(QString()) >= 0) {
        return "currentText";
    }
    return nullptr;
}

// What is wrong with the text of widget in a state, or nothing.
QString textFault(QWidget *root, QWidget *widget, const char *property, const StateRow &row)
{
    const QVariant text = widget->property(property);
    const InState inState(widget, row.state);
    const auto picture = [root, widget, property](const QString &written) {
        widget->setProperty(property, written);
        return enlargedPicture(root, rectIn(widget, root));
    };
    const QVector<ColorPair> pairs = differences(picture(Sample), picture(QString()));
    widget->setProperty(property, text);

    const QString place = QStringLiteral("%1, %2: ").arg(nameOf(widget), QLatin1String(row.name));
    if (pairs.isEmpty() || !inState.isReached()) {
        return place + QStringLiteral("nothing is written");
    }
    const double least = row.state == State::Disabled ? DisabledTextContrast : textContrast();
    const QString found = fault(pairs.first(), least);
    return found.isEmpty() ? QString() : place + found;
}

// Fixes what a change of text could move.
void pin(QWidget *root)
{
    for (QWidget *widget : withDescendants(root)) {
        if (widget != root) {
            widget->setFixedSize(widget->size());
        }
    }
}

QStringList textFaults(QWidget *root)
{
    QStringList faults;
    pin(root);
    int count = 0;
    for (QWidget *widget : withDescendants(root)) {
        const char *property = textProperty(widget);
        if (!property || !widget->isVisible() || rectIn(widget, root).isEmpty()) {
            continue;
        }
        const auto *field = qobject_cast<QLineEdit *>(widget);
        for (const StateRow &row : States) {
            if (!takesState(widget, row.state) || (!widget->isEnabled() && row.state != State::Disabled)) {
                continue;
            }
            ++count;
            faults.append(textFault(root, widget, property, row));
            if (field && row.state != State::Pressed) {
                const QVariant text = widget->property("text");
                widget->setProperty("text", QString());
                faults.append(textFault(root, widget, "placeholderText", row));
                widget->setProperty("text", text);
            }
        }
    }
    faults.removeAll(QString());
    if (count == 0) {
        faults.append(QStringLiteral("no text was found"));
    }
    return faults;
}

// The inside of a cell, without lines.
QStringList cellFaults(QWidget *viewport, const QRect &cell, double least, const QString &name)
{
    const QImage picture = enlargedPicture(viewport, cell.adjusted(2, 3, -2, -3));
    const QVector<QColor> colors = frequentColors(picture, 3 * Enlargement);
    if (colors.size() < 2) {
        return {name + QStringLiteral(": nothing is written")};
    }
    const QString found = fault({colors.at(1), colors.at(0), 0}, least);
    return found.isEmpty() ? QStringList() : QStringList(name + QStringLiteral(": ") + found);
}

} // namespace

void ThemeTextContrastTest::textsCanBeRead_data()
{
    addSurfaces({
        {"apply button", createButton<VelaButton::ApplyButton>},
        {"cancel button", createButton<VelaButton::CancelButton>},
        {"default button", createButton<VelaButton::DefaultButton>},
        {"red button", createButton<VelaButton::RedButton>},
        {"selected paging button", createButton<VelaButton::SelectPagingButton>},
        {"other paging button", createButton<VelaButton::NonselectPagingButton>},
        {"check box", createCheckBox},
        {"radio button", createRadioButton},
        {"label", createLabel},
        {"field", createField},
        {"field that is only read", createFieldThatIsRead},
        {"field with an error", createFieldWithAnError},
        {"filter bar", createFilterBar},
        {"combo box", createComboBox},
        {"editable combo box", createEditableComboBox},
        {"paging bar", createPagingBar},
        {"path", createPath},
    });
}

void ThemeTextContrastTest::textsCanBeRead()
{
    Shown<RowStage> stage;
    QCOMPARE(textFaults(&stage).join(u'\n'), QString());
}

void ThemeTextContrastTest::textsOfSheetsCanBeRead()
{
    Shown<Stage> stage(createBody());
    VelaSheet *sheet = createSheetOfRow(stage.content());
    sheet->show();
    QCOMPARE(textFaults(sheet).join(u'\n'), QString());
}

void ThemeTextContrastTest::textsOfBoxesCanBeRead_data()
{
    QTest::addColumn<int>("kind");
    const char *const kinds[] = {"information", "warning", "question", "upgrade"};
    for (int kind = 0; kind < int(std::size(kinds)); ++kind) {
        QTest::newRow(kinds[kind]) << kind;
    }
}

void ThemeTextContrastTest::textsOfBoxesCanBeRead()
{
    QFETCH(int, kind);
    QStringList faults = {QStringLiteral("not shown")};
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (box && box->isVisible() && box->isActiveWindow()) {
            timer.stop();
            faults = textFaults(box);
            box->done(QMessageBox::Ok);
        }
    });
    timer.start(5);
    switch (kind) {
    case 0:
        showInfoMsg(QString(), Sample, nullptr);
        break;
    case 1:
        showWarningMsg(QString(), Sample, Sample, nullptr);
        break;
    case 2:
        showConfirmMsg(QString(), Sample, nullptr);
        break;
    default:
        showUpgradingMsg(QString(), Sample, nullptr);
        break;
    }
    QCOMPARE(faults.join(u'\n'), QString());
}

void ThemeTextContrastTest::textsOfACountdownCanBeRead()
{
    VelaCountdownMessageBox countdown(600);
    countdown.setText(Sample);
    countdown.show();
    QVERIFY(QTest::qWaitForWindowActive(&countdown));
    QCOMPARE(textFaults(&countdown).join(u'\n'), QString());
}

void ThemeTextContrastTest::rowsOfATableCanBeRead()
{
    Shown<Stage> stage(createTable());
    auto *table = qobject_cast<VelaTableWidget *>(stage.content());
    QTableWidget *rows = table->getTable();
    rows->setAlternatingRowColors(true);
    QStringList faults;
    const auto cell = [rows](int row) { return rows->visualRect(rows->model()->index(row, 0)); };
    const auto check = [&](int row, const char *name, double least) {
        faults += cellFaults(rows->viewport(), cell(row), least, QString::fromLatin1(name));
    };
    check(0, "row", textContrast());
    check(1, "alternate row", textContrast());
    hover(rows->viewport(), cell(0).center());
    check(0, "hovered row", textContrast());
    hover(rows->viewport(), cell(1).center());
    check(1, "hovered alternate row", textContrast());
    leave(rows->viewport());
    rows->selectRow(0);
    check(0, "selected row", textContrast());
    rows->setFocus();
    check(0, "selected row with the focus", textContrast());
    rows->setEnabled(false);
    check(2, "disabled row", DisabledTextContrast);
    rows->setEnabled(true);

    QHeaderView *header = table->getHeader();
    const QRect section(0, 0, header->sectionSize(0), header->height());
    const auto checkHeader = [&](const char *name, double least) {
        faults += cellFaults(header->viewport(), section.adjusted(4, 2, -20, -2), least, QString::fromLatin1(name));
    };
    checkHeader("header", textContrast());
    hover(header->viewport(), section.center());
    checkHeader("hovered header", textContrast());
    sendMouse(header->viewport(), QEvent::MouseButtonPress, Qt::LeftButton, section.center());
    checkHeader("pressed header", textContrast());
    sendMouse(header->viewport(), QEvent::MouseButtonRelease, Qt::LeftButton, section.center());
    leave(header->viewport());
    header->setEnabled(false);
    checkHeader("disabled header", DisabledTextContrast);
    QCOMPARE(faults.join(u'\n'), QString());
}

void ThemeTextContrastTest::rowsOfATreeCanBeRead()
{
    Shown<Stage> stage(createTree());
    auto *tree = qobject_cast<VelaTreeWidget *>(stage.content());
    QStringList faults;
    const auto check = [&](int row, const char *name, double least) {
        const QRect cell = tree->visualItemRect(tree->topLevelItem(row)).adjusted(4, 2, -8, -2);
        faults += cellFaults(tree->viewport(), cell, least, QString::fromLatin1(name));
    };
    check(0, "row", textContrast());
    tree->setCurrentItem(tree->topLevelItem(0));
    check(0, "selected row", textContrast());
    tree->setFocus();
    check(0, "selected row with the focus", textContrast());
    const auto rowPicture = [tree](int row) {
        return enlargedPicture(tree->viewport(), tree->visualItemRect(tree->topLevelItem(row)));
    };
    QTRY_VERIFY([&] {
        QTest::mouseMove(tree->viewport(), tree->visualItemRect(tree->topLevelItem(2)).center());
        return rowPicture(2) != rowPicture(1);
    }());
    check(2, "hovered row", textContrast());
    QTest::mouseMove(tree->viewport(), QPoint(tree->viewport()->width() / 2, tree->viewport()->height() - 2));
    tree->topLevelItem(1)->setFlags(tree->topLevelItem(1)->flags() | Qt::ItemIsEditable);
    tree->editItem(tree->topLevelItem(1));
    auto *editor = tree->viewport()->findChild<QLineEdit *>();
    QVERIFY(editor);
    editor->deselect();
    faults += cellFaults(editor, editor->rect(), textContrast(), QStringLiteral("editor"));
    editor->selectAll();
    faults += cellFaults(editor, editor->rect(), textContrast(), QStringLiteral("selection in the editor"));
    tree->closePersistentEditor(tree->topLevelItem(1));
    tree->setEnabled(false);
    check(1, "disabled row", DisabledTextContrast);
    check(0, "disabled selected row", DisabledTextContrast);
    QCOMPARE(faults.join(u'\n'), QString());
}

void ThemeTextContrastTest::rowsOfAComboBoxCanBeRead()
{
    auto *box = new VelaComboBox;
    box->addItems({Sample, Sample, Sample});
    Shown<Stage> stage(box);
    box->showPopup();
    QTRY_VERIFY(box->view()->isVisible());
    QStringList faults;
    for (int row = 0; row < 3; ++row) {
        box->view()->setCurrentIndex(box->model()->index(1, 0));
        faults += cellFaults(box->view()->viewport(), box->view()->visualRect(box->model()->index(row, 0)),
                             textContrast(), QString::number(row));
    }
    box->hidePopup();
    QCOMPARE(faults.join(u'\n'), QString());
}

void ThemeTextContrastTest::entriesOfAMenuCanBeRead()
{
    VelaMenu menu;
    menu.setStyleSheet(getStyleSheet("component.menu", false));
    QAction *plain = menu.addAction(Sample);
    QAction *active = menu.addAction(Sample);
    QAction *disabled = menu.addAction(Sample);
    disabled->setEnabled(false);
    menu.popup(QPoint());
    menu.setActiveAction(active);
    QStringList faults;
    const auto check = [&](QAction *action, const char *name, double least) {
        faults += cellFaults(&menu, menu.actionGeometry(action), least, QString::fromLatin1(name));
    };
    check(plain, "entry", textContrast());
    check(active, "chosen entry", textContrast());
    check(disabled, "disabled entry", DisabledTextContrast);
    menu.close();
    QCOMPARE(faults.join(u'\n'), QString());
}

void ThemeTextContrastTest::daysOfTheCalendarCanBeRead()
{
    auto *selector = new VelaDateSelector(Sample);
    selector->setMinimumWidth(200);
    Shown<Stage> stage(selector);
    QStringList faults =
        cellFaults(selector, selector->rect().adjusted(4, 2, -30, -2), textContrast(), QStringLiteral("selector"));
    VelaCalanderView *view = selector->getCalendarView();
    view->setCurrentPage(2026, 2); // a month that begins on a Sunday
    view->setMaximumDate(QDate(2026, 2, 20));
    selector->dateSelect(QDate(2026, 2, 4));
    selector->showPopup();
    QTRY_VERIFY(view->isVisible());
    auto *grid = view->findChild<QTableView *>(QStringLiteral("qt_calendar_calendarview"));
    const auto *weekdays = view->findChild<QTableView *>(QStringLiteral("qt_calendar_weekdayview"));
    QVERIFY(grid && weekdays);

    const auto check = [&](const QTableView *table, int row, int column, double least) {
        faults += cellFaults(table->viewport(), table->visualRect(table->model()->index(row, column)), least,
                             QStringLiteral("%1, row %2, column %3: ").arg(nameOf(table)).arg(row).arg(column));
    };
    const int firstRow = grid->model()->rowCount() - 6;
    const int firstColumn = grid->model()->columnCount() - 7;
    for (int day = 0; day < 42; ++day) {
        check(grid, firstRow + day / 7, firstColumn + day % 7, DisabledTextContrast); // some cannot be chosen
    }
    for (int column = 0; column < 7; ++column) {
        check(weekdays, 0, column, textContrast());
    }
    const QDate first(2026, 2, 1);
    for (QDate date = first; date <= QDate(2026, 2, 20); date = date.addDays(1)) {
        for (int day = 0; day < 42; ++day) {
            const QModelIndex index = grid->model()->index(firstRow + day / 7, firstColumn + day % 7);
            const bool isThisMonth = day >= index.data().toInt() - 1 && day < index.data().toInt() + 8;
            if (isThisMonth && index.data().toInt() == date.day()) {
                check(grid, index.row(), index.column(), textContrast());
            }
        }
    }
    faults += textFaults(view);
    auto *yearButton = view->findChild<QToolButton *>(QStringLiteral("qt_calendar_yearbutton"));
    yearButton->click();
    auto *yearEdit = view->findChild<QSpinBox *>(QStringLiteral("qt_calendar_yearedit"));
    QTRY_VERIFY(yearEdit->isVisible());
    yearEdit->findChild<QLineEdit *>()->deselect();
    faults += cellFaults(yearEdit, yearEdit->rect().adjusted(2, 0, -16, 0), textContrast(), QStringLiteral("year"));
    selector->hidePopup();
    QCOMPARE(faults.join(u'\n'), QString());
}

void ThemeTextContrastTest::textsOfTheApplicationCanBeRead()
{
    const QPalette palette = QApplication::palette();
    struct Pair
    {
        QPalette::ColorRole ink;
        QPalette::ColorRole ground;
    };
    constexpr Pair Pairs[] = {
        {QPalette::WindowText, QPalette::Window},
        {QPalette::Text, QPalette::Base},
        {QPalette::Text, QPalette::AlternateBase},
        {QPalette::ButtonText, QPalette::Button},
        {QPalette::PlaceholderText, QPalette::Base},
        {QPalette::HighlightedText, QPalette::Highlight},
        {QPalette::Link, QPalette::Base},
        {QPalette::LinkVisited, QPalette::Base},
        {QPalette::Link, QPalette::Window},
    };
    for (const Pair &pair : Pairs) {
        const ColorPair colors {palette.color(pair.ink), palette.color(pair.ground), 0};
        QCOMPARE(fault(colors, textContrast()), QString());
    }
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text}) {
        const ColorPair colors {palette.color(QPalette::Disabled, role), palette.color(QPalette::Window), 0};
        QCOMPARE(fault(colors, DisabledTextContrast), QString());
    }
}

void ThemeTextContrastTest::toolTipsCanBeRead()
{
    Shown<Stage> stage(createIconButton());
    for (QWidget *owner : {static_cast<QWidget *>(&stage), stage.content()}) {
        QToolTip::showText(stage.mapToGlobal(QPoint()), Sample, owner);
        QPointer<QLabel> tip;
        QTRY_VERIFY([&tip] {
            for (QWidget *widget : QApplication::topLevelWidgets()) {
                if (widget->inherits("QTipLabel") && widget->isVisible()) {
                    tip = qobject_cast<QLabel *>(widget);
                }
            }
            return !tip.isNull();
        }());
        tip->setWindowOpacity(1);
        QCOMPARE(cellFaults(tip, tip->rect(), textContrast(), nameOf(owner)), QStringList());
        QToolTip::hideText();
        QTRY_VERIFY(!tip || !tip->isVisible());
    }
}

void ThemeTextContrastTest::pagesOfTheHelpCanBeRead()
{
    HelpContext context;
    context.lang = QStringLiteral("enu");
    context.helpRoot = themeFolder().filePath(QStringLiteral("help"));
    context.link = QStringLiteral("gallery.html");
    HelpWindow window(context);
    window.resize(500, 400);
    window.show();
    auto *page = window.findChild<QTextBrowser *>();
    QVERIFY(page);
    page->setHtml(QStringLiteral("<p>HHHHHHHH</p><p><a href=\"other.html\">HHHHHHHH</a></p>"));
    const int line = page->fontMetrics().height();
    QStringList faults;
    for (const QString &text : {QStringLiteral("text"), QStringLiteral("link")}) {
        const QRect lines(QPoint(0, text == QLatin1String("text") ? 4 : 4 + 2 * line), QSize(200, line));
        faults += cellFaults(page->viewport(), lines, textContrast(), text);
    }
    QCOMPARE(faults.join(u'\n'), QString());
}

QTEST_MAIN(ThemeTextContrastTest)
#include "tst_theme_text_contrast.moc"
