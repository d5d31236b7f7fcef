// Finds the files that descriptors name, as the target's file system would.
#ifndef VORNIK_CLI_LINT_CHECKS_LOOKUP_H
#define VORNIK_CLI_LINT_CHECKS_LOOKUP_H

#include <boost/filesystem/path.hpp>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "lint/target.h"

namespace Vornik::Cli {

struct LookedUpFile {
  bool exists = false;    // as a regular file
  bool outside = false;   // by its name, or through a link
  std::string otherCase;  // exists is false: the name of a file that differs only in case
};

class LintLookup {
 public:
  LintLookup(std::string folder, LintTarget target);

  // A name as a descriptor has it, relative to the folder. For the system on which lint runs, the
  // result is the payload filter's.
  LookedUpFile Find(const std::string& name);

 private:
  // The names in a folder, by their folded form.
  using Listing = std::map<std::string, std::vector<std::string>>;
  enum class Case { Exact, Any };

  const Listing& ListingOf(const std::string& folder);

  // The path below the folder that the parts lead to, relative to it; empty if there is none.
  std::string Resolve(const std::vector<std::string>& parts, Case letters);

  std::string NativePath(const std::string& name, const std::vector<std::string>& parts);

  // The folder with its links resolved, once; empty if that fails.
  const boost::filesystem::path& RealFolder();

  std::string folder_;
  LintTarget target_;
  std::optional<boost::filesystem::path> realFolder_;
  std::map<std::string, Listing> listings_;
};

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_LINT_CHECKS_LOOKUP_H
