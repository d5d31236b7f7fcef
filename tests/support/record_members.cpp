#include "record_members.h"

#include <algorithm>
#include <cstdint>

namespace Vornik::Testing {

namespace {

using DriverFile = QueryPackageResult::DriverFile;

bool SameMember(const std::vector<DriverFile>& a, const std::vector<DriverFile>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](const DriverFile& x, const DriverFile& y) {
                      return std::tie(x.name, x.version, x.classification) ==
                             std::tie(y.name, y.version, y.classification);
                    });
}

template <typename Member>
bool SameMember(const Member& a, const Member& b) {
  return a == b;
}

template <typename Members, std::size_t... index>
bool SameMembers(const Members& a, const Members& b, std::index_sequence<index...> /*all*/) {
  return (SameMember(std::get<index>(a), std::get<index>(b)) && ...);
}

bool Same(const QueryPackageResult& a, const QueryPackageResult& b) {
  return SameMembers(TieRecordMembers(a), TieRecordMembers(b),
                     std::make_index_sequence<recordMemberNames.size()>());
}

std::string Text(const std::string& value) { return '"' + value + '"'; }
std::string Text(std::uint32_t value) { return std::to_string(value); }
std::string Text(const DriverFile& file) {
  return Text(file.name) + ' ' + Text(file.version) + ' ' + Text(file.classification);
}

template <typename Value>
std::string Text(const std::vector<Value>& values) {
  std::string text = "{";
  for (const Value& value : values) text += Text(value) + ' ';
  return text + "}";
}

}  // namespace

std::string DescribeRecord(const QueryPackageResult& record) {
  std::string lines;
  ForEachRecordMember(record, [&lines](const char* name, const auto& member) {
    lines += "  " + std::string(name) + ' ' + Text(member) + '\n';
  });
  return lines;
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
