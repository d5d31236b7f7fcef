#include "lint/lint_cases.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

#include "descriptors.h"

namespace Vornik::Testing {

namespace {

constexpr const char* header = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

std::size_t Find(const std::string& text, const std::string& part, std::size_t from = 0) {
  const std::size_t found = text.find(part, from);
  if (found == std::string::npos) throw std::logic_error("no \"" + part + "\" in " + text);
  return found;
}

std::size_t FindNth(const std::string& text, const std::string& part, int nth) {
  std::size_t found = Find(text, part);
  for (; nth > 1; --nth) found = Find(text, part, found + 1);
  return found;
}

std::string Place(const std::string& text, std::size_t offset) {
  const auto at = text.begin() + static_cast<std::ptrdiff_t>(offset);
  const std::size_t line = offset == 0 ? std::string::npos : text.rfind('\n', offset - 1);
  const std::size_t begin = line == std::string::npos ? 0 : line + 1;
  return std::to_string(std::count(text.begin(), at, '\n') + 1) + ":" +
         std::to_string(offset - begin + 1);
}

std::string NameAttribute(const std::string& property) { return "NAME=\"" + property + "\""; }

// Offset of the '<' of the nth property of the name.
std::size_t OffsetOf(const std::string& text, const std::string& property, int nth) {
  return text.rfind('<', FindNth(text, NameAttribute(property), nth));
}

std::string Line(const std::string& property, const std::string& content) {
  const bool isArray = content.find("<VALUE.ARRAY>") != std::string::npos;
  const std::string element = isArray ? "PROPERTY.ARRAY" : "PROPERTY";
  return "<" + element + " NAME=\"" + property + "\" TYPE=\"string\">" + content + "</" + element +
         ">\n";
}

std::string Value(const std::string& value) { return "<VALUE>" + EscapeXml(value) + "</VALUE>"; }

}  // namespace

std::vector<LintCase> AllLintCases() {
  std::vector<LintCase> all;
  for (const auto group : {FileCases, DocumentCases, MarkupCases, PropertyCases, CodeCases,
                           PlatformCases, DriverCases, PackCases, PackageFileCases}) {
    for (LintCase& one : group()) {
#ifdef _WIN32
      if (one.needsCase) continue;
#endif
      all.push_back(std::move(one));
    }
  }
  return all;
}

void PrintTo(const LintCase& one, std::ostream* out) { *out << one.id << " " << one.what; }

std::string SoundInstance(const std::string& code) {
  return Replace(Descriptor(code)
                     .Set("xmlFilename", code + ".xml")
                     .Set("payload", code + ".exe")
                     .Set("type", "1")
                     .Set("Version", "1")
                     .Set("category", code)
                     .For("1234", "10", "9")
                     .Instance(),
                 "\"Package\"", "\"ORXQDL_SystemUpdateElement\"");
}

std::string SoundText(const std::string& code) {
  return header + ("<CIM>\n" + SoundInstance(code)) + "</CIM>\n";
}

std::string OwnInstance(const std::string& packFile) {
  return Replace(Descriptor("code-of-" + packFile)
                     .Set("xmlFilename", packFile)
                     .Set("Version", "1")
                     .Set("applicableMachineTypes", {"Desk [1234]"})
                     .Set("applicableOperatingSystems", {"0"})
                     .Instance(),
                 "\"Package\"", "\"ORXQDL_SystemUpdateProduct\"");
}

std::string PackText(const std::vector<std::string>& instances) {
  std::string text = header + std::string("<CIM>\n");
  for (const std::string& instance : instances) text += instance;
  return text + "</CIM>\n";
}

LintFiles PackageFiles(const std::string& code, const std::string& text) {
  return {{code + ".xml", text}, {code + ".exe", "x"}};
}

LintFiles SoundPackage(const std::string& code) { return PackageFiles(code, SoundText(code)); }

LintFiles PackFiles(const std::string& id, const std::string& own, const std::string& member) {
  return LintFiles{{id + ".xml", PackText({own, member})}} + SoundPackage(id + "-member");
}

LintFiles operator+(LintFiles a, const LintFiles& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

std::string Put(std::string text, const std::string& property, const std::string& content) {
  if (text.find(NameAttribute(property)) == std::string::npos) {
    return Append(std::move(text), property, content);
  }
  const std::size_t begin = OffsetOf(text, property, 1);
  return text.replace(begin, Find(text, "\n", begin) + 1 - begin, Line(property, content));
}

std::string PutValue(const std::string& text, const std::string& property,
                     const std::string& value) {
  return Put(text, property, Value(value));
}

std::string PutValues(const std::string& text, const std::string& property,
                      const std::vector<std::string>& values) {
  std::string content;
  for (const std::string& value : values) content += Value(value);
  return Put(text, property, "<VALUE.ARRAY>" + content + "</VALUE.ARRAY>");
}

std::string Append(std::string text, const std::string& property, const std::string& content) {
  return Replace(std::move(text), "</INSTANCE>", Line(property, content) + "</INSTANCE>");
}

std::string Drop(std::string text, const std::string& property) {
  const std::size_t begin = OffsetOf(text, property, 1);
  return text.erase(begin, Find(text, "\n", begin) + 1 - begin);
}

std::string Replace(std::string text, const std::string& part, const std::string& by) {
  return text.replace(Find(text, part), part.size(), by);
}

std::string PlaceIn(const std::string& text, const std::string& part, int nth) {
  return Place(text, FindNth(text, part, nth));
}

std::string ElementOf(const std::string& text, const std::string& property, int nth) {
  return Place(text, OffsetOf(text, property, nth));
}

std::string ValueOf(const std::string& text, const std::string& property, std::size_t index,
                    int nth) {
  std::size_t found = OffsetOf(text, property, nth);
  do {
    found = Find(text, "<VALUE>", found + 1);
  } while (index-- != 0);
  return Place(text, found);
}

}  // namespace Vornik::Testing
