// Which pack applies to a machine, and which of those that apply is chosen.
#ifndef VORNIK_QUERYPACKAGE_PACK_CHOICE_H
#define VORNIK_QUERYPACKAGE_PACK_CHOICE_H

#include <cstdint>
#include <string>
#include <vector>

#include "QueryPackage.h"
#include "properties.h"

namespace Vornik {

//   {"Desk 3 [1234]", "5678", ""}  =>  {"1234", "5678", ""}
std::vector<std::string> ParseApplicableMachineTypes(const std::vector<std::string>& values);

enum class PackVerdict {
  Applies,
  NoMachineTypes,        // "applicableMachineTypes" is missing or empty
  OtherMachineType,      // none of its items equals the machine type
  NoOperatingSystems,    // "applicableOperatingSystems" is missing or empty
  OtherOperatingSystem,  // none of its numbers is 0 or the operating system
};

// pack: the properties of the pack's own instance. An empty machine type and an operating system
// that is not set skip their tests.
PackVerdict JudgePack(const SupXmlProperties& pack, const std::string& machineType,
                      OsValue osValue);

// The properties by which a pack is judged: its own instance's, or none for a pack without members.
const SupXmlProperties& PackLevelProperties(const KovuPackEntry& pack);

// Chooses among the packs that apply, offered in order. The first one offered is taken unread: its
// version never counts, so the second one with any version displaces it, and from then on the
// greater version wins, compared as text (10.1 is smaller than 9.0) without regard to case.
//
//   versions 2.0, 1.0, 1.5  =>  the third
//   versions 1.0, 2.0, 1.5  =>  the second
class PackChooser {
 public:
  void Offer(std::int32_t index, const SupXmlProperties& pack);

  std::int32_t Chosen() const { return chosen_; }  // -1: none was offered

 private:
  std::int32_t chosen_ = -1;
  std::string chosenVersion_;
};

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_PACK_CHOICE_H
