// The numbers and truth values of layout data.

#include "view/LayoutData.h"

#include <gtest/gtest.h>

using namespace Quorpriceview;

namespace {

struct TNumber {
  const char* text;
  int value;
};

class TIntegerTest : public testing::TestWithParam<TNumber> {};

TEST_P(TIntegerTest, WhatIsNoIntegerIsZero) {
  TLayoutData layout;
  layout.Add("LockState", GetParam().text);
  EXPECT_EQ(IntegerOf(layout, "lockstate"), GetParam().value);
}

constexpr TNumber Integers[] = {{"0", 0},         {"1", 1},    {"-3", -3},
                                {"", 0},          {"x", 0},    {"1.5", 0},
                                {"1x", 0},        {"True", 0}, {"2147483647", 2147483647},
                                {"2147483648", 0}};

INSTANTIATE_TEST_SUITE_P(LayoutData, TIntegerTest, testing::ValuesIn(Integers));

TEST(TLayoutDataTest, AMissingIntegerIsZero) { EXPECT_EQ(IntegerOf(TLayoutData("A=1"), "B"), 0); }

struct TBoolean {
  const char* text;
  std::optional<bool> value;
};

class TBooleanTest : public testing::TestWithParam<TBoolean> {};

TEST_P(TBooleanTest, NumbersAndWords) {
  EXPECT_EQ(ParseBoolean(GetParam().text), GetParam().value);
}

constexpr TBoolean Booleans[] = {{"0", false},
                                 {"-1", true},
                                 {"1", true},
                                 {"2", true},
                                 {"0.0", false},
                                 {"0.5", true},
                                 {"1e3", true},
                                 {"True", true},
                                 {"False", false},
                                 {"TRUE", true},
                                 {"false", false},
                                 {"", std::nullopt},
                                 {"yes", std::nullopt},
                                 {"T", std::nullopt},
                                 {"1x", std::nullopt},
                                 {"--1", std::nullopt},
                                 {"nan", std::nullopt},
                                 {"inf", std::nullopt},
                                 {"Trues", std::nullopt}};

INSTANTIATE_TEST_SUITE_P(LayoutData, TBooleanTest, testing::ValuesIn(Booleans));

} // namespace
