// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "theme-source.h"

#include "contrast.h"

#include <QColor>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace {

constexpr double ReadableContrast = 4.5;
constexpr double VisibleContrast = 3.0; // of what tells a state
constexpr int HoveredPercent = 14; // of text in an accent, as the reference theme's source mixes them
constexpr int PressedPercent = 36;
constexpr int SelectedPercent = 84; // of surface
constexpr int SelectedHoveredPercent = 75;
constexpr int SelectedPressedPercent = 70;

const QString PaletteName = QStringLiteral("palette.json");
const QString SourceName = QStringLiteral("source");

QString fromProgram(const char *relative)
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + u'/' + QString::fromLatin1(relative));
}

QString referenceSource()
{
    return fromProgram(VELA_THEME_SOURCE_FROM_PROGRAM);
}

bool write(const QString &path, const QString &text)
{
    QFile file(path);
    const QByteArray content = text.toUtf8();
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

QColor mixed(const QColor &one, const QColor &other, int percent)
{
    const auto channel = [percent](int first, int second) {
        return (first * (100 - percent) + second * percent + 50) / 100;
    };
    return QColor(channel(one.red(), other.red()), channel(one.green(), other.green()),
                  channel(one.blue(), other.blue()));
}

QString nameOf(const QColor &color)
{
    return color.name().toUpper();
}

// The colours of a reference palette by their roles, those of the light one where it has none.
class ReferencePalette
{
public:
    explicit ReferencePalette(const QString &name)
    {
        take(QStringLiteral("light"));
        m_isValid = take(name);
    }

    bool isValid() const { return m_isValid; }
    QColor color(const char *role) const { return QColor(m_roles.value(QLatin1String(role)).toString()); }

private:
    bool take(const QString &name)
    {
        QFile file(referenceSource() + QStringLiteral("/palettes/%1.json").arg(name));
        const QJsonObject roles =
            file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
        for (auto it = roles.begin(); it != roles.end(); ++it) {
            m_roles.insert(it.key(), it.value());
        }
        return !roles.isEmpty();
    }

    QJsonObject m_roles;
    bool m_isValid = false;
};

// Goes from color towards the end until it can be told from all surfaces.
QColor told(QColor color, const QColor &end, const QList<QColor> &surfaces, double needed)
{
    constexpr int Step = 5;
    const QColor begin = color;
    for (int percent = 0; percent <= 100; percent += Step) {
        color = mixed(begin, end, percent);
        if (leastContrast(color, surfaces) >= needed) {
            break;
        }
    }
    return color;
}

// The palette of an accent: beside it what the reference theme's mixing would leave unreadable.
QJsonObject paletteOf(const QColor &accent, const QString &base, const ReferencePalette &reference)
{
    QJsonObject palette {{QStringLiteral("inherits"), base}, {QStringLiteral("accent"), nameOf(accent)}};
    const QColor text = reference.color("text");
    QColor hovered = mixed(accent, text, HoveredPercent);
    QColor pressed = mixed(accent, text, PressedPercent);

    QColor on = reference.color("on_accent");
    for (const QColor &candidate : {on, QColor(Qt::white), QColor(0x17, 0x20, 0x2B), QColor(Qt::black)}) {
        if (leastContrast(candidate, {accent}) >= ReadableContrast) {
            on = candidate;
            break;
        }
    }
    palette.insert(QStringLiteral("on_accent"), nameOf(on));
    if (leastContrast(on, {hovered, pressed}) < ReadableContrast) {
        const QColor away = luminance(on) > 0.5 ? QColor(Qt::black) : QColor(Qt::white);
        hovered = mixed(accent, away, HoveredPercent);
        pressed = mixed(accent, away, PressedPercent);
        palette.insert(QStringLiteral("accent_hovered"), nameOf(hovered));
        palette.insert(QStringLiteral("accent_pressed"), nameOf(pressed));
    }

    const QColor surface = reference.color("surface");
    const QList<QColor> grounds {surface, reference.color("page"), reference.color("sheet"), reference.color("popup")};
    const QColor focus = told(accent, text, grounds, VisibleContrast);
    if (focus != accent) {
        palette.insert(QStringLiteral("focus"), nameOf(focus));
    }
    const QList<QColor> selected {mixed(accent, surface, SelectedPercent),
                                  mixed(accent, surface, SelectedHoveredPercent),
                                  mixed(accent, surface, SelectedPressedPercent)};
    if (leastContrast(hovered, selected) < ReadableContrast || leastContrast(pressed, selected) < ReadableContrast) {
        const QColor end = luminance(surface) > 0.5 ? QColor(Qt::black) : QColor(Qt::white);
        palette.insert(QStringLiteral("accent_text"), nameOf(told(hovered, end, selected, ReadableContrast)));
        palette.insert(QStringLiteral("accent_text_pressed"), nameOf(told(pressed, end, selected, ReadableContrast)));
    }
    return palette;
}

} // namespace

bool isThemeSource(const QString &folder)
{
    return QFile::exists(folder + u'/' + PaletteName) && !QDir(folder + QStringLiteral("/styles")).exists();
}

BuiltTheme::BuiltTheme(const QString &folder) : m_path(folder)
{
    if (isThemeSource(folder)) {
        build(folder);
    }
}

BuiltTheme::~BuiltTheme() = default;

void BuiltTheme::build(const QString &source)
{
    m_work = std::make_unique<QTemporaryDir>();
    m_path = m_work->filePath(QStringLiteral("theme"));
    const bool hasFiles = QDir(source + u'/' + SourceName).exists();
    const QString project =
        QStringLiteral("cmake_minimum_required(VERSION 3.22)\nproject(Theme LANGUAGES "
                       "NONE)\ninclude([==[%1/VelaAddTheme.cmake]==])\n"
                       "set_property(GLOBAL PROPERTY VELA_THEME_SOURCE_DIR [==[%2]==])\n"
                       "vela_add_theme(NAME checked PALETTE [==[%3]==] OUTPUT [==[%4]==] NO_CHECK%5)\n")
            .arg(fromProgram(VELA_CMAKE_FROM_PROGRAM), referenceSource(), source + u'/' + PaletteName, m_path,
                 hasFiles ? QStringLiteral(" SOURCE [==[%1/%2]==]").arg(source, SourceName) : QString());
    if (!write(m_work->filePath(QStringLiteral("CMakeLists.txt")), project)) {
        m_errorText = QStringLiteral("Cannot write to '%1'.").arg(m_work->path());
        return;
    }
    const QString binary = m_work->filePath(QStringLiteral("build"));
    for (const QStringList &arguments :
         {QStringList {QStringLiteral("-S"), m_work->path(), QStringLiteral("-B"), binary},
          QStringList {QStringLiteral("--build"), binary}}) {
        QProcess cmake;
        cmake.setProcessChannelMode(QProcess::MergedChannels);
        cmake.start(QStringLiteral("cmake"), arguments);
        if (!cmake.waitForFinished(-1) || cmake.exitStatus() != QProcess::NormalExit || cmake.exitCode() != 0) {
            const QString reason = cmake.error() == QProcess::FailedToStart
                ? QStringLiteral("That takes CMake, which cannot be started.")
                : QStringLiteral("CMake says:\n") + QString::fromLocal8Bit(cmake.readAll()).trimmed();
            m_errorText = QStringLiteral("The theme cannot be made from its source '%1'. %2").arg(source, reason);
            return;
        }
    }
}

QString writeThemeSource(const QString &folder, const QString &accent, const QString &base)
{
    const QColor color(accent);
    if (!color.isValid() || color.alpha() != 255) {
        return QStringLiteral("'%1' is no colour. Write it as #RRGGBB.").arg(accent);
    }
    const ReferencePalette reference(base);
    if (!reference.isValid()) {
        return QStringLiteral("There is no reference palette '%1' in '%2'.").arg(base, referenceSource());
    }
    const QDir dir(folder);
    if (dir.exists() && !dir.isEmpty()) {
        return QStringLiteral("'%1' is not empty.").arg(folder);
    }
    QString name = QFileInfo(dir.absolutePath()).fileName();
    name.replace(QRegularExpression(QStringLiteral("[^A-Za-z0-9_-]+")), QStringLiteral("-"));
    const QString project = QStringLiteral(
        "# Add this folder to your application by add_subdirectory(). The target %1-theme, part of \"all\", makes the "
        "theme;\n"
        "# its property VELA_THEME_DIR is the folder to load. A test holds it against what the library asks for.\n"
        "cmake_minimum_required(VERSION 3.22)\n"
        "if(NOT PROJECT_NAME)\n"
        "    project(%1-theme LANGUAGES CXX)\n"
        "    enable_testing()\n"
        "endif()\n\n"
        "find_package(VelaComponents 1.0 REQUIRED)\n"
        "vela_add_theme(NAME %1\n"
        "    PALETTE palette.json # roles that it leaves out are those of the palette that it inherits\n"
        "    SOURCE source # files that lie over the reference theme's: sheets, drawings, texts\n"
        "    DESTINATION share/%1/theme)\n");
    const QByteArray palette = QJsonDocument(paletteOf(color, base, reference)).toJson();
    const bool isWritten = dir.mkpath(SourceName) && write(dir.filePath(PaletteName), QString::fromUtf8(palette))
        && write(dir.filePath(SourceName + QStringLiteral("/images.json")),
                 QStringLiteral("{\n    \"images\": [],\n    \"tmp_images\": []\n}\n"))
        && write(dir.filePath(QStringLiteral("CMakeLists.txt")), QString(project).replace(QLatin1String("%1"), name));
    return isWritten ? QString() : QStringLiteral("Cannot write to '%1'.").arg(folder);
}
