// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// An application that ends as soon as it has been painted: with the library, or with the toolkit alone.
//
// Usage: starter window|calls|message

#include "support/panels.h"

#ifdef WITH_LIBRARY
#include "component/vela-mask.h"
#include "component/vela-msg-sheet.h"
#include "image-manager/image-manager.h"
#include "style-manager/style-manager.h"
#include "utils/component-strings.h"
#include "utils/ui-path-manager.h"
#endif

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QMessageBox>
#include <QPushButton>
#include <QTextStream>

#include <cstring>

namespace {

const QString Text = QStringLiteral("Delete the three files that are selected? They cannot be brought back.");

QString folder()
{
    return QStringLiteral(VELA_THEME_DIR);
}

QJsonDocument json(const QString &name)
{
    QFile file(folder() + name);
    return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()) : QJsonDocument();
}

QStringList sheets()
{
    QStringList paths;
    const QFileInfoList files = QDir(folder() + QStringLiteral("/styles")).entryInfoList(QDir::Files);
    for (const QFileInfo &file : files) {
        paths.append(file.filePath());
    }
    return paths;
}

#ifdef WITH_LIBRARY

void start()
{
    UIPathManager::getInstance()->setPath(QStringLiteral("resource_path"), folder());
    UIPathManager::getInstance()->setPath(QStringLiteral("user_data_path"), QDir::tempPath());
    QMap<QString, QString> texts;
    const QVariantMap entries = json(QStringLiteral("/strings/enu.json")).toVariant().toMap();
    for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
        texts[entry.key()] = entry->toString();
    }
    ComponentStrings::getInstance()->installStrings(texts);
    ImageManager::getInstance()->initialize(ImageManager::INIT_LAZY);
    const QStringList paths = sheets();
    StyleManager::getInstance()->initialize({paths.begin(), paths.end()});
}

void showMessage(QWidget *window)
{
    VelaMessageSheet sheet(VelaMessageSheet::QuestionMessage, Text, window);
    VelaMask::createMask(&sheet, window, QColor(0, 0, 0, 20));
    const PaintWatcher watcher(sheet.button(QMessageBox::Ok));
    sheet.showSheet();
    watcher.waitForPaint();
}

#else

// The same files, and no more than that.
void start()
{
    const QJsonDocument images = json(QStringLiteral("/images.json"));
    const QVariantMap texts = json(QStringLiteral("/strings/enu.json")).toVariant().toMap();
    const QStringList paths = sheets();
    for (const QString &path : paths) {
        QFile file(path);
        if (file.open(QIODevice::ReadOnly)) {
            QTextStream(&file).readAll();
        }
    }
}

void showMessage(QWidget *window)
{
    QMessageBox box(QMessageBox::Question, QString(), Text, QMessageBox::Ok | QMessageBox::Discard, window);
    const PaintWatcher watcher(box.button(QMessageBox::Ok));
    box.show();
    watcher.waitForPaint();
}

#endif

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    const char *const task = argc > 1 ? argv[1] : "window";
    if (std::strcmp(task, "window") != 0) {
        start();
    }
    QWidget window;
    window.resize(800, 600);
    const PaintWatcher watcher(&window);
    window.show();
    watcher.waitForPaint();
    if (std::strcmp(task, "message") == 0) {
        showMessage(&window);
    }
    return 0;
}
