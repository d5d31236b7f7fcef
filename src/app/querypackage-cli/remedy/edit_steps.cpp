#include "remedy/edit_steps.h"

#include <algorithm>

#include "filters/kovu.h"
#include "filters/platform.h"
#include "filters/sep.h"
#include "filters/update_type.h"
#include "model/filter_table.h"
#include "remedy/ways/ways.h"

namespace Vornik::Cli {

namespace {

bool BySize(const Edits& a, const Edits& b) { return a.size() < b.size(); }

EditStep StepOf(FilterId obstacle, std::vector<Edits> ways) {
  std::stable_sort(ways.begin(), ways.end(), BySize);
  return {obstacle, false, std::move(ways)};
}

// What only the settings and the code decide.
std::optional<FilterId> FixedObstacle(const QuerySettings& settings, const std::string& code) {
  const QueryModel::IdLists ids(settings);
  if (settings.sepFilter && IsSepCode(code)) return FilterId::Sep;
  if (Runs(FilterId::IncludeId, settings) && !ids.included.Contains(code)) {
    return FilterId::IncludeId;
  }
  if (Runs(FilterId::ExcludeId, settings) && ids.excluded.Contains(code)) {
    return FilterId::ExcludeId;
  }
  return std::nullopt;
}

// What the package's own properties decide.
EditStep OwnStep(const EditTarget& target, Sparing sparing) {
  const QuerySettings& settings = target.settings;
  if (PlatformStatus(settings, target.source) != FilterStatus::Matched) {
    return StepOf(FilterId::Platform, PlatformWays(target, sparing == Sparing::Yes));
  }
  if (settings.payloadExistFilter &&
      target.folder.Model().PayloadOf(target.source) != PayloadVerdict::Found) {
    return StepOf(FilterId::PayloadExist, PayloadWays(target));
  }
  if (Runs(FilterId::UpdateType, settings) &&
      EvaluateUpdateType(target.source.entry->properties, settings.updateTypes) !=
          UpdateTypeVerdict::Matched) {
    return StepOf(FilterId::UpdateType, UpdateTypeWays(target));
  }
  return {};
}

bool IsMissing(const Evaluation& query, const QuerySettings& settings, const std::string& code) {
  const std::size_t index = IndexOf(query.records, code);
  return index == query.records.size() ||
         (settings.kovuFilter && !IsFromPack(query.records[index]));
}

}  // namespace

EditStep NextStep(EditedFolder& folder, const QuerySettings& settings, const std::string& code,
                  Sparing sparing) {
  if (const auto fixed = FixedObstacle(settings, code)) return {fixed, true, {}};
  const EditTarget target{folder, settings, code, folder.Model().SourceOf(code)};
  if (target.source.entry == nullptr) return {FilterId::Platform, true, {}};
  EditStep own = OwnStep(target, sparing);
  if (own.obstacle) return own;
  const Evaluation query = folder.Model().Evaluate(settings);
  if (!query.canRun) return {FilterId::Duplicate, true, {}};
  if (IsMissing(query, settings, code)) return StepOf(FilterId::Kovu, PackWays(target));
  if (IsMatchedByAll(query.records[IndexOf(query.records, code)], settings)) return {};
  return StepOf(FilterId::Supersede, SupersedeWays(target, query));
}

std::vector<Edits> ListingWays(EditedFolder& folder, const QuerySettings& settings,
                               const std::string& code) {
  const EditTarget target{folder, settings, code, folder.Model().SourceOf(code)};
  if (target.source.entry == nullptr) return {};
  const Evaluation query = folder.Model().Evaluate(settings);
  if (!query.canRun || !IsMissing(query, settings, code)) return {};
  return PackWays(target);
}

}  // namespace Vornik::Cli
