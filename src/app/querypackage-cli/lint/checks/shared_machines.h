// Whether two packages are for a machine that both of them suit.
#ifndef VORNIK_CLI_LINT_CHECKS_SHARED_MACHINES_H
#define VORNIK_CLI_LINT_CHECKS_SHARED_MACHINES_H

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "filters/platform.h"
#include "lint/package.h"

namespace Vornik::Cli {

class SharedMachines {
 public:
  // Of these packages, which are known by their indices. Their platforms are read when they are
  // first needed.
  explicit SharedMachines(std::vector<const LintPackage*> packages);

  bool Have(std::size_t a, std::size_t b);

 private:
  // By machine type, each pair of system and architecture once.
  using Platforms = std::map<std::string, std::vector<PlatformEntry>>;

  const Platforms& PlatformsOf(std::size_t package);

  std::vector<const LintPackage*> packages_;
  std::vector<std::optional<Platforms>> platforms_;
};

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_LINT_CHECKS_SHARED_MACHINES_H
