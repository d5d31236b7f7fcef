// guarded-host [--seconds N] [--mebibytes N] FOLDER MACHINE-TYPE
//
// A host for folders that nobody has checked. A descriptor can hang a query or abort its process,
// and a large folder can take more memory than there is; so the query runs in a process of its own,
// with limits, and the host gets the packages through a pipe.
#include <charconv>
#include <cstddef>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>
#include <system_error>
#include <vector>

#include "child_query.h"
#include "guarded_child.h"
#include "offered_packages.h"

namespace {

constexpr const char* queryHere = "--query-here";
constexpr std::size_t maxOutput = std::size_t{64} << 20U;

struct CommandLine {
  bool isChild = false;
  bool isRight = true;
  Limits limits;
  std::vector<std::string> operands;
};

// A number that is wrong, too large or missing makes the command line wrong.
unsigned int NumberAt(std::size_t i, const std::vector<std::string>& arguments, bool& isRight) {
  constexpr unsigned int most = 1'000'000;
  unsigned int number = 0;
  const std::string text = i < arguments.size() ? arguments[i] : "";
  const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool isNumber = fault == std::errc() && end == text.data() + text.size();
  isRight = isRight && isNumber && number <= most;
  return number;
}

CommandLine Parse(const std::vector<std::string>& arguments) {
  CommandLine line;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    if (arguments[i] == queryHere) {
      line.isChild = true;
    } else if (arguments[i] == "--seconds") {
      line.limits.seconds = NumberAt(++i, arguments, line.isRight);
    } else if (arguments[i] == "--mebibytes") {
      line.limits.mebibytes = NumberAt(++i, arguments, line.isRight);
    } else {
      line.operands.push_back(arguments[i]);
    }
  }
  line.isRight = line.isRight && line.operands.size() == 2;
  return line;
}

int Fail(const std::string& reason) {
  std::cerr << "guarded-host: " << reason << '\n';
  return EXIT_FAILURE;
}

int QueryGuarded(const std::vector<std::string>& arguments, const Limits& limits) {
  std::vector<std::string> childArguments{queryHere};
  childArguments.insert(childArguments.end(), arguments.begin(), arguments.end());
  const ChildEnd end =
      RunThisProgram(childArguments, std::chrono::seconds(limits.seconds), maxOutput);
  if (!end.inTime) {
    return Fail("the query did not end within " + std::to_string(limits.seconds) + " s");
  }
  if (!end.succeeded) return Fail("the query failed");
  const auto packages = Decode(end.output);
  if (!packages) return Fail("the query's process sent something else than packages");
  for (const OfferedPackage& package : *packages) {
    std::cout << package.code << ' ' << package.version << '\n';
  }
  return EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const CommandLine line = Parse(arguments);
    if (!line.isRight) {
      return Fail("usage: guarded-host [--seconds N] [--mebibytes N] FOLDER MACHINE-TYPE");
    }
    if (!line.isChild) return QueryGuarded(arguments, line.limits);
    return QueryInChild(line.limits, line.operands[0], line.operands[1]);
  } catch (const std::exception& error) {
    return Fail(error.what());
  }
}
