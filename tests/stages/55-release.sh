# The release build as ./run makes it, what it prints, and the example that opens the documentation.
source tests/stages/common.sh
build linux-release

prints_the_evening() { diff <(./run 2>/dev/null) tests/workbench/evening.golden.txt; }

# Plays standard input; answers 0 when the exit status is the one given.
exits_with() {
  local status=0
  ./run --headless - >/dev/null 2>&1 || status=$?
  [ "$status" = "$1" ]
}

plays_from_a_pipe() { echo 'CreateNewShow "Gala"' | exits_with 0; }
tells_of_a_bad_command() { echo 'noSuchCommand' | exits_with 1; }
refuses_bad_usage() { ! ./run --no-such-option >/dev/null 2>&1; }

compiles_the_readme() {
  sed -n '/^```cpp/,/^```$/p' README.md | sed '/^```/d' >build/readme.cpp
  grep -q 'int main' build/readme.cpp &&
    g++ -std=c++20 -Wall -Wextra -Werror -I. -fsyntax-only build/readme.cpp
}

check "./run prints the golden evening" prints_the_evening
check "./run prints it again: a data folder of its own each time" prints_the_evening
check "./run --headless plays commands from a pipe" plays_from_a_pipe
check "./run tells of a bad command by its exit status" tells_of_a_bad_command
check "./run refuses an unknown option" refuses_bad_usage
check "README.md: the example compiles" compiles_the_readme
