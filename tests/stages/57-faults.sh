# Faults in every file call and every allocation, killed processes, power cuts, two writers, full disks, a month of
# operating: the long form of what the unit tests run a part of.
source tests/stages/common.sh
build linux-debug --target fault_tests allocation_tests

whole() {
  VESTREL_SCALE=long VESTREL_ROUNDS=300 VESTREL_KILLS=2000 VESTREL_WRITES=20000 GTEST_BRIEF=1 \
    build/linux-debug/tests/faults/fault_tests --gtest_filter="$1"
}

check "every file call of every operation fails in every way" whole 'FileFaultsTest.*'
check "every allocation of every operation fails, and a month passes" env VESTREL_SCALE=long \
  VESTREL_ROUNDS=300 GTEST_BRIEF=1 \
  build/linux-debug/tests/faults/allocation_tests
check "2,000 kills at random moments lose nothing" whole 'KillTest.AtRandom*'
check "the power goes at any moment of an evening" env GTEST_BRIEF=1 build/linux-debug/tests/faults/fault_tests \
  --gtest_filter='*PowerCut*'
check "a file call fails after a crash" whole 'CompoundFaultTest.*'
check "two processes and a full disk" whole 'SharedFileTest.*:FullDiskTest.*'
