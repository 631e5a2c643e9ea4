#include "model/RecordText.h"

#include "host/ConstDef.h"
#include "model/RecordFixture.h"

#include <vector>

// The texts of a record, and what can be read of them.

namespace Quorpricedatacontrol {

// Fields

class TRecordFieldsTest : public TRecordTest {};

TEST_F(TRecordFieldsTest, ARecordIsReadyWhileItHoldsData) {
  EXPECT_TRUE(IsReady(&Record()));
  for (const int state : {Constdef::RecordState_None, Constdef::RecordState_Invalid})
    EXPECT_FALSE(IsReady(&Record().SetState(state))) << state;
  EXPECT_FALSE(IsReady(nullptr));
}

TEST_F(TRecordFieldsTest, ATextIsReadWhetherTheRecordIsReadyOrNot) {
  Record().Set(Field::Name, "CKH");
  EXPECT_EQ(TextOf(&Record(), Field::Name), "CKH");
  EXPECT_EQ(TextOf(&Record(), Field::Status), "");
  EXPECT_EQ(TextOf(nullptr, Field::Name), "");
  Record().SetState(Constdef::RecordState_Invalid);
  EXPECT_EQ(TextOf(&Record(), Field::Name), "CKH");
}

TEST_F(TRecordFieldsTest, PricesAndVolumesReadAsTheHostFormatsThem) {
  Record().Set({{Field::Nominal, "318.2"}, {Field::Volume, "12000"}});
  EXPECT_EQ(PriceText(&Record(), Field::Nominal), "318.200");
  EXPECT_EQ(VolumeText(&Record(), Field::Volume), "12,000");
  EXPECT_EQ(VolumeText(&Record().Set(Field::Volume, "0"), Field::Volume), "0");
}

TEST_F(TRecordFieldsTest, APriceOrVolumeThatIsNotThereIsEmpty) {
  EXPECT_EQ(PriceText(&Record(), Field::Nominal), "");
  EXPECT_EQ(VolumeText(&Record(), Field::Volume), "");
  EXPECT_EQ(PriceText(nullptr, Field::Nominal), "");
  EXPECT_EQ(VolumeText(nullptr, Field::Volume), "");
  Record().Set({{Field::Nominal, "318.2"}, {Field::Volume, "12000"}});
  Record().SetState(Constdef::RecordState_None);
  EXPECT_EQ(PriceText(&Record(), Field::Nominal), "");
  EXPECT_EQ(VolumeText(&Record(), Field::Volume), "");
}

TEST_F(TRecordFieldsTest, AQuantityReadsInShares) {
  EXPECT_EQ(QuantityText(&Record(), Field::BoardLot), "");
  EXPECT_EQ(QuantityText(nullptr, Field::BoardLot), "");
  EXPECT_EQ(QuantityText(&Record().Set(Field::BoardLot, "1000"), Field::BoardLot), "1,000 sh");
}

// Pieces

TEST(TRecordTextTest, BlanksAroundATextAreTrimmed) {
  EXPECT_EQ(Trim(" \t 700 5\n"), "700 5");
  EXPECT_EQ(Trim("700"), "700");
  EXPECT_EQ(Trim("\xE8\xB2\xB7 "), "\xE8\xB2\xB7");
  EXPECT_EQ(Trim(" \t"), "");
  EXPECT_EQ(Trim(""), "");
}

TEST(TRecordTextTest, EmptyPiecesCountToo) {
  const auto pieces = [](std::string_view text) {
    std::vector<std::string> all;
    ForEachPiece(text, [&all](std::string_view piece) { all.emplace_back(piece); });
    return all;
  };
  EXPECT_EQ(pieces("a, b,,c,"), (std::vector<std::string>{"a", " b", "", "c", ""}));
  EXPECT_EQ(pieces("a"), std::vector<std::string>{"a"});
  EXPECT_EQ(pieces(""), std::vector<std::string>{""});
}

TEST(TRecordTextTest, ACharactersFirstByteIsNoContinuation) {
  for (const char byte : {'a', '\xE8', '\xC3', '\x7F', '\0'})
    EXPECT_FALSE(IsContinuation(byte)) << byte;
  for (const char byte : {'\xB2', '\x80', '\xBF'})
    EXPECT_TRUE(IsContinuation(byte)) << byte;
}

// Numbers

TEST(TRecordTextTest, AnIntegerMayHaveASignAndBlanksAroundIt) {
  EXPECT_EQ(ParseInteger("4"), 4);
  EXPECT_EQ(ParseInteger("+4"), 4);
  EXPECT_EQ(ParseInteger("-4"), -4);
  EXPECT_EQ(ParseInteger(" +12\t"), 12);
  EXPECT_EQ(ParseInteger("0012"), 12);
  EXPECT_EQ(ParseInteger("2147483647"), 2147483647);
}

TEST(TRecordTextTest, AnythingElseIsNoInteger) {
  for (const char* text : {"", " ", "+", "-", "+-4", "-+4", "++4", "+ 4", "4 5", "4.0", "4x", "x4",
                           "0x4", "2147483648"})
    EXPECT_EQ(ParseInteger(text), std::nullopt) << text;
}

TEST(TRecordTextTest, ANumberMayHaveASignAndBlanksAroundIt) {
  EXPECT_EQ(ParseNumber("50"), 50);
  EXPECT_EQ(ParseNumber("+50"), 50);
  EXPECT_EQ(ParseNumber("-0.5"), -0.5);
  EXPECT_EQ(ParseNumber(" +318.2 "), 318.2);
}

TEST(TRecordTextTest, AnythingElseIsNoNumber) {
  for (const char* text :
       {"", "+", "-", "+-5", "++5", "+ 5", "5,000", "5x", "nan", "inf", "+inf", "-inf", "1e999"})
    EXPECT_EQ(ParseNumber(text), std::nullopt) << text;
}

} // namespace Quorpricedatacontrol
