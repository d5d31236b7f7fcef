#include "child_process.h"

#include <boost/process.hpp>
#include <future>
#include <istream>
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

bool Aborted(const bp::child& child) {
  const int status = child.native_exit_code();
  return WIFSIGNALED(status) && WTERMSIG(status) == SIGABRT;
}

#endif

std::vector<std::string> ReadLines(std::istream& in) {
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(line);
  }
  return lines;
}

}  // namespace

ChildOutcome RunChild(const std::string& program, const std::vector<std::string>& arguments,
                      std::chrono::milliseconds limit) {
  bp::ipstream out;
  bp::child child(ProgramAndArguments(program, arguments), bp::std_out > out,
                  bp::std_err > bp::null);
  auto reading = std::async(std::launch::async, [&out] { return ReadLines(out); });

  ChildOutcome outcome;
  const auto deadline = std::chrono::steady_clock::now() + limit;
  std::error_code error;
  while (child.running(error) && std::chrono::steady_clock::now() < deadline) {
    outcome.processorTime = ProcessorTimeOf(child);
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  outcome.ended = !child.running(error);
  if (outcome.ended) {
    outcome.aborted = Aborted(child);
    outcome.exitStatus = child.exit_code();
  } else {
    child.terminate(error);
  }
  outcome.lines = reading.get();
  return outcome;
}

}  // namespace Vornik::Testing
