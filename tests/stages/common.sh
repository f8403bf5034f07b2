# Sourced by every stage. A stage reports what it found with these; a stage that stops early counts as failed.
set -euo pipefail
source cmake/shell.sh

# passed TEXT / failed TEXT / skipped TEXT: one check. TEXT names it, for a skip with the reason.
passed() { echo "passed 1 $*" >>"$VESTREL_RESULTS"; }
failed() { echo "failed 1 $*" >>"$VESTREL_RESULTS"; echo "   FAILED: $*"; }
skipped() { echo "skipped 1 $*" >>"$VESTREL_RESULTS"; echo "   skipped: $*"; }

# check TEXT COMMAND...: passed when the command succeeds; its output is shown when it does not.
check() {
  local text=$1 output
  shift
  if output=$("$@" 2>&1); then
    passed "$text"
  else
    printf '%s\n' "$output"
    failed "$text"
  fi
}

# needs_packages PACKAGE...: ends the stage as skipped when they cannot be had.
needs_packages() {
  need_packages "$@" && return 0
  skipped "$(basename "$0" .sh): needs the packages $*"
  exit 0
}

# needs_file FILE: ends the stage as skipped when the tree does not have it.
needs_file() {
  [ -e "$1" ] && return 0
  skipped "$(basename "$0" .sh): there is no $1"
  exit 0
}

# build PRESET [ARGUMENT...]: one check; ends the stage when the build fails.
build() {
  if build_preset "$@"; then passed "build $1"; else failed "build $1"; exit 0; fi
}

# run_ctest PRESET: runs all test programs of a build, two at a time, and counts every case.
run_ctest() {
  local build=$PWD/build/$1
  rm -rf "$build/reports"
  mkdir -p "$build/reports"
  GTEST_OUTPUT=xml:$build/reports/ GTEST_BRIEF=1 \
    ctest --test-dir "$build" --parallel 2 --output-on-failure --output-junit "$build/reports/ctest.junit" || true
  python3 tests/checks/count_cases.py "$1" "$build/reports" >>"$VESTREL_RESULTS"
}
