#include "filters/update_type.h"

#include <algorithm>

#include "model/literals.h"
#include "text/decimal.h"

namespace Vornik {

UpdateTypeVerdict EvaluateUpdateType(const SupXmlProperties& properties,
                                     const std::vector<UpdateType>& requested) {
  const std::string* text = FindPropertyValue(PropertyName::type, properties);
  if (text == nullptr || text->empty()) return UpdateTypeVerdict::NoType;
  const auto type = static_cast<UpdateType>(ParseDecimal(*text));
  const bool matched = std::any_of(requested.begin(), requested.end(), [type](UpdateType asked) {
    return type == UpdateType::Any || asked == UpdateType::Any || type == asked;
  });
  return matched ? UpdateTypeVerdict::Matched : UpdateTypeVerdict::NotMatched;
}

}  // namespace Vornik
