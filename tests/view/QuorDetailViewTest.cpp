// The content of a detail pop-up.

#include "view/QuorDetailView.h"

#include "fakes/ViewFakes.h"
#include "host/RecordFields.h"

#include <gtest/gtest.h>

namespace {

namespace Field = Host::Field;

class TQuorDetailFrameTest : public testing::Test {
protected:
  TQuorDetailFrameTest() {
    host.Record("700").Set(
        {{Field::ProductType, "1"}, {Field::IssueSize, "2000"}, {Field::PriceEarnings, "15.5"}});
  }

  Platform::TcxGridTableView& View() {
    return *detail.findChild<Platform::TcxGrid*>("PriceGrid")->View();
  }
  std::string Text(int row, std::size_t column) {
    return View().Cell(row, View().Columns()[column].get())->Text;
  }

  Fakes::TViewFakes host;
  Quordetailview::TQuorDetailFrame detail;
};

TEST_F(TQuorDetailFrameTest, HasALabelAndAValueColumn) {
  EXPECT_EQ(detail.size(), QSize(320, 240));
  ASSERT_EQ(View().Columns().size(), 2u);
  for (std::size_t i = 0; i < 2; ++i) {
    EXPECT_EQ(View().Columns()[i]->Tag, static_cast<int>(i));
    EXPECT_EQ(View().Columns()[i]->Width, 100);
    EXPECT_EQ(View().Columns()[i]->RightAligned, i == 1);
  }
  EXPECT_TRUE(View().CellHints);
  EXPECT_EQ(View().RecordCount(), 0);
}

TEST_F(TQuorDetailFrameTest, ShowsTheSymbolAndFollowsItsRecord) {
  detail.SetSymbol("700");
  EXPECT_EQ(detail.Symbol(), "700");
  ASSERT_EQ(View().RecordCount(), 4);
  EXPECT_EQ(Text(0, 0), "Res_IssuedShares");
  EXPECT_EQ(Text(0, 1), "2,000");
  host.Record("700").Set(Field::PriceEarnings, "16").Update();
  EXPECT_EQ(Text(2, 1), "16");
  detail.SetSymbol("");
  EXPECT_EQ(detail.Symbol(), "");
  EXPECT_EQ(host.subscriptions.SubscriptionCount(), 0);
}

TEST_F(TQuorDetailFrameTest, ALanguageIsReadAgainWhateverItsNumber) {
  detail.SetSymbol("700");
  host.language.SetText("Res_IssuedShares", "Aktien");
  detail.SetLanguage(0);
  EXPECT_EQ(Text(0, 0), "Aktien");
}

TEST(TQuorDetailFrameLifeTest, GivesBackWhatItRegistered) {
  Fakes::TViewFakes host;
  const auto before = host.Registrations();
  {
    Quordetailview::TQuorDetailFrame detail;
    detail.SetSymbol("700");
    EXPECT_EQ(host.subscriptions.SubscriptionCount("700"), 1);
  }
  EXPECT_EQ(host.Registrations(), before);
}

} // namespace
