"""Injects faults into each writing operation, and judges what it leaves: see scripts/faults."""
import fnmatch
import multiprocessing
import os
import re
import resource
import shutil
import stat
import subprocess
import sys
import tempfile
import time
from collections import Counter, defaultdict

SOURCE = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
FAULTOPS, KVARNIO, SHORT_WRITES, STILL_CLOCK = (f"{SOURCE}/build/linux/{each}" for each in (
    "bin/faultops", "bin/kvarnio", "tests/faults/libshortwrites.so",
    "tests/faults/libstillclock.so"))
NOBODY = 65534

CHANGING = set("""write pwrite64 writev ftruncate fallocate fsync fdatasync rename renameat renameat2
    link symlink unlink unlinkat mkdir mkdirat rmdir chmod fchmod fchmodat chown fchown fchownat
    utimensat copy_file_range sendfile""".split())
LOOKING = set("""openat stat lstat newfstatat fstat statx access faccessat faccessat2 readlink read
    pread64 getdents64 lseek close""".split())  # openat and close change what is open for writing
LONG_LINE, LITTLE_MEMORY = 40 << 20, 70 << 20  # bytes
FAULTS = ["ENOSPC", "EIO", "EACCES", "ENOSPC+", "EIO+", "EACCES+"]  # +: from then on

HOME = ["--home", r"C:\Kvarnbok", "--cfg", r"C:\Kvarnbok\Cfg"]
VAG27 = [*HOME, "--project", r"C:\Projekt\Vag27"]
HAMNKAJEN = [*HOME, "--project", r"C:\Projekt\Hamnkajen"]
STAMPEL = r"C:\Projekt\Vag27\STAMPEL.PAR"
OWN = "c/Projekt/Vag27"
# The tool's operations: promise (see operations.cpp), files that are absent first, arguments.
TOOL = {
    "set": ("told", "", ["set", "KVARNBOK.PAR", "HSKALA", "333", *VAG27]),
    "set-int": ("told", "", ["set", "KLIPPBOK.PAR", "HSKALA", "333", "--int", *VAG27]),
    "set-double": ("told", "", ["set", "KVARNBOK.CFG", "SPARTID", "7.25", "--double", "2", *HOME]),
    "set-jb23": ("told", "", ["set", "JB23.PAR", "KRAFTSKALA", "333", *VAG27]),
    "set-jb23-new": ("told", "c/*/JB23.PAR", ["set", "JB23.PAR", "KRAFTSKALA", "333", *VAG27]),
    "set-with-losses": ("told", "", ["set", "KVARNBOK.PAR", "HSKALA", "333", *HAMNKAJEN]),
    "codes-add-kodfil": ("told", "", ["codes", "add", "kodfil", "Ny", "Nytt", *VAG27]),
    "codes-add-miljkod": ("told", "", ["codes", "add", "miljkod", "3", "NY", "Nytt", *VAG27]),
    "codes-set-linkod": ("told", "", ["codes", "set", "linkod", "VAGK", "TUNN", "0.7", *VAG27]),
    "codes-remove-stamp": ("told", "", ["codes", "remove", "stamp", STAMPEL, "RITAD", *VAG27]),
    "codes-with-losses": ("told", "", ["codes", "add", "linkod", "NY", "TUNN", "0.7", *HAMNKAJEN]),
    "codes-update": ("told", f"{OWN}/MILJKOD.DAT", ["codes", "update", *VAG27]),
    "local-create": ("told", f"{OWN}/*.PAR {OWN}/*.DAT", ["local", "create", *VAG27]),
    "local-overwrite": ("told", "", ["local", "create", "--overwrite", *VAG27]),
    "local-rock": ("told", f"{OWN}/KLIPPBOK.PAR", ["local", "create", "--rock", *VAG27]),
    "local-remove": ("told", "", ["local", "remove", "--yes", *VAG27]),
    "undo": ("told", "", ["undo", f"TREE/{OWN}/KODFIL.DAT", *VAG27]),
    "undo-removal": ("told", "", ["undo", f"TREE/{OWN}", *VAG27]),
    "project-create": ("steps", "", ["project", "create", r"C:\Projekt\Ny", "--construction",
                                     "--folders", "--yes", *HOME]),
    "env-first-start": ("silent", "c/Data/*", ["env", "--bootstrap", "0", "AX", "--refresh",
                                             "--home", r"C:\Prog"]),
    "road-plot": ("told", "", ["road", "plot", r"C:\Projekt\Vag27\KVARNBOK.DBF\VAG27.VL", "-o",
                               "TREE/vag.svg", *VAG27]),
    "road-export": ("told", "", ["road", "export", r"C:\Projekt\Vag27\KVARNBOK.DBF\VAG27.VL", "-o",
                                 "TREE/vag.dxf", *VAG27]),
    "road-import": ("told", "", ["road", "import", "TREE/linje.xml", "-o",
                                 r"C:\Projekt\Vag27\KVARNBOK.DBF\VAG27.VL", *VAG27]),
}
LISTED = "/(" + "|".join(
    re.escape(line.split("\\")[0]) for line in open(
        f"{SOURCE}/samples/drives/c/Kvarnbok/Cfg/Mappar.txt", encoding="latin-1").read().split("\n")
    if line.strip()) + ")"
# The files that several writers write at once, each another value.
SHARED = {"par-key": f"{OWN}/KVARNBOK.PAR", "inst-jb23": f"{OWN}/JB23.PAR",
          "area": f"{OWN}/KVARNBOK.DBF/KVARNBOK.VL", "road": f"{OWN}/KVARNBOK.DBF/VAG27.VL",
          "ini-key": "c/Kvarnbok/Markvida.ini", "registry-text": "registry.reg"}


# --- The folder tree -----------------------------------------------------------------------------

USER_INI = b"[SYSTEM]\r\nACADEXE=old\r\nACADEXEA=a.exe\r\nMSG=C:\\none\\x.msg\r\n"
USER, OLDER = (f"c/Data/{name}/Vallentra/Markvida/R20/AX" for name in ("Orsakor", "Brinvik"))
EVERYBODY = "c/Gemensam/Orsakor/Vallentra/Markvida/AX"
MORE_FILES = {
    f"{USER}/Markvida.ini": USER_INI, f"{USER}/Kvarnbok.par": b"A=1\r\n", f"{USER}/Plan.dat": b"old",
    f"{OLDER}/Markvida.ini": USER_INI, f"{OLDER}/Kvarnbok.par": b"A=2\r\n",
    f"{EVERYBODY}/Markvida.ini": USER_INI, f"{EVERYBODY}/Kvarnbok.par": b"A=3\r\n",
    f"{EVERYBODY}/Plan.dat": b"new", "c/Program/Orsakor/Binaries/x.dll": b"new",
    "c/Plattform/Binaries/x.dll": b"old", "c/Prog/x": b"", "c/Konf/Plan.dat": b"older",
    "c/Kvarnbok/Cfg/MILJKOD.DAT": b"*\r\n*\r\nXRF R\r\n*\r\nKM K\r\n*\r\nAS A max=6 steg=1\r\n*\r\n",
    f"{OWN}/KODFIL.DAT.bak": b"*\r\nLe Ler\r\n*\r\n",
    f"{OWN}/kvarnio-removed-2026-01-01-000000/Plan.dat": b"removed",
    "hem/.config/x": b""}
TIMES = {"c/Gemensam": 2 * 10**9, "c/Program/": 2 * 10**9, "c/Konf": 5 * 10**8}  # else 10**9


def make_tree(folder):
    """The sample drive with a project that has all files, settings of users, and a registry."""
    shutil.copytree(f"{SOURCE}/samples/drives/c", f"{folder}/c")
    shutil.copy(f"{SOURCE}/samples/linje.xml", folder)
    for entry in os.scandir(f"{folder}/c/Kvarnbok/Cfg"):
        if not os.path.exists(f"{folder}/{OWN}/{entry.name}") and entry.name != "Mappar.txt":
            shutil.copy(entry.path, f"{folder}/{OWN}")
            with open(entry.path, "ab") as file:  # the shared one is another
                file.write(b"*\r\n")
    for path, content in MORE_FILES.items():
        os.makedirs(os.path.dirname(f"{folder}/{path}"), exist_ok=True)
        with open(f"{folder}/{path}", "wb") as file:
            file.write(content)
    subprocess.run([FAULTOPS, "install"], check=True, env=environment(folder))
    for path in look(folder):
        seconds = [TIMES[each] for each in TIMES if path.startswith(each)] or [10**9]
        os.utime(f"{folder}/{path}", (seconds[0], seconds[0]))


def environment(tree):
    return {"KVARNPROG_DRIVES": tree, "KVARNPROG_REGISTRY": f"{tree}/registry.reg",
            "HOME": f"{tree}/hem", "PATH": "/usr/bin:/bin", "LC_ALL": "C.UTF-8",
            "LD_PRELOAD": STILL_CLOCK}


def look(folder, below=""):
    """Path to (rights, content, time) of everything in a folder; a folder has no content."""
    found = {}
    for entry in os.scandir(folder):
        path, status = below + entry.name, entry.stat(follow_symlinks=False)
        if entry.is_dir(follow_symlinks=False):
            found[path] = (status.st_mode, None, 0)
            found.update(look(entry.path, path + "/"))
        elif not (entry.name.endswith(".lock") or entry.is_symlink()):  # the registry's token stays
            found[path] = (status.st_mode, content_of(entry.path), status.st_mtime_ns)
    return found


def content_of(path):
    try:
        with open(path, "rb") as file:
            return file.read()
    except FileNotFoundError:
        return None


def restore(folder, wanted, found):
    for path in sorted(set(found) - set(wanted), reverse=True):
        os.rmdir(f"{folder}/{path}") if found[path][1] is None else os.unlink(f"{folder}/{path}")
    for path in sorted(path for path in wanted if found.get(path) != wanted[path]):
        mode, content, changed = wanted[path]
        if content is None:
            os.makedirs(f"{folder}/{path}", exist_ok=True)
        else:
            with open(f"{folder}/{path}", "wb") as file:
                file.write(content)
            os.utime(f"{folder}/{path}", ns=(changed, changed))
        os.chmod(f"{folder}/{path}", stat.S_IMODE(mode))


# --- An operation --------------------------------------------------------------------------------

class Operation:
    def __init__(self, name, promise, absent, command):
        self.name, self.promise, self.absent, self.command = name, promise, absent.split(), command

    def prepare(self, work):
        """Makes the tree, and learns what an undisturbed run calls and changes."""
        self.tree, self.log = f"{work}/{self.name}", f"{work}/{self.name}.log"
        os.mkdir(self.tree)
        self.make_old(f"{work}/tree")
        calls = ",".join("?" + call for call in sorted(CHANGING | LOOKING))
        done = self.run(["strace", "-f", "-y", "-s", "0", "-o", self.log, "-e", f"trace={calls}"])
        self.read_log()
        self.learn(done)

    def make_old(self, sample):
        self.old = {path: file for path, file in look(sample).items()
                    if not any(fnmatch.fnmatchcase(path, pattern) for pattern in self.absent)}
        self.reset(look(self.tree))

    def learn(self, done):
        """After the first run, which this one follows."""
        self.new = look(self.tree)
        self.run()
        self.newer = look(self.tree)
        self.changed = {path for path in self.old.keys() | self.new.keys()
                        if self.state(self.old, path) != self.state(self.new, path)}
        if done.returncode != 0 or not self.changed:
            raise RuntimeError(f"{self.name} does nothing undisturbed: {done}")
        self.reset(self.newer)

    def read_log(self):
        """Finds the calls that meet the tree, each with its number among its like."""
        self.calls, counts, writing, touched = [], Counter(), set(), set()
        with open(self.log, encoding="latin-1") as log:
            lines = re.findall(r"^\d+ +((\w+)\((\w*).*)", log.read(), re.MULTILINE)
        for line, call, first in lines:
            counts[call] += 1
            if call == "openat":
                changes = bool(re.search("O_WRONLY|O_RDWR|O_CREAT", line))
                (writing.add if changes else writing.discard)(line.rsplit(" = ")[-1].split("<")[0])
            else:
                changes = call in CHANGING or call == "close" and first in writing
            if self.tree in line or "/proc/self/fd/" in line:
                self.calls.append((call, str(counts[call]), changes))
                touched.update(re.findall(re.escape(self.tree) + r'/([^">]+)', line))
        self.touched = sorted({path.rstrip("/") for path in touched} & self.old.keys())

    def run(self, before=(), values=(), **how):
        command = [word.replace("TREE", self.tree) for word in [*before, *self.command, *values]]
        how = {"env": environment(self.tree), "capture_output": True, "timeout": 60, **how}
        try:
            return subprocess.run(command, cwd="/", check=False, **how)
        except subprocess.TimeoutExpired:
            return subprocess.CompletedProcess(command, -1, b"", b"it hangs\n")

    def reset(self, found):
        restore(self.tree, self.old, found)

    def injections(self, short):
        few = max(6, len(self.calls) // 16)
        for index, (call, number, changes) in enumerate(self.calls):
            faults = [FAULTS[index // few % 6]] if short and (changes or index % few == 0) else \
                [] if short else FAULTS
            for fault in [*faults, "KILL"] if changes else faults:
                yield call, number, fault
        largest = max(len(tree[path][1] or b"") for tree in (self.old, self.new)
                      for path in self.changed & tree.keys())
        for size in range(0, largest + 1, max(1, largest // (4 if short else 64))):
            yield "size", str(size), "ENOSPC"
            yield "size", str(size), "KILL"
        yield "write", "all", "short"
        yield "rights", "all", "others"
        for path in self.touched:
            folder = self.old[path][1] is None
            if not short and not folder:
                yield "memory", path, "line"
            if not short or path in self.changed or folder:
                for rights in ["555", "0", "311"] if folder else ["444", "0", "222"]:
                    yield "rights", path, rights

    def inject(self, call, number, fault):
        """What the operation reported, or None when it was killed; and the process."""
        if call == "size":
            done = self.run(preexec_fn=lambda: resource.setrlimit(
                resource.RLIMIT_FSIZE, (int(number), int(number))), restore_signals=fault == "KILL")
        elif fault == "short":
            both = f"{STILL_CLOCK} {SHORT_WRITES}"
            done = self.run(env=dict(environment(self.tree), LD_PRELOAD=both))
        elif call == "rights":
            done = self.run_without_rights(number, fault)
        else:
            # strace is faster with the filter, but sends no signals then.
            how = ["-e", f"inject={call}:signal=KILL:when={number}"] if fault == "KILL" else \
                ["--seccomp-bpf", "-e", f"inject={call}:error={fault.rstrip('+')}:when={number}"
                 + fault[len(fault.rstrip('+')):]]
            done = self.run(["strace", "-f", "-s", "0", "-o", self.log, "-e", f"trace={call}", *how])
            if b"INJECTED" not in content_of(self.log) and b"+++ killed" not in content_of(self.log):
                return "the call is not reached", done
        if done.returncode in (-9, -25) and fault == "KILL":
            return None, done
        return "it crashed or hung" if done.returncode < 0 else done.returncode == 0, done

    def run_without_rights(self, path, rights):
        """As another user where this one may do everything."""
        user = {"user": NOBODY, "group": NOBODY, "extra_groups": []} if os.geteuid() == 0 else {}
        for each in self.old:
            if path == "all":  # somebody else's files, in folders where nothing can be made
                os.chmod(f"{self.tree}/{each}", 0o555 if self.old[each][1] is None else 0o666)
            elif user:
                os.chown(f"{self.tree}/{each}", NOBODY, NOBODY)
        if path != "all":
            os.chmod(f"{self.tree}/{path}", int(rights, 8))
        done = self.run(**user)
        for each in sorted(self.old):
            if os.path.exists(f"{self.tree}/{each}"):
                os.chmod(f"{self.tree}/{each}", stat.S_IMODE(self.old[each][0]))
        return done

    # --- What is promised

    def state(self, tree, path, rights=True):
        if path not in tree:
            return None
        mode, content, _ = tree[path]
        if path.endswith("Markvida.ini"):  # which folder has files that are still to be copied
            content = re.sub(rb"COPY(TO|FROM)=.*\r\n", b"", content)
        return mode if rights else stat.S_IFMT(mode), content

    def judge_memory(self, path):
        """A line that is nearly as long as the memory is large: the file with it is the old one, or
        that of memory enough."""
        def run(**how):
            with open(f"{self.tree}/{path}", "ab") as file:
                file.write(b"x" * LONG_LINE + b"\n")
            before = os.stat(f"{self.tree}/{path}").st_size
            done = self.run(**how)
            after = look(self.tree)
            self.reset(after)
            return before, done, {each: self.state(after, each) for each in after}
        _, _, new = run()
        before, done, now = run(preexec_fn=lambda: resource.setrlimit(
            resource.RLIMIT_AS, (LITTLE_MEMORY, LITTLE_MEMORY)))
        broken = {}
        if done.returncode < 0:
            broken["false"] = "it crashed or hung"
        if now.get(path) != new.get(path) and (
                path not in now or len(now[path][1]) != before or done.returncode == 0
                and self.promise != "silent"):
            broken["lost"] = f"{path} is neither the old nor the new one"
        return broken, done

    def judge(self, call, number, fault):
        """Injects a fault. Returns what it broke, at most one text of a kind; and the process."""
        if call == "memory":
            return self.judge_memory(number)
        result, done = self.inject(call, number, fault)
        after = look(self.tree)
        now, old, new = ({path: self.state(tree, path, call != "rights")
                          for path in self.old.keys() | self.new.keys()}
                         for tree in (after, self.old, self.new))
        broken, between = {}, False
        for path in sorted(self.old.keys() | self.new.keys()):
            if now[path] in (old[path], new[path]):
                backup = path + ".bak"
                if backup in self.new and old[path] != now[path] and \
                        now[backup] != new[backup] and \
                        self.old[path][1] not in (each[1] for each in after.values()):
                    broken["lost"] = f"{path} is written without {backup}"
            elif path in self.changed and self.may_be_between(path, now[path], result, done):
                between = True
            else:
                broken.setdefault("lost", describe(path, now[path], old[path], new[path]))
        # A list of folders that cannot be read is passed over.
        undone = sorted(path for path in self.changed if now[path] != new[path]
                        and (self.promise != "steps" or not re.search(LISTED, path)))
        all_new = not undone
        # Whoever cannot look afterwards cannot tell success.
        looked = self.name.startswith("kvarnio-") and (
            call == "rights" or (call, number, False) in self.calls)
        if isinstance(result, str):
            broken["false"] = result
        elif result and not all_new and self.promise != "silent":
            broken["false"] = f"success, and {undone[0]} is not written"
        elif result is False and all_new and self.promise not in ("pass", "steps") and not looked:
            broken["false"] = "failure, and all is written"
        if after != self.old:
            self.run()
            after_next = look(self.tree)
            self.reset(after_next)
            if "lost" not in broken:
                mended = result is False or (between and self.promise == "pass")
                self.judge_next_run(after_next, mended, broken)
        return broken, done

    def may_be_between(self, path, now, result, done):
        """A pass that has begun, or an INI file that has got some of its keys."""
        new = self.new.get(path, (0, b"", 0))[1]
        if self.promise == "pass" and now is not None:
            kept = done.stdout.split() if result is None else []
            header = new[:new.index(b"*\r\n") + 3] if path.endswith("KODFIL.DAT") else b""
            return new.startswith(now[1]) and now[1].startswith(header) and \
                all(record in now[1] for record in kept)
        if path == f"{USER}/Markvida.ini" and now is not None:
            lines, old, new = (text.split(b"\r\n") for text in (now[1], USER_INI, new))
            names = [line.split(b"=")[0] for line in lines]
            return all(line.split(b"=")[0] in names for line in old) and set(lines) <= {*old, *new}
        return False

    def judge_next_run(self, after, mended, broken):
        """The next, undisturbed run leaves nothing of this one's, and what this one did not do."""
        for path in sorted(self.new.keys() | after.keys()):
            if "kvarnio-removed-" in path:
                continue  # what is kept for the user
            if path not in self.new.keys() | self.newer.keys():
                name = re.sub(r"\d+-\d+", "N", path)
                broken.setdefault("leftover", f"{name} stays")
            elif not mended and self.state(after, path, False) not in (
                    self.state(self.new, path, False), self.state(self.newer, path, False)):
                broken.setdefault("leftover", f"{path} is not what the next run makes")


def describe(path, now, old, new):
    return f"{path} is " + ("gone" if now is None else "changed by mistake" if old == new else
                            "empty" if now[1] == b"" else
                            "there with other rights" if now[1] in ((old or new)[1], (new or old)[1])
                            else "neither the old nor the new one")


# --- Several writers -----------------------------------------------------------------------------

def write_together(operation, writers, rounds):
    """Writers with delays, and a reader that looks all the time: it sees whole contents alone."""
    target = f"{operation.tree}/{SHARED[operation.name]}"
    old, alone = content_of(target), []
    for writer in range(writers):
        operation.run(values=[str(10 ** writer)])
        alone.append(content_of(target))
        operation.reset(look(operation.tree))
    found = []
    for turn in range(rounds):
        running = [start_slowly(operation, writer, turn) for writer in range(writers)]
        seen = set()
        while any([process.poll() is None for process in running]):
            seen.add(content_of(target))
        last = content_of(target)
        for content in {last, *seen} - {old, *alone}:
            what = "no file" if content is None else f"{len(content)} bytes of a file"
            found.append(("lost", f"a reader sees {what}"))
        succeeded = [alone[i] for i in range(writers) if running[i].returncode == 0]
        if last not in (succeeded or [old]):
            found.append(("false", "the content at the end is that of no writer that succeeded"))
        operation.run()
        after = look(operation.tree)
        found += [("leftover", f"{path} stays") for path in after if path not in operation.old]
        operation.reset(after)
    return found


def start_slowly(operation, writer, turn):
    # Half a second is how long a writer waits for another one's temporary file.
    calls, delay = "write,fsync,rename", [700000, 1000, 30000, 250000][(writer + turn) % 4]
    return subprocess.Popen(
        ["strace", "-f", "--seccomp-bpf", "-o", "/dev/null", "-e", f"trace={calls}", "-e",
         f"inject={calls}:delay_enter={delay}", *operation.command, str(10 ** writer)],
        cwd="/", env=environment(operation.tree), stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


# --- All of it -----------------------------------------------------------------------------------

def all_operations():
    listed = subprocess.run([FAULTOPS, "--list"], check=True, capture_output=True, text=True).stdout
    for name, promise, absent in (line.split("\t") for line in listed.splitlines()):
        yield Operation(name, promise, absent, [FAULTOPS, name])
    for name, (promise, absent, arguments) in TOOL.items():
        yield Operation("kvarnio-" + name, promise, absent, [KVARNIO, *arguments])


def inject_all(operation, short):
    """A row of the table: a name, the number of injections, and what broke."""
    injections = list(operation.injections(short))
    return operation.name, len(injections), [
        (kind, text, injection) for injection in injections
        for kind, text in operation.judge(*injection)[0].items()]


def rows_of(operation, work, short):
    operation.prepare(work)
    rows = [inject_all(operation, short)]
    for writers in [2, 8] if operation.name in SHARED else []:
        rounds = 1 if short else 4
        rows.append((f"{operation.name}, {writers} writers", writers * rounds,
                     [(*each, (f"{writers} writers",))
                      for each in write_together(operation, writers, rounds)]))
    shutil.rmtree(operation.tree)
    return rows


def print_one(operation, injection):
    broken, done = operation.judge(*injection)
    print(done.stderr.decode("latin-1"), f"exit status {done.returncode}", broken, sep="")
    return 1 if broken else 0


def print_table(rows):
    kinds, causes, total = ["lost", "false", "leftover"], defaultdict(list), Counter()
    print(f"{'operation':28}{'injections':>11}{'lost':>8}{'false results':>15}{'leftovers':>11}")
    for name, count, broken in rows:
        counts = Counter(kind for kind, _, _ in broken)
        total += counts
        print(f"{name:28}{count:11}{counts['lost']:8}{counts['false']:15}{counts['leftover']:11}")
        for kind, text, injection in broken:
            causes[name, kind, text].append(" ".join(injection))
    for (name, kind, text), injections in causes.items():
        print(f"{name}: {kind}: {text}\n    {len(injections)} times: {'; '.join(injections[:4])}")
    print(f"{sum(count for _, count, _ in rows)} injections, {total['lost']} lost, "
          f"{total['false']} false results, {total['leftover']} leftovers")
    return 1 if total else 0


def main(arguments, operations, run):
    short = arguments[:1] == ["short"]
    name, *injection = arguments[short:] or [None]
    chosen = [each for each in operations if name in (None, each.name)]
    if not chosen or len(injection) not in (0, 3):
        raise SystemExit("usage: scripts/faults [windows] [short] [OPERATION [CALL NUMBER FAULT]]")
    memory = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
    with tempfile.TemporaryDirectory(prefix="kvarnprog-faults-", dir=memory) as work:
        os.chmod(work, 0o755)
        make_tree(f"{work}/tree")
        if injection:
            chosen[0].prepare(work)
            return print_one(chosen[0], injection)
        begin = time.time()
        status = print_table(run(chosen, work, short))
        print(f"{time.time() - begin:.0f} seconds", file=sys.stderr)
        return status


def run_at_once(operations, work, short):
    with multiprocessing.Pool() as pool:
        jobs = [pool.apply_async(rows_of, (each, work, short)) for each in operations]
        return [row for job in jobs for row in job.get()]


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:], list(all_operations()), run_at_once))
