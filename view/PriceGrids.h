#pragma once

#include "host/view/GridDataSource.h"
#include "model/QuorPerclickDataControl.h"
#include "view/BrokerHighlight.h"
#include "view/CellPainting.h"
#include "view/QuorPriceForm.h"

#include <memory>
#include <vector>

namespace Quorpriceview {

class TViewMeasures;

/// The grids of a view: their columns, the data controls behind them, how their cells are painted
/// and what a click copies; and the lines over the per-click grids. The depth grid is refreshed at
/// most once per tick of a timer, however many updates arrive between two ticks; what comes per
/// click is shown at once.
class TPriceGrids : public QObject {
public:
  using TPriceControl = Quorpricedatacontrol::TCustomQuorMarketDataControl;
  using TPerclickPriceControl = Quorpricedatacontrol::TPerclickQuorMarketDataControl;

  /// `form` and `highlight` must outlive it; `owner` is the view that the controls serve.
  TPriceGrids(TQuorPriceForm& form, const TBrokerHighlight& highlight, System::TObject* owner);
  ~TPriceGrids() override;

  /// The depth grid's control.
  TPriceControl& Price() const { return *price_; }
  /// And those of the per-click grids, when the quotes come per click.
  const std::vector<TPriceControl*>& Controls() const { return controls_; }

  void CreateColumns(const TViewMeasures& measures);
  /// Paints in the colours of the host's skin.
  void SetSkin();
  /// Sizes the per-click lines by the form's font.
  void SetLastPriceFonts();
  /// Shows last price, change and update time; nothing unless the quotes come per click.
  void UpdateLastPrice();
  /// Asks for a fresh snapshot. Only when the quotes come per click.
  void RefreshPrice() { perclickPrice_->RefreshPrice(); }

private:
  using TDrawCell = void (TPriceGrids::*)(Platform::TcxCanvas& canvas,
                                          const Platform::TcxCellViewInfo& cell, bool& done);
  using TCellClick = void (TPriceGrids::*)(const Platform::TcxGridColumn* column,
                                           Qt::MouseButton button);

  template <typename TControl> TControl* Join(Platform::TcxGridTableView* view,
                                              System::TObject* owner, TDrawCell drawCell,
                                              TCellClick click);
  void JoinPerclick(System::TObject* owner);
  void StartRefreshTimer();
  void DrawCell(Platform::TcxCanvas& canvas, const Platform::TcxCellViewInfo& cell,
                const TCellStyle& style, const TPriceControl* control, bool& done) const;

  // Events of the depth control and of the grids.
  void HandleRefresh(System::TObject*) { refreshPending_ = true; }
  void PriceGridViewCustomDrawCell(Platform::TcxCanvas& canvas,
                                   const Platform::TcxCellViewInfo& cell, bool& done);
  void PerclickPriceGridViewCustomDrawCell(Platform::TcxCanvas& canvas,
                                           const Platform::TcxCellViewInfo& cell, bool& done);
  void PerclickInfoGridViewCustomDrawCell(Platform::TcxCanvas& canvas,
                                          const Platform::TcxCellViewInfo& cell, bool& done);
  void PerclickInfoGridViewGetCellHeight(int row, int& height) const;
  void PriceGridViewCellClick(const Platform::TcxGridColumn* column, Qt::MouseButton button);
  void PerclickPriceGridViewCellClick(const Platform::TcxGridColumn* column,
                                      Qt::MouseButton button);
  void PerclickInfoGridViewCellClick(const Platform::TcxGridColumn* column, Qt::MouseButton button);

  TQuorPriceForm& form_;
  const TBrokerHighlight& highlight_;
  TColourTable colours_{};
  Platform::TTimer timer_;
  bool refreshPending_ = false;
  std::vector<std::unique_ptr<Griddatasource::TCustomGridDataSource>> sources_;
  std::vector<TPriceControl*> controls_; ///< the sources'
  TPriceControl* price_ = nullptr;
  TPerclickPriceControl* perclickPrice_ = nullptr; ///< unless the quotes come per click
  TPriceControl* perclickInfo_ = nullptr;          ///< as well
};

} // namespace Quorpriceview
