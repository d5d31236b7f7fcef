#include "explain/explain.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "explain/absence.h"
#include "explain/filters.h"
#include "explain/log_lines.h"
#include "explain/supersede.h"
#include "model/literals.h"
#include "model/property_places.h"
#include "model/record_comparison.h"
#include "output/wording.h"
#include "remedy/offered_machines.h"
#include "text/letter_case.h"

namespace Vornik::Cli {

namespace {

using Records = std::vector<QueryPackageResult>;

// Payload files that changed after the query give another verdict, whose reason is not the one that
// decided.
void OmitOtherReason(const QueryPackageResult& record, FilterExplanation& explanation) {
  const Filter& filter = FilterOf(explanation.filter);
  if (filter.slot == nullptr || explanation.status == record.*filter.slot) return;
  explanation.status = record.*filter.slot;
  explanation.file.clear();
  explanation.properties.clear();
  explanation.details.clear();
  explanation.place = {};
  SetReason(explanation, "folderChanged",
            "The folder changed after the query: its files as they are now give another verdict.");
}

std::vector<FilterExplanation> ExplainAll(const PackageContext& package) {
  std::vector<FilterExplanation> explanations;
  for (const Filter& filter : Filters()) explanations.push_back(filter.explain(package));
  return explanations;
}

void AddSource(const PackageContext& package, PackageExplanation& explanation) {
  const PropertySource& own = package.query.origins[package.index];
  explanation.sourceIsOwn = own.entry == package.source.entry;
  if (package.source.entry == nullptr) {
    explanation.sourceText = "Without a code the filters look its properties up nowhere.";
    return;
  }
  const std::string& file = package.source.File();
  explanation.sourceFile = file;
  if (explanation.sourceIsOwn) {
    explanation.sourceText = "The filters look its properties up in " + file + '.';
  } else if (package.source.pack != nullptr && package.source.member == 0) {
    explanation.sourceText = fmt::format(
        "The filters look its properties up in {}, not in its own descriptor: the pack itself has "
        "the same code, and members of packs are looked up first.",
        file);
  } else {
    explanation.sourceText = fmt::format(
        "The filters look its properties up in {}, not in its own descriptor: a package of the "
        "same "
        "code is found there first, because members of all packs are looked up before individual "
        "descriptors.",
        TextOf(PlaceIn(package.source, PropertyName::identificationCode, PropertyRead::Value,
                       package.places)));
  }
}

void AddAnswer(const QuerySettings& settings, PackageExplanation& explanation) {
  PackageAnswer answer = AnswerFor(explanation.record, settings);
  explanation.answer = answer.answer;
  explanation.refusedBy = std::move(answer.refusedBy);
  explanation.undecidedBy = std::move(answer.undecidedBy);
}

// Explains the packages of one query.
class Explainer {
 public:
  Explainer(Explanation& explanation, const EvaluatedQuery& query)
      : explanation_(explanation),
        query_(query),
        settings_(query.settings),
        records_(query.run.records) {}

  void Run() {
    const std::string& id = explanation_.packageId;
    const std::size_t exact = IndexOf(records_, id);
    if (exact < records_.size()) {
      AddPackage(exact);
      return;
    }
    for (std::size_t i = 0; i < records_.size(); ++i) {
      if (EqualByGlobalLocaleFold(records_[i].identificationCode, id)) AddPackage(i);
    }
    AddAbsence();
  }

  void AddPackage(std::size_t index) {
    PackageExplanation package;
    package.record = records_[index];
    const std::string& code = package.record.identificationCode;
    package.otherCase = code != explanation_.packageId;
    for (const QueryPackageResult& other : query_.remedies->QueryOfPart(code).records) {
      if (other.identificationCode != code &&
          EqualByGlobalLocaleFold(other.identificationCode, code)) {
        package.otherSpellings.push_back(other.identificationCode);
      }
    }
    AddFilters(package);
    AddAnswer(settings_, package);
    AddRemedies(package);
    explanation_.packages.push_back(std::move(package));
  }

 private:
  void AddFilters(PackageExplanation& package) {
    const std::string& code = package.record.identificationCode;
    const Evaluation& query = query_.remedies->QueryOfPart(code);
    const std::size_t evaluated = IndexOf(query.records, code);
    const PackageContext context{settings_, query_.remedies->PartOf(code), query, *query_.places,
                                 evaluated, query.sources[evaluated]};
    AddSource(context, package);
    package.filters = ExplainAll(context);
    package.repeats = RepeatsOf(context);
    package.supersede = SupersedeChainOf(context);
    for (FilterExplanation& filter : package.filters) {
      OmitOtherReason(package.record, filter);
      filter.log = LogLinesOf(filter, code, package.repeats.size());
    }
  }

  void AddRemedies(PackageExplanation& package) {
    package.remedies.code = package.record.identificationCode;
    if (package.answer == Answer::Offered) {
      package.remedies.state = RemedyState::NotNeeded;
    } else if (explanation_.folderChanged) {
      package.remedies.state = RemedyState::Unknown;
      package.remedies.searchEnded = true;
      package.remedies.edits.state = RemedyState::Unknown;
    } else {
      package.remedies = RemediesFor(package.remedies.code);
    }
  }

  void AddAbsence() {
    for (AbsenceReason& reason : ExplainAbsence(query_, explanation_.packageId)) {
      if (!HasPackage(reason.code)) explanation_.absence.push_back(std::move(reason));
    }
    const auto codes = CodesInOtherPacks(query_, explanation_.packageId);
    if (codes.empty() || explanation_.folderChanged) return;
    // Of a package in another case there is an explanation already.
    if (!explanation_.packages.empty() && codes.front() != explanation_.packageId) return;
    explanation_.absenceRemedies = RemediesFor(codes.front());
  }

  Remedies RemediesFor(const std::string& code) {
    Remedies remedies = query_.remedies->Find(code);
    remedies.machines =
        FindOfferedMachines(query_.remedies->PartOf(code), query_.model.Named(), settings_, code);
    return remedies;
  }

  bool HasPackage(const std::string& code) const {
    return std::any_of(explanation_.packages.begin(), explanation_.packages.end(),
                       [&code](const PackageExplanation& package) {
                         return package.record.identificationCode == code;
                       });
  }

  Explanation& explanation_;
  const EvaluatedQuery& query_;
  const QuerySettings& settings_;
  const Records& records_;
};

Explanation BeginExplanation(const EvaluatedQuery& query, const std::string& packageId) {
  Explanation explanation;
  explanation.query = query.settings;
  explanation.packageId = packageId;
  explanation.returnCode = query.run.code;
  explanation.folderChanged = IsExplained(query.run.code) && query.folderChanged;
  return explanation;
}

}  // namespace

bool HavePayloadsChanged(const std::vector<QueryPackageResult>& records,
                         const std::vector<QueryPackageResult>& evaluated) {
  return !std::equal(records.begin(), records.end(), evaluated.begin(), evaluated.end(),
                     [](const QueryPackageResult& a, const QueryPackageResult& b) {
                       return a.payloadExistFilterStatus == b.payloadExistFilterStatus;
                     });
}

std::optional<std::string> FindDisagreement(const EvaluatedQuery& query) {
  if (!IsExplained(query.run.code)) return std::nullopt;
  const Records& records = query.run.records;
  const Records& evaluated = query.evaluation.records;
  if (records.size() != evaluated.size()) {
    return fmt::format("the query gives {}, and its evaluation {}",
                       Count(records.size(), "package"), evaluated.size());
  }
  for (std::size_t i = 0; i < records.size(); ++i) {
    QueryPackageResult other = evaluated[i];
    other.payloadExistFilterStatus = records[i].payloadExistFilterStatus;
    if (AreEqual(records[i], other)) continue;
    return fmt::format("the query and its evaluation differ in package {} of {}, {}", i + 1,
                       records.size(), CodeText(records[i].identificationCode));
  }
  return std::nullopt;
}

Explanation Explain(const EvaluatedQuery& query, const std::string& packageId) {
  Explanation explanation = BeginExplanation(query, packageId);
  if (IsExplained(query.run.code)) Explainer(explanation, query).Run();
  return explanation;
}

Explanation ExplainRecord(const EvaluatedQuery& query, std::size_t record) {
  Explanation explanation = BeginExplanation(query, query.run.records[record].identificationCode);
  Explainer(explanation, query).AddPackage(record);
  return explanation;
}

bool IsExplained(int returnCode) {
  return returnCode == QueryCode::Completed || returnCode == QueryCode::NoResults;
}

Conclusion ConclusionOf(const Explanation& explanation) {
  if (!IsExplained(explanation.returnCode)) return Conclusion::NotRun;
  if (explanation.packages.empty()) {
    return explanation.absence.empty() ? Conclusion::Unknown : Conclusion::Absent;
  }
  const PackageExplanation& package = explanation.packages.front();
  if (package.otherCase && explanation.absenceRemedies.code == explanation.packageId) {
    return Conclusion::Absent;
  }
  switch (package.answer) {
    case Answer::Offered:
      return Conclusion::Offered;
    case Answer::Refused:
      return Conclusion::Refused;
    case Answer::Undecided:
      break;
  }
  return Conclusion::Undecided;
}

bool IsKnown(const Explanation& explanation) {
  return !explanation.packages.empty() || !explanation.absence.empty();
}

}  // namespace Vornik::Cli
