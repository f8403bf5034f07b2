"""Which changes tools/mutate makes, and that the same seed gives the same ones."""
import os
import subprocess
import sys
import unittest

TOOLS = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "tools")
sys.path.insert(0, TOOLS)

import mutations


def changes(*lines):
    return list(mutations.changes_of("storage/A.cpp", "\n".join(lines)))


def results(*lines):
    return {(change.what, change.after.strip()) for change in changes(*lines)}


class MutationsTest(unittest.TestCase):
    def test_comparison_is_flipped_and_its_boundary_moved(self):
        self.assertEqual(results("  if (a < b) {"), {
            ("comparison flipped", "if (a >= b) {"),
            ("boundary moved", "if (a <= b) {"),
            ("condition negated", "if (!(a < b)) {"),
        })

    def test_numbers_move_by_one_but_not_those_in_names(self):
        self.assertEqual(results("  const auto u16 = 7;"), {
            ("constant off by one", "const auto u16 = 8;"),
            ("constant off by one", "const auto u16 = 6;"),
        })

    def test_statement_goes_whole_over_its_lines(self):
        removed = [change for change in changes("  Save(a,", "       b);") if change.what == "statement removed"]
        self.assertEqual([change.after for change in removed], ["  ;\n"])

    def test_declarations_stay(self):
        self.assertEqual(results("  std::string text;", "  Line line(text);", "  const int x = y;"), set())

    def test_returned_value_becomes_empty_and_that_of_a_predicate_the_opposite(self):
        self.assertEqual(results("bool Has() {", "  return x;", "}"), {
            ("return value changed", "return {};"),
            ("return value changed", "return !(x);"),
        })
        self.assertEqual(results("int Size() {", "  return x;", "}"), {("return value changed", "return {};")})

    def test_texts_comments_and_log_calls_stay(self):
        self.assertEqual(results('  x = u"a == 1";  // 1 < 2'), {("statement removed", ";")})
        self.assertEqual(results('  modLog::LogFormat(LogLevel_3_INFO,', '                    u"%d", n + 1);'), set())

    def test_key_stays_when_the_line_moves(self):
        before, after = changes("  Save();"), changes("", "  Save();")
        self.assertEqual([change.key for change in before], [change.key for change in after])
        self.assertNotEqual(before[0].line, after[0].line)

    def test_same_lines_of_a_file_have_keys_of_their_own(self):
        keys = [change.key for change in changes("  Save();", "  Save();")]
        self.assertEqual(len(set(keys)), 2)

    def test_applied_change_is_the_only_difference(self):
        text = "  Load();\n  if (a < b) Save();\n"
        for change in mutations.changes_of("storage/A.cpp", text):
            self.assertEqual(mutations.applied(change, text), text.replace(change.before, change.after), change)

    def test_list_is_the_same_every_time(self):
        lists = [subprocess.run([sys.executable, os.path.join(TOOLS, "mutate"), "--list", "5", "--seed", "9"],
                                capture_output=True, text=True, check=True).stdout for _ in range(2)]
        self.assertEqual(len(lists[0].splitlines()), 5)
        self.assertEqual(lists[0], lists[1])


if __name__ == "__main__":
    unittest.main()
