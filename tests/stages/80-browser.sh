# The page of the workbench in a real browser, and its bundle: what is checked in is what the sources make.
source tests/stages/common.sh
packages=(g++ cmake ninja-build libboost-dev nlohmann-json3-dev)
[ -x /usr/bin/chromium ] || packages+=(chromium)
# Any Node.js from 18 on serves; without one it is Debian's own.
if ! command -v node >/dev/null || ! command -v npm >/dev/null; then packages+=(nodejs npm); fi
needs_packages "${packages[@]}"

web=workbench/web
tests=tests/browser

# npm_packages FOLDER: as its lock file says; the stage is skipped where they cannot be had.
npm_packages() {
  (cd "$1" && npm ci --no-audit --no-fund --loglevel=error) >>build/npm.log 2>&1 && return 0
  skipped "$(basename "$0" .sh): the npm packages of $1 cannot be had; see build/npm.log"
  exit 0
}

mkdir -p build
: >build/npm.log
npm_packages $web
npm_packages $tests

bundle_is_current() {
  rm -rf build/page
  node $web/build.mjs --out "$PWD/build/page" && diff -r $web/dist build/page
}
sources_type_check() { (cd $web && npx --no-install tsc --noEmit); }
no_registry_in_locks() { ! grep -nE '"resolved"' $web/package-lock.json $tests/package-lock.json; }

check "page: the bundle is what its sources make" bundle_is_current
check "page: the sources type-check" sources_type_check
check "page: the lock files name no registry" no_registry_in_locks

build linux-release --target vestrel_workbench
export VESTREL_WORKBENCH=$PWD/build/linux-release/workbench/vestrel_workbench
node --test --test-reporter=./$tests/support/reporter.mjs $tests/all.test.mjs || true
ran_them_all() { [ "$(grep -cE '^(passed|failed) 1 browser:' "$VESTREL_RESULTS")" -ge 160 ]; }
check "browser tests were run" ran_them_all
