"""Injects faults into the library's writing operations, and judges what each leaves: scripts/faults."""
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
from collections import Counter

SOURCE = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
BUILD = os.path.join(SOURCE, "build/linux")
FAULTOPS = os.path.join(BUILD, "bin/faultops")
KVARNIO = os.path.join(BUILD, "bin/kvarnio")
SHORT_WRITES = os.path.join(BUILD, "tests/faults/libshortwrites.so")
NOBODY = 65534

CHANGING = set("""write pwrite64 writev ftruncate fallocate fsync fdatasync rename renameat renameat2
    link symlink unlink unlinkat mkdir mkdirat rmdir chmod fchmod fchmodat chown fchown fchownat
    utimensat copy_file_range sendfile close""".split())
LOOKING = set("""openat stat lstat newfstatat fstat statx access faccessat faccessat2 readlink read
    pread64 getdents64 lseek""".split())
FAULTS = ["ENOSPC", "EIO", "EACCES", "ENOSPC+", "EIO+", "EACCES+"]  # +: from then on

HOME = ["--home", r"C:\Kvarnbok", "--cfg", r"C:\Kvarnbok\Cfg"]
VAG27 = [*HOME, "--project", r"C:\Projekt\Vag27"]
HAMNKAJEN = [*HOME, "--project", r"C:\Projekt\Hamnkajen"]
STAMPEL = r"C:\Projekt\Vag27\STAMPEL.PAR"
# The tool's: name, arguments, files that are absent first.
TOOL = [
    ("set", ["set", "KVARNBOK.PAR", "HSKALA", "333", *VAG27], ""),
    ("set-int", ["set", "KLIPPBOK.PAR", "HSKALA", "333", "--int", *VAG27], ""),
    ("set-double", ["set", "KVARNBOK.CFG", "SPARTID", "7.25", "--double", "2", *HOME], ""),
    ("set-jb23", ["set", "JB23.PAR", "KRAFTSKALA", "333", *VAG27], ""),
    ("set-jb23-new", ["set", "JB23.PAR", "KRAFTSKALA", "333", *VAG27], "c/*/JB23.PAR"),
    ("set-with-losses", ["set", "KVARNBOK.PAR", "HSKALA", "333", *HAMNKAJEN], ""),
    ("codes-add-kodfil", ["codes", "add", "kodfil", "Ny", "Nytt", *VAG27], ""),
    ("codes-add-miljkod", ["codes", "add", "miljkod", "3", "NY", "Nytt", *VAG27], ""),
    ("codes-set-linkod", ["codes", "set", "linkod", "VAGK", "STRECKAD", "0.7", *VAG27], ""),
    ("codes-remove-stamp", ["codes", "remove", "stamp", STAMPEL, "RITAD", *VAG27], ""),
    ("codes-with-losses", ["codes", "add", "linkod", "NY", "STRECKAD", "0.7", *HAMNKAJEN], ""),
    ("codes-update", ["codes", "update", *VAG27], "c/Projekt/Vag27/MILJKOD.DAT"),
    ("local-create", ["local", "create", *VAG27], "c/Projekt/Vag27/*.PAR c/Projekt/Vag27/*.DAT"),
    ("local-overwrite", ["local", "create", "--overwrite", *VAG27], ""),
    ("local-rock", ["local", "create", "--rock", *VAG27], "c/Projekt/Vag27/KLIPPBOK.PAR"),
    ("local-remove", ["local", "remove", *VAG27], ""),
    ("project-create", ["project", "create", r"C:\Projekt\Ny", "--construction", "--folders",
                        *HOME], ""),
    ("env-first-start", ["env", "--bootstrap", "0", "AX", "--refresh", "--home", r"C:\Prog"],
     "c/Data/*"),
    ("road-plot", ["road", "plot", r"C:\Projekt\Vag27\KVARNBOK.DBF\VAG27.VL", "-o", "TREE/vag.svg",
                   *VAG27], ""),
]
# Several programs write the same file, each its own value.
SHARED = {"par-key": "c/Projekt/Vag27/KVARNBOK.PAR", "inst-jb23": "c/Projekt/Vag27/JB23.PAR",
          "area": "c/Projekt/Vag27/KVARNBOK.DBF/KVARNBOK.VL", "ini-key": "c/Kvarnbok/Markvida.ini",
          "road": "c/Projekt/Vag27/KVARNBOK.DBF/VAG27.VL", "registry-text": "registry.reg"}


# --- The folder tree -----------------------------------------------------------------------------

def look(folder, below=""):
    """Path to (rights, time, content) of everything in a folder; a folder has no content."""
    found = {}
    for entry in os.scandir(folder):
        path, status = below + entry.name, entry.stat(follow_symlinks=False)
        if entry.is_dir(follow_symlinks=False):
            found[path] = (status.st_mode, 0, None)
            found.update(look(entry.path, path + "/"))
        elif not entry.name.endswith(".lock"):  # the registry's token stays
            with open(entry.path, "rb") as file:
                found[path] = (status.st_mode, status.st_mtime_ns, file.read())
    return found


def restore(folder, wanted, found):
    for path in sorted(set(found) - set(wanted), reverse=True):
        os.rmdir(f"{folder}/{path}") if found[path][2] is None else os.unlink(f"{folder}/{path}")
    for path in sorted(wanted):
        if found.get(path) == wanted[path]:
            continue
        mode, changed, content = wanted[path]
        place = f"{folder}/{path}"
        if content is None:
            os.makedirs(place, exist_ok=True)
        else:
            with open(place, "wb") as file:
                file.write(content)
            os.utime(place, ns=(changed, changed))
        os.chmod(place, stat.S_IMODE(mode))


def make_tree(folder):
    """The sample drive, with a project that has all files, settings of users, and a registry."""
    drive = f"{folder}/c"
    shutil.copytree(f"{SOURCE}/samples/drives/c", drive)
    shared, own = f"{drive}/Kvarnbok/Cfg", f"{drive}/Projekt/Vag27"
    for name in os.listdir(shared):
        if not os.path.exists(f"{own}/{name}") and name != "Mappar.txt":
            shutil.copy(f"{shared}/{name}", own)
            with open(f"{shared}/{name}", "ab") as file:
                file.write(b"*\r\n")
    with open(f"{shared}/MILJKOD.DAT", "wb") as file:
        file.write(b"*\r\n*\r\nXRF R\r\n*\r\nKM K\r\n*\r\nAS A max=6 steg=1\r\n*\r\n")
    ini = b"[SYSTEM]\r\nACADEXE=old\r\nACADEXEA=a.exe\r\nMSG=C:\\none\\x.msg\r\n"
    user, older = "Data/Orsakor/Vallentra/Markvida/R20/AX", "Data/Brinvik/Vallentra/Markvida/R20/AX"
    everybody = "Gemensam/Orsakor/Vallentra/Markvida/AX"
    made = {f"{user}/Markvida.ini": ini, f"{user}/Kvarnbok.par": b"A=1\r\n", f"{user}/Plan.dat": b"old",
            f"{older}/Markvida.ini": ini, f"{older}/Kvarnbok.par": b"A=2\r\n",
            f"{everybody}/Markvida.ini": ini, f"{everybody}/Kvarnbok.par": b"A=3\r\n",
            f"{everybody}/Plan.dat": b"new", "Program/Orsakor/Binaries/x.dll": b"new",
            "Plattform/Binaries/x.dll": b"old", "Prog/x": b"", "Konf/Plan.dat": b"older"}
    ages = {"Gemensam": 20, "Program": 20, "Konf": 5}
    for path, content in made.items():
        os.makedirs(os.path.dirname(f"{drive}/{path}"), exist_ok=True)
        with open(f"{drive}/{path}", "wb") as file:
            file.write(content)
    subprocess.run([FAULTOPS, "install"], check=True, env=environment(folder))
    for path in look(folder):
        age = ages.get(path.split("/")[1] if "/" in path else "", 10)
        os.utime(f"{folder}/{path}", (age * 10**8, age * 10**8))


def environment(tree):
    return {"KVARNPROG_DRIVES": tree, "KVARNPROG_REGISTRY": f"{tree}/registry.reg",
            "HOME": f"{tree}/hem", "PATH": "/usr/bin:/bin", "LC_ALL": "C.UTF-8"}


# --- An operation --------------------------------------------------------------------------------

class Operation:
    def __init__(self, name, command, promise, absent):
        self.name, self.command, self.promise, self.absent = name, command, promise, absent.split()

    def prepare(self, work):
        """Makes the tree, and learns what an undisturbed run calls and changes."""
        self.tree, self.log = f"{work}/{self.name}/tree", f"{work}/{self.name}/log"
        os.makedirs(os.path.dirname(self.tree), exist_ok=True)
        shutil.copytree(f"{work}/tree", self.tree)
        for path in sorted(look(self.tree), reverse=True):
            if any(fnmatch.fnmatchcase(path, pattern) for pattern in self.absent):
                place = f"{self.tree}/{path}"
                os.unlink(place) if os.path.isfile(place) else shutil.rmtree(place)
        self.old = look(self.tree)
        calls = ",".join("?" + call for call in sorted(CHANGING | LOOKING))
        done = self.run(["strace", "-f", "-y", "-s", "0", "-o", self.log, "-e", f"trace={calls}"])
        self.calls, self.touched = self.traced()
        self.new = look(self.tree)
        self.run()
        self.newer = look(self.tree)  # by a second run
        self.changed = {path for path in {**self.old, **self.new}
                        if state(self.old, path) != state(self.new, path)}
        if done.returncode != 0 or not self.changed:
            raise SystemExit(f"{self.name} does nothing undisturbed: {done}")
        self.reset(self.newer)

    def traced(self):
        """The calls that meet the tree, each with its number among its like; and its paths."""
        calls, counts, touched = [], Counter(), set()
        with open(self.log, encoding="latin-1") as log:
            for line in log:
                match = re.match(r"\d+ +(\w+)\((.*)", line)
                if match:
                    call, arguments = match.groups()
                    counts[call] += 1
                    if self.tree in line or "/proc/self/fd/" in line:
                        changes = call in CHANGING or bool(re.search("O_CREAT|O_TRUNC", arguments))
                        calls.append((call, counts[call], changes))
                        touched.update(re.findall(re.escape(self.tree) + r'/([^">]+)', line))
        return calls, {path.rstrip("/") for path in touched} & set(self.old)

    def run(self, before=(), values=(), **how):
        if os.path.exists(f"{self.tree}/registry.reg"):
            os.chmod(f"{self.tree}/registry.reg", 0o644)  # just changed: it is always read anew
        how.setdefault("env", environment(self.tree))
        command = [word.replace("TREE", self.tree) for word in [*before, *self.command, *values]]
        return subprocess.run(command, cwd="/", capture_output=True, timeout=60, check=False, **how)

    def reset(self, found):
        restore(self.tree, self.old, found)

    def injections(self, short):
        for index, (call, number, changes) in enumerate(self.calls):
            faults = [FAULTS[index % len(FAULTS)]] if short else FAULTS
            kill = ["KILL"] if changes or not short else []
            for fault in [*faults, *kill]:
                yield call, str(number), fault
        largest = max(len(self.new[path][2] or b"") for path in self.changed if path in self.new) \
            if self.changed & set(self.new) else 0
        for size in range(0, largest + 1, max(1, largest // (6 if short else 200))):
            yield "size", str(size), "ENOSPC"
            yield "size", str(size), "KILL"
        yield "write", "all", "short"
        for path in sorted(self.touched):
            folder = self.old[path][2] is None
            if not short or path in self.changed or folder:
                for rights in ["555", "0", "311"] if folder else ["444", "0", "222"]:
                    yield "rights", path, rights
        yield "rights", "all", "others"

    def inject(self, call, number, fault):
        """True and False: what the operation reported; None: it was killed; "crashed" else."""
        if call == "size":
            done = self.run(preexec_fn=lambda: resource.setrlimit(
                resource.RLIMIT_FSIZE, (int(number), int(number))), restore_signals=fault == "KILL")
        elif fault == "short":
            done = self.run(env=dict(environment(self.tree), LD_PRELOAD=SHORT_WRITES))
        elif call == "rights":
            done = self.without_rights(number, fault)
        else:
            how = "signal=KILL" if fault == "KILL" else "error=" + fault.rstrip("+")
            when = number + ("+" if fault.endswith("+") else "")
            done = self.run(["strace", "-f", "--seccomp-bpf", "-s", "0", "-o", self.log, "-e",
                             f"trace={call}", "-e", f"inject={call}:{how}:when={when}"])
            with open(self.log, encoding="latin-1") as log:
                if fault != "KILL" and "INJECTED" not in log.read():
                    return "not reached", done
        killed = done.returncode in (-9, -25) and fault == "KILL"
        crashed = done.returncode < 0 and not killed
        return "crashed" if crashed else None if killed else done.returncode == 0, done

    def without_rights(self, path, rights):
        """As another user, where this one may do everything."""
        user = {"user": NOBODY, "group": NOBODY, "extra_groups": []} if os.geteuid() == 0 else {}
        every = [f"{self.tree}/{each}" for each in self.old]
        if path == "all":  # files of somebody else, in folders where nothing can be made
            for each in every:
                os.chmod(each, 0o555 if os.path.isdir(each) else 0o666)
        else:
            for each in every if user else []:
                os.chown(each, NOBODY, NOBODY)
            os.chmod(f"{self.tree}/{path}", int(rights, 8))
        try:
            return self.run(**user)
        finally:
            for each in self.old if path == "all" else [path]:
                if os.path.exists(f"{self.tree}/{each}"):
                    os.chmod(f"{self.tree}/{each}", stat.S_IMODE(self.old[each][0]))

    # --- What is promised

    def judge(self, call, number, fault):
        """Injects a fault; what it broke, as pairs of kind and text."""
        result, done = self.inject(call, number, fault)
        after = look(self.tree)
        broken = []
        partly = False
        for path in {**self.old, **self.new, **after}:
            now = state(after, path)
            if now in (state(self.old, path), state(self.new, path)) or path not in self.known():
                continue
            elif path in self.changed and self.may_be_in_between(path, now, result, done):
                partly = True
            else:
                broken.append(("lost", f"{path} is {description(self.old, self.new, path, now)}"))
        for path in self.changed:
            backup = path + ".bak"
            if backup in self.new and self.is_new(after, path) and not self.is_new(after, backup):
                broken.append(("lost", f"{path} is written and its copy {backup} is not"))
        all_new = all(self.is_new(after, path) for path in self.changed)
        if isinstance(result, str):
            broken.append(("false", result))
        elif result is True and not all_new and self.promise != "silent":
            broken.append(("false", "success, and not all is written"))
        elif result is False and all_new and self.promise != "pass":
            broken.append(("false", "failure, and all is written"))
        if after != self.old:
            broken += self.judge_next_run(after, partly)
        return broken, done

    def judge_next_run(self, after, partly):
        self.run()
        next_ = look(self.tree)
        self.reset(next_)
        broken = []
        for path in {**self.new, **next_}:
            if path not in {**self.new, **self.newer}:
                name = re.sub(r"\d+-\d+", "N", path)
                broken.append(("leftover", f"{name} stays"))
            elif not (partly and self.promise == "pass") and \
                    state(next_, path) not in (state(self.new, path), state(self.newer, path)):
                broken.append(("leftover", f"{path} is not mended by the next run"))
        return broken

    def known(self):
        return self.old.keys() | self.new.keys()

    def is_new(self, after, path):
        return state(after, path) == state(self.new, path)

    def may_be_in_between(self, path, now, result, done):
        """A pass that has begun, or an INI file that has got some of its keys."""
        if now is None or now[1] is None or path not in self.new:
            return False
        old, new, content = self.old.get(path, (0, 0, b""))[2], self.new[path][2], now[1]
        if self.promise == "pass":
            kept = done.stdout.split(b"\n")[:-1] if result is None else []
            header = new[:new.index(b"*\r\n")] if path.endswith("KODFIL.DAT") else b""
            return new.startswith(content) and content.startswith(header) and \
                all(record in content for record in kept)
        if path.endswith("Markvida.ini"):
            first = (old or b"[SYSTEM]\r\nACADEXE=old\r\nACADEXEA=a.exe\r\nMSG=C:\\none\\x.msg\r\n")
            keys = [line.split(b"=")[0] for line in content.split(b"\r\n")]
            return all(line.split(b"=")[0] in keys for line in first.split(b"\r\n")) and \
                all(line in (first + new).split(b"\r\n") for line in content.split(b"\r\n"))
        return False


def state(tree, path):
    """Rights and content; none where there is no such file."""
    return (tree[path][0], tree[path][2]) if path in tree else None


def description(old, new, path, now):
    if now is None:
        return "gone"
    was = state(old, path)
    if path in old and path in new and state(new, path) == was:
        return "changed, which is not the operation's" + ("" if now[1] != was[1] else " (rights)")
    if now[1] in ((was or (0, 0))[1], (state(new, path) or (0, 0))[1]):
        return "there with other rights"
    return "empty" if not now[1] else "neither the old nor the new one"


# --- Several writers -----------------------------------------------------------------------------

def write_together(operation, writers, rounds):
    """Writers with delays, and a reader that looks all the time: it sees whole contents alone."""
    target = f"{operation.tree}/{SHARED[operation.name]}"
    old = content_of(target)
    alone = []
    for writer in range(writers):
        operation.run(values=[str(10 ** writer)])
        alone.append(content_of(target))
        operation.reset(look(operation.tree))
    broken = []
    for turn in range(rounds):
        running = [start_slowly(operation, writer, turn) for writer in range(writers)]
        seen = set()
        while any(process.poll() is None for process in running):
            seen.add(content_of(target))
        seen.add(content_of(target))
        for content in seen - {old, *alone}:
            broken.append(("lost", "a reader sees " + ("half a file" if content else
                                                       "no file" if content is None else "an empty file")))
        succeeded = [alone[i] for i in range(writers) if running[i].returncode == 0]
        if content_of(target) not in (succeeded or [old]):
            broken.append(("false", "what is there at the end is of no writer that reported success"))
        if len(succeeded) < writers:
            broken.append(("false", "a writer fails though nothing hinders it"))
        operation.run()
        after = look(operation.tree)
        broken += [("leftover", "a file stays") for path in after if path not in operation.known()]
        operation.reset(after)
    return broken


def start_slowly(operation, writer, turn):
    delay = 1000 * (1 + (writer * 7 + turn * 5) % 23)  # microseconds
    command = ["strace", "-f", "--seccomp-bpf", "-o", "/dev/null", "-e", "trace=write,fsync,rename",
               "-e", f"inject=write,fsync,rename:delay_enter={delay}"]
    return subprocess.Popen([*command, *operation.command, str(10 ** writer)], cwd="/",
                            env=environment(operation.tree), stderr=subprocess.DEVNULL)


def content_of(path):
    try:
        with open(path, "rb") as file:
            return file.read()
    except FileNotFoundError:
        return None


# --- All of it -----------------------------------------------------------------------------------

def all_operations():
    listed = subprocess.run([FAULTOPS, "--list"], check=True, capture_output=True, text=True).stdout
    for line in listed.splitlines():
        name, promise, absent = line.split("\t")
        yield Operation(name, [FAULTOPS, name], promise, absent)
    for name, arguments, absent in TOOL:
        yield Operation("kvarnio-" + name, [KVARNIO, *arguments], "told", absent)


def run_one(operation, work, short):
    operation.prepare(work)
    injections = list(operation.injections(short))
    broken = [(kind, text, injection) for injection in injections
              for kind, text in operation.judge(*injection)[0]]
    rows = [(operation.name, len(injections), broken)]
    for writers in [2, 8] if operation.name in SHARED else []:
        rounds = 1 if short else 10
        found = write_together(operation, writers, rounds)
        rows.append((f"{operation.name}, {writers} writers", writers * rounds,
                     [(*each, ("writers", str(writers), "")) for each in found]))
    shutil.rmtree(os.path.dirname(operation.tree))
    return rows


def print_table(rows):
    kinds = ["lost", "false", "leftover"]
    print(f"{'operation':34}{'injections':>11}{'lost':>7}{'false':>7}{'left over':>11}")
    for name, count, broken in rows:
        lost, false, left = (sum(each[0] == kind for each in broken) for kind in kinds)
        print(f"{name:34}{count:11}{lost:7}{false:7}{left:11}")
    causes = {}
    for name, _, broken in rows:
        for kind, text, injection in broken:
            causes.setdefault((name, kind, text), []).append(injection)
    for (name, kind, text), injections in causes.items():
        some = "; ".join(" ".join(injection) for injection in injections[:3])
        print(f"\n{name}, {kind}: {text}: {len(injections)} times\n    {some}", end="")
    total = [sum(each[0] == kind for row in rows for each in row[2]) for kind in kinds]
    print(f"\n{sum(row[1] for row in rows)} injections, {total[0]} lost, {total[1]} false results, "
          f"{total[2]} leftovers")
    return 1 if any(total) else 0


def rerun(operation, work, injection):
    operation.prepare(work)
    broken, done = operation.judge(*injection)
    print(done.stderr.decode("utf-8", "replace"), end="")
    print(f"exit status {done.returncode}", *[f"{kind}: {text}" for kind, text in broken], sep="\n")
    return 1 if broken else 0


def main(arguments):
    short = arguments[:1] == ["short"]
    chosen = arguments[1:] if short else arguments
    operations = [each for each in all_operations() if not chosen or each.name == chosen[0]]
    shared_memory = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
    with tempfile.TemporaryDirectory(prefix="kvarnprog-faults-", dir=shared_memory) as work:
        os.chmod(work, 0o755)
        make_tree(f"{work}/tree")
        if len(chosen) == 4:
            return rerun(operations[0], work, chosen[1:])
        if not operations:
            raise SystemExit(f"there is no operation {chosen[0]}")
        begin = time.time()
        with multiprocessing.Pool() as pool:
            jobs = [pool.apply_async(run_one, (each, work, short)) for each in operations]
            rows = [row for job in jobs for row in job.get()]
        print(f"{time.time() - begin:.0f} seconds")
        return print_table(rows)


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
