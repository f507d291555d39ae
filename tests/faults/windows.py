"""The same under Wine, where calls of Windows fail and kill, and others hold files open."""
import os
import re
import subprocess
import sys

import inject

FAULTOPS = f"{inject.SOURCE}/build/windows/bin/faultops.exe"
PREFIX = f"{inject.SOURCE}/build/wine-faults"  # a registry and a drive of its own
FAULTS = ["112", "5", "1117", "KILL"]  # no space, access denied, I/O error
SHARES = ["0", "1", "3", "7"]  # nothing, reading, and writing, and deleting


class Operation(inject.Operation):
    def prepare(self, work):
        self.tree = f"{work}/windows"
        if not os.path.exists(self.tree):
            os.makedirs(f"{self.tree}/c")
            for name in os.listdir(f"{PREFIX}/drive_c"):  # Windows' own folders
                os.symlink(f"{PREFIX}/drive_c/{name}", f"{self.tree}/c/{name}")
            show_as_drive_c(f"{self.tree}/c")
        wine(FAULTOPS, "install")  # Wine's start fills a part of the registry anew
        self.make_old(f"{work}/tree")
        done = self.run()
        self.calls = re.findall(r"^calls (\w+) (\d+)", done.stderr.decode("latin-1"), re.MULTILINE)
        self.learn(done)

    def run(self, faults=(), **how):
        variables = {**os.environ, "WINEPREFIX": PREFIX, **dict(faults)}
        return subprocess.run([f"{inject.SOURCE}/scripts/wine-run", *self.command], cwd="/",
                              env=variables, capture_output=True, timeout=60, check=False)

    def state(self, tree, path, rights=True):
        return super().state(tree, path, False)  # Wine makes rights of its own

    def injections(self, short):
        for call, count in self.calls:
            for number in range(1, int(count) + 1):
                for fault in FAULTS[number % 4:][:1] if short else FAULTS:
                    yield call, str(number), fault
        for path in sorted(self.changed & self.old.keys()):
            for share in SHARES if self.old[path][1] is not None else []:
                yield "hold", path, share

    def inject(self, call, number, fault):
        if call == "hold":
            held = "C:" + number[1:].replace("/", "\\")
            done = self.run({"KVARNPROG_HOLD": f"{fault} {held}"})
        else:
            done = self.run({"KVARNPROG_FAULT": f"{call} {number} {fault}"})
        if done.returncode == 137 and fault == "KILL":
            return None, done
        return done.returncode == 0 if done.returncode in (0, 1) else "crashed", done


def all_operations():
    listed = subprocess.run([inject.FAULTOPS, "--list"], check=True, capture_output=True, text=True)
    for name, promise, absent in (line.split("\t") for line in listed.stdout.splitlines()):
        if not name.startswith("registry"):  # Wine keeps its registry in memory
            yield Operation(name, promise, absent, [FAULTOPS, name])


def wine(*command):
    subprocess.run([f"{inject.SOURCE}/scripts/wine-run", *command], check=True,
                   env={**os.environ, "WINEPREFIX": PREFIX}, stderr=subprocess.DEVNULL,
                   stdout=subprocess.DEVNULL)


def show_as_drive_c(folder):
    link = f"{PREFIX}/dosdevices/c:"
    os.unlink(link)
    os.symlink(folder, link)


def run_in_turn(operations, work, short):
    rows = []
    for operation in operations:
        operation.prepare(work)
        rows.append(inject.inject_all(operation, short))
    return rows


if __name__ == "__main__":
    wine(FAULTOPS, "--list")  # makes the prefix
    try:
        status = inject.main(sys.argv[1:], list(all_operations()), run_in_turn)
    finally:
        show_as_drive_c("../drive_c")
    sys.exit(status)
