// What becomes of a package that another one's "supersede" names, by the supersede filter's rule.
#ifndef VORNIK_CLI_LINT_CHECKS_SUPERSEDE_EFFECT_H
#define VORNIK_CLI_LINT_CHECKS_SUPERSEDE_EFFECT_H

#include "lint/folder.h"

namespace Vornik::Cli {

enum class SupersedeEffect {
  Superseded,     // as the list says
  KeptByOwnList,  // its own list is applied later and keeps it
  KeptByVersion,  // they share a driver file, and its version is the greater one: the owner of the
                  // list is superseded instead
};

// In a query of the two, and of a third package, on a machine for which the first two are. third:
// one that the list of the listed package names, which may be the listed package itself; null if
// none of them is in the query.
SupersedeEffect EffectOfList(const LintPackage& owner, const LintPackage& listed,
                             const LintPackage* third);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_LINT_CHECKS_SUPERSEDE_EFFECT_H
