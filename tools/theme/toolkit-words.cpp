// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "toolkit-words.h"

#include <HelpWindow>
#include <MessageLabel>
#include <ResizeSignalTableWidget>
#include <VelaButton>
#include <VelaButtonPath>
#include <VelaCalanderView>
#include <VelaCheckBox>
#include <VelaComboBox>
#include <VelaCountdownMessageBox>
#include <VelaDateSelector>
#include <VelaFilterBar>
#include <VelaFootbar>
#include <VelaIconButton>
#include <VelaInputSheet>
#include <VelaLabel>
#include <VelaLineEdit>
#include <VelaMask>
#include <VelaMenu>
#include <VelaMessageSheet>
#include <VelaPagingBar>
#include <VelaRadioButton>
#include <VelaSheet>
#include <VelaTableWidget>
#include <VelaTreeWidget>

#include <QtWidgets>

#include <cstring>

namespace {

QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

template<typename... Widgets>
QHash<QString, const QMetaObject *> table()
{
    return {{QString::fromLatin1(Widgets::staticMetaObject.className()), &Widgets::staticMetaObject}...};
}

const QHash<QString, const QMetaObject *> &classTable()
{
    static const QHash<QString, const QMetaObject *> classes =
        table<QAbstractButton, QAbstractItemView, QAbstractScrollArea, QAbstractSlider, QAbstractSpinBox,
              QCalendarWidget, QCheckBox, QColorDialog, QColumnView, QComboBox, QCommandLinkButton, QDateEdit,
              QDateTimeEdit, QDial, QDialog, QDialogButtonBox, QDockWidget, QDoubleSpinBox, QErrorMessage, QFileDialog,
              QFontComboBox, QFontDialog, QFrame, QGraphicsView, QGroupBox, QHeaderView, QInputDialog, QKeySequenceEdit,
              QLCDNumber, QLabel, QLineEdit, QListView, QListWidget, QMainWindow, QMdiArea, QMdiSubWindow, QMenu,
              QMenuBar, QMessageBox, QPlainTextEdit, QProgressBar, QProgressDialog, QPushButton, QRadioButton,
              QRubberBand, QScrollArea, QScrollBar, QSizeGrip, QSlider, QSpinBox, QSplashScreen, QSplitter,
              QSplitterHandle, QStackedWidget, QStatusBar, QTabBar, QTabWidget, QTableView, QTableWidget, QTextBrowser,
              QTextEdit, QTimeEdit, QToolBar, QToolBox, QToolButton, QTreeView, QTreeWidget, QUndoView, QWidget,
              QWizard, QWizardPage, DialogButtonBoxStyle, HelpWindow, MessageLabel, ResizeSignalTableWidget, VelaButton,
              VelaButtonPath, VelaCalanderView, VelaCheckBox, VelaComboBox, VelaCountdownMessageBox, VelaDateSelector,
              VelaFilterBar, VelaFootbar, VelaIconButton, VelaInputSheet, VelaLabel, VelaLineEdit, VelaMask, VelaMenu,
              VelaMessageSheet, VelaPagingBar, VelaRadioButton, VelaSheet, VelaTableWidget, VelaTreeWidget>();
    return classes;
}

struct Parts
{
    const char *type;
    const char *subControls;
};

// Of classes without an entry nothing is said.
constexpr Parts SubControls[] = {
    {"QCheckBox", "indicator"},
    {"QRadioButton", "indicator"},
    {"QComboBox", "drop-down down-arrow"},
    {"QHeaderView", "section down-arrow up-arrow"},
    {"QLabel", ""},
    {"QLineEdit", ""},
    {"QMenu", "item indicator separator right-arrow left-arrow scroller tearoff icon"},
    {"QPushButton", "menu-indicator"},
    {"QScrollBar", "handle add-line sub-line add-page sub-page left-arrow right-arrow up-arrow down-arrow"},
    {"QAbstractSpinBox", "up-button down-button up-arrow down-arrow"},
    {"QTableView", "item indicator"},
    {"QTreeView", "item indicator branch icon text"},
    {"QToolButton", "menu-indicator menu-button menu-arrow up-arrow down-arrow left-arrow right-arrow"},
    {"QMessageBox", ""},
    {"QDialogButtonBox", ""},
};

struct States
{
    const char *states;
    const char *types; // whose widgets can be in them
};

constexpr States StatesOfClasses[] = {
    {"checked unchecked indeterminate", "QAbstractButton QMenu QAbstractItemView QGroupBox QHeaderView QComboBox"},
    {"editable", "QComboBox"},
    {"read-only", "QLineEdit QAbstractSpinBox QComboBox QTextEdit QPlainTextEdit"},
    {"horizontal vertical",
     "QScrollBar QSlider QAbstractSlider QHeaderView QToolBar QProgressBar QSplitter QSplitterHandle QDockWidget "
     "QTabBar"},
    {"has-children has-siblings adjoins-item", "QTreeView"},
    {"selected", "QTabBar QAbstractItemView QMenu QMenuBar QHeaderView QTabWidget"},
};

struct Object
{
    const char *name;
    const char *type;
};

constexpr Object Objects[] = {
    {"PAGINGBARBORDER", "QWidget"},
    {"qt_calendar_calendarview", "QTableView"},
    {"qt_calendar_monthbutton", "QToolButton"},
    {"qt_calendar_navigationbar", "QWidget"},
    {"qt_calendar_nextmonth", "QToolButton"},
    {"qt_calendar_prevmonth", "QToolButton"},
    {"qt_calendar_today_button", "VelaButton"},
    {"qt_calendar_weekdayview", "QTableWidget"},
    {"qt_calendar_yearbutton", "QToolButton"},
    {"qt_calendar_yearedit", "QSpinBox"},
    {"qt_msgbox_informativelabel", "QLabel"},
    {"qt_msgbox_label", "QLabel"},
};

} // namespace

const QStringList &Toolkit::properties()
{
    static const QStringList names = words(
        "accent-color alternate-background-color background background-attachment background-clip background-color "
        "background-image background-origin background-position background-repeat border border-bottom "
        "border-bottom-color border-bottom-left-radius border-bottom-right-radius border-bottom-style "
        "border-bottom-width border-color border-image border-left border-left-color border-left-style "
        "border-left-width border-radius border-right border-right-color border-right-style border-right-width "
        "border-style border-top border-top-color border-top-left-radius border-top-right-radius border-top-style "
        "border-top-width border-width bottom color font font-family font-size font-style font-variant font-weight "
        "height icon image image-position left letter-spacing line-height list-style list-style-type margin "
        "margin-bottom margin-left margin-right margin-top max-height max-width min-height min-width outline "
        "outline-bottom-left-radius outline-bottom-right-radius outline-color outline-offset outline-radius "
        "outline-style outline-top-left-radius outline-top-right-radius outline-width padding padding-bottom "
        "padding-left padding-right padding-top position right selection-background-color selection-color spacing "
        "subcontrol-origin subcontrol-position text-align text-decoration text-indent text-transform "
        "text-underline-style "
        "top vertical-align white-space width word-spacing "
        // hints of the style
        "activate-on-singleclick alignment arrow-keys-navigate-into-children backward-icon button-layout cd-icon "
        "combobox-list-mousetracking combobox-popup computer-icon desktop-icon dialog-apply-icon dialog-cancel-icon "
        "dialog-close-icon dialog-discard-icon dialog-help-icon dialog-no-icon dialog-ok-icon dialog-open-icon "
        "dialog-reset-icon dialog-save-icon dialog-yes-icon dialogbuttonbox-buttons-have-icons directory-closed-icon "
        "directory-icon directory-link-icon directory-open-icon dither-disable-text dockwidget-close-icon "
        "downarrow-icon dvd-icon etch-disabled-text file-icon file-link-icon filedialog-backward-icon "
        "filedialog-contentsview-icon filedialog-detailedview-icon filedialog-end-icon filedialog-infoview-icon "
        "filedialog-listview-icon filedialog-new-directory-icon filedialog-parent-directory-icon filedialog-start-icon "
        "floppy-icon forward-icon gridline-color harddisk-icon home-icon icon-size leftarrow-icon "
        "lineedit-clear-button-icon "
        "lineedit-password-character lineedit-password-mask-delay mdi-fill-space-on-maximize "
        "menu-scrollable menubar-altkey-navigation menubar-separator messagebox-critical-icon "
        "messagebox-information-icon messagebox-question-icon messagebox-text-interaction-flags "
        "messagebox-warning-icon "
        "mouse-tracking network-icon opacity paint-alternating-row-colors-for-empty-area rightarrow-icon "
        "scrollbar-contextmenu scrollbar-leftclick-absolute-position scrollbar-middleclick-absolute-position "
        "scrollbar-roll-between-buttons scrollbar-scroll-when-pointer-leaves-control scrollview-frame-around-contents "
        "show-decoration-selected spinbox-click-autorepeat-rate spincontrol-disable-on-bounds tabbar-elide-mode "
        "tabbar-prefer-no-arrows titlebar-close-icon titlebar-contexthelp-icon titlebar-maximize-icon "
        "titlebar-menu-icon "
        "titlebar-minimize-icon titlebar-normal-icon titlebar-shade-icon titlebar-show-tooltips-on-buttons "
        "titlebar-unshade-icon toolbutton-popup-delay toolbar-icon-size toolbar-item-spacing trash-icon uparrow-icon "
        "widget-animation-duration");
    return names;
}

const QStringList &Toolkit::states()
{
    static const QStringList names = words(
        "active adjoins-item alternate bottom checked closable closed default disabled edit-focus editable enabled "
        "exclusive first flat floatable focus has-children has-siblings horizontal hover indeterminate last left "
        "maximized middle minimized movable next-selected no-frame non-exclusive off on only-one open pressed "
        "previous-selected read-only right selected top unchecked vertical window");
    return names;
}

const QStringList &Toolkit::subControls()
{
    static const QStringList names = words(
        "add-line add-page branch chunk close-button corner down-arrow down-button drop-down float-button groove "
        "handle icon indicator item left-arrow left-corner menu-arrow menu-button menu-indicator pane right-arrow "
        "right-corner scroller section separator sub-line sub-page tab tab-bar tear tearoff text title up-arrow "
        "up-button");
    return names;
}

bool Toolkit::isLength(const QString &property)
{
    static const QStringList names = words(
        "border-bottom-left-radius border-bottom-right-radius border-bottom-width border-left-width border-radius "
        "border-right-width border-top-left-radius border-top-right-radius border-top-width border-width bottom "
        "font-size height icon-size left letter-spacing margin margin-bottom margin-left margin-right margin-top "
        "max-height max-width min-height min-width outline-offset outline-radius padding padding-bottom padding-left "
        "padding-right padding-top right spacing top width word-spacing");
    return names.contains(property);
}

bool Toolkit::isColor(const QString &property)
{
    return property == QLatin1String("color") || property.endsWith(QLatin1String("-color"));
}

bool Toolkit::holdsColor(const QString &property)
{
    static const QStringList names =
        words("background border border-bottom border-left border-right border-top outline");
    return names.contains(property);
}

QStringList Toolkit::keywordsOf(const QString &property)
{
    static const char *const styles =
        "none solid dashed dotted dot-dash dot-dot-dash double groove ridge inset outset native hidden";
    static const char *const boxes = "margin border padding content";
    static const std::pair<const char *, const char *> keywords[] = {
        {"background-attachment", "scroll fixed"},
        {"background-clip", boxes},
        {"background-origin", boxes},
        {"background-repeat", "repeat repeat-x repeat-y repeat-xy no-repeat"},
        {"border-bottom-style", styles},
        {"border-left-style", styles},
        {"border-right-style", styles},
        {"border-style", styles},
        {"border-top-style", styles},
        {"font-style", "normal italic oblique"},
        {"font-weight", "normal bold"},
        {"outline-style", styles},
        {"position", "relative absolute static fixed"},
        {"subcontrol-origin", boxes},
        {"subcontrol-position", "top bottom left right center"},
        {"text-align", "left right center top bottom justify"},
        {"text-decoration", "none underline overline line-through blink"},
    };
    for (const auto &[name, known] : keywords) {
        if (property == QLatin1String(name)) {
            return words(known);
        }
    }
    return QStringList();
}

const QStringList &Toolkit::gradients()
{
    static const QStringList names = words("qlineargradient qradialgradient qconicalgradient");
    return names;
}

const QStringList &Toolkit::keywords()
{
    static const QStringList names = words(
        "none solid dashed dotted dot-dash dot-dot-dash double groove ridge inset outset native bottom center left "
        "right "
        "top repeat repeat-x repeat-y repeat-xy no-repeat fixed scroll border content margin padding transparent");
    return names;
}

const QStringList &Toolkit::paletteRoles()
{
    static const QStringList names =
        words("alternate-base base bright-text button button-text dark highlight highlighted-text light link "
              "link-visited mid midlight placeholder-text shadow text tooltip-base tooltip-text window window-text");
    return names;
}

QStringList Toolkit::classes()
{
    static const QStringList names = [] {
        QStringList sorted = classTable().keys();
        sorted.append(QStringLiteral("QToolTip"));
        sorted.sort();
        return sorted;
    }();
    return names;
}

const QMetaObject *Toolkit::classNamed(const QString &name)
{
    return classTable().value(name);
}

bool Toolkit::isBase(const QString &name, const QMetaObject *type)
{
    for (; type; type = type->superClass()) {
        if (name == QLatin1String(type->className())) {
            return true;
        }
    }
    return false;
}

bool Toolkit::hasSubControl(const QMetaObject *type, const QString &subControl)
{
    for (const Parts &parts : SubControls) {
        if (isBase(QString::fromLatin1(parts.type), type)) {
            return words(parts.subControls).contains(subControl);
        }
    }
    return true;
}

bool Toolkit::hasState(const QMetaObject *type, const QString &subControl, const QString &state)
{
    if (subControl == QLatin1String("tab") || std::strcmp(type->className(), "QWidget") == 0) {
        return true;
    }
    for (const States &entry : StatesOfClasses) {
        if (words(entry.states).contains(state)) {
            const QStringList types = words(entry.types);
            return std::any_of(types.cbegin(), types.cend(), [type](const QString &name) {
                const QMetaObject *able = classNamed(name);
                return isBase(name, type) || isBase(QString::fromLatin1(type->className()), able);
            });
        }
    }
    return true;
}

QString Toolkit::classOfObject(const QString &objectName)
{
    for (const Object &object : Objects) {
        if (objectName == QLatin1String(object.name)) {
            return QString::fromLatin1(object.type);
        }
    }
    return QString();
}
