// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "gallery-page.h"
#include "gallery-window.h"
#include "pages.h"
#include "support/environment.h"
#include "support/theme-copy.h"

#include <StyleManager>
#include <VelaButtonPath>
#include <VelaCalanderView>
#include <VelaDateSelector>
#include <VelaInputSheet>
#include <VelaMask>
#include <VelaMessageSheet>
#include <VelaPagingBar>
#include <VelaTheme>

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedPointer>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QTextDocument>
#include <QToolButton>
#include <QtTest>

#include <algorithm>

namespace {

constexpr QSize SmallWindow(1024, 768); // pixels
constexpr int UsualLetters = 10; // points
constexpr int LargeLetters = 24;
constexpr int LayoutPasses = 10;
constexpr int MostStops = 200; // of a page, far more than there are

// "large": letters of 24 points; "long": a language whose texts are twice as long as English ones; "arabic": one that
// is written from right to left.
bool isAbout(const char *subject)
{
    return qgetenv("VELA_TEST_TEXTS") == subject;
}

bool hasWords(const QString &text)
{
    return std::any_of(text.begin(), text.end(), [](QChar character) { return character.isLetter(); });
}

QString twice(const QString &text)
{
    return hasWords(text) ? QString(text + u' ' + QString(text).remove(u'&')) : text;
}

// As many words, of some Arabic sentence.
QString inArabic(const QString &text)
{
    static const QStringList arabic = QStringLiteral("\u0632\u0631 \u0627\u0644\u0646\u0635 "
                                                     "\u0627\u0644\u0639\u0631\u0628\u064A "
                                                     "\u0627\u0644\u0637\u0648\u064A\u0644")
                                          .split(u' ');
    QStringList words = text.split(u' ');
    for (int i = 0; i < words.size(); ++i) {
        words[i] = hasWords(words.at(i)) ? arabic.at(i % arabic.size()) : words.at(i);
    }
    return words.join(u' ');
}

QString translated(const QString &text)
{
    return isAbout("arabic") ? inArabic(text) : twice(text);
}

// The reference theme with another language in the place of English. Returns the words.
QStringList translate(const ThemeCopy &theme)
{
    const QString name = QStringLiteral("strings/enu.json");
    QJsonObject texts = QJsonDocument::fromJson(theme.read(name)).object();
    QStringList words;
    for (auto it = texts.begin(); it != texts.end(); ++it) {
        words.append(translated(it.value().toString()));
        it.value() = words.constLast();
    }
    theme.write(name, QJsonDocument(texts).toJson());
    return words;
}

QString plain(const QString &richText)
{
    QTextDocument document;
    document.setHtml(richText);
    return document.toPlainText();
}

void translateSheets(QWidget *page)
{
    const auto sheets = page->findChildren<VelaMessageSheet *>();
    for (VelaMessageSheet *sheet : sheets) {
        const auto labels = sheet->findChildren<MessageLabel *>(QString(), Qt::FindDirectChildrenOnly);
        sheet->setText(translated(plain(labels.constFirst()->text())));
        if (labels.size() > 1) {
            sheet->setInformativeText(translated(plain(labels.at(1)->text())));
        }
    }
    const auto inputSheets = page->findChildren<VelaInputSheet *>();
    for (VelaInputSheet *sheet : inputSheets) {
        sheet->setText(translated(plain(sheet->findChild<MessageLabel *>()->text())));
    }
}

void translatePaths(QWidget *page)
{
    const auto paths = page->findChildren<VelaButtonPath *>();
    for (VelaButtonPath *path : paths) {
        QStringList names = path->getPath(path->columnCount() - 1).split(u'/');
        std::transform(names.begin(), names.end(), names.begin(), translated);
        path->refresh(names.join(u'/'));
    }
}

// Boxes are as wide as they ask for, which they do anew.
void translateBoxes(QWidget *page)
{
    const auto boxes = page->findChildren<QComboBox *>();
    for (QComboBox *box : boxes) {
        for (int i = 0; i < box->count(); ++i) {
            box->setItemText(i, translated(box->itemText(i)));
        }
        box->ensurePolished();
        box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
        box->setFixedWidth(box->sizeHint().width());
    }
}

template<typename Widget>
bool isWithin(const QWidget *widget)
{
    while (widget && !qobject_cast<const Widget *>(widget)) {
        widget = widget->parentWidget();
    }
    return widget;
}

// What the application says, which the words of the theme are no part of. It gives the texts below a list their widths.
void translate(QWidget *page, const QStringList &words)
{
    translateSheets(page);
    translatePaths(page);
    translateBoxes(page);
    const auto buttons = page->findChildren<QAbstractButton *>();
    for (QAbstractButton *button : buttons) {
        if (!words.contains(button->text()) && !isWithin<VelaButtonPath>(button)) {
            button->setText(translated(button->text()));
        }
    }
    const auto labels = page->findChildren<QLabel *>();
    for (QLabel *label : labels) {
        if (!qobject_cast<MessageLabel *>(label) && !isWithin<VelaPagingBar>(label)) {
            label->setText(translated(label->text()));
        }
    }
    const auto actions = page->findChildren<QAction *>();
    for (QAction *action : actions) {
        action->setText(translated(action->text()));
    }
}

// Room that the widget's look leaves to its text; invalid where there is none, or where it is only as large as a hint.
QSize roomForText(const QWidget *widget)
{
    if (const auto *box = qobject_cast<const QComboBox *>(widget)) {
        QStyleOptionComboBox option;
        option.initFrom(box);
        return box->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, box).size();
    }
    QStyleOptionButton option;
    option.initFrom(widget);
    if (qobject_cast<const QPushButton *>(widget)) {
        return widget->style()->subElementRect(QStyle::SE_PushButtonContents, &option, widget).size();
    }
    if (qobject_cast<const QCheckBox *>(widget)) {
        return widget->style()->subElementRect(QStyle::SE_CheckBoxContents, &option, widget).size();
    }
    if (qobject_cast<const QRadioButton *>(widget)) {
        return widget->style()->subElementRect(QStyle::SE_RadioButtonContents, &option, widget).size();
    }
    return {};
}

QString textOf(const QWidget *widget)
{
    const auto *box = qobject_cast<const QComboBox *>(widget);
    const QString text = box ? box->currentText() : widget->property("text").toString();
    return text.trimmed();
}

bool holds(const QSize &room, const QSize &text)
{
    return room.width() >= text.width() && room.height() >= text.height();
}

bool showsItsText(const QWidget *widget)
{
    if (const auto *label = qobject_cast<const QLabel *>(widget)) {
        return label->wordWrap() ? label->height() >= label->heightForWidth(label->width())
                                 : holds(label->size(), label->sizeHint());
    }
    const QSize room = roomForText(widget);
    if (!room.isValid()) {
        return holds(widget->size(), widget->sizeHint());
    }
    const QString text = textOf(widget);
    const QFontMetrics metrics = widget->fontMetrics();
    // A box asks for as much as is painted of its text.
    const int width = qobject_cast<const QComboBox *>(widget) ? metrics.boundingRect(text).width()
                                                              : metrics.size(Qt::TextShowMnemonic, text).width();
    return holds(room, {width, metrics.tightBoundingRect(text).height()});
}

bool isControl(const QWidget *widget)
{
    return qobject_cast<const QAbstractButton *>(widget) || qobject_cast<const QComboBox *>(widget)
        || qobject_cast<const QLabel *>(widget) || qobject_cast<const QMenu *>(widget);
}

// What is seen of widget on a page that is in full view.
QRect placeOn(const QWidget *page, const QWidget *widget)
{
    QRect place(widget->mapTo(page, QPoint()), widget->size());
    for (const QWidget *around = widget->parentWidget(); around != page; around = around->parentWidget()) {
        place &= QRect(around->mapTo(page, QPoint()), around->size());
    }
    return place;
}

// The button of a path that has more names than room lies on those that are scrolled away.
bool isMenuOfPath(const QWidget *widget)
{
    return qobject_cast<const QToolButton *>(widget) && isWithin<VelaButtonPath>(widget);
}

QString described(const QWidget *widget)
{
    return QStringLiteral("%1 %2 \"%3\", %4 x %5, hint %6 x %7, room %8 x %9")
        .arg(QString::fromLatin1(widget->metaObject()->className()), widget->objectName(), textOf(widget))
        .arg(widget->width())
        .arg(widget->height())
        .arg(widget->sizeHint().width())
        .arg(widget->sizeHint().height())
        .arg(roomForText(widget).width())
        .arg(roomForText(widget).height());
}

} // namespace

// What is seen of texts that are larger or longer than usual, or at whatever scale the environment asks for.
class GalleryTextsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void noTextIsCut_data();
    void noTextIsCut();
    void noControlLiesOnAnother_data() { noTextIsCut_data(); }
    void noControlLiesOnAnother();
    void theFocusIsInView_data() { noTextIsCut_data(); }
    void theFocusIsInView();
    void theListOfPagesIsNotCut();
    void sheetsAreWithinASmallWindow();
    void thereAreLettersOfOtherScripts();
    void textsOfASheetBeginWhereTheirScriptDoes();

private:
    GalleryPage *show(const QString &name);
    QVector<const QWidget *> controls() const;

    const OwnDataFolder m_dataFolder;
    QScopedPointer<ThemeCopy> m_theme;
    QScopedPointer<GalleryWindow> m_window;
};

void GalleryTextsTest::initTestCase()
{
    QApplication::setFont(QFont(QStringLiteral("Sans Serif"), isAbout("large") ? LargeLetters : UsualLetters));
    QApplication::setLayoutDirection(isAbout("arabic") ? Qt::RightToLeft : Qt::LeftToRight);
    QString folder = referenceTheme(QStringLiteral("light"));
    QStringList words;
    const bool isOtherLanguage = isAbout("long") || isAbout("arabic");
    if (isOtherLanguage) {
        m_theme.reset(new ThemeCopy);
        words = translate(*m_theme);
        folder = m_theme->path();
    }
    QVERIFY(VelaTheme::getInstance()->load(folder, QStringLiteral("enu")).isEmpty());
    m_window.reset(new GalleryWindow({}));
    for (const QString &name : pageNames()) {
        m_window->showPage(name);
        // The longest of the months, whatever the day.
        const auto calendars = m_window->currentPage()->findChildren<VelaCalanderView *>();
        for (VelaCalanderView *calendar : calendars) {
            calendar->setCurrentPage(2026, 9);
        }
        if (isOtherLanguage) {
            translate(m_window->currentPage(), words);
        }
    }
    m_window->resize(SmallWindow * DPIinfo::getInstance()->getDPI());
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.data()));
}

void GalleryTextsTest::cleanupTestCase()
{
    m_window.reset();
}

GalleryPage *GalleryTextsTest::show(const QString &name)
{
    m_window->showPage(name);
    GalleryPage *page = m_window->currentPage();
    // A layout may have asked what was changed on a hidden page before that was styled.
    const auto layouts = page->findChildren<QLayout *>();
    std::for_each(layouts.begin(), layouts.end(), [](QLayout *layout) { layout->invalidate(); });
    page->updateGeometry();
    for (int pass = 0; pass < LayoutPasses; ++pass) {
        QCoreApplication::processEvents();
    }
    return page;
}

// Those of the page that one could see by scrolling.
QVector<const QWidget *> GalleryTextsTest::controls() const
{
    QVector<const QWidget *> found;
    const auto widgets = m_window->currentPage()->findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        const bool isSeen = widget->isVisible() && !placeOn(m_window->currentPage(), widget).isEmpty();
        if (isSeen && isControl(widget)) {
            found.append(widget);
        }
    }
    return found;
}

void GalleryTextsTest::noTextIsCut_data()
{
    QTest::addColumn<QString>("name");
    for (const PageEntry &page : galleryPages()) {
        QTest::newRow(qPrintable(page.name)) << page.name;
    }
}

// Fields and trees scroll, titles of a table are elided. The calendars have a fixed width, as in a popup, into which no
// month twice as long as "September" goes.
void GalleryTextsTest::noTextIsCut()
{
    QFETCH(QString, name);
    show(name);
    QStringList cut;
    for (const QWidget *control : controls()) {
        const bool isMonth = control->objectName() == QLatin1String("qt_calendar_monthbutton");
        if (!textOf(control).isEmpty() && !showsItsText(control) && !(isMonth && isAbout("long"))) {
            cut.append(described(control));
        }
    }
    QCOMPARE(cut.join(u'\n'), QString());
}

void GalleryTextsTest::noControlLiesOnAnother()
{
    QFETCH(QString, name);
    const QWidget *page = show(name);
    const QVector<const QWidget *> all = controls();
    for (int i = 0; i < all.size(); ++i) {
        for (int j = 0; j < i; ++j) {
            const QWidget *one = all.at(j);
            const QWidget *other = all.at(i);
            const bool areNested = one->isAncestorOf(other) || other->isAncestorOf(one);
            QVERIFY2(areNested || isMenuOfPath(one) || isMenuOfPath(other)
                         || !placeOn(page, one).intersects(placeOn(page, other)),
                     qPrintable(described(one) + u'\n' + described(other)));
        }
    }
}

void GalleryTextsTest::theFocusIsInView()
{
    QFETCH(QString, name);
    const QWidget *page = show(name);
    const QWidget *view = page->parentWidget();
    auto *list = m_window->findChild<QListWidget *>(QStringLiteral("pageList"));
    list->setFocus(Qt::TabFocusReason);
    int stops = 0;
    for (int keys = 0; keys < MostStops; ++keys) {
        QTest::keyClick(m_window->windowHandle(), Qt::Key_Tab);
        const QWidget *widget = QApplication::focusWidget();
        if (!widget || widget == list) {
            break;
        }
        if (page->isAncestorOf(widget)) {
            ++stops;
            const QRect place = placeOn(page, widget).translated(page->pos());
            const bool isLarger = !holds(view->size(), place.size());
            QVERIFY2(isLarger ? view->rect().intersects(place) : view->rect().contains(place),
                     qPrintable(described(widget)));
        }
    }
    QVERIFY(stops > 0 && stops < MostStops);
}

void GalleryTextsTest::theListOfPagesIsNotCut()
{
    const auto *list = m_window->findChild<QListWidget *>(QStringLiteral("pageList"));
    QCOMPARE(list->horizontalScrollBar()->maximum(), 0);
    const auto labels = list->parentWidget()->findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        QVERIFY2(showsItsText(label), qPrintable(described(label)));
    }
}

void GalleryTextsTest::sheetsAreWithinASmallWindow()
{
    QWidget window;
    window.resize(SmallWindow);
    const QString text = twice(twice(QStringLiteral("Some documents have been changed on this computer and on the "
                                                    "server. Which of them do you want to keep?")));
    auto *question = new VelaMessageSheet(VelaMessageSheet::QuestionMessage, text, text, &window);
    question->button(QMessageBox::Ok)->setText(QStringLiteral("Keep mine"));
    auto *input = new VelaInputSheet(text, &window);
    for (VelaSheet *sheet : {static_cast<VelaSheet *>(question), static_cast<VelaSheet *>(input)}) {
        VelaMask::createMask(sheet, &window, QColor(0, 0, 0, 20));
    }
    window.show();
    for (VelaSheet *sheet : {static_cast<VelaSheet *>(question), static_cast<VelaSheet *>(input)}) {
        sheet->showSheet();
        QCoreApplication::processEvents();
        QVERIFY2(window.rect().contains(QRect(sheet->mapTo(&window, QPoint()), sheet->size())),
                 qPrintable(described(sheet)));
        const auto parts = sheet->findChildren<QWidget *>();
        for (const QWidget *part : parts) {
            QVERIFY2(!part->isVisible() || !isControl(part) || textOf(part).isEmpty() || showsItsText(part),
                     qPrintable(described(part)));
        }
    }
}

void GalleryTextsTest::thereAreLettersOfOtherScripts()
{
    const QFontMetrics metrics(QApplication::font());
    for (const char16_t letter : {u'\u0627', u'\u0632', u'\u05D0', u'\u05E9'}) { // Arabic and Hebrew ones
        QVERIFY2(metrics.inFont(QChar(letter)), qPrintable(QString::number(letter, 16)));
    }
}

void GalleryTextsTest::textsOfASheetBeginWhereTheirScriptDoes()
{
    for (const bool isArabic : {false, true}) {
        QWidget window;
        window.resize(SmallWindow);
        const QString text = QStringLiteral("Name");
        VelaInputSheet sheet(isArabic ? inArabic(text) : text, &window);
        window.show();
        const QImage picture = sheet.findChild<MessageLabel *>()->grab().toImage();
        const QRgb background = picture.pixel(picture.width() / 2, 0);
        const auto isWritten = [&](int from, int to) {
            for (int x = from; x < to; ++x) {
                for (int y = 0; y < picture.height(); ++y) {
                    if (picture.pixel(x, y) != background) {
                        return true;
                    }
                }
            }
            return false;
        };
        const int half = picture.width() / 2;
        QCOMPARE(isWritten(0, half), !isArabic);
        QCOMPARE(isWritten(half, picture.width()), isArabic);
    }
}

QTEST_MAIN(GalleryTextsTest)
#include "tst_gallery_texts.moc"
