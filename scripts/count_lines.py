#!/usr/bin/env python3
"""Lines of code and of tests, per folder: the project keeps tests at a quarter
to a third of the code.

Counts non-blank, non-comment lines of .cpp/.h files. A test file is one under
a tests/ folder or named *_test* or test_*; everything else is code. Library
files are grouped by subsystem folder, the rest by top-level folder.

    scripts/count_lines.py [ROOT]
"""
import os, re, sys, collections
root = sys.argv[1] if len(sys.argv) > 1 else os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
def lines(path):
    n = 0; inblock = False
    for line in open(path, errors='replace'):
        s = line.strip()
        if inblock:
            if '*/' in s:
                inblock = False; s = s.split('*/', 1)[1].strip()
            else: continue
        if s.startswith('/*'):
            if '*/' not in s: inblock = True; continue
            s = s.split('*/', 1)[1].strip()
        if not s or s.startswith('//'): continue
        n += 1
    return n
code = collections.Counter(); test = collections.Counter()
for dp, dn, fn in os.walk(root):
    dn[:] = [d for d in dn if not d.startswith('build') and d != '.git']
    for f in fn:
        if not re.search(r'\.(cpp|h|hpp|cc)$', f): continue
        p = os.path.join(dp, f); rel = os.path.relpath(p, root)
        parts = rel.split(os.sep)
        sub = parts[2] if parts[0] == 'libs' and len(parts) > 3 else parts[0]
        istest = 'tests' in parts[:-1] or '_test' in f or f.startswith('test_')
        (test if istest else code)[sub] += lines(p)
tc, tt = sum(code.values()), sum(test.values())
for k in sorted(set(code) | set(test)):
    print(f"{k:12s} code {code[k]:6d} test {test[k]:6d}")
print(f"TOTAL code {tc} test {tt} ratio test/code {tt/tc:.2%}  test/(all) {tt/(tc+tt):.2%}")
