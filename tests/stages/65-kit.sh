# The kit: what is in it, one version everywhere, and a program outside the tree built against each of its libraries.
source tests/stages/common.sh
needs_packages g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix mingw-w64-tools

kit=$PWD/build/kit
native=linux-$(uname -m)

has_everything() {
  local width file missing=0
  for width in x86_64 i686; do
    for file in dll tlb idl h manifest; do
      [ -s "$kit/windows-$width/Vestrel.$file" ] || { echo "no windows-$width/Vestrel.$file"; missing=1; }
    done
  done
  for file in README.md CHANGELOG.md docs/reference/README.md docs/compatibility.md docs/host-guide.md \
    examples/README.md examples/evening.txt; do
    [ -s "$kit/$file" ] || { echo "no $file"; missing=1; }
  done
  ! grep -n '@' "$kit/README.md" && [ $missing = 0 ]
}

# Links in the kit's texts lead somewhere.
links_lead_somewhere() {
  (cd "$kit" && grep -roE --include='*.md' '\]\([^)#:]+' . | while IFS=: read -r file link; do
    case $link in "](http"*) continue ;; esac
    [ -e "$(dirname "$file")/${link#](}" ] || echo "$file: ${link#](}"
  done) | { ! grep .; }
}

# consumer NAME SYSTEM [ARGUMENT...]: configures and builds the program against the kit.
consumer() {
  local name=$1 system=$2
  shift 2
  rm -rf "build/consumer/$name"
  cmake -S tests/kit -B "build/consumer/$name" -G Ninja -DCMAKE_BUILD_TYPE=Release \
    "-DVestrel_DIR=$kit/native/$system/lib/cmake/Vestrel" "$@" && cmake --build "build/consumer/$name"
}

runs() {
  rm -rf build/consumer/data
  mkdir -p build/consumer/data
  "build/consumer/$1/consumer" "$PWD/build/consumer/data" | tee build/consumer/version.txt
}

# The version that the program says, that the CMake package has and that the resources of both servers hold.
one_version() {
  local version width
  version=$(cat build/consumer/version.txt)
  [ "$version" = "$(cat build/consumer/gcc/version.txt)" ] && grep -qF "version $version" "$kit/README.md" &&
    for width in x86_64 i686; do
      python3 - "$kit/windows-$width/Vestrel.dll" "$version" <<'PYTHON' || return 1
import sys
data, version = open(sys.argv[1], "rb").read(), sys.argv[2]
for name in ("FileVersion", "ProductVersion"):
    at = data.index((name + "\0").encode("utf-16-le")) + 2 * (len(name) + 1)
    at += -at % 4 if data[at:at + 2] == b"\0\0" else 0
    assert data[at:at + 40].lstrip(b"\0").startswith((version + "\0").encode("utf-16-le")), name
PYTHON
    done
}

# The examples as somebody with nothing but the kit builds them.
example_prints_the_transcript() {
  rm -rf build/consumer/example build/consumer/lights
  mkdir -p build/consumer/lights
  cmake -S "$kit/examples/native" -B build/consumer/example -G Ninja \
    "-DVestrel_DIR=$kit/native/$native/lib/cmake/Vestrel" && cmake --build build/consumer/example &&
    build/consumer/example/native_host "$PWD/build/consumer/lights" | diff "$kit/examples/transcript.txt" -
}
com_example_builds() {
  local output=$PWD/build/consumer/com_host.exe
  (cd "$kit" && "$1-w64-mingw32-g++-posix" -std=c++20 -municode -static -I. -isystem "windows-$1" examples/cpp-com/main.cpp \
    -o "$output" -lole32 -loleaut32 -luuid)
}

refuses_another_version() {
  ! cmake -S tests/kit -B build/consumer/other -G Ninja "-DVestrel_DIR=$kit/native/windows-i686/lib/cmake/Vestrel"
}

check "tools/make-kit makes the kit" tools/make-kit "$kit"
check "the kit has everything" has_everything
check "the kit's texts refer to what is there" links_lead_somewhere
check "a program finds the package and is built by GCC" consumer gcc "$native"
check "it runs" runs gcc
check "the version is the same everywhere" one_version
check "the package for another system is refused" refuses_another_version
check "the kit's native example is built and prints its transcript" example_prints_the_transcript
for width in x86_64 i686; do
  check "the kit's example for the virtual table is built: $width" com_example_builds $width
  check "a program is built for Windows: $width" \
    consumer windows-$width windows-$width -DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/mingw-$width.cmake" \
    -DCMAKE_FIND_ROOT_PATH_MODE_PACKAGE=BOTH
done
if command -v clang++-14 >/dev/null; then
  check "a program is built by Clang" consumer clang "$native" -DCMAKE_CXX_COMPILER=clang++-14
  check "it runs, built by Clang" runs clang
else
  skipped "a program built by Clang against the kit: clang++-14 is not installed"
fi
