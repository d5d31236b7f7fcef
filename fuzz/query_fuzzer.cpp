// Whole queries over a folder of up to six files and any settings, against the plain query of the
// tests: the code, every member of every record, every log line, and standard output.
//
// The input is the settings, the id lists, and then the files, with a line of "--" between them:
//
//   settings   one byte per choice, in the order of Configure and Check, then one per file name
//   ids        one per line; those that begin with '-' are excluded, the others included
//
// A file with one of the two contracts is omitted from the folder: a pack with an INSTANCE whose
// first attribute is not CLASSNAME hangs a query, and a package with fewer classifications than
// driver files aborts the process. The plain rules recognize both.
#include <algorithm>
#include <map>

#include "captured_stdout.h"
#include "fuzz_input.h"
#include "fuzzed_folder.h"
#include "plain_cimxml.h"
#include "plain_driver_files.h"
#include "plain_markers.h"
#include "plain_query.h"
#include "record_members.h"
#include "recording_log.h"
#include "requirement.h"

namespace Vornik::Fuzzing {

namespace {

using Texts = std::vector<std::string>;

class CountingCallback final : public IQueryPackageCallback {
 public:
  void PreQueryPackage() override { ++calls; }
  void PostQueryPackage() override { ++calls; }

  int calls = 0;
};

void Configure(Choices& choices, QueryPackageImp& query) {
  query.machineType =
      choices.Of<std::string>({"1234", "1234", "1234", "5678", "", "12", "12a4", "12345"});
  query.osValue = static_cast<OsValue>(choices.Of<std::uint32_t>({10, 11, 1, 0}));
  query.arcValue = static_cast<ArcValue>(choices.Of<std::uint32_t>({9, 5, 1, 0}));
  query.kovuFilter = !choices.Yes();
  query.sepFilter = !choices.Yes();
  query.payloadExistFilter = !choices.Yes();
  query.supersedeFilter = !choices.Yes();
  query.updateTypes = choices.Some<UpdateType>(
      {UpdateType(0), UpdateType(1), UpdateType(2), UpdateType::Any, UpdateType(-1), UpdateType(3)},
      2);
}

void SetIds(const std::string& ids, QueryPackageImp& query) {
  if (ids.empty()) return;
  for (const std::string& id : Parts(ids, "\n")) {
    const bool isExcluded = !id.empty() && id[0] == '-';
    if (isExcluded) query.excludePackageIds.push_back(id.substr(1));
    if (!isExcluded) query.includePackageIds.push_back(id);
  }
}

// Whether a query over it would hang or abort.
bool HasContract(const std::string& bytes) {
  const Testing::PlainContent content = Testing::PlainContentOf(bytes);
  if (Testing::PlainMarkersInBytes(bytes).pack && content.hasMisfit) return true;
  return Testing::PlainLacksClassifications(content.properties) ||
         std::any_of(content.instances.begin(), content.instances.end(),
                     Testing::PlainLacksClassifications);
}

// Of two files with the same name, the later one is kept.
std::map<std::string, std::string> FilesOf(const Texts& parts, Choices& names) {
  static const Texts pool = {"a.xml", "b.xml", "c.d.xml", "p.exe",
                             "e.XML", ".xml",  "f.xml",   "g.xml.bak"};
  constexpr std::size_t firstFile = 2;
  constexpr std::size_t mostFiles = 6;
  std::map<std::string, std::string> files;
  for (std::size_t i = firstFile; i < std::min(parts.size(), firstFile + mostFiles); ++i) {
    const std::string name = names.Of(pool);
    if (!HasContract(parts[i])) files[name] = parts[i];
  }
  return files;
}

std::string Joined(const Texts& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + '\n';
  return text;
}

// One query with the product and with the plain version. The next one uses the same object and
// records of the product.
class Comparison {
 public:
  Comparison(QueryPackageImp& query, const Testing::PlainFolder& folder,
             QueryPackageImp::Results& records)
      : query_(query), folder_(folder), records_(records) {}

  void Run(unsigned int threshold) {
    QueryPackageImp plainQuery = query_;
    const Testing::PlainOutcome plain = Testing::PlainRunQuery(plainQuery, folder_, records_);
    Testing::RecordingLog::Reset(threshold);
    CountingCallback callback;
    if (query_.queryCallback != nullptr) query_.queryCallback = &callback;
    const Testing::CapturedStdout out;
    const int code = query_.RunQuery(records_);
    Require(code == plain.code, "the plain query's code");
    Require(out.Text() == plain.standardOutput, "the plain query's standard output");
    Require(callback.calls == (query_.queryCallback != nullptr && code == 0 ? 2 : 0), "both calls");
    CompareRecords(plain.records);
    CompareLog(plain.log.Lines(threshold));
  }

 private:
  void CompareRecords(const Testing::PlainRecords& plain) {
    const std::string difference = Testing::FirstDifference(records_, plain);
    if (!difference.empty()) Fail("the plain query's records", difference);
  }

  static void CompareLog(const Texts& plain) {
    const Texts lines = Testing::RecordingLog::Lines();
    if (lines != plain) Fail("the plain query's log:\n" + Joined(plain), Joined(lines));
  }

  QueryPackageImp& query_;
  const Testing::PlainFolder& folder_;
  QueryPackageImp::Results& records_;
};

void Check(std::string_view bytes) {
  static FuzzedFolder folder;
  Texts parts = Parts(bytes, "\n--\n");
  parts.resize(std::max<std::size_t>(parts.size(), 2));
  Choices choices(parts[0]);
  QueryPackageImp query;
  query.xmlPackageFolder = folder.Path();
  Configure(choices, query);
  SetIds(parts[1], query);
  CountingCallback placeholder;  // any callback but null
  if (choices.Yes()) query.queryCallback = &placeholder;
  const auto threshold = choices.Of<unsigned int>({3, 3, 2, 0});
  const bool twice = choices.Yes();
  folder.Hold(FilesOf(parts, choices));

  const Testing::PlainFolder plain = folder.Plain();
  QueryPackageImp::Results records;
  Comparison comparison(query, plain, records);
  comparison.Run(threshold);
  // A second query on the same object finds every descriptor twice.
  if (twice) comparison.Run(threshold);
}

}  // namespace

}  // namespace Vornik::Fuzzing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Vornik::Fuzzing::Check(Vornik::Fuzzing::BytesOf(data, size));
  return 0;
}
