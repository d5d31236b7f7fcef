// Files so large that memory could not hold them, beside sound packages.
#include "query_fixture.h"
#include "sanitizers.h"

#if !defined(_WIN32) && !defined(QUERYPACKAGE_TEST_SANITIZED)

#include <sys/resource.h>
#include <unistd.h>

#include <boost/filesystem/operations.hpp>
#include <cstdint>
#include <fstream>

namespace Vornik::Testing {
namespace {

constexpr std::uint64_t gibibyte = std::uint64_t{1} << 30U;

// How a child process ends in which each sound package is in the results.
constexpr int sound = 42;

class LargeFileTest : public QueryTest {
 protected:
  // A file that begins with the text and continues with zero bytes, which take no room on the disk.
  void WriteSparse(const std::string& name, const std::string& begin, std::uint64_t size) {
    const std::string path = folder.Write(name, begin);
    ASSERT_EQ(::truncate(path.c_str(), static_cast<off_t>(size)), 0);
  }

  // In a child process whose address space the limit bounds.
  [[noreturn]] void QueryWithinAGibibyte(const Lines& expectedErrors) {
    const rlimit limit{gibibyte, gibibyte};
    ::setrlimit(RLIMIT_AS, &limit);
    const int code = Run();
    Lines errors;
    for (const std::string& error : Errors()) {
      if (error.rfind("ERROR: ", 0) != 0) errors.push_back(error);
    }
    const bool isSound = code == QueryCode::Completed && Codes() == Lines{"a_sound", "z_sound"} &&
                         errors == expectedErrors;
    std::_Exit(isSound ? sound : 1);
  }
};

TEST_F(LargeFileTest, LeavesTheSoundPackagesInTheResults) {
  WriteIndividual("a_sound.xml");
  WriteIndividual("z_sound.xml");
  WriteSparse("image.xml", "", 8 * gibibyte);
  WriteSparse("individual.xml", "<!-- SystemUpdateElement -->", 2 * gibibyte);
  WriteSparse("pack.xml", "<!-- ORXQDL_SystemUpdateProduct -->", 3 * gibibyte);
  WriteSparse("small_image.xml", "", gibibyte + gibibyte / 2);
  EXPECT_EXIT(QueryWithinAGibibyte({"image.xml is not a valid ORX xml",
                                    "Faile to load Package XML: " + PathOf("individual.xml"),
                                    "Faile to load Kovu XML: " + PathOf("pack.xml"),
                                    "small_image.xml is not a valid ORX xml"}),
              testing::ExitedWithCode(sound), "");
}

#if defined(__linux__)
// Its size is 0, and it goes on for as long as anybody reads it.
TEST_F(LargeFileTest, AFileWithoutAnEndIsReadNoFurtherThanTheLimit) {
  const char* const endless = "/proc/self/pagemap";
  if (!std::ifstream(endless).is_open()) GTEST_SKIP() << endless << " cannot be read";
  WriteIndividual("a_sound.xml");
  WriteIndividual("z_sound.xml");
  boost::filesystem::create_symlink(endless, PathOf("endless.xml"));
  EXPECT_EXIT(QueryWithinAGibibyte({"endless.xml is not a valid ORX xml"}),
              testing::ExitedWithCode(sound), "");
}
#endif

}  // namespace
}  // namespace Vornik::Testing

#endif
