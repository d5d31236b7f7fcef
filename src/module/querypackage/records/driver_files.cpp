#include "driver_files.h"

#include "model/literals.h"
#include "text/bracketed_text.h"

namespace Vornik {

namespace {

void Store(DriverFileReading& reading, std::string name, std::string version,
           std::string classification) {
  if (name.empty() || version.empty()) return;
  reading.files.push_back({std::move(name), std::move(version), std::move(classification)});
}

DriverFileReading ReadFallback(const SupXmlProperties& properties) {
  DriverFileReading reading;
  Store(reading, GetPropertyValue(PropertyName::category, properties),
        ExtractBracketed(GetPropertyValue(PropertyName::Version, properties)), "");
  return reading;
}

}  // namespace

std::size_t SplitString(const std::string& text, const std::string& separator,
                        std::vector<std::string>& tokens) {
  if (text.empty() || separator.empty()) return 0;
  tokens.clear();
  std::size_t begin = text.find_first_not_of(separator);
  while (begin != std::string::npos) {
    const std::size_t end = text.find(separator, begin);
    std::string token = text.substr(begin, end == std::string::npos ? end : end - begin);
    if (!token.empty()) tokens.push_back(std::move(token));
    begin = end == std::string::npos ? end : end + separator.size();
  }
  return tokens.size();
}

std::optional<std::pair<std::string, std::string>> ParseDriverFileValue(const std::string& value) {
  if (value.empty()) return std::make_pair(std::string(), std::string());
  std::vector<std::string> tokens;
  if (SplitString(value, driverFileSeparator, tokens) != 2) return std::nullopt;
  return std::make_pair(std::move(tokens[0]), std::move(tokens[1]));
}

DriverFileReading ReadDriverFiles(const SupXmlProperties& properties) {
  const auto values = GetPropertyValues(PropertyName::driverFiles, properties);
  if (values.empty()) return ReadFallback(properties);

  const auto classifications =
      GetPropertyValues(PropertyName::driverFilesClassification, properties);
  DriverFileReading reading;
  for (std::size_t k = 0; k < values.size(); ++k) {
    auto file = ParseDriverFileValue(values[k]);
    if (!file) ++reading.unparsedValues;
    if (!classifications.empty() && k >= classifications.size()) {
      reading.unclassifiedIndex = k;
      return reading;
    }
    if (!file) continue;
    Store(reading, std::move(file->first), std::move(file->second),
          classifications.empty() ? std::string() : classifications[k]);
  }
  return reading;
}

}  // namespace Vornik
