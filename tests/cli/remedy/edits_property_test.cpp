// Random small repositories: every remedy does what it promises when it is carried out, and the
// part of a folder on which a package depends gives the record that the folder gives.
#include <algorithm>
#include <set>

#include "edits_on_disk.h"
#include "explain/explain.h"
#include "random_folder.h"
#include "record_members.h"
#include "remedy/edit_text.h"
#include "test_random.h"
#include "text/paths.h"

namespace Vornik::Testing {
namespace {

using Cli::Edit;
using Cli::EditedFolder;
using Cli::Edits;
using Cli::QuerySettings;

bool HasCode(const PackageXmlEntry& entry, const std::string& code) {
  return GetPropertyValue("identificationCode", entry.properties) == code;
}

bool Passes(const std::vector<QueryPackageResult>& records, const QuerySettings& settings,
            const std::string& code) {
  return std::any_of(records.begin(), records.end(), [&](const QueryPackageResult& record) {
    return record.identificationCode == code && Cli::IsMatchedByAll(record, settings);
  });
}

// Every single edit of the kinds that remedies have, with all values that could help.
class SingleEdits {
 public:
  SingleEdits(Cli::FolderCopy folder, const QuerySettings& settings, const std::string& code)
      : folder_(std::move(folder)), settings_(settings), code_(code) {}

  std::vector<Edit> All() {
    for (auto& pack : folder_.packs) {
      for (auto& member : pack.members) AddOf(member, pack.file);
      if (!pack.members.empty()) AddOfPack(pack);
    }
    for (auto& individual : folder_.individuals) AddOf(individual, individual.entry.xmlFile);
    for (const char* name : {"none.xml", "none.exe"}) {
      Edit edit;
      edit.kind = Cli::EditKind::AddFile;
      edit.file = PathInFolder(settings_.folder, name);
      edits_.push_back(edit);
    }
    return std::move(edits_);
  }

 private:
  using Texts = std::vector<std::string>;

  void Set(const Cli::CopiedInstance& instance, const std::string& file, const char* property,
           Texts values) {
    edits_.push_back(Cli::EditOf(instance, file, property, std::move(values)));
  }

  void SetEach(const Cli::CopiedInstance& instance, const std::string& file, const char* property,
               const std::string& wanted) {
    const Texts values = GetPropertyValues(property, instance.entry.properties);
    for (std::size_t i = 0; i <= values.size(); ++i) {
      Texts changed = values;
      changed.resize(std::max(values.size(), i + 1));
      changed[i] = wanted;
      Set(instance, file, property, changed);
    }
  }

  void AddOf(const Cli::CopiedInstance& instance, const std::string& file) {
    const SupXmlProperties& properties = instance.entry.properties;
    const Texts listed = GetPropertyValues("supersede", properties);
    for (std::size_t i = 0; i < listed.size(); ++i) {
      Texts fewer = listed;
      fewer.erase(fewer.begin() + static_cast<std::ptrdiff_t>(i));
      Set(instance, file, "supersede", fewer);
    }
    if (!listed.empty()) Set(instance, file, "supersede", {});
    const std::string version = GetPropertyValue("Version", properties);
    if (!version.empty()) {
      for (const std::string& other : {"0" + version, version + ".1", std::string("zzz")}) {
        Set(instance, file, "Version", {other});
      }
    }
    if (HasCode(instance.entry, code_)) AddOfPackage(instance, file);
  }

  void AddOfPackage(const Cli::CopiedInstance& instance, const std::string& file) {
    SetEach(instance, file, "orderedMachineTypeList", settings_.machineType);
    SetEach(instance, file, "orderedOSList",
            std::to_string(static_cast<std::uint32_t>(settings_.osValue)));
    SetEach(instance, file, "orderedOSArchitectureList",
            std::to_string(static_cast<std::uint32_t>(settings_.arcValue)));
    for (const UpdateType type : settings_.updateTypes) {
      Set(instance, file, "type", {std::to_string(static_cast<std::int32_t>(type))});
    }
    for (std::size_t pack = 0; pack < folder_.packs.size(); ++pack) {
      Edit edit;
      edit.kind = Cli::EditKind::AddPackEntry;
      edit.file = folder_.packs[pack].file;
      edit.instance.pack = pack;
      edit.properties = instance.entry.properties;
      edits_.push_back(edit);
    }
  }

  void AddOfPack(const Cli::CopiedPack& pack) {
    const auto add = [&](const char* property, const std::string& value) {
      Texts values = GetPropertyValues(property, pack.members.front().entry.properties);
      values.push_back(value);
      Set(pack.members.front(), pack.file, property, values);
    };
    add("applicableMachineTypes", settings_.machineType);
    add("applicableOperatingSystems",
        std::to_string(static_cast<std::uint32_t>(settings_.osValue)));
  }

  Cli::FolderCopy folder_;
  const QuerySettings& settings_;
  const std::string& code_;
  std::vector<Edit> edits_;
};

class EditsPropertyTest : public RandomFolderTest {
 protected:
  void Check(const QuerySettings& settings) {
    const Cli::FolderReading reading = Cli::ReadFolder(folder.Path());
    Cli::QueryModel model(reading, folder.Path());
    Cli::PropertyPlaces places;
    Cli::RemedyFinder finder(model, settings, places);
    const Cli::Evaluation query = model.Evaluate(settings);
    ASSERT_TRUE(query.canRun);
    for (const std::string& code : Cli::CodesOf(reading.repository)) {
      if (Passes(query.records, settings, code)) continue;
      SCOPED_TRACE(code);
      const Cli::Remedies remedies = finder.Find(code);
      for (const Cli::RepositoryRemedy& remedy : remedies.edits.smallest) {
        ASSERT_EQ(remedy.edits.size(), remedies.edits.smallest.front().edits.size());
        ASSERT_NO_FATAL_FAILURE(CheckRemedy(remedy, settings, code));
      }
      if (remedies.edits.sparing) {
        ++sparing;
        ASSERT_NO_FATAL_FAILURE(CheckRemedy(*remedies.edits.sparing, settings, code));
        ASSERT_FALSE(remedies.edits.sparing->effects.Withdraws());
      }
      ++(remedies.edits.smallest.empty() ? impossible : found);
      if (!checksSmaller || remedies.edits.isFixed) continue;
      if (!remedies.edits.smallest.empty() && remedies.edits.smallest.front().edits.size() < 2) {
        continue;
      }
      ASSERT_NO_FATAL_FAILURE(CheckNoSingle(reading, settings, code));
    }
  }

  static std::string TextOf(const Edits& edits) {
    std::string text;
    for (const Edit& edit : edits) {
      text += edit.file + ":" + std::to_string(edit.line) + ": " + Cli::TextOf(edit) + "\n";
    }
    return text;
  }

  void CheckRemedy(const Cli::RepositoryRemedy& remedy, const QuerySettings& settings,
                   const std::string& code) {
    SCOPED_TRACE(TextOf(remedy.edits));
    const std::set<std::string> before = OfferedBy(settings);
    const EditsOnDisk carriedOut(folder, remedy.edits);
    const Cli::LibraryRun run = Cli::RunLibrary(settings);
    ASSERT_EQ(run.code, QueryCode::Completed);
    ASSERT_TRUE(Passes(run.records, settings, code));
    std::set<std::string> after = OfferedBy(settings);
    after.erase(code);
    std::set<std::string> told = before;
    for (const std::string& each : remedy.effects.changes.withdrawn) told.erase(each);
    told.insert(remedy.effects.changes.offered.begin(), remedy.effects.changes.offered.end());
    ASSERT_EQ(told, after);
    for (const Edit& edit : remedy.edits) kinds.insert(KindOf(edit));
    largest = std::max(largest, remedy.edits.size());
  }

  static std::string KindOf(const Edit& edit) {
    if (edit.kind == Cli::EditKind::AddFile) return "file";
    return edit.kind == Cli::EditKind::AddPackEntry ? "entry" : edit.property;
  }

  static std::set<std::string> OfferedBy(const QuerySettings& settings) {
    std::set<std::string> codes;
    for (const QueryPackageResult& record : Cli::RunLibrary(settings).records) {
      if (Cli::IsMatchedByAll(record, settings)) codes.insert(record.identificationCode);
    }
    return codes;
  }

  void CheckNoSingle(const Cli::FolderReading& reading, const QuerySettings& settings,
                     const std::string& code) {
    ++searched;
    const Cli::FolderCopy whole = Cli::CopyOf(reading.repository);
    Cli::FileStates files;
    for (const Edit& edit : SingleEdits(whole, settings, code).All()) {
      EditedFolder edited(whole, {edit}, settings.folder, files);
      ASSERT_FALSE(Passes(edited.Model().Evaluate(settings).records, settings, code))
          << TextOf({edit});
    }
  }

  void CheckRounds() {
    const TestRandom test;
    RandomRepository random(test.Seed(), RandomRepository::Values::OnDisk);
    const std::size_t rounds = test.Rounds(250);
    for (std::size_t round = 0; round < rounds; ++round) {
      SCOPED_TRACE(round);
      WriteRepository(random);
      checksSmaller = round % 5 == 0;
      ASSERT_NO_FATAL_FAILURE(Check(ValidSettings(random)));
    }
    if (!test.RunsAllRounds()) return;
    EXPECT_GT(found, 150U);
    EXPECT_GT(impossible, 40U);
    EXPECT_GT(sparing, 5U);
    EXPECT_GT(searched, 15U);
    EXPECT_GE(largest, 3U);
    EXPECT_GE(kinds.size(), 8U) << testing::PrintToString(kinds);
  }

  std::size_t found = 0;
  std::size_t impossible = 0;
  std::size_t sparing = 0;
  std::size_t searched = 0;
  std::size_t largest = 0;
  std::set<std::string> kinds;
  bool checksSmaller = false;
};

// In parts, so that they can run at the same time.
class EditsPropertyParts : public EditsPropertyTest, public testing::WithParamInterface<int> {};

TEST_P(EditsPropertyParts, RemediesDoWhatTheyPromise) { CheckRounds(); }

INSTANTIATE_TEST_SUITE_P(Part, EditsPropertyParts, testing::Range(0, 4));

TEST_F(EditsPropertyTest, PartOfAFolderGivesTheRecordOfTheFolder) {
  const TestRandom test;
  RandomRepository random(test.Seed(), RandomRepository::Values::OnDisk);
  std::size_t records = 0;
  std::size_t smaller = 0;
  for (std::size_t round = test.Rounds(150); round != 0; --round) {
    SCOPED_TRACE(round);
    WriteRepository(random);
    const Cli::FolderReading reading = Cli::ReadFolder(folder.Path());
    const Cli::Neighbourhoods connections(reading.repository);
    const Cli::FolderCopy whole = Cli::CopyOf(reading.repository);
    Cli::FileStates files;
    const QuerySettings settings = ValidSettings(random);
    for (const std::string& code : Cli::CodesOf(reading.repository)) {
      const Cli::FolderCopy part = connections.Of({code});
      smaller += part.individuals.size() < whole.individuals.size() ? 1 : 0;
      std::vector<Edits> edited{{}};
      for (const Edit& edit : SingleEdits(whole, settings, code).All()) {
        // An edit of a package that is not connected is not made for this one.
        Cli::FolderCopy has = part;
        const bool isOfPart =
            edit.kind != Cli::EditKind::SetProperty || has.Find(edit.instance) != nullptr;
        if (isOfPart && random.Pick().OneIn(20)) edited.push_back({edit});
      }
      for (const Edits& edits : edited) {
        SCOPED_TRACE(code + ": " + TextOf(edits));
        EditedFolder a(whole, edits, settings.folder, files);
        EditedFolder b(part, edits, settings.folder, files);
        const auto only = [&code](const Cli::Evaluation& query) {
          std::vector<QueryPackageResult> own = query.records;
          own.erase(
              std::remove_if(own.begin(), own.end(),
                             [&](const auto& record) { return record.identificationCode != code; }),
              own.end());
          return own;
        };
        const auto expected = only(a.Model().Evaluate(settings));
        ASSERT_EQ(FirstDifference(only(b.Model().Evaluate(settings)), expected), "");
        records += expected.size();
      }
    }
  }
  if (!test.RunsAllRounds()) return;
  EXPECT_GT(records, 500U);
  EXPECT_GT(smaller, 80U);
}

}  // namespace
}  // namespace Vornik::Testing
