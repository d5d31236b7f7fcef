#include "reading/descriptor_markers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/literals.h"
#include "plain_markers.h"
#include "temp_folder.h"
#include "test_random.h"

namespace Vornik {

static bool operator==(const DescriptorMarkers& a, const DescriptorMarkers& b) {
  return a.pack == b.pack && a.individual == b.individual;
}

static void PrintTo(const DescriptorMarkers& markers, std::ostream* out) {
  *out << (markers.pack ? "pack " : "") << (markers.individual ? "individual" : "");
}

namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;
using Testing::RandomPick;

const std::string pack = "ORXQDL_SystemUpdateProduct";
const std::string individual = "SystemUpdateElement";

constexpr DescriptorMarkers neither{};
constexpr DescriptorMarkers isPack{true, false};
constexpr DescriptorMarkers isIndividual{false, true};
constexpr DescriptorMarkers isBoth{true, true};

std::string Fill(std::size_t length) { return std::string(length, '.'); }

TEST(DescriptorMarkers, AreFoundWithinOnePieceOfALine) {
  const std::size_t last = 1'023 - individual.size();
  const std::pair<std::string, DescriptorMarkers> cases[] = {
      {"", neither},
      {"plain", neither},
      {pack, isPack},
      {individual, isIndividual},
      {pack + individual, isBoth},
      {"a\nb <" + individual + ">\n" + pack + "\n", isBoth},
      {"ORXQDL_SystemUpdateProductX", isPack},
      {"orxqdl_systemupdateproduct systemupdateelement", neither},
      {"SystemUpdateProduct ORXQDL_SystemUpdate", neither},
      {"SystemSystemUpdateElement", isIndividual},
      // Line ends.
      {"SystemUpdate\nElement", neither},
      {"SystemUpdate\r\nElement", neither},
      {"\r" + individual + "\r", isIndividual},
      // Borders of pieces.
      {Fill(last) + individual, isIndividual},
      {Fill(last + 1) + individual, neither},
      {Fill(1'022) + individual, neither},
      {Fill(1'023) + individual, isIndividual},
      {Fill(last) + individual + "\n" + Fill(last + 1) + pack, isIndividual},
      {Fill(1'022) + "\n" + Fill(last) + individual, isIndividual},
      {Fill(1'023) + "\n" + Fill(last) + individual, isIndividual},
      {Fill(1'023) + "\n" + Fill(last + 1) + individual, neither},
      {Fill(10) + "\n" + Fill(last) + individual, isIndividual},
      {Fill(10) + "\n" + Fill(last + 1) + individual, neither},
      {Fill(1'023 + last) + individual, isIndividual},
      {Fill(1'023 + last + 1) + individual, neither},
      {Fill(last + 1) + individual + individual, isIndividual},
      {Fill(1'023 * 5 - 10) + individual + Fill(1'023 - individual.size()) + individual, neither},
      // Zero bytes.
      {"\0"s + individual, neither},
      {individual + "\0"s, isIndividual},
      {"\0\n"s + individual, isIndividual},
      {"\n\0"s + individual, neither},
      {"\0"s + individual + "\n" + individual, isIndividual},
      {"\0"s + Fill(1'021) + individual, neither},
      {"\0"s + Fill(1'022) + individual, isIndividual},
      {Fill(1'023) + "\0"s + individual, neither},
      {"SystemUpdate\0Element"s, neither},
      {"\0"s + individual + Fill(1'022 - individual.size()) + individual, isIndividual},
      {"\0"s + pack + "\n" + individual, isIndividual},
  };
  for (const auto& [text, markers] : cases) {
    EXPECT_EQ(FindMarkers(text), markers)
        << text.size() << " bytes: " << testing::PrintToString(text.substr(0, 80));
  }
}

TEST(DescriptorMarkers, PackMarkerGoesBeforeTheOther) {
  EXPECT_TRUE(IsKovuText(isPack));
  EXPECT_TRUE(IsKovuText(isBoth));
  EXPECT_FALSE(IsKovuText(isIndividual));
  EXPECT_FALSE(IsKovuText(neither));
  EXPECT_TRUE(IsIndividualText(isIndividual));
  EXPECT_FALSE(IsIndividualText(isBoth));
  EXPECT_FALSE(IsIndividualText(isPack));
  EXPECT_FALSE(IsIndividualText(neither));
}

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

void AddMarkersOf(const char* line, DescriptorMarkers& markers) {
  if (std::strstr(line, "ORXQDL_SystemUpdateProduct") != nullptr) markers.pack = true;
  if (std::strstr(line, "SystemUpdateElement") != nullptr) markers.individual = true;
}

// What fgets and strstr find in a file of these bytes.
DescriptorMarkers MarkersByFgets(std::FILE* file, std::string_view text) {
  std::rewind(file);
  EXPECT_EQ(std::fwrite(text.data(), 1, text.size(), file), text.size());
  std::rewind(file);
  DescriptorMarkers markers;
  char line[1024] = {};
  std::size_t left = text.size();
  while (left != 0) {
    // No more than what was written this time: the file may be longer.
    const std::size_t most = std::min(sizeof line, left + 1);
    const long before = std::ftell(file);
    if (std::fgets(line, static_cast<int>(most), file) == nullptr) break;
    left -= static_cast<std::size_t>(std::ftell(file) - before);
    AddMarkersOf(line, markers);
  }
  return markers;
}

// Of the bytes as they are read, in parts of so many bytes.
DescriptorMarkers MarkersOfParts(std::string_view bytes, std::size_t length = 16'384,
                                 TextMode mode = nativeTextMode) {
  MarkerSearch search(mode);
  for (std::size_t at = 0; at < bytes.size(); at += length) search.Feed(bytes.substr(at, length));
  return search.Found();
}

std::string RandomText(RandomPick& pick) {
  static const std::vector<std::string> words{
      pack,      individual, individual.substr(0, 12), pack.substr(7), "\n", "\r\n", "\0"s, "\0\n"s,
      "Element", "Product"};
  static const std::vector<std::size_t> lengths{1, 5, 979, 997, 1'000, 1'004, 1'022, 1'023, 1'024};
  std::string text;
  for (std::size_t left = pick.Below(8); left != 0; --left) {
    text +=
        pick.OneIn(2) ? pick.Of(words) : Fill(pick.OneIn(2) ? pick.Of(lengths) : pick.Below(1'100));
  }
  return text;
}

TEST(DescriptorMarkers, AreFoundAsFgetsYieldsTheText) {
  const File file(std::tmpfile(), &std::fclose);
  ASSERT_NE(file, nullptr);
  Testing::TestRandom pick;
  const std::size_t texts = pick.Rounds(50'000);
  std::size_t found = 0;
  std::size_t missed = 0;
  for (std::size_t i = 0; i < texts; ++i) {
    const std::string text = RandomText(pick);
    const DescriptorMarkers plain = MarkersByFgets(file.get(), text);
    ASSERT_EQ(Testing::PlainMarkers(text), plain) << "text " << i;
    ASSERT_EQ(FindMarkers(text), plain) << "text " << i << ": " << testing::PrintToString(text);
    if (plain.pack || plain.individual) ++found;
    if (!plain.individual && text.find(individual) != std::string::npos) ++missed;
  }
  if (!pick.RunsAllRounds()) return;
  EXPECT_GT(found, texts / 5);
  EXPECT_GT(missed, texts / 100);
}

// The test instruction_budget counts what a byte costs; here a large text has to be right.
TEST(DescriptorMarkers, LongTextHasTheSameAnswer) {
  std::string text;
  text.reserve(60'000'000);
  const std::string piece =
      "\0"s + pack + individual + Fill(1'022 - pack.size() - individual.size());
  while (text.size() < 50'000'000) text += piece;
  EXPECT_EQ(FindMarkers(text), neither);
}

TEST(TextMode, Translation) {
  const std::pair<std::string_view, std::string_view> cases[] = {
      {""sv, ""sv},
      {"a\nb"sv, "a\nb"sv},
      {"a\r\nb\r\n"sv, "a\nb\n"sv},
      {"a\rb\r"sv, "a\rb\r"sv},
      {"\r\r\n\n\r"sv, "\r\n\n\r"sv},
      {"a\x1A"
       "b"sv,
       "a"sv},
      {"a\x1A\n\x1A"sv, "a"sv},
      {"a\r\x1A\n"sv, "a\r"sv},
      {"\x1A"sv, ""sv},
      {"a\0\r\n\0"sv, "a\0\n\0"sv},
      {"\r\n\r\n"sv, "\n\n"sv},
  };
  for (const auto& [bytes, text] : cases) {
    EXPECT_EQ(TranslateTextMode(bytes), text) << testing::PrintToString(bytes);
    EXPECT_EQ(Testing::PlainTextMode(bytes), text) << testing::PrintToString(bytes);
  }
}

std::string ReadInTextMode(const std::string& path) {
  const File file(std::fopen(path.c_str(), "r"), &std::fclose);
  std::string text(10'000, '\0');
  text.resize(std::fread(text.data(), 1, text.size(), file.get()));
  return text;
}

DescriptorMarkers MarkersInTextMode(const std::string& path) {
  const File file(std::fopen(path.c_str(), "r"), &std::fclose);
  DescriptorMarkers markers;
  char line[1024] = {};
  while (std::fgets(line, sizeof line, file.get()) != nullptr) AddMarkersOf(line, markers);
  return markers;
}

TEST(TextMode, IsThatOfTheCLibrary) {
  const std::vector<std::string> words{"\r\n", "\r", "\n", "\r\r\n", individual, pack, "\x1A"};
  const Testing::TempFolder folder;
  Testing::TestRandom pick;
  const std::size_t rounds = pick.Rounds(500);
  std::size_t cut = 0;
  for (std::size_t i = 0; i < rounds; ++i) {
    std::string bytes;
    for (std::size_t left = pick.Below(12); left != 0; --left) {
      // The end is rare, or nothing would stand behind it.
      const std::string& word = pick.Of(words);
      if (word != words.back() || pick.OneIn(4)) bytes += word;
      if (pick.OneIn(2)) bytes += Fill(pick.OneIn(2) ? pick.Below(5) : 985 + pick.Below(40));
    }
    const std::string path = folder.Write("text", bytes);
    ASSERT_EQ(MarkersOfParts(bytes), MarkersInTextMode(path)) << testing::PrintToString(bytes);
    if (bytes.find('\x1A') != std::string::npos) ++cut;
#ifdef _WIN32
    ASSERT_EQ(TranslateTextMode(bytes), ReadInTextMode(path)) << testing::PrintToString(bytes);
#else
    ASSERT_EQ(bytes, ReadInTextMode(path));
#endif
  }
  if (pick.RunsAllRounds()) {
    EXPECT_GT(cut, 50U);
  }
}

TEST(TextMode, OfTheSystem) {
#ifdef _WIN32
  constexpr bool hasTextMode = true;
#else
  constexpr bool hasTextMode = false;
#endif
  const std::string marker(Marker::individual);
  EXPECT_EQ(MarkersOfParts("\x1A" + marker).individual, !hasTextMode);
  // Carriage returns that are not counted move the marker from across a piece's end into the piece.
  const std::string piece = std::string(1'023 - marker.size(), ' ');
  EXPECT_TRUE(MarkersOfParts(piece + marker + "\r\n").individual);
  EXPECT_FALSE(MarkersOfParts(piece + ' ' + marker + "\r\n").individual);
}

// Parts of one byte, of a piece and its neighbours, and of any length.
TEST(MarkerSearch, FindsInPartsWhatThePlainSearchFindsInTheWhole) {
  Testing::TestRandom pick;
  const std::size_t texts = pick.Rounds(20'000);
  std::size_t found = 0;
  std::size_t hidden = 0;
  for (std::size_t i = 0; i < texts; ++i) {
    std::string bytes = RandomText(pick);
    if (pick.OneIn(8)) bytes.insert(pick.Below(bytes.size() + 1), "\x1A");
    const auto mode = pick.OneIn(2) ? TextMode::Windows : TextMode::Posix;
    const std::string text = mode == TextMode::Windows ? Testing::PlainTextMode(bytes) : bytes;
    const DescriptorMarkers plain = Testing::PlainMarkers(text);
    const std::size_t lengths[] = {1 + pick.Below(30), 1'022, 1'023, 1'024, 1 + pick.Below(3'000)};
    for (const std::size_t length : lengths) {
      ASSERT_EQ(MarkersOfParts(bytes, length, mode), plain)
          << "parts of " << length << ": " << testing::PrintToString(bytes);
    }
    if (!(plain == neither)) ++found;
    if (plain == neither && bytes.find(individual) != std::string::npos) ++hidden;
  }
  if (pick.RunsAllRounds()) {
    EXPECT_GT(found, texts / 4);
    EXPECT_GT(hidden, texts / 100);
  }
}

TEST(TextModeTranslation, GivesInPartsWhatItGivesOfTheWhole) {
  const std::string bytes = "a\r\nb\r\r\n\rc\n\r\r\x1A\r\nd";
  for (std::size_t length = 1; length <= bytes.size(); ++length) {
    TextModeTranslation translation;
    std::string text;
    for (std::size_t at = 0; at < bytes.size(); at += length) {
      text += translation.Translate(std::string_view(bytes).substr(at, length));
    }
    if (translation.HasPendingReturn()) text += '\r';
    EXPECT_EQ(text, Testing::PlainTextMode(bytes)) << length;
  }
}

}  // namespace
}  // namespace Vornik
