#include "random_repository.h"

#include <cctype>
#include <utility>

namespace Vornik::Testing {

namespace {

using Texts = std::vector<std::string>;

std::string UpperCase(std::string text) {
  for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return text;
}

const Texts& PackageIds() {
  static const Texts ids = {"a", "A", "b", "c", "d", "x", "X", "y", "orx_utl_sep_1", "unknown"};
  return ids;
}

}  // namespace

void RandomRepository::SetFileNames(Texts xmlFilenames, Texts payloads) {
  xmlFilenames_ = std::move(xmlFilenames);
  payloads_ = std::move(payloads);
}

SupXmlProperties RandomRepository::Package() {
  SupXmlProperties properties;
  const Texts codes = Pool({"a", "a", "A", "b", "c", "d", "x", "X", "y", "orx_utl_sep_1",
                            "z_orx_utl_tsep", "ORX_UTL_SEP", ""},
                           {"\xE4", " a", std::string("a\0b", 3)});
  const Texts versions =
      Pool({"1", "1.0", "1.9", "1.10", "9", "10", "A", "b", "x", "X", "Driver [2.0]", "]3["},
           {"", " ", "\xFF", std::string("1\0z", 3)});
  AddOne(properties, "identificationCode", codes);
  AddOne(properties, "buildNumber", {"7", "8"});
  AddOne(properties, "description", Pool({"text", "more <text> & \"more\""}, {"  two  blanks "}));
  AddOne(properties, "updateSelection", {"true", "TRUE"});
  AddOne(properties, "rebootRequired", {"false", "False"});
  AddOne(properties, "severity", {"1", "2"});
  AddOne(properties, "category", Pool({"Audio", "audio", "Net"}, {""}));
  AddOne(properties, "type", Pool({"1", "2", "3", "99", "3rd", "x", "-1"}, {" 2", "", "\t99"}));
  AddOne(properties, "Version", versions);
  AddSome(properties, "applicableDeviceId", {"d1", "d2"}, 3);
  AddSome(properties, "preReq", {"a", "b", "r"}, 3);
  AddSome(properties, "coReq", {"c", "s"}, 2);
  AddSome(properties, "supersede", PackageIds(), 3);
  AddOne(properties, "xmlFilename", xmlFilenames_);
  AddOne(properties, "payload", payloads_);
  AddDriverFiles(properties);
  AddPlatforms(properties);
  return properties;
}

SupXmlProperties RandomRepository::PackLevel() {
  SupXmlProperties properties;
  AddSome(
      properties, "applicableMachineTypes",
      Pool({"1234", "Desk [1234]", "Desk 2 [1234]", "[1234", "Lap [5678]", "1234]["}, {"", "[]"}),
      4);
  AddSome(properties, "applicableOperatingSystems", Pool({"10", "11", "0", "any"}, {" 10"}), 4);
  AddOne(properties, "Version",
         Pool({"1.0", "1.5", "2.0", "10", "a", "B", "X", "y"}, {"", "\x80"}));
  if (pick_.OneIn(4)) AddOne(properties, "identificationCode", {"a", "pack"});
  return properties;
}

void RandomRepository::Configure(QueryPackageImp& query) {
  query.machineType = pick_.OneIn(30) ? pick_.Of<std::string>({"", "123", "12345", "12a4"})
                                      : pick_.Of<std::string>({"1234", "1234", "1234", "5678"});
  query.osValue = static_cast<OsValue>(pick_.OneIn(60) ? 0U : 10U + pick_.Below(2));
  query.arcValue = static_cast<ArcValue>(pick_.OneIn(60) ? 0U : 9U);
  query.kovuFilter = !pick_.OneIn(4);
  query.sepFilter = !pick_.OneIn(4);
  query.payloadExistFilter = !pick_.OneIn(4);
  query.supersedeFilter = !pick_.OneIn(4);
  query.includePackageIds = pick_.Some(PackageIds(), 2);
  query.excludePackageIds = pick_.Some(PackageIds(), 2);
  query.updateTypes = pick_.Some<UpdateType>(
      {UpdateType(0), UpdateType(1), UpdateType(2), UpdateType(3), UpdateType::Any}, 2);
}

void RandomRepository::Add(SupXmlProperties& properties, const std::string& name,
                           const Texts& values) {
  properties.push_back({pick_.OneIn(4) ? UpperCase(name) : name, "string", values});
}

// Now and then it is missing, or stands twice.
void RandomRepository::AddOne(SupXmlProperties& properties, const std::string& name,
                              const Texts& pool) {
  if (pick_.OneIn(10)) return;
  Add(properties, name, {pick_.Of(pool)});
  if (pick_.OneIn(20)) Add(properties, name, pick_.Some(pool, 2));
}

void RandomRepository::AddSome(SupXmlProperties& properties, const std::string& name,
                               const Texts& pool, std::size_t most) {
  if (pick_.OneIn(10)) return;
  Add(properties, name, pick_.Some(pool, most));
  if (pick_.OneIn(20)) Add(properties, name, pick_.Some(pool, most));
}

// There are as many classifications as the longest list of driver files needs, or none at all.
void RandomRepository::AddDriverFiles(SupXmlProperties& properties) {
  constexpr std::size_t most = 3;
  AddSome(properties, "driverFiles",
          Pool({"net.sys-#1.2", "NET.SYS-#1.3", "-#net.sys-#-#1", "wlan.sys-#2", "audio-#3", "x-#4",
                "X-#5", "y-#6", "net.sys#1", "a-#b-#c", "-", "#-#-", "only-#"},
               {"", " -#1", "\xE4-#1"}),
          most);
  if (pick_.OneIn(2)) Add(properties, "driverFilesClassification", Texts(most, "class"));
}

void RandomRepository::AddPlatforms(SupXmlProperties& properties) {
  AddSome(properties, "orderedMachineTypeList", {"1234", "1234", "1234", "5678"}, 4);
  AddSome(properties, "orderedOSList", Pool({"10", "10", "11", "0", "any"}, {" 10", ""}), 4);
  AddSome(properties, "orderedOSArchitectureList", Pool({"9", "9", "0", "5"}, {"9x"}), 4);
}

Texts RandomRepository::Pool(Texts onDisk, const Texts& furtherInMemory) const {
  if (values_ == Values::InMemory) {
    onDisk.insert(onDisk.end(), furtherInMemory.begin(), furtherInMemory.end());
  }
  return onDisk;
}

}  // namespace Vornik::Testing
