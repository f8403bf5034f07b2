// Runs what a program adds, prints its part of the table and, where VESTREL_BENCH_OUT names a file, writes
// the points and rows there for bench/report.py.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <map>
#include <memory>
#include <stdexcept>
#include <utility>

#include "bench/support/Bench.h"
#include "bench/support/Figures.h"

namespace vestrel::bench {
namespace {

using Point = std::pair<std::string, std::int64_t>;  // "what|who", size

double Seconds(bool wall) {
  timespec time{};
  clock_gettime(wall ? CLOCK_MONOTONIC : CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

// Work as short as reading the clock is done many times between two readings.
constexpr double kShortest = 20e-6;

double Timed(const Case& measured, std::int64_t times) {
  const double start = Seconds(measured.waits);
  for (; times > 0; --times) measured.work();
  return Seconds(measured.waits) - start;
}

// Work that has to be prepared is done once at a time.
std::int64_t TimesAtOnce(const Case& measured) {
  if (measured.before) return 1;
  // What the first one finds out may serve all others.
  measured.work();
  // One of them may have been interrupted.
  const auto shortest = [&](std::int64_t times) {
    return std::min({Timed(measured, times), Timed(measured, times), Timed(measured, times)});
  };
  std::int64_t times = 1;
  while (shortest(times) < kShortest) times *= 2;
  return times;
}

struct Contender {
  Case measured;
  std::int64_t times = 0;
};

struct Program {
  std::vector<std::unique_ptr<Contender>> contenders;
  std::map<std::string, const Contender*> byName;
  std::vector<Claim> claims;
  std::vector<Growth> growths;
  std::vector<Amount> amounts;
  std::map<Point, double> nanoseconds;
};

Program& program() {
  static Program instance;
  return instance;
}

void Measure(benchmark::State& state, Contender& contender) {
  const Case& measured = contender.measured;
  if (contender.times == 0) contender.times = TimesAtOnce(measured);
  for ([[maybe_unused]] auto iteration : state) {
    if (measured.before) measured.before();
    state.SetIterationTime(Timed(measured, contender.times));
  }
}

// Keeps the medians.
class Collector : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context& /*context*/) override { return true; }
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.error_occurred) throw std::runtime_error(run.benchmark_name());
      if (run.run_type != Run::RT_Aggregate || run.aggregate_name != "median") continue;
      const Contender& contender = *program().byName.at(run.run_name.function_name);
      const Case& measured = contender.measured;
      program().nanoseconds[{measured.what + "|" + measured.who, measured.size}] =
          run.GetAdjustedRealTime() / static_cast<double>(measured.items * contender.times);
    }
  }
};

// figure | ours | peer | floor | ratio | target | result
using Row = std::vector<std::string>;

constexpr const char* kMet = "met";
constexpr const char* kNotMet = "not met";

// A contender that is called "floor (how)" stands in a column of its own.
Row RowBeside(const std::string& figure, const std::string& ours, const std::string& other,
              const std::string& others) {
  static const std::string kFloor = "floor (";
  if (other.rfind(kFloor, 0) != 0) return {figure, ours, other + ": " + others, "", "", "", ""};
  const std::string how = other.substr(kFloor.size(), other.size() - kFloor.size() - 1);
  return {figure, ours, "", how + ": " + others, "", "", ""};
}

Row RowOf(const Claim& claim) {
  const double ours = program().nanoseconds.at({claim.what + "|" + claim.ours, claim.size});
  if (claim.other.empty()) return {claim.figure, Time(ours), "", "", "", "", ""};
  const double other =
      program().nanoseconds.at({claim.what + "|" + claim.other, claim.size}) * claim.otherTimes;
  Row row = RowBeside(claim.figure, Time(ours), claim.other, Time(other));
  const bool faster = claim.kind == Kind::TimesFaster || (claim.kind == Kind::Shown && other > ours);
  row[4] = faster ? Number(other / ours) + " times faster" : Number(ours / other) + " times";
  if (claim.kind == Kind::TimesFaster) {
    row[5] = "at least " + Number(claim.factor) + " times faster";
    row[6] = other / ours >= claim.factor ? kMet : kNotMet;
  } else if (claim.kind == Kind::AtMostTimes) {
    row[5] = "at most " + Number(claim.factor) + " times";
    row[6] = ours / other <= claim.factor ? kMet : kNotMet;
  }
  return row;
}

Row RowOf(const Growth& growth) {
  const auto at = [&](std::int64_t size) {
    return program().nanoseconds.at({growth.what + "|" + growth.ours, size});
  };
  const double each = (at(growth.to) - at(growth.from)) / static_cast<double>(growth.to - growth.from);
  return {growth.figure,
          Time(each),
          "",
          "",
          "",
          "at most " + Time(growth.limit),
          each <= growth.limit ? kMet : kNotMet};
}

Row RowOf(const Amount& amount) {
  const std::string unit = " " + amount.unit;
  Row row = RowBeside(amount.figure, Number(amount.ours) + unit, amount.other, Number(amount.others) + unit);
  row[4] = Number(amount.ours / amount.others) + " times";
  if (amount.limit > 0) {
    row[5] = "at most " + Number(amount.limit) + unit;
    row[6] = amount.ours <= amount.limit ? kMet : kNotMet;
  }
  return row;
}

void Write(std::FILE* out, const char* kind, const Row& row) {
  std::fprintf(out, "%s", kind);
  for (const std::string& cell : row) std::fprintf(out, "\t%s", cell.c_str());
  std::fprintf(out, "\n");
}

bool IsMeasured(const std::string& what, const std::string& who, std::int64_t size) {
  return program().nanoseconds.count({what + "|" + who, size}) != 0;
}

// The command line may have chosen some cases only.
bool IsMeasured(const Claim& claim) {
  return IsMeasured(claim.what, claim.ours, claim.size) &&
         (claim.other.empty() || IsMeasured(claim.what, claim.other, claim.size));
}

bool IsMeasured(const Growth& growth) {
  return IsMeasured(growth.what, growth.ours, growth.from) && IsMeasured(growth.what, growth.ours, growth.to);
}

void Report(std::FILE* out) {
  for (const Claim& claim : program().claims) {
    if (IsMeasured(claim)) Write(out, "row", RowOf(claim));
  }
  for (const Growth& growth : program().growths) {
    if (IsMeasured(growth)) Write(out, "row", RowOf(growth));
  }
  for (const Amount& amount : program().amounts) Write(out, "row", RowOf(amount));
}

void ReportPoints(std::FILE* out) {
  for (const auto& contender : program().contenders) {
    const Case& measured = contender->measured;
    const auto each = program().nanoseconds.find({measured.what + "|" + measured.who, measured.size});
    if (each == program().nanoseconds.end()) continue;
    Write(out, "point",
          {measured.what, measured.who, std::to_string(measured.size),
           Number(each->second * static_cast<double>(measured.items))});
  }
}

void Run() {
  for (const auto& contender : program().contenders) {
    const Case& measured = contender->measured;
    const std::string name = measured.what + "/" + measured.who + "/" + std::to_string(measured.size);
    program().byName[name] = contender.get();
    benchmark::RegisterBenchmark(name.c_str(),
                                 [one = contender.get()](benchmark::State& state) { Measure(state, *one); })
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
  program().contenders.push_back(std::make_unique<Contender>(Contender{std::move(measured)}));
}

void Add(Claim claim) {
  program().claims.push_back(std::move(claim));
}

void Add(Growth growth) {
  program().growths.push_back(std::move(growth));
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
