#include "bench/timing/Timing.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <numeric>
#include <random>

#include "bench/support/Figures.h"

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
  std::int64_t times_ = 1;
  std::vector<double> samples_;
};

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

void Print(const std::vector<Pair>& pairs, const std::vector<Figures>& figures) {
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    const Pair& pair = pairs[i];
    const auto [ours, theirs] = figures[i];
    const std::string other = pair.peer + ": " + Time(theirs);
    const bool faster = theirs > ours;
    const std::string ratio =
        faster ? Number(theirs / ours) + " times faster" : Number(ours / theirs) + " times";
    const bool aims = pair.timesFaster != 0;
    std::printf("row\t%s\t%s\t%s\t%s\t%s\t%s\t%s\n", pair.figure.c_str(), Time(ours).c_str(),
                pair.isFloor ? "" : other.c_str(), pair.isFloor ? other.c_str() : "", ratio.c_str(),
                aims ? ("at least " + Number(pair.timesFaster) + " times faster").c_str() : "",
                !aims                               ? ""
                : theirs / ours >= pair.timesFaster ? "met"
                                                    : "not met");
  }
}

}  // namespace vestrel::bench
