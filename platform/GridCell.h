#pragma once

#include <QColor>
#include <QFont>
#include <QRect>

#include <memory>
#include <string>

class QPainter;

namespace Platform {

/// Flags of DrawText. Vertical centring works on a single line only; text without
/// DT_SINGLELINE starts at the top of its rectangle.
inline constexpr unsigned DT_LEFT = 0x0;
inline constexpr unsigned DT_CENTER = 0x1;
inline constexpr unsigned DT_RIGHT = 0x2;
inline constexpr unsigned DT_VCENTER = 0x4;
inline constexpr unsigned DT_SINGLELINE = 0x20;

/// How one cell looks: what a test or a dump reads, and all that painting needs.
struct TCellDescription {
  std::string Text; ///< UTF-8
  QRgb Fill = 0;
  QRgb Color = 0;
  int Size = 0; ///< font size in points
  bool Bold = false;
  unsigned Flags = 0;        ///< DT_...
  bool DrawnByOwner = false; ///< the owner drew it, not the grid

  bool operator==(const TCellDescription&) const = default;
};

/// What a custom-draw handler paints a cell with. It starts with the grid's own choice; the
/// handler changes brush and font, and may fill and draw by itself.
class Q_DECL_EXPORT TcxCanvas {
public:
  QRgb BrushColor = 0;
  QRgb FontColor = 0;
  int FontSize = 0; ///< points
  bool FontBold = false;

  /// Starts a new cell.
  void Begin(QRgb brush, QRgb font, int fontSize);
  /// Fills the cell with the brush.
  void FillRect();
  /// Draws UTF-8 text in the cell with the font as it is now; of several texts the last one
  /// stays. An empty text draws nothing.
  void DrawText(const std::string& text, unsigned flags);

  /// The cell as the calls since Begin left it. `done`: the handler drew the cell itself, on the
  /// brush that Begin was given unless it filled the cell; otherwise the grid's own text is drawn
  /// with `flags`.
  void Finish(bool done, const std::string& text, unsigned flags, TCellDescription& cell) const;

private:
  TCellDescription drawn_; ///< what the handler filled and drew
};

/// Paints cells: fill, then text. Drawn texts are kept as pixels per look and text, bounded in
/// number, so that a text seen before is copied and not shaped again.
class Q_DECL_EXPORT TCellPainter {
public:
  static constexpr std::size_t MaxKeptTexts = 1024;

  TCellPainter();
  ~TCellPainter();

  /// Family and style come from `font`, size and weight from the cell. Nothing is painted outside
  /// `bounds`: words of the grid at the left that are too wide are shortened with an ellipsis,
  /// whatever else is too wide is squeezed to fit. The painter may be moved and scaled, not turned.
  void Paint(QPainter& painter, const TCellDescription& cell, const QRect& bounds,
             const QFont& font);

  /// Texts that are kept now; never more than MaxKeptTexts.
  std::size_t KeptTexts() const;

private:
  struct TCache;
  std::unique_ptr<TCache> cache_;
};

} // namespace Platform
