// Folders with exactly one mistake, and the same folders without it. Each finding of lint has at
// least one.
#ifndef VORNIK_TESTS_CLI_LINT_CASES_H
#define VORNIK_TESTS_CLI_LINT_CASES_H

#include <cstddef>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace Vornik::Testing {

// Names and bytes. A name that ends in a slash is a folder's; one with a slash inside is in a
// folder that is created with it.
using LintFiles = std::vector<std::pair<std::string, std::string>>;

struct LintCase {
  std::string id;    // of the finding
  std::string what;  // distinguishes cases with the same id, in one word
  LintFiles faulty;  // names begin with the id, so that cases can share a folder
  LintFiles sound;
  std::vector<std::string> places;  // of all findings of the id, "file:line:column", in order
  std::string target = "windows";
  bool needsCase = false;  // a file system with case-sensitive names
};

std::vector<LintCase> FileCases();
std::vector<LintCase> DocumentCases();
std::vector<LintCase> MarkupCases();
std::vector<LintCase> PropertyCases();
std::vector<LintCase> CodeCases();
std::vector<LintCase> PlatformCases();
std::vector<LintCase> DriverCases();
std::vector<LintCase> PackCases();
std::vector<LintCase> PackageFileCases();

// Those that this system can have.
std::vector<LintCase> AllLintCases();

void PrintTo(const LintCase& one, std::ostream* out);

// An INSTANCE and an individual descriptor without a finding: the code is also the stem of
// the names of descriptor and payload, and the category. For machine type 1234, system 10,
// architecture 9.
std::string SoundInstance(const std::string& code);
std::string SoundText(const std::string& code);

// A pack's own instance, for machine type 1234 under any system, and a pack of these instances. The
// class names are a pack's.
std::string OwnInstance(const std::string& packFile);
std::string PackText(const std::vector<std::string>& instances);

// A descriptor of this text with its payload.
LintFiles PackageFiles(const std::string& code, const std::string& text);
LintFiles SoundPackage(const std::string& code);

// A pack of an own instance and one member, which the caller may have changed, with the member's
// files. The pack is named after the id.
LintFiles PackFiles(const std::string& id, const std::string& own, const std::string& member);

LintFiles operator+(LintFiles a, const LintFiles& b);

// The text with its first property of the name replaced; added after the others if there is
// none. content: the XML between the property's tags.
std::string Put(std::string text, const std::string& property, const std::string& content);

// The same with values that are escaped.
std::string PutValue(const std::string& text, const std::string& property,
                     const std::string& value);
std::string PutValues(const std::string& text, const std::string& property,
                      const std::vector<std::string>& values);

// The text with a further property after all others.
std::string Append(std::string text, const std::string& property, const std::string& content);

// The text without its first property of the name.
std::string Drop(std::string text, const std::string& property);

// The text with the first place of a part replaced; the part has to be there.
std::string Replace(std::string text, const std::string& part, const std::string& by);

// "line:column" of the nth place of a part, counted from 1; a line ends with a line feed.
std::string PlaceIn(const std::string& text, const std::string& part, int nth = 1);

// Of the element of the nth property of the name, and of the VALUE at an index in it.
std::string ElementOf(const std::string& text, const std::string& property, int nth = 1);
std::string ValueOf(const std::string& text, const std::string& property, std::size_t index = 0,
                    int nth = 1);

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_CLI_LINT_CASES_H
