// The order in which the packages of one driver group are ranked: by version, compared as text.
//
//   RankVersions({"9", "10"})       =>  {1, 0}
//   RankVersions({"2", "2", "1"})   =>  {2, 1, 0}: an exchange sort changes the order of equal ones
#ifndef VORNIK_QUERYPACKAGE_FILTERS_SUPERSEDE_VERSION_RANKING_H
#define VORNIK_QUERYPACKAGE_FILTERS_SUPERSEDE_VERSION_RANKING_H

#include <cstddef>
#include <string>
#include <vector>

#include "QueryPackage.h"
#include "text/letter_case.h"

namespace Vornik {

// A version as it is compared: folded, and ended by its first zero byte as a C string is.
std::string ComparedVersion(const QueryPackageResult& record, const LocaleFold& fold);

// Versions as they are compared, as numbers that compare in the same way.
//
//   {"9", "10", "9"}  =>  {1, 0, 1}
std::vector<std::size_t> NumberVersions(const std::vector<std::string>& versions);

// Takes numbers of versions and returns their indices in the order that this leaves:
//
//   for each place p, for each later place q: if the version at p is greater, swap the two
std::vector<std::size_t> RankNumbers(const std::vector<std::size_t>& versions);

// The same for versions as they are compared.
std::vector<std::size_t> RankVersions(const std::vector<std::string>& versions);

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_FILTERS_SUPERSEDE_VERSION_RANKING_H
