# SPDX-License-Identifier: GPL-3.0-or-later
"""A screen reader's view of the running program: walks its tree, works its controls and listens to its events.

Started by screenreader.sh on a bus and a screen of its own. Ends with exit code 1 and the list of broken promises.
"""

import subprocess
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

PATIENCE = 10  # seconds, for what takes a few milliseconds when all is well
MODAL_PATIENCE = 700  # milliseconds: an action that opens a modal window answers only when that is closed

# What every screen reader must find in the main window: name, role.
MAIN_WINDOW = [
    ("Menüleiste", "menu bar"),
    ("Datei", "menu item"),
    ("Korrekturfaktoren", "menu item"),
    ("Datenliste", "table"),
    ("Zeitachse", "scroll bar"),
    ("Kanal", "list"),
    ("Datenliste", "radio button"),
    ("Liniendiagramm", "radio button"),
    ("von: Datum", "spin button"),
    ("von: Uhrzeit", "spin button"),
    ("bis: Datum", "spin button"),
    ("bis: Uhrzeit", "spin button"),
    ("Beginn einen Tag früher", "push button"),
    ("Beginn einen Tag später", "push button"),
    ("Ende einen Tag früher", "push button"),
    ("Ende einen Tag später", "push button"),
    ("Zeitraum zurück", "push button"),
    ("Zeitraum vor", "push button"),
    ("Skalierung automatisch", "radio button"),
    ("Skalierung manuell", "radio button"),
    ("Minimum", "text"),
    ("Maximum", "text"),
    ("Grenzwerte anzeigen", "check box"),
    ("Grenzwert 1", "text"),
    ("Grenzwert 2", "text"),
    ("Mittelwert anzeigen", "check box"),
    ("Zoom kleiner", "push button"),
    ("Zoom größer", "push button"),
    ("Zoom-Schieber", "slider"),
    ("Status", "frame"),
    ("Datum", "panel"),
    ("Scrollen", "panel"),
    ("Mittelwerte-Intervall", "panel"),
    ("Skalierung", "panel"),
    ("Hilfslinien", "panel"),
    ("Zoom", "panel"),
]
TOOLKITS = "Drucker einrichten"  # the toolkit's own window
UNKNOWN_ROLES = {"invalid", "unknown", "extended"}

context = GLib.MainContext.default()
events = []
failures = []


def check(is_right, text):
    if not is_right:
        failures.append(text)
        print("FAIL:", text)


def hear(event, *_):
    try:
        events.append((event.type, role_of(event.source), event.source.get_name(), event.any_data, event.detail1))
    except GLib.Error:
        pass  # its source is gone already


def pump(seconds):
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        while context.iteration(False):
            pass
        time.sleep(0.01)


def wait_for(what, condition):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        try:
            found = condition()
            if found:
                return found
        except GLib.Error:
            pass  # the tree has changed while it was read
        pump(0.05)
    check(False, "waited in vain: " + what)
    return None


def role_of(node):
    """As the older interfaces and toolkits name it: newer ones call a push button just a button, a frame a panel."""
    name = node.get_role_name()
    if name == "panel" and node.get_name() == "Status":
        return "frame"
    return {"button": "push button"}.get(name, name)


def below(node):
    for index in range(node.get_child_count()):
        child = node.get_child_at_index(index)
        if child is not None:
            yield child
            yield from below(child)


def find(name, role, root=None):
    for node in below(root or program):
        if role_of(node) == role and (name is None or node.get_name() == name):
            return node
    return None


def states(node):
    found = node.get_state_set()
    return {state.value_nick for state in found.get_states()}


def act(node, wanted):
    for index in range(node.get_n_actions()):
        if Atspi.Action.get_action_name(node, index) == wanted:
            return Atspi.Action.do_action(node, index)
    check(False, f"{node.get_name()} has no action {wanted}")
    return False


def heard(kind, role):
    return [event for event in events if event[0].startswith(kind) and event[1] == role]


def is_control(node):
    """What a user works or reads; not what only holds or divides others, nor what is not there for the eye either."""
    role = role_of(node)
    if role in ("separator", "filler", "split pane", "layered pane"):
        return False
    if role == "panel" and not node.get_name():
        return "focusable" in states(node)
    if role == "list" and role_of(node.get_parent()) == "combo box":
        return False  # belongs to the choice, which has a name
    if role == "frame" and node.get_child_count() == 0:
        return False  # a line
    if role in ("label", "table row header"):
        return "showing" in states(node)
    return True


def walk(root, title, is_ours=True):
    """Every control has a role, a state, and a name if the window is not the toolkit's. Returns how many there are."""
    count = 0
    for node in below(root):
        role = role_of(node)
        parent = node.get_parent()
        where = f"{title[:20]}: {role} '{node.get_name()}' in {role_of(parent)} '{parent.get_name()}'"
        if role == "unknown" and role_of(parent) == "split pane":
            continue  # the handle, for which the bus has no role
        check(role not in UNKNOWN_ROLES, where + " has no role")
        if not is_control(node):
            continue
        count += 1
        labels = [r for r in node.get_relation_set() if r.get_relation_type().value_nick == "labelled-by"]
        check(not is_ours or node.get_name() or (role == "combo box" and labels), where + " has no name")
        check(states(node), where + " has no state")
        if states(node) & {"focusable", "editable"} and "sensitive" in states(node):
            check("enabled" in states(node), where + " is not enabled")
    return count


def description():
    return diagram().get_description()


def diagram():
    return find(None, "chart")


def work_the_controls():
    print("Controls ...")
    for name, role in MAIN_WINDOW:
        check(find(name, role) is not None, f"no {role} '{name}'")
    check(diagram() is not None, "no chart")
    combos = [node for node in below(program) if role_of(node) == "combo box"]
    check(len(combos) == 2, f"{len(combos)} choices, not 2")

    channels = find("Kanal", "list")
    for name in ("Windgeschwindigkeit", "Staub PM10", "Windgeschwindigkeit"):
        item = find(name, "list item", channels)
        act(item, "Toggle")
        wait_for(f"the view of {name}", lambda wanted=name: f"- {wanted} [" in diagram().get_name())
        marked = [node.get_name() for node in below(channels) if "selected" in states(node)]
        check(marked == [name], f"selected channels: {marked}")

    act(find("Mittelwert anzeigen", "check box"), "Toggle")
    wait_for("the check mark", lambda: "checked" in states(find("Mittelwert anzeigen", "check box")))
    check("sensitive" not in states(find("Grenzwert 1", "text")), "a limit that is not shown can be typed")
    act(find("Grenzwerte anzeigen", "check box"), "Toggle")
    wait_for("the boxes of the limits", lambda: "sensitive" in states(find("Grenzwert 1", "text")))
    act(find("Skalierung automatisch", "radio button"), "Toggle")
    wait_for("the automatic scale", lambda: "checked" in states(find("Skalierung automatisch", "radio button")))
    check("checked" not in states(find("Skalierung manuell", "radio button")), "two scales are chosen")
    act(find("Skalierung manuell", "radio button"), "Toggle")
    Atspi.EditableText.set_text_contents(find("Maximum", "text"), "20")
    check(Atspi.Text.get_text(find("Maximum", "text"), 0, -1) == "20", "the maximum is not taken")

    picker = find("von: Datum", "spin button")
    today = Atspi.Text.get_text(picker, 0, -1)
    tomorrow = Atspi.Text.get_text(find("bis: Datum", "spin button"), 0, -1)
    check(f"Von {today} 00:00 bis {tomorrow} 00:00" in description(), "the range is not in: " + description())
    act(find("Beginn einen Tag früher", "push button"), "Press")
    wait_for("the earlier range", lambda: f"Von {today} " not in description())
    events.clear()
    Atspi.EditableText.set_text_contents(picker, today)
    wait_for("the range as typed", lambda: f"Von {today} 00:00" in description())
    wait_for("the new description as an event", lambda: heard("object:property-change:accessible-description", "chart"))

    for combo, item, wanted in (("1 Minute", "1 Stunde", "1 Stunde Mittelwert"), ("Tage", "Monate", None)):
        act(find(item, "list item", find(combo, "combo box")), "Toggle")
        wait_for(f"the choice {item}", lambda name=item: find(name, "combo box"))
        if wanted:
            wait_for(wanted, lambda text=wanted: text in description())
    act(find("Datenliste", "radio button"), "Toggle")
    wait_for("the list", lambda: "showing" in states(find("Datenliste", "table")))
    act(find("Liniendiagramm", "radio button"), "Toggle")
    wait_for("the diagram", lambda: "showing" in states(diagram()))


def key(*names):
    subprocess.run(["xdotool", "key", *names], check=True)


def active_window(title):
    found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", title], capture_output=True, text=True)
    for window in found.stdout.split():
        subprocess.run(["xdotool", "windowfocus", "--sync", window], check=False)
        return True
    return False


def hear_the_readouts():
    """The arrow keys move the mark in the diagram; each reading is a change of the diagram's value."""
    print("Readouts ...")
    wait_for("the window", lambda: active_window("^Kelvrum - Station"))
    act(diagram(), "SetFocus")
    wait_for("the focus on the diagram", lambda: "focused" in states(diagram()))
    key("Home")
    pump(0.5)
    values = []
    for _ in range(5):
        events.clear()
        key("Right")
        wait_for("a readout", lambda: heard("object:property-change:accessible-value", "chart"))
        values.append(Atspi.Value.get_current_value(diagram()))
    check(len(set(values)) > 1, f"the readouts say the same: {values}")
    print("  values heard:", " ".join(f"{value:.3g}" for value in values))


def dialog_of(title):
    for index in range(program.get_child_count()):
        child = program.get_child_at_index(index)
        if child is not None and child.get_name() == title and "showing" in states(child):
            return child
    return None


def open_dialog(entry, title):
    Atspi.set_timeout(MODAL_PATIENCE, 0)
    try:
        act(find(entry, "menu item"), "Press")
    except GLib.Error:
        pass  # the answer comes when the window is closed
    Atspi.set_timeout(PATIENCE * 1000, 0)
    return wait_for("the window " + title, lambda: dialog_of(title))


def close(title, button):
    """With its button, through the bus; the keyboard's escape where it has none."""
    window = dialog_of(title)
    pushed = find(button, "push button", window) if button else None
    if pushed is not None:
        act(pushed, "Press")
    else:
        active_window(title)
        key("Escape")
    wait_for("the end of " + title, lambda: dialog_of(title) is None)
    pump(0.3)


def visit_the_dialogs():
    print("Dialogs ...")
    rows = [
        ("Projektauswahl", "Projektauswahl", None),
        ("Sammeldruck", "Sammeldruck", "Abbrechen"),
        ("Drucker einrichten", "Drucker einrichten", None),
        ("Wind", "Korrekturfaktor Wind", "Abbrechen"),
        ("Staub", "Korrekturfaktor Staub", "Abbrechen"),
    ]
    for entry, title, button in rows:
        window = open_dialog(entry, title)
        if window is not None:
            print(f"  {title}: {walk(window, title, title != TOOLKITS)} controls, role {role_of(window)}")
            close(title, button)
    active_window("^Kelvrum - Station")
    key("F6")
    window = wait_for("the evaluation", lambda: next((w for w in below(program) if role_of(w) == "dialog"), None))
    if window is not None:
        title = window.get_name()
        wait_for("the figures", lambda: "sensitive" in states(find("Drucken", "push button", window)))
        print(f"  {title}: {walk(window, title)} controls, role {role_of(window)}")
        close(title, "Schließen")


def find_program():
    desktop = Atspi.get_desktop(0)
    for index in range(desktop.get_child_count()):
        one = desktop.get_child_at_index(index)
        if one is not None and one.get_name() == "kelvrum" and one.get_child_count() > 0:
            return one
    return None


Atspi.init()
program = wait_for("the program", find_program)
if program is None:
    sys.exit(1)
Atspi.Accessible.set_cache_mask(program, Atspi.Cache.NONE)  # see what is there, not what was
listener = Atspi.EventListener.new(hear)
for kind in (
    "object:property-change:accessible-name",
    "object:property-change:accessible-description",
    "object:property-change:accessible-value",
):
    listener.register(kind)
wait_for("the first view", lambda: "Diagramm:" in diagram().get_name())
print("Main window:", walk(program, "main window"), "controls")
work_the_controls()
hear_the_readouts()
visit_the_dialogs()
sys.exit(1 if failures else 0)
