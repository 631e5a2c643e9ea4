#pragma once

#include "host/ConstDef.h"
#include "host/view/BaseView.h"
#include "host/view/ColumnInfo.h"
#include "host/view/GridDataSource.h"
#include "model/QuorPerclickDataControl.h"
#include "model/QuorPriceDataControl.h"
#include "view/BrokerColours.h"
#include "view/CellPainting.h"
#include "view/QuorPriceForm.h"
#include "view/SymbolFollowing.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace Quordetailview {
class TQuorDetailFrame;
}

namespace Quorpriceview {

/// What becomes of a window that is closing.
enum class TCloseAction { Hide, Free };

/// The price view: one dockable frame that follows one symbol. Construction binds it to the
/// host's services, destruction undoes every binding. User-interface thread only.
///
/// The handlers stand in one file per subject: QuorPriceView (lifecycle, symbol, group),
/// ...Toolbar (layout data, caption and quantity buttons), ...Sizing, ...Updates (language, skin,
/// configuration), ...Painting (cells, clicks, hints), ...Panels (market mechanisms), ...Linking
/// (related instruments, followed symbols, per-click lines) and ...Details (pop-ups).
class TQuorPriceFrame : public TQuorPriceForm, public Baseview::TIBaseView {
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
  int GetHeight() override;
  std::string GetViewCaption() override;
  std::vector<Viewinterface::TCaptionButton*> GetViewCaptionButtons() override;
  Platform::TcxImageList* GetViewCaptionButtonImageList() override { return imgList; }
  bool SetSkin(const std::string& skin) override;
  bool SetLanguage(int language) override;
  std::string GetLayoutData() override;
  bool SetLayoutData(const std::string& data) override;
  bool SetGroupID(const std::string& group) override;
  std::string GetGroupID() override { return groupID_; }
  bool ExecuteShortcutAction(int action) override;

  /// Shows a resolved symbol; nothing happens when the view shows it already.
  void SetSymbol(const std::string& symbol);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void hideEvent(QHideEvent* event) override;

private:
  using TObject = System::TObject;
  using TPriceControl = Quorpricedatacontrol::TCustomQuorMarketDataControl;
  using TPerclickPriceControl = Quorpricedatacontrol::TPerclickQuorMarketDataControl;
  using TPerclickInfoControl = Quorpricedatacontrol::TPerclickQuorInfoMarketDataControl;
  using TGridDataSource = Griddatasource::TCustomGridDataSource;
  using TCaptionButton = Viewinterface::TCaptionButton;

  /// A handler of the frame as an event of the host or of a control.
  template <typename... TArguments> auto Handler(void (TQuorPriceFrame::*handler)(TArguments...)) {
    return [this, handler](TArguments... arguments) { (this->*handler)(arguments...); };
  }

  // Lifecycle.
  void CreateRefreshTimer();
  void HideOptionalParts();
  void BindForm();
  void BindClick(Platform::TcxGridTableView& view, void (TQuorPriceFrame::*handler)(int column));
  void CreatePriceControl();
  void CreatePerclickControls();
  void RegisterWithHost();
  void UnregisterFromHost();
  void AddGridColumns(Platform::TcxGridTableView& view,
                      const std::vector<Columninfo::TColumnInfo>& columns);
  void InitializePerclick();

  // Symbol box, refresh and host messages.
  void edtSymbolExit();
  void edtSymbolKeyDown(int key);
  void edtSymbolKeyPress(int character);
  /// Lets the symbol box resolve and apply a symbol as if it had been typed.
  void EnterSymbol(const std::string& symbol);
  /// The symbol box's resolved symbol.
  std::string AppliedSymbol() const;
  void HandleRefresh(TObject* sender);
  void RefreshTimer();
  void LoadLayoutComp(TObject* sender, TObject* data);
  void MainFormShow(TObject* sender, TObject* data);
  void ScaleLayoutComp(TObject* sender, TObject* data);

  // Toolbar.
  void CreateCaptionButtons();
  TCaptionButton* AddCaptionButton(std::string_view name, void (TQuorPriceFrame::*handler)());
  void SetQtyButtonCaption();
  void UpdateCaptionButtons();
  void ShowHideBrokerQueue();
  void btnDisplayModeClick();
  void btnShowHideClick();
  void btnLockClick();
  void btnHideBrokerQueueClick();
  void btnShowHideQtyClick();
  void btnProChartClick();
  void btnRefreshClick();
  void btnQtyClick(const Platform::TcxButton* sender);
  void mBrokerNameClick();
  void SetDisplayMode(Quorpricedatacontrol::TQuorMode mode);
  void SetShowBrokerName(bool show);

  // Sizing.
  static constexpr int PerclickInfoMinimumWidth = 80;
  int DetectColWidth(int minimum, const QString& sample) const;
  void DetectRowHeight();
  int ColumnWidth(int tag) const;
  int QueueColumnWidth() const;
  void SetQueueColumnWidth();
  void ResetSize();
  /// Fits the frame and the grids to the columns. `margin`: what the frame is wider, in pixels.
  void SetGridWidths(int margin);
  void PriceGridResize();
  void SetGridHeights();
  void SetDisplayModeHeight();
  void SetDataRowHeight(int height);
  int PriceGridHeight(int rows) const;
  int RowCount() const;
  void MeasureWhenReady();

  // Updates.
  void ConfigUpdate(TObject* sender, TObject* data);
  void UpdateScale();
  void InitBrokerColor();
  void SetLastPriceFonts();
  void SetTexts();

  // Painting, clicks and hints.
  void PriceGridViewCustomDrawCell(Platform::TcxCanvas& canvas, int row, int column, bool& done);
  void PerclickPriceGridViewCustomDrawCell(Platform::TcxCanvas& canvas, int row, int column,
                                           bool& done);
  void PerclickInfoGridViewCustomDrawCell(Platform::TcxCanvas& canvas, int row, int column,
                                          bool& done);
  void ApplyCellStyle(const TCellStyle& style, const TPriceControl* control,
                      Platform::TcxCanvas& canvas, int row, int column, bool& done) const;
  void PerclickInfoGridViewGetCellHeight(int row, int& height) const;
  void PriceGridViewCellClick(int column);
  void PerclickPriceGridViewCellClick(int column);
  void PerclickInfoGridViewCellClick(int column);
  void PriceGridViewMouseMove(const QPoint& position);
  void ShowHintTimer(TObject* sender);
  void HideHint();
  void HandleRowChanged(TObject* sender);

  // Market-mechanism panels.
  void SymbolMessageUpdate(TObject* sender);
  void ClearMessageTexts();
  void ShowMessageTexts();

  // Related instruments and linking.
  void SymbolRelatedUpdate(TObject* sender);
  void cmbWarrantPropertiesChange();
  void cmbRelatedPropertiesChange();
  void EnterChosen(const Platform::TcxComboBox* box);
  void UpdateCopySymbol(TObject* sender, TObject* data);
  void CopyPrice(TObject* sender, TObject* data);
  void UpdateLastPrice(TObject* sender);
  bool IsLocked() const;
  /// Language key of the warrant box: it lists the linked instruments of a warrant.
  const char* WarrantHintKey() const;
  TSymbolFollowing Following() const { return {groupID_, defaultGroupDataMode_}; }

  // Details.
  void SymbolProductTypeUpdate(TObject* sender);
  void mDetailClick();
  void CloseDetailForm(QWidget* sender, TCloseAction& action);
  void SetDetailLanguage(int language);
  void CloseDetailForms();

  std::vector<Columninfo::TColumnInfo> priceColumns_;
  std::vector<Columninfo::TColumnInfo> perclickPriceColumns_;
  std::vector<Columninfo::TColumnInfo> perclickInfoColumns_;

  // Each control belongs to its data source.
  std::unique_ptr<TGridDataSource> priceSource_;
  TPriceControl* priceControl_ = nullptr; ///< null only while constructing
  std::unique_ptr<TGridDataSource> perclickPriceSource_;
  TPerclickPriceControl* perclickPriceControl_ = nullptr; ///< per-click form only
  std::unique_ptr<TGridDataSource> perclickInfoSource_;
  TPerclickInfoControl* perclickInfoControl_ = nullptr; ///< per-click form only

  Quorpricedatacontrol::TQuorMode displayMode_{};
  std::string groupID_;
  TColourTable colours_;

  std::vector<std::unique_ptr<TCaptionButton>> captionButtons_; ///< in the order shown
  TCaptionButton* btnShowHide_ = nullptr;
  TCaptionButton* btnDisplayMode_ = nullptr; ///< not in the per-click form
  TCaptionButton* btnLock_ = nullptr;
  TCaptionButton* btnProChart_ = nullptr;        ///< when the chart is granted
  TCaptionButton* btnRefresh_ = nullptr;         ///< per-click form only
  TCaptionButton* btnHideBrokerQueue_ = nullptr; ///< when the feed has a broker queue
  TCaptionButton* btnShowHideQty_ = nullptr;     ///< when a quantity button has a caption

  bool showBrokerName_ = false;
  std::map<std::int64_t, Quordetailview::TQuorDetailFrame*> detailFrames_; ///< by window
  std::map<std::int64_t, QWidget*> detailForms_;                           ///< by window
  int frameWidth_ = 0;
  int hintRow_ = -1;
  bool hintShown_ = false;
  int hintTicks_ = 0;
  int defaultGroupDataMode_ = -1;
  bool highlightEnabled_ = false;
  std::string specialBrokers_;
  std::string specialBrokerColours_;
  TBrokerColours brokerColours_;
  int scale_ = 0; ///< snapped, in per cent; 0 until read
  bool firstWidthRequest_ = true;
  std::string symbol_; ///< last passed to the data controls
  int rowHeight_ = 0;  ///< unscaled; 0 until measured
  std::unique_ptr<Platform::TTimer> refreshTimer_;
  bool refreshPending_ = false;
};

} // namespace Quorpriceview
