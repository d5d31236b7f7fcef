// Whole queries against their plain version: the code, every member of every record, every line of
// the log and what is written to standard output.
#include "plain_query.h"

#include <boost/filesystem/operations.hpp>

#include <algorithm>

#include "captured_stdout.h"
#include "contents_of.h"
#include "global_locale.h"
#include "plain_files.h"
#include "query_fixture.h"
#include "random_repository.h"
#include "record_members.h"
#include "recording_callback.h"
#include "test_random.h"

namespace Vornik::Testing {
namespace {

using Values = RandomRepository::Values;

// How often the queries of a test met what it is about.
struct Tally {
  std::size_t completed = 0;
  std::size_t refused = 0;
  std::size_t withoutResults = 0;
  std::size_t records = 0;
  std::size_t ofPacks = 0;
  std::size_t superseded = 0;
  std::size_t withPayload = 0;

  void Add(const PlainOutcome& outcome) {
    completed += outcome.code == QueryCode::Completed ? 1 : 0;
    refused += outcome.code == QueryCode::InvalidParameter ? 1 : 0;
    withoutResults += outcome.code == QueryCode::NoResults ? 1 : 0;
    if (outcome.code != QueryCode::Completed) return;
    records += outcome.records.size();
    for (const QueryPackageResult& record : outcome.records) {
      ofPacks += record.kovuName.empty() ? 0 : 1;
      superseded += record.supersedeFilterStatus == FilterStatus::NotMatched ? 1 : 0;
      withPayload += record.payloadExistFilterStatus == FilterStatus::Matched ? 1 : 0;
    }
  }
};

class PlainQueryTest : public QueryTest {
 protected:
  // One query, on the product and on the plain version, from the same settings, descriptors and
  // vector. imp and results are left as the product leaves them.
  void RunBoth(const PlainFolder& plainFolder, unsigned int threshold, Tally& tally) {
    QueryPackageImp plainQuery = imp;
    const PlainOutcome plain = PlainRunQuery(plainQuery, plainFolder, results);
    RecordingLog::Reset(threshold);
    RecordingCallback callback;
    if (imp.queryCallback != nullptr) imp.queryCallback = &callback;
    const CapturedStdout out;
    const int code = Run();
    ASSERT_EQ(code, plain.code);
    ASSERT_EQ(FirstDifference(results, plain.records), "");
    ASSERT_EQ(Log(), plain.log.Lines(threshold));
    ASSERT_EQ(out.Text(), plain.standardOutput);
    ASSERT_EQ(imp.repository.packageXmlEntries().size(),
              plainQuery.repository.packageXmlEntries().size());
    ASSERT_EQ(imp.repository.kovuPackEntries().size(),
              plainQuery.repository.kovuPackEntries().size());
    const bool called = imp.queryCallback != nullptr && code == QueryCode::Completed;
    ASSERT_EQ(callback.calls, called ? (Lines{"pre", "post"}) : Lines{});
    tally.Add(plain);
  }

  RecordingCallback placeholder;  // stands for a callback that is set
};

// Queries on descriptors that are given as values; the folder holds payloads alone.
class PlainQueryInMemory : public PlainQueryTest {
 protected:
  PlainQueryInMemory() {
    boost::filesystem::create_directory(folder.Path() + "/sub");
    for (const std::string& name : files) folder.Write(name, "bytes");
    plainFolder.holdsFile = [this](const std::string& name) {
      return std::find(files.begin(), files.end(), name) != files.end();
    };
  }

  void RunMany(std::size_t usualRounds) {
    const TestRandom test;
    const std::size_t rounds = test.Rounds(usualRounds);
    RandomRepository random(test.Seed(), Values::InMemory);
    random.SetFileNames({"d.desc", "e.desc", "none.desc", "sub", ""},
                        {"p.exe", "sub/r.exe", "none.exe", "sub", ""});
    Tally tally;
    for (std::size_t round = 0; round < rounds; ++round) {
      SCOPED_TRACE(round);
      Prepare(random);
      const unsigned int threshold = random.Pick().Of<unsigned int>({3, 3, 3, 3, 2, 1, 0});
      ASSERT_NO_FATAL_FAILURE(RunBoth(plainFolder, threshold, tally));
    }
    if (!test.RunsAllRounds()) return;
    EXPECT_GT(tally.completed, rounds / 2);
    EXPECT_GT(tally.refused, rounds / 50);
    EXPECT_GT(tally.withoutResults, rounds / 100);
    EXPECT_GT(tally.records, rounds);
    EXPECT_GT(tally.ofPacks, rounds / 5);
    EXPECT_GT(tally.superseded, rounds / 5);
    EXPECT_GT(tally.withPayload, rounds / 10);
  }

  const std::vector<std::string> files = {"d.desc", "e.desc", "p.exe", "sub/r.exe"};
  PlainFolder plainFolder;

 private:
  void Prepare(RandomRepository& random) {
    RandomPick& pick = random.Pick();
    imp = QueryPackageImp();
    PrepareFolder(pick);
    random.Configure(imp);
    if (pick.OneIn(2)) imp.queryCallback = &placeholder;
    for (std::size_t left = pick.Below(6); left != 0; --left) {
      imp.repository.Add(PackageXmlEntry{"i" + std::to_string(left) + ".xml", random.Package()});
    }
    for (std::size_t left = pick.Below(4); left != 0; --left) AddPack(random);
    results.clear();
    if (pick.OneIn(5)) results = {RecordOf("before")};
  }

  void PrepareFolder(RandomPick& pick) {
    imp.xmlPackageFolder = pick.OneIn(20) ? folder.Path() + "/" : folder.Path();
    plainFolder.isDirectory = !pick.OneIn(60);
    if (plainFolder.isDirectory) return;
    imp.xmlPackageFolder = pick.OneIn(2) ? "" : folder.Path() + "/p.exe";
  }

  void AddPack(RandomRepository& random) {
    static const std::vector<std::string> paths = {"p.xml", "packs/p.q.xml", "packs.d/p", ".xml"};
    KovuPackEntry pack{random.Pick().Of(paths), {}};
    if (!random.Pick().OneIn(20)) pack.members.push_back({"own.xml", random.PackLevel()});
    for (std::size_t left = random.Pick().Below(5); left != 0 && !pack.members.empty(); --left) {
      pack.members.push_back({"m" + std::to_string(left) + ".xml", random.Package()});
    }
    imp.repository.Add(pack);
  }
};

// In four parts, so that they can run at the same time.
class PlainQueryParts : public PlainQueryInMemory, public testing::WithParamInterface<int> {};

TEST_P(PlainQueryParts, YieldsWhatThePlainQueryYields) { RunMany(5'000); }

INSTANTIATE_TEST_SUITE_P(Part, PlainQueryParts, testing::Range(0, 4));

TEST_F(PlainQueryInMemory, UnderALocaleOfTheHosts) {
  const GlobalLocaleGuard guard(std::locale(std::locale::classic(), new FoldsOnlyXToY));
  RunMany(2'000);
}

// Queries on descriptors that are written to the folder and read from it.
class PlainQueryOnDisk : public PlainQueryTest, public testing::WithParamInterface<int> {
 protected:
  void RunMany(std::size_t usualRounds) {
    const TestRandom test;
    const std::size_t rounds = test.Rounds(usualRounds);
    RandomRepository random(test.Seed(), Values::OnDisk);
    random.SetFileNames({"a.xml", "b.xml", "c.d.xml", "none.xml", "sub/s.xml", ""},
                        {"p.exe", "sub/r.exe", "none.exe", "sub", "a.xml", ""});
    Tally tally;
    for (std::size_t round = 0; round < rounds; ++round) {
      SCOPED_TRACE(round);
      ASSERT_NO_FATAL_FAILURE(RunOne(random, tally));
    }
    if (!test.RunsAllRounds()) return;
    EXPECT_GT(tally.completed, rounds);
    EXPECT_GT(tally.records, rounds * 2);
    EXPECT_GT(tally.ofPacks, rounds / 2);
    EXPECT_GT(tally.superseded, rounds / 4);
    EXPECT_GT(tally.withPayload, rounds / 4);
  }

 private:
  // A folder, and two queries on it by one object: the second meets every descriptor twice.
  void RunOne(RandomRepository& random, Tally& tally) {
    const TempFolder repository;
    const PlainFolder plainFolder = Write(random, repository);
    imp = QueryPackageImp();
    results.clear();
    for (int run = 0; run < 2; ++run) {
      SCOPED_TRACE(run);
      random.Configure(imp);
      imp.xmlPackageFolder = repository.Path();
      imp.queryCallback = random.Pick().OneIn(2) ? &placeholder : nullptr;
      if (random.Pick().OneIn(2)) imp.contents = ContentsOf(repository.Path());
      ASSERT_NO_FATAL_FAILURE(RunBoth(plainFolder, 3, tally));
    }
  }

  static PlainFolder Write(RandomRepository& random, const TempFolder& repository) {
    PlainFolder plainFolder;
    std::vector<std::string> names = {"p.exe", "sub/r.exe", "sub/s.xml"};
    boost::filesystem::create_directory(repository.Path() + "/sub");
    for (const std::string& name : names) repository.Write(name, "bytes");
    for (const char* name : {"a.xml", "b.xml", "c.d.xml", "e.XML", "f.xml.bak", "g.xml", "h.xml"}) {
      if (random.Pick().OneIn(4)) continue;
      const PlainFile file = RandomPlainFile(random, name);
      repository.Write(name, TextOf(file));
      plainFolder.files.push_back(AsRead(file));
      names.push_back(name);
    }
    plainFolder.holdsFile = [names](const std::string& name) {
      return std::find(names.begin(), names.end(), name) != names.end();
    };
    return plainFolder;
  }
};

TEST_P(PlainQueryOnDisk, YieldsWhatThePlainQueryYields) { RunMany(250); }

INSTANTIATE_TEST_SUITE_P(Part, PlainQueryOnDisk, testing::Range(0, 2));

}  // namespace
}  // namespace Vornik::Testing
