// Files and markers.
#include <string_view>

#include "lint/lint_cases.h"

namespace Vornik::Testing {

namespace {

// Each character as one of UTF-16, little end first.
std::string Utf16(std::string_view text) {
  std::string wide = "\xFF\xFE";
  for (const char c : text) {
    wide += c;
    wide += '\0';
  }
  return wide;
}

// A descriptor whose marker is in a comment, after these other bytes of its line.
std::string MarkerAfter(const std::string& code, const std::string& before) {
  return Replace(SoundText(code), "<CIM>\n<INSTANCE CLASSNAME=\"ORXQDL_SystemUpdateElement\">",
                 "<CIM>\n<!--" + before + "SystemUpdateElement--><INSTANCE CLASSNAME=\"x\">");
}

LintCase MarkerCase(const std::string& id, const std::string& what, const std::string& faulty,
                    const std::string& sound, const std::string& place) {
  return {id, what, PackageFiles(id, faulty), PackageFiles(id, sound), {id + ".xml:" + place}};
}

LintCase SplitCase(const std::string& what, const std::string& lineBreak) {
  const std::string sound = SoundText("marker-split");
  const std::string marker = "SystemUpdateElement";
  const std::string faulty = Replace(sound, marker, "System" + lineBreak + "UpdateElement");
  return MarkerCase("marker-split", what, faulty, sound, PlaceIn(sound, marker));
}

// The line with the marker begins with "<!--", so that the marker is at byte filler + 4.
LintCase StraddlingCase() {
  const std::string faulty = MarkerAfter("marker-straddles", std::string(1023 - 4 - 10, 'x'));
  const std::string sound = MarkerAfter("marker-straddles", std::string(1023 - 4 - 19, 'x'));
  return MarkerCase("marker-straddles", "", faulty, sound, PlaceIn(faulty, "SystemUpdateElement"));
}

LintCase HiddenCase(const std::string& what, char byte) {
  const std::string faulty = MarkerAfter("marker-hidden", std::string(1, byte));
  return MarkerCase("marker-hidden", what, faulty, MarkerAfter("marker-hidden", " "),
                    PlaceIn(faulty, "SystemUpdateElement"));
}

// A pack that is no descriptor but for the search.
LintCase PackMarkerCase() {
  const std::string id = "marker-split";
  const std::string sound = PackText({OwnInstance(id + ".xml"), SoundInstance(id + "-member")});
  const std::string marker = "ORXQDL_SystemUpdateProduct";
  const std::string faulty = Replace(sound, marker, "ORXQDL_System\r\n \tUpdateProduct");
  return {id,
          "pack",
          PackageFiles(id, faulty),
          PackageFiles(id, sound),
          {id + ".xml:" + PlaceIn(sound, marker)}};
}

LintCase BothMarkersCase() {
  const std::string id = "both-markers";
  const std::string faulty =
      Replace(SoundText(id), "<CIM>\n", "<CIM>\n<!-- ORXQDL_SystemUpdateProduct -->\n");
  return {id,
          "",
          PackageFiles(id, faulty),
          PackFiles(id, OwnInstance(id + ".xml"), SoundInstance(id + "-member")),
          {id + ".xml:" + PlaceIn(faulty, "ORXQDL_SystemUpdateProduct")}};
}

// The name of a payload that is there.
LintCase PayloadNameCase(const std::string& id, const std::string& what, const std::string& name,
                         const std::string& soundName, const std::string& target = "windows") {
  const std::string faulty = PutValue(SoundText(id), "payload", name);
  const std::string sound = PutValue(SoundText(id), "payload", soundName);
  return {id,
          what,
          PackageFiles(id, faulty) + LintFiles{{soundName, "x"}},
          PackageFiles(id, sound) + LintFiles{{soundName, "x"}},
          {id + ".xml:" + ValueOf(faulty, "payload")},
          target};
}

std::string PlaceOfFile(const std::string& name) { return name + ":0:0"; }

}  // namespace

std::vector<LintCase> FileCases() {
  const std::string caseId = "extension-case";
  const std::string otherId = "extension-other";
  const std::string subId = "in-subfolder";
  std::vector<LintCase> cases{
      {"no-descriptors",
       "empty",
       {{"no-descriptors.txt", "x"}},
       SoundPackage("no-descriptors"),
       {PlaceOfFile(".")}},
      {"no-descriptors",
       "broken",
       {{"no-descriptors.xml", "<a/>"}},
       SoundPackage("no-descriptors"),
       {PlaceOfFile(".")}},
      {caseId,
       "",
       {{caseId + ".XML", SoundText(caseId)}},
       SoundPackage(caseId),
       {PlaceOfFile(caseId + ".XML")}},
      {otherId,
       "",
       {{otherId + ".xml.bak", SoundText(otherId)}},
       {{otherId + ".xml.bak", "<a/>"}},
       {PlaceOfFile(otherId + ".xml.bak")}},
      {subId,
       "",
       {{subId + "/a.xml", SoundText(subId)}},
       {{subId + "/a.xml", "<a/>"}, {subId + "/a.txt", SoundText(subId)}},
       {PlaceOfFile(subId + "/a.xml")}},
      {"not-readable",
       "folder",
       {{"not-readable.xml/", ""}},
       SoundPackage("not-readable"),
       {PlaceOfFile("not-readable.xml")}},
      {"no-marker",
       "",
       PackageFiles("no-marker", Replace(SoundText("no-marker"), "SystemUpdateElement", "x")),
       SoundPackage("no-marker"),
       {PlaceOfFile("no-marker.xml")}},
      SplitCase("lf", "\n"),
      SplitCase("crlf", "\r\n"),
      SplitCase("indent", "\n\t  "),
      PackMarkerCase(),
      StraddlingCase(),
      HiddenCase("zero", '\0'),
      HiddenCase("end", '\x1A'),
      {"utf-16",
       "",
       PackageFiles("utf-16", Utf16(SoundText("utf-16"))),
       SoundPackage("utf-16"),
       {PlaceOfFile("utf-16.xml")}},
      BothMarkersCase(),
      PayloadNameCase("name-encoding", "payload", "name-encoding-\xC3\xA9.exe",
                      "name-encoding-e.exe"),
      {"name-encoding",
       "descriptor",
       {{"name-encoding-\xC3\xA9.xml", SoundText("name-encoding")}},
       SoundPackage("name-encoding"),
       {PlaceOfFile("name-encoding-\xC3\xA9.xml")}},
      PayloadNameCase("name-invalid", "device", "nUl.txt", "name-invalid-nul.txt"),
      PayloadNameCase("name-invalid", "port", "sub/com7", "name-invalid/com17"),
      PayloadNameCase("name-invalid", "colon", "C:/name-invalid.txt", "name-invalid.txt"),
      PayloadNameCase("name-invalid", "dot", "name-invalid.", "name-invalid.txt"),
      PayloadNameCase("name-invalid", "blank", "name-invalid /x", "name-invalid/x"),
      PayloadNameCase("name-invalid", "long", std::string(256, 'x'), std::string(200, 'x')),
      PayloadNameCase("separator-foreign", "", "separator-foreign\\x.exe",
                      "separator-foreign/x.exe", "posix"),
      {"name-collision",
       "",
       {{"name-collision.txt", ""}, {"Name-Collision.txt", ""}},
       {{"name-collision.txt", ""}, {"name-collision2.txt", ""}},
       {PlaceOfFile("name-collision.txt")},
       "windows",
       true},
  };
  return cases;
}

}  // namespace Vornik::Testing
