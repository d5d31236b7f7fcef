// A query that runs out of memory, at every allocation that it makes.
#include <Log.h>
#include <gtest/gtest.h>
#include <tinyxml.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#ifdef _WIN32
#include <boost/filesystem/path.hpp>
#else
#include <dlfcn.h>
#include <fcntl.h>
#endif

#include "QueryPackage.h"
#include "allocation_faults.h"
#include "descriptors.h"
#include "record_members.h"
#include "temp_folder.h"

namespace {

// TinyXML's parser holds the node or attribute that it reads by a bare pointer, and drops it when
// an allocation throws. So it is to be known which blocks are the parser's.
class WatchedDocument final : public TiXmlDocument {
 public:
  const char* Parse(const char* text, TiXmlParsingData* previous, TiXmlEncoding encoding) override {
    const Vornik::Testing::AllocatingScope scope(Vornik::Testing::Allocating::Parser);
    return TiXmlDocument::Parse(text, previous, encoding);
  }
};
static_assert(sizeof(WatchedDocument) == sizeof(TiXmlDocument));

}  // namespace

// The linker puts this in the place of TiXmlDocument's constructor wherever one is made.
// NOLINTNEXTLINE(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp): it names it so
extern "C" void __wrap__ZN13TiXmlDocumentC1Ev(void* memory) { new (memory) WatchedDocument; }

#ifdef _WIN32

// On Windows Boost asks for the extension of every path whose kind it finds. That compares paths in
// a function that is declared to throw nothing although it allocates: memory that runs out there
// ends the process, whatever its caller does. So it is spared.
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

// The kernel allocates what stands for an open file.
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

// The C library allocates the stream of a file.
extern "C" __attribute__((visibility("default"))) std::FILE* fdopen(int descriptor,
                                                                    const char* mode) {
  using Fdopen = std::FILE* (*)(int, const char*);
  static const auto next = reinterpret_cast<Fdopen>(dlsym(RTLD_NEXT, "fdopen"));
  if (!Vornik::Testing::NextAllocationFails()) return next(descriptor, mode);
  errno = ENOMEM;
  return nullptr;
}

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

unsigned int Log::GetMinLogLevel() { return 3; }

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

  // What a query of an object that nothing happened to gives.
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

#ifndef _WIN32

// No program that the host starts meanwhile gets hold of one, nor a terminal in its place.
TEST_F(OutOfMemoryTest, DescriptorsAreOpenedForTheQueryAlone) {
  Expected();
  EXPECT_NE(flagsOfDescriptors, ~0) << "something was opened";
  EXPECT_NE(flagsOfDescriptors & O_CLOEXEC, 0);
  EXPECT_NE(flagsOfDescriptors & O_NOCTTY, 0);
}

#endif

}  // namespace
}  // namespace Vornik
