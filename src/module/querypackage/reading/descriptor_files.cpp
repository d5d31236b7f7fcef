#include "descriptor_files.h"

#include <algorithm>
#include <array>
#include <boost/filesystem/exception.hpp>
#include <boost/filesystem/operations.hpp>
#include <boost/filesystem/path.hpp>
#include <boost/system/error_code.hpp>
#include <boost/system/system_error.hpp>
#include <cerrno>
#include <new>
#include <string_view>
#include <utility>

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <io.h>
#include <windows.h>

#include <cstdio>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace Vornik {

namespace {

namespace fs = boost::filesystem;

// Kept free after the bytes, so that a reader may append a terminator without a copy.
constexpr std::size_t spareBytes = 64;

// One open file. errno says why an operation failed.
class File {
 public:
  explicit File(const std::string& path);
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  ~File();

  bool IsOpen() const;
  bool IsRegular() const;
  bool Rewind();

  // Fewer bytes than that only at the file's end; nothing for an error.
  std::optional<std::size_t> Read(char* to, std::size_t count);

 private:
#ifdef _WIN32
  std::FILE* file_;
#else
  int descriptor_;
#endif
};

#ifdef _WIN32

File::File(const std::string& path) : file_(std::fopen(path.c_str(), "rb")) {
  // No buffer of the C library's between: a part is read where it is wanted.
  if (file_ != nullptr) static_cast<void>(std::setvbuf(file_, nullptr, _IONBF, 0));
}

File::~File() {
  if (file_ != nullptr) static_cast<void>(std::fclose(file_));
}

bool File::IsOpen() const { return file_ != nullptr; }

// A folder does not open here, and what is on no disk is a pipe or a device.
bool File::IsRegular() const {
  const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(file_)));
  return GetFileType(handle) == FILE_TYPE_DISK;
}

bool File::Rewind() { return std::fseek(file_, 0, SEEK_SET) == 0; }

std::optional<std::size_t> File::Read(char* to, std::size_t count) {
  const std::size_t length = std::fread(to, 1, count, file_);
  if (std::ferror(file_) != 0) return std::nullopt;
  return length;
}

#else

// A signal may interrupt any call that waits.
template <typename Call>
auto RepeatWhileInterrupted(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

// A lease that another program has on a file is the one thing to wait for. A file may have become a
// pipe since it was listed, and to open that would wait for a writer.
int OpenDescriptor(const std::string& path) {
  const int flags = O_RDONLY | O_CLOEXEC | O_NOCTTY;
  const auto open = [&path](int with) {
    return RepeatWhileInterrupted([&path, with] { return ::open(path.c_str(), with); });
  };
  const int descriptor = open(flags | O_NONBLOCK);
  const bool isLeased = descriptor < 0 && errno == EWOULDBLOCK;
  return isLeased ? open(flags) : descriptor;
}

File::File(const std::string& path) : descriptor_(OpenDescriptor(path)) {}

File::~File() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

bool File::IsOpen() const { return descriptor_ >= 0; }

bool File::IsRegular() const {
  struct stat status = {};
  return ::fstat(descriptor_, &status) == 0 && S_ISREG(status.st_mode);
}

bool File::Rewind() { return ::lseek(descriptor_, 0, SEEK_SET) == 0; }

std::optional<std::size_t> File::Read(char* to, std::size_t count) {
  std::size_t length = 0;
  while (length < count) {
    const auto read =
        RepeatWhileInterrupted([&] { return ::read(descriptor_, to + length, count - length); });
    if (read < 0) return std::nullopt;
    if (read == 0) break;
    length += static_cast<std::size_t>(read);
  }
  return length;
}

#endif

enum class Stop { AtEnd, AtMaxCount, AtError };

// Takes the next maxCount bytes part by part. The file may grow or shrink meanwhile: what counts is
// where reading finds the end.
template <typename Take>
Stop ReadParts(File& file, std::size_t maxCount, Take take) {
  std::array<char, 16'384> part;  // NOLINT(cppcoreguidelines-pro-type-member-init): Read fills it
  while (maxCount != 0) {
    const std::size_t wanted = std::min(part.size(), maxCount);
    const std::optional<std::size_t> length = file.Read(part.data(), wanted);
    if (!length) return Stop::AtError;
    take(std::string_view(part.data(), *length));
    if (*length < wanted) return Stop::AtEnd;
    maxCount -= *length;
  }
  return Stop::AtMaxCount;
}

// Most descriptors end in the first part, so that their bytes are stored once.
Stop ReadBytes(File& file, std::size_t maxCount, std::string& bytes) {
  return ReadParts(file, maxCount, [&bytes](std::string_view part) {
    if (bytes.empty()) bytes.reserve(part.size() + spareBytes);
    bytes.append(part);
  });
}

FileReading FaultyReading(FileFault fault, int error = 0) {
  FileReading reading;
  reading.fault = fault;
  reading.error = error;
  return reading;
}

FileReading FailedRead() { return FaultyReading(FileFault::NotRead, errno); }

bool HasMarker(const DescriptorMarkers& markers) { return markers.pack || markers.individual; }

// A file of which more than usualFileSize bytes have been read and searched.
FileReading ReadLargeFile(File& file, MarkerSearch& search) {
  constexpr std::size_t tooMany = maxFileSize + 1;
  const Stop stop = ReadParts(file, tooMany - usualFileSize,
                              [&search](std::string_view part) { search.Feed(part); });
  if (stop == Stop::AtError) return FailedRead();
  FileReading reading;
  reading.markers = search.Found();
  reading.isTooLarge = stop == Stop::AtMaxCount;
  if (reading.isTooLarge || !HasMarker(reading.markers)) return reading;

  std::string bytes;
  const Stop again = file.Rewind() ? ReadBytes(file, tooMany, bytes) : Stop::AtError;
  if (again == Stop::AtError) return FailedRead();
  reading.isTooLarge = again == Stop::AtMaxCount;
  if (!reading.isTooLarge) reading.bytes = std::move(bytes);
  return reading;
}

FileReading ReadOpenFile(File& file, TextMode mode) {
  std::string bytes;
  const Stop stop = ReadBytes(file, usualFileSize, bytes);
  if (stop == Stop::AtError) return FailedRead();
  MarkerSearch search(mode);
  search.Feed(bytes);
  if (stop == Stop::AtMaxCount) {
    bytes = std::string();
    return ReadLargeFile(file, search);
  }
  FileReading reading;
  reading.markers = search.Found();
  reading.bytes = std::move(bytes);
  return reading;
}

// Not a fault of this file: no other one could be opened either.
[[noreturn]] void ThrowNoDescriptorsLeft(const std::string& path, int error) {
  throw fs::filesystem_error("the file cannot be opened", path,
                             boost::system::error_code(error, boost::system::generic_category()));
}

FileReading OpenAndRead(const std::string& path, TextMode mode) {
  File file(path);
  if (!file.IsOpen()) {
    if (errno == ENOMEM) throw std::bad_alloc();
    if (errno == EMFILE || errno == ENFILE) ThrowNoDescriptorsLeft(path, errno);
    return FaultyReading(FileFault::NotOpened, errno);
  }
  if (!file.IsRegular()) return FaultyReading(FileFault::NotRegular);
  return ReadOpenFile(file, mode);
}

}  // namespace

bool IsOutOfMemory(const boost::system::error_code& error) {
  return error == boost::system::errc::not_enough_memory;
}

bool IsDirectory(const std::string& path) {
  return fs::status(fs::path(path)).type() == fs::directory_file;
}

bool IsRegularFile(const std::string& path) {
  try {
    boost::system::error_code error;
    return fs::status(path, error).type() == fs::regular_file;
  } catch (const boost::system::system_error&) {
    return false;  // the name has no counterpart in the file system's own character set
  }
}

FileReading ReadEntry(const std::string& path, fs::file_type type, TextMode mode) {
  switch (type) {
    case fs::regular_file:
    case fs::reparse_file:
      return OpenAndRead(path, mode);
    case fs::directory_file:
      return FaultyReading(FileFault::IsFolder);
    case fs::file_not_found:
      return FaultyReading(FileFault::NotOpened, ENOENT);
    case fs::status_error:
      return FaultyReading(FileFault::NotOpened);
    default:
      return FaultyReading(FileFault::NotRegular);
  }
}

FileReading ReadFile(const std::string& path, TextMode mode) {
  try {
    boost::system::error_code error;
    return ReadEntry(path, fs::status(path, error).type(), mode);
  } catch (const boost::system::system_error&) {
    return FaultyReading(FileFault::NotOpened);
  }
}

}  // namespace Vornik
