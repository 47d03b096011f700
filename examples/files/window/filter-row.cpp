// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "filter-row.h"

#include "look.h"
#include "scale/scaled.h"
#include "texts/texts.h"

#include <VelaButton>
#include <VelaDateSelector>
#include <VelaFilterBar>
#include <VelaLabel>
#include <VelaMenu>

#include <QAction>
#include <QHBoxLayout>

namespace {

constexpr int Spacing = 8;
constexpr int KeywordWidth = 260;
constexpr int DateWidth = 130;

struct KindRow
{
    Kind kind;
    const char *textKey;
};

constexpr KindRow KindRows[KindCount] = {
    {Kind::Folder, "kinds_folders"}, {Kind::Document, "kinds_documents"}, {Kind::Picture, "kinds_pictures"},
    {Kind::Sound, "kinds_sounds"},   {Kind::Video, "kinds_videos"},       {Kind::Archive, "kinds_archives"},
    {Kind::Code, "kinds_code"},      {Kind::Other, "kinds_others"},
};

} // namespace

FilterRow::FilterRow(QWidget *parent) :
    QWidget(parent),
    m_keyword(new VelaFilterBar),
    m_between(new VelaLabel),
    m_from(new VelaDateSelector(QString(), nullptr)),
    m_to(new VelaDateSelector(QString(), nullptr)),
    m_clear(new VelaButton(QString(), VelaButton::DefaultButton))
{
    createKinds();
    createDates();
    layOut();
    connect(m_keyword, &VelaFilterBar::sigKeywordChanged, this, &FilterRow::changed);
    connect(m_clear, &VelaButton::clicked, this, &FilterRow::clear);
    connect(this, &FilterRow::changed, this, [this] { m_clear->setEnabled(!filter().isEmpty()); });
    m_clear->setEnabled(false);
    followTheme(this, [this] { retranslate(); });
}

FilterRow::~FilterRow() = default;

Filter FilterRow::filter() const
{
    Filter filter;
    filter.keyword = m_keyword->text().trimmed();
    for (int i = 0; i < KindCount; ++i) {
        filter.kinds.setFlag(KindRows[i].kind, m_kinds.at(i)->isChecked());
    }
    filter.from = m_from->date();
    filter.to = m_to->date();
    return filter;
}

void FilterRow::clear()
{
    m_keyword->clear();
    for (QAction *kind : qAsConst(m_kinds)) {
        kind->setChecked(false);
    }
    m_from->clearDate();
    m_to->clearDate();
    renewDates();
    Q_EMIT changed();
}

void FilterRow::focusKeyword()
{
    m_keyword->setFocus(Qt::ShortcutFocusReason);
    m_keyword->selectAll();
}

void FilterRow::createKinds()
{
    auto *menu = new VelaMenu(m_keyword);
    followSections(menu, {QStringLiteral("component.menu")});
    for (int i = 0; i < KindCount; ++i) {
        QAction *action = menu->addAction(QString());
        action->setCheckable(true);
        connect(action, &QAction::triggered, this, &FilterRow::changed);
        m_kinds.append(action);
    }
    m_keyword->setMenu(menu);
    m_keyword->setFixedWidth(scaled(KeywordWidth));
}

// A selector's list tells of each choice.
void FilterRow::createDates()
{
    for (VelaDateSelector *selector : {m_from, m_to}) {
        selector->setFixedWidth(scaled(DateWidth));
        connect(selector->getCalendarView(), &VelaCalanderView::sigDateSelect, this, &FilterRow::changed,
                Qt::QueuedConnection);
    }
}

// A selector keeps the text that it was made with, and the date as the language was when it was chosen.
void FilterRow::renewDates()
{
    for (VelaDateSelector *selector : {m_from, m_to}) {
        const QDate date = selector->date();
        if (date.isValid()) {
            selector->dateSelect(date);
        } else {
            selector->setItemText(0, text("any_day"));
        }
    }
}

void FilterRow::layOut()
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(scaled(Spacing));
    row->addWidget(m_keyword);
    row->addSpacing(scaled(Spacing));
    row->addWidget(m_between);
    row->addWidget(m_from);
    row->addWidget(m_to);
    row->addWidget(m_clear);
    row->addStretch(1);
}

void FilterRow::retranslate()
{
    m_keyword->setPlaceholderText(text("filter_placeholder"));
    m_between->setText(text("changed_between"));
    m_clear->setText(text("clear_filter"));
    renewDates();
    m_from->setAccessibleName(text("changed_from"));
    m_to->setAccessibleName(text("changed_to"));
    for (int i = 0; i < KindCount; ++i) {
        m_kinds.at(i)->setText(text(KindRows[i].textKey));
    }
}
