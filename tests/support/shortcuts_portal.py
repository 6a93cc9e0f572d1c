#!/usr/bin/python3
"""The portal for shortcuts of a desktop whose user gives every shortcut the keys that were proposed, or none when run as
"shortcuts_portal.py refuses". It prints what it is asked; a line of input is a press of the keys, "keys TEXT" other keys."""
import sys

from gi.repository import Gio, GLib

INTERFACE = """<node><interface name="org.freedesktop.portal.GlobalShortcuts"><property name="version" type="u" access="read"/>
<method name="CreateSession"><arg type="a{sv}" direction="in"/><arg type="o" direction="out"/></method>
<method name="BindShortcuts"><arg type="o" direction="in"/><arg type="a(sa{sv})" direction="in"/><arg type="s" direction="in"/>
<arg type="a{sv}" direction="in"/><arg type="o" direction="out"/></method></interface></node>"""
SESSION = """<node><interface name="org.freedesktop.portal.Session"><method name="Close"/></interface></node>"""
PORTAL = "/org/freedesktop/portal/desktop"
refuses = sys.argv[1:] == ["refuses"]
live = []


def say(*words):
    print(*words, flush=True)


def respond(bus, sender, options, code, results):
    path = f"{PORTAL}/request/{sender[1:].replace('.', '_')}/{options['handle_token']}"
    bus.emit_signal(None, path, "org.freedesktop.portal.Request", "Response", GLib.Variant("(ua{sv})", (code, results)))
    return path


def closed(bus, sender, path, interface, method, arguments, invocation):
    live.remove(path)
    say("closed")
    invocation.return_value(None)


def create(bus, sender, options):
    path = f"{PORTAL}/session/{sender[1:].replace('.', '_')}/{options['session_handle_token']}"
    bus.register_object(path, Gio.DBusNodeInfo.new_for_xml(SESSION).interfaces[0], closed)
    live.append(path)
    return respond(bus, sender, options, 0, {"session_handle": GLib.Variant("s", path)})


def described(shortcuts):
    return GLib.Variant("a(sa{sv})", [(name, {"trigger_description": GLib.Variant("s", keys)}) for name, keys in shortcuts])


def bind(bus, sender, session, shortcuts, parent, options):
    proposed = [(name, about.get("preferred_trigger", "")) for name, about in shortcuts]
    say("bind", *(f"{name}={keys}" for name, keys in proposed))
    if refuses:
        return respond(bus, sender, options, 1, {})
    return respond(bus, sender, options, 0, {"shortcuts": described([(name, "keys " + keys) for name, keys in proposed])})


def called(bus, sender, path, interface, method, arguments, invocation):
    act = {"CreateSession": create, "BindShortcuts": bind}[method]
    invocation.return_value(GLib.Variant("(o)", (act(bus, sender, *arguments.unpack()),)))


def heard(channel, condition):
    line = sys.stdin.readline().strip()
    if line.startswith("keys "):
        session.emit_signal(None, PORTAL, "org.freedesktop.portal.GlobalShortcuts", "ShortcutsChanged",
                            GLib.Variant.new_tuple(GLib.Variant("o", live[-1]), described([("capturar", line[5:])])))
    elif line:
        session.emit_signal(None, PORTAL, "org.freedesktop.portal.GlobalShortcuts", "Activated",
                            GLib.Variant("(osta{sv})", (live[-1], "capturar", 1, {})))
    return bool(line)


session = Gio.bus_get_sync(Gio.BusType.SESSION)
session.register_object(PORTAL, Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0], called, lambda *_: GLib.Variant("u", 1))
Gio.bus_own_name_on_connection(session, "org.freedesktop.portal.Desktop", Gio.BusNameOwnerFlags.NONE, lambda *_: say("ready"), None)
GLib.io_add_watch(0, GLib.IO_IN, heard)
GLib.MainLoop().run()
