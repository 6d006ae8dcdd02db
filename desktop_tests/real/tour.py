"""The same visit on every desktop, as a person makes it: start the host, find its icon on the
panel, click it, see where the popover (or, where the panel draws the item's menu on a left click,
that menu) opens, click elsewhere, open it again and press Escape, right-click for the menu,
middle-click, and last choose Quit, which ends a host that runs without an engine. Each step is
measured from screenshots (and from the compositor's own list of windows where it keeps one); the
bus's record says when the panel called the host."""

import os
import time

from gi.repository import GLib

import screen
from session import SetupError, wait_until

WATCHER = ('org.kde.StatusNotifierWatcher', '/StatusNotifierWatcher', 'org.kde.StatusNotifierWatcher')
MAX_GAP = 48        # the popover's nearest edge, at most this far from the icon's
MIN_CONTRAST = 0.25  # the icon's distinct pixels against the panel, in luma
POPOVER_AT_LEAST = (120, 120)


class Tour:
    def __init__(self, desktop, host):
        self.desktop = desktop
        self.session = desktop.session
        self.host = host
        self.failures = []
        self.facts = []
        self.latencies = []
        self.slowest_grab = 0.0
        self.popover_region = None
        self.popover_image = None
        self.menu_instead = False
        self.left_open = False
        self.before_popover = None
        self.host_started = None
        self.quit_chosen = False
        # What a left click shows on this desktop, in the verdict's words.
        self.shows = desktop.left_click_opens

    # -- the bus ----------------------------------------------------------------------------------

    def gdbus(self, destination, path, method, *arguments):
        out = self.session.run(['gdbus', 'call', '--session', '--dest', destination, '--object-path', path,
                                '--method', method] + list(arguments))
        return GLib.Variant.parse(None, out.decode().strip(), None, None).unpack()

    def host_items(self):
        """The status items the panel's watcher lists that belong to the host's process."""
        try:
            (items,) = self.gdbus(WATCHER[0], WATCHER[1], 'org.freedesktop.DBus.Properties.Get', WATCHER[2],
                                  'RegisteredStatusNotifierItems')
        except SetupError:
            return []
        mine = []
        for item in items:
            name, _, path = item.partition('/')
            path = '/' + path if path else '/StatusNotifierItem'
            try:
                (pid,) = self.gdbus('org.freedesktop.DBus', '/org/freedesktop/DBus',
                                    'org.freedesktop.DBus.GetConnectionUnixProcessID', name)
            except SetupError:
                continue
            if pid == self.session.host.pid:
                mine.append((name, path))
        return mine

    def item_properties(self, name, path):
        (properties,) = self.gdbus(name, path, 'org.freedesktop.DBus.Properties.GetAll', 'org.kde.StatusNotifierItem')
        return properties

    # -- the screen -------------------------------------------------------------------------------

    def keep(self, image, label):
        return screen.write_png(image, os.path.join(self.session.artifacts, f'{self.desktop.name}-{label}.png'))

    def wait_for_change(self, before, smallest, timeout, exclude=()):
        """Grabs the screen until a changed region at least `smallest` (width, height) appears;
        returns (region, image, when the grab that showed it ended, the longest time a grab took)."""
        deadline = time.monotonic() + timeout
        slowest = 0.0
        while time.monotonic() < deadline:
            started = time.time()
            image = self.desktop.grab()
            done = time.time()
            slowest = max(slowest, done - started)
            mask = screen.changed_mask(before, image)
            for area in exclude:
                mask[max(area.y, 0):area.y + area.height, max(area.x, 0):area.x + area.width] = False
            for region in screen.regions(mask):
                if region.width >= smallest[0] and region.height >= smallest[1]:
                    return region, image, done, slowest
        return None, None, None, slowest

    def shown_again(self, before, area, timeout):
        """Whether `area` returns to what `before` showed there (the popover closed) in `timeout`."""
        deadline = time.monotonic() + timeout
        while time.monotonic() < deadline:
            image = self.desktop.grab()
            mask = screen.changed_mask(before, image)[area.y:area.y + area.height, area.x:area.x + area.width]
            if mask.mean() < 0.02:
                return image
            time.sleep(0.1)
        return None

    def fail(self, what):
        if what not in self.failures:
            self.failures.append(what)

    # -- the visit --------------------------------------------------------------------------------

    def run(self):
        desktop = self.desktop
        empty_panel = desktop.grab()
        self.keep(empty_panel, '0-without-host')
        started = self.host_started = time.time()
        self.session.start_host(self.host, desktop.host_env())
        items = wait_until(self.host_items, 30, "the host's status item on the panel's watcher")
        self.facts.append(f'registered {time.time() - started:.1f} s after start')
        properties = self.item_properties(*items[0])
        menu_path = properties.get('Menu')
        self.item_name, self.menu_path = items[0][0], menu_path
        if not properties.get('Id') or not menu_path:
            self.fail(f"the item lacks Id or Menu (Id {properties.get('Id')!r}, Menu {menu_path!r})")

        icon = self.find_icon(empty_panel)
        if icon is None:
            return self.finish()
        self.open_and_measure(icon)
        self.close_by_click_elsewhere(icon)
        self.close_by_escape(icon)
        self.right_click(icon)
        self.middle_click(icon)
        self.quit(icon)
        return self.finish()

    def find_icon(self, empty_panel):
        """The icon is what the host's arrival changed on the panel: the changed region of an
        icon's size, once the panel stops changing."""
        panel = self.desktop.panel_area()
        found = None

        def settled():
            nonlocal found
            image = self.desktop.grab()
            mask = screen.changed_mask(empty_panel, image)
            mask[:panel.y, :] = False
            mask[panel.y + panel.height:, :] = False
            candidates = [region for region in screen.regions(mask)
                          if 8 <= region.width <= 64 and 8 <= region.height <= 64
                          and region.gap_to(self.desktop.tray_area()) == 0
                          and not screen.moved_from_beside(empty_panel, image, region)]
            same = found is not None and candidates and repr(candidates[0]) == repr(found[0])
            found = (candidates[0], image) if len(candidates) == 1 else None
            return same
        # A bound, not a pause: a panel drawing its tray for the first time on a machine whose
        # desktop has just been installed (as in CI) takes far longer than one run again.
        try:
            wait_until(settled, 60, 'the icon to show', interval=0.5)
        except SetupError:
            self.keep(self.desktop.grab(), '1-icon-not-found')
            self.fail('no icon appeared on the panel')
            return None
        icon, image = found
        self.keep(image, '1-icon')
        contrast = screen.icon_contrast(image, icon)
        self.facts.append(f'icon {icon} contrast {contrast:.2f}')
        if contrast < MIN_CONTRAST:
            self.fail(f'the icon is barely visible (contrast {contrast:.2f} < {MIN_CONTRAST})')
        return icon

    def open_popover(self, icon, label):
        before = self.desktop.grab()
        clicked = time.time()
        self.desktop.click(*icon.centre, 'left')
        # The icon's own feedback (a pressed look) and the pointer drawn over it are not the popover.
        x, y = icon.centre
        region, image, seen, slowest = self.wait_for_change(
            before, POPOVER_AT_LEAST, 5, (screen.Rect(icon.x - 4, icon.y - 4, icon.width + 8, icon.height + 8),
                                          screen.Rect(x - 4, y - 4, 32, 40)))
        if region is None:
            self.keep(self.desktop.grab(), f'{label}-no-popover')
            return None, before, None
        self.keep(image, label)
        if self.shows == 'menu':
            return self.menu_opened(region, before, clicked, seen, slowest)
        activated = self.session.calls_since(clicked, {'Activate'})
        timing = (clicked, seen, slowest, ('Activate', activated[0][0]) if activated else None)
        time.sleep(0.3)
        if not self.session.calls_since(clicked, {'Activate'}) and self.menu_read_since(clicked):
            self.fail(f'a left click showed the panel\'s menu of the item ({region}), never calling Activate')
            self.menu_instead = True
            self.desktop.key('Escape')
            return None, before, None
        return region, before, timing

    def menu_opened(self, region, before, clicked, seen, slowest):
        """A left click where the panel answers with the item's menu: the change is that menu when
        the panel has read the host's menu (its layout) and never called Activate."""
        time.sleep(0.3)
        if self.session.calls_since(clicked, {'Activate'}):
            self.fail('a left click called Activate, where this panel was expected to draw the item\'s menu')
        if not self.menu_read_since(self.host_started, {'GetLayout'}):
            self.fail(f'a left click showed {region}, but the panel never read the host\'s menu (no GetLayout)')
            self.desktop.key('Escape')
            return None, before, None
        asked = self.menu_read_since(clicked)
        return region, before, (clicked, seen, slowest, (asked[0][1], asked[0][0]) if asked else None)

    def open_and_measure(self, icon):
        region, before, timing = self.open_popover(icon, '2-popover')
        if region is None:
            if not self.menu_instead:
                self.fail(f'a left click on the icon showed no {self.shows}')
            return
        self.popover_region, self.before_popover = region, before
        self.popover_image = self.desktop.grab()
        self.note_latency('first', timing)
        gap = region.gap_to(icon)
        self.facts.append(f'left click: {self.shows} {region}, {gap} px from the icon')
        if region.overlaps(icon):
            self.fail(f'the {self.shows} {region} covers the icon {icon}')
        elif gap > MAX_GAP:
            self.fail(f'the {self.shows} {region} is {gap} px from the icon {icon}')
        if self.shows == 'menu':
            return
        window = self.desktop.popover_window()
        if window is None:
            self.facts.append('not in the compositor\'s window list' if self.desktop.lists_windows
                              else 'the compositor lists no windows here: the look is the screenshot\'s')
        else:
            rect, flaws = window
            self.facts.append(f'window {rect}, {", ".join(flaws) or "undecorated"}')
            if flaws:
                self.fail('the popover is a window that is ' + ' and '.join(flaws))

    def note_latency(self, which, timing):
        """From the injected click to the end of the first screenshot that shows the popover: its
        first frame is on screen by then, and at most a grab's time earlier. And when the panel
        called the host."""
        clicked, seen, slowest, called = timing
        text = f'{which} <= {(seen - clicked) * 1000:.0f} ms'
        if called:
            member, moment = called
            text += f' ({member} at {(moment - clicked) * 1000:.0f} ms, then {(seen - moment) * 1000:.0f} ms)'
        self.latencies.append(text)
        self.slowest_grab = max(self.slowest_grab, slowest)

    def close_by_click_elsewhere(self, icon):
        popover = self.popover_region
        if popover is None:
            return
        elsewhere = self.elsewhere(popover, icon)
        self.desktop.click(*elsewhere, 'left')
        if self.shown_again(self.before_popover, popover, 3) is None:
            self.keep(self.desktop.grab(), '3-after-click-elsewhere')
            self.fail(f'a click elsewhere at {elsewhere} left the {self.shows} open')
            self.desktop.key('Escape')
            self.left_open = self.shown_again(self.before_popover, popover, 3) is None

    def elsewhere(self, popover, icon):
        """A point a person would click to be done with the popover: on the desktop, away from the
        popover and the icon; on the panel when the popover leaves no desktop free."""
        width, height = self.desktop.size
        panel = self.desktop.panel_area()
        candidates = [(width // 4, height * 3 // 5), (width * 3 // 4, height * 3 // 5), (width // 2, height - 40),
                      (40, height - 40), (panel.x + 40, panel.y + panel.height // 2)]
        for x, y in candidates:
            point = screen.Rect(x, y, 1, 1)
            if not point.overlaps(popover) and point.gap_to(icon) > MAX_GAP:
                return x, y
        return candidates[-1]

    def close_by_escape(self, icon):
        if self.left_open:
            self.fail(f'neither a click elsewhere nor Escape closed the {self.shows}')
            return
        time.sleep(0.5)  # the panel's own response to the last click (a highlight) is over
        region, before, timing = self.open_popover(icon, '4-popover-again')
        if region is None:
            if not self.menu_instead:
                self.fail(f'the second left click showed no {self.shows}')
            return
        self.note_latency('again', timing)
        time.sleep(0.3)
        self.desktop.key('Escape')
        if self.shown_again(before, region, 3) is None:
            self.keep(self.desktop.grab(), '4-after-escape')
            self.fail(f'Escape left the {self.shows} open')
            self.desktop.click(*self.elsewhere(region, icon), 'left')
            self.left_open = self.shown_again(before, region, 3) is None

    def popover_shows(self, image):
        """Whether the popover is on screen again: in the compositor's list, or its pixels back."""
        if self.desktop.popover_window() is not None:
            return True
        if self.popover_region is None:
            return False
        area = self.popover_region
        mask = screen.changed_mask(self.popover_image, image)[area.y:area.y + area.height, area.x:area.x + area.width]
        return mask.mean() < 0.05

    def host_names(self):
        """The names the panel may address the host by: the item's well-known one or its unique one."""
        names = {self.item_name}
        try:
            names.add(self.gdbus('org.freedesktop.DBus', '/org/freedesktop/DBus', 'org.freedesktop.DBus.GetNameOwner',
                                 self.item_name)[0])
        except SetupError:
            pass
        return names

    def menu_read_since(self, moment, members=('AboutToShow', 'AboutToShowGroup', 'GetLayout', 'Event', 'EventGroup')):
        """The panel's calls, since `moment`, on the host's com.canonical.dbusmenu object."""
        names = self.host_names()
        return [call for call in self.session.calls_since(moment, set(members))
                if call[2] == self.menu_path and call[4] in names]

    def right_click(self, icon):
        if self.left_open:
            self.fail('the right click is not tried: the popover could not be closed first')
            return
        before = self.desktop.grab()
        clicked = time.time()
        self.desktop.click(*icon.centre, 'right')
        region, image, _, _ = self.wait_for_change(before, (40, 40), 5)
        time.sleep(0.5)
        image = self.desktop.grab()
        self.keep(image, '5-right-click')
        asked = self.menu_read_since(clicked)
        if region is None:
            self.fail('a right click showed nothing')
        elif self.shows == 'popover' and self.popover_shows(image):
            self.fail('a right click opened the popover, not a menu')
        elif not asked:
            self.fail(f'a right click showed {region}, but the panel never read the host\'s menu')
        else:
            self.facts.append(f'right click: menu {region}, {region.gap_to(icon)} px from the icon')
        self.desktop.key('Escape')
        if region is not None:
            # Reported: the menu is the panel's, and this says whether the key reached the desktop.
            self.facts.append('Escape closed it' if self.put_away(before, region, icon) else
                              'Escape left it open')

    def put_away(self, before, region, icon):
        """Makes sure what a click showed in `region` is gone (Escape was pressed), by a click
        elsewhere if need be, so that the next step starts from the bare desktop. Returns whether
        Escape sufficed."""
        if self.shown_again(before, region, 2) is not None:
            return True
        self.desktop.click(*self.elsewhere(region, icon), 'left')
        self.left_open = self.shown_again(before, region, 3) is None
        return False

    def middle_click(self, icon):
        """Reported, not judged: whether a middle click reaches the host (SecondaryActivate) and
        what it shows."""
        if self.left_open:
            return
        time.sleep(0.5)
        before = self.desktop.grab()
        clicked = time.time()
        self.desktop.click(*icon.centre, 'middle')
        x, y = icon.centre
        region, image, _, _ = self.wait_for_change(before, (40, 40), 3, (
            screen.Rect(icon.x - 4, icon.y - 4, icon.width + 8, icon.height + 8), screen.Rect(x - 4, y - 4, 32, 40)))
        time.sleep(0.3)
        names = self.host_names()
        called = [call for call in self.session.calls_since(clicked, {'SecondaryActivate'}) if call[4] in names]
        text = 'middle click: ' + ('SecondaryActivate reached the host' if called else 'no SecondaryActivate')
        if region is None:
            text += ', nothing shown'
        else:
            self.keep(image, '6-middle-click')
            text += f', showed {region}, {region.gap_to(icon)} px from the icon'
            self.desktop.key('Escape')
            self.put_away(before, region, icon)
        self.facts.append(text)

    def quit(self, icon):
        """Chooses Quit, the last row of the popover (or of the menu a left click shows): a host
        without an engine ends."""
        if self.left_open:
            self.fail('Quit is not tried: what the clicks showed could not be closed')
            return
        time.sleep(0.5)
        region, _, timing = self.open_popover(icon, '7-before-quit')
        if region is None:
            self.fail(f'Quit is not tried: a left click showed no {self.shows}')
            return
        self.note_latency('third', timing)
        row = screen.last_row(self.desktop.grab(), region)
        if row is None:
            self.fail(f'no rows found in the {self.shows} {region} to choose Quit from')
            return
        chosen = time.time()
        self.desktop.click(*row.centre, 'left')
        self.quit_chosen = True
        host = self.session.host
        try:
            wait_until(lambda: host.poll() is not None, 5, 'the host to end')
        except SetupError:
            self.keep(self.desktop.grab(), '7-after-quit')
            called = ', '.join(call[1] for call in self.menu_read_since(chosen)) or 'none'
            self.fail(f'choosing Quit (the {self.shows}\'s last row, {row}) left the host running '
                      f'(the panel\'s calls on the host\'s menu since: {called})')
            return
        self.facts.append(f'Quit (the {self.shows}\'s last row, {row}) ended the host in '
                          f'{(time.time() - chosen) * 1000:.0f} ms, status {host.returncode}')
        if host.returncode != 0:
            self.fail(f'choosing Quit ended the host with status {host.returncode}')

    def finish(self):
        if not self.quit_chosen and self.session.host.poll() is not None:
            self.fail(f'the host ended during the visit (status {self.session.host.returncode})')
        warnings = [line for line in self.session.host_output().splitlines() if 'WARNING' in line or 'CRITICAL' in line]
        if warnings:
            self.facts.append(f'the host warned {len(warnings)} times, first: {warnings[0].strip()[:120]}')
        latency = None
        if self.latencies:
            latency = ', '.join(self.latencies) + f'; a grab takes up to {self.slowest_grab * 1000:.0f} ms'
        return self.failures, self.facts, latency
