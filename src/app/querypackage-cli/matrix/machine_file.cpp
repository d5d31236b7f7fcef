#include "matrix/machine_file.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <limits>
#include <utility>

#include "matrix/csv_reader.h"
#include "model/query_parameters.h"
#include "output/wording.h"

namespace Vornik::Cli {

namespace {

enum Column : std::size_t { MachineType, Os, Arch, Name, MachineCount };

constexpr std::array<const char*, 5> columnNames{"machine_type", "os", "arch", "name", "count"};
constexpr std::size_t requiredColumns = 3;

constexpr std::size_t noField = std::numeric_limits<std::size_t>::max();

// Of each column the index of its field.
using Fields = std::array<std::size_t, columnNames.size()>;

// What is wrong with a header; empty: nothing.
std::string ReadHeader(const CsvRecord& record, Fields& fields) {
  if (record.fault != nullptr) return record.fault;
  fields.fill(noField);
  for (std::size_t i = 0; i < record.fields.size(); ++i) {
    const auto column = std::find(columnNames.begin(), columnNames.end(), record.fields[i]);
    if (column == columnNames.end()) {
      return fmt::format("{} is not a column: machine_type, os, arch, name, count",
                         QuotedBriefly(record.fields[i]));
    }
    std::size_t& field = fields[static_cast<std::size_t>(column - columnNames.begin())];
    if (field != noField) return fmt::format("the column \"{}\" is repeated", *column);
    field = i;
  }
  for (std::size_t column = 0; column < requiredColumns; ++column) {
    if (fields[column] == noField) {
      return fmt::format("the column \"{}\" is missing", columnNames[column]);
    }
  }
  return "";
}

// Decimal digits only, from 1; 0: it is no such number.
std::uint64_t ParseNumber(const std::string& text, std::uint64_t max) {
  std::uint64_t number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && stop == end && number <= max ? number : 0;
}

class MachineReader {
 public:
  MachineReader(const Fields& fields, std::size_t columns, MachineList& machines)
      : fields_(fields), columns_(columns), machines_(machines) {}

  // What is wrong with the record; empty: nothing, and its machine is added.
  std::string Read(const CsvRecord& record) {
    if (record.fault != nullptr) return record.fault;
    if (record.fields.size() != columns_) {
      return fmt::format("it has {}, and the header has {}", Count(record.fields.size(), "field"),
                         columns_);
    }
    record_ = &record;
    const std::string& type = record.fields[fields_[MachineType]];
    if (!IsMachineType(type)) {
      return fmt::format("the machine type {} is not four digits", QuotedBriefly(type));
    }
    fault_.clear();
    const auto os = static_cast<OsValue>(Number(Os));
    const auto arch = static_cast<ArcValue>(Number(Arch));
    const bool hasCount = fields_[MachineCount] != noField && !Field(MachineCount).empty();
    const std::uint64_t count = hasCount ? Number(MachineCount) : 1;
    if (!fault_.empty()) return fault_;
    machines_.Add({type, os, arch}, fields_[Name] == noField ? "" : Field(Name), count);
    return "";
  }

 private:
  const std::string& Field(Column column) const { return record_->fields[fields_[column]]; }

  std::uint64_t Number(Column column) {
    constexpr std::uint64_t max = std::numeric_limits<std::uint32_t>::max();
    const std::uint64_t number = ParseNumber(Field(column), max);
    if (number == 0 && fault_.empty()) {
      fault_ = fmt::format("{} {} is not a whole number from 1 to {}", columnNames[column],
                           QuotedBriefly(Field(column)), max);
    }
    return number;
  }

  const Fields& fields_;
  const std::size_t columns_;
  MachineList& machines_;
  const CsvRecord* record_ = nullptr;
  std::string fault_;
};

}  // namespace

MachineFileFaults ReadMachines(std::istream& file, MachineList& machines) {
  MachineFileFaults faults;
  CsvReader reader(file);
  CsvRecord record;
  if (!reader.Next(record)) {
    faults.header = "it has no header";
    return faults;
  }
  Fields fields{};
  if (std::string fault = ReadHeader(record, fields); !fault.empty()) {
    faults.header = fmt::format("line {}: {}", record.line, std::move(fault));
    return faults;
  }
  MachineReader machineReader(fields, record.fields.size(), machines);
  while (reader.Next(record)) {
    const std::string fault = machineReader.Read(record);
    if (!fault.empty()) faults.lines.push_back(fmt::format("line {}: {}", record.line, fault));
  }
  return faults;
}

}  // namespace Vornik::Cli
