// How deep and how wide an XML text is, found before TinyXML sees it: TinyXML recurses once for
// every element that stands inside another one, and compares every attribute of an element with
// those before it.
//
// The text is walked in exactly TinyXML's steps, its oddities included (a multi-byte character that
// swallows what follows it, an entity that ends at a far semicolon), and the walk ends where
// TinyXML stops. So a fault is found if and only if TinyXML would go past the limit.
//
//   "<a><b/></a>"   with nesting 1    =>  NestedTooDeep
//   "<a><b/></a>"   with nesting 2    =>  None
//   "<a x='' y=''/>" with attributes 1 =>  TooManyAttributes
#ifndef VORNIK_QUERYPACKAGE_XML_LIMITS_H
#define VORNIK_QUERYPACKAGE_XML_LIMITS_H

#include <cstddef>
#include <vector>

namespace Vornik {

struct XmlLimits {
  std::size_t nesting = 1'000;      // elements inside one another, the root element included
  std::size_t attributes = 10'000;  // attributes of one element
};

enum class XmlLimitFault { None, NestedTooDeep, TooManyAttributes };

// What the walk found.
struct XmlOutline {
  static constexpr std::size_t npos = static_cast<std::size_t>(-1);

  XmlLimitFault fault = XmlLimitFault::None;
  std::size_t offset = 0;  // of the element that goes past a limit
  // Where a declaration begins that TinyXML finds no end of, for which TinyXML without its later
  // patches fails an assertion. npos: there is none. A text that ends before such a declaration
  // gives the same elements, and fails to load if and only if this one does; only that a document
  // of nothing else is then called an empty one.
  std::size_t unfinishedDeclaration = npos;
  // How many elements stand inside one another at most. npos: the text was not walked.
  std::size_t nesting = npos;
};

// Zero bytes that have to stand behind the text's last byte: TinyXML steps over a whole multi-byte
// character, also where the text ends inside it.
inline constexpr std::size_t xmlTextPadding = 8;

// text ends with xmlTextPadding zero bytes, with line ends already normalised. Takes time in
// proportion to the text and calls nothing recursively.
XmlOutline OutlineXml(const char* text, const XmlLimits& limits = {});

// The same result for a text whose size is known, its padding included: one that has too few
// elements and attributes to go past a limit is not walked.
XmlOutline OutlineXml(const char* text, std::size_t size, const XmlLimits& limits = {});

struct LostAmpersandOffsets {
  std::vector<std::size_t> offsets;  // of the first ones
  std::size_t count = 0;
};

// The ampersands that begin no reference and that TinyXML drops, in the same walk. At most so many
// offsets are kept.
LostAmpersandOffsets OutlineLostAmpersands(const char* text, std::size_t most);

// Offset of what TinyXML is reading when it gives up, or of the end of what it has read, in the
// same walk and within the limits: where to look if it names no place itself.
std::size_t OutlineStop(const char* text);

// Whether the text's first zero byte, which stands at the offset end, lies inside a multi-byte
// UTF-8 character by its lead byte's word. TinyXML may then go on behind the text's end.
bool EndsInsideCharacter(const char* text, std::size_t end);

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_XML_LIMITS_H
