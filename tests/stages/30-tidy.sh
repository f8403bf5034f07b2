# clang-tidy: the quick suite looks at the files that differ from the branch's origin, the full one at every file.
source tests/stages/common.sh
build_preset linux-debug
scope=--changed
if [ "$VESTREL_SUITE" = full ]; then scope=--all; fi
python3 tests/checks/tidy.py build/linux-debug $scope >>"$VESTREL_RESULTS"
