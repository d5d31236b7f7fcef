// Files, markers and documents: what yields no package, or another one.
#include "lint/lint_sentences.h"

#include <algorithm>

namespace Vornik::Testing {

namespace {

// "... so it gives no package", and the like: the package that the case is named after.
bool LosesPackage(const LintFiles& files, const LintCase& of) {
  return !HasCode(Ask(files), of.id);
}

std::size_t CountOfPackages(const Asked& asked) {
  return static_cast<std::size_t>(
      std::count_if(asked.records.begin(), asked.records.end(),
                    [](const auto& record) { return !record.kovuXmlFile.empty(); }));
}

// "... so it gives no package", of an INSTANCE of a pack; one is the pack's own.
bool YieldsFewerPackages(const LintFiles& files, const LintCase& of) {
  const std::string& text = TextOfFile(files, of.id + ".xml");
  std::size_t instances = 0;
  for (const char* element : {"<INSTANCE", "<Instance"}) {
    for (std::size_t at = 0; (at = text.find(element, at)) != std::string::npos; ++at) ++instances;
  }
  return CountOfPackages(Ask(files)) + 1 < instances;
}

// "... is taken for another kind"
bool LosesMarked(const LintFiles& files, const LintCase& of) {
  return of.what == "pack" ? CountOfPackages(Ask(files)) == 0 : LosesPackage(files, of);
}

// A file that no query reads gives its package under a name that is read.
bool IsLostByItsName(const LintFiles& files, const std::string& end, const LintCase& of) {
  const LintFiles renamed{{"read.xml", TextOfFile(files, end)}};
  return !HasCode(Ask(files), of.id) && HasCode(Ask(renamed), of.id);
}

bool FindsNothing(const LintFiles& files, const LintCase& /*of*/) {
  return Ask(files).code == QueryCode::NoResults;
}

// "no query uses them": the answer is the same without the file.
bool IsUnused(const LintFiles& files, const LintCase& of) {
  const auto isExtra = [&of](const auto& file) { return file.first == of.id + ".bin"; };
  LintFiles without = files;
  without.erase(std::remove_if(without.begin(), without.end(), isExtra), without.end());
  const Asked with = Ask(files);
  return without.size() < files.size() && with.records.size() == Ask(without).records.size() &&
         HasCode(with, of.id);
}

// Once the comment with the pack's marker is gone, the descriptor is read as it is meant.
bool IsReadAsPack(const LintFiles& files, const LintCase& of) {
  const std::string comment = "<!-- ORXQDL_SystemUpdateProduct -->\n";
  const std::string& text = TextOfFile(files, of.id + ".xml");
  if (text.find(comment) == std::string::npos) return false;
  return LosesPackage(files, of) &&
         HasCode(Ask(WithFile(files, of.id + ".xml", Replace(text, comment, ""))), of.id);
}

}  // namespace

LintClaims FileClaims() {
  return {
      {"extension-case", LosesPackage},
      {"extension-other", [](const LintFiles& files,
                             const LintCase& of) { return IsLostByItsName(files, ".bak", of); }},
      {"in-subfolder", [](const LintFiles& files,
                          const LintCase& of) { return IsLostByItsName(files, "/a.xml", of); }},
      {"not-readable", LosesPackage},
      {"no-marker", LosesPackage},
      {"marker-split", LosesMarked},
      {"marker-straddles", LosesMarked},
      {"marker-hidden", LosesMarked},
      {"utf-16", LosesPackage},
      {"both-markers", IsReadAsPack},
      {"no-descriptors", [](const LintFiles& files,
                            const LintCase&) { return Ask(files).code == QueryCode::NoResults; }},
      {"files-unnamed", IsUnused},
  };
}

LintClaims DocumentClaims() {
  return {
      {"over-limits",
       [](const LintFiles& files, const LintCase& of) {
         return of.what == "code" ? FindsNothing(files, of) : LosesPackage(files, of);
       }},
      {"not-well-formed", LosesPackage},
      {"no-root", LosesPackage},
      {"no-properties", LosesPackage},
      // Its sound twin is an individual descriptor.
      {"no-instances", LosesPackage},
      {"instance-misfit",
       [](const LintFiles& files, const LintCase&) { return StatusOfQuery(files) == 65; }},
      // "if the file were a pack"
      {"instance-misfit-unread",
       [](const LintFiles& files, const LintCase& of) {
         const std::string name = of.id + ".xml";
         const std::string pack =
             Replace(TextOfFile(files, name), "<CIM>", "<CIM><!-- ORXQDL_SystemUpdateProduct -->");
         return HasCode(Ask(files), of.id) && StatusOfQuery(WithFile(files, name, pack)) == 65;
       }},
      {"instance-code-too-long", YieldsFewerPackages},
      {"instance-empty", YieldsFewerPackages},
      // The inner one's code is read last, so that the outer one has it.
      {"instance-nested",
       [](const LintFiles& files, const LintCase& of) {
         const Asked asked = Ask(files);
         const QueryPackageResult* outer = FindRecord(asked, of.id + "-member");
         return outer == nullptr || outer->kovuXmlFile.empty();
       }},
      {"instance-unread", YieldsFewerPackages},
      // The second INSTANCE has a code, and the two are one package.
      {"instances-merged",
       [](const LintFiles& files, const LintCase& of) {
         const std::string& text = TextOfFile(files, of.id + ".xml");
         const std::size_t first = text.find("\"identificationCode\"");
         const bool hasTwo = text.find("\"identificationCode\"", first + 1) != std::string::npos;
         return hasTwo && Ask(files).records.size() == 1;
       }},
  };
}

}  // namespace Vornik::Testing
