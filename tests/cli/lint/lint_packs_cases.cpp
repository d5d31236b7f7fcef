// Packs.
#include "lint/lint_cases.h"

namespace Vornik::Testing {

namespace {

constexpr const char* types = "applicableMachineTypes";
constexpr const char* systems = "applicableOperatingSystems";

LintCase OwnMissingCase(const std::string& what, const std::string& fileName) {
  const std::string id = "pack-own-missing";
  const std::string own = OwnInstance(id + ".xml");
  const std::string member = SoundInstance(id + "-member");
  const std::string other = PutValue(own, "xmlFilename", fileName);
  return {id,
          what,
          PackFiles(id, other, member),
          PackFiles(id, own, member),
          {id + ".xml:" + PlaceIn(PackText({other}), "<INSTANCE")}};
}

// The own instance's name differs in case, and a member comes before it and is lost.
LintCase OwnCaseCase() {
  const std::string id = "pack-own-missing";
  const std::string own = OwnInstance(id + ".xml");
  const std::string other = PutValue(own, "xmlFilename", "Pack-Own-Missing.xml");
  const std::string member = SoundInstance(id + "-member");
  return {id,
          "case behind",
          PackFiles(id, member, other),
          PackFiles(id, member, own),
          {id + ".xml:" + PlaceIn(PackText({member, other}), "<INSTANCE", 2)}};
}

// The last own instance is the pack's; those before it become packages.
LintCase OwnRepeatedCase() {
  const std::string id = "pack-own-repeated";
  const std::string own = OwnInstance(id + ".xml");
  const std::string member = SoundInstance(id + "-member");
  const std::string unnamed = Drop(member, "xmlFilename");
  return {id,
          "",
          PackFiles(id, own, unnamed),
          PackFiles(id, own, member),
          {id + ".xml:" + PlaceIn(PackText({own}), "<INSTANCE")}};
}

LintCase ListMissingCase(const std::string& what, const std::string& own,
                         const std::string& place) {
  const std::string id = "pack-list-missing";
  const std::string member = SoundInstance(id + "-member");
  return {id,
          what,
          PackFiles(id, own, member),
          PackFiles(id, OwnInstance(id + ".xml"), member),
          {id + ".xml:" + place}};
}

// Two packs; the second one's lists decide whether a machine has both.
LintCase CompetingCase(const std::string& what, const std::string& type, const std::string& system,
                       const std::string& soundType, const std::string& soundSystem) {
  const std::string id = "packs-compete";
  const auto pack = [&id](const std::string& name, const std::string& one, const std::string& two) {
    return LintFiles{
        {id + name,
         PackText({PutValues(PutValues(OwnInstance(id + name), types, {one}), systems, {two})})}};
  };
  const LintFiles first = pack("-1.xml", "Desk [1234]", "10");
  return {id,
          what,
          first + pack("-2.xml", type, system),
          first + pack("-2.xml", soundType, soundSystem),
          {id + "-1.xml:" + ElementOf(first.front().second, types)}};
}

LintCase MemberFileCase(const std::string& what, const std::string& name) {
  const std::string id = "member-file-missing";
  const std::string own = OwnInstance(id + ".xml");
  const std::string member = SoundInstance(id + "-member");
  const std::string text = PackText({own, PutValue(member, "xmlFilename", name)});
  return {id,
          what,
          LintFiles{{id + ".xml", text}} + SoundPackage(id + "-member"),
          PackFiles(id, own, member),
          {id + ".xml:" + ValueOf(text, "xmlFilename", 0, 2)}};
}

}  // namespace

std::vector<LintCase> PackCases() {
  const std::string own = OwnInstance("pack-list-missing.xml");
  const std::string noSystem = Put(own, systems, "<VALUE.ARRAY><VALUE/></VALUE.ARRAY>");
  return {
      OwnMissingCase("other", "pack-own-missing-member.xml"),
      OwnMissingCase("case", "Pack-Own-Missing.xml"),
      OwnCaseCase(),
      OwnRepeatedCase(),
      ListMissingCase("types", Drop(own, types), PlaceIn(PackText({own}), "<INSTANCE")),
      ListMissingCase("systems", noSystem, ElementOf(PackText({noSystem}), systems)),
      CompetingCase("same", "1234", "10", "1235", "10"),
      CompetingCase("any", "Other [1234]", "0", "Other [1234]", "11"),
      MemberFileCase("missing", "gone.xml"),
      MemberFileCase("folder", "."),
  };
}

}  // namespace Vornik::Testing
