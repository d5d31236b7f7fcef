#include "descriptor_files.h"

#include <boost/filesystem/operations.hpp>
#include <boost/filesystem/path.hpp>
#include <boost/system/error_code.hpp>
#include <boost/system/system_error.hpp>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>

namespace Vornik {

namespace {

// Kept free behind the bytes, so that a reader may append a terminator without a copy.
constexpr std::size_t spareBytes = 64;

struct CloseFile {
  void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

std::size_t SizeHint(const std::string& path) {
  boost::system::error_code error;
  const std::uintmax_t size = boost::filesystem::file_size(path, error);
  return error ? 0 : static_cast<std::size_t>(size);
}

// The file may grow or shrink meanwhile: what counts is where reading finds the end.
std::string ReadToEnd(std::FILE* file, std::size_t sizeHint) {
  std::string bytes(sizeHint + spareBytes, '\0');
  std::size_t used = 0;
  for (;;) {
    used += std::fread(bytes.data() + used, 1, bytes.size() - used, file);
    if (used < bytes.size()) break;
    bytes.resize(bytes.size() * 2);
  }
  bytes.resize(used);
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
  if (!IsRegularFile(path)) return std::nullopt;
  const File file(std::fopen(path.c_str(), "rb"));
  if (file == nullptr) return std::nullopt;
  std::string bytes = ReadToEnd(file.get(), SizeHint(path));
  if (std::ferror(file.get()) != 0) return std::nullopt;
  return bytes;
}

}  // namespace Vornik
