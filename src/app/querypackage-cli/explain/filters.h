// Why each filter gave one package the verdict that it has.
#ifndef VORNIK_CLI_EXPLAIN_FILTERS_H
#define VORNIK_CLI_EXPLAIN_FILTERS_H

#include <cstddef>
#include <string>
#include <vector>

#include "explain/explanation.h"
#include "model/property_places.h"
#include "model/query_model.h"
#include "model/query_settings.h"
#include "output/sentence.h"

namespace Vornik::Cli {

// One package of an evaluated query.
struct PackageContext {
  const QuerySettings& settings;
  QueryModel& model;
  const Evaluation& query;
  PropertyPlaces& places;
  std::size_t index = 0;  // into the query's records
  PropertySource source;  // where the filters read its properties

  const QueryPackageResult& Record() const { return query.records[index]; }
};

// The line where a package has a property, or where the package is if it has none.
FilePlace PlaceIn(const PropertySource& source, const char* property, PropertyRead read,
                  PropertyPlaces& places);

// a.xml:12
std::string TextOf(const FilePlace& place);

// What a filter's rule says, with the verdict that it gives. log stays empty, and the supersede
// filter is explained elsewhere.
FilterExplanation ExplainDuplicate(const PackageContext& package);
FilterExplanation ExplainPlatform(const PackageContext& package);
FilterExplanation ExplainKovu(const PackageContext& package);
FilterExplanation ExplainSep(const PackageContext& package);
FilterExplanation ExplainPayload(const PackageContext& package);
FilterExplanation ExplainInclude(const PackageContext& package);
FilterExplanation ExplainExclude(const PackageContext& package);
FilterExplanation ExplainUpdateType(const PackageContext& package);

// The reason word of the Kovu filter, which needs only the record.
const char* KovuReason(const QueryPackageResult& record);

// The descriptors that were dropped because they repeat the package's code.
std::vector<Repeat> RepeatsOf(const PackageContext& package);

// An explanation with the verdict in the record, and without a reason.
FilterExplanation BeginExplanation(FilterId filter, const PackageContext& package);

FilterExplanation& SetReason(FilterExplanation& explanation, const char* reason, Sentence text);

// Says which property of the package decided, and how it was read.
FilterExplanation& SetPlace(FilterExplanation& explanation, const PackageContext& package,
                            const char* property, PropertyRead read);

// Says that the filter does not run.
FilterExplanation& ExplainOff(FilterExplanation& explanation);

// Says that no properties were found for the code.
FilterExplanation& ExplainNoProperties(FilterExplanation& explanation);

// Adds all values of a property of the package.
void AddReading(FilterExplanation& explanation, const PackageContext& package,
                const char* property);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_EXPLAIN_FILTERS_H
