// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "disk/native-path.h"
#include "start/appearance.h"
#include "window/files-window.h"
#include "window/sheets.h"

#include <FileSystemTreeWidgetItem>
#include <HelpWindow>
#include <VelaButtonPath>
#include <VelaCountdownMessageBox>
#include <VelaDateSelector>
#include <VelaFilterBar>
#include <VelaInputSheet>
#include <VelaMessageSheet>
#include <VelaPagingBar>
#include <VelaPagingModel>
#include <VelaTableWidget>
#include <VelaTreeWidget>

#include <QHeaderView>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QtTest>

#include <memory>

namespace {

constexpr int Patience = 20000;
constexpr int SecondPageCount = 20;
constexpr int RowsPerPage = 100;

QByteArray bytes(int count)
{
    return QByteArray(count, 'x');
}

QString currentFolder(const VelaTreeWidget *tree)
{
    const auto *item = static_cast<const FileSystemTreeWidgetItem *>(tree->currentItem());
    return item ? item->path : QString();
}

} // namespace

class FilesWindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void treePathAndTableAreInStep();
    void aClickOnTheHeaderSortsAllPages();
    void theFilterIsAppliedByReturn();
    void aNewFileAppears();
    void theToolTipOfAFileReadsAsItsName();
    void renameShowsWhatIsWrong();
    void aRenameOntoANameThatIsTakenIsAskedAgain();
    void aNewFolderIsSelected();
    void copiedFilesArePasted();
    void trashAsksFirst();
    void deletingForGoodCanBePrevented();
    void whatIsAgreedToMeanwhileIsDoneAfterwards();
    void workThatHasEndedBringsUpNoSheet();
    void workOfSomeLengthIsShownUntilItEnds();
    void aFolderThatVanishesIsLeft();
    void theLanguageChangesUnderASheet();
    void settingsComeBack();
    void theHelpIsAPage_data();
    void theHelpIsAPage();

private:
    QString path(const char *name) const { return m_folder->path() + u'/' + QString::fromUtf8(name); }
    void write(const char *name, const QByteArray &content = "x") const;
    QTableWidget *rows() const { return m_window->findChild<VelaTableWidget *>()->getTable(); }
    QStringList names() const;
    void select(const char *name) const;
    void press(int key, Qt::KeyboardModifiers modifiers = {}) const;
    template<typename Sheet>
    Sheet *sheet() const;
    QStringList onDisk() const;

    QTemporaryDir m_configuration; // of this process alone
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<FilesWindow> m_window;
};

void FilesWindowTest::initTestCase()
{
    QStandardPaths::setTestModeEnabled(true);
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_configuration.path());
    QCoreApplication::setOrganizationName(QStringLiteral("vela-files-test"));
}

void FilesWindowTest::init()
{
    QVERIFY(applyAppearance(QStringLiteral("light"), QStringLiteral("enu")));
    m_folder = std::make_unique<QTemporaryDir>();
    write("a.txt", bytes(300));
    write("b.png", bytes(100));
    write("c.cpp", bytes(200));
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("inner")));
    Settings settings;
    settings.folder = m_folder->path();
    m_window = std::make_unique<FilesWindow>(settings);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    QTRY_COMPARE_WITH_TIMEOUT(names().size(), 4, Patience);
    QTRY_VERIFY_WITH_TIMEOUT(!m_window->model()->isBusy(), Patience);
}

void FilesWindowTest::cleanup()
{
    m_window.reset();
    m_folder.reset();
}

void FilesWindowTest::write(const char *name, const QByteArray &content) const
{
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

QStringList FilesWindowTest::names() const
{
    QStringList names;
    for (int row = 0; row < rows()->rowCount(); ++row) {
        names.append(rows()->item(row, NameColumn)->text());
    }
    return names;
}

void FilesWindowTest::select(const char *name) const
{
    const int row = names().indexOf(QString::fromUtf8(name));
    QVERIFY(row != -1);
    QTest::mouseClick(rows()->viewport(), Qt::LeftButton, {},
                      rows()->visualItemRect(rows()->item(row, NameColumn)).center());
    QCOMPARE(rows()->selectionModel()->selectedRows().size(), 1);
}

// Where the user's keys go.
void FilesWindowTest::press(int key, Qt::KeyboardModifiers modifiers) const
{
    m_window->activateWindow(); // a box has been in front of it, perhaps
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    QWidget *focus = m_window->focusWidget() ? m_window->focusWidget() : m_window.get();
    QTest::keyClick(focus, static_cast<Qt::Key>(key), modifiers);
}

// The one that is up; null without one.
template<typename Sheet>
Sheet *FilesWindowTest::sheet() const
{
    const QList<Sheet *> sheets = m_window->findChildren<Sheet *>();
    for (Sheet *sheet : sheets) {
        if (sheet->isVisible()) {
            return sheet;
        }
    }
    return nullptr;
}

QStringList FilesWindowTest::onDisk() const
{
    return QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
}

void FilesWindowTest::treePathAndTableAreInStep()
{
    auto *tree = m_window->findChild<VelaTreeWidget *>();
    auto *bar = m_window->findChild<VelaButtonPath *>();
    QTRY_COMPARE_WITH_TIMEOUT(currentFolder(tree), m_folder->path(), Patience);
    write("inner/x", "x");
    select("inner");
    press(Qt::Key_Return);
    QTRY_COMPARE_WITH_TIMEOUT(names(), QStringList(QStringLiteral("x")), Patience);
    QTRY_COMPARE_WITH_TIMEOUT(currentFolder(tree), path("inner"), Patience);
    const QList<QPushButton *> buttons = bar->findChildren<QPushButton *>();
    QCOMPARE(buttons.constLast()->text(), QStringLiteral("inner"));

    // The button before the last one and the arrow between them.
    QTest::mouseClick(buttons.at(buttons.size() - 3), Qt::LeftButton);
    QTRY_COMPARE_WITH_TIMEOUT(names().size(), 4, Patience);
    press(Qt::Key_Up, Qt::AltModifier);
    QTRY_COMPARE_WITH_TIMEOUT(m_window->model()->folder(), parentOfPath(m_folder->path()), Patience);
    QTRY_COMPARE_WITH_TIMEOUT(currentFolder(tree), parentOfPath(m_folder->path()), Patience);
    tree->setCurrentItem(tree->topLevelItem(0));
    QTRY_COMPARE_WITH_TIMEOUT(m_window->model()->folder(), QDir::homePath(), Patience);
}

void FilesWindowTest::aClickOnTheHeaderSortsAllPages()
{
    for (int i = 0; i < RowsPerPage + SecondPageCount; ++i) {
        write(qPrintable(QStringLiteral("inner/%1").arg(i)), bytes(RowsPerPage + SecondPageCount - i));
    }
    m_window->openFolder(path("inner"));
    QTRY_COMPARE_WITH_TIMEOUT(names().size(), RowsPerPage, Patience);
    QCOMPARE(names().constFirst(), QStringLiteral("0"));
    auto *bar = m_window->findChild<VelaPagingBar *>();
    bar->last_page();
    QCOMPARE(names().size(), SecondPageCount);
    QCOMPARE(names().constLast(), QStringLiteral("119"));

    QHeaderView *header = m_window->findChild<VelaTableWidget *>()->getHeader();
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                      QPoint(header->sectionViewportPosition(SizeColumn) + 10, header->height() / 2));
    QTRY_COMPARE_WITH_TIMEOUT(names().constFirst(), QStringLiteral("119"), Patience);
    QCOMPARE(bar->model()->nowPage(), 1);
    bar->last_page();
    QCOMPARE(names().constLast(), QStringLiteral("0"));
}

void FilesWindowTest::theFilterIsAppliedByReturn()
{
    press(Qt::Key_F, Qt::ControlModifier);
    auto *filter = m_window->findChild<VelaFilterBar *>();
    QVERIFY(filter->hasFocus());
    QTest::keyClicks(filter, QStringLiteral("PNG"));
    QCOMPARE(names().size(), 4);
    QTest::keyClick(filter, Qt::Key_Return);
    QTRY_COMPARE_WITH_TIMEOUT(names(), QStringList(QStringLiteral("b.png")), Patience);
    filter->clear();
    QTest::keyClick(filter, Qt::Key_Return);
    QTRY_COMPARE_WITH_TIMEOUT(names().size(), 4, Patience);
    filter->menu()->actions().at(1)->trigger(); // documents
    QTRY_COMPARE_WITH_TIMEOUT(names(), QStringList(QStringLiteral("a.txt")), Patience);
    filter->menu()->actions().at(1)->trigger();
    m_window->findChild<VelaDateSelector *>()->getCalendarView()->selectToday();
    QTRY_COMPARE_WITH_TIMEOUT(m_window->model()->filter().from, QDate::currentDate(), Patience);
    QTRY_COMPARE_WITH_TIMEOUT(names().size(), 4, Patience);
}

void FilesWindowTest::aNewFileAppears()
{
    select("b.png");
    write("aa");
    QTRY_COMPARE_WITH_TIMEOUT(names().size(), 5, Patience);
    QCOMPARE(rows()->selectedItems().constFirst()->text(), QStringLiteral("b.png"));
}

void FilesWindowTest::theToolTipOfAFileReadsAsItsName()
{
    write("Tom & <b>Jerry<");
    QTRY_COMPARE_WITH_TIMEOUT(names().size(), 5, Patience);
    select("Tom & <b>Jerry<");
    const QString toolTip = rows()->selectedItems().constFirst()->toolTip();
    QVERIFY(Qt::mightBeRichText(toolTip));
    QCOMPARE(QTextDocumentFragment::fromHtml(toolTip).toPlainText(), QStringLiteral("Tom & <b>Jerry<"));
}

void FilesWindowTest::renameShowsWhatIsWrong()
{
    select("a.txt");
    press(Qt::Key_F2);
    QTRY_VERIFY_WITH_TIMEOUT(sheet<VelaInputSheet>(), Patience);
    auto *input = sheet<VelaInputSheet>();
    QCOMPARE(input->getLineEdit()->selectedText(), QStringLiteral("a"));
    QTest::keyClicks(input->getLineEdit(), QStringLiteral("x/"));
    QVERIFY(input->text().contains(QStringLiteral("A name holds no")));
    QVERIFY(input->getLineEdit()->property("error").toBool());
    QVERIFY(!input->button(QMessageBox::Ok)->isEnabled());
    QTest::keyClick(input->getLineEdit(), Qt::Key_Return);
    QVERIFY(input->isVisible());
    QTest::keyClick(input->getLineEdit(), Qt::Key_Backspace);
    QVERIFY(input->getLineEdit()->hasFocus());
    QVERIFY(!input->text().contains(QStringLiteral("A name holds no")));
    QTest::keyClick(input->getLineEdit(), Qt::Key_Return);
    QTRY_COMPARE_WITH_TIMEOUT(onDisk().join(u'|'), QStringLiteral("b.png|c.cpp|inner|x.txt"), Patience);
    QTRY_COMPARE_WITH_TIMEOUT(names().join(u'|'), QStringLiteral("inner|b.png|c.cpp|x.txt"), Patience);
    QCOMPARE(rows()->selectedItems().constFirst()->text(), QStringLiteral("x.txt"));
}

void FilesWindowTest::aRenameOntoANameThatIsTakenIsAskedAgain()
{
    select("a.txt");
    press(Qt::Key_F2);
    QTRY_VERIFY_WITH_TIMEOUT(sheet<VelaInputSheet>(), Patience);
    auto *input = sheet<VelaInputSheet>();
    input->getLineEdit()->setText(QStringLiteral("b.png"));
    QTest::keyClick(input->getLineEdit(), Qt::Key_Return);
    QVERIFY(input->isVisible());
    QVERIFY(input->text().contains(QStringLiteral("There is something of this name already")));
    QCOMPARE(QFileInfo(path("b.png")).size(), 100);
    QCOMPARE(QFileInfo(path("a.txt")).size(), 300);
    QTest::keyClick(input->getLineEdit(), Qt::Key_Escape);
    QTRY_VERIFY_WITH_TIMEOUT(!sheet<VelaInputSheet>(), Patience);
}

void FilesWindowTest::aNewFolderIsSelected()
{
    press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    QTRY_VERIFY_WITH_TIMEOUT(sheet<VelaInputSheet>(), Patience);
    QTest::keyClick(sheet<VelaInputSheet>()->getLineEdit(), Qt::Key_Return);
    QTRY_COMPARE_WITH_TIMEOUT(names().size(), 5, Patience);
    QVERIFY(QFileInfo(path("New folder")).isDir());
    QTRY_COMPARE_WITH_TIMEOUT(rows()->selectedItems().value(0) ? rows()->selectedItems().constFirst()->text()
                                                               : QString(),
                              QStringLiteral("New folder"), Patience);
}

void FilesWindowTest::copiedFilesArePasted()
{
    select("a.txt");
    press(Qt::Key_C, Qt::ControlModifier);
    press(Qt::Key_V, Qt::ControlModifier);
    QTRY_COMPARE_WITH_TIMEOUT(names().join(u'|'), QStringLiteral("inner|a (2).txt|a.txt|b.png|c.cpp"), Patience);
    QTRY_COMPARE_WITH_TIMEOUT(rows()->selectedItems().constFirst()->text(), QStringLiteral("a (2).txt"), Patience);
    press(Qt::Key_X, Qt::ControlModifier);
    m_window->openFolder(path("inner"));
    QTRY_COMPARE_WITH_TIMEOUT(names().size(), 0, Patience);
    press(Qt::Key_V, Qt::ControlModifier);
    QTRY_COMPARE_WITH_TIMEOUT(names(), QStringList(QStringLiteral("a (2).txt")), Patience);
    QCOMPARE(onDisk().join(u'|'), QStringLiteral("a.txt|b.png|c.cpp|inner"));
}

void FilesWindowTest::trashAsksFirst()
{
    select("a.txt");
    press(Qt::Key_Delete);
    QTRY_VERIFY_WITH_TIMEOUT(sheet<VelaMessageSheet>(), Patience);
    QVERIFY(sheet<VelaMessageSheet>()->text().contains(QStringLiteral("a.txt")));
    press(Qt::Key_Escape);
    QTRY_VERIFY_WITH_TIMEOUT(!sheet<VelaMessageSheet>(), Patience);
    QVERIFY(onDisk().contains(QStringLiteral("a.txt")));
    press(Qt::Key_Delete);
    QTRY_VERIFY_WITH_TIMEOUT(sheet<VelaMessageSheet>(), Patience);
    press(Qt::Key_Return);
    QTRY_COMPARE_WITH_TIMEOUT(names().size(), 3, Patience);
    QVERIFY(!onDisk().contains(QStringLiteral("a.txt")));
}

void FilesWindowTest::deletingForGoodCanBePrevented()
{
    select("a.txt");
    for (const bool isPrevented : {true, false}) {
        press(Qt::Key_Delete, Qt::ShiftModifier);
        QTRY_VERIFY_WITH_TIMEOUT(m_window->findChild<VelaCountdownMessageBox *>(), Patience);
        auto *box = m_window->findChild<VelaCountdownMessageBox *>();
        QVERIFY(onDisk().contains(QStringLiteral("a.txt")));
        QTest::mouseClick(box->button(isPrevented ? QMessageBox::Discard : QMessageBox::Ok), Qt::LeftButton);
        QTRY_VERIFY_WITH_TIMEOUT(!m_window->findChild<VelaCountdownMessageBox *>(), Patience);
        QTRY_COMPARE_WITH_TIMEOUT(onDisk().contains(QStringLiteral("a.txt")), isPrevented, Patience);
    }
}

// A shortcut pressed again works once more until the window system has brought up the box of the first.
void FilesWindowTest::whatIsAgreedToMeanwhileIsDoneAfterwards()
{
    const auto trigger = [this](const char *keys) {
        const QList<QAction *> actions = m_window->actions();
        const auto found = std::find_if(actions.begin(), actions.end(), [keys](const QAction *action) {
            return action->shortcut() == QKeySequence(QString::fromLatin1(keys));
        });
        QVERIFY(found != actions.end());
        (*found)->trigger();
    };
    select("a.txt");
    trigger("Del");
    select("b.png");
    trigger("Shift+Del");
    QVERIFY(sheet<VelaMessageSheet>());
    QVERIFY(m_window->findChild<VelaCountdownMessageBox *>());

    m_window->findChild<VelaCountdownMessageBox *>()->button(QMessageBox::Ok)->click();
    sheet<VelaMessageSheet>()->button(QMessageBox::Ok)->click();
    QTRY_COMPARE_WITH_TIMEOUT(onDisk().join(u'|'), QStringLiteral("c.cpp|inner"), Patience);
    QTest::qWait(500); // a sheet that nobody puts away would be up by then
    QVERIFY(!sheet<VelaMessageSheet>());
    QVERIFY(m_window->findChildren<VelaMessageSheet *>().isEmpty());
}

// A menu that is opened meanwhile keeps what is to be deleted alive.
void FilesWindowTest::workThatHasEndedBringsUpNoSheet()
{
    Sheets sheets(m_window.get());
    bool hasPassed = false;
    QTimer::singleShot(0, this, [&] {
        sheets.showBusy(QStringLiteral("Working"));
        sheets.hideBusy();
        QEventLoop loop;
        QTimer::singleShot(500, &loop, &QEventLoop::quit); // longer than a sheet takes to come up
        loop.exec();
        hasPassed = !sheet<VelaMessageSheet>();
    });
    QTRY_VERIFY_WITH_TIMEOUT(hasPassed, Patience);
}

void FilesWindowTest::workOfSomeLengthIsShownUntilItEnds()
{
    Sheets sheets(m_window.get());
    sheets.showBusy(QStringLiteral("Working"));
    QString shown;
    QTimer end;
    connect(&end, &QTimer::timeout, this, [&] {
        if (sheet<VelaMessageSheet>()) {
            shown = sheet<VelaMessageSheet>()->text();
            sheets.hideBusy();
        }
    });
    end.start(50);
    QTRY_COMPARE_WITH_TIMEOUT(shown, QStringLiteral("Working"), Patience);
    QTRY_VERIFY_WITH_TIMEOUT(m_window->findChildren<VelaMessageSheet *>().isEmpty(), Patience);
}

void FilesWindowTest::aFolderThatVanishesIsLeft()
{
    m_window->openFolder(path("inner"));
    QTRY_COMPARE_WITH_TIMEOUT(names().size(), 0, Patience);
    QVERIFY(QDir(path("inner")).removeRecursively());
    QTRY_VERIFY_WITH_TIMEOUT(sheet<VelaMessageSheet>(), Patience);
    QVERIFY(sheet<VelaMessageSheet>()->text().contains(QStringLiteral("inner")));
    QTRY_COMPARE_WITH_TIMEOUT(m_window->model()->folder(), m_folder->path(), Patience);
    press(Qt::Key_Return);
    QTRY_VERIFY_WITH_TIMEOUT(!sheet<VelaMessageSheet>(), Patience);
    QCOMPARE(names().size(), 3);
}

void FilesWindowTest::theLanguageChangesUnderASheet()
{
    select("a.txt");
    press(Qt::Key_F2);
    QTRY_VERIFY_WITH_TIMEOUT(sheet<VelaInputSheet>(), Patience);
    StartRequest request;
    request.theme = QStringLiteral("dark");
    request.language = QStringLiteral("ara");
    m_window->obey(request);
    QCOMPARE(m_window->layoutDirection(), Qt::RightToLeft);
    QCOMPARE(sheet<VelaInputSheet>()->button(QMessageBox::Ok)->text(), QStringLiteral("موافق"));
    QCOMPARE(m_window->findChild<QPushButton *>(QStringLiteral("rename"))->text(), QStringLiteral("إعادة تسمية"));
    QCOMPARE(names().size(), 4);
    QTest::keyClick(sheet<VelaInputSheet>()->getLineEdit(), Qt::Key_Escape);
    request.language = QStringLiteral("fra"); // of the library's texts only
    m_window->obey(request);
    QCOMPARE(m_window->layoutDirection(), Qt::LeftToRight);
    QCOMPARE(m_window->findChild<QPushButton *>(QStringLiteral("rename"))->text(), QStringLiteral("Rename"));
}

void FilesWindowTest::settingsComeBack()
{
    QVERIFY(applyAppearance(QStringLiteral("high-contrast"), QStringLiteral("deu")));
    press(Qt::Key_H, Qt::ControlModifier);
    m_window->resize(m_window->width() - 10, m_window->height() - 20);
    m_window->openFolder(path("inner"));
    QTRY_COMPARE_WITH_TIMEOUT(m_window->model()->folder(), path("inner"), Patience);
    m_window->close();
    const Settings settings = Settings::read();
    QCOMPARE(settings.theme, QStringLiteral("high-contrast"));
    QCOMPARE(settings.language, QStringLiteral("deu"));
    QCOMPARE(settings.folder, path("inner"));
    QVERIFY(settings.withHidden);
    FilesWindow next(settings);
    QCOMPARE(next.size(), m_window->size());
    QTRY_COMPARE_WITH_TIMEOUT(next.model()->folder(), path("inner"), Patience);
    QVERIFY(next.model()->filter().withHidden);
}

void FilesWindowTest::theHelpIsAPage_data()
{
    QTest::addColumn<QString>("language");
    for (const char *language : {"enu", "deu", "chs", "ara"}) {
        QTest::newRow(language) << QString::fromLatin1(language);
    }
}

// What does not begin as a page is shown as it is, with its tags.
void FilesWindowTest::theHelpIsAPage()
{
    QFETCH(QString, language);
    QVERIFY(applyAppearance(QStringLiteral("light"), language));
    press(Qt::Key_F1);
    const QPointer<HelpWindow> help(m_window->findChild<HelpWindow *>());
    QVERIFY(help);
    const auto *browser = help->findChild<QTextBrowser *>();
    QTRY_VERIFY_WITH_TIMEOUT(!browser->toPlainText().isEmpty(), Patience);
    QCOMPARE(browser->document()->begin().text(), QStringLiteral("Vela Files"));
    QCOMPARE(browser->document()->begin().blockFormat().headingLevel(), 1);
    help->close();
    QTRY_VERIFY(!help);
}

QTEST_MAIN(FilesWindowTest)
#include "tst_files_window.moc"
