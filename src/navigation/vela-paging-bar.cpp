// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "navigation/vela-paging-bar.h"

#include "controls/vela-button.h"
#include "look/look-change_p.h"
#include "look/look_p.h"
#include "look/mirrored_p.h"
#include "scale/scaled.h"
#include "utils/accessible-event_p.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QSignalMapper>
#include <QStyleOptionToolButton>
#include <QStylePainter>

using namespace Vela;

namespace {

constexpr int PageButtonCount = 5;
constexpr int CurrentButton = 2; // index of the current page's button
constexpr int PagesPerJump = 5;

// Logical pixels.
constexpr int OuterSpacing = 50;
constexpr int PageButtonSpacing = 4;
constexpr int PageButtonHeight = 27;
constexpr int PageButtonMinimumWidth = 28;
constexpr int RefreshButtonSize = 24;
constexpr int FooterTopMargin = 2;
constexpr int FooterLabelHeight = 19;
constexpr int BarHeight = 29;

struct NavigationLook
{
    Image image;
    Text toolTip;
    void (VelaPagingBar::*slot)();
};

enum Navigation { FirstPage, BackFive, LastPage, ForwardFive, NavigationCount };

constexpr NavigationLook NavigationLooks[NavigationCount] = {
    {Image::PagingFirst, Text::FirstPage, &VelaPagingBar::first_page},
    {Image::PagingBack, Text::FivePagesBack, &VelaPagingBar::prev_5_page},
    {Image::PagingLast, Text::LastPage, &VelaPagingBar::last_page},
    {Image::PagingNext, Text::FivePagesOn, &VelaPagingBar::next_5_page},
};

// Button that points to its pages in the direction of reading.
class NavigationButton : public VelaIconButton
{
public:
    explicit NavigationButton(Image image) : VelaIconButton(Look::nameOf(image)) { }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QStylePainter painter(this);
        QStyleOptionToolButton option;
        initStyleOption(&option);
        option.icon = Look::mirrored(option.icon, option.iconSize, this);
        painter.drawComplexControl(QStyle::CC_ToolButton, option);
    }
};

} // namespace

class VelaPagingBarPrivate
{
public:
    struct FooterLabel
    {
        QLabel *label;
        Style style;
    };

    explicit VelaPagingBarPrivate(VelaPagingBar *bar, VelaPagingModel *pagingModel) : q(bar), model(pagingModel) { }

    void resetModel();
    void createNavigationButtons();
    void createPageButtons();
    void createRefreshButton();
    void layOut();
    void connectSignals();
    void turnTo(qint64 page);
    void addFooterLabel(const PagingFooterInfo &info);
    void removeFooterLabel();
    void renew(const LookChange &change);

    VelaPagingBar *const q;
    const QPointer<VelaPagingModel> model; // model of the client's, null once that has deleted it
    QHBoxLayout *pageLayout = nullptr;
    QHBoxLayout *footerLayout = nullptr;
    VelaIconButton *navigationButtons[NavigationCount] = {};
    VelaButton *pageButtons[PageButtonCount] = {};
    std::vector<FooterLabel> footerLabels; // from the refresh button on
    VelaIconButton *refreshButton = nullptr;
    QSignalMapper *mapper = nullptr;
    QWidget *border = nullptr;
};

void VelaPagingBarPrivate::resetModel()
{
    model->setNowPage(1);
    model->setItemCount(0);
    mapper = new QSignalMapper(q);
}

void VelaPagingBarPrivate::createNavigationButtons()
{
    for (int i = 0; i < NavigationCount; ++i) {
        navigationButtons[i] = new NavigationButton(NavigationLooks[i].image);
        navigationButtons[i]->setToolTip(Look::text(NavigationLooks[i].toolTip));
    }
}

void VelaPagingBarPrivate::createPageButtons()
{
    for (int i = 0; i < PageButtonCount; ++i) {
        const int kind = i == CurrentButton ? VelaButton::SelectPagingButton : VelaButton::NonselectPagingButton;
        pageButtons[i] = new VelaButton(QString(), kind);
        pageButtons[i]->setFixedHeight(scaled(PageButtonHeight));
        pageButtons[i]->setMinimumWidth(scaled(PageButtonMinimumWidth));
        QObject::connect(pageButtons[i], &VelaButton::clicked, mapper, qOverload<>(&QSignalMapper::map));
        mapper->setMapping(pageButtons[i], i);
    }
    pageButtons[CurrentButton]->setText(QString::number(1));
}

void VelaPagingBarPrivate::createRefreshButton()
{
    refreshButton = new VelaIconButton(Look::nameOf(Image::PagingRefresh));
    refreshButton->setHoverIcon(Look::image(Image::PagingRefreshHovered));
    refreshButton->setDisableIcon(Look::image(Image::PagingRefreshDisabled));
    refreshButton->setAccessibleName(Look::text(Text::Refresh));
    refreshButton->setFixedSize(scaled(RefreshButtonSize), scaled(RefreshButtonSize));
}

void VelaPagingBarPrivate::layOut()
{
    pageLayout = new QHBoxLayout;
    pageLayout->setSpacing(0);
    pageLayout->setContentsMargins(0, 0, 0, 0);
    pageLayout->addSpacing(scaled(OuterSpacing));
    pageLayout->addWidget(navigationButtons[FirstPage], 0, Qt::AlignLeft);
    pageLayout->addWidget(navigationButtons[BackFive], 0, Qt::AlignLeft);
    pageLayout->addStretch();
    for (int i = 0; i < PageButtonCount; ++i) {
        if (i > 0) {
            pageLayout->addSpacing(scaled(PageButtonSpacing));
        }
        pageLayout->addWidget(pageButtons[i], 0, Qt::AlignHCenter);
    }
    pageLayout->addStretch();
    pageLayout->addWidget(navigationButtons[ForwardFive], 0, Qt::AlignRight);
    pageLayout->addWidget(navigationButtons[LastPage], 0, Qt::AlignRight);

    footerLayout = new QHBoxLayout;
    footerLayout->setDirection(QBoxLayout::RightToLeft);
    footerLayout->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    footerLayout->setSpacing(0);
    footerLayout->setContentsMargins(0, scaled(FooterTopMargin), 0, 0);
    footerLayout->addWidget(refreshButton, 0, Qt::AlignCenter);
    pageLayout->addSpacing(scaled(OuterSpacing));
    pageLayout->addLayout(footerLayout);

    border = new QWidget(q);
    border->setObjectName(QStringLiteral("PAGINGBARBORDER"));
    border->setStyleSheet(Look::sheet(Style::PagingBarBorder)); // comes before it has children to style again
    border->setLayout(pageLayout);
    border->setFixedHeight(scaled(BarHeight));

    auto *row = new QHBoxLayout(q);
    row->setSpacing(0);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(border);
}

void VelaPagingBarPrivate::connectSignals()
{
    QObject::connect(mapper, &QSignalMapper::mappedInt, q, &VelaPagingBar::pageClick);
    QObject::connect(refreshButton, &VelaIconButton::clicked, q, &VelaPagingBar::sigRefresh);
    for (int i = 0; i < NavigationCount; ++i) {
        QObject::connect(navigationButtons[i], &VelaIconButton::clicked, q, NavigationLooks[i].slot);
    }
}

void VelaPagingBarPrivate::turnTo(qint64 page)
{
    if (model) {
        q->setPage(static_cast<int>(page));
        Q_EMIT q->sigPageChanged();
    }
}

void VelaPagingBarPrivate::addFooterLabel(const PagingFooterInfo &info)
{
    const bool isRightmost = footerLabels.empty() && refreshButton->isHidden();
    const Style style = isRightmost ? Style::PagingBarRightmostLabel : Style::PagingBarLabel;
    auto *label = new QLabel(info.text);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setFixedHeight(scaled(FooterLabelHeight));
    if (info.width != 0) {
        label->setFixedWidth(scaled(info.width));
    }
    Look::adopt(label, footerLayout->parentWidget(), Look::sheet(style));
    footerLabels.push_back({label, style});
    footerLayout->addWidget(label);
}

// The label stays behind, hidden: it is neither deleted nor used again.
void VelaPagingBarPrivate::removeFooterLabel()
{
    QLabel *label = footerLabels.back().label;
    label->hide();
    footerLayout->removeWidget(label);
    footerLabels.pop_back();
}

void VelaPagingBarPrivate::renew(const LookChange &change)
{
    change.restyle(border, Style::PagingBarBorder);
    for (const FooterLabel &footer : footerLabels) {
        change.restyle(footer.label, footer.style);
    }
    for (int i = 0; i < NavigationCount; ++i) {
        change.renewToolTip(navigationButtons[i], NavigationLooks[i].toolTip);
    }
    change.renewAccessibleName(refreshButton, Text::Refresh);
}

VelaPagingBar::VelaPagingBar(VelaPagingModel *model, QWidget *parent) :
    QWidget(parent), d(std::make_unique<VelaPagingBarPrivate>(this, model))
{
    d->resetModel();
    d->createNavigationButtons();
    d->createPageButtons();
    d->createRefreshButton();
    d->layOut();
    d->connectSignals();
}

VelaPagingBar::~VelaPagingBar() = default;

void VelaPagingBar::customEvent(QEvent *event)
{
    if (const auto *change = LookChange::of(event)) {
        d->renew(*change);
    }
    QWidget::customEvent(event);
}

VelaPagingModel *VelaPagingBar::model() const
{
    return d->model;
}

void VelaPagingBar::setItemCount(int count)
{
    if (!d->model) {
        return;
    }
    d->model->setItemCount(count);
    setPage(d->model->nowPage());
}

void VelaPagingBar::setPage(int page)
{
    if (!d->model) {
        return;
    }
    const int pageCount = d->model->pageCount();
    for (int i = 0; i < PageButtonCount; ++i) {
        const qint64 number = static_cast<qint64>(page) - CurrentButton + i;
        const bool isPage = number > 0 && number <= pageCount;
        d->pageButtons[i]->setText(isPage ? QString::number(number) : QStringLiteral(" "));
        d->pageButtons[i]->setEnabled(isPage);
    }
    d->navigationButtons[ForwardFive]->setEnabled(pageCount > page);
    d->navigationButtons[LastPage]->setEnabled(pageCount > page);
    d->navigationButtons[FirstPage]->setEnabled(page != 1);
    d->navigationButtons[BackFive]->setEnabled(page != 1);
    d->model->setNowPage(page);
    tellScreenReaders(this, QAccessible::DescriptionChanged);
    if (QWidget *focused = focusWidget(); focused && focused != this) {
        tellScreenReaders(focused, QAccessible::DescriptionChanged);
    }
}

void VelaPagingBar::reset()
{
    d->turnTo(1);
}

void VelaPagingBar::setFooterText(const QString &text)
{
    setFooterInfo({text, 0});
}

void VelaPagingBar::setFooterInfo(const PagingFooterInfo &info)
{
    setFooterInfos({info});
}

void VelaPagingBar::setFooterInfos(const std::vector<PagingFooterInfo> &infos)
{
    for (std::size_t i = 0; i < infos.size(); ++i) {
        if (i >= d->footerLabels.size()) {
            d->addFooterLabel(infos[i]);
            continue;
        }
        d->footerLabels[i].label->setText(infos[i].text);
        if (infos[i].width != 0) {
            d->footerLabels[i].label->setFixedWidth(scaled(infos[i].width));
        }
    }
    while (d->footerLabels.size() > infos.size()) {
        d->removeFooterLabel();
    }
}

void VelaPagingBar::setRefreshButtonHidden(bool hidden)
{
    d->refreshButton->setHidden(hidden);
}

void VelaPagingBar::pageClick(int page)
{
    const bool isButton = page >= 0 && page < PageButtonCount;
    d->turnTo(isButton ? d->pageButtons[page]->text().toInt() : 0);
}

void VelaPagingBar::next_5_page()
{
    if (!d->model) {
        return;
    }
    d->turnTo(qMin(static_cast<qint64>(d->model->nowPage()) + PagesPerJump, qint64(d->model->pageCount())));
}

void VelaPagingBar::prev_5_page()
{
    if (!d->model) {
        return;
    }
    d->turnTo(qMax(static_cast<qint64>(d->model->nowPage()) - PagesPerJump, qint64(1)));
}

void VelaPagingBar::first_page()
{
    d->turnTo(1);
}

void VelaPagingBar::last_page()
{
    if (!d->model) {
        return;
    }
    d->turnTo(d->model->pageCount());
}
