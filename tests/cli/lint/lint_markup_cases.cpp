// Elements and attributes that are not read as they are meant.
#include "lint/lint_cases.h"

namespace Vornik::Testing {

namespace {

// A pack whose member's INSTANCE is written otherwise. part: where the finding is.
LintCase InstanceCase(const std::string& what, const std::string& faulty, const std::string& part,
                      int nth) {
  const std::string id = "instance-unread";
  const std::string own = OwnInstance(id + ".xml");
  return {id,
          what,
          PackFiles(id, own, faulty),
          PackFiles(id, own, SoundInstance(id + "-member")),
          {id + ".xml:" + PlaceIn(PackText({own, faulty}), part, nth)}};
}

std::string WithoutAttributes(const std::string& instance) {
  const std::size_t begin = instance.find(" CLASSNAME");
  return std::string(instance).erase(begin, instance.find('>') - begin);
}

std::string InLowerCase(const std::string& instance) {
  return Replace(Replace(instance, "<INSTANCE", "<Instance"), "</INSTANCE>", "</Instance>");
}

LintCase MergedCase(const std::string& what, const std::string& second, const std::string& place) {
  const std::string id = "instances-merged";
  return {id,
          what,
          PackageFiles(id, Replace(SoundText(id), "</CIM>", second + "</CIM>")),
          PackageFiles(id, Replace(SoundText(id), "</CIM>", "<INSTANCE CLASSNAME=\"x\"/></CIM>")),
          {id + ".xml:" + place}};
}

// The description's element as it is written, and the same in another way.
LintCase ElementCase(const std::string& id, const std::string& what, const std::string& faulty,
                     const std::string& part) {
  const std::string sound =
      "<PROPERTY NAME=\"description\" TYPE=\"string\"><VALUE>d</VALUE></PROPERTY>";
  const std::string text = PutValue(SoundText(id), "description", "d");
  const std::string faultyText = Replace(text, sound, faulty);
  return {id,
          what,
          PackageFiles(id, faultyText),
          PackageFiles(id, text),
          {id + ".xml:" + PlaceIn(faultyText, part)}};
}

}  // namespace

std::vector<LintCase> MarkupCases() {
  const std::string member = SoundInstance("instance-unread-member");
  const std::string inner = InLowerCase(SoundInstance("instance-unread-inner"));
  const std::string mergedText = SoundText("instances-merged");
  const std::string merged = SoundInstance("instances-merged");
  const std::string both = Replace(mergedText, "</CIM>", merged + "</CIM>");
  const std::string description = "NAME=\"description\"";
  return {
      InstanceCase("attributes", WithoutAttributes(member), "<INSTANCE>", 1),
      InstanceCase("case", InLowerCase(member), "<Instance", 1),
      InstanceCase("inside", Replace(member, "</INSTANCE>", inner + "</INSTANCE>"), "<Instance", 1),
      MergedCase("codes", SoundInstance("instances-merged-b"), PlaceIn(mergedText, "<INSTANCE")),
      MergedCase("same", merged, PlaceIn(both, "<INSTANCE", 2)),
      ElementCase("element-case", "property",
                  "<Property " + description + "><VALUE>d</VALUE></Property>", "<Property "),
      ElementCase("element-case", "value",
                  "<PROPERTY " + description + "><Value>d</Value></PROPERTY>", "<Value>"),
      ElementCase("element-case", "array",
                  "<PROPERTY.ARRAY " + description +
                      "><Value.Array><VALUE>d</VALUE></Value.Array></PROPERTY.ARRAY>",
                  "<Value.Array>"),
      ElementCase(
          "value-misplaced", "array",
          "<PROPERTY " + description + "><VALUE.ARRAY><VALUE>d</VALUE></VALUE.ARRAY></PROPERTY>",
          "<VALUE.ARRAY><VALUE>d"),
      ElementCase("value-misplaced", "value",
                  "<PROPERTY.ARRAY " + description + "><VALUE>d</VALUE></PROPERTY.ARRAY>",
                  "<VALUE>d"),
      ElementCase("property-unnamed", "case",
                  "<PROPERTY name=\"description\"><VALUE>d</VALUE></PROPERTY>", "<PROPERTY name"),
      ElementCase("property-unnamed", "missing", "<PROPERTY><VALUE>d</VALUE></PROPERTY>",
                  "<PROPERTY><VALUE>d"),
  };
}

}  // namespace Vornik::Testing
