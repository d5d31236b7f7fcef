#include "descriptor_files.h"

#include <gtest/gtest.h>

#include <boost/filesystem.hpp>
#include <cerrno>
#include <csignal>
#include <iterator>
#include <optional>
#include <string>
#ifndef _WIN32
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

#include "temp_folder.h"

namespace Vornik {
namespace {

using namespace std::string_literals;
using Testing::TempFolder;

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
    EXPECT_EQ(ReadRegularFile(path), bytes) << bytes.size() << " bytes";
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
    EXPECT_EQ(ReadRegularFile(path), std::nullopt) << testing::PrintToString(path.substr(0, 80));
  }
}

#ifndef _WIN32

TEST(DescriptorFiles, LinksAreFollowed) {
  const TempFolder folder;
  const std::string file = folder.Write("file", "a");
  const std::string link = folder.Path() + "/link";
  boost::filesystem::create_symlink(file, link);
  EXPECT_TRUE(IsRegularFile(link));
  EXPECT_EQ(ReadRegularFile(link), "a");

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
    EXPECT_EQ(ReadRegularFile(folder.Path() + "/" + name), std::nullopt) << name;
  }
}

TEST(DescriptorFiles, APipeIsNotOpened) {
  const TempFolder folder;
  const std::string pipe = folder.Path() + "/pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_FALSE(IsRegularFile(pipe));
  EXPECT_EQ(ReadRegularFile(pipe), std::nullopt);       // an open would wait for a writer
  EXPECT_EQ(ReadKnownRegularFile(pipe), std::nullopt);  // a regular file before
  EXPECT_FALSE(IsRegularFile("/dev/null"));
  EXPECT_EQ(ReadKnownRegularFile("/dev/null"), std::nullopt);
}

// What an earlier call left in errno says nothing about this one.
TEST(DescriptorFiles, AnEarlierErrorDoesNotCount) {
  const TempFolder folder;
  const std::string file = folder.Write("file", "a");
  errno = ENOMEM;
  EXPECT_EQ(ReadRegularFile(file), "a");
  errno = ENOMEM;
  EXPECT_EQ(ReadKnownRegularFile("/dev/null"), std::nullopt);
}

TEST(DescriptorFiles, ADescriptorOfZeroIsOneLikeAnyOther) {
  const TempFolder folder;
  const std::string file = folder.Write("file", "a");
  const int standardInput = fcntl(0, F_DUPFD_CLOEXEC, 3);
  close(0);
  errno = EWOULDBLOCK;
  EXPECT_EQ(ReadRegularFile(file), "a");
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
  EXPECT_EQ(ReadRegularFile(path), "a");
}

#endif

#ifdef __linux__

// The kernel's files have the size 0 and more bytes than that.
TEST(DescriptorFiles, AFileIsReadToItsEndWhateverItsSizeWasBefore) {
  ASSERT_EQ(boost::filesystem::file_size("/proc/self/smaps"), 0U);
  const std::optional<std::string> bytes = ReadRegularFile("/proc/self/smaps");
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
  EXPECT_EQ(ReadRegularFile(file), "a");
  EXPECT_EQ(fcntl(leasedFile, F_GETLEASE), F_UNLCK) << "it was asked for";
  std::signal(SIGIO, handlerBefore);
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
  EXPECT_EQ(ReadRegularFile(file), "a");
  EXPECT_EQ(ReadRegularFile("/proc/self/mem"), std::nullopt);
  EXPECT_EQ(ReadKnownRegularFile("/dev/null"), std::nullopt);
  EXPECT_EQ(ReadKnownRegularFile(folder.Path()), std::nullopt);
  EXPECT_EQ(openFiles(), before);
}

TEST(DescriptorFiles, AReadErrorGivesNothing) {
  ASSERT_TRUE(IsRegularFile("/proc/self/mem"));  // no memory stands at the address 0
  EXPECT_EQ(ReadRegularFile("/proc/self/mem"), std::nullopt);
}

#endif

}  // namespace
}  // namespace Vornik
