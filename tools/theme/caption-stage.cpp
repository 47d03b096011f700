// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "caption-stage.h"

#include "drawn-texts.h"
#include "scale/scaled.h"

#include <VelaCalanderView>
#include <VelaCountdownMessageBox>
#include <VelaDateSelector>
#include <VelaInputSheet>
#include <VelaMessageSheet>

#include "component/vela-msg-box.h"

#include <QtWidgets>

#include <algorithm>

namespace {

using Vela::Text;

constexpr int SheetWindowWidth = 600; // logical pixels, of a small window
constexpr int Seconds = 60; // of the countdown, in two digits
constexpr int Year = 2020;
constexpr int Passes = 3; // for layouts inside layouts

constexpr Text Months[] = {Text::January,   Text::February, Text::March,    Text::April,
                           Text::May,       Text::June,     Text::July,     Text::August,
                           Text::September, Text::October,  Text::November, Text::December};
constexpr Text Weekdays[] = {Text::Sunday,   Text::Monday, Text::Tuesday, Text::Wednesday,
                             Text::Thursday, Text::Friday, Text::Saturday};

const QString Message = QStringLiteral("text");

using Shortcut = void (*)();

constexpr Shortcut Shortcuts[] = {
    [] { showInfoMsg(QString(), Message); },
    [] { showWarningMsg(QString(), Message); },
    [] { showConfirmMsg(QString(), Message); },
    [] { showUpgradingMsg(QString(), Message); },
};

// Characters that are to be seen, in any order: from right to left they are painted in another one.
QString lettersOf(const QString &text)
{
    QString letters;
    std::copy_if(text.cbegin(), text.cend(), std::back_inserter(letters),
                 [](QChar character) { return character != u'&' && !character.isSpace() && character.isPrint(); });
    std::sort(letters.begin(), letters.end());
    return letters;
}

bool isCut(const QString &caption, const QRect &place, const QVector<DrawnText> &drawn)
{
    QString seen;
    for (const DrawnText &text : drawn) {
        if (QRectF(place).contains(text.rect.center())) {
            if (text.isCut) {
                return true;
            }
            seen += text.text;
        }
    }
    return lettersOf(seen) != lettersOf(caption);
}

QRect placeIn(const QWidget *root, const QWidget *widget)
{
    return {widget->mapTo(root, QPoint(0, 0)), widget->size()};
}

// Nothing is painted for it.
void settle()
{
    for (int pass = 0; pass < Passes; ++pass) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    }
}

// A button of a sheet or box.
struct Answer
{
    const char *user;
    QWidget *root;
    QAbstractButton *button;
    Text text;
};

bool isAnswerCut(const Answer &answer)
{
    const QRect place = placeIn(answer.root, answer.button);
    return isCut(answer.button->text(), place, drawnTexts(answer.root, place));
}

class CaptionStage
{
public:
    CaptionStage();

    void addBox(QMessageBox *box);
    void fitSheets();
    QVector<ShownCaption> measure() const;

private:
    template<typename Widget>
    void addAnswers(const char *user, Widget *widget, Text ok);
    void addButton(const char *user, QWidget *root, QAbstractButton *button, Text text);
    bool hasGivenWay(const Answer &answer) const;
    void measureMonths(QVector<ShownCaption> *captions) const;
    void measureMonthMenu(QVector<ShownCaption> *captions) const;
    void measureWeekdays(QVector<ShownCaption> *captions) const;

    template<typename Widget>
    Widget *child(const char *objectName) const
    {
        return m_calendar->findChild<Widget *>(QLatin1String(objectName));
    }

    QWidget m_window;
    VelaDateSelector m_selector {QString()};
    VelaCalanderView *const m_calendar;
    VelaCountdownMessageBox m_countdown;
    QVector<VelaSheet *> m_sheets;
    QVector<Answer> m_answers;
};

CaptionStage::CaptionStage() : m_calendar(m_selector.getCalendarView()), m_countdown(Seconds)
{
    m_window.resize(scaled(SheetWindowWidth), scaled(SheetWindowWidth));
    auto *question = new VelaMessageSheet(VelaMessageSheet::QuestionMessage, Message, &m_window);
    auto *upgrade = new VelaMessageSheet(VelaMessageSheet::UpgradeMessage, Message, &m_window);
    auto *input = new VelaInputSheet(Message, &m_window);
    m_countdown.setText(Message);
    m_calendar->window()->setWindowFlags(Qt::Window); // a popup would be closed by the boxes
    for (QWidget *widget : {&m_window, m_calendar->window(), static_cast<QWidget *>(&m_countdown)}) {
        widget->setAttribute(Qt::WA_DontShowOnScreen);
        widget->show();
    }
    m_sheets = {question, upgrade, input};
    for (VelaSheet *sheet : qAsConst(m_sheets)) {
        sheet->show();
    }
    addAnswers("VelaMessageSheet", question, Text::Ok);
    addAnswers("VelaMessageSheet", upgrade, Text::UpgradeNow);
    addAnswers("VelaInputSheet", input, Text::Ok);
    addAnswers("VelaCountdownMessageBox", &m_countdown, Text::Ok);
    addButton("VelaCalanderView", m_calendar, child<QAbstractButton>("qt_calendar_today_button"), Text::Today);
}

// As a mask does it with its sheet.
void CaptionStage::fitSheets()
{
    for (int pass = 0; pass < Passes; ++pass) {
        settle();
        for (VelaSheet *sheet : qAsConst(m_sheets)) {
            sheet->resize(sheet->width(), sheet->sizeHint().height());
        }
    }
}

void CaptionStage::addBox(QMessageBox *box)
{
    addButton("message shortcuts", box, box->button(QMessageBox::Ok), Text::Ok);
    if (QAbstractButton *cancel = box->button(QMessageBox::Cancel)) {
        addButton("message shortcuts", box, cancel, Text::Cancel);
    }
}

template<typename Widget>
void CaptionStage::addAnswers(const char *user, Widget *widget, Text ok)
{
    addButton(user, widget, widget->button(QMessageBox::Ok), ok);
    addButton(user, widget, widget->button(QMessageBox::Discard), Text::Cancel);
}

void CaptionStage::addButton(const char *user, QWidget *root, QAbstractButton *button, Text text)
{
    m_answers.append({user, root, button, text});
}

QVector<ShownCaption> CaptionStage::measure() const
{
    settle();
    QVector<ShownCaption> captions;
    for (const Answer &answer : m_answers) {
        captions.append({answer.text, answer.user, answer.button, answer.button->text(),
                         isAnswerCut(answer) && !hasGivenWay(answer)});
    }
    measureMonths(&captions);
    measureMonthMenu(&captions);
    measureWeekdays(&captions);
    return captions;
}

// Whether there is a longer answer beside it that is the reason.
bool CaptionStage::hasGivenWay(const Answer &answer) const
{
    return std::any_of(m_answers.cbegin(), m_answers.cend(), [&answer](const Answer &other) {
        return other.root == answer.root && other.button->text().size() > answer.button->text().size()
            && isAnswerCut(other);
    });
}

void CaptionStage::measureMonths(QVector<ShownCaption> *captions) const
{
    auto *button = child<QToolButton>("qt_calendar_monthbutton");
    for (int month = 0; month < static_cast<int>(std::size(Months)); ++month) {
        m_calendar->setCurrentPage(Year, month + 1);
        settle();
        const QRect place = placeIn(m_calendar, button);
        captions->append({Months[month], "VelaCalanderView", button, button->text(),
                          isCut(button->text(), place, drawnTexts(m_calendar, place))});
    }
}

void CaptionStage::measureMonthMenu(QVector<ShownCaption> *captions) const
{
    QMenu *menu = child<QToolButton>("qt_calendar_monthbutton")->menu();
    menu->ensurePolished();
    menu->resize(menu->sizeHint().boundedTo(menu->maximumSize()));
    const QVector<DrawnText> drawn = drawnTexts(menu);
    const QList<QAction *> actions = menu->actions();
    for (int month = 0; month < actions.size(); ++month) {
        QAction *action = actions.at(month);
        captions->append({Months[month], "VelaCalanderView", menu, action->text(),
                          isCut(action->text(), menu->actionGeometry(action), drawn)});
    }
}

void CaptionStage::measureWeekdays(QVector<ShownCaption> *captions) const
{
    auto *row = child<QTableWidget>("qt_calendar_weekdayview");
    const QVector<DrawnText> drawn = drawnTexts(m_calendar, placeIn(m_calendar, row));
    for (int day = 0; day < static_cast<int>(std::size(Weekdays)); ++day) {
        const QTableWidgetItem *item = row->item(0, day);
        const QRect cell = row->visualItemRect(item);
        const QRect place(row->viewport()->mapTo(m_calendar, cell.topLeft()), cell.size());
        captions->append(
            {Weekdays[day], "VelaCalanderView", row->viewport(), item->text(), isCut(item->text(), place, drawn)});
    }
}

// The shortcuts do not return before they are answered, so that each is called while the one before it waits.
void showBoxes(CaptionStage *stage, int next, const std::function<void()> &look)
{
    if (next == static_cast<int>(std::size(Shortcuts))) {
        stage->fitSheets();
        look();
        return;
    }
    QTimer::singleShot(0, qApp, [&] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        stage->addBox(box);
        showBoxes(stage, next + 1, look);
        box->reject();
    });
    Shortcuts[next]();
}

} // namespace

void showCaptions(const std::function<void(const std::function<QVector<ShownCaption>()> &measure)> &look)
{
    CaptionStage stage;
    showBoxes(&stage, 0, [&] { look([&stage] { return stage.measure(); }); });
}
