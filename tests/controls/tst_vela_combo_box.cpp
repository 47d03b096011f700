// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-combo-box.h"
#include "support/controls.h"
#include "support/environment.h"
#include "support/log-capture.h"
#include "support/resource-folder.h"

#include <QLineEdit>
#include <QListView>
#include <QPointer>
#include <QProcess>
#include <QScrollBar>
#include <QStringListModel>
#include <QStyledItemDelegate>
#include <QtTest>

namespace {

const QString Border = QStringLiteral("border: 1px solid #C8D2DC;");
const QString ScrollBarSheet = QStringLiteral("\nQScrollBar:vertical { width: %1px }");

constexpr double OddScale = 100.0 / 96.0; // the scale of OddDpi
const QString OddDpi = QStringLiteral("100");

const char FullTemplate[] = "QComboBox { min-width: 111px; background: yellow; combobox-popup: 0; %1\n%2 }\n"
                            "QComboBox QAbstractItemView::item { min-height: 41px; background: cyan }";

// Six logical pixels, as text.
QString expectedPad()
{
    const QMap<double, QString> known {
        {1.0, QStringLiteral("6")}, {1.25, QStringLiteral("7.5")}, {1.5, QStringLiteral("9")}};
    return known.value(expectedScale());
}

QString expectedPadding()
{
    return QStringLiteral("padding-left: %1px; \npadding-right: %1px;").arg(expectedPad());
}

QString expectedScrollBarSheet()
{
    return ScrollBarSheet.arg(expectedPixels(23));
}

QStringList letters(int count)
{
    QStringList texts;
    for (int i = 0; i < count; ++i) {
        texts.append(QStringLiteral("%1 item").arg(QChar('a' + i)));
    }
    return texts;
}

// A combo box of the toolkit with the same sheet and delegate.
std::unique_ptr<QComboBox> createPlain(QWidget *parent = nullptr)
{
    auto plain = std::make_unique<QComboBox>(parent);
    plain->setStyleSheet(VelaComboBox().styleSheet());
    plain->view()->setItemDelegate(new QStyledItemDelegate(plain.get()));
    return plain;
}

// What a combo box says of itself, in order.
class SignalRecorder : public QObject
{
public:
    explicit SignalRecorder(QComboBox *box)
    {
        const auto record = [this](const char *name) {
            return [this, name](int index) { m_log += QStringLiteral("%1 %2").arg(QLatin1String(name)).arg(index); };
        };
        connect(box, QOverload<int>::of(&QComboBox::activated), this, record("activated"));
        connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), this, record("current"));
        connect(box, QOverload<int>::of(&QComboBox::highlighted), this, record("highlighted"));
        connect(box, &QComboBox::currentTextChanged, this, [this](const QString &text) { m_log += text; });
    }

    QStringList take() { return std::exchange(m_log, {}); }

private:
    QStringList m_log;
};

} // namespace

class VelaComboBoxTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void withoutATemplateItHasTheScrollBarsSheetOnly();
    void theSheetIsAssembledToTheLetter_data();
    void theSheetIsAssembledToTheLetter();
    void thePaddingIsNotTruncated();
    void thePaddingKeepsItsDigitsAtAnOddScale();
    void allElseIsAsInItsBase();
    void itLooksLikeItsBaseWithTheSameSheet();
    void theBorderIsPainted();
    void thePaddingKeepsTheTextFromTheSides();
    void theScrollBarOfTheListFollowsItsSheet();

    void itsListHasAPlainStyledDelegateWithoutAParent();
    void eachHasADelegateOfItsOwn();
    void theDelegateOutlivesOpeningAndANewSheet();
    void theDelegateFollowsTheSheetsRulesForItems();
    void theDelegateIsDeletedWithTheBox_data();
    void theDelegateIsDeletedWithTheBox();
    void theDelegateMayBeDeletedBefore();
    void theListMayBeReplaced();

    void keysAndClicksSignalWhatTheBaseSignals();
    void aClickOpensTheListAndAClickChooses();
    void itCanBeEditable();

private:
    ResourceFolder m_folder;
};

void VelaComboBoxTest::init()
{
    installSheets(m_folder,
                  QByteArray("== component.combobox ==\n") + FullTemplate
                      + "\n== component.scrollbar ==\nQScrollBar:vertical { width: 23px }\n");
}

void VelaComboBoxTest::withoutATemplateItHasTheScrollBarsSheetOnly()
{
    installSheets(m_folder,
                  "== component.combobox ==\n== component.scrollbar ==\nQScrollBar:vertical { width: 23px }\n");
    QCOMPARE(VelaComboBox().styleSheet(), expectedScrollBarSheet());
}

void VelaComboBoxTest::theSheetIsAssembledToTheLetter_data()
{
    const QString padding = expectedPadding();
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<int>("argumentsLeftOver");
    QTest::newRow("both markers") << QStringLiteral("A { %1 } B { %2 }")
                                  << QString(QLatin1String("A { ") + padding + QLatin1String(" } B { ") + Border
                                             + QLatin1String(" }"))
                                  << 0;
    QTest::newRow("in the other order") << QStringLiteral("A { %2 } B { %1 }")
                                        << QString(QLatin1String("A { ") + Border + QLatin1String(" } B { ") + padding
                                                   + QLatin1String(" }"))
                                        << 0;
    QTest::newRow("twice each") << QStringLiteral(
        "A { %1%2%2%1 }") << QString(QLatin1String("A { ") + padding + Border + Border + padding + QLatin1String(" }"))
                                << 0;
    QTest::newRow("without %2") << QStringLiteral("A { %1 }")
                                << QString(QLatin1String("A { ") + padding + QLatin1String(" }")) << 1;
    QTest::newRow("without %1") << QStringLiteral("A { %2 }")
                                << QString(QLatin1String("A { ") + padding + QLatin1String(" }")) << 1;
    QTest::newRow("without markers") << QStringLiteral("A { color: red }") << QStringLiteral("A { color: red }") << 2;
    QTest::newRow("lengths are scaled") << QStringLiteral("A { margin: 13px; %1 %2 }")
                                        << QString(QStringLiteral("A { margin: %1px; ").arg(expectedPixels(13))
                                                   + padding + QLatin1Char(' ') + Border + QLatin1String(" }"))
                                        << 0;
}

void VelaComboBoxTest::theSheetIsAssembledToTheLetter()
{
    QFETCH(QString, pattern);
    QFETCH(QString, expected);
    QFETCH(int, argumentsLeftOver);
    installSheets(m_folder, "== component.combobox ==\n" + pattern.toUtf8() + '\n');
    LogCapture log;
    const VelaComboBox box;
    QCOMPARE(box.styleSheet(), QString(QLatin1Char('\n') + expected + expectedScrollBarSheet()));
    const QStringList logged = log.takeTexts(); // what the toolkit says of each text without a marker
    QCOMPARE(logged.filter(QStringLiteral("QString::arg: Argument missing")).size(), argumentsLeftOver);
    QCOMPARE(logged.size(), argumentsLeftOver);
}

void VelaComboBoxTest::thePaddingIsNotTruncated()
{
    const QMap<double, QString> known {
        {1.0, QStringLiteral("padding-left: 6px; \npadding-right: 6px;")},
        {OddScale, QStringLiteral("padding-left: 6.25px; \npadding-right: 6.25px;")},
        {1.25, QStringLiteral("padding-left: 7.5px; \npadding-right: 7.5px;")},
        {1.5, QStringLiteral("padding-left: 9px; \npadding-right: 9px;")},
    };
    QVERIFY(known.contains(expectedScale()));
    const VelaComboBox box;
    QVERIFY2(box.styleSheet().contains(known.value(expectedScale())), qPrintable(box.styleSheet()));
}

void VelaComboBoxTest::thePaddingKeepsItsDigitsAtAnOddScale()
{
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_FONT_DPI"), OddDpi);
    QProcess test; // the scale stays the same as long as a process runs
    test.setProcessEnvironment(environment);
    test.start(QCoreApplication::applicationFilePath(), {QStringLiteral("thePaddingIsNotTruncated")});
    QVERIFY(test.waitForFinished());
    const QByteArray output = test.readAllStandardOutput();
    QVERIFY2(test.exitStatus() == QProcess::NormalExit && test.exitCode() == 0, output.constData());
    QVERIFY2(output.contains("PASS   : VelaComboBoxTest::thePaddingIsNotTruncated()"), output.constData());
}

void VelaComboBoxTest::allElseIsAsInItsBase()
{
    QWidget parent;
    const VelaComboBox box(&parent);
    const auto plain = createPlain(&parent);
    QCOMPARE(differingProperties(QComboBox::staticMetaObject, box, *plain), QStringList());
    plain->setMaxVisibleItems(3);
    QCOMPARE(differingProperties(QComboBox::staticMetaObject, box, *plain),
             QStringList {QStringLiteral("maxVisibleItems")});
}

void VelaComboBoxTest::itLooksLikeItsBaseWithTheSameSheet()
{
    const auto grabStates = [](QComboBox *box) {
        QVector<QImage> states;
        box->addItems(letters(3));
        ControlWindow window(box);
        if (!window.showAndWait()) {
            return states;
        }
        states.append(box->grab().toImage());
        box->setCurrentIndex(2);
        states.append(box->grab().toImage());
        box->setEnabled(false);
        states.append(box->grab().toImage());
        return states;
    };
    const QVector<QImage> expected = grabStates(createPlain().release());
    const QVector<QImage> found = grabStates(new VelaComboBox);
    QCOMPARE(expected.size(), 3);
    QCOMPARE(found, expected);
    QVERIFY(found[0] != found[1]);
}

void VelaComboBoxTest::theBorderIsPainted()
{
    Shown<ControlWindow> window(new VelaComboBox);
    const QRect rect = window.control->rect();
    for (const QPoint &edge : {QPoint(0, rect.center().y()), QPoint(rect.right(), rect.center().y()),
                               QPoint(rect.center().x(), 0), QPoint(rect.center().x(), rect.bottom())}) {
        QCOMPARE(paintedColor(window.control, edge), QColor("#C8D2DC"));
    }
    QCOMPARE(paintedColor(window.control, QPoint(2, 2)), QColor(Qt::yellow));
}

void VelaComboBoxTest::thePaddingKeepsTheTextFromTheSides()
{
    Shown<ControlWindow> window(new VelaComboBox);
    auto *box = static_cast<VelaComboBox *>(window.control);
    QStyleOptionComboBox option;
    option.initFrom(box);
    const QRect field = box->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, box);
    constexpr int BorderWidth = 1;
    QCOMPARE(field.left(), BorderWidth + qRound(expectedPad().toDouble()));
}

void VelaComboBoxTest::theScrollBarOfTheListFollowsItsSheet()
{
    ControlWindow window(new VelaComboBox);
    auto *box = static_cast<VelaComboBox *>(window.control);
    box->addItems(letters(20));
    box->setMaxVisibleItems(3);
    QVERIFY(window.showAndWait());
    box->showPopup();
    QVERIFY(QTest::qWaitForWindowExposed(box->view()->window()));
    QVERIFY(box->view()->verticalScrollBar()->isVisible());
    QCOMPARE(box->view()->verticalScrollBar()->width(), expectedPixels(23));
    box->hidePopup();
}

void VelaComboBoxTest::itsListHasAPlainStyledDelegateWithoutAParent()
{
    const VelaComboBox box;
    const QAbstractItemDelegate *delegate = box.view()->itemDelegate();
    QVERIFY(delegate);
    QCOMPARE(delegate->metaObject(), &QStyledItemDelegate::staticMetaObject);
    QVERIFY(!delegate->parent());
    QCOMPARE(box.itemDelegate(), delegate);
}

void VelaComboBoxTest::eachHasADelegateOfItsOwn()
{
    const VelaComboBox first;
    const VelaComboBox second;
    QVERIFY(first.view()->itemDelegate() != second.view()->itemDelegate());
}

void VelaComboBoxTest::theDelegateOutlivesOpeningAndANewSheet()
{
    ControlWindow window(new VelaComboBox);
    auto *box = static_cast<VelaComboBox *>(window.control);
    const QAbstractItemDelegate *delegate = box->view()->itemDelegate();
    box->addItems(letters(3));
    QVERIFY(window.showAndWait());
    box->showPopup();
    QVERIFY(QTest::qWaitForWindowExposed(box->view()->window()));
    box->hidePopup();
    QCOMPARE(box->view()->itemDelegate(), delegate);
    box->setStyleSheet(QStringLiteral("QComboBox { combobox-popup: 0 }"));
    QCOMPARE(box->view()->itemDelegate(), delegate);
}

void VelaComboBoxTest::theDelegateFollowsTheSheetsRulesForItems()
{
    ControlWindow window(new VelaComboBox);
    auto *box = static_cast<VelaComboBox *>(window.control);
    box->addItems(letters(3));
    QVERIFY(window.showAndWait());
    box->showPopup();
    QVERIFY(QTest::qWaitForWindowExposed(box->view()->window()));
    const QRect item = box->view()->visualRect(box->model()->index(1, 0));
    QVERIFY(item.height() >= expectedPixels(41));
    QCOMPARE(paintedColor(box->view()->viewport(), item.center()), QColor(Qt::cyan));
    box->hidePopup();

    QComboBox plain; // a box that the rules do not reach
    plain.addItems(letters(3));
    plain.setStyleSheet(box->styleSheet());
    plain.show();
    plain.showPopup();
    QVERIFY(QTest::qWaitForWindowExposed(plain.view()->window()));
    const QRect plainItem = plain.view()->visualRect(plain.model()->index(1, 0));
    QVERIFY(plainItem.height() < expectedPixels(41));
    plain.hidePopup();
}

void VelaComboBoxTest::theDelegateIsDeletedWithTheBox_data()
{
    QTest::addColumn<bool>("isAnotherUsed");
    QTest::addColumn<bool>("isConnected");
    QTest::newRow("as it is") << false << true;
    QTest::newRow("though another is used") << true << true;
    QTest::newRow("though it has no connections left") << false << false;
}

void VelaComboBoxTest::theDelegateIsDeletedWithTheBox()
{
    QFETCH(bool, isAnotherUsed);
    QFETCH(bool, isConnected);
    auto box = std::make_unique<VelaComboBox>();
    const QPointer<QAbstractItemDelegate> delegate = box->view()->itemDelegate();
    QStyledItemDelegate other;
    if (isAnotherUsed) {
        box->view()->setItemDelegate(&other);
    }
    if (!isConnected) {
        box->disconnect();
        delegate->disconnect();
    }
    QVERIFY(delegate);
    box.reset();
    QVERIFY(!delegate);
}

void VelaComboBoxTest::theDelegateMayBeDeletedBefore()
{
    auto box = std::make_unique<VelaComboBox>();
    delete box->view()->itemDelegate();
    QVERIFY(!box->view()->itemDelegate());
    box.reset();
    QVERIFY(!box);
}

void VelaComboBoxTest::theListMayBeReplaced()
{
    auto box = std::make_unique<VelaComboBox>();
    const QPointer<QAbstractItemDelegate> delegate = box->view()->itemDelegate();
    box->setView(new QListView);
    box->addItems(letters(3));
    box->show();
    box->showPopup();
    QVERIFY(QTest::qWaitForWindowExposed(box->view()->window()));
    box->hidePopup();
    box.reset();
    QVERIFY(!delegate);
}

void VelaComboBoxTest::keysAndClicksSignalWhatTheBaseSignals()
{
    const auto record = [](QComboBox *box) {
        ControlWindow window(box);
        SignalRecorder recorder(box);
        box->addItems(letters(5));
        if (!window.showAndWait()) {
            return QStringList();
        }
        box->setFocus();
        window.key(Qt::Key_Down);
        window.key(Qt::Key_End);
        window.key(Qt::Key_Up);
        window.type(QStringLiteral("b"));
        box->setCurrentIndex(0);
        box->removeItem(0);
        box->showPopup();
        if (!QTest::qWaitForWindowExposed(box->view()->window())) {
            return QStringList();
        }
        QTest::keyClick(box->view(), Qt::Key_Down);
        QTest::keyClick(box->view(), Qt::Key_Return);
        box->showPopup();
        QTest::keyClick(box->view(), Qt::Key_Down);
        QTest::keyClick(box->view(), Qt::Key_Escape);
        box->clear();
        return recorder.take();
    };
    const QStringList expected = record(createPlain().release());
    QVERIFY(expected.size() > 10);
    QCOMPARE(record(new VelaComboBox), expected);
}

void VelaComboBoxTest::aClickOpensTheListAndAClickChooses()
{
    ControlWindow window(new VelaComboBox);
    auto *box = static_cast<VelaComboBox *>(window.control);
    box->addItems(letters(3));
    QVERIFY(window.showAndWait());
    window.click();
    QTRY_VERIFY(box->view()->isVisible());
    QVERIFY(QTest::qWaitForWindowExposed(box->view()->window()));
    QTest::qWait(QApplication::doubleClickInterval() + 100); // until then a release belongs to the click that opened it
    const QPoint item = box->view()->visualRect(box->model()->index(2, 0)).center();
    QTest::mouseMove(box->view()->viewport(), item);
    QTest::mouseClick(box->view()->viewport(), Qt::LeftButton, {}, item);
    QTRY_VERIFY(!box->view()->isVisible());
    QCOMPARE(box->currentIndex(), 2);
    QCOMPARE(box->currentText(), QStringLiteral("c item"));
}

void VelaComboBoxTest::itCanBeEditable()
{
    ControlWindow window(new VelaComboBox);
    auto *box = static_cast<VelaComboBox *>(window.control);
    box->setEditable(true);
    QVERIFY(window.showAndWait());
    box->setFocus();
    window.type(QStringLiteral("new"));
    window.key(Qt::Key_Return);
    QCOMPARE(box->currentText(), QStringLiteral("new"));
    QCOMPARE(box->count(), 1);
}

QTEST_MAIN(VelaComboBoxTest)
#include "tst_vela_combo_box.moc"
