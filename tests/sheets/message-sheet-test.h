// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "component/vela-mask.h"
#include "component/vela-msg-sheet.h"
#include "support/controls.h"
#include "support/environment.h"
#include "support/log-capture.h"
#include "support/resource-folder.h"
#include "utils/component-strings.h"

#include <QDialogButtonBox>
#include <QMovie>
#include <QPushButton>
#include <QStyleFactory>
#include <QStyleOption>
#include <QVBoxLayout>
#include <QtTest>

using Type = VelaMessageSheet::MessageType;

Q_DECLARE_METATYPE(QMessageBox::StandardButton)
Q_DECLARE_METATYPE(VelaMessageSheet::MessageType)

// Logical pixels.
constexpr int Shadow = 22;
constexpr int Margin = 10;
constexpr int TextBottomMargin = 4;
constexpr int InformativeSpacing = 6;
constexpr int IconSpacing = 20;
constexpr int ButtonSpacing = 20;

// What callers compare answers against.
constexpr int OkCode = 0x400;
constexpr int CancelCode = 0x800000;

constexpr int IconFileSize = 160; // size of the file of an icon of 40 logical pixels

inline const char *const IconNames[] = {"app_img", "icon_information", "icon_warning", "icon_question"};
inline const QColor IconColors[] = {Qt::red, Qt::green, Qt::blue, Qt::yellow};

// Sections of sheets that apply to nothing; each has a length of its own.
struct Section
{
    const char *name;
    int length;
};

inline const Section Sections[] = {
    {"apply_button", 10},        {"cancel_button", 20},      {"message_sheet_processing", 30},
    {"message_sheet_other", 40}, {"message_sheet_text", 50}, {"message_sheet_informative_text", 60},
};

inline QString sectionText(const char *name, double scale)
{
    for (const Section &section : Sections) {
        if (qstrcmp(section.name, name) == 0) {
            return QStringLiteral("#%1 { left: %2px }")
                .arg(QLatin1String(name), QString::number(static_cast<int>(section.length * scale)));
        }
    }
    qFatal("no section %s", name);
}

// The sheet under "component.name" as widgets have it.
inline QString sheetOf(const char *name)
{
    return sectionText(name, expectedScale());
}

inline QColor iconColor(const QString &name)
{
    for (int i = 0; i < 4; ++i) {
        if (name == QLatin1String(IconNames[i])) {
            return IconColors[i];
        }
    }
    return {};
}

inline QString paragraph(int lineHeight, const QString &text)
{
    return QStringLiteral("<p style='line-height: %1px;'>%2</p>")
        .arg(QString::number(expectedPixels(lineHeight)), text);
}

inline QString manyWords(int count)
{
    return QStringLiteral("word ").repeated(count).trimmed();
}

inline QPixmap picture(int logicalSize)
{
    QPixmap pixmap(expectedPixels(logicalSize), expectedPixels(logicalSize));
    pixmap.fill(Qt::magenta);
    return pixmap;
}

// A window that is so many logical pixels wide.
class Host : public QWidget
{
public:
    explicit Host(int logicalWidth = 700) { resize(expectedPixels(logicalWidth), expectedPixels(500)); }
};

// What a sheet is made of at the moment.
struct Parts
{
    explicit Parts(const VelaMessageSheet &sheet)
    {
        const auto labels = sheet.findChildren<QLabel *>(QString(), Qt::FindDirectChildrenOnly);
        for (QLabel *label : labels) {
            auto *message = qobject_cast<MessageLabel *>(label);
            if (!message) {
                icon = label;
            } else if (!text) {
                text = message;
            } else {
                informative = message;
            }
        }
        box = sheet.findChild<QDialogButtonBox *>(QString(), Qt::FindDirectChildrenOnly);
    }

    MessageLabel *text = nullptr;
    MessageLabel *informative = nullptr;
    QLabel *icon = nullptr;
    QDialogButtonBox *box = nullptr;
};

inline QPixmap iconOf(const VelaMessageSheet &sheet)
{
    return Parts(sheet).icon->pixmap(Qt::ReturnByValue);
}

inline QList<int> codesOf(const VelaMessageSheet &sheet)
{
    QList<int> codes;
    const QDialogButtonBox *box = Parts(sheet).box;
    const auto buttons = box->buttons();
    for (QAbstractButton *button : buttons) {
        codes.append(box->standardButton(button));
    }
    std::sort(codes.begin(), codes.end());
    return codes;
}

inline void deleteWhatIsForgotten()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// Whether the sheet sees, and refuses, an attempt to close widget.
inline bool isWatched(QWidget *widget)
{
    QCloseEvent event;
    QCoreApplication::sendEvent(widget, &event);
    return !event.isAccepted();
}

// A layout as a text: "[...]" a row or column, "20" a gap along it, "icon^" a widget aligned to the top.
inline QString outline(const QLayout *layout, const Parts &parts)
{
    const auto nameOf = [&parts](const QWidget *widget) {
        return widget == parts.icon       ? QStringLiteral("icon")
            : widget == parts.text        ? QStringLiteral("text")
            : widget == parts.informative ? QStringLiteral("informative")
            : widget == parts.box         ? QStringLiteral("buttons")
                                          : QStringLiteral("?");
    };
    const auto *box = qobject_cast<const QBoxLayout *>(layout);
    const bool isRow = box->direction() == QBoxLayout::LeftToRight;
    QStringList items;
    for (int i = 0; i < layout->count(); ++i) {
        QLayoutItem *item = layout->itemAt(i);
        QString name;
        if (item->layout()) {
            name = outline(item->layout(), parts);
        } else if (item->widget()) {
            name = nameOf(item->widget());
        } else {
            name = QString::number(isRow ? item->sizeHint().width() : item->sizeHint().height());
        }
        items.append(name + (item->alignment() == Qt::AlignTop ? QStringLiteral("^") : QString()));
    }
    return (isRow ? QStringLiteral("row(") : QStringLiteral("column(")) + items.join(QLatin1Char(' '))
        + QLatin1Char(')');
}

// The style of an application, with one answer of its own.
class HintStyle : public QProxyStyle
{
public:
    HintStyle(StyleHint hint, int answer) : m_hint(hint), m_answer(answer) { }

    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *returnData) const override
    {
        return hint == m_hint ? m_answer : QProxyStyle::styleHint(hint, option, widget, returnData);
    }

private:
    const StyleHint m_hint;
    const int m_answer;
};

// A style that answers each hint differently and keeps what it was asked.
class AskedStyle : public QProxyStyle
{
public:
    static int answer(StyleHint hint) { return 1000 + hint; }

    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *returnData) const override
    {
        lastOption = option;
        lastWidget = widget;
        lastReturnData = returnData;
        return answer(hint);
    }

    mutable const QStyleOption *lastOption = nullptr;
    mutable const QWidget *lastWidget = nullptr;
    mutable const QStyleHintReturn *lastReturnData = nullptr;
};

// What the tests of the message sheet begin with, and undo at their end.
class MessageSheetTest : public QObject
{
protected:
    void setUp()
    {
        m_styleName = QApplication::style()->objectName();
        QStringList names;
        for (int i = 0; i < 4; ++i) {
            names.append(QLatin1String(IconNames[i]));
            m_folder.writeImage(names.last(), QSize(IconFileSize, IconFileSize), IconColors[i]);
        }
        for (const char *place : {"lt", "rt", "lb", "rb", "l", "r", "t", "b"}) {
            names.append(QLatin1String("bg_tutorial_") + QLatin1String(place));
            m_folder.writeImage(names.last(), QSize(4 * Shadow, 4 * Shadow), Qt::gray);
        }
        m_folder.writeCatalogue(names);

        QByteArray sheets;
        for (const Section &section : Sections) {
            sheets += QByteArrayLiteral("== component.") + section.name + " ==\n"
                + sectionText(section.name, 1.0).toUtf8() + '\n';
        }
        installSheets(m_folder, sheets);
        ComponentStrings::getInstance()->installStrings({
            {QStringLiteral("ok"), QStringLiteral("Agree")},
            {QStringLiteral("cancel"), QStringLiteral("Decline")},
            {QStringLiteral("wizard_client_upgrade"), QStringLiteral("Renew")},
        });

        m_folder.writeFile(QStringLiteral("dot.gif"),
                           QByteArray::fromBase64("R0lGODlhAQABAIAAAAAAAP///yH5BAEAAAAALAAAAAABAAEAAAIBRAA7"));
        m_movieFile = m_folder.path() + QLatin1String("/dot.gif");
    }

    void restoreStyle()
    {
        if (QApplication::style()->objectName() != m_styleName) {
            QApplication::setStyle(m_styleName);
        }
    }

    ResourceFolder m_folder;
    QString m_movieFile;
    QString m_styleName;
};
