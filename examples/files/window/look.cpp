// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "look.h"

#include <StyleManager>
#include <VelaTheme>

#include <QWidget>

void followTheme(QObject *owner, const std::function<void()> &renew)
{
    renew();
    QObject::connect(VelaTheme::getInstance(), &VelaTheme::changed, owner, renew);
}

void followSections(QWidget *widget, const QStringList &keys)
{
    followTheme(widget, [widget, keys] {
        QString sheet;
        for (const QString &key : keys) {
            sheet += getStyleSheet(qPrintable(key), false);
        }
        widget->setStyleSheet(sheet);
    });
}
