// Platforms.
#include "lint/lint_cases.h"

namespace Vornik::Testing {

namespace {

LintCase ListCase(const std::string& id, const std::string& what, const std::string& list,
                  const std::string& faulty, const std::string& sound) {
  const std::string text = PutValues(SoundText(id), list, {faulty});
  return {id,
          what,
          PackageFiles(id, text),
          PackageFiles(id, PutValues(SoundText(id), list, {sound})),
          {id + ".xml:" + ValueOf(text, list)}};
}

LintCase PackListCase(const std::string& id, const std::string& list, const std::string& faulty,
                      const std::string& sound) {
  const std::string member = SoundInstance(id + "-member");
  const auto own = [&](const std::string& value) {
    return PutValues(OwnInstance(id + ".xml"), list, {"1234", value});
  };
  return {id,
          "pack",
          PackFiles(id, own(faulty), member),
          PackFiles(id, own(sound), member),
          {id + ".xml:" + ValueOf(PackText({own(faulty)}), list, 1)}};
}

LintCase UnequalCase(const std::string& what, const std::string& shortest,
                     const std::vector<std::string>& longerLists) {
  const std::string id = "lists-unequal";
  std::string faulty = SoundText(id);
  for (const std::string& list : longerLists) {
    const std::string entry = list == "orderedMachineTypeList" ? "1235" : "11";
    faulty = PutValues(faulty, list, {entry, entry});
  }
  return {id,
          what,
          PackageFiles(id, faulty),
          SoundPackage(id),
          {id + ".xml:" + ElementOf(faulty, shortest)}};
}

// A package and a pack that lists machine type 1234 alone.
LintCase UnreachableCase(const std::string& what, const std::string& text) {
  const std::string id = "package-unreachable";
  const LintFiles pack{{id + "-pack.xml", PackText({OwnInstance(id + "-pack.xml")})}};
  return {id,
          what,
          PackageFiles(id, text) + pack,
          SoundPackage(id) + pack,
          {id + ".xml:" + ElementOf(text, "orderedMachineTypeList")}};
}

// A package beside a pack that lists another one.
LintCase UnlistedCase() {
  const std::string id = "package-unlisted";
  const std::string own = OwnInstance(id + "-pack.xml");
  const auto pack = [&](const std::string& code) {
    return LintFiles{{id + "-pack.xml", PackText({own, SoundInstance(code)})}};
  };
  return {id,
          "",
          SoundPackage(id) + SoundPackage(id + "-b") + pack(id + "-b"),
          SoundPackage(id) + pack(id),
          {id + ".xml:" + ValueOf(SoundText(id), "identificationCode")}};
}

// A package that a pack for other machines lists, beside a pack for its own machine type.
LintCase ListedElsewhereCase(const std::string& what, const std::string& list,
                             const std::string& faulty, const std::string& sound) {
  const std::string id = "package-listed-elsewhere";
  const std::string file = id + ".xml";
  const LintFiles other{
      {id + "-other.xml", PackText({PutValues(OwnInstance(id + "-other.xml"),
                                              "applicableOperatingSystems", {"12"})})}};
  const auto pack = [&](const std::string& value) {
    const std::string own = PutValues(OwnInstance(file), list, {value});
    return PackText({own, SoundInstance(id + "-member")});
  };
  return {id,
          what,
          LintFiles{{file, pack(faulty)}} + other,
          LintFiles{{file, pack(sound)}} + other,
          {file + ":" + ElementOf(pack(faulty), "orderedMachineTypeList")}};
}

// A second entry that would be reached but does not count.
std::string SurplusEntry(const std::string& text) {
  return PutValues(text, "orderedMachineTypeList", {"9999", "1234"});
}

}  // namespace

std::vector<LintCase> PlatformCases() {
  const std::string reachText = SoundText("package-unreachable");
  return {
      UnequalCase("types", "orderedMachineTypeList",
                  {"orderedOSList", "orderedOSArchitectureList"}),
      UnequalCase("systems", "orderedOSList", {"orderedMachineTypeList"}),
      UnequalCase("architectures", "orderedOSArchitectureList",
                  {"orderedMachineTypeList", "orderedOSList"}),
      ListCase("platform-not-number", "system", "orderedOSList", "x64", "0"),
      ListCase("platform-not-number", "architecture", "orderedOSArchitectureList", "any", "0"),
      PackListCase("platform-not-number", "applicableOperatingSystems", "ten", " 10 "),
      ListCase("machine-type-invalid", "five", "orderedMachineTypeList", "12345", "1234"),
      ListCase("machine-type-invalid", "name", "orderedMachineTypeList", "Desk [1234]", "1234"),
      PackListCase("machine-type-invalid", "applicableMachineTypes", "Desk [12a4]", "Desk [1235]"),
      UnlistedCase(),
      ListedElsewhereCase("type", "applicableMachineTypes", "Lap [5678]", "Desk [1234]"),
      ListedElsewhereCase("system", "applicableOperatingSystems", "11", "10"),
      UnreachableCase("type", PutValues(reachText, "orderedMachineTypeList", {"9999"})),
      UnreachableCase("surplus", SurplusEntry(reachText)),
  };
}

}  // namespace Vornik::Testing
