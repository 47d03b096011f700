// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "gallery-window.h"

#include "chrome.h"
#include "gallery-page.h"
#include "log-view.h"
#include "pages.h"
#include "scale/scaled.h"
#include "switches.h"

#include <DPIinfo>
#include <ImageManager>

#include <QApplication>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QListWidget>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr QSize WindowSize(1180, 820);
constexpr int SideBarWidth = 200;
constexpr int SideBarMargin = 12;
constexpr int SideBarTopMargin = 32;
constexpr int SideBarTextMargin = 12;
constexpr int SideBarSpacing = 16;
constexpr int LogHeight = 150;

constexpr char ListSheet[] = R"(
    QListWidget#pageList { background: transparent; border: none; outline: none; }
    QListWidget#pageList::item { color: palette(text); border: 2px solid transparent; border-radius: 6px;
                                 padding: 6px 10px; }
    QListWidget#pageList::item:hover { background-color: palette(button); }
    QListWidget#pageList::item:selected { color: palette(highlighted-text); background-color: palette(highlight); }
    QListWidget#pageList::item:selected:focus { border-color: palette(text); })";

QScrollArea *createScrollArea(QWidget *content)
{
    auto *area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setWidget(content);
    return area;
}

} // namespace

GalleryWindow::GalleryWindow(const std::vector<ThemeEntry> &themes) :
    m_sideBar(new QWidget),
    m_title(createText(QStringLiteral("Vela Components"), TextStyle::SectionTitle)),
    m_list(new QListWidget),
    m_pages(new QStackedWidget),
    m_log(new LogView)
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    fillSideBar(themes);
    layout->addWidget(m_sideBar);
    layout->addWidget(createContent(), 1);
    resize(scaled(WindowSize.width()), scaled(WindowSize.height()));

    connect(m_list, &QListWidget::currentRowChanged, this, &GalleryWindow::setCurrentPage);
    connect(new QShortcut(QKeySequence::Quit, this), &QShortcut::activated, this, &QWidget::close);
    // Until the window is destroyed, by which it loses the focus: the watch is gone by then.
    connect(qApp, &QApplication::focusChanged, &m_watch,
            [this](const QWidget *, const QWidget *focused) { scrollToFocus(focused); });
    connect(&m_watch, &ThemeWatch::changed, this, &GalleryWindow::reloadTheme);
    followTheme(this, [this] { renewLook(); });
}

void GalleryWindow::showPage(const QString &name)
{
    const int row = pageNames().indexOf(name);
    if (row != -1) {
        m_list->setCurrentRow(row);
    }
}

GalleryPage *GalleryWindow::currentPage() const
{
    return qobject_cast<GalleryPage *>(static_cast<QScrollArea *>(m_pages->currentWidget())->widget());
}

LogView *GalleryWindow::log() const
{
    return m_log;
}

void GalleryWindow::addProblems(const VelaTheme::Problems &problems)
{
    QSet<QString> texts;
    for (const VelaTheme::Problem &problem : problems) {
        const QString text = problem.toString();
        if (!m_problems.contains(text)) {
            m_log->addProblem(text);
        }
        texts.insert(text);
    }
    m_problems = texts;
}

GalleryState GalleryWindow::state() const
{
    return {pageNames().at(m_list->currentRow()), VelaTheme::getInstance()->folder(), shownLanguage(), isRightToLeft(),
            saveGeometry()};
}

void GalleryWindow::fillSideBar(const std::vector<ThemeEntry> &themes)
{
    m_list->setObjectName(QStringLiteral("pageList"));
    m_list->setAccessibleName(QStringLiteral("Pages"));
    styleScrollBars(m_list);
    for (const PageEntry &page : galleryPages()) {
        m_list->addItem(page.title);
    }

    m_title->setContentsMargins(scaled(SideBarTextMargin), 0, scaled(SideBarTextMargin), 0);
    auto *switches = new Switches(themes);
    connect(switches, &Switches::chosen, this, &GalleryWindow::addProblems);
    connect(switches, &Switches::scaleChosen, this, &GalleryWindow::scaleChosen);

    m_sideBar->setAutoFillBackground(true);
    m_sideBar->setBackgroundRole(QPalette::Base);
    auto *layout = new QVBoxLayout(m_sideBar);
    const int margin = scaled(SideBarMargin);
    layout->setContentsMargins(margin, scaled(SideBarTopMargin), margin, margin);
    layout->setSpacing(scaled(SideBarSpacing));
    layout->addWidget(m_title);
    layout->addWidget(m_list);
    layout->addWidget(switches);
}

QWidget *GalleryWindow::createContent()
{
    // A page is made when it is first shown, so that the start does not pay for all of them.
    for (size_t i = 0; i < galleryPages().size(); ++i) {
        m_pages->addWidget(createScrollArea(nullptr));
    }

    auto *splitter = new QSplitter(Qt::Vertical);
    splitter->setHandleWidth(1);
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(m_pages);
    splitter->addWidget(m_log);
    splitter->setStretchFactor(0, 1);
    splitter->setStretchFactor(1, 0);
    splitter->setSizes({scaled(WindowSize.height() - LogHeight), scaled(LogHeight)});
    return splitter;
}

void GalleryWindow::setCurrentPage(int index)
{
    auto *area = static_cast<QScrollArea *>(m_pages->widget(index));
    if (!area->widget()) {
        const PageEntry &entry = galleryPages().at(static_cast<size_t>(index));
        GalleryPage *page = entry.create(entry.title);
        connect(page, &GalleryPage::logged, m_log, &LogView::addSignal);
        area->setWidget(page);
        area->setAccessibleName(entry.title);
        styleScrollBars(area);
        m_log->moveToEndOfTabOrder();
    }
    m_pages->setCurrentIndex(index);
    setWindowTitle(currentPage()->accessibleName() + QStringLiteral(" \u2013 Vela Gallery"));
}

// Scroll areas follow keys only from one of their widgets to the next, and of a field they show the cursor. Under a
// press of the mouse nothing may move.
void GalleryWindow::scrollToFocus(const QWidget *focused)
{
    if (!focused || QApplication::mouseButtons() != Qt::NoButton) {
        return;
    }
    auto *area = static_cast<QScrollArea *>(m_pages->currentWidget());
    const QWidget *page = area->widget();
    if (!page || !page->isAncestorOf(focused)) {
        return;
    }
    const QSize half = (focused->size() + QSize(1, 1)) / 2;
    const QPoint center = focused->mapTo(page, focused->rect().center());
    const QSize room = area->viewport()->size();
    if (focused->width() < room.width() && focused->height() < room.height()) {
        area->ensureVisible(center.x(), center.y(), half.width(), half.height());
    }
}

// Colours of the palette are read when a sheet is set.
void GalleryWindow::renewLook()
{
    m_list->setStyleSheet(DPIinfo::getInstance()->getScaledStyleSheet(QString::fromLatin1(ListSheet)));
    m_sideBar->setFixedWidth(sideBarWidth());
    setWindowIcon(QIcon::fromTheme(QStringLiteral("vela-gallery")));
    if (windowIcon().isNull()) {
        setWindowIcon(getGlobalImage("app_img", ImageManager::IMAGE_NORMAL));
    }
    m_watch.setFolder(VelaTheme::getInstance()->folder());
}

// Large fonts need more than the usual width.
int GalleryWindow::sideBarWidth() const
{
    const int pagesWidth = m_list->sizeHintForColumn(0) + m_list->verticalScrollBar()->sizeHint().width();
    const int widest = std::max(pagesWidth, m_title->sizeHint().width());
    return std::max(scaled(SideBarWidth), widest + 2 * scaled(SideBarMargin));
}

void GalleryWindow::reloadTheme()
{
    const VelaTheme::Problems problems = VelaTheme::getInstance()->reload();
    addProblems(problems);
    if (!VelaTheme::hasErrors(problems)) {
        m_log->addSignal(QStringLiteral("The theme has been read again"));
    }
}
