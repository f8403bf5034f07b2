# The benchmarks: that all of them build and tell what they measured. No figure is judged here, since the machine may be
# busy.
source tests/stages/common.sh
needs_packages pkgconf libbenchmark-dev libfccp-dev libfmt-dev libspdlog-dev libglib2.0-dev libsimpleini-dev
build linux-bench --target vestrel_benchmarks

tells() {
  local program=$1 rows=$PWD/build/bench-rows.txt
  rm -f "$rows"
  (cd build && VESTREL_BENCH_QUICK=1 VESTREL_BENCH_OUT=$rows timeout 300 "$program" --benchmark_repetitions=2 --benchmark_min_time=0.001)
  python3 bench/report.py "$rows" && grep -q '^row' "$rows"
}

for program in "$PWD"/build/linux-release/bench/bench_*; do
  [ -f "$program" ] && [ -x "$program" ] || continue
  check "$(basename "$program") measures" tells "$program"
done
