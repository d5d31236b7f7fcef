#include "program_run.h"

#ifdef _WIN32

#include <boost/process.hpp>

#include "program_arguments.h"

#else

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <system_error>

extern char** environ;  // NOLINT(readability-redundant-declaration): POSIX leaves it to the program

#endif

#include <thread>

namespace Vornik::Testing {

namespace {

// Asks again and again whether the program has ended.
template <typename HasEnded>
bool EndsWithin(std::chrono::seconds limit, const HasEnded& hasEnded) {
  const auto deadline = std::chrono::steady_clock::now() + limit;
  while (!hasEnded()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  return true;
}

#ifdef _WIN32

namespace bp = boost::process;

bp::environment EnvironmentWith(const std::map<std::string, std::string>& variables) {
  bp::environment environment = boost::this_process::environment();
  environment.erase("NO_COLOR");
  for (const auto& [name, value] : variables) environment[name] = value;
  return environment;
}

// Wine now and then loses a process before anything of it has run; such a start is repeated.
template <typename Start>
bp::child Started(const Start& start) {
  constexpr int lost = 1359;  // ERROR_INTERNAL_ERROR
  for (int again = 2; again > 0; --again) {
    try {
      return start();
    } catch (const bp::process_error& error) {
      if (error.code().value() != lost) throw;
    }
  }
  return start();
}

#else

std::vector<std::string> EnvironmentWith(const std::map<std::string, std::string>& variables) {
  std::map<std::string, std::string> environment;
  for (char** entry = environ; *entry != nullptr; ++entry) {
    const std::string text = *entry;
    const std::size_t end = text.find('=');
    if (end != std::string::npos) environment[text.substr(0, end)] = text.substr(end + 1);
  }
  environment.erase("NO_COLOR");
  for (const auto& [name, value] : variables) environment[name] = value;
  std::vector<std::string> entries;
  for (const auto& [name, value] : environment) entries.push_back(name + '=' + value);
  return entries;
}

std::vector<char*> PointersTo(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

// Not by Boost.Process, which reads the first character of an empty argument.
pid_t Start(const ProgramCall& call) {
  std::vector<std::string> arguments = call.arguments;
  arguments.insert(arguments.begin(), call.program);
  std::vector<std::string> environment = EnvironmentWith(call.variables);
  constexpr int toFile = O_WRONLY | O_CREAT | O_TRUNC;
  constexpr mode_t readable = 0600;

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, call.out.c_str(), toFile, readable);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, call.err.c_str(), toFile, readable);
  pid_t process = 0;
  const int error = posix_spawn(&process, call.program.c_str(), &actions, nullptr,
                                PointersTo(arguments).data(), PointersTo(environment).data());
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) throw std::system_error(error, std::generic_category(), call.program);
  return process;
}

int StatusOf(int status) { return WIFEXITED(status) ? WEXITSTATUS(status) : WTERMSIG(status); }

#endif

}  // namespace

#ifdef _WIN32

ProgramEnd RunToItsEnd(const ProgramCall& call, std::chrono::seconds limit) {
  bp::child child = Started([&call] {
    return bp::child(ProgramAndArguments(call.program, call.arguments),
                     EnvironmentWith(call.variables), bp::std_in<bp::null, bp::std_out> call.out,
                     bp::std_err > call.err);
  });
  const bool inTime = EndsWithin(limit, [&child] { return !child.running(); });
  if (!inTime) child.terminate();
  return {inTime, child.exit_code()};
}

#else

ProgramEnd RunToItsEnd(const ProgramCall& call, std::chrono::seconds limit) {
  const pid_t process = Start(call);
  int status = 0;
  const bool inTime = EndsWithin(
      limit, [process, &status] { return waitpid(process, &status, WNOHANG) == process; });
  if (!inTime) {
    kill(process, SIGKILL);
    waitpid(process, &status, 0);
  }
  return {inTime, StatusOf(status)};
}

#endif

}  // namespace Vornik::Testing
