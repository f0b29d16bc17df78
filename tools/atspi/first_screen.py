#!/usr/bin/python3
# The first screen as a screen reader finds it on the accessibility bus:
# every control the person can reach says a name, and ticking "Edit Marlowyn
# Files" through the reader's own action (no click) makes the program enable
# the stand list fields. Exits 1 on the first thing missing.
import sys
import time

import pyatspi

CONTROLS = ("push button", "check box", "radio button", "text", "combo box")


def program():
    for _ in range(60):
        desktop = pyatspi.Registry.getDesktop(0)
        for i in range(desktop.childCount):
            app = desktop.getChildAtIndex(i)
            if app is not None and "corvalin" in (app.name or "").lower():
                return app
        time.sleep(0.5)
    sys.exit("atspi: the program is not on the accessibility bus")


def nodes(node):
    yield node
    for i in range(node.childCount):
        child = node.getChildAtIndex(i)
        if child is not None:
            yield from nodes(child)


def showing(node):
    return node.getState().contains(pyatspi.STATE_SHOWING)


def find(app, role, name):
    for node in nodes(app):
        if node.getRoleName() == role and node.name == name:
            return node
    sys.exit(f"atspi: no {role} '{name}'")


app = program()
controls = [n for n in nodes(app) if n.getRoleName() in CONTROLS and showing(n)]
for node in controls:
    print(f"atspi: {node.getRoleName()}: '{node.name}'")
    if not node.name.strip():
        sys.exit(f"atspi: a {node.getRoleName()} has no name")
if len(controls) < 15:
    sys.exit(f"atspi: only {len(controls)} controls found")

box = find(app, "check box", "Edit Marlowyn Files")
field = find(app, "text", "Stand List File")
if box.getState().contains(pyatspi.STATE_CHECKED) or field.getState().contains(pyatspi.STATE_ENABLED):
    sys.exit("atspi: the stand list box starts ticked")
action = box.queryAction()
names = [action.getName(i) for i in range(action.nActions)]
action.doAction(names.index("Toggle"))
for _ in range(20):
    if field.getState().contains(pyatspi.STATE_ENABLED):
        break
    time.sleep(0.25)
if not box.getState().contains(pyatspi.STATE_CHECKED) or not field.getState().contains(pyatspi.STATE_ENABLED):
    sys.exit("atspi: ticking the box through the reader did not enable the stand list fields")
print(f"atspi: {len(controls)} controls named; the reader's tick enabled the stand list fields")
