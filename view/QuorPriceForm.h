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

/// The component tree of the price view, as designed: every component under its name (which is
/// its object name too), with the captions that stand until the first language update. Knows no
/// data; the frame binds it. Components are owned by the widget tree.
class TQuorPriceForm : public QWidget {
public:
  static constexpr int QtyButtonCount = 10;

  TQuorPriceForm();
  ~TQuorPriceForm() override;

protected:
  Platform::TdxLayoutControl* lcGrid;

  // Symbol line.
  Platform::TdxLayoutGroup* lgSymbol;
  Platform::TdxLayoutItem *liPOS, *liVCM, *liCAS, *liSymbol, *liLiqProvider, *liWarrant, *liRelated;
  Platform::TcxLabel *lblPOS, *lblVCM, *lblCAS;
  Platform::TcxPopupEdit* edtSymbol;
  Platform::TcxComboBox *cmbLiqProvider, *cmbWarrant, *cmbRelated;

  // Depth grid.
  Platform::TdxLayoutGroup* lgGrid;
  Platform::TdxLayoutItem* liGrid;
  Platform::TcxGrid* PriceGrid;
  Platform::TcxGridLevel* PriceGridLv;
  Platform::TcxGridTableView* PriceGridView;

  // Per-click form.
  Platform::TdxLayoutGroup *lgPerclick, *lgPrice;
  Platform::TdxLayoutItem *liLast, *liChange, *liPerclickPriceGrid, *liPerclickInfoGrid;
  Platform::TcxLabel *lblLast, *lblChange;
  Platform::TcxGrid *PerclickPriceGrid, *PerclickInfoGrid;
  Platform::TcxGridLevel *PerclickPriceGridLv, *PerclickInfoGridLv;
  Platform::TcxGridTableView *PerclickPriceGridView, *PerclickInfoGridView;

  // Message line.
  Platform::TdxLayoutGroup* lgInfo;
  Platform::TdxLayoutItem *liLeftText, *liRightText;
  Platform::TcxLabel *lblLeftText, *lblRightText;

  // Pre-opening panel.
  Platform::TdxLayoutGroup* lgPOS;
  Platform::TdxLayoutItem *liPOSColor, *liPOSCaption, *liPOSRefPrice, *liPOSUpperPrice,
      *liPOSLowerPrice, *liPOSUpperLimit, *liPOSLowerLimit;
  Platform::TcxLabel *lblPOSColor, *lblPOSCaption, *lblPOSRefPrice, *lblPOSUpperPrice,
      *lblPOSLowerPrice, *lblPOSUpperLimit, *lblPOSLowerLimit;

  // Volatility-control and closing-auction panel.
  Platform::TdxLayoutGroup* lgVCMCAS;
  Platform::TdxLayoutItem *liVCMCASColor, *liVCMCAS, *liRefPrice, *liUpperPrice, *liLowerPrice;
  Platform::TcxLabel *lblVCMCASColor, *lblVCMCAS, *lblRefPrice, *lblUpperPrice, *lblLowerPrice;

  // Delay and update time.
  Platform::TdxLayoutItem *liDelay, *liUpdateTime;
  Platform::TcxLabel *lblDelay, *lblUpdateTime;

  // Quantity buttons.
  Platform::TdxLayoutGroup *lgBtn, *lgBtnTop, *lgBtnbottom;
  std::array<Platform::TcxButton*, QtyButtonCount> btnQty; ///< btnQty1 to btnQty10

  // Not on the form's face.
  Platform::TcxImageList* imgList;
  Platform::TdxBarManager* BarMgr;
  Platform::TdxBarButton *mBrokerName, *mDetail;
  Platform::TdxBarPopupMenu* PopUpMenu;
  Platform::TcxHintStyleController* HintCtrl;

private:
  void BuildSymbolLine();
  void BuildGrids();
  void BuildPanels();
  void BuildQtyButtons();
  void BuildMenu();
};

} // namespace Quorpriceview
