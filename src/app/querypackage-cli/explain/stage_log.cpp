#include "explain/stage_log.h"

#include <algorithm>
#include <initializer_list>
#include <iterator>

#include "log_texts.h"

namespace Vornik::Cli {

namespace {

using Texts = std::vector<std::string>;

// The lines between a stage's two.
Texts LinesOfStage(const LogLines& log, const StageText& stage) {
  const auto is = [](const char* text) {
    return [text](const LogLine& line) { return line.text == text; };
  };
  const auto start = std::find_if(log.begin(), log.end(), is(stage.start));
  if (start == log.end()) return {};
  const auto end = std::find_if(start, log.end(), is(stage.end));
  Texts texts;
  std::transform(std::next(start), end, std::back_inserter(texts),
                 [](const LogLine& line) { return line.text; });
  return texts;
}

// Whether text is the last line that a filter writes about a package of that code.
bool IsLastLine(FilterId filter, const std::string& code, const std::string& text) {
  const auto isVerdict = [&](const char* matched, const char* notMatched) {
    return text == code + matched || text == code + notMatched;
  };
  const auto isOneOf = [&text](std::initializer_list<const char*> errors) {
    return std::find(errors.begin(), errors.end(), text) != errors.end();
  };
  switch (filter) {
    case FilterId::Platform:
      return isVerdict(LogText::platformMatched, LogText::platformNotMatched) ||
             isOneOf({LogText::noProperties, LogText::noMachineTypeList, LogText::noOsList,
                      LogText::noArchitectureList});
    case FilterId::Kovu:
      return isVerdict(LogText::kovuMatched, LogText::kovuNotMatched);
    case FilterId::Sep:
      return isVerdict(LogText::sepMatched, LogText::sepNotMatched);
    case FilterId::PayloadExist:
      return isVerdict(LogText::payloadExistMatched, LogText::payloadExistNotMatched);
    case FilterId::IncludeId:
      return isVerdict(LogText::includeIdMatched, LogText::includeIdNotMatched);
    case FilterId::ExcludeId:
      return isVerdict(LogText::excludeIdMatched, LogText::excludeIdNotMatched);
    case FilterId::UpdateType:
      return isVerdict(LogText::updateTypeMatched, LogText::updateTypeNotMatched) ||
             isOneOf({LogText::noProperties, LogText::noUpdateType});
    case FilterId::Duplicate:
    case FilterId::Supersede:
      break;
  }
  return false;
}

// A filter goes through the records in order and writes one last line about each.
Texts LinesInTurn(const Texts& stage, FilterId filter,
                  const std::vector<QueryPackageResult>& records, std::size_t index) {
  auto from = stage.begin();
  for (std::size_t i = 0; i <= index; ++i) {
    const auto last = std::find_if(from, stage.end(), [&](const std::string& text) {
      return IsLastLine(filter, records[i].identificationCode, text);
    });
    if (last == stage.end()) return {};
    if (i == index) return Texts(from, std::next(last));
    from = std::next(last);
  }
  return {};
}

Texts RepeatsOf(const Texts& stage, const std::string& code) {
  Texts repeats;
  std::copy(stage.begin(), stage.end(), std::back_inserter(repeats));
  repeats.erase(std::remove_if(repeats.begin(), repeats.end(),
                               [&code](const std::string& text) {
                                 return text != code + LogText::duplicateDropped;
                               }),
                repeats.end());
  return repeats;
}

bool BeginsAnotherFile(const std::string& text) {
  const auto endsWith = [&text](const std::string& end) {
    return text.size() >= end.size() &&
           text.compare(text.size() - end.size(), end.size(), end) == 0;
  };
  return endsWith(LogText::isKovuXml) || endsWith(LogText::isNotKovuXml) ||
         text == LogText::parseFolder.end;
}

}  // namespace

std::vector<std::string> LinesOfRecord(const LogLines& log, FilterId filter,
                                       const std::vector<QueryPackageResult>& records,
                                       std::size_t index) {
  const Texts stage = LinesOfStage(log, FilterOf(filter).stage);
  const std::string& code = records[index].identificationCode;
  if (filter == FilterId::Duplicate) return RepeatsOf(stage, code);
  if (filter == FilterId::Supersede) return code.empty() ? stage : Texts();
  return LinesInTurn(stage, filter, records, index);
}

std::vector<std::string> LinesOfFile(const LogLines& log, const std::string& path,
                                     const std::string& name) {
  Texts errors;
  auto line = std::find_if(log.begin(), log.end(), [&path](const LogLine& candidate) {
    return candidate.text == path + LogText::isKovuXml ||
           candidate.text == path + LogText::isNotKovuXml;
  });
  if (line == log.end()) return errors;
  for (++line; line != log.end() && !BeginsAnotherFile(line->text); ++line) {
    if (line->level == LogLevel::error) errors.push_back(line->text);
    if (line->text == name + LogText::notValidXml) break;
  }
  return errors;
}

}  // namespace Vornik::Cli
