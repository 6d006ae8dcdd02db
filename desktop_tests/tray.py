"""A StatusNotifierWatcher on the test's session bus, standing in for a desktop's tray: it
accepts the host's item and clicks it the way a panel does, by calling Activate(x, y)."""

import threading
import time

from gi.repository import Gio, GLib

WATCHER_XML = """
<node>
  <interface name="org.kde.StatusNotifierWatcher">
    <method name="RegisterStatusNotifierItem"><arg name="service" type="s" direction="in"/></method>
    <method name="RegisterStatusNotifierHost"><arg name="service" type="s" direction="in"/></method>
    <property name="RegisteredStatusNotifierItems" type="as" access="read"/>
    <property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
    <property name="ProtocolVersion" type="i" access="read"/>
    <signal name="StatusNotifierItemRegistered"><arg type="s"/></signal>
    <signal name="StatusNotifierItemUnregistered"><arg type="s"/></signal>
    <signal name="StatusNotifierHostRegistered"/>
  </interface>
</node>
"""


class TrayWatcher:
    def __init__(self, timeout=20.0, address=None):
        """On the test's session bus, or on the bus at `address` (another desktop's)."""
        self.address = address
        self.items = []  # (bus name, time registered)
        self.lock = threading.Condition()
        self.ready = threading.Event()
        self.context = GLib.MainContext()
        self.loop = GLib.MainLoop(self.context)
        self.thread = threading.Thread(target=self._serve, daemon=True)
        self.thread.start()
        if not self.ready.wait(timeout):
            raise AssertionError('the test tray did not get its bus name')

    def _serve(self):
        self.context.push_thread_default()
        if self.address:
            flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
            self.bus = Gio.DBusConnection.new_for_address_sync(self.address, flags, None, None)
        else:
            self.bus = Gio.bus_get_sync(Gio.BusType.SESSION, None)
        info = Gio.DBusNodeInfo.new_for_xml(WATCHER_XML).interfaces[0]
        self.registration = self.bus.register_object('/StatusNotifierWatcher', info, self._method, self._property,
                                                     None)
        self.owner = Gio.bus_own_name_on_connection(self.bus, 'org.kde.StatusNotifierWatcher',
                                                    Gio.BusNameOwnerFlags.NONE,
                                                    lambda *_: self.ready.set(), None)
        self.loop.run()

    def _method(self, connection, sender, path, interface, method, parameters, invocation):
        if method == 'RegisterStatusNotifierItem':
            (service,) = parameters.unpack()
            name = sender if service.startswith('/') else service
            with self.lock:
                self.items.append((name, time.monotonic()))
                self.lock.notify_all()
        invocation.return_value(None)

    def _property(self, connection, sender, path, interface, name):
        if name == 'RegisteredStatusNotifierItems':
            return GLib.Variant('as', [item for item, _ in self.items])
        if name == 'IsStatusNotifierHostRegistered':
            return GLib.Variant('b', True)
        return GLib.Variant('i', 0)

    def registered_items(self):
        with self.lock:
            return [item for item, _ in self.items]

    def wait_for_item(self, timeout=20.0):
        with self.lock:
            if not self.lock.wait_for(lambda: self.items, timeout):
                raise AssertionError('the host registered no status item with the tray')
            return self.items[0][0]

    def item_property(self, name):
        item = self.wait_for_item()
        reply = self.bus.call_sync(item, '/StatusNotifierItem', 'org.freedesktop.DBus.Properties', 'Get',
                                   GLib.Variant('(ss)', ('org.kde.StatusNotifierItem', name)), None,
                                   Gio.DBusCallFlags.NONE, 10000, None)
        return reply.unpack()[0]

    def click(self, x, y):
        """What a panel does when the person clicks the item's icon at (x, y)."""
        item = self.wait_for_item()
        self.bus.call_sync(item, '/StatusNotifierItem', 'org.kde.StatusNotifierItem', 'Activate',
                           GLib.Variant('(ii)', (x, y)), None, Gio.DBusCallFlags.NONE, 10000, None)

    def stop(self):
        self.context.invoke_full(GLib.PRIORITY_DEFAULT, self.loop.quit)
        self.thread.join(5)
        # The session's tray goes away, so that a later one can take its place on the same bus.
        self.bus.unregister_object(self.registration)
        Gio.bus_unown_name(self.owner)
        if self.address:
            self.bus.close_sync(None)
