#include "commands/exit_status.h"

#include <boost/core/demangle.hpp>
#include <iostream>
#include <typeinfo>

#include "output/console_text.h"

namespace Vornik::Cli {

void PrintNotice(const std::string& line) {
  std::cerr << "querypackage-cli: " + Printable(line) + '\n' << std::flush;
}

int Fail(int status, const std::string& line) {
  PrintNotice(line);
  return status;
}

std::string Describe(const std::exception& error) {
  return boost::core::demangle(typeid(error).name()) + ": " + error.what();
}

}  // namespace Vornik::Cli
