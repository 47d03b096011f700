// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "command-line.h"
#include "gallery-page.h"
#include "gallery-window.h"
#include "log-view.h"
#include "pages.h"
#include "support/environment.h"
#include "support/log-capture.h"
#include "support/theme-copy.h"
#include "utils/unnamed-controls.h"
#include "warning-log.h"

#include <StyleManager>
#include <VelaButton>
#include <VelaCalanderView>
#include <VelaCheckBox>
#include <VelaComboBox>
#include <VelaMenu>
#include <VelaTheme>

#include <QAbstractButton>
#include <QLabel>
#include <QListWidget>
#include <QMovie>
#include <QPlainTextEdit>
#include <QScopedPointer>
#include <QScrollBar>
#include <QtTest>

#include <cstdio>

namespace {

// The instance's id after a start with arguments behind the program's name.
QString instanceId(const QStringList &arguments)
{
    CommandLine commandLine;
    commandLine.parse(QStringList(QStringLiteral("vela-gallery")) + arguments);
    return commandLine.instanceId();
}

void load(const QString &folder)
{
    const VelaTheme::Problems problems = VelaTheme::getInstance()->load(folder, QStringLiteral("enu"));
    for (const VelaTheme::Problem &problem : problems) {
        qWarning("%s", qPrintable(problem.toString()));
    }
}

// Lets layouts come to rest and takes pictures of frozen states into them.
void settle()
{
    for (int pass = 0; pass < 10; ++pass) {
        QCoreApplication::processEvents();
    }
}

// What the page looks like with its animations at their beginning.
QImage picture(GalleryPage *page)
{
    settle();
    const auto labels = page->findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (label->movie()) {
            label->movie()->stop();
            label->movie()->jumpToFrame(0);
        }
    }
    return page->grab().toImage();
}

QString applyButtonSheet(const QByteArray &color)
{
    return QStringLiteral("== component.apply_button ==\nQPushButton { background-color: %1; border: none; }\n")
        .arg(QString::fromLatin1(color));
}

struct Save
{
    const char *name;
    void (*make)(const ThemeCopy &theme, const QString &file, const QByteArray &content);
};

const Save Saves[] = {
    {"rewritten",
     [](const ThemeCopy &theme, const QString &file, const QByteArray &content) { theme.write(file, content); }},
    {"replaced",
     [](const ThemeCopy &theme, const QString &file, const QByteArray &content) {
         theme.write(QStringLiteral("saved"), content);
         QVERIFY(std::rename(qPrintable(theme.filePath(QStringLiteral("saved"))), qPrintable(theme.filePath(file)))
                 == 0);
     }},
};

} // namespace

class GalleryWindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void everyPageOpens_data();
    void everyPageOpens();
    void nothingOnAPageIsWithoutAName_data() { everyPageOpens_data(); }
    void nothingOnAPageIsWithoutAName();
    void aPageIsMadeOnce();
    void aPageThatThereIsNotChangesNothing();
    void signalsAreListedWithTheirArguments();
    void framesAroundWidgetsHaveNoStyleSheet();
    void warningsOfTheLibraryAreListed();
    void theListOfSignalsCanBeCleared();
    void eachThemeFolderHasAnInstance();
    void eachDisplayHasAnInstance();

    void aThemeIsChosenByKeyboard();
    void aThemeWithErrorsIsNotChosen();
    void whatTheGalleryStylesItselfFollows();
    void focusedPicturesFollow();
    void everyPageFollows_data() { everyPageOpens_data(); }
    void everyPageFollows();
    void aLanguageIsChosen();
    void theDirectionIsChosen();
    void aScaleIsAskedFor();
    void aRestartedGalleryIsTheSame();

    void savedThemesAreReadAgain_data();
    void savedThemesAreReadAgain();
    void aBrokenThemeIsToldOfUntilItIsMended();
    void aThemeFolderMayBeMadeAnew();
    void onlyTheThemeInForceIsWatched();

private:
    void choose(const char *comboBox, const QString &text);
    QAbstractButton *button(const QString &text) const;
    QStringList loggedLines() const;

    const OwnDataFolder m_dataFolder;
    QScopedPointer<GalleryWindow> m_window;
};

void GalleryWindowTest::init()
{
    QApplication::setLayoutDirection(Qt::LeftToRight);
    load(referenceTheme(QStringLiteral("light")));
    const QString dark = referenceTheme(QStringLiteral("dark"));
    m_window.reset(new GalleryWindow({{QStringLiteral("Light"), VelaTheme::getInstance()->folder()},
                                      {QStringLiteral("Dark"), dark},
                                      {QStringLiteral("Broken"), QStringLiteral("/missing")}}));
    m_window->showPage(QStringLiteral("buttons"));
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.data()));
}

void GalleryWindowTest::cleanup()
{
    m_window.reset();
}

// The button of that text that takes clicks, which is not one of those that only show a state.
QAbstractButton *GalleryWindowTest::button(const QString &text) const
{
    const QList<QAbstractButton *> buttons = m_window->findChildren<QAbstractButton *>();
    const auto found = std::find_if(buttons.begin(), buttons.end(), [&](const QAbstractButton *candidate) {
        return candidate->text() == text && !candidate->testAttribute(Qt::WA_TransparentForMouseEvents);
    });
    return found == buttons.end() ? nullptr : *found;
}

// The lines of the log without their times.
QStringList GalleryWindowTest::loggedLines() const
{
    QStringList lines = m_window->findChild<QPlainTextEdit *>()->toPlainText().split(u'\n', Qt::SkipEmptyParts);
    for (QString &line : lines) {
        line = line.mid(8).trimmed();
    }
    return lines;
}

void GalleryWindowTest::everyPageOpens_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("title");
    for (const PageEntry &page : galleryPages()) {
        QTest::newRow(qPrintable(page.name)) << page.name << page.title;
    }
}

void GalleryWindowTest::everyPageOpens()
{
    QFETCH(QString, name);
    QFETCH(QString, title);
    LogCapture log;
    m_window->showPage(name);
    QCOMPARE(m_window->currentPage()->accessibleName(), title);
    QVERIFY(m_window->currentPage()->isVisible());
    QCOMPARE(m_window->windowTitle(), QString(title + QStringLiteral(" \u2013 Vela Gallery")));
    QCOMPARE(log.takeTexts(), QStringList());
}

// A page has listeners, too, who know of a control by its name.
void GalleryWindowTest::nothingOnAPageIsWithoutAName()
{
    QFETCH(QString, name);
    m_window->showPage(name);
    m_window->show();
    QCOMPARE(unnamedControls(m_window.data()).join(QLatin1Char('\n')), QString());
}

void GalleryWindowTest::aPageIsMadeOnce()
{
    GalleryPage *page = m_window->currentPage();
    m_window->showPage(QStringLiteral("buttons"));
    QCOMPARE(m_window->currentPage(), page);
}

void GalleryWindowTest::aPageThatThereIsNotChangesNothing()
{
    GalleryPage *page = m_window->currentPage();
    for (const char *name : {"", "no-such-page", "Buttons"}) {
        m_window->showPage(QString::fromLatin1(name));
        QCOMPARE(m_window->currentPage(), page);
    }
}

void GalleryWindowTest::signalsAreListedWithTheirArguments()
{
    QTest::mouseClick(button(QStringLiteral("Apply")), Qt::LeftButton);
    QCOMPARE(loggedLines(),
             QStringList({QStringLiteral("Apply: pressed()"), QStringLiteral("Apply: released()"),
                          QStringLiteral("Apply: clicked(false)")}));
}

void GalleryWindowTest::framesAroundWidgetsHaveNoStyleSheet()
{
    const QWidget *widget = button(QStringLiteral("Apply"));
    QVERIFY(!widget->styleSheet().isEmpty());
    while ((widget = widget->parentWidget())) {
        QCOMPARE(widget->styleSheet(), QString());
    }
}

void GalleryWindowTest::warningsOfTheLibraryAreListed()
{
    LogCapture outer;
    {
        const WarningLog warnings;
        connect(&warnings, &WarningLog::warned, m_window->log(), &LogView::addWarning);
        button(QStringLiteral("Unknown image"))->click();
        QTRY_VERIFY(loggedLines().contains(QStringLiteral("Warning: Cannot load pixmap \"no_such_image\"")));
        qWarning("of another category");
    }
    QCoreApplication::processEvents();
    QVERIFY(!loggedLines().contains(QStringLiteral("Warning: of another category")));
    const QStringList passedOn = outer.takeTexts();
    QVERIFY(passedOn.contains(QStringLiteral("Cannot load pixmap \"no_such_image\"")));
    QVERIFY(passedOn.contains(QStringLiteral("default: of another category")));
}

void GalleryWindowTest::theListOfSignalsCanBeCleared()
{
    button(QStringLiteral("Apply"))->click();
    QVERIFY(!loggedLines().isEmpty());
    button(QStringLiteral("Clear"))->click();
    QCOMPARE(loggedLines(), QStringList());
}

void GalleryWindowTest::eachThemeFolderHasAnInstance()
{
    const auto idOf = [](const QString &folder) { return instanceId({QStringLiteral("--resources"), folder}); };
    const QString none = instanceId({});
    QCOMPARE(instanceId({QStringLiteral("--page"), pageNames().constLast()}), none);
    QVERIFY(idOf(QStringLiteral("/")) != none);
    QCOMPARE(idOf(QStringLiteral("/.")), idOf(QStringLiteral("/")));
    // A folder that is missing is no default either.
    QVERIFY(idOf(QStringLiteral("/missing/one")) != none);
    QVERIFY(idOf(QStringLiteral("/missing/one")) != idOf(QStringLiteral("/missing/other")));
    QCOMPARE(idOf(QStringLiteral("/missing/other/../one/")), idOf(QStringLiteral("/missing/one")));
}

void GalleryWindowTest::eachDisplayHasAnInstance()
{
    const auto idOn = [](const QString &option, const QString &display) { return instanceId({option, display}); };
    const QString option = QStringLiteral("-display");
    const QString display = QStringLiteral(":77");
    const QString own = instanceId({});
    QVERIFY(idOn(option, display) != own);
    QVERIFY(idOn(option, display) != idOn(option, QStringLiteral(":78")));
    QCOMPARE(idOn(QStringLiteral("-") + option, display), idOn(option, display));
    QCOMPARE(instanceId({option}), own); // an option without its value

    const QByteArray outer = qgetenv("DISPLAY");
    const bool hasDisplay = qEnvironmentVariableIsSet("DISPLAY");
    qputenv("DISPLAY", display.toLatin1());
    const QString onDisplay = instanceId({});
    hasDisplay ? qputenv("DISPLAY", outer) : qunsetenv("DISPLAY");
    QCOMPARE(onDisplay, idOn(option, display));
}

// Chooses an entry as a person does who has the focus there.
void GalleryWindowTest::choose(const char *comboBox, const QString &text)
{
    auto *choice = m_window->findChild<VelaComboBox *>(QString::fromLatin1(comboBox));
    const int index = choice->findText(text);
    QVERIFY2(index != -1, qPrintable(text));
    choice->setFocus();
    while (choice->currentIndex() != index) {
        QTest::keyClick(choice, choice->currentIndex() < index ? Qt::Key_Down : Qt::Key_Up);
    }
}

void GalleryWindowTest::aThemeIsChosenByKeyboard()
{
    QAbstractButton *apply = button(QStringLiteral("Apply"));
    const QString lightSheet = apply->styleSheet();
    auto *theme = m_window->findChild<VelaComboBox *>(QStringLiteral("theme"));
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.data()));
    QTest::keyClick(m_window.data(), Qt::Key_T, Qt::AltModifier);
    QTRY_VERIFY(theme->hasFocus());
    QTest::keyClick(theme, Qt::Key_Down);
    QCOMPARE(VelaTheme::getInstance()->folder(), referenceTheme(QStringLiteral("dark")));
    QVERIFY(apply->styleSheet() != lightSheet);
    QCOMPARE(apply->styleSheet(), VelaButton(QString(), VelaButton::ApplyButton).styleSheet());
    choose("theme", QStringLiteral("Light"));
    QCOMPARE(apply->styleSheet(), lightSheet);
    QCOMPARE(loggedLines(), QStringList());
}

void GalleryWindowTest::aThemeWithErrorsIsNotChosen()
{
    const QString folder = VelaTheme::getInstance()->folder();
    auto *theme = m_window->findChild<VelaComboBox *>(QStringLiteral("theme"));
    theme->setCurrentIndex(1);
    theme->setFocus();
    QTest::keyClick(theme, Qt::Key_Down);
    QCOMPARE(loggedLines(), QStringList(QStringLiteral("/missing: error: There is no such folder")));
    QCOMPARE(VelaTheme::getInstance()->folder(), folder);
    QCOMPARE(theme->currentText(), QStringLiteral("Light"));
}

void GalleryWindowTest::whatTheGalleryStylesItselfFollows()
{
    m_window->showPage(QStringLiteral("menus"));
    m_window->showPage(QStringLiteral("dates"));
    m_window->showPage(QStringLiteral("buttons"));
    choose("theme", QStringLiteral("Dark"));

    const QString menuSheet = getStyleSheet("component.menu", false);
    const auto menus = m_window->findChildren<VelaMenu *>();
    QVERIFY(!menus.isEmpty());
    for (const VelaMenu *menu : menus) {
        QCOMPARE(menu->styleSheet(), menuSheet);
    }
    // Popups of date selectors have their sheet from the selector.
    const auto calendars = m_window->findChildren<VelaCalanderView *>();
    const QString calendarSheet = getStyleSheet("component.date_selector", false) + menuSheet;
    QCOMPARE(std::count_if(calendars.begin(), calendars.end(),
                           [&](const VelaCalanderView *view) { return view->styleSheet() == calendarSheet; }),
             2);
    const QScrollBar *bar = m_window->currentPage()->parentWidget()->parentWidget()->findChild<QScrollBar *>();
    QCOMPARE(bar->styleSheet(), getStyleSheet("component.scrollbar", false));
    // The side bar has a look of its own, and so has the chosen page in its list.
    const QImage picture = m_window->grab().toImage();
    QCOMPARE(picture.pixelColor(1, 1), QColor(0x1C, 0x23, 0x2B));
    const auto *list = m_window->findChild<QListWidget *>();
    const QRect item = list->visualItemRect(list->currentItem());
    const QPoint inside = list->viewport()->mapTo(m_window.data(), QPoint(item.right() - 8, item.center().y()));
    QCOMPARE(picture.pixelColor(inside * picture.devicePixelRatio()), QApplication::palette().highlight().color());
}

void GalleryWindowTest::focusedPicturesFollow()
{
    const auto focused = [this] {
        const auto buttons = m_window->findChildren<VelaButton *>();
        return *std::find_if(buttons.begin(), buttons.end(), [](const VelaButton *button) {
            return button->text() == QStringLiteral("Apply")
                && button->styleSheet().contains(QStringLiteral(":enabled"))
                && !button->styleSheet().contains(QStringLiteral(":focus"));
        });
    };
    VelaButton *picture = focused();
    const QString lightSheet = picture->styleSheet();
    choose("theme", QStringLiteral("Dark"));
    QCOMPARE(focused(), picture);
    QVERIFY(picture->styleSheet() != lightSheet);
}

// The page looks like one that is made afterwards. The windows are where no pointer is.
void GalleryWindowTest::everyPageFollows()
{
    QFETCH(QString, name);
    GalleryWindow window({});
    GalleryWindow other({});
    window.setAttribute(Qt::WA_DontShowOnScreen);
    other.setAttribute(Qt::WA_DontShowOnScreen);
    window.showPage(name);
    window.show();
    settle();
    load(referenceTheme(QStringLiteral("dark")));
    other.showPage(name);
    other.show();
    QCOMPARE(picture(window.currentPage()), picture(other.currentPage()));
}

void GalleryWindowTest::aLanguageIsChosen()
{
    const QAbstractButton *cancel = button(QStringLiteral("Cancel"));
    QVERIFY(cancel);
    choose("language", QStringLiteral("deu"));
    QVERIFY(button(QStringLiteral("Abbrechen")));
    QCOMPARE(m_window->state().language, QStringLiteral("deu"));
    choose("language", QStringLiteral("enu"));
    QVERIFY(!button(QStringLiteral("Abbrechen")));
}

void GalleryWindowTest::theDirectionIsChosen()
{
    const auto *list = m_window->findChild<QListWidget *>();
    const auto isLeft = [&] { return list->mapTo(m_window.data(), QPoint()).x() < m_window->width() / 2; };
    auto *rightToLeft = m_window->findChild<VelaCheckBox *>(QStringLiteral("rightToLeft"));
    QVERIFY(isLeft());
    rightToLeft->setFocus();
    QTest::keyClick(rightToLeft, Qt::Key_Space);
    QVERIFY(m_window->isRightToLeft());
    QTRY_VERIFY(!isLeft());
    QTest::keyClick(rightToLeft, Qt::Key_Space);
    QTRY_VERIFY(isLeft());
    QApplication::setLayoutDirection(Qt::RightToLeft);
    QVERIFY(rightToLeft->isChecked());
}

void GalleryWindowTest::aScaleIsAskedFor()
{
    const QSignalSpy asked(m_window.data(), &GalleryWindow::scaleChosen);
    const auto *scale = m_window->findChild<VelaComboBox *>(QStringLiteral("scale"));
    QCOMPARE(scale->currentData().toDouble(), expectedScale());
    const QString other = expectedScale() == 1.5 ? QStringLiteral("2") : QStringLiteral("1.5");
    choose("scale", other);
    QCOMPARE(asked.last().constFirst().toDouble(), other.toDouble());
}

void GalleryWindowTest::aRestartedGalleryIsTheSame()
{
    const QStringList arguments {QStringLiteral("vela-gallery"), QStringLiteral("--theme"), QStringLiteral("light"),
                                 QStringLiteral("--preload"),    QStringLiteral("--page"),  QStringLiteral("help")};
    choose("theme", QStringLiteral("Dark"));
    choose("language", QStringLiteral("deu"));
    QApplication::setLayoutDirection(Qt::RightToLeft);
    m_window->showPage(QStringLiteral("dates"));
    m_window->resize(m_window->size() - QSize(10, 10));

    CommandLine first;
    QVERIFY(first.parse(arguments));
    QStringList resumed = CommandLine::resumed(arguments, m_window->state());
    resumed = CommandLine::resumed(resumed, m_window->state());
    QCOMPARE(resumed.size(), arguments.size() + 1);
    CommandLine next;
    QVERIFY2(next.parse(resumed), qPrintable(next.errorText()));
    QCOMPARE(next.page(), QStringLiteral("dates"));
    QCOMPARE(next.theme(), referenceTheme(QStringLiteral("dark")));
    QCOMPARE(next.language(), QStringLiteral("deu"));
    QVERIFY(next.isRightToLeft());
    QCOMPARE(next.imageLoading(), ImageManager::INIT_PRELOAD);
    QCOMPARE(next.instanceId(), first.instanceId());
    GalleryWindow other({});
    QVERIFY(other.restoreGeometry(next.geometry()));
    QCOMPARE(other.size(), m_window->size());
}

void GalleryWindowTest::savedThemesAreReadAgain_data()
{
    QTest::addColumn<int>("save");
    for (int i = 0; i < 2; ++i) {
        QTest::newRow(Saves[i].name) << i;
    }
}

void GalleryWindowTest::savedThemesAreReadAgain()
{
    QFETCH(int, save);
    const ThemeCopy theme;
    load(theme.path());
    const QString file = QStringLiteral("styles/zz.qss");
    QAbstractButton *apply = button(QStringLiteral("Apply"));
    // The file is new at first, and then saved again and again.
    for (const char *color : {"#ff0000", "#00ff00", "#0000ff"}) {
        Saves[save].make(theme, file, applyButtonSheet(color).toLatin1());
        QTRY_VERIFY(apply->styleSheet().contains(QString::fromLatin1(color)));
    }
    QTRY_COMPARE(loggedLines().last(), QStringLiteral("The theme has been read again"));
    QFile::remove(theme.filePath(file));
    QTRY_VERIFY(!apply->styleSheet().contains(QStringLiteral("#0000ff")));
}

void GalleryWindowTest::aBrokenThemeIsToldOfUntilItIsMended()
{
    const ThemeCopy theme;
    load(theme.path());
    const QString file = QStringLiteral("styles/buttons.qss");
    const QByteArray whole = theme.read(file);
    QAbstractButton *apply = button(QStringLiteral("Apply"));
    const QString sheet = apply->styleSheet();
    const QImage picture = apply->grab().toImage();

    theme.write(file, "\n== component.apply_button ==\nQPushButton { color: red");
    const QString fault = theme.filePath(file) + QStringLiteral(":2: error: ");
    QTRY_VERIFY(!loggedLines().filter(fault).isEmpty());
    QCOMPARE(apply->styleSheet(), sheet);
    QCOMPARE(apply->grab().toImage(), picture);

    QByteArray mended = whole;
    theme.write(file, mended += applyButtonSheet("#00ff00").toLatin1());
    QTRY_VERIFY(apply->styleSheet().contains(QStringLiteral("#00ff00")));
    QCOMPARE(loggedLines().last(), QStringLiteral("The theme has been read again"));
    QCOMPARE(loggedLines().filter(fault).size(), 1);
}

void GalleryWindowTest::aThemeFolderMayBeMadeAnew()
{
    const ThemeCopy place;
    const QString folder = place.filePath(QStringLiteral("theme"));
    const auto copy = [&place, &folder] {
        for (const QString &name : place.files()) {
            const QString file = folder + u'/' + name;
            QDir().mkpath(QFileInfo(file).path());
            QVERIFY(QFile::copy(place.filePath(name), file));
        }
    };
    copy();
    load(folder);
    QVERIFY(QDir(folder).removeRecursively());
    QTRY_VERIFY(loggedLines().contains(folder + QStringLiteral(": error: There is no such folder")));
    copy();
    QTRY_COMPARE(loggedLines().last(), QStringLiteral("The theme has been read again"));
}

void GalleryWindowTest::onlyTheThemeInForceIsWatched()
{
    const ThemeCopy former;
    const ThemeCopy theme;
    load(former.path());
    load(theme.path());
    former.write(QStringLiteral("styles/zz.qss"), "broken");
    theme.write(QStringLiteral("styles/zz.qss"), applyButtonSheet("#ff0000").toLatin1());
    QTRY_VERIFY(button(QStringLiteral("Apply"))->styleSheet().contains(QStringLiteral("#ff0000")));
    QCOMPARE(loggedLines(), QStringList(QStringLiteral("The theme has been read again")));
}

QTEST_MAIN(GalleryWindowTest)

#include "tst_gallery_window.moc"
