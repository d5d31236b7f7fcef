// May a host install this package? The rule that the examples and the documents share; copy it, and
// change it where your host decides otherwise.
#ifndef SHOULD_OFFER_H
#define SHOULD_OFFER_H

#include <QueryPackage.h>

#include <cstdint>

enum class Offer {
  Yes,        // every filter that ran matched
  No,         // at least one did not
  Undecided,  // none refused it, but the package lacks the data that a filter needs
};

// Which filters the query ran: a slot of 0 says nothing where its filter is off. The platform
// filter always runs. The last three run where the host has set a list that is not empty.
struct FiltersThatRan {
  bool kovu = true;
  bool sep = true;
  bool payloadExist = true;
  bool supersede = true;
  bool includeIds = false;
  bool excludeIds = false;
  bool updateTypes = false;
};

// package: of a query that returned QueryCode::Completed.
inline Offer ShouldOffer(const Vornik::QueryPackageResult& package,
                         const FiltersThatRan& filters = {}) {
  const struct {
    bool ran;
    std::uint32_t status;
  } verdicts[] = {{true, package.platformFilterStatus},
                  {filters.kovu, package.kovuFilterStatus},
                  {filters.sep, package.sepFilterStatus},
                  {filters.payloadExist, package.payloadExistFilterStatus},
                  {filters.supersede, package.supersedeFilterStatus},
                  {filters.includeIds, package.includeIdFilterStatus},
                  {filters.excludeIds, package.excludeIdFilterStatus},
                  {filters.updateTypes, package.updateTypeFilterStatus}};
  Offer offer = Offer::Yes;
  for (const auto& verdict : verdicts) {
    if (!verdict.ran) continue;
    if (verdict.status == Vornik::FilterStatus::NotMatched) return Offer::No;
    if (verdict.status != Vornik::FilterStatus::Matched) offer = Offer::Undecided;
  }
  return offer;
}

#endif  // SHOULD_OFFER_H
