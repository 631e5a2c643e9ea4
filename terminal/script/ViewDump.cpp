#include "terminal/script/ViewDump.h"

#include "host/ConstDef.h"
#include "platform/Grid.h"
#include "platform/PopupEdit.h"
#include "terminal/script/ComponentDump.h"
#include "terminal/windows/ViewPane.h"

#include <QJsonArray>

namespace Terminal {

namespace {

const char* AlignText(unsigned flags) {
  if (flags & Platform::DT_CENTER)
    return "center";
  return flags & Platform::DT_RIGHT ? "right" : "left";
}

QJsonObject DumpCell(const Platform::TCellDescription& cell, int row, int column) {
  return {{"row", row},
          {"col", column},
          {"text", QString::fromStdString(cell.Text)},
          {"fill", ColourText(cell.Fill)},
          {"color", ColourText(cell.Color)},
          {"bold", cell.Bold},
          {"size", cell.Size},
          {"align", AlignText(cell.Flags)},
          {"drawnBy", cell.DrawnByOwner ? "frame" : "grid"}};
}

QJsonArray DumpColumns(const Platform::TcxGridTableView& view) {
  QJsonArray columns;
  for (const auto& column : view.Columns())
    columns.append(QJsonObject{{"id", column->Tag},
                               {"width", column->Width},
                               {"visible", column->Visible},
                               {"align", column->RightAligned ? "right" : "left"}});
  return columns;
}

QJsonArray DumpCells(const Platform::TcxGridTableView& view) {
  QJsonArray cells;
  for (int row = 0; row < view.RecordCount(); ++row)
    for (const auto& column : view.Columns()) {
      const auto* cell = column->Visible ? view.Cell(row, column.get()) : nullptr;
      if (cell)
        cells.append(DumpCell(*cell, row, column->Tag));
    }
  return cells;
}

QJsonObject DumpGrid(const Platform::TcxGrid& grid) {
  const auto& view = *grid.View();
  return {{"visible", !grid.isHidden()}, {"width", grid.width()},
          {"height", grid.height()},     {"rowHeight", view.DataRowHeight()},
          {"rows", view.RecordCount()},  {"columns", DumpColumns(view)},
          {"cells", DumpCells(view)}};
}

QJsonObject DumpGrids(const QWidget& form) {
  QJsonObject grids;
  for (const auto* grid : form.findChildren<Platform::TcxGrid*>())
    if (grid->View())
      grids[grid->objectName()] = DumpGrid(*grid);
  return grids;
}

QJsonArray DumpCaptionButtons(const TViewPane& pane) {
  QJsonArray buttons;
  for (const auto* button : pane.CaptionButtons())
    buttons.append(QJsonObject{{"button", QString::fromStdString(button->Name)},
                               {"hint", QString::fromStdString(button->Hint)},
                               {"image", button->ImageIndex},
                               {"state", button->State}});
  return buttons;
}

QJsonArray DumpRows(const Platform::TcxGridTableView& view) {
  QJsonArray rows;
  for (int row = 0; row < view.RecordCount(); ++row) {
    QJsonArray texts;
    for (const auto& column : view.Columns())
      if (const auto* cell = view.Cell(row, column.get()))
        texts.append(QString::fromStdString(cell->Text));
    rows.append(texts);
  }
  return rows;
}

QJsonArray DumpPopups(const TViewPane& pane) {
  QJsonArray popups;
  for (const auto& popup : pane.Popups()) {
    const auto* grid = popup.Window->findChild<Platform::TcxGrid*>();
    popups.append(
        QJsonObject{{"index", popup.Index},
                    {"caption", popup.Window->windowTitle()},
                    {"width", popup.Window->width()},
                    {"height", popup.Window->height()},
                    {"rows", grid && grid->View() ? DumpRows(*grid->View()) : QJsonArray()}});
  }
  return popups;
}

} // namespace

QString ColourText(QRgb colour) { return QColor(colour).name(); }

QJsonObject DumpView(const TViewPane& pane) {
  const auto* symbolBox =
      pane.View()->findChild<Platform::TcxPopupEdit*>(QLatin1String(Constdef::Component_SymbolBox));
  return {{"caption", QString::fromStdString(pane.Caption())},
          {"symbol", symbolBox ? symbolBox->Hint() : QString()},
          {"width", pane.PreferredSize().width()},
          {"height", pane.PreferredSize().height()},
          {"captionButtons", DumpCaptionButtons(pane)},
          {"grids", DumpGrids(*pane.View())},
          {"components", DumpComponents(*pane.View())},
          {"popups", DumpPopups(pane)}};
}

} // namespace Terminal
