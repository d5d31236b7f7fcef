// Findings about the markers by which a file's kind is found.
#ifndef VORNIK_CLI_LINT_MARKERS_H
#define VORNIK_CLI_LINT_MARKERS_H

#include <string>

#include "inspection/descriptor_inspection.h"
#include "lint/report.h"

namespace Vornik::Cli {

// One file that ends in ".xml", as a query on the target reads it.
struct SearchedFile {
  const std::string& name;
  const DescriptorInspection& inspection;
  std::string text;  // as it is searched; empty where its bytes are not kept
};

void CheckMarkers(const SearchedFile& file, LintReport& report);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_LINT_MARKERS_H
