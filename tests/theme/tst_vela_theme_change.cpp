// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-button-path.h"
#include "component/vela-button.h"
#include "component/vela-combo-box.h"
#include "component/vela-date-selector.h"
#include "component/vela-input-sheet.h"
#include "component/vela-label.h"
#include "component/vela-line-edit.h"
#include "component/vela-mask.h"
#include "component/vela-msg-box.h"
#include "component/vela-msg-sheet.h"
#include "component/vela-sheet.h"
#include "component/vela-table-widget.h"
#include "component/vela-tree-widget.h"
#include "image-manager/image-manager.h"
#include "style-manager/style-manager.h"
#include "support/all-widgets.h"
#include "support/controls.h"
#include "support/environment.h"
#include "support/log-capture.h"
#include "support/theme-copy.h"
#include "theme/vela-theme.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDateTime>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileInfo>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QPixmapCache>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>
#include <QtTest>

#include <array>
#include <functional>

namespace {

const QString English = QStringLiteral("enu");
const QString German = QStringLiteral("deu");
const QString Light = QStringLiteral("light");
const QString Dark = QStringLiteral("dark");

void load(const QString &palette, const QString &language)
{
    const VelaTheme::Problems problems = VelaTheme::getInstance()->load(referenceTheme(palette), language);
    for (const VelaTheme::Problem &problem : problems) {
        qWarning("%s", qPrintable(problem.toString()));
    }
}

void writeImage(const QString &path, const QColor &color, const QDateTime &time = QDateTime::currentDateTime())
{
    QImage image(QSize(64, 64), QImage::Format_ARGB32);
    image.fill(color);
    QFile file(path);
    const bool isWritten = file.open(QIODevice::WriteOnly) && image.save(&file, "PNG") && file.flush()
        && file.setFileTime(time, QFileDevice::FileModificationTime);
    if (!isWritten) {
        qFatal("%s cannot be written", qPrintable(path));
    }
}

QString nameOf(const QWidget *widget)
{
    QString name;
    for (; widget; widget = widget->parentWidget()) {
        name.prepend(
            QStringLiteral("/%1#%2").arg(QString::fromLatin1(widget->metaObject()->className()), widget->objectName()));
    }
    return name;
}

// The part of a widget's look that is not painted.
QStringList traitsOf(const QWidget *widget)
{
    QStringList traits {nameOf(widget), widget->styleSheet(), widget->toolTip(), widget->accessibleName()};
    if (const auto *button = qobject_cast<const QAbstractButton *>(widget)) {
        traits << button->text() << QString::number(button->iconSize().width());
    }
    const QList<QAction *> actions = widget->actions();
    for (const QAction *action : actions) {
        traits.append(action->text());
    }
    return traits;
}

// Shows a widget below a neighbour that can have the focus.
class Window : public QWidget
{
public:
    explicit Window(QWidget *widget)
    {
        auto *column = new QVBoxLayout(this);
        column->addWidget(new QLineEdit);
        column->addWidget(widget);
        resize(500, 400);
    }

    bool showAndWait()
    {
        show();
        activateWindow();
        return QTest::qWaitForWindowActive(this);
    }
};

} // namespace

class VelaThemeChangeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Each widget that has followed beside one that was made afterwards.
    void widgetsThatLiveLookLikeNewOnes_data()
    {
        QTest::addColumn<QString>("formerPalette");
        QTest::addColumn<QString>("formerLanguage");
        QTest::addColumn<QString>("palette");
        QTest::addColumn<QString>("language");

        const QString highContrast = QStringLiteral("high-contrast");
        QTest::newRow("palette") << Light << English << Dark << English;
        QTest::newRow("palette, back") << Dark << English << Light << English;
        QTest::newRow("another palette") << Light << English << highContrast << English;
        QTest::newRow("language") << Light << English << Light << German;
        QTest::newRow("both") << highContrast << QStringLiteral("jpn") << Dark << QStringLiteral("fra");
    }

    void widgetsThatLiveLookLikeNewOnes()
    {
        QFETCH(QString, formerPalette);
        QFETCH(QString, formerLanguage);
        QFETCH(QString, palette);
        QFETCH(QString, language);
        load(formerPalette, formerLanguage);
        AllWidgets living;
        LogCapture log;
        load(palette, language);
        QCOMPARE(log.takeTexts(), QStringList());
        AllWidgets made;

        const QList<QWidget *> livingWidgets = living.findChildren<QWidget *>();
        const QList<QWidget *> madeWidgets = made.findChildren<QWidget *>();
        QCOMPARE(livingWidgets.size(), madeWidgets.size());
        for (int i = 0; i < madeWidgets.size(); ++i) {
            QCOMPARE(traitsOf(livingWidgets.at(i)), traitsOf(madeWidgets.at(i)));
        }
        for (int i = 0; i < madeWidgets.size(); ++i) {
            QWidget *livingWidget = livingWidgets.at(i);
            QWidget *madeWidget = madeWidgets.at(i);
            if (livingWidget->parentWidget() != &living) {
                continue;
            }
            livingWidget->adjustSize();
            madeWidget->adjustSize();
            QVERIFY2(livingWidget->sizeHint() == madeWidget->sizeHint(), qPrintable(nameOf(madeWidget)));
            QVERIFY2(livingWidget->size() == madeWidget->size(), qPrintable(nameOf(madeWidget)));
            const QImage livingImage = livingWidget->grab().toImage();
            const QImage madeImage = madeWidget->grab().toImage();
            if (livingImage != madeImage) {
                livingImage.save(QStringLiteral("living.png"));
                madeImage.save(QStringLiteral("made.png"));
            }
            QVERIFY2(livingImage == madeImage, qPrintable(nameOf(madeWidget)));
        }
    }

    void theSameLookOnceMoreChangesNothing()
    {
        load(Light, English);
        AllWidgets widgets;
        const QList<QWidget *> all = widgets.findChildren<QWidget *>();
        QVector<QStringList> traits;
        QVector<QSize> sizes;
        QVector<QImage> images;
        const auto take = [&] {
            for (QWidget *widget : all) {
                traits.append(traitsOf(widget));
                if (widget->parentWidget() == &widgets) {
                    sizes.append(widget->size());
                    images.append(widget->grab().toImage());
                }
            }
        };
        take();
        take();
        const int count = all.size();
        const int images2 = images.size() / 2;
        QCOMPARE(images.mid(0, images2), images.mid(images2));
        traits.clear(), sizes.clear(), images.clear();
        take();
        QVERIFY(VelaTheme::getInstance()->reload().isEmpty());
        take();
        QCOMPARE(traits.mid(0, count), traits.mid(count));
        QCOMPARE(sizes.mid(0, images2), sizes.mid(images2));
        QVERIFY(images.mid(0, images2) == images.mid(images2));
    }

    void whatAnApplicationHasGivenStays()
    {
        load(Light, English);
        VelaButton button(QStringLiteral("Save"), VelaButton::ApplyButton);
        const QString sheet = QStringLiteral("QPushButton { color: red; }");
        button.setStyleSheet(sheet);
        QPixmap drawn(16, 16);
        drawn.fill(Qt::red);
        VelaIconButton iconButton(QStringLiteral("bt_add"));
        iconButton.setHoverIcon(drawn);
        VelaIconButton drawnButton(drawn);
        const qint64 drawnIcon = drawnButton.icon().cacheKey();
        QWidget form;
        auto *buttonOfForm = new VelaIconButton(&form);
        buttonOfForm->setIcon(drawn);
        buttonOfForm->setIconSize(drawn.size());
        VelaMessageSheet messageSheet(VelaMessageSheet::QuestionMessage, QStringLiteral("text"),
                                      MsgBoxCustomBtnText(QStringLiteral("Keep"), QStringLiteral("Discard")));
        messageSheet.setIcon(drawn);
        VelaDateSelector selector(QStringLiteral("none"));
        selector.getCalendarView()->setAccessibleName(QStringLiteral("mine"));
        VelaButtonPath path;
        path.refresh(QStringLiteral("Home/Work"));
        const QList<QAbstractButton *> others {
            selector.getCalendarView()->findChild<QToolButton *>(QStringLiteral("qt_calendar_prevmonth")),
            path.findChild<QToolButton *>(), qobject_cast<QAbstractButton *>(path.cellWidget(0, 1))};
        for (QAbstractButton *other : others) {
            other->setIcon(drawn);
        }
        const qint64 otherIcons[] = {others[0]->icon().cacheKey(), others[1]->icon().cacheKey(),
                                     others[2]->icon().cacheKey()};

        load(Dark, German);
        for (int i = 0; i < others.size(); ++i) {
            QCOMPARE(others[i]->icon().cacheKey(), otherIcons[i]);
        }
        QCOMPARE(button.styleSheet(), sheet);
        QCOMPARE(button.text(), QStringLiteral("Save"));
        QCOMPARE(drawnButton.icon().cacheKey(), drawnIcon);
        form.show();
        QCOMPARE(buttonOfForm->iconSize(), drawn.size());
        QVERIFY(!buttonOfForm->icon().isNull());
        QCOMPARE(messageSheet.button(QMessageBox::Ok)->text(), QStringLiteral("Keep"));
        QCOMPARE(messageSheet.button(QMessageBox::Discard)->text(), QStringLiteral("Discard"));
        QCOMPARE(messageSheet.button(QMessageBox::Ok)->styleSheet(), getStyleSheet("component.apply_button", false));
        QCOMPARE(selector.getCalendarView()->accessibleName(), QStringLiteral("mine"));

        const QImage normal = getGlobalImage("bt_add", ImageManager::IMAGE_NORMAL).toImage();
        QCOMPARE(iconButton.icon().pixmap(iconButton.iconSize()).toImage().pixel(1, 1), normal.pixel(1, 1));
        QEvent enter(QEvent::Enter);
        QCoreApplication::sendEvent(&iconButton, &enter);
        QCOMPARE(iconButton.icon().pixmap(8, 8).toImage().pixelColor(4, 4), QColor(Qt::red));
    }

    void iconsGivenAsPixmapsOfTheCatalogueFollow()
    {
        load(Light, English);
        VelaIconButton button(getGlobalImage("folder", ImageManager::IMAGE_NORMAL));
        const QImage former = button.grab().toImage();
        load(QStringLiteral("high-contrast"), English);
        VelaIconButton made(getGlobalImage("folder", ImageManager::IMAGE_NORMAL));
        QVERIFY(made.grab().toImage() != former);
        QCOMPARE(button.grab().toImage(), made.grab().toImage());
    }

    // The icon that is shown is exchanged for that of the same state.
    void theStateThatAnIconButtonShowsStays()
    {
        load(Light, English);
        VelaIconButton button(QStringLiteral("bt_add"));
        QEvent enter(QEvent::Enter);
        QCoreApplication::sendEvent(&button, &enter);
        load(Dark, English);
        VelaIconButton atRest(QStringLiteral("bt_add"));
        VelaIconButton hovered(QStringLiteral("bt_add"));
        QCoreApplication::sendEvent(&hovered, &enter);
        QCOMPARE(button.grab().toImage(), hovered.grab().toImage());
        QVERIFY(button.icon().pixmap(16, 16).toImage() != atRest.icon().pixmap(16, 16).toImage());
    }

    void twoKindsThatLookTheSameArePartedByAnotherTheme()
    {
        const ThemeCopy same;
        same.write(QStringLiteral("styles/z.qss"),
                   "== component.cancel_button ==\nQPushButton { color: red; }\n"
                   "== component.default_button ==\nQPushButton { color: red; }\n"
                   "== application.end ==\n");
        QVERIFY(VelaTheme::getInstance()->load(same.path(), English).isEmpty());
        QCOMPARE(getStyleSheet("component.cancel_button", true), getStyleSheet("component.default_button", true));
        const VelaButton cancel(QString(), VelaButton::CancelButton);
        const VelaButton other(QString(), VelaButton::DefaultButton);
        load(Light, English);
        QCOMPARE(cancel.styleSheet(), getStyleSheet("component.cancel_button", false));
        QCOMPARE(other.styleSheet(), getStyleSheet("component.default_button", false));
    }

    void focusTextAndSelectionStay()
    {
        load(Light, English);
        auto *edit = new VelaLineEdit;
        Window window(edit);
        QVERIFY(window.showAndWait());
        QLineEdit *field = edit->getLineEdit();
        field->setText(QStringLiteral("some text"));
        field->setFocus();
        field->setSelection(2, 4);
        edit->setError(true);
        const QRect geometry = field->geometry();
        load(Dark, German);
        QCoreApplication::processEvents();
        QVERIFY(field->hasFocus());
        QCOMPARE(field->text(), QStringLiteral("some text"));
        QCOMPARE(field->selectedText(), QStringLiteral("me t"));
        QVERIFY(edit->hasError());
        QCOMPARE(field->geometry(), geometry);
        QCOMPARE(field->styleSheet(), getStyleSheet("component.lineedit", false));
    }

    void aTableStaysWhereItIsScrolled()
    {
        load(Light, English);
        VelaTableColumnsInfo columns;
        columns.addColumn(QStringLiteral("a"), 300, true, 0.0);
        columns.addColumn(QStringLiteral("b"), 600, true, 0.0);
        auto *table = new VelaTableWidget(columns);
        table->getTable()->setRowCount(200);
        Window window(table);
        QVERIFY(window.showAndWait());
        table->getTable()->selectRow(30);
        table->getTable()->verticalScrollBar()->setValue(777);
        table->getTable()->horizontalScrollBar()->setValue(55);
        table->getHeader()->resizeSection(0, 123);
        const QRect geometry = table->getTable()->viewport()->geometry();
        load(Dark, English);
        QCoreApplication::processEvents();
        QCOMPARE(table->getTable()->verticalScrollBar()->value(), 777);
        QCOMPARE(table->getTable()->horizontalScrollBar()->value(), 55);
        QVERIFY(table->getTable()->selectionModel()->isRowSelected(30, QModelIndex()));
        QCOMPARE(table->getTable()->columnWidth(0), 123);
        QCOMPARE(table->getTable()->viewport()->geometry(), geometry);
        QVERIFY(!table->getTable()->verticalScrollBar()->isHidden());
    }

    void aTreeFollowsInTheSectionsThatApplicationsGiveIt()
    {
        load(Light, English);
        const auto sheet = []() -> QString {
            return getStyleSheet("component.tree_item", false) + getStyleSheet("component.scrollbar", false);
        };
        VelaTreeWidget tree;
        tree.setStyleSheet(sheet());
        for (int i = 0; i < 100; ++i) {
            new QTreeWidgetItem(&tree, {QString::number(i)});
        }
        tree.resize(200, 300);
        tree.show();
        tree.topLevelItem(40)->setSelected(true);
        tree.scrollToItem(tree.topLevelItem(60));
        const int scrolled = tree.verticalScrollBar()->value();
        VelaTreeWidget alone;
        alone.setStyleSheet(getStyleSheet("component.tree_item", false));
        load(Dark, English);
        QCOMPARE(tree.styleSheet(), sheet());
        QCOMPARE(alone.styleSheet(), getStyleSheet("component.tree_item", false));
        QVERIFY(tree.topLevelItem(40)->isSelected());
        QCOMPARE(tree.verticalScrollBar()->value(), scrolled);
    }

    void aTreeWithoutASheetStaysWithout()
    {
        const ThemeCopy copy;
        copy.replace(QStringLiteral("styles/tree-and-path.qss"), "component.tree_item", "component.tree_items");
        VelaTheme::getInstance()->load(copy.path(), English);
        const VelaTreeWidget tree;
        load(Light, English);
        QCOMPARE(tree.styleSheet(), QString());
    }

    void highlightsAreTheThemesUnlessTheyAreSet_data()
    {
        QTest::addColumn<bool>("isSet");
        QTest::newRow("the theme's") << false;
        QTest::newRow("set") << true;
    }

    void highlightsAreTheThemesUnlessTheyAreSet()
    {
        QFETCH(bool, isSet);
        const ThemeCopy copy;
        copy.write(QStringLiteral("theme.json"),
                   json("{'colors': {'tree_selected': '#00FF00', 'tree_outline': '#0000FF'}}"));
        VelaTreeWidget tree;
        tree.setHeaderHidden(true);
        tree.setFrameShape(QFrame::NoFrame);
        tree.setColumnCount(1);
        new QTreeWidgetItem(&tree, {QString()});
        tree.topLevelItem(0)->setSelected(true);
        tree.setStyleSheet(QStringLiteral("QTreeView { selection-background-color: transparent; "
                                          "show-decoration-selected: 0; }"));
        if (isSet) {
            tree.setBackgroundColor(Qt::red, Qt::red);
        }
        tree.resize(300, 100);
        QVERIFY(VelaTheme::getInstance()->load(copy.path(), English).isEmpty());
        const QColor expected = isSet ? QColor(Qt::red) : QColor(Qt::green);
        const QImage image = tree.viewport()->grab().toImage();
        const QRect row = tree.visualItemRect(tree.topLevelItem(0));
        const int ratio = qRound(image.devicePixelRatio());
        QCOMPARE(image.pixelColor(ratio * QPoint(row.right() - 10, row.center().y())), expected);
        QCOMPARE(tree.selectedColor().isValid(), isSet); // as before
    }

    void aPathKeepsItsNamesAndItsFocus()
    {
        load(Light, English);
        auto *path = new VelaButtonPath;
        Window window(path);
        QVERIFY(window.showAndWait());
        path->refresh(QStringLiteral("one/two & three/four"));
        const QList<QPushButton *> buttons = path->viewport()->findChildren<QPushButton *>();
        buttons.at(2)->setFocus();
        QVERIFY(buttons.at(2)->hasFocus());
        const QRect geometry = buttons.at(2)->geometry();
        load(Dark, German);
        QVERIFY(buttons.at(2)->hasFocus());
        QCOMPARE(path->getPath(4), QStringLiteral("one/two & three/four"));
        QCOMPARE(buttons.at(2)->geometry(), geometry);
    }

    // The columns are as wide as they would have been made.
    void namesInAPathAreAsWideAsTheirNewFont()
    {
        load(Light, English);
        VelaButtonPath living;
        living.resize(800, 30);
        living.refresh(QStringLiteral("one/two & three/four"));
        const ThemeCopy copy;
        copy.replace(QStringLiteral("styles/tree-and-path.qss"),
                     "== component.button_path_name_button ==\nQPushButton {\n    font-size: 13px;",
                     "== component.button_path_name_button ==\nQPushButton {\n    font-size: 31px;");
        QVERIFY(VelaTheme::getInstance()->load(copy.path(), English).isEmpty());
        VelaButtonPath made;
        made.resize(800, 30);
        made.refresh(QStringLiteral("one/two & three/four"));
        for (int column = 0; column < 5; ++column) {
            QCOMPARE(living.columnWidth(column), made.columnWidth(column));
            QCOMPARE(living.cellWidget(0, column)->width(), made.cellWidget(0, column)->width());
        }
    }

    void anOpenPopupStaysOpen()
    {
        load(Light, English);
        auto *box = new VelaComboBox;
        box->addItems({QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("three")});
        box->setCurrentIndex(1);
        Window window(box);
        QVERIFY(window.showAndWait());
        box->showPopup();
        QTRY_VERIFY(box->view()->isVisible());
        load(Dark, English);
        QCoreApplication::processEvents();
        QVERIFY(box->view()->isVisible());
        QCOMPARE(box->currentIndex(), 1);
        box->hidePopup();
    }

    void anOpenCalendarStaysOpenAndSpeaksTheLanguage()
    {
        load(Light, English);
        auto *selector = new VelaDateSelector(QStringLiteral("none"));
        Window window(selector);
        QVERIFY(window.showAndWait());
        selector->getCalendarView()->setCurrentPage(2024, 5);
        selector->showPopup();
        QTRY_VERIFY(selector->getCalendarView()->isVisible());
        const QSize size = selector->getCalendarView()->size();
        load(Dark, German);
        QCoreApplication::processEvents();
        QVERIFY(selector->getCalendarView()->isVisible());
        QCOMPARE(selector->getCalendarView()->size(), size);
        const auto *month =
            selector->getCalendarView()->findChild<QAbstractButton *>(QStringLiteral("qt_calendar_monthbutton"));
        QCOMPARE(month->text(), QStringLiteral("Mai"));
        selector->hidePopup();
    }

    void anOpenSheetStaysOpen_data()
    {
        QTest::addColumn<bool>("isInput");
        QTest::newRow("message") << false;
        QTest::newRow("input") << true;
    }

    void anOpenSheetStaysOpen()
    {
        QFETCH(bool, isInput);
        load(Light, English);
        Window window(new QWidget);
        QVERIFY(window.showAndWait());
        VelaMessageSheet messageSheet(VelaMessageSheet::QuestionMessage, QStringLiteral("A longer text than usual"),
                                      &window);
        VelaInputSheet inputSheet(QStringLiteral("A longer text than usual"), &window);
        VelaSheet *sheet = isInput ? static_cast<VelaSheet *>(&inputSheet) : &messageSheet;
        VelaMask::createMask(sheet, &window, QColor(0, 0, 0, 20));
        bool hasRun = false;
        QTimer::singleShot(0, this, [&] {
            QTRY_VERIFY(sheet->isVisible());
            QCoreApplication::processEvents();
            QPointer<QWidget> focus = QApplication::focusWidget();
            QVERIFY(focus && sheet->isAncestorOf(focus));
            const QRect geometry = sheet->geometry();
            const QMargins margins = sheet->contentsMargins();
            load(Dark, German);
            QCoreApplication::processEvents();
            QVERIFY(sheet->isVisible());
            QCOMPARE(QApplication::focusWidget(), focus.data());
            QCOMPARE(sheet->geometry(), geometry);
            QCOMPARE(sheet->contentsMargins(), margins);
            QPushButton *cancel =
                isInput ? inputSheet.button(QMessageBox::Discard) : messageSheet.button(QMessageBox::Discard);
            QCOMPARE(cancel->text(), QStringLiteral("Abbrechen"));
            hasRun = true;
            QTest::keyClick(&window, Qt::Key_Escape);
        });
        QCOMPARE(isInput ? inputSheet.exec() : messageSheet.exec(), int(QMessageBox::Discard));
        QVERIFY(hasRun);
    }

    void aShownMessageKeepsItsSize_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("more");
        for (int type = VelaMessageSheet::AppMessage; type <= VelaMessageSheet::ProcessingMessage; ++type) {
            QTest::addRow("type %d", type) << type << QString();
            QTest::addRow("type %d, with more", type) << type << QStringLiteral("more");
        }
    }

    void aShownMessageKeepsItsSize()
    {
        QFETCH(int, type);
        QFETCH(QString, more);
        load(Light, English);
        Window window(new QWidget);
        QVERIFY(window.showAndWait());
        VelaMessageSheet sheet(static_cast<VelaMessageSheet::MessageType>(type), QStringLiteral("text"), more, &window);
        VelaMask::createMask(&sheet, &window, QColor(0, 0, 0, 20));
        sheet.showSheet();
        QCoreApplication::processEvents();
        const QRect geometry = sheet.geometry();
        load(Dark, English);
        QCoreApplication::processEvents();
        QCOMPARE(sheet.geometry(), geometry);
        sheet.hide();
        sheet.showSheet();
        QCoreApplication::processEvents();
        QCOMPARE(sheet.geometry(), geometry);
    }

    void theMaskOfAMessageAndTheBodyOfASheetFollow()
    {
        load(Light, English);
        const ThemeCopy copy;
        copy.write(QStringLiteral("theme.json"), json("{'colors': {'mask': '#80112233', 'sheet_body': '#445566'}}"));
        Window window(new QWidget);
        QVERIFY(window.showAndWait());
        QColor maskColor;
        QColor bodyColor;
        QTimer::singleShot(0, this, [&] {
            VelaTheme::getInstance()->load(copy.path(), English);
            maskColor = window.findChild<VelaMask *>()->palette().color(QPalette::Window);
            auto *sheet = window.findChild<VelaMessageSheet *>();
            const QPoint margin(expectedPixels(30), expectedPixels(30)); // wider than the shadow
            bodyColor = paintedColor(sheet, sheet->rect().bottomRight() - margin);
            sheet->done(QMessageBox::Ok);
        });
        showInfoMsg(QStringLiteral("title"), QStringLiteral("text"), &window);
        QCOMPARE(maskColor, QColor(0x11, 0x22, 0x33, 0x80));
        QCOMPARE(bodyColor, QColor(0x44, 0x55, 0x66));
    }

    void aBoxWithoutAWindowFollows()
    {
        load(Light, English);
        bool hasRun = false;
        QTimer::singleShot(0, this, [&hasRun] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            QVERIFY(box);
            load(Dark, German);
            QCOMPARE(box->styleSheet(), getStyleSheet("component.confirm_message_box", false));
            QCOMPARE(box->button(QMessageBox::Ok)->text(), QStringLiteral("Keep"));
            QCOMPARE(box->button(QMessageBox::Cancel)->text(), QStringLiteral("Abbrechen"));
            QCOMPARE(box->button(QMessageBox::Cancel)->styleSheet(), getStyleSheet("component.cancel_button", false));
            hasRun = true;
            box->close();
        });
        showConfirmMsgCustomBtn(QStringLiteral("title"), QStringLiteral("text"),
                                MsgBoxCustomBtnText(QStringLiteral("Keep"), QString()), nullptr);
        QVERIFY(hasRun);
    }

    void anApplicationsWidgetsAreToldOfTheLanguage_data()
    {
        QTest::addColumn<bool>("isOtherLanguage");
        QTest::newRow("another language") << true;
        QTest::newRow("another palette only") << false;
    }

    void anApplicationsWidgetsAreToldOfTheLanguage()
    {
        QFETCH(bool, isOtherLanguage);
        load(Light, English);
        QWidget window;
        auto *child = new QWidget(new QWidget(&window));
        EventCounter events(child, QEvent::LanguageChange);
        bool isToldBefore = true;
        const auto connection =
            connect(VelaTheme::getInstance(), &VelaTheme::changed, this, [&] { isToldBefore = events.take() == 1; });
        load(Dark, isOtherLanguage ? German : English);
        disconnect(connection);
        QCOMPARE(isToldBefore, isOtherLanguage);
        QCOMPARE(events.take(), 0);
    }

    void anotherLanguageAloneStylesNothingAnew()
    {
        load(Light, English);
        AllWidgets widgets;
        std::vector<std::unique_ptr<EventCounter>> counters;
        const QList<QWidget *> all = widgets.findChildren<QWidget *>();
        for (QWidget *widget : all) {
            counters.push_back(std::make_unique<EventCounter>(widget, QEvent::StyleChange));
        }
        QVERIFY(VelaTheme::getInstance()->setLanguage(German).isEmpty());
        for (const auto &counter : counters) {
            QCOMPARE(counter->take(), 0);
        }
    }

    void anotherLanguageLeavesTheCaptionsOfAnApplication()
    {
        class Sheet : public VelaSheet
        {
        public:
            using VelaSheet::VelaSheet;
            void showSheet() override { }
        };
        load(Light, English);
        QWidget window;
        Sheet sheet(&window);
        QMessageBox styled(&window);
        styled.setStyleSheet(QStringLiteral("QLabel { margin: 0px }"));
        const QString caption = QStringLiteral("Keep it");
        QPushButton *ofSheet = (new QDialogButtonBox(QDialogButtonBox::Save, &sheet))->button(QDialogButtonBox::Save);
        QPushButton *ofBox = styled.addButton(QMessageBox::Help);
        ofSheet->setText(caption);
        ofBox->setText(caption);
        QVERIFY(VelaTheme::getInstance()->setLanguage(German).isEmpty());
        QCOMPARE(ofSheet->text(), caption);
        QCOMPARE(ofBox->text(), caption);
    }

    void thePointerSaysThatTheApplicationIsBusy()
    {
        class Label : public VelaLabel
        {
        public:
            Qt::CursorShape shape = Qt::ArrowCursor;

        protected:
            void changeEvent(QEvent *event) override
            {
                if (event->type() == QEvent::StyleChange && QApplication::overrideCursor()) {
                    shape = QApplication::overrideCursor()->shape();
                }
                VelaLabel::changeEvent(event);
            }
        };
        load(Light, English);
        Label label;
        label.ensurePolished();
        load(Dark, English);
        QCOMPARE(label.shape, Qt::WaitCursor);
        QVERIFY(!QApplication::overrideCursor());
    }

    // As a whole, which spares the window a list of those that are to be painted.
    void everyWidgetInViewIsPainted_data()
    {
        QTest::addColumn<QString>("palette");
        QTest::addColumn<QString>("language");

        QTest::newRow("palette") << Dark << English;
        QTest::newRow("language") << Light << German;
    }

    void everyWidgetInViewIsPainted()
    {
        QFETCH(QString, palette);
        QFETCH(QString, language);
        load(Light, English);
        auto *column = new QWidget;
        auto *rows = new QVBoxLayout(column);
        const std::array<QWidget *, 4> widgets {new VelaLabel(QStringLiteral("Text")), new VelaLineEdit,
                                                new VelaButton(QStringLiteral("Save"), VelaButton::ApplyButton),
                                                new QWidget};
        for (QWidget *widget : widgets) {
            widget->setMinimumSize(20, 20);
            rows->addWidget(widget);
        }
        Window window(column);
        QVERIFY(window.showAndWait());
        QTRY_VERIFY(widgets.back()->isVisible());
        QCoreApplication::processEvents();
        std::vector<std::unique_ptr<EventCounter>> counters;
        counters.reserve(widgets.size());
        for (QWidget *widget : widgets) {
            counters.push_back(std::make_unique<EventCounter>(widget, QEvent::Paint));
        }
        load(palette, language);
        for (std::size_t i = 0; i < widgets.size(); ++i) {
            int paints = 0;
            QTRY_VERIFY2((paints += counters[i]->take()) > 0, widgets[i]->metaObject()->className());
        }
    }

    void updatesThatAreOffStayOff()
    {
        class Maker : public VelaLabel
        {
        public:
            QPointer<QWidget> made;

        protected:
            void changeEvent(QEvent *event) override
            {
                if (event->type() == QEvent::StyleChange && !made) {
                    made = new QWidget(parentWidget());
                }
                VelaLabel::changeEvent(event);
            }
        };
        load(Light, English);
        auto *column = new QWidget;
        auto *still = new QWidget(column);
        auto *inStill = new QWidget(still);
        auto *maker = new Maker;
        maker->setParent(column);
        Window window(column);
        QWidget stillWindow;
        auto *inStillWindow = new VelaLabel(QStringLiteral("Text"));
        inStillWindow->setParent(&stillWindow);
        stillWindow.show();
        QVERIFY(window.showAndWait());
        still->setUpdatesEnabled(false);
        stillWindow.setUpdatesEnabled(false);
        delete maker->made;

        load(Dark, English);
        QVERIFY(maker->made);
        for (const QWidget *widget :
             {static_cast<QWidget *>(&window), column, static_cast<QWidget *>(maker), maker->made.data()}) {
            QVERIFY(widget->updatesEnabled());
        }
        for (const QWidget *widget : {still, inStill, &stillWindow, static_cast<QWidget *>(inStillWindow)}) {
            QVERIFY(!widget->updatesEnabled());
        }
        stillWindow.setUpdatesEnabled(true);
        still->setUpdatesEnabled(true);
        QVERIFY(inStillWindow->updatesEnabled() && inStill->updatesEnabled());
    }

    // As applications do that change much of a window at once.
    void updatesMayBeSwitchedMeanwhile()
    {
        class Switcher : public VelaLabel
        {
        protected:
            void changeEvent(QEvent *event) override
            {
                if (event->type() == QEvent::LanguageChange) {
                    for (QWidget *widget : {static_cast<QWidget *>(this), parentWidget()}) {
                        widget->setUpdatesEnabled(false);
                        widget->setUpdatesEnabled(true);
                    }
                }
                VelaLabel::changeEvent(event);
            }
        };
        load(Light, English);
        auto *column = new QWidget;
        auto *switcher = new Switcher;
        switcher->setParent(column);
        auto *beside = new QWidget(column);
        Window window(column);
        QVERIFY(window.showAndWait());
        load(Dark, German);
        for (const QWidget *widget :
             {static_cast<QWidget *>(&window), column, static_cast<QWidget *>(switcher), beside}) {
            QVERIFY(widget->updatesEnabled());
        }
    }

    // Widgets of the application may go, with their children, while they are told.
    void widgetsMayBeDeletedMeanwhile()
    {
        class Deleter : public VelaLabel
        {
        public:
            QPointer<QWidget> victim;

        protected:
            void changeEvent(QEvent *event) override
            {
                if (event->type() == QEvent::StyleChange) {
                    delete victim;
                }
                VelaLabel::changeEvent(event);
            }
        };
        load(Light, English);
        QWidget window;
        auto *first = new Deleter;
        first->setParent(&window);
        first->ensurePolished();
        auto *second = new QWidget(&window);
        for (int i = 0; i < 10; ++i) {
            new VelaLabel(second);
        }
        first->victim = second;
        load(Dark, English);
        QVERIFY(!first->victim);
    }

    void imagesOfSheetsAreReadAnew()
    {
        const ThemeCopy copy;
        QVERIFY(VelaTheme::getInstance()->load(copy.path(), English).isEmpty());
        VelaLineEdit edit;
        edit.setError(true);
        edit.resize(200, 40);
        const QImage former = edit.grab().toImage();
        writeImage(copy.filePath(QStringLiteral("images/field_error.png")), Qt::green);
        QVERIFY(VelaTheme::getInstance()->reload().isEmpty());
        QVERIFY(edit.grab().toImage() != former);
    }

    // The toolkit keeps images by the name, size and time of their files.
    void imagesThatLookUnchangedFromOutsideAreReadAnew()
    {
        const ThemeCopy copy;
        const QString image = copy.filePath(QStringLiteral("images/own.png"));
        const QDateTime time(QDate(2026, 1, 1), QTime(12, 0));
        copy.write(QStringLiteral("styles/own.qss"),
                   "== component.apply_button ==\nQPushButton { border-image: url(\"IMG_LOC/own.png\"); }\n");
        writeImage(image, Qt::red, time);
        const qint64 size = QFileInfo(image).size();
        QVERIFY(VelaTheme::getInstance()->load(copy.path(), English).isEmpty());
        VelaButton button(QString(), VelaButton::ApplyButton);
        QCOMPARE(button.grab().toImage().pixelColor(5, 5), QColor(Qt::red));

        writeImage(image, Qt::blue, time);
        QCOMPARE(QFileInfo(image).size(), size);
        QVERIFY(VelaTheme::getInstance()->reload().isEmpty());
        QCOMPARE(button.grab().toImage().pixelColor(5, 5), QColor(Qt::blue));
    }

    void theLimitOfTheToolkitsPixmapCacheStays()
    {
        const int limit = QPixmapCache::cacheLimit();
        QPixmapCache::setCacheLimit(limit + 1);
        load(Dark, English);
        QCOMPARE(QPixmapCache::cacheLimit(), limit + 1);
        QPixmapCache::setCacheLimit(limit);
    }

private:
    const OwnDataFolder m_dataFolder;
};

QTEST_MAIN(VelaThemeChangeTest)

#include "tst_vela_theme_change.moc"
