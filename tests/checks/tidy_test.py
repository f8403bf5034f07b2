"""Which files tidy looks at, and that a clean file is looked at again when what it depends on changed."""
import os
import tempfile
import unittest

import tidy


class TidyTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.before = os.getcwd()
        os.chdir(self.folder.name)
        os.mkdir("core")
        self.write("core/A.cpp", '#include "core/A.h"\n')
        self.write("core/A.h", '#include "core/B.h"\n')
        self.write("core/B.h", "")
        self.write(".clang-tidy", "Checks: x")

    def tearDown(self):
        os.chdir(self.before)
        self.folder.cleanup()

    def write(self, path, text):
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)

    def fingerprint(self, command="c++"):
        return tidy.fingerprint("core/A.cpp", command, "14")

    def test_unchanged_file_keeps_its_fingerprint(self):
        self.assertEqual(self.fingerprint(), self.fingerprint())

    def test_fingerprint_changes_with_everything_that_matters(self):
        for path in ("core/A.cpp", "core/A.h", "core/B.h", ".clang-tidy"):
            before = self.fingerprint()
            with open(path, "a", encoding="utf-8") as file:
                file.write("// more\n")
            self.assertNotEqual(self.fingerprint(), before, path)
        self.assertNotEqual(self.fingerprint("c++ -O2"), self.fingerprint())

    def test_settings_of_the_own_folder_count(self):
        before = self.fingerprint()
        self.write("core/.clang-tidy", "Checks: y")
        self.assertNotEqual(self.fingerprint(), before)

    def test_changed_header_stands_for_its_source_file(self):
        self.assertTrue(tidy.is_changed("core/A.cpp", {"core/A.h"}))
        self.assertTrue(tidy.is_changed("core/A.cpp", {"core/A.cpp"}))
        self.assertFalse(tidy.is_changed("core/A.cpp", {"core/B.h"}))


if __name__ == "__main__":
    unittest.main()
