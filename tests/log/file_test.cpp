// The rotating file: opening, rotation, failures.
#include <gtest/gtest.h>

#include <chrono>
#include <fstream>

#include "support.h"

namespace Vornik {
namespace {

namespace fs = std::filesystem;

class LogFileTest : public testing::Test {
 protected:
  const TempFolder& Folder() const { return folder_; }
  fs::path Path() const { return folder_ / "log.txt"; }

  void Open(std::size_t maxBytes, std::size_t maxFiles) const {
    std::string reason;
    ASSERT_TRUE(LogToFile({Path().string(), maxBytes, maxFiles}, &reason)) << reason;
  }

 private:
  const TempFolder folder_;
  const RestoredSettings restored_{};
};

// --- opening ---

TEST_F(LogFileTest, IsRefusedWithAReasonAndTheDestinationStays) {
  const fs::path plainFile = Folder() / "plain";
  std::ofstream(plainFile) << "x";
  const std::string path = Path().string();
  const struct {
    const char* what = nullptr;
    LogFile file;
    const char* reason = nullptr;
  } cases[] = {
      {"no name", {"", 1, 1}, "no name"},
      {"NUL in the name", {path + std::string(1, '\0') + "x", 1, 1}, "NUL"},
      {"no bytes", {path, 0, 1}, "size limit"},
      {"no files", {path, 1, 0}, "number of log files"},
      {"too many files", {path, 1, 1001}, "number of log files"},
      {"a folder", {(Folder() / "").string(), 1, 1}, "Failed opening file"},
      {"below a plain file", {(plainFile / "log.txt").string(), 1, 1}, "Failed opening file"},
  };

  std::vector<std::string> received;
  LogToFunction([&received](const LogRecord& record) { received.emplace_back(record.text); });
  for (const auto& one : cases) {
    std::string reason;
    EXPECT_FALSE(LogToFile(one.file, &reason)) << one.what;
    EXPECT_NE(reason.find(one.reason), std::string::npos) << one.what << ": " << reason;
    EXPECT_FALSE(LogToFile(one.file)) << one.what;
    Emit(1, one.what);
    EXPECT_EQ(received.back(), one.what);
  }
  EXPECT_EQ(received.size(), std::size(cases));
}

TEST_F(LogFileTest, LeavesTheReasonAloneOnSuccess) {
  std::string reason = "untouched";
  EXPECT_TRUE(LogToFile({Path().string()}, &reason));
  EXPECT_EQ(reason, "untouched");
}

TEST_F(LogFileTest, IsCreatedAlongWithItsFolders) {
  const fs::path path = Folder() / "new" / "deeper" / "log.txt";
  ASSERT_TRUE(LogToFile({path.string()}));
  Emit(1, "a");
  EXPECT_EQ(Texts(ParseLines(ReadFile(path))), std::vector<std::string>{"a"});
}

TEST_F(LogFileTest, IsAppendedTo) {
  Open(1000, 2);
  Emit(1, "first");
  LogToStandardError();
  Open(1000, 2);
  Emit(1, "second");
  EXPECT_EQ(Texts(ParseLines(ReadFile(Path()))), (std::vector<std::string>{"first", "second"}));
}

TEST_F(LogFileTest, EndsALineThatSomethingElseLeftUnfinished) {
  std::ofstream(Path(), std::ios::binary) << "half a li";
  Open(1000, 2);
  Emit(1, "whole");
  const std::string content = ReadFile(Path());
  const std::size_t lineEnd = content.find('\n');
  ASSERT_NE(lineEnd, std::string::npos);
  EXPECT_EQ(content.substr(0, 9), "half a li");
  EXPECT_EQ(Texts(ParseLines(content.substr(lineEnd + 1))), std::vector<std::string>{"whole"});
}

TEST_F(LogFileTest, HoldsARecordAsSoonAsItIsEmitted) {
  Open(1000, 2);
  Emit(1, "now");
  EXPECT_EQ(Texts(ParseLines(ReadFile(Path()))), std::vector<std::string>{"now"});
}

// --- rotation ---

TEST_F(LogFileTest, KeepsTheNewestRecordsWithinItsLimits) {
  constexpr std::size_t maxBytes = 500;
  constexpr std::size_t maxFiles = 3;
  constexpr int records = 100;
  Open(maxBytes, maxFiles);
  for (int number = 0; number < records; ++number) Emit(1, std::to_string(number));

  for (std::size_t index = 0; index < maxFiles; ++index) {
    ASSERT_TRUE(fs::exists(RotatedName(Path(), index))) << index;
    EXPECT_LE(fs::file_size(RotatedName(Path(), index)), maxBytes) << index;
  }
  EXPECT_FALSE(fs::exists(RotatedName(Path(), maxFiles)));

  const std::vector<std::string> texts = Texts(ReadRotated(Path()));
  ASSERT_GT(texts.size(), 20u);
  ASSERT_LT(texts.size(), static_cast<std::size_t>(records));
  int number = records - static_cast<int>(texts.size());
  for (const std::string& text : texts) EXPECT_EQ(text, std::to_string(number++));
}

TEST_F(LogFileTest, StartsAnewWhenItIsTheOnlyOne) {
  Open(100, 1);
  for (const char* text : {"first", "second", "third"}) Emit(1, text);
  EXPECT_EQ(Texts(ParseLines(ReadFile(Path()))), std::vector<std::string>{"third"});
  EXPECT_FALSE(fs::exists(RotatedName(Path(), 1)));
}

TEST_F(LogFileTest, GivesARecordThatExceedsTheLimitAFileOfItsOwn) {
  const std::string text(1000, 'x');
  Open(100, 5);
  Emit(1, "before");
  Emit(1, text);
  Emit(1, "after");
  EXPECT_EQ(Texts(ReadRotated(Path())), (std::vector<std::string>{"before", text, "after"}));
  EXPECT_EQ(Texts(ParseLines(ReadFile(RotatedName(Path(), 1)))), std::vector<std::string>{text});
}

TEST_F(LogFileTest, CountsWhatItHeldBeforeItWasOpened) {
  std::ofstream(Path(), std::ios::binary) << std::string(90, 'x') << '\n';
  Open(100, 2);
  Emit(1, "a");
  EXPECT_EQ(ReadFile(RotatedName(Path(), 1)), std::string(90, 'x') + "\n");
  EXPECT_EQ(Texts(ParseLines(ReadFile(Path()))), std::vector<std::string>{"a"});
}

// --- failures; file_sink_test.cpp shows what follows them ---

TEST_F(LogFileTest, SurvivesAFileThatCannotBeRenamed) {
  // A folder with something in it stands where the full file should go.
  fs::create_directories(RotatedName(Path(), 1) / "inside");
  Open(100, 2);
  const std::uint64_t lostBefore = LostLogRecords();
  for (int number = 0; number < 4; ++number) EXPECT_NO_THROW(Emit(1, std::to_string(number)));
  EXPECT_GT(LostLogRecords(), lostBefore);
  EXPECT_LE(fs::file_size(Path()), 100u);
}

#ifndef _WIN32  // Windows does not remove the folder of an open file

TEST_F(LogFileTest, SurvivesTheLossOfItsFolder) {
  const fs::path folder = Folder() / "gone";
  const fs::path path = folder / "log.txt";
  ASSERT_TRUE(LogToFile({path.string(), 200, 3}));
  Emit(1, "before");
  fs::remove_all(folder);
  std::ofstream(folder) << "a plain file in its place";

  // The long record makes the file rotate, which fails; the short ones after it would fit in.
  const std::uint64_t lostBefore = LostLogRecords();
  Emit(1, std::string(200, 'x'));
  for (int number = 0; number < 50; ++number) EXPECT_NO_THROW(Emit(1, "short"));
  EXPECT_EQ(LostLogRecords(), lostBefore + 51);
}

TEST_F(LogFileTest, DoesNotMakeTheEmitterWaitWhileItCannotBeOpened) {
  const fs::path folder = Folder() / "gone";
  ASSERT_TRUE(LogToFile({(folder / "log.txt").string(), 100, 1}));
  Emit(1, std::string(100, 'x'));
  fs::remove_all(folder);
  std::ofstream(folder) << "a plain file in its place";
  const auto start = std::chrono::steady_clock::now();
  for (int number = 0; number < 1000; ++number) Emit(1, "a");
  // Trying to open it for every record would take 50 s.
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

TEST_F(LogFileTest, CountsEveryRecordThatAFullDiskRefuses) {
  if (!fs::exists("/dev/full")) GTEST_SKIP() << "no /dev/full";
  ASSERT_TRUE(LogToFile({"/dev/full", 1000, 1}));
  const std::uint64_t lostBefore = LostLogRecords();
  for (int number = 0; number < 100; ++number) EXPECT_NO_THROW(Emit(1, "a"));
  EXPECT_EQ(LostLogRecords(), lostBefore + 100);
}

#endif  // _WIN32

}  // namespace
}  // namespace Vornik
