// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "look/look-change_p.h"

#include "scale/dpi-info.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QEvent>

namespace Vela {

namespace {

int eventType = -1; // registered for the first change

QEvent::Type registeredEventType()
{
    if (eventType < 0) {
        eventType = QEvent::registerEventType();
    }
    return static_cast<QEvent::Type>(eventType);
}

class LookChangeEvent : public QEvent
{
public:
    explicit LookChangeEvent(const LookChange &lookChange) : QEvent(registeredEventType()), change(lookChange) { }

    const LookChange &change;
};

// A text that is missing shows its key.
QString textOf(Text text, const LookTables &tables)
{
    const QString key = QString::fromLatin1(TextEntries[static_cast<int>(text)].key);
    return tables.texts.value(key, key);
}

QString textOf(SpokenText text, const LookTables &tables)
{
    const SpokenTextEntry &entry = SpokenTextEntries[static_cast<int>(text)];
    return tables.texts.value(QString::fromLatin1(entry.key), QString::fromLatin1(entry.fallback));
}

} // namespace

LookChange::LookChange(Extent extent, LookTables former, LookTables now) :
    m_extent(extent), m_former(std::move(former)), m_now(std::move(now))
{
    for (auto image = m_former.images.cbegin(); image != m_former.images.cend(); ++image) {
        for (int type = 0; type < ImageManager::ImageFile::VariantCount; ++type) {
            if (const QPixmap &pixmap = image->pixmaps[type]; !pixmap.isNull()) {
                m_formerImages.insert(pixmap.cacheKey(), {image.key(), ImageManager::ImageType(type)});
            }
        }
    }
}

void LookChange::tell(QWidget *widget) const
{
    LookChangeEvent event(*this);
    QCoreApplication::sendEvent(widget, &event);
}

const LookChange *LookChange::of(const QEvent *event)
{
    return event->type() == eventType ? &static_cast<const LookChangeEvent *>(event)->change : nullptr;
}

bool LookChange::isOfEverything() const
{
    return m_extent == Everything;
}

QString LookChange::former(Style style) const
{
    return sheet(style, m_former, m_formerSheets);
}

QString LookChange::now(Style style) const
{
    return sheet(style, m_now, m_sheets);
}

QString LookChange::sheet(Style style, const LookTables &tables, Sheets &scaled)
{
    const auto index = static_cast<std::size_t>(style);
    if (!scaled[index]) {
        const auto section = tables.sections.find(QString::fromLatin1(StyleEntries[index].key));
        scaled[index] =
            section == tables.sections.end() ? QString() : DPIinfo::getInstance()->getScaledStyleSheet(section->second);
    }
    return *scaled[index];
}

void LookChange::restyle(QWidget *widget, Style style) const
{
    restyle(widget, former(style), now(style));
}

void LookChange::restyle(QWidget *widget, Style style, Style second) const
{
    restyle(widget, former(style) + former(second), now(style) + now(second));
}

void LookChange::restyle(QWidget *widget, const QString &former, const QString &now) const
{
    if (isOfEverything() && widget->styleSheet() == former) {
        widget->setStyleSheet(now); // also where the text is the same: its images may have changed
    }
}

QString LookChange::former(Text text) const
{
    return textOf(text, m_former);
}

QString LookChange::now(Text text) const
{
    return textOf(text, m_now);
}

void LookChange::renewText(QAbstractButton *button, Text text) const
{
    if (button->text() == former(text)) {
        button->setText(now(text));
    }
}

void LookChange::renewToolTip(QWidget *widget, Text text) const
{
    if (widget->toolTip() == former(text)) {
        widget->setToolTip(now(text));
    }
}

void LookChange::renewAccessibleName(QWidget *widget, Text text) const
{
    if (widget->accessibleName() == former(text)) {
        widget->setAccessibleName(now(text));
    }
}

void LookChange::renewAccessibleName(QWidget *widget, SpokenText text) const
{
    if (widget->accessibleName() == textOf(text, m_former)) {
        widget->setAccessibleName(textOf(text, m_now));
    }
}

// As ImageManager gives it, with the normal state in the place of one that is missing.
qint64 LookChange::formerKey(const QString &name, ImageManager::ImageType type) const
{
    const ImageManager::ImageFile image = m_former.images.value(name);
    const QPixmap &pixmap = image.pixmaps[type];
    return (pixmap.isNull() ? image.pixmaps[ImageManager::IMAGE_NORMAL] : pixmap).cacheKey();
}

QPixmap LookChange::imageNow(const QString &name, ImageManager::ImageType type) const
{
    return m_now.images.contains(name) ? getGlobalImage(name, type) : QPixmap();
}

std::optional<QPixmap> LookChange::successor(qint64 pixmapKey, const QString &name, ImageManager::ImageType type) const
{
    if (isOfEverything() && pixmapKey == formerKey(name, type)) {
        return imageNow(name, type);
    }
    return successor(pixmapKey);
}

std::optional<QPixmap> LookChange::successor(qint64 pixmapKey) const
{
    const auto image = m_formerImages.constFind(pixmapKey);
    if (!isOfEverything() || image == m_formerImages.cend()) {
        return {};
    }
    return imageNow(image->first, image->second);
}

QPixmap LookChange::now(Image image) const
{
    return imageNow(Look::nameOf(image), ImageManager::IMAGE_NORMAL);
}

QColor LookChange::former(Color color) const
{
    const QColor &own = m_former.colors[static_cast<std::size_t>(color)];
    return own.isValid() ? own : ColorEntries[static_cast<int>(color)].standard;
}

} // namespace Vela
