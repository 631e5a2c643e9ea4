#include "platform/GridFixture.h"
#include "platform/LookAndFeel.h"

#include <QBackingStore>
#include <QProcess>

#include <iostream>

using namespace Platform;

namespace {

constexpr QRgb Green = 0xFF004000;

/// What stands on the screen, without painting anything that is not due.
QImage OnScreen(const QWidget& window) {
  QApplication::processEvents();
  const auto* image = dynamic_cast<QImage*>(window.backingStore()->paintDevice());
  const QSizeF pixels = QSizeF(window.size()) * window.devicePixelRatio();
  return image ? image->copy(QRect(QPoint(), pixels.toSize())) : QImage();
}

class TGridPaintTest : public TGridTest {
protected:
  TPaintWatch Watch{&Grid};

  void SetUp() override {
    Show();
    Watch.Regions.clear();
  }

  QRect Bounds(int record, int column) const {
    return View->CellBounds(record, Columns[static_cast<std::size_t>(column)]);
  }
};

} // namespace

TEST_F(TGridPaintTest, ARefreshInWhichNothingChangedPaintsNothing) {
  View->Refresh();
  View->Repaint();
  Source.DataChanged();
  QApplication::processEvents();
  EXPECT_TRUE(Watch.Regions.empty());
}

TEST_F(TGridPaintTest, OneChangedCellIsPaintedAlone) {
  Source.Rows[2][1] = "77";
  View->Refresh();
  QApplication::processEvents();
  ASSERT_EQ(Watch.Regions.size(), 1u);
  EXPECT_EQ(Watch.Regions[0], QRegion(Bounds(2, 1)));
}

TEST_F(TGridPaintTest, AllChangedCellsArePaintedAtOnceAndNoOther) {
  Source.Rows[0][0] = "x";
  Source.Rows[0][1] = "x";
  Source.Rows[1][2] = "x";
  Source.Rows[3][0] = "x";
  Source.Rows[3][2] = "x";
  View->Refresh();
  QApplication::processEvents();
  ASSERT_EQ(Watch.Regions.size(), 1u);
  QRegion expected(QRect(0, 0, 100, 20));
  expected += Bounds(1, 2).adjusted(0, 0, 20, 0); // the last column goes on to the edge
  expected += Bounds(3, 0);
  expected += Bounds(3, 2).adjusted(0, 0, 20, 0);
  EXPECT_EQ(Watch.Regions[0], expected);
}

TEST_F(TGridPaintTest, AChangeOfLooksIsAChange) {
  View->OnCustomDrawCell = [](TcxCanvas& canvas, const TcxCellViewInfo& cell, bool&) {
    if (cell.Record == 1 && cell.Column->Tag == 0)
      canvas.FontBold = true;
  };
  View->Repaint();
  QApplication::processEvents();
  ASSERT_EQ(Watch.Regions.size(), 1u);
  EXPECT_EQ(Watch.Regions[0], QRegion(Bounds(1, 0)));
}

TEST_F(TGridPaintTest, MovedCellsPaintTheWholeGrid) {
  View->SetColumnWidth(Columns[0], 45);
  QApplication::processEvents();
  ASSERT_EQ(Watch.Regions.size(), 1u);
  EXPECT_EQ(Watch.Regions[0], QRegion(Grid.rect()));
  Source.Rows.pop_back();
  View->Refresh();
  QApplication::processEvents();
  ASSERT_EQ(Watch.Regions.size(), 2u);
  EXPECT_EQ(Watch.Regions[1], QRegion(Grid.rect()));
}

TEST_F(TGridPaintTest, AHiddenGridPaintsNothingAndIsRightWhenShown) {
  Grid.hide();
  QApplication::processEvents();
  Watch.Regions.clear();
  View->OnCustomDrawCell = [](TcxCanvas& canvas, const TcxCellViewInfo&, bool&) {
    canvas.BrushColor = Green;
  };
  View->Repaint();
  QApplication::processEvents();
  EXPECT_TRUE(Watch.Regions.empty());
  EXPECT_EQ(View->Cell(0, Columns[0])->Fill, Green);
  Show();
  EXPECT_EQ(OnScreen(Grid).pixel(0, 0), Green);
}

TEST_F(TGridPaintTest, PixelsFollowTheDescriptions) {
  View->OnCustomDrawCell = [](TcxCanvas& canvas, const TcxCellViewInfo& cell, bool&) {
    canvas.BrushColor = qRgb(cell.Record * 40, cell.Column->Tag * 40, 99);
  };
  View->Repaint();
  const QImage image = Grid.grab().toImage();
  for (int record = 0; record < 4; ++record) {
    for (int column = 0; column < 3; ++column) {
      const QRect bounds = Bounds(record, column);
      const QRgb fill = qRgb(record * 40, column * 40, 99);
      EXPECT_EQ(image.pixel(bounds.topLeft()), fill);
      EXPECT_EQ(image.pixel(bounds.bottomRight()), fill);
    }
  }
}

TEST_F(TGridPaintTest, TextIsPaintedWhereItsColumnAlignsIt) {
  const QImage image = Grid.grab().toImage();
  const auto inked = [&](const QRect& area) {
    for (int y = area.top(); y <= area.bottom(); ++y) {
      for (int x = area.left(); x <= area.right(); ++x) {
        if (image.pixel(x, y) != View->Cell(0, Columns[0])->Fill)
          return true;
      }
    }
    return false;
  };
  EXPECT_TRUE(inked({0, 0, 20, 20}));   // left
  EXPECT_FALSE(inked({25, 0, 15, 20})); // room beside it
  EXPECT_FALSE(inked({40, 0, 30, 20})); // room before a number
  EXPECT_TRUE(inked({80, 0, 20, 20}));  // right
}

TEST_F(TGridPaintTest, ARowGoesOnToTheEdgeAndWhatIsNoRowIsPaintedInTheContentColour) {
  View->OnCustomDrawCell = [](TcxCanvas& canvas, const TcxCellViewInfo&, bool&) {
    canvas.BrushColor = Green;
  };
  TcxRootLookAndFeel::Instance().SetSkinPainter(TSkinPainter{QColor(50, 60, 70), Qt::white});
  const QImage image = OnScreen(Grid);
  TcxRootLookAndFeel::Instance().SetSkinPainter(std::nullopt);
  EXPECT_EQ(image.pixel(149, 79), Green);
  EXPECT_EQ(image.pixel(150, 79), Green);
  EXPECT_EQ(image.pixel(169, 0), Green);
  EXPECT_EQ(image.pixel(169, 80), qRgb(50, 60, 70));
  EXPECT_EQ(image.pixel(149, 80), qRgb(50, 60, 70));
  EXPECT_EQ(image.pixel(169, 99), qRgb(50, 60, 70));
}

TEST_F(TGridPaintTest, AGridWithoutViewIsEmpty) {
  TcxGrid empty("Empty");
  empty.resize(20, 10);
  const QImage image = empty.grab().toImage();
  EXPECT_EQ(image.pixelColor(0, 0), empty.palette().color(QPalette::Base));
  EXPECT_EQ(image.pixelColor(19, 9), empty.palette().color(QPalette::Base));
}

// Cells whose borders fall between pixels: what is left over from the fill or the text before would
// show as a difference to painting everything.
TEST_F(TGridPaintTest, PaintingWhatChangedEqualsPaintingAll) {
  std::cout << "at scale " << Grid.devicePixelRatio() << std::endl;
  int step = 0;
  View->OnCustomDrawCell = [&](TcxCanvas& canvas, const TcxCellViewInfo& cell, bool&) {
    const bool changes = (cell.Record + cell.Column->Tag + step) % 3 == 0;
    canvas.BrushColor = changes ? qRgb(0, 90, 0) : qRgb(90, 0, 0);
  };
  View->SetDataRowHeight(17);
  View->SetColumnWidth(Columns[0], 41);
  for (step = 0; step < 3; ++step) {
    Source.Rows[1][1] = std::to_string(1000 + step);
    View->Refresh();
    const QImage changed = OnScreen(Grid);
    Grid.update();
    const QImage all = OnScreen(Grid);
    EXPECT_EQ(changed.width(), qRound(170 * Grid.devicePixelRatio()));
    EXPECT_EQ(changed, all) << "step " << step;
  }
}

TEST(GridAtScale, PaintingWhatChangedEqualsPaintingAll) {
  for (const char* scale : {"1.25", "1.5", "2"}) {
    QProcess scaled;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_SCALE_FACTOR", scale);
    scaled.setProcessEnvironment(environment);
    scaled.setProcessChannelMode(QProcess::MergedChannels);
    scaled.start(QApplication::applicationFilePath(), {"--gtest_filter=TGridPaintTest.Painting*"});
    ASSERT_TRUE(scaled.waitForFinished(60000));
    const std::string output = scaled.readAll().toStdString();
    EXPECT_EQ(scaled.exitCode(), 0) << output;
    EXPECT_NE(output.find("[  PASSED  ] 1 test"), std::string::npos) << output;
    EXPECT_NE(output.find(std::string("at scale ") + scale), std::string::npos) << output;
  }
}
