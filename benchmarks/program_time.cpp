#include "program_time.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>

extern char** environ;  // NOLINT(readability-redundant-declaration): POSIX leaves it to the program

namespace Vornik::Benchmarks {

namespace {

pid_t Start(std::vector<std::string> command) {
  std::vector<char*> arguments;
  for (std::string& argument : command) arguments.push_back(argument.data());
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  pid_t process = 0;
  const int error =
      posix_spawn(&process, arguments.front(), &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) throw std::runtime_error(command.front() + " does not start");
  return process;
}

double Seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

}  // namespace

double ProcessorTimeOf(const std::vector<std::string>& command) {
  int status = 0;
  rusage usage{};
  if (wait4(Start(command), &status, 0, &usage) == -1 || !WIFEXITED(status) ||
      WEXITSTATUS(status) != 0) {
    throw std::runtime_error(command.front() + " failed");
  }
  return Seconds(usage.ru_utime) + Seconds(usage.ru_stime);
}

}  // namespace Vornik::Benchmarks
