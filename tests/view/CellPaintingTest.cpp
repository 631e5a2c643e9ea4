// How a cell is painted, decided without a widget.

#include "view/CellPainting.h"
#include "host/RecordFields.h"
#include "view/PaintingFixture.h"

using namespace PaintingExpectations;
using Quorpriceview::DepthCellStyle;
using Quorpriceview::IsPerclickInfoValueRow;
using Quorpriceview::PerclickInfoCellStyle;
using Quorpriceview::PerclickInfoRowHeight;
using Quorpriceview::PerclickPriceCellStyle;

namespace {

namespace Field = Host::Field;

/// A depth control of a symbol with a full book.
class TCellPaintingTest : public testing::Test {
protected:
  TCellPaintingTest() {
    FillBook(host.Record("700"));
    control.OnChange = [](System::TObject*) {};
    control.OnFreeTextChange = [](System::TObject*) {};
  }

  TCellStyle Style(int row, int column, bool highlight = false) const {
    return DepthCellStyle(&control, Skin, highlight ? &Highlighted : nullptr, row, column);
  }

  Fakes::THostFakes host;
  TCustomQuorMarketDataControl control{nullptr};
};

class TModeTest : public TCellPaintingTest, public testing::WithParamInterface<TQuorMode> {
protected:
  TModeTest() {
    control.SetSymbol("700");
    control.SetDisplayMode(GetParam());
  }
};

INSTANTIATE_TEST_SUITE_P(Modes, TModeTest, testing::ValuesIn(Modes));

TEST_P(TModeTest, EveryPriceAndSizeCell) {
  for (const int column : SideColumns)
    for (int row = 0; row < 18; ++row)
      EXPECT_EQ(Style(row, column), DepthStyle(GetParam(), row, column, false, -1))
          << "row " << row << " column " << column;
}

TEST_P(TModeTest, EveryQueueCellWithAndWithoutHighlight) {
  for (const bool highlight : {false, true})
    for (const int column : QueueColumns)
      for (int row = 0; row < RowsOf(GetParam()); ++row)
        EXPECT_EQ(Style(row, column, highlight), DepthStyle(GetParam(), row, column, highlight, -1))
            << "row " << row << " column " << column << " highlight " << highlight;
}

TEST_P(TModeTest, HighlightTouchesNothingButTheQueue) {
  for (const int column : {21, 3, 16, 1, 19, 2, 99})
    for (int row = 0; row < 18; ++row)
      EXPECT_EQ(Style(row, column, true), Style(row, column, false)) << row << ' ' << column;
}

TEST_P(TModeTest, LabelsAndValues) {
  ASSERT_EQ(control.GetHeaderLastPriceIndex(), 6);
  for (const int column : {LabelColumn, ValueColumn})
    for (int row = 0; row < 18; ++row)
      EXPECT_EQ(Style(row, column), DepthStyle(GetParam(), row, column, false, 6))
          << "row " << row << " column " << column;
}

TEST_P(TModeTest, TheLastPriceIsBoldWhereverItStands) {
  host.Record("5").Set({{Field::Nominal, "1"}, {Field::UpperLimit, "2"}, {Field::LowerLimit, "1"}});
  control.SetSymbol("5");
  ASSERT_EQ(control.GetHeaderLastPriceIndex(), 8);
  for (int row = 0; row < 18; ++row)
    EXPECT_EQ(Style(row, ValueColumn).Bold, row == 8) << row;
}

TEST_P(TModeTest, OtherColumnsHaveTheDefaultsOnly) {
  for (const int column : {-1, 0, 4, 15, 17, 20, 22, 54, 59, 64, 69, 10000})
    for (const int row : {0, 1, 2, 6, 7, 12})
      EXPECT_EQ(Style(row, column, true), DefaultStyle()) << row << ' ' << column;
}

TEST_P(TModeTest, WithoutControlOnlyTheLabelsAreColoured) {
  for (const int column : {21, 3, 16, 1, 19, 2, 55, 58, 65, 68, 99}) {
    auto expected = DefaultStyle();
    if (column == LabelColumn)
      expected.Brush = Skin.LabelBackground;
    for (int row = 0; row < 18; ++row)
      EXPECT_EQ(DepthCellStyle(nullptr, Skin, &Highlighted, row, column), expected)
          << "row " << row << " column " << column;
  }
}

TEST_P(TModeTest, ANewSymbolWithoutDataIsPaintedAsAnyOther) {
  host.Record("5").SetState(Constdef::RecordState_None);
  control.SetSymbol("5");
  for (const int column : SideColumns)
    for (int row = 0; row < 18; ++row)
      EXPECT_EQ(Style(row, column), DepthStyle(GetParam(), row, column, false, -1));
  for (int row = 1; row < RowsOf(GetParam()); ++row)
    EXPECT_EQ(Style(row, 56), StyleOf('q', 56, false)) << "the queue has no entries";
}

struct TValidity {
  int state;
  bool concealed;
  System::TColor labels;
};

class TValidityTest : public TCellPaintingTest, public testing::WithParamInterface<TValidity> {};

TEST_P(TValidityTest, LabelsTellAnInvalidSymbol) {
  host.config.SetCurrent("ConcealMktDataByExch", "NYSE");
  TCustomQuorMarketDataControl concealing(nullptr);
  concealing.OnFreeTextChange = [](System::TObject*) {};
  host.Record("700")
      .SetState(GetParam().state)
      .Set(Field::Exchange, GetParam().concealed ? "NYSE" : "HKEX");
  concealing.SetSymbol("700");
  for (int row = 0; row < 13; ++row) {
    const auto style = DepthCellStyle(&concealing, Skin, nullptr, row, LabelColumn);
    EXPECT_EQ(style.Brush, GetParam().labels) << row;
    EXPECT_EQ(style.Font, std::nullopt) << row;
    EXPECT_EQ(style.FontGrowth, 1) << row;
    EXPECT_EQ(DepthCellStyle(&concealing, Skin, nullptr, row, ValueColumn).Brush, std::nullopt);
  }
}

INSTANTIATE_TEST_SUITE_P(States, TValidityTest,
                         testing::Values(TValidity{0, false, Skin.LabelBackground},
                                         TValidity{1, false, Skin.LabelBackground},
                                         TValidity{2, false, Skin.LabelInvalidBackground},
                                         TValidity{3, false, Skin.LabelBackground},
                                         TValidity{0, true, Skin.LabelInvalidBackground},
                                         TValidity{1, true, Skin.LabelInvalidBackground},
                                         TValidity{2, true, Skin.LabelInvalidBackground}));

TEST_F(TCellPaintingTest, ANewSymbolIsNotInvalidAnyMore) {
  host.Record("700").SetState(Constdef::RecordState_Invalid);
  control.SetSymbol("700");
  EXPECT_EQ(Style(0, LabelColumn).Brush, Skin.LabelInvalidBackground);
  control.SetSymbol("5");
  EXPECT_EQ(Style(0, LabelColumn).Brush, Skin.LabelBackground);
  control.SetSymbol("");
  EXPECT_EQ(Style(0, LabelColumn).Brush, Skin.LabelBackground);
}

TEST_F(TCellPaintingTest, HighlightFollowsTheIdAlsoWhileNamesAreShown) {
  host.market.SetBroker("1234", "First Securities");
  control.SetSymbol("700");
  control.SetShowBrokerName(true);
  ASSERT_EQ(control.GetDisplayValue(1, 55), "First Securities");
  EXPECT_EQ(Style(1, 55, true), StyleOf('a', 55, true));
}

TEST_F(TCellPaintingTest, AHighlightedIdIsComparedAsAWhole) {
  const Quorpriceview::TBrokerColours others = {{"123", 1}, {"01234", 2}, {"12345", 3}, {"", 4}};
  control.SetSymbol("700");
  for (int row = 1; row < 13; ++row)
    EXPECT_FALSE(DepthCellStyle(&control, Skin, &others, row, 55).Bold) << row;
}

TEST_F(TCellPaintingTest, AHeaderIsAskedForByColumnThenRow) {
  control.SetSymbol("700");
  EXPECT_EQ(Style(2, 55).Brush, Skin.BidLabelColor) << "the marker in row 2 of column 55";
  EXPECT_EQ(Style(55, 2), StyleOf('s', 2, false)) << "and no header in row 55 of column 2";
}

TEST(PerclickPriceCellTest, EveryCell) {
  for (const int column : SideColumns)
    for (int row = 0; row < 3; ++row) {
      EXPECT_EQ(PerclickPriceCellStyle(true, Skin, row, column), PerclickPriceStyle(row, column))
          << "row " << row << " column " << column;
      EXPECT_EQ(PerclickPriceCellStyle(false, Skin, row, column), DefaultStyle());
    }
}

TEST(PerclickPriceCellTest, OtherColumnsHaveTheDefaultsOnly) {
  for (const int column : {0, 3, 21, 55, 65, 10000})
    for (int row = 0; row < 3; ++row)
      EXPECT_EQ(PerclickPriceCellStyle(true, Skin, row, column), DefaultStyle());
}

TEST(PerclickInfoCellTest, EveryRow) {
  for (int row = 0; row < 4; ++row) {
    EXPECT_EQ(PerclickInfoCellStyle(true, Skin, row), PerclickInfoStyle(row)) << row;
    EXPECT_EQ(PerclickInfoCellStyle(false, Skin, row),
              row % 2 == 0 ? PerclickInfoStyle(row) : TCellStyle())
        << row;
  }
}

TEST(PerclickInfoCellTest, ValueRowsAreTheHighOnes) {
  for (int row = -1; row < 6; ++row)
    EXPECT_EQ(IsPerclickInfoValueRow(row), row == 1 || row == 3) << row;
}

TEST(PerclickInfoCellTest, ValueRowsTakeHalfAsMuchAgainHalvesToEven) {
  for (const auto& [height, high] : {std::pair{20, 30}, {17, 26}, {19, 28}, {21, 32}}) {
    EXPECT_EQ(PerclickInfoRowHeight(0, height), height);
    EXPECT_EQ(PerclickInfoRowHeight(1, height), high) << height;
    EXPECT_EQ(PerclickInfoRowHeight(2, height), height);
    EXPECT_EQ(PerclickInfoRowHeight(3, height), high) << height;
  }
}

} // namespace
