#include "remedy/edited_folder.h"

#include <boost/filesystem/operations.hpp>
#include <boost/filesystem/path.hpp>
#include <utility>

#include "reading/descriptor_files.h"

namespace Vornik::Cli {

namespace {

FolderCopy WithEdits(FolderCopy copy, const Edits& edits) {
  for (const Edit& edit : edits) Apply(edit, copy);
  return copy;
}

}  // namespace

bool FileStates::IsFile(const std::string& path) {
  const auto [known, isNew] = known_.try_emplace(path, false);
  if (isNew) known->second = IsRegularFile(path);
  return known->second;
}

bool FileStates::CanAdd(const std::string& path) {
  namespace fs = boost::filesystem;
  boost::system::error_code failed;
  fs::path file(path);
  const std::string name = file.filename().string();
  if (name.empty() || name == "." || name == "..") return false;
  if (fs::symlink_status(file, failed).type() != fs::file_not_found) return false;
  while (!(file = file.parent_path()).empty()) {
    const fs::file_type type = fs::status(file, failed).type();
    if (type != fs::file_not_found) return type == fs::directory_file;
  }
  return true;
}

EditedFolder::EditedFolder(FolderCopy copy, const Edits& edits, const std::string& path,
                           FileStates& files)
    : copy_(WithEdits(std::move(copy), edits)),
      reading_(copy_.Reading()),
      isFile_([this, &files](const std::string& file) {
        return copy_.addedFiles.count(file) != 0 || files.IsFile(file);
      }),
      model_(reading_, path, isFile_) {}

CopiedInstance& EditedFolder::InstanceOf(const PropertySource& source) {
  return *copy_.Find(copy_.IdOf(source, model_.Packages()));
}

}  // namespace Vornik::Cli
