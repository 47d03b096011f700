// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "support/controls.h"
#include "support/environment.h"
#include "support/log-capture.h"
#include "support/resource-folder.h"
#include "views/tree-test.h"

#include <QIconEngine>
#include <QLineEdit>
#include <QPainter>
#include <QPointer>
#include <QProxyStyle>
#include <QSpinBox>
#include <QStandardItemModel>
#include <QValidator>
#include <QtTest>

namespace {

const char TreeItemSheet[] = "QLineEdit { background: yellow; padding: 2px }";
const QString ForbiddenCharacters = QStringLiteral("\\/:*?\"<>|");

// The members that only views call.
class OpenDelegate : public ItemDelegate
{
public:
    using ItemDelegate::drawCheck;
    using ItemDelegate::drawDisplay;
    using ItemDelegate::eventFilter;
};

// A delegate that keeps the check rectangles it was asked to draw.
class CheckRecorder : public ItemDelegate
{
public:
    mutable QVector<QRect> rects;

protected:
    void drawCheck(QPainter *painter, const QStyleOptionViewItem &option, const QRect &rect,
                   Qt::CheckState state) const override
    {
        rects.append(rect);
        ItemDelegate::drawCheck(painter, option, rect, state);
    }
};

class OpenBase : public QItemDelegate
{
public:
    using QItemDelegate::drawDisplay;
};

template<typename Delegate>
QImage drawnText(const Delegate &delegate, const QStyleOptionViewItem &option, const QRect &rect, const QString &text)
{
    QImage image(200, 60, QImage::Format_RGB32);
    image.fill(Ground);
    QPainter painter(&image);
    delegate.drawDisplay(&painter, option, rect, text);
    painter.drawText(rect.bottomLeft(), QStringLiteral("after")); // drawn by the pen that is left
    return image;
}

// A row, painted twice, as texts are kept from the first time.
QVector<QImage> drawnRow(const QItemDelegate &delegate, const QStyleOptionViewItem &option, const QModelIndex &index)
{
    QVector<QImage> images;
    for (int i = 0; i < 2; ++i) {
        QImage image(200, 60, QImage::Format_RGB32);
        image.fill(Ground);
        QPainter painter(&image);
        delegate.paint(&painter, option, index);
        painter.drawText(option.rect.bottomLeft(), QStringLiteral("after"));
        painter.end();
        images.append(image);
    }
    return images;
}

// The toolkit's style, with another margin beside texts.
class WideStyle : public QProxyStyle
{
public:
    int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override
    {
        return metric == PM_FocusFrameHMargin ? 9 : QProxyStyle::pixelMetric(metric, option, widget);
    }
};

} // namespace

class ItemDelegateTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void theCheckRectangleIsNullAtFirst();
    void aMissingSheetIsLoggedByTheEditor();
    void theDelegateDeclaresItsSignalAndHasNoParent();

    void rowsAreOfAFixedHeight_data();
    void rowsAreOfAFixedHeight();
    void theEditorIsSetUpForFolderNames();
    void everyCallMakesANewValidator();
    void validatorsGoWithTheirEditor();
    void anEditorOfAnotherKindGetsItsDataOnly();
    void namesAreCheckedAsTheyAreTyped_data();
    void namesAreCheckedAsTheyAreTyped();
    void aPastedNameIsTakenOrRefusedAsAWhole();
    void aFolderIsRenamedByTheKeyboard();
    void typingReplacesTheOldName();
    void anEmptyNameIsNotTaken();
    void escapeIsToldOfAndClosesTheEditor();
    void otherKeysInTheEditorAreNotToldOf();
    void onlyPressesOfEscapeAreToldOf();
    void theViewMayGoAsEscapeIsToldOf();

    void theLastCheckDrawnIsPublished();
    void theDrawnCheckShowsItsState();
    void aClickIntoTheCheckRectangleChecksTheRow();
    void allDelegatesShareTheCheckRectangle();

    void textsAreDrawnAsByTheBase_data();
    void textsAreDrawnAsByTheBase();
    void aRowWithoutACheckPublishesNone();
    void rowsAreDrawnAsByTheBase_data();
    void rowsAreDrawnAsByTheBase();
    void anIconIsDrawnInItsOwnRowAlone();

private:
    ResourceFolder m_folder;
    QRect m_firstCheckRect;
    QStringList m_loggedWithoutSheet;
};

void ItemDelegateTest::initTestCase()
{
    m_firstCheckRect = g_check_rect;
    qRegisterMetaType<QKeyEvent *>("QKeyEvent*"); // spies ask for it by name

    LogCapture log;
    QLineEdit editor;
    const QTreeWidget tree;
    ItemDelegate().setEditorData(&editor, tree.model()->index(0, 0));
    m_loggedWithoutSheet = log.takeTexts();

    installSheets(m_folder, QByteArray("== component.tree_item ==\n") + TreeItemSheet + '\n');
}

void ItemDelegateTest::theCheckRectangleIsNullAtFirst()
{
    QVERIFY(m_firstCheckRect.isNull());
    QCOMPARE(m_firstCheckRect.topLeft(), QPoint(0, 0));
    QCOMPARE(m_firstCheckRect.bottomRight(), QPoint(-1, -1));
}

void ItemDelegateTest::aMissingSheetIsLoggedByTheEditor()
{
    QCOMPARE(m_loggedWithoutSheet, QStringList(QStringLiteral("Cannot find stylesheet \"component.tree_item\"")));
}

void ItemDelegateTest::theDelegateDeclaresItsSignalAndHasNoParent()
{
    QCOMPARE(ownDeclarations(ItemDelegate::staticMetaObject), QStringList(QStringLiteral("sigKeyPressed(QKeyEvent*)")));
    QVERIFY(!ItemDelegate().parent());
}

void ItemDelegateTest::rowsAreOfAFixedHeight_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("pixelSize");
    QTest::newRow("no text") << QString() << 12;
    QTest::newRow("short") << QStringLiteral("a") << 12;
    QTest::newRow("long") << QString(200, QLatin1Char('m')) << 12;
    QTest::newRow("two lines") << QStringLiteral("one\ntwo") << 12;
    QTest::newRow("large") << QStringLiteral("a") << 90;
}

void ItemDelegateTest::rowsAreOfAFixedHeight()
{
    QFETCH(const QString, text);
    QFETCH(const int, pixelSize);
    PlainTree tree;
    QTreeWidgetItem *item = tree.topLevelItem(0);
    item->setText(0, text);
    QStyleOptionViewItem option;
    option.font.setPixelSize(pixelSize);
    option.fontMetrics = QFontMetrics(option.font);
    const QModelIndex index = tree.model()->index(0, 0);
    const QSize hint = tree.itemDelegate()->sizeHint(option, index);
    QCOMPARE(hint, QSize(QItemDelegate().sizeHint(option, index).width(), expectedPixels(28)));
    QVERIFY(tree.showAndWait());
    QCOMPARE(tree.visualItemRect(item).height(), expectedPixels(28));
}

void ItemDelegateTest::theEditorIsSetUpForFolderNames()
{
    Shown<FolderWindow> window;
    QLineEdit *editor = window.startRenaming();
    QVERIFY(editor);
    QVERIFY(editor->hasFocus());
    QCOMPARE(editor->text(), QStringLiteral("Documents"));
    QCOMPARE(editor->selectedText(), QStringLiteral("Documents"));
    QCOMPARE(editor->styleSheet().trimmed(),
             QString::fromLatin1(TreeItemSheet)
                 .replace(QLatin1String("2px"), QStringLiteral("%1px").arg(expectedPixels(2))));
    const auto *validator = qobject_cast<const QRegExpValidator *>(editor->validator());
    QVERIFY(validator);
    QVERIFY(!validator->parent());
    QCOMPARE(validator->regExp().pattern(), QStringLiteral(R"(^[^\.\\\/:*?"<>|][^\\\/:*?"<>|]*)"));
    QCOMPARE(validator->regExp().caseSensitivity(), Qt::CaseSensitive);
    QCOMPARE(validator->regExp().patternSyntax(), QRegExp::RegExp);

    QLineEdit withFocusRect;
    withFocusRect.setAttribute(Qt::WA_MacShowFocusRect);
    window.delegate.setEditorData(&withFocusRect, window.tree->model()->index(0, 0));
    QVERIFY(!withFocusRect.testAttribute(Qt::WA_MacShowFocusRect));
}

void ItemDelegateTest::everyCallMakesANewValidator()
{
    Shown<FolderWindow> window;
    QLineEdit *editor = window.startRenaming();
    QVERIFY(editor);
    const QPointer<const QValidator> first = editor->validator();
    window.tree->topLevelItem(0)->setText(0, QStringLiteral("Papers")); // is shown in the editor at once
    QCOMPARE(editor->text(), QStringLiteral("Papers"));
    QVERIFY(editor->validator());
    QVERIFY(editor->validator() != first);
}

void ItemDelegateTest::validatorsGoWithTheirEditor()
{
    const PlainTree tree(1);
    const ItemDelegate delegate;
    auto *editor = new QLineEdit;
    QVector<QPointer<const QValidator>> validators;
    for (int i = 0; i < 3; ++i) {
        delegate.setEditorData(editor, tree.model()->index(0, 0));
        validators.append(editor->validator());
        QVERIFY(validators.last());
    }
    delete editor;
    for (const QPointer<const QValidator> &validator : qAsConst(validators)) {
        QVERIFY(!validator);
    }
}

void ItemDelegateTest::anEditorOfAnotherKindGetsItsDataOnly()
{
    const PlainTree tree(1);
    tree.topLevelItem(0)->setData(0, Qt::EditRole, 42);
    QSpinBox editor;
    ItemDelegate().setEditorData(&editor, tree.model()->index(0, 0));
    QCOMPARE(editor.value(), 42);
    QVERIFY(editor.styleSheet().isEmpty());
}

void ItemDelegateTest::namesAreCheckedAsTheyAreTyped_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("taken");
    QTest::newRow("letters and digits") << QStringLiteral("Photos2026") << QStringLiteral("Photos2026");
    QTest::newRow("blanks") << QStringLiteral(" a b ") << QStringLiteral(" a b ");
    QTest::newRow("a dot inside") << QStringLiteral("a.x") << QStringLiteral("a.x");
    QTest::newRow("dots at the end") << QStringLiteral("a..") << QStringLiteral("a..");
    QTest::newRow("a dot in front") << QStringLiteral(".x") << QStringLiteral("x");
    QTest::newRow("dots in front") << QStringLiteral("..x.y") << QStringLiteral("x.y");
    QTest::newRow("other marks") << QStringLiteral("-_!#$%&'()+,;=@[]^`{}~")
                                 << QStringLiteral("-_!#$%&'()+,;=@[]^`{}~");
    for (const QChar character : ForbiddenCharacters) {
        QTest::addRow("%c in front", character.toLatin1()) << character + QStringLiteral("ab") << QStringLiteral("ab");
        QTest::addRow("%c inside", character.toLatin1())
            << QStringLiteral("a") + character + QStringLiteral("b") << QStringLiteral("ab");
        QTest::addRow("%c at the end", character.toLatin1())
            << QStringLiteral("ab") + character << QStringLiteral("ab");
    }
}

void ItemDelegateTest::namesAreCheckedAsTheyAreTyped()
{
    QFETCH(const QString, typed);
    QFETCH(const QString, taken);
    Shown<FolderWindow> window;
    QLineEdit *editor = window.startRenaming();
    QVERIFY(editor);
    editor->clear();
    QTest::keyClicks(editor, typed);
    QCOMPARE(editor->text(), taken);
}

void ItemDelegateTest::aPastedNameIsTakenOrRefusedAsAWhole()
{
    Shown<FolderWindow> window;
    QLineEdit *editor = window.startRenaming();
    QVERIFY(editor);
    for (const QString &refused : {QStringLiteral("a/b"), QStringLiteral(".ab"), QStringLiteral("ab?")}) {
        editor->clear();
        editor->insert(refused);
        QCOMPARE(editor->text(), QString());
    }
    const QString taken = QString::fromUtf8("Größe – 大小.x");
    editor->insert(taken);
    QCOMPARE(editor->text(), taken);
}

void ItemDelegateTest::aFolderIsRenamedByTheKeyboard()
{
    Shown<FolderWindow> window;
    QLineEdit *editor = window.startRenaming();
    QVERIFY(editor);
    QSignalSpy spy(window.tree, &QTreeWidget::itemChanged);
    window.key(Qt::Key_End);
    window.type(QStringLiteral(" 2"));
    window.key(Qt::Key_Return);
    QTRY_VERIFY(!window.editor());
    QCOMPARE(window.tree->topLevelItem(0)->text(0), QStringLiteral("Documents 2"));
    QCOMPARE(spy.count(), 1);
}

void ItemDelegateTest::typingReplacesTheOldName()
{
    Shown<FolderWindow> window;
    QVERIFY(window.startRenaming());
    window.type(QStringLiteral("Papers"));
    window.key(Qt::Key_Return);
    QTRY_COMPARE(window.tree->topLevelItem(0)->text(0), QStringLiteral("Papers"));
}

void ItemDelegateTest::anEmptyNameIsNotTaken()
{
    Shown<FolderWindow> window;
    QVERIFY(window.startRenaming());
    window.key(Qt::Key_Delete);
    QCOMPARE(window.editor()->text(), QString());
    window.key(Qt::Key_Return);
    QCoreApplication::processEvents();
    QVERIFY(window.editor());
    QCOMPARE(window.tree->topLevelItem(0)->text(0), QStringLiteral("Documents"));
}

void ItemDelegateTest::escapeIsToldOfAndClosesTheEditor()
{
    Shown<FolderWindow> window;
    QVERIFY(window.startRenaming());
    QVector<int> keys;
    bool wasOpen = false;
    connect(&window.delegate, &ItemDelegate::sigKeyPressed, this, [&](QKeyEvent *event) {
        keys.append(event->key());
        wasOpen = window.editor();
    });
    window.type(QStringLiteral("Papers"));
    QVERIFY(keys.isEmpty());
    window.key(Qt::Key_Escape);
    QCOMPARE(keys, QVector<int> {Qt::Key_Escape});
    QVERIFY(wasOpen);
    QTRY_VERIFY(!window.editor());
    QCOMPARE(window.tree->topLevelItem(0)->text(0), QStringLiteral("Documents"));
}

void ItemDelegateTest::otherKeysInTheEditorAreNotToldOf()
{
    Shown<FolderWindow> window;
    QVERIFY(window.startRenaming());
    QSignalSpy spy(&window.delegate, &ItemDelegate::sigKeyPressed);
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_Home, Qt::Key_Backspace, Qt::Key_F2, Qt::Key_Return}) {
        window.key(key);
    }
    QTRY_VERIFY(!window.editor());
    QCOMPARE(spy.count(), 0);
}

void ItemDelegateTest::onlyPressesOfEscapeAreToldOf()
{
    OpenDelegate delegate;
    QItemDelegate base;
    QLineEdit editor;
    QSignalSpy spy(&delegate, &ItemDelegate::sigKeyPressed);
    for (const QEvent::Type type : {QEvent::ShortcutOverride, QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, Qt::Key_Escape, Qt::NoModifier);
        QKeyEvent sameEvent(type, Qt::Key_Escape, Qt::NoModifier);
        const bool isSwallowed = delegate.eventFilter(&editor, &event);
        QCOMPARE(isSwallowed, static_cast<QObject &>(base).eventFilter(&editor, &sameEvent));
        QCOMPARE(spy.count(), type == QEvent::KeyRelease || type == QEvent::KeyPress ? 1 : 0);
    }
}

void ItemDelegateTest::theLastCheckDrawnIsPublished()
{
    PlainTree tree;
    CheckRecorder recorder;
    tree.setItemDelegate(&recorder);
    for (int i = 0; i < tree.topLevelItemCount(); ++i) {
        tree.topLevelItem(i)->setCheckState(0, Qt::Checked);
    }
    QVERIFY(tree.showAndWait());
    recorder.rects.clear();
    tree.painted();
    QCOMPARE(recorder.rects.size(), tree.topLevelItemCount());
    QVERIFY(tree.rowRect(5).contains(recorder.rects.last()));
    QVERIFY(g_check_rect.isValid());
    QCOMPARE(g_check_rect, recorder.rects.last());

    tree.topLevelItem(5)->setData(0, Qt::CheckStateRole, QVariant());
    tree.painted();
    QVERIFY(!g_check_rect.isValid()); // the last row has none
    tree.setItemDelegate(nullptr);
}

void ItemDelegateTest::theDrawnCheckShowsItsState()
{
    Shown<PlainTree> tree(1);
    tree.leaveBehind();
    QTreeWidgetItem *item = tree.topLevelItem(0);
    item->setCheckState(0, Qt::Checked);
    const QImage checked = tree.painted();
    item->setCheckState(0, Qt::Unchecked);
    const QImage unchecked = tree.painted();
    QVERIFY(g_check_rect.isValid());
    QRect differing;
    for (int y = 0; y < checked.height(); ++y) {
        for (int x = 0; x < checked.width(); ++x) {
            if (checked.pixel(x, y) != unchecked.pixel(x, y)) {
                differing |= QRect(x, y, 1, 1);
            }
        }
    }
    QVERIFY(differing.isValid());
    const QRect check(g_check_rect.topLeft() * expectedRatio(), g_check_rect.size() * expectedRatio());
    QVERIFY(check.contains(differing));
}

void ItemDelegateTest::aClickIntoTheCheckRectangleChecksTheRow()
{
    Shown<FolderWindow> window;
    QTreeWidgetItem *first = window.tree->topLevelItem(0);
    QTreeWidgetItem *last = window.tree->topLevelItem(1);
    first->setCheckState(0, Qt::Unchecked);
    last->setCheckState(0, Qt::Unchecked);
    window.tree->viewport()->grab();
    QTest::mouseClick(window.tree->viewport(), Qt::LeftButton, {}, g_check_rect.center());
    QCOMPARE(first->checkState(0), Qt::Unchecked);
    QCOMPARE(last->checkState(0), Qt::Checked);
}

void ItemDelegateTest::allDelegatesShareTheCheckRectangle()
{
    QImage image(100, 100, QImage::Format_RGB32);
    QPainter painter(&image);
    const OpenDelegate one;
    const OpenDelegate other;
    one.drawCheck(&painter, QStyleOptionViewItem(), QRect(1, 2, 13, 14), Qt::Checked);
    QCOMPARE(g_check_rect, QRect(1, 2, 13, 14));
    other.drawCheck(&painter, QStyleOptionViewItem(), QRect(30, 40, 15, 16), Qt::PartiallyChecked);
    QCOMPARE(g_check_rect, QRect(30, 40, 15, 16));
    one.drawCheck(&painter, QStyleOptionViewItem(), QRect(), Qt::Unchecked);
    QCOMPARE(g_check_rect, QRect());
}

void ItemDelegateTest::textsAreDrawnAsByTheBase_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("short") << QStringLiteral("Folder 1");
    QTest::newRow("too long") << QString(QStringLiteral("folder ")).repeated(20);
    QTest::newRow("far too long") << QString(QStringLiteral("folder ")).repeated(300);
    QTest::newRow("two lines") << QStringLiteral("one\ntwo");
    QTest::newRow("line separator") << QStringLiteral("one\u2028two");
    QTest::newRow("line separator at the end") << QStringLiteral("one\u2028");
    QTest::newRow("paragraph separator") << QStringLiteral("one\u2029two");
    QTest::newRow("tab and carriage return") << QStringLiteral("a\tb\rc");
    QTest::newRow("right to left") << QStringLiteral("abc \u05d0\u05d1\u05d2 12");
    QTest::newRow("marks") << QStringLiteral("A\u030a\u0301\u0302e\u0323");
}

void ItemDelegateTest::textsAreDrawnAsByTheBase()
{
    QFETCH(const QString, text);
    const OpenDelegate delegate;
    const OpenBase base;
    QWidget widget;
    QStyleOptionViewItem option;
    QFont tall;
    tall.setPixelSize(40);
    QFont bold;
    bold.setBold(true);
    bold.setUnderline(true);
    option.palette.setColor(QPalette::Normal, QPalette::Text, Qt::red);
    option.palette.setColor(QPalette::Inactive, QPalette::Text, Qt::green);
    option.palette.setColor(QPalette::Disabled, QPalette::Text, Qt::cyan);
    QRect rect;
    const auto compare = [&] {
        option.fontMetrics = QFontMetrics(option.font);
        const QImage expected = drawnText(base, option, rect, text);
        QCOMPARE(drawnText(delegate, option, rect, text), expected);
        QCOMPARE(drawnText(delegate, option, rect, text), expected); // the text as it is kept
    };
    const QVector<QStyle::State> states {QStyle::State_None,
                                         QStyle::State_Active,
                                         QStyle::State_Enabled | QStyle::State_Selected,
                                         QStyle::State_Enabled | QStyle::State_Editing,
                                         QStyle::State_Enabled,
                                         QStyle::State_Enabled | QStyle::State_Active};
    const QVector<Qt::Alignment> alignments {
        Qt::AlignLeft | Qt::AlignVCenter, Qt::AlignRight, Qt::AlignHCenter | Qt::AlignBottom, Qt::AlignJustify, {}};
    for (const QRect &place : {QRect(10, 5, 180, 28), QRect(10, 5, 180, 50), QRect(0, 0, 60, 12), QRect(5, 5, 3, 20)}) {
        rect = place;
        option.widget = option.widget ? nullptr : &widget;
        for (const QStyle::State &state : states) {
            option.state = state;
            compare();
        }
        for (const Qt::LayoutDirection direction : {Qt::RightToLeft, Qt::LeftToRight}) {
            option.direction = direction;
            for (const Qt::Alignment &alignment : alignments) {
                option.displayAlignment = alignment;
                for (const QFont &font : {QFont(), tall, bold, QFont()}) {
                    option.font = font;
                    compare();
                }
            }
        }
        for (const auto feature : {QStyleOptionViewItem::WrapText, QStyleOptionViewItem::None}) {
            option.features = feature;
            compare();
        }
    }
}

void ItemDelegateTest::aRowWithoutACheckPublishesNone()
{
    QStandardItemModel model;
    model.appendRow(new QStandardItem(QStringLiteral("Folder 1")));
    const CheckRecorder delegate;
    QStyleOptionViewItem option;
    option.rect = QRect(10, 5, 180, 28);
    g_check_rect = option.rect;
    drawnRow(delegate, option, model.index(0, 0));
    QCOMPARE(delegate.rects, QVector<QRect>(2));
    QCOMPARE(g_check_rect, QRect());
}

void ItemDelegateTest::rowsAreDrawnAsByTheBase_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<int>("role");
    QTest::addColumn<QVariant>("roleValue");
    const QVariant text = QStringLiteral("Folder 1");
    QFont tall;
    tall.setPixelSize(20);
    QTest::newRow("text") << text << int(Qt::UserRole) << QVariant();
    QTest::newRow("too long") << QVariant(QString(QStringLiteral("folder ")).repeated(20)) << int(Qt::UserRole)
                              << QVariant();
    QTest::newRow("two lines") << QVariant(QStringLiteral("one\ntwo")) << int(Qt::UserRole) << QVariant();
    QTest::newRow("no text") << QVariant() << int(Qt::UserRole) << QVariant();
    QTest::newRow("empty text") << QVariant(QStringLiteral("")) << int(Qt::UserRole) << QVariant();
    QTest::newRow("number") << QVariant(1234.5) << int(Qt::UserRole) << QVariant();
    QTest::newRow("date") << QVariant(QDate(2026, 11, 22)) << int(Qt::UserRole) << QVariant();
    QTest::newRow("font") << text << int(Qt::FontRole) << QVariant(tall);
    QTest::newRow("alignment") << text << int(Qt::TextAlignmentRole) << QVariant(Qt::AlignRight | Qt::AlignBottom);
    QTest::newRow("foreground") << text << int(Qt::ForegroundRole) << QVariant(QBrush(Qt::red));
    QTest::newRow("background") << text << int(Qt::BackgroundRole) << QVariant(QBrush(Qt::green));
    QTest::newRow("icon") << text << int(Qt::DecorationRole) << QVariant(QColor(Qt::blue));
    QTest::newRow("checked") << text << int(Qt::CheckStateRole) << QVariant(Qt::Checked);
    QTest::newRow("unchecked") << text << int(Qt::CheckStateRole) << QVariant(Qt::Unchecked);
}

void ItemDelegateTest::rowsAreDrawnAsByTheBase()
{
    QFETCH(const QVariant, value);
    QFETCH(const int, role);
    QFETCH(const QVariant, roleValue);
    QStandardItemModel model(1, 1);
    const QModelIndex index = model.index(0, 0);
    QVERIFY(model.setData(index, value, Qt::DisplayRole));
    QVERIFY(model.setData(index, roleValue, role));
    ItemDelegate delegate;
    QItemDelegate base;
    QWidget widget;
    QStyleOptionViewItem plain;
    plain.widget = &widget;
    plain.decorationSize = QSize(16, 16);
    plain.state =
        QStyle::State_Enabled | QStyle::State_Active | QStyle::State_HasFocus; // whose frame shows the text's room
    plain.displayAlignment = Qt::AlignLeft | Qt::AlignVCenter;
    QVector<QStyleOptionViewItem> options(8, plain);
    options[1].state = QStyle::State_None;
    options[2].state |= QStyle::State_Selected;
    options[3].state &= ~QStyle::State_HasFocus;
    options[4].showDecorationSelected = true;
    options[5].direction = Qt::RightToLeft;
    options[6].font.setPixelSize(17);
    options[6].fontMetrics = QFontMetrics(options[6].font);
    options[7].features = QStyleOptionViewItem::WrapText;
    for (const bool isClipping : {false, true}) {
        delegate.setClipping(isClipping);
        base.setClipping(isClipping);
        for (QStyleOptionViewItem &option : options) {
            for (const QRect &place : {QRect(10, 5, 180, 28), QRect(0, 0, 60, 12)}) {
                option.rect = place;
                QCOMPARE(drawnRow(delegate, option, index), drawnRow(base, option, index));
            }
        }
    }

    QCOMPARE(drawnRow(delegate, options.first(), index), drawnRow(base, options.first(), index));
    QApplication::setStyle(new WideStyle); // which the application owns
    const QVector<QImage> images = drawnRow(delegate, options.first(), index);
    const QVector<QImage> expected = drawnRow(base, options.first(), index);
    QApplication::setStyle(QStringLiteral("fusion"));
    QCOMPARE(images, expected);
}

void ItemDelegateTest::anIconIsDrawnInItsOwnRowAlone()
{
    // Draws where it is told to, however small the room is.
    class Engine : public QIconEngine
    {
    public:
        void paint(QPainter *painter, const QRect &rect, QIcon::Mode, QIcon::State) override
        {
            painter->fillRect(QRect(rect.topLeft(), QSize(16, 16)), Qt::red);
        }
        QIconEngine *clone() const override { return new Engine(*this); }
    };
    QStandardItemModel model;
    model.appendRow(new QStandardItem(QIcon(new Engine), QStringLiteral("Folder 1")));
    model.appendRow(new QStandardItem(QStringLiteral("Folder 2")));
    model.appendRow(new QStandardItem(QStringLiteral("Folder 3")));
    const ItemDelegate delegate;
    const QItemDelegate base;
    QStyleOptionViewItem option;
    option.rect = QRect(10, 5, 180, 28);
    option.decorationSize = QSize(16, 16);
    for (const int row : {0, 1, 2, 1, 0, 2}) {
        const QModelIndex index = model.index(row, 0);
        QCOMPARE(drawnRow(delegate, option, index), drawnRow(base, option, index));
    }
}

void ItemDelegateTest::theViewMayGoAsEscapeIsToldOf()
{
    auto window = std::make_unique<QWidget>();
    auto *tree = new VelaTreeWidget(window.get());
    ItemDelegate delegate;
    tree->setItemDelegate(&delegate);
    auto *item = new QTreeWidgetItem(tree, {QStringLiteral("Documents")});
    item->setFlags(item->flags() | Qt::ItemIsEditable);
    tree->openPersistentEditor(item);
    const QPointer<QLineEdit> editor(tree->findChild<QLineEdit *>());
    QVERIFY(editor);
    connect(&delegate, &ItemDelegate::sigKeyPressed, this, [&window] { window.reset(); });
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(editor, &escape);
    QVERIFY(!window && !editor);
}

QTEST_MAIN(ItemDelegateTest)
#include "tst_item_delegate.moc"
