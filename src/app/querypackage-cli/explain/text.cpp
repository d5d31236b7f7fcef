#include "explain/text.h"

#include <fmt/format.h>

#include "explain/edits_text.h"
#include "explain/filters.h"
#include "output/columns.h"
#include "output/console_text.h"
#include "output/wording.h"
#include "remedy/offered_machines.h"
#include "remedy/settings_change.h"

namespace Vornik::Cli {

namespace {

Cell WordOf(const FilterExplanation& filter) {
  if (!filter.runs) return {"off", Paint::Faint};
  if (filter.status == FilterStatus::Matched) return {"pass", Paint::Good};
  return filter.status == FilterStatus::NotMatched ? Cell{"fail", Paint::Bad}
                                                   : Cell{"none", Paint::Bad};
}

Cell WordOf(Answer answer) {
  switch (answer) {
    case Answer::Offered:
      return {"OFFERED", Paint::Good};
    case Answer::Refused:
      return {"REFUSED", Paint::Bad};
    case Answer::Undecided:
      break;
  }
  return {"UNDECIDED", Paint::Bad};
}

std::string NamesOf(const std::vector<FilterId>& filters) {
  std::string names;
  for (const FilterId filter : filters) {
    if (!names.empty()) names += ", ";
    names += FilterOf(filter).name;
  }
  return names;
}

bool IsObstacle(const FilterExplanation& filter) {
  return filter.runs && filter.status != FilterStatus::Matched;
}

class Writer {
 public:
  Writer(TextDetail detail, bool colour) : isBrief_(detail == TextDetail::Brief), colour_(colour) {}

  std::string Take() { return std::move(out_); }

  void Write(const Explanation& explanation) {
    if (explanation.folderChanged) {
      Line(0,
           "Payload files changed after the query. Verdicts are those of the query; a reason that "
           "no longer fits is left out.");
    }
    for (const PackageExplanation& package : explanation.packages) {
      if (!out_.empty()) out_ += '\n';
      WritePackage(explanation, package);
    }
    if (!explanation.absence.empty()) WriteAbsence(explanation);
    if (explanation.packages.empty() && explanation.absence.empty()) WriteUnknown(explanation);
    for (const std::string& warning : explanation.warnings) Line(0, "Warning: " + warning + '.');
  }

 private:
  void Line(std::size_t indent, const std::string& text) {
    out_.append(indent, ' ');
    out_ += Printable(text);
    out_ += '\n';
  }

  ListLength Lists() const { return isBrief_ ? ListLength::Short : ListLength::Full; }

  std::string Coloured(const Cell& word, std::size_t width = 0) const {
    return Painted(Padded(word.text, width), word.paint, colour_);
  }

  void WritePackage(const Explanation& explanation, const PackageExplanation& package) {
    WriteHeadline(package);
    if (package.otherCase) {
      Line(2, fmt::format("Asked for was \"{}\", which has the same letters in another case.",
                          explanation.packageId));
    }
    if (!package.otherSpellings.empty()) {
      Line(2, "Further packages have the same letters in another case: " +
                  QuotedList(package.otherSpellings, Lists()) + '.');
    }
    if (isBrief_) {
      WriteBriefly(explanation, package);
    } else {
      WriteOrigin(package);
      for (const FilterExplanation& filter : package.filters) WriteFilter(filter);
      out_ += '\n';
    }
    if (!isBrief_ || package.remedies.state != RemedyState::NotNeeded) {
      WriteRemedies(explanation.query, package.remedies);
    }
  }

  void WriteBriefly(const Explanation& explanation, const PackageExplanation& package) {
    if (!explanation.packText.empty()) Line(2, explanation.packText);
    if (!package.sourceIsOwn) Line(2, package.sourceText);
    for (const FilterExplanation& filter : package.filters) {
      if (IsObstacle(filter)) WriteObstacle(filter);
    }
  }

  // What decided, in one line, and its place in another one.
  void WriteObstacle(const FilterExplanation& filter) {
    out_ += fmt::format("  {} {} ", Coloured(WordOf(filter), 4),
                        Padded(FilterOf(filter.filter).name, 12));
    Line(0, filter.text.brief);
    std::string further = filter.place.file.empty() ? "" : TextOf(filter.place);
    if (!filter.details.empty()) {
      further += (further.empty() ? "" : ": ") + filter.details.front().brief;
    }
    if (filter.details.size() > 1) {
      further +=
          fmt::format(" ({} with --verbose)", Count(filter.details.size() - 1, "further sentence"));
    }
    if (!further.empty()) Line(8, further);
  }

  void WriteHeadline(const PackageExplanation& package) {
    out_ +=
        Printable(package.record.identificationCode.empty() ? "(no code)"
                                                            : package.record.identificationCode);
    if (!package.record.Version.empty()) {
      out_ += ", version " + Printable(package.record.Version);
    }
    out_ += ": " + Coloured(WordOf(package.answer));
    if (!package.refusedBy.empty()) out_ += " by " + NamesOf(package.refusedBy);
    if (!package.undecidedBy.empty()) {
      out_ += fmt::format("{} no verdict of {}", package.refusedBy.empty() ? ":" : ";",
                          NamesOf(package.undecidedBy));
    }
    if (isBrief_) out_ += MainReason(package);
    out_ += '\n';
  }

  // Of the first filter that refuses; where none does, of the first that cannot decide.
  static std::string MainReason(const PackageExplanation& package) {
    if (package.answer == Answer::Offered) return ". Every filter that runs matches.";
    const FilterId decisive =
        package.refusedBy.empty() ? package.undecidedBy.front() : package.refusedBy.front();
    for (const FilterExplanation& filter : package.filters) {
      if (filter.filter == decisive) return ". " + Printable(filter.text.brief);
    }
    return "";
  }

  void WriteOrigin(const PackageExplanation& package) {
    const QueryPackageResult& record = package.record;
    Line(2, "Descriptor: " + record.packageXmlFile +
                (record.kovuXmlFile.empty() ? "" : ", as a member of " + record.kovuXmlFile));
    if (!package.sourceText.empty()) Line(2, package.sourceText);
  }

  void WriteFilter(const FilterExplanation& filter) {
    constexpr std::size_t indent = 8;
    const Filter& info = FilterOf(filter.filter);
    out_ += fmt::format("\n  {} {} ", Coloured(WordOf(filter), 4), Padded(info.name, 12));
    Line(0, filter.text.full);
    Line(indent, std::string("Rule: ") + info.rule);
    for (const PropertyReading& property : filter.properties) {
      Line(indent, fmt::format("Read: {}: {}", property.name,
                               QuotedList(property.values, ListLength::Full)));
    }
    if (!filter.file.empty()) Line(indent, "In:   " + filter.file);
    for (const Sentence& detail : filter.details) Line(indent, "Note: " + detail.full);
    for (const std::string& line : filter.log) Line(indent, "Log:  " + line);
  }

  void WriteRemedies(const QuerySettings& query, const Remedies& remedies) {
    switch (remedies.state) {
      case RemedyState::NotNeeded:
        Line(0, "Every filter that runs matches: nothing has to change.");
        break;
      case RemedyState::Found:
        WriteChanges(query, remedies);
        break;
      case RemedyState::None:
        Line(0, "No other settings of the query make every filter match.");
        break;
      case RemedyState::Unknown:
        Line(0, "No settings were found that make every filter match; not all were tried.");
        break;
    }
    WriteFaults(remedies);
    if (remedies.state == RemedyState::NotNeeded) return;
    WriteEdits(remedies.edits);
    Line(0, TextOf(remedies.machines, Lists()));
  }

  // A fault that an edit corrects needs no sentence of its own.
  void WriteFaults(const Remedies& remedies) {
    if (isBrief_ && remedies.edits.state == RemedyState::Found) return;
    const std::size_t shown = Shown(remedies.inTheRepository.size());
    for (std::size_t i = 0; i < shown; ++i) {
      Line(2, "In the repository: " + remedies.inTheRepository[i]);
    }
    WriteLeftOut(remedies.inTheRepository.size() - shown);
  }

  void WriteEdits(const RepositoryRemedies& edits) {
    const EditDetail detail = isBrief_ ? EditDetail::Brief : EditDetail::Full;
    for (const std::string& line : EditLines(edits, detail)) Line(0, line);
  }

  // How many of several lines are printed.
  std::size_t Shown(std::size_t lines) const {
    constexpr std::size_t most = 5;
    return isBrief_ && lines > most + 1 ? most : lines;
  }

  void WriteLeftOut(std::size_t lines) {
    if (lines != 0) Line(2, fmt::format("({} with --verbose)", Count(lines, "further line")));
  }

  void WriteChanges(const QuerySettings& query, const Remedies& remedies) {
    Line(0, fmt::format("The smallest change of the query that makes every filter match{}:",
                        remedies.code.empty() ? "" : " " + Quoted(remedies.code)));
    const std::size_t shown = Shown(remedies.queries.size());
    for (std::size_t i = 0; i < shown; ++i) {
      std::string text;
      for (const SettingChange& change : ChangesBetween(query, remedies.queries[i])) {
        text += (text.empty() ? "" : "; ") + change.text;
      }
      Line(2, (i == 0 ? "" : "or: ") + text);
    }
    WriteLeftOut(remedies.queries.size() - shown);
    if (remedies.searchEnded) Line(2, "Not all were tried: others may be as small or smaller.");
  }

  void WriteAbsence(const Explanation& explanation) {
    if (!out_.empty()) out_ += '\n';
    out_ += fmt::format("{}: {}", Printable(explanation.packageId),
                        Coloured({"NO PACKAGE", Paint::Bad}));
    out_ += isBrief_ ? ". " + Printable(explanation.absence.front().text) + '\n' : "\n";
    if (isBrief_) {
      Line(2, explanation.packText);
    } else {
      Line(2, "The query gives no package with exactly this code.");
    }
    const std::size_t shown = Shown(explanation.absence.size());
    for (std::size_t i = 0; i < shown; ++i) WriteReason(explanation, explanation.absence[i]);
    WriteLeftOut(explanation.absence.size() - shown);
    if (explanation.absenceRemedies.code.empty()) return;
    if (!isBrief_) out_ += '\n';
    WriteRemedies(explanation.query, explanation.absenceRemedies);
  }

  void WriteReason(const Explanation& explanation, const AbsenceReason& reason) {
    if (!isBrief_) out_ += '\n';
    // The first line has it already.
    if (!isBrief_ || &reason != &explanation.absence.front()) Line(2, reason.text);
    if (!reason.remedy.empty()) Line(isBrief_ ? 2 : 8, "Do:   " + reason.remedy);
    if (isBrief_) return;
    for (const std::string& line : reason.log) Line(8, "Log:  " + line);
  }

  void WriteUnknown(const Explanation& explanation) {
    out_ += fmt::format("{}: {}{}", Printable(explanation.packageId),
                        Coloured({"UNKNOWN", Paint::Bad}), isBrief_ ? ". " : "\n  ");
    Line(0,
         "No descriptor of the folder has this code, and no file that is passed over or fails "
         "to load holds it.");
  }

  const bool isBrief_;
  const bool colour_;
  std::string out_;
};

}  // namespace

std::string ExplanationText(const Explanation& explanation, TextDetail detail, bool colour) {
  Writer writer(detail, colour);
  writer.Write(explanation);
  return writer.Take();
}

}  // namespace Vornik::Cli
