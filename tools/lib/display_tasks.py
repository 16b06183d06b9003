#!/usr/bin/env python3
"""The commonest tasks at the keyboard, and kills at random moments, on a display with a window manager.

display_tasks.py FOLDER tasks|kills [COUNT]: FOLDER holds kestrum and kestrum-ec3; DISPLAY is that of the run.
Whatever a task has done is read from the file that it saves, by the command line.
"""
import json
import os
import random
import re
import signal
import subprocess
import sys
import tempfile
import time
from pathlib import Path

PATIENCE = 30  # s, for a machine that has other work


def run(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False)


def wait(what, found):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        result = found()
        if result:
            return result
        time.sleep(0.05)
    raise SystemExit(f"kestrum: no {what} within {PATIENCE} s; windows: {titles()}")


def windows(title):
    """Windows that can be seen whose title matches, the newest last."""
    return run("xdotool", "search", "--onlyvisible", "--name", title).stdout.split()


def titles():
    return [run("xdotool", "getwindowname", each).stdout.strip() for each in windows(".")]


class Desktop:
    def __init__(self, folder, home, *arguments):
        environment = {**os.environ, "HOME": str(home), "XDG_CONFIG_HOME": f"{home}/config",
                       "XDG_STATE_HOME": f"{home}/state", "XDG_DATA_HOME": f"{home}/data", "LC_ALL": "C.UTF-8"}
        self.process = subprocess.Popen([f"{folder}/kestrum-ec3", *arguments], env=environment)
        self.activate("^Kestrum EC3.*: ")

    def activate(self, title):
        window = wait(f"window {title}", lambda: windows(title))[-1]
        run("xdotool", "windowactivate", "--sync", window)
        wait("focus", lambda: re.search(title, run("xdotool", "getactivewindow", "getwindowname").stdout))
        return window

    def keys(self, *keys):
        run("xdotool", "key", "--delay", "15", *keys)

    def text(self, text, *keys):
        run("xdotool", "type", "--delay", "8", text)
        self.keys(*keys)

    def find(self, words, then="^Kestrum EC3.*: "):
        """Ctrl+K; `then` is the window that the finding leads to."""
        self.keys("ctrl+k")
        self.activate("^Find$")
        self.text(words)
        time.sleep(0.2)
        self.keys("Return")
        self.activate(then)

    def width(self):
        """Of the active window."""
        return re.search(r"WIDTH=(\d+)", run("xdotool", "getactivewindow", "getwindowgeometry", "--shell").stdout)[1]

    def save(self):
        self.keys("ctrl+s")

    def saveas(self, path):
        self.keys("ctrl+shift+s")
        self.activate("Save project as")
        self.keys("ctrl+a")
        self.text(str(path), "Return")
        wait(f"file {path}", path.exists)
        self.activate("^Kestrum EC3.*: ")

    def kill(self):
        self.process.send_signal(signal.SIGKILL)
        self.process.wait()

    def end(self):
        self.keys("ctrl+q")
        self.process.wait(timeout=PATIENCE)


def inputs(folder, path):
    told = run(f"{folder}/kestrum", "dump", "--inputs", str(path))
    return json.loads(told.stdout) if told.stdout else {}


def expect(what, folder, path, **wanted):
    """The saved file holds these inputs; name__1 is the second element of a list."""

    def holds():
        found = inputs(folder, path)
        return all(value(found, name) == want for name, want in wanted.items())

    def value(found, name):
        name, _, index = name.partition("__")
        return found.get(name) if not index else found[name][int(index)]

    try:
        wait(f"{what}: {wanted}", holds)
    except SystemExit as late:
        raise SystemExit(f"{late}; {path} holds {[value(inputs(folder, path), name) for name in wanted]}") from late
    print(f"{what}: done")


def tasks(folder):
    home = Path(tempfile.mkdtemp(prefix="kestrum-"))
    first, second, table = home / "first.kst", home / "second.kst", home / "members.csv"
    desktop = Desktop(folder, home)
    desktop.keys("Tab")
    desktop.text("Hall", "Return")
    desktop.text("B7", "Return")
    desktop.text("7.2", "Return")
    desktop.saveas(first)
    expect("1 a new project, named and saved", folder, first, projname="Hall", ident="B7", l=7.2)
    desktop.find("ipe 400")
    desktop.save()
    expect("2 a section found by its name", folder, first, family=4)
    before = desktop.width()
    desktop.keys("F3")
    time.sleep(1)
    if desktop.width() != before:
        raise SystemExit(f"kestrum: docking has made the window {desktop.width()} wide, which was {before}")
    desktop.text("25", "Return", "Return", "Return")
    desktop.text("12.5", "Return", "Escape")
    desktop.save()
    expect("3 loads typed in their form", folder, first, nload__0=25, qload__1=12.5)
    desktop.find("k y 0.7")
    desktop.save()
    expect("4 an input set from Find", folder, first, ly=0.7)
    desktop.keys("ctrl+z")
    desktop.save()
    expect("5 a step taken back", folder, first, ly=1)
    desktop.keys("ctrl+shift+z")
    desktop.saveas(second)
    expect("6 the step made again, another file", folder, second, ly=0.7, l=7.2)
    desktop.keys("ctrl+o")
    desktop.activate("Open project")
    desktop.text(str(first), "Return")
    desktop.activate("first.kst")
    print("7 a file opened: done")
    report = home / "report.pdf"
    desktop.find("pdf: section and stability", "Export as PDF")
    desktop.keys("ctrl+a")
    desktop.text(str(report), "Return")
    wait("report", lambda: report.exists() and report.stat().st_size > 1000)
    desktop.activate("^Kestrum EC3.*: ")
    print("8 a report as PDF: done")
    table.write_text("id,section,l,qload[1]\nB1,IPE 300,6,10\n", encoding="utf-8")
    desktop.keys("ctrl+shift+m")
    desktop.activate("^Members: ")
    desktop.keys("ctrl+o")
    desktop.activate("Open table")
    desktop.text(str(table), "Return")
    desktop.activate("Members: members.csv")
    desktop.keys("Right", "Right", "Right")
    desktop.text("14", "Return")
    desktop.keys("ctrl+s")
    wait("saved table", lambda: "B1,IPE 300,6,14" in table.read_text(encoding="utf-8"))
    print("9 a table of members edited and saved: done")
    desktop.keys("Escape")
    desktop.activate("^Kestrum EC3.*: ")
    desktop.find("length 8.5")
    time.sleep(1)
    desktop.kill()
    desktop = Desktop(folder, home)
    desktop.keys("alt+s")  # Restore
    third = home / "third.kst"
    desktop.saveas(third)
    expect("10 work taken up after a kill", folder, third, l=8.5, qload__1=12.5)
    desktop.end()
    print("the desktop has ended by itself")


def kills(folder, count):
    """Lengths are typed one after the other, each with the time at which it was left; what was entered a second before the
    kill, or later, is in the file that the next start offers."""
    project = Path(tempfile.mkdtemp(prefix="kestrum-")) / "start.kst"
    run(f"{folder}/kestrum", "new", "-o", str(project))
    chance = random.Random(1)
    behind = []
    for number in range(count):
        home = Path(tempfile.mkdtemp(prefix="kestrum-"))
        desktop = Desktop(folder, home, str(project))
        desktop.keys("Tab", "Tab", "Tab")
        entered = []
        end = time.monotonic() + chance.uniform(1.05, 2.5)
        while time.monotonic() < end:
            length = 6 + len(entered) / 1000 + 0.001
            run("xdotool", "type", "--delay", "2", f"{length:.3f}")
            run("xdotool", "key", "--delay", "2", "Tab", "shift+Tab")
            entered.append((time.monotonic(), length))
        killed = time.monotonic()
        desktop.kill()
        left = 0.0
        for file in home.glob("state/**/*"):
            if file.is_file():
                found = re.search(r"^l ([0-9.]+)$", file.read_text(encoding="utf-8", errors="replace"), re.M)
                left = max(left, float(found.group(1)) if found else 0)
        owed = max((length for at, length in entered if at < killed - 1), default=0)
        behind.append(round((entered[-1][1] - left) * 1000))
        if left + 1e-6 < owed:
            raise SystemExit(f"kestrum: kill {number}: {left} is left, {owed} was entered a second before")
    print(f"{count} kills: nothing older than a second is lost, at most the last {max(behind)} values")


if __name__ == "__main__":
    if sys.argv[2] == "tasks":
        tasks(sys.argv[1])
    else:
        kills(sys.argv[1], int(sys.argv[3]))
