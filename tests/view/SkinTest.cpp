// The colours that a view takes from the host's skin.

#include "view/ViewFixture.h"

using namespace Platform;

namespace {

class TSkinTest : public TViewTest {
protected:
  TSkinTest() {
    host.lookAndFeel.namedColours = {
        {"coLabelBground", 0x000101},  {"coLabelInvalidBground", 0x000202},
        {"coBuyColorLabel", 0x000505}, {"coSellColorLabel", 0x000808},
        {"coVCMBgColor", 0x0000A1},    {"coCASBgColor", 0x0000A2},
        {"coPOSBgColor", 0x0000A3}};
    host.lookAndFeel.indexedColours = {{6, 0x000303}, {7, 0x000404}, {8, 0x000606}, {9, 0x000707}};
  }

  const TCellDescription& Cell(int row, int tag) {
    return *PriceGridView().Cell(row, ColumnOf("PriceGrid", tag));
  }

  void OpenInvalid() {
    Open();
    Type("700");
    host.Record("700").SetState(Constdef::RecordState_Invalid).Update();
    PriceGridView().Repaint();
  }
};

struct TColoured {
  const char* name;
  int row;
  int column;
  bool isText; ///< its text, otherwise its background
  System::TColor colour;
};

class TColouredTest : public TSkinTest, public testing::WithParamInterface<TColoured> {
protected:
  QRgb Painted() {
    const auto& cell = Cell(GetParam().row, GetParam().column);
    return GetParam().isText ? cell.Color : cell.Fill;
  }
};

TEST_P(TColouredTest, IsReadAtCreationAndAtEveryChangeOfSkin) {
  Open();
  EXPECT_EQ(Painted(), ToQColor(GetParam().colour).rgb());
  for (auto& [name, colour] : host.lookAndFeel.namedColours)
    colour |= 0x100000;
  for (auto& [index, colour] : host.lookAndFeel.indexedColours)
    colour |= 0x100000;
  EXPECT_TRUE(frame->SetSkin("Dark"));
  EXPECT_EQ(Painted(), ToQColor(GetParam().colour | 0x100000).rgb());
}

constexpr TColoured Coloured[] = {
    {"LabelBackground", 0, 21, false, 0x000101}, {"BidBackground", 8, 1, false, 0x000303},
    {"BidText", 8, 16, true, 0x000404},          {"BidLabel", 7, 1, false, 0x000505},
    {"BidQueueLabel", 0, 55, false, 0x000505},   {"BidQueueText", 1, 55, true, 0x000404},
    {"AskBackground", 8, 2, false, 0x000606},    {"AskText", 8, 19, true, 0x000707},
    {"AskLabel", 7, 2, false, 0x000808},         {"AskQueueLabel", 0, 65, false, 0x000808},
    {"AskQueueText", 1, 65, true, 0x000707},
};

INSTANTIATE_TEST_SUITE_P(Cells, TColouredTest, testing::ValuesIn(Coloured),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(TSkinTest, WithoutAColourOfItsOwnAnInvalidLabelIsRed) {
  OpenInvalid();
  EXPECT_EQ(Cell(0, 21).Fill, qRgb(255, 0, 0));
}

TEST_F(TSkinTest, ASkinThatHoldsTheInvalidColourGivesIt) {
  host.lookAndFeel.skinSection = "SKIN_DARK";
  host.config.Set("SKIN_DARK", "coLabelInvalidBground", "$00000202");
  OpenInvalid();
  EXPECT_EQ(Cell(0, 21).Fill, ToQColor(0x000202).rgb());
  host.lookAndFeel.skinSection = "SKIN_LIGHT";
  frame->SetSkin("");
  EXPECT_EQ(Cell(0, 21).Fill, qRgb(255, 0, 0)) << "another skin holds none";
}

TEST_F(TSkinTest, AnEmptyInvalidColourIsNone) {
  host.config.Set("SKIN", "coLabelInvalidBground", "");
  host.config.SetCurrent("coLabelInvalidBground", "$00000202");
  OpenInvalid();
  EXPECT_EQ(Cell(0, 21).Fill, qRgb(255, 0, 0));
}

TEST_F(TSkinTest, ThePerClickGridsTakeTheSkinToo) {
  host.SetFeedType(Constdef::FeedType_PerClick);
  Open();
  const auto fill = [this](const char* grid, int row, int tag) {
    return Find<TcxGrid>(grid).View()->Cell(row, ColumnOf(grid, tag))->Fill;
  };
  EXPECT_EQ(fill("PerclickPriceGrid", 0, 1), ToQColor(0x000303).rgb());
  EXPECT_EQ(fill("PerclickInfoGrid", 0, 10000), ToQColor(0x000101).rgb());
  host.lookAndFeel.indexedColours[6] = 0x00B303;
  host.lookAndFeel.namedColours["coLabelBground"] = 0x00B101;
  frame->SetSkin("");
  EXPECT_EQ(fill("PerclickPriceGrid", 0, 1), ToQColor(0x00B303).rgb());
  EXPECT_EQ(fill("PerclickInfoGrid", 0, 10000), ToQColor(0x00B101).rgb());
}

TEST_F(TSkinTest, TheMarkersHaveTheirColoursAndBlackText) {
  Open();
  EXPECT_EQ(Find<TcxLabel>("lblVCM").Color(), 0x0000A1u);
  EXPECT_EQ(Find<TcxLabel>("lblCAS").Color(), 0x0000A2u);
  EXPECT_EQ(Find<TcxLabel>("lblPOS").Color(), 0x0000A3u);
  for (const char* marker : {"lblVCM", "lblCAS", "lblPOS"}) {
    EXPECT_EQ(Find<TcxLabel>(marker).TextColor(), System::clBlack) << marker;
    Find<TcxLabel>(marker).SetTextColor(System::clRed);
  }
  host.lookAndFeel.namedColours["coCASBgColor"] = 0x00B200;
  frame->SetSkin("");
  EXPECT_EQ(Find<TcxLabel>("lblCAS").Color(), 0x00B200u);
  for (const char* marker : {"lblVCM", "lblCAS", "lblPOS"})
    EXPECT_EQ(Find<TcxLabel>(marker).TextColor(), System::clBlack) << marker;
}

} // namespace
