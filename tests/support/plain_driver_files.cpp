#include "plain_driver_files.h"

#include "plain_properties.h"

namespace Vornik::Testing {

namespace {

using Texts = std::vector<std::string>;

bool StandsAt(const std::string& part, const std::string& text, std::size_t at) {
  for (std::size_t i = 0; i < part.size(); ++i) {
    if (at + i >= text.size() || text[at + i] != part[i]) return false;
  }
  return true;
}

}  // namespace

std::string PlainBracketed(const std::string& text) {
  std::size_t open = 0;
  while (open < text.size() && text[open] != '[') ++open;
  std::size_t close = 0;
  while (close < text.size() && text[close] != ']') ++close;
  if (open == text.size() || close == text.size() || close < open) return text;
  std::string between;
  for (std::size_t i = open + 1; i < close; ++i) between += text[i];
  return between;
}

void PlainSplit(const std::string& text, const std::string& separator, Texts& tokens) {
  if (text.empty() || separator.empty()) return;
  tokens.clear();
  std::size_t at = 0;
  while (at < text.size() && separator.find(text[at]) != std::string::npos) ++at;
  std::string token;
  while (at < text.size()) {
    if (!StandsAt(separator, text, at)) {
      token += text[at++];
      continue;
    }
    if (!token.empty()) tokens.push_back(token);
    token.clear();
    at += separator.size();
  }
  if (!token.empty()) tokens.push_back(token);
}

std::pair<std::string, std::string> PlainNameAndVersion(const std::string& value, PlainLog& log) {
  if (value.empty()) return {};
  Texts tokens;
  PlainSplit(value, "-#", tokens);
  if (tokens.size() == 2) return {tokens[0], tokens[1]};
  log.Warning("Fail to parse driverFiles's property value");
  return {};
}

bool PlainLacksClassifications(const SupXmlProperties& properties) {
  const std::size_t classifications = PlainValues("driverFilesClassification", properties).size();
  return classifications != 0 && classifications < PlainValues("driverFiles", properties).size();
}

std::vector<QueryPackageResult::DriverFile> PlainDriverFiles(const SupXmlProperties& properties,
                                                             PlainLog& log) {
  std::vector<QueryPackageResult::DriverFile> files;
  const Texts values = PlainValues("driverFiles", properties);
  if (values.empty()) {
    const std::string name = PlainValue("category", properties);
    const std::string version = PlainBracketed(PlainValue("Version", properties));
    if (!name.empty() && !version.empty()) files.push_back({name, version, ""});
    return files;
  }
  const Texts classifications = PlainValues("driverFilesClassification", properties);
  for (std::size_t k = 0; k < values.size(); ++k) {
    const auto [name, version] = PlainNameAndVersion(values[k], log);
    const std::string classification = classifications.empty() ? "" : classifications.at(k);
    if (!name.empty() && !version.empty()) files.push_back({name, version, classification});
  }
  return files;
}

}  // namespace Vornik::Testing
