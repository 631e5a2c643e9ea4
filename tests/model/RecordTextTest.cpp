#include "model/RecordText.h"

#include "host/ConstDef.h"
#include "model/RecordFixture.h"

// The texts of a record.

namespace Quorpricedatacontrol {

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

} // namespace Quorpricedatacontrol
