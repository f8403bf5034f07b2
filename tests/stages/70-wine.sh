# The component server and the hosts that use it, under 64-bit and 32-bit Wine.
source tests/stages/common.sh
source tests/component/wine/wine.sh
needs_packages g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix mingw-w64-tools

# A million calls chosen at random when asked for, otherwise 50,000; and how many operations are compared with the
# system's own, how many processes are ended while they save, and how often each of two writes one file.
rounds=200 compared=5000 kills=20 shared=300
if [ "${VESTREL_SCALE-}" = long ]; then rounds=4000 compared=100000 kills=2000 shared=20000; fi

hosts=tests/component/host
scripts=tests/component/scripts

# counted TEXT OUTPUT: takes the totals over from the last line of a program's output, "NAME: N passed, N failed". A
# program that does not get there has failed, whatever it answered.
counted() {
  local text=$1 output=$2 totals passed_count failed_count
  totals=$(tr -d '\r' <"$output" | tail -n 1)
  if [[ $totals =~ ^.*:\ ([0-9]+)\ passed,\ ([0-9]+)\ failed$ ]]; then
    passed_count=${BASH_REMATCH[1]} failed_count=${BASH_REMATCH[2]}
    echo "passed $passed_count $text" >>"$VESTREL_RESULTS"
    [ "$failed_count" = 0 ] && return 0
    echo "failed $failed_count $text: see $output" >>"$VESTREL_RESULTS"
    grep -a FAILED "$output" | head -n 20
  else
    failed "$text: did not come to its end, see $output"
    tail -n 5 "$output"
  fi
}

# host TEXT SECONDS PROGRAM [ARGUMENT...]: a program of the suite that prints totals, with an empty folder as its first
# argument.
host() {
  local text=$1 seconds=$2 program=$3 name code=0
  shift 3
  name=$(basename "$program" .exe)
  rm -rf "$work/$name"
  mkdir -p "$work/$name"
  run_wine "$seconds" "$work/$name.txt" "$(windows_path "$program")" "$(windows_path "$work/$name")" "$@" || code=$?
  # It may have told its totals and hang on its way out.
  if [ $code = 124 ] || [ $code = 137 ]; then failed "$text, $wine_bits-bit: did not end"; fi
  counted "$text, $wine_bits-bit" "$work/$name.txt"
}

# The hostile host on a heap that checks its pieces and overwrites what is freed: what is used later than it should be,
# or written where it should not be, shows.
hostile() {
  local wine_tells=-all,err+heap,warn+heap
  host "hostile and random calls" $((300 + rounds * 2)) \
    "$built/hosts/Hostile.exe" "$(windows_path "$built/Vestrel.dll")" $rounds
  check "the heap stays whole under hostile calls, $wine_bits-bit" heap_is_whole "$work/Hostile.txt"
}

heap_is_whole() { [ -s "$1" ] && ! grep -a -m 20 ':heap:' "$1"; }

# script TEXT SUITE: a suite of tests/component/scripts through cscript, behind the checks of its language.
script() {
  local text=$1 suite=$2
  rm -rf "$work/$suite.data"
  mkdir -p "$work/$suite.data"
  cat "$scripts/Checks.${suite##*.}" "$scripts/$suite" >"$work/$suite"
  run_wine 60 "$work/$suite.txt" cscript //nologo "$(windows_path "$work/$suite")" "$(windows_path "$work/$suite.data")" || true
  counted "$text, $wine_bits-bit" "$work/$suite.txt"
}

# A copy of the script host with a manifest that names the library's: nothing is registered.
without_registration() {
  local folder=$work/unregistered suite=collections.js
  rm -rf "$folder"
  mkdir -p "$folder/data"
  cp "$built/Vestrel.dll" "$built/Vestrel.manifest" "$work/prefix/drive_c/windows/system32/cscript.exe" "$folder"
  {
    echo '<assembly xmlns="urn:schemas-microsoft-com:asm.v1" manifestVersion="1.0"><dependency><dependentAssembly>'
    grep assemblyIdentity "$built/Vestrel.manifest"
    echo '</dependentAssembly></dependency></assembly>'
  } >"$folder/cscript.exe.manifest"
  cat "$scripts/Checks.js" "$scripts/$suite" >"$folder/$suite"
  run_wine 60 "$folder/output.txt" "$(windows_path "$folder/cscript.exe")" //nologo "$(windows_path "$folder/$suite")" \
    "$(windows_path "$folder/data")" || true
  counted "JScript without registration, $wine_bits-bit" "$folder/output.txt"
}

# file_sums FOLDER: the files below it, but libraries, each with a sum of what is in it.
file_sums() {
  (cd "$1" && find . -type f ! -name '*.dll' -printf '%P\n' | while read -r name; do
    printf '%s\t%s\n' "$(md5sum <"$name")" "$name"
  done)
}

# changes BEFORE AFTER: what became of the files, as the workbench tells it.
changes() {
  awk -F '\t' '
    NR == FNR { before[$2] = $1; next }
    !($2 in before) { print "  new " $2 "\t" $2; next }
    { if (before[$2] != $1) print "  changed " $2 "\t" $2; delete before[$2] }
    END { for (name in before) print "  deleted " name "\t" name }' "$1" "$2" | LC_ALL=C sort -t $'\t' -k 2 | cut -f 1
}

# The sample evening with the component server, from script: the same transcript as natively.
evening_from_script() {
  local data=$work/evening.data
  rm -rf "$data"
  mkdir -p "$data/Sequences"
  cp -r examples/shows/. "$data/Sequences"
  cp "$built/Vestrel.dll" "$data"
  run_wine 60 "$work/register.txt" regsvr32 /s "$(windows_path "$data/Vestrel.dll")" || true
  run_wine 60 "$work/register.txt" regsvr32 /s "$(windows_path "$built/hosts/Stagehand.dll")" || true
  cat "$scripts/Checks.js" "$scripts/evening.js" >"$work/evening.js"
  file_sums "$data" >"$work/evening.before"
  run_wine 120 "$work/evening.output" cscript //nologo "$(windows_path "$work/evening.js")" "$(windows_path "$data")" \
    "$(windows_path "$PWD/examples/evening.txt")" || true
  file_sums "$data" >"$work/evening.after"
  run_wine 60 "$work/register.txt" regsvr32 /u /s "$(windows_path "$data/Vestrel.dll")" || return 1
  { tr -d '\r' <"$work/evening.output" && printf '\nFiles:\n' && changes "$work/evening.before" "$work/evening.after"; } \
    >"$work/evening.txt"
  diff "$work/evening.txt" tests/workbench/evening.golden.txt
}

# The same with the native program for Windows.
evening_natively() {
  rm -rf "$work/workbench.data"
  run_wine 60 "$work/workbench.output" "$(windows_path "$built/workbench/vestrel_workbench.exe")" \
    --headless examples/evening.txt --examples examples --sample --story --data "$(windows_path "$work/workbench.data")"
  tr -d '\r' <"$work/workbench.output" | grep -v '^Data folder: ' | diff - tests/workbench/evening.golden.txt
}

# The library natively: beside the system's own profile functions, beside a program that holds its files, beside itself,
# and killed.
natively() {
  host "settings files through the system and through the library" $((60 + compared / 100)) "$built/tests/Oracle.exe" \
    $compared
  host "a settings file that another program holds" 60 "$built/tests/HeldFile.exe"
  host "two processes at one settings file, $shared writes each" $((60 + shared / 50)) "$built/tests/Shared.exe" $shared
  host "$kills processes ended while they save" $((120 + kills * 4)) "$built/tests/Killed.exe" $kills
}

# The benchmark of calls, as far as it measures: no figure is judged here, since the machine may be busy.
calls_are_measured() {
  run_wine 120 "$work/calls.txt" "$(windows_path "$built/bench/vestrel_bench_calls.exe")" \
    "$(windows_path "$built/Vestrel.dll")" 3 || return 1
  tr -d '\r' <"$work/calls.txt" >"$work/calls.rows"
  python3 bench/report.py "$work/calls.rows" && [ "$(grep -c '^row' "$work/calls.rows")" -ge 5 ]
}

with_width() {
  local arch=$2
  work=$PWD/build/wine/$1
  if ! wine_setup "$1"; then
    without_wine "hosts under $1-bit Wine"
    return
  fi
  built=$PWD/build/windows-$arch
  check "regsvr32 registers, $wine_bits-bit" run_wine 60 "$work/register.txt" regsvr32 /s "$(windows_path "$built/Vestrel.dll")"
  host "every operation, late and early bound" 120 "$built/hosts/EveryOperation.exe" "$(windows_path "$PWD/tests/component/slots.txt")"
  host "late bound: typed variables, names, refusals" 60 "$built/hosts/LateBound.exe"
  host "through the virtual tables, callbacks too" 60 "$built/hosts/EarlyBound.exe"
  host "handlers of buttons and recorders" 60 "$built/hosts/Handlers.exe"
  host "the type library through the system" 60 "$built/hosts/TypeLibrary.exe" "$(windows_path "$built/Vestrel.dll")" \
    "$(windows_path "$PWD/tests/component/slots.txt")"
  hostile
  host "lifetime and apartments" 120 "$built/hosts/Lifetime.exe"
  script "VBScript: lists, dictionaries, comparison" collections.vbs
  script "VBScript: helpers and files" utilities.vbs
  script "VBScript: answers that do not fit, variables after a call" answers.vbs
  script "VBScript: a show" show.vbs
  script "JScript: collections, helpers, files" collections.js
  script "JScript: a show" show.js
  host "registration" 120 "$built/hosts/Registration.exe" "$(windows_path "$built/Vestrel.dll")" \
    "$(windows_path "$built/Vestrel.manifest")"
  without_registration
  check "the evening from JScript, $wine_bits-bit" evening_from_script
  check "the evening from the workbench for Windows, $wine_bits-bit" evening_natively
  if [ "$1" = 64 ]; then
    natively
    check "vestrel_bench_calls measures" calls_are_measured
  fi
  wine_stop
}

for width in "64 x86_64" "32 i686"; do
  # shellcheck disable=SC2086
  set -- $width
  targets=(vestrel_hosts vestrel_server vestrel_workbench)
  if [ "$1" = 64 ]; then targets+=(vestrel_windows_tests vestrel_bench_calls); fi
  build "windows-$2" --target "${targets[@]}"
  with_width "$1" "$2"
done
