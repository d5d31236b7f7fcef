// Descriptors for tests, written in the test's own body.
//
//   Descriptor().Set("identificationCode", "abc").Set("preReq", {"a", "b"}).Individual()
//   Pack({Descriptor().Set("xmlFilename", "pack.xml"), Descriptor()...})
#ifndef VORNIK_TESTS_DESCRIPTORS_H
#define VORNIK_TESTS_DESCRIPTORS_H

#include <initializer_list>
#include <string>
#include <vector>

#include "model/properties.h"

namespace Vornik::Testing {

class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(const std::string& code) { Set("identificationCode", code); }

  // A PROPERTY with one value.
  Descriptor& Set(const std::string& name, const std::string& value);
  Descriptor& Set(const std::string& name, const char* value);

  // A PROPERTY.ARRAY.
  Descriptor& Set(const std::string& name, const std::vector<std::string>& values);
  Descriptor& Set(const std::string& name, std::initializer_list<const char*> values);

  // The three ordered lists with one entry each.
  Descriptor& For(const std::string& machineType, const std::string& os, const std::string& arch);

  // The INSTANCE element alone.
  std::string Instance() const;

  // A whole individual descriptor.
  std::string Individual() const;

  // What reading it gives.
  const SupXmlProperties& Properties() const { return properties_; }

 private:
  SupXmlProperties properties_;
  std::vector<bool> isArray_;
};

// A whole pack; each instance is one descriptor, in order.
std::string Pack(const std::vector<Descriptor>& instances);

std::string EscapeXml(const std::string& text);

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_DESCRIPTORS_H
