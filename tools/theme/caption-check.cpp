// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "caption-check.h"

#include "caption-stage.h"
#include "fault-section.h"
#include "findings.h"
#include "json-file.h"
#include "text-check.h"

#include <ComponentStrings>
#include <VelaTheme>

#include <QApplication>
#include <QSet>

#include <algorithm>

namespace {

using Measure = std::function<QVector<ShownCaption>()>;

constexpr int MostTexts = 2; // in as many languages a text may be too long by itself

QString keyOf(const ShownCaption &caption)
{
    return QString::fromLatin1(Vela::TextEntries[static_cast<int>(caption.text)].key);
}

QString fileOf(const QString &language)
{
    return QStringLiteral("strings/%1.json").arg(language);
}

// The keys of the texts that are cut, with the widgets that cut them.
QMap<QString, QStringList> cutTexts(const QVector<ShownCaption> &captions, const QSet<int> &without)
{
    QMap<QString, QStringList> cut;
    for (int i = 0; i < captions.size(); ++i) {
        if (captions.at(i).isCut && !without.contains(i)) {
            QStringList &users = cut[keyOf(captions.at(i))];
            const QString user = QString::fromLatin1(captions.at(i).user);
            if (!users.contains(user)) {
                users.append(user);
            }
        }
    }
    return cut;
}

bool isAnyCut(const QVector<ShownCaption> &captions)
{
    return std::any_of(captions.cbegin(), captions.cend(), [](const ShownCaption &caption) { return caption.isCut; });
}

class CaptionCheck
{
public:
    CaptionCheck(const QString &folder, const SheetText &sheets, Findings *findings) :
        m_folder(folder), m_languages(VelaTheme::languages(folder)), m_sheets(sheets), m_findings(findings)
    {
    }

    void run();

private:
    void measureLanguages(const Measure &measure);
    void findSections(const QVector<ShownCaption> &shortCaptions);
    void tellSections(const Measure &measure);
    void tellSection(const ShownCaption &caption, const std::function<bool()> &isCut);
    bool isSectionTold(const QWidget *widget) const;
    void tellTexts();
    void tellLongerTexts(const QVector<ShownCaption> &captions) const;

    const QString m_folder;
    const QStringList m_languages;
    const SheetText &m_sheets;
    Findings *const m_findings;
    QVector<QVector<ShownCaption>> m_measured; // by language
    QSet<int> m_sectionFaults; // captions that are cut whatever they are
};

void CaptionCheck::run()
{
    showCaptions([this](const Measure &measure) { measureLanguages(measure); });
    const QMap<QString, QString> texts = textsOf(m_folder, mainLanguageOf(m_folder));
    auto *strings = ComponentStrings::getInstance();
    if (std::any_of(m_measured.cbegin(), m_measured.cend(), isAnyCut)) {
        strings->installStrings(shortTexts());
        showCaptions([this](const Measure &measure) { findSections(measure()); });
        strings->installStrings(texts);
        showCaptions([this](const Measure &measure) { tellSections(measure); });
        tellTexts();
    }
    // A caption that is too long by itself may take other ones' room.
    if (cutTexts(m_measured.at(m_languages.indexOf(mainLanguageOf(m_folder))), m_sectionFaults).isEmpty()) {
        strings->installStrings(lengthened(texts));
        QApplication::setLayoutDirection(Qt::RightToLeft);
        showCaptions([this](const Measure &measure) { tellLongerTexts(measure()); });
        QApplication::setLayoutDirection(Qt::LeftToRight);
    }
}

void CaptionCheck::measureLanguages(const Measure &measure)
{
    for (const QString &language : m_languages) {
        VelaTheme::getInstance()->setLanguage(language);
        m_measured.append(measure());
    }
}

// It is no text's fault where many are too long, or even a short one.
void CaptionCheck::findSections(const QVector<ShownCaption> &shortCaptions)
{
    for (int i = 0; i < shortCaptions.size(); ++i) {
        const auto cutIn = std::count_if(m_measured.cbegin(), m_measured.cend(),
                                         [i](const QVector<ShownCaption> &measured) { return measured.at(i).isCut; });
        if (shortCaptions.at(i).isCut || cutIn > MostTexts) {
            m_sectionFaults.insert(i);
        }
    }
}

// What is cut besides in a widget of such a section is not the text's fault either.
void CaptionCheck::tellSections(const Measure &measure)
{
    const QVector<ShownCaption> captions = measure();
    QSet<const QWidget *> told;
    for (int i = 0; i < captions.size(); ++i) {
        const ShownCaption &caption = captions.at(i);
        if (m_sectionFaults.contains(i) && !told.contains(caption.widget)) {
            told.insert(caption.widget);
            tellSection(caption, [&] { return measure().at(i).isCut; });
        }
    }
    for (int i = 0; i < captions.size(); ++i) {
        if (isSectionTold(captions.at(i).widget)) {
            m_sectionFaults.insert(i);
        }
    }
}

void CaptionCheck::tellSection(const ShownCaption &caption, const std::function<bool()> &isCut)
{
    if (isSectionTold(caption.widget)) {
        return;
    }
    const QString key = sectionAtFault(caption.widget, isCut);
    addToSection("caption-cut", key.isEmpty() ? sectionsOf(caption.widget).value(0) : key,
                 QStringLiteral("the caption \"%1\" of %2 is cut").arg(caption.caption, QLatin1String(caption.user)),
                 m_sheets, m_findings);
}

bool CaptionCheck::isSectionTold(const QWidget *widget) const
{
    const QStringList keys = sectionsOf(widget);
    return std::any_of(keys.cbegin(), keys.cend(), [this](const QString &key) {
        return isToldOfSection("caption-cut", key, m_sheets, *m_findings);
    });
}

void CaptionCheck::tellTexts()
{
    for (int language = 0; language < m_languages.size(); ++language) {
        const QString file = fileOf(m_languages.at(language));
        const QMap<QString, QString> texts = textsOf(m_folder, m_languages.at(language));
        const QMap<QString, QStringList> cut = cutTexts(m_measured.at(language), m_sectionFaults);
        for (auto it = cut.cbegin(); it != cut.cend(); ++it) {
            Findings ignored;
            const int line = JsonFile(m_folder, file, "text-json", &ignored).lineOf(it.key());
            m_findings->add(
                "caption-cut", file, line,
                QStringLiteral("\"%1\" is cut (%2)").arg(texts.value(it.key()), it->join(QStringLiteral(", "))));
        }
    }
}

// What is cut in a language has been told.
void CaptionCheck::tellLongerTexts(const QVector<ShownCaption> &captions) const
{
    QSet<int> told;
    for (int i = 0; i < captions.size(); ++i) {
        const bool isTold = std::any_of(m_measured.cbegin(), m_measured.cend(),
                                        [i](const auto &measured) { return measured.at(i).isCut; });
        if (isTold || isSectionTold(captions.at(i).widget)) {
            told.insert(i);
        }
    }
    const QMap<QString, QStringList> cut = cutTexts(captions, told);
    const QString language = mainLanguageOf(m_folder);
    const QMap<QString, QString> texts = textsOf(m_folder, language);
    for (auto it = cut.cbegin(); it != cut.cend(); ++it) {
        m_findings->add("caption-cut-longer", fileOf(language), 0,
                        QStringLiteral("\"%1\", a third longer and right to left, is cut (%2)")
                            .arg(texts.value(it.key()), it->join(QStringLiteral(", "))));
    }
}

} // namespace

void checkCaptions(const QString &folder, const SheetText &sheets, Findings *findings)
{
    if (!VelaTheme::languages(folder).isEmpty()) {
        CaptionCheck(folder, sheets, findings).run();
    }
}
