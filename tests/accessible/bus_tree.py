# SPDX-FileCopyrightText: 2026 The Vela Components authors
# SPDX-License-Identifier: MIT

"""What an application tells of its windows on the bus of screen readers."""

import pyatspi


def states_of(accessible):
    return {pyatspi.stateToString(state) for state in accessible.getState().getStates()}


def problems_of(accessible, path="", nameless=()):
    """What is wrong with that and all that is shown below it, and how many things that are. Things of the nameless roles
    may take the focus without a name."""
    here = path + " > " + accessible.getRoleName() + " " + repr(accessible.name)
    states = states_of(accessible)
    problems = []
    if "focusable" in states and not accessible.name.strip() and accessible.getRoleName() not in nameless:
        problems.append(here + ": takes the focus and has no name")
    if "focusable" in states and accessible.getRoleName() in ("unknown", "invalid", ""):
        problems.append(here + ": takes the focus and has no role")
    count = 1
    for index in range(accessible.childCount):
        child = accessible.getChildAtIndex(index)
        if child is None:
            problems.append(here + ": has nothing as child {}".format(index))
        elif "showing" in states_of(child):
            if child.getIndexInParent() != index:
                problems.append(here + ": its child {} is elsewhere".format(index))
            found, more = problems_of(child, here, nameless)
            problems += found
            count += more
    return problems, count
