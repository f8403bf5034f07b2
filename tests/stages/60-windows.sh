# Both Windows builds, without a warning.
source tests/stages/common.sh
needs_packages g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix mingw-w64-tools

no_warnings() { ! grep -i 'warning:' "build/$1.log"; }

# What the server needs of the system, and nothing else, and the entry points it has.
imports_system_libraries_only() {
  ! "$2" -p "build/$1/Vestrel.dll" | sed -n 's/^.*DLL Name: //p' |
    grep -vixE '(kernel32|user32|advapi32|ole32|oleaut32|msvcrt|shell32)\.dll'
}
exports_the_entry_points() {
  local found
  found=$("$2" -p "build/$1/Vestrel.dll" | sed -n '/Ordinal\/Name Pointer/,/^$/s/^.*\] \(Dll[A-Za-z]*\)$/\1/p' | sort | xargs)
  [ "$found" = "DllCanUnloadNow DllGetClassObject DllRegisterServer DllUnregisterServer" ]
}

# The compiler at hand takes no texts as defaults of by-reference arguments.
published_text_compiles() {
  local work=build/$1/published widl=${1#windows-}-w64-mingw32-widl
  mkdir -p "$work"
  sed 's/, defaultvalue("[^"]*")//' "build/$1/Vestrel.idl" >"$work/Vestrel.idl"
  sh component/widl.sh "$widl" -I component/com/idl -L "build/$1/component" -t -o "$work/Vestrel.tlb" "$work/Vestrel.idl" &&
    [ -s "$work/Vestrel.tlb" ]
}

for preset in windows-x86_64 windows-i686; do
  build $preset
  check "no warnings: $preset" no_warnings $preset
  objdump=${preset#windows-}-w64-mingw32-objdump
  check "Vestrel.dll imports system libraries only: $preset" imports_system_libraries_only $preset $objdump
  check "Vestrel.dll exports the four entry points: $preset" exports_the_entry_points $preset $objdump
  check "the published interface text compiles: $preset" published_text_compiles $preset
  check "the type library has the fixed slots, defaults and enumerations: $preset" \
    python3 tests/component/published.py tlb tests/component/slots.txt tests/component/enumerations.txt build/$preset/Vestrel.tlb
done
