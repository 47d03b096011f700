// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "support/resources.h"

#include <QColor>
#include <QImage>

Resources::Resources()
{
    setAsPaths();
}

void Resources::writeImage(const QString &name, int size) const
{
    QImage image(size, size, QImage::Format_ARGB32);
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const bool isInside = (x - size / 2) * (x - size / 2) + (y - size / 2) * (y - size / 2) < size * size / 5;
            image.setPixelColor(x, y, isInside ? QColor(x * 255 / size, y * 255 / size, 128, 230) : Qt::transparent);
        }
    }
    writeImage(name, image);
}

QString Resources::writeSheet(const QString &name, const QByteArray &text) const
{
    writeFile(name, text);
    return path() + QLatin1Char('/') + name;
}

QByteArray headed(const char *key, const QByteArray &body)
{
    return QByteArray("== ") + key + " ==\n" + body + '\n';
}

QByteArray buttonSheet(const char *widgetClass)
{
    QByteArray sheet = "W {\n    min-width: 80px;\n    padding: 0px 12px;\n    border: 1px solid #2a6fdb;\n"
                       "    border-radius: 4px;\n    background-color: #2a6fdb;\n    color: #ffffff;\n}\n"
                       "W:hover {\n    background-color: #3b7ee6;\n}\n"
                       "W:focus {\n    border: 2px solid #123c7c;\n    padding: 0px 11px;\n}\n"
                       "W:pressed {\n    background-color: #1d56ae;\n    border-color: #1d56ae;\n}\n"
                       "W:disabled {\n    background-color: #d7dbe2;\n    border-color: #d7dbe2;\n    color: "
                       "#6b7280;\n}\n";
    return sheet.replace('W', widgetClass);
}

QByteArray sheetFile(int size)
{
    QByteArray text = "/* Colours of the calm theme; lengths in logical pixels. */\n";
    for (int i = 0; text.size() < size; ++i) {
        text += "\n/* Widget " + QByteArray::number(i) + ":\n   at rest, hovered, pressed, disabled. */\n";
        text += "== component.widget_" + QByteArray::number(i) + " ==\n" + buttonSheet("QPushButton");
        text += "    image: url(IMG_LOC/arrow_down.png); // drawn by us\n";
    }
    return text;
}

QByteArray sheetSection(int size)
{
    QByteArray text;
    while (text.size() < size) {
        text += buttonSheet("QPushButton");
    }
    text.truncate(size);
    return text;
}
