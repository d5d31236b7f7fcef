// Descriptors that a query must not meet: by the library's contract, one kind holds a query for
// ever and another ends the process.
#ifndef VORNIK_CLI_MODEL_HAZARD_CHECK_H
#define VORNIK_CLI_MODEL_HAZARD_CHECK_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "model/query_settings.h"
#include "reading/folder_contents.h"

namespace Vornik::Cli {

enum class HazardKind {
  InstanceWithoutClassName,  // a pack's INSTANCE whose first attribute is not CLASSNAME
  UnclassifiedDriver,  // a package with more "driverFiles" than "driverFilesClassification" values
};

struct Hazard {
  HazardKind kind = HazardKind::InstanceWithoutClassName;
  std::string file;  // path of the descriptor to change
  int line = 0;      // of the INSTANCE, or of the classifications, from 1; 0: not known
  std::string code;  // UnclassifiedDriver: the package's identification code, which may be empty
  std::size_t driverFiles = 0;
  std::size_t classifications = 0;
};

// The hazard that the query of these settings would meet first, in the order in which it reads and
// builds: contents is what it takes or would read. Nothing where the query ends before it meets
// one.
std::optional<Hazard> FindHazard(const QuerySettings& settings, const FolderContents& contents);

// The first hazard of each file, whatever the query.
std::vector<Hazard> FindHazards(const FolderContents& contents);

// One line for a person, without a full stop: where it is, what it does and what to change.
std::string Describe(const Hazard& hazard);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_MODEL_HAZARD_CHECK_H
