// A query that runs out of memory, at every allocation that it makes.
#include <Log.h>
#include <gtest/gtest.h>
#include <tinyxml.h>

#include <boost/filesystem/path.hpp>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#ifndef _WIN32
#include <fcntl.h>
#endif

#include "QueryPackage.h"
#include "allocation_faults.h"
#include "descriptors.h"
#include "record_members.h"
#include "temp_folder.h"

namespace {

// TinyXML's parser owns the node or attribute that it reads by a bare pointer, and leaks it when an
// allocation throws. So the test has to know which blocks are the parser's.
class WatchedDocument final : public TiXmlDocument {
 public:
  const char* Parse(const char* text, TiXmlParsingData* previous, TiXmlEncoding encoding) override {
    return TiXmlDocument::Parse(text, previous, encoding);
  }
};
static_assert(sizeof(WatchedDocument) == sizeof(TiXmlDocument));

}  // namespace

// The linker puts this in the place of TiXmlDocument::Parse where it is called directly, as it is
// above, and as it may be where a compiler knows which class it has constructed.
const char* WatchedParse(
    TiXmlDocument* document, const char* text, TiXmlParsingData* previous,
    TiXmlEncoding
        encoding) __asm__("__wrap__ZN13TiXmlDocument5ParseEPKcP16TiXmlParsingData13TiXmlEncoding");
const char* RealParse(
    TiXmlDocument* document, const char* text, TiXmlParsingData* previous,
    TiXmlEncoding
        encoding) __asm__("__real__ZN13TiXmlDocument5ParseEPKcP16TiXmlParsingData13TiXmlEncoding");

const char* WatchedParse(TiXmlDocument* document, const char* text, TiXmlParsingData* previous,
                         TiXmlEncoding encoding) {
  const Vornik::Testing::AllocatingScope scope(Vornik::Testing::Allocating::Parser);
  return RealParse(document, text, previous, encoding);
}

// The linker puts this in the place of TiXmlDocument's constructor wherever one is made.
// NOLINTNEXTLINE(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp): it names it so
extern "C" void __wrap__ZN13TiXmlDocumentC1Ev(void* memory) { new (memory) WatchedDocument; }

static std::size_t filenamesTaken = 0;

// The linker puts this in the place of path::filename wherever the library calls it.
struct CountedPath : boost::filesystem::path {
  boost::filesystem::path CountedFilename() const
      __asm__("__wrap__ZNK5boost10filesystem4path8filenameEv");
  boost::filesystem::path RealFilename() const
      __asm__("__real__ZNK5boost10filesystem4path8filenameEv");
};

boost::filesystem::path CountedPath::CountedFilename() const {
  ++filenamesTaken;
  return RealFilename();
}

#ifdef _WIN32

// On Windows Boost takes the extension of every path whose type it determines. That compares paths
// in a noexcept function that allocates: running out of memory there ends the process, whatever its
// caller does. So no allocation fails there.
struct BoostPath : boost::filesystem::path {
  boost::filesystem::path SparedExtension() const
      __asm__("__wrap__ZNK5boost10filesystem4path9extensionEv");
  boost::filesystem::path RealExtension() const
      __asm__("__real__ZNK5boost10filesystem4path9extensionEv");
};

boost::filesystem::path BoostPath::SparedExtension() const {
  const Vornik::Testing::SparedAllocations spared;
  return RealExtension();
}

#else

// What every descriptor was opened with.
static int flagsOfDescriptors = ~0;

// The kernel allocates memory for an open file.
// NOLINTNEXTLINE(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp): the linker names it so
extern "C" int __real_open(const char* path, int flags, ...);
// NOLINTNEXTLINE(bugprone-reserved-identifier,cert-*): the same
extern "C" int __wrap_open(const char* path, int flags, ...) {
  if (Vornik::Testing::NextAllocationFails()) {
    errno = ENOMEM;
    return -1;
  }
  const std::string_view name = path;
  if (name.size() > 4 && name.substr(name.size() - 4) == ".xml") flagsOfDescriptors &= flags;
  // Whatever else is linked statically may create files, as the counters of coverage are.
  std::va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
  va_end(arguments);
  return __real_open(path, flags, mode);
}

// What glibc's headers make of a call whose flags they do not know, in an optimised build.
// NOLINTNEXTLINE(bugprone-reserved-identifier,cert-*): the same
extern "C" int __wrap___open_2(const char* path, int flags) { return __wrap_open(path, flags); }

#endif

namespace Vornik {

namespace {

using Testing::Allocating;
using Testing::AllocatingScope;
using Testing::AllocationFault;
using Testing::AllocationReport;
using Testing::Descriptor;
using Testing::LostBlocks;
using Testing::Pack;
using Testing::TempFolder;
using Records = std::vector<QueryPackageResult>;

std::size_t records = 0;

// From the message's first piece to the end of its record.
std::optional<AllocatingScope>& Insertion() {
  static std::optional<AllocatingScope> scope;
  return scope;
}

}  // namespace

// A log that allocates nothing of its own but in the stream.
Log::Log(unsigned int level, const char* file, int line)
    : level_(level), file_(file), line_(line) {}

Log::~Log() noexcept(false) {
  Insertion().reset();
  if (level_ > 0 && file_ != nullptr && line_ > 0) ++records;
}

std::ostringstream& Log::Stream() {
  Insertion().emplace(Allocating::StreamInsertion);
  return stream_;
}

static unsigned int minLogLevel = 3;

unsigned int Log::GetMinLogLevel() { return minLogLevel; }

namespace {

// Long enough to be allocated.
std::string Code(const std::string& name) { return "a_package_with_a_long_code_" + name; }

std::string File(const std::string& name) { return "a_file_with_a_long_name_" + name; }

Descriptor Package(const std::string& name) {
  return Descriptor(Code(name))
      .Set("xmlFilename", File(name + ".xml"))
      .Set("payload", File(name + ".exe"))
      .Set("Version", "1.0")
      .Set("type", "2")
      .Set("description", "a text that is too long to be stored in the string itself")
      .Set("preReq", {"a_prerequisite_with_a_long_code"})
      .Set("driverFiles", {"a_driver_file_with_a_long_name.sys-#1.0", "no version"})
      .Set("driverFilesClassification", {"a classification of some length", "another"})
      .For("1234", "10", "9");
}

class OutOfMemoryTest : public testing::Test {
 protected:
  OutOfMemoryTest() {
    folder.Write(File("pack.xml"), Pack({Descriptor("pack")
                                             .Set("xmlFilename", File("pack.xml"))
                                             .Set("Version", "1")
                                             .Set("applicableMachineTypes", {"1234"})
                                             .Set("applicableOperatingSystems", {"10"}),
                                         Package("member"), Package("both")}));
    folder.Write(File("both.xml"), Package("both").Individual());
    folder.Write(File("new.xml"),
                 Package("new").Set("supersede", {Code("member").c_str()}).Individual());
    folder.Write(File("new.exe"), "payload");
    folder.Write(File("cut.xml"), "<a><!-- SystemUpdateElement");
    folder.Write(File("neither.xml"), "<a/>");
  }

  void Configure(QueryPackage& query) const {
    query.SetXMLPackageFolder(folder.Path());
    query.SetPlatform(static_cast<OsValue>(10), static_cast<ArcValue>(9), "1234");
    query.SetIncludePackageIDs({Code("new"), Code("member")});
    query.SetExcludePackageIDs({Code("both")});
    query.SetUpdateTypes({static_cast<UpdateType>(2)});
  }

  // The result of a query without a failed allocation.
  Records Expected() const {
    QueryPackage query;
    Configure(query);
    Records results;
    EXPECT_EQ(query.RunQuery(results), QueryCode::Completed);
    EXPECT_EQ(results.size(), 3U);
    return results;
  }

  // False once there is no allocation of that number.
  bool FailAt(std::size_t number, AllocationFault fault, const Records& expected) const {
    QueryPackage query;
    Configure(query);
    AllocationReport report;
    {
      Records results;
      bool threw = false;
      Testing::WatchAllocations(number, fault);
      try {
        const int code = query.RunQuery(results);
        report = Testing::StopWatching();
        EXPECT_EQ(code, QueryCode::Completed);
        EXPECT_EQ(Testing::FirstDifference(results, expected), "");
      } catch (const std::bad_alloc&) {
        report = Testing::StopWatching();
        threw = true;
      }
      EXPECT_EQ(threw, report.failedInParser + report.failedElsewhere != 0);
    }
    {
      Records results;
      EXPECT_EQ(query.RunQuery(results), QueryCode::Completed);
      EXPECT_EQ(Testing::FirstDifference(results, expected), "");
    }
    interruptedParser += report.failedInParser != 0 ? 1 : 0;
    cutRecords += report.failedInInsertion != 0 ? 1 : 0;
    return report.Failed();
  }

  void FailEverywhere(AllocationFault fault) const {
    const Records expected = Expected();
    std::size_t number = 0;
    for (bool failed = true; failed && !HasFailure(); ++number) {
      SCOPED_TRACE("allocation " + std::to_string(number));
      const std::size_t interruptedBefore = interruptedParser;
      failed = FailAt(number, fault, expected);
      // The object is gone, and the records with it.
      const LostBlocks lost = Testing::ReclaimLostBlocks();
      EXPECT_EQ(lost.ofOthers, 0U);
      EXPECT_TRUE(lost.ofParser == 0 || interruptedParser != interruptedBefore);
    }
    EXPECT_GT(number, 500U);
    EXPECT_GT(interruptedParser, 100U);
    EXPECT_GT(cutRecords, 10U);
    EXPECT_GT(records, number);
  }

  TempFolder folder;
  mutable std::size_t interruptedParser = 0;
  mutable std::size_t cutRecords = 0;
};

TEST_F(OutOfMemoryTest, OnceAtEveryAllocation) { FailEverywhere(AllocationFault::Once); }

TEST_F(OutOfMemoryTest, ForGoodFromEveryAllocation) {
  FailEverywhere(AllocationFault::FromThereOn);
}

// The name of a file is only needed for the line that contains it.
TEST(Messages, AreNotComputedBelowTheThreshold) {
  const TempFolder folder;
  folder.Write("neither.xml", "<a/>");
  for (const unsigned int level : {0U, 1U}) {
    QueryPackage query;
    query.SetXMLPackageFolder(folder.Path());
    query.SetPlatform(static_cast<OsValue>(10), static_cast<ArcValue>(9), "1234");
    Records results;
    filenamesTaken = 0;
    minLogLevel = level;
    EXPECT_EQ(query.RunQuery(results), QueryCode::NoResults);
    minLogLevel = 3;
    EXPECT_EQ(filenamesTaken, level) << "level " << level;
  }
}

#ifndef _WIN32

// A program that the host starts meanwhile inherits none of them, and no terminal is acquired.
TEST_F(OutOfMemoryTest, DescriptorsAreOpenedForTheQueryAlone) {
  Expected();
  EXPECT_NE(flagsOfDescriptors, ~0) << "something was opened";
  EXPECT_NE(flagsOfDescriptors & O_CLOEXEC, 0);
  EXPECT_NE(flagsOfDescriptors & O_NOCTTY, 0);
}

#endif

}  // namespace
}  // namespace Vornik
