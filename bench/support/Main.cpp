// Runs what a program adds, prints its part of the table and, where VESTREL_BENCH_OUT names a file, writes
// the points and lines there for bench/report.py.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <map>
#include <memory>
#include <stdexcept>
#include <utility>

#include "bench/support/Bench.h"

namespace vestrel::bench {
namespace {

using Point = std::pair<std::string, std::int64_t>;  // "what|who", size

struct Program {
  std::vector<std::unique_ptr<Case>> cases;
  std::map<std::string, const Case*> byName;
  std::vector<Claim> claims;
  std::vector<Amount> amounts;
  std::map<Point, double> nanoseconds;
};

Program& program() {
  static Program instance;
  return instance;
}

double Seconds(bool wall) {
  timespec time{};
  clock_gettime(wall ? CLOCK_MONOTONIC : CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

void Measure(benchmark::State& state, const Case& measured) {
  for ([[maybe_unused]] auto iteration : state) {
    if (measured.before) measured.before();
    const double start = Seconds(measured.waits);
    measured.work();
    state.SetIterationTime(Seconds(measured.waits) - start);
  }
  state.counters["items"] = static_cast<double>(measured.items);
}

// Keeps the medians.
class Collector : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context& /*context*/) override { return true; }
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.error_occurred) throw std::runtime_error(run.benchmark_name());
      if (run.run_type != Run::RT_Aggregate || run.aggregate_name != "median") continue;
      const Case& measured = *program().byName.at(run.run_name.function_name);
      program().nanoseconds[{measured.what + "|" + measured.who, measured.size}] =
          run.GetAdjustedRealTime() / static_cast<double>(measured.items);
    }
  }
};

std::string Number(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.3g", value);
  return text;
}

std::string Time(double nanoseconds) {
  if (nanoseconds < 999.5) return Number(nanoseconds) + " ns";
  if (nanoseconds < 999.5e3) return Number(nanoseconds / 1e3) + " us";
  return Number(nanoseconds / 1e6) + " ms";
}

// figure | ours | other and its figure | ratio | target | result
using Row = std::vector<std::string>;

Row RowOf(const Claim& claim) {
  const double ours = program().nanoseconds.at({claim.what + "|" + claim.ours, claim.size});
  const double other =
      program().nanoseconds.at({claim.what + "|" + claim.other, claim.size}) * claim.otherTimes;
  const std::string others = claim.other + ": " + Time(other);
  const bool faster = claim.kind == Kind::TimesFaster || (claim.kind == Kind::Shown && other > ours);
  const std::string ratio = faster ? Number(other / ours) + " times faster" : Number(ours / other) + " times";
  switch (claim.kind) {
    case Kind::TimesFaster:
      return {claim.figure,
              Time(ours),
              others,
              ratio,
              "at least " + Number(claim.factor) + " times faster",
              other / ours >= claim.factor ? "met" : "not met"};
    case Kind::AtMostTimes:
      return {claim.figure,
              Time(ours),
              others,
              ratio,
              "at most " + Number(claim.factor) + " times",
              ours / other <= claim.factor ? "met" : "not met"};
    case Kind::Shown:
      break;
  }
  return {claim.figure, Time(ours), others, ratio, "", ""};
}

Row RowOf(const Amount& amount) {
  const std::string unit = " " + amount.unit;
  Row row{amount.figure,
          Number(amount.ours) + unit,
          amount.other + ": " + Number(amount.others) + unit,
          Number(amount.ours / amount.others) + " times",
          "",
          ""};
  if (amount.limit > 0) {
    row[4] = "at most " + Number(amount.limit) + unit;
    row[5] = amount.ours <= amount.limit ? "met" : "not met";
  }
  return row;
}

void Write(std::FILE* out, const char* kind, const Row& row) {
  std::fprintf(out, "%s", kind);
  for (const std::string& cell : row) std::fprintf(out, "\t%s", cell.c_str());
  std::fprintf(out, "\n");
}

// Not when the command line chose other cases.
bool IsMeasured(const Claim& claim) {
  const auto& measured = program().nanoseconds;
  return measured.count({claim.what + "|" + claim.ours, claim.size}) != 0 &&
         measured.count({claim.what + "|" + claim.other, claim.size}) != 0;
}

void Report(std::FILE* out) {
  for (const Claim& claim : program().claims) {
    if (IsMeasured(claim)) Write(out, "row", RowOf(claim));
  }
  for (const Amount& amount : program().amounts) Write(out, "row", RowOf(amount));
}

void ReportPoints(std::FILE* out) {
  for (const auto& [point, nanoseconds] : program().nanoseconds) {
    const std::size_t bar = point.first.find('|');
    Write(out, "point",
          {point.first.substr(0, bar), point.first.substr(bar + 1), std::to_string(point.second),
           Number(nanoseconds)});
  }
}

void Run() {
  for (const auto& measured : program().cases) {
    const std::string name = measured->what + "/" + measured->who + "/" + std::to_string(measured->size);
    program().byName[name] = measured.get();
    benchmark::RegisterBenchmark(name.c_str(),
                                 [one = measured.get()](benchmark::State& state) { Measure(state, *one); })
        ->UseManualTime()
        ->ReportAggregatesOnly(true);
  }
  Collector collector;
  benchmark::RunSpecifiedBenchmarks(&collector);
}

}  // namespace

bool Quick() {
  return std::getenv("VESTREL_BENCH_QUICK") != nullptr;
}

void Add(Case measured) {
  program().cases.push_back(std::make_unique<Case>(std::move(measured)));
}

void Add(Claim claim) {
  program().claims.push_back(std::move(claim));
}

void Add(Amount amount) {
  program().amounts.push_back(std::move(amount));
}

}  // namespace vestrel::bench

int main(int argc, char** argv) {
  using namespace vestrel::bench;
  std::vector<std::string> settings{argv[0], "--benchmark_enable_random_interleaving=true",
                                    Quick() ? "--benchmark_repetitions=5" : "--benchmark_repetitions=9",
                                    Quick() ? "--benchmark_min_time=0.02" : "--benchmark_min_time=0.2"};
  settings.insert(settings.end(), argv + 1, argv + argc);
  std::vector<char*> arguments;
  for (std::string& setting : settings) arguments.push_back(setting.data());
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  AddCases();
  Run();
  Report(stdout);
  if (const char* path = std::getenv("VESTREL_BENCH_OUT")) {
    std::FILE* out = std::fopen(path, "a");
    if (out == nullptr) return 1;
    Report(out);
    ReportPoints(out);
    std::fclose(out);
  }
  return 0;
}
