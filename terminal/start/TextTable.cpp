#include "terminal/start/TextTable.h"

#include "platform/Grid.h"

#include <QLabel>
#include <QString>

#include <algorithm>
#include <array>
#include <map>
#include <utility>

namespace Terminal {

namespace {

using Platform::TCellDescription;

/// Blocks of characters that consoles show two columns wide: Hangul, CJK, full-width forms.
constexpr std::array<std::pair<char32_t, char32_t>, 6> wideBlocks = {{{0x1100, 0x115f},
                                                                      {0x2e80, 0xa4cf},
                                                                      {0xac00, 0xd7a3},
                                                                      {0xf900, 0xfaff},
                                                                      {0xff00, 0xff60},
                                                                      {0x20000, 0x3fffd}}};

int CharacterWidth(char32_t character) {
  const bool wide = std::any_of(wideBlocks.begin(), wideBlocks.end(), [character](auto block) {
    return character >= block.first && character <= block.second;
  });
  return wide ? 2 : 1;
}

std::string Colour(int layer, QRgb colour) {
  return "\x1b[" + std::to_string(layer) + ";2;" + std::to_string(qRed(colour)) + ";" +
         std::to_string(qGreen(colour)) + ";" + std::to_string(qBlue(colour)) + "m";
}

std::string Coloured(const TCellDescription& cell, const std::string& text) {
  return Colour(48, cell.Fill) + Colour(38, cell.Color) + (cell.Bold ? "\x1b[1m" : "") + text +
         "\x1b[0m";
}

std::string Padded(const TCellDescription& cell, int width) {
  const int room = width - ConsoleWidth(cell.Text);
  const int before = cell.Flags & Platform::DT_CENTER  ? room / 2
                     : cell.Flags & Platform::DT_RIGHT ? room
                                                       : 0;
  return std::string(static_cast<std::size_t>(before), ' ') + cell.Text +
         std::string(static_cast<std::size_t>(room - before), ' ');
}

int WidestText(const Platform::TcxGridTableView& view, const Platform::TcxGridColumn* column) {
  int widest = 0;
  for (int row = 0; row < view.RecordCount(); ++row)
    if (const auto* cell = view.Cell(row, column))
      widest = std::max(widest, ConsoleWidth(cell->Text));
  return widest;
}

} // namespace

int ConsoleWidth(const std::string& text) {
  int width = 0;
  for (const char32_t character : QString::fromStdString(text).toUcs4())
    width += CharacterWidth(character);
  return width;
}

std::string LabelLines(const QWidget& view) {
  std::map<int, std::map<int, QString>> lines; // by where they stand: down, then across
  for (const auto* label : view.findChildren<QLabel*>())
    if (const QString text = label->text().trimmed(); label->isVisible() && !text.isEmpty()) {
      const QPoint place = label->mapTo(&view, QPoint());
      lines[place.y()][place.x()] = text;
    }
  std::string all;
  for (const auto& [down, labels] : lines) {
    QStringList texts;
    for (const auto& [across, text] : labels)
      texts.append(text);
    all += texts.join(QStringLiteral("  ")).toStdString() + "\n";
  }
  return all;
}

std::string TextTable(const Platform::TcxGridTableView& view, TColouring colouring) {
  std::vector<std::pair<const Platform::TcxGridColumn*, int>> columns;
  for (const auto& column : view.Columns())
    if (const int width = column->Visible ? WidestText(view, column.get()) : 0)
      columns.emplace_back(column.get(), width);
  std::string table;
  for (int row = 0; row < view.RecordCount(); ++row) {
    for (const auto& [column, width] : columns) {
      const auto* cell = view.Cell(row, column);
      const std::string text =
          cell ? Padded(*cell, width) : std::string(static_cast<std::size_t>(width), ' ');
      table += cell && colouring == TColouring::Ansi ? Coloured(*cell, text + " ") : text + " ";
    }
    table += "\n";
  }
  return table;
}

} // namespace Terminal
