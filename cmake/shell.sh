# Sourced by ./run, ./test and the test stages: packages and builds.

# Messages go to standard error: standard output belongs to the workbench and to the suite's counts.
say() { printf '%s\n' "$*" >&2; }

# missing_packages PACKAGE...: prints those that are not installed.
missing_packages() {
  local package
  for package in "$@"; do
    dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed || printf '%s ' "$package"
  done
}

# need_packages PACKAGE...: installs what is missing; answers 1 with a message when that is not possible.
need_packages() {
  if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
    say "This is no Debian system. Needed are the programs that Debian packages as: $*"
    return 1
  fi
  local missing
  missing=$(missing_packages "$@")
  [ -z "$missing" ] && return 0
  if [ "$(id -u)" != 0 ]; then
    say "Missing packages: $missing"
    say "Install them as root:  apt-get install --no-install-recommends $missing"
    return 1
  fi
  say "Installing packages: $missing"
  mkdir -p build
  # shellcheck disable=SC2086 # the names are meant to be split
  { apt-get update -q && install_packages $missing; } >build/packages.log 2>&1 && return 0
  say "Installing failed:"
  tail -n 20 build/packages.log >&2
  return 1
}

install_packages() {
  DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "$@"
}

# build_preset PRESET [ARGUMENT...]: configures and builds; the output goes to build/PRESET.log and, when the
# build fails, its end to the terminal. On a terminal a line of progress is kept up to date.
build_preset() {
  local preset=$1 log=build/$1.log
  shift
  mkdir -p build
  if { cmake --preset "$preset" && cmake --build --preset "$preset" "$@"; } 2>&1 | tee "$log" | show_progress; then
    return 0
  fi
  say "Building $preset failed; the whole output is in $log, its end is:"
  tail -n 40 "$log" >&2
  return 1
}

show_progress() {
  local line
  while IFS= read -r line; do
    if [ -t 2 ] && [[ $line == "["* ]]; then printf '\r\033[K%.100s' "$line" >&2; fi
  done
  if [ -t 2 ]; then printf '\r\033[K' >&2; fi
}
