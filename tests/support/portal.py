#!/usr/bin/python3
"""portal.py BEHAVIOUR ...: the screenshot portal of a desktop, which does at each request as it is told, and the last of these at
all that follow. It prints "asked" at every request.

file:///PATH, or any address  has made that picture, or says so
cancelled, refused            answers that nothing came of it
nothing                       answers that all is well, but names no picture
silent                        takes the request and never answers
mute                          does not even take it
dies, dead                    ends when it is asked, or when it has taken the request
"""
import sys

from gi.repository import Gio, GLib

INTERFACE = """<node><interface name="org.freedesktop.portal.Screenshot"><method name="Screenshot">
<arg type="s" direction="in"/><arg type="a{sv}" direction="in"/><arg type="o" direction="out"/></method></interface></node>"""
behaviours = sys.argv[1:]
loop = GLib.MainLoop()


def answer(bus, path, code, results):
    bus.emit_signal(None, path, "org.freedesktop.portal.Request", "Response", GLib.Variant("(ua{sv})", (code, results)))
    bus.flush_sync()


def called(bus, sender, path, interface, method, arguments, invocation):
    print("asked", flush=True)
    behaviour = behaviours.pop(0) if len(behaviours) > 1 else behaviours[0]
    if behaviour == "dies":
        loop.quit()
    if behaviour in ("dies", "mute"):
        return
    options = arguments.unpack()[1]
    handle = f"/org/freedesktop/portal/desktop/request/{sender[1:].replace('.', '_')}/{options['handle_token']}"
    codes = {"cancelled": 1, "refused": 2, "nothing": 0}
    # Before the call has been answered: that may happen as well.
    if behaviour not in (*codes, "silent", "dead"):
        answer(bus, handle, 0, {"uri": GLib.Variant("s", behaviour)})
    invocation.return_value(GLib.Variant("(o)", (handle,)))
    bus.flush_sync()
    if behaviour in codes:
        answer(bus, handle, codes[behaviour], {})
    if behaviour == "dead":
        loop.quit()


def ready(bus, name):
    print("ready", flush=True)


session = Gio.bus_get_sync(Gio.BusType.SESSION)
session.register_object("/org/freedesktop/portal/desktop", Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0], called)
Gio.bus_own_name_on_connection(session, "org.freedesktop.portal.Desktop", Gio.BusNameOwnerFlags.NONE, ready, None)
loop.run()
