// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "look/look_p.h"

#include "image-manager/image-manager.h"
#include "scale/dpi-info.h"
#include "style-manager/style-manager.h"
#include "utils/component-strings.h"

#include <QEvent>
#include <QWidget>

namespace Vela::Look {

namespace {

// Keeps from a widget that its style has changed.
class Deaf : public QObject
{
public:
    bool eventFilter(QObject *, QEvent *event) override { return event->type() == QEvent::StyleChange; }
};

Colors themeColors; // invalid where the standard one holds

} // namespace

QString sheet(Style style)
{
    return getStyleSheet(StyleEntries[static_cast<int>(style)].key, false);
}

QPixmap image(Image image)
{
    return getGlobalImage(nameOf(image), ImageManager::IMAGE_NORMAL);
}

QString nameOf(Image image)
{
    return QString::fromLatin1(ImageEntries[static_cast<int>(image)].name);
}

QSize logicalSize(const QPixmap &pixmap)
{
    return pixmap.size() / DPIinfo::getInstance()->getDPR();
}

QString text(Text text)
{
    return ComponentStrings::getInstance()->getString(QString::fromLatin1(TextEntries[static_cast<int>(text)].key));
}

QString textOr(const QString &custom, Text text)
{
    return custom.isEmpty() ? Look::text(text) : custom;
}

QString spoken(SpokenText text, const QString &first, const QString &second)
{
    const SpokenTextEntry &entry = SpokenTextEntries[static_cast<int>(text)];
    ComponentStrings *strings = ComponentStrings::getInstance();
    const QString key = QString::fromLatin1(entry.key);
    QString spoken = strings->contains(key) ? strings->getString(key) : QString::fromLatin1(entry.fallback);
    return spoken.replace(QLatin1String("%1"), first).replace(QLatin1String("%2"), second);
}

QColor color(Color color)
{
    const auto index = static_cast<std::size_t>(color);
    return themeColors[index].isValid() ? themeColors[index] : ColorEntries[index].standard;
}

Colors colors()
{
    return themeColors;
}

void setColors(const Colors &colors)
{
    themeColors = colors;
}

void setFirstStyleSheet(QWidget *widget, const QString &sheet)
{
    if (!sheet.isEmpty() && widget->styleSheet().isEmpty()) {
        static Deaf deaf;
        widget->installEventFilter(&deaf);
        widget->setStyleSheet(QStringLiteral(" "));
        widget->removeEventFilter(&deaf);
    }
    widget->setStyleSheet(sheet);
}

void adopt(QWidget *child, QWidget *parent, const QString &sheet)
{
    // Of a parent that is styled itself no font is inherited.
    const bool isStyled = parent->testAttribute(Qt::WA_StyleSheet);
    parent->setAttribute(Qt::WA_StyleSheet, isStyled || !sheet.isEmpty());
    child->setParent(parent);
    parent->setAttribute(Qt::WA_StyleSheet, isStyled);
    child->setStyleSheet(sheet);
}

} // namespace Vela::Look
