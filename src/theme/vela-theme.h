// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "image-manager/image-manager.h"
#include "vela_export.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QVector>

#include <memory>

class VelaThemePrivate;

/// A whole look by one call: theme folder and language, at start-up and while the application runs.
///
/// load() takes the place of the start-up calls of the registries, which an application may go on to make itself. When
/// it is called again, every living widget of the library takes sheets, images, colours and texts anew. It keeps what
/// it holds and where it is: text, selection, focus, scroll position, an open popup or sheet, and its geometry where
/// the new sheets have the same metrics. A style sheet, icon or text that the application has given a widget itself
/// stays.
///
/// A theme folder holds:
/// - `styles/*.qss`, read in the order of their names, see StyleManager
/// - `images.json` and `images/`, see ImageManager
/// - `strings/<language>.json`: one object with texts by key
/// - `theme.json`, optional: the application's palette and font, and colours that no style sheet reaches
///
/// GUI thread only; needs a QApplication.
class VELA_EXPORT VelaTheme : public QObject
{
    Q_OBJECT

public:
    /// What is wrong with a theme.
    struct Problem
    {
        /// What it means for the theme.
        enum Severity {
            Warning, ///< something is missing, or has no effect
            Error, ///< the theme is not taken
        };

        /// As compilers write it: `file:line: error: text`.
        QString toString() const;

        Severity severity = Warning; ///< whether the theme is taken all the same
        QString file; ///< absolute path; of a call that is refused the folder in force, empty where there is none
        int line = 0; ///< counted from 1; 0 where the file as a whole is meant
        QString text; ///< English, for developers
    };
    /// All that is wrong with a theme.
    using Problems = QVector<Problem>;

    /// The one instance, created on first use.
    static VelaTheme *getInstance();

    /// Puts the theme in @p folder, on the disk or in the application's resources, into force, with the texts in
    /// @p language, the name of a file in `strings` without ".json". Texts, or a whole language, that are missing are
    /// taken from @p fallbackLanguage, which may be empty. "resource_path" becomes @p folder; "user_data_path", unless
    /// it is set already, becomes the standard folder for the application's data. Processes that share that folder
    /// share the scaled images of sheets in it, which the last one to load a theme has scaled for its screen: where
    /// they run at several scales, each sets one of its own.
    ///
    /// Returns what is wrong, in the order of the files, and logs none of it. With an error among it nothing has
    /// changed: the former look, if there is one, is still in force. See hasErrors().
    Problems load(const QString &folder, const QString &language,
                  const QString &fallbackLanguage = QStringLiteral("enu"),
                  ImageManager::InitializeType imageLoading = ImageManager::INIT_LAZY);
    /// The same for the folder in force, whose files may have changed.
    Problems reload();
    /// The same for another folder, with the languages in force.
    Problems setFolder(const QString &folder);
    /// Changes the texts only. The rest of the theme is not read again. An error before load().
    Problems setLanguage(const QString &language);

    /// The folder in force; empty before load().
    QString folder() const;
    /// The language that was asked for, also where it is missing and fallbackLanguage() is shown; empty before load().
    QString language() const;
    /// Where missing texts are taken from; empty before load().
    QString fallbackLanguage() const;

    /// The languages that @p folder has texts in, sorted.
    static QStringList languages(const QString &folder);
    /// Whether an Error is among @p problems, so that the theme is not in force.
    static bool hasErrors(const Problems &problems);

Q_SIGNALS:
    /// The look has changed, and the library's widgets have followed; what the application has styled with
    /// getStyleSheet(), getGlobalImage() or ComponentStrings itself is its own to renew now. Before this, where the
    /// language has changed, all widgets have received QEvent::LanguageChange; to change the theme from there is
    /// refused, and no window is painted before all widgets have followed, so that no dialog should be run there.
    ///
    /// Sections and texts that the application has added to the registries are gone: they are to be added again. Links
    /// in rich texts of labels, and widgets of the application with a style sheet that sets no colours, keep the former
    /// palette until the text or the sheet is set anew.
    void changed();

private:
    VelaTheme();
    ~VelaTheme() override;

    const std::unique_ptr<VelaThemePrivate> d;
};
