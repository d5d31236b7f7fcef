// The guard in front of TinyXML. TinyXML recurses once for every element inside another one, so a
// deep document overflows the stack, and compares every attribute of an element with those before
// it, so a wide one takes time by the square. Such a document is a fault before TinyXML sees it.
//
// The guard only protects TinyXML: no value that a query reads ever comes from here.
//
// The text is walked in exactly TinyXML's steps (see xml_walk.h), and the walk ends where TinyXML
// stops. So there is a fault if and only if TinyXML would exceed the limit.
//
//   "<a><b/></a>"    with nesting 1     =>  NestedTooDeep
//   "<a><b/></a>"    with nesting 2     =>  None
//   "<a x='' y=''/>" with attributes 1  =>  TooManyAttributes
//   "<a><b/></a>"    with depths 2      =>  TooManyDepths
#ifndef VORNIK_QUERYPACKAGE_READING_XML_LIMITS_H
#define VORNIK_QUERYPACKAGE_READING_XML_LIMITS_H

#include <cstddef>
#include <string_view>

namespace Vornik {

struct XmlLimits {
  std::size_t nesting = 1'000;   // elements inside one another, the root element included
  std::size_t attributes = 256;  // attributes of one element
  // The depths of all elements, texts and comments together: TinyXML climbs from each of them to
  // the document. So many for any text, and so many for each byte of a long one.
  std::size_t depths = 5'000'000;
  std::size_t depthsPerByte = 16;
};

enum class XmlLimitFault { None, NestedTooDeep, TooManyAttributes, TooManyDepths };

struct XmlScan {
  static constexpr std::size_t npos = static_cast<std::size_t>(-1);

  XmlLimitFault fault = XmlLimitFault::None;
  // Where a declaration begins that TinyXML finds no end of, for which TinyXML without its later
  // patches fails an assertion. npos: there is none. A text that ends before such a declaration
  // yields the same elements, and fails to load if and only if this one does; only that a document
  // without anything else is then an empty one.
  std::size_t unfinishedDeclaration = npos;
};

// Zero bytes that have to follow the text's last byte: TinyXML steps over a whole multi-byte
// character, also where the text ends inside it.
inline constexpr std::size_t xmlTextPadding = 8;

// text ends with xmlTextPadding zero bytes, with line ends already normalised. Takes time in
// proportion to the text and calls nothing recursively. A text that has too few elements and
// attributes to exceed a limit is not walked.
XmlScan ScanXml(std::string_view text, const XmlLimits& limits = {});

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_READING_XML_LIMITS_H
