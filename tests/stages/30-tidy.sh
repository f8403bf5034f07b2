# clang-tidy: over the files that differ from the branch's origin in the quick suite, over all in the full one.
source tests/stages/common.sh
build_preset linux-debug
scope=--changed
if [ "$VESTREL_SUITE" = full ]; then scope=--all; fi
python3 tests/checks/tidy.py build/linux-debug $scope >>"$VESTREL_RESULTS"
