#!/usr/bin/python3
"""What a screen reader is told of Vellumora, in lines of JSON: "tree" prints all that shows, once; "listen" prints what
happens, for as long as it runs; "press NAME" presses what has that name."""
import json
import sys

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402


def keys_of(node):
    actions = node.get_action_iface()
    bindings = (Atspi.Action.get_key_binding(actions, i) for i in range(Atspi.Action.get_n_actions(actions))) if actions else ()
    return [binding for binding in bindings if binding][:1]


def described(node):
    place = node.get_extents(Atspi.CoordType.SCREEN)
    return {"role": node.get_role_name(), "name": node.get_name(), "description": node.get_description(), "keys": keys_of(node),
            "states": [state.value_nick for state in node.get_state_set().get_states()],
            "place": [place.x, place.y, place.width, place.height]}


def showing(node):
    """The node and what shows below it, from the first to the last."""
    if not node.get_state_set().contains(Atspi.StateType.SHOWING):
        return
    yield node
    for index in range(node.get_child_count()):
        if child := node.get_child_at_index(index):
            yield from showing(child)


def vellumora():
    desktop = Atspi.get_desktop(0)
    for index in range(desktop.get_child_count()):
        if (program := desktop.get_child_at_index(index)) and program.get_name() == "Vellumora":
            return program
    sys.exit("no Vellumora")


def tell(event):
    try:
        words = [event.source.get_role_name(), event.source.get_name()]
    except GLib.Error:
        return  # gone already
    if event.detail1 and event.type.startswith(("object:state-changed:showing", "object:state-changed:focused")):
        print(json.dumps([event.type.rsplit(":", 1)[1], *words]), flush=True)


if sys.argv[1] == "tree":
    for found in showing(vellumora()):
        print(json.dumps(described(found)))
elif sys.argv[1] == "press":
    wanted = next(node for node in showing(vellumora()) if node.get_name() == sys.argv[2])
    print(Atspi.Action.do_action(wanted.get_action_iface(), 0))
else:
    listener = Atspi.EventListener.new(tell)
    # Names are remembered until a change of them is heard.
    heard = all([listener.register(kind) for kind in ("object:property-change", "object:state-changed")])
    print("listening" if heard else "refused", flush=True)
    Atspi.event_main()
