// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "utils/accessibility.h"

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <QtTest>

namespace {

using Widgets = QList<QWidget *>;

// The numbers that levels are compared by.
constexpr int Policies[] = {0, 1, 2, 11, 15}; // none, tab, click, strong, wheel

QWidget *addChild(const char *name, QWidget *parent, Qt::FocusPolicy policy = Qt::StrongFocus)
{
    auto *widget = new QWidget(parent);
    widget->setObjectName(QLatin1String(name));
    widget->setFocusPolicy(policy);
    return widget;
}

QString namesOf(const Widgets &widgets)
{
    QStringList names;
    for (const QWidget *widget : widgets) {
        names.append(widget->objectName());
    }
    return names.join(QLatin1Char(' '));
}

} // namespace

Q_DECLARE_METATYPE(Qt::FocusPolicy)

class AccessibilityTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theDefaultFilterHasNoWidgetsAndTheLevelOfNoFocus();
    void aFilterHasWhatItIsConstructedWith();
    void aFilterHasWhatItIsSetTo();
    void aCopiedFilterIsIndependent();

    void aNullRootGivesAnEmptyList();
    void aWidgetAloneIsItsOwnList();
    void aHiddenDialogGivesAnEmptyListThoughItsChildrenAreMarkedVisible();
    void belowAHiddenWidgetNothingIsCollected();
    void parentsComeBeforeTheirChildrenAndTheseInOrderOfCreation();
    void theOrderIsNeitherThatOfTheLayoutNorOfTheTabKey();
    void theOrderFollowsTheListOfChildren();
    void childrenThatAreNoWidgetsArePassedOver();
    void onlyVisibilityAndFocusPolicyCount();
    void aVisibleChildWindowIsVisitedToo();
    void theFirstFormCollectsEveryPolicyButNone_data();
    void theFirstFormCollectsEveryPolicyButNone();
    void theFilterComparesPoliciesAsNumbers_data();
    void theFilterComparesPoliciesAsNumbers();
    void anExcludedContainerIsLeftOutButNotItsChildren();
    void anExcludedRootIsLeftOutButNotItsChildren();
    void excludingWhatIsNotThereChangesNothing();
    void aLabelIsLeftOutByTheFirstFormAndCollectedByTheDefaultFilter();

    void thePolicyIsSetOnEveryWidgetOfTheList_data();
    void thePolicyIsSetOnEveryWidgetOfTheList();
    void noPolicyIsSetOnWidgetsOutsideTheList();
};

void AccessibilityTest::theDefaultFilterHasNoWidgetsAndTheLevelOfNoFocus()
{
    const AccessibleFilter filter;
    QCOMPARE(filter.filterWidgets(), Widgets());
    QCOMPARE(filter.focusLevel(), Qt::NoFocus);
}

void AccessibilityTest::aFilterHasWhatItIsConstructedWith()
{
    QWidget one;
    QWidget two;
    const AccessibleFilter filter({&two, &one}, Qt::ClickFocus);
    QCOMPARE(filter.filterWidgets(), Widgets({&two, &one}));
    QCOMPARE(filter.focusLevel(), Qt::ClickFocus);
}

void AccessibilityTest::aFilterHasWhatItIsSetTo()
{
    QWidget one;
    QWidget two;
    AccessibleFilter filter({&one}, Qt::ClickFocus);

    filter.setFilterWidgets({&two});
    QCOMPARE(filter.filterWidgets(), Widgets({&two}));
    QCOMPARE(filter.focusLevel(), Qt::ClickFocus);

    filter.setFocusLevel(Qt::WheelFocus);
    QCOMPARE(filter.filterWidgets(), Widgets({&two}));
    QCOMPARE(filter.focusLevel(), Qt::WheelFocus);
}

void AccessibilityTest::aCopiedFilterIsIndependent()
{
    QWidget one;
    AccessibleFilter original({&one}, Qt::TabFocus);
    const AccessibleFilter copy(original);

    original.setFilterWidgets({});
    original.setFocusLevel(Qt::StrongFocus);

    QCOMPARE(copy.filterWidgets(), Widgets({&one}));
    QCOMPARE(copy.focusLevel(), Qt::TabFocus);
    original = copy;
    QCOMPARE(original.filterWidgets(), Widgets({&one}));
    QCOMPARE(original.focusLevel(), Qt::TabFocus);
}

void AccessibilityTest::aNullRootGivesAnEmptyList()
{
    QCOMPARE(accessibleList(nullptr, Widgets()), Widgets());
    QCOMPARE(accessibleList(nullptr, AccessibleFilter()), Widgets());
}

void AccessibilityTest::aWidgetAloneIsItsOwnList()
{
    QWidget window;
    window.setFocusPolicy(Qt::TabFocus);
    window.show();
    QCOMPARE(accessibleList(&window, Widgets()), Widgets({&window}));
    QCOMPARE(accessibleList(&window, AccessibleFilter()), Widgets({&window}));
}

void AccessibilityTest::aHiddenDialogGivesAnEmptyListThoughItsChildrenAreMarkedVisible()
{
    QDialog dialog;
    dialog.setFocusPolicy(Qt::StrongFocus);
    QWidget *child = addChild("child", &dialog);
    child->setVisible(true);
    QVERIFY(child->testAttribute(Qt::WA_WState_ExplicitShowHide));

    QCOMPARE(accessibleList(&dialog, Widgets()), Widgets());
    QCOMPARE(accessibleList(&dialog, AccessibleFilter()), Widgets());
    QCOMPARE(accessibleList(child, AccessibleFilter()), Widgets());
}

void AccessibilityTest::belowAHiddenWidgetNothingIsCollected()
{
    QWidget window;
    window.setObjectName(QStringLiteral("window"));
    QWidget *hidden = addChild("hidden", &window);
    addChild("below", addChild("between", hidden))->setVisible(true);
    addChild("after", &window);
    window.show();

    hidden->hide();
    QCOMPARE(namesOf(accessibleList(&window, Widgets())), QStringLiteral("after"));
    QCOMPARE(namesOf(accessibleList(&window, AccessibleFilter())), QStringLiteral("window after"));

    hidden->show();
    QCOMPARE(namesOf(accessibleList(&window, Widgets())), QStringLiteral("hidden between below after"));
}

void AccessibilityTest::parentsComeBeforeTheirChildrenAndTheseInOrderOfCreation()
{
    QWidget window;
    window.setObjectName(QStringLiteral("window"));
    window.setFocusPolicy(Qt::StrongFocus);
    QWidget *first = addChild("1", &window);
    QWidget *second = addChild("2", &window);
    addChild("1.1", first);
    addChild("2.1", second);
    addChild("1.2.1", addChild("1.2", first));
    addChild("3", &window);
    window.show();

    const QString names = QStringLiteral("window 1 1.1 1.2 1.2.1 2 2.1 3");
    QCOMPARE(namesOf(accessibleList(&window, Widgets())), names);
    QCOMPARE(namesOf(accessibleList(&window, AccessibleFilter())), names);
    QCOMPARE(namesOf(accessibleList(first, Widgets())), QStringLiteral("1 1.1 1.2 1.2.1"));
}

void AccessibilityTest::theOrderIsNeitherThatOfTheLayoutNorOfTheTabKey()
{
    QWidget window;
    QWidget *first = addChild("first", &window);
    QWidget *second = addChild("second", &window);
    auto *layout = new QVBoxLayout(&window);
    layout->addWidget(second);
    layout->addWidget(first);
    QWidget::setTabOrder(second, first);
    window.show();
    QCOMPARE(namesOf(accessibleList(&window, Widgets())), QStringLiteral("first second"));
}

void AccessibilityTest::theOrderFollowsTheListOfChildren()
{
    QWidget window;
    QWidget *first = addChild("first", &window);
    addChild("second", &window);
    addChild("third", &window);
    window.show();

    first->raise(); // makes the child the last of the list
    QCOMPARE(namesOf(accessibleList(&window, Widgets())), QStringLiteral("second third first"));
    QCOMPARE(namesOf(accessibleList(&window, AccessibleFilter({}, Qt::TabFocus))),
             QStringLiteral("second third first"));
}

void AccessibilityTest::childrenThatAreNoWidgetsArePassedOver()
{
    QWidget window;
    window.setObjectName(QStringLiteral("window"));
    new QTimer(&window);
    new QVBoxLayout(&window);
    addChild("child", &window);
    new QTimer(&window);
    window.show();
    QCOMPARE(namesOf(accessibleList(&window, AccessibleFilter())), QStringLiteral("window child"));
}

void AccessibilityTest::onlyVisibilityAndFocusPolicyCount()
{
    QWidget window;
    addChild("disabled", &window)->setEnabled(false);
    addChild("empty", &window)->resize(0, 0);
    addChild("outside", &window)->move(-1000, -1000);
    addChild("covered", &window)->stackUnder(addChild("proxied", &window));
    window.findChild<QWidget *>(QStringLiteral("proxied"))->setFocusProxy(&window);
    window.show();
    QCOMPARE(namesOf(accessibleList(&window, Widgets())), QStringLiteral("disabled empty outside covered proxied"));
}

void AccessibilityTest::aVisibleChildWindowIsVisitedToo()
{
    QWidget window;
    auto *dialog = new QDialog(&window);
    addChild("in the dialog", dialog);
    addChild("beside", &window);
    window.show();
    QCOMPARE(namesOf(accessibleList(&window, Widgets())), QStringLiteral("beside"));

    dialog->show();
    QCOMPARE(namesOf(accessibleList(&window, Widgets())), QStringLiteral("in the dialog beside"));
}

void AccessibilityTest::theFirstFormCollectsEveryPolicyButNone_data()
{
    QTest::addColumn<Qt::FocusPolicy>("policy");
    QTest::addColumn<bool>("isCollected");
    QTest::newRow("none") << Qt::NoFocus << false;
    QTest::newRow("tab") << Qt::TabFocus << true;
    QTest::newRow("click") << Qt::ClickFocus << true;
    QTest::newRow("strong") << Qt::StrongFocus << true;
    QTest::newRow("wheel") << Qt::WheelFocus << true;
}

void AccessibilityTest::theFirstFormCollectsEveryPolicyButNone()
{
    QFETCH(Qt::FocusPolicy, policy);
    QFETCH(bool, isCollected);
    QWidget window;
    window.setFocusPolicy(policy);
    QWidget *child = addChild("child", &window, policy);
    window.show();
    QCOMPARE(accessibleList(&window, Widgets()), isCollected ? Widgets({&window, child}) : Widgets());
}

void AccessibilityTest::theFilterComparesPoliciesAsNumbers_data()
{
    QTest::addColumn<int>("policy");
    QTest::addColumn<int>("level");
    for (const int policy : Policies) {
        for (const int level : Policies) {
            QTest::addRow("policy %d at level %d", policy, level) << policy << level;
        }
    }
}

void AccessibilityTest::theFilterComparesPoliciesAsNumbers()
{
    QFETCH(int, policy);
    QFETCH(int, level);
    QWidget window;
    window.setFocusPolicy(Qt::FocusPolicy(policy));
    QWidget *child = addChild("child", &window, Qt::FocusPolicy(policy));
    window.show();
    QCOMPARE(accessibleList(&window, AccessibleFilter({}, Qt::FocusPolicy(level))),
             policy >= level ? Widgets({&window, child}) : Widgets());
}

void AccessibilityTest::anExcludedContainerIsLeftOutButNotItsChildren()
{
    QWidget window;
    QWidget *container = addChild("container", &window);
    addChild("child", container);
    QWidget *excludedChild = addChild("excluded child", container);
    addChild("grandchild", excludedChild);
    addChild("sibling", &window);
    window.show();

    const Widgets excluded {excludedChild, container};
    QCOMPARE(namesOf(accessibleList(&window, excluded)), QStringLiteral("child grandchild sibling"));
    QCOMPARE(namesOf(accessibleList(&window, AccessibleFilter(excluded, Qt::TabFocus))),
             QStringLiteral("child grandchild sibling"));
}

void AccessibilityTest::anExcludedRootIsLeftOutButNotItsChildren()
{
    QWidget window;
    window.setFocusPolicy(Qt::StrongFocus);
    QWidget *child = addChild("child", &window);
    window.show();
    QCOMPARE(accessibleList(&window, Widgets({&window})), Widgets({child}));
    QCOMPARE(accessibleList(&window, AccessibleFilter({&window}, Qt::NoFocus)), Widgets({child}));
}

void AccessibilityTest::excludingWhatIsNotThereChangesNothing()
{
    QWidget other;
    QWidget window;
    QWidget *child = addChild("child", &window);
    window.show();
    QCOMPARE(accessibleList(&window, Widgets({nullptr, &other})), Widgets({child}));
    QCOMPARE(accessibleList(&window, AccessibleFilter({nullptr, &other}, Qt::TabFocus)), Widgets({child}));
}

void AccessibilityTest::aLabelIsLeftOutByTheFirstFormAndCollectedByTheDefaultFilter()
{
    QWidget window;
    auto *label = new QLabel(&window);
    auto *lineEdit = new QLineEdit(&window);
    auto *button = new QPushButton(&window);
    window.show();
    QCOMPARE(accessibleList(&window, Widgets()), Widgets({lineEdit, button}));
    QCOMPARE(accessibleList(&window, AccessibleFilter()), Widgets({&window, label, lineEdit, button}));
}

void AccessibilityTest::thePolicyIsSetOnEveryWidgetOfTheList_data()
{
    QTest::addColumn<int>("policy");
    for (const int policy : Policies) {
        QTest::addRow("%d", policy) << policy;
    }
}

void AccessibilityTest::thePolicyIsSetOnEveryWidgetOfTheList()
{
    QFETCH(int, policy);
    QWidget window;
    Widgets widgets {&window};
    for (const int former : Policies) {
        widgets.append(addChild("child", &window, Qt::FocusPolicy(former)));
    }
    widgets.last()->hide();
    widgets.first()->setEnabled(false);

    adjustFocusPolicy(Qt::FocusPolicy(policy), widgets);

    for (const QWidget *widget : qAsConst(widgets)) {
        QCOMPARE(int(widget->focusPolicy()), policy);
    }
}

void AccessibilityTest::noPolicyIsSetOnWidgetsOutsideTheList()
{
    QWidget window;
    QWidget *parent = addChild("parent", &window, Qt::ClickFocus);
    QWidget *child = addChild("child", parent, Qt::ClickFocus);

    adjustFocusPolicy(Qt::TabFocus, {});
    QCOMPARE(parent->focusPolicy(), Qt::ClickFocus);

    adjustFocusPolicy(Qt::TabFocus, {parent});
    QCOMPARE(window.focusPolicy(), Qt::NoFocus);
    QCOMPARE(parent->focusPolicy(), Qt::TabFocus);
    QCOMPARE(child->focusPolicy(), Qt::ClickFocus);
}

QTEST_MAIN(AccessibilityTest)
#include "tst_accessibility.moc"
