"""The include check against made-up trees: each rule must be able to fail."""
import os
import tempfile
import unittest

import check_includes

SOUND = {
    "platform/Clock.h": "#include <cstdint>\n",
    "platform/posix/Clock.cpp": '#include <time.h>\n#include "platform/Clock.h"\n',
    "platform/windows/Clock.cpp": '#include <windows.h>\n#include "platform/Clock.h"\n',
    "core/Object.h": '#include "platform/Clock.h"\n',
    "util/modLog.h": '#include "core/Object.h"\n',
    "core/clsObjectList.h": '#include "util/modLog.h"\n',
    "controller/interfaces/ILEDSetter.h": '#include "core/clsObjectList.h"\n',
    "leds/LEDManager.h": '#include "controller/interfaces/ILEDSetter.h"\n',
    "model/clsButton.h": '#include "controller/interfaces/ILEDSetter.h"\n',
    "controller/clsPageManager.h": '#include "model/clsButton.h"\n#include "leds/LEDManager.h"\n',
    "tests/core/ObjectTest.cpp": '#include <gtest/gtest.h>\n#include "core/Object.h"\n',
}


class CheckIncludesTest(unittest.TestCase):
    def faults(self, extra):
        """The faults of the sound tree with some files added or replaced."""
        with tempfile.TemporaryDirectory() as root:
            for path, text in {**SOUND, **extra}.items():
                os.makedirs(os.path.dirname(os.path.join(root, path)), exist_ok=True)
                with open(os.path.join(root, path), "w", encoding="utf-8") as file:
                    file.write(text)
            return check_includes.faults_in(root)

    def assert_one_fault(self, extra, *words):
        faults = self.faults(extra)
        self.assertEqual(len(faults), 1, faults)
        for word in words:
            self.assertIn(word, faults[0])

    def test_sound_tree_has_no_fault(self):
        self.assertEqual(self.faults({}), [])

    def test_include_of_a_higher_layer_is_a_fault(self):
        self.assert_one_fault({"storage/ProfileText.h": '#include <vector>\n\n#include "model/clsButton.h"\n'},
                              "storage/ProfileText.h:3", "storage does not know model")

    def test_layers_side_by_side_do_not_see_each_other(self):
        self.assert_one_fault({"leds/LampMask.h": '#include "model/clsButton.h"\n'}, "leds does not know model")

    def test_ground_does_not_see_the_collections_of_its_own_folder(self):
        self.assert_one_fault({"core/Ref.h": '#include "core/clsObjectList.h"\n'}, "core ground does not know core")

    def test_interfaces_do_not_see_the_controller_around_them(self):
        self.assert_one_fault({"controller/interfaces/IForm.h": '#include "controller/clsPageManager.h"\n'},
                              "controller interfaces does not know controller")

    def test_the_ground_of_util_does_not_see_its_top(self):
        self.assert_one_fault({"util/VestrelStatic.h": "", "util/modUtils.h": '#include "util/VestrelStatic.h"\n'},
                              "util ground does not know util")

    def test_layers_see_what_the_layers_below_them_see(self):
        self.assertEqual(self.faults({"controller/Input.cpp": '#include "platform/Clock.h"\n'}), [])

    def test_circle_within_a_layer_is_a_fault(self):
        self.assert_one_fault({"model/A.h": '#include "model/B.h"\n', "model/B.h": '#include "model/C.h"\n',
                               "model/C.h": '#include "model/A.h"\n'}, "circle", "model/A.h", "model/B.h", "model/C.h")

    def test_file_that_includes_itself_is_a_circle(self):
        self.assert_one_fault({"model/A.h": '#include "model/A.h"\n'}, "circle")

    def test_windows_header_outside_its_seams_is_a_fault(self):
        self.assert_one_fault({"workbench/Main.cpp": "#  include <Windows.h>\n"}, "workbench/Main.cpp:1", "Windows header")

    def test_component_may_see_windows_headers(self):
        self.assertEqual(self.faults({"component/com/Factory.cpp": "#include <objbase.h>\n"}), [])

    def test_library_includes_standard_headers_only(self):
        self.assert_one_fault({"storage/TextFile.cpp": "#include <unistd.h>\n"}, "standard headers only")
        self.assert_one_fault({"model/clsPage.cpp": "#include <boost/any.hpp>\n"}, "standard headers only")

    def test_file_in_an_unknown_folder_is_a_fault(self):
        self.assert_one_fault({"helpers/Misc.h": ""}, "helpers/Misc.h", "no layer")

    def test_include_that_is_no_file_of_the_tree_is_a_fault(self):
        self.assert_one_fault({"model/A.cpp": '#include "clsButton.h"\n'}, "no file of the tree")

    def test_build_folders_are_left_alone(self):
        self.assertEqual(self.faults({"build/x/A.cpp": '#include "nothing.h"\n', "data/B.h": ""}), [])

    def test_table_that_points_up_is_refused(self):
        with self.assertRaises(ValueError):
            check_includes.known_layers([("low", ["low/*"], ["high"]), ("high", ["high/*"], [])])


if __name__ == "__main__":
    unittest.main()
