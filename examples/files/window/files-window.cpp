// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "files-window.h"

#include "disk/native-path.h"
#include "file-clipboard.h"
#include "file-table.h"
#include "filter-row.h"
#include "folder-tree.h"
#include "foot-row.h"
#include "help.h"
#include "look.h"
#include "path-bar.h"
#include "scale/scaled.h"
#include "start/appearance.h"
#include "texts/texts.h"
#include "top-row.h"

#include <ImageManager>
#include <VelaMenu>

#include <QCloseEvent>
#include <QDir>
#include <QHBoxLayout>
#include <QIcon>
#include <QSplitter>

namespace {

constexpr QSize WindowSize(1100, 720);
constexpr int Margin = 12;
constexpr int Spacing = 8;
constexpr int TreeWidth = 240;

} // namespace

FilesWindow::FilesWindow(const Settings &settings) :
    m_model(KindTable::ofLibrary()),
    m_actions(this),
    m_sheets(this),
    m_commands(&m_sheets, &m_job, nullptr),
    m_top(new TopRow(m_actions)),
    m_filter(new FilterRow),
    m_tree(new FolderTree),
    m_table(new FileTable(&m_model)),
    m_foot(new FootRow(m_actions, &m_model, &m_job)),
    m_split(new QSplitter)
{
    layOut();
    connectActions();
    connectFolder();
    followTheme(this, [this] { retranslate(); });
    resize(scaled(WindowSize.width()), scaled(WindowSize.height()));
    restoreGeometry(settings.geometry);
    m_split->restoreState(settings.split);
    m_actions[ActionId::ShowHidden]->setChecked(settings.withHidden);
    m_model.setOrder(settings.order);
    applyFilter();
    openFolder(settings.folder.isEmpty() ? QDir::homePath() : settings.folder);
    m_table->focusRows();
}

FilesWindow::~FilesWindow()
{
    // The table is a child, and would be outlived otherwise.
    delete m_split;
}

void FilesWindow::openFolder(const QString &folder)
{
    if (!folder.isEmpty() && folder != m_model.folder()) {
        m_model.open(folder);
    }
}

void FilesWindow::obey(const StartRequest &request)
{
    if (!request.theme.isEmpty() || !request.language.isEmpty()) {
        applyAppearance(request.theme.isEmpty() ? themeInForce() : request.theme,
                        request.language.isEmpty() ? languageInForce() : request.language);
    }
    openFolder(request.folder);
}

const FolderModel *FilesWindow::model() const
{
    return &m_model;
}

void FilesWindow::closeEvent(QCloseEvent *event)
{
    if (m_job.isRunning()) {
        event->ignore();
        m_sheets.ask(text("close_question"), text("close_details"), text("stop"), [this] {
            connect(&m_job, &Job::finished, this, &QWidget::close, Qt::QueuedConnection);
            m_job.stop();
        });
        return;
    }
    keepSettings();
    QWidget::closeEvent(event);
}

QWidget *FilesWindow::createViews()
{
    m_split->addWidget(m_tree);
    m_split->addWidget(m_table);
    m_split->setChildrenCollapsible(false);
    m_split->setStretchFactor(1, 1);
    m_split->setSizes({scaled(TreeWidth), scaled(WindowSize.width() - TreeWidth)});
    return m_split;
}

void FilesWindow::layOut()
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    auto *upper = new QVBoxLayout;
    const int margin = scaled(Margin);
    upper->setContentsMargins(margin, margin, margin, 0);
    upper->setSpacing(scaled(Spacing));
    upper->addWidget(m_top);
    upper->addWidget(m_filter);
    upper->addWidget(createViews(), 1);
    column->addLayout(upper, 1);
    column->addWidget(m_foot);
}

void FilesWindow::connectActions()
{
    const auto on = [this](ActionId id, const auto &act) { connect(m_actions[id], &QAction::triggered, this, act); };
    on(ActionId::Up, [this] {
        m_table->await(nameOfPath(m_model.folder()));
        openFolder(parentOfPath(m_model.folder()));
    });
    on(ActionId::Refresh, [this] { m_model.reload(); });
    on(ActionId::NewFolder, [this] { m_commands.createFolder(m_model.folder()); });
    on(ActionId::Rename, [this] { m_commands.rename(selectedPaths().constFirst()); });
    on(ActionId::Copy, [this] { putOnClipboard(selectedPaths(), false); });
    on(ActionId::Cut, [this] { putOnClipboard(selectedPaths(), true); });
    on(ActionId::Paste, [this] { paste(); });
    on(ActionId::Trash, [this] { m_commands.trash(selectedPaths()); });
    on(ActionId::Delete, [this] { m_commands.removeForGood(selectedPaths()); });
    on(ActionId::Properties, [this] { m_commands.showProperties(selectedPaths().value(0, m_model.folder())); });
    on(ActionId::Find, [this] { m_filter->focusKeyword(); });
    on(ActionId::GoTo, [this] { m_tree->setFocus(Qt::ShortcutFocusReason); });
    on(ActionId::Open, [this] { m_table->chooseCurrent(); });
    on(ActionId::Help, [this] { showHelp(); });
    on(ActionId::Quit, [this] { close(); });
    connect(m_actions[ActionId::ShowHidden], &QAction::toggled, this, &FilesWindow::applyFilter);
}

void FilesWindow::connectFolder()
{
    connect(&m_model, &FolderModel::opened, this, &FilesWindow::showFolder);
    connect(&m_model, &FolderModel::changed, this, &FilesWindow::updateActions);
    connect(&m_model, &FolderModel::failed, this, &FilesWindow::climb);
    connect(m_tree, &FolderTree::chosen, this, &FilesWindow::openFolder);
    connect(m_top->path(), &PathBar::chosen, this, &FilesWindow::openFolder);
    connect(m_filter, &FilterRow::changed, this, &FilesWindow::applyFilter);
    connect(m_table, &FileTable::chosen, this, &FilesWindow::choose);
    connect(m_table, &FileTable::selectionChanged, this, &FilesWindow::updateActions);
    connect(m_table, &FileTable::menuWanted, this, &FilesWindow::showMenu);
    connect(&m_job, &Job::started, this, &FilesWindow::updateActions);
    connect(&m_job, &Job::finished, this, &FilesWindow::updateActions);
    connect(&m_commands, &Commands::done, this, [this](const QString &name) {
        m_table->select(name);
        m_model.reload();
    });
}

void FilesWindow::retranslate()
{
    setWindowIcon(QIcon::fromTheme(QStringLiteral("vela-files"),
                                   QIcon(getGlobalImage("vela_files", ImageManager::IMAGE_NORMAL))));
    updateActions();
}

void FilesWindow::showFolder()
{
    m_isClimbing = false;
    m_top->path()->setFolder(m_model.folder());
    m_tree->goTo(m_model.folder());
    updateActions();
}

// What cannot be shown leaves what was, unless that has gone: then the folder around it is shown.
void FilesWindow::climb(const DiskError &error)
{
    const bool isShown = error.path == m_model.folder() || m_model.folder().isEmpty();
    if (!m_isClimbing) {
        m_commands.tellOfFolder(error);
    }
    m_isClimbing = isShown || m_isClimbing;
    if (m_isClimbing && error.path != u"/") {
        m_model.open(parentOfPath(error.path));
    } else {
        m_tree->goTo(m_model.folder());
    }
}

void FilesWindow::choose(const FileEntry &entry)
{
    const QString path = joinedPath(m_model.folder(), entry.name);
    if (entry.isFolder) {
        openFolder(path);
    } else {
        m_commands.open(path);
    }
}

void FilesWindow::showMenu(const QPoint &position)
{
    VelaMenu menu(this);
    followSections(&menu, {QStringLiteral("component.menu")});
    for (const ActionId id : {ActionId::Open, ActionId::Rename, ActionId::Copy, ActionId::Cut, ActionId::Paste,
                              ActionId::Trash, ActionId::Delete, ActionId::NewFolder, ActionId::Properties}) {
        menu.addAction(m_actions[id]);
    }
    menu.exec(position);
}

void FilesWindow::showHelp()
{
    ::showHelp(this);
}

void FilesWindow::applyFilter()
{
    Filter filter = m_filter->filter();
    filter.withHidden = m_actions[ActionId::ShowHidden]->isChecked();
    m_tree->setHiddenShown(filter.withHidden);
    m_model.setFilter(filter);
}

void FilesWindow::paste()
{
    TransferRequest request;
    request.sources = filesOnClipboard(&request.isMove);
    request.folder = m_model.folder();
    if (request.sources.isEmpty()) {
        return;
    }
    if (request.isMove) {
        clearClipboard();
    }
    m_commands.transfer(request);
}

void FilesWindow::updateActions()
{
    const int count = m_table->selectedNames().size();
    const bool isFree = !m_job.isRunning();
    m_actions[ActionId::Open]->setEnabled(count == 1);
    m_actions[ActionId::Rename]->setEnabled(count == 1);
    for (const ActionId id : {ActionId::Copy, ActionId::Cut}) {
        m_actions[id]->setEnabled(count > 0);
    }
    for (const ActionId id : {ActionId::Trash, ActionId::Delete}) {
        m_actions[id]->setEnabled(count > 0 && isFree);
    }
    m_actions[ActionId::Paste]->setEnabled(isFree);
    m_actions[ActionId::Up]->setEnabled(m_model.folder() != u"/");
    m_foot->showCounts(count, m_table->selectedBytes());
    const QString name = m_model.folder() == u"/" ? text("computer") : shownName(nameOfPath(m_model.folder()));
    setWindowTitle(text("window_title").arg(name));
}

QStringList FilesWindow::selectedPaths() const
{
    QStringList paths = m_table->selectedNames();
    for (QString &path : paths) {
        path = joinedPath(m_model.folder(), path);
    }
    return paths;
}

void FilesWindow::keepSettings() const
{
    Settings settings;
    settings.theme = themeInForce();
    settings.language = languageInForce();
    settings.folder = m_model.folder();
    settings.order = m_model.order();
    settings.withHidden = m_model.filter().withHidden;
    settings.geometry = saveGeometry();
    settings.split = m_split->saveState();
    settings.write();
}
