#include "xml_limits.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstring>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "byte_count.h"

namespace Vornik {

namespace {

// Every function below that takes a place in the text and returns one stands for a step of
// TinyXML's; null says that TinyXML gives up there. The character classes are the C library's, as
// in TinyXML, so they change with the host's locale.

bool IsEnd(const char* p) { return p == nullptr || *p == '\0'; }

bool IsSpace(char c) {
  return std::isspace(static_cast<unsigned char>(c)) != 0 || c == '\n' || c == '\r';
}

bool IsNameStart(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= 127 || std::isalpha(byte) != 0 || c == '_';
}

bool IsNameCharacter(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= 127 || std::isalnum(byte) != 0 || c == '_' || c == '-' || c == '.' || c == ':';
}

const char* NameEnd(const char* p) {
  if (IsEnd(p) || !IsNameStart(*p)) return nullptr;
  while (IsNameCharacter(*p)) ++p;
  return p;
}

bool StartsWith(const char* p, std::string_view prefix) {
  return std::strncmp(p, prefix.data(), prefix.size()) == 0;
}

int Lower(char c) { return std::tolower(static_cast<unsigned char>(c)); }

bool StartsWithInAnyCase(const char* p, std::string_view prefix) {
  for (const char c : prefix) {
    if (*p == '\0' || Lower(*p) != Lower(c)) return false;
    ++p;
  }
  return true;
}

// Bytes of the character that begins with this one; 1 for bytes that begin none.
std::size_t CharacterLength(char lead) {
  const auto byte = static_cast<unsigned char>(lead);
  if (byte < 0xC2 || byte > 0xF4) return 1;
  if (byte < 0xE0) return 2;
  return byte < 0xF0 ? 3 : 4;
}

// The byte order mark and the two noncharacters that are skipped like it.
bool IsSkippedMark(const char* p) {
  return *p == '\xEF' && (StartsWith(p, "\xEF\xBB\xBF") || StartsWith(p, "\xEF\xBF\xBE") ||
                          StartsWith(p, "\xEF\xBF\xBF"));
}

// -1 for what is no digit.
int DigitOf(char c, bool hexadecimal) {
  if (c >= '0' && c <= '9') return c - '0';
  if (hexadecimal && c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (hexadecimal && c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// "&#...;": the digits are read backwards from the next semicolon, so whatever stands before the
// last 'x' or '#' is part of the reference too.
const char* NumericReferenceEnd(const char* p, std::string* value) {
  const bool hexadecimal = p[2] == 'x';
  const char* end = std::strchr(p + (hexadecimal ? 3 : 2), ';');
  if (end == nullptr) return nullptr;
  unsigned int code = 0;
  unsigned int place = 1;
  for (const char* q = end - 1; *q != (hexadecimal ? 'x' : '#'); --q) {
    const int digit = DigitOf(*q, hexadecimal);
    if (digit < 0) return nullptr;
    code += place * static_cast<unsigned int>(digit);
    place *= hexadecimal ? 16 : 10;
  }
  if (value != nullptr) value->push_back(static_cast<char>(code));
  return end + 1;
}

struct NamedEntity {
  std::string_view text;
  char character;
};
constexpr std::array<NamedEntity, 5> namedEntities{
    {{"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}, {"&apos;", '\''}}};

// An ampersand that begins none is stepped over and gives nothing.
const char* ReferenceEnd(const char* p, std::string* value) {
  if (p[1] == '#' && p[2] != '\0') return NumericReferenceEnd(p, value);
  const auto* entity =
      std::find_if(namedEntities.begin(), namedEntities.end(),
                   [p](const NamedEntity& candidate) { return StartsWith(p, candidate.text); });
  if (entity == namedEntities.end()) return p + 1;
  if (value != nullptr) value->push_back(entity->character);
  return p + entity->text.size();
}

// The names of one element's attributes. A tree only from where comparing each pair would cost.
class NameSet {
 public:
  // False if the name is there already.
  bool Insert(std::string_view name) {
    if (many_.empty()) {
      if (std::find(few_.begin(), few_.end(), name) != few_.end()) return false;
      if (few_.size() < mostCompared) {
        few_.push_back(name);
        return true;
      }
      many_.insert(few_.begin(), few_.end());
    }
    return many_.insert(name).second;
  }

  std::size_t Size() const { return many_.empty() ? few_.size() : many_.size(); }

  void Clear() {
    few_.clear();
    many_.clear();
  }

 private:
  static constexpr std::size_t mostCompared = 16;

  std::vector<std::string_view> few_;
  std::set<std::string_view> many_;
};

class XmlWalk {
 public:
  XmlWalk(const char* text, const XmlLimits& limits) : text_(text), limits_(limits) {}

  // Lists the ampersands that are dropped, the first of them with their places.
  void Watch(LostAmpersandOffsets& lost, std::size_t most) {
    lost_ = &lost;
    most_ = most;
  }

  XmlOutline Run() {
    outline_.nesting = 0;
    const char* p = Begin();
    while (!IsEnd(p)) p = SkipSpace(Next(p));
    return outline_;
  }

  // Offset of the construct that has no end, or of the end of the last one.
  std::size_t RunToStop() {
    const char* p = Begin();
    while (!IsEnd(p)) {
      const char* next = Next(p);
      if (next == nullptr) return OffsetOf(*p == '<' ? p : StopInText(p));
      p = SkipSpace(next);
      if (IsEnd(p)) return OffsetOf(next);
    }
    return 0;
  }

  // For a text that has no declaration but behind its first '<', and cannot go past a limit. Leaves
  // the nesting unknown.
  XmlOutline RunFirstDeclaration() {
    const char* p = Begin();
    if (!IsEnd(p) && StartsWithInAnyCase(p, "<?xml")) Declaration(p);
    return outline_;
  }

 private:
  const char* Begin() {
    if (StartsWith(text_, "\xEF\xBB\xBF")) LearnEncoding(true);
    return SkipSpace(text_);
  }

  const char* SkipSpace(const char* p) const {
    if (IsEnd(p)) return nullptr;
    for (;;) {
      if (utf8_ && IsSkippedMark(p)) {
        p += 3;
      } else if (*p != '\0' && IsSpace(*p)) {
        ++p;
      } else {
        return p;
      }
    }
  }

  // value, where wanted, receives the character as single-byte encodings read it.
  const char* NextCharacter(const char* p, std::string* value) const {
    const std::size_t length = utf8_ ? CharacterLength(*p) : 1;
    if (length != 1) return p + length;
    if (*p == '&') return Reference(p, value);
    if (value != nullptr) value->push_back(*p);
    return p + 1;
  }

  // A space is one character whatever its byte; ASCII is, too, without being asked for in the
  // locale.
  const char* NextOfText(const char* p) const {
    const bool isPlain = static_cast<unsigned char>(*p) < 0x80 && *p != '&';
    return isPlain || IsSpace(*p) ? p + 1 : NextCharacter(p, nullptr);
  }

  const char* Reference(const char* p, std::string* value) const {
    const char* end = ReferenceEnd(p, value);
    if (lost_ != nullptr && end == p + 1) Lose(p);
    return end;
  }

  void Lose(const char* ampersand) const {
    ++lost_->count;
    if (lost_->offsets.size() < most_) lost_->offsets.push_back(OffsetOf(ampersand));
  }

  const char* Next(const char* p) {
    if (*p != '<') return open_.empty() ? nullptr : Text(p);
    if (!open_.empty() && p[1] == '/') return EndTag(p);
    if (StartsWithInAnyCase(p, "<?xml")) return Declaration(p);
    if (StartsWith(p, "<!--")) return Comment(p);
    if (StartsWith(p, "<![CDATA[")) return Cdata(p);
    if (p[1] != '!' && IsNameStart(p[1])) return StartTag(p);
    return Unknown(p);
  }

  const char* Text(const char* p) const {
    while (!IsEnd(p) && *p != '<') p = NextOfText(p);
    return IsEnd(p) || p[1] == '\0' ? nullptr : p;
  }

  // At the reference that has no end, or else at the beginning of the text.
  const char* StopInText(const char* begin) const {
    const char* p = begin;
    while (!IsEnd(p) && *p != '<') {
      const char* next = NextOfText(p);
      if (next == nullptr) return p;
      p = next;
    }
    return begin;
  }

  static const char* Comment(const char* p) {
    const char* end = std::strstr(p + std::strlen("<!--"), "-->");
    return end == nullptr ? nullptr : end + std::strlen("-->");
  }

  static const char* Cdata(const char* p) {
    const char* end = std::strstr(p + std::strlen("<![CDATA["), "]]>");
    return end == nullptr ? nullptr : end + std::strlen("]]>");
  }

  static const char* Unknown(const char* p) {
    const char* end = std::strchr(p, '>');
    return end == nullptr ? nullptr : end + 1;
  }

  const char* Declaration(const char* p) {
    std::string encoding;
    const char* end = DeclarationEnd(p + std::strlen("<?xml"), encoding);
    if (end == nullptr) outline_.unfinishedDeclaration = OffsetOf(p);
    if (open_.empty() && !encodingKnown_) {
      const char* name = encoding.c_str();  // it ends at a zero byte of the value's own
      LearnEncoding(*name == '\0' || StartsWithInAnyCase(name, "UTF-8") ||
                    StartsWithInAnyCase(name, "UTF8"));
    }
    return end;
  }

  const char* DeclarationEnd(const char* p, std::string& encoding) const {
    while (!IsEnd(p)) {
      if (*p == '>') return p + 1;
      p = SkipSpace(p);
      if (IsEnd(p)) break;
      if (StartsWithInAnyCase(p, "encoding")) {
        encoding.clear();
        p = AttributeEnd(p, nullptr, &encoding);
      } else if (StartsWithInAnyCase(p, "version") || StartsWithInAnyCase(p, "standalone")) {
        p = AttributeEnd(p, nullptr, nullptr);
      } else {
        while (*p != '\0' && *p != '>' && !IsSpace(*p)) ++p;
      }
    }
    return nullptr;
  }

  const char* StartTag(const char* p) {
    if (open_.size() == limits_.nesting) return Exceed(XmlLimitFault::NestedTooDeep, p);
    outline_.nesting = std::max(outline_.nesting, open_.size() + 1);
    const char* name = SkipSpace(p + 1);
    const char* nameEnd = NameEnd(name);
    if (IsEnd(nameEnd)) return nullptr;
    const char* end = AttributesEnd(nameEnd, p);
    if (end == nullptr) return nullptr;
    if (*end == '/') return end[1] == '>' ? end + 2 : nullptr;
    open_.emplace_back(name, static_cast<std::size_t>(nameEnd - name));
    return end + 1;
  }

  // At the '/' or '>' behind the attributes.
  const char* AttributesEnd(const char* p, const char* element) {
    attributes_.Clear();
    for (p = SkipSpace(p); !IsEnd(p) && *p != '/' && *p != '>'; p = SkipSpace(p)) {
      std::string_view name;
      p = AttributeEnd(p, &name, nullptr);
      if (IsEnd(p) || !attributes_.Insert(name)) return nullptr;
      if (attributes_.Size() > limits_.attributes) {
        return Exceed(XmlLimitFault::TooManyAttributes, element);
      }
    }
    return IsEnd(p) ? nullptr : p;
  }

  const char* AttributeEnd(const char* p, std::string_view* name, std::string* value) const {
    const char* nameEnd = NameEnd(p);
    if (IsEnd(nameEnd)) return nullptr;
    if (name != nullptr) *name = {p, static_cast<std::size_t>(nameEnd - p)};
    p = SkipSpace(nameEnd);
    if (IsEnd(p) || *p != '=') return nullptr;
    p = SkipSpace(p + 1);
    if (IsEnd(p)) return nullptr;
    return *p == '\'' || *p == '"' ? QuotedEnd(p, value) : UnquotedEnd(p, value);
  }

  const char* QuotedEnd(const char* p, std::string* value) const {
    const char quote = *p++;
    while (!IsEnd(p) && *p != quote) p = NextCharacter(p, value);
    return IsEnd(p) || p[1] == '\0' ? nullptr : p + 1;
  }

  static const char* UnquotedEnd(const char* p, std::string* value) {
    for (; *p != '\0' && !IsSpace(*p) && *p != '/' && *p != '>'; ++p) {
      if (*p == '\'' || *p == '"') return nullptr;
      if (value != nullptr) value->push_back(*p);
    }
    return p;
  }

  const char* EndTag(const char* p) {
    p += std::strlen("</");
    if (!StartsWith(p, open_.back())) return nullptr;
    p = SkipSpace(p + open_.back().size());
    if (IsEnd(p) || *p != '>') return nullptr;
    open_.pop_back();
    return p + 1;
  }

  const char* Exceed(XmlLimitFault fault, const char* element) {
    outline_.fault = fault;
    outline_.offset = OffsetOf(element);
    return nullptr;
  }

  void LearnEncoding(bool utf8) {
    encodingKnown_ = true;
    utf8_ = utf8;
  }

  std::size_t OffsetOf(const char* p) const { return static_cast<std::size_t>(p - text_); }

  const char* text_;
  XmlLimits limits_;
  bool encodingKnown_ = false;
  bool utf8_ = false;
  std::vector<std::string_view> open_;  // names of the elements that are open
  NameSet attributes_;                  // of the element that is being opened
  XmlOutline outline_;
  LostAmpersandOffsets* lost_ = nullptr;
  std::size_t most_ = 0;
};

bool MayHoldLaterDeclaration(std::string_view text) {
  const std::size_t first = text.find('<');
  if (first == std::string_view::npos) return false;
  std::size_t at = text.find('?', first + 2);
  while (at != std::string_view::npos && text[at - 1] != '<') at = text.find('?', at + 1);
  return at != std::string_view::npos;
}

}  // namespace

XmlOutline OutlineXml(const char* text, const XmlLimits& limits) {
  return XmlWalk(text, limits).Run();
}

XmlOutline OutlineXml(const char* text, std::size_t size, const XmlLimits& limits) {
  const std::string_view all(text, size);
  const bool isWalked = CountByte('<', all) > limits.nesting ||
                        CountByte('=', all) > limits.attributes || MayHoldLaterDeclaration(all);
  return isWalked ? OutlineXml(text, limits) : XmlWalk(text, limits).RunFirstDeclaration();
}

LostAmpersandOffsets OutlineLostAmpersands(const char* text, std::size_t most) {
  LostAmpersandOffsets lost;
  XmlWalk walk(text, {});
  walk.Watch(lost, most);
  walk.Run();
  return lost;
}

std::size_t OutlineStop(const char* text) { return XmlWalk(text, {}).RunToStop(); }

bool EndsInsideCharacter(const char* text, std::size_t end) {
  for (std::size_t before = 1; before <= 3 && before <= end; ++before) {
    if (CharacterLength(text[end - before]) > before) return true;
  }
  return false;
}

}  // namespace Vornik
