#!/usr/bin/python3
"""portal.py ACTION [VALUE]: the screenshot portal of a desktop, which answers as it is told.

picture FILE  hands over the file        uri ADDRESS  hands over whatever that is
answer CODE   refuses or cancels         empty        is done without having a picture
silent        never answers the request  mute         does not even take the request
dies          ends when it is asked      died         ends when it has taken the request
"""
import sys

from gi.repository import Gio, GLib

INTERFACE = """<node><interface name="org.freedesktop.portal.Screenshot"><method name="Screenshot">
<arg type="s" direction="in"/><arg type="a{sv}" direction="in"/><arg type="o" direction="out"/></method></interface></node>"""
action, value = (sys.argv[1:] + [""])[:2]
loop = GLib.MainLoop()


def answer(bus, path, code, results):
    bus.emit_signal(None, path, "org.freedesktop.portal.Request", "Response", GLib.Variant("(ua{sv})", (code, results)))
    bus.flush_sync()


def called(bus, sender, path, interface, method, arguments, invocation):
    if action == "dies":
        loop.quit()
    if action in ("dies", "mute"):
        return
    options = arguments.unpack()[1]
    handle = f"/org/freedesktop/portal/desktop/request/{sender[1:].replace('.', '_')}/{options['handle_token']}"
    results = {"picture": {"uri": GLib.Variant("s", "file://" + value)}, "uri": {"uri": GLib.Variant("s", value)}}.get(action, {})
    # Before the call has been answered: that may happen as well.
    if action in ("picture", "uri", "answer", "empty"):
        answer(bus, handle, int(value) if action == "answer" else 0, results)
    invocation.return_value(GLib.Variant("(o)", (handle,)))
    bus.flush_sync()
    if action == "died":
        loop.quit()


def ready(bus, name):
    print("ready", flush=True)


session = Gio.bus_get_sync(Gio.BusType.SESSION)
session.register_object("/org/freedesktop/portal/desktop", Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0], called)
Gio.bus_own_name_on_connection(session, "org.freedesktop.portal.Desktop", Gio.BusNameOwnerFlags.NONE, ready, None)
loop.run()
