# The whole suite once more under the address, undefined-behaviour and leak sanitizers.
source tests/stages/common.sh
build linux-asan
export ASAN_OPTIONS=detect_leaks=1:detect_stack_use_after_return=1:strict_string_checks=1
export UBSAN_OPTIONS=print_stacktrace=1
run_ctest linux-asan
