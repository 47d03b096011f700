// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// Measures what the widgets paint in each state, in the theme that VELA_TEST_THEME names.

#include "pixel-contrast.h"

#include "component/paging/vela-paging-bar.h"
#include "component/vela-button-path.h"
#include "component/vela-button.h"
#include "component/vela-check-box.h"
#include "component/vela-combo-box.h"
#include "component/vela-countdown-msg-box.h"
#include "component/vela-date-selector.h"
#include "component/vela-filter-bar.h"
#include "component/vela-input-sheet.h"
#include "component/vela-label.h"
#include "component/vela-line-edit.h"
#include "component/vela-mask.h"
#include "component/vela-menu.h"
#include "component/vela-msg-box.h"
#include "component/vela-msg-sheet.h"
#include "component/vela-table-widget.h"
#include "component/vela-tree-widget.h"
#include "style-manager/style-manager.h"
#include "theme/vela-theme.h"
#include "utils/help-window.h"
#include "utils/ui-path-manager.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QHash>
#include <QHeaderView>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QRadioButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QStyleOptionButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QTimer>
#include <QToolButton>
#include <QToolTip>
#include <QTreeView>
#include <QVBoxLayout>
#include <QtTest>

using Create = QWidget *(*)();
Q_DECLARE_METATYPE(Create)

namespace {

enum class State { Normal, Hovered, Pressed, Focused, Disabled };

struct StateRow
{
    State state;
    const char *name;
};

constexpr StateRow States[] = {
    {State::Normal, "normal"},   {State::Hovered, "hovered"},   {State::Pressed, "pressed"},
    {State::Focused, "focused"}, {State::Disabled, "disabled"},
};

constexpr double DisabledTextContrast = 3.0;
constexpr double VisibleContrast = 3.0; // of rings, of borders that tell something, and of icons

const QString Sample = QStringLiteral("HHHH");

QString themeName()
{
    return qEnvironmentVariable("VELA_TEST_THEME", QStringLiteral("light"));
}

double textContrast()
{
    return themeName() == QLatin1String("high-contrast") ? 7.0 : 4.5;
}

QString describe(const ColorPair &pair)
{
    return QStringLiteral("%1 on %2 is %3")
        .arg(pair.ink.name(), pair.ground.name())
        .arg(contrast(pair.ink, pair.ground), 0, 'f', 2);
}

void sendMouse(QWidget *widget, QEvent::Type type, Qt::MouseButton button, const QPoint &place)
{
    QMouseEvent event(type, place, widget->mapToGlobal(place), button, button, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

// The pointer is in what holds the widget too.
void hover(QWidget *widget, const QPoint &place)
{
    if (widget->parentWidget() && !widget->isWindow()) {
        hover(widget->parentWidget(), widget->mapToParent(place));
    }
    QEnterEvent enter(place, place, widget->mapToGlobal(place));
    QHoverEvent move(QEvent::HoverMove, place, QPoint(-1, -1));
    widget->setAttribute(Qt::WA_UnderMouse);
    QCoreApplication::sendEvent(widget, &enter);
    sendMouse(widget, QEvent::MouseMove, Qt::NoButton, place); // a button takes itself for hovered only after a move
    QCoreApplication::sendEvent(widget, &move);
}

void leave(QWidget *widget)
{
    QEvent event(QEvent::Leave);
    QHoverEvent hoverLeave(QEvent::HoverLeave, QPoint(-1, -1), QPoint());
    widget->setAttribute(Qt::WA_UnderMouse, false);
    QCoreApplication::sendEvent(widget, &event);
    QCoreApplication::sendEvent(widget, &hoverLeave);
    if (widget->parentWidget() && !widget->isWindow()) {
        leave(widget->parentWidget());
    }
}

// A widget is in a state for as long as there is one of these.
class InState
{
public:
    InState(QWidget *widget, State state) : m_widget(widget), m_state(state)
    {
        const QPoint center = widget->rect().center();
        switch (state) {
        case State::Normal:
            break;
        case State::Hovered:
            hover(widget, center);
            break;
        case State::Pressed:
            hover(widget, center);
            sendMouse(widget, QEvent::MouseButtonPress, Qt::LeftButton, center);
            break;
        case State::Focused:
            widget->window()->activateWindow();
            widget->setFocus(Qt::TabFocusReason);
            m_isReached = QTest::qWaitFor([widget] { return widget->hasFocus(); });
            break;
        case State::Disabled:
            widget->setEnabled(false);
            break;
        }
    }

    ~InState()
    {
        if (m_state == State::Pressed) {
            // Outside, so that nothing is clicked.
            sendMouse(m_widget, QEvent::MouseMove, Qt::LeftButton, QPoint(-100, -100));
            sendMouse(m_widget, QEvent::MouseButtonRelease, Qt::LeftButton, QPoint(-100, -100));
        }
        if (m_state == State::Hovered || m_state == State::Pressed) {
            leave(m_widget);
        } else if (m_state == State::Focused) {
            m_widget->clearFocus();
        } else if (m_state == State::Disabled) {
            m_widget->setEnabled(true);
        }
    }

    Q_DISABLE_COPY_MOVE(InState)

    bool isReached() const { return m_isReached; }

private:
    QWidget *const m_widget;
    const State m_state;
    bool m_isReached = true;
};

bool takesState(const QWidget *widget, State state)
{
    switch (state) {
    case State::Pressed:
        // A menu would open, and a field is selected with the mouse.
        return qobject_cast<const QAbstractButton *>(widget) && !widget->property("popupMode").toInt();
    case State::Focused:
        return widget->focusPolicy() != Qt::NoFocus;
    default:
        return true;
    }
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

QRect rectIn(const QWidget *widget, const QWidget *root)
{
    return QRect(widget->mapTo(root, QPoint()), widget->size()) & root->rect();
}

QList<QWidget *> withDescendants(QWidget *root)
{
    return QList<QWidget *> {root} + root->findChildren<QWidget *>();
}

QString nameOf(const QWidget *widget)
{
    const QString name = widget->objectName();
    return QString::fromLatin1(widget->metaObject()->className()) + (name.isEmpty() ? QString() : u'#' + name);
}

// A surface with a widget on it, as an application's window, a field's or a sheet's body is one.
class Stage : public QWidget
{
public:
    Stage(QWidget *content, const QColor &surface) : m_content(content)
    {
        QPalette colors = palette();
        colors.setColor(QPalette::Window, surface);
        setPalette(colors);
        setAutoFillBackground(true);
        auto *column = new QVBoxLayout(this);
        column->addWidget(content);
        auto *neighbour = new QWidget; // takes the focus, so that the content has it only when it is to
        neighbour->setFocusPolicy(Qt::StrongFocus);
        neighbour->setFixedHeight(1);
        column->addWidget(neighbour);
        show();
        content->setFixedSize(content->size()); // whatever is written into it
        neighbour->setFocus();
    }

    QWidget *content() const { return m_content; }

private:
    QWidget *const m_content;
};

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
    return contrast(pairs.first().ink, pairs.first().ground) >= least ? QString() : place + describe(pairs.first());
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
    const ColorPair pair {colors.at(1), colors.at(0), 0};
    return contrast(pair.ink, pair.ground) >= least ? QStringList()
                                                    : QStringList(name + QStringLiteral(": ") + describe(pair));
}

} // namespace

class ThemeContrastTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void textsCanBeRead_data();
    void textsCanBeRead();
    void textsOfSheetsCanBeRead_data();
    void textsOfSheetsCanBeRead();
    void textsOfBoxesCanBeRead_data();
    void textsOfBoxesCanBeRead();
    void rowsOfATableCanBeRead();
    void rowsOfATreeCanBeRead();
    void rowsOfAComboBoxCanBeRead();
    void entriesOfAMenuCanBeRead();
    void daysOfTheCalendarCanBeRead();
    void textsOfTheApplicationCanBeRead();
    void toolTipsCanBeRead();
    void pagesOfTheHelpCanBeRead();
    void focusIsSeen_data();
    void focusIsSeen();
    void theCurrentRowOfATreeIsSeen();
    void errorsAreSeen_data();
    void errorsAreSeen();
    void bordersOfFieldsAreSeen_data();
    void bordersOfFieldsAreSeen();
    void indicatorsAreSeen_data();
    void indicatorsAreSeen();
    void iconsAreSeen_data();
    void iconsAreSeen();
    void drawingsAreSeen_data();
    void drawingsAreSeen();
    void handlesOfScrollBarsAreSeen();
    void theEdgeOfASheetIsSeen();

private:
    static void addSurfaces(const QVector<QPair<const char *, Create>> &widgets);
    static QColor surface(const QString &name);

    QTemporaryDir m_userData;
};

namespace {

QDir themeFolder()
{
    return QDir(QStringLiteral(VELA_THEME_DIR "/../") + themeName());
}

// A role of the application's palette and of the theme's own colours.
QJsonObject themeValues(const char *group)
{
    QFile file(themeFolder().filePath(QStringLiteral("theme.json")));
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("cannot read %s", qPrintable(file.fileName()));
    }
    return QJsonDocument::fromJson(file.readAll()).object().value(QLatin1String(group)).toObject();
}

template<VelaButton::Kind Type>
QWidget *createButton()
{
    return new VelaButton(Sample, Type);
}

QWidget *createIconButton()
{
    return new VelaIconButton(QStringLiteral("bt_settings"));
}

QWidget *createCheckBox()
{
    return new VelaCheckBox(Sample);
}

QWidget *createRadioButton()
{
    return new VelaRadioButton(Sample);
}

QWidget *createLabel()
{
    return new VelaLabel(Sample);
}

VelaLineEdit *createLineEdit()
{
    auto *row = new VelaLineEdit(nullptr);
    row->getPreLabel()->setText(Sample);
    row->getPostLabel()->setText(Sample);
    row->getLineEdit()->setMinimumWidth(120);
    return row;
}

QWidget *createField()
{
    return createLineEdit();
}

QWidget *createFieldThatIsRead()
{
    VelaLineEdit *row = createLineEdit();
    row->getLineEdit()->setReadOnly(true);
    return row;
}

QWidget *createFieldWithAnError()
{
    VelaLineEdit *row = createLineEdit();
    row->setError(true);
    return row;
}

QWidget *createFilterBar()
{
    auto *bar = new VelaFilterBar;
    bar->setMinimumWidth(200);
    return bar;
}

QWidget *createComboBox()
{
    auto *box = new VelaComboBox;
    box->addItems({Sample, QString()});
    return box;
}

QWidget *createEditableComboBox()
{
    auto *box = new VelaComboBox;
    box->setEditable(true);
    box->addItem(Sample);
    return box;
}

QWidget *createDateSelector()
{
    return new VelaDateSelector(Sample);
}

QWidget *createPagingBar()
{
    auto *model = new VelaPagingModel(10);
    model->setItemCount(95);
    auto *bar = new VelaPagingBar(model);
    model->setParent(bar);
    bar->setFooterInfos({{Sample, 60}, {Sample, 60}});
    bar->setMinimumWidth(700);
    return bar;
}

QWidget *createPath()
{
    auto *path = new VelaButtonPath;
    path->setMinimumWidth(400);
    path->refresh(QStringLiteral("HHHH/HHHH/HHHH"));
    return path;
}

QWidget *createTable()
{
    VelaTableColumnsInfo columns;
    columns.addColumn(Sample, 100, true, 1.0);
    columns.addColumn(Sample, 100, true, 0.0);
    auto *table = new VelaTableWidget(columns);
    table->getTable()->setRowCount(4);
    for (int row = 0; row < 4; ++row) {
        table->getTable()->setItem(row, 0, new QTableWidgetItem(Sample));
    }
    table->setMinimumSize(300, 200);
    return table;
}

VelaTreeWidget *createTree()
{
    auto *tree = new VelaTreeWidget;
    tree->setHeaderHidden(true);
    static ItemDelegate delegate;
    tree->setItemDelegate(&delegate);
    tree->setStyleSheet(getStyleSheet("component.tree_item", false));
    const QJsonObject colors = themeValues("colors");
    tree->setBackgroundColor(QColor(colors.value(QLatin1String("tree_selected")).toString()),
                             QColor(colors.value(QLatin1String("tree_hovered")).toString()));
    for (int row = 0; row < 3; ++row) {
        auto *item = new FileSystemTreeWidgetItem;
        item->setText(0, Sample);
        tree->addTopLevelItem(item);
    }
    tree->setMinimumSize(200, 120);
    return tree;
}

QWidget *createPlainTree()
{
    return createTree();
}

QRect indicatorRect(QAbstractButton *button)
{
    QStyleOptionButton option;
    option.initFrom(button);
    const auto element =
        qobject_cast<QRadioButton *>(button) ? QStyle::SE_RadioButtonIndicator : QStyle::SE_CheckBoxIndicator;
    return button->style()->subElementRect(element, &option, button);
}

// The colour of most of a drawing's solid pixels.
QColor drawingColor(const QString &image)
{
    const QImage drawing(themeFolder().filePath(QStringLiteral("images/%1.png").arg(image)));
    QHash<QRgb, int> counts;
    for (int y = 0; y < drawing.height(); ++y) {
        for (int x = 0; x < drawing.width(); ++x) {
            if (qAlpha(drawing.pixel(x, y)) == 255) {
                ++counts[drawing.pixel(x, y)];
            }
        }
    }
    QRgb color = 0;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
        color = it.value() > counts.value(color) ? it.key() : color;
    }
    return QColor(color);
}

// Where a widget's left border is, in the middle of its height.
ColorPair borderPair(QWidget *stage, const QWidget *field, const QColor &against)
{
    const QRect rect = rectIn(field, stage);
    const QImage picture = enlargedPicture(stage, QRect(rect.left(), rect.center().y(), 1, 1));
    return {picture.pixelColor(1, 1), against, 0};
}

QColor insideOf(QWidget *stage, const QWidget *field)
{
    const QRect rect = rectIn(field, stage).adjusted(3, 3, -3, -3);
    return frequentColors(enlargedPicture(stage, rect), 1).constFirst();
}

bool showsFocus(const QWidget *widget)
{
    const bool isControl = qobject_cast<const QAbstractButton *>(widget) || qobject_cast<const QLineEdit *>(widget)
        || qobject_cast<const QComboBox *>(widget) || qobject_cast<const MessageLabel *>(widget);
    const bool hasRows = qobject_cast<const QTreeView *>(widget) || qobject_cast<const QTableView *>(widget);
    return (isControl || (hasRows && !qobject_cast<const VelaButtonPath *>(widget))) && widget->isVisible()
        && widget->isEnabled() && (widget->focusPolicy() & Qt::TabFocus);
}

// A ring is as long as the widget's shorter side at least. It stands out against what was there before, or against the
// surfaces on both sides of it.
QString focusFault(QWidget *root, QWidget *widget, const QColor &outside)
{
    // An editable combo box shows the focus of its field.
    const auto *box = qobject_cast<const QComboBox *>(widget->parentWidget());
    const QWidget *framed = box ? box : widget;
    const QRect rect = rectIn(framed, root);
    const QColor inside = insideOf(root, framed);
    const QImage idle = enlargedPicture(root, rect);
    const InState inState(widget, State::Focused);
    const QVector<ColorPair> pairs = differences(enlargedPicture(root, rect), idle);
    const int least = qMin(rect.width(), rect.height()) * Enlargement * 2; // of pixels
    const bool isSeen = std::any_of(pairs.cbegin(), pairs.cend(), [&](const ColorPair &pair) {
        const double around = qMin(contrast(pair.ink, outside), contrast(pair.ink, inside));
        return pair.count >= least && qMax(contrast(pair.ink, pair.ground), around) >= VisibleContrast;
    });
    return isSeen ? QString()
                  : nameOf(widget) + QStringLiteral(": ")
            + (pairs.isEmpty() ? QStringLiteral("no ring") : describe(pairs.first()));
}

QStringList focusFaults(QWidget *root, const QColor &outside)
{
    QStringList faults;
    int count = 0;
    for (QWidget *widget : withDescendants(root)) {
        if (showsFocus(widget)) {
            ++count;
            faults.append(focusFault(root, widget, outside));
        }
    }
    faults.removeAll(QString());
    return count > 0 ? faults : QStringList(QStringLiteral("nothing takes the focus"));
}

} // namespace

void ThemeContrastTest::initTestCase()
{
    UIPathManager::getInstance()->setPath(QStringLiteral("user_data_path"), m_userData.path());
    const VelaTheme::Problems problems =
        VelaTheme::getInstance()->load(themeFolder().path(), QStringLiteral("enu"), QString());
    QVERIFY2(problems.isEmpty(), problems.isEmpty() ? "" : qPrintable(problems.constFirst().toString()));
    QApplication::setCursorFlashTime(0);
    qInfo("theme: %s", qPrintable(themeName()));
}

QColor ThemeContrastTest::surface(const QString &name)
{
    if (name == QLatin1String("sheet")) {
        return QColor(themeValues("colors").value(QLatin1String("sheet_body")).toString());
    }
    if (name == QLatin1String("popup")) {
        QMenu menu;
        menu.setStyleSheet(getStyleSheet("component.menu", false));
        menu.addAction(Sample);
        menu.popup(QPoint());
        return frequentColors(enlargedPicture(&menu, menu.rect()), 1).constFirst();
    }
    const char *role = name == QLatin1String("page") ? "window" : "base";
    return QColor(themeValues("palette").value(QLatin1String(role)).toString());
}

void ThemeContrastTest::addSurfaces(const QVector<QPair<const char *, Create>> &widgets)
{
    QTest::addColumn<Create>("create");
    QTest::addColumn<QString>("surfaceName");
    for (const auto &widget : widgets) {
        for (const char *name : {"page", "field", "sheet"}) {
            QTest::newRow(
                qPrintable(QStringLiteral("%1 on a %2").arg(QLatin1String(widget.first), QLatin1String(name))))
                << widget.second << QString::fromLatin1(name);
        }
    }
}

void ThemeContrastTest::textsCanBeRead_data()
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

void ThemeContrastTest::textsCanBeRead()
{
    QFETCH(Create, create);
    QFETCH(QString, surfaceName);
    Stage stage(create(), surface(surfaceName));
    QVERIFY(QTest::qWaitForWindowActive(&stage));
    QCOMPARE(textFaults(&stage).join(u'\n'), QString());
}

void ThemeContrastTest::textsOfSheetsCanBeRead_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("application") << int(VelaMessageSheet::AppMessage);
    QTest::newRow("information") << int(VelaMessageSheet::InfoMessage);
    QTest::newRow("warning") << int(VelaMessageSheet::WarningMessage);
    QTest::newRow("question") << int(VelaMessageSheet::QuestionMessage);
    QTest::newRow("upgrade") << int(VelaMessageSheet::UpgradeMessage);
    QTest::newRow("question of a warning") << int(VelaMessageSheet::WarningQuestionMessage);
    QTest::newRow("processing") << int(VelaMessageSheet::ProcessingMessage);
    QTest::newRow("input") << -1;
}

void ThemeContrastTest::textsOfSheetsCanBeRead()
{
    QFETCH(int, type);
    auto *body = new QWidget;
    body->setMinimumSize(700, 400);
    Stage stage(body, surface(QStringLiteral("page")));
    QVERIFY(QTest::qWaitForWindowActive(&stage));
    VelaSheet *sheet = nullptr;
    if (type < 0) {
        sheet = new VelaInputSheet(Sample, body);
    } else {
        sheet = new VelaMessageSheet(VelaMessageSheet::MessageType(type), Sample, Sample, body);
    }
    sheet->show();
    QCOMPARE(focusFaults(sheet, surface(QStringLiteral("sheet"))).join(u'\n'), QString());
    QCOMPARE(textFaults(sheet).join(u'\n'), QString());
}

void ThemeContrastTest::textsOfBoxesCanBeRead_data()
{
    QTest::addColumn<int>("kind");
    const char *const kinds[] = {"information", "warning", "question", "upgrade"};
    for (int kind = 0; kind < int(std::size(kinds)); ++kind) {
        QTest::newRow(kinds[kind]) << kind;
    }
}

void ThemeContrastTest::textsOfBoxesCanBeRead()
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

    VelaCountdownMessageBox countdown(600);
    countdown.setText(Sample);
    countdown.show();
    QVERIFY(QTest::qWaitForWindowActive(&countdown));
    QCOMPARE(textFaults(&countdown).join(u'\n'), QString());
}

void ThemeContrastTest::rowsOfATableCanBeRead()
{
    Stage stage(createTable(), surface(QStringLiteral("page")));
    QVERIFY(QTest::qWaitForWindowActive(&stage));
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

void ThemeContrastTest::rowsOfATreeCanBeRead()
{
    Stage stage(createTree(), surface(QStringLiteral("page")));
    QVERIFY(QTest::qWaitForWindowActive(&stage));
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

void ThemeContrastTest::rowsOfAComboBoxCanBeRead()
{
    auto *box = new VelaComboBox;
    box->addItems({Sample, Sample, Sample});
    Stage stage(box, surface(QStringLiteral("page")));
    QVERIFY(QTest::qWaitForWindowActive(&stage));
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

void ThemeContrastTest::entriesOfAMenuCanBeRead()
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

void ThemeContrastTest::daysOfTheCalendarCanBeRead()
{
    auto *selector = new VelaDateSelector(Sample);
    selector->setMinimumWidth(200);
    Stage stage(selector, surface(QStringLiteral("page")));
    QVERIFY(QTest::qWaitForWindowActive(&stage));
    QStringList faults =
        cellFaults(selector, selector->rect().adjusted(4, 2, -30, -2), textContrast(), QStringLiteral("selector"));
    VelaCalanderView *view = selector->getCalendarView();
    view->setCurrentPage(2026, 2); // begins on a Sunday
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

void ThemeContrastTest::textsOfTheApplicationCanBeRead()
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
        QVERIFY2(contrast(colors.ink, colors.ground) >= textContrast(), qPrintable(describe(colors)));
    }
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text}) {
        const ColorPair colors {palette.color(QPalette::Disabled, role), palette.color(QPalette::Window), 0};
        QVERIFY2(contrast(colors.ink, colors.ground) >= DisabledTextContrast, qPrintable(describe(colors)));
    }
}

void ThemeContrastTest::toolTipsCanBeRead()
{
    Stage stage(createIconButton(), surface(QStringLiteral("page")));
    QVERIFY(QTest::qWaitForWindowActive(&stage));
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

void ThemeContrastTest::pagesOfTheHelpCanBeRead()
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

void ThemeContrastTest::focusIsSeen_data()
{
    addSurfaces({
        {"apply button", createButton<VelaButton::ApplyButton>},
        {"cancel button", createButton<VelaButton::CancelButton>},
        {"default button", createButton<VelaButton::DefaultButton>},
        {"red button", createButton<VelaButton::RedButton>},
        {"selected paging button", createButton<VelaButton::SelectPagingButton>},
        {"other paging button", createButton<VelaButton::NonselectPagingButton>},
        {"icon button", createIconButton},
        {"check box", createCheckBox},
        {"radio button", createRadioButton},
        {"field", createField},
        {"field with an error", createFieldWithAnError},
        {"filter bar", createFilterBar},
        {"combo box", createComboBox},
        {"editable combo box", createEditableComboBox},
        {"date selector", createDateSelector},
        {"path", createPath},
        {"tree", createPlainTree},
        {"table", createTable},
    });
}

void ThemeContrastTest::focusIsSeen()
{
    QFETCH(Create, create);
    QFETCH(QString, surfaceName);
    Stage stage(create(), surface(surfaceName));
    QVERIFY(QTest::qWaitForWindowActive(&stage));
    QCOMPARE(focusFaults(&stage, surface(surfaceName)).join(u'\n'), QString());
}

void ThemeContrastTest::theCurrentRowOfATreeIsSeen()
{
    Stage stage(createTree(), surface(QStringLiteral("page")));
    QVERIFY(QTest::qWaitForWindowActive(&stage));
    auto *tree = qobject_cast<VelaTreeWidget *>(stage.content());
    tree->setCurrentItem(tree->topLevelItem(1));
    const QRect row = tree->visualItemRect(tree->topLevelItem(1)).adjusted(-tree->indentation(), 0, 0, 0);
    const QImage idle = enlargedPicture(tree->viewport(), row);
    tree->setFocus();
    QTRY_VERIFY(tree->hasFocus());
    const QVector<ColorPair> pairs = differences(enlargedPicture(tree->viewport(), row), idle);
    QVERIFY(!pairs.isEmpty());
    QVERIFY2(contrast(pairs.first().ink, pairs.first().ground) >= VisibleContrast, qPrintable(describe(pairs.first())));
}

void ThemeContrastTest::errorsAreSeen_data()
{
    addSurfaces({{"field", createFieldWithAnError}});
}

void ThemeContrastTest::errorsAreSeen()
{
    QFETCH(Create, create);
    QFETCH(QString, surfaceName);
    Stage stage(create(), surface(surfaceName));
    QVERIFY(QTest::qWaitForWindowActive(&stage));
    QLineEdit *field = qobject_cast<VelaLineEdit *>(stage.content())->getLineEdit();
    for (const State state : {State::Normal, State::Hovered, State::Focused}) {
        const InState inState(field, state);
        for (const QColor &ground : {surface(surfaceName), insideOf(&stage, field)}) {
            const ColorPair pair = borderPair(&stage, field, ground);
            QVERIFY2(contrast(pair.ink, pair.ground) >= VisibleContrast, qPrintable(describe(pair)));
        }
    }
    const ColorPair mark {drawingColor(QStringLiteral("field_error")), insideOf(&stage, field), 0};
    QVERIFY2(contrast(mark.ink, mark.ground) >= VisibleContrast, qPrintable(describe(mark)));
}

void ThemeContrastTest::bordersOfFieldsAreSeen_data()
{
    QVector<QPair<const char *, Create>> widgets = {
        {"cancel button", createButton<VelaButton::CancelButton>},
        {"field", createField},
        {"filter bar", createFilterBar},
        {"combo box", createComboBox},
        {"date selector", createDateSelector},
        {"path", createPath},
        {"tree", createPlainTree},
    };
    if (themeName() == QLatin1String("high-contrast")) { // elsewhere the surface of the button is enough
        widgets.append({"default button", createButton<VelaButton::DefaultButton>});
    }
    addSurfaces(widgets);
}

void ThemeContrastTest::bordersOfFieldsAreSeen()
{
    QFETCH(Create, create);
    QFETCH(QString, surfaceName);
    Stage stage(create(), surface(surfaceName));
    QVERIFY(QTest::qWaitForWindowActive(&stage));
    QWidget *field = stage.content()->findChild<QLineEdit *>();
    field = qobject_cast<VelaLineEdit *>(stage.content()) ? field : stage.content();
    for (const State state : {State::Normal, State::Hovered}) {
        const InState inState(field, state);
        const ColorPair pair = borderPair(&stage, field, surface(surfaceName));
        QVERIFY2(contrast(pair.ink, pair.ground) >= VisibleContrast, qPrintable(describe(pair)));
    }
}

void ThemeContrastTest::indicatorsAreSeen_data()
{
    addSurfaces({{"check box", createCheckBox}, {"radio button", createRadioButton}});
}

void ThemeContrastTest::indicatorsAreSeen()
{
    QFETCH(Create, create);
    QFETCH(QString, surfaceName);
    Stage stage(create(), surface(surfaceName));
    QVERIFY(QTest::qWaitForWindowActive(&stage));
    auto *button = qobject_cast<QAbstractButton *>(stage.content());
    auto *checkBox = qobject_cast<QCheckBox *>(button);
    const QColor ground = surface(surfaceName);
    const QRect rect = indicatorRect(button).translated(button->pos());
    for (const Qt::CheckState value : {Qt::Unchecked, Qt::Checked, Qt::PartiallyChecked}) {
        if (checkBox) {
            checkBox->setCheckState(value);
        } else if (value != Qt::PartiallyChecked) {
            button->setChecked(value == Qt::Checked);
        }
        for (const StateRow &row : States) {
            if (row.state == State::Disabled) {
                continue;
            }
            const InState inState(button, row.state);
            const QVector<QColor> colors = frequentColors(enlargedPicture(&stage, rect), 15 * Enlargement);
            const QString name = QStringLiteral("%1 %2").arg(QLatin1String(row.name)).arg(value);
            const bool isSeen = std::any_of(colors.cbegin(), colors.cend(), [&ground](const QColor &color) {
                return contrast(color, ground) >= VisibleContrast;
            });
            QVERIFY2(isSeen, qPrintable(name));
            if (button->isChecked() || value == Qt::PartiallyChecked) {
                const QImage middle = enlargedPicture(&stage, rect.adjusted(6, 6, -6, -6));
                const QVector<QColor> inside = frequentColors(middle, 10 * Enlargement);
                QVERIFY2(inside.size() >= 2, qPrintable(name));
                QVERIFY2(contrast(inside.at(0), inside.at(1)) >= VisibleContrast, qPrintable(name));
            }
        }
    }
}

void ThemeContrastTest::iconsAreSeen_data()
{
    addSurfaces({{"icon button", createIconButton}});
}

void ThemeContrastTest::iconsAreSeen()
{
    QFETCH(Create, create);
    QFETCH(QString, surfaceName);
    Stage stage(create(), surface(surfaceName));
    QVERIFY(QTest::qWaitForWindowActive(&stage));
    struct Row
    {
        State state;
        const char *suffix;
    };
    for (const Row &row : {Row {State::Normal, ""}, {State::Hovered, "_hover"}, {State::Pressed, "_click"}}) {
        const InState inState(stage.content(), row.state);
        const QImage image = enlargedPicture(&stage, rectIn(stage.content(), &stage));
        const ColorPair pair {drawingColor(QStringLiteral("bt_settings") + QLatin1String(row.suffix)),
                              frequentColors(image, 1).constFirst(), 0};
        QVERIFY2(contrast(pair.ink, pair.ground) >= VisibleContrast, qPrintable(describe(pair)));
    }
}

void ThemeContrastTest::drawingsAreSeen_data()
{
    QTest::addColumn<QString>("surfaceName");
    struct Row
    {
        const char *drawing;
        const char *surface;
    };
    for (const Row &row : {Row {"arrow_down", "field"},
                           {"arrow_up", "field"},
                           {"arrow_right", "popup"},
                           {"arrow_left", "popup"},
                           {"menu_check", "popup"},
                           {"icon_information", "sheet"},
                           {"icon_question", "sheet"},
                           {"bt_pagebar_next", "page"},
                           {"bt_pagebar_nextend", "popup"},
                           {"bt_next", "field"},
                           {"bt_search_dropdown", "field"},
                           {"bt_pagebar_refresh", "page"}}) {
        QTest::newRow(row.drawing) << QString::fromLatin1(row.surface);
    }
}

void ThemeContrastTest::drawingsAreSeen()
{
    QFETCH(QString, surfaceName);
    const ColorPair pair {drawingColor(QLatin1String(QTest::currentDataTag())), surface(surfaceName), 0};
    QVERIFY2(contrast(pair.ink, pair.ground) >= VisibleContrast, qPrintable(describe(pair)));
}

// As with fields, those of the light theme are fainter until the pointer is there.
void ThemeContrastTest::handlesOfScrollBarsAreSeen()
{
    auto *bar = new QScrollBar(Qt::Horizontal);
    bar->setStyleSheet(getStyleSheet("component.scrollbar", false));
    bar->setMinimumWidth(200);
    bar->setRange(0, 10);
    bar->setPageStep(100); // a long handle, in which the middle lies
    Stage stage(bar, surface(QStringLiteral("page")));
    QVERIFY(QTest::qWaitForWindowActive(&stage));
    QStyleOptionSlider option;
    option.initFrom(bar);
    for (const State state : {State::Normal, State::Hovered, State::Pressed}) {
        const InState inState(bar, state);
        const QVector<QColor> colors = frequentColors(enlargedPicture(&stage, rectIn(bar, &stage)), 30 * Enlargement);
        QVERIFY(colors.size() >= 2);
        const ColorPair pair {colors.at(0), colors.at(1), 0};
        QVERIFY2(contrast(pair.ink, pair.ground) >= VisibleContrast, qPrintable(describe(pair)));
    }
}

void ThemeContrastTest::theEdgeOfASheetIsSeen()
{
    auto *body = new QWidget;
    body->setMinimumSize(700, 400);
    Stage stage(body, surface(QStringLiteral("page")));
    QVERIFY(QTest::qWaitForWindowActive(&stage));
    VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, Sample, body);
    VelaMask::createMask(&sheet, body, QColor(themeValues("colors").value(QLatin1String("mask")).toString()));
    sheet.show();
    const int shadow = sheet.contentsMargins().left();
    const int middle = sheet.height() / 2;
    const QColor within = enlargedPicture(&sheet, QRect(shadow + 3, middle, 1, 1)).pixelColor(1, 1);
    const QColor edge = enlargedPicture(&sheet, QRect(shadow - 1, middle, 1, 1)).pixelColor(1, 1);
    if (themeName() == QLatin1String("high-contrast")) {
        QVERIFY2(contrast(edge, within) >= VisibleContrast, qPrintable(edge.name()));
    } else {
        QVERIFY2(edge != within, qPrintable(edge.name()));
    }
}

QTEST_MAIN(ThemeContrastTest)
#include "tst_theme_contrast.moc"
