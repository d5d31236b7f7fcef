#include "lint/checks/lookup.h"

#include <algorithm>
#include <boost/filesystem/directory.hpp>
#include <boost/filesystem/operations.hpp>
#include <boost/filesystem/path.hpp>
#include <boost/system/error_code.hpp>
#include <boost/system/system_error.hpp>
#include <utility>

#include "reading/descriptor_files.h"
#include "text/letter_case.h"
#include "text/paths.h"

namespace Vornik::Cli {

namespace {

namespace fs = boost::filesystem;

// Empty if it cannot be resolved.
fs::path RealPath(const std::string& path) {
  boost::system::error_code failed;
  fs::path real = fs::canonical(path, failed);
  return failed ? fs::path() : real;
}

// False if either path could not be resolved.
bool LiesOutside(const fs::path& realFile, const fs::path& realFolder) {
  if (realFile.empty() || realFolder.empty()) return false;
  return std::mismatch(realFolder.begin(), realFolder.end(), realFile.begin(), realFile.end())
             .first != realFolder.end();
}

}  // namespace

LintLookup::LintLookup(std::string folder, LintTarget target)
    : folder_(std::move(folder)), target_(target) {}

LookedUpFile LintLookup::Find(const std::string& name) {
  LookedUpFile found;
  try {
    const auto parts = NameParts(name, target_);
    const std::string path = NativePath(name, parts);
    found.exists = !path.empty() && IsRegularFile(path);
    found.outside =
        LeadsOutside(parts) || (found.exists && LiesOutside(RealPath(path), RealFolder()));
    if (!found.exists && !found.outside) {
      const std::string other = Resolve(parts, Case::Any);
      if (!other.empty() && IsRegularFile(PathInFolder(folder_, other))) found.otherCase = other;
    }
  } catch (const boost::system::system_error&) {
    // The name cannot be written in the file system's character set: there is no such file.
  }
  return found;
}

const fs::path& LintLookup::RealFolder() {
  if (!realFolder_) realFolder_ = RealPath(folder_);
  return *realFolder_;
}

std::string LintLookup::NativePath(const std::string& name, const std::vector<std::string>& parts) {
  if (target_ == nativeTarget) return PathInFolder(folder_, name);
  if (LeadsOutside(parts)) return "";
  const std::string resolved = target_ == LintTarget::Windows
                                   ? Resolve(WithoutParents(parts), Case::Any)
                                   : Resolve(parts, Case::Exact);
  return resolved.empty() ? "" : PathInFolder(folder_, resolved);
}

std::string LintLookup::Resolve(const std::vector<std::string>& parts, Case letters) {
  fs::path resolved;
  for (const std::string& part : parts) {
    if (part == "..") {
      resolved = resolved.parent_path();
      continue;
    }
    const Listing& listing = ListingOf((fs::path(folder_) / resolved).string());
    const auto named = listing.find(FoldByGlobalLocale(part));
    if (named == listing.end()) return "";
    const auto& names = named->second;
    const auto exact = std::find(names.begin(), names.end(), part);
    if (exact == names.end() && letters == Case::Exact) return "";
    resolved /= exact == names.end() ? names.front() : *exact;
  }
  return resolved.generic_string();
}

const LintLookup::Listing& LintLookup::ListingOf(const std::string& folder) {
  const auto [listing, isNew] = listings_.try_emplace(folder);
  if (!isNew) return listing->second;
  boost::system::error_code failed;
  fs::directory_iterator entry(folder, failed);
  while (!failed && entry != fs::directory_iterator()) {
    const std::string name = entry->path().filename().string();
    listing->second[FoldByGlobalLocale(name)].push_back(name);
    entry.increment(failed);
  }
  for (auto& [folded, names] : listing->second) std::sort(names.begin(), names.end());
  return listing->second;
}

}  // namespace Vornik::Cli
