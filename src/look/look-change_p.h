// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "look/look-tables_p.h"

#include <QHash>

#include <array>
#include <optional>
#include <utility>

class QAbstractButton;
class QEvent;
class QWidget;

namespace Vela {

/// The step from the look that was in force to the one that is now. Every living widget is told of it by an event.
///
/// A widget renews what still shows the former look: a style sheet, text or image that an application has put in its
/// place stays. So widgets keep nothing for this.
class LookChange
{
public:
    enum Extent {
        Texts, ///< texts only
        Everything, ///< sheets, images, colours and texts
    };

    LookChange(Extent extent, LookTables former, LookTables now);
    Q_DISABLE_COPY_MOVE(LookChange)

    /// Tells @p widget, which gets a custom event.
    void tell(QWidget *widget) const;
    /// The change that @p event tells of, null for any other event.
    static const LookChange *of(const QEvent *event);

    /// Whether sheets, images and colours have changed.
    bool isOfEverything() const;

    /// A section, scaled for the screen; empty where there was none, or is none. Unlike Look::sheet() it logs nothing.
    QString former(Style style) const;
    QString now(Style style) const;
    /// Gives @p widget the section, or one behind the other, where it has the former ones.
    void restyle(QWidget *widget, Style style) const;
    void restyle(QWidget *widget, Style style, Style second) const;
    /// The same for a sheet that is made from sections.
    void restyle(QWidget *widget, const QString &former, const QString &now) const;

    QString former(Text text) const;
    QString now(Text text) const;
    void renewText(QAbstractButton *button, Text text) const;
    void renewToolTip(QWidget *widget, Text text) const;
    void renewAccessibleName(QWidget *widget, Text text) const;
    void renewAccessibleName(QWidget *widget, SpokenText text) const;

    /// What is now in the place of a pixmap that the former catalogue gave for @p name and @p type, or for any image
    /// and state; nothing where @p pixmapKey is of none such.
    std::optional<QPixmap> successor(qint64 pixmapKey, const QString &name, ImageManager::ImageType type) const;
    std::optional<QPixmap> successor(qint64 pixmapKey) const;

    /// The image in its normal state; null, and nothing is logged, where it is not in the catalogue.
    QPixmap now(Image image) const;

    QColor former(Color color) const;

private:
    using Sheets = std::array<std::optional<QString>, static_cast<std::size_t>(Style::Count)>;
    using ImageState = std::pair<QString, ImageManager::ImageType>;

    static QString sheet(Style style, const LookTables &tables, Sheets &scaled);
    qint64 formerKey(const QString &name, ImageManager::ImageType type) const;
    QPixmap imageNow(const QString &name, ImageManager::ImageType type) const;

    const Extent m_extent;
    const LookTables m_former;
    const LookTables m_now;
    mutable Sheets m_formerSheets;
    mutable Sheets m_sheets;
    QHash<qint64, ImageState> m_formerImages; // by the keys of their pixmaps
};

} // namespace Vela
