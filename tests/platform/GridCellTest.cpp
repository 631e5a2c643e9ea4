#include "platform/GridCell.h"

#include <gtest/gtest.h>

using namespace Platform;

namespace {

constexpr QRgb Brush = 0xFF101010;
constexpr QRgb Ink = 0xFFE0E0E0;
constexpr QRgb Red = 0xFFFF0000;
constexpr unsigned GridFlags = DT_VCENTER | DT_SINGLELINE;

TCellDescription Finished(const TcxCanvas& canvas, bool done) {
  TCellDescription cell{"left over", 1, 2, 3, true, 4, !done};
  canvas.Finish(done, "grid", GridFlags, cell);
  return cell;
}

class TCanvasTest : public ::testing::Test {
protected:
  TcxCanvas Canvas;
  void SetUp() override { Canvas.Begin(Brush, Ink, 9); }
};

} // namespace

TEST_F(TCanvasTest, UntouchedACellIsTheGrids) {
  EXPECT_EQ(Finished(Canvas, false),
            (TCellDescription{"grid", Brush, Ink, 9, false, GridFlags, false}));
}

TEST_F(TCanvasTest, BrushAndFontAreTheHandlers) {
  Canvas.BrushColor = Red;
  Canvas.FontColor = Brush;
  Canvas.FontSize = 12;
  Canvas.FontBold = true;
  EXPECT_EQ(Finished(Canvas, false),
            (TCellDescription{"grid", Red, Brush, 12, true, GridFlags, false}));
}

TEST_F(TCanvasTest, ADoneCellIsWhatTheHandlerDrew) {
  Canvas.BrushColor = Red;
  Canvas.FillRect();
  Canvas.FontBold = true;
  Canvas.FontSize = 12;
  Canvas.DrawText("own", DT_CENTER | DT_VCENTER);
  EXPECT_EQ(Finished(Canvas, true),
            (TCellDescription{"own", Red, Ink, 12, true, DT_CENTER | DT_VCENTER, true}));
}

TEST_F(TCanvasTest, TheFontIsThatOfTheMomentOfDrawing) {
  Canvas.FontColor = Red;
  Canvas.DrawText("own", DT_LEFT);
  Canvas.FontColor = Ink;
  Canvas.FontBold = true;
  EXPECT_EQ(Finished(Canvas, true).Color, Red);
  EXPECT_FALSE(Finished(Canvas, true).Bold);
}

TEST_F(TCanvasTest, AnEmptyTextDrawsNothing) {
  Canvas.BrushColor = Red;
  Canvas.FillRect();
  Canvas.DrawText("", DT_CENTER);
  const TCellDescription cell = Finished(Canvas, true);
  EXPECT_EQ(cell.Text, "");
  EXPECT_EQ(cell.Fill, Red);
  EXPECT_TRUE(cell.DrawnByOwner);
  Canvas.DrawText("own", DT_LEFT);
  Canvas.DrawText("", DT_LEFT);
  EXPECT_EQ(Finished(Canvas, true).Text, "own");
}

TEST_F(TCanvasTest, ADoneCellThatWasNotFilledStandsOnTheGridsBrush) {
  Canvas.BrushColor = Red;
  EXPECT_EQ(Finished(Canvas, true).Fill, Brush);
}

TEST_F(TCanvasTest, NothingStaysFromTheCellBefore) {
  Canvas.BrushColor = Red;
  Canvas.FontBold = true;
  Canvas.FillRect();
  Canvas.DrawText("own", DT_CENTER);
  Canvas.Begin(Brush, Ink, 9);
  EXPECT_EQ(Finished(Canvas, true), (TCellDescription{"", Brush, Ink, 9, false, 0, true}));
  EXPECT_EQ(Finished(Canvas, false),
            (TCellDescription{"grid", Brush, Ink, 9, false, GridFlags, false}));
}
