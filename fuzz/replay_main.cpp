// Runs a fuzz target on the files that the arguments name, and on every file of the folders among
// them, without a fuzzer. An input on which the target fails aborts the process; its name is the
// last one printed.
#include <boost/filesystem/directory.hpp>
#include <boost/filesystem/operations.hpp>
#include <boost/filesystem/path.hpp>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

namespace fs = boost::filesystem;

std::vector<std::uint8_t> Read(const fs::path& file) {
  std::ifstream stream(file.string(), std::ios::binary);
  if (!stream) throw std::runtime_error("cannot read " + file.string());
  return {std::istreambuf_iterator<char>(stream), {}};
}

void Replay(const fs::path& file) {
  std::cout << file.string() << std::endl;
  const std::vector<std::uint8_t> bytes = Read(file);
  LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
}

// Returns the number of inputs at the path.
std::size_t ReplayAll(const fs::path& path) {
  if (!fs::is_directory(path)) {
    Replay(path);
    return 1;
  }
  std::size_t count = 0;
  for (const fs::directory_entry& entry : fs::directory_iterator(path)) {
    if (!fs::is_regular_file(entry.path())) continue;
    Replay(entry.path());
    ++count;
  }
  return count;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const std::vector<fs::path> paths(argv + 1, argv + argc);
    for (const fs::path& path : paths) {
      if (ReplayAll(path) == 0) throw std::runtime_error("no inputs in " + path.string());
    }
    if (paths.empty()) throw std::runtime_error("name files or folders to replay");
  } catch (const std::exception& error) {
    std::cerr << error.what() << std::endl;
    return 1;
  }
  return 0;
}
