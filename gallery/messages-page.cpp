// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "chrome.h"
#include "gallery-page.h"
#include "pages.h"
#include "scale/scaled.h"

#include <ImageManager>
#include <UIPathManager>
#include <VelaButton>
#include <VelaMask>
#include <VelaMessageSheet>
#include <component/vela-msg-box.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QMovie>
#include <QTimer>

#include <functional>

namespace {

constexpr int StageWidth = 560; // logical pixels, width of a window that the pictured sheets are made for
constexpr int ProcessingTime = 3000; // milliseconds

const QString &longText()
{
    static const QString text = QStringLiteral(
        "The folder <b>Pictures</b> holds 12,480 files that are not on the server yet. Copying them takes about "
        "<i>two hours</i> at the speed of this connection; you can go on working meanwhile.");
    return text;
}

QString animationFile()
{
    return UIPathManager::getInstance()->getPath(QStringLiteral("resource_path"))
        + QStringLiteral("/animations/processing.gif");
}

// A sheet in the page, so that its look is seen without opening one.
QWidget *createPicture(const std::function<VelaMessageSheet *(QWidget *stage)> &create)
{
    auto *stage = new Stage;
    stage->setFixedWidth(scaled(StageWidth));
    VelaMessageSheet *sheet = create(stage);
    auto *layout = new QHBoxLayout(stage);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(sheet, 0, Qt::AlignLeft);
    return stage;
}

struct TypeRow
{
    VelaMessageSheet::MessageType type;
    const char *name;
    const char *text;
};

constexpr TypeRow Types[] = {
    {VelaMessageSheet::AppMessage, "AppMessage", "Vela is starting."},
    {VelaMessageSheet::InfoMessage, "InfoMessage", "The backup is complete."},
    {VelaMessageSheet::WarningMessage, "WarningMessage", "The server cannot be reached."},
    {VelaMessageSheet::QuestionMessage, "QuestionMessage", "Delete three files?"},
    {VelaMessageSheet::UpgradeMessage, "UpgradeMessage", "A new version is available."},
    {VelaMessageSheet::WarningQuestionMessage, "WarningQuestionMessage", "Stop the backup?"},
};

void startAnimation(VelaMessageSheet *sheet)
{
    const auto labels = sheet->findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (QMovie *movie = label->movie()) {
            followTheme(movie, [movie] {
                movie->stop();
                movie->setFileName(animationFile());
                movie->start();
            });
        }
    }
}

void addPictures(GalleryPage *page)
{
    page->addSection(QStringLiteral("VelaMessageSheet"), QStringLiteral("The types of message, by icon and buttons."));
    for (const TypeRow &row : Types) {
        page->addExample(QString::fromLatin1(row.name), {}, {createPicture([&](QWidget *stage) {
                             return new VelaMessageSheet(row.type, QString::fromLatin1(row.text), stage);
                         })});
    }
    page->addExample(
        QStringLiteral("ProcessingMessage"), QStringLiteral("with an animation"), {createPicture([](QWidget *stage) {
            auto *sheet = new VelaMessageSheet(QStringLiteral("Copying files\u2026"), animationFile(), stage);
            // Only exec() starts it by itself.
            startAnimation(sheet);
            return sheet;
        })});
    page->addExample(QStringLiteral("Informative text"), QStringLiteral("setInformativeText()"),
                     {createPicture([](QWidget *stage) {
                         return new VelaMessageSheet(
                             VelaMessageSheet::WarningMessage, QStringLiteral("The server cannot be reached."),
                             QStringLiteral("Check the network cable, then <a href='#'>try again</a>."), stage);
                     })});
    page->addExample(
        QStringLiteral("Custom captions"), QStringLiteral("MsgBoxCustomBtnText"), {createPicture([](QWidget *stage) {
            return new VelaMessageSheet(VelaMessageSheet::QuestionMessage, longText(),
                                        MsgBoxCustomBtnText(QStringLiteral("Copy now"), QStringLiteral("Later")),
                                        stage);
        })});
}

// A button that runs show and logs the result.
QWidget *createOpener(GalleryPage *page, const QString &caption, const std::function<QString()> &show)
{
    auto *button = new VelaButton(QStringLiteral("Show"), VelaButton::DefaultButton);
    QObject::connect(button, &VelaButton::clicked, page, [page, caption, show] {
        const QString result = show();
        Q_EMIT page->logged(QStringLiteral("%1: %2").arg(caption, result));
    });
    return button;
}

struct ShortcutRow
{
    const char *name;
    std::function<QString(QWidget *)> show;
};

QString resultText(int result)
{
    return QStringLiteral("returned 0x%1").arg(result, 0, 16);
}

const std::vector<ShortcutRow> &shortcuts()
{
    static const QString title = QStringLiteral("Vela");
    static const QString answered = QStringLiteral("answered");
    static const std::vector<ShortcutRow> rows {
        {"showInfoMsg",
         [](QWidget *parent) {
             showInfoMsg(title, QStringLiteral("The backup is complete."), parent);
             return answered;
         }},
        {"showWarningMsg",
         [](QWidget *parent) {
             showWarningMsg(title, QStringLiteral("The server cannot be reached."), parent);
             return answered;
         }},
        {"showWarningMsg, 2 texts",
         [](QWidget *parent) {
             showWarningMsg(title, QStringLiteral("The server cannot be reached."),
                            QStringLiteral("Check the network cable, then try again."), parent);
             return answered;
         }},
        {"showConfirmMsg",
         [](QWidget *parent) {
             return resultText(showConfirmMsg(title, QStringLiteral("Delete three files?"), parent));
         }},
        {"showConfirmMsgCustomBtn",
         [](QWidget *parent) {
             return resultText(showConfirmMsgCustomBtn(
                 title, longText(), MsgBoxCustomBtnText(QStringLiteral("Copy now"), QStringLiteral("Later")), parent));
         }},
        {"showUpgradingMsg",
         [](QWidget *parent) {
             showUpgradingMsg(title, QStringLiteral("A new version is available."), parent);
             return answered;
         }},
    };
    return rows;
}

void addShortcuts(GalleryPage *page)
{
    page->addSection(QStringLiteral("Messages by one call"),
                     QStringLiteral("With a parent it is a sheet over the dimmed window, without one a window."),
                     {QStringLiteral("Sheet"), QStringLiteral("Window")});
    for (const ShortcutRow &row : shortcuts()) {
        const QString name = QString::fromLatin1(row.name);
        page->addExample(name, {},
                         {createOpener(page, name, [page, row] { return row.show(page); }),
                          createOpener(page, name, [row] { return row.show(nullptr); })});
    }

    const QString processing = QStringLiteral("Processing");
    page->addExample(processing, QStringLiteral("ends by itself after three seconds"),
                     {createOpener(page, processing, [page] {
                         VelaMessageSheet sheet(QStringLiteral("Copying files\u2026"), animationFile(), page);
                         VelaMask::createMask(&sheet, page->window(), maskColor());
                         QTimer::singleShot(ProcessingTime, &sheet, &VelaMessageSheet::quit);
                         return resultText(sheet.exec());
                     })});
}

} // namespace

GalleryPage *createMessagesPage(const QString &title)
{
    auto *page = new GalleryPage(title, QStringLiteral("Messages and questions inside their window."));
    addShortcuts(page);
    addPictures(page);
    return page;
}
