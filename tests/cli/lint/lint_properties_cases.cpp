// Properties, and the numbers among them.
#include "lint/lint_cases.h"

namespace Vornik::Testing {

namespace {

LintCase Case(const std::string& id, const std::string& what, const std::string& faulty,
              const std::string& sound, const std::string& place) {
  return {id, what, PackageFiles(id, faulty), PackageFiles(id, sound), {id + ".xml:" + place}};
}

LintCase MissingCase(const std::string& property) {
  const std::string id = "property-missing";
  const std::string text = Drop(SoundText(id), property);
  return Case(id, property, text, SoundText(id), PlaceIn(text, "<INSTANCE"));
}

LintCase EmptyCase(const std::string& property, const std::string& content) {
  const std::string id = "property-empty";
  const std::string text = Put(SoundText(id), property, content);
  return Case(id, property, text, SoundText(id), ElementOf(text, property));
}

// The value of a property in place of the sound one; the place is that of the VALUE.
LintCase ValueCase(const std::string& id, const std::string& what, const std::string& property,
                   const std::string& faulty, const std::string& sound) {
  const std::string text = PutValue(SoundText(id), property, faulty);
  return Case(id, what, text, PutValue(SoundText(id), property, sound), ValueOf(text, property));
}

// The same for a second entry of a list.
LintCase EntryCase(const std::string& id, const std::string& what, const std::string& list,
                   const std::string& faulty, const std::string& sound) {
  const std::string text = PutValues(SoundText(id), list, {sound, faulty});
  return Case(id, what, text, PutValues(SoundText(id), list, {sound, sound}),
              ValueOf(text, list, 1));
}

std::string Cdata(const std::string& text) { return "<VALUE><![CDATA[" + text + "]]></VALUE>"; }

LintCase BlankCase(const std::string& property, const std::string& value) {
  const std::string id = "property-blank";
  const std::string text = Put(SoundText(id), property, Cdata(value));
  return Case(id, property, text, Put(SoundText(id), property, "<VALUE> " + value + " </VALUE>"),
              ValueOf(text, property));
}

LintCase BlankMachineTypeCase() {
  const std::string id = "property-blank";
  const std::string list = "orderedMachineTypeList";
  const std::string text =
      Put(SoundText(id), list, "<VALUE.ARRAY>" + Cdata("1234\xC2\xA0") + "</VALUE.ARRAY>");
  return Case(id, "machine-type", text, SoundText(id), ValueOf(text, list));
}

LintCase BlankInBracketsCase() {
  const std::string id = "property-blank";
  const std::string list = "applicableMachineTypes";
  const std::string own = OwnInstance(id + ".xml");
  const std::string faulty = PutValues(own, list, {"Desk [1234 ]"});
  const std::string member = SoundInstance(id + "-member");
  return {id,
          "brackets",
          PackFiles(id, faulty, member),
          PackFiles(id, own, member),
          {id + ".xml:" + ValueOf(PackText({faulty, member}), list)}};
}

LintCase RepeatedCase() {
  const std::string id = "property-repeated";
  const std::string again = "<VALUE>1</VALUE>";
  const std::string text = Append(Append(SoundText(id), "TYPE", again), "type", again);
  return {id,
          "",
          PackageFiles(id, text),
          SoundPackage(id),
          {id + ".xml:" + ElementOf(text, "TYPE"), id + ".xml:" + ElementOf(text, "type", 2)}};
}

// In a pack, an INSTANCE without a name and the pack's own are the same to the library.
LintCase UnnamedMemberCase() {
  const std::string id = "property-missing";
  const std::string own = OwnInstance(id + ".xml");
  const std::string member = SoundInstance(id + "-member");
  const std::string unnamed = Drop(member, "xmlFilename");
  return {id,
          "member",
          PackFiles(id, own, unnamed),
          PackFiles(id, own, member),
          {id + ".xml:" + PlaceIn(PackText({own, unnamed}), "<INSTANCE", 2)}};
}

LintCase MisspelledCase(const std::string& property, const std::string& sound) {
  const std::string id = "property-misspelled";
  const std::string text = Append(SoundText(id), property, "<VALUE>x</VALUE>");
  return Case(id, property, text, Append(SoundText(id), sound, "<VALUE>x</VALUE>"),
              ElementOf(text, property));
}

LintCase PackVersionCase() {
  const std::string id = "version-missing";
  const std::string own = OwnInstance(id + ".xml");
  const std::string member = SoundInstance(id + "-member");
  return {id,
          "pack",
          PackFiles(id, Drop(own, "Version"), member),
          PackFiles(id, own, member),
          {id + ".xml:" + PlaceIn(PackText({own}), "<INSTANCE")}};
}

}  // namespace

std::vector<LintCase> PropertyCases() {
  const std::string noVersion = Drop(SoundText("version-missing"), "Version");
  const std::string emptyVersion = Put(SoundText("version-missing"), "Version", "<VALUE/>");
  const std::string nothing = "<VALUE></VALUE>";
  const std::string noEntry = "<VALUE.ARRAY><VALUE/></VALUE.ARRAY>";
  return {
      MissingCase("identificationCode"),
      MissingCase("type"),
      MissingCase("xmlFilename"),
      MissingCase("payload"),
      MissingCase("orderedMachineTypeList"),
      MissingCase("orderedOSList"),
      MissingCase("orderedOSArchitectureList"),
      UnnamedMemberCase(),
      EmptyCase("identificationCode", nothing),
      EmptyCase("type", ""),
      EmptyCase("xmlFilename", "<VALUE>  </VALUE>"),
      EmptyCase("payload", Cdata("")),
      EmptyCase("orderedMachineTypeList", noEntry),
      EmptyCase("orderedOSList", noEntry),
      EmptyCase("orderedOSArchitectureList", "<VALUE.ARRAY></VALUE.ARRAY>"),
      RepeatedCase(),
      BlankCase("identificationCode", "property-blank "),
      BlankCase("xmlFilename", "\tproperty-blank.xml"),
      BlankCase("payload", " property-blank.exe"),
      BlankCase("Version", "1\n"),
      BlankMachineTypeCase(),
      BlankInBracketsCase(),
      Case("version-missing", "missing", noVersion, SoundText("version-missing"),
           PlaceIn(noVersion, "<INSTANCE")),
      Case("version-missing", "empty", emptyVersion, SoundText("version-missing"),
           ElementOf(emptyVersion, "Version")),
      PackVersionCase(),
      MisspelledCase("supersedes", "supersede"),
      MisspelledCase("DRIVERFILE", "DRIVERFILES"),
      MisspelledCase("prerEqq", "preReq"),
      MisspelledCase("coeRq", "xCoReqx"),
      ValueCase("type-not-number", "word", "type", "driver", "1"),
      ValueCase("type-not-number", "sign", "type", "-", "-1"),
      ValueCase("number-out-of-range", "type", "type", "2147483648", "2147483647"),
      ValueCase("number-out-of-range", "least", "type", "-2147483649", "-2147483648"),
      EntryCase("number-out-of-range", "system", "orderedOSList", "4294967296", "4294967295"),
      EntryCase("number-out-of-range", "negative", "orderedOSList", "-1", "0"),
      EntryCase("number-out-of-range", "huge", "orderedOSArchitectureList",
                "99999999999999999999999999", "9"),
      ValueCase("number-trailing-text", "type", "type", "4 (utility)", "4"),
      EntryCase("number-trailing-text", "system", "orderedOSList", "10x64", "10"),
  };
}

}  // namespace Vornik::Testing
