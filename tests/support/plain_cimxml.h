// Reading a CIM-XML document step by step, from the tree that TinyXML builds of it. Shares no code
// with the product.
#ifndef VORNIK_TESTS_PLAIN_CIMXML_H
#define VORNIK_TESTS_PLAIN_CIMXML_H

#include <string>
#include <vector>

#include "model/properties.h"
#include "reading/xml_limits.h"

class TiXmlDocument;

namespace Vornik::Testing {

// Everything that the library takes from a document.
struct PlainContent {
  bool loaded = false;
  bool hasRoot = false;
  SupXmlProperties properties;
  bool hasMisfit = false;  // the walk for instances ended at one that does not begin with CLASSNAME
  std::vector<SupXmlProperties> instances;
};

bool operator==(const PlainContent& a, const PlainContent& b);

// Of a document that TinyXML has tried to load.
PlainContent PlainContentOf(const TiXmlDocument& document);

// A file's bytes as TinyXML's LoadFile hands them to its parser: line ends normalised in place up
// to the first zero byte, with what that leaves behind the new end. Zero bytes are added, so that a
// step over a character that is cut short stays inside; LoadFile itself adds one alone.
std::string PlainFileBuffer(const std::string& bytes);

// Of a file of these bytes. A document over the default limits counts as one that fails to load.
PlainContent PlainContentOf(const std::string& bytes);

// What first goes past the limits in the tree. TinyXML keeps what it had of a document when it
// gives up.
XmlLimitFault PlainLimitFault(const TiXmlDocument& document, const XmlLimits& limits);

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_PLAIN_CIMXML_H
