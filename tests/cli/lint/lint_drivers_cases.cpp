// Driver files and superseding.
#include "lint/lint_cases.h"

namespace Vornik::Testing {

namespace {

constexpr const char* files = "driverFiles";
constexpr const char* classes = "driverFilesClassification";

std::string WithDrivers(const std::string& id, const std::vector<std::string>& drivers,
                        const std::vector<std::string>& classifications) {
  const std::string text = PutValues(SoundText(id), files, drivers);
  return classifications.empty() ? text : PutValues(text, classes, classifications);
}

LintCase OneCase(const std::string& id, const std::string& what, const std::string& faulty,
                 const std::string& sound, const std::string& place) {
  return {id, what, PackageFiles(id, faulty), PackageFiles(id, sound), {id + ".xml:" + place}};
}

LintCase UnparsedCase(const std::string& what, const std::string& value) {
  const std::string id = "driver-file-unparsed";
  const std::string text = WithDrivers(id, {"a.sys-#1", value}, {});
  return OneCase(id, what, text, WithDrivers(id, {"a.sys-#1", "-#b.sys-#-#1"}, {}),
                 ValueOf(text, files, 1));
}

// Two packages of one driver file with these versions.
LintCase VersionCase(const std::string& id, const std::string& what, const std::string& one,
                     const std::string& other, const std::string& soundOther,
                     const std::string& found, const std::string& soundSystem = "10") {
  const auto text = [&id](const std::string& suffix, const std::string& driver,
                          const std::string& version) {
    return PutValue(PutValues(SoundText(id + suffix), files, {driver}), "Version", version);
  };
  const std::string a = text("-a", "one.sys-#1", one);
  const std::string b = text("-b", "ONE.SYS-#2", other);
  const std::string soundB =
      PutValues(text("-b", "ONE.SYS-#2", soundOther), "orderedOSList", {soundSystem});
  return {id,
          what,
          PackageFiles(id + "-a", a) + PackageFiles(id + "-b", b),
          PackageFiles(id + "-a", a) + PackageFiles(id + "-b", soundB),
          {id + found + ".xml:" + ValueOf(b, "Version")}};
}

LintCase CategoryCase() {
  const std::string id = "category-shared";
  const std::string a = PutValue(SoundText(id + "-a"), "category", id);
  const std::string b = PutValue(PutValue(SoundText(id + "-b"), "category", id), "Version", "2");
  return {id,
          "",
          PackageFiles(id + "-a", a) + PackageFiles(id + "-b", b),
          PackageFiles(id + "-a", a) + PackageFiles(id + "-b", PutValues(b, files, {"b.sys-#2"})),
          {id + "-b.xml:" + ValueOf(b, "category")}};
}

LintCase ListCase(const std::string& id, const std::string& faulty, const std::string& sound) {
  const std::string text = PutValues(SoundText(id), "supersede", {sound, faulty});
  return {id,
          "",
          PackageFiles(id, text) + SoundPackage(sound),
          PackageFiles(id, PutValues(SoundText(id), "supersede", {sound})) + SoundPackage(sound),
          {id + ".xml:" + ValueOf(text, "supersede", 1)}};
}

// Three packages, of which the last one's list closes the ring.
LintCase RingCase() {
  const std::string id = "supersede-ring";
  const auto text = [&id](const std::string& name, const std::string& listed) {
    return PutValues(SoundText(id + name), "supersede", {id + listed});
  };
  const LintFiles chain =
      PackageFiles(id + "-a", text("-a", "-B")) + PackageFiles(id + "-b", text("-b", "-c"));
  const std::string place = ":" + ElementOf(text("-a", "-B"), "supersede");
  return {id,
          "",
          chain + PackageFiles(id + "-c", text("-c", "-a")),
          chain + SoundPackage(id + "-c"),
          {id + "-a.xml" + place, id + "-b.xml" + place, id + "-c.xml" + place}};
}

// The last one's list is applied last and keeps it; in the sound folder it is applied first.
LintCase ChainCase(const std::string& what, const std::string& newest, const std::string& older,
                   const std::string& soundNewest) {
  const std::string id = "supersede-chain";
  const auto text = [&id](const std::string& name, const std::string& listed) {
    return PutValues(SoundText(id + name), "supersede", {id + listed});
  };
  const LintFiles chain =
      PackageFiles(id + older, text(older, "-oldest")) + SoundPackage(id + "-oldest");
  const std::string faulty = text(newest, older);
  return {id,
          what,
          chain + PackageFiles(id + newest, faulty),
          chain + PackageFiles(id + soundNewest, text(soundNewest, older)),
          {id + newest + ".xml:" + ValueOf(faulty, "supersede")}};
}

LintCase OverriddenCase() {
  const std::string id = "supersede-overridden";
  const auto text = [&id](const std::string& suffix, const std::string& version) {
    return PutValue(PutValues(SoundText(id + suffix), files, {"one.sys-#1"}), "Version", version);
  };
  const auto newer = [&](const std::string& version) {
    return PutValues(text("", version), "supersede", {id + "-OLD"});
  };
  const LintFiles older = PackageFiles(id + "-old", text("-old", "9.0"));
  return {id,
          "",
          PackageFiles(id, newer("10.1")) + older,
          PackageFiles(id, newer("9.1")) + older,
          {id + ".xml:" + ValueOf(newer("10.1"), "supersede")}};
}

LintCase RequirementCase(const std::string& list) {
  const std::string id = "requirement-unknown";
  const std::string sound = PutValues(SoundText(id), list, {"Requirement-Unknown-There"});
  const std::string faulty =
      PutValues(SoundText(id), list, {"Requirement-Unknown-There", "requirement-unknown-gone"});
  const LintFiles there = SoundPackage("requirement-unknown-there");
  return {id,
          list,
          PackageFiles(id, faulty) + there,
          PackageFiles(id, sound) + there,
          {id + ".xml:" + ValueOf(faulty, list, 1)}};
}

// A pack's own instance beside another one becomes a package; alone its driver files are not read.
LintCase OwnInstanceCase() {
  const std::string id = "classifications-missing";
  const std::string file = id + "-pack.xml";
  const std::string own = OwnInstance(file);
  const std::string faulty =
      PutValues(PutValues(own, files, {"a.sys-#1", "b.sys-#1"}), classes, {"x"});
  return {id,
          "own",
          {{file, PackText({faulty, own})}},
          {{file, PackText({faulty})}},
          {file + ":" + ElementOf(PackText({faulty, own}), classes)}};
}

}  // namespace

std::vector<LintCase> DriverCases() {
  const std::string missing = "classifications-missing";
  const std::string surplus = "classifications-surplus";
  const std::string fewer = WithDrivers(missing, {"a.sys-#1", "b.sys-#1"}, {"x"});
  const std::string more = WithDrivers(surplus, {"a.sys-#1"}, {"x", "y"});
  return {
      OneCase(missing, "", fewer, WithDrivers(missing, {"a.sys-#1", "b.sys-#1"}, {"x", "y"}),
              ElementOf(fewer, classes)),
      OwnInstanceCase(),
      OneCase(surplus, "", more, WithDrivers(surplus, {"a.sys-#1"}, {"x"}),
              ValueOf(more, classes, 1)),
      UnparsedCase("one", "b.sys#1"),
      UnparsedCase("three", "b.sys-#1-#2"),
      UnparsedCase("version", "b.sys-#"),
      VersionCase("version-order-mixed", "letters", "AB12X", "AB9X", "AB13X", "-b"),
      VersionCase("version-order-mixed", "suffix", "1.0b10", "1.0b9", "2.0", "-b"),
      VersionCase("version-order", "major", "10.1", "9.0", "11.0", "-b"),
      VersionCase("version-order", "minor", "1.10", "1.9", "1.90", "-b"),
      VersionCase("version-order", "machines", "10.1", "9.0", "9.0", "-b", "11"),
      VersionCase("version-equal", "", "1.0b", "1.0B", "1.0c", "-b"),
      VersionCase("version-equal", "machines", "1.0", "1.0", "1.0", "-b", "11"),
      CategoryCase(),
      ListCase("supersede-unknown", "supersede-unknown-gone", "supersede-unknown-there"),
      ListCase("supersede-self", "Supersede-SELF", "supersede-self-other"),
      RingCase(),
      ChainCase("order", "-a", "-b", "-c"),
      OverriddenCase(),
      RequirementCase("preReq"),
      RequirementCase("coReq"),
  };
}

}  // namespace Vornik::Testing
