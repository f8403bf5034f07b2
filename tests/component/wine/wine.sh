# Sourced by stages that run Windows programs. Wine's output is never piped: its services inherit the pipe and its reader
# would wait for them. Everything goes to files, with a limit of time on each run.

# A 32-bit Debian tree, for Wine of that width; kept from run to run.
wine_root=${VESTREL_WINE32-/var/cache/vestrel/wine32}
wine_reason= # why wine_setup answered 1

# without_wine TEXT: what was not run for wine_reason is a skip; in CI, where both widths run, it is a failure.
without_wine() {
  if [ -n "${CI-}" ]; then failed "$1: $wine_reason"; else skipped "$1: $wine_reason"; fi
}

# wine_setup BITS: makes Wine of that width ready, with a prefix of the tree's own; 32 needs root.
wine_setup() {
  wine_bits=$1
  case $wine_bits in
    64) wine_setup_64 ;;
    32) wine_setup_32 ;;
  esac || return 1
  wine_folder=$PWD/build/wine/$wine_bits
  mkdir -p "$wine_folder"
  if [ ! -e "$wine_folder/prefix/ready" ]; then
    rm -rf "$wine_folder/prefix"
    run_wine 180 "$wine_folder/boot.txt" wineboot -i
    wine_stop
    [ -e "$wine_folder/prefix/system.reg" ] || { wine_reason="no prefix: see $wine_folder/boot.txt"; return 1; }
    touch "$wine_folder/prefix/ready"
  fi
}

wine_setup_64() {
  need_packages wine wine64 && return 0
  wine_reason="needs the packages wine and wine64"
  return 1
}

wine_setup_32() {
  [ -e "$wine_root/ready" ] && [ "$(id -u)" = 0 ] && return 0
  if [ "$(id -u)" != 0 ]; then
    wine_reason="32-bit Wine lives in a tree that is entered as root"
  elif ! unshare --mount true 2>/dev/null; then
    wine_reason="32-bit Wine needs mounts of its own, which are not allowed here"
  elif ! need_packages debootstrap || ! make_wine_tree >build/wine32.log 2>&1; then
    wine_reason="32-bit Wine could not be installed: see build/wine32.log"
  else
    return 0
  fi
  return 1
}

# Made beside its place and moved there whole, so that a run that is broken off leaves nothing half done.
make_wine_tree() {
  local suite site new=$wine_root.$$
  suite=$(. /etc/os-release && echo "$VERSION_CODENAME") || return 1
  site=$(apt-get indextargets --format '$(REPO_URI)' "Created-By: Packages" "Codename: $suite" | head -n 1) || return 1
  say "Installing 32-bit Wine, which takes two minutes the first time ..."
  mkdir -p "$new" &&
    debootstrap --arch=i386 --variant=minbase "$suite" "$new" "$site" &&
    DEBIAN_FRONTEND=noninteractive chroot "$new" apt-get install -y -q --no-install-recommends wine wine32 &&
    chroot "$new" apt-get clean &&
    touch "$new/ready" &&
    rm -rf "$wine_root" && mv "$new" "$wine_root" && return 0
  rm -rf "$new"
  return 1
}

# run_wine SECONDS OUTPUT PROGRAM [ARGUMENT...]: runs a Windows program, its output in the file OUTPUT. PROGRAM is one of
# Wine's own or a path.
run_wine() {
  local seconds=$1 output=$2 enter=()
  shift 2
  if [ "$wine_bits" = 32 ]; then enter=("$PWD/tests/component/wine/enter.sh" "$wine_root" "$PWD"); fi
  wine_environment timeout -k 5 "$seconds" "${enter[@]}" "$(wine_program)" "$@" </dev/null >"$output" 2>&1
}

wine_program() { if [ "$wine_bits" = 32 ]; then echo /usr/lib/wine/wine; else echo /usr/lib/wine/wine64; fi; }

# What Wine tells in a program's output, as its WINEDEBUG.
wine_tells=-all

wine_environment() {
  env -u DISPLAY WINEDEBUG="$wine_tells" WINEPREFIX="$wine_folder/prefix" WINEARCH="win$wine_bits" \
    WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe,winedbg.exe=" "$@"
}

# wine_stop: ends everything that still runs in the prefix.
wine_stop() {
  local enter=()
  if [ "$wine_bits" = 32 ]; then enter=("$PWD/tests/component/wine/enter.sh" "$wine_root" "$PWD"); fi
  wine_environment timeout -k 5 30 "${enter[@]}" "/usr/lib/wine/wineserver$wine_bits" -k </dev/null >/dev/null 2>&1 || true
}

# windows_path FILE: the name under which Windows programs know an absolute path.
windows_path() { local path=Z:$1; echo "${path//\//\\}"; }
