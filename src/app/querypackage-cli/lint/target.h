// How the system for which a folder is meant reads texts and names, whichever system lint runs on.
#ifndef VORNIK_CLI_LINT_TARGET_H
#define VORNIK_CLI_LINT_TARGET_H

#include <string>
#include <string_view>
#include <vector>

#include "reading/descriptor_markers.h"

namespace Vornik::Cli {

enum class LintTarget { Windows, Posix };

#ifdef _WIN32
inline constexpr LintTarget nativeTarget = LintTarget::Windows;
#else
inline constexpr LintTarget nativeTarget = LintTarget::Posix;
#endif

// "windows", "posix"
const char* NameOf(LintTarget target);

// How the target's C library yields a file in which the markers are searched.
TextMode TextModeOf(LintTarget target);

// A file's bytes as the marker search gets them: on Windows in text mode.
std::string TextAsSearched(const std::string& bytes, LintTarget target);

// The parts of a name between separators, without empty ones and ".": "a\\b/c" is three on Windows
// and two on POSIX.
std::vector<std::string> NameParts(std::string_view name, LintTarget target);

// Whether ".." among the parts leads out of the folder that they start in.
bool LeadsOutside(const std::vector<std::string>& parts);

// The parts as they are left when each ".." takes away the part before it, whether that exists or
// not: so Windows resolves a name. One that leads outside stays.
std::vector<std::string> WithoutParents(const std::vector<std::string>& parts);

// Two names with the same key name the same file.
std::string NameKey(const std::vector<std::string>& parts, LintTarget target);

// Why the target's file system cannot have a name, as the end of "The name ... "; empty if it can.
// Separators are allowed.
std::string NameFault(std::string_view name, LintTarget target);

// Why the target may be unable to write the name in its encoding, in the same form.
std::string EncodingFault(std::string_view name, LintTarget target);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_LINT_TARGET_H
