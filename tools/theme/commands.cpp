// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "commands.h"

#include "check.h"
#include "contract.h"
#include "findings.h"
#include "platform.h"
#include "render.h"
#include "theme-diff.h"
#include "theme-source.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QTemporaryDir>
#include <QTextStream>

#include <memory>

namespace {

enum ExitCode {
    Clean = 0,
    Found = 1,
    Failed = 2,
};

void print(FILE *stream, const QString &text)
{
    QTextStream out(stream);
    out.setCodec("UTF-8");
    out << text;
}

int fail(const QString &text)
{
    print(stderr, QStringLiteral("vela-theme: %1\n").arg(text));
    return Failed;
}

// What a command is given.
struct Call
{
    QCommandLineParser &parser;
    QStringList arguments; // behind the command's name
};

QCommandLineOption formatOption(const QString &formats)
{
    return {QStringLiteral("format"), QStringLiteral("How it is written: %1.").arg(formats), QStringLiteral("FORMAT")};
}

int runContract(const Call &call)
{
    if (!call.arguments.isEmpty()) {
        return fail(QStringLiteral("'contract' takes no arguments."));
    }
    const QString format = call.parser.value(QStringLiteral("format"));
    if (!format.isEmpty() && format != QLatin1String("json") && format != QLatin1String("markdown")) {
        return fail(QStringLiteral("There is no format '%1' of the contract.").arg(format));
    }
    print(stdout, format == QLatin1String("markdown") ? contractAsMarkdown() : QString::fromUtf8(contractAsJson()));
    return Clean;
}

QString endingOf(const QString &suggestion)
{
    return suggestion.isEmpty() ? QStringLiteral(".") : suggestion;
}

// Whether there is a folder of that name, which to leave out means none.
bool isFolder(const QString &name)
{
    return !name.isEmpty() && QDir(name).exists();
}

int explain(const QString &name)
{
    if (const Rule *rule = findRule(name)) {
        print(stdout,
              QStringLiteral("%1 (%2)\n\n%3\n")
                  .arg(name, rule->isError ? QStringLiteral("error") : QStringLiteral("warning"),
                       QString::fromUtf8(rule->explanation)));
        return Clean;
    }
    return fail(QStringLiteral("There is no rule '%1'%2 The rules are: %3.")
                    .arg(name, endingOf(suggestion(name, ruleNames())), ruleNames().join(QStringLiteral(", "))));
}

int runCheck(const Call &call)
{
    if (call.parser.isSet(QStringLiteral("explain"))) {
        return explain(call.parser.value(QStringLiteral("explain")));
    }
    if (call.arguments.size() != 1) {
        return fail(QStringLiteral("'check' takes one theme folder."));
    }
    const QString format = call.parser.value(QStringLiteral("format"));
    if (!format.isEmpty() && format != QLatin1String("json") && format != QLatin1String("text")) {
        return fail(QStringLiteral("There is no format '%1' of findings.").arg(format));
    }
    const QDir folder(call.arguments.first());
    if (!isFolder(call.arguments.first())) {
        return fail(QStringLiteral("There is no theme folder '%1'.").arg(call.arguments.first()));
    }
    const BuiltTheme theme(folder.absolutePath());
    if (!theme.errorText().isEmpty()) {
        return fail(theme.errorText());
    }
    if (call.parser.isSet(QStringLiteral("memory"))) {
        print(stdout, memoryForecast(theme.path()));
        return Clean;
    }
    const Findings findings = checkTheme(theme.path(), CheckedParts::FilesAndLooks);
    const QString shown = QDir::cleanPath(call.arguments.first());
    print(stdout,
          format == QLatin1String("json") ? QString::fromUtf8(asJson(findings, shown)) : asText(findings, shown));
    return findings.all().isEmpty() ? Clean : Found;
}

int runNew(const Call &call)
{
    if (call.arguments.size() != 1 || call.arguments.first().isEmpty()
        || !call.parser.isSet(QStringLiteral("accent"))) {
        return fail(QStringLiteral("'new' takes a folder and --accent, for instance --accent #0a7f5a."));
    }
    const QString error = writeThemeSource(call.arguments.first(), call.parser.value(QStringLiteral("accent")),
                                           call.parser.value(QStringLiteral("base")));
    return error.isEmpty() ? Clean : fail(error);
}

int runDiff(const Call &call)
{
    if (call.arguments.size() != 2) {
        return fail(QStringLiteral("'diff' takes two theme folders, or two contracts."));
    }
    QStringList paths;
    std::unique_ptr<BuiltTheme> themes[2];
    for (int i = 0; i < 2; ++i) {
        const QFileInfo path(call.arguments.at(i));
        if (!path.exists()) {
            return fail(QStringLiteral("There is no '%1'.").arg(call.arguments.at(i)));
        }
        themes[i] = std::make_unique<BuiltTheme>(path.absoluteFilePath());
        if (!themes[i]->errorText().isEmpty()) {
            return fail(themes[i]->errorText());
        }
        paths.append(themes[i]->path());
    }
    QString error;
    const bool areFolders = QFileInfo(paths.at(0)).isDir() && QFileInfo(paths.at(1)).isDir();
    const QStringList lines =
        areFolders ? themeDifferences(paths.at(0), paths.at(1)) : contractDifferences(paths.at(0), paths.at(1), &error);
    if (!error.isEmpty()) {
        return fail(error);
    }
    for (const QString &line : lines) {
        print(stdout, line + u'\n');
    }
    return lines.isEmpty() ? Clean : Found;
}

// Why a theme cannot be rendered, empty if it can.
QString errorOf(const BuiltTheme &theme)
{
    const bool hasStyles = !theme.errorText().isEmpty() || QDir(theme.path() + QStringLiteral("/styles")).exists();
    return hasStyles ? theme.errorText()
                     : QStringLiteral("'%1' is no theme: it has no folder 'styles'.").arg(theme.path());
}

int screenOf(const QCommandLineParser &parser)
{
    return qBound(0, parser.value(QStringLiteral("screen")).toInt(), renderScreenCount() - 1);
}

int runRender(const Call &call)
{
    if (call.arguments.size() != 2) {
        return fail(QStringLiteral("'render' takes a theme's folder and a folder for its pictures."));
    }
    const QDir folder(call.arguments.at(0));
    if (!isFolder(call.arguments.at(0)) || call.arguments.at(1).isEmpty()) {
        return fail(QStringLiteral("There is no theme folder '%1', or no folder for its pictures is named.")
                        .arg(call.arguments.at(0)));
    }
    if (call.parser.isSet(QStringLiteral("screen"))) {
        const QString error = renderScreen(folder.absolutePath(), call.arguments.at(1), screenOf(call.parser));
        return error.isEmpty() ? Clean : fail(error);
    }
    const BuiltTheme theme(folder.absolutePath());
    const QString output = QDir(call.arguments.at(1)).absolutePath();
    const QString error = errorOf(theme).isEmpty() ? renderTheme(theme.path(), output) : errorOf(theme);
    if (!error.isEmpty()) {
        return fail(error);
    }
    if (call.parser.isSet(QStringLiteral("compact"))) {
        makeCompact(output);
    }
    return Clean;
}

int runCompare(const Call &call)
{
    if (call.arguments.size() != 2) {
        return fail(QStringLiteral("'compare' takes a theme's folder and a folder of approved pictures."));
    }
    const QDir folder(call.arguments.at(0));
    const QString approved = call.arguments.at(1);
    if (!isFolder(call.arguments.at(0)) || renderedCells(approved).isEmpty()) {
        return fail(QStringLiteral("There is no theme folder '%1', or no approved pictures in '%2'.")
                        .arg(call.arguments.at(0), approved));
    }
    const BuiltTheme theme(folder.absolutePath());
    const QTemporaryDir rendered;
    const QString error = errorOf(theme).isEmpty() ? renderTheme(theme.path(), rendered.path()) : errorOf(theme);
    if (!error.isEmpty()) {
        return fail(error);
    }
    const QStringList lines = compareRendered(approved, rendered.path(), call.parser.value(QStringLiteral("output")));
    for (const QString &line : lines) {
        print(stdout, line + u'\n');
    }
    return lines.isEmpty() ? Clean : Found;
}

using Options = QList<QCommandLineOption>;

Options noOptions()
{
    return {};
}

Options contractOptions()
{
    return {formatOption(QStringLiteral("json (the default) or markdown"))};
}

Options checkOptions()
{
    return {
        formatOption(QStringLiteral("text (the default) or json")),
        {QStringLiteral("explain"), QStringLiteral("Tells what a rule is about, in place of a check."),
         QStringLiteral("RULE")},
        {QStringLiteral("memory"),
         QStringLiteral("Tells how many bytes the images take in memory, in place of a check.")},
    };
}

Options newOptions()
{
    return {
        {QStringLiteral("accent"), QStringLiteral("The theme's accent."), QStringLiteral("#RRGGBB")},
        {QStringLiteral("base"), QStringLiteral("The reference palette for all else: light, dark or high-contrast."),
         QStringLiteral("PALETTE"), QStringLiteral("light")},
    };
}

Options renderOptions()
{
    QCommandLineOption screen(QStringLiteral("screen"), QStringLiteral("Only the screen of that number."),
                              QStringLiteral("NUMBER"));
    screen.setFlags(QCommandLineOption::HiddenFromHelp); // for the processes that the program starts itself
    return {
        {QStringLiteral("compact"),
         QStringLiteral("Keeps the pictures at scale 1, left to right, and of all others what \"compare\" needs.")},
        screen,
    };
}

Options compareOptions()
{
    return {
        {QStringLiteral("output"), QStringLiteral("Folder for pictures of the differences."), QStringLiteral("OUT")}};
}

struct Command
{
    const char *name;
    const char *arguments;
    const char *description;
    Options (*options)();
    int (*run)(const Call &call);
    bool needsScreen;
};

constexpr Command Commands[] = {
    {"contract", "", "Prints all that the library asks a theme for.", contractOptions, runContract, false},
    {"check", "DIR", "Checks a theme and prints a line for each finding.", checkOptions, runCheck, true},
    {"new", "DIR", "Writes the source of a theme in the colours of an accent, with its CMake file.", newOptions, runNew,
     false},
    {"render", "DIR OUT", "Renders every widget in each state, at each scale and in both directions of reading.",
     renderOptions, runRender, true},
    {"compare", "DIR APPROVED",
     "Renders a theme and tells which pictures are not as in a folder that \"render\" has made.", compareOptions,
     runCompare, true},
    {"diff", "A B", "Tells what changes from one theme to another, or from one contract (a JSON file) to another.",
     noOptions, runDiff, true},
};

const char Examples[] = R"(
Examples:
  vela-theme check my-theme                 a line for each finding, such as
      my-theme/styles/buttons.qss:12: error: no colour: #12345 [color-invalid]
  vela-theme check --explain color-invalid  what a rule is about
  vela-theme contract --format markdown     what a theme must hold
  vela-theme new my-theme --accent #0a7f5a  a theme to begin with
  vela-theme render my-theme pictures       every widget as PNG files, all of them in pictures/index.html
  vela-theme compare my-theme pictures      what looks otherwise by now
  vela-theme diff my-theme other-theme      what changes, by section, image and text

A finding of a style sheet is silenced by a comment in front of it:
  /* vela-theme: allow RULE: REASON */

DIR is a theme's folder, or the source of one as "new" writes it.

Exit code: 0 if nothing was found, 1 if something was, 2 if it could not be done.
)";

QString generalHelp()
{
    QString help = QStringLiteral("Usage: vela-theme COMMAND [OPTIONS] ...\n\n"
                                  "Makes and checks themes of Vela Components.\n\nCommands:\n");
    for (const Command &command : Commands) {
        const QString call = QString::fromLatin1(command.name) + u' ' + QString::fromLatin1(command.arguments);
        help += QStringLiteral("  %1 %2\n").arg(call.leftJustified(16), QString::fromLatin1(command.description));
    }
    return help + QStringLiteral("\n\"vela-theme COMMAND --help\" tells a command's options.\n")
        + QString::fromLatin1(Examples);
}

const Command *findCommand(const QString &name)
{
    for (const Command &command : Commands) {
        if (name == QLatin1String(command.name)) {
            return &command;
        }
    }
    return nullptr;
}

} // namespace

int runCommand(int &argc, char **argv)
{
    const QString name = QString::fromLocal8Bit(argc > 1 ? argv[1] : "");
    if (name.isEmpty() || name == QLatin1String("--help") || name == QLatin1String("-h")
        || name == QLatin1String("help")) {
        print(name.isEmpty() ? stderr : stdout, generalHelp());
        return name.isEmpty() ? Failed : Clean;
    }
    if (name == QLatin1String("--version") || name == QLatin1String("-v")) {
        print(stdout, QStringLiteral("vela-theme %1\n").arg(QCoreApplication::applicationVersion()));
        return Clean;
    }
    const Command *command = findCommand(name);
    if (!command) {
        QStringList names;
        for (const Command &known : Commands) {
            names.append(QString::fromLatin1(known.name));
        }
        return fail(QStringLiteral("There is no command '%1'%2 See vela-theme --help.")
                        .arg(name, endingOf(suggestion(name, names))));
    }

    QStringList arguments;
    for (int i = 0; i < argc; ++i) {
        if (i != 1) {
            arguments.append(QString::fromLocal8Bit(argv[i]));
        }
    }
    QCommandLineParser parser;
    parser.setApplicationDescription(QString::fromLatin1(command->description) + u'\n'
                                     + QString::fromLatin1(Examples).chopped(1));
    parser.addOptions(command->options());
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this help."));
    parser.addOption(help);
    const QStringList names = QString::fromLatin1(command->arguments).split(u' ', Qt::SkipEmptyParts);
    for (const QString &argument : names) {
        parser.addPositionalArgument(
            argument, argument == QLatin1String("DIR") ? QStringLiteral("A theme's folder.") : QString());
    }
    if (!parser.parse(arguments)) {
        return fail(parser.errorText());
    }
    preparePlatform();
    if (parser.optionNames().contains(QStringLiteral("screen"))) {
        prepareRenderScreen(screenOf(parser));
    }
    int noArguments = 1; // the toolkit's own options are none of this program
    const std::unique_ptr<QCoreApplication> application(command->needsScreen ? new QApplication(noArguments, argv)
                                                                             : new QCoreApplication(noArguments, argv));
    completePlatform();
    if (parser.isSet(help)) {
        print(stdout,
              parser.helpText().replace(QStringLiteral("vela-theme [options]"),
                                        QStringLiteral("vela-theme %1 [options]").arg(name)));
        return Clean;
    }
    return command->run({parser, parser.positionalArguments()});
}
