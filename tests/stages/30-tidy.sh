# clang-tidy over the files that differ from the branch's origin; with VESTREL_TIDY=all over every file.
source tests/stages/common.sh
build_preset linux-debug
scope=--changed
if [ "${VESTREL_TIDY-}" = all ]; then scope=--all; fi
python3 tests/checks/tidy.py build/linux-debug $scope >>"$VESTREL_RESULTS"
