#include "reading/descriptor_files.h"

#include <gtest/gtest.h>

#include <boost/filesystem.hpp>
#include <cerrno>
#include <csignal>
#include <iterator>
#include <optional>
#include <string>
#include <utility>
#ifndef _WIN32
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

#include "temp_folder.h"

#ifndef _WIN32

// How many calls a signal interrupts before one succeeds.
static int interruptedReads = 0;

// Found in the place of the C library's own.
extern "C" __attribute__((visibility("default"))) ssize_t read(int file, void* to, size_t count) {
  using Read = ssize_t (*)(int, void*, size_t);
  static const auto next = reinterpret_cast<Read>(dlsym(RTLD_NEXT, "read"));
  if (interruptedReads == 0) return next(file, to, count);
  --interruptedReads;
  errno = EINTR;
  return -1;
}

#endif

namespace Vornik {
namespace {

using namespace std::string_literals;
using Testing::TempFolder;

namespace fs = boost::filesystem;

// As a listing says of a regular file.
constexpr auto regular = fs::regular_file;

TEST(DescriptorFiles, BytesOfARegularFileAreReadAsTheyAre) {
  const TempFolder folder;
  const std::string cases[] = {
      "",
      "a",
      "a\r\nb\rc\n",
      "\x1A\0\xFF"s,
      std::string(64, 'x'),
      std::string(3'000'000, 'y'),
      // Around the parts in which a file is read.
      std::string(16'383, 'a'),
      std::string(16'384, 'b'),
      std::string(16'385, 'c'),
      std::string(32'768, 'd'),
  };
  for (const std::string& bytes : cases) {
    const std::string path = folder.Write("file", bytes);
    EXPECT_TRUE(IsRegularFile(path));
    EXPECT_EQ(ReadFile(path).bytes, bytes) << bytes.size() << " bytes";
  }
}

TEST(DescriptorFiles, NothingElseIsARegularFile) {
  const TempFolder folder;
  const std::string file = folder.Write("file", "a");
  const std::string cases[] = {
      "",
      folder.Path(),
      folder.Path() + "/.",
      folder.Path() + "/missing",
      file + "/below",
      folder.Path() + "/" + std::string(5'000, 'n'),
      std::string(100'000, '/') + "n",
      folder.Path() + "/\xFF\xFE\x80",
      folder.Path() + "/\n\x01*?<>|\"",
      folder.Path() + "/\0file"s,
  };
  for (const std::string& path : cases) {
    EXPECT_FALSE(IsRegularFile(path)) << testing::PrintToString(path.substr(0, 80));
    EXPECT_EQ(ReadFile(path).bytes, std::nullopt) << testing::PrintToString(path.substr(0, 80));
  }
}

// What Windows lists as a reparse point is, when it is opened, a file like any other: one of a
// deduplicated volume, or a placeholder of one in a cloud.
TEST(DescriptorFiles, ReparsePointsThatAreNoLinksAreRead) {
  const TempFolder folder;
  const std::string path = folder.Write("file", "SystemUpdateElement");
  const FileReading reading = ReadEntry(path, fs::reparse_file);
  EXPECT_EQ(reading.fault, FileFault::None);
  EXPECT_EQ(reading.bytes, "SystemUpdateElement");
  EXPECT_TRUE(reading.markers.individual);
}

TEST(DescriptorFiles, NothingElseIsOpened) {
  const TempFolder folder;
  const std::string path = folder.Write("file", "a");
  const std::pair<fs::file_type, FileFault> cases[] = {
      {fs::directory_file, FileFault::IsFolder},   {fs::fifo_file, FileFault::NotRegular},
      {fs::character_file, FileFault::NotRegular}, {fs::block_file, FileFault::NotRegular},
      {fs::socket_file, FileFault::NotRegular},    {fs::type_unknown, FileFault::NotRegular},
      {fs::file_not_found, FileFault::NotOpened},  {fs::status_error, FileFault::NotOpened},
  };
  for (const auto& [type, fault] : cases) {
    const FileReading reading = ReadEntry(path, type);
    EXPECT_EQ(reading.fault, fault) << type;
    EXPECT_EQ(reading.bytes, std::nullopt) << type;
  }
}

TEST(DescriptorFiles, AFaultHasItsReason) {
  const TempFolder folder;
  const FileReading missing = ReadEntry(folder.Path() + "/missing", regular);
  EXPECT_EQ(missing.fault, FileFault::NotOpened);
  EXPECT_EQ(missing.error, ENOENT);
  EXPECT_EQ(ReadFile(folder.Path()).fault, FileFault::IsFolder);
  EXPECT_EQ(ReadFile(folder.Path() + "/missing").error, ENOENT);
}

// A large file is kept only if it has a marker, wherever that is.
TEST(DescriptorFiles, LargeFilesAreKeptIfTheyHaveAMarker) {
  const TempFolder folder;
  const std::string marker = "SystemUpdateElement";
  const std::string fill(usualFileSize, '\n');
  const struct {
    std::string bytes;
    bool isKept;
    bool hasMarker;
  } cases[] = {
      {std::string(usualFileSize - 1, 'x'), true, false},
      {fill, false, false},
      {fill + std::string(usualFileSize, 'x'), false, false},
      {marker + fill, true, true},
      {fill + marker, true, true},
      {fill.substr(10) + marker + "x", true, true},  // across the size up to which a file is kept
      {fill + std::string(50'000, '\n') + marker, true, true},
  };
  for (const auto& one : cases) {
    const FileReading reading = ReadFile(folder.Write("file", one.bytes));
    EXPECT_EQ(reading.fault, FileFault::None);
    EXPECT_EQ(reading.markers.individual, one.hasMarker) << one.bytes.size();
    EXPECT_FALSE(reading.isTooLarge);
    ASSERT_EQ(reading.bytes.has_value(), one.isKept) << one.bytes.size();
    EXPECT_TRUE(!one.isKept || *reading.bytes == one.bytes) << one.bytes.size();
  }
}

#ifndef _WIN32

TEST(DescriptorFiles, LinksAreFollowed) {
  const TempFolder folder;
  const std::string file = folder.Write("file", "a");
  const std::string link = folder.Path() + "/link";
  boost::filesystem::create_symlink(file, link);
  EXPECT_TRUE(IsRegularFile(link));
  EXPECT_EQ(ReadFile(link).bytes, "a");

  const std::string cases[][2] = {{"to folder", folder.Path()},
                                  {"to nothing", "missing"},
                                  {"to itself", "to itself"},
                                  {"there", "back"},
                                  {"back", "there"}};
  for (const auto& [name, target] : cases) {
    boost::filesystem::create_symlink(target, folder.Path() + "/" + name);
  }
  for (const auto& [name, target] : cases) {
    EXPECT_FALSE(IsRegularFile(folder.Path() + "/" + name)) << name;
    EXPECT_EQ(ReadFile(folder.Path() + "/" + name).bytes, std::nullopt) << name;
  }
}

TEST(DescriptorFiles, APipeIsNotOpened) {
  const TempFolder folder;
  const std::string pipe = folder.Path() + "/pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_FALSE(IsRegularFile(pipe));
  EXPECT_EQ(ReadFile(pipe).bytes, std::nullopt);            // an open would wait for a writer
  EXPECT_EQ(ReadEntry(pipe, regular).bytes, std::nullopt);  // a regular file before
  EXPECT_FALSE(IsRegularFile("/dev/null"));
  EXPECT_EQ(ReadEntry("/dev/null", regular).bytes, std::nullopt);
}

TEST(DescriptorFiles, AReadThatASignalInterruptsIsRepeated) {
  const TempFolder folder;
  const std::string file = folder.Write("file", "a");
  interruptedReads = 2;
  EXPECT_EQ(ReadFile(file).bytes, "a");
  EXPECT_EQ(interruptedReads, 0);
}

// What an earlier call left in errno says nothing about this one.
TEST(DescriptorFiles, AnEarlierErrorDoesNotCount) {
  const TempFolder folder;
  const std::string file = folder.Write("file", "a");
  errno = ENOMEM;
  EXPECT_EQ(ReadFile(file).bytes, "a");
  errno = ENOMEM;
  EXPECT_EQ(ReadEntry("/dev/null", regular).bytes, std::nullopt);
}

TEST(DescriptorFiles, ADescriptorOfZeroIsOneLikeAnyOther) {
  const TempFolder folder;
  const std::string file = folder.Write("file", "a");
  const int standardInput = fcntl(0, F_DUPFD_CLOEXEC, 3);
  close(0);
  errno = EWOULDBLOCK;
  EXPECT_EQ(ReadFile(file).bytes, "a");
  EXPECT_EQ(fcntl(0, F_GETFD), -1) << "it is closed again";
  if (standardInput >= 0) {
    dup2(standardInput, 0);
    close(standardInput);
  }
}

TEST(DescriptorFiles, NamesAreBytes) {
  const TempFolder folder;
  const std::string path = folder.Write("\xFF\xFE \n.xml", "a");
  EXPECT_TRUE(IsRegularFile(path));
  EXPECT_EQ(ReadFile(path).bytes, "a");
}

#endif

#ifdef __linux__

// The kernel's files have the size 0 and more bytes than that.
TEST(DescriptorFiles, AFileIsReadToItsEndWhateverItsSizeWasBefore) {
  ASSERT_EQ(boost::filesystem::file_size("/proc/self/smaps"), 0U);
  const std::optional<std::string> bytes = ReadFile("/proc/self/smaps").bytes;
  ASSERT_TRUE(bytes.has_value());
  EXPECT_GT(bytes->size(), 1'000U);
  EXPECT_EQ(bytes->back(), '\n');
  EXPECT_EQ(bytes->find('\0'), std::string::npos);
}

volatile std::sig_atomic_t leasedFile = -1;

void GiveLeaseBack(int) { fcntl(leasedFile, F_SETLEASE, F_UNLCK); }

// The kernel asks a lease's holder, by a signal, to give it back, and refuses who does not wait.
TEST(DescriptorFiles, AFileThatIsLeasedIsWaitedFor) {
  const TempFolder folder;
  const std::string file = folder.Write("file", "a");
  leasedFile = open(file.c_str(), O_RDWR | O_CLOEXEC);
  if (fcntl(leasedFile, F_SETLEASE, F_WRLCK) != 0) {
    close(leasedFile);
    GTEST_SKIP() << "this file system knows no leases";
  }
  const auto handlerBefore = std::signal(SIGIO, GiveLeaseBack);
  EXPECT_EQ(ReadFile(file).bytes, "a");
  EXPECT_EQ(fcntl(leasedFile, F_GETLEASE), F_UNLCK) << "the lease is still in force";
  std::signal(SIGIO, handlerBefore);
  close(leasedFile);
}

// The signal that asks for the lease interrupts the call that waits for it.
TEST(DescriptorFiles, AnOpenThatASignalInterruptsIsRepeated) {
  const TempFolder folder;
  const std::string file = folder.Write("file", "a");
  leasedFile = open(file.c_str(), O_RDWR | O_CLOEXEC);
  if (fcntl(leasedFile, F_SETLEASE, F_WRLCK) != 0) {
    close(leasedFile);
    GTEST_SKIP() << "this file system knows no leases";
  }
  struct sigaction interrupting = {};
  interrupting.sa_handler = GiveLeaseBack;  // without SA_RESTART
  struct sigaction before = {};
  sigaction(SIGIO, &interrupting, &before);
  EXPECT_EQ(ReadFile(file).bytes, "a");
  EXPECT_EQ(fcntl(leasedFile, F_GETLEASE), F_UNLCK) << "the lease is still in force";
  sigaction(SIGIO, &before, nullptr);
  close(leasedFile);
}

TEST(DescriptorFiles, WhatWasOpenedIsClosed) {
  const auto openFiles = [] {
    return std::distance(boost::filesystem::directory_iterator("/proc/self/fd"),
                         boost::filesystem::directory_iterator());
  };
  const TempFolder folder;
  const std::string file = folder.Write("file", "a");
  const auto before = openFiles();
  EXPECT_EQ(ReadFile(file).bytes, "a");
  EXPECT_EQ(ReadFile("/proc/self/mem").bytes, std::nullopt);
  EXPECT_EQ(ReadEntry("/dev/null", regular).bytes, std::nullopt);
  EXPECT_EQ(ReadEntry(folder.Path(), regular).bytes, std::nullopt);
  EXPECT_EQ(openFiles(), before);
}

TEST(DescriptorFiles, AReadErrorGivesNothing) {
  ASSERT_TRUE(IsRegularFile("/proc/self/mem"));  // there is no memory at address 0
  EXPECT_EQ(ReadFile("/proc/self/mem").bytes, std::nullopt);
}

#endif

}  // namespace
}  // namespace Vornik
