// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "theme/vela-theme.h"

#include "look/look-change_p.h"
#include "sheets/vela-sheet.h"
#include "theme/theme-folder_p.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QMessageBox>
#include <QPixmapCache>
#include <QPointer>
#include <QScopedValueRollback>
#include <QStandardPaths>
#include <QToolTip>

#include <algorithm>

using namespace Vela;

namespace {

const QString ResourcePath = QStringLiteral("resource_path");
const QString UserDataPath = QStringLiteral("user_data_path");

// Says by the pointer that the application is busy.
class BusyCursor
{
public:
    BusyCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyCursor() { QApplication::restoreOverrideCursor(); }
    Q_DISABLE_COPY_MOVE(BusyCursor)
};

// Keeps windows from noting each widget that is to be painted again, which takes a time that grows with the square of
// their number. Each window is painted once, as a whole, afterwards.
class PaintDelay
{
public:
    PaintDelay()
    {
        const QWidgetList all = QApplication::topLevelWidgets();
        for (QWidget *window : all) {
            if (window->isVisible() && window->updatesEnabled()) {
                window->setUpdatesEnabled(false);
                m_windows.append(window);
            }
        }
    }

    ~PaintDelay()
    {
        for (const QPointer<QWidget> &window : qAsConst(m_windows)) {
            if (window) {
                window->setAttribute(Qt::WA_ForceUpdatesDisabled, false);
                enable(window);
                window->update();
            }
        }
    }

    Q_DISABLE_COPY_MOVE(PaintDelay)

private:
    // QWidget::setUpdatesEnabled() would have each widget painted on its own.
    static void enable(QWidget *widget)
    {
        widget->setAttribute(Qt::WA_UpdatesDisabled, false);
        for (QObject *object : widget->children()) {
            auto *child = object->isWidgetType() ? static_cast<QWidget *>(object) : nullptr;
            if (child && !child->isWindow() && !child->testAttribute(Qt::WA_ForceUpdatesDisabled)) {
                enable(child);
            }
        }
    }

    QVector<QPointer<QWidget>> m_windows;
};

// Keeps the toolkit's own captions from all buttons of sheets and of boxes that have a style sheet, whoever has given
// them theirs.
class CaptionKeeper : public QObject
{
public:
    CaptionKeeper() { qApp->installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::LanguageChange || !qobject_cast<QDialogButtonBox *>(watched)) {
            return false;
        }
        const QObject *owner = watched->parent();
        const auto *box = qobject_cast<const QMessageBox *>(owner);
        return qobject_cast<const VelaSheet *>(owner) || (box && !box->styleSheet().isEmpty());
    }
};

// All widgets, each behind its parent.
QVector<QPointer<QWidget>> allWidgets()
{
    QVector<QPointer<QWidget>> widgets;
    const auto add = [&widgets](QWidget *widget, const auto &addChild) -> void {
        widgets.append(widget);
        for (QObject *child : widget->children()) {
            if (child->isWidgetType()) {
                addChild(static_cast<QWidget *>(child), addChild);
            }
        }
    };
    const QWidgetList all = QApplication::allWidgets();
    for (QWidget *widget : all) {
        if (!widget->parentWidget()) {
            add(widget, add);
        }
    }
    return widgets;
}

QString userDataFolder()
{
    const std::map<QString, QString> paths = LookTables::installed().paths;
    const auto own = paths.find(UserDataPath);
    return own == paths.end() ? QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) : own->second;
}

void tellLanguage()
{
    const CaptionKeeper keeper;
    const QWidgetList all = QApplication::topLevelWidgets();
    const QVector<QPointer<QWidget>> windows(all.cbegin(), all.cend());
    for (const QPointer<QWidget> &window : windows) {
        if (window && !window->parentWidget()) {
            QEvent event(QEvent::LanguageChange);
            QCoreApplication::sendEvent(window, &event);
        }
    }
}

// The toolkit keeps pictures by the names of their files, which may be the former ones. QPixmapCache::clear() would put
// off, by half a minute each time, that the toolkit forgets the names as well.
void forgetPictures()
{
    const int limit = QPixmapCache::cacheLimit();
    QPixmapCache::setCacheLimit(0);
    QPixmapCache::setCacheLimit(limit);
}

} // namespace

class VelaThemePrivate
{
public:
    VelaTheme::Problems load(const QString &newFolder, const QString &newLanguage, const QString &newFallbackLanguage,
                             ImageManager::InitializeType newImageLoading);
    VelaTheme::Problems setLanguage(const QString &newLanguage);
    void apply(const ThemeLook &look);
    static void follow(const LookChange &change, bool isOtherLanguage);
    VelaTheme::Problems refuse(const QString &reason) const;

    QString folder;
    QString language;
    QString fallbackLanguage;
    ImageManager::InitializeType imageLoading = ImageManager::INIT_LAZY;
    bool isChanging = false;

    // Look of the application that a theme which tells nothing of it leaves in force.
    bool hasApplicationsOwn = false;
    QPalette palette;
    QFont font;
    QPalette toolTipPalette;
};

void VelaThemePrivate::apply(const ThemeLook &look)
{
    if (!hasApplicationsOwn) {
        hasApplicationsOwn = true;
        palette = QApplication::palette();
        font = QApplication::font();
        toolTipPalette = QToolTip::palette();
    }
    // Setting one of them is a change for every widget, and takes it away from the desktop: only what differs is set.
    if (const QPalette wanted = look.palette(palette); wanted != QApplication::palette()) {
        QApplication::setPalette(wanted);
    }
    if (const QFont wanted = look.font(font); wanted != QApplication::font()) {
        QApplication::setFont(wanted);
    }
    if (const QPalette wanted = look.toolTipPalette(toolTipPalette); wanted != QToolTip::palette()) {
        QToolTip::setPalette(wanted);
    }
}

// The language comes first, as what the toolkit does about it is not to undo what the library's widgets do.
void VelaThemePrivate::follow(const LookChange &change, bool isOtherLanguage)
{
    if (isOtherLanguage) {
        tellLanguage();
    }
    const QVector<QPointer<QWidget>> widgets = allWidgets();
    for (const QPointer<QWidget> &widget : widgets) {
        if (widget) {
            change.tell(widget);
        }
    }
}

VelaTheme::Problems VelaThemePrivate::refuse(const QString &reason) const
{
    return {{VelaTheme::Problem::Error, folder, 0, reason}};
}

VelaTheme::Problems VelaThemePrivate::load(const QString &newFolder, const QString &newLanguage,
                                           const QString &newFallbackLanguage,
                                           ImageManager::InitializeType newImageLoading)
{
    if (isChanging || newFolder.isEmpty()) {
        return refuse(isChanging ? QStringLiteral("The theme is being changed already")
                                 : QStringLiteral("There is no name of a theme's folder"));
    }
    const QScopedValueRollback<bool> changing(isChanging, true);
    const QString absoluteFolder = QDir(newFolder).absolutePath();
    const QString userData = userDataFolder();
    const QString folderOfCopies = userData + QLatin1String("/tmp_images");
    ThemeFolder theme(absoluteFolder, folderOfCopies);
    theme.read(newLanguage, newFallbackLanguage);
    VelaTheme::Problems problems = theme.problems();
    if (VelaTheme::hasErrors(problems)) {
        return problems;
    }

    const BusyCursor busy;
    const PaintDelay delay;
    const LookTables former = LookTables::installed();
    LookTables now = former;
    now.paths[ResourcePath] = absoluteFolder;
    now.paths[UserDataPath] = userData;
    now.texts = theme.texts();
    now.sections = theme.sections();
    now.images.clear();
    now.colors = theme.look().colors();
    now.install();
    ImageManager::getInstance()->initialize(newImageLoading);
    if (!QFileInfo(folderOfCopies).isWritable()) {
        problems.append({VelaTheme::Problem::Warning, folderOfCopies, 0,
                         QStringLiteral("Cannot be written to: scaled images of style sheets are missing")});
    }
    forgetPictures();
    apply(theme.look());

    folder = absoluteFolder;
    language = newLanguage;
    fallbackLanguage = newFallbackLanguage;
    imageLoading = newImageLoading;
    follow(LookChange(LookChange::Everything, former, LookTables::installed()), former.texts != theme.texts());
    return problems;
}

VelaTheme::Problems VelaThemePrivate::setLanguage(const QString &newLanguage)
{
    if (isChanging || folder.isEmpty()) {
        return refuse(isChanging ? QStringLiteral("The theme is being changed already")
                                 : QStringLiteral("No theme has been loaded"));
    }
    const QScopedValueRollback<bool> changing(isChanging, true);
    ThemeFolder theme(folder, QString());
    theme.readTexts(newLanguage, fallbackLanguage);
    if (VelaTheme::hasErrors(theme.problems())) {
        return theme.problems();
    }
    const BusyCursor busy;
    const PaintDelay delay;
    const LookTables former = LookTables::installed();
    LookTables now = former;
    now.texts = theme.texts();
    now.install();
    language = newLanguage;
    follow(LookChange(LookChange::Texts, former, now), true);
    return theme.problems();
}

QString VelaTheme::Problem::toString() const
{
    const QString place = line > 0 ? file + QLatin1Char(':') + QString::number(line) : file;
    return place + (severity == Error ? QStringLiteral(": error: ") : QStringLiteral(": warning: ")) + text;
}

VelaTheme *VelaTheme::getInstance()
{
    static VelaTheme instance;
    return &instance;
}

VelaTheme::VelaTheme() : d(std::make_unique<VelaThemePrivate>()) { }

VelaTheme::~VelaTheme() = default;

VelaTheme::Problems VelaTheme::load(const QString &folder, const QString &language, const QString &fallbackLanguage,
                                    ImageManager::InitializeType imageLoading)
{
    const Problems problems = d->load(folder, language, fallbackLanguage, imageLoading);
    if (!hasErrors(problems)) {
        Q_EMIT changed();
    }
    return problems;
}

VelaTheme::Problems VelaTheme::reload()
{
    return setFolder(d->folder);
}

VelaTheme::Problems VelaTheme::setFolder(const QString &folder)
{
    return load(folder, d->language, d->fallbackLanguage, d->imageLoading);
}

VelaTheme::Problems VelaTheme::setLanguage(const QString &language)
{
    const Problems problems = d->setLanguage(language);
    if (!hasErrors(problems)) {
        Q_EMIT changed();
    }
    return problems;
}

QString VelaTheme::folder() const
{
    return d->folder;
}

QString VelaTheme::language() const
{
    return d->language;
}

QString VelaTheme::fallbackLanguage() const
{
    return d->fallbackLanguage;
}

QStringList VelaTheme::languages(const QString &folder)
{
    const QDir strings(folder + QLatin1String("/strings"));
    QStringList codes = strings.entryList({QStringLiteral("*.json")}, QDir::Files, QDir::Name);
    for (QString &code : codes) {
        code.chop(5);
    }
    return codes;
}

bool VelaTheme::hasErrors(const Problems &problems)
{
    return std::any_of(problems.cbegin(), problems.cend(),
                       [](const Problem &problem) { return problem.severity == Problem::Error; });
}
