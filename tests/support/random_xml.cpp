#include "random_xml.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace Vornik::Testing {

namespace {

using Words = std::vector<std::string_view>;
using namespace std::string_view_literals;

const Words& LineEnds() {
  static const Words words{"\n"sv, "\r\n"sv, "\r"sv, "\n\n"sv, "\r\r\n"sv, " "sv, "\t"sv, ""sv};
  return words;
}

const Words& Prologues() {
  static const Words words{
      ""sv,
      "\xEF\xBB\xBF"sv,
      "<?xml version=\"1.0\"?>"sv,
      "<?xml version='1.0' encoding='UTF-8'?>"sv,
      "<?XML version='1.0' encoding=\"utf8\" standalone='yes' ?>"sv,
      "<?xml encoding='ISO-8859-1'?>"sv,
      "<?xml encoding='&#85;TF-8'?>"sv,
      "<?xml-stylesheet href='a'?><?xml encoding='utf-8x'?>"sv,
      "<!DOCTYPE CIM><!-- caf\xC3\xA9 -->"sv,
  };
  return words;
}

const Words& OddPrologues() {
  static const Words words{
      "\xEF\xBF\xBE"sv,
      "<?xml version=1.0 encoding=latin1 ?>"sv,
      "<?xml encoding='&#x;x'?>"sv,
      "<?xml version?>"sv,
      "<?xml"sv,
      "<?xml version='1.0' \n"sv,
      "<?other?>"sv,
      "<![CDATA[x]]>"sv,
  };
  return words;
}

// What a value, a name or an attribute's value is put together from.
const Words& Pieces() {
  static const Words words{
      "a"sv,      "Version"sv,  "1.2"sv,          "type"sv,
      " "sv,      "  b"sv,      "&amp;"sv,        "&lt;"sv,
      "&quot;"sv, "&apos;"sv,   "&gt;"sv,         "&#65;"sv,
      "&#x42;"sv, "\xC3\xA9"sv, "\xE2\x82\xAC"sv, "\xF0\x9F\x98\x80"sv,
      "--"sv,
  };
  return words;
}

const Words& OddPieces() {
  static const Words words{
      "&"sv,    "&#0;"sv, "&#;"sv,          "&#x110000;"sv, "&#x400000;"sv, "&#xD;"sv, "&#233;"sv,
      "\xE9"sv, "\xFF"sv, "\xEF\xBB\xBF"sv, "&unknown;"sv,  "]]"sv,         "&#"sv,    "\xC3"sv,
  };
  return words;
}

const Words& Fragments() {
  static const Words words{
      "<"sv,
      ">"sv,
      "/>"sv,
      "</"sv,
      "<a>"sv,
      "</a>"sv,
      "<a b='c'/>"sv,
      "<a b=c d=e>"sv,
      "<a b='1' b='2'>"sv,
      "='"sv,
      "'"sv,
      "\""sv,
      "="sv,
      "&#"sv,
      "&#x"sv,
      "&"sv,
      ";"sv,
      "x41;"sv,
      "#65;"sv,
      "<!--"sv,
      "-->"sv,
      "<![CDATA["sv,
      "]]>"sv,
      "<!"sv,
      "<?"sv,
      "?>"sv,
      "<?xml "sv,
      "encoding="sv,
      "version='1'"sv,
      "\0"sv,
      "\0\0<b>"sv,
      "\r"sv,
      "\r\n"sv,
      "\n\r"sv,
      "\xEF\xBB\xBF"sv,
      "\xEF\xBF\xBF"sv,
      "\xC3"sv,
      "\xE2\x82"sv,
      "\xEF"sv,
      "\xF0\x9F"sv,
      "\xF0"sv,
      "\x80"sv,
      "<VALUE>"sv,
      "</VALUE>"sv,
      "<PROPERTY NAME='n'>"sv,
      "</PROPERTY>"sv,
      "<INSTANCE CLASSNAME='c'>"sv,
      "</INSTANCE>"sv,
      "<INSTANCE A='c'>"sv,
      "text"sv,
      " "sv,
      "<_/>"sv,
      "<\xEF\xBB\xBF"
      "a/>"sv,
  };
  return words;
}

class DescriptorWriter {
 public:
  explicit DescriptorWriter(RandomPick& pick) : pick_(pick) {}

  std::string Write() {
    text_ = Of(pick_.OneIn(6) ? OddPrologues() : Prologues());
    Space();
    Element("CIM", "", [this] { Instances(3); });
    if (pick_.OneIn(4)) text_ += Of(Prologues());
    Space();
    return std::move(text_);
  }

 private:
  std::string_view Of(const Words& words) { return pick_.Of(words); }

  void Space() { text_ += Of(LineEnds()); }

  void Phrase(std::size_t most) {
    for (const std::string_view piece : pick_.Some(Pieces(), most)) text_ += piece;
    if (pick_.OneIn(20)) text_ += Of(OddPieces());
  }

  template <typename Content>
  void Element(std::string_view name, std::string_view attributes, Content content) {
    text_.append("<").append(name);
    Space();
    if (!attributes.empty()) text_.append(" ").append(attributes);
    text_ += ">";
    Space();
    content();
    Space();
    text_.append("</").append(name);
    if (pick_.OneIn(8)) Space();
    text_ += ">";
  }

  void Instances(int depth) {
    static const Words attributes{"CLASSNAME='U'"sv, "CLASSNAME=\"P\" NAME='x'"sv, "CLASSNAME=''"sv,
                                  ""sv, "CLASSNAME=U"sv};
    static const Words misfits{"NAME='x' CLASSNAME='U'"sv, "classname='U'"sv};
    for (std::size_t left = pick_.Below(4) + 1; left != 0; --left) {
      if (depth == 0 || pick_.OneIn(3)) {
        Property();
      } else {
        Element("INSTANCE", Of(pick_.OneIn(30) ? misfits : attributes),
                [this, depth] { Instances(depth - 1); });
      }
    }
  }

  void Attribute(std::string_view name) {
    const char quote = pick_.OneIn(3) ? '\'' : '"';
    text_.append(" ").append(name).append("=");
    text_ += quote;
    Phrase(3);
    text_ += quote;
  }

  void Property() {
    const bool isArray = pick_.OneIn(3);
    const std::string_view name =
        pick_.OneIn(20) ? "property"sv : (isArray ? "PROPERTY.ARRAY"sv : "PROPERTY"sv);
    text_.append("<").append(name);
    if (!pick_.OneIn(8)) Attribute("NAME");
    if (pick_.OneIn(2)) Attribute("TYPE");
    if (pick_.OneIn(8)) Attribute("other");
    if (pick_.OneIn(10)) {
      text_ += "/>";
      return;
    }
    text_ += ">";
    Space();
    Values(isArray != pick_.OneIn(15));
    text_.append("</").append(name).append(">");
  }

  void Values(bool inArray) {
    const auto values = [this] {
      for (std::size_t left = pick_.Below(4); left != 0; --left) {
        Element("VALUE", "", [this] { ValueContent(); });
      }
    };
    if (inArray) {
      Element("VALUE.ARRAY", "", values);
    } else {
      values();
    }
    if (pick_.OneIn(15)) Property();
  }

  void ValueContent() {
    static const Words odd{"<![CDATA[ <raw> &amp; ]]>"sv,
                           "<![CDATA[]]>"sv,
                           "<!-- no text -->"sv,
                           "<b>inner</b>"sv,
                           "<?xml inside?>"sv,
                           "<!ignored>"sv};
    Phrase(4);
    if (pick_.OneIn(4)) text_ += Of(odd);
    if (pick_.OneIn(4)) Phrase(2);
  }

  RandomPick& pick_;
  std::string text_;
};

void Mutate(std::string& text, RandomPick& pick) {
  const std::size_t at = pick.Below(text.size() + 1);
  const std::size_t length = std::min(pick.Below(12) + 1, text.size() - at);
  switch (pick.Below(6)) {
    case 0:
      text.erase(at, length);
      break;
    case 1:
      text.insert(pick.Below(text.size() + 1), std::string(text, at, length));
      break;
    case 2:
      text.resize(at);
      break;
    case 3:
      if (at != text.size()) text[at] = static_cast<char>(pick.Below(256));
      break;
    default:
      text.insert(at, pick.Of(Fragments()));
      break;
  }
}

std::string Soup(RandomPick& pick) {
  std::string text(pick.Of(pick.OneIn(3) ? OddPrologues() : Prologues()));
  for (std::size_t left = pick.Below(24); left != 0; --left) {
    text += pick.Of(pick.OneIn(4) ? OddPieces() : Fragments());
  }
  return text;
}

}  // namespace

std::string RandomXml(RandomPick& pick) {
  if (pick.OneIn(5)) return Soup(pick);
  std::string text = DescriptorWriter(pick).Write();
  if (pick.OneIn(2)) return text;
  for (std::size_t left = pick.Below(4) + 1; left != 0; --left) Mutate(text, pick);
  return text;
}

}  // namespace Vornik::Testing
