// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "foot-row.h"

#include "actions.h"
#include "listing/folder-model.h"
#include "look.h"
#include "operations/job.h"
#include "texts/texts.h"

#include <VelaButton>
#include <VelaLabel>

#include <QLocale>

namespace {

constexpr int Margins[] = {12, 8, 12, 8}; // logical pixels
constexpr int Spacing = 8;

constexpr struct
{
    ActionId id;
    VelaButton::Kind kind;
} Buttons[] = {
    {ActionId::NewFolder, VelaButton::DefaultButton}, {ActionId::Rename, VelaButton::DefaultButton},
    {ActionId::Copy, VelaButton::DefaultButton},      {ActionId::Cut, VelaButton::DefaultButton},
    {ActionId::Paste, VelaButton::DefaultButton},     {ActionId::Trash, VelaButton::RedButton},
};

} // namespace

FootRow::FootRow(const Actions &actions, const FolderModel *model, Job *job, QWidget *parent) :
    VelaFootbar(parent),
    m_model(model),
    m_job(job),
    m_counts(new VelaLabel),
    m_progress(new VelaLabel),
    m_stop(new VelaButton(QString(), VelaButton::CancelButton))
{
    pushLeftWidget(m_counts);
    pushLeftWidget(m_progress);
    pushLeftWidget(m_stop);
    for (const auto &button : Buttons) {
        pushRightWidget(actions.createButton(button.id, button.kind));
    }
    init();
    setMargins(Margins[0], Margins[1], Margins[2], Margins[3]);
    setSpacing(Spacing);
    m_stop->setObjectName(QStringLiteral("stop"));
    connect(m_stop, &VelaButton::clicked, m_job, &Job::stop);
    connect(m_job, &Job::started, this, &FootRow::showProgress);
    connect(m_job, &Job::progressed, this, &FootRow::showProgress);
    connect(m_job, &Job::finished, this, &FootRow::showProgress);
    followTheme(this, [this] {
        m_stop->setText(text("stop"));
        showProgress();
    });
}

FootRow::~FootRow() = default;

void FootRow::showCounts(int selectedCount, qint64 selectedBytes)
{
    const QLocale locale;
    if (selectedCount > 0) {
        m_counts->setText(text("selected_of")
                              .arg(locale.toString(selectedCount), locale.toString(m_model->count()),
                                   locale.formattedDataSize(selectedBytes, 1)));
    } else if (m_model->isBusy()) {
        m_counts->setText(text("count").arg(locale.toString(m_model->count())));
    } else {
        m_counts->setText(
            text("count_and_size")
                .arg(locale.toString(m_model->count()), locale.formattedDataSize(m_model->shownBytes(), 1)));
    }
}

void FootRow::showProgress()
{
    const bool isShown = m_job->isRunning();
    m_progress->setVisible(isShown);
    m_stop->setVisible(isShown);
    const int percentage = m_job->percentage();
    m_progress->setText(percentage < 0 ? text("working") : text("working_percent").arg(QLocale().toString(percentage)));
}
