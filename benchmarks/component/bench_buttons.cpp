#include "component/vela-button.h"
#include "image-manager/image-manager.h"
#include "style-manager/style-manager.h"
#include "support/comparison.h"
#include "support/resources.h"

#include <QApplication>
#include <QVBoxLayout>

namespace {

constexpr int ButtonCount = 50;
constexpr double Target = 1.2;

QPixmap iconPixmap()
{
    QPixmap pixmap(20, 20);
    pixmap.fill(Qt::darkCyan);
    return pixmap;
}

/// Knows whether a widget has been painted.
class PaintWatcher : public QObject
{
public:
    explicit PaintWatcher(QWidget *widget) { widget->installEventFilter(this); }

    bool hasPainted() const { return m_hasPainted; }

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        m_hasPainted = m_hasPainted || event->type() == QEvent::Paint;
        return false;
    }

private:
    bool m_hasPainted = false;
};

/// From nothing to the first paint: makes the buttons, lays them out in a panel, and shows it in a window
/// that is there.
template<typename MakeButton>
void showPanels(benchmark::State &state, MakeButton makeButton)
{
    QWidget window;
    window.resize(400, 2000);
    window.show();
    QApplication::processEvents();
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        auto *panel = new QWidget(&window);
        auto *layout = new QVBoxLayout(panel);
        for (int i = 0; i < ButtonCount; ++i) {
            layout->addWidget(makeButton(panel));
        }
        const PaintWatcher lastButton(layout->itemAt(ButtonCount - 1)->widget());
        panel->show();
        while (!lastButton.hasPainted()) {
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }

        state.PauseTiming();
        delete panel;
        QApplication::processEvents();
        state.ResumeTiming();
    }
}

QWidget *bareButton(QWidget *parent, const QString &sheet)
{
    auto *button = new QPushButton(QStringLiteral("Continue"), parent);
    button->setFlat(true);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    button->setStyleSheet(sheet);
    return button;
}

QWidget *bareToolButton(QWidget *parent, const QIcon &icon, const QString &sheet)
{
    auto *button = new QToolButton(parent);
    button->setIcon(icon);
    button->setIconSize(QSize(20, 20));
    button->setToolButtonStyle(Qt::ToolButtonIconOnly);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    button->setStyleSheet(sheet);
    button->setPopupMode(QToolButton::InstantPopup);
    return button;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    const Resources resources;
    ImageManager::getInstance()->initialize(ImageManager::INIT_LAZY);
    StyleManager::getInstance()->initialize(
        {resources.writeSheet(QStringLiteral("buttons.qss"),
                              headed("component.apply_button", buttonSheet("QPushButton"))
                                  + headed("component.icon_button", buttonSheet("QToolButton")))});

    const QString sheet = getStyleSheet("component.apply_button", false);
    compare(
        "VelaButton, first paint", Target,
        [](benchmark::State &state) {
            showPanels(state,
                       [](QWidget *) { return new VelaButton(QStringLiteral("Continue"), VelaButton::ApplyButton); });
        },
        [sheet](benchmark::State &state) {
            showPanels(state, [&sheet](QWidget *parent) { return bareButton(parent, sheet); });
        });

    const QPixmap pixmap = iconPixmap();
    const QString iconSheet = getStyleSheet("component.icon_button", false);
    compare(
        "VelaIconButton, first paint", Target,
        [pixmap](benchmark::State &state) {
            showPanels(state, [&pixmap](QWidget *) { return new VelaIconButton(pixmap); });
        },
        [pixmap, iconSheet](benchmark::State &state) {
            showPanels(state, [&](QWidget *parent) { return bareToolButton(parent, QIcon(pixmap), iconSheet); });
        });
    return runComparisons(argc, argv);
}
