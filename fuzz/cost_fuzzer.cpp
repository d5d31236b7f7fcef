// What a query of a folder allocates, against the bytes of the folder: no part of it may be
// multiplied by another one.
//
// The input is pieces with a line of "--" between them. The first byte of a piece is a digit, and
// the rest is repeated as many times as four to its power; '=' in its place begins another file,
// with the rest once. A file with one of the two contracts is omitted, as the query's target omits
// it.
#include <algorithm>
#include <boost/filesystem/operations.hpp>
#include <map>

#include "allocation/counted_allocations.h"
#include "fuzz_input.h"
#include "querypackageimp.h"
#include "reading/descriptor_reading.h"
#include "recording_log.h"
#include "records/driver_files.h"
#include "requirement.h"
#include "temp_folder.h"

namespace Vornik::Fuzzing {

namespace {

constexpr std::size_t mostBytes = 300'000;

std::vector<std::string> FilesOf(std::string_view input) {
  std::vector<std::string> files(1);
  std::size_t written = 0;
  for (const std::string& piece : Parts(input, "\n--\n")) {
    if (piece.empty()) continue;
    if (piece.front() == '=') files.emplace_back();
    const bool isDigit = piece.front() >= '0' && piece.front() <= '9';
    const std::size_t power = isDigit ? static_cast<std::size_t>(piece.front() - '0') : 0;
    for (std::size_t left = std::size_t{1} << (2 * power); left != 0; --left) {
      written += piece.size();
      if (written > mostBytes) return files;
      files.back().append(piece, 1, std::string::npos);
    }
  }
  return files;
}

bool HasContract(DescriptorReader file) {
  file.ReadBytes();
  const DescriptorKind kind = file.Reading().kind;
  if (!file.ParseDocument(kind) || !file.FindRoot()) return false;
  if (kind == DescriptorKind::Pack) {
    if (!file.CollectInstances()) {
      return file.Reading().fault == DescriptorFault::InstanceWithoutClassName;
    }
    while (file.HasNextInstance()) file.ReadNextInstance();
  } else {
    file.ReadProperties();
  }
  const auto& lists = file.Reading().properties;
  return std::any_of(lists.begin(), lists.end(), [](const SupXmlProperties& properties) {
    return ReadDriverFiles(properties).unclassifiedIndex.has_value();
  });
}

// What the property lists of all files hold, which has limits of its own, and the records copy.
std::size_t SizeOfLists(const Repository& repository) {
  std::size_t size = 0;
  const auto add = [&size](const SupXmlProperties& properties) {
    for (const SupXmlProperty& property : properties) {
      size += sizeof property + property.name.size() + property.type.size();
      for (const std::string& value : property.values) size += sizeof value + value.size();
    }
  };
  for (const PackageXmlEntry& entry : repository.packageXmlEntries()) add(entry.properties);
  for (const KovuPackEntry& pack : repository.kovuPackEntries()) {
    for (const PackageXmlEntry& member : pack.members) add(member.properties);
  }
  return size;
}

void Check(std::string_view input) {
  const Testing::TempFolder folder;
  std::size_t bytes = 0;
  std::size_t number = 0;
  for (const std::string& text : FilesOf(input)) {
    const std::string path = folder.Write("f" + std::to_string(number++) + ".xml", text);
    if (HasContract(DescriptorReader(path))) {
      boost::filesystem::remove(path);
    } else {
      bytes += text.size();
    }
  }
  QueryPackageImp query;
  query.xmlPackageFolder = folder.Path();
  query.machineType = "1234";
  query.osValue = static_cast<OsValue>(10);
  query.arcValue = static_cast<ArcValue>(9);
  QueryPackageImp::Results records;
  Testing::RecordingLog::Reset(0);
  Testing::CountedAllocations& counted = Testing::Counted();
  counted.calls = 0;
  const std::size_t before = counted.now;
  counted.most = before;
  query.RunQuery(records);
  const std::size_t most = counted.most - before;
  const std::size_t calls = counted.calls;
  const std::size_t lists = SizeOfLists(query.repository);
  Require(most <= 120 * bytes + 4 * lists + 100'000, "memory in proportion to the bytes");
  Require(calls <= 4 * bytes + lists + 10'000, "allocations in proportion to the bytes");
}

}  // namespace

}  // namespace Vornik::Fuzzing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Vornik::Fuzzing::Check(Vornik::Fuzzing::BytesOf(data, size));
  return 0;
}
