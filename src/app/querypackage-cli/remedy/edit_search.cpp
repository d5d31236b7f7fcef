#include "remedy/edit_search.h"

#include <algorithm>
#include <map>
#include <utility>

namespace Vornik::Cli {

namespace {

constexpr std::size_t maxRemedies = 3;
constexpr std::size_t maxEdits = 8;

// A folder costs what its instances cost each time it is evaluated.
constexpr std::size_t maxTrials = 60;
constexpr std::size_t minTrials = 12;
constexpr std::size_t maxInstances = 40'000;

std::size_t InstancesOf(const FolderCopy& folder) {
  std::size_t instances = folder.individuals.size();
  for (const CopiedPack& pack : folder.packs) instances += pack.members.size();
  return instances;
}

// Whether properties are written after an entry is added: less clear than the other way round, and
// where the entry is a copy of what is written later, right in some orders of the listing only.
bool WritesAfterEntry(const Edits& edits) {
  const auto entry = std::find_if(edits.begin(), edits.end(), [](const Edit& edit) {
    return edit.kind == EditKind::AddPackEntry;
  });
  return std::any_of(entry, edits.end(),
                     [](const Edit& edit) { return edit.kind == EditKind::SetProperty; });
}

// Goes through remedies by their size; each is the one before it and a way past its first obstacle.
class Search {
 public:
  Search(const FolderCopy& folder, const QuerySettings& settings, const std::string& code,
         FileStates& files, Sparing sparing)
      : folder_(folder),
        settings_(settings),
        code_(code),
        files_(files),
        sparing_(sparing),
        trialsLeft_(std::clamp(maxInstances / (InstancesOf(folder) + 1), minTrials, maxTrials)) {}

  EditSearch Run() {
    bySize_.emplace(0, Edits());
    while (!bySize_.empty() && !IsDone(bySize_.begin()->first)) {
      if (trialsLeft_-- == 0) {
        found_.hasReachedLimit = true;
        break;
      }
      Edits edits = std::move(bySize_.begin()->second);
      bySize_.erase(bySize_.begin());
      Try(std::move(edits));
    }
    if (!found_.smallest.empty()) found_.obstacle.reset();
    std::stable_partition(found_.smallest.begin(), found_.smallest.end(),
                          [](const Edits& edits) { return !WritesAfterEntry(edits); });
    return std::move(found_);
  }

 private:
  bool IsDone(std::size_t size) const {
    if (found_.smallest.empty()) return false;
    return found_.smallest.size() == maxRemedies || size > found_.smallest.front().size();
  }

  void Try(Edits edits) {
    EditedFolder folder(folder_, edits, settings_.folder, files_);
    EditStep step = NextStep(folder, settings_, code_, sparing_);
    if (!step.obstacle) {
      Keep(std::move(edits));
      return;
    }
    if (edits.empty() && !step.isFixed && step.obstacle != FilterId::Kovu) {
      const std::vector<Edits> listings = ListingWays(folder, settings_, code_);
      step.ways.insert(step.ways.end(), listings.begin(), listings.end());
    }
    if (!found_.obstacle || step.ways.empty()) {
      found_.obstacle = step.obstacle;
      found_.isFixed = step.isFixed;
    }
    for (Edits& way : step.ways) {
      Edits longer = edits;
      longer.insert(longer.end(), way.begin(), way.end());
      longer = Merged(std::move(longer));
      if (longer.size() <= maxEdits) bySize_.emplace(longer.size(), std::move(longer));
    }
  }

  void Keep(Edits edits) {
    for (const Edits& known : found_.smallest) {
      if (AreSame(known, edits)) return;
    }
    found_.smallest.push_back(std::move(edits));
  }

  const FolderCopy& folder_;
  const QuerySettings& settings_;
  const std::string& code_;
  FileStates& files_;
  const Sparing sparing_;
  std::size_t trialsLeft_;
  std::multimap<std::size_t, Edits> bySize_;
  EditSearch found_;
};

}  // namespace

EditSearch FindEdits(const FolderCopy& folder, const QuerySettings& settings,
                     const std::string& code, FileStates& files, Sparing sparing) {
  return Search(folder, settings, code, files, sparing).Run();
}

}  // namespace Vornik::Cli
