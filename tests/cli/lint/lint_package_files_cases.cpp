// The files that a package names.
#include "lint/lint_cases.h"

namespace Vornik::Testing {

namespace {

LintCase NameCase(const std::string& id, const std::string& what, const std::string& property,
                  const std::string& faulty, const std::string& sound,
                  const LintFiles& others = {}) {
  const std::string text = PutValue(SoundText(id), property, faulty);
  return {id,
          what,
          PackageFiles(id, text) + others,
          PackageFiles(id, PutValue(SoundText(id), property, sound)) + others,
          {id + ".xml:" + ValueOf(text, property)}};
}

LintCase SharedCase() {
  const std::string id = "payload-shared";
  const auto text = [&id](const std::string& suffix, const std::string& payload) {
    return PutValue(SoundText(id + suffix), "payload", payload);
  };
  const std::string b = text("-b", "sub/..\\./PAYLOAD-shared-a.exe");
  const std::string a = SoundText(id + "-a");
  return {id,
          "",
          SoundPackage(id + "-a") + PackageFiles(id + "-b", b),
          SoundPackage(id + "-a") + SoundPackage(id + "-b"),
          {id + "-a.xml:" + ValueOf(a, "payload"), id + "-b.xml:" + ValueOf(b, "payload")}};
}

// A pack's member and its own descriptor are one package.
LintCase SharedByOneCase() {
  const std::string id = "payload-shared";
  LintCase one = SharedCase();
  one.what = "member";
  one.sound = PackFiles(id, OwnInstance(id + ".xml"), SoundInstance(id + "-member"));
  return one;
}

}  // namespace

std::vector<LintCase> PackageFileCases() {
  const std::string missing = "payload-missing";
  const std::string outside = "payload-outside";
  return {
      NameCase("xml-filename-missing-file", "", "xmlFilename", "gone.xml",
               "xml-filename-missing-file.xml"),
      NameCase("xml-filename-other", "", "xmlFilename", "xml-filename-other-b.xml",
               ".\\XML-filename-other.xml", SoundPackage("xml-filename-other-b")),
      NameCase(missing, "gone", "payload", "gone.exe", missing + ".exe"),
      NameCase(missing, "folder", "payload", missing, missing + "\\x.exe",
               {{missing + "/x.exe", "x"}}),
      NameCase(outside, "up", "payload", "../x.exe", "sub/../" + outside + ".exe", {{"sub/x", ""}}),
      NameCase(outside, "deep", "payload", "sub\\..\\..\\x.exe", outside + ".exe"),
      SharedCase(),
      SharedByOneCase(),
      {"files-unnamed",
       "",
       SoundPackage("files-unnamed") + LintFiles{{"files-unnamed.bin", "x"}},
       SoundPackage("files-unnamed") + LintFiles{{"files-unnamed/x.bin", "x"}},
       {".:0:0"}},
  };
}

}  // namespace Vornik::Testing
