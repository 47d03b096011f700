// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "gallery-page.h"
#include "pages.h"

#include <VelaButton>
#include <VelaCountdownMessageBox>

namespace {

constexpr int PictureSeconds = 10 * 60; // longer time than anybody looks at the picture

void fill(VelaCountdownMessageBox *box)
{
    box->setWindowTitle(QStringLiteral("Vela"));
    box->setIcon(QMessageBox::Information);
    box->setText(QStringLiteral("The computer is shut down when the count is over."));
}

QWidget *createOpener(GalleryPage *page, int seconds)
{
    auto *button = new VelaButton(QStringLiteral("Count down"), VelaButton::DefaultButton);
    QObject::connect(button, &VelaButton::clicked, page, [page, seconds] {
        VelaCountdownMessageBox box(seconds, page->window());
        fill(&box);
        const int result = box.exec();
        Q_EMIT page->logged(QStringLiteral("Countdown: returned 0x%1").arg(result, 0, 16));
    });
    return button;
}

QWidget *createPicture()
{
    auto *box = new VelaCountdownMessageBox(PictureSeconds);
    fill(box);
    box->setWindowFlags(Qt::Widget);
    box->setAttribute(Qt::WA_TransparentForMouseEvents);
    return box;
}

} // namespace

GalleryPage *createCountdownPage(const QString &title)
{
    auto *page =
        new GalleryPage(title, QStringLiteral("VelaCountdownMessageBox clicks Ok itself unless one cancels in time."));
    page->addSection(QStringLiteral("Try it"),
                     QStringLiteral("The first number shown is one less than the seconds it takes."));
    for (int seconds : {3, 10}) {
        page->addExample(QStringLiteral("%1 seconds").arg(seconds), {}, {createOpener(page, seconds)});
    }
    page->addSection(QStringLiteral("Look"), QStringLiteral("component.info_message_box"));
    page->addExample(QStringLiteral("Box"), {}, {createPicture()});
    return page;
}
