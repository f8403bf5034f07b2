# The test programs of the debug build.
source tests/stages/common.sh
build linux-debug
run_ctest linux-debug
