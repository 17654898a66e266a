#!/usr/bin/env python3
"""Prints the bill of materials of a package: SPDX 2.3 as JSON.

    bill_of_materials.py --subject NAME --version V --epoch SECONDS
                         [--runtime NAME=VERSION=LICENCE]...
                         [--shared NAME=VERSION=LICENCE]... [PROGRAM...]

That of dwg_import_worker names every pinned source with the checksum of its archive
(cmake/checksums), what each of them carries, every patch and our own sources inside
LibreDWG. Each bill names the libraries of the building system that are linked in
(--runtime) or loaded at the start (--shared), and the programs. The same input gives the
same bytes. A pinned source that this script does not know ends it.
"""

import argparse
import hashlib
import json
import pathlib
import re
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
CHECKSUMS = ROOT / "cmake/checksums"
WORKER = "dwg_import_worker"

# What a crate carries of others' work that is linked in: name, version, licence. A
# version that its source does not tell is None.
CARRIED = {
    "libredwg-sys": ("GPL-3.0-or-later", [("LibreDWG", "0.14+", "GPL-3.0-or-later")]),
    "libmimalloc-sys": ("MIT", [("mimalloc", "2", "MIT")]),
    "sentry-contrib-native-sys": ("MIT OR Apache-2.0", [
        ("sentry-native", "0.4.9", "MIT"),
        ("crashpad", None, "Apache-2.0"),
        ("mini_chromium", None, "BSD-3-Clause"),
        ("linux-syscall-support", None, "BSD-3-Clause"),
        ("getopt", None, "LicenseRef-public-domain"),
        ("icu-utf", None, "ICU"),
        ("mpack", None, "MIT"),
        ("jsmn", None, "MIT"),
        ("stb_sprintf", None, "MIT OR Unlicense"),
    ]),
}
# The folders of patches, and what they are for.
PATCHED = {"libredwg": "libredwg-sys", "libredwg-speed": "libredwg-sys",
           "sentry-native": "sentry-contrib-native-sys"}
OWN_SOURCES = {"libredwg": "libredwg-sys", "sentry": "sentry-contrib-native-sys"}


def identifier(*words):
    return "SPDXRef-" + re.sub(r"[^A-Za-z0-9.-]+", "-", "-".join(words))


def digest(data, name):
    return {"algorithm": name.upper(), "checksumValue": hashlib.new(name, data).hexdigest()}


def package(name, version, licence, **more):
    entry = {"SPDXID": identifier("Package", name), "name": name,
             "downloadLocation": "NOASSERTION", "filesAnalyzed": False,
             "licenseConcluded": licence, "licenseDeclared": licence,
             "copyrightText": "NOASSERTION", **more}
    if version is not None:
        entry["versionInfo"] = version
    return entry


def file(kind, name, data):
    return {"SPDXID": identifier("File", kind, name), "fileName": f"./{name}",
            "checksums": [digest(data, "sha1"), digest(data, "sha256")],
            "licenseConcluded": "GPL-3.0-or-later", "copyrightText": "NOASSERTION"}


def relation(one, kind, other):
    return {"spdxElementId": one, "relationshipType": kind, "relatedSpdxElement": other}


def pinned():
    """Name, version and checksum of each pinned archive."""
    archives = {}
    for line in (CHECKSUMS / "crates.sha256").read_text().splitlines():
        checksum, archive = line.split()
        archives[archive.removesuffix(".crate")] = checksum
    for manifest in sorted(CHECKSUMS.glob("*-[0-9]*.sha256")):
        key = manifest.stem
        name, _, version = key.rpartition("-")
        if key not in archives or name not in CARRIED:
            sys.exit(f"{key} is pinned, but its archive's checksum or its licence is not known")
        yield name, version, archives[key]


class Bill:
    def __init__(self, subject, version):
        self.packages = [package(subject, version, "GPL-3.0-or-later", primaryPackagePurpose="APPLICATION")]
        self.main = self.packages[0]["SPDXID"]
        self.files = []
        self.relations = [relation("SPDXRef-DOCUMENT", "DESCRIBES", self.main)]

    def add_pinned(self):
        for name, version, checksum in pinned():
            licence, carried = CARRIED[name]
            entry = package(name, version, licence,
                            checksums=[{"algorithm": "SHA256", "checksumValue": checksum}],
                            externalRefs=[{"referenceCategory": "PACKAGE-MANAGER",
                                           "referenceType": "purl",
                                           "referenceLocator": f"pkg:cargo/{name}@{version}"}],
                            comment="Every file of it that is compiled is checked against "
                                    f"cmake/checksums/{name}-{version}.sha256")
            self.packages.append(entry)
            self.relations.append(relation(self.main, "STATIC_LINK", entry["SPDXID"]))
            for part in carried:
                self.packages.append(package(*part))
                self.relations.append(relation(entry["SPDXID"], "CONTAINS",
                                               self.packages[-1]["SPDXID"]))

    def add_files(self, paths, kind, relationship, target):
        for path in paths:
            entry = file(kind, path.relative_to(ROOT).as_posix(), path.read_bytes())
            self.files.append(entry)
            self.relations.append(relation(entry["SPDXID"], relationship, target))

    def add_sources(self):
        for folder, name in PATCHED.items():
            self.add_files(sorted((ROOT / "cmake/patches" / folder).glob("*.patch")),
                           "patch", "PATCH_FOR", identifier("Package", name))
        for folder, name in OWN_SOURCES.items():
            self.add_files(sorted((ROOT / "cmake" / folder).glob("*.[ch]*")), "source",
                           "CONTAINED_BY", identifier("Package", name))

    def add_libraries(self, libraries, link):
        for library in libraries:
            entry = package(*library.split("=", 2))
            self.packages.append(entry)
            self.relations.append(relation(self.main, link, entry["SPDXID"]))

    def add_programs(self, programs):
        for path in programs:
            self.files.append(file("program", path.name, path.read_bytes()))
            self.relations.append(relation(self.main, "CONTAINS", self.files[-1]["SPDXID"]))


def document(bill, subject, version, epoch):
    content = {"packages": bill.packages, "files": bill.files, "relationships": bill.relations}
    unique = hashlib.sha256(json.dumps(content, sort_keys=True).encode()).hexdigest()
    return {
        "spdxVersion": "SPDX-2.3", "dataLicense": "CC0-1.0", "SPDXID": "SPDXRef-DOCUMENT",
        "name": f"{subject}-{version}",
        "documentNamespace": f"https://spdx.org/spdxdocs/{subject}-{version}-{unique}",
        "creationInfo": {"created": time.strftime("%Y-%m-%dT%H:%M:%SZ", time.gmtime(epoch)),
                         "creators": [f"Tool: {pathlib.Path(__file__).name}"]},
        "hasExtractedLicensingInfos": [{"licenseId": "LicenseRef-public-domain",
                                        "extractedText": "The author has put it into the "
                                                         "public domain.",
                                        "name": "Public domain"}],
        **content,
    }


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--subject", required=True)
    parser.add_argument("--version", required=True)
    parser.add_argument("--epoch", required=True, type=int)
    parser.add_argument("--runtime", action="append", default=[])
    parser.add_argument("--shared", action="append", default=[])
    parser.add_argument("programs", nargs="*", type=pathlib.Path)
    options = parser.parse_args()
    bill = Bill(options.subject, options.version)
    if options.subject == WORKER:
        bill.add_pinned()
        bill.add_sources()
    bill.add_libraries(options.runtime, "STATIC_LINK")
    bill.add_libraries(options.shared, "DYNAMIC_LINK")
    bill.add_programs(options.programs)
    json.dump(document(bill, options.subject, options.version, options.epoch), sys.stdout, indent=1)
    print()


if __name__ == "__main__":
    main()
