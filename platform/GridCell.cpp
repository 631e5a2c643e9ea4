#include "platform/GridCell.h"

namespace Platform {

void TcxCanvas::Begin(QRgb brush, QRgb font, int fontSize) {
  BrushColor = brush;
  FontColor = font;
  FontSize = fontSize;
  FontBold = false;
  drawn_.Text.clear();
  drawn_.Flags = 0;
  drawn_.Fill = brush;
}

void TcxCanvas::FillRect() { drawn_.Fill = BrushColor; }

void TcxCanvas::DrawText(const std::string& text, unsigned flags) {
  if (text.empty())
    return;
  drawn_.Text = text;
  drawn_.Color = FontColor;
  drawn_.Size = FontSize;
  drawn_.Bold = FontBold;
  drawn_.Flags = flags;
}

void TcxCanvas::Finish(bool done, const std::string& text, unsigned flags,
                       TCellDescription& cell) const {
  if (done && !drawn_.Text.empty()) {
    cell = drawn_;
  } else {
    cell.Text.assign(done ? drawn_.Text : text);
    cell.Fill = done ? drawn_.Fill : BrushColor;
    cell.Color = FontColor;
    cell.Size = FontSize;
    cell.Bold = FontBold;
    cell.Flags = done ? drawn_.Flags : flags;
  }
  cell.DrawnByOwner = done;
}

} // namespace Platform
