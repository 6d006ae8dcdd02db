"""A StatusNotifierWatcher on the test's session bus, standing in for a desktop's tray: it
accepts the host's item and clicks it the way a panel does, by calling Activate(x, y), and reads
and uses the item's menu the way a panel that draws it does (com.canonical.dbusmenu)."""

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


DBUSMENU = 'com.canonical.dbusmenu'


def menu_entry(item):
    """A menu item of a GetLayout answer, (id, properties, children), in short: '---' for a
    separator, ('check', label, state) for a checkmark item, ('disabled', label) for an item that
    cannot be chosen, else its label."""
    _, properties, _ = item
    if properties.get('type') == 'separator':
        return '---'
    label = properties.get('label', '')
    if properties.get('toggle-type') == 'checkmark':
        return ('check', label, properties.get('toggle-state'))
    if not properties.get('enabled', True):
        return ('disabled', label)
    return label


class TrayWatcher:
    def __init__(self, timeout=20.0, address=None):
        """On the test's session bus, or on the bus at `address` (another desktop's)."""
        self.address = address
        self.items = []  # (bus name, time registered)
        self.menu_signals = []  # the names of the signals the item's menu sent
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
        self.menu_subscription = self.bus.signal_subscribe(None, DBUSMENU, None, None, None,
                                                           Gio.DBusSignalFlags.NONE, self._menu_signal)
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

    def _menu_signal(self, connection, sender, path, interface, name, parameters):
        with self.lock:
            self.menu_signals.append(name)
            self.lock.notify_all()

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

    def menu_call(self, method, parameters):
        """Calls the item's menu as a panel drawing it does; the answer, unpacked."""
        item = self.wait_for_item()
        reply = self.bus.call_sync(item, self.item_property('Menu'), DBUSMENU, method, parameters, None,
                                   Gio.DBusCallFlags.NONE, 10000, None)
        return reply.unpack()

    def menu_items(self):
        """The menu's items, top to bottom: (id, properties, children) each."""
        _, (_, _, children) = self.menu_call('GetLayout', GLib.Variant('(iias)', (0, -1, [])))
        return children

    def menu(self):
        """The menu as the panel would draw it, in short (see menu_entry)."""
        return [menu_entry(item) for item in self.menu_items()]

    def choose(self, label):
        """What a panel does when the person chooses the item labelled so."""
        (item_id,) = [item[0] for item in self.menu_items() if item[1].get('label') == label]
        self.menu_call('AboutToShow', GLib.Variant('(i)', (0,)))
        self.menu_call('Event', GLib.Variant('(isvu)', (item_id, 'clicked', GLib.Variant('s', ''), 0)))

    def menu_signal_count(self, name):
        with self.lock:
            return self.menu_signals.count(name)

    def stop(self):
        self.context.invoke_full(GLib.PRIORITY_DEFAULT, self.loop.quit)
        self.thread.join(5)
        # The session's tray goes away, so that a later one can take its place on the same bus.
        self.bus.unregister_object(self.registration)
        self.bus.signal_unsubscribe(self.menu_subscription)
        Gio.bus_unown_name(self.owner)
        if self.address:
            self.bus.close_sync(None)
