#pragma once

#include "platform/CustomDataSource.h"
#include "platform/GridCell.h"

#include <QPointer>
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
/// anew, whether the grid is on the screen or not, and paints those that differ; nothing else
/// reads the data source.
class Q_DECL_EXPORT TcxGridTableView : public QObject {
  Q_OBJECT

public:
  TcxGridTableView(const QString& name, TcxGrid* grid);
  ~TcxGridTableView() override;

  /// Called for each cell that is described. `done` set: the handler drew the cell itself.
  std::function<void(TcxCanvas& canvas, const TcxCellViewInfo& cell, bool& done)> OnCustomDrawCell;
  /// May change the height of a row; unassigned: every row has the data row height. Where the
  /// grid is too low for all rows, those that are higher than the data row height give way.
  std::function<void(int record, int& height)> OnGetCellHeight;
  /// A cell that is too narrow for its text shows it as a tool tip.
  bool CellHints = false;

  /// Between the two nothing is described or painted; calls nest.
  void BeginUpdate();
  void EndUpdate();

  void ClearColumns();
  /// Pointers to columns stay valid until ClearColumns. Width in pixels.
  TcxGridColumn* CreateColumn(int tag, int width, bool rightAligned);
  const std::vector<std::unique_ptr<TcxGridColumn>>& Columns() const { return columns_; }
  void SetColumnWidth(TcxGridColumn* column, int width);
  void SetColumnVisible(TcxGridColumn* column, bool visible);

  /// Not owned; null for none. The source must outlive the view or be taken away first.
  void SetDataSource(TcxCustomDataSource* source);

  /// In pixels.
  int DataRowHeight() const { return dataRowHeight_; }
  void SetDataRowHeight(int height);

  /// Reads rows and texts again and repaints the cells that differ. A refresh that is asked for
  /// while the cells are being described follows when they are.
  void Refresh();
  /// As Refresh, for a change of colours or texts outside the data.
  void Repaint() { Refresh(); }

  /// As of the last refresh.
  int RecordCount() const { return static_cast<int>(rowTops_.size()) - 1; }
  /// -1 while no record is focused. The focus moves up when its record is gone.
  int FocusedRecordIndex() const { return focused_; }
  void SetFocusedRecordIndex(int record);

  TcxHitTest HitTest(const QPoint& position) const;
  /// In the grid's coordinates; empty for a cell that is not shown.
  QRect CellBounds(int record, const TcxGridColumn* column) const;
  /// The cell as on the screen; null for a cell that is not shown.
  const TCellDescription* Cell(int record, const TcxGridColumn* column) const;

  /// Shown on a right click. Not owned; must outlive the view.
  void SetPopupMenu(QMenu* menu) { popupMenu_ = menu; }

signals:
  /// A button was pressed and released over the same cell, whose record has the focus now.
  void CellClick(const Platform::TcxGridColumn* column, Qt::MouseButton button);
  /// In the grid's coordinates.
  void MouseMove(const QPoint& position);

private:
  friend class TcxGrid;

  /// A visible column as it was described last.
  struct TColumnSpan {
    const TcxGridColumn* Column = nullptr;
    int Left = 0;
    int Width = 0;

    bool operator==(const TColumnSpan&) const = default;
  };

  void Describe();
  bool LayOutRows();
  void FitHigherRows(std::vector<int>& heights) const;
  bool LayOutColumns();
  bool AdoptStartingColours();
  void DescribeCells();
  void DescribeCell(int record, const TcxGridColumn& column);
  void AddChanged(const QRect& bounds);

  void Paint(QPainter& painter, const QRegion& region);

  std::size_t SpanOf(const TcxGridColumn* column) const;
  QRect Bounds(int record, std::size_t span) const;
  /// The same, but the fill of the last column goes on to the grid's edge.
  QRect FilledBounds(int record, std::size_t span) const;
  TCellDescription& At(int record, std::size_t span);
  QRect CellArea() const;
  QString HintAt(const QPoint& position) const;

  TcxGrid* grid_;
  std::vector<std::unique_ptr<TcxGridColumn>> columns_;
  TcxCustomDataSource* source_ = nullptr;
  QMenu* popupMenu_ = nullptr;
  int dataRowHeight_ = 17;
  int focused_ = -1;
  int updating_ = 0;
  bool describing_ = false;
  bool stale_ = false; ///< a refresh was asked for that could not be done then

  std::vector<TColumnSpan> spans_;
  std::vector<int> rowTops_{0};         ///< one more than there are records
  std::vector<TCellDescription> cells_; ///< record by record, a cell for each span
  std::vector<QRect> changed_;          ///< row-wise, by the description that is under way
  QRgb startingFill_ = 0;
  QRgb startingColor_ = 0;
  TcxCanvas canvas_;
  std::string text_;
  TCellDescription scratch_;
  TCellPainter painter_;
};

/// Joins a view to its grid, which shows that view from then on.
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

  /// Null until a level joins a view to the grid.
  TcxGridTableView* View() const { return view_; }

signals:
  void Resized();

protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

private:
  friend class TcxGridLevel;

  QPointer<TcxGridTableView> view_;
  TcxHitTest pressed_;
  Qt::MouseButton pressedButton_ = Qt::NoButton;
};

} // namespace Platform
