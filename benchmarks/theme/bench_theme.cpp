// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-button.h"
#include "component/vela-check-box.h"
#include "component/vela-combo-box.h"
#include "component/vela-label.h"
#include "component/vela-line-edit.h"
#include "image-manager/image-manager.h"
#include "style-manager/style-manager.h"
#include "support/comparison.h"
#include "support/log-capture.h"
#include "theme/vela-theme.h"
#include "utils/ui-path-manager.h"

#include <QApplication>
#include <QDir>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QStandardPaths>

#include <array>

namespace {

constexpr double Target = 1.1;
constexpr int Columns = 25;
constexpr int FewWidgets = 1000;
constexpr int ManyWidgets = 5000;

// A reference theme, and what an application that changes to it by hand has to set.
struct Theme
{
    QString folder;
    std::vector<QString> sheets;
    QPalette palette;
};

Theme themeOf(const char *name)
{
    Theme theme;
    theme.folder = QDir::cleanPath(QStringLiteral(VELA_THEME_DIR "/../") + QLatin1String(name));
    VelaTheme::getInstance()->load(theme.folder, QStringLiteral("enu"));
    theme.palette = QApplication::palette();
    const QDir styles(theme.folder + QStringLiteral("/styles"));
    const QStringList names = styles.entryList({QStringLiteral("*.qss")}, QDir::Files, QDir::Name);
    for (const QString &file : names) {
        theme.sheets.push_back(styles.filePath(file));
    }
    return theme;
}

// A shown window full of controls, in equal numbers.
class Window : public QWidget
{
public:
    explicit Window(int count)
    {
        auto *grid = new QGridLayout(this);
        grid->setSpacing(0);
        for (int i = 0; i < count; ++i) {
            grid->addWidget(create(i % 5), i / Columns, i % Columns);
        }
        resize(1200, 1000);
        show();
        QApplication::processEvents();
    }

    // An application that has made the start-up calls, and knows its widgets and their keys, does this.
    void setByHand(const Theme &theme)
    {
        {
            const LogCapture ofThePath; // the path is there already, which is logged
            UIPathManager::getInstance()->setPath(QStringLiteral("resource_path"), theme.folder);
        }
        ImageManager::getInstance()->initialize(ImageManager::INIT_LAZY);
        StyleManager::getInstance()->initialize(theme.sheets);
        QApplication::setPalette(theme.palette);
        for (VelaButton *button : m_buttons) {
            button->setStyleSheet(getStyleSheet("component.apply_button", false));
        }
        for (VelaIconButton *button : m_iconButtons) {
            button->setStyleSheet(getStyleSheet("component.icon_button", false));
            button->setAllIcon(QStringLiteral("bt_add"));
        }
        for (VelaCheckBox *box : m_checkBoxes) {
            box->setStyleSheet(getStyleSheet("component.checkbox", false));
        }
        for (VelaLabel *label : m_labels) {
            label->setStyleSheet(getStyleSheet("component.label", false));
        }
        for (VelaLineEdit *edit : m_lineEdits) {
            edit->getPreLabel()->setStyleSheet(getStyleSheet("component.lineedit_label", false));
            edit->getLineEdit()->setStyleSheet(getStyleSheet("component.lineedit", false));
            edit->getPostLabel()->setStyleSheet(getStyleSheet("component.lineedit_label", false));
        }
    }

private:
    template<typename Widget>
    static Widget *keep(std::vector<Widget *> &widgets, Widget *widget)
    {
        widgets.push_back(widget);
        return widget;
    }

    QWidget *create(int kind)
    {
        switch (kind) {
        case 0:
            return keep(m_buttons, new VelaButton(QStringLiteral("Save"), VelaButton::ApplyButton));
        case 1:
            return keep(m_iconButtons, new VelaIconButton(QStringLiteral("bt_add")));
        case 2:
            return keep(m_checkBoxes, new VelaCheckBox(QStringLiteral("Check")));
        case 3:
            return keep(m_labels, new VelaLabel(QStringLiteral("Text")));
        default:
            return keep(m_lineEdits, new VelaLineEdit);
        }
    }

    std::vector<VelaButton *> m_buttons;
    std::vector<VelaIconButton *> m_iconButtons;
    std::vector<VelaCheckBox *> m_checkBoxes;
    std::vector<VelaLabel *> m_labels;
    std::vector<VelaLineEdit *> m_lineEdits;
};

using Themes = std::array<Theme, 2>;

// Changes between the themes, and waits each time until the window is painted.
template<typename Change>
void changeThemes(benchmark::State &state, int count, const Themes &themes, Change change)
{
    VelaTheme::getInstance()->setFolder(themes[0].folder);
    Window window(count);
    std::size_t next = 1;
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        change(window, themes[next]);
        QApplication::processEvents();
        next = 1 - next;
    }
}

void changeByHand(Window &window, const Theme &theme)
{
    window.setByHand(theme);
}

void changeByCall(Window &, const Theme &theme)
{
    VelaTheme::getInstance()->setFolder(theme.folder);
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    const Themes themes {themeOf("light"), themeOf("dark")};
    for (int count : {FewWidgets, ManyWidgets}) {
        compare(
            "VelaTheme, " + std::to_string(count) + " widgets", Target,
            [&themes, count](benchmark::State &state) { changeThemes(state, count, themes, changeByCall); },
            [&themes, count](benchmark::State &state) { changeThemes(state, count, themes, changeByHand); });
    }
    return runComparisons(argc, argv);
}
