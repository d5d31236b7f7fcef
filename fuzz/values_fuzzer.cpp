// Values of properties on any bytes, against their plain versions: brackets, splits, numbers,
// driver files, look-ups.
//
// The input as a whole, and each of its lines, is a value. The lines also make a list of
// properties, by their first byte:
//
//   d c g v m   a property of that kind (see NameOf), with the rest of the line as its value
//   D C G V M   the same, its name in upper case
//   +           one more value for the property before
//   other       a property of that name, without a value
#include <algorithm>
#include <cctype>
#include <stdexcept>

#include "fuzz_input.h"
#include "plain_driver_files.h"
#include "plain_properties.h"
#include "records/driver_files.h"
#include "records/pack_selection.h"
#include "requirement.h"
#include "text/bracketed_text.h"
#include "text/decimal.h"

namespace Vornik::Fuzzing {

namespace {

using Texts = std::vector<std::string>;

void CheckSplit(const std::string& text, const std::string& separator) {
  Texts tokens{"old"};
  Texts plain{"old"};
  const std::size_t count = SplitString(text, separator, tokens);
  Testing::PlainSplit(text, separator, plain);
  Require(tokens == plain, "the tokens of the plain split");
  Require(count == (text.empty() || separator.empty() ? 0 : plain.size()), "the number of tokens");
}

void CheckDriverFileValue(const std::string& value) {
  const auto parsed = ParseDriverFileValue(value);
  Testing::PlainLog log;
  const auto plain = Testing::PlainNameAndVersion(value, log);
  Require(parsed.has_value() == log.Lines().empty(), "a value that parses as in the plain rule");
  Require(!parsed || *parsed == plain, "name and version of the plain rule");
}

void CheckValue(const std::string& text) {
  Require(ExtractBracketed(text) == Testing::PlainBracketed(text),
          "the plain rule's bracketed text");
  Require(ParseDecimal(text) == Testing::PlainNumber(text), "the plain rule's number");
  CheckDriverFileValue(text);
  CheckSplit(text, "-#");
  if (text.empty()) return;
  const auto length =
      std::min<std::size_t>(static_cast<unsigned char>(text[0]) % 4U, text.size() - 1);
  CheckSplit(text.substr(1 + length), text.substr(1, length));
}

std::string NameOf(char kind) {
  switch (kind) {
    case 'd':
      return "driverFiles";
    case 'c':
      return "driverFilesClassification";
    case 'g':
      return "category";
    case 'v':
      return "Version";
    case 'm':
      return "applicableMachineTypes";
    default:
      return {};
  }
}

std::string UpperCase(std::string text) {
  for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return text;
}

void AddLine(const std::string& line, SupXmlProperties& properties) {
  const char kind = line.empty() ? '\0' : line[0];
  const bool isUpper = std::isupper(static_cast<unsigned char>(kind)) != 0;
  const std::string name = NameOf(isUpper ? static_cast<char>(std::tolower(kind)) : kind);
  if (!name.empty()) {
    properties.push_back({isUpper ? UpperCase(name) : name, "", {line.substr(1)}});
  } else if (kind == '+' && !properties.empty()) {
    properties.back().values.push_back(line.substr(1));
  } else {
    properties.push_back({line, "", {}});
  }
}

void CheckLookUp(const std::string& name, const SupXmlProperties& properties) {
  Require(GetPropertyValue(name, properties) == Testing::PlainValue(name, properties),
          "the value of the plain look-up");
  Require(GetPropertyValues(name, properties) == Testing::PlainValues(name, properties),
          "the values of the plain look-up");
}

bool IsSame(const QueryPackageResult::DriverFile& a, const QueryPackageResult::DriverFile& b) {
  return a.name == b.name && a.version == b.version && a.classification == b.classification;
}

void CheckDriverFiles(const SupXmlProperties& properties) {
  const DriverFileReading reading = ReadDriverFiles(properties);
  Testing::PlainLog log;
  bool isUnclassified = false;
  try {
    const auto plain = Testing::PlainDriverFiles(properties, log);
    Require(
        std::equal(reading.files.begin(), reading.files.end(), plain.begin(), plain.end(), IsSame),
        "the plain rule's driver files");
  } catch (const std::out_of_range&) {
    isUnclassified = true;
  }
  Require(reading.unclassifiedIndex.has_value() == isUnclassified, "a classification for each");
  Require(reading.unparsedValues == log.Lines().size(), "a warning for each value without a name");
}

void CheckMachineTypes(const SupXmlProperties& properties) {
  Texts plain;
  const Texts values = Testing::PlainValues("applicableMachineTypes", properties);
  for (const std::string& value : values) plain.push_back(Testing::PlainBracketed(value));
  Require(ParseApplicableMachineTypes(values) == plain, "the plain rule's machine types");
}

void Check(std::string_view bytes) {
  CheckValue(std::string(bytes));
  SupXmlProperties properties;
  for (const std::string& line : Parts(bytes, "\n")) {
    CheckValue(line);
    AddLine(line, properties);
  }
  for (const char* kind = "dcgvm"; *kind != '\0'; ++kind) CheckLookUp(NameOf(*kind), properties);
  CheckLookUp(properties.back().name, properties);
  CheckDriverFiles(properties);
  CheckMachineTypes(properties);
}

}  // namespace

}  // namespace Vornik::Fuzzing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Vornik::Fuzzing::Check(Vornik::Fuzzing::BytesOf(data, size));
  return 0;
}
