#include "view/QuorPriceForm.h"

#include "host/ConstDef.h"
#include "view/CaptionImages.h"

#include <QVBoxLayout>
#include <QWheelEvent>

namespace Quorpriceview {

using namespace Platform;

namespace {

constexpr int DesignWidth = 614;
constexpr int DesignHeight = 646;
constexpr int SymbolMinimumWidth = 200;
constexpr int ComboWidth = 100;
constexpr QSize SwatchSize(20, 17);
constexpr QSize QtyButtonSize(65, 25);
constexpr int HintFontSize = 8;

template <typename TControl> TControl* Named(const char* name, TControl* control) {
  control->setObjectName(QLatin1String(name));
  return control;
}

TcxLabel* NewLabel(const char* name, const char* text = "") {
  return Named(name, new TcxLabel(QLatin1String(text)));
}

TcxLabel* NewSwatch(const char* name) {
  auto* swatch = NewLabel(name);
  swatch->setFixedSize(SwatchSize);
  return swatch;
}

/// A box of symbols. A wheel that passes over it must not change the view's symbol, so it takes the
/// wheel only while it has the focus.
class TSymbolCombo : public TcxComboBox {
protected:
  void wheelEvent(QWheelEvent* event) override {
    if (hasFocus())
      TcxComboBox::wheelEvent(event);
    else
      event->ignore();
  }
};

TcxComboBox* NewCombo(const char* name) {
  TcxComboBox* combo = Named(name, new TSymbolCombo);
  combo->setFixedWidth(ComboWidth);
  combo->setFocusPolicy(Qt::StrongFocus);
  return combo;
}

/// An item with the caption that the form was designed with.
TdxLayoutItem* AddCaptioned(TdxLayoutGroup* group, const char* name, QWidget* control,
                            const char* caption) {
  auto* item = group->AddItem(QLatin1String(name), control);
  item->SetCaption(QLatin1String(caption));
  return item;
}

} // namespace

TQuorPriceForm::TQuorPriceForm() {
  setObjectName(QStringLiteral("QuorPriceFrame"));
  resize(DesignWidth, DesignHeight);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  lcGrid = new TdxLayoutControl(QStringLiteral("lcGrid"), this);
  layout->addWidget(lcGrid);

  BuildSymbolLine();
  BuildGrids();
  BuildPanels();
  BuildQtyButtons();
  BuildMenu();
}

TQuorPriceForm::~TQuorPriceForm() = default;

void TQuorPriceForm::BuildSymbolLine() {
  lgSymbol = lcGrid->Root()->AddGroup(QStringLiteral("lgSymbol"), TLayoutDirection::Horizontal);
  lblPOS = NewLabel("lblPOS", " P ");
  lblVCM = NewLabel("lblVCM", " V ");
  lblCAS = NewLabel("lblCAS", " C ");
  edtSymbol = Named(Constdef::Component_SymbolBox, new TcxPopupEdit);
  edtSymbol->setMinimumWidth(SymbolMinimumWidth);
  edtSymbol->setPlaceholderText(QStringLiteral("Symbol"));
  cmbLiqProvider = NewCombo(Constdef::Component_LiqProviderBox);
  cmbWarrant = NewCombo(Constdef::Component_WarrantBox);
  cmbRelated = NewCombo(Constdef::Component_RelatedBox);

  liPOS = lgSymbol->AddItem(QStringLiteral("liPOS"), lblPOS);
  liVCM = lgSymbol->AddItem(QStringLiteral("liVCM"), lblVCM);
  liCAS = lgSymbol->AddItem(QStringLiteral("liCAS"), lblCAS);
  liSymbol = lgSymbol->AddItem(QStringLiteral("liSymbol"), edtSymbol, true);
  liLiqProvider = lgSymbol->AddItem(QStringLiteral("liLiqProvider"), cmbLiqProvider);
  liWarrant = lgSymbol->AddItem(QStringLiteral("liWarrant"), cmbWarrant);
  liRelated = lgSymbol->AddItem(QStringLiteral("liRelated"), cmbRelated);
}

void TQuorPriceForm::BuildGrids() {
  auto* root = lcGrid->Root();
  const auto newGrid = [](const char* name, QSize designed) {
    auto* grid = new TcxGrid(QLatin1String(name));
    grid->setFixedSize(designed);
    return grid;
  };

  lgGrid = root->AddGroup(QStringLiteral("lgGrid"), TLayoutDirection::Horizontal);
  PriceGrid = newGrid(Constdef::Component_PriceGrid, {585, 200});
  PriceGridView = new TcxGridTableView(QStringLiteral("PriceGridView"), PriceGrid);
  PriceGridLv = new TcxGridLevel(QStringLiteral("PriceGridLv"), PriceGrid, PriceGridView);
  liGrid = lgGrid->AddItem(QStringLiteral("liGrid"), PriceGrid);
  lgGrid->AddStretch();

  lgPerclick = root->AddGroup(QStringLiteral("lgPerclick"), TLayoutDirection::Horizontal);
  lgPrice = lgPerclick->AddGroup(QStringLiteral("lgPrice"), TLayoutDirection::Vertical);
  lblLast = NewLabel("lblLast");
  lblChange = NewLabel("lblChange");
  liLast = lgPrice->AddItem(QStringLiteral("liLast"), lblLast);
  liChange = lgPrice->AddItem(QStringLiteral("liChange"), lblChange);
  lgPrice->Align(liLast, Qt::AlignHCenter);
  lgPrice->Align(liChange, Qt::AlignHCenter);

  PerclickPriceGrid = newGrid("PerclickPriceGrid", {250, 200});
  PerclickPriceGridView =
      new TcxGridTableView(QStringLiteral("PerclickPriceGridView"), PerclickPriceGrid);
  PerclickPriceGridLv = new TcxGridLevel(QStringLiteral("PerclickPriceGridLv"), PerclickPriceGrid,
                                         PerclickPriceGridView);
  liPerclickPriceGrid = lgPrice->AddItem(QStringLiteral("liPerclickPriceGrid"), PerclickPriceGrid);

  PerclickInfoGrid = newGrid("PerclickInfoGrid", {250, 238});
  PerclickInfoGridView =
      new TcxGridTableView(QStringLiteral("PerclickInfoGridView"), PerclickInfoGrid);
  PerclickInfoGridLv = new TcxGridLevel(QStringLiteral("PerclickInfoGridLv"), PerclickInfoGrid,
                                        PerclickInfoGridView);
  liPerclickInfoGrid = lgPerclick->AddItem(QStringLiteral("liPerclickInfoGrid"), PerclickInfoGrid);
  lgPerclick->AddStretch();
}

void TQuorPriceForm::BuildPanels() {
  auto* root = lcGrid->Root();

  lgInfo = root->AddGroup(QStringLiteral("lgInfo"), TLayoutDirection::Horizontal);
  lblLeftText = NewLabel("lblLeftText");
  lblRightText = NewLabel("lblRightText");
  lblRightText->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  liLeftText = lgInfo->AddItem(QStringLiteral("liLeftText"), lblLeftText, true);
  liRightText = lgInfo->AddItem(QStringLiteral("liRightText"), lblRightText, true);

  lgPOS = root->AddGroup(QStringLiteral("lgPOS"), TLayoutDirection::Horizontal);
  lblPOSColor = NewSwatch("lblPOSColor");
  lblPOSCaption = NewLabel("lblPOSCaption");
  lblPOSRefPrice = NewLabel("lblPOSRefPrice");
  lblPOSUpperPrice = NewLabel("lblPOSUpperPrice");
  lblPOSLowerPrice = NewLabel("lblPOSLowerPrice");
  lblPOSUpperLimit = NewLabel("lblPOSUpperLimit");
  lblPOSLowerLimit = NewLabel("lblPOSLowerLimit");
  liPOSColor = lgPOS->AddItem(QStringLiteral("liPOSColor"), lblPOSColor);
  liPOSCaption = AddCaptioned(lgPOS, "liPOSCaption", lblPOSCaption, "POS:");
  liPOSRefPrice = AddCaptioned(lgPOS, "liPOSRefPrice", lblPOSRefPrice, "Ref Px");
  liPOSUpperPrice = AddCaptioned(lgPOS, "liPOSUpperPrice", lblPOSUpperPrice, "Upper Px");
  liPOSLowerPrice = AddCaptioned(lgPOS, "liPOSLowerPrice", lblPOSLowerPrice, "Lower Px");
  liPOSUpperLimit = AddCaptioned(lgPOS, "liPOSUpperLimit", lblPOSUpperLimit, "Buy Up Limit");
  liPOSLowerLimit = AddCaptioned(lgPOS, "liPOSLowerLimit", lblPOSLowerLimit, "Sell Low Limit");
  lgPOS->AddStretch();

  lgVCMCAS = root->AddGroup(QStringLiteral("lgVCMCAS"), TLayoutDirection::Horizontal);
  lblVCMCASColor = NewSwatch("lblVCMCASColor");
  lblVCMCAS = NewLabel("lblVCMCAS");
  lblRefPrice = NewLabel("lblRefPrice");
  lblUpperPrice = NewLabel("lblUpperPrice");
  lblLowerPrice = NewLabel("lblLowerPrice");
  liVCMCASColor = lgVCMCAS->AddItem(QStringLiteral("liVCMCASColor"), lblVCMCASColor);
  liVCMCAS = AddCaptioned(lgVCMCAS, "liVCMCAS", lblVCMCAS, "VCM:");
  liRefPrice = AddCaptioned(lgVCMCAS, "liRefPrice", lblRefPrice, "Ref Px");
  liUpperPrice = AddCaptioned(lgVCMCAS, "liUpperPrice", lblUpperPrice, "Upper Px");
  liLowerPrice = AddCaptioned(lgVCMCAS, "liLowerPrice", lblLowerPrice, "Lower Px");
  lgVCMCAS->AddStretch();

  lblDelay = NewLabel("lblDelay", "Delay");
  lblUpdateTime = NewLabel("lblUpdateTime");
  liDelay = root->AddItem(QStringLiteral("liDelay"), lblDelay);
  liUpdateTime = root->AddItem(QStringLiteral("liUpdateTime"), lblUpdateTime);
}

void TQuorPriceForm::BuildQtyButtons() {
  lgBtn = lcGrid->Root()->AddGroup(QStringLiteral("lgBtn"), TLayoutDirection::Vertical);
  lcGrid->Root()->Align(lgBtn, Qt::AlignLeft);
  lgBtnTop = lgBtn->AddGroup(QStringLiteral("lgBtnTop"), TLayoutDirection::Horizontal);
  lgBtnbottom = lgBtn->AddGroup(QStringLiteral("lgBtnbottom"), TLayoutDirection::Horizontal);
  for (int i = 0; i < QtyButtonCount; ++i) {
    auto* button = new TcxButton;
    button->setObjectName(QLatin1String(Constdef::ComponentPrefix_QtyButton) +
                          QString::number(i + 1));
    button->setFixedSize(QtyButtonSize);
    btnQty[static_cast<std::size_t>(i)] = button;
    auto* row = i < QtyButtonCount / 2 ? lgBtnTop : lgBtnbottom;
    row->AddItem(QStringLiteral("liBtn%1").arg(i + 1), button);
  }
}

void TQuorPriceForm::BuildMenu() {
  imgList = Named("imgList", new TcxImageList(this));
  AddCaptionImages(*imgList);

  BarMgr = Named("BarMgr", new TdxBarManager(this));
  mBrokerName = Named(Constdef::Component_BrokerNameItem,
                      new TdxBarButton(QStringLiteral("Show Broker Name"), BarMgr));
  mBrokerName->setToolTip(mBrokerName->text());
  mBrokerName->setCheckable(true);
  mDetail =
      Named(Constdef::Component_DetailItem, new TdxBarButton(QStringLiteral("Detail"), BarMgr));
  mDetail->setToolTip(mDetail->text());
  PopUpMenu = Named("PopUpMenu", new TdxBarPopupMenu(this));
  PopUpMenu->addAction(mDetail);
  PopUpMenu->addAction(mBrokerName);

  HintCtrl = Named("HintCtrl", new TcxHintStyleController(this));
  HintCtrl->Font = QFont(QStringLiteral("Tahoma"), HintFontSize);
  HintCtrl->CaptionFont = HintCtrl->Font;
}

} // namespace Quorpriceview
