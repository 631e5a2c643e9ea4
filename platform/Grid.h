#pragma once

#include "platform/CustomDataSource.h"
#include "platform/GridCell.h"

#include <QRegion>
#include <QWidget>

#include <functional>
#include <memory>
#include <vector>

class QMenu;

namespace Platform {

class TcxGrid;

/// A column of a table view.
struct TcxGridColumn {
  int Tag = 0; ///< identifier by which the data source answers
  int Width = 0;
  bool Visible = true;
  bool RightAligned = false;
};

struct TcxCellViewInfo {
  int Record = 0;
  const TcxGridColumn* Column = nullptr;
};

/// What stands at a point of the grid.
struct TcxHitTest {
  int Record = -1;                       ///< -1: no record there
  const TcxGridColumn* Column = nullptr; ///< null: right of the last column
};

/// Rows and columns of a grid, without header and grid lines. It keeps the description of every
/// cell of every visible column, as on the screen. A refresh or a repaint describes the cells
/// anew and paints those that differ; nothing else reads the data source.
class Q_DECL_EXPORT TcxGridTableView : public QObject {
  Q_OBJECT

public:
  TcxGridTableView(const QString& name, TcxGrid* grid);
  ~TcxGridTableView() override;

  /// Called for each cell that is described. `done` set: the handler drew the cell itself.
  std::function<void(TcxCanvas& canvas, const TcxCellViewInfo& cell, bool& done)> OnCustomDrawCell;
  /// May change the height of a row; unassigned: every row has the data row height.
  std::function<void(int record, int& height)> OnGetCellHeight;

  /// Between the two nothing is described or painted; calls nest.
  void BeginUpdate();
  void EndUpdate();

  void ClearColumns();
  /// Pointers to columns stay valid until ClearColumns.
  TcxGridColumn* CreateColumn(int tag, int width, bool rightAligned);
  const std::vector<std::unique_ptr<TcxGridColumn>>& Columns() const { return columns_; }
  void SetColumnWidth(TcxGridColumn* column, int width);
  void SetColumnVisible(TcxGridColumn* column, bool visible);

  /// Not owned; null for none. The source must outlive the view or be taken away first.
  void SetDataSource(TcxCustomDataSource* source);

  int DataRowHeight() const { return dataRowHeight_; }
  void SetDataRowHeight(int height);

  /// Reads rows and texts again and repaints the cells that differ. A grid that is not on the
  /// screen only remembers to do so when it is shown, unless it was never laid out on one.
  void Refresh();
  /// As Refresh, for a change of colours or texts outside the data.
  void Repaint();

  int RecordCount() const { return recordCount_; }
  /// -1 while no record is focused.
  int FocusedRecordIndex() const { return focused_; }
  void SetFocusedRecordIndex(int record) { focused_ = record; }

  TcxHitTest HitTest(const QPoint& position) const;
  /// In the grid's coordinates; empty for a cell that is not shown.
  QRect CellBounds(int record, const TcxGridColumn* column) const;
  /// The cell as on the screen; null for a cell that is not shown.
  const TCellDescription* Cell(int record, const TcxGridColumn* column) const;

  /// Shown on a right click; not owned.
  void SetPopupMenu(QMenu* menu) { popupMenu_ = menu; }

signals:
  /// A button was pressed and released over the same cell, whose record has the focus now.
  void CellClick(const Platform::TcxGridColumn* column, Qt::MouseButton button);
  /// In the grid's coordinates.
  void MouseMove(const QPoint& position);

private:
  friend class TcxGrid;

  struct TColumnSpan;

  void Describe();
  void Paint(QPainter& painter, const QRegion& region);
  int RowTop(int record) const;
  int RowHeight(int record) const;

  TcxGrid* grid_;
  std::vector<std::unique_ptr<TcxGridColumn>> columns_;
  TcxCustomDataSource* source_ = nullptr;
  int dataRowHeight_ = 17;
  int recordCount_ = 0;
  int focused_ = -1;
  int updating_ = 0;
  bool stale_ = false;
  std::vector<TCellDescription> cells_; ///< record × every column, hidden ones unused
  TCellDescription scratch_;
  TcxCanvas canvas_;
  TCellPainter painter_;
  QMenu* popupMenu_ = nullptr;
};

/// Joins a view to its grid.
class Q_DECL_EXPORT TcxGridLevel : public QObject {
  Q_OBJECT

public:
  TcxGridLevel(const QString& name, TcxGrid* grid, TcxGridTableView* view);

  TcxGridTableView* GridView() const { return view_; }

private:
  TcxGridTableView* view_;
};

/// The widget that shows a table view: custom-painted, opaque, repainting changed cells only.
class Q_DECL_EXPORT TcxGrid : public QWidget {
  Q_OBJECT

public:
  TcxGrid(const QString& name, QWidget* parent = nullptr);
  ~TcxGrid() override;

  TcxGridTableView* View() const { return view_; }

signals:
  void Resized();

protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

private:
  friend class TcxGridTableView;

  TcxGridTableView* view_ = nullptr;
  TcxHitTest pressed_;
};

} // namespace Platform
