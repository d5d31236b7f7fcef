// Named properties of one descriptor or of one instance of a pack.
//
//   GetPropertyValue("type", {{"Type","",{"1"}}, {"TYPE","",{"2","3"}}})   =>  "2"
//   GetPropertyValue("type", {{"type","",{"1"}}, {"type","",{}}})          =>  "1"
//   GetPropertyValues("type", {{"type","",{"1"}}, {"type","",{}}})         =>  {}
#ifndef VORNIK_QUERYPACKAGE_MODEL_PROPERTIES_H
#define VORNIK_QUERYPACKAGE_MODEL_PROPERTIES_H

#include <string>
#include <string_view>
#include <vector>

namespace Vornik {

struct SupXmlProperty {
  std::string name;  // empty where the element has no NAME
  std::string type;  // kept as read; nothing interprets it
  std::vector<std::string> values;
};

// In document order. Two properties with the same name are both kept; look-ups decide between them.
using SupXmlProperties = std::vector<SupXmlProperty>;

// The first value of the last property with that name, in any case, that has a value; "" if none
// has one.
std::string GetPropertyValue(std::string_view name, const SupXmlProperties& properties);

// The same without a copy: null if none has a value. It points into properties.
const std::string* FindPropertyValue(std::string_view name, const SupXmlProperties& properties);

// All values of the last property with that name, in any case: an empty one hides those before it.
std::vector<std::string> GetPropertyValues(std::string_view name,
                                           const SupXmlProperties& properties);

// The same without a copy: null if there is no such property. It points into properties.
const std::vector<std::string>* FindPropertyValues(std::string_view name,
                                                   const SupXmlProperties& properties);

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_MODEL_PROPERTIES_H
