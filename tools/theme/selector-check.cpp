// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "selector-check.h"

#include "contract.h"
#include "section-findings.h"
#include "sheet-syntax.h"
#include "toolkit-words.h"

#include "look/keys_p.h"

#include <QMetaProperty>

#include <algorithm>

namespace {

class SelectorCheck
{
public:
    SelectorCheck(const Vela::StyleEntry *entry, SectionFindings *findings) : m_entry(entry), m_findings(findings)
    {
        if (entry) {
            m_reached = listOf(entry->reaches) + listOf(entry->setByApplications);
        }
    }

    void run(const SheetSelector &selector)
    {
        if (m_findings->hasAny(selector.begin) || selector.text.startsWith(QLatin1Char('@'))) {
            return;
        }
        if (!selector.isUnderstood) {
            m_findings->add("selector-form", selector.begin,
                            QStringLiteral("no selector: %1").arg(selector.text.left(60)));
            return;
        }
        for (int i = 0; i < selector.compounds.size(); ++i) {
            const Compound &compound = selector.compounds.at(i);
            const bool isSubject = i == selector.compounds.size() - 1;
            if (!checkElement(selector, compound, isSubject) || !checkIds(selector, compound, isSubject)
                || !checkParts(selector, compound) || !checkAttributes(selector, compound)) {
                return;
            }
        }
    }

private:
    bool checkElement(const SheetSelector &selector, const Compound &compound, bool isSubject)
    {
        const QStringList named = compound.exactClasses
            + (compound.element.isEmpty() || compound.element == QLatin1String("*") ? QStringList()
                                                                                    : QStringList(compound.element));
        for (const QString &name : named) {
            if (name == QLatin1String("QToolTip")) {
                continue;
            }
            if (!Toolkit::classNamed(name)) {
                const bool isForeign =
                    !name.startsWith(QLatin1Char('Q')) && nearest(name, Toolkit::classes()).isEmpty();
                if (isForeign && !m_entry) {
                    continue; // a class of the application in a section of the application
                }
                m_findings->add("class-unknown", selector.begin,
                                QStringLiteral("there is no class \"%1\"%2")
                                    .arg(name,
                                         isForeign ? QStringLiteral(" in toolkit and library")
                                                   : suggestion(name, Toolkit::classes())));
                return false;
            }
            if (isSubject && m_entry && !isReached(name)) {
                m_findings->add("class-unreached", selector.begin,
                                QStringLiteral("%1 reaches no %2, but %3")
                                    .arg(m_findings->key(), name, m_reached.join(QLatin1String(", "))));
                return false;
            }
            if (!isSubject && isLeaf(name)) {
                m_findings->add("rule-never-matches", selector.begin,
                                QStringLiteral("a %1 holds no other widgets").arg(name));
                return false;
            }
        }
        return true;
    }

    bool isReached(const QString &name) const
    {
        return std::any_of(m_reached.cbegin(), m_reached.cend(), [&name](const QString &reached) {
            const QString type =
                reached.startsWith(QLatin1Char('#')) ? Toolkit::classOfObject(reached.mid(1)) : reached;
            return Toolkit::isBase(name, Toolkit::classNamed(type));
        });
    }

    static bool isLeaf(const QString &name)
    {
        static const QStringList leaves = {QStringLiteral("QLabel"), QStringLiteral("QCheckBox"),
                                           QStringLiteral("QRadioButton"), QStringLiteral("QScrollBar"),
                                           QStringLiteral("QProgressBar")};
        return leaves.contains(name);
    }

    bool checkIds(const SheetSelector &selector, const Compound &compound, bool isSubject)
    {
        for (const QString &id : compound.ids) {
            QStringList known;
            for (const QString &name : qAsConst(m_reached)) {
                if (name.startsWith(QLatin1Char('#'))) {
                    known.append(name.mid(1));
                }
            }
            if (m_entry && !known.contains(id) && (isSubject || !nearest(id, known).isEmpty())) {
                m_findings->add("object-unknown", selector.begin,
                                QStringLiteral("%1 reaches no object \"%2\"").arg(m_findings->key(), id)
                                    + suggestion(id, known));
                return false;
            }
            const QMetaObject *type = Toolkit::classNamed(Toolkit::classOfObject(id));
            if (type && Toolkit::classNamed(compound.element) && !Toolkit::isBase(compound.element, type)) {
                m_findings->add("rule-never-matches", selector.begin,
                                QStringLiteral("\"%1\" is a %2, and no %3")
                                    .arg(id, QString::fromLatin1(type->className()), compound.element));
                return false;
            }
        }
        return true;
    }

    bool checkParts(const SheetSelector &selector, const Compound &compound)
    {
        const QMetaObject *type = Toolkit::classNamed(compound.element);
        const QString &part = compound.subControl;
        if (!part.isEmpty() && !Toolkit::subControls().contains(part)) {
            m_findings->add("subcontrol-unknown", selector.begin,
                            QStringLiteral("unknown part \"::%1\"").arg(part)
                                + suggestion(part, Toolkit::subControls()));
            return false;
        }
        if (!part.isEmpty() && type && !Toolkit::hasSubControl(type, part)) {
            m_findings->add("rule-never-matches", selector.begin,
                            QStringLiteral("a %1 has no part \"::%2\"").arg(compound.element, part));
            return false;
        }
        for (QString state : compound.states) {
            const bool isNegated = state.startsWith(QLatin1Char('!'));
            state.remove(QLatin1Char('!'));
            if (!Toolkit::states().contains(state)) {
                const bool isPart = Toolkit::subControls().contains(state);
                m_findings->add("state-unknown", selector.begin,
                                QStringLiteral("unknown state \":%1\"").arg(state)
                                    + (isPart ? QStringLiteral(": a part has two colons, \"::%1\"").arg(state)
                                              : suggestion(state, Toolkit::states())));
                return false;
            }
            if (!isNegated && type && !Toolkit::hasState(type, part, state)) {
                m_findings->add("rule-never-matches", selector.begin,
                                QStringLiteral("a %1 is never \":%2\"").arg(compound.element, state));
                return false;
            }
        }
        const QString contradiction = contradictionIn(compound.states);
        if (!contradiction.isEmpty()) {
            m_findings->add("rule-never-matches", selector.begin,
                            QStringLiteral("nothing is %1 at the same time").arg(contradiction));
            return false;
        }
        return true;
    }

    static QString contradictionIn(const QStringList &states)
    {
        static const QStringList groups[] = {
            {QStringLiteral("enabled"), QStringLiteral("disabled")},
            {QStringLiteral("disabled"), QStringLiteral("hover")},
            {QStringLiteral("checked"), QStringLiteral("unchecked"), QStringLiteral("indeterminate")},
            {QStringLiteral("on"), QStringLiteral("off")},
            {QStringLiteral("open"), QStringLiteral("closed")},
            {QStringLiteral("horizontal"), QStringLiteral("vertical")},
        };
        for (const QString &state : states) {
            if (states.contains(QLatin1Char('!') + state)) {
                return QStringLiteral("\":%1\" and \":!%1\"").arg(state);
            }
        }
        for (const QStringList &group : groups) {
            QStringList held;
            for (const QString &state : group) {
                if (states.contains(state)) {
                    held.append(QStringLiteral("\":%1\"").arg(state));
                }
            }
            if (held.size() > 1) {
                return held.join(QLatin1String(" and "));
            }
        }
        return QString();
    }

    bool checkAttributes(const SheetSelector &selector, const Compound &compound)
    {
        for (const AttributeCondition &attribute : compound.attributes) {
            const QString listed = m_entry ? QString::fromLatin1(m_entry->properties) : QString();
            const QString dynamicName = listed.section(QLatin1String(": "), 0, 0);
            QStringList values;
            if (attribute.name == dynamicName && !dynamicName.isEmpty()) {
                values = listed.section(QLatin1String(": "), 1).split(QLatin1String(", "));
            } else if (!hasProperty(compound, attribute.name, &values)) {
                m_findings->add("property-value", selector.begin,
                                QStringLiteral("no widget of this section has the property \"%1\"%2")
                                    .arg(attribute.name, suggestion(attribute.name, {dynamicName})));
                return false;
            }
            if (!values.isEmpty() && attribute.comparison == QLatin1String("=") && !values.contains(attribute.value)) {
                m_findings->add("property-value", selector.begin,
                                QStringLiteral("\"%1\" is never \"%2\", but %3")
                                    .arg(attribute.name, attribute.value, values.join(QLatin1String(" or "))));
                return false;
            }
        }
        return true;
    }

    // Of a property of the class; what can be told of its values goes to values.
    bool hasProperty(const Compound &compound, const QString &name, QStringList *values) const
    {
        QStringList types = Toolkit::classNamed(compound.element) ? QStringList(compound.element) : m_reached;
        if (types.isEmpty()) {
            return true;
        }
        for (const QString &type : types) {
            const QMetaObject *metaObject = Toolkit::classNamed(type);
            const int index = metaObject ? metaObject->indexOfProperty(name.toLatin1().constData()) : -1;
            if (index >= 0) {
                if (metaObject->property(index).type() == QVariant::Bool) {
                    *values = QStringList {QStringLiteral("true"), QStringLiteral("false")};
                }
                return true;
            }
        }
        // A class that applications derive may have more, and they may give the widget what they like.
        return false;
    }

    const Vela::StyleEntry *const m_entry; // null for a section of the application's own
    SectionFindings *const m_findings;
    QStringList m_reached;
};

} // namespace

void checkSelector(const SheetSelector &selector, const Vela::StyleEntry *entry, SectionFindings *findings)
{
    SelectorCheck(entry, findings).run(selector);
}
