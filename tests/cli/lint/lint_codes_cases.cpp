// Identification codes.
#include "lint/lint_cases.h"

namespace Vornik::Testing {

namespace {

// Two packages of the codes given.
LintCase TwoCodesCase(const std::string& id, const std::string& one, const std::string& other,
                      const std::string& soundOther) {
  const auto text = [&id](const std::string& suffix, const std::string& code) {
    return PutValue(SoundText(id + suffix), "identificationCode", code);
  };
  const std::string place = ValueOf(text("-a", one), "identificationCode");
  return {
      id,
      "individuals",
      PackageFiles(id + "-a", text("-a", one)) + PackageFiles(id + "-b", text("-b", other)),
      PackageFiles(id + "-a", text("-a", one)) + PackageFiles(id + "-b", text("-b", soundOther)),
      {id + "-a.xml:" + place, id + "-b.xml:" + place}};
}

LintCase RepeatedInPackCase() {
  const std::string id = "code-repeated";
  const std::string own = OwnInstance(id + ".xml");
  const std::string a = SoundInstance(id + "-a");
  const std::string b = SoundInstance(id + "-b");
  const std::string again = PutValue(b, "identificationCode", id + "-a");
  const std::string text = PackText({own, a, again});
  return {id,
          "members",
          {{id + ".xml", text}},
          {{id + ".xml", PackText({own, a, b})}},
          {id + ".xml:" + ValueOf(text, "identificationCode", 0, 2),
           id + ".xml:" + ValueOf(text, "identificationCode", 0, 3)}};
}

// An individual descriptor and a member of the same code. changed: the descriptor.
LintCase ShadowedCase(const std::string& what, const std::string& changed) {
  const std::string id = "code-shadowed";
  const std::string code = id + "-member";
  const LintFiles sound = PackFiles(id, OwnInstance(id + ".xml"), SoundInstance(code));
  return {id,
          what,
          LintFiles{sound.front()} + PackageFiles(code, changed),
          sound,
          {code + ".xml:" + ValueOf(changed, "identificationCode")}};
}

LintCase ShadowedByOwnInstanceCase() {
  const std::string id = "code-shadowed";
  const std::string code = id + "-member";
  const std::string own = PutValue(OwnInstance(id + ".xml"), "identificationCode", code);
  const std::string text = SoundText(code);
  return {id,
          "own",
          LintFiles{{id + ".xml", PackText({own})}} + PackageFiles(code, text),
          LintFiles{{id + ".xml", PackText({OwnInstance(id + ".xml")})}} + PackageFiles(code, text),
          {code + ".xml:" + ValueOf(text, "identificationCode")}};
}

LintCase TwoPacksCase() {
  const std::string id = "code-shadowed";
  const std::string code = id + "-member";
  const std::string member = SoundInstance(code);
  const std::string changed = PutValue(member, "Version", "2");
  const auto pack = [&id](const std::string& name, const std::string& one) {
    return PackText({PutValues(OwnInstance(id + name), "applicableMachineTypes", {"1234"}), one});
  };
  return {id,
          "packs",
          {{id + "-1.xml", pack("-1.xml", member)}, {id + "-2.xml", pack("-2.xml", changed)}},
          {{id + "-1.xml", pack("-1.xml", member)}, {id + "-2.xml", pack("-2.xml", member)}},
          {id + "-2.xml:" + ValueOf(pack("-2.xml", changed), "identificationCode", 0, 2)}};
}

}  // namespace

std::vector<LintCase> CodeCases() {
  const std::string shadowed = SoundText("code-shadowed-member");
  return {
      TwoCodesCase("code-repeated", "repeated", "repeated", "another"),
      RepeatedInPackCase(),
      TwoCodesCase("code-case", "one-code", "One-Code", "other-code"),
      ShadowedCase("value", PutValue(shadowed, "Version", "2")),
      ShadowedCase("more", PutValue(shadowed, "description", "more")),
      ShadowedCase("less", Drop(shadowed, "category")),
      ShadowedByOwnInstanceCase(),
      TwoPacksCase(),
  };
}

}  // namespace Vornik::Testing
