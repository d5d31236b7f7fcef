// A folder of a test's own, removed with everything in it when the object goes.
#ifndef VORNIK_TESTS_TEMP_FOLDER_H
#define VORNIK_TESTS_TEMP_FOLDER_H

#include <boost/filesystem.hpp>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace Vornik::Testing {

class TempFolder {
 public:
  TempFolder() : path_(MakeFolder()) {}
  ~TempFolder() {
    boost::system::error_code ignored;
    boost::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::string& Path() const { return path_; }

  // Writes a file of these bytes, in place of one of that name, and returns its full path. The
  // folder of a name with separators has to exist. Throws std::runtime_error on failure.
  std::string Write(const std::string& name, std::string_view bytes) const {
    std::string path = (boost::filesystem::path(path_) / name).make_preferred().string();
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "wb"),
                                                         &std::fclose);
    const bool written =
        file != nullptr && std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size();
    if (!written || std::fclose(file.release()) != 0) {
      throw std::runtime_error("cannot write " + path);
    }
    return path;
  }

 private:
  static std::string MakeFolder() {
    auto folder = boost::filesystem::canonical(boost::filesystem::temp_directory_path()) /
                  boost::filesystem::unique_path("querypackage-%%%%%%%%%%%%%%%%");
    boost::filesystem::create_directory(folder);
    return folder.make_preferred().string();
  }

  std::string path_;
};

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_TEMP_FOLDER_H
