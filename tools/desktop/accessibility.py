"""Programs as assistive technology sees them (AT-SPI).

Import this after the environment points at the desktop to look at: the connection is made once for
the process.
"""

import contextlib

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402


def application(process):
    """The accessible application of a process id, None while there is none."""
    desktop = Atspi.get_desktop(0)
    desktop.clear_cache()
    for found in _children(desktop):
        try:
            if found.get_process_id() == process:
                return found
        except GLib.Error:
            continue
    return None


def everything(process):
    """All accessible objects of a process, parents first."""
    root = application(process)
    if root is None:
        return
    open_ends = [root]
    while open_ends:
        node = open_ends.pop(0)
        node.clear_cache()
        yield node
        open_ends += _children(node)


def find(process, name, role=None, showing=True):
    """The first object on screen that is called `name`, or `name` and its value as in "Free: 2 GB";
    None when there is none."""
    for node in everything(process):
        try:
            called = node.get_name()
            if called != name and not called.startswith(f"{name}: "):
                continue
            if role and _role(node) != role:
                continue
            if not showing or node.get_state_set().contains(Atspi.StateType.SHOWING):
                return node
        except GLib.Error:
            continue
    return None


def of_role(process, role):
    """(object, name) of all objects of a role; what goes away meanwhile is left out."""
    found = []
    for node in everything(process):
        try:
            if _role(node) == role:
                found.append((node, node.get_name()))
        except GLib.Error:
            continue
    return found


def names(process):
    """What is on screen, as (role, name) pairs; for messages."""
    return [(node.get_role_name(), node.get_name()) for node in everything(process)]


def press(node):
    """Does the object's press, toggle or click action; False when it has none."""
    for index in range(node.get_n_actions()):
        if node.get_action_name(index).lower() in ("press", "toggle", "click"):
            return node.do_action(index)
    return False


@contextlib.contextmanager
def shows_of(role):
    """Gives a function: the names of the objects of a role that were announced as shown so far."""
    names_ = []

    def note(event):
        if event.detail1 and event.source.get_role_name() == role:
            names_.append(event.source.get_name())

    def pump():
        while GLib.MainContext.default().iteration(False):
            pass
        return names_

    listener = Atspi.EventListener.new(note)
    listener.register("object:state-changed:showing")
    yield pump
    listener.deregister("object:state-changed:showing")


def has_state(node, state):
    return node.get_state_set().contains(getattr(Atspi.StateType, state.upper()))


def rectangle(node):
    """(x, y, width, height) on the screen."""
    extents = node.get_extents(Atspi.CoordType.SCREEN)
    return extents.x, extents.y, extents.width, extents.height


def _role(node):
    # Newer releases call some push buttons otherwise.
    name = node.get_role_name()
    return "push button" if name in ("button", "push button menu") else name


def _children(node):
    try:
        return [child for child in (node.get_child_at_index(index)
                                    for index in range(node.get_child_count())) if child]
    except GLib.Error:
        return []
