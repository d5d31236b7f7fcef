// A walk through an XML text in exactly TinyXML's steps, its oddities included: a multi-byte
// character that swallows what follows it, a reference that ends at a far semicolon. It ends where
// TinyXML stops. Only for the guard (xml_limits.h) and for tools that name places.
//
// A function that takes a place in the text and returns one is one of TinyXML's steps; null means
// that TinyXML gives up there. The character classes are the C library's, as in TinyXML, so they
// change with the host's locale.
#ifndef VORNIK_QUERYPACKAGE_READING_XML_WALK_H
#define VORNIK_QUERYPACKAGE_READING_XML_WALK_H

#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "xml_limits.h"

namespace Vornik {

// The names of one element's attributes. A tree only from where comparing each pair would cost.
class AttributeNames {
 public:
  // False if the name is there already.
  bool Insert(std::string_view name);
  std::size_t Size() const { return set_.empty() ? list_.size() : set_.size(); }
  void Clear();

 private:
  static constexpr std::size_t maxCompared = 16;

  std::vector<std::string_view> list_;
  std::set<std::string_view> set_;
};

class XmlWalk {
 public:
  // text ends with xmlTextPadding zero bytes.
  XmlWalk(const char* text, const XmlLimits& limits) : text_(text), limits_(limits) {}
  XmlWalk(const XmlWalk&) = delete;
  XmlWalk& operator=(const XmlWalk&) = delete;
  virtual ~XmlWalk() = default;

  XmlScan Run();

  // For a text that has no declaration except at its first '<', and cannot exceed a limit.
  XmlScan RunFirstDeclaration();

 protected:
  const char* Begin();
  const char* Next(const char* p);  // after the element, text or other construct at p
  const char* SkipSpace(const char* p) const;
  const char* NextOfText(const char* p);
  std::size_t OffsetOf(const char* p) const { return static_cast<std::size_t>(p - text_); }

  // An ampersand that begins no reference: TinyXML drops it.
  virtual void ReportDropped(const char* /*ampersand*/) {}

 private:
  bool AddDepth(const char* p);  // false: over the limit
  const char* NextCharacter(const char* p, std::string* value);
  const char* Reference(const char* p, std::string* value);
  const char* Text(const char* p);
  const char* Declaration(const char* p);
  const char* DeclarationEnd(const char* p, std::string& encoding);
  const char* StartTag(const char* p);
  const char* AttributesEnd(const char* p);
  const char* AttributeEnd(const char* p, std::string_view* name, std::string* value);
  const char* QuotedEnd(const char* p, std::string* value);
  const char* EndTag(const char* p);
  const char* FailLimit(XmlLimitFault fault);
  void LearnEncoding(bool utf8);

  const char* text_;
  XmlLimits limits_;
  bool encodingKnown_ = false;
  bool utf8_ = false;
  std::vector<std::string_view> open_;  // names of the elements that are open
  std::size_t depths_ = 0;              // of what was walked
  AttributeNames attributes_;           // of the element that is being opened
  XmlScan scan_;
};

// Bytes of the UTF-8 character that a lead byte announces; 1 for bytes that begin none.
std::size_t CharacterLength(char lead);

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_READING_XML_WALK_H
