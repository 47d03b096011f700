// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "contrast-stage.h"

#include "contrast-samples.h"
#include "pixel-contrast.h"
#include "style-manager/style-manager.h"
#include "support/theme-copy.h"
#include "theme/vela-theme.h"
#include "utils/ui-path-manager.h"

#include <QApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMenu>
#include <QVBoxLayout>
#include <QtTest>

QString themeName()
{
    return qEnvironmentVariable("VELA_TEST_THEME", QStringLiteral("light"));
}

QDir themeFolder()
{
    return QDir(referenceTheme(themeName()));
}

static QColor themeColor(const char *group, const char *name)
{
    QFile file(themeFolder().filePath(QStringLiteral("theme.json")));
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("cannot read %s", qPrintable(file.fileName()));
    }
    const QJsonObject theme = QJsonDocument::fromJson(file.readAll()).object();
    return QColor(theme.value(QLatin1String(group)).toObject().value(QLatin1String(name)).toString());
}

QColor themeColor(const char *name)
{
    return themeColor("colors", name);
}

QColor surface(const QByteArray &name)
{
    if (name == "sheet") {
        return themeColor("sheet_body");
    }
    if (name == "popup") {
        QMenu menu;
        menu.setStyleSheet(getStyleSheet("component.menu", false));
        menu.addAction(Sample);
        menu.popup(QPoint());
        return frequentColors(enlargedPicture(&menu, menu.rect()), 1).constFirst();
    }
    return themeColor("palette", name == "page" ? "window" : "base");
}

void addSurfaces(const QVector<QPair<const char *, Create>> &widgets)
{
    QTest::addColumn<Create>("create");
    QTest::addColumn<QByteArray>("surface");
    for (const auto &widget : widgets) {
        for (const char *name : {"page", "field", "sheet"}) {
            QTest::addRow("%s on a %s", widget.first, name) << widget.second << QByteArray(name);
        }
    }
}

Stage::Stage(QWidget *content, const QColor &surface) : m_content(content), m_surface(surface)
{
    QPalette colors = palette();
    colors.setColor(QPalette::Window, surface);
    setPalette(colors);
    setAutoFillBackground(true);
    auto *column = new QVBoxLayout(this);
    column->addWidget(content);
    auto *neighbour = new QWidget; // takes the focus, so that the content has it only when it is to
    neighbour->setFocusPolicy(Qt::StrongFocus);
    neighbour->setFixedHeight(1);
    column->addWidget(neighbour);
    show();
    content->setFixedSize(content->size()); // whatever is written into it
    neighbour->setFocus();
}

static Create createOfRow()
{
    QFETCH(Create, create);
    return create;
}

static QColor surfaceOfRow()
{
    QFETCH(QByteArray, surface);
    return ::surface(surface);
}

RowStage::RowStage() : Stage(createOfRow()(), surfaceOfRow()) { }

void ContrastTest::initTestCase()
{
    UIPathManager::getInstance()->setPath(QStringLiteral("user_data_path"), m_userData.path());
    const VelaTheme::Problems problems =
        VelaTheme::getInstance()->load(themeFolder().path(), QStringLiteral("enu"), QString());
    QVERIFY2(problems.isEmpty(), problems.isEmpty() ? "" : qPrintable(problems.constFirst().toString()));
    QApplication::setCursorFlashTime(0);
    qInfo("theme: %s", qPrintable(themeName()));
}

QRect rectIn(const QWidget *widget, const QWidget *root)
{
    return QRect(widget->mapTo(root, QPoint()), widget->size()) & root->rect();
}

QList<QWidget *> withDescendants(QWidget *root)
{
    return QList<QWidget *> {root} + root->findChildren<QWidget *>();
}

QString nameOf(const QWidget *widget)
{
    const QString name = widget->objectName();
    return QString::fromLatin1(widget->metaObject()->className()) + (name.isEmpty() ? QString() : u'#' + name);
}
