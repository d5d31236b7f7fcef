#include "hostile_folders.h"

#include <algorithm>

#include "repeat.h"

namespace Vornik::Testing {

namespace {

using Texts = std::vector<std::string>;

std::string Property(const std::string& name, const std::string& value) {
  return "<PROPERTY NAME='" + name + "'><VALUE>" + value + "</VALUE></PROPERTY>";
}

std::string List(const std::string& name, const Texts& values) {
  std::string text = "<PROPERTY.ARRAY NAME='" + name + "'><VALUE.ARRAY>";
  for (const std::string& value : values) text += "<VALUE>" + value + "</VALUE>";
  return text + "</VALUE.ARRAY></PROPERTY.ARRAY>";
}

std::string Instance(const std::string& content) {
  return "<INSTANCE CLASSNAME='c'>" + content + "</INSTANCE>";
}

std::string PackOf(const std::string& content) {
  return "<!-- ORXQDL_SystemUpdateProduct -->\n<r>" + content + "</r>";
}

std::string OwnInstance(const std::string& version = "1") {
  return Instance(Property("applicableMachineTypes", "1234") +
                  Property("applicableOperatingSystems", "0") + Property("Version", version));
}

std::string Member(const std::string& code, const std::string& more = "") {
  return Instance(Property("xmlFilename", "m.xml") + Property("identificationCode", code) + more);
}

std::string Name(const char* prefix, std::size_t number) { return prefix + std::to_string(number); }

// What is inside takes half of the bytes.
FolderTexts Nested(std::size_t bytes, const std::string& inside) {
  const std::string begin = "<INSTANCE CLASSNAME='c'>";
  const std::size_t depth = std::min<std::size_t>(990, bytes / 2 / 35);
  return {{"p.xml",
           PackOf(OwnInstance() + Repeat(begin, depth) + inside + Repeat("</INSTANCE>", depth))}};
}

FolderTexts NestedValues(std::size_t bytes) {
  return Nested(bytes, List("x", Texts(bytes / 2 / 16, "v")));
}

FolderTexts NestedText(std::size_t bytes) {
  return Nested(bytes, Property("x", std::string(bytes / 2, 'v')));
}

FolderTexts NestedElements(std::size_t bytes) { return Nested(bytes, Repeat("<a/>", bytes / 8)); }

FolderTexts LongCode(std::size_t bytes) {
  const std::size_t count = bytes / 2 / 140;
  Texts codes;
  std::string members;
  for (std::size_t i = 0; i < count; ++i) {
    codes.push_back(Name("m", i));
    members += Member(codes.back());
  }
  return {
      {"p.xml", PackOf(OwnInstance() +
                       Member(std::string(bytes / 3, 'z'), List("supersede", codes)) + members)}};
}

FolderTexts LongestCode(std::size_t bytes) {
  const std::size_t count = bytes / 190;
  Texts codes;
  std::string members;
  for (std::size_t i = 0; i < count; ++i) {
    codes.push_back(Name("m", i));
    members += Member(codes.back());
  }
  return {{"p.xml", PackOf(OwnInstance() +
                           Member(std::string(4'096, 'z'), List("supersede", codes)) + members)}};
}

FolderTexts PackVersions(std::size_t bytes) {
  // Whatever the order in which they are listed, a long version is soon the best one.
  FolderTexts files;
  const std::string longest(bytes / 8, 'z');
  for (std::size_t i = 0; i < 4; ++i) {
    files.emplace_back(Name("long", i) + ".xml", PackOf(OwnInstance(longest)));
  }
  for (std::size_t i = 0; i < bytes / 2 / 300; ++i) {
    files.emplace_back(Name("p", i) + ".xml", PackOf(OwnInstance("a") + Member("a")));
  }
  return files;
}

FolderTexts MostAttributes(std::size_t bytes) {
  std::string element = "<a";
  for (std::size_t i = 0; i < 256; ++i) element += " a" + std::to_string(i) + "=''";
  element += "/>";
  return {{"p.xml", PackOf(OwnInstance() + Repeat(element, bytes / element.size() + 1))}};
}

FolderTexts DriverGroups(std::size_t bytes) {
  const std::size_t count = bytes / 2 / 290;
  std::string members;
  const auto add = [&members](const std::string& code, std::size_t version, const Texts& files) {
    members +=
        Member(code, Property("Version", std::to_string(version)) + List("driverFiles", files));
  };
  for (std::size_t i = 0; i < count; ++i) {
    add(Name("a", i), i * 7'919 % 1'000'003, {Name("p", i) + "-#1"});
  }
  for (std::size_t i = 0; i < count; ++i) {
    add(Name("m", i), i * 6'007 % 1'000'003, {Name("p", count - 1 - i) + "-#1", "f-#1"});
  }
  return {{"p.xml", PackOf(OwnInstance() + members)}};
}

FolderTexts SupersedeLists(std::size_t bytes) {
  FolderTexts files;
  Texts codes;
  for (std::size_t i = 0; i < 40; ++i) codes.push_back(Name("a", i));
  for (std::size_t i = 0; i < bytes / 1'000; ++i) {
    files.emplace_back(Name("a", i) + ".xml", "<!-- SystemUpdateElement -->\n<r>" +
                                                  Property("identificationCode", Name("a", i)) +
                                                  List("supersede", codes) + "</r>");
  }
  return files;
}

}  // namespace

const std::vector<HostileFolder>& HostileFolders() {
  static const std::vector<HostileFolder> folders{
      {"nested-values", NestedValues},     {"nested-text", NestedText},
      {"nested-elements", NestedElements}, {"long-code", LongCode},
      {"longest-code", LongestCode},       {"pack-versions", PackVersions},
      {"most-attributes", MostAttributes}, {"driver-groups", DriverGroups},
      {"supersede-lists", SupersedeLists}};
  return folders;
}

}  // namespace Vornik::Testing
