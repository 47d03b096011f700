// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "log-view.h"

#include "chrome.h"
#include "scale/scaled.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTime>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

constexpr int Margin = 12;
constexpr int SideMargin = 32;
constexpr int Spacing = 6;
constexpr int FewestLines = 2;
constexpr int MaximumLines = 1000;

} // namespace

LogView::LogView() : m_text(new QPlainTextEdit), m_clear(new QToolButton)
{
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);

    m_clear->setText(QStringLiteral("Clear"));
    m_clear->setAutoRaise(true);

    m_text->setReadOnly(true);
    m_text->setFrameShape(QFrame::NoFrame);
    m_text->setMaximumBlockCount(MaximumLines);
    m_text->setPlaceholderText(QStringLiteral("Try a widget: the signals that it emits are listed here."));
    m_text->setAccessibleName(QStringLiteral("Signals and warnings"));
    m_text->document()->setDocumentMargin(0);
    m_text->setMinimumHeight(FewestLines * m_text->fontMetrics().lineSpacing());
    styleScrollBars(m_text);

    auto *header = new QHBoxLayout;
    header->addWidget(createText(QStringLiteral("Signals and warnings"), TextStyle::SectionTitle));
    header->addStretch();
    header->addWidget(m_clear);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(scaled(SideMargin), scaled(Margin), scaled(SideMargin), scaled(Margin));
    layout->setSpacing(scaled(Spacing));
    layout->addLayout(header);
    layout->addWidget(m_text);

    connect(m_clear, &QToolButton::clicked, m_text, &QPlainTextEdit::clear);
}

void LogView::moveToEndOfTabOrder()
{
    QWidget *last = window()->previousInFocusChain();
    for (QWidget *stop : {static_cast<QWidget *>(m_clear), static_cast<QWidget *>(m_text)}) {
        setTabOrder(last, stop);
        last = stop;
    }
}

void LogView::addSignal(const QString &text)
{
    add(text.toHtmlEscaped());
}

void LogView::addWarning(const QString &text)
{
    addProblem(QStringLiteral("Warning: ") + text);
}

void LogView::addProblem(const QString &text)
{
    add(QStringLiteral("<b>%1</b>").arg(text.toHtmlEscaped()));
}

// Lines have no colour of their own, so that old ones follow the palette, too.
void LogView::add(const QString &html)
{
    m_text->appendHtml(QTime::currentTime().toString(QStringLiteral("HH:mm:ss")) + QStringLiteral("&nbsp;&nbsp; ")
                       + html);
}
