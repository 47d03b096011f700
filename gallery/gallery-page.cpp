// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "gallery-page.h"

#include "chrome.h"
#include "scale/scaled.h"

#include <QAbstractButton>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

namespace {

constexpr int PageMargin = 32;
constexpr int SectionSpacing = 20;
constexpr int SectionMargin = 24;
constexpr int SectionRadius = 10;
constexpr int TitleSpacing = 4;
constexpr int CaptionWidth = 224;
constexpr int ColumnWidth = 96;
constexpr int ColumnSpacing = 16;
constexpr int RowSpacing = 14;
constexpr int RowItemSpacing = 12;

// White area with round corners. It is painted, since a style sheet would reach the widgets on it.
class SectionFrame : public QFrame
{
protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(palette().color(QPalette::Mid));
        painter.setBrush(palette().base());
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), scaled(SectionRadius),
                                scaled(SectionRadius));
    }
};

QLabel *createWrappedText(const QString &text, TextStyle style)
{
    QLabel *label = createText(text, style);
    label->setWordWrap(true);
    return label;
}

QVBoxLayout *createColumn(int spacing)
{
    auto *layout = new QVBoxLayout;
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(scaled(spacing));
    return layout;
}

QVBoxLayout *createCaptions(const QString &caption, const QString &detail)
{
    QVBoxLayout *layout = createColumn(0);
    layout->addStretch();
    layout->addWidget(createText(caption, TextStyle::Body));
    if (!detail.isEmpty()) {
        QLabel *detailText = createText(detail, TextStyle::Detail);
        // The line names keys that one wants to copy.
        detailText->setTextInteractionFlags(Qt::TextSelectableByMouse);
        layout->addWidget(detailText);
    }
    layout->addStretch();
    return layout;
}

// The widgets side by side, at the left unless one of them wants all the width there is.
QHBoxLayout *createRow(const QList<QWidget *> &widgets)
{
    auto *layout = new QHBoxLayout;
    layout->setSpacing(scaled(RowItemSpacing));
    for (QWidget *widget : widgets) {
        layout->addWidget(widget);
    }
    if (!layout->expandingDirections().testFlag(Qt::Horizontal)) {
        layout->addStretch();
    }
    return layout;
}

// A widget without a text of its own is named by the caption in front of it.
void nameBy(const QString &caption, const QList<QWidget *> &widgets)
{
    for (QWidget *widget : widgets) {
        const auto *button = qobject_cast<const QAbstractButton *>(widget);
        const bool hasText = !widget || (button && !button->text().isEmpty()) || qobject_cast<const QLabel *>(widget);
        if (!hasText && widget->accessibleName().isEmpty()) {
            widget->setAccessibleName(caption);
        }
    }
}

} // namespace

GalleryPage::GalleryPage(const QString &title, const QString &introduction) : m_sections(createColumn(SectionSpacing))
{
    setAutoFillBackground(true);
    setAccessibleName(title);

    QVBoxLayout *heading = createColumn(TitleSpacing);
    heading->addWidget(createText(title, TextStyle::PageTitle));
    heading->addWidget(createWrappedText(introduction, TextStyle::Body));
    m_sections->addLayout(heading);

    auto *layout = new QVBoxLayout(this);
    const int margin = scaled(PageMargin);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->addLayout(m_sections);
    layout->addStretch();
}

void GalleryPage::addSection(const QString &title, const QString &description, const QStringList &columns)
{
    auto *frame = new SectionFrame;
    m_sections->addWidget(frame);

    auto *layout = new QVBoxLayout(frame);
    const int margin = scaled(SectionMargin);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(scaled(SectionSpacing));

    QVBoxLayout *heading = createColumn(TitleSpacing);
    heading->addWidget(createText(title, TextStyle::SectionTitle));
    heading->addWidget(createWrappedText(description, TextStyle::Detail));
    layout->addLayout(heading);

    m_examples = new QGridLayout;
    m_examples->setHorizontalSpacing(scaled(ColumnSpacing));
    m_examples->setVerticalSpacing(scaled(RowSpacing));
    m_examples->setColumnMinimumWidth(0, scaled(CaptionWidth));
    m_hasColumns = !columns.isEmpty();
    for (int i = 0; i < columns.size(); ++i) {
        m_examples->addWidget(createText(columns.at(i), TextStyle::Detail), 0, i + 1);
        m_examples->setColumnMinimumWidth(i + 1, scaled(ColumnWidth));
    }
    m_examples->setColumnStretch(columns.size() + 1, 1);
    layout->addLayout(m_examples);
}

void GalleryPage::addExample(const QString &caption, const QString &detail, const QList<QWidget *> &widgets)
{
    nameBy(caption, widgets);
    const int row = m_examples->rowCount();
    m_examples->addLayout(createCaptions(caption, detail), row, 0);
    if (!m_hasColumns) {
        m_examples->addLayout(createRow(widgets), row, 1);
        return;
    }
    for (int i = 0; i < widgets.size(); ++i) {
        if (widgets.at(i)) {
            m_examples->addWidget(widgets.at(i), row, i + 1, Qt::AlignLeft | Qt::AlignVCenter);
        }
    }
}

void GalleryPage::addWide(QWidget *widget)
{
    m_examples->addWidget(widget, m_examples->rowCount(), 0, 1, -1);
}
