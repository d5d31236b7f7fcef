// What crosses the boundary between the library and its host: memory, exceptions, facets, streams.
#include <LogSettings.h>

#include <locale>
#include <stdexcept>
#include <utility>

#ifdef _WIN32
#include <malloc.h>
#endif

#include "captured_stdout.h"
#include "global_locale.h"
#include "host_fixture.h"
#include "recording_callback.h"
#include "unqueryable_folder.h"

namespace Vornik::Testing {
namespace {

// What is wrong shows here on Windows, where a module may have a heap of its own; elsewhere
// AddressSanitizer watches the same tests.
bool HeapIsWhole() {
#ifdef _WIN32
  return _heapchk() == _HEAPOK;
#else
  return true;
#endif
}

class BoundaryTest : public HostTest {
 protected:
  BoundaryTest() { SetMinLogLevel(0); }
  ~BoundaryTest() override { SetMinLogLevel(1); }

  std::string PathOf(const std::string& code) const {
    return (boost::filesystem::path(folder.Path()) / (code + ".xml")).string();
  }

  int Query() {
    QueryPackage query;
    Prepare(query);
    return query.RunQuery(results);
  }
};

using MemoryTest = BoundaryTest;

TEST_F(MemoryTest, RecordsOutliveTheirQueryAndAreFreedByTheHost) {
  ASSERT_EQ(Query(), QueryCode::Completed);
  ASSERT_EQ(Codes(), Lines{"a"});
  std::vector<QueryPackageResult>().swap(results);
  EXPECT_TRUE(HeapIsWhole());
}

TEST_F(MemoryTest, HostMayChangeWhatTheLibraryAllocated) {
  for (const char* code : {"b", "c", "d"}) WritePackage(code);
  ASSERT_EQ(Query(), QueryCode::Completed);
  ASSERT_EQ(results.size(), 4U);
  results.erase(results.begin());
  results[0].packageXmlFile.append(1'000, 'x');
  results[1].driverFiles.resize(100);
  const std::string code = results[2].identificationCode;
  const QueryPackageResult taken = std::move(results[2]);
  results.resize(50);
  EXPECT_EQ(taken.identificationCode, code);
  EXPECT_EQ(taken.packageXmlFile, PathOf(code));
  results.clear();
  results.shrink_to_fit();
  EXPECT_TRUE(HeapIsWhole());
}

TEST_F(MemoryTest, LibraryReplacesWhatTheHostAllocated) {
  results.resize(100);
  for (QueryPackageResult& record : results) {
    record.identificationCode.assign(1'000, 'x');
    record.coReq.assign(10, std::string(100, 'x'));
    record.driverFiles.resize(10);
  }
  ASSERT_EQ(Query(), QueryCode::Completed);
  EXPECT_EQ(Codes(), Lines{"a"});
  EXPECT_TRUE(HeapIsWhole());
}

TEST_F(MemoryTest, CallbackMayReplaceTheRecordsOfARunningQuery) {
  QueryPackage query;
  Prepare(query);
  RecordingCallback callback;
  callback.pre = [this] {
    results.assign(200, QueryPackageResult());
    results.front().identificationCode = "x";
  };
  query.SetQueryCallback(&callback);
  ASSERT_EQ(query.RunQuery(results), QueryCode::Completed);
  EXPECT_EQ(Codes(), (Lines{"x", ""})) << "the duplicate filter works on the host's records";
  EXPECT_TRUE(HeapIsWhole());
}

// A type that no other module knows.
struct HostError {
  int number = 0;
};

class ExceptionTest : public BoundaryTest {
 protected:
  ExceptionTest() { Prepare(query_); }

  // The callback throws first before, then after the filters. Afterwards the object works.
  template <typename Exception, typename Check>
  void ExpectThroughTheLibrary(const Exception& exception, const Check& check) {
    const auto fail = [&exception] { throw exception; };
    RecordingCallback before;
    before.pre = fail;
    RecordingCallback behind;
    behind.post = fail;
    for (RecordingCallback* callback : {&before, &behind}) {
      query_.SetQueryCallback(callback);
      try {
        query_.RunQuery(results);
        ADD_FAILURE() << "no exception";
      } catch (const Exception& caught) {
        check(caught);
      }
      ASSERT_FALSE(results.empty());
      EXPECT_EQ(results[0].platformFilterStatus,
                callback == &before ? FilterStatus::NotEvaluated : FilterStatus::Matched);
    }
    query_.SetQueryCallback(nullptr);
    EXPECT_EQ(query_.RunQuery(results), QueryCode::Completed);
    EXPECT_TRUE(HeapIsWhole());
  }

  QueryPackage query_;
};

TEST_F(ExceptionTest, StandardExceptionOfTheCallback) {
  ExpectThroughTheLibrary(std::out_of_range("from the host"), [](const std::exception& caught) {
    EXPECT_STREQ(caught.what(), "from the host");
  });
}

TEST_F(ExceptionTest, HostsOwnExceptionOfTheCallback) {
  ExpectThroughTheLibrary(HostError{7},
                          [](const HostError& caught) { EXPECT_EQ(caught.number, 7); });
}

TEST_F(ExceptionTest, NumberThrownByTheCallback) {
  ExpectThroughTheLibrary(7, [](int caught) { EXPECT_EQ(caught, 7); });
}

TEST_F(ExceptionTest, FileSystemErrorOfTheParameterCheckIsAStandardException) {
  query_.SetXMLPackageFolder(UnqueryableFolder());
  results.resize(3);
  try {
    query_.RunQuery(results);
    FAIL() << "no exception";
  } catch (const std::exception& error) {
    EXPECT_EQ(std::string(error.what()).find("boost::filesystem::status: "), 0U) << error.what();
  }
  EXPECT_EQ(results.size(), 3U);
}

class FacetTest : public BoundaryTest {
 protected:
  GlobalLocaleGuard guard_{std::locale::classic()};
};

TEST_F(FacetTest, HostsFacetFoldsTheIds) {
  WritePackage("X");
  QueryPackage query;
  Prepare(query);
  query.SetIncludePackageIDs({"y", "A"});
  std::locale::global(std::locale(std::locale::classic(), new FoldsOnlyXToY));
  ASSERT_EQ(query.RunQuery(results), QueryCode::Completed);
  ASSERT_EQ(results.size(), 2U);
  for (const QueryPackageResult& record : results) {
    EXPECT_EQ(record.includeIdFilterStatus,
              record.identificationCode == "X" ? FilterStatus::Matched : FilterStatus::NotMatched);
  }
}

TEST_F(FacetTest, HostsFacetTellsWhatADigitIs) {
  QueryPackage query;
  Prepare(query);
  query.SetPlatform(os, arch, "12af");
  const CapturedStdout out;
  EXPECT_EQ(query.RunQuery(results), QueryCode::InvalidParameter);
  std::locale::global(std::locale(std::locale::classic(), new HexLettersAreDigits));
  EXPECT_EQ(query.RunQuery(results), QueryCode::Completed);
  query.SetPlatform(os, arch, "1239");
  EXPECT_EQ(query.RunQuery(results), QueryCode::InvalidParameter);
}

class TellsItsEnd final : public std::ctype<char> {
 public:
  explicit TellsItsEnd(bool& ended) : ended_(ended) {}
  ~TellsItsEnd() override { ended_ = true; }

 private:
  bool& ended_;
};

// A host may unload the module that its facet is from.
TEST_F(FacetTest, LibraryKeepsNoFacetBehindAQuery) {
  QueryPackage query;
  Prepare(query);
  query.SetIncludePackageIDs({"A"});
  bool ended = false;
  {
    const GlobalLocaleGuard guard(std::locale(std::locale::classic(), new TellsItsEnd(ended)));
    ASSERT_EQ(query.RunQuery(results), QueryCode::Completed);
    EXPECT_FALSE(ended);
  }
  EXPECT_TRUE(ended);
  EXPECT_EQ(query.RunQuery(results), QueryCode::Completed);
}

using OutputTest = BoundaryTest;

TEST_F(OutputTest, StandardOutputIsTheHosts) {
  QueryPackage query;
  const CapturedStdout out;
  EXPECT_EQ(query.RunQuery(results), QueryCode::InvalidParameter);
  query.SetXMLPackageFolder(folder.Path());
  EXPECT_EQ(query.RunQuery(results), QueryCode::InvalidParameter);
  EXPECT_EQ(out.Text(), "xml package folder is not setMachineType is not set");
  Prepare(query);
  EXPECT_EQ(query.RunQuery(results), QueryCode::Completed);
  EXPECT_EQ(out.Text(), "xml package folder is not setMachineType is not set");
}

}  // namespace
}  // namespace Vornik::Testing
