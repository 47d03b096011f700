// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ImageManager>

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QString>
#include <QStringList>

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
    /// Theme folder; empty when none was asked for.
    QString resources() const;
    /// Folder for screenshots; empty when none were asked for.
    QString screenshots() const;
    ImageManager::InitializeType imageLoading() const;

    /// The same for starts that one window can serve: of the same program on the same display, with the same theme. Of
    /// the arguments that the program was started with, before the toolkit takes its options out.
    QString instanceId() const;

private:
    QString findError() const;

    QCommandLineParser m_parser;
    QCommandLineOption m_help;
    QCommandLineOption m_version;
    QCommandLineOption m_page;
    QCommandLineOption m_listPages;
    QCommandLineOption m_language;
    QCommandLineOption m_resources;
    QCommandLineOption m_lazy;
    QCommandLineOption m_preload;
    QCommandLineOption m_screenshots;
    QString m_display;
    QString m_errorText;
};
