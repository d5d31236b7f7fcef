#include "xml_walk.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstring>

namespace Vornik {

namespace {

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

// "&#...;": the digits are read backwards from the next semicolon, so whatever precedes the
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

// An ampersand that begins none is skipped and yields nothing.
const char* ReferenceEnd(const char* p, std::string* value) {
  if (p[1] == '#' && p[2] != '\0') return NumericReferenceEnd(p, value);
  const auto* entity =
      std::find_if(namedEntities.begin(), namedEntities.end(),
                   [p](const NamedEntity& candidate) { return StartsWith(p, candidate.text); });
  if (entity == namedEntities.end()) return p + 1;
  if (value != nullptr) value->push_back(entity->character);
  return p + entity->text.size();
}

const char* CommentEnd(const char* p) {
  const char* end = std::strstr(p + std::strlen("<!--"), "-->");
  return end == nullptr ? nullptr : end + std::strlen("-->");
}

const char* CdataEnd(const char* p) {
  const char* end = std::strstr(p + std::strlen("<![CDATA["), "]]>");
  return end == nullptr ? nullptr : end + std::strlen("]]>");
}

const char* UnknownEnd(const char* p) {
  const char* end = std::strchr(p, '>');
  return end == nullptr ? nullptr : end + 1;
}

const char* UnquotedEnd(const char* p, std::string* value) {
  for (; *p != '\0' && !IsSpace(*p) && *p != '/' && *p != '>'; ++p) {
    if (*p == '\'' || *p == '"') return nullptr;
    if (value != nullptr) value->push_back(*p);
  }
  return p;
}

}  // namespace

std::size_t CharacterLength(char lead) {
  const auto byte = static_cast<unsigned char>(lead);
  if (byte < 0xC2 || byte > 0xF4) return 1;
  if (byte < 0xE0) return 2;
  return byte < 0xF0 ? 3 : 4;
}

bool AttributeNames::Insert(std::string_view name) {
  if (set_.empty()) {
    if (std::find(list_.begin(), list_.end(), name) != list_.end()) return false;
    if (list_.size() < maxCompared) {
      list_.push_back(name);
      return true;
    }
    set_.insert(list_.begin(), list_.end());
  }
  return set_.insert(name).second;
}

void AttributeNames::Clear() {
  list_.clear();
  set_.clear();
}

XmlScan XmlWalk::Run() {
  const char* p = Begin();
  while (!IsEnd(p)) p = SkipSpace(AddDepth(p) ? Next(p) : nullptr);
  return scan_;
}

XmlScan XmlWalk::RunFirstDeclaration() {
  const char* p = Begin();
  if (!IsEnd(p) && StartsWithInAnyCase(p, "<?xml")) Declaration(p);
  return scan_;
}

const char* XmlWalk::Begin() {
  if (StartsWith(text_, "\xEF\xBB\xBF")) LearnEncoding(true);
  return SkipSpace(text_);
}

const char* XmlWalk::SkipSpace(const char* p) const {
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
const char* XmlWalk::NextCharacter(const char* p, std::string* value) {
  const std::size_t length = utf8_ ? CharacterLength(*p) : 1;
  if (length != 1) return p + length;
  if (*p == '&') return Reference(p, value);
  if (value != nullptr) value->push_back(*p);
  return p + 1;
}

// A space is one character whatever its byte. So is ASCII, without a look at the locale.
const char* XmlWalk::NextOfText(const char* p) {
  const bool isPlain = static_cast<unsigned char>(*p) < 0x80 && *p != '&';
  return isPlain || IsSpace(*p) ? p + 1 : NextCharacter(p, nullptr);
}

const char* XmlWalk::Reference(const char* p, std::string* value) {
  const char* end = ReferenceEnd(p, value);
  if (end == p + 1) ReportDropped(p);
  return end;
}

bool XmlWalk::AddDepth(const char* p) {
  if (p[0] == '<' && p[1] == '/') return true;
  depths_ += open_.size() + 1;
  if (depths_ > limits_.depths) FailLimit(XmlLimitFault::TooManyDepths);
  return scan_.fault == XmlLimitFault::None;
}

const char* XmlWalk::Next(const char* p) {
  if (*p != '<') return open_.empty() ? nullptr : Text(p);
  if (!open_.empty() && p[1] == '/') return EndTag(p);
  if (StartsWithInAnyCase(p, "<?xml")) return Declaration(p);
  if (StartsWith(p, "<!--")) return CommentEnd(p);
  if (StartsWith(p, "<![CDATA[")) return CdataEnd(p);
  if (p[1] != '!' && IsNameStart(p[1])) return StartTag(p);
  return UnknownEnd(p);
}

const char* XmlWalk::Text(const char* p) {
  while (!IsEnd(p) && *p != '<') p = NextOfText(p);
  return IsEnd(p) || p[1] == '\0' ? nullptr : p;
}

const char* XmlWalk::Declaration(const char* p) {
  std::string encoding;
  const char* end = DeclarationEnd(p + std::strlen("<?xml"), encoding);
  if (end == nullptr) scan_.unfinishedDeclaration = OffsetOf(p);
  if (open_.empty() && !encodingKnown_) {
    const char* name = encoding.c_str();  // it ends at a zero byte of the value's own
    LearnEncoding(*name == '\0' || StartsWithInAnyCase(name, "UTF-8") ||
                  StartsWithInAnyCase(name, "UTF8"));
  }
  return end;
}

const char* XmlWalk::DeclarationEnd(const char* p, std::string& encoding) {
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

const char* XmlWalk::StartTag(const char* p) {
  if (open_.size() == limits_.nesting) return FailLimit(XmlLimitFault::NestedTooDeep);
  const char* name = SkipSpace(p + 1);
  const char* nameEnd = NameEnd(name);
  if (IsEnd(nameEnd)) return nullptr;
  const char* end = AttributesEnd(nameEnd);
  if (end == nullptr) return nullptr;
  if (*end == '/') return end[1] == '>' ? end + 2 : nullptr;
  open_.emplace_back(name, static_cast<std::size_t>(nameEnd - name));
  return end + 1;
}

// At the '/' or '>' after the attributes.
const char* XmlWalk::AttributesEnd(const char* p) {
  attributes_.Clear();
  for (p = SkipSpace(p); !IsEnd(p) && *p != '/' && *p != '>'; p = SkipSpace(p)) {
    std::string_view name;
    p = AttributeEnd(p, &name, nullptr);
    if (IsEnd(p) || !attributes_.Insert(name)) return nullptr;
    if (attributes_.Size() > limits_.attributes) return FailLimit(XmlLimitFault::TooManyAttributes);
  }
  return IsEnd(p) ? nullptr : p;
}

const char* XmlWalk::AttributeEnd(const char* p, std::string_view* name, std::string* value) {
  const char* nameEnd = NameEnd(p);
  if (IsEnd(nameEnd)) return nullptr;
  if (name != nullptr) *name = {p, static_cast<std::size_t>(nameEnd - p)};
  p = SkipSpace(nameEnd);
  if (IsEnd(p) || *p != '=') return nullptr;
  p = SkipSpace(p + 1);
  if (IsEnd(p)) return nullptr;
  return *p == '\'' || *p == '"' ? QuotedEnd(p, value) : UnquotedEnd(p, value);
}

const char* XmlWalk::QuotedEnd(const char* p, std::string* value) {
  const char quote = *p++;
  while (!IsEnd(p) && *p != quote) p = NextCharacter(p, value);
  return IsEnd(p) || p[1] == '\0' ? nullptr : p + 1;
}

const char* XmlWalk::EndTag(const char* p) {
  p += std::strlen("</");
  if (!StartsWith(p, open_.back())) return nullptr;
  p = SkipSpace(p + open_.back().size());
  if (IsEnd(p) || *p != '>') return nullptr;
  open_.pop_back();
  return p + 1;
}

const char* XmlWalk::FailLimit(XmlLimitFault fault) {
  scan_.fault = fault;
  return nullptr;
}

void XmlWalk::LearnEncoding(bool utf8) {
  encodingKnown_ = true;
  utf8_ = utf8;
}

}  // namespace Vornik
