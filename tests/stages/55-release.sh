# The release build as ./run makes it, what it prints, and the example that opens the documentation.
source tests/stages/common.sh
build linux-release

prints_the_evening() {
  diff <(./run --headless examples/evening.txt --sample --story 2>/dev/null) tests/workbench/evening.golden.txt
}

# Starts the page on a data folder of its own, asks for it, and ends it as an operator does.
serves_the_page() {
  local folder out address status=0
  folder=$(mktemp -d)
  out=$folder/out
  ./run --data "$folder/data" --no-browser --journal "$folder/journal" >"$out" 2>/dev/null &
  local program=$!
  for _ in $(seq 100); do
    address=$(sed -n 's|^Vestrel workbench: ||p' "$out")
    [ -n "$address" ] && break
    sleep 0.1
  done
  python3 -c 'import sys, urllib.request; sys.exit(b"Vestrel" not in urllib.request.urlopen(sys.argv[1]).read())' "$address" ||
    status=1
  kill -TERM "$program"
  wait "$program" || status=1
  [ -e "$folder/data/Sequences/Harbour Lights/pageSetting.ini" ] || status=1
  ./run --replay "$folder/journal" || status=1
  rm -rf "$folder"
  return $status
}

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

check "./run --headless prints the golden evening" prints_the_evening
check "./run --headless prints it again: a data folder of its own each time" prints_the_evening
check "./run serves the page until it is told to end, and replays its journal" serves_the_page

refuses_a_busy_port() {
  local server output status=0
  python3 -m http.server --bind 127.0.0.1 8399 >/dev/null 2>&1 &
  server=$!
  for _ in $(seq 50); do (: </dev/tcp/127.0.0.1/8399) 2>/dev/null && break; sleep 0.1; done
  output=$(timeout 20 ./run --data "$(mktemp -d)" --no-browser --port 8399 2>&1) || status=$?
  kill "$server"
  echo "$output"
  [ $status != 0 ] && [[ $output == *"port 8399 "*" another program has it"* ]]
}

check "./run tells that a port is busy" refuses_a_busy_port
check "./run --headless plays commands from a pipe" plays_from_a_pipe
check "./run tells of a bad command by its exit status" tells_of_a_bad_command
check "./run refuses an unknown option" refuses_bad_usage
check "README.md: the example compiles" compiles_the_readme
