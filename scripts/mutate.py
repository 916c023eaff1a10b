#!/usr/bin/env python3
"""Mutation score of the test suite.

Draws source mutants of the library (never of tests, tools or benchmarks)
with a fixed seed, builds each one incrementally and runs both test
executables on it. A mutant is killed when a test fails, crashes or runs
past the time-out; a mutant that does not compile is discarded.

    scripts/mutate.py                       # 240 mutants, seed 1, 2 workers
    scripts/mutate.py --subsystem strings   # only mutants of one folder
    scripts/mutate.py --compare OLD.json    # also list what OLD killed and now survives

Each worker copies the working tree once into build/mutate/wN/src and builds
there (Release, no sanitizers, no exhaustive sweeps), so the tree you work in
is never touched. The same seed over the same library sources draws the same
mutants, whatever the tests look like: that is what makes two runs comparable.
Results: build/mutate/results.json and build/mutate/survivors.txt.
"""
import argparse
import hashlib
import json
import os
import random
import re
import shutil
import subprocess
import sys
import threading
import time

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
SUBSYSTEMS = ["host", "platform", "strings", "words", "scanner", "statement", "dates", "numbers"]
TEST_EXES = ["tests/txcommon_tests", "tests/txcommon_host_tests"]
# With ccache the workers share compiled objects: restoring a file after its
# mutant and preparing a second worker cost a cache look-up, not a compile.
LAUNCHER = ["-DCMAKE_CXX_COMPILER_LAUNCHER=ccache"] if shutil.which("ccache") else []


def library_sources():
    """(subsystem, path relative to ROOT) of every library .cpp that is not a test."""
    out = [("common", "libs/common/convert64.cpp")]
    for sub in SUBSYSTEMS:
        folder = os.path.join(ROOT, "libs/txCommon", sub)
        for name in sorted(os.listdir(folder)):
            if name.endswith(".cpp") and "_test" not in name:
                out.append((sub, f"libs/txCommon/{sub}/{name}"))
    return out


def mask_line(line, in_block):
    """The line with comments and literals blanked out (same length), and the
    block-comment state after it. Mutants are placed only on unmasked code."""
    out = []
    i, n = 0, len(line)
    while i < n:
        if in_block:
            end = line.find("*/", i)
            if end < 0:
                out.append(" " * (n - i))
                return "".join(out), True
            out.append(" " * (end + 2 - i))
            i, in_block = end + 2, False
        elif line.startswith("//", i):
            out.append(" " * (n - i))
            break
        elif line.startswith("/*", i):
            in_block = True
        elif line[i] in "\"'":
            quote, j = line[i], i + 1
            while j < n and line[j] != quote:
                j += 2 if line[j] == "\\" else 1
            j = min(j + 1, n)
            out.append(quote + " " * (j - i - 2) + (quote if j - i >= 2 else ""))
            i = j
        else:
            out.append(line[i])
            i += 1
    return "".join(out)[:n], in_block


RELATIONAL = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "=="}
STATEMENT = re.compile(r"^\s*(?:\+\+|--)?[A-Za-z_][\w.\->\[\]:]*(?:\s*(?:[-+*/|&^]?=)\s*[^=].*|\s*\(.*\)|\+\+|--);\s*$")
SKIP_STATEMENT = re.compile(r"^\s*(return|break|continue|goto|case|default|throw|using|typedef|static_assert)\b")
DECL = re.compile(r"^\s*(const\s+|static\s+|constexpr\s+|auto\b|unsigned\b|signed\b|int\b|long\b|short\b|char\b|bool\b|double\b|float\b|size_t\b|std::|[A-Z]\w*\s+[\w*&]+\s*=)")


def paren_end(text, start):
    depth = 0
    for k in range(start, len(text)):
        if text[k] == "(":
            depth += 1
        elif text[k] == ")":
            depth -= 1
            if depth == 0:
                return k
    return -1


def line_mutants(code, line):
    """Candidate (operator, column, old, new) mutants of one masked line."""
    found = []
    if code.lstrip().startswith("#"):
        return found
    for m in re.finditer(r"(?<=[\w)\]\s])\s(<=|>=|==|!=|<|>)\s(?=[\w(!\-'\"*&])", code):
        op = m.group(1)
        found.append(("relational", m.start(1), op, RELATIONAL[op]))
    for m in re.finditer(r"&&|\|\|", code):
        found.append(("logical", m.start(), m.group(), "||" if m.group() == "&&" else "&&"))
    for m in re.finditer(r"(?<=[\w)\]])\s([+-])\s(?=[\w(])", code):
        op = m.group(1)
        found.append(("arithmetic", m.start(1), op, "-" if op == "+" else "+"))
    for m in re.finditer(r"(?<![\w.'])(\d+)(?![\w.'])", code):
        value = int(m.group(1))
        found.append(("constant", m.start(1), m.group(1), str(value + 1 if value == 0 or value % 2 else value - 1)))
    for m in re.finditer(r"\b(if|while)\s*\(", code):
        open_at = code.index("(", m.start())
        close = paren_end(code, open_at)
        if close > 0:
            cond = line[open_at + 1:close]
            found.append(("negate", open_at + 1, cond, f"!({cond})"))
    if (STATEMENT.match(code) and not SKIP_STATEMENT.match(code) and not DECL.match(code)
            and code.count("(") == code.count(")")):
        stripped = line.strip()
        found.append(("delete", line.index(stripped), stripped, ";"))
    return found


def all_candidates():
    by_sub = {}
    for sub, rel in library_sources():
        in_block = False
        with open(os.path.join(ROOT, rel), encoding="latin-1") as fh:
            lines = fh.read().split("\n")
        for number, line in enumerate(lines, 1):
            code, in_block = mask_line(line, in_block)
            for op, col, old, new in line_mutants(code, line):
                by_sub.setdefault(sub, []).append(
                    {"file": rel, "line": number, "col": col, "op": op, "old": old, "new": new})
    return by_sub


def code_lines(rel):
    with open(os.path.join(ROOT, rel), encoding="latin-1") as fh:
        return sum(1 for s in fh if s.strip() and not s.strip().startswith("//"))


def draw(count, seed, only):
    """The sample: each subsystem's share of `count` follows its code size."""
    by_sub = all_candidates()
    size = {}
    for sub, rel in library_sources():
        size[sub] = size.get(sub, 0) + code_lines(rel)
    total = sum(size.values())
    rng = random.Random(seed)
    chosen = []
    for sub in sorted(by_sub):
        quota = max(2, round(count * size[sub] / total))
        pool = by_sub[sub]
        picked = rng.sample(pool, min(quota, len(pool)))
        for m in picked:
            m["subsystem"] = sub
            key = f"{m['file']}:{m['line']}:{m['col']}:{m['op']}:{m['new']}"
            m["id"] = hashlib.sha1(key.encode()).hexdigest()[:10]
        chosen.extend(picked)
    if only:
        chosen = [m for m in chosen if m["subsystem"] in only]
    return sorted(chosen, key=lambda m: (m["file"], m["line"], m["col"]))


def apply(text_lines, m):
    line = text_lines[m["line"] - 1]
    col, old = m["col"], m["old"]
    assert line[col:col + len(old)] == old, (m, line)
    copy = list(text_lines)
    copy[m["line"] - 1] = line[:col] + m["new"] + line[col + len(old):]
    return copy


def run(cmd, cwd, timeout):
    try:
        p = subprocess.run(cmd, cwd=cwd, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=timeout)
        return p.returncode, p.stdout.decode("latin-1")
    except subprocess.TimeoutExpired:
        return None, "time-out"


class Worker:
    def __init__(self, index, base):
        self.dir = os.path.join(base, f"w{index}")
        self.src = os.path.join(self.dir, "src")
        self.build = os.path.join(self.dir, "build")

    def prepare(self):
        if os.path.isdir(self.src):
            shutil.rmtree(self.src)
        files = subprocess.run(["git", "ls-files", "-co", "--exclude-standard"], cwd=ROOT,
                               stdout=subprocess.PIPE, check=True).stdout.decode().split("\n")
        for rel in filter(None, files):
            source = os.path.join(ROOT, rel)
            if os.path.isfile(source):
                os.makedirs(os.path.dirname(os.path.join(self.src, rel)), exist_ok=True)
                shutil.copy2(source, os.path.join(self.src, rel))
        code, out = run(["cmake", "-S", self.src, "-B", self.build, "-G", "Ninja",
                         "-DCMAKE_BUILD_TYPE=Release", "-DTXCOMMON_EXHAUSTIVE=OFF",
                         "-DTXCOMMON_BUILD_TOOLS=OFF", "-DTXCOMMON_WERROR=OFF"] + LAUNCHER, ROOT, 600)
        if code != 0:
            sys.exit("mutate: configure failed\n" + out)
        if self.build_tests(3600) != 0:
            sys.exit("mutate: the unmutated tree does not build")
        start = time.time()
        if self.run_tests(3600) != "survived":
            sys.exit("mutate: the unmutated tree fails its tests")
        return time.time() - start

    def build_tests(self, timeout):
        code, _ = run(["cmake", "--build", self.build, "-j", "1", "--target",
                       "txcommon_tests", "txcommon_host_tests"], ROOT, timeout)
        return code

    def run_tests(self, timeout):
        for exe in TEST_EXES:
            code, _ = run([os.path.join(self.build, exe), "--gtest_brief=1"], self.build, timeout)
            if code is None:
                return "killed (time-out)"
            if code != 0:
                return "killed"
        return "survived"

    def evaluate(self, m, timeout):
        path = os.path.join(self.src, m["file"])
        with open(path, encoding="latin-1") as fh:
            original = fh.read()
        try:
            with open(path, "w", encoding="latin-1") as fh:
                fh.write("\n".join(apply(original.split("\n"), m)))
            if self.build_tests(900) != 0:
                return "discarded"
            return self.run_tests(timeout)
        finally:
            with open(path, "w", encoding="latin-1") as fh:
                fh.write(original)
            now = time.time()
            os.utime(path, (now, now))


def report(results, out_dir, compare):
    counted = [r for r in results if r["status"] != "discarded"]
    print(f"{'subsystem':10s} {'killed':>6s} {'surv':>5s} {'disc':>5s} {'score':>7s}")
    subs = sorted({r["subsystem"] for r in results})
    for sub in subs + ["TOTAL"]:
        rs = [r for r in results if sub == "TOTAL" or r["subsystem"] == sub]
        killed = sum(r["status"].startswith("killed") for r in rs)
        surv = sum(r["status"] == "survived" for r in rs)
        disc = sum(r["status"] == "discarded" for r in rs)
        score = 100.0 * killed / max(1, killed + surv)
        print(f"{sub:10s} {killed:6d} {surv:5d} {disc:5d} {score:6.1f}%")
    with open(os.path.join(out_dir, "survivors.txt"), "w") as fh:
        for r in counted:
            if r["status"] == "survived":
                fh.write(f"{r['id']} {r['file']}:{r['line']} {r['op']}: {r['old']!r} -> {r['new']!r}\n")
    if compare:
        with open(compare) as fh:
            before = {r["id"]: r["status"] for r in json.load(fh)}
        lost = [r for r in counted if r["status"] == "survived" and before.get(r["id"], "").startswith("killed")]
        print(f"killed before, surviving now: {len(lost)}")
        for r in lost:
            print(f"  {r['id']} {r['file']}:{r['line']} {r['op']}: {r['old']!r} -> {r['new']!r}")


def main():
    ap = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    ap.add_argument("--seed", type=int, default=1)
    ap.add_argument("--count", type=int, default=240, help="mutants drawn before compile failures are discarded")
    ap.add_argument("--jobs", type=int, default=2, help="workers, each with its own copy and build folder")
    ap.add_argument("--subsystem", action="append", default=[], help="only mutants of this folder (repeatable)")
    ap.add_argument("--out", default=os.path.join(ROOT, "build/mutate"))
    ap.add_argument("--compare", help="results.json of an earlier run")
    ap.add_argument("--list", action="store_true", help="print the drawn mutants and stop")
    args = ap.parse_args()

    mutants = draw(args.count, args.seed, set(args.subsystem))
    if args.list:
        for m in mutants:
            print(f"{m['id']} {m['file']}:{m['line']} {m['op']}: {m['old']!r} -> {m['new']!r}")
        return
    os.makedirs(args.out, exist_ok=True)
    os.environ["CCACHE_BASEDIR"] = os.path.abspath(args.out)
    workers = [Worker(i, args.out) for i in range(args.jobs)]
    started = time.time()
    clean = max(w.prepare() for w in workers)
    timeout = max(30.0, 10 * clean)
    print(f"mutate: {len(mutants)} mutants, clean run {clean:.1f}s, time-out {timeout:.0f}s", flush=True)

    # Mutants of one file stay on one worker, so its object is rebuilt once per mutant.
    files = sorted({m["file"] for m in mutants})
    queues = [[m for m in mutants if files.index(m["file"]) % args.jobs == i] for i in range(args.jobs)]
    results, lock = [], threading.Lock()

    def work(worker, queue):
        for m in queue:
            status = worker.evaluate(m, timeout)
            with lock:
                results.append(dict(m, status=status))
                print(f"[{len(results)}/{len(mutants)}] {status:9s} {m['file']}:{m['line']} {m['op']}", flush=True)

    threads = [threading.Thread(target=work, args=(w, q)) for w, q in zip(workers, queues)]
    for t in threads:
        t.start()
    for t in threads:
        t.join()
    results.sort(key=lambda r: (r["file"], r["line"], r["col"]))
    with open(os.path.join(args.out, "results.json"), "w") as fh:
        json.dump(results, fh, indent=1)
    print(f"mutate: {time.time() - started:.0f}s")
    report(results, args.out, args.compare)


if __name__ == "__main__":
    main()
