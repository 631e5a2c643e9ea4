// The cells as the live grids show them.

#include "host/RecordFields.h"
#include "platform/LookAndFeel.h"
#include "view/PaintingFixture.h"

using namespace PaintingExpectations;
using Platform::TCellDescription;

namespace {

namespace Field = Host::Field;

/// Adds what a grid shows of its own to what the frame decides.
class TLiveTest : public TPaintingTest {
protected:
  ~TLiveTest() override { Platform::TcxRootLookAndFeel::Instance().SetSkinPainter({}); }

  TCellDescription Expected(const char* grid, const TCellStyle& style, int column,
                            const std::string& text) {
    const auto& palette = Grid(grid).palette();
    TCellDescription cell;
    cell.Text = text;
    cell.Fill = style.Brush ? Rgb(*style.Brush) : palette.color(QPalette::Base).rgb();
    cell.Color = style.Font ? Rgb(*style.Font) : palette.color(QPalette::Text).rgb();
    cell.Size = frame->font().pointSize() + style.FontGrowth.value_or(0);
    cell.Bold = style.Bold;
    cell.DrawnByOwner = style.DrawnByFrame;
    if (style.DrawnByFrame)
      cell.Flags = text.empty() ? 0 : style.DrawFlags;
    else
      cell.Flags = 0x24u | (ColumnOf(grid, column)->RightAligned ? 2u : 0u);
    return cell;
  }

  void ExpectCell(const char* grid, int row, int column, const TCellDescription& expected) {
    const auto& cell = Cell(grid, row, column);
    EXPECT_EQ(cell, expected) << grid << " row " << row << " column " << column << ": \""
                              << cell.Text << "\" fill " << std::hex << cell.Fill << " not "
                              << expected.Fill << ", color " << cell.Color << " not "
                              << expected.Color << std::dec << ", size " << cell.Size << " not "
                              << expected.Size << ", flags " << cell.Flags << " not "
                              << expected.Flags;
  }
};

class TLiveModeTest : public TLiveTest, public testing::WithParamInterface<TQuorMode> {};

TEST_P(TLiveModeTest, EveryCellOfTheDepthGridAgrees) {
  FillBook(host.Record("700"));
  host.config.SetCurrent("SpecBrokerChecked", "Y");
  host.config.SetCurrent("DetailSpecialBroker", "1234,5678");
  host.config.SetCurrent("DetailSpecialBrokerColor", "$000000FF");
  Show();
  SetMode(GetParam());

  TCustomQuorMarketDataControl model(nullptr);
  model.SetDisplayMode(GetParam());
  model.SetSymbol("700");
  ASSERT_EQ(PriceGridView().RecordCount(), RowsOf(GetParam()));
  for (const int column : ColumnTags("PriceGrid"))
    for (int row = 0; row < RowsOf(GetParam()); ++row)
      ExpectCell("PriceGrid", row, column,
                 Expected("PriceGrid", DepthStyle(GetParam(), row, column, true, 6), column,
                          model.GetDisplayValue(row, column)));
}

INSTANTIATE_TEST_SUITE_P(Modes, TLiveModeTest, testing::ValuesIn(Modes));

TEST_F(TLiveTest, EveryCellOfThePerclickGridsAgrees) {
  host.SetFeedType(Constdef::FeedType_PerClick);
  FillBook(host.Record("700"))
      .Set({{Field::Open, "300"},
            {Field::Volume, "5000"},
            {Field::Currency, "HKD"},
            {Field::BoardLot, "100"}});
  Show();

  TPerclickQuorMarketDataControl price(nullptr);
  price.SetSymbol("700");
  for (const int column : SideColumns)
    for (int row = 0; row < 3; ++row)
      ExpectCell("PerclickPriceGrid", row, column,
                 Expected("PerclickPriceGrid", PerclickPriceStyle(row, column), column,
                          price.GetDisplayValue(row, column)));

  TPerclickQuorInfoMarketDataControl info(nullptr);
  info.SetSymbol("700");
  for (int column = 10000; column < 10005; ++column)
    for (int row = 0; row < 4; ++row)
      ExpectCell("PerclickInfoGrid", row, column,
                 Expected("PerclickInfoGrid", PerclickInfoStyle(row), column,
                          info.GetDisplayValue(row, column)));
  EXPECT_EQ(Cell("PerclickInfoGrid", 1, 10000).Text, "300.000");
}

TEST_F(TLiveTest, AViewThatWasJustOpenedHasTheColoursOfTheSkin) {
  Open();
  EXPECT_EQ(Cell(0, 21).Fill, Rgb(Skin.LabelBackground));
  EXPECT_EQ(Cell(7, 1).Fill, Rgb(Skin.BidLabelColor));
  EXPECT_EQ(Cell(8, 2).Fill, Rgb(Skin.AskBackground));
}

TEST_F(TLiveTest, ASkinPainterGivesTheStartingColours) {
  FillBook(host.Record("700"));
  Show();
  Platform::TcxRootLookAndFeel::Instance().SetSkinPainter(
      Platform::TSkinPainter{QColor(1, 2, 3), QColor(4, 5, 6)});
  for (const int row : {0, 5}) {
    EXPECT_EQ(Cell(row, 1).Fill, qRgb(1, 2, 3)) << row;
    EXPECT_EQ(Cell(row, 1).Color, qRgb(4, 5, 6)) << row;
  }
  EXPECT_EQ(Cell(4, 3).Fill, qRgb(1, 2, 3));
  EXPECT_EQ(Cell(7, 1).Fill, Rgb(Skin.BidLabelColor));
  EXPECT_EQ(Cell(7, 1).Color, qRgb(4, 5, 6));
  EXPECT_EQ(Cell(0, 21).Fill, Rgb(Skin.LabelBackground));
  EXPECT_EQ(Cell(0, 21).Color, qRgb(4, 5, 6));
  EXPECT_EQ(Cell(4, 55).Fill, qRgb(1, 2, 3));
  EXPECT_EQ(Cell(4, 55).Color, Rgb(Skin.BidText));
}

TEST_F(TLiveTest, AnInvalidSymbolHasPureRedLabelsWhereTheSkinSaysNothing) {
  host.config.Set("SKIN", "coLabelInvalidBground", "");
  host.Record("700").SetState(Constdef::RecordState_Invalid);
  Show();
  for (int row = 0; row < 13; ++row)
    EXPECT_EQ(Cell(row, 21).Fill, qRgb(255, 0, 0)) << row;
}

TEST_F(TLiveTest, LabelsTurnInvalidAndBackWithTheRecord) {
  Show();
  EXPECT_EQ(Cell(0, 21).Fill, Rgb(Skin.LabelBackground));
  host.Record("700").SetState(Constdef::RecordState_Invalid).Update();
  TickRefresh();
  EXPECT_EQ(Cell(0, 21).Fill, Rgb(Skin.LabelInvalidBackground));
  host.Record("700").SetState(Constdef::RecordState_Ready).Update();
  TickRefresh();
  EXPECT_EQ(Cell(0, 21).Fill, Rgb(Skin.LabelBackground));
}

TEST_F(TLiveTest, TheSimpleLayoutsBestPriceIsLargeAndItsSizeIsNot) {
  FillBook(host.Record("700"));
  Show();
  SetMode(qm10Simple);
  const int size = frame->font().pointSize();
  EXPECT_EQ(Cell(1, 1).Text, "310.000");
  EXPECT_TRUE(Cell(1, 1).Bold);
  EXPECT_EQ(Cell(1, 1).Size, size + 3);
  EXPECT_FALSE(Cell(1, 1).DrawnByOwner);
  EXPECT_FALSE(Cell(1, 16).Bold);
  EXPECT_EQ(Cell(1, 16).Size, size + 1);
  EXPECT_TRUE(Cell(1, 2).Bold);
  EXPECT_FALSE(Cell(1, 19).Bold);
}

TEST_F(TLiveTest, AnEmptyBestPriceLeavesTheCellFilled) {
  Show();
  for (const char* mode : {"DisplayMode=0", "DisplayMode=2"}) {
    frame->SetLayoutData(mode);
    for (const int column : {1, 2}) {
      EXPECT_EQ(Cell(6, column).Text, "") << mode;
      EXPECT_TRUE(Cell(6, column).DrawnByOwner) << mode;
      EXPECT_EQ(Cell(6, column).Fill, Rgb(column == 1 ? Skin.BidBackground : Skin.AskBackground))
          << mode;
    }
  }
}

TEST_F(TLiveTest, ALevelMarkerHasTheLabelsFillAndTheSidesText) {
  FillBook(host.Record("700"));
  Show();
  EXPECT_EQ(Cell(1, 56).Fill, Rgb(Skin.BidLabelColor)) << "level marker";
  EXPECT_EQ(Cell(1, 56).Color, Rgb(Skin.BidText)) << "with the text of the side";
  EXPECT_EQ(Cell(0, 65).Fill, Rgb(Skin.AskLabelColor));
  EXPECT_EQ(Cell(0, 65).Text, "Res_QuorPrice_Sell");
  EXPECT_EQ(Cell(4, 65).Fill, Grid("PriceGrid").palette().color(QPalette::Base).rgb());
}

TEST_F(TLiveTest, FontsFollowTheFrame) {
  FillBook(host.Record("700"));
  Show();
  frame->SetFont("DejaVu Sans", 20, 0);
  QCoreApplication::processEvents();
  EXPECT_EQ(Cell(0, 1).Size, 21);
  EXPECT_EQ(Cell(6, 1).Size, 23);
  EXPECT_EQ(Cell(6, 16).Size, 21);
}

/// Columns of pixels in a cell that are not all of its fill: the first and the last.
std::pair<int, int> Ink(const QImage& cell, QRgb fill) {
  std::pair<int, int> ink{-1, -1};
  for (int x = 0; x < cell.width(); ++x)
    for (int y = 0; y < cell.height(); ++y)
      if (cell.pixel(x, y) != fill) {
        ink.first = ink.first < 0 ? x : ink.first;
        ink.second = x;
      }
  return ink;
}

TEST_F(TLiveTest, OnTheScreenTheBestPriceStandsAtTheLeftAndTheQuantityInTheMiddle) {
  FillBook(host.Record("700"))
      .Set({{Field::BestBid, "1"}, {Field::Bid.Price[1], "1"}, {Field::BestBidSize, "1"}});
  Show();
  const auto picture = Grid("PriceGrid").grab().toImage();
  const auto inkOf = [&](int row, int column, System::TColor fill) {
    const auto bounds = PriceGridView().CellBounds(row, ColumnOf("PriceGrid", column));
    const auto [first, last] = Ink(picture.copy(bounds), Rgb(fill));
    return std::array{first, bounds.width() - 1 - last};
  };
  const auto price = inkOf(6, 1, Skin.BidBackground);
  EXPECT_GE(price[0], 0) << "there is a text";
  EXPECT_LT(price[0], price[1]);
  EXPECT_LT(price[0], 8);
  const auto size = inkOf(6, 16, Skin.BidBackground);
  EXPECT_NEAR(size[0], size[1], 4);
  const auto level = inkOf(9, 1, Skin.BidBackground);
  EXPECT_GT(level[0], level[1]) << "the grid's own text is at the right";
}

struct THeight {
  int row, value;
};

class THeightTest : public TPaintingTest, public testing::WithParamInterface<THeight> {};

TEST_P(THeightTest, ValueRowsTakeHalfAsMuchAgainHalvesToEven) {
  host.SetFeedType(Constdef::FeedType_PerClick);
  Open();
  auto& view = *Grid("PerclickInfoGrid").View();
  view.SetDataRowHeight(GetParam().row);
  for (int row = 0; row < 4; ++row)
    EXPECT_EQ(view.CellBounds(row, ColumnOf("PerclickInfoGrid", 10000)).height(),
              row % 2 == 0 ? GetParam().row : GetParam().value)
        << row;
}

INSTANTIATE_TEST_SUITE_P(RowHeights, THeightTest,
                         testing::Values(THeight{15, 22}, THeight{16, 24}, THeight{17, 26},
                                         THeight{18, 27}, THeight{19, 28}, THeight{21, 32}));

TEST_F(TLiveTest, AChangedNumberOfRowsAsksTheHostForTheSize) {
  Show();
  const int height = frame->GetHeight();
  host.viewHost.notifications.clear();
  host.Record("5").Set({{Field::UpperLimit, "2"},
                        {Field::LowerLimit, "1"},
                        {Field::AccruedInterest, "x"},
                        {Field::High52Weeks, "3"},
                        {Field::Low52Weeks, "1"},
                        {Field::Open, "2"},
                        {Field::Nominal, "1"}});
  frame->SetSymbol("5");
  TickRefresh();
  EXPECT_EQ(host.viewHost.TakeNotifications(), (std::vector{1025, 1024}));
  EXPECT_EQ(PriceGridView().RecordCount(), 16);
  EXPECT_EQ(Grid("PriceGrid").height(), 16 * PriceGridView().DataRowHeight() + 6);
  EXPECT_GT(frame->GetHeight(), height);
  EXPECT_EQ(Cell(15, 1).Fill, Rgb(Skin.BidBackground));
}

} // namespace
