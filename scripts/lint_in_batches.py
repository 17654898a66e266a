#!/usr/bin/env python3
"""clang-tidy over many files, several of them at a time as one source.

    scripts/lint_in_batches.py BUILD < FILES

BUILD is a configured build folder; FILES are named from the repository's root, one a
line. Most of clang-tidy's time goes into the headers of the standard library, of
GoogleTest and of Qt, once for every source. Sources of one folder that are compiled alike
are therefore included into one source and linted together, which takes a third of the time. A
source that does not compile behind its predecessors, because it gives one of their names another
meaning, goes into the next batch. Of the checks only misc-unused-using-decls finds nothing this
way, as it looks at no included file; `scripts/lint.sh FILE` has it.

Exits with 1 when anything was found.
"""
import concurrent.futures
import json
import os
import re
import shlex
import shutil
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
CLANG_TIDY = "clang-tidy-14"
CLANG = "clang++"
# More make the first batch of a folder the last to end.
LARGEST_BATCH = 24


def compile_options(build):
    """The options that each file is compiled with, without the file and its object, as a tuple."""
    options = {}
    with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as file:
        for command in json.load(file):
            words = shlex.split(command["command"])[1:]
            options.setdefault(os.path.relpath(command["file"], ROOT),
                               tuple(words[:words.index("-o")]))
    return options


def nearest(file, options):
    """The options of the file, or of the one with the most similar name that is compiled."""
    likest = max(options, key=lambda other: len(os.path.commonprefix([file, other])))
    return options[likest]


def batches_of(files, options):
    """Files of one folder and of the same options, in equal parts of at most LARGEST_BATCH."""
    alike = {}
    for file in files:
        alike.setdefault((os.path.dirname(file), nearest(file, options)), []).append(file)
    for (_, words), group in alike.items():
        parts = -(-len(group) // LARGEST_BATCH)
        for part in range(parts):
            yield group[part::parts], words


class Batch:
    """Files that are linted as one source."""

    def __init__(self, folder, number, files, words):
        self.files, self.words = files, words
        here = os.path.dirname(files[0])
        # By this name the analyzer knows a source whose includes it shall look into.
        self.source = os.path.join(folder, here, f"UnifiedSource_{number}.cpp")
        os.makedirs(os.path.dirname(self.source), exist_ok=True)
        # clang-tidy looks for its checks beside the source and above it.
        while here:
            checks = os.path.join(ROOT, here, ".clang-tidy")
            if os.path.exists(checks):
                shutil.copy(checks, os.path.join(folder, here, ".clang-tidy"))
            here = os.path.dirname(here)
        self.write()

    def write(self):
        """Writes the source: an #include for each file, which stands in the line of its number."""
        with open(self.source, "w", encoding="utf-8") as file:
            for name in self.files:
                file.write(f'#include "{os.path.join(ROOT, name)}"'
                           "  // NOLINT(bugprone-suspicious-include)\n")

    def put_aside_what_clashes(self):
        """Takes out the files that do not compile behind those before them, and returns them."""
        aside = []
        while len(self.files) > 1:
            check = subprocess.run(
                [CLANG, "-fsyntax-only", "-w", "-ferror-limit=0", *self.words, self.source],
                capture_output=True, text=True, check=False)
            if check.returncode == 0:
                break
            places = re.escape(self.source) + r":(\d+)"
            clashing = {int(line) for line in re.findall(places, check.stderr)} or {2}
            # The first has nothing before it: what is wrong there is for clang-tidy to say.
            clashing = clashing - {1} or {len(self.files)}
            aside += [file for line, file in enumerate(self.files, 1) if line in clashing]
            self.files = [file for line, file in enumerate(self.files, 1) if line not in clashing]
            self.write()
        return aside


def lint(source, words):
    """Runs clang-tidy. Returns whether it found nothing, and prints what it found."""
    done = subprocess.run([CLANG_TIDY, "--quiet", source, "--", *words], capture_output=True,
                          text=True, check=False)
    if done.returncode != 0:
        print(done.stdout + done.stderr, flush=True)
    return done.returncode == 0


def lint_batch(folder, number, files, words):
    """Lints the files, and those that clash with others in batches of their own."""
    clean = True
    while files:
        batch = Batch(folder, number, files, words)
        files = batch.put_aside_what_clashes()
        # A name of one file may hide that of another, which it never meets.
        clean = lint(batch.source, [*words, "-Wno-shadow"]) and clean
    return clean


def main():
    """Lints the files of standard input; the exit code says whether they were clean."""
    build = os.path.abspath(sys.argv[1])
    files = sys.stdin.read().split()
    options = compile_options(build)
    folder = os.path.join(build, "lint")
    shutil.rmtree(folder, ignore_errors=True)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        results = [pool.submit(lint_batch, folder, number, group, words)
                   for number, (group, words) in enumerate(batches_of(files, options))]
        sys.exit(0 if all([result.result() for result in results]) else 1)


if __name__ == "__main__":
    main()
