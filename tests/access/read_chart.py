#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Reads the client through AT-SPI as a screen reader does: names, values of the bar, and what is announced.

Usage: read_chart.py CLIENT BARS XDOTOOL WINDOW_MANAGER, within a session bus and a display of its own.
"""
import os
import re
import subprocess
import sys
import tempfile
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

LONGEST_WAIT = 120  # seconds; nothing takes as long unless it fails

client, bars, xdotool, window_manager = sys.argv[1:5]
announced = []


def await_that(what, test):
    """Asks until the test answers something true, and answers that."""
    end = time.monotonic() + LONGEST_WAIT
    while time.monotonic() < end:
        while GLib.MainContext.default().iteration(False):
            pass
        try:
            found = test()
        except GLib.Error:  # what was asked has gone meanwhile
            found = None
        if found:
            return found
        time.sleep(0.05)
    sys.exit(f"In vain for {what}")


def all_in(root):
    yield root
    for index in range(root.get_child_count()):
        child = root.get_child_at_index(index)
        if child:
            yield from all_in(child)


def application():
    desktop = Atspi.get_desktop(0)
    desktop.clear_cache()  # it may have been asked before the program came
    for index in range(desktop.get_child_count()):
        child = desktop.get_child_at_index(index)
        if child and "indicatorui-client" in (child.get_name() or ""):
            return child
    return None


def first(test):
    return next((found for found in all_in(application()) if test(found)), None)


def is_chart(found, name):
    return found.get_role() == Atspi.Role.CHART and found.get_name() == name


def press(*keys):
    subprocess.run([xdotool, "key", *keys], check=True)


def date_of(found):
    match = re.match(r"\d{4}-\d\d-\d\d", found.get_description() or "")
    return match and match.group(0)


def is_announced_before(date):
    """Moves the crosshair once more: a listener may be known to the client only now."""
    press("Left")
    return any(re.match(r"\d{4}-", text or "") and text[:len(date)] < date for text in announced)


home = tempfile.TemporaryDirectory()
environment = dict(os.environ, HOME=home.name, INDICATORUI_HOME=home.name + "/client", QT_QPA_PLATFORM="xcb",
                   QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
manager = subprocess.Popen([window_manager], env=environment, stderr=subprocess.DEVNULL)
program = subprocess.Popen([client, "--lang", "en", bars], env=environment)
try:
    # The technology comes when the window stands: one that is there before Qt's first event is missed at times.
    subprocess.run([xdotool, "search", "--sync", "--onlyvisible", "--class", "indicatorui-client"], check=True,
                   stdout=subprocess.DEVNULL, timeout=LONGEST_WAIT)
    Atspi.init()
    await_that("the program", application)
    listener = Atspi.EventListener.new(lambda event: announced.append(event.source.get_description()))
    listener.register("object:property-change:accessible-description")
    chart = await_that("the chart", lambda: first(lambda found: is_chart(found, "Chart")))
    for pane in ("KLINE, MA", "VOL", "MACD"):
        await_that("pane " + pane, lambda: first(lambda found: is_chart(found, pane)))
    for name in ("Instruments", "Formulas", "Messages", "Filter of the instruments"):
        await_that(name, lambda: first(lambda found: found.get_name() == name))
    for button in ("Open bars", "Go to date", "Save picture"):
        await_that("button " + button, lambda: first(
            lambda found: found.get_role() in (Atspi.Role.PUSH_BUTTON, Atspi.Role.TOGGLE_BUTTON)
            and (found.get_name() or "").startswith(button)))
    await_that("the focus on the chart", lambda: chart.get_state_set().contains(Atspi.StateType.FOCUSED))

    newest = await_that("the newest bar's date", lambda: date_of(chart))
    assert "MA5:" in await_that("the values", lambda: "MA5:" in chart.get_description() and chart.get_description())
    press("Left", "Left")
    await_that("an earlier bar", lambda: date_of(chart) and date_of(chart) < newest)
    await_that("its announcement", lambda: is_announced_before(newest))
    volumes = first(lambda found: is_chart(found, "VOL"))
    await_that("the same bar in another pane", lambda: date_of(volumes) == date_of(chart))
    assert "VOL:" in volumes.get_description(), volumes.get_description()
    print(chart.get_description())
    press("ctrl+q")
    assert program.wait(LONGEST_WAIT) == 0, program.returncode
finally:
    program.kill()
    program.wait()
    manager.kill()
    manager.wait()
