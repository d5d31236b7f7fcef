// What the tests of the logging library share.
#ifndef VORNIK_TESTS_LOG_SUPPORT_H
#define VORNIK_TESTS_LOG_SUPPORT_H

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "Log.h"
#include "LogSettings.h"
#include "temp_folder.h"

namespace Vornik {

// A record as it arrived somewhere.
struct Received {
  unsigned int level = 0;
  std::string file;
  int line = 0;
  std::string text;

  bool operator==(const Received& other) const {
    return level == other.level && file == other.file && line == other.line && text == other.text;
  }
};
void PrintTo(const Received& received, std::ostream* stream);

// Emits one record.
void Emit(unsigned int level, const std::string& text, const char* file = "src/a.cpp",
          int line = 7);

// Takes a line apart again: checks time stamp and level word, undoes the escapes. Fails the running
// test where the line is not whole.
Received ParseLine(const std::string& line);
std::vector<Received> ParseLines(const std::string& text);
std::vector<std::string> Texts(const std::vector<Received>& received);

std::string ReadFile(const std::filesystem::path& path);

// The records in a rotated file and its predecessors, oldest first.
std::vector<Received> ReadRotated(const std::filesystem::path& path);

// log.txt, 2 => log.2.txt; 0 is the current file
std::filesystem::path RotatedName(const std::filesystem::path& path, std::size_t index);

using Testing::TempFolder;

inline std::filesystem::path operator/(const TempFolder& folder, std::string_view name) {
  return std::filesystem::path(folder.Path()) / name;
}

// Puts the library back into its initial state at the end of the scope.
struct RestoredSettings {
  RestoredSettings() = default;
  ~RestoredSettings();
  RestoredSettings(const RestoredSettings&) = delete;
  RestoredSettings& operator=(const RestoredSettings&) = delete;
};

}  // namespace Vornik

#endif  // VORNIK_TESTS_LOG_SUPPORT_H
