// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "snippets.h"

#include <AccessibleFilter>
#include <ComponentStrings>
#include <DPIinfo>
#include <DialogButtonBoxStyle>
#include <FileSystemTreeWidgetItem>
#include <FileTypeMap>
#include <HelpWindow>
#include <ImageManager>
#include <MessageLabel>
#include <MouseButtonFilter>
#include <MsgBoxCustomBtnText>
#include <ParentEventFilterWidget>
#include <QtLocalPeer>
#include <QtLockedFile>
#include <ResizeSignalTableWidget>
#include <StyleManager>
#include <UIPathManager>
#include <VelaButton>
#include <VelaButtonPath>
#include <VelaCalanderView>
#include <VelaCheckBox>
#include <VelaComboBox>
#include <VelaCountdownMessageBox>
#include <VelaDateSelector>
#include <VelaFilterBar>
#include <VelaFootbar>
#include <VelaInputSheet>
#include <VelaLabel>
#include <VelaLineEdit>
#include <VelaLocale>
#include <VelaMask>
#include <VelaMenu>
#include <VelaMessageSheet>
#include <VelaPagingBar>
#include <VelaTableWidget>
#include <VelaTheme>
#include <VelaTreeWidget>

#include "scale/scaled.h"

#include <QtWidgets>

namespace {

constexpr QSize SheetWindow(460, 230); // logical pixels

// ---- buttons, choices, fields

QWidget *button(QWidget *window)
{
    auto *layout = new QHBoxLayout(window);
    //! [VelaButton]
    layout->addWidget(new VelaButton(QStringLiteral("Save"), VelaButton::ApplyButton));
    layout->addWidget(new VelaButton(QStringLiteral("Browse"))); // of the default kind
    layout->addWidget(new VelaButton(QStringLiteral("Cancel"), VelaButton::CancelButton));
    layout->addWidget(new VelaButton(QStringLiteral("Delete"), VelaButton::RedButton));
    //! [VelaButton]
    return window;
}

QWidget *iconButton(QWidget *window)
{
    auto *layout = new QHBoxLayout(window);
    //! [VelaIconButton]
    auto *add = new VelaIconButton(QStringLiteral("bt_add")); // the theme has four images of that name
    add->setToolTip(QStringLiteral("Add")); // what a screen reader calls it
    auto *remove = new VelaIconButton(QStringLiteral("bt_delete"));
    remove->setToolTip(QStringLiteral("Delete"));
    remove->setEnabled(false);
    layout->addWidget(add);
    layout->addWidget(remove);
    //! [VelaIconButton]
    return window;
}

QWidget *checkBox(QWidget *window)
{
    auto *layout = new QVBoxLayout(window);
    //! [VelaCheckBox]
    auto *mail = new VelaCheckBox(QStringLiteral("Send a &mail"), window);
    auto *sound = new VelaCheckBox(QStringLiteral("Play a &sound"), window);
    sound->setChecked(true);
    //! [VelaCheckBox]
    layout->addWidget(mail);
    layout->addWidget(sound);
    return window;
}

QWidget *radioButton(QWidget *window)
{
    auto *layout = new QVBoxLayout(window);
    //! [VelaRadioButton]
    auto *keep = new VelaRadioButton(QStringLiteral("&Keep both files"), window);
    auto *replace = new VelaRadioButton(QStringLiteral("&Replace the old one"), window); // of one parent, one is on
    keep->setChecked(true);
    //! [VelaRadioButton]
    layout->addWidget(keep);
    layout->addWidget(replace);
    return window;
}

QWidget *lineEdit(QWidget *window)
{
    auto *layout = new QVBoxLayout(window);
    //! [VelaLineEdit]
    auto *port = new VelaLineEdit(window);
    port->getPreLabel()->setText(QStringLiteral("Port"));
    port->getPostLabel()->setText(QStringLiteral("1 to 65535"));
    port->setSpacing(8);
    port->setValidator([](const QString &text) { return text.toInt() > 0 && text.toInt() < 65536; });
    port->getLineEdit()->setText(QStringLiteral("123456"));
    port->setError(!port->validate());
    //! [VelaLineEdit]
    layout->addWidget(port);
    return window;
}

QWidget *label(QWidget *window)
{
    auto *layout = new QVBoxLayout(window);
    //! [VelaLabel]
    auto *text = new VelaLabel(QStringLiteral("A text that wraps makes its label as high as it has to be."), window);
    text->setWordWrap(true);
    text->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    //! [VelaLabel]
    layout->addWidget(text);
    return window;
}

QWidget *comboBox(QWidget *window)
{
    auto *layout = new QVBoxLayout(window);
    //! [VelaComboBox]
    auto *size = new VelaComboBox(window);
    size->addItems({QStringLiteral("Small"), QStringLiteral("Medium"), QStringLiteral("Large")});
    //! [VelaComboBox]
    layout->addWidget(size);
    return window;
}

QWidget *menu(QWidget *window)
{
    //! [VelaMenu]
    auto *menu = new VelaMenu(window);
    menu->setStyleSheet(getStyleSheet("component.menu", false)); // which it does not take itself
    menu->addAction(QStringLiteral("&Open"));
    menu->addAction(QStringLiteral("&Rename"));
    menu->addSeparator();
    menu->addAction(QStringLiteral("&Delete"))->setEnabled(false);
    //! [VelaMenu]
    menu->popup(QPoint(0, 0));
    return menu;
}

QWidget *footbar(QWidget *window)
{
    auto *layout = new QVBoxLayout(window);
    //! [VelaFootbar]
    auto *bar = new VelaFootbar(window);
    bar->pushLeftWidget(new VelaIconButton(QStringLiteral("bt_help")));
    bar->pushRightWidget(new VelaButton(QStringLiteral("OK"), VelaButton::ApplyButton));
    bar->pushRightWidget(new VelaButton(QStringLiteral("Cancel"), VelaButton::CancelButton));
    bar->init(); // lays out what was pushed, once
    //! [VelaFootbar]
    layout->addWidget(bar);
    return window;
}

QWidget *mouseFilters(QWidget *window)
{
    //! [MouseButtonFilter]
    auto *filter = new MouseButtonFilter;
    filter->setParent(window); // filters have no owner of their own
    window->installEventFilter(filter); // keys still reach the window, clicks do not
    //! [MouseButtonFilter]
    return nullptr;
}

// ---- sheets

QWidget *messageSheet(QWidget *window)
{
    //! [VelaMessageSheet]
    auto *sheet = new VelaMessageSheet(VelaMessageSheet::QuestionMessage, QStringLiteral("Replace the file?"),
                                       QStringLiteral("It was changed yesterday."), window);
    VelaMask::createMask(sheet, window, QColor(0, 0, 0, 20));
    QObject::connect(sheet, &VelaMessageSheet::finished, window, [sheet](int answer) {
        qDebug() << (answer == QMessageBox::Ok ? "replace" : "keep");
        sheet->deleteLater();
    });
    sheet->showSheet(); // exec() in its place waits for the answer and returns it
    //! [VelaMessageSheet]
    return window;
}

QWidget *captions(QWidget *window)
{
    //! [MsgBoxCustomBtnText]
    const MsgBoxCustomBtnText captions(QStringLiteral("Replace"), QStringLiteral("Keep"));
    auto *sheet =
        new VelaMessageSheet(VelaMessageSheet::QuestionMessage, QStringLiteral("Replace the file?"), captions, window);
    //! [MsgBoxCustomBtnText]
    VelaMask::createMask(sheet, window, QColor(0, 0, 0, 20));
    sheet->showSheet();
    return window;
}

QWidget *inputSheet(QWidget *window)
{
    //! [VelaInputSheet]
    auto *sheet = new VelaInputSheet(QStringLiteral("Name of the folder"), window);
    sheet->getLineEdit()->setText(QStringLiteral("Pictures"));
    VelaMask::createMask(sheet, window, QColor(0, 0, 0, 20));
    QObject::connect(sheet, &VelaInputSheet::finished, window, [sheet](int answer) {
        if (answer == QMessageBox::Ok) {
            QDir().mkdir(sheet->getContent());
        }
        sheet->deleteLater();
    });
    sheet->showSheet();
    //! [VelaInputSheet]
    return window;
}

//! [VelaSheet]
class LicenceSheet : public VelaSheet
{
public:
    explicit LicenceSheet(QWidget *window) : VelaSheet(window)
    {
        auto *close = new VelaButton(QStringLiteral("Close"));
        connect(close, &VelaButton::clicked, this, [this] {
            hide(); // and its mask with it
            Q_EMIT finished(QMessageBox::Ok);
        });
        auto *content = new QWidget;
        auto *layout = new QVBoxLayout(content);
        layout->addWidget(new VelaLabel(QStringLiteral("You may do with it what you like.")));
        layout->addWidget(close, 0, Qt::AlignRight);
        setWidget(content);
    }

    void showSheet() override { show(); }
};
//! [VelaSheet]

QWidget *sheet(QWidget *window)
{
    auto *sheet = new LicenceSheet(window);
    VelaMask::createMask(sheet, window, QColor(0, 0, 0, 20));
    sheet->showSheet();
    return window;
}

QWidget *mask(QWidget *window)
{
    //! [VelaMask]
    auto *text = new VelaLabel(QStringLiteral("Loading"), window);
    VelaMask::createMask(text, window, QColor(0, 0, 0, 60)); // as large as the window, and shown with the text
    text->show();
    //! [VelaMask]
    return window;
}

QWidget *parentFilter(QWidget *window)
{
    auto *text = new VelaLabel(QStringLiteral("Loading"));
    //! [ParentEventFilterWidget]
    auto *mask = new VelaMask(text, window, QColor(0, 0, 0, 60));
    auto *filter = new ParentEventFilterWidget(mask, window); // a mask has one already: for windows of your own making
    filter->setParent(mask);
    window->installEventFilter(filter);
    //! [ParentEventFilterWidget]
    return nullptr;
}

QWidget *messageLabel(QWidget *window)
{
    auto *layout = new QVBoxLayout(window);
    //! [MessageLabel]
    auto *text = new MessageLabel(window);
    text->setWordWrap(true);
    text->setText(QStringLiteral("The disk is full. Remove what you need no more, or choose another one."));
    text->setStyleSheet(getStyleSheet("component.message_sheet_text", false));
    //! [MessageLabel]
    layout->addWidget(text);
    return window;
}

QWidget *buttonBoxStyle(QWidget *window)
{
    auto *layout = new QVBoxLayout(window);
    //! [DialogButtonBoxStyle]
    auto *box = new QDialogButtonBox(window);
    auto *style = new DialogButtonBoxStyle;
    style->setParent(box); // a widget does not own its style
    box->setStyle(style);
    box->addButton(new VelaButton(QStringLiteral("Cancel"), VelaButton::CancelButton), QDialogButtonBox::RejectRole);
    box->addButton(new VelaButton(QStringLiteral("OK"), VelaButton::ApplyButton), QDialogButtonBox::AcceptRole);
    //! [DialogButtonBoxStyle]
    layout->addWidget(box);
    return window;
}

QWidget *countdown(QWidget *window)
{
    //! [VelaCountdownMessageBox]
    auto *box = new VelaCountdownMessageBox(30, window);
    box->setText(QStringLiteral("The machine is switched off in half a minute."));
    QObject::connect(box, &QMessageBox::finished, window,
                     [](int answer) { qDebug() << (answer == QMessageBox::Discard ? "stay" : "switch off"); });
    box->open();
    //! [VelaCountdownMessageBox]
    return box;
}

// ---- tables, folders, pages

QWidget *table(QWidget *window)
{
    auto *layout = new QVBoxLayout(window);
    //! [VelaTableWidget]
    VelaTableColumnsInfo columns;
    columns.addColumn(QStringLiteral("Name"), 120, true, 1.0); // takes all that is left
    columns.addColumn(QStringLiteral("Size"), 80, false, 0.0);
    auto *table = new VelaTableWidget(columns, window);
    QTableWidget *rows = table->getTable();
    rows->setRowCount(3);
    for (int row = 0; row < rows->rowCount(); ++row) {
        rows->setItem(row, 0, new QTableWidgetItem(QStringLiteral("File %1").arg(row + 1)));
        rows->setItem(row, 1, new QTableWidgetItem(QStringLiteral("%1 KB").arg(12 * (row + 1))));
    }
    rows->selectRow(1);
    //! [VelaTableWidget]
    layout->addWidget(table);
    return window;
}

QWidget *resizeSignalTable(QWidget *window)
{
    auto *layout = new QVBoxLayout(window);
    //! [ResizeSignalTableWidget]
    auto *table = new ResizeSignalTableWidget(2, 1);
    QObject::connect(table, &ResizeSignalTableWidget::sigResized, table,
                     [table](QSize room) { table->setColumnWidth(0, room.width()); });
    //! [ResizeSignalTableWidget]
    layout->addWidget(table);
    return nullptr;
}

QWidget *tree(QWidget *window)
{
    auto *layout = new QVBoxLayout(window);
    //! [VelaTreeWidget]
    auto *tree = new VelaTreeWidget(window);
    tree->setHeaderHidden(true);
    auto *delegate = new ItemDelegate;
    delegate->setParent(tree); // a tree does not own its delegate
    tree->setItemDelegate(delegate);
    tree->setStyleSheet(getStyleSheet("component.tree_item", false) + getStyleSheet("component.scrollbar", false));
    auto *home = new FileSystemTreeWidgetItem;
    home->setText(0, QStringLiteral("Home"));
    home->path = QStringLiteral("home"); // sorted before all others
    tree->addTopLevelItem(home);
    for (const QString &name : {QStringLiteral("Music"), QStringLiteral("Pictures")}) {
        auto *folder = new FileSystemTreeWidgetItem;
        folder->setText(0, name);
        folder->setCheckState(0, Qt::Unchecked);
        folder->path = home->path + QLatin1Char('/') + name;
        home->addChild(folder);
    }
    home->setCheckState(0, Qt::PartiallyChecked);
    home->child(0)->setCheckState(0, Qt::Checked);
    home->setExpanded(true);
    tree->setCurrentItem(home->child(0));
    //! [VelaTreeWidget]
    layout->addWidget(tree);
    return window;
}

QWidget *pagingBar(QWidget *window)
{
    auto *layout = new QVBoxLayout(window);
    //! [VelaPagingBar]
    auto *model = new VelaPagingModel(20, window); // items on a page
    auto *bar = new VelaPagingBar(model, window);
    bar->setItemCount(512);
    bar->setPage(3);
    PagingFooterInfo count;
    count.text = QStringLiteral("512 files");
    bar->setFooterInfo(count);
    QObject::connect(bar, &VelaPagingBar::sigPageChanged, window,
                     [model] { qDebug() << "from" << model->startItem(); });
    //! [VelaPagingBar]
    layout->addWidget(bar);
    return window;
}

QWidget *filterBar(QWidget *window)
{
    auto *layout = new QVBoxLayout(window);
    //! [VelaFilterBar]
    auto *filter = new VelaFilterBar(window);
    filter->setPlaceholderText(QStringLiteral("Filter"));
    auto *menu = new VelaMenu(window); // the bar does not own it
    menu->addAction(QStringLiteral("Names only"));
    filter->setMenu(menu);
    QObject::connect(filter, &VelaFilterBar::sigKeywordChanged, window,
                     [](const QString &keyword) { qDebug() << "filter by" << keyword; });
    //! [VelaFilterBar]
    layout->addWidget(filter);
    return window;
}

QWidget *buttonPath(QWidget *window)
{
    auto *layout = new QVBoxLayout(window);
    //! [VelaButtonPath]
    auto *path = new VelaButtonPath(window);
    path->setFixedHeight(scaled(28));
    path->refresh(QStringLiteral("home/ada/pictures"));
    QObject::connect(path, &VelaButtonPath::sigUpdatePath, path, &VelaButtonPath::slotUpdatePath);
    //! [VelaButtonPath]
    layout->addWidget(path);
    QTimer::singleShot(0, path, [path] { path->refresh(QStringLiteral("home/ada/pictures")); }); // in its width by now
    return window;
}

// ---- dates, help

QWidget *calendar(QWidget *window)
{
    auto *layout = new QVBoxLayout(window);
    //! [VelaCalanderView]
    auto *calendar = new VelaCalanderView(window);
    calendar->setStyleSheet(getStyleSheet("component.date_selector", false));
    calendar->setCurrentPage(2026, 3);
    calendar->setMinimumDate(QDate(2026, 3, 10));
    QObject::connect(calendar, &VelaCalanderView::sigDateSelect, window,
                     [](const QDate &date) { qDebug() << "chosen:" << date; });
    //! [VelaCalanderView]
    layout->addWidget(calendar);
    return window;
}

QWidget *dateSelector(QWidget *window)
{
    auto *layout = new QVBoxLayout(window);
    //! [VelaDateSelector]
    auto *date = new VelaDateSelector(QStringLiteral("Any day"), window);
    date->getCalendarView()->setMinimumDate(QDate(2020, 1, 1));
    date->dateSelect(QDate(2026, 3, 17));
    //! [VelaDateSelector]
    layout->addWidget(date);
    return window;
}

QWidget *helpWindow(QWidget *window)
{
    const QString themeFolder = VelaTheme::getInstance()->folder();
    //! [HelpWindow]
    HelpContext context;
    context.lang = QStringLiteral("enu");
    context.helpRoot = themeFolder + QStringLiteral("/help"); // read where the web does not answer
    context.link = QStringLiteral("gallery.html");
    context.section = QStringLiteral("files");
    auto *help = new HelpWindow(context, window);
    help->show();
    //! [HelpWindow]
    help->slotQueryTimeout(); // without waiting for the web
    return help;
}

// ---- registries and helpers

QWidget *theme(QWidget *window)
{
    const QString folder = VelaTheme::getInstance()->folder();
    //! [VelaTheme]
    const VelaTheme::Problems problems = VelaTheme::getInstance()->load(folder, QStringLiteral("enu"));
    for (const VelaTheme::Problem &problem : problems) {
        qWarning().noquote() << problem.toString(); // styles/buttons.qss:12: error: ...
    }
    QObject::connect(VelaTheme::getInstance(), &VelaTheme::changed, window, [window] {
        window->setWindowIcon(getGlobalImage("app_img", ImageManager::IMAGE_NORMAL)); // what you have set yourself
    });
    //! [VelaTheme]
    return nullptr;
}

QWidget *scale(QWidget *window)
{
    //! [DPIinfo]
    const double scale = DPIinfo::getInstance()->getDPI(); // 1.25 at 120 DPI
    window->setMinimumWidth(int(200 * scale)); // as scaled(200) has it
    window->setStyleSheet(DPIinfo::getInstance()->getScaledStyleSheet(QStringLiteral("QLabel { padding: 4px; }")));
    //! [DPIinfo]
    return nullptr;
}

QWidget *locale(QWidget *)
{
    //! [VelaLocale]
    VelaLocale *locale = VelaLocale::getInstance();
    qDebug() << locale->getDefaultLanguage() // of the system, for instance "deu"
             << locale->getLanguageByLocale(QStringLiteral("zh_tw")); // "cht"
    //! [VelaLocale]
    return nullptr;
}

QWidget *fileTypes(QWidget *)
{
    //! [FileTypeMap]
    FileTypeMap *types = FileTypeMap::getInstance();
    types->mappingFile(QStringLiteral("plan"), QStringLiteral("dwg dxf")); // a type of one's own
    qDebug() << types->getFiletypeMapping(QStringLiteral("DXF"), false); // "plan.png"
    //! [FileTypeMap]
    return nullptr;
}

QWidget *accessibleFilter(QWidget *window)
{
    //! [AccessibleFilter]
    auto *bar = new QWidget(window); // with its buttons
    const AccessibleFilter filter({bar}, Qt::TabFocus); // all that Tab reaches but the bar itself
    adjustFocusPolicy(Qt::ClickFocus, accessibleList(window, filter)); // which it passes over from now on
    //! [AccessibleFilter]
    return nullptr;
}

QWidget *localPeer(QWidget *window)
{
    const QString text = QStringLiteral("open");
    //! [QtLocalPeer]
    auto *peer = new QtLocalPeer(window, QStringLiteral("acme-editor"));
    if (peer->isClient()) {
        peer->sendMessage(text, 5000); // to the first process
    } else {
        QObject::connect(peer, &QtLocalPeer::messageReceived, window, &QWidget::setWindowTitle);
    }
    //! [QtLocalPeer]
    return nullptr;
}

QWidget *lockedFile(QWidget *)
{
    const QTemporaryDir folder;
    //! [QtLockedFile]
    QtLockedFile file(folder.filePath(QStringLiteral("settings")));
    if (file.open(QIODevice::ReadWrite) && file.lock(QtLockedFile::WriteLock)) {
        file.write("one process at a time");
    } // released with the object
    //! [QtLockedFile]
    return nullptr;
}

} // namespace

void startUp(const QString &folder)
{
    //! [UIPathManager]
    UIPathManager *paths = UIPathManager::getInstance();
    paths->setPath(QStringLiteral("resource_path"), folder); // no "/" at the end
    paths->setPath(QStringLiteral("user_data_path"), QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
    //! [UIPathManager]
    //! [ComponentStrings]
    ComponentStrings::getInstance()->installStrings({
        {QStringLiteral("ok"), QStringLiteral("OK")},
        {QStringLiteral("cancel"), QStringLiteral("Cancel")},
    });
    //! [ComponentStrings]
    //! [ImageManager]
    ImageManager::getInstance()->initialize(ImageManager::INIT_LAZY); // reads "images.json" in "resource_path"
    const QPixmap warning = getGlobalImage("icon_warning", ImageManager::IMAGE_NORMAL);
    //! [ImageManager]
    Q_UNUSED(warning)
    //! [StyleManager]
    StyleManager::getInstance()->initialize({folder + QStringLiteral("/styles/buttons.qss")});
    const QString sheet = getStyleSheet("component.apply_button", false); // scaled for the screen
    //! [StyleManager]
    Q_UNUSED(sheet)
}

const QVector<Snippet> &snippets()
{
    static const QVector<Snippet> all = {
        {"AccessibleFilter", {}, accessibleFilter},
        {"DPIinfo", {}, scale},
        {"DialogButtonBoxStyle", {}, buttonBoxStyle},
        {"FileTypeMap", {}, fileTypes},
        {"HelpWindow", {}, helpWindow},
        {"MessageLabel", {300, 80}, messageLabel},
        {"MouseButtonFilter", {}, mouseFilters},
        {"MsgBoxCustomBtnText", SheetWindow, captions},
        {"ParentEventFilterWidget", {}, parentFilter},
        {"QtLocalPeer", {}, localPeer},
        {"QtLockedFile", {}, lockedFile},
        {"ResizeSignalTableWidget", {}, resizeSignalTable},
        {"VelaButton", {}, button},
        {"VelaButtonPath", {300, 50}, buttonPath},
        {"VelaCalanderView", {290, 270}, calendar},
        {"VelaCheckBox", {}, checkBox},
        {"VelaComboBox", {200, 50}, comboBox},
        {"VelaCountdownMessageBox", {}, countdown},
        {"VelaDateSelector", {200, 50}, dateSelector},
        {"VelaFilterBar", {220, 50}, filterBar},
        {"VelaFootbar", {400, 60}, footbar},
        {"VelaIconButton", {}, iconButton},
        {"VelaInputSheet", SheetWindow, inputSheet},
        {"VelaLabel", {220, 80}, label},
        {"VelaLineEdit", {320, 50}, lineEdit},
        {"VelaLocale", {}, locale},
        {"VelaMask", {220, 120}, mask},
        {"VelaMenu", {}, menu},
        {"VelaMessageSheet", SheetWindow, messageSheet},
        {"VelaPagingBar", {620, 60}, pagingBar},
        {"VelaRadioButton", {}, radioButton},
        {"VelaSheet", SheetWindow, sheet},
        {"VelaTableWidget", {340, 170}, table},
        {"VelaTheme", {}, theme},
        {"VelaTreeWidget", {300, 170}, tree},
    };
    return all;
}
