#include "view/QuorPriceForm.h"

#include "host/ConstDef.h"
#include "view/CaptionImages.h"
#include "view/SymbolCombo.h"

#include <QStyleOptionButton>
#include <QStylePainter>
#include <QVBoxLayout>

namespace Quorpriceview {

using namespace Platform;

namespace {

constexpr QSize DesignSize(614, 646);
constexpr int SymbolMinimumWidth = 200;
constexpr int ComboWidth = 100;
constexpr QSize SwatchSize(20, 17);
constexpr QSize QtyButtonSize(65, 25);
constexpr int QtyButtonMargin = 8; // around its caption
constexpr int LeftEdge = 6;        // where the texts of the grid's cells begin
constexpr int PanelSpacing = 12;   // between a pair of caption and figure and the next
constexpr int HintFontSize = 8;

template <typename TControl> TControl* Named(const QString& name, TControl* control) {
  control->setObjectName(name);
  return control;
}

/// A quantity button whose caption is as large as there is room for. A part of a quantity would be
/// another one.
class TQtyButton : public TcxButton {
protected:
  void paintEvent(QPaintEvent*) override {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    const int room = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this).width() -
                     QtyButtonMargin;
    const int width = option.fontMetrics.size(Qt::TextShowMnemonic, text()).width();
    if (width > room) {
      QFont fitting = font();
      fitting.setPointSizeF(QFontInfo(fitting).pointSizeF() * room / width);
      painter.setFont(fitting);
      option.fontMetrics = QFontMetrics(fitting, this);
    }
    painter.drawControl(QStyle::CE_PushButton, option);
  }
};

// Each of these makes a control and its item, under the name that they share behind their prefixes.

TdxLayoutItem* AddCombo(TdxLayoutGroup* group, const QString& name, TcxComboBox*& combo) {
  combo = Named("cmb" + name, new TSymbolCombo);
  combo->setFixedWidth(ComboWidth);
  return group->AddItem("li" + name, combo);
}

/// `caption`: that of the item, as the form was designed.
TdxLayoutItem* AddLabel(TdxLayoutGroup* group, const QString& name, TcxLabel*& label,
                        const QString& caption = {}, bool takesFreeWidth = false) {
  label = Named("lbl" + name, new TcxLabel);
  auto* item = group->AddItem("li" + name, label, takesFreeWidth);
  item->SetCaption(caption);
  return item;
}

/// A grid with the view and the level that are named after it.
TcxGrid* NewGrid(const QString& name, QSize designed) {
  auto* grid = new TcxGrid(name);
  grid->setFixedSize(designed);
  new TcxGridLevel(name + "Lv", grid, new TcxGridTableView(name + "View", grid));
  return grid;
}

} // namespace

TQuorPriceForm::TQuorPriceForm() {
  setObjectName("QuorPriceFrame");
  resize(DesignSize);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  lcGrid = new TdxLayoutControl("lcGrid", this);
  layout->addWidget(lcGrid);

  BuildSymbolLine();
  BuildGrids();
  BuildPanels();
  BuildQtyButtons();
  BuildMenu();
  HideOptionalParts();
}

void TQuorPriceForm::BuildSymbolLine() {
  lgSymbol = lcGrid->Root()->AddGroup("lgSymbol", TLayoutDirection::Wrapping);
  liPOS = AddLabel(lgSymbol, "POS", lblPOS);
  liVCM = AddLabel(lgSymbol, "VCM", lblVCM);
  liCAS = AddLabel(lgSymbol, "CAS", lblCAS);
  lblPOS->setText(" P ");
  lblVCM->setText(" V ");
  lblCAS->setText(" C ");
  edtSymbol = Named(Constdef::Component_SymbolBox, new TcxPopupEdit);
  edtSymbol->setMinimumWidth(SymbolMinimumWidth);
  edtSymbol->setPlaceholderText("Symbol");
  lgSymbol->AddItem("liSymbol", edtSymbol, true);
  liLiqProvider = AddCombo(lgSymbol, "LiqProvider", cmbLiqProvider);
  liWarrant = AddCombo(lgSymbol, "Warrant", cmbWarrant);
  liRelated = AddCombo(lgSymbol, "Related", cmbRelated);
}

void TQuorPriceForm::BuildGrids() {
  auto* lgGrid = lcGrid->Root()->AddGroup("lgGrid", TLayoutDirection::Horizontal);
  PriceGrid = NewGrid(Constdef::Component_PriceGrid, {585, 200});
  PriceGridView = PriceGrid->View();
  liGrid = lgGrid->AddItem("liGrid", PriceGrid);
  lgGrid->AddStretch();

  lgPerclick = lcGrid->Root()->AddGroup("lgPerclick", TLayoutDirection::Horizontal);
  lgPrice = lgPerclick->AddGroup("lgPrice", TLayoutDirection::Vertical);
  liLast = AddLabel(lgPrice, "Last", lblLast);
  liChange = AddLabel(lgPrice, "Change", lblChange);
  lgPrice->Align(liLast, Qt::AlignHCenter);
  lgPrice->Align(liChange, Qt::AlignHCenter);
  PerclickPriceGrid = NewGrid("PerclickPriceGrid", {250, 200});
  PerclickPriceGridView = PerclickPriceGrid->View();
  liPerclickPriceGrid = lgPrice->AddItem("liPerclickPriceGrid", PerclickPriceGrid);
  PerclickInfoGrid = NewGrid("PerclickInfoGrid", {250, 238});
  PerclickInfoGridView = PerclickInfoGrid->View();
  PerclickInfoGrid->setMaximumHeight(QWIDGETSIZE_MAX);
  lgPerclick->FillHeight(lgPerclick->AddItem("liPerclickInfoGrid", PerclickInfoGrid));
  lgPerclick->AddStretch();
}

void TQuorPriceForm::BuildPanels() {
  auto* root = lcGrid->Root();
  lgInfo = root->AddGroup("lgInfo", TLayoutDirection::Horizontal);
  lgInfo->SetSpacing(PanelSpacing);
  AddLabel(lgInfo, "LeftText", lblLeftText, {}, true);
  AddLabel(lgInfo, "RightText", lblRightText, {}, true);
  lblRightText->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  for (auto* message : {lblLeftText, lblRightText})
    message->SetShortened();

  lgPOS = root->AddGroup("lgPOS", TLayoutDirection::Wrapping);
  lgPOS->SetSpacing(PanelSpacing);
  AddLabel(lgPOS, "POSColor", lblPOSColor);
  liPOSCaption = AddLabel(lgPOS, "POSCaption", lblPOSCaption, "POS:");
  liPOSRefPrice = AddLabel(lgPOS, "POSRefPrice", lblPOSRefPrice, "Ref Px");
  liPOSUpperPrice = AddLabel(lgPOS, "POSUpperPrice", lblPOSUpperPrice, "Upper Px");
  liPOSLowerPrice = AddLabel(lgPOS, "POSLowerPrice", lblPOSLowerPrice, "Lower Px");
  liPOSUpperLimit = AddLabel(lgPOS, "POSUpperLimit", lblPOSUpperLimit, "Buy Up Limit");
  liPOSLowerLimit = AddLabel(lgPOS, "POSLowerLimit", lblPOSLowerLimit, "Sell Low Limit");

  lgVCMCAS = root->AddGroup("lgVCMCAS", TLayoutDirection::Wrapping);
  lgVCMCAS->SetSpacing(PanelSpacing);
  AddLabel(lgVCMCAS, "VCMCASColor", lblVCMCASColor);
  liVCMCAS = AddLabel(lgVCMCAS, "VCMCAS", lblVCMCAS, "VCM:");
  liRefPrice = AddLabel(lgVCMCAS, "RefPrice", lblRefPrice, "Ref Px");
  liUpperPrice = AddLabel(lgVCMCAS, "UpperPrice", lblUpperPrice, "Upper Px");
  liLowerPrice = AddLabel(lgVCMCAS, "LowerPrice", lblLowerPrice, "Lower Px");

  for (auto* swatch : {lblPOSColor, lblVCMCASColor})
    swatch->setFixedSize(SwatchSize);
  liDelay = AddLabel(root, "Delay", lblDelay);
  lblDelay->setText("Delay");
  liUpdateTime = AddLabel(root, "UpdateTime", lblUpdateTime);
  for (QWidget* line :
       std::initializer_list<QWidget*>{lgInfo, lgPOS, lgVCMCAS, liDelay, liUpdateTime})
    line->layout()->setContentsMargins(LeftEdge, 0, 0, 0);
}

void TQuorPriceForm::BuildQtyButtons() {
  lgBtn = lcGrid->Root()->AddGroup("lgBtn", TLayoutDirection::Vertical);
  lcGrid->Root()->Align(lgBtn, Qt::AlignLeft);
  auto* top = lgBtn->AddGroup("lgBtnTop", TLayoutDirection::Horizontal);
  auto* bottom = lgBtn->AddGroup("lgBtnbottom", TLayoutDirection::Horizontal);
  int number = 0;
  for (auto*& button : btnQty) {
    auto* row = number < QtyButtonCount / 2 ? top : bottom;
    const auto name = QString::number(++number);
    button = Named(Constdef::ComponentPrefix_QtyButton + name, new TQtyButton);
    button->setFixedSize(QtyButtonSize);
    row->AddItem("liBtn" + name, button);
  }
}

void TQuorPriceForm::BuildMenu() {
  imgList = Named("imgList", new TcxImageList(this));
  AddCaptionImages(*imgList);

  auto* manager = Named("BarMgr", new TdxBarManager(this));
  mBrokerName =
      Named(Constdef::Component_BrokerNameItem, new TdxBarButton("Show Broker Name", manager));
  mBrokerName->setToolTip(mBrokerName->text());
  mBrokerName->setCheckable(true);
  mDetail = Named(Constdef::Component_DetailItem, new TdxBarButton("Detail", manager));
  mDetail->setToolTip(mDetail->text());
  auto* menu = Named("PopUpMenu", new TdxBarPopupMenu(this));
  menu->addAction(mDetail);
  menu->addAction(mBrokerName);
  PriceGridView->SetPopupMenu(menu);

  HintCtrl = Named("HintCtrl", new TcxHintStyleController(this));
  HintCtrl->Font = QFont("Tahoma", HintFontSize);
  HintCtrl->CaptionFont = HintCtrl->Font;
}

void TQuorPriceForm::HideOptionalParts() {
  for (auto* item : {liLiqProvider, liWarrant, liRelated, liVCM, liCAS, liPOS})
    item->SetVisibleFlag(false);
  for (auto* group : {lgInfo, lgVCMCAS, lgPOS})
    group->SetVisibleFlag(false);
  mDetail->setVisible(false);
}

} // namespace Quorpriceview
