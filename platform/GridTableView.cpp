#include "platform/Grid.h"
#include "platform/LookAndFeel.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace Platform {

namespace {

constexpr unsigned GridTextFlags = DT_VCENTER | DT_SINGLELINE;

int PointSize(const QFont& font) {
  return font.pointSize() > 0 ? font.pointSize() : QFontInfo(font).pointSize();
}

} // namespace

TcxGridTableView::TcxGridTableView(const QString& name, TcxGrid* grid)
    : QObject(grid), grid_(grid) {
  setObjectName(name);
  AdoptStartingColours();
  connect(&TcxRootLookAndFeel::Instance(), &TcxRootLookAndFeel::Changed, this,
          &TcxGridTableView::Refresh);
}

TcxGridTableView::~TcxGridTableView() {
  if (source_)
    source_->OnDataChanged = nullptr;
}

void TcxGridTableView::BeginUpdate() { ++updating_; }

void TcxGridTableView::EndUpdate() {
  if (--updating_ == 0 && stale_)
    Refresh();
}

void TcxGridTableView::ClearColumns() {
  spans_.clear();
  cells_.clear();
  columns_.clear();
  Refresh();
}

TcxGridColumn* TcxGridTableView::CreateColumn(int tag, int width, bool rightAligned) {
  columns_.push_back(
      std::make_unique<TcxGridColumn>(TcxGridColumn{tag, width, true, rightAligned}));
  TcxGridColumn* column = columns_.back().get();
  Refresh();
  return column;
}

void TcxGridTableView::SetColumnWidth(TcxGridColumn* column, int width) {
  if (column->Width == width)
    return;
  column->Width = width;
  Refresh();
}

void TcxGridTableView::SetColumnVisible(TcxGridColumn* column, bool visible) {
  if (column->Visible == visible)
    return;
  column->Visible = visible;
  Refresh();
}

void TcxGridTableView::SetDataSource(TcxCustomDataSource* source) {
  if (source_)
    source_->OnDataChanged = nullptr;
  source_ = source;
  if (source_)
    source_->OnDataChanged = [this] { Refresh(); };
  Refresh();
}

void TcxGridTableView::SetDataRowHeight(int height) {
  if (dataRowHeight_ == height)
    return;
  dataRowHeight_ = height;
  Refresh();
}

void TcxGridTableView::SetFocusedRecordIndex(int record) {
  focused_ = std::clamp(record, -1, RecordCount() - 1);
}

void TcxGridTableView::Refresh() {
  stale_ = true;
  if (updating_ > 0 || describing_)
    return;
  Describe();
  if (stale_) // once more only, so that a handler that always asks again cannot keep it going
    Describe();
  stale_ = false;
}

void TcxGridTableView::Describe() {
  describing_ = true;
  stale_ = false;
  const bool rowsMoved = LayOutRows();
  const bool columnsMoved = LayOutColumns();
  const bool coloursChanged = AdoptStartingColours();
  changed_.clear();
  cells_.resize(static_cast<std::size_t>(RecordCount()) * spans_.size());
  SetFocusedRecordIndex(focused_);
  DescribeCells();
  describing_ = false;
  if (rowsMoved || columnsMoved || coloursChanged) {
    grid_->update();
  } else if (!changed_.empty()) {
    QRegion region;
    region.setRects(changed_.data(), static_cast<int>(changed_.size()));
    grid_->update(region);
  }
}

bool TcxGridTableView::LayOutRows() {
  const int records = source_ ? std::max(source_->GetRecordCount(), 0) : 0;
  std::vector<int> heights(static_cast<std::size_t>(records), std::max(dataRowHeight_, 0));
  if (OnGetCellHeight) {
    for (int record = 0; record < records; ++record)
      OnGetCellHeight(record, heights[static_cast<std::size_t>(record)]);
    FitHigherRows(heights);
  }
  std::vector<int> tops{0};
  for (const int height : heights)
    tops.push_back(tops.back() + std::max(height, 0));
  rowTops_.swap(tops);
  return rowTops_ != tops;
}

void TcxGridTableView::FitHigherRows(std::vector<int>& heights) const {
  const auto extra = [this](int height) { return std::max(height - dataRowHeight_, 0); };
  int total = 0;
  int extras = 0;
  for (const int height : heights) {
    total += height;
    extras += extra(height);
  }
  const int missing = std::min(total - grid_->height(), extras);
  if (missing <= 0)
    return;
  for (int& height : heights)
    height -= (extra(height) * missing + extras - 1) / extras;
}

bool TcxGridTableView::LayOutColumns() {
  std::vector<TColumnSpan> spans;
  int left = 0;
  for (const auto& column : columns_) {
    if (!column->Visible)
      continue;
    const int width = std::max(column->Width, 0);
    spans.push_back({column.get(), left, width});
    left += width;
  }
  spans_.swap(spans);
  return spans_ != spans;
}

bool TcxGridTableView::AdoptStartingColours() {
  const auto& skin = TcxRootLookAndFeel::Instance().SkinPainter();
  const QPalette& palette = grid_->palette();
  const QRgb fill =
      (skin ? skin->ContentColor : palette.color(QPalette::Active, QPalette::Base)).rgb();
  startingColor_ =
      (skin ? skin->ContentTextColor : palette.color(QPalette::Active, QPalette::Text)).rgb();
  return std::exchange(startingFill_, fill) != fill;
}

void TcxGridTableView::DescribeCells() {
  for (int record = 0; record < RecordCount(); ++record) {
    for (std::size_t span = 0; span < spans_.size(); ++span) {
      DescribeCell(record, *spans_[span].Column);
      if (spans_.empty()) // the handler cleared the columns
        return;
      TCellDescription& cell = At(record, span);
      if (cell == scratch_)
        continue;
      std::swap(cell, scratch_);
      AddChanged(FilledBounds(record, span));
    }
  }
}

void TcxGridTableView::DescribeCell(int record, const TcxGridColumn& column) {
  const int tag = column.Tag;
  const unsigned flags = GridTextFlags | (column.RightAligned ? DT_RIGHT : DT_LEFT);
  canvas_.Begin(startingFill_, startingColor_, PointSize(grid_->font()));
  bool done = false;
  if (OnCustomDrawCell)
    OnCustomDrawCell(canvas_, {record, &column}, done);
  text_.clear();
  if (!done && source_)
    source_->GetDisplayText(record, tag, text_);
  canvas_.Finish(done, text_, flags, scratch_);
}

void TcxGridTableView::AddChanged(const QRect& bounds) {
  if (bounds.isEmpty())
    return;
  const bool continues = !changed_.empty() && changed_.back().top() == bounds.top() &&
                         changed_.back().right() + 1 == bounds.left();
  if (continues)
    changed_.back().setRight(bounds.right());
  else
    changed_.push_back(bounds);
}

void TcxGridTableView::Paint(QPainter& painter, const QRegion& region) {
  for (int record = 0; record < RecordCount(); ++record) {
    for (std::size_t span = 0; span < spans_.size(); ++span) {
      const QRect bounds = Bounds(record, span);
      const QRect filled = FilledBounds(record, span);
      if (filled != bounds && region.intersects(filled))
        painter.fillRect(filled, QColor(At(record, span).Fill));
      if (region.intersects(bounds))
        painter_.Paint(painter, At(record, span), bounds, grid_->font());
    }
  }
  for (const QRect& free : region.subtracted(CellArea()))
    painter.fillRect(free, QColor(startingFill_));
}

std::size_t TcxGridTableView::SpanOf(const TcxGridColumn* column) const {
  const auto found = std::find_if(spans_.begin(), spans_.end(), [column](const TColumnSpan& span) {
    return span.Column == column;
  });
  return static_cast<std::size_t>(found - spans_.begin());
}

QRect TcxGridTableView::Bounds(int record, std::size_t span) const {
  const int top = rowTops_[static_cast<std::size_t>(record)];
  const int bottom = rowTops_[static_cast<std::size_t>(record) + 1];
  return {spans_[span].Left, top, spans_[span].Width, bottom - top};
}

QRect TcxGridTableView::FilledBounds(int record, std::size_t span) const {
  QRect bounds = Bounds(record, span);
  if (span + 1 == spans_.size())
    bounds.setRight(std::max(bounds.right(), grid_->width() - 1));
  return bounds;
}

TCellDescription& TcxGridTableView::At(int record, std::size_t span) {
  return cells_[static_cast<std::size_t>(record) * spans_.size() + span];
}

QRect TcxGridTableView::CellArea() const {
  if (spans_.empty())
    return {};
  return {0, 0, std::max(spans_.back().Left + spans_.back().Width, grid_->width()),
          rowTops_.back()};
}

TcxHitTest TcxGridTableView::HitTest(const QPoint& position) const {
  const auto below = std::upper_bound(rowTops_.begin(), rowTops_.end(), position.y());
  if (position.x() < 0 || below == rowTops_.begin() || below == rowTops_.end())
    return {};
  TcxHitTest hit;
  hit.Record = static_cast<int>(below - rowTops_.begin()) - 1;
  for (const TColumnSpan& span : spans_) {
    if (position.x() >= span.Left && position.x() < span.Left + span.Width)
      hit.Column = span.Column;
  }
  return hit;
}

QString TcxGridTableView::HintAt(const QPoint& position) const {
  const TcxHitTest hit = HitTest(position);
  const TCellDescription* cell = Cell(hit.Record, hit.Column);
  if (!cell)
    return {};
  QFont font = grid_->font();
  font.setPointSize(cell->Size);
  font.setBold(cell->Bold);
  const QString text = QString::fromStdString(cell->Text);
  const bool fits = QFontMetrics(font, grid_).horizontalAdvance(text) <=
                    CellBounds(hit.Record, hit.Column).width();
  return fits ? QString() : text;
}

QRect TcxGridTableView::CellBounds(int record, const TcxGridColumn* column) const {
  return Cell(record, column) ? Bounds(record, SpanOf(column)) : QRect();
}

const TCellDescription* TcxGridTableView::Cell(int record, const TcxGridColumn* column) const {
  const std::size_t span = SpanOf(column);
  const std::size_t index = static_cast<std::size_t>(record) * spans_.size() + span;
  const bool shown =
      record >= 0 && record < RecordCount() && span < spans_.size() && index < cells_.size();
  return shown ? &cells_[index] : nullptr;
}

} // namespace Platform
