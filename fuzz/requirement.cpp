#include "requirement.h"

#include <cstdlib>
#include <iostream>

namespace Vornik::Fuzzing {

void Fail(std::string_view expected, std::string_view details) {
  std::cerr << "expected, but not so: " << expected << '\n' << details << std::endl;
  std::abort();
}

}  // namespace Vornik::Fuzzing
