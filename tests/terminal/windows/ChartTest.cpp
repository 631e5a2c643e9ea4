#include "terminal/windows/Chart.h"

#include "platform/Colour.h"
#include "terminal/script/input/Input.h"
#include "terminal/services/Services.h"
#include "terminal/windows/ChartLayout.h"

#include <QPaintEvent>

#include <gtest/gtest.h>

namespace Terminal {
namespace {

const QRectF Area(10, 20, 400, 200);

TTradeBar Bar(int minute, double open, double high, double low, double close, double volume = 100) {
  return {minute, open, high, low, close, volume};
}

QStringList Times(const TChartLayout& layout, double gap) {
  QStringList times;
  for (const auto& mark : layout.TimeMarks(gap))
    times.append(mark.Time);
  return times;
}

TEST(ChartLayout, HigherPricesStandHigherAndLaterMinutesFurtherRight) {
  const TChartLayout layout({Bar(570, 10, 12, 9, 11), Bar(571, 11, 11.5, 10.5, 10.6)}, Area, 10);
  const QRectF range = layout.Range(layout.Bars()[0]);
  EXPECT_EQ(range.top(), layout.Y(12));
  EXPECT_EQ(range.bottom(), layout.Y(9));
  EXPECT_LT(layout.Y(12), layout.Y(9));
  EXPECT_GE(layout.Y(12), Area.top());
  EXPECT_LE(layout.Y(9), Area.bottom());
  EXPECT_EQ(layout.X(571) - layout.X(570), 10);
  const QRectF body = layout.Body(layout.Bars()[1]);
  EXPECT_EQ(body.top(), layout.Y(11));
  EXPECT_EQ(body.bottom(), layout.Y(10.6));
}

TEST(ChartLayout, AMinuteThatDidNotMoveCanStillBeSeen) {
  const TChartLayout layout({Bar(570, 10, 10, 10, 10)}, Area, 10);
  EXPECT_EQ(layout.Body(layout.Bars()[0]).height(), 1);
}

TEST(ChartLayout, VolumesAreMeasuredAgainstTheLargest) {
  const TChartLayout layout({Bar(570, 10, 10, 10, 10, 400), Bar(571, 10, 10, 10, 10, 100)}, Area,
                            10);
  const QRectF large = layout.Volume(layout.Bars()[0]);
  const QRectF small = layout.Volume(layout.Bars()[1]);
  EXPECT_EQ(large.height(), 4 * small.height());
  EXPECT_EQ(small.bottom(), Area.bottom());
  EXPECT_LT(layout.Range(layout.Bars()[0]).bottom(), large.top()) << "prices stand above volumes";
}

TEST(ChartLayout, ShowsTheLatestMinutesThatThereIsRoomFor) {
  std::vector<TTradeBar> bars;
  for (int minute = 570; minute < 670; ++minute)
    bars.push_back(Bar(minute, 10, 10, 10, 10));
  const TChartLayout layout(bars, Area, 10);
  ASSERT_EQ(layout.Bars().size(), 40u);
  EXPECT_EQ(layout.Bars().front().Minute, 630);
  EXPECT_EQ(layout.X(630), Area.left() + 5);
  EXPECT_EQ(layout.X(669), Area.right() - 5);
}

TEST(ChartLayout, PricesThatLeftThePictureDoNotFlattenIt) {
  std::vector<TTradeBar> bars{Bar(570, 1000, 1000, 1000, 1000)};
  for (int minute = 600; minute < 640; ++minute)
    bars.push_back(Bar(minute, 10, 11, 10, 11));
  const TChartLayout layout(bars, Area, 10);
  EXPECT_GT(layout.Range(layout.Bars()[0]).height(), 100);
}

TEST(ChartLayout, LunchTakesNoRoomAndTheBreakIsMarked) {
  const TChartLayout layout({Bar(719, 10, 10, 10, 10), Bar(780, 10, 10, 10, 10)}, Area, 10);
  EXPECT_EQ(layout.X(780) - layout.X(719), 20) << "12:00 itself is the morning's";
  EXPECT_EQ(layout.SessionBreak(), layout.X(780) - 5);
  const TChartLayout morning({Bar(719, 10, 10, 10, 10)}, Area, 10);
  EXPECT_FALSE(morning.SessionBreak().has_value());
}

TEST(ChartLayout, AMarketThatTradesThroughNoonHasNoBreak) {
  const TChartLayout layout(
      {Bar(719, 10, 10, 10, 10), Bar(750, 10, 10, 10, 10), Bar(780, 10, 10, 10, 10)}, Area, 5);
  EXPECT_EQ(layout.X(780) - layout.X(719), 61 * 5);
  EXPECT_FALSE(layout.SessionBreak().has_value());
}

TEST(ChartLayout, MarksRoundPricesAndTimes) {
  const TChartLayout layout({Bar(571, 10, 10.4, 9.6, 10), Bar(600, 10, 10, 10, 10)}, Area, 10);
  std::vector<double> prices;
  for (const auto& mark : layout.PriceMarks(30)) {
    EXPECT_DOUBLE_EQ(mark.Place, layout.Y(mark.Price));
    prices.push_back(std::round(mark.Price * 1000) / 1000);
  }
  EXPECT_EQ(prices, (std::vector<double>{9.6, 9.8, 10, 10.2, 10.4}));
  EXPECT_EQ(Times(layout, 100), (QStringList{"09:40", "09:50", "10:00", "10:10"}));
}

TEST(ChartLayout, NoTimeOfTheLunchHourIsMarked) {
  const TChartLayout layout({Bar(700, 10, 10, 10, 10), Bar(790, 10, 10, 10, 10)}, Area, 10);
  EXPECT_EQ(Times(layout, 50),
            (QStringList{"11:40", "11:45", "11:50", "11:55", "12:00", "13:05", "13:10", "13:15"}));
}

class TChartTest : public testing::Test {
protected:
  struct TCounted : TChart {
    using TChart::TChart;
    void paintEvent(QPaintEvent* event) override {
      ++Paints;
      TChart::paintEvent(event);
    }
    int Paints = 0;
  };

  TChartTest() {
    View.SetSymbol(QStringLiteral("700"));
    View.resize(400, 300);
    View.show();
    Input::Activate(&View);
  }

  void Trade(const char* symbol, const char* time, double price) {
    Services.TradeSides.AddTrade(symbol, {time, "", "100", price});
    Input::Deliver();
  }

  int PixelsOf(const QColor& colour) {
    const QImage picture = View.grab().toImage();
    int count = 0;
    for (int y = 0; y < picture.height(); ++y)
      for (int x = 0; x < picture.width(); ++x)
        count += picture.pixelColor(x, y) == colour;
    return count;
  }

  QColor Rising() const { return Platform::ToQColor(Services.Skin.Up().Text); }
  QColor Falling() const { return Platform::ToQColor(Services.Skin.Down().Text); }

  TServices Services;
  TTradeBars Bars{Services.TradeSides};
  TCounted View{Services, Bars};
};

TEST_F(TChartTest, PaintsAMinuteThatRoseInTheColourOfRising) {
  Trade("700", "10:00:00", 10);
  Trade("700", "10:00:30", 11);
  EXPECT_GT(PixelsOf(Rising()), 50);
  EXPECT_EQ(PixelsOf(Falling()), 0);
}

TEST_F(TChartTest, PaintsAMinuteThatFellInTheColourOfFalling) {
  Trade("700", "10:00:00", 11);
  Trade("700", "10:00:30", 10);
  EXPECT_GT(PixelsOf(Falling()), 50);
  EXPECT_EQ(PixelsOf(Rising()), 0);
}

TEST_F(TChartTest, IsPaintedAnewOnlyWhenItsSymbolIsTraded) {
  Trade("700", "10:00:00", 10);
  const int before = View.Paints;
  Trade("5", "10:00:01", 10);
  EXPECT_EQ(View.Paints, before);
  Trade("700", "10:00:02", 10);
  EXPECT_EQ(View.Paints, before + 1);
}

TEST_F(TChartTest, IsEmptyAfterAJumpToBeforeTheFirstTrade) {
  Trade("700", "10:00:00", 10);
  Trade("700", "10:00:30", 11);
  Services.TradeSides.ReplaceTrades("700", {});
  EXPECT_EQ(PixelsOf(Rising()), 0);
}

TEST_F(TChartTest, PlusAndMinusChangeHowMuchOfTheDayIsSeen) {
  const double before = View.MinuteWidth();
  Input::PressKey(&View, Qt::Key_Plus);
  EXPECT_GT(View.MinuteWidth(), before);
  Input::PressKey(&View, Qt::Key_Minus);
  EXPECT_EQ(View.MinuteWidth(), before);
  for (int i = 0; i < 20; ++i)
    Input::PressKey(&View, Qt::Key_Minus);
  EXPECT_EQ(View.MinuteWidth(), 1);
}

} // namespace
} // namespace Terminal
