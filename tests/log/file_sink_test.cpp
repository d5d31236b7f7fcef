// A file that cannot be written for a time: it is tried again a second later, not before.
#include "file_sink.h"

#include <gtest/gtest.h>

#include <chrono>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include "temp_folder.h"

#ifndef _WIN32
#include <sys/resource.h>

#include <csignal>
#endif

namespace Vornik {
namespace {

using namespace std::chrono_literals;

class FileSinkTest : public testing::Test {
 protected:
  std::string Path() const { return folder_.Path() + "/log.txt"; }

  void Open(std::size_t maxBytes, std::size_t maxFiles, const std::string& path) {
    sink_ = std::make_unique<FileSink>(LogFile{path, maxBytes, maxFiles}, [this] { return now_; });
    sink_->set_pattern("%v");
  }

  // Whether the line was written.
  bool Write(const std::string& line) {
    try {
      sink_->log(spdlog::details::log_msg("", spdlog::level::err, line));
    } catch (const std::exception&) {
      return false;
    }
    return true;
  }

  void Wait(std::chrono::milliseconds time) { now_ += time; }

  std::string Content() const {
    std::ifstream stream(Path(), std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }

  const Testing::TempFolder folder_;

 private:
  std::chrono::steady_clock::time_point now_;
  std::unique_ptr<FileSink> sink_;
};

TEST_F(FileSinkTest, TriesAgainASecondAfterAFailure) {
  // A folder with something in it is in the place where the full file should go.
  std::filesystem::create_directories(folder_.Path() + "/log.1.txt/inside");
  Open(20, 2, Path());
  EXPECT_TRUE(Write("0123456789"));
  EXPECT_FALSE(Write("0123456789"));
  std::filesystem::remove_all(folder_.Path() + "/log.1.txt");
  EXPECT_FALSE(Write("x"));
  Wait(999ms);
  EXPECT_FALSE(Write("x"));
  Wait(1ms);
  EXPECT_TRUE(Write("recovered"));
  EXPECT_EQ(Content().substr(0, 9), "recovered");
}

#ifndef _WIN32  // Windows does not remove the folder of an open file

TEST_F(FileSinkTest, WaitsAnotherSecondAfterAnAttemptThatFails) {
  const std::string folder = folder_.Path() + "/gone";
  Open(20, 1, folder + "/log.txt");
  std::filesystem::remove_all(folder);
  folder_.Write("gone", "a plain file in its place");
  EXPECT_FALSE(Write(std::string(20, 'x')) && Write("x"));
  Wait(1s);
  EXPECT_FALSE(Write("x"));
  std::filesystem::remove(folder);
  EXPECT_FALSE(Write("x"));
  Wait(1s);
  EXPECT_TRUE(Write("recovered"));
}

// No file of the process grows over that many bytes.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    rlimit limit = before_;
    limit.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  void (*handler_)(int);
  rlimit before_{};
};

// The disk fills up within a line and has room again later.
TEST_F(FileSinkTest, GoesOnWithAWholeLineWhenTheDiskHasRoomAgain) {
  Open(100'000, 1, Path());
  int written = 0;
  {
    const FileSizeLimit limit(95);
    while (Write("before " + std::to_string(written))) ++written;
  }
  EXPECT_GT(written, 5);
  Wait(1s);
  EXPECT_TRUE(Write("after"));

  std::string expected;
  for (int i = 0; i < written; ++i) expected += "before " + std::to_string(i) + '\n';
  const std::string cut = "before " + std::to_string(written);
  expected += cut.substr(0, 95 - expected.size()) + "\nafter\n";
  EXPECT_EQ(Content(), expected);
}

#endif

}  // namespace
}  // namespace Vornik
