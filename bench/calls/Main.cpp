// vestrel_bench_calls SERVER [ROUNDS]: times calls into the component server in the file SERVER and prints
// rows for bench/report.py. Answers 2 when a call did not do what it should.
#include <cstdio>
#include <cstdlib>

#include "bench/calls/Pairs.h"

int wmain(int count, wchar_t** arguments) {
  using namespace vestrel::bench;
  if (count < 2) {
    std::printf("vestrel_bench_calls SERVER [ROUNDS]\n");
    return 2;
  }
  const int rounds = count > 2 ? _wtoi(arguments[2]) : 101;
  Must(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), "starting the component system");
  const Server server(arguments[1]);
  const std::vector<Pair> pairs = MakePairs(server);
  Print(pairs, Measure(pairs, rounds));
  std::fflush(stdout);
  return 0;
}
