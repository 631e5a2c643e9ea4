#include "platform/GridCell.h"

#include <QFontMetrics>
#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

using namespace Platform;

namespace {

constexpr QRgb Fill = 0xFF102030;
constexpr QRgb Ink = 0xFFFFFFC0;
constexpr QRgb Paper = 0xFFFF00FF;
constexpr unsigned OneLine = DT_VCENTER | DT_SINGLELINE;

TCellDescription Cell(std::string text, unsigned flags) {
  return {std::move(text), Fill, Ink, 10, false, flags, false};
}

QImage Canvas(qreal scale = 1) {
  QImage image(QSizeF(200 * scale, 60 * scale).toSize(), QImage::Format_RGB32);
  image.setDevicePixelRatio(scale);
  image.fill(Paper);
  return image;
}

QImage Painted(const TCellDescription& cell, const QRect& bounds, qreal scale = 1) {
  QImage image = Canvas(scale);
  QPainter painter(&image);
  TCellPainter cells;
  cells.Paint(painter, cell, bounds, QFont());
  cells.Paint(painter, cell, bounds, QFont()); // the second time from what is kept
  return image;
}

QImage DrawnPlainly(const TCellDescription& cell, const QRect& bounds, int alignment, qreal scale) {
  QImage image = Canvas(scale);
  QPainter painter(&image);
  QFont font;
  font.setPointSize(cell.Size);
  font.setBold(cell.Bold);
  painter.setFont(font);
  painter.fillRect(bounds, QColor(cell.Fill));
  painter.setPen(QColor(cell.Color));
  const int indent = alignment & Qt::AlignLeft ? 6 : 2;
  painter.drawText(bounds.adjusted(indent, 0, -2, 0), alignment, QString::fromStdString(cell.Text));
  return image;
}

/// The rectangle of the pixels that `matches`; empty when there is none.
template <typename TMatch> QRect Where(const QImage& image, TMatch matches) {
  QRect where;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (matches(image.pixel(x, y)))
        where |= QRect(x, y, 1, 1);
    }
  }
  return where;
}

QRect Glyphs(const QImage& image) {
  return Where(image, [](QRgb pixel) { return pixel != Fill && pixel != Paper; });
}

QRect Covered(const QImage& image) {
  return Where(image, [](QRgb pixel) { return pixel != Paper; });
}

} // namespace

TEST(CellPainter, LooksAsPlainlyDrawnText) {
  const QRect bounds(20, 10, 90, 20);
  for (const qreal scale : {1.0, 1.5, 2.0}) {
    for (const bool bold : {false, true}) {
      TCellDescription cell = Cell("12345.678", OneLine | DT_RIGHT);
      cell.Bold = bold;
      EXPECT_EQ(Painted(cell, bounds, scale),
                DrawnPlainly(cell, bounds, Qt::AlignRight | Qt::AlignVCenter, scale))
          << scale << bold;
      cell.Flags = OneLine;
      EXPECT_EQ(Painted(cell, bounds, scale),
                DrawnPlainly(cell, bounds, Qt::AlignLeft | Qt::AlignVCenter, scale))
          << scale << bold;
    }
  }
}

TEST(CellPainter, IsSharpBetweenWholePixels) {
  const TCellDescription cell = Cell("8888", OneLine | DT_RIGHT);
  const QRect bounds(21, 11, 91, 21);
  const QImage plain = DrawnPlainly(cell, bounds, Qt::AlignRight | Qt::AlignVCenter, 1.25);
  const QImage painted = Painted(cell, bounds, 1.25);
  EXPECT_EQ(Covered(painted), Covered(plain));
  const QRect glyphs = Glyphs(painted);
  const QRect expected = Glyphs(plain);
  EXPECT_EQ(glyphs.size(), expected.size());
  EXPECT_LE((glyphs.topLeft() - expected.topLeft()).manhattanLength(), 1);
}

TEST(CellPainter, FillsExactlyItsBounds) {
  EXPECT_EQ(Covered(Painted(Cell("", OneLine), {20, 10, 90, 20})), QRect(20, 10, 90, 20));
  EXPECT_EQ(Covered(Painted(Cell("", OneLine), {20, 10, 90, 20}, 1.25)), QRect(25, 13, 113, 25));
  const QImage image = Painted(Cell("", OneLine), {20, 10, 90, 20});
  EXPECT_EQ(image.pixel(60, 20), Fill);
}

TEST(CellPainter, FlagsPlaceTheText) {
  const QRect bounds(20, 10, 90, 40);
  const QRect left = Glyphs(Painted(Cell("888", OneLine | DT_LEFT), bounds));
  const QRect centre = Glyphs(Painted(Cell("888", OneLine | DT_CENTER), bounds));
  const QRect right = Glyphs(Painted(Cell("888", OneLine | DT_RIGHT), bounds));
  EXPECT_NEAR(left.left(), bounds.left() + 7, 1);
  EXPECT_NEAR(right.right(), bounds.right() - 3, 1);
  EXPECT_NEAR(centre.center().x(), bounds.center().x(), 1);
  EXPECT_NEAR(left.center().y(), bounds.center().y(), 2);
  EXPECT_EQ(left.top(), right.top());
}

TEST(CellPainter, ATextThatFillsItsCellIsNotIndentedBeyondIt) {
  const int width = Glyphs(Painted(Cell("888", OneLine), {20, 10, 90, 20})).width();
  const QRect narrow = Glyphs(Painted(Cell("888", OneLine), {20, 10, width + 5, 20}));
  EXPECT_NEAR(narrow.left(), 20 + 3, 1);
  EXPECT_EQ(narrow.width(), width);
}

TEST(CellPainter, CentresUpAndDownOnASingleLineOnly) {
  const QRect bounds(20, 10, 90, 40);
  const QRect centred = Glyphs(Painted(Cell("888", DT_VCENTER | DT_SINGLELINE), bounds));
  const QRect vcenter = Glyphs(Painted(Cell("888", DT_VCENTER), bounds));
  const QRect singleLine = Glyphs(Painted(Cell("888", DT_SINGLELINE), bounds));
  const QRect plain = Glyphs(Painted(Cell("888", DT_LEFT), bounds));
  EXPECT_EQ(vcenter, plain);
  EXPECT_EQ(singleLine, plain);
  EXPECT_LT(plain.bottom(), bounds.center().y());
  EXPECT_GT(centred.top(), plain.top() + 8);
}

TEST(CellPainter, NothingIsPaintedOutsideTheCell) {
  const QRect bounds(60, 20, 30, 8);
  for (const unsigned align : {DT_LEFT, DT_CENTER, DT_RIGHT}) {
    const QImage image = Painted(Cell("WWWWWWWWWW", OneLine | align), bounds);
    EXPECT_EQ(Covered(image), bounds) << align;
    EXPECT_FALSE(Glyphs(image).isEmpty()) << align;
  }
}

TEST(CellPainter, AFigureThatIsTooWideIsSqueezedAndNotCutOff) {
  const QRect bounds(20, 10, 50, 20);
  for (const qreal scale : {1.0, 1.25, 2.0}) {
    const auto glyphs = [&](const char* text, unsigned align) {
      const QRect all = Glyphs(Painted(Cell(text, OneLine | align), bounds, scale));
      return QRectF(all.topLeft() / scale, all.size() / scale);
    };
    const QRectF right = glyphs("123,456,789,018", DT_RIGHT);
    EXPECT_GE(right.left(), 22);
    EXPECT_LE(right.left(), 26);
    EXPECT_NEAR(right.right(), glyphs("8", DT_RIGHT).right(), 1);
    EXPECT_NEAR(right.height(), glyphs("1,", DT_RIGHT).height(), 2) << "as high as ever";
    const QRectF centre = glyphs("888,888,888,888", DT_CENTER);
    EXPECT_GE(centre.left(), 22);
    EXPECT_LE(centre.right(), 68.5);
  }
  EXPECT_NE(Painted(Cell("123,456,789", OneLine | DT_RIGHT), bounds),
            Painted(Cell("23,456,789", OneLine | DT_RIGHT), bounds));
}

TEST(CellPainter, AFigureThatTheOwnerDrawsIsSqueezedToo) {
  const QRect bounds(20, 10, 50, 20);
  TCellDescription cell = Cell("10000.005", DT_VCENTER);
  cell.DrawnByOwner = true;
  cell.Size = 14;
  cell.Bold = true;
  const QImage whole = Painted(cell, bounds);
  EXPECT_LE(Glyphs(whole).right(), bounds.right() - 1);
  cell.Text = "10000.00";
  EXPECT_NE(Painted(cell, bounds), whole) << "the last digit is seen";
  cell.Text = "10000.005";
  const QRect wide(20, 10, 150, 20);
  EXPECT_NEAR(Glyphs(Painted(cell, wide)).height(), Glyphs(whole).height(), 2) << "as high as ever";
}

TEST(CellPainter, AnIdAtTheLeftThatIsTooWideIsSqueezed) {
  EXPECT_LE(Glyphs(Painted(Cell("88888888", OneLine), {20, 10, 40, 20})).right(), 58);
}

TEST(CellPainter, WordsThatAreTooWideAreShortenedAtOneIndent) {
  const QRect bounds(20, 10, 60, 20);
  const QFontMetrics metrics(QFont(QFont().family(), 10));
  for (const char* name : {"HARBOUR SECURITIES", "滙豐金融證券經紀有限公司", "HARBOUR S"}) {
    const auto shortened = metrics.elidedText(QString::fromUtf8(name), Qt::ElideRight, 60 - 6 - 2);
    ASSERT_TRUE(shortened.endsWith(QChar(0x2026))) << name;
    EXPECT_EQ(Painted(Cell(name, OneLine), bounds),
              Painted(Cell(shortened.toStdString(), OneLine), bounds))
        << name;
    EXPECT_GE(Glyphs(Painted(Cell(name, OneLine), bounds)).left(), 26) << name;
    EXPECT_LE(Glyphs(Painted(Cell(name, OneLine), bounds)).right(), 78) << name;
  }
}

TEST(CellPainter, DigitsOfRightAlignedNumbersStandInColumns) {
  QImage image = Canvas();
  QPainter painter(&image);
  TCellPainter cells;
  cells.Paint(painter, Cell("8.88", OneLine | DT_RIGHT), {0, 0, 100, 20}, QFont());
  cells.Paint(painter, Cell("12348.88", OneLine | DT_RIGHT), {0, 20, 100, 20}, QFont());
  painter.end();
  const int start = Glyphs(image.copy(0, 0, 100, 20)).left();
  EXPECT_EQ(image.copy(start, 0, 100 - start, 20), image.copy(start, 20, 100 - start, 20));
}

TEST(CellPainter, ColourSizeAndWeightCount) {
  const QRect bounds(20, 10, 150, 40);
  TCellDescription cell = Cell("8888", OneLine);
  const QRect normal = Glyphs(Painted(cell, bounds));
  cell.Bold = true;
  EXPECT_GT(Glyphs(Painted(cell, bounds)).width(), normal.width());
  cell.Bold = false;
  cell.Size = 20;
  EXPECT_GT(Glyphs(Painted(cell, bounds)).height(), normal.height() + 5);
  cell.Color = 0xFF00FF00;
  const QImage green = Painted(cell, bounds);
  EXPECT_FALSE(Where(green, [](QRgb pixel) { return pixel == 0xFF00FF00; }).isEmpty());
  EXPECT_TRUE(Where(green, [](QRgb pixel) { return pixel == Ink; }).isEmpty());
}

TEST(CellPainter, OneTextInTwoLooksIsKeptTwice) {
  QImage image = Canvas();
  QPainter painter(&image);
  TCellPainter cells;
  TCellDescription cell = Cell("1", OneLine);
  cells.Paint(painter, cell, {0, 0, 50, 20}, QFont());
  cells.Paint(painter, cell, {0, 20, 60, 30}, QFont());
  EXPECT_EQ(cells.KeptTexts(), 1u);
  cell.Color = 0xFF00FF00;
  cells.Paint(painter, cell, {0, 0, 50, 20}, QFont());
  EXPECT_EQ(cells.KeptTexts(), 2u);
  cells.Paint(painter, Cell("", OneLine), {0, 0, 50, 20}, QFont());
  EXPECT_EQ(cells.KeptTexts(), 2u);
}

TEST(CellPainter, OnePainterPaintsEveryLook) {
  QImage image = Canvas();
  QPainter painter(&image);
  TCellPainter cells;
  TCellDescription cell = Cell("8888", OneLine);
  int top = 0;
  QImage alone = Canvas();
  QPainter freshly(&alone);
  for (const auto& [size, bold] : {std::pair(10, false), {10, true}, {12, false}}) {
    cell.Size = size;
    cell.Bold = bold;
    cells.Paint(painter, cell, {0, top, 90, 20}, QFont());
    TCellPainter().Paint(freshly, cell, {0, top, 90, 20}, QFont());
    top += 20;
  }
  painter.end();
  freshly.end();
  EXPECT_EQ(image, alone);
}

TEST(CellPainter, KeepsABoundedNumberOfTexts) {
  QImage image = Canvas();
  QPainter painter(&image);
  TCellPainter cells;
  std::size_t most = 0;
  for (int i = 0; i < 3000; ++i) {
    cells.Paint(painter, Cell(std::to_string(i), OneLine), {0, 0, 50, 20}, QFont());
    most = std::max(most, cells.KeptTexts());
  }
  EXPECT_EQ(most, TCellPainter::MaxKeptTexts);
}

TEST(CellPainter, ATextInUseOutlivesManyOthers) {
  QImage image = Canvas();
  QPainter painter(&image);
  TCellPainter cells;
  const TCellDescription used = Cell("used", OneLine);
  for (int i = 0; i < 3000; ++i) {
    cells.Paint(painter, Cell(std::to_string(i), OneLine), {0, 0, 50, 20}, QFont());
    const std::size_t before = cells.KeptTexts();
    cells.Paint(painter, used, {0, 0, 50, 20}, QFont());
    ASSERT_LE(cells.KeptTexts(), std::max<std::size_t>(before, 2)) << "shaped again at " << i;
  }
}

TEST(CellPainter, AnotherFontIsNotPaintedFromWhatIsKept) {
  QImage image = Canvas();
  QPainter painter(&image);
  TCellPainter cells;
  const TCellDescription cell = Cell("italic", OneLine);
  cells.Paint(painter, cell, {0, 0, 90, 20}, QFont());
  QFont italic;
  italic.setItalic(true);
  cells.Paint(painter, cell, {0, 20, 90, 20}, italic);
  painter.end();
  EXPECT_NE(image.copy(0, 0, 90, 20), image.copy(0, 20, 90, 20));
}

TEST(CellPainter, LeavesThePainterWhereItWas) {
  QImage image = Canvas();
  QPainter painter(&image);
  painter.translate(30, 5);
  TCellPainter().Paint(painter, Cell("1", OneLine), {10, 10, 20, 20}, QFont());
  EXPECT_EQ(painter.worldTransform(), QTransform::fromTranslate(30, 5));
  painter.end();
  EXPECT_EQ(Covered(image), QRect(40, 15, 20, 20));
}
