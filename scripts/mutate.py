#!/usr/bin/env python3
"""A small mutation runner: does the suite notice a single-line fault?

Takes a seeded sample of single-line mutants spread over every source folder, applies
each in a copy of the checkout, rebuilds incrementally, runs the whole suite, and puts
the line back. Prints every survivor and the kill rate per folder.

    scripts/mutate.sh [SEED] [COUNT]      # default seed 1, 60 mutants
    MUTATE_DIR=/tmp/m scripts/mutate.sh   # where the copy and its build live
    scripts/mutate.sh 1 60 --list         # show the sample without running it
    scripts/mutate.sh 1 60 --at=REV --only=3,11   # mutants 3 and 11 of the sample taken at
                                          # commit REV, applied to HEAD where the line still is
"""
import os
import random
import re
import shutil
import subprocess
import sys
import time

FOLDERS = ["host", "bases", "mechanics", "electromagnetism", "optics", "circuit",
           "physicalobject", "apps/physboard", "apps/physlab"]

# (name, pattern, replacement); each is tried on the code outside string literals.
OPERATORS = [
    ("== to !=", r"==", "!="),
    ("!= to ==", r"!=", "=="),
    ("<= to <", r" <= ", " < "),
    (">= to >", r" >= ", " > "),
    # Only a spaced < or > compares; the others open and close templates.
    ("< to <=", r" < ", " <= "),
    ("> to >=", r" > ", " >= "),
    ("&& to ||", r"&&", "||"),
    ("|| to &&", r"\|\|", "&&"),
    ("true to false", r"\btrue\b", "false"),
    ("false to true", r"\bfalse\b", "true"),
    ("constant + 1", r"(?<![\w.])(\d+)(?![\w.])", None),
    ("negated condition", r"\bif \(", "if (!"),
    ("negated result", r"\breturn (?!;)", "return !"),
]
CALL = re.compile(r"^\s*[A-Za-z_][\w:>.\-]*\(.*\);\s*$")
SKIP = re.compile(r"^\s*(//|#|\*|/\*)|Q_OBJECT|static_assert|^\s*(case|default)\b")


def code_spans(line):
    """Index ranges of a line that lie outside string and character literals."""
    spans, start, quote, i = [], 0, None, 0
    while i < len(line):
        c = line[i]
        if quote:
            if c == "\\":
                i += 1
            elif c == quote:
                quote, start = None, i + 1
        elif c in "\"'":
            spans.append((start, i))
            quote = c
        elif line.startswith("//", i):
            spans.append((start, i))
            return spans
        i += 1
    if not quote:
        spans.append((start, len(line)))
    return spans


def mutations(line):
    """Every single change of one line: (description, new line)."""
    if SKIP.search(line) or not line.strip() or line.strip() in ("{", "}", "};"):
        return []
    out = []
    for name, pattern, repl in OPERATORS:
        for a, b in code_spans(line):
            for m in re.finditer(pattern, line[a:b]):
                s, e = a + m.start(), a + m.end()
                if repl is None:
                    new = str(int(m.group(1)) + 1)
                elif name == "negated result":
                    # A whole boolean or numeric expression on one line only.
                    if not line.rstrip().endswith(";") or "QString" in line or "return {" in line:
                        continue
                    new = repl
                else:
                    new = repl
                if "#include" in line or "template" in line:
                    continue
                out.append((name, line[:s] + new + line[e:]))
    if CALL.match(line) and "return" not in line and "=" not in line.split("(")[0]:
        out.append(("deleted call", re.sub(r"\S.*$", ";", line.rstrip("\n")) + "\n"))
    return out


def tree(root, rev):
    """The sources as they are in the checkout, or at commit `rev`: (files, read)."""
    if rev is None:
        def read(path):
            with open(path, encoding="utf-8") as f:
                return f.readlines()
        listed = []
        for folder in FOLDERS:
            for dirpath, _, names in os.walk(os.path.join(root, folder)):
                listed += [os.path.join(dirpath, n) for n in names]
        return listed, read

    def read_at(path):
        text = subprocess.run(["git", "show", f"{rev}:{os.path.relpath(path, root)}"], cwd=root,
                              check=True, capture_output=True).stdout.decode("utf-8")
        return text.splitlines(keepends=True)
    names = subprocess.run(["git", "ls-tree", "-r", "--name-only", rev, "--"] + FOLDERS, cwd=root,
                           check=True, capture_output=True, text=True).stdout.split()
    return [os.path.join(root, n) for n in names], read_at


def sample(root, seed, count, rev=None):
    rng = random.Random(seed)
    listed, read = tree(root, rev)
    per_folder = {}
    for folder in FOLDERS:
        prefix = os.path.join(root, folder) + os.sep
        per_folder[folder] = sorted(p for p in listed if p.startswith(prefix) and p.endswith(".cpp"))
    chosen, seen = [], set()
    k = 0
    while len(chosen) < count and k < count * 50:
        folder = FOLDERS[k % len(FOLDERS)]
        k += 1
        files = per_folder[folder]
        if not files:
            continue
        path = rng.choice(files)
        lines = read(path)
        candidates = [(i, m) for i, l in enumerate(lines) for m in mutations(l)]
        if not candidates:
            continue
        i, (name, new) = rng.choice(candidates)
        key = (path, i, new)
        if key in seen:
            continue
        seen.add(key)
        chosen.append((folder, os.path.relpath(path, root), i, name, lines[i], new))
    return chosen


def run(cmd, cwd, timeout):
    try:
        return subprocess.run(cmd, cwd=cwd, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                              timeout=timeout, env=dict(os.environ, QT_QPA_PLATFORM="offscreen")).returncode
    except subprocess.TimeoutExpired:
        return -1


def main():
    args = [a for a in sys.argv[1:] if not a.startswith("--")]
    options = dict(a[2:].split("=", 1) for a in sys.argv[1:] if a.startswith("--") and "=" in a)
    seed = int(args[0]) if args else 1
    count = int(args[1]) if len(args) > 1 else 60
    root = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
    mutants = list(enumerate(sample(root, seed, count, options.get("at")), 1))
    if "only" in options:
        wanted = {int(n) for n in options["only"].split(",")}
        mutants = [m for m in mutants if m[0] in wanted]
    if "--list" in sys.argv:
        for n, (folder, path, i, name, old, new) in mutants:
            print(f"[{n}] {path}:{i + 1}: {name}: {new.strip()}")
        return 0

    work = os.environ.get("MUTATE_DIR", f"/tmp/mutate-{os.getpid()}")
    copy = os.path.join(work, "src")
    if not os.path.isdir(copy):
        os.makedirs(work, exist_ok=True)
        subprocess.run(["git", "worktree", "add", "--detach", copy, "HEAD"], cwd=root, check=True)
    build = os.path.join(copy, "build")
    print(f"building the copy in {build} …", flush=True)
    os.environ.setdefault("CCACHE_BASEDIR", os.path.dirname(root))
    # One file at a time, so that a mutant rebuilds only the file it changed.
    if run(["cmake", "-S", copy, "-B", build, "-DCMAKE_BUILD_TYPE=RelWithDebInfo", "-DPHYS_UNITY=OFF"], copy, 600) != 0 or \
       run(["cmake", "--build", build, "-j2"], copy, 3600) != 0:
        print("the unmutated copy does not build", file=sys.stderr)
        return 2
    if run(["ctest", "--test-dir", build, "-j2"], copy, 1800) != 0:
        print("the unmutated suite fails; nothing to measure", file=sys.stderr)
        return 2

    killed, total, survivors, stillborn = {}, {}, [], 0
    for n, (folder, path, i, name, old, new) in mutants:
        target = os.path.join(copy, path)
        with open(target, encoding="utf-8") as f:
            lines = f.readlines()
        # A sample taken at another commit: the same line, wherever it is now.
        at = [j for j, line in enumerate(lines) if line == old]
        if not at:
            print(f"[{n}/{count}] {path}:{i + 1} {name}: the line is gone (not counted)", flush=True)
            continue
        i = min(at, key=lambda j: abs(j - i))
        lines[i] = new
        with open(target, "w", encoding="utf-8") as f:
            f.writelines(lines)
        t0 = time.time()
        try:
            if run(["cmake", "--build", build, "-j2"], copy, 1800) != 0:
                stillborn += 1
                verdict = "does not build (not counted)"
            else:
                total[folder] = total.get(folder, 0) + 1
                rc = run(["ctest", "--test-dir", build, "-j2", "--stop-on-failure", "--timeout", "300"], copy, 3600)
                if rc != 0:
                    killed[folder] = killed.get(folder, 0) + 1
                    verdict = "killed"
                else:
                    survivors.append(f"{path}:{i + 1}: {name}: {new.strip()}")
                    verdict = "SURVIVED"
        finally:
            lines[i] = old
            with open(target, "w", encoding="utf-8") as f:
                f.writelines(lines)
        print(f"[{n}/{count}] {path}:{i + 1} {name}: {verdict} ({time.time() - t0:.0f} s)", flush=True)
    run(["cmake", "--build", build, "-j2"], copy, 1800)

    print("\nsurvivors:")
    for s in survivors:
        print("  " + s)
    print("\nfolder                 killed")
    for folder in FOLDERS:
        if total.get(folder):
            print(f"  {folder:20} {killed.get(folder, 0)}/{total[folder]}")
    k, t = sum(killed.values()), sum(total.values())
    print(f"\nkill rate: {k}/{t} = {100.0 * k / max(1, t):.0f} % (seed {seed}; {stillborn} did not build)")
    return 0


if __name__ == "__main__":
    sys.exit(main())
