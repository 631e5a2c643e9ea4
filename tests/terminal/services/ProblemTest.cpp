#include "feed/recording/MalformedLines.h"
#include "terminal/services/LanguageTexts.h"

#include <gtest/gtest.h>

#include <set>

namespace Terminal {
namespace {

using Data::TProblem;
using enum Data::TProblemCode;

constexpr int languages[] = {Constdef::Language_TraditionalChinese,
                             Constdef::Language_SimplifiedChinese, Constdef::Language_English};

/// What stands behind the percent signs of a text; the sign itself where nothing does.
std::set<char> PlacesIn(std::string_view text) {
  std::set<char> places;
  for (std::size_t i = 0; i < text.size(); ++i)
    if (text[i] == '%')
      places.insert(i + 1 < text.size() ? text[i + 1] : '%');
  return places;
}

TEST(Problems, EveryCodeHasASentenceInEveryLanguage) {
  std::map<int, std::set<std::string_view>> sentences;
  for (std::size_t code = 0; code < std::size(problemTexts); ++code) {
    const TProblemRow& row = problemTexts[code];
    ASSERT_EQ(static_cast<std::size_t>(row.Key), code) << "no row, or not in the order of codes";
    for (const int language : languages) {
      const std::string_view text = row.In(language);
      EXPECT_TRUE(text.ends_with(language == Constdef::Language_English ? "." : "。"))
          << "code " << code << " in language " << language << ": " << text;
      EXPECT_TRUE(sentences[language].insert(text).second) << text << " stands twice";
    }
    EXPECT_NE(row.TraditionalChinese, row.English);
    EXPECT_NE(row.SimplifiedChinese, row.English);
  }
}

TEST(Problems, EverySentenceNamesTheSamePartsInEveryLanguage) {
  for (const TProblemRow& row : problemTexts) {
    const auto places = PlacesIn(row.English);
    char expected = '1';
    for (const char place : places)
      EXPECT_EQ(place, expected++) << row.English;
    for (const int language : languages) {
      EXPECT_EQ(PlacesIn(row.In(language)), places) << row.In(language);
      TProblem problem{row.Key, {}};
      for (const char place : places)
        problem.Parts.push_back(std::string("<") + place + ">");
      const std::string sentence = Sentence(problem, language);
      EXPECT_EQ(sentence.find('%'), std::string::npos) << sentence;
      for (const auto& part : problem.Parts)
        EXPECT_NE(sentence.find(part), std::string::npos) << sentence;
    }
  }
}

TEST(Problems, APartIsTakenAsItIs) {
  const TProblem problem{OptionValueUnknown, {"%2", "100 %1"}};
  EXPECT_EQ(Sentence(problem, Constdef::Language_English),
            "The option %2 does not take the value \"100 %1\".");
  EXPECT_EQ(Sentence({OptionValueUnknown, {"--mode"}}, Constdef::Language_English),
            "The option --mode does not take the value \"\".");
}

TEST(Problems, AMalformedLineIsSaidWordForWord) {
  for (const auto& malformed : RecordingTest::MalformedLines())
    EXPECT_EQ(Sentence(malformed.Problem, Constdef::Language_English), malformed.Sentence)
        << malformed.Line;
}

TEST(Problems, AreSaidWordForWord) {
  const struct {
    TProblem Problem;
    const char* Sentence;
  } cases[] = {
      {{FileMissing}, "The file does not exist."},
      {{NotAFile}, "This is not a file."},
      {{FileUnreadable}, "The file cannot be read."},
      {{FileUnwritable}, "The file cannot be written."},
      {{RecordingIncomplete}, "The recording could not be written to the end."},
      {{LineTooLong}, "The line is longer than 4 MiB."},
      {{HeaderNotFirst}, "A header may only be the first line."},
      {{TimeGoesBack, {"10:00:02.000000", "10:00:01.000000"}},
       "The time goes back from 10:00:02.000000 to 10:00:01.000000."},
      {{ScriptUnreadable, {"a.txt"}}, "The script a.txt cannot be read."},
      {{NoDisplay}, "There is no display, so the terminal runs without windows."},
      {{PackageIncomplete, {"a.so"}}, "a.so is not a package: the file is incomplete."},
      {{PackageNotLoadable, {"a.so", "why"}}, "a.so is not a package: it cannot be loaded (why)."},
      {{PackageOfOtherVersion, {"a.so", "2", "1"}},
       "The package a.so was built for contract version 2, but this terminal has version 1."},
      {{PackageWithoutClass, {"a.so", "TClass"}},
       "The package a.so does not register the class TClass."},
      {{PackageClassNotAView, {"a.so", "TClass"}},
       "The class TClass of the package a.so is not a view."},
      {{PackageFails, {"a.so", "why"}}, "The package a.so fails when it starts (why)."},
      {{PackageOpensNoView}, "The package opens no view."},
  };
  for (const auto& [problem, sentence] : cases)
    EXPECT_EQ(Sentence(problem, Constdef::Language_English), sentence);
}

} // namespace
} // namespace Terminal
