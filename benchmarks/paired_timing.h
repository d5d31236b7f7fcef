// Times two things in turn, so that other work of the machine affects both.
#ifndef VORNIK_BENCHMARKS_PAIRED_TIMING_H
#define VORNIK_BENCHMARKS_PAIRED_TIMING_H

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <ctime>
#include <vector>

namespace Vornik::Benchmarks {

struct PairedTimes {
  double measured = 0;   // median, in seconds
  double reference = 0;  // median, in seconds
};

// Processor time leaves out what other processes take from a busy machine.
enum class Clock { Wall, Processor };
inline Clock timingClock = Clock::Wall;

inline double SecondsNow() {
  if (timingClock == Clock::Processor) {
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
  }
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration<double>(now).count();
}

// A run of a thing returns how long it took, in seconds, so that it can leave its preparation out.
template <typename Run>
double TimeOf(const Run& run) {
  const double begin = SecondsNow();
  run();
  return SecondsNow() - begin;
}

inline double MedianOf(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

// One pair is run before to warm up and not counted; which of the two goes first alternates.
template <typename Measured, typename Reference>
PairedTimes TimePairs(std::size_t pairs, const Measured& measured, const Reference& reference) {
  measured();
  reference();
  std::vector<double> measuredTimes;
  std::vector<double> referenceTimes;
  for (std::size_t i = 0; i < pairs; ++i) {
    if (i % 2 == 0) measuredTimes.push_back(measured());
    referenceTimes.push_back(reference());
    if (i % 2 != 0) measuredTimes.push_back(measured());
  }
  return {MedianOf(std::move(measuredTimes)), MedianOf(std::move(referenceTimes))};
}

}  // namespace Vornik::Benchmarks

#endif  // VORNIK_BENCHMARKS_PAIRED_TIMING_H
