// Findings about the markers by which a file's kind is told.
#ifndef VORNIK_CLI_LINT_MARKERS_H
#define VORNIK_CLI_LINT_MARKERS_H

#include <string>

#include "descriptor_markers.h"
#include "lint_report.h"

namespace Vornik::Cli {

// One file that ends in ".xml", with what the target's search makes of it.
struct SearchedFile {
  const std::string& name;
  const std::string& bytes;
  const std::string& text;  // as it is searched
  DescriptorMarkers markers;
};

void CheckMarkers(const SearchedFile& file, LintReport& report);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_LINT_MARKERS_H
