#include "log-view.h"

#include "chrome.h"

#include <StyleManager>

#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTime>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

constexpr int Margin = 12;
constexpr int SideMargin = 32;
constexpr int Spacing = 6;
constexpr int MaximumLines = 1000;
constexpr char TimeColor[] = "#667382";
constexpr char SignalColor[] = "#17202B";
constexpr char WarningColor[] = "#A92732";

} // namespace

LogView::LogView() : m_text(new QPlainTextEdit)
{
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);

    auto *clear = new QToolButton;
    clear->setText(QStringLiteral("Clear"));
    clear->setAutoRaise(true);

    m_text->setReadOnly(true);
    m_text->setFrameShape(QFrame::NoFrame);
    m_text->setMaximumBlockCount(MaximumLines);
    m_text->setPlaceholderText(QStringLiteral("Try a widget: the signals that it emits are listed here."));
    m_text->setAccessibleName(QStringLiteral("Signals and warnings"));
    m_text->document()->setDocumentMargin(0);
    m_text->verticalScrollBar()->setStyleSheet(getStyleSheet("component.scrollbar", false));

    auto *header = new QHBoxLayout;
    header->addWidget(createText(QStringLiteral("Signals and warnings"), TextStyle::SectionTitle));
    header->addStretch();
    header->addWidget(clear);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(scaled(SideMargin), scaled(Margin), scaled(SideMargin), scaled(Margin));
    layout->setSpacing(scaled(Spacing));
    layout->addLayout(header);
    layout->addWidget(m_text);

    connect(clear, &QToolButton::clicked, m_text, &QPlainTextEdit::clear);
}

void LogView::addSignal(const QString &text)
{
    add(text, QString::fromLatin1(SignalColor));
}

void LogView::addWarning(const QString &text)
{
    add(QStringLiteral("Warning: ") + text, QString::fromLatin1(WarningColor));
}

void LogView::add(const QString &text, const QString &color)
{
    const QString time = QTime::currentTime().toString(QStringLiteral("HH:mm:ss"));
    m_text->appendHtml(
        QStringLiteral("<span style=\"color:%1\">%2</span>&nbsp;&nbsp; <span style=\"color:%3\">%4</span>")
            .arg(QString::fromLatin1(TimeColor), time, color, text.toHtmlEscaped()));
}
