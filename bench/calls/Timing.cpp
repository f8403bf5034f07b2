#include "bench/calls/Timing.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <numeric>
#include <random>

namespace vestrel::bench {
namespace {

// Long beside the clock's step, short beside the time that the system gives a process at once.
constexpr double kBatchNanoseconds = 300'000;

double Now() {
  LARGE_INTEGER count;
  LARGE_INTEGER frequency;
  QueryPerformanceCounter(&count);
  QueryPerformanceFrequency(&frequency);
  return static_cast<double>(count.QuadPart) * 1e9 / static_cast<double>(frequency.QuadPart);
}

double Timed(const Work& work, std::int64_t times) {
  const double start = Now();
  work(times);
  return Now() - start;
}

class Contender {
 public:
  explicit Contender(const Work& work) : work_(&work) {
    while (Timed(work, times_) < kBatchNanoseconds) times_ *= 2;
  }

  void Run() { samples_.push_back(Timed(*work_, times_) / static_cast<double>(times_)); }
  double Median() {
    const auto middle = samples_.begin() + static_cast<std::ptrdiff_t>(samples_.size() / 2);
    std::nth_element(samples_.begin(), middle, samples_.end());
    return *middle;
  }

 private:
  const Work* work_;
  std::int64_t times_ = 16;
  std::vector<double> samples_;
};

std::string Verdict(const Pair& pair, double ratio) {
  if (pair.timesFaster == 0) return "";
  return ratio >= pair.timesFaster ? "met" : "not met";
}

std::string Target(const Pair& pair) {
  if (pair.timesFaster == 0) return "none";
  char text[32];
  std::snprintf(text, sizeof text, "at least %.0f", pair.timesFaster);
  return text;
}

}  // namespace

std::vector<Figures> Measure(const std::vector<Pair>& pairs, int rounds) {
  std::vector<std::pair<Contender, Contender>> contenders;
  for (const Pair& pair : pairs) contenders.emplace_back(Contender(pair.ours), Contender(pair.theirs));
  std::vector<std::size_t> order(pairs.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::mt19937 random(1);
  for (int round = 0; round < rounds; ++round) {
    std::shuffle(order.begin(), order.end(), random);
    for (const std::size_t i : order) {
      contenders[i].first.Run();
      contenders[i].second.Run();
    }
  }
  std::vector<Figures> result;
  for (auto& [ours, theirs] : contenders) result.push_back({ours.Median(), theirs.Median()});
  return result;
}

bool Print(const std::vector<Pair>& pairs, const std::vector<Figures>& figures) {
  static constexpr const char* kRow = "%-40s %9s  %-24s %9s %7s  %-10s  %s\n";
  std::printf(kRow, "Figure", "ns", "Peer", "ns", "Ratio", "Target", "");
  bool allMet = true;
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    const double ratio = figures[i].theirs / figures[i].ours;
    const std::string verdict = Verdict(pairs[i], ratio);
    char numbers[3][32];
    std::snprintf(numbers[0], sizeof numbers[0], "%.1f", figures[i].ours);
    std::snprintf(numbers[1], sizeof numbers[1], "%.1f", figures[i].theirs);
    std::snprintf(numbers[2], sizeof numbers[2], "%.2f", ratio);
    std::printf(kRow, pairs[i].figure.c_str(), numbers[0], pairs[i].peer.c_str(), numbers[1], numbers[2],
                Target(pairs[i]).c_str(), verdict.c_str());
    allMet = allMet && verdict != "not met";
  }
  return allMet;
}

}  // namespace vestrel::bench
