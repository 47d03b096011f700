// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// Texts of a message sheet, which may be rich, as its labels get them, and its layout with them.

#include "scale/dpi-info.h"
#include "scale/literal-scaling.h"
#include "sheets/vela-msg-sheet.h"
#include "support/input.h"
#include "support/widgets.h"

#include <QLabel>

namespace {

QString paragraph(const char *lineHeight, const QString &text)
{
    const QString rich = QLatin1String("<p style='line-height: ") + QLatin1String(lineHeight) + QLatin1String(";'>")
        + text + QLatin1String("</p>");
    return literallyScaled(rich, DPIinfo::getInstance()->getDPI());
}

QStringList textsOf(const QWidget &sheet)
{
    QStringList texts;
    const auto labels = sheet.findChildren<MessageLabel *>();
    for (const MessageLabel *label : labels) {
        texts.append(label->text());
    }
    texts.sort();
    return texts;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    startApplication();
    static auto *const window = new QWidget;
    FuzzInput input(data, size);
    const auto type = static_cast<VelaMessageSheet::MessageType>(input.take<quint8>() % 8);
    window->resize(100 + 4 * input.take<quint8>(), 400);
    const QString text = textOf(input.takeUpTo('\xFF'));
    const QString informativeText = textOf(input.rest());

    VelaMessageSheet sheet(type, text, informativeText, window);
    sheet.show();
    sheet.ensurePolished();
    sheet.adjustSize();
    QStringList expected {paragraph("24px", text)};
    if (!informativeText.isEmpty()) {
        expected.append(paragraph("20px", informativeText));
    }
    expected.sort();
    agree("texts", textsOf(sheet), expected);

    sheet.setInformativeText(QString());
    sheet.setText(informativeText);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    agree("texts afterwards", textsOf(sheet), {paragraph("24px", informativeText)});
    return 0;
}
