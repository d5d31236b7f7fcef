// Questions as an administrator asks them, with the whole answers: tests/cli/transcripts.
// docs/testing.md says how to write one.
#include <gtest/gtest.h>

#include <algorithm>
#include <boost/filesystem/directory.hpp>
#include <boost/filesystem/path.hpp>
#include <cctype>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "program.h"
#include "project_file.h"
#include "text_diff.h"

namespace Vornik::Testing {
namespace {

namespace fs = boost::filesystem;

const fs::path transcriptRoot = ProjectFile("tests/cli/transcripts");

std::vector<std::string> FindTranscripts() {
  std::vector<std::string> names;
  for (const auto& one : fs::directory_iterator(transcriptRoot)) {
    if (one.path().extension() == ".txt") names.push_back(one.path().stem().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

// What a word of a transcript means.
struct Place {
  std::string word;
  std::string path;
};

std::vector<Place> Places() {
  return {{"{sample}", fs::path(ProjectFile("examples/repository")).make_preferred().string()},
          {"{folders}", fs::path(transcriptRoot / "folders").make_preferred().string()}};
}

std::string WithPath(std::string argument) {
  for (const Place& place : Places()) {
    if (argument.rfind(place.word, 0) == 0) argument.replace(0, place.word.size(), place.path);
  }
  return fs::path(argument).make_preferred().string();
}

// The same on every system: words in place of paths, slashes after them, and line feeds.
std::string Neutral(std::string text) {
  text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
  for (const Place& place : Places()) {
    for (std::size_t at = 0; (at = text.find(place.path, at)) != std::string::npos;) {
      text.replace(at, place.path.size(), place.word);
      for (at += place.word.size(); at < text.size() && text[at] != ' ' && text[at] != '\n'; ++at) {
        if (text[at] == '\\') text[at] = '/';
      }
    }
  }
  return text;
}

struct Transcript {
  std::string question;  // a line that begins with #
  std::string command;   // a line that begins with $
  std::string answer;    // what the program prints, and its exit status
};

Transcript Read(const fs::path& file) {
  std::istringstream lines(Neutral(ReadFile(file.string())));
  Transcript transcript;
  std::getline(lines, transcript.question);
  std::getline(lines, transcript.command);
  if (transcript.question.rfind("# ", 0) != 0 ||
      transcript.command.rfind("$ querypackage-cli ", 0) != 0) {
    throw std::runtime_error(file.string() + ": no question, or no command");
  }
  std::ostringstream rest;
  rest << lines.rdbuf();
  transcript.answer = rest.str();
  return transcript;
}

Outcome RunCommand(const std::string& command) {
  std::istringstream words(command);
  Arguments arguments;
  for (std::string word; words >> word;) {
    arguments.push_back(word[0] == '{' ? WithPath(word) : word);
  }
  arguments.erase(arguments.begin(), arguments.begin() + 2);
  return RunCli(arguments);
}

std::string AnswerOf(const Outcome& outcome) {
  std::string answer = Neutral(outcome.out);
  for (const std::string& line : LinesOf(Neutral(outcome.err))) {
    answer += "(standard error) " + line + '\n';
  }
  return answer + "(exit status) " + std::to_string(outcome.status) + '\n';
}

class TranscriptTest : public testing::TestWithParam<std::string> {};

// A run that rewrites a file fails, so that no check can pass by rewriting what it expects.
TEST_P(TranscriptTest, IsWhatTheProgramPrints) {
  const fs::path file = transcriptRoot / (GetParam() + ".txt");
  const Transcript transcript = Read(file);
  const std::string answer = AnswerOf(RunCommand(transcript.command));
  const std::string diff = TextDiff(transcript.answer, answer);
  if (std::getenv("QUERYPACKAGE_REWRITE_TRANSCRIPTS") != nullptr) {
    std::ofstream(file.string(), std::ios::binary) << transcript.question << '\n'
                                                   << transcript.command << '\n'
                                                   << answer;
    ADD_FAILURE() << file.string() << (diff.empty() ? " is the same" : " is rewritten:\n") << diff
                  << "Run without QUERYPACKAGE_REWRITE_TRANSCRIPTS to test.";
    return;
  }
  EXPECT_EQ(diff, "") << file.string();
}

TEST(TranscriptsTest, ThereAreTen) { EXPECT_GE(FindTranscripts().size(), 10U); }

TEST(TranscriptsTest, PackageThatTwoFiltersRefuseHasAShortAnswer) {
  const Transcript transcript = Read(transcriptRoot / "refused-by-two-filters.txt");
  EXPECT_NE(transcript.answer.find(": REFUSED by platform, kovu. "), std::string::npos);
  EXPECT_LE(LinesOf(transcript.answer).size(), 16U) << "15, and the exit status";
}

std::string TestName(const testing::TestParamInfo<std::string>& info) {
  std::string name = info.param;
  std::replace_if(
      name.begin(), name.end(),
      [](char c) { return std::isalnum(static_cast<unsigned char>(c)) == 0; }, '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(, TranscriptTest, testing::ValuesIn(FindTranscripts()), TestName);

}  // namespace
}  // namespace Vornik::Testing
