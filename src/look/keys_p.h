// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>

// Everything that the library asks a theme and a table of texts for, and who does. What an application's theme has to
// hold is read from here, so nothing may be asked for by a name of its own elsewhere.

namespace Vela {

/// A folder that applications name to UIPathManager.
struct FolderEntry
{
    const char *key;
    const char *usedBy;
};

constexpr FolderEntry FolderEntries[] = {
    {"resource_path", "ImageManager (the theme: \"images.json\" and the folder \"images\")"},
    {"user_data_path", "ImageManager (writes the folder \"tmp_images\")"},
};

/// A section of the style sheets.
enum class Style {
    ApplyButton,
    ButtonPath,
    ButtonPathArrow,
    ButtonPathMenuButton,
    ButtonPathName,
    CancelButton,
    CheckBox,
    ComboBox,
    ConfirmBox,
    DateSelector,
    DefaultButton,
    FilterBarPadding,
    FilterSearchButton,
    IconButton,
    InfoBox,
    Label,
    LineEdit,
    LineEditLabel,
    Menu,
    NonselectPagingButton,
    PagingBarBorder,
    PagingBarLabel,
    PagingBarRightmostLabel,
    RadioButton,
    RedButton,
    ScrollBar,
    SelectPagingButton,
    SheetInformativeText,
    SheetOther,
    SheetProcessing,
    SheetText,
    Table,
    TableHeader,
    TreeItem,
    UpgradingBox,
    WarningBox,
    Count
};

struct StyleEntry
{
    Style style;
    const char *key;
    const char *usedBy; // classes, with the state or part in brackets
    const char *reaches; // classes and object names that rules can name
    const char *properties = ""; // dynamic properties that the widget sets, with their values
    const char *setByApplications = ""; // classes that applications set the section on themselves
    const char *markers = ""; // what the widget puts something in the place of
};

constexpr StyleEntry StyleEntries[] = {
    {Style::ApplyButton, "component.apply_button",
     "VelaButton (ApplyButton), VelaMessageSheet, VelaInputSheet, VelaCountdownMessageBox, message shortcuts (Ok)",
     "VelaButton, QPushButton"},
    {Style::ButtonPath, "component.button_path", "VelaButtonPath",
     "VelaButtonPath, QTableWidget, QTableView, QPushButton, QToolButton"},
    {Style::ButtonPathArrow, "component.button_path_arrow", "VelaButtonPath (between two names)", "QPushButton"},
    {Style::ButtonPathMenuButton, "component.button_path_change_folder_btn",
     "VelaButtonPath (menu of the names that do not fit)", "QToolButton"},
    {Style::ButtonPathName, "component.button_path_name_button", "VelaButtonPath (names)", "QPushButton"},
    {Style::CancelButton, "component.cancel_button",
     "VelaButton (CancelButton), VelaCalanderView (today), VelaMessageSheet, VelaInputSheet, VelaCountdownMessageBox, "
     "message shortcuts (cancel)",
     "VelaButton, QPushButton, #qt_calendar_today_button"},
    {Style::CheckBox, "component.checkbox", "VelaCheckBox", "VelaCheckBox, QCheckBox"},
    {Style::ComboBox, "component.combobox",
     "VelaComboBox (a template: %1 stands for the side paddings, %2 for the border)",
     "VelaComboBox, QComboBox, QLineEdit, QAbstractItemView", "", "", "%1, %2"},
    {Style::ConfirmBox, "component.confirm_message_box", "message shortcuts (question without a window)",
     "QMessageBox, QLabel, #qt_msgbox_label, QDialogButtonBox, QPushButton"},
    {Style::DateSelector, "component.date_selector", "VelaDateSelector",
     "VelaDateSelector, QComboBox, VelaCalanderView, QCalendarWidget, QToolButton, QSpinBox, QTableView, "
     "#qt_calendar_navigationbar, #qt_calendar_prevmonth, #qt_calendar_nextmonth, #qt_calendar_monthbutton, "
     "#qt_calendar_yearbutton, #qt_calendar_yearedit, #qt_calendar_calendarview"},
    {Style::DefaultButton, "component.default_button", "VelaButton (DefaultButton)", "VelaButton, QPushButton"},
    {Style::FilterBarPadding, "component.filter_bar_padding", "VelaFilterBar (behind component.lineedit)",
     "VelaFilterBar, QLineEdit"},
    {Style::FilterSearchButton, "component.filter_search_button", "VelaFilterBar (menu's button)",
     "VelaIconButton, QToolButton"},
    {Style::IconButton, "component.icon_button", "VelaIconButton", "VelaIconButton, QToolButton"},
    {Style::InfoBox, "component.info_message_box",
     "VelaCountdownMessageBox, message shortcuts (information without a window)",
     "QMessageBox, VelaCountdownMessageBox, QLabel, #qt_msgbox_label, #qt_msgbox_informativelabel, QDialogButtonBox, "
     "QPushButton"},
    {Style::Label, "component.label", "VelaLabel", "VelaLabel, QLabel"},
    {Style::LineEdit, "component.lineedit", "VelaLineEdit, VelaFilterBar, VelaInputSheet", "QLineEdit, VelaFilterBar",
     "error: true, false"},
    {Style::LineEditLabel, "component.lineedit_label", "VelaLineEdit (texts beside the field)", "QLabel"},
    {Style::Menu, "component.menu", "VelaButtonPath, VelaDateSelector (behind component.date_selector)", "QMenu"},
    {Style::NonselectPagingButton, "component.nonselect_paging_button",
     "VelaButton (NonselectPagingButton), VelaPagingBar", "VelaButton, QPushButton"},
    {Style::PagingBarBorder, "component.paging_bar_border", "VelaPagingBar (surface)", "#PAGINGBARBORDER"},
    {Style::PagingBarLabel, "component.paging_bar_label", "VelaPagingBar (footer)", "QLabel"},
    {Style::PagingBarRightmostLabel, "component.paging_bar_rightmost_label",
     "VelaPagingBar (footer's first label, where there is no refresh button)", "QLabel"},
    {Style::RadioButton, "component.radio_button", "VelaRadioButton", "VelaRadioButton, QRadioButton"},
    {Style::RedButton, "component.red_button", "VelaButton (RedButton)", "VelaButton, QPushButton"},
    {Style::ScrollBar, "component.scrollbar",
     "VelaComboBox (behind component.combobox), VelaTableWidget (behind component.table), HelpWindow", "QScrollBar"},
    {Style::SelectPagingButton, "component.select_paging_button", "VelaButton (SelectPagingButton), VelaPagingBar",
     "VelaButton, QPushButton"},
    {Style::SheetInformativeText, "component.message_sheet_informative_text", "VelaMessageSheet (second text)",
     "MessageLabel, QLabel"},
    {Style::SheetOther, "component.message_sheet_other", "VelaMessageSheet (with an answer), VelaInputSheet",
     "VelaMessageSheet, VelaInputSheet, MessageLabel, QLabel, QLineEdit, QDialogButtonBox, QPushButton"},
    {Style::SheetProcessing, "component.message_sheet_processing", "VelaMessageSheet (AppMessage, ProcessingMessage)",
     "VelaMessageSheet, MessageLabel, QLabel, QDialogButtonBox"},
    {Style::SheetText, "component.message_sheet_text", "VelaMessageSheet (text)", "MessageLabel, QLabel"},
    {Style::Table, "component.table", "VelaTableWidget (rows), VelaCalanderView (weekdays)",
     "ResizeSignalTableWidget, QTableWidget, QTableView, #qt_calendar_weekdayview"},
    {Style::TableHeader, "component.table_header", "VelaTableWidget (header), VelaCalanderView (weekdays)",
     "QHeaderView"},
    {Style::TreeItem, "component.tree_item", "ItemDelegate (editor of a name)", "QLineEdit", "",
     "VelaTreeWidget, QTreeWidget, QTreeView"},
    {Style::UpgradingBox, "component.upgrading_message_box", "message shortcuts (upgrade without a window)",
     "QMessageBox, QLabel, #qt_msgbox_label, QDialogButtonBox, QPushButton"},
    {Style::WarningBox, "component.warning_message_box", "message shortcuts (warning without a window)",
     "QMessageBox, QLabel, #qt_msgbox_label, #qt_msgbox_informativelabel, QDialogButtonBox, QPushButton"},
};

/// An image of the catalogue. Beside these an application's own names are asked for by VelaIconButton, in all states.
enum class Image {
    AppMessage,
    Folder,
    IconInformation,
    IconQuestion,
    IconWarning,
    PagingBack,
    PagingFirst,
    PagingLast,
    PagingNext,
    PagingRefresh,
    PagingRefreshDisabled,
    PagingRefreshHovered,
    PathArrow,
    SearchMenu,
    ShadowBottom,
    ShadowBottomLeft,
    ShadowBottomRight,
    ShadowLeft,
    ShadowRight,
    ShadowTop,
    ShadowTopLeft,
    ShadowTopRight,
    Count
};

enum class ImageStates {
    Normal,
    All, // hovered, pressed and disabled too
};

struct ImageEntry
{
    Image image;
    const char *name;
    const char *usedBy; // classes, with the state or part in brackets
    ImageStates states; // that are asked for
    int width; // logical pixels, as are the widgets' places for it
    int height;
};

constexpr ImageEntry ImageEntries[] = {
    {Image::AppMessage, "app_img", "VelaMessageSheet (AppMessage)", ImageStates::Normal, 32, 32},
    {Image::Folder, "folder", "VelaButtonPath (menu of the names that do not fit)", ImageStates::Normal, 20, 20},
    {Image::IconInformation, "icon_information", "VelaMessageSheet (InfoMessage, UpgradeMessage)", ImageStates::Normal,
     32, 32},
    {Image::IconQuestion, "icon_question", "VelaMessageSheet (QuestionMessage)", ImageStates::Normal, 32, 32},
    {Image::IconWarning, "icon_warning", "VelaMessageSheet (WarningMessage, WarningQuestionMessage)",
     ImageStates::Normal, 32, 32},
    {Image::PagingBack, "bt_pagebar_back", "VelaPagingBar (five pages back)", ImageStates::All, 16, 16},
    {Image::PagingFirst, "bt_pagebar_backend", "VelaPagingBar (first page), VelaCalanderView (month before)",
     ImageStates::All, 16, 16},
    {Image::PagingLast, "bt_pagebar_nextend", "VelaPagingBar (last page), VelaCalanderView (month after)",
     ImageStates::All, 16, 16},
    {Image::PagingNext, "bt_pagebar_next", "VelaPagingBar (five pages on)", ImageStates::All, 16, 16},
    {Image::PagingRefresh, "bt_pagebar_refresh", "VelaPagingBar (refresh)", ImageStates::All, 16, 16},
    {Image::PagingRefreshDisabled, "bt_pagebar_refresh_disable", "VelaPagingBar (refresh, disabled)",
     ImageStates::Normal, 16, 16},
    {Image::PagingRefreshHovered, "bt_pagebar_refresh_hover", "VelaPagingBar (refresh, hovered)", ImageStates::Normal,
     16, 16},
    {Image::PathArrow, "bt_next", "VelaButtonPath (between two names)", ImageStates::Normal, 16, 16},
    {Image::SearchMenu, "bt_search_dropdown", "VelaFilterBar (menu's button)", ImageStates::All, 28, 16},
    {Image::ShadowBottom, "bg_tutorial_b", "VelaSheet (shadow)", ImageStates::Normal, 22, 22},
    {Image::ShadowBottomLeft, "bg_tutorial_lb", "VelaSheet (shadow)", ImageStates::Normal, 22, 22},
    {Image::ShadowBottomRight, "bg_tutorial_rb", "VelaSheet (shadow)", ImageStates::Normal, 22, 22},
    {Image::ShadowLeft, "bg_tutorial_l", "VelaSheet (shadow)", ImageStates::Normal, 22, 22},
    {Image::ShadowRight, "bg_tutorial_r", "VelaSheet (shadow)", ImageStates::Normal, 22, 22},
    {Image::ShadowTop, "bg_tutorial_t", "VelaSheet (shadow)", ImageStates::Normal, 22, 22},
    {Image::ShadowTopLeft, "bg_tutorial_lt", "VelaSheet (shadow)", ImageStates::Normal, 22, 22},
    {Image::ShadowTopRight, "bg_tutorial_rt", "VelaSheet (shadow)", ImageStates::Normal, 22, 22},
};

/// A text in the user's language.
enum class Text {
    April,
    August,
    Calendar,
    CalendarNextMonth,
    CalendarPreviousMonth,
    Cancel,
    December,
    February,
    FirstPage,
    FivePagesBack,
    FivePagesOn,
    Friday,
    January,
    July,
    June,
    LastPage,
    March,
    May,
    Monday,
    November,
    October,
    Ok,
    Refresh,
    Saturday,
    September,
    Sunday,
    Thursday,
    Today,
    Tuesday,
    UpgradeNow,
    Wednesday,
    Count
};

struct TextEntry
{
    Text text;
    const char *key;
    const char *usedBy; // classes, with the state or part in brackets
    const char *markers = ""; // what the widget puts something in the place of
};

constexpr TextEntry TextEntries[] = {
    {Text::April, "month_apr", "VelaCalanderView (month)"},
    {Text::August, "month_aug", "VelaCalanderView (month)"},
    {Text::Calendar, "accessible_calendar", "VelaCalanderView (accessible name)"},
    {Text::CalendarNextMonth, "accessible_calendar_next_month", "VelaCalanderView (accessible name of an arrow)"},
    {Text::CalendarPreviousMonth, "accessible_calendar_prev_month", "VelaCalanderView (accessible name of an arrow)"},
    {Text::Cancel, "cancel", "VelaMessageSheet, VelaInputSheet, VelaCountdownMessageBox, message shortcuts"},
    {Text::December, "month_dec", "VelaCalanderView (month)"},
    {Text::February, "month_feb", "VelaCalanderView (month)"},
    {Text::FirstPage, "first_page", "VelaPagingBar (tool tip)"},
    {Text::FivePagesBack, "prev_5_pages", "VelaPagingBar (tool tip)"},
    {Text::FivePagesOn, "next_5_pages", "VelaPagingBar (tool tip)"},
    {Text::Friday, "friday", "VelaCalanderView (first letter)"},
    {Text::January, "month_jan", "VelaCalanderView (month)"},
    {Text::July, "month_jul", "VelaCalanderView (month)"},
    {Text::June, "month_jun", "VelaCalanderView (month)"},
    {Text::LastPage, "last_page", "VelaPagingBar (tool tip)"},
    {Text::March, "month_mar", "VelaCalanderView (month)"},
    {Text::May, "month_may", "VelaCalanderView (month)"},
    {Text::Monday, "monday", "VelaCalanderView (first letter)"},
    {Text::November, "month_nov", "VelaCalanderView (month)"},
    {Text::October, "month_oct", "VelaCalanderView (month)"},
    {Text::Ok, "ok", "VelaMessageSheet, VelaInputSheet, VelaCountdownMessageBox, message shortcuts"},
    {Text::Refresh, "pagebar_refresh", "VelaPagingBar (accessible name)"},
    {Text::Saturday, "saturday", "VelaCalanderView (first letter)"},
    {Text::September, "month_sep", "VelaCalanderView (month)"},
    {Text::Sunday, "sunday", "VelaCalanderView (first letter)"},
    {Text::Thursday, "thursday", "VelaCalanderView (first letter)"},
    {Text::Today, "today", "VelaCalanderView (button)"},
    {Text::Tuesday, "tuesday", "VelaCalanderView (first letter)"},
    {Text::UpgradeNow, "wizard_client_upgrade", "VelaMessageSheet (UpgradeMessage, Ok)"},
    {Text::Wednesday, "wednesday", "VelaCalanderView (first letter)"},
};

/// A text that is spoken and nowhere shown. A table may lack it: its English fallback is spoken then, and nothing
/// logged.
enum class SpokenText {
    Current,
    Date,
    Filter,
    FilterMenu,
    Folders,
    Help,
    InvalidEntry,
    Level,
    Month,
    Page,
    PageOf,
    Pages,
    Path,
    PathMenu,
    SecondsLeft,
    SortedAscending,
    SortedDescending,
    Year,
    Count
};

struct SpokenTextEntry
{
    SpokenText text;
    const char *key;
    const char *fallback;
    const char *usedBy; // classes, with the state or part in brackets
    const char *markers = ""; // what the widget puts something in the place of
};

constexpr SpokenTextEntry SpokenTextEntries[] = {
    {SpokenText::Current, "accessible_current", "current",
     "VelaPagingBar, VelaButtonPath (description of where one is)"},
    {SpokenText::Date, "accessible_date", "Date", "VelaDateSelector (name, unless the application gives one)"},
    {SpokenText::Filter, "accessible_filter", "Filter", "VelaFilterBar (name, unless the application gives one)"},
    {SpokenText::FilterMenu, "accessible_filter_menu", "Filter options", "VelaFilterBar (name of the menu's button)"},
    {SpokenText::Folders, "accessible_folders", "Folders", "VelaTreeWidget (name, unless the application gives one)"},
    {SpokenText::Help, "accessible_help", "Help", "HelpWindow (name of the page)"},
    {SpokenText::InvalidEntry, "accessible_invalid", "Invalid entry",
     "VelaLineEdit (description of a field that looks wrong)"},
    {SpokenText::Level, "accessible_level", "Level %1", "VelaTreeWidget (description of a row)", "%1"},
    {SpokenText::Month, "accessible_month", "Month", "VelaCalanderView (description of the month button)"},
    {SpokenText::Page, "accessible_page", "Page %1", "VelaPagingBar (name of a page button)", "%1"},
    {SpokenText::PageOf, "accessible_page_of", "Page %1 of %2",
     "VelaPagingBar (value, and name of the current page's button)", "%1, %2"},
    {SpokenText::Pages, "accessible_pages", "Pages", "VelaPagingBar (name, unless the application gives one)"},
    {SpokenText::Path, "accessible_path", "Path", "VelaButtonPath (name, unless the application gives one)"},
    {SpokenText::PathMenu, "accessible_path_menu", "More folders", "VelaButtonPath (name of the menu's button)"},
    {SpokenText::SecondsLeft, "accessible_seconds_left", "Seconds left: %1", "VelaCountdownMessageBox (announcement)",
     "%1"},
    {SpokenText::SortedAscending, "accessible_sorted_ascending", "sorted ascending",
     "VelaTableWidget (description of a column's header)"},
    {SpokenText::SortedDescending, "accessible_sorted_descending", "sorted descending",
     "VelaTableWidget (description of a column's header)"},
    {SpokenText::Year, "accessible_year", "Year",
     "VelaCalanderView (name of the year's field, description of the year button)"},
};

/// A colour that no sheet reaches. A theme may set it in its theme.json.
enum class Color { CalendarWeekend, ComboBoxBorder, Mask, SheetBody, TreeHovered, TreeOutline, TreeSelected, Count };

struct ColorEntry
{
    Color color;
    const char *key;
    QColor standard; // without a theme's own; what is invalid is painted black
    const char *usedBy; // classes, with the state or part in brackets
};

constexpr ColorEntry ColorEntries[] = {
    {Color::CalendarWeekend, "calendar_weekend", {0, 0, 0}, "VelaCalanderView (days of a weekend)"},
    {Color::ComboBoxBorder, "combo_box_border", {0xC8, 0xD2, 0xDC}, "VelaComboBox (%2 of its section)"},
    {Color::Mask, "mask", {0, 0, 0, 20}, "message shortcuts (over the window)"},
    {Color::SheetBody, "sheet_body", {255, 255, 255}, "VelaSheet (body)"},
    {Color::TreeHovered, "tree_hovered", {}, "VelaTreeWidget (row under the pointer, unless it was given a colour)"},
    {Color::TreeOutline, "tree_outline", {255, 255, 255}, "VelaTreeWidget (line around a highlighted row)"},
    {Color::TreeSelected, "tree_selected", {}, "VelaTreeWidget (selected rows, unless it was given a colour)"},
};

namespace Detail {

/// Whether a table has an entry for each value of its enumeration, in the enumeration's order.
template<typename Key, typename Entry, int Size>
constexpr bool isComplete(const Entry (&entries)[Size], Key Entry::*key)
{
    for (int i = 0; i < Size; ++i) {
        if (static_cast<int>(entries[i].*key) != i) {
            return false;
        }
    }
    return Size == static_cast<int>(Key::Count);
}
static_assert(isComplete(StyleEntries, &StyleEntry::style));
static_assert(isComplete(ImageEntries, &ImageEntry::image));
static_assert(isComplete(TextEntries, &TextEntry::text));
static_assert(isComplete(SpokenTextEntries, &SpokenTextEntry::text));
static_assert(isComplete(ColorEntries, &ColorEntry::color));

} // namespace Detail
} // namespace Vela
