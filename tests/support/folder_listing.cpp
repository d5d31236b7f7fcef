#include "folder_listing.h"

#ifndef _WIN32

#include <dirent.h>
#include <dlfcn.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace Vornik::Testing {

namespace {

struct Fault {
  std::size_t entries;
  int errorNumber;
};

std::optional<Fault>& PlannedFault() {
  static std::optional<Fault> fault;
  return fault;
}

// 0: folders can be opened.
int& PlannedOpenError() {
  static int errorNumber = 0;
  return errorNumber;
}

struct FreeEntry {
  void operator()(dirent64* entry) const { ::operator delete(entry); }
};

struct Listing {
  std::vector<std::unique_ptr<dirent64, FreeEntry>> entries;
  std::size_t next = 0;
};

class Listings {
 public:
  static Listings& Instance() {
    static auto& instance = *new Listings;  // outlives everything that may still list a folder
    return instance;
  }

  dirent64* Next(DIR* folder) {
    const std::lock_guard<std::mutex> lock(mutex_);
    Listing& listing = open_.try_emplace(folder, Listing{}).first->second;
    if (listing.entries.empty()) Fill(folder, listing);
    if (PlannedFault() && listing.next >= PlannedFault()->entries) {
      errno = PlannedFault()->errorNumber;
      return nullptr;
    }
    if (listing.next == listing.entries.size()) return nullptr;
    return listing.entries[listing.next++].get();
  }

  void Forget(DIR* folder) {
    const std::lock_guard<std::mutex> lock(mutex_);
    open_.erase(folder);
  }

 private:
  static void Fill(DIR* folder, Listing& listing) {
    using Readdir = dirent64* (*)(DIR*);
    static const auto next = reinterpret_cast<Readdir>(dlsym(RTLD_NEXT, "readdir64"));
    while (const dirent64* entry = next(folder)) {
      std::unique_ptr<dirent64, FreeEntry> copy(
          static_cast<dirent64*>(::operator new(sizeof(dirent64))));
      std::memcpy(copy.get(), entry, std::min<std::size_t>(entry->d_reclen, sizeof(dirent64)));
      listing.entries.push_back(std::move(copy));
    }
    std::sort(listing.entries.begin(), listing.entries.end(),
              [](const auto& a, const auto& b) { return std::strcmp(a->d_name, b->d_name) < 0; });
  }

  std::mutex mutex_;
  std::map<DIR*, Listing> open_;
};

}  // namespace

FolderListing::FolderListing(std::size_t entries, int errorNumber) {
  PlannedFault() = Fault{entries, errorNumber};
}

FolderListing::~FolderListing() { PlannedFault().reset(); }

FoldersCannotBeOpened::FoldersCannotBeOpened(int errorNumber) { PlannedOpenError() = errorNumber; }

FoldersCannotBeOpened::~FoldersCannotBeOpened() { PlannedOpenError() = 0; }

}  // namespace Vornik::Testing

// Visible, so that the file-system library finds these in the place of the C library's own.
#define EXPORTED extern "C" __attribute__((visibility("default")))

EXPORTED DIR* opendir(const char* path) {
  using Opendir = DIR* (*)(const char*);
  static const auto next = reinterpret_cast<Opendir>(dlsym(RTLD_NEXT, "opendir"));
  if (Vornik::Testing::PlannedOpenError() == 0) return next(path);
  errno = Vornik::Testing::PlannedOpenError();
  return nullptr;
}

EXPORTED dirent64* readdir64(DIR* folder) {
  return Vornik::Testing::Listings::Instance().Next(folder);
}

EXPORTED int closedir(DIR* folder) {
  using Closedir = int (*)(DIR*);
  static const auto next = reinterpret_cast<Closedir>(dlsym(RTLD_NEXT, "closedir"));
  Vornik::Testing::Listings::Instance().Forget(folder);
  return next(folder);
}

#else

namespace Vornik::Testing {

FolderListing::FolderListing(std::size_t, int) {}
FolderListing::~FolderListing() = default;
FoldersCannotBeOpened::FoldersCannotBeOpened(int) {}
FoldersCannotBeOpened::~FoldersCannotBeOpened() = default;

}  // namespace Vornik::Testing

#endif
