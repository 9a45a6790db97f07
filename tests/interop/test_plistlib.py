#!/usr/bin/env python3
"""Python's plistlib reads and rewrites our files, and the program reads them again."""

import plistlib
import unittest

from documents import DocumentTest, inspected


def without_uids(value):
    """The same for XML, for which plistlib knows no UIDs."""
    if isinstance(value, plistlib.UID):
        return {"CF$UID": value.data}
    if isinstance(value, dict):
        return {key: without_uids(entry) for key, entry in value.items()}
    return [without_uids(entry) for entry in value] if isinstance(value, list) else value


def rewritten(path, **form):
    """The file as plistlib writes what it reads, beside the old one."""
    with open(path, "rb") as stream:
        content = plistlib.load(stream)
    if form["fmt"] == plistlib.FMT_XML:
        content = without_uids(content)
    out = path + ".rewritten"
    with open(out, "wb") as stream:
        plistlib.dump(content, stream, **form)
    return out


FORMS = {"binary": {"fmt": plistlib.FMT_BINARY, "sort_keys": False},
         "binary with sorted keys": {"fmt": plistlib.FMT_BINARY, "sort_keys": True},
         "XML": {"fmt": plistlib.FMT_XML}}


class Plistlib(DocumentTest):
    def test_reads_uids_as_uids(self):
        for path in self.make():
            with open(path, "rb") as stream:
                archive = plistlib.load(stream, fmt=plistlib.FMT_BINARY)
            self.assertEqual(archive["$top"], {"root": plistlib.UID(1)})
            for item in archive["$objects"]:
                if isinstance(item, dict) and "$class" in item:
                    record = archive["$objects"][item["$class"].data]
                    self.assertEqual(record["$classes"][0], record["$classname"])

    def test_what_it_rewrites_holds_the_same(self):
        for path in self.make():
            before = inspected(path)
            self.assertIn("root", before)
            for name, form in FORMS.items():
                with self.subTest(path=path, form=name):
                    self.assertEqual(inspected(rewritten(path, **form)), before)

    def test_a_rewritten_site_opens_as_before(self):
        site, _, _ = self.make()
        before = self.seen_in_site(site)
        self.assertEqual(len(before["widgets"]), 11)
        for name, form in FORMS.items():
            with self.subTest(form=name):
                self.assertEqual(self.seen_in_site(rewritten(site, **form)), before)

    def test_a_rewritten_export_is_imported_as_before(self):
        _, export, _ = self.make()
        before = self.seen_in_import(export)
        self.assertEqual(len(before["widgets"]), 11)
        for name, form in FORMS.items():
            with self.subTest(form=name):
                self.assertEqual(self.seen_in_import(rewritten(export, **form)), before)


if __name__ == "__main__":
    unittest.main()
