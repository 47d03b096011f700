// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ImageManager>

#include <QByteArray>
#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QString>
#include <QStringList>

#include <optional>

/// What stays the same in a gallery that takes the place of another one.
struct GalleryState
{
    QString page;
    QString theme; ///< folder of the theme
    QString language;
    bool isRightToLeft = false;
    QByteArray geometry; ///< value of QWidget::saveGeometry()
};

/// What the gallery was asked to do. Needs an application object for the name of the program.
class CommandLine
{
public:
    CommandLine();

    /// Whether @p arguments, of which the first is the program, can be done. errorText() tells what is wrong with them
    /// otherwise.
    bool parse(const QStringList &arguments);
    QString errorText() const;

    /// The text to print instead of opening the window, for "--help" and the like; empty when there is none.
    QString answer() const;

    /// Name of the page to begin with; empty when none was asked for.
    QString page() const;
    /// Code of the language; empty when none was asked for.
    QString language() const;
    /// Theme folder, the light reference theme when none was asked for.
    QString theme() const;
    bool isRightToLeft() const;
    /// Folder for screenshots; empty when none were asked for.
    QString screenshots() const;
    ImageManager::InitializeType imageLoading() const;
    /// Geometry of the window that this one takes the place of, otherwise empty.
    QByteArray geometry() const;

    /// A text that is the same for starts that one window can serve: of the same program on the same display, with the
    /// same theme. It goes by the arguments of the start, before the toolkit takes its options out.
    QString instanceId() const;

    /// @p arguments for a start that takes the place of one with these arguments, and of which the instance is the
    /// same.
    static QStringList resumed(QStringList arguments, const GalleryState &state);

private:
    QString findError() const;

    QCommandLineParser m_parser;
    QCommandLineOption m_help;
    QCommandLineOption m_version;
    QCommandLineOption m_page;
    QCommandLineOption m_listPages;
    QCommandLineOption m_language;
    QCommandLineOption m_theme;
    QCommandLineOption m_rightToLeft;
    QCommandLineOption m_lazy;
    QCommandLineOption m_preload;
    QCommandLineOption m_screenshots;
    QCommandLineOption m_resume;
    std::optional<GalleryState> m_state; // state of the gallery whose place this one takes
    QString m_display;
    QString m_errorText;
};
