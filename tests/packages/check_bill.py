#!/usr/bin/env python3
"""Checks a bill of materials against the rules of SPDX 2.3 that concern it, and against
this repository.

    check_bill.py BILL [FOLDER_OF_PROGRAMS]

Rules: the required fields of the document, of packages and of files; identifiers that
are well-formed and unique; relationships and checksums of known kinds, between elements
that exist; licences that the document may use. Programs: each with its checksum, and Qt
where the preview is. Repository, in the worker's bill: every pinned source with its
archive's checksum, every patch and every source of ours inside the libraries with the
checksum that it has. Each check is also run on a bill with that mistake, which it has
to find.
"""

import copy
import hashlib
import json
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
DOCUMENT_KEYS = {"spdxVersion", "dataLicense", "SPDXID", "name", "documentNamespace",
                 "creationInfo", "packages", "files", "relationships"}
PACKAGE_KEYS = {"SPDXID", "name", "downloadLocation", "filesAnalyzed", "licenseConcluded",
                "licenseDeclared", "copyrightText"}
FILE_KEYS = {"SPDXID", "fileName", "checksums", "licenseConcluded", "copyrightText"}
KINDS = {"DESCRIBES", "CONTAINS", "CONTAINED_BY", "STATIC_LINK", "DYNAMIC_LINK", "PATCH_FOR"}
LICENCES = {"GPL-3.0-or-later", "MIT", "Apache-2.0", "BSD-3-Clause", "ICU", "Unlicense", "Zlib",
            "GPL-3.0-or-later WITH GCC-exception-3.1", "ZPL-2.1", "LGPL-3.0-only", "GPL-2.0-only",
            "GPL-3.0-only", "NOASSERTION"}
PROGRAMS = ("dwg_import_worker", "crashpad_handler", "dwg_preview")
IDENTIFIER = re.compile(r"SPDXRef-[A-Za-z0-9.-]+")
MOMENT = re.compile(r"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ")
LENGTHS = {"SHA1": 40, "SHA256": 64}


def elements(bill):
    return bill["packages"] + bill["files"]


def form_faults(bill):
    for missing in sorted(DOCUMENT_KEYS - set(bill)):
        yield f"the document has no {missing}"
    if bill.get("spdxVersion") != "SPDX-2.3" or bill.get("dataLicense") != "CC0-1.0":
        yield "the document is not of SPDX 2.3"
    if not re.fullmatch(r"https?://[^#\s]+", bill.get("documentNamespace", "")):
        yield "the namespace is no address"
    creation = bill.get("creationInfo", {})
    if not MOMENT.fullmatch(creation.get("created", "")) or not creation.get("creators"):
        yield "the creation is not told"
    for keys, entries in ((PACKAGE_KEYS, bill["packages"]), (FILE_KEYS, bill["files"])):
        for entry in entries:
            for missing in sorted(keys - set(entry)):
                yield f"{entry.get('SPDXID')} has no {missing}"


def identifier_faults(bill):
    found = [entry.get("SPDXID", "") for entry in elements(bill)]
    for one in found:
        if not IDENTIFIER.fullmatch(one):
            yield f"{one!r} is no identifier"
        if found.count(one) > 1:
            yield f"{one} stands for several elements"
    known = {*found, "SPDXRef-DOCUMENT"}
    related = set()
    for relation in bill["relationships"]:
        ends = {relation["spdxElementId"], relation["relatedSpdxElement"]}
        related |= ends
        if relation["relationshipType"] not in KINDS:
            yield f"{relation['relationshipType']} is no relationship"
        for end in sorted(ends - known):
            yield f"a relationship names {end}, which is not there"
    for end in sorted(known - related):
        yield f"{end} is related to nothing"


def checksum_faults(bill):
    for entry in elements(bill):
        for checksum in entry.get("checksums", []):
            length = LENGTHS.get(checksum["algorithm"])
            if not re.fullmatch(f"[0-9a-f]{{{length}}}", checksum["checksumValue"]):
                yield f"{entry['SPDXID']} has a malformed checksum"
    for entry in bill["files"]:
        if "SHA1" not in [checksum["algorithm"] for checksum in entry.get("checksums", [])]:
            yield f"{entry['SPDXID']} has no SHA1, which files need"


def licence_faults(bill):
    own = {info["licenseId"] for info in bill.get("hasExtractedLicensingInfos", [])}
    for entry in elements(bill):
        for key in ("licenseConcluded", "licenseDeclared"):
            for licence in re.split(r" (?:OR|AND) ", entry.get(key, "NOASSERTION")):
                if licence not in LICENCES | own:
                    yield f"{entry['SPDXID']}: {licence} is no known licence"


def sha256(path):
    return hashlib.sha256(path.read_bytes()).hexdigest()


def checksum_of(entry):
    return next((checksum["checksumValue"] for checksum in entry.get("checksums", [])
                 if checksum["algorithm"] == "SHA256"), None)


def repository_faults(bill):
    packages = {f"{entry['name']}-{entry.get('versionInfo')}": checksum_of(entry)
                for entry in bill["packages"]}
    for line in (ROOT / "cmake/checksums/crates.sha256").read_text().splitlines():
        checksum, archive = line.split()
        if packages.get(archive.removesuffix(".crate")) != checksum:
            yield f"{archive} is not listed with its checksum"
    versions = re.findall(r"^set\(DWG_\w+_CRATE_VERSION ([\d.]+)\)", "\n".join(
        path.read_text() for path in (ROOT / "cmake").glob("*.cmake")), re.MULTILINE)
    for version in versions:
        if not any(name.endswith(f"-{version}") for name in packages):
            yield f"nothing of version {version}, which the build pins, is listed"
    files = {entry["fileName"].removeprefix("./"): checksum_of(entry) for entry in bill["files"]}
    for path in [*(ROOT / "cmake/patches").rglob("*.patch"),
                 *(ROOT / "cmake/libredwg").glob("*.[ch]")]:
        if files.get(path.relative_to(ROOT).as_posix()) != sha256(path):
            yield f"{path.name} is not listed with its checksum"


def program_faults(bill, folder):
    files = {entry["fileName"].removeprefix("./"): checksum_of(entry) for entry in bill["files"]}
    found = [path for name in PROGRAMS for path in [*folder.rglob(name), *folder.rglob(name + ".exe")]
             if path.is_file() and not path.is_symlink()]
    if not found:
        yield "there is no program beside the bill"
    for path in found:
        if files.get(path.name) != sha256(path):
            yield f"{path.name} is not listed with its checksum"
    if any(path.stem == "dwg_preview" for path in found) and not any(
            entry["name"] == "Qt" for entry in bill["packages"]):
        yield "Qt is not listed"


def is_of_worker(bill):
    return bill["packages"][0]["name"] == "dwg_import_worker"


def faults(bill):
    checks = [form_faults, identifier_faults, checksum_faults, licence_faults]
    if is_of_worker(bill):
        checks.append(repository_faults)
    return [fault for check in checks for fault in check(bill)]


def changed(bill, change):
    other = copy.deepcopy(bill)
    change(other)
    return other


def spoilt(bill):
    """Bills with one mistake each, by its name."""
    yield from ((name, changed(bill, change)) for name, change in mistakes_of_form())
    if is_of_worker(bill):
        yield "another source", changed(
            bill, lambda b: b["packages"][1]["checksums"][0].update(checksumValue="0" * 64))
        yield "a missing patch", changed(bill, lambda b: b["files"].remove(
            next(entry for entry in b["files"] if entry["fileName"].endswith(".patch"))))


def mistakes_of_form():
    yield "no namespace", (lambda b: b.pop("documentNamespace"))
    yield "another version", (lambda b: b.update(spdxVersion="SPDX-2.2"))
    yield "a package without a licence", (lambda b: b["packages"][1].pop("licenseDeclared"))
    yield "a wrong identifier", (lambda b: b["files"][0].update(SPDXID="SPDXRef-a_b"))
    yield "one identifier twice", (lambda b: b["files"].append(b["files"][0]))
    yield "a relationship to nothing", (
        lambda b: b["relationships"][-1].update(relatedSpdxElement="SPDXRef-none"))
    yield "an unknown relationship", (
        lambda b: b["relationships"][-1].update(relationshipType="LIKES"))
    yield "an unrelated file", (lambda b: b["relationships"].pop())
    yield "a malformed checksum", (
        lambda b: b["files"][0]["checksums"][0].update(checksumValue="00"))
    yield "a file without SHA1", (lambda b: b["files"][0]["checksums"].pop(0))
    yield "an unknown licence", (lambda b: b["packages"][0].update(licenseDeclared="GPL"))


def main():
    bill = json.loads(pathlib.Path(sys.argv[1]).read_text(encoding="utf-8"))
    found = faults(bill)
    if len(sys.argv) > 2:
        folder = pathlib.Path(sys.argv[2])
        found += program_faults(bill, folder)
        if not list(program_faults(changed(bill, lambda b: b["files"].clear()), folder)):
            found.append("not found although planted: a bill without programs")
    found += [f"not found although planted: {name}" for name, other in spoilt(bill)
              if not faults(other)]
    for fault in found:
        print(fault)
    print(f"{len(bill['packages'])} packages, {len(bill['files'])} files, {len(found)} faults")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
