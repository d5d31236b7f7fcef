// CIM-XML descriptors: a document held to what the XML library can take, and its properties.
// The one module that knows TinyXML.
//
//   <PROPERTY NAME="Version" TYPE="string"><VALUE>1.2</VALUE></PROPERTY>
//       =>  {"Version", "string", {"1.2"}}
//   <PROPERTY.ARRAY NAME="preReq"><VALUE.ARRAY><VALUE>a</VALUE><VALUE>b</VALUE></VALUE.ARRAY>...
//       =>  {"preReq", "", {"a", "b"}}
//   <PROPERTY NAME="x"><VALUE></VALUE></PROPERTY>
//       =>  {"x", "", {}}
#ifndef VORNIK_QUERYPACKAGE_CIMXML_H
#define VORNIK_QUERYPACKAGE_CIMXML_H

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "properties.h"
#include "text_position.h"

class TiXmlDocument;
class TiXmlNode;

namespace Vornik {

// Most property records that one document may give; nested instances multiply them.
inline constexpr std::size_t maxPropertyRecords = 2'000'000;

// Why a document fails to load.
enum class LoadFault {
  None,
  Unreadable,         // no regular file, or it cannot be read
  Empty,              // no bytes
  NestedTooDeep,      // over the limits of xml_limits.h
  TooManyAttributes,  // over the limits of xml_limits.h
  TooManyProperties,  // over maxPropertyRecords
  NotWellFormed,      // TinyXML's own verdict; see reason
};

// Which reading of a document its property records are counted for: one from the root element, or
// one from every instance that CollectInstances gives.
enum class DescriptorKind { Individual, Pack };

struct LoadOutcome {
  LoadFault fault = LoadFault::None;
  std::string reason;  // one sentence for a person; empty when there is no fault
  int line = 0;        // counted from 1; 0: not known
  int column = 0;      // counted from 1; 0: not known
};

// A query reads no position, and tracking them costs; a tool that names places asks for them. A
// text that ends inside a multi-byte character is not tracked even then: TinyXML may never return.
enum class Positions { Ignored, Tracked };

class CimXmlDocument {
 public:
  CimXmlDocument();
  CimXmlDocument(CimXmlDocument&&) noexcept;
  CimXmlDocument& operator=(CimXmlDocument&&) noexcept;
  ~CimXmlDocument();

  // Reads and parses the file. Every fault leaves a document without a root.
  LoadOutcome LoadFile(const std::string& path, DescriptorKind kind,
                       Positions positions = Positions::Ignored);

  // Parses the bytes of a file; nothing: it could not be read. What TinyXML cannot take safely is a
  // fault too.
  LoadOutcome LoadBytes(std::optional<std::string> bytes, DescriptorKind kind,
                        Positions positions = Positions::Ignored);

  // The first child that is an element; null if there is none. Valid while the document lives.
  const TiXmlNode* Root() const;

 private:
  std::unique_ptr<TiXmlDocument> document_;
};

// Appends every PROPERTY and PROPERTY.ARRAY at or below node, in document order. Null: none.
void ReadProperties(const TiXmlNode* node, SupXmlProperties& properties);

// Appends the elements that ReadProperties makes its records of, in the same order.
void CollectProperties(const TiXmlNode* node, std::vector<const TiXmlNode*>& elements);

// Appends every INSTANCE at or below node whose first attribute is CLASSNAME, in document order.
// Stops at, and returns, the first INSTANCE whose first attribute has another name; otherwise null.
// One without attributes is passed over. Null node: none.
const TiXmlNode* CollectInstances(const TiXmlNode* node, std::vector<const TiXmlNode*>& instances);

// What follows is for tools that name places; a query asks none of it.

// Appends every INSTANCE at or below node whose first attribute is not CLASSNAME.
void CollectMisfits(const TiXmlNode* node, std::vector<const TiXmlNode*>& misfits);

// The nearest INSTANCE around the node that CollectInstances would give; null if there is none.
const TiXmlNode* EnclosingInstance(const TiXmlNode& node);

struct XmlAttribute {
  std::string name;
  std::string value;
};

// Two empty texts for a node without attributes.
XmlAttribute FirstAttributeOf(const TiXmlNode& node);

struct ValueElement {
  const TiXmlNode* node;
  std::size_t texts;  // values that it gives: one, none where it is empty, more where it is split
};

// Appends the VALUE elements that ReadProperties takes the values of a PROPERTY or PROPERTY.ARRAY
// from, in the order of the values.
void CollectValues(const TiXmlNode& property, std::vector<ValueElement>& values);

struct LostAmpersands {
  std::vector<TextPosition> first;
  std::size_t count = 0;
};

// Where an ampersand stands in a document's bytes that begins no reference and is dropped; the
// first ones alone have a place. Only what TinyXML reads counts: not comments, not CDATA.
LostAmpersands FindLostAmpersands(std::string bytes, std::size_t most);

// Where the node begins, counted from 1, a tab as one column; 0 where positions are not tracked.
int LineOf(const TiXmlNode& node);
int ColumnOf(const TiXmlNode& node);

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_CIMXML_H
