// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "switches.h"

#include "chrome.h"
#include "scale/scaled.h"

#include <DPIinfo>
#include <VelaCheckBox>
#include <VelaComboBox>

#include <QApplication>
#include <QDir>
#include <QEvent>
#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr int Spacing = 4;
constexpr int LastSpacing = 8;
constexpr double Scales[] = {1.0, 1.25, 1.5, 2.0};

QString scaleText(double scale)
{
    return QString::number(scale, 'g', 3);
}

} // namespace

Switches::Switches(const std::vector<ThemeEntry> &themes)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(scaled(Spacing));
    m_theme = createComboBox(QStringLiteral("&Theme"), QStringLiteral("theme"));
    m_language = createComboBox(QStringLiteral("&Language"), QStringLiteral("language"));
    m_scale = createComboBox(QStringLiteral("S&cale"), QStringLiteral("scale"));
    m_rightToLeft = new VelaCheckBox(QStringLiteral("&Right to left"));
    m_rightToLeft->setObjectName(QStringLiteral("rightToLeft"));
    layout->addSpacing(scaled(LastSpacing));
    layout->addWidget(m_rightToLeft);

    for (const ThemeEntry &theme : themes) {
        m_theme->addItem(theme.title, theme.folder);
    }
    showScale();
    m_rightToLeft->setChecked(isRightToLeft());
    followTheme(this, [this] { showWhatIsInForce(); });

    connect(m_theme, qOverload<int>(&QComboBox::activated), this, [this] {
        Q_EMIT chosen(VelaTheme::getInstance()->setFolder(m_theme->currentData().toString()));
        showWhatIsInForce(); // the former choice is in force if the chosen one has errors
    });
    connect(m_language, qOverload<int>(&QComboBox::activated), this, [this] {
        Q_EMIT chosen(VelaTheme::getInstance()->setLanguage(m_language->currentText()));
        showWhatIsInForce();
    });
    connect(m_scale, qOverload<int>(&QComboBox::activated), this,
            [this] { Q_EMIT scaleChosen(m_scale->currentData().toDouble()); });
    connect(m_rightToLeft, &VelaCheckBox::toggled, this, [](bool isRightToLeft) {
        QApplication::setLayoutDirection(isRightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    });
}

void Switches::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange) {
        m_rightToLeft->setChecked(isRightToLeft());
    }
}

VelaComboBox *Switches::createComboBox(const QString &label, const QString &objectName)
{
    auto *comboBox = new VelaComboBox;
    comboBox->setObjectName(objectName);
    QLabel *text = createText(label, TextStyle::Detail);
    text->setBuddy(comboBox);
    layout()->addWidget(text);
    layout()->addWidget(comboBox);
    return comboBox;
}

void Switches::showWhatIsInForce()
{
    const QString folder = VelaTheme::getInstance()->folder();
    m_theme->setCurrentIndex(m_theme->findData(QDir(folder).canonicalPath()));
    m_language->clear();
    m_language->addItems(VelaTheme::languages(folder));
    m_language->setCurrentText(shownLanguage());
}

void Switches::showScale()
{
    const double scale = DPIinfo::getInstance()->getDPI();
    for (const double entry : Scales) {
        m_scale->addItem(scaleText(entry), entry);
    }
    if (m_scale->findData(scale) == -1) {
        m_scale->addItem(scaleText(scale), scale);
    }
    m_scale->setCurrentIndex(m_scale->findData(scale));
}
