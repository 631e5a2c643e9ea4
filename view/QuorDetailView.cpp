#include "view/QuorDetailView.h"

#include <QVBoxLayout>

namespace Quordetailview {

using namespace Platform;
using namespace Quorpricedatacontrol;

namespace {

constexpr QSize DesignSize(320, 240);
constexpr int ColumnWidth = 100;

} // namespace

TQuorDetailFrame::TQuorDetailFrame() {
  setObjectName(QStringLiteral("QuorDetailFrame"));
  resize(DesignSize);
  PriceGrid = new TcxGrid(QStringLiteral("PriceGrid"), this);
  PriceGridView = new TcxGridTableView(QStringLiteral("PriceGridView"), PriceGrid);
  PriceGridView->CellHints = true;
  new TcxGridLevel(QStringLiteral("PriceGridLv"), PriceGrid, PriceGridView);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(PriceGrid);

  PriceGridView->CreateColumn(DetailColumn::Label, ColumnWidth, false);
  PriceGridView->CreateColumn(DetailColumn::Value, ColumnWidth, true);
  auto control = std::make_unique<TCustomQuorDetailDataControl>(nullptr);
  detailControl_ = control.get();
  dataSource_ = std::make_unique<Griddatasource::TCustomGridDataSource>(std::move(control));
  PriceGridView->SetDataSource(dataSource_.get());
}

TQuorDetailFrame::~TQuorDetailFrame() { PriceGridView->SetDataSource(nullptr); }

void TQuorDetailFrame::SetSymbol(const std::string& symbol) {
  symbol_ = symbol;
  detailControl_->SetSymbol(symbol);
}

void TQuorDetailFrame::SetLanguage(int) { detailControl_->UpdateLanguage(); }

} // namespace Quordetailview
