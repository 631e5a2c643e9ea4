#include "host/LayoutData.h"

#include "host/TroublesomeText.h"

#include <gtest/gtest.h>

using Host::TLayoutData;

namespace {

struct TReading {
  const char* text;
  const char* name;
  const char* value;
};

class TReadingTest : public testing::TestWithParam<TReading> {};

TEST_P(TReadingTest, AValueIsFoundByItsName) {
  EXPECT_EQ(TLayoutData(GetParam().text).Value(GetParam().name), GetParam().value);
}

constexpr TReading Readings[] = {
    {"", "Symbol", ""},
    {"Symbol=700", "Symbol", "700"},
    {"DisplayMode=2,Symbol=700", "Symbol", "700"},
    {"Symbol=700,LockState=1", "LockState", "1"},
    {"Symbol=700 LockState=1", "LockState", "1"},
    {"  Symbol=700 ,\t LockState=1  ", "LockState", "1"},
    {",,Symbol=700,,", "Symbol", "700"},
    {"symbol=700", "Symbol", "700"},
    {"SYMBOL=5,Symbol=700", "Symbol", "5"},
    {"Symbol=,Symbol=700", "Symbol", ""},
    {"Symbol,Symbol=700", "Symbol", "700"},
    {"Symbols=5", "Symbol", ""},
    {"Symbol=a=b", "Symbol", "a=b"},
    {"\"Symbol=HSI 2401\",LockState=1", "Symbol", "HSI 2401"},
    {"\"Symbol=HSI 2401\",LockState=1", "LockState", "1"},
    {"\"Symbol=a,b\"", "Symbol", "a,b"},
    {"\"Symbol=say \"\"hi\"\"\"", "Symbol", "say \"hi\""},
    {"\"Symbol=700", "Symbol", "700"},
    {"\"Symbol=700\"LockState=1", "LockState", "1"},
    {"Symbol=7\"00", "Symbol", "7\"00"},
    {"Symbol=\u9A30\u8A0A", "Symbol", "\u9A30\u8A0A"},
};

INSTANTIATE_TEST_SUITE_P(LayoutData, TReadingTest, testing::ValuesIn(Readings));

struct TWriting {
  const char* value;
  const char* text;
};

class TWritingTest : public testing::TestWithParam<TWriting> {};

TEST_P(TWritingTest, OnlyWhatWouldBeTornApartIsQuoted) {
  TLayoutData layout;
  layout.Add("Symbol", GetParam().value);
  layout.Add("LockState", 1);
  EXPECT_EQ(layout.CommaText(), std::string(GetParam().text) + ",LockState=1");
}

constexpr TWriting Writings[] = {
    {"", "Symbol="},
    {"700", "Symbol=700"},
    {"a=b", "Symbol=a=b"},
    {"HSI 2401", "\"Symbol=HSI 2401\""},
    {"a,b", "\"Symbol=a,b\""},
    {"a\tb", "\"Symbol=a\tb\""},
    {"\"", "\"Symbol=\"\"\""},
    {"say \"hi\"", "\"Symbol=say \"\"hi\"\"\""},
    {"\u9A30\u8A0A", "Symbol=\u9A30\u8A0A"},
};

INSTANTIATE_TEST_SUITE_P(LayoutData, TWritingTest, testing::ValuesIn(Writings));

TEST(TLayoutDataTest, EveryNameAndValueComesBack) {
  TTroublesomeText random;
  for (int round = 0; round < 2000; ++round) {
    std::vector<std::pair<std::string, std::string>> items;
    TLayoutData written;
    for (int i = 0; i < 5; ++i) {
      items.emplace_back(random.NextName(i), random.Next(6));
      written.Add(items.back().first, items.back().second);
    }
    const auto text = written.CommaText();
    const TLayoutData read(text);
    for (const auto& [name, value] : items)
      ASSERT_EQ(read.Value(name), value) << text;
    ASSERT_EQ(read.CommaText(), text);
  }
}

} // namespace
