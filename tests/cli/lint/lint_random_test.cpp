// Random folders with random mistakes: a package that is lost to every machine, or that is
// evaluated by other data than its author wrote, always has a finding about one of its files.
#include <algorithm>
#include <functional>

#include "inspection/descriptor_inspection.h"
#include "lint/lint.h"
#include "lint/lint_fixture.h"
#include "model/folder_reading.h"
#include "model/query_model.h"
#include "test_random.h"

namespace Vornik::Testing {
namespace {

using Texts = std::vector<std::string>;

const Texts machineTypes{"1234", "5678"};
const Texts systems{"10", "11"};

// A package as its author means it.
struct MeantPackage {
  std::string code;
  std::string instance;
};

struct MeantFile {
  std::string name;
  bool isPack = false;
  std::vector<MeantPackage> packages;
  std::string text;
};

MeantPackage RandomPackage(const std::string& code, RandomPick& pick) {
  std::string instance = SoundInstance(code);
  instance = PutValues(instance, "orderedMachineTypeList", {pick.Of(machineTypes)});
  instance = PutValues(instance, "orderedOSList", {pick.Of<std::string>({"10", "11", "0"})});
  return {code, instance};
}

std::string RandomOwnInstance(const std::string& file, RandomPick& pick) {
  std::string own = PutValue(OwnInstance(file), "Version", pick.Of<std::string>({"1", "2", "3"}));
  own = PutValues(own, "applicableMachineTypes", {pick.Of(machineTypes)});
  return PutValues(own, "applicableOperatingSystems", {pick.Of<std::string>({"10", "11", "0"})});
}

// Individual descriptors, and packs that list some of them.
std::vector<MeantFile> RandomFiles(RandomPick& pick) {
  std::vector<MeantFile> files;
  std::vector<MeantPackage> packages;
  const Texts codes{"a", "b", "c", "d"};
  for (std::size_t i = 0; i <= pick.Below(codes.size()); ++i) {
    packages.push_back(RandomPackage(codes[i], pick));
    files.push_back({codes[i] + ".xml", false, {packages[i]}, PackText({packages[i].instance})});
  }
  for (std::size_t packs = pick.Below(3); packs != 0; --packs) {
    MeantFile file{"p" + std::to_string(packs) + ".xml", true, {}, ""};
    Texts instances{RandomOwnInstance(file.name, pick)};
    for (const MeantPackage& package : packages) {
      if (pick.OneIn(3)) continue;
      file.packages.push_back(package);
      instances.push_back(package.instance);
    }
    file.text = PackText(instances);
    files.push_back(std::move(file));
  }
  return files;
}

std::string ReplaceNth(std::string text, const std::string& part, const std::string& by,
                       RandomPick& pick) {
  std::vector<std::size_t> found;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
    found.push_back(at);
  }
  return found.empty() ? text : text.replace(pick.Of(found), part.size(), by);
}

using Mistake = std::function<std::string(const std::string&, RandomPick&)>;

Mistake Replacing(const std::string& part, const std::string& by) {
  return [part, by](const std::string& text, RandomPick& pick) {
    return ReplaceNth(text, part, by, pick);
  };
}

// Each changes one place of a file's text.
const std::vector<Mistake>& Mistakes() {
  static const std::vector<Mistake> mistakes{
      Replacing("<INSTANCE CLASSNAME=\"ORXQDL_SystemUpdateElement\">", "<INSTANCE>"),
      Replacing("<PROPERTY NAME", "<Property NAME"),
      Replacing("<PROPERTY NAME", "<PROPERTY name"),
      Replacing("<PROPERTY.ARRAY NAME", "<PROPERTY.ARRAY Name"),
      Replacing("<VALUE.ARRAY>", "<Value.Array>"),
      Replacing("<VALUE>1234</VALUE>", "<VALUE/>"),
      Replacing("<VALUE>1234</VALUE>", "<VALUE>12345</VALUE>"),
      Replacing("<VALUE>10</VALUE>", "<VALUE>ten</VALUE>"),
      Replacing("NAME=\"payload\"", "NAME=\"payloads\""),
      Replacing("NAME=\"orderedOSList\"", "NAME=\"orderedOsLists\""),
      Replacing("NAME=\"xmlFilename\"", "NAME=\"xmlFileame\""),
      Replacing("<VALUE>p1.xml</VALUE>", "<VALUE>P1.xml</VALUE>"),
      Replacing("<VALUE>p1.xml</VALUE>", "<VALUE>a.xml</VALUE>"),
      Replacing("<VALUE>a.exe</VALUE>", "<VALUE>x.exe</VALUE>"),
      Replacing("<VALUE>b.xml</VALUE>", "<VALUE>c.xml</VALUE>"),
      Replacing("SystemUpdateElement", "SystemUpdate\nElement"),
      Replacing("SystemUpdateElement", "systemUpdateElement"),
      Replacing("ORXQDL_SystemUpdateProduct", "x"),
      Replacing("</CIM>", SoundInstance("z") + "</CIM>"),
      Replacing("</CIM>", SoundInstance("a") + "</CIM>"),
      Replacing("</INSTANCE>", SoundInstance("z") + "</INSTANCE>"),
      Replacing("</INSTANCE>", ""),
      Replacing("<CIM>", "<CIM><!-- ORXQDL_SystemUpdateProduct -->"),
  };
  return mistakes;
}

void MakeMistakes(std::vector<MeantFile>& files, RandomPick& pick) {
  for (std::size_t mistakes = pick.Below(3); mistakes != 0; --mistakes) {
    MeantFile& file = files[pick.Below(files.size())];
    file.text = pick.Of(Mistakes())(file.text, pick);
  }
}

// The code of another package in b.xml, in the same or in another case. No other mistake may make
// the first package vanish: the wrong code would then be as good as the right one.
void RepeatCode(std::vector<MeantFile>& files, RandomPick& pick) {
  const std::string code = "\"identificationCode\" TYPE=\"string\"><VALUE>";
  for (MeantFile& file : files) {
    if (file.name != "b.xml") continue;
    file.text = Replace(file.text, code + 'b', code + pick.Of<std::string>({"a", "A"}));
  }
}

SupXmlProperties PropertiesOf(const std::string& instance) {
  const TempFolder work;
  return ReadDescriptor(work.Write("x.xml", PackText({instance})), boost::filesystem::regular_file)
      .properties.front();
}

bool AreEqual(const SupXmlProperties& a, const SupXmlProperties& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const auto& one, const auto& other) {
    return one.name == other.name && one.values == other.values;
  });
}

class LintRandomTest : public LintTest {
 protected:
  void WriteFolder(const std::vector<MeantFile>& files) {
    boost::filesystem::remove_all(folder.Path());
    boost::filesystem::create_directory(folder.Path());
    for (const MeantFile& file : files) {
      folder.Write(file.name, file.text);
      for (const MeantPackage& package : file.packages) folder.Write(package.code + ".exe", "x");
    }
  }

  Cli::QuerySettings SettingsFor(const std::string& machineType, const std::string& system) {
    Cli::QuerySettings settings;
    settings.folder = folder.Path();
    settings.machineType = machineType;
    settings.osValue = static_cast<OsValue>(std::stoi(system));
    settings.arcValue = static_cast<ArcValue>(9);
    return settings;
  }

  // Of all machines.
  std::vector<Cli::Evaluation> Queries(const Cli::FolderReading& reading) {
    Cli::QueryModel model(reading, folder.Path());
    std::vector<Cli::Evaluation> queries;
    for (const std::string& machineType : machineTypes) {
      for (const std::string& system : systems) {
        queries.push_back(model.Evaluate(SettingsFor(machineType, system)));
      }
    }
    return queries;
  }

  // The codes of the packages that are lost or evaluated by other data.
  std::set<std::string> AffectedCodes(const std::vector<MeantFile>& files) {
    const Cli::FolderReading reading = Cli::ReadFolder(folder.Path());
    const std::vector<Cli::Evaluation> queries = Queries(reading);
    const bool hasPacks = !reading.repository.kovuPackEntries().empty();
    std::set<std::string> affected;
    for (const MeantFile& file : files) {
      for (const MeantPackage& package : file.packages) {
        if (IsAffected(package, queries, hasPacks)) affected.insert(package.code);
      }
    }
    return affected;
  }

 private:
  // Whether no machine gets the package with the verdicts of a sound one, or one gets it with other
  // data than its author wrote. Where there are packs, it has to come from one.
  static bool IsAffected(const MeantPackage& package, const std::vector<Cli::Evaluation>& queries,
                         bool hasPacks) {
    const SupXmlProperties meant = PropertiesOf(package.instance);
    bool reachesAMachine = false;
    for (const Cli::Evaluation& query : queries) {
      for (std::size_t i = 0; i < query.records.size(); ++i) {
        const QueryPackageResult& record = query.records[i];
        if (record.identificationCode != package.code) continue;
        const PackageXmlEntry* const entry = query.sources[i].entry;
        if (entry == nullptr || !AreEqual(entry->properties, meant)) return true;
        reachesAMachine |= record.platformFilterStatus == FilterStatus::Matched &&
                           record.payloadExistFilterStatus == FilterStatus::Matched &&
                           (!hasPacks || record.kovuFilterStatus == FilterStatus::Matched);
      }
    }
    return !reachesAMachine;
  }
};

// The files that describe a package of the code, as they are meant.
std::set<std::string> FilesOf(const std::string& code, const std::vector<MeantFile>& files) {
  std::set<std::string> names;
  for (const MeantFile& file : files) {
    for (const MeantPackage& package : file.packages) {
      if (package.code == code) names.insert(file.name);
    }
  }
  return names;
}

bool IsAboutOneOf(const Cli::LintFinding& finding, const std::set<std::string>& files) {
  return files.count(finding.file) != 0 ||
         std::any_of(finding.also.begin(), finding.also.end(),
                     [&](const Cli::LintPlace& place) { return files.count(place.file) != 0; });
}

std::string Report(const std::vector<MeantFile>& files, const Cli::LintResult& result) {
  std::string text;
  for (const MeantFile& file : files) text += "--- " + file.name + "\n" + file.text;
  for (const auto& finding : result.findings) text += finding.file + ": " + finding.text + "\n";
  return text;
}

TEST_F(LintRandomTest, PackageThatIsLostOrEvaluatedByOtherDataHasAFinding) {
  TestRandom pick;
  std::size_t affected = 0;
  const std::size_t rounds = pick.Rounds(300);
  for (std::size_t round = 0; round < rounds; ++round) {
    std::vector<MeantFile> files = RandomFiles(pick);
    if (pick.OneIn(8)) {
      RepeatCode(files, pick);
    } else {
      MakeMistakes(files, pick);
    }
    WriteFolder(files);
    const Cli::LintResult result = Cli::Lint({folder.Path(), Cli::nativeTarget});
    for (const std::string& code : AffectedCodes(files)) {
      ++affected;
      const std::set<std::string> names = FilesOf(code, files);
      EXPECT_TRUE(std::any_of(result.findings.begin(), result.findings.end(),
                              [&](const auto& finding) { return IsAboutOneOf(finding, names); }))
          << code << "\n"
          << Report(files, result);
    }
  }
  if (pick.RunsAllRounds()) {
    EXPECT_GT(affected, rounds / 2) << "packages are often affected";
  }
}

}  // namespace
}  // namespace Vornik::Testing
