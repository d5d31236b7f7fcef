#include "child_process.h"

#include <algorithm>
#include <boost/process.hpp>
#include <fstream>
#include <future>
#include <istream>
#include <mutex>
#include <thread>

#include "program_arguments.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <sys/wait.h>

#include <csignal>
#include <ctime>
#endif

namespace Vornik::Testing {

namespace {

namespace bp = boost::process;

#ifdef _WIN32

constexpr unsigned int abortStatus = 3;

std::chrono::milliseconds ProcessorTimeOf(const bp::child& child) {
  FILETIME created;
  FILETIME exited;
  FILETIME kernel;
  FILETIME user;
  GetProcessTimes(child.native_handle(), &created, &exited, &kernel, &user);
  const auto units = [](const FILETIME& time) {
    return (static_cast<std::uint64_t>(time.dwHighDateTime) << 32U) + time.dwLowDateTime;
  };
  return std::chrono::milliseconds((units(kernel) + units(user)) / 10'000);
}

// Its processor time says as much.
bool IsAsleep(const bp::child& /*child*/) { return true; }

bool Aborted(const bp::child& child) {
  return static_cast<unsigned int>(child.exit_code()) == abortStatus;
}

#else

std::chrono::milliseconds ProcessorTimeOf(const bp::child& child) {
  clockid_t clock{};
  timespec used{};
  if (clock_getcpuclockid(child.id(), &clock) != 0 || clock_gettime(clock, &used) != 0) return {};
  return std::chrono::duration_cast<std::chrono::milliseconds>(
      std::chrono::seconds(used.tv_sec) + std::chrono::nanoseconds(used.tv_nsec));
}

// "S" follows the program's name, which is in parentheses.
bool IsAsleep(const bp::child& child) {
  std::ifstream file("/proc/" + std::to_string(child.id()) + "/stat");
  std::string text;
  std::getline(file, text);
  const std::size_t end = text.rfind(')');
  return end != std::string::npos && text.compare(end, 3, ") S") == 0;
}

bool Aborted(const bp::child& child) {
  const int status = child.native_exit_code();
  return WIFSIGNALED(status) && WTERMSIG(status) == SIGABRT;
}

#endif

using TimePoint = std::chrono::steady_clock::time_point;

// Whether the child is asleep at each of ten looks in a row, and no processor time passes.
bool FallsAsleep(bp::child& child, TimePoint deadline) {
  constexpr int looks = 10;
  int asleep = 0;
  std::error_code error;
  auto used = ProcessorTimeOf(child);
  while (child.running(error) && std::chrono::steady_clock::now() < deadline) {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    const auto usedNow = ProcessorTimeOf(child);
    asleep = IsAsleep(child) && usedNow == used ? asleep + 1 : 0;
    if (asleep == looks) return true;
    used = usedNow;
  }
  return false;
}

// The lines that another thread has read up to now.
class LineList {
 public:
  void Add(const std::string& line) {
    const std::lock_guard<std::mutex> lock(mutex_);
    lines_.push_back(line);
  }

  std::vector<std::string> Lines() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return lines_;
  }

  bool Has(const std::string& line) const {
    const std::vector<std::string> lines = Lines();
    return std::find(lines.begin(), lines.end(), line) != lines.end();
  }

 private:
  mutable std::mutex mutex_;
  std::vector<std::string> lines_;
};

void ReadLines(std::istream& in, LineList& lines) {
  for (std::string line; std::getline(in, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.Add(line);
  }
}

}  // namespace

SleepingChild RunChildUntilItSleeps(const std::string& program,
                                    const std::vector<std::string>& arguments,
                                    const std::string& lastLine, std::chrono::milliseconds limit) {
  bp::ipstream out;
  bp::child child(ProgramAndArguments(program, arguments), bp::std_out > out,
                  bp::std_err > bp::null);
  LineList lines;
  auto reading = std::async(std::launch::async, [&] { ReadLines(out, lines); });

  const auto deadline = std::chrono::steady_clock::now() + limit;
  std::error_code error;
  while (!lines.Has(lastLine) && child.running(error) &&
         std::chrono::steady_clock::now() < deadline) {
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  SleepingChild outcome;
  outcome.sleeps = lines.Has(lastLine) && FallsAsleep(child, deadline);
  child.terminate(error);
  reading.get();
  outcome.lines = lines.Lines();
  return outcome;
}

ChildOutcome RunChild(const std::string& program, const std::vector<std::string>& arguments,
                      std::chrono::milliseconds limit) {
  bp::ipstream out;
  bp::child child(ProgramAndArguments(program, arguments), bp::std_out > out,
                  bp::std_err > bp::null);
  LineList lines;
  auto reading = std::async(std::launch::async, [&] { ReadLines(out, lines); });

  ChildOutcome outcome;
  const auto deadline = std::chrono::steady_clock::now() + limit;
  std::error_code error;
  while (child.running(error) && std::chrono::steady_clock::now() < deadline) {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  outcome.ended = !child.running(error);
  if (outcome.ended) {
    outcome.aborted = Aborted(child);
    outcome.exitStatus = child.exit_code();
  } else {
    child.terminate(error);
  }
  reading.get();
  outcome.lines = lines.Lines();
  return outcome;
}

}  // namespace Vornik::Testing
