#pragma once

#include "host/view/BaseView.h"
#include "view/BrokerHint.h"
#include "view/CaptionButtons.h"
#include "view/DetailWindows.h"
#include "view/MechanismPanels.h"
#include "view/PriceGrids.h"
#include "view/QtyButtons.h"
#include "view/RelatedInstruments.h"
#include "view/SymbolFollowing.h"
#include "view/ViewMeasures.h"

#include <string>
#include <vector>

namespace Quorpriceview {

/// The price view: one dockable frame that follows one symbol. Construction binds it to the
/// host's services, destruction undoes every binding. It joins the named pieces of the view, each
/// in a file of its own: what happens is decided here, how it is done there. User-interface thread
/// only.
class TQuorPriceFrame final : public TQuorPriceForm, public Baseview::TIBaseView {
public:
  explicit TQuorPriceFrame(System::Classes::TComponent* owner);
  ~TQuorPriceFrame() override;

  // The operations of the base that take a handle stay visible beside the overrides.
  using TIBaseView::GetGroupID;
  using TIBaseView::GetHeight;
  using TIBaseView::GetLayoutData;
  using TIBaseView::GetViewCaption;
  using TIBaseView::GetViewCaptionButtonImageList;
  using TIBaseView::GetViewCaptionButtons;
  using TIBaseView::GetWidth;
  using TIBaseView::SetGroupID;
  using TIBaseView::SetLanguage;
  using TIBaseView::SetLayoutData;
  using TIBaseView::SetSkin;

  QWidget* Widget() override { return this; }
  void Initialize() override;
  int GetWidth() override;
  int GetHeight() override { return measures_.FrameHeight(RowCount()); }
  std::string GetViewCaption() override;
  std::vector<Viewinterface::TCaptionButton*> GetViewCaptionButtons() override {
    return captionButtons_.List();
  }
  Platform::TcxImageList* GetViewCaptionButtonImageList() override { return imgList; }
  bool SetSkin(const std::string& skin) override;
  bool SetLanguage(int language) override;
  std::string GetLayoutData() override;
  bool SetLayoutData(const std::string& text) override;
  bool SetGroupID(const std::string& group) override;
  std::string GetGroupID() override { return following_.GroupID; }
  bool ExecuteShortcutAction(int action) override;

  /// Shows a resolved symbol; nothing happens when the view shows it already.
  void SetSymbol(const std::string& symbol);

protected:
  void changeEvent(QEvent* event) override;
  void hideEvent(QHideEvent* event) override {
    hint_.Hide(); // it is a window of its own and would stay on the screen
    TQuorPriceForm::hideEvent(event);
  }

private:
  using TFrame = TQuorPriceFrame;
  using TObject = System::TObject;

  /// A handler as an event of the host, of a control or of a caption button.
  auto On(void (TFrame::*handler)()) {
    return [this, handler](auto&&...) { (this->*handler)(); };
  }
  auto On(void (TFrame::*handler)(TObject* message)) {
    return [this, handler](TObject*, TObject* message) { (this->*handler)(message); };
  }
  void CreateCaptionButtons();
  void Bind();
  void RegisterWithHost();
  void UnregisterFromHost();

  void Notify(int code) { Baseview::SendViewNotify(this, code); }
  std::string Symbol() const { return AppliedSymbol(*edtSymbol); }
  int RowCount() const { return grids_.Price().GetCount(); }
  void SetShowBrokerName(bool show);
  void UpdateCaptionButtons() {
    captionButtons_.Update(state_);
    measures_.SetDisplayModeHeight(RowCount());
  }
  void Toggle(TSwitch& state) {
    state.Toggle();
    UpdateCaptionButtons();
    Notify(Constdef::Notify_LayoutChanged);
  }
  void ToggleAndResize(TSwitch& state) {
    Toggle(state);
    Notify(Constdef::Notify_SizeChanged);
  }
  void Measure() {
    measures_.DetectRowHeight();
    ResetSize();
  }
  void ResetSize() {
    if (measures_.ResetSize())
      Notify(Constdef::Notify_SizeChanged);
  }

  // Events of the depth control.
  void SymbolMessageUpdate() {
    if (UpdateMechanismPanels(*this, grids_.Price()))
      Notify(Constdef::Notify_SizeChanged);
  }
  void SymbolRelatedUpdate() {
    UpdateRelatedInstruments(*this, grids_.Price());
    if (measures_.MeasureSymbolLine()) // the boxes may need a line of their own
      Notify(Constdef::Notify_SizeChanged);
  }
  void SymbolProductTypeUpdate() { mDetail->setVisible(AreDetailsOffered(grids_.Price())); }
  void HandleRowChanged() {
    GetHeight();
    Notify(Constdef::Notify_SizeChanged);
  }

  // Messages of the host.
  void LoadLayoutComp();
  void MainFormShow() { LoadLayoutComp(); }
  void ScaleLayoutComp() {
    if (measures_.HasHostsScale())
      Measure();
  }
  void ConfigUpdate();
  void UpdateCopySymbol(TObject* message) {
    if (!state_.IsLocked())
      following_.Apply(*edtSymbol, message);
  }
  void CopyPrice(TObject* message) {
    if (!state_.IsLocked())
      following_.ApplyOrder(*edtSymbol, message, grids_.Price().Symbol());
  }

  // What a user does.
  void edtSymbolExit(Qt::FocusReason reason = Qt::OtherFocusReason);
  void edtSymbolKeyDown(int key) {
    if (key == Platform::TcxPopupEdit::EnterKey)
      edtSymbolExit();
  }
  void edtSymbolKeyPress(int character) {
    if (character == Platform::TcxPopupEdit::EnterKey)
      edtSymbol->selectAll();
  }
  void cmbWarrantPropertiesChange() { EnterChosen(*this, *cmbWarrant); }
  void cmbRelatedPropertiesChange() { EnterChosen(*this, *cmbRelated); }
  void PriceGridResize() { measures_.PriceGridResize(RowCount()); }
  void btnDisplayModeClick();
  void btnShowHideClick() { ToggleAndResize(state_.SymbolLineHidden); }
  void btnLockClick() { Toggle(state_.Lock); }
  void btnHideBrokerQueueClick();
  void btnShowHideQtyClick() { ToggleAndResize(state_.QtyButtonsHidden); }
  void btnProChartClick();
  void btnRefreshClick() {
    if (!Symbol().empty())
      grids_.RefreshPrice();
  }
  void btnQtyClick(const Platform::TcxButton& sender) {
    if (const int quantity = QuantityOfCaption(sender.text().toStdString()); quantity > 0)
      grids_.Price().CopyQty(quantity);
  }
  void mBrokerNameClick() { SetShowBrokerName(!state_.ShowBrokerName); }
  void mDetailClick() { detailWindows_.Open(Baseview::GetDialogForm(this, this), grids_.Price()); }

  TViewState state_;
  TSymbolFollowing following_;
  bool firstWidthRequest_ = true;
  TBrokerHighlight highlight_;
  TPriceGrids grids_{*this, highlight_, this};
  TViewMeasures measures_{*this, state_};
  TBrokerHint hint_{*this};
  TCaptionButtons captionButtons_{*this};
  TDetailWindows detailWindows_;
};

} // namespace Quorpriceview
