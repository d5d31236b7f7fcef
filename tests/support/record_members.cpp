#include "record_members.h"

#include <tuple>

namespace Vornik::Testing {

namespace {

auto Texts(const QueryPackageResult& r) {
  return std::tie(r.packageXmlFile, r.identificationCode, r.buildNumber, r.description,
                  r.updateSelection, r.rebootRequired, r.severity, r.category, r.payload, r.type,
                  r.Version, r.kovuXmlFile, r.kovuName, r.supersedesId, r.supersededById);
}

auto Lists(const QueryPackageResult& r) {
  return std::tie(r.applicableDeviceId, r.preReq, r.coReq);
}

auto Slots(const QueryPackageResult& r) {
  return std::tie(r.platformFilterStatus, r.kovuFilterStatus, r.sepFilterStatus,
                  r.payloadExistFilterStatus, r.supersedeFilterStatus, r.includeIdFilterStatus,
                  r.excludeIdFilterStatus, r.updateTypeFilterStatus);
}

static_assert(std::tuple_size_v<decltype(Texts({}))> + std::tuple_size_v<decltype(Lists({}))> +
                  std::tuple_size_v<decltype(Slots({}))> + 1 ==
              27);

bool SameDriverFiles(const QueryPackageResult& a, const QueryPackageResult& b) {
  if (a.driverFiles.size() != b.driverFiles.size()) return false;
  for (std::size_t i = 0; i < a.driverFiles.size(); ++i) {
    const auto& x = a.driverFiles[i];
    const auto& y = b.driverFiles[i];
    if (std::tie(x.name, x.version, x.classification) !=
        std::tie(y.name, y.version, y.classification)) {
      return false;
    }
  }
  return true;
}

bool Same(const QueryPackageResult& a, const QueryPackageResult& b) {
  return Texts(a) == Texts(b) && Lists(a) == Lists(b) && Slots(a) == Slots(b) &&
         SameDriverFiles(a, b);
}

std::string Line(const std::string& value) { return "  \"" + value + "\"\n"; }
std::string Line(std::uint32_t value) { return "  " + std::to_string(value) + "\n"; }
std::string Line(const std::vector<std::string>& values) {
  std::string line = "  {";
  for (const std::string& value : values) line += "\"" + value + "\" ";
  return line + "}\n";
}

template <typename Tuple>
std::string LinesOf(const Tuple& members) {
  return std::apply([](const auto&... member) { return (Line(member) + ...); }, members);
}

}  // namespace

std::string DescribeRecord(const QueryPackageResult& record) {
  std::string text = LinesOf(Texts(record)) + LinesOf(Lists(record)) + LinesOf(Slots(record));
  for (const auto& file : record.driverFiles) {
    text += Line(file.name + "\" \"" + file.version + "\" \"" + file.classification);
  }
  return text;
}

std::string FirstDifference(const std::vector<QueryPackageResult>& records,
                            const std::vector<QueryPackageResult>& expected) {
  for (std::size_t i = 0; i < records.size() && i < expected.size(); ++i) {
    if (Same(records[i], expected[i])) continue;
    return "record " + std::to_string(i) + " is\n" + DescribeRecord(records[i]) + "and not\n" +
           DescribeRecord(expected[i]);
  }
  if (records.size() == expected.size()) return "";
  return std::to_string(records.size()) + " records and not " + std::to_string(expected.size());
}

}  // namespace Vornik::Testing
