#include <algorithm>
#include <cerrno>
#include <exception>
#include <functional>
#include <string>
#include <vector>

#include "QueryPackage.h"
#include "commands/check_command.h"
#include "commands/command_frame.h"
#include "commands/exit_status.h"
#include "commands/explain_command.h"
#include "commands/lint_command.h"
#include "commands/list_command.h"
#include "commands/matrix_command.h"
#include "commands/parser.h"
#include "commands/query_command.h"
#include "commands/usage_error.h"

#ifndef _WIN32
#include <fcntl.h>
#include <unistd.h>
#endif

namespace Vornik::Cli {

namespace {

constexpr const char* closingHelp =
    R"(Each status but 0, 10, 11 and 12 comes with a line on standard error that says what to do.

The output is coloured on a terminal, unless NO_COLOR is set to a text that is not empty, or TERM
is "dumb". --color decides otherwise.

"querypackage-cli help query" prints the help of query alone.

Examples:
  querypackage-cli query packages --machine-type 1234 --os 10 --arch 9 --update-type 1
  querypackage-cli list packages
  querypackage-cli matrix packages --machines fleet.csv --format csv
  querypackage-cli explain packages --machine-type 1234 --os 10 --arch 9 orx_drv_a
  querypackage-cli lint packages --fail-on warning)";

int PrintAndEnd(const std::string& text) {
  return Print(text) ? ExitStatus::success
                     : Fail(ExitStatus::outputLost, "standard output could not be written");
}

int PrintHelp(const CLI::App& app) {
  const bool isOfSubcommand = !app.get_subcommands().empty();
  const auto mode = isOfSubcommand ? CLI::AppFormatMode::Normal : CLI::AppFormatMode::All;
  return PrintAndEnd(app.help("", mode));
}

// "help query" is "query --help", and "help" alone "--help".
std::vector<std::string> ArgumentsOf(int argc, char** argv) {
  if (argc < 1) return {};
  std::vector<std::string> arguments(argv + 1, argv + argc);
  if (arguments.empty() || arguments.front() != "help") return arguments;
  arguments.erase(arguments.begin());
  arguments.emplace_back("--help");
  return arguments;
}

int FailOnUsage(const std::string& text) {
  return Fail(ExitStatus::usage, text + "; see \"querypackage-cli --help\"");
}

// A standard descriptor that is closed would become the next file that is opened, such as the log.
// The null device takes its place, opened for reading: what is written there is lost, and reported.
void OpenClosedDescriptors() {
#ifndef _WIN32
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    const bool isClosed = ::fcntl(descriptor, F_GETFD) < 0 && errno == EBADF;
    if (isClosed) static_cast<void>(::open("/dev/null", O_RDONLY));
  }
#endif
}

void SetUp(CLI::App& app) {
  app.allow_windows_style_options(false);
  app.set_help_flag("-h,--help", "Print this help and end");
  app.set_version_flag("--version", "querypackage " QUERYPACKAGE_VERSION_STRING,
                       "Print the library's version and end");
  app.require_subcommand(1);
}

// The lines of a subcommand's closing help that say how it ends.
std::string ExitStatusesIn(const std::string& footer) {
  const std::string heading = "Exit status:";
  const std::size_t begin = footer.find(heading) + heading.size();
  return footer.substr(begin, footer.find("\n\n", begin) - begin);
}

void AddClosingHelp(CLI::App& app) {
  std::string text;
  for (const CLI::App* command : app.get_subcommands({})) {
    text += "Exit status of " + command->get_name() + ':' + ExitStatusesIn(command->get_footer()) +
            "\n\n";
  }
  app.footer(text + closingHelp);
}

int Run(int argc, char** argv) {
  CLI::App app("Which update packages of a folder apply to a machine.", "querypackage-cli");
  SetUp(app);
  std::function<int()> chosen;
  AddListCommand(app, chosen);
  AddQueryCommand(app, chosen);
  AddMatrixCommand(app, chosen);
  AddExplainCommand(app, chosen);
  AddLintCommand(app, chosen);
  AddCheckCommand(app, chosen);
  AddClosingHelp(app);
  std::vector<std::string> arguments = ArgumentsOf(argc, argv);
  if (const auto wrong = FindWrongSubcommand(app, arguments)) return FailOnUsage(*wrong);
  std::reverse(arguments.begin(), arguments.end());  // the parser takes them from the end
  try {
    app.parse(arguments);
  } catch (const CLI::CallForHelp&) {
    return PrintHelp(app);
  } catch (const CLI::CallForVersion& version) {
    return PrintAndEnd(std::string(version.what()) + '\n');
  } catch (const CLI::ParseError& error) {
    return FailOnUsage(TextOf(app, error));
  }
  return chosen();
}

int RunOrExplain(int argc, char** argv) {
  try {
    return Run(argc, argv);
  } catch (const std::exception& error) {
    return Fail(ExitStatus::exception, "the program ended with an exception, " + Describe(error));
  } catch (...) {
    return Fail(ExitStatus::exception, "the program ended with an exception of an unknown type");
  }
}

}  // namespace

}  // namespace Vornik::Cli

int main(int argc, char** argv) {
  using namespace Vornik::Cli;
  OpenClosedDescriptors();
  try {
    return RunOrExplain(argc, argv);
  } catch (...) {
    return ExitStatus::exception;
  }
}
