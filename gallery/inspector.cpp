// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "inspector.h"

#include "chrome.h"
#include "scale/scaled.h"

#include <VelaTheme>

#include <QApplication>
#include <QDir>
#include <QFontDatabase>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScreen>
#include <QSplitter>

namespace {

constexpr QSize WindowSize(680, 760);
constexpr int Margin = 16;
constexpr int Spacing = 10;
constexpr int KeyOfInspector = Qt::Key_F12;

QLabel *addFact(QFormLayout *facts, const QString &title)
{
    QLabel *fact = createText(QString(), TextStyle::Body);
    fact->setObjectName(title.toLower());
    fact->setWordWrap(true);
    fact->setTextInteractionFlags(Qt::TextSelectableByMouse);
    facts->addRow(createText(title, TextStyle::Detail), fact);
    return fact;
}

QString linesOf(const QStringList &lines)
{
    return lines.isEmpty() ? QStringLiteral("none") : lines.join(u'\n');
}

} // namespace

Inspector::Inspector(QWidget *parent) : QWidget(parent, Qt::Window), m_title(createText({}, TextStyle::SectionTitle))
{
    setWindowTitle(QStringLiteral("Inspector \u2013 Vela Gallery"));
    setObjectName(QStringLiteral("inspector"));
    m_title->setObjectName(QStringLiteral("title"));
    m_title->setWordWrap(true);

    auto *facts = new QFormLayout;
    facts->setHorizontalSpacing(scaled(Margin));
    facts->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    m_keys = addFact(facts, QStringLiteral("Sections"));
    m_images = addFact(facts, QStringLiteral("Images"));
    m_texts = addFact(facts, QStringLiteral("Texts"));

    auto *texts = new QSplitter(Qt::Vertical);
    texts->setChildrenCollapsible(false);
    texts->addWidget(createSections());
    texts->addWidget(createFindings());
    texts->setStretchFactor(0, 2);
    texts->setStretchFactor(1, 1);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(scaled(Margin), scaled(Margin), scaled(Margin), scaled(Margin));
    layout->setSpacing(scaled(Spacing));
    layout->addWidget(m_title);
    layout->addLayout(facts);
    layout->addWidget(texts, 1);
    resize(scaled(WindowSize.width()), scaled(WindowSize.height()));

    connect(&m_check, &CheckRun::found, this, [this](const Findings &findings) {
        m_found = findings;
        tellOfCheck(QStringLiteral("Nothing is wrong."));
        showFindings();
    });
    connect(&m_check, &CheckRun::failed, this, [this](const QString &reason) {
        m_found = Findings();
        tellOfCheck(QStringLiteral("vela-theme could not check it: %1").arg(reason));
        showFindings();
    });
    connect(&m_watch, &ThemeWatch::changed, this, &Inspector::check);
    connect(&m_watch, &ThemeWatch::changed, this, &Inspector::refresh);
    followTheme(this, [this] {
        const QString folder = VelaTheme::getInstance()->folder();
        if (m_folder != folder) { // saves are watched for
            m_folder = folder;
            m_watch.setFolder(folder);
            check();
        }
        refresh();
    });
}

void Inspector::inspect(QWidget *widget)
{
    m_widget = widget;
    refresh();
    if (!isVisible()) {
        standBeside(parentWidget()->frameGeometry());
    }
    show();
    raise();
}

// Where there is room for it.
void Inspector::standBeside(const QRect &gallery)
{
    const QRect screen = parentWidget()->screen()->availableGeometry();
    if (gallery.right() + width() <= screen.right()) {
        move(gallery.topRight());
    }
}

QWidget *Inspector::createSections()
{
    auto *columns = new QSplitter;
    columns->setChildrenCollapsible(false);
    m_raw = addText(columns, QStringLiteral("Sections as they are written"));
    m_scaled = addText(columns, QStringLiteral("The same, scaled"));
    m_raw->setObjectName(QStringLiteral("raw"));
    m_scaled->setObjectName(QStringLiteral("scaled"));
    columns->setSizes({scaled(WindowSize.width()), scaled(WindowSize.width())}); // in equal parts
    return columns;
}

QWidget *Inspector::createFindings()
{
    auto *row = new QSplitter;
    row->setChildrenCollapsible(false);
    m_widgetFindings = addText(row, QStringLiteral("Findings in these"));
    m_findings = addText(row, QStringLiteral("All findings in the theme"));
    m_widgetFindings->setObjectName(QStringLiteral("widgetFindings"));
    m_findings->setObjectName(QStringLiteral("findings"));
    for (QPlainTextEdit *findings : {m_widgetFindings, m_findings}) {
        findings->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    }
    row->setSizes({scaled(WindowSize.width()), scaled(WindowSize.width())}); // in equal parts
    return row;
}

QPlainTextEdit *Inspector::addText(QWidget *column, const QString &title)
{
    auto *text = new QPlainTextEdit;
    text->setReadOnly(true);
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    text->setAccessibleName(title);
    followTheme(text, [text] {
        QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
        font.setPointSizeF(QApplication::font(text).pointSizeF());
        text->setFont(font);
    });
    styleScrollBars(text);

    auto *box = new QWidget(column);
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(0, scaled(Spacing), 0, 0);
    layout->addWidget(createText(title, TextStyle::Detail));
    layout->addWidget(text);
    return text;
}

void Inspector::refresh()
{
    if (!m_widget) {
        return; // what it was remains to be read
    }
    m_inspection = ::inspect(m_widget);
    QStringList keys;
    QString raw;
    QString scaledText;
    for (const InspectedSection &section : qAsConst(m_inspection.sections)) {
        const QString header = QStringLiteral("== %1 ==\n").arg(section.key);
        keys.append(QStringLiteral("%1: %2:%3").arg(section.key, section.file).arg(section.firstLine));
        raw += header + section.raw + QStringLiteral("\n\n");
        scaledText += header + section.scaled + QStringLiteral("\n\n");
    }
    m_title->setText(m_inspection.title);
    m_keys->setText(linesOf(keys));
    m_images->setText(linesOf(m_inspection.images));
    m_texts->setText(linesOf(m_inspection.texts));
    m_raw->setPlainText(raw);
    m_scaled->setPlainText(scaledText);
    showFindings();
}

void Inspector::check()
{
    m_isCheckDue = !isVisible();
    if (!m_isCheckDue) {
        tellOfCheck(QStringLiteral("It is being checked."));
        m_check.start(m_folder);
    }
}

// In place of findings, where there are none.
void Inspector::tellOfCheck(const QString &state)
{
    m_findings->setPlaceholderText(state);
    m_widgetFindings->setPlaceholderText(state);
}

void Inspector::showFindings()
{
    const QString theme = QDir(m_folder).dirName();
    m_findings->setPlainText(asText(m_found, theme));
    m_widgetFindings->setPlainText(asText(findingsOf(m_inspection, m_found), theme));
}

void Inspector::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (m_isCheckDue) {
        check();
    }
}

InspectorKey::InspectorKey(QWidget *gallery) : m_gallery(gallery)
{
    qApp->installEventFilter(this);
}

bool InspectorKey::eventFilter(QObject *watched, QEvent *event)
{
    const bool isKey = event->type() == QEvent::KeyPress && watched->isWidgetType();
    if (isKey && static_cast<QKeyEvent *>(event)->key() == KeyOfInspector
        && static_cast<QKeyEvent *>(event)->modifiers() == Qt::NoModifier) {
        inspect();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

void InspectorKey::inspect()
{
    QWidget *widget = widgetAt(QCursor::pos());
    if (!widget || widget->window() == m_inspector) {
        widget = QApplication::focusWidget();
    }
    if (!widget || widget->window() == m_inspector) {
        return;
    }
    if (!m_inspector) {
        m_inspector = new Inspector(m_gallery);
    }
    m_inspector->inspect(widget);
}
