"""The counting of cases: nothing that failed may be lost."""
import os
import tempfile
import unittest

import count_cases

REPORT = """<testsuites><testsuite name="S">
<testcase name="Passes" classname="S" status="run"/>
<testcase name="Fails" classname="S" status="run"><failure message="x"/></testcase>
<testcase name="Skips" classname="S" status="run"><skipped message="no  display&#x0A;here"/></testcase>
<testcase name="DISABLED_Off" classname="S" status="notrun"/>
</testsuite></testsuites>"""
PASSING = '<testsuites><testsuite><testcase name="A" classname="S" status="run"/></testsuite></testsuites>'


class CountCasesTest(unittest.TestCase):
    def count(self, program_status, report):
        with tempfile.TemporaryDirectory() as folder:
            with open(os.path.join(folder, "ctest.junit"), "w", encoding="utf-8") as file:
                file.write(f'<testsuite><testcase name="core_tests" status="{program_status}"/></testsuite>')
            if report is not None:
                with open(os.path.join(folder, "core_tests.xml"), "w", encoding="utf-8") as file:
                    file.write(report)
            return count_cases.count("b", folder)

    def test_every_case_counts_once(self):
        self.assertEqual(self.count("fail", REPORT), [
            "passed 1 b: core_tests", "failed 1 b: S.Fails", "skipped 1 b: S.Skips: no display here",
            "skipped 1 b: S.DISABLED_Off: disabled"])

    def test_crash_before_the_report_is_a_failure(self):
        self.assertIn("failed 1 b: core_tests ended early", self.count("fail", None))

    def test_torn_report_of_a_crashed_program_is_a_failure(self):
        self.assertIn("failed 1 b: core_tests ended early", self.count("fail", REPORT[:60]))

    def test_program_that_fails_after_its_cases_passed_is_a_failure(self):
        self.assertEqual(self.count("fail", PASSING),
                         ["passed 1 b: core_tests", "failed 1 b: core_tests ended early"])

    def test_program_without_a_report_counts_as_one(self):
        self.assertEqual(self.count("run", None), ["passed 1 b: core_tests"])


if __name__ == "__main__":
    unittest.main()
