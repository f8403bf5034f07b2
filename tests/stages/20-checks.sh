# Checks of the sources themselves: layout, include direction, and the tests of these checks.
source tests/stages/common.sh

formatted() {
  git ls-files -z --cached --others --exclude-standard '*.h' '*.cpp' |
    xargs -0 -r -n 20 -P 2 clang-format-14 --dry-run --Werror
}

check "format: clang-format-14 would change nothing" formatted
check "includes: every include points down" python3 tests/checks/check_includes.py .
python3 tests/checks/run_unittests.py tests/checks >>"$VESTREL_RESULTS"
