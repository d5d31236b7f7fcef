// Loads documents that TinyXML as its authors left it cannot take, by TinyXML alone or as the
// library does it. Built twice, with that TinyXML and with the one that the library ships with.
//
//   xml_probe direct loop|assertion   TinyXML alone; as its authors left it, it does not get
//   through xml_probe loader loop|assertion   the library's loader xml_probe answers the loader's
//   answers to many documents, a line each
#include <tinyxml.h>

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <string>
#include <vector>

#include "inspection/xml_places.h"
#include "random_xml.h"
#include "reading/cimxml.h"

namespace Vornik::Testing {
namespace {

using namespace std::string_literals;

std::string Hazard(const std::string& name) {
  // The byte 0xEF takes the two behind it along, but where one of them is zero, counting columns
  // never gets past it.
  if (name == "loop") return "<?xml encoding='UTF-8'?><a>\xEF\0\0<b/></a>"s;
  // Behind the blank, the declaration's next name is asked for where the text has ended.
  if (name == "assertion") return "<?xml \0?><a/>"s;
  return {};
}

void ParseDirectly(const std::string& text) {
  const std::string padded = text + std::string(8, '\0');
  TiXmlDocument document;
  document.Parse(padded.c_str(), nullptr, TIXML_ENCODING_UTF8);
}

std::string Show(const DescriptorReading& reading, const SupXmlProperties& properties) {
  std::string shown = std::to_string(static_cast<int>(reading.fault)) + ' ' + reading.parserText +
                      ' ' + std::to_string(reading.line) + ':' + std::to_string(reading.column);
  for (const SupXmlProperty& property : properties) {
    shown += ' ' + property.name + '=';
    for (const std::string& value : property.values) shown += value + '|';
  }
  std::replace(shown.begin(), shown.end(), '\n', ' ');
  return shown;
}

std::string Answer(const std::string& text, DescriptorKind kind, Positions positions) {
  const PreparedXml xml = PrepareXml(text);
  const bool isTracked = positions == Positions::Tracked;
  CimXmlDocument document;
  const ParseOutcome outcome = document.Parse(xml, kind, isTracked ? PositionsIn(xml) : positions);
  DescriptorReading reading;
  reading.fault = outcome.fault;
  reading.parserText = outcome.parserText;
  reading.line = outcome.line;
  reading.column = outcome.column;
  if (isTracked) PlaceFault(xml, reading);
  const TiXmlNode* root = document.Root();
  const TextPosition place = root == nullptr ? TextPosition() : PlaceOf(*root);
  return Show(reading, ReadProperties(root)) + (root == nullptr ? " no root " : " ") +
         std::to_string(place.line) + ':' + std::to_string(place.column);
}

void PrintAnswers(const std::string& text) {
  std::cout << Answer(text, DescriptorKind::Individual, Positions::Tracked) << '\n'
            << Answer(text, DescriptorKind::Pack, Positions::Ignored) << '\n';
}

// Every text of some of these words.
void AnswerCombinations(const std::string& text, int words) {
  static const std::vector<std::string> parts{"\xEF",  "\xBB", "\xBF",     "\0"s, "\n",  " ",
                                              "<?xml", "?>",   " version", "='",  "<a>", "</a>"};
  PrintAnswers(text);
  if (words == 0) return;
  for (const std::string& part : parts) AnswerCombinations(text + part, words - 1);
}

void AnswerEverything() {
  AnswerCombinations("", 4);
  AnswerCombinations("\xEF\xBB\xBF<r>", 4);
  AnswerCombinations("<?xml", 3);
  RandomPick pick(20'261'121);
  for (int i = 0; i < 20'000; ++i) PrintAnswers(RandomXml(pick));
}

int Run(const std::vector<std::string>& arguments) {
  const std::string what = arguments.empty() ? "" : arguments.front();
  const std::string hazard = arguments.size() == 2 ? Hazard(arguments.back()) : "";
  if (what == "direct" && !hazard.empty()) {
    ParseDirectly(hazard);
  } else if (what == "loader" && !hazard.empty()) {
    PrintAnswers(hazard);
  } else if (what == "answers") {
    AnswerEverything();
  } else {
    return 2;
  }
  std::cout << "done\n";
  return 0;
}

}  // namespace
}  // namespace Vornik::Testing

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);  // it prints much
  return Vornik::Testing::Run(std::vector<std::string>(argv + 1, argv + argc));
}
