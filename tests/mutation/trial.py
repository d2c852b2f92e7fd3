# SPDX-License-Identifier: MIT
"""Building one mutant beside the build tree and letting the tests at it."""

import json
import math
import os
import re
import resource
import shlex
import shutil
import subprocess
from pathlib import Path

KINDS = ["unit", "trace", "widget", "golden", "property"]
FOLDERS = ["data", "draw", "title", "stocklist"]
USERS = {"data": ["draw", "title"], "draw": ["title"], "title": [], "stocklist": []}  # whose tests may notice, too
LIBRARY = "lib/libindicatorui.so"


class Build:
    """How the tree is compiled and linked, and how long its tests take when nothing is broken."""

    def __init__(self, root, folder):
        self.root, self.folder = Path(root).resolve(), Path(folder).resolve()
        self.commands = {}
        for entry in json.loads((self.folder / "compile_commands.json").read_text()):
            if "indicatorui_objects.dir" in entry["command"]:
                self.commands[os.path.relpath(entry["file"], self.root)] = shlex.split(entry["command"])
        self.library_link = self.link_of(LIBRARY)
        self.library_name = next(word for word in self.library_link if word.startswith("-Wl,-soname,")).split(",")[2]
        self.program_links = {kind: self.link_of(f"bin/{kind}_tests") for kind in KINDS}
        self.linker = ["-fuse-ld=mold"] if shutil.which("mold") else []
        self.suites = {(kind, folder): self.suites_of(kind, folder) for kind in KINDS for folder in FOLDERS}
        self.seconds = {}

    def link_of(self, target):
        """The words of the command that links a target."""
        told = subprocess.run(["ninja", "-t", "commands", target], cwd=self.folder, text=True, check=True,
                              stdout=subprocess.PIPE).stdout
        link = [line for line in told.splitlines() if f" -o {target}" in line][-1]
        return [word for word in shlex.split(link) if word not in ("&&", ":")]

    def suites_of(self, kind, folder):
        """The suites of one kind of test over one folder, as a filter; golden pictures hold a bit of everything."""
        place = self.root / "tests" / kind / ("" if kind == "golden" else folder)
        names = set()
        for source in sorted(place.glob("*.cpp")):
            names.update(re.findall(r"^(?:TYPED_)?TEST(?:_[FP])?\((\w+),", source.read_text(), re.M))
        return ":".join(f"{name}.*:*/{name}.*:{name}/*" for name in sorted(names))

    def measure(self, mutated):
        """How long a processor works for each program over each folder that watches a mutated one, on the library as
        it is."""
        watching = {*mutated, *(user for folder in mutated for user in USERS[folder])}
        for (kind, folder), suites in self.suites.items():
            if not suites or folder not in watching:
                continue
            started = seconds_of_children()
            if not passes([str(self.folder / f"bin/{kind}_tests")], suites, {}, 600):
                raise SystemExit(f"The {kind} tests of {folder} fail on sources that nobody changed.")
            self.seconds[kind, folder] = seconds_of_children() - started


def seconds_of_children():
    """Processor time of all programs that were waited for."""
    used = resource.getrusage(resource.RUSAGE_CHILDREN)
    return used.ru_utime + used.ru_stime


def passes(program, suites, surroundings, limit):
    """Whether a test program ends well within so many seconds of a processor: on a busy machine an endless loop is
    noticed, and a slow test is not taken for one. One that only waits gets ten times as long by the clock."""
    surroundings = {**os.environ, "QT_QPA_PLATFORM": "offscreen", **surroundings}
    command = ["prlimit", f"--cpu={math.ceil(limit)}", *program, f"--gtest_filter={suites}", "--gtest_fail_fast",
               "--gtest_brief=1"]
    try:
        return subprocess.run(command, env=surroundings, timeout=10 * limit, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL).returncode == 0
    except subprocess.TimeoutExpired:
        return False


class Trial:
    """One mutant at a time in a folder of its own."""

    def __init__(self, build, folder):
        self.build, self.folder = build, Path(folder)
        shutil.rmtree(self.folder, ignore_errors=True)
        self.folder.mkdir(parents=True)
        self.library = self.folder / build.library_name
        self.plain = {}  # objects of sources that nobody changed

    def compile(self, path, text):
        """The object of a text that stands in for a source; None when it is no C++."""
        source, made = self.folder / "mutant.cpp", self.folder / "mutant.o"
        source.write_text(text)
        words = list(self.build.commands[path])
        words[words.index("-o") + 1], words[words.index("-c") + 1] = str(made), str(source)
        words = [word for word in words if word not in ("-Werror", "-g1")] + ["-w", "-g0"]
        told = subprocess.run(words, cwd=self.build.folder, stderr=subprocess.DEVNULL)
        return made if told.returncode == 0 else None

    def link(self, words, made, replaced=None, ahead=None):
        """Links as the build does, into this folder, with the mutant's object in its place or ahead of the others."""
        words = list(words)
        words[words.index("-o") + 1] = str(made)
        if replaced:
            words[words.index(replaced[0])] = str(replaced[1])
        if ahead:
            words.insert(words.index("-o"), str(ahead))
        subprocess.run([*words, *self.build.linker], cwd=self.build.folder, check=True, stderr=subprocess.DEVNULL)

    def outcome(self, mutant, source):
        """"killed", "survived", or "same" when it is no C++ or the compiler sees no difference."""
        lines = source.splitlines(keepends=True)
        mutated = "".join([*lines[: mutant.line - 1], mutant.text + "\n", *lines[mutant.line :]])
        if mutant.path not in self.plain:
            self.plain[mutant.path] = self.compile(mutant.path, source).read_bytes()
        made = self.compile(mutant.path, mutated)
        if not made or made.read_bytes() == self.plain[mutant.path]:
            return "same"
        inside = mutant.path.removeprefix("src/")
        self.library.unlink(missing_ok=True)
        self.link(self.build.library_link, self.library,
                  replaced=(f"src/CMakeFiles/indicatorui_objects.dir/{inside}.o", made))
        return "killed" if self.is_noticed(mutant, made) else "survived"

    def is_noticed(self, mutant, made):
        """Lets the tests of the folder and of those that use it at the mutant, the quick ones first."""
        own = mutant.path.split("/")[1]
        inside = made if "/internal/" in mutant.path else None  # tests have the blocks compiled in
        watching = [(kind, folder) for (kind, folder), suites in self.build.suites.items()
                    if suites and (folder == own or (folder in USERS[own] and kind not in ("golden", "property")))]
        programs = {}
        for kind, folder in sorted(watching, key=self.build.seconds.get):
            if kind not in programs:
                programs[kind] = self.program(kind, inside)
            limit = 10 + 5 * self.build.seconds[kind, folder]
            if not passes([programs[kind]], self.build.suites[kind, folder],
                          {"LD_LIBRARY_PATH": str(self.folder)}, limit):
                return True
        return False

    def program(self, kind, inside):
        if not inside:
            return str(self.build.folder / f"bin/{kind}_tests")
        made = self.folder / f"{kind}_tests"
        self.link(self.build.program_links[kind], made, ahead=inside)
        return str(made)
