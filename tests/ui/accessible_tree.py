"""Reads an application over the accessibility bus, as a screen reader does. Run in the environment of the desktop that
the application is on: it prints one JSON object a line for each command line `walk`, `press NAME`,
`focus NAME`, `quit`."""

import json
import sys
import time
import warnings

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

warnings.simplefilter("ignore", DeprecationWarning)

LARGEST_TREE = 4000


def application():
    for attempt in range(600):
        desktop = Atspi.get_desktop(0)
        for index in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(index)
            if child is not None and child.get_name().lower() == "quillmeter":
                return child
        time.sleep(0.1)
    raise SystemExit("the application is not on the bus")


def describe(node):
    states = node.get_state_set()
    actions = node.get_n_actions()
    return {"role": node.get_role_name(), "name": node.get_name() or "", "description": node.get_description() or "",
            "actions": [node.get_action_name(index) for index in range(actions)],
            "states": sorted(state.value_nick for state in states.get_states())}


def walk(node, depth=0, nodes=None):
    nodes = [] if nodes is None else nodes
    if len(nodes) > LARGEST_TREE:
        return nodes
    nodes.append({**describe(node), "depth": depth})
    for index in range(node.get_child_count()):
        child = node.get_child_at_index(index)
        if child is not None:
            walk(child, depth + 1, nodes)
    return nodes


def find(node, name):
    """The first control of that name that is on the screen."""
    shown = node.get_state_set().contains(Atspi.StateType.SHOWING)
    if shown and node.get_name() == name and node.get_n_actions() > 0:
        return node
    for index in range(node.get_child_count()):
        child = node.get_child_at_index(index)
        found = find(child, name) if child is not None else None
        if found is not None:
            return found
    return None


def press(root, name):
    node = find(root, name)
    if node is None:
        return False
    names = [node.get_action_name(index) for index in range(node.get_n_actions())]
    wanted = next((index for index, action in enumerate(names) if action.lower() in ("press", "toggle")), None)
    return wanted is not None and bool(node.do_action(wanted))


def answer(root, command, argument):
    root.clear_cache()
    if command == "walk":
        return walk(root)
    if command == "press":
        return press(root, argument)
    node = find(root, argument)
    return node is not None and bool(node.grab_focus())


def answered(root, command, argument):
    """What was being read may go away meanwhile, as a page does that is left: then it is read anew."""
    for attempt in range(20):
        try:
            return answer(root, command, argument)
        except GLib.Error as error:
            last = error
            time.sleep(0.2)
    raise last


def main():
    root = application()
    for line in sys.stdin:
        command, _, argument = line.rstrip("\n").partition(" ")
        if command == "quit":
            break
        print(json.dumps(answered(root, command, argument)), flush=True)


if __name__ == "__main__":
    main()
