// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "chrome.h"
#include "gallery-page.h"
#include "pages.h"
#include "scale/scaled.h"

#include <VelaButton>
#include <VelaInputSheet>
#include <VelaMask>

#include <QHBoxLayout>
#include <QLineEdit>
#include <QTimer>

namespace {

constexpr int StageWidth = 560; // logical pixels, width of a window that the pictured sheet is made for

QString prompt()
{
    return QStringLiteral("Name of the new folder:");
}

QWidget *createPicture()
{
    auto *stage = new Stage;
    stage->setFixedWidth(scaled(StageWidth));
    auto *sheet = new VelaInputSheet(prompt(), stage);
    sheet->getLineEdit()->setText(QStringLiteral("Holidays"));
    auto *layout = new QHBoxLayout(stage);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(sheet, 0, Qt::AlignLeft);
    // The buttons are higher once they are styled, which the page has not reckoned with when it is laid out first.
    QTimer::singleShot(0, sheet, [sheet] { sheet->updateGeometry(); });
    return stage;
}

QWidget *createOpener(GalleryPage *page, bool blocksClose)
{
    auto *button = new VelaButton(QStringLiteral("Ask"), VelaButton::DefaultButton);
    QObject::connect(button, &VelaButton::clicked, page, [page, blocksClose] {
        VelaInputSheet sheet(prompt(), page);
        sheet.setBlockWindowButton(blocksClose);
        sheet.getLineEdit()->setPlaceholderText(QStringLiteral("Folder"));
        VelaMask::createMask(&sheet, page->window(), maskColor());
        const int result = sheet.exec();
        Q_EMIT page->logged(
            QStringLiteral("Input sheet: returned 0x%1, \"%2\"").arg(QString::number(result, 16), sheet.getContent()));
    });
    return button;
}

} // namespace

GalleryPage *createInputSheetPage(const QString &title)
{
    auto *page = new GalleryPage(title, QStringLiteral("VelaInputSheet asks for a line of text inside its window."));
    page->addSection(QStringLiteral("Try it"),
                     QStringLiteral("Return accepts, Escape does not; the text stays either way."));
    page->addExample(QStringLiteral("Over the dimmed window"), QStringLiteral("exec()"), {createOpener(page, true)});
    page->addExample(QStringLiteral("The window may be closed"), QStringLiteral("setBlockWindowButton(false)"),
                     {createOpener(page, false)});
    page->addSection(QStringLiteral("Look"), QStringLiteral("component.message_sheet_other, component.lineedit"));
    page->addExample(QStringLiteral("Sheet"), {}, {createPicture()});
    return page;
}
