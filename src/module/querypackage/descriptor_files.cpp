#include "descriptor_files.h"

#include <array>
#include <boost/filesystem/operations.hpp>
#include <boost/filesystem/path.hpp>
#include <boost/system/error_code.hpp>
#include <boost/system/system_error.hpp>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <memory>
#include <new>

#ifndef _WIN32
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace Vornik {

namespace {

// Kept free behind the bytes, so that a reader may append a terminator without a copy.
constexpr std::size_t spareBytes = 64;

struct CloseFile {
  void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

#ifdef _WIN32

std::FILE* Open(const std::string& path) { return std::fopen(path.c_str(), "rb"); }

#else

// A lease that another program holds on a file is the one thing to wait for.
int OpenDescriptor(const std::string& path) {
  const int flags = O_RDONLY | O_CLOEXEC | O_NOCTTY;
  const int descriptor = ::open(path.c_str(), flags | O_NONBLOCK);
  const bool isLeased = descriptor < 0 && errno == EWOULDBLOCK;
  return isLeased ? ::open(path.c_str(), flags) : descriptor;
}

std::FILE* OpenStream(int descriptor) {
  struct stat status = {};
  const bool isRegular = ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
  return isRegular ? ::fdopen(descriptor, "rb") : nullptr;
}

// A file may have become a pipe since it was asked for; fopen would wait for a writer.
std::FILE* Open(const std::string& path) {
  const int descriptor = OpenDescriptor(path);
  if (descriptor < 0) return nullptr;
  errno = 0;
  std::FILE* file = OpenStream(descriptor);
  if (file == nullptr) {
    const int reason = errno;
    ::close(descriptor);
    errno = reason;
  }
  return file;
}

#endif

// The file may grow or shrink meanwhile: what counts is where reading finds the end. Most
// descriptors end in the first part, so that their bytes are stored once and no size is asked for.
std::string ReadToEnd(std::FILE* file) {
  std::array<char, 16'384> part;  // NOLINT(cppcoreguidelines-pro-type-member-init): fread fills it
  const auto read = [&part, file] { return std::fread(part.data(), 1, part.size(), file); };
  std::size_t length = read();
  std::string bytes;
  bytes.reserve(length + spareBytes);
  bytes.append(part.data(), length);
  while (length == part.size()) {
    length = read();
    bytes.append(part.data(), length);
  }
  return bytes;
}

}  // namespace

bool IsRegularFile(const std::string& path) {
  try {
    boost::system::error_code error;
    return boost::filesystem::status(path, error).type() == boost::filesystem::regular_file;
  } catch (const boost::system::system_error&) {
    return false;  // the name has no counterpart in the file system's own character set
  }
}

std::optional<std::string> ReadRegularFile(const std::string& path) {
  return IsRegularFile(path) ? ReadKnownRegularFile(path) : std::nullopt;
}

std::optional<std::string> ReadKnownRegularFile(const std::string& path) {
  const File file(Open(path));
  if (file == nullptr) {
    if (errno == ENOMEM) throw std::bad_alloc();
    return std::nullopt;
  }
  // No buffer of the C library's between: a part is read where it is wanted.
  static_cast<void>(std::setvbuf(file.get(), nullptr, _IONBF, 0));
  std::string bytes = ReadToEnd(file.get());
  if (std::ferror(file.get()) != 0) return std::nullopt;
  return bytes;
}

}  // namespace Vornik
