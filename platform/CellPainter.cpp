#include "platform/GridCell.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <limits>
#include <unordered_map>
#include <vector>

namespace Platform {

namespace {

constexpr int SidePadding = 2;
/// What a left-aligned text keeps from the figure that ends where its cell begins, where it fits.
constexpr int Indent = 6;
constexpr int Overhang = 1; ///< pixels of glyphs outside their advance, on either side
constexpr qreal unlimited = std::numeric_limits<qreal>::infinity();

/// A text on its cell's fill, so that its edges are smoothed as by plain drawing. In pixels.
struct TDrawnText {
  QImage Image;
  qreal Height = 0;
  qreal Ascent = 0;
};

struct TLookHash {
  std::size_t operator()(const TCellDescription& cell) const {
    std::size_t hash = std::hash<std::string>()(cell.Text);
    hash = hash * 31 + cell.Color;
    hash = hash * 31 + cell.Fill;
    return hash * 31 + static_cast<std::size_t>(cell.Size << 1 | (cell.Bold ? 1 : 0));
  }
};

using TTexts = std::unordered_map<TCellDescription, TDrawnText, TLookHash>;

QTextLine LayOut(QTextLayout& layout) {
  QTextOption option;
  option.setWrapMode(QTextOption::NoWrap);
  layout.setTextOption(option);
  layout.beginLayout();
  const QTextLine line = layout.createLine();
  layout.endLayout();
  return line;
}

/// No wider than `room` pixels.
TDrawnText DrawText(const TCellDescription& cell, const QFont& font, qreal scale, qreal room) {
  QTextLayout layout(QString::fromStdString(cell.Text), font);
  const QTextLine line = LayOut(layout);
  const qreal natural = line.naturalTextWidth() * scale;
  const qreal width = std::min(natural, room);
  const qreal height = (line.ascent() + line.descent()) * scale;
  const QSize size(static_cast<int>(std::ceil(width)) + 2 * Overhang,
                   static_cast<int>(std::ceil(height)));
  QImage image(size, QImage::Format_RGB32);
  image.fill(cell.Fill);
  QPainter painter(&image);
  painter.setPen(QColor(cell.Color));
  painter.translate(cell.Flags & DT_RIGHT ? size.width() - Overhang - width : Overhang, 0);
  painter.scale(scale * (natural > 0 ? width / natural : 1), scale);
  layout.draw(&painter, {});
  painter.end();
  return {image, height, line.ascent() * scale};
}

QRect ToPixels(const QTransform& transform, const QRect& bounds) {
  const QRectF mapped = transform.mapRect(QRectF(bounds));
  const QPoint topLeft(qRound(mapped.left()), qRound(mapped.top()));
  return {topLeft, QPoint(qRound(mapped.right()), qRound(mapped.bottom())) - QPoint(1, 1)};
}

QPoint TextPosition(const TDrawnText& text, const QRect& pixels, unsigned flags, qreal scale) {
  const int inset = qRound(SidePadding * scale) - Overhang;
  const int room = pixels.width() - text.Image.width() - inset;
  int x = pixels.left() + std::clamp(room, inset, qRound(Indent * scale) - Overhang);
  if (flags & DT_RIGHT)
    x = pixels.right() + 1 - inset - text.Image.width();
  else if (flags & DT_CENTER)
    x = pixels.left() + (pixels.width() - text.Image.width()) / 2;
  constexpr unsigned centred = DT_VCENTER | DT_SINGLELINE;
  if ((flags & centred) != centred)
    return {x, pixels.top()};
  const qreal baseline = (pixels.height() - text.Height) / 2 + text.Ascent;
  return {x, pixels.top() + qRound(baseline) - qRound(text.Ascent)};
}

bool IsFigure(const TCellDescription& cell) {
  const auto isOfWords = [](char c) {
    return std::isalpha(static_cast<unsigned char>(c)) || c < 0;
  };
  return cell.DrawnByOwner || cell.Flags & (DT_RIGHT | DT_CENTER) ||
         std::ranges::none_of(cell.Text, isOfWords);
}

void PaintText(QPainter& painter, const TDrawnText& text, const QPoint& position,
               const QRect& pixels) {
  const QRect place(position, text.Image.size());
  const QRect inside = place & pixels;
  if (inside == place)
    painter.drawImage(position, text.Image);
  else
    painter.drawImage(inside.topLeft(), text.Image, inside.translated(-position));
}

} // namespace

/// A text is among the younger ones from its last use on. When these are half of what may be kept,
/// they become the older ones, and what was not used since is dropped.
struct TCellPainter::TCache {
  QFont Font;
  qreal Scale = 1;
  std::vector<QFont> Styles; ///< Font in the sizes and weights of the cells
  TTexts Younger;
  TTexts Older;

  void Prepare(const QFont& font, qreal scale);
  const QFont& Style(int size, bool bold);
  const TDrawnText& Text(const TCellDescription& cell);
  /// With an ellipsis at its end, no wider than `room`.
  const TDrawnText& Shortened(TCellDescription cell, qreal room);
};

void TCellPainter::TCache::Prepare(const QFont& font, qreal scale) {
  if (Scale == scale && (font.isCopyOf(Font) || font == Font))
    return;
  Styles.clear();
  Younger.clear();
  Older.clear();
  Font = font;
  Scale = scale;
}

const QFont& TCellPainter::TCache::Style(int size, bool bold) {
  for (const QFont& style : Styles) {
    if (style.pointSize() == size && style.bold() == bold)
      return style;
  }
  QFont& style = Styles.emplace_back(Font);
  style.setPointSize(size);
  style.setBold(bold);
  return style;
}

const TDrawnText& TCellPainter::TCache::Text(const TCellDescription& cell) {
  const auto young = Younger.find(cell);
  if (young != Younger.end())
    return young->second;
  if (Younger.size() >= MaxKeptTexts / 2) {
    Older.swap(Younger);
    Younger.clear();
  }
  if (auto old = Older.extract(cell))
    return Younger.insert(std::move(old)).position->second;
  return Younger.emplace(cell, DrawText(cell, Style(cell.Size, cell.Bold), Scale, unlimited))
      .first->second;
}

const TDrawnText& TCellPainter::TCache::Shortened(TCellDescription cell, qreal room) {
  const QFontMetricsF metrics(Style(cell.Size, cell.Bold));
  cell.Text =
      metrics.elidedText(QString::fromStdString(cell.Text), Qt::ElideRight, room).toStdString();
  return Text(cell);
}

TCellPainter::TCellPainter() : cache_(std::make_unique<TCache>()) {}

TCellPainter::~TCellPainter() = default;

void TCellPainter::Paint(QPainter& painter, const TCellDescription& cell, const QRect& bounds,
                         const QFont& font) {
  const QTransform world = painter.worldTransform();
  const QTransform toPixels = painter.deviceTransform();
  const QRect pixels = ToPixels(toPixels, bounds);
  painter.setWorldTransform(toPixels.inverted() * world);
  painter.fillRect(pixels, QColor(cell.Fill));
  if (!cell.Text.empty() && !pixels.isEmpty()) {
    const qreal scale = toPixels.m11();
    cache_->Prepare(font, scale);
    const TDrawnText& text = cache_->Text(cell);
    const int room = pixels.width() - 2 * (qRound(SidePadding * scale) - Overhang);
    const int indentedRoom = room - qRound((Indent - SidePadding) * scale);
    const auto paint = [&](const TDrawnText& drawn) {
      PaintText(painter, drawn, TextPosition(drawn, pixels, cell.Flags, scale), pixels);
    };
    // A figure that is cut off looks like a smaller one, so it is squeezed; words are shortened.
    if (IsFigure(cell) && text.Image.width() > room && room > 2 * Overhang)
      paint(DrawText(cell, cache_->Style(cell.Size, cell.Bold), scale, room - 2 * Overhang));
    else if (!IsFigure(cell) && text.Image.width() > indentedRoom)
      paint(cache_->Shortened(cell, (indentedRoom - 2 * Overhang) / scale));
    else
      paint(text);
  }
  painter.setWorldTransform(world);
}

std::size_t TCellPainter::KeptTexts() const {
  return cache_->Younger.size() + cache_->Older.size();
}

} // namespace Platform
