// Documents as a whole.
#include "lint/lint_cases.h"

namespace Vornik::Testing {

namespace {

std::string Repeated(const std::string& text, int times) {
  std::string repeated;
  for (; times > 0; --times) repeated += text;
  return repeated;
}

std::string WithAttributes(int count) {
  std::string element = "<x";
  for (int i = 0; i < count; ++i) element += " a" + std::to_string(i) + "=''";
  return element + "/>";
}

// A descriptor that is sound but for what comes before its end. place: in the faulty text.
LintCase BeforeEnd(const std::string& id, const std::string& what, const std::string& faulty,
                   const std::string& sound, const std::string& part, int nth = 1) {
  const auto text = [&id](const std::string& added) {
    return Replace(SoundText(id), "</CIM>", added + "</CIM>");
  };
  return {id,
          what,
          PackageFiles(id, text(faulty)),
          PackageFiles(id, text(sound)),
          {id + ".xml:" + PlaceIn(text(faulty), part, nth)}};
}

// A whole document that yields no package, compared with a sound one.
LintCase Document(const std::string& id, const std::string& what, const std::string& faulty,
                  const std::string& place) {
  return {id, what, PackageFiles(id, faulty), SoundPackage(id), {id + ".xml:" + place}};
}

LintCase PackCase(const std::string& id, const std::string& faultyMember, const std::string& part,
                  int nth = 1) {
  const std::string own = OwnInstance(id + ".xml");
  return {id,
          "",
          PackFiles(id, own, faultyMember),
          PackFiles(id, own, SoundInstance(id + "-member")),
          {id + ".xml:" + PlaceIn(PackText({own, faultyMember}), part, nth)}};
}

LintCase DescriptionCase(const std::string& id, const std::string& what, const std::string& faulty,
                         const std::string& sound, const std::string& part) {
  const std::string text = Put(SoundText(id), "description", faulty);
  return {id,
          what,
          PackageFiles(id, text),
          PackageFiles(id, Put(SoundText(id), "description", sound)),
          {id + ".xml:" + PlaceIn(text, part)}};
}

LintCase EmptyValueCase() {
  const std::string id = "value-empty";
  const std::string text =
      Put(SoundText(id), "orderedOSList",
          "<VALUE.ARRAY><VALUE>10</VALUE><VALUE> </VALUE><VALUE/></VALUE.ARRAY>");
  return {id,
          "",
          PackageFiles(id, text),
          SoundPackage(id),
          {id + ".xml:" + PlaceIn(text, "<VALUE> "), id + ".xml:" + PlaceIn(text, "<VALUE/>")}};
}

LintCase LongCodeCase() {
  const std::string id = "over-limits";
  const auto with = [&id](std::size_t length) {
    return PutValue(SoundText(id), "identificationCode", std::string(length, 'c'));
  };
  return {id,
          "code",
          PackageFiles(id, with(4097)),
          PackageFiles(id, with(4096)),
          {id + ".xml:" + ValueOf(with(4097), "identificationCode")}};
}

const std::string misfit = "<INSTANCE NAME=\"x\" CLASSNAME=\"x\"";

}  // namespace

std::vector<LintCase> DocumentCases() {
  const std::string cut = Replace(SoundText("not-well-formed"), "</CIM>\n", "\n");
  const std::string nestedId = "instance-nested";
  return {
      BeforeEnd("over-limits", "nesting", Repeated("<x>", 1000) + Repeated("</x>", 1000),
                Repeated("<x>", 999) + Repeated("</x>", 999), "<x>", 1000),
      BeforeEnd("over-limits", "attributes", WithAttributes(257), WithAttributes(256), "<x"),
      LongCodeCase(),
      PackCase("instance-code-too-long",
               PutValue(SoundInstance("instance-code-too-long-member"), "identificationCode",
                        std::string(4097, 'c')),
               "<INSTANCE", 2),
      BeforeEnd("not-well-formed", "attribute", "<x a=1 a=2/>", "<x a=1 b=2/>", "a=2"),
      Document("not-well-formed", "cut", cut, PlaceIn(cut + "#", "#")),
      Document("no-root", "comment", "<!-- SystemUpdateElement -->", "0:0"),
      Document("no-properties", "", "<CIM>\n<!-- SystemUpdateElement --></CIM>", "1:1"),
      Document("no-properties", "case",
               " <CIM><!-- SystemUpdateElement --><property NAME='type'/></CIM>", "1:2"),
      Document("no-instances", "",
               "<CIM><!-- ORXQDL_SystemUpdateProduct --><INSTANCE>"
               "<PROPERTY NAME='type'><VALUE>1</VALUE></PROPERTY></INSTANCE></CIM>",
               "1:1"),
      PackCase("instance-misfit", misfit + ">\n</INSTANCE>\n", misfit),
      BeforeEnd("instance-misfit-unread", "", misfit + "/>", "<INSTANCE CLASSNAME=\"x\"/>", misfit),
      PackCase("instance-empty",
               SoundInstance("instance-empty-member") + "<INSTANCE CLASSNAME='e'/>",
               "<INSTANCE CLASSNAME='e'"),
      PackCase(nestedId,
               Replace(SoundInstance(nestedId + "-member"), "</INSTANCE>",
                       "<a>" + SoundInstance(nestedId + "-inner") + "</a></INSTANCE>"),
               "<INSTANCE", 3),
      DescriptionCase("ampersand-lost", "text", "<VALUE>R&D</VALUE>", "<VALUE>R&amp;D</VALUE>",
                      "&D"),
      DescriptionCase("ampersand-lost", "entity", "<VALUE>&nbsp;x</VALUE>",
                      "<VALUE><![CDATA[&nbsp;]]></VALUE><!-- & -->", "&nbsp;"),
      DescriptionCase("value-split", "comment", "<VALUE>a<!-- b -->c</VALUE>",
                      "<VALUE>a c</VALUE><!-- b -->", "<VALUE>a"),
      DescriptionCase("value-split", "cdata", "<VALUE>a<![CDATA[b]]></VALUE>",
                      "<VALUE><![CDATA[b]]></VALUE>", "<VALUE>a"),
      EmptyValueCase(),
  };
}

}  // namespace Vornik::Testing
