#!/usr/bin/env python3
"""Plays scenario files through `station drive` and checks its answers.

A line that begins with ">" goes to the program. The lines that begin with "<" after it say what its answer must hold:
every key of an expected object must be there with the expected value, lists must have the same length, and the text
"..." stands for any value. Lines that continue one of these begin with white space. Everything else is prose.

    run_scenarios.py STATION FILE...
"""

import json
import os
import subprocess
import sys
import tempfile


def steps_of(path):
    """Yields (line number, line to send, expected answer or None)."""
    blocks = []
    with open(path, encoding="utf-8") as file:
        for number, text in enumerate(file, 1):
            if text[:2] in ("> ", "< "):
                blocks.append([number, text[0], text[2:].strip()])
            elif text[:1].isspace() and text.strip() and blocks:
                blocks[-1][2] += " " + text.strip()
            else:
                blocks.append([number, "", ""])
    blocks = [block for block in blocks if block[1]]
    for index, (number, kind, text) in enumerate(blocks):
        if kind == ">":
            answered = index + 1 < len(blocks) and blocks[index + 1][1] == "<"
            yield number, text, json.loads(blocks[index + 1][2]) if answered else {"ok": True}


def difference(expected, actual, where="answer"):
    """What is wrong with the answer, or None."""
    if expected == "...":
        return None
    if isinstance(expected, dict):
        if not isinstance(actual, dict):
            return f"{where}: expected an object, got {json.dumps(actual)}"
        for key, value in expected.items():
            if key not in actual:
                return f"{where}.{key}: is missing"
            found = difference(value, actual[key], f"{where}.{key}")
            if found:
                return found
        return None
    if isinstance(expected, list):
        if not isinstance(actual, list) or len(actual) != len(expected):
            return f"{where}: expected {json.dumps(expected)}, got {json.dumps(actual)}"
        for index, pair in enumerate(zip(expected, actual)):
            found = difference(*pair, f"{where}[{index}]")
            if found:
                return found
        return None
    same = expected == actual and isinstance(expected, bool) == isinstance(actual, bool)
    return None if same else f"{where}: expected {json.dumps(expected)}, got {json.dumps(actual)}"


def play(station, path):
    """The faults of one scenario, each with its line."""
    steps = list(steps_of(path))
    if not steps:
        return ["holds no line to send"]
    with tempfile.TemporaryDirectory() as folder:
        run = subprocess.run([station, "drive"], input="\n".join(text for _, text, _ in steps), text=True,
                             capture_output=True, cwd=folder, timeout=120,
                             env={**os.environ, "HOME": folder, "QT_QPA_PLATFORM": "offscreen"})
    faults = []
    answers = run.stdout.splitlines()
    if run.returncode != 0:
        faults.append(f"exit status {run.returncode}: {run.stderr.strip()[-2000:]}")
    if len(answers) != len(steps):
        faults.append(f"{len(steps)} lines sent, {len(answers)} answers")
    for (number, text, expected), answer in zip(steps, answers):
        found = difference(expected, json.loads(answer))
        if found:
            faults.append(f"line {number}: {text[:100]}\n      {found}")
    return faults


def main():
    station, *paths = sys.argv[1:]
    failed = 0
    for path in sorted(paths):
        faults = play(os.path.abspath(station), path)
        print(("FAILED " if faults else "ok     ") + os.path.basename(path))
        for fault in faults:
            print("    " + fault)
        failed += bool(faults)
    print(f"{len(paths) - failed} passed, {failed} failed")
    return 1 if failed or not paths else 0


if __name__ == "__main__":
    sys.exit(main())
