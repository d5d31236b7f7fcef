#include "model/unread_files.h"

#include <algorithm>
#include <boost/filesystem/directory.hpp>
#include <boost/filesystem/operations.hpp>
#include <boost/filesystem/path.hpp>
#include <boost/system/error_code.hpp>
#include <cctype>
#include <optional>
#include <string_view>

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

// Where a text is in another one that has only blanks besides it.
std::optional<std::size_t> FindBetweenBlanks(std::string_view text, std::string_view wanted) {
  const auto firstOther = [](std::string_view in) {
    return static_cast<std::size_t>(std::find_if_not(in.begin(), in.end(), IsSpace) - in.begin());
  };
  const std::size_t first = firstOther(text);
  const std::size_t blanks = firstOther(wanted);
  if (blanks == wanted.size()) {
    const bool isBlank = first == text.size() && wanted.size() <= text.size();
    const std::size_t found = isBlank ? text.find(wanted) : std::string_view::npos;
    return found == std::string_view::npos ? std::nullopt : std::optional(found);
  }
  if (first < blanks || text.compare(first - blanks, wanted.size(), wanted) != 0) {
    return std::nullopt;
  }
  const std::string_view after = text.substr(first - blanks + wanted.size());
  return firstOther(after) == after.size() ? std::optional(first - blanks) : std::nullopt;
}

// The text of an element, as the file has it. Each part between '>' and '<' is looked at once.
std::optional<std::string> FindInText(const std::string& bytes, const std::string& code) {
  const std::string text = FoldByGlobalLocale(bytes);
  const std::string wanted = FoldByGlobalLocale(Escaped(code));
  if (wanted.empty()) return std::nullopt;
  for (std::size_t at = text.find('>'); at != std::string::npos;) {
    const std::size_t begin = at + 1;
    const std::size_t end = std::min(text.find_first_of("<>", begin), text.size());
    const bool isWhole = end == text.size() || text[end] == '<';
    const auto part = std::string_view(text).substr(begin, end - begin);
    const auto found = isWhole ? FindBetweenBlanks(part, wanted) : std::nullopt;
    if (found) return bytes.substr(begin + *found, wanted.size());
    at = isWhole ? text.find('>', end) : end;
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
