#!/usr/bin/env python3
"""Reads drawings with ezdxf: audit.py FILE ... prints what its audit finds, and fails when that is anything."""

import sys

import ezdxf

findings = 0
for path in sys.argv[1:]:
    auditor = ezdxf.readfile(path).audit()
    for entry in auditor.errors + auditor.fixes:
        print(f"{path}: {entry.message}")
        findings += 1
sys.exit(1 if findings else 0)
