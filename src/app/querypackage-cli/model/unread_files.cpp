#include "model/unread_files.h"

#include <algorithm>
#include <boost/filesystem/directory.hpp>
#include <boost/filesystem/operations.hpp>
#include <boost/filesystem/path.hpp>
#include <boost/system/error_code.hpp>
#include <cctype>
#include <optional>

#include "model/literals.h"
#include "reading/descriptor_files.h"
#include "reading/descriptor_reading.h"
#include "text/letter_case.h"
#include "text/paths.h"

namespace Vornik::Cli {

namespace {

namespace fs = boost::filesystem;

// By name. A listing says of most entries what they are, so that they are not asked.
std::vector<fs::directory_entry> EntriesOf(const fs::path& folder) {
  std::vector<fs::directory_entry> entries;
  boost::system::error_code failed;
  fs::directory_iterator entry(folder, failed);
  while (!failed && entry != fs::directory_iterator()) {
    entries.push_back(*entry);
    entry.increment(failed);
  }
  std::sort(entries.begin(), entries.end(),
            [](const auto& a, const auto& b) { return a.path().native() < b.path().native(); });
  return entries;
}

bool IsDirectory(const fs::directory_entry& entry) {
  boost::system::error_code failed;
  return fs::is_directory(entry.status(failed)) && !failed;
}

void AddIfUnread(const fs::path& path, bool inSubfolder, std::vector<UnreadFile>& files) {
  UnreadFile file;
  file.path = path.string();
  file.name = path.filename().string();
  file.inSubfolder = inSubfolder;
  file.otherExtension = !HasDescriptorExtension(path.native());
  if (!file.inSubfolder && !file.otherExtension) return;
  if (!ContainsXmlExtension(FoldByGlobalLocale(file.name)) || !IsRegularFile(file.path)) return;
  files.push_back(std::move(file));
}

// The text as it is written in a document.
std::string Escaped(const std::string& text) {
  std::string escaped;
  for (const char c : text) {
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

bool IsSpace(char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; }

// Whether the part of a text is the whole text of an element, blanks around it aside.
bool IsElementText(const std::string& text, std::size_t begin, std::size_t end) {
  while (begin > 0 && IsSpace(text[begin - 1])) --begin;
  while (end < text.size() && IsSpace(text[end])) ++end;
  return begin > 0 && text[begin - 1] == '>' && (end == text.size() || text[end] == '<');
}

std::optional<std::string> FindInText(const std::string& bytes, const std::string& code) {
  const std::string text = FoldByGlobalLocale(bytes);
  const std::string wanted = FoldByGlobalLocale(Escaped(code));
  if (wanted.empty()) return std::nullopt;
  for (std::size_t at = text.find(wanted); at != std::string::npos;
       at = text.find(wanted, at + 1)) {
    if (IsElementText(text, at, at + wanted.size())) return bytes.substr(at, wanted.size());
  }
  return std::nullopt;
}

std::optional<std::string> FindInProperties(const SupXmlProperties& properties,
                                            const std::string& code) {
  for (const SupXmlProperty& property : properties) {
    if (!EqualByCLibraryFold(property.name, PropertyName::identificationCode)) continue;
    const auto value = std::find_if(
        property.values.begin(), property.values.end(),
        [&code](const std::string& text) { return EqualByGlobalLocaleFold(text, code); });
    if (value != property.values.end()) return *value;
  }
  return std::nullopt;
}

bool NamesFile(const std::string& path, const std::string& code) {
  if (code.empty()) return false;
  return EqualByGlobalLocaleFold(FileStem(path), code) ||
         EqualByGlobalLocaleFold(fs::path(path).filename().string(), code);
}

CodeFinding FindInBytes(const std::string& path, const std::string& code) {
  DescriptorReader reader(path);
  reader.ReadBytes();
  const auto found = reader.Bytes() ? FindInText(*reader.Bytes(), code) : std::nullopt;
  return found ? CodeFinding{CodeEvidence::IsInText, *found} : CodeFinding();
}

CodeFinding FindInside(const std::string& path, const std::string& code) {
  DescriptorReader reader(path);
  reader.ReadBytes();
  if (!reader.ParseDocument(DescriptorKind::Individual) || !reader.FindRoot()) {
    return FindInBytes(path, code);
  }
  if (!reader.ReadProperties()) return {};
  const auto found = FindInProperties(reader.Reading().properties.front(), code);
  return found ? CodeFinding{CodeEvidence::IsCode, *found} : CodeFinding();
}

}  // namespace

std::vector<UnreadFile> FindUnreadFiles(const std::string& folder) {
  std::vector<UnreadFile> files;
  for (const fs::directory_entry& entry : EntriesOf(folder)) {
    if (!IsDirectory(entry)) {
      AddIfUnread(entry.path(), false, files);
      continue;
    }
    for (const auto& inside : EntriesOf(entry.path())) AddIfUnread(inside.path(), true, files);
  }
  return files;
}

CodeFinding FindCodeIn(const std::string& path, const std::string& code) {
  CodeFinding inside = FindInside(path, code);
  if (inside.evidence != CodeEvidence::None || !NamesFile(path, code)) return inside;
  return {CodeEvidence::IsName, ""};
}

}  // namespace Vornik::Cli
