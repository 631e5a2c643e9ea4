// The grids of a form: columns, controls, painting, clicks and the refresh.

#include "view/PriceGrids.h"

#include "host/RecordFields.h"
#include "view/FormFixture.h"
#include "view/ViewMeasures.h"

#include <QTest>

using namespace Quorpriceview;

namespace {

namespace Field = Host::Field;

const std::vector DepthTags{21, 3, 16, 1, 19, 2};
const std::vector AllTags{21, 3, 16, 1, 19, 2, 55, 56, 57, 58, 65, 66, 67, 68};

class TPriceGridsTest : public TFormTest {
protected:
  TPriceGridsTest() {
    host.lookAndFeel.namedColours = {{"coLabelBground", 0x010101},
                                     {"coLabelInvalidBground", 0x020202},
                                     {"coBuyColorLabel", 0x030303},
                                     {"coSellColorLabel", 0x040404}};
    host.lookAndFeel.indexedColours = {{6, 0x050505}, {7, 0x060606}, {8, 0x070707}, {9, 0x080808}};
    Record().Set({{Field::BestBid, "318.2"},
                  {Field::BestBidSize, "4000"},
                  {Field::Nominal, "318"},
                  {Field::BidQueue, "1234"},
                  {Field::UpdateTime, "09:30"}});
  }

  /// With columns, rows and skin, and symbol 700.
  TPriceGrids& Make() {
    grids.reset(); // it takes what it showed from the form
    grids = std::make_unique<TPriceGrids>(form, highlight, &owner);
    grids->CreateColumns(measures);
    measures.DetectRowHeight();
    measures.ResetSize();
    measures.SetGridHeights(13);
    grids->SetSkin();
    for (auto* each : grids->Controls())
      each->SetSymbol("700");
    Repaint();
    return *grids;
  }

  void Repaint() {
    for (auto* view : form.GridViews())
      view->Repaint();
  }

  static const Platform::TCellDescription& Cell(Platform::TcxGridTableView* view, int row,
                                                int tag) {
    const auto* cell = view->Cell(row, ColumnOf(view, tag));
    if (!cell)
      throw std::runtime_error("no such cell");
    return *cell;
  }
  const Platform::TCellDescription& Cell(int row, int tag) {
    return Cell(form.PriceGridView, row, tag);
  }
  static QRgb Rgb(System::TColor colour) { return Platform::ToQColor(colour).rgb(); }

  void Click(Platform::TcxGrid* grid, int row, int tag, Qt::MouseButton button = Qt::LeftButton) {
    const auto bounds = grid->View()->CellBounds(row, ColumnOf(grid->View(), tag));
    QTest::mouseClick(grid, button, {}, bounds.center());
  }

  System::TObject owner;
  TViewState state;
  TBrokerHighlight highlight;
  TViewMeasures measures{form, state};
  std::unique_ptr<TPriceGrids> grids;
};

TEST_F(TPriceGridsTest, ColumnsGoByTheFeed) {
  Make();
  EXPECT_EQ(VisibleTags(form.PriceGridView), AllTags);
  EXPECT_TRUE(form.PerclickPriceGridView->Columns().empty());
  EXPECT_EQ(grids->Controls(), std::vector{&grids->Price()});
  for (const auto& column : form.PriceGridView->Columns())
    EXPECT_EQ(column->RightAligned, column->Tag != 21 && column->Tag < 55) << column->Tag;
  grids->CreateColumns(measures);
  EXPECT_EQ(VisibleTags(form.PriceGridView), AllTags) << "once more brings no second ones";

  host.SetFeedType(Constdef::FeedType_Delayed);
  EXPECT_FALSE(Make().Price().ShowBrokerQueue());
  EXPECT_EQ(VisibleTags(form.PriceGridView), DepthTags);

  host.SetFeedType(Constdef::FeedType_PerClick);
  EXPECT_TRUE(Make().Price().ShowBrokerQueue());
  EXPECT_EQ(VisibleTags(form.PerclickPriceGridView), (std::vector{16, 1, 19, 2}));
  EXPECT_EQ(VisibleTags(form.PerclickInfoGridView),
            (std::vector{10000, 10001, 10002, 10003, 10004}));
  for (const auto* view : {form.PerclickPriceGridView, form.PerclickInfoGridView})
    for (const auto& column : view->Columns())
      EXPECT_TRUE(column->RightAligned) << column->Tag;
  EXPECT_EQ(grids->Controls().size(), 3u);
  EXPECT_EQ(form.PerclickPriceGridView->RecordCount(), 3);
  EXPECT_EQ(form.PerclickInfoGridView->RecordCount(), 4);
}

TEST_F(TPriceGridsTest, ControlsServeTheirOwnerAndGoWithTheGrids) {
  const auto before = host.Registrations();
  host.SetFeedType(Constdef::FeedType_PerClick);
  Make();
  for (const auto* each : grids->Controls())
    EXPECT_EQ(each->Owner(), &owner);
  EXPECT_EQ(host.subscriptions.SubscriptionCount("700"), 3);
  grids.reset();
  EXPECT_EQ(host.Registrations(), before);
  Repaint();
  for (const auto* view : form.GridViews()) {
    EXPECT_EQ(view->RecordCount(), 0) << "the grids outlive what they showed";
    EXPECT_FALSE(view->OnCustomDrawCell);
  }
  emit form.PriceGridView->CellClick(ColumnOf(form.PriceGridView, 1), Qt::LeftButton);
  EXPECT_TRUE(host.channels.sentOrders.empty());
}

TEST_F(TPriceGridsTest, CellsAreStyledByTheSkin) {
  Make();
  const int size = form.font().pointSize();
  EXPECT_EQ(Cell(0, 21).Fill, Rgb(0x010101));
  EXPECT_EQ(Cell(0, 21).Size, size + 1);
  EXPECT_FALSE(Cell(0, 21).DrawnByOwner);
  const auto& best = Cell(6, 1);
  EXPECT_EQ(best.Text, "318.200");
  EXPECT_EQ(best.Fill, Rgb(0x050505));
  EXPECT_EQ(best.Color, Rgb(0x060606));
  EXPECT_EQ(best.Size, size + 3);
  EXPECT_TRUE(best.Bold);
  EXPECT_TRUE(best.DrawnByOwner);
  EXPECT_EQ(best.Flags, 4u);
  EXPECT_EQ(Cell(7, 1).Fill, Rgb(0x030303));
  EXPECT_EQ(Cell(7, 2).Fill, Rgb(0x040404));
  EXPECT_EQ(Cell(8, 2).Fill, Rgb(0x070707));
  EXPECT_EQ(Cell(8, 2).Color, Rgb(0x080808));
  EXPECT_TRUE(Cell(6, 3).Bold) << "the last price";
  EXPECT_FALSE(Cell(5, 3).Bold);

  host.lookAndFeel.indexedColours[6] = 0x090909;
  Repaint();
  EXPECT_EQ(Cell(6, 1).Fill, Rgb(0x050505)) << "until the skin is read again";
  grids->SetSkin();
  EXPECT_EQ(Cell(6, 1).Fill, Rgb(0x090909)) << "and painted at once";
}

TEST_F(TPriceGridsTest, AnInvalidSymbolIsRedUnlessTheSkinSectionHasAColour) {
  Record().SetState(Constdef::RecordState_Invalid);
  Make();
  EXPECT_EQ(Cell(0, 21).Fill, Rgb(System::clRed));
  host.config.Set("SKIN", "coLabelInvalidBground", "$00020202");
  grids->SetSkin();
  EXPECT_EQ(Cell(0, 21).Fill, Rgb(0x020202));
}

TEST_F(TPriceGridsTest, HighlightedBrokersAreThoseOfTheMoment) {
  Make();
  EXPECT_FALSE(Cell(1, 55).Bold);
  host.config.SetCurrent("SpecBrokerChecked", "Y");
  host.config.SetCurrent("DetailSpecialBroker", "1234");
  host.config.SetCurrent("DetailSpecialBrokerColor", "255");
  highlight.ReadConfiguration();
  Repaint();
  EXPECT_TRUE(Cell(1, 55).Bold);
  EXPECT_EQ(Cell(1, 55).Color, qRgb(255, 0, 0));
}

TEST_F(TPriceGridsTest, PerclickCellsAreStyledToo) {
  host.SetFeedType(Constdef::FeedType_PerClick);
  Record().Set(Field::Open, "300");
  Make();
  auto* price = form.PerclickPriceGridView;
  auto* info = form.PerclickInfoGridView;
  EXPECT_EQ(Cell(price, 0, 1).Fill, Rgb(0x050505));
  EXPECT_EQ(Cell(price, 0, 1).Text, "318.200");
  EXPECT_TRUE(Cell(price, 0, 1).Bold);
  EXPECT_EQ(Cell(price, 1, 2).Fill, Rgb(0x040404));
  EXPECT_EQ(Cell(info, 0, 10000).Fill, Rgb(0x010101));
  EXPECT_EQ(Cell(info, 1, 10000).Text, "300.000");
  EXPECT_EQ(Cell(info, 1, 10000).Flags, 5u);
  const auto height = [&](int row) {
    return info->CellBounds(row, ColumnOf(info, 10000)).height();
  };
  form.PerclickInfoGrid->setFixedHeight(200);
  info->SetDataRowHeight(20);
  EXPECT_EQ(height(0), 20);
  EXPECT_EQ(height(1), 30);
  EXPECT_EQ(height(3), 30);
}

TEST_F(TPriceGridsTest, TheLeftButtonAloneCopiesFromTheGridsOwnControl) {
  host.SetFeedType(Constdef::FeedType_PerClick);
  Record().Set(Field::Open, "300");
  Make();
  for (auto* each : grids->Controls())
    each->GroupID = each == &grids->Price() ? "depth" : "perclick";
  for (const auto button : {Qt::RightButton, Qt::MiddleButton})
    Click(form.PriceGrid, 6, 1, button);
  EXPECT_TRUE(host.channels.sentOrders.empty());
  Click(form.PriceGrid, 6, 16);
  Click(form.PerclickPriceGrid, 0, 1);
  Click(form.PerclickInfoGrid, 1, 10000);
  const auto& orders = host.channels.sentOrders;
  ASSERT_EQ(orders.size(), 3u);
  EXPECT_EQ(orders[0].quantity, 4000);
  EXPECT_EQ(orders[0].source, "depth");
  EXPECT_EQ(orders[1].price, 318.2);
  EXPECT_EQ(orders[2].price, 300);
  EXPECT_EQ(orders[2].source, "perclick");
}

TEST_F(TPriceGridsTest, TheDepthGridWaitsForTheTimerAndThePerclickGridsDoNot) {
  host.SetFeedType(Constdef::FeedType_PerClick);
  host.config.SetCurrent("QuorPriceUpdateInterval", "400");
  Make();
  Record().Set(Field::BestBid, "320").Update();
  EXPECT_EQ(Cell(form.PerclickPriceGridView, 0, 1).Text, "320.000");
  EXPECT_EQ(Cell(6, 1).Text, "318.200");
  EXPECT_TRUE(QTest::qWaitFor([&] { return Cell(6, 1).Text == "320.000"; }));
}

TEST_F(TPriceGridsTest, LastPriceChangeAndTimeOfTheSnapshot) {
  Make();
  grids->UpdateLastPrice();
  EXPECT_EQ(Text(form.lblUpdateTime), "") << "only when the quotes come per click";

  host.SetFeedType(Constdef::FeedType_PerClick);
  Make();
  EXPECT_EQ(Text(form.lblLast), "318.000");
  Record()
      .Set({{Field::Nominal, "320"}, {Field::Change, "+2"}, {Field::ChangePercent, "0.6"}})
      .Update();
  EXPECT_EQ(Text(form.lblLast), "320.000");
  EXPECT_EQ(Text(form.lblChange), "chg(+2)   chg%(0.6)");
  EXPECT_EQ(Text(form.lblUpdateTime), "Res_UpdateTime: 09:30");
  host.language.SetText("Res_UpdateTime", "Stand");
  grids->UpdateLastPrice();
  EXPECT_EQ(Text(form.lblUpdateTime), "Stand: 09:30");
  grids->RefreshPrice();
  EXPECT_EQ(host.subscriptions.refreshed, std::vector<std::string>{"700"});
}

TEST_F(TPriceGridsTest, TheLinesOverThePerclickGridsAreLargerThanTheForm) {
  QFont font = form.font();
  font.setPointSize(11);
  form.setFont(font);
  Make().SetLastPriceFonts();
  EXPECT_EQ(form.lblLast->font().pointSize(), 17);
  EXPECT_EQ(form.lblChange->font().pointSize(), 13);
}

} // namespace
