# The examples that need Windows, under 64-bit and 32-bit Wine: each prints examples/transcript.txt, as the native one
# does in the quick suite. The guide's pieces of script run, its pieces for the virtual table compile.
source tests/stages/common.sh
source tests/component/wine/wine.sh
needs_packages g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix mingw-w64-tools

guide=docs/host-guide.md

# prints_transcript TEXT NAME PROGRAM [ARGUMENT...]: a host, with an empty folder as its last argument.
prints_transcript() {
  local text=$1 name=$2
  shift 2
  rm -rf "$work/$name"
  mkdir -p "$work/$name"
  run_wine 60 "$work/$name.txt" "$@" "$(windows_path "$work/$name")" || true
  check "$text, $wine_bits-bit" same_lines examples/transcript.txt "$work/$name.txt"
}

same_lines() { tr -d '\r' <"$2" | diff "$1" -; }

# runs_snippets LANGUAGE ENDING: the guide's pieces of that script language, one after the other. They end with a line of
# their own, because an engine that stops at an error says nothing.
runs_snippets() {
  rm -rf "$work/guide-$1"
  mkdir -p "$work/guide-$1"
  python3 tests/examples/snippets.py "$1" "$guide" >"$work/guide.$1"
  run_wine 60 "$work/guide-$1.txt" cscript //nologo "$(windows_path "$work/guide.$1")" "$(windows_path "$work/guide-$1")" || true
  check "host guide: the $1 pieces run, $wine_bits-bit" ends_with 'the end of the guide' "$work/guide-$1.txt"
}

# ends_with TEXT FILE
ends_with() { tr -d '\r' <"$2" | tail -n 1 | grep -qx "$1" || { cat "$2"; return 1; }; }

# Message boxes that nobody answers would hold the script for ever.
runs_unattended() {
  rm -rf "$work/unattended"
  mkdir -p "$work/unattended"
  VESTREL_MESSAGE_BOX=log run_wine 60 "$work/unattended.txt" cscript //nologo \
    "$(windows_path "$PWD/tests/examples/unattended.vbs")" "$(windows_path "$work/unattended")" || true
  check "an unattended host, $wine_bits-bit" ends_with 'all of it held' "$work/unattended.txt"
}

compiles_snippets() {
  python3 tests/examples/snippets.py com "$guide" >"build/guide-com.cpp" &&
    "$1-w64-mingw32-g++-posix" -std=c++20 -Wall -Wextra -Werror -I. -isystem "build/windows-$1" -fsyntax-only build/guide-com.cpp
}

# runs_unregistered: the host in C++ beside the DLL, with the guide's manifest and without any entry in the registry. That
# it fails without the manifest shows that the entries are gone.
runs_unregistered() {
  local folder=$work/example-unregistered architecture
  run_wine 60 "$work/unregister.txt" regsvr32 /s /u "$(windows_path "$built/Vestrel.dll")" || true
  rm -rf "$folder"
  mkdir -p "$folder/data"
  cp "$built/examples/com_host.exe" "$built/Vestrel.dll" "$built/Vestrel.manifest" "$folder"
  run_wine 60 "$work/no-manifest.txt" "$(windows_path "$folder/com_host.exe")" "$(windows_path "$folder/data")" || true
  check "unregistered, a host without a manifest finds no class, $wine_bits-bit" grep -q 'failed with 80040154' "$work/no-manifest.txt"
  architecture=$(grep -o 'processorArchitecture="[^"]*"' "$built/Vestrel.manifest" | head -n 1)
  python3 tests/examples/snippets.py xml "$guide" | sed "s|processorArchitecture=\"amd64\"|$architecture|" \
    >"$folder/com_host.exe.manifest"
  prints_transcript "example with the guide's manifest, unregistered" example-unregistered-data "$(windows_path "$folder/com_host.exe")"
}

with_width() {
  local arch=$2
  check "host guide: the pieces for the virtual table compile: $arch" compiles_snippets "$arch"
  work=$PWD/build/wine/$1
  if ! wine_setup "$1"; then
    without_wine "examples under $1-bit Wine"
    return
  fi
  built=$PWD/build/windows-$arch
  run_wine 60 "$work/register.txt" regsvr32 /s "$(windows_path "$built/Vestrel.dll")" || true
  prints_transcript "example in C++ through the virtual table" com_host "$(windows_path "$built/examples/com_host.exe")"
  prints_transcript "example in VBScript" host-vbs cscript //nologo "$(windows_path "$PWD/examples/vbscript/host.vbs")"
  prints_transcript "example in JScript" host-js cscript //nologo "$(windows_path "$PWD/examples/jscript/host.js")"
  runs_snippets vbs
  runs_snippets js
  runs_unattended
  runs_unregistered
  wine_stop
}

for width in "64 x86_64" "32 i686"; do
  # shellcheck disable=SC2086
  set -- $width
  build "windows-$2" --target com_host vestrel_server
  with_width "$1" "$2"
done
