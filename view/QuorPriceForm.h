#pragma once

#include "platform/Controls.h"
#include "platform/Grid.h"
#include "platform/HintController.h"
#include "platform/ImageList.h"
#include "platform/Label.h"
#include "platform/Layout.h"
#include "platform/PopupEdit.h"

#include <array>

namespace Quorpriceview {

/// The component tree of the price view, as designed, with the captions that stand until the first
/// language update. What only some symbols have is hidden. Every component has its name as object
/// name; those that the pieces of the view work with are members too. Knows no data. Components are
/// owned by the widget tree.
class TQuorPriceForm : public QWidget {
public:
  static constexpr int QtyButtonCount = 10;

  TQuorPriceForm();

  /// The depth grid's view, then those of the per-click form.
  std::array<Platform::TcxGridTableView*, 3> GridViews() const {
    return {PriceGridView, PerclickPriceGridView, PerclickInfoGridView};
  }

  Platform::TdxLayoutControl* lcGrid;

  // Symbol line.
  Platform::TdxLayoutGroup* lgSymbol;
  Platform::TdxLayoutItem *liPOS, *liVCM, *liCAS, *liLiqProvider, *liWarrant, *liRelated;
  Platform::TcxLabel *lblPOS, *lblVCM, *lblCAS;
  Platform::TcxPopupEdit* edtSymbol;
  Platform::TcxComboBox *cmbLiqProvider, *cmbWarrant, *cmbRelated;

  // Depth grid.
  Platform::TdxLayoutItem* liGrid;
  Platform::TcxGrid* PriceGrid;
  Platform::TcxGridTableView* PriceGridView;

  // Per-click form.
  Platform::TdxLayoutGroup *lgPerclick, *lgPrice;
  Platform::TdxLayoutItem *liLast, *liChange, *liPerclickPriceGrid;
  Platform::TcxLabel *lblLast, *lblChange;
  Platform::TcxGrid *PerclickPriceGrid, *PerclickInfoGrid;
  Platform::TcxGridTableView *PerclickPriceGridView, *PerclickInfoGridView;

  // Message line.
  Platform::TdxLayoutGroup* lgInfo;
  Platform::TcxLabel *lblLeftText, *lblRightText;

  // Pre-opening panel.
  Platform::TdxLayoutGroup* lgPOS;
  Platform::TdxLayoutItem *liPOSCaption, *liPOSRefPrice, *liPOSUpperPrice, *liPOSLowerPrice,
      *liPOSUpperLimit, *liPOSLowerLimit;
  Platform::TcxLabel *lblPOSColor, *lblPOSCaption, *lblPOSRefPrice, *lblPOSUpperPrice,
      *lblPOSLowerPrice, *lblPOSUpperLimit, *lblPOSLowerLimit;

  // Volatility-control and closing-auction panel.
  Platform::TdxLayoutGroup* lgVCMCAS;
  Platform::TdxLayoutItem *liVCMCAS, *liRefPrice, *liUpperPrice, *liLowerPrice;
  Platform::TcxLabel *lblVCMCASColor, *lblVCMCAS, *lblRefPrice, *lblUpperPrice, *lblLowerPrice;

  // Delay and update time.
  Platform::TdxLayoutItem *liDelay, *liUpdateTime;
  Platform::TcxLabel *lblDelay, *lblUpdateTime;

  // Quantity buttons.
  Platform::TdxLayoutGroup* lgBtn;
  std::array<Platform::TcxButton*, QtyButtonCount> btnQty; ///< btnQty1 to btnQty10

  // Not on the form's face.
  Platform::TcxImageList* imgList;
  Platform::TdxBarButton *mBrokerName, *mDetail;
  Platform::TcxHintStyleController* HintCtrl;

private:
  void BuildSymbolLine();
  void BuildGrids();
  void BuildPanels();
  void BuildQtyButtons();
  void BuildMenu();
  void HideOptionalParts();
};

} // namespace Quorpriceview
