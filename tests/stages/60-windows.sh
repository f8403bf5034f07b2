# Both Windows builds, without a warning.
source tests/stages/common.sh
needs_packages g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix mingw-w64-tools

no_warnings() { ! grep -i 'warning:' "build/$1.log"; }

for preset in windows-x86_64 windows-i686; do
  build $preset
  check "no warnings: $preset" no_warnings $preset
done
