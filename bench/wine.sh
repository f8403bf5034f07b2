# Sourced by the scripts that run benchmarks under 64-bit Wine.
source tests/component/wine/wine.sh

# bench_under_wine TARGET OUTPUT SECONDS [ARGUMENT...]: builds the program TARGET for 64-bit Windows, runs it and leaves
# its rows in OUTPUT. Answers 1, with wine_reason, when that is not possible.
bench_under_wine() {
  local target=$1 output=$2 seconds=$3
  shift 3
  need_packages g++ cmake ninja-build g++-mingw-w64-x86-64-posix mingw-w64-tools ||
    { wine_reason="needs the cross compiler"; return 1; }
  build_preset windows-x86_64 --target "$target" || { wine_reason="$target could not be built"; return 1; }
  wine_setup 64 || return 1
  local raw=$wine_folder/$target.txt code=0
  run_wine "$seconds" "$raw" "$(windows_path "$PWD/build/windows-x86_64/bench/$target.exe")" "$@" || code=$?
  wine_stop
  tr -d '\r' <"$raw" >"$output"
  [ $code = 0 ] || wine_reason="$target answered $code: see $raw"
  return $code
}

# The argument that calls need: the server's file.
wine_calls() { bench_under_wine vestrel_bench_calls "$1" 300 "$(windows_path "$PWD/build/windows-x86_64/Vestrel.dll")" "$2"; }

wine_profile() {
  local folder=$PWD/build/wine/profile
  rm -rf "$folder"
  mkdir -p "$folder"
  bench_under_wine vestrel_bench_profile "$1" 300 "$(windows_path "$folder")" "$2"
}
