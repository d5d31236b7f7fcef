#include "explain/explain_fixture.h"

#include <algorithm>
#include <stdexcept>

namespace Vornik::Testing {

Outcome ExplainTest::Explain(const std::string& id, const Arguments& more) {
  Arguments arguments = QueryArguments({"--package", id});
  arguments.front() = "explain";
  arguments.insert(arguments.end(), more.begin(), more.end());
  return RunCli(arguments);
}

Json ExplainTest::ExplainJson(const std::string& id, const Arguments& more, int status) {
  Arguments arguments{"--format", "json"};
  arguments.insert(arguments.end(), more.begin(), more.end());
  const Outcome outcome = Explain(id, arguments);
  EXPECT_EQ(outcome.status, status) << outcome.err;
  Json document = Json::parse(outcome.out, nullptr, false);
  if (document.is_discarded()) throw std::runtime_error("no JSON document: " + outcome.out);
  EXPECT_FALSE(document["folderChanged"]);
  EXPECT_EQ(document["packages"].size(), document["records"].size());
  return document;
}

Json ExplainTest::ExplainPackage(const std::string& id, const Arguments& more) {
  const Json document = ExplainJson(id, more);
  if (document["packages"].size() != 1) throw std::runtime_error(document.dump(2));
  Json package = document["packages"][0];
  for (const Json& filter : package["filters"]) {
    const auto slot = filter["slot"].get<std::string>();
    if (slot.empty()) continue;
    EXPECT_EQ(filter["status"], document["records"][0][slot]) << filter["filter"];
  }
  return package;
}

Json ExplainTest::ExplainFilter(const std::string& id, const std::string& filter,
                                const Arguments& more) {
  return FilterOf(ExplainPackage(id, more), filter);
}

void ExplainTest::ExpectPasses(const Json& smallest, const std::string& code) {
  auto arguments = smallest["arguments"].get<Arguments>();
  arguments.insert(arguments.begin() + 1, {"--format", "json"});
  const Outcome outcome = RunCli(arguments);
  ASSERT_EQ(outcome.status, 0) << outcome.err;
  const Json document = Json::parse(outcome.out);
  const Json& records = document["records"];
  const auto record = std::find_if(records.begin(), records.end(), [&code](const Json& candidate) {
    return candidate["identificationCode"] == code;
  });
  ASSERT_NE(record, records.end());
  EXPECT_TRUE(PassesAll(document["query"], *record)) << document.dump(2);
}

Json FilterOf(const Json& package, const std::string& filter) {
  for (const Json& candidate : package.at("filters")) {
    if (candidate.at("filter") == filter) return candidate;
  }
  throw std::runtime_error("no filter " + filter);
}

std::vector<std::string> ReasonsOf(const Json& absence) {
  std::vector<std::string> reasons;
  for (const Json& reason : absence) reasons.push_back(reason.at("reason"));
  return reasons;
}

std::vector<std::string> ChangesOf(const Json& smallest) {
  std::vector<std::string> texts;
  for (const Json& change : smallest.at("changes")) texts.push_back(change.at("text"));
  return texts;
}

bool PassesAll(const Json& query, const Json& record) {
  const struct {
    const char* slot;
    bool runs;
  } slots[] = {{"platformFilterStatus", true},
               {"kovuFilterStatus", query.at("kovuFilter")},
               {"sepFilterStatus", query.at("sepFilter")},
               {"payloadExistFilterStatus", query.at("payloadExistFilter")},
               {"supersedeFilterStatus", query.at("supersedeFilter")},
               {"includeIdFilterStatus", !query.at("includePackageIds").empty()},
               {"excludeIdFilterStatus", !query.at("excludePackageIds").empty()},
               {"updateTypeFilterStatus", !query.at("updateTypes").empty()}};
  return std::all_of(std::begin(slots), std::end(slots), [&record](const auto& slot) {
    return record.at(slot.slot) == (slot.runs ? 1 : 0);
  });
}

}  // namespace Vornik::Testing
