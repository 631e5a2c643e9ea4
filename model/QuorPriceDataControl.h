#pragma once

#include "host/BaseDCDataControl.h"
#include "model/BrokerQueue.h"
#include "model/CopiedOrder.h"
#include "model/DepthLadder.h"
#include "model/HeaderRows.h"
#include "model/MarketMechanisms.h"
#include "model/QuorDetailDataControl.h"
#include "model/QuorTypes.h"
#include "model/RecentTrades.h"

#include <memory>
#include <string>

namespace Quorpricedatacontrol {

/// Model behind the depth grid: follows one symbol and answers the text of every (row, column)
/// cell; columns are Column identifiers, sides are Side identifiers. A row, column, level or side
/// that does not exist is empty. Tells its owner through events when to look again.
class TCustomQuorMarketDataControl : public Basedcdatacontrol::TCustomDataControl {
public:
  explicit TCustomQuorMarketDataControl(System::TObject* owner);
  ~TCustomQuorMarketDataControl() override;

  System::TNotifyEvent OnFreeTextChange; ///< message lines or market mechanisms changed
  System::TNotifyEvent OnRelatedChange;  ///< lists of related instruments changed
  System::TNotifyEvent OnField22Known;   ///< the product type was read
  System::TNotifyEvent OnCountChange;    ///< the number of rows changed

  // What is shown.
  const std::string& Symbol() const { return symbol_; }
  /// Empty for none.
  void SetSymbol(std::string symbol);
  TQuorMode DisplayMode() const { return displayMode_; }
  void SetDisplayMode(TQuorMode mode);
  bool ShowBrokerName() const { return brokerStyle_ == TBrokerStyle::Name; }
  void SetShowBrokerName(bool value);
  bool ShowBrokerQueue() const { return showBrokerQueue_; }
  /// Tells nobody: the caller repaints.
  void SetShowBrokerQueue(bool value) { showBrokerQueue_ = value; }

  // What is known of the symbol.
  /// Constdef::RecordState_...; RecordState_None without a record.
  int GetState() const;
  /// Record field 22; -1 while unknown and when it is not a number.
  int ProductType() const { return field22Value_; }
  TMarketDataType MarketDataType() const { return marketDataType_; }
  const std::string& FreeText1() const { return messages_.FreeText1; }
  const std::string& FreeText2() const { return messages_.FreeText2; }
  /// The symbol's market data may not be shown.
  bool Concealed() const { return messages_.Concealed; }
  const TMarketMechanisms& Mechanisms() const { return mechanisms_; }
  /// Symbols separated by blanks, like the next two.
  const std::string& WarrantList() const { return related_.Warrants; }
  const std::string& RelatedList() const { return related_.Related; }
  const std::string& LiquidityProviderList() const { return related_.LiquidityProviders; }
  TCopyPriceQtyMode CopyPriceQtyMode() const { return copyPriceQtyMode_; }
  int DenominatorMode() const { return denominatorMode_; }

  // Cells.
  static constexpr int LeastRowCount = DepthRowsOf(qm5Full).Count(); ///< what a new control has
  int GetCount() const override { return RowCount(); }
  std::string GetDisplayValue(int row, int column) const override;
  virtual std::string GetPriceValue(int row, int side) const;
  virtual std::string GetSizeValue(int row, int side) const;
  std::string GetBestPrice(int side) const { return BestPriceText(record_, side); }
  std::string GetBestPriceSpread(int side) const { return BestPriceStepText(record_, side); }
  /// Levels count from 0.
  std::string GetDetailPrice(int level, int side) const;
  TTradeInfo GetTradeInfo(int row) const { return TradeInfoAt(symbol_, row); }

  // Header rows.
  std::string GetCellHeader(int row) const { return header_.Caption(row); }
  std::string GetCellHeaderValue(int row) const;
  std::string GetCellHeaderViaAttribute(int field) const { return HeaderCaption(field); }
  /// Value of a record field as the header rows show it; empty unless the record holds data.
  virtual std::string GetCellHeaderDisplayData(int field) const;
  /// The row of the nominal price; -1 when there is none.
  int GetHeaderLastPriceIndex() const { return header_.RowOf(Field::Nominal); }

  // Broker queue.
  /// Entries count from 0, front of the queue first.
  std::string GetQueueBroker(int index, int side) const;
  /// True for the cells that head the queue or a price level of it. Column first.
  bool GetIsBrokerQueueHeader(int column, int row) const;
  /// The broker of a cell in the form that the grid does not show: its name or its ID.
  std::string GetBrokerName(int row, int column) const;
  /// The four-digit ID in a cell; false when the cell is empty.
  bool GetBrokerID(int row, int column, std::string& id) const;
  /// Always false: no broker is the user's own.
  bool GetIsMyBrokerID(int /*row*/, int /*column*/) const { return false; }

  // Copies to order entry.
  /// What a cell shows.
  virtual void CopyPrice(int row, int column);
  /// In shares; without a price.
  virtual void CopyQty(int quantity);
  /// In shares; 0 when none applies.
  double GetCopyPriceQty(int field) const;

  // Updates. The handlers are called by the host.
  void ConfigUpdate(System::TObject* sender, System::TObject* data) override;
  /// Reads again every text that depends on the language.
  void UpdateLanguage();
  void SymbolRealtimeUpdate(System::TObject* /*sender*/) { UpdateSymbolMessage(); }
  /// `data`: the Basemarketadapter::TChangedKeys of the symbols that changed; null for none.
  void SymbolUpdate(System::TObject* sender, System::TObject* data);
  /// `data`: the Basemarketadapter::TChangedKeys of the spread tables that changed; null for none.
  void SpreadUpdate(System::TObject* sender, System::TObject* data);
  void BODDataUpdate(System::TObject* sender, System::TObject* data);
  void BrokerDataUpdate(System::TObject* sender, System::TObject* data);
  /// After an update of the record: everything that depends on it. Nothing while nobody listens to
  /// OnChange.
  void UpdateSymbolMessage();
  /// The header rows, once per loaded record.
  void UpdateSymbolHeader();
  void UpdateCellHeaderList() { header_.UpdateCaptions(DetailInUse()); }
  void UpdateBrokerQueueList();
  /// Message lines and market mechanisms; nothing while nobody listens to OnFreeTextChange.
  virtual void UpdateFreeText();
  /// Lists of related instruments; nothing while nobody listens to OnRelatedChange.
  virtual void UpdateRelated();

protected:
  /// The text of a price or size column.
  std::string GetDepthValue(int row, TDepthColumn column) const;
  /// Null without a symbol.
  const TCustomSubItem* Record() const { return record_; }
  /// An order of the symbol, otherwise empty.
  TCopiedOrder& StartOrder();
  TCopySource CopySource() const { return {*record_, copyPriceQtyMode_, marketDataType_}; }
  void SendOrder() { order_.Send(this, GroupID); }

private:
  struct TRelatedLists {
    std::string Warrants, Related, LiquidityProviders;

    bool operator==(const TRelatedLists&) const = default;
  };

  int RowCount() const { return RowCountOf(displayMode_, header_.Count(), THeaderRows::MostOwn); }
  void RegisterListeners();
  void SubscribeRecord();
  void ReleaseRecord();
  void ForgetSymbol();
  void DetectMarketDataType();
  void ReadField22();
  void AppendDetailRows();
  void MakeDetailControl();
  void RebuildMechanisms();
  const TCustomQuorDetailDataControl* DetailInUse() const;
  std::string GetQueueCell(int row, int column) const;
  std::string QueueText(int row, int column, TBrokerStyle style) const;

  TQuorMode displayMode_ = qm5Full;
  std::string symbol_;
  TCustomSubItem* record_ = nullptr; // the subscribe adapter's
  THeaderRows header_;
  bool headerReady_ = false;
  TBrokerStyle brokerStyle_ = TBrokerStyle::ID;
  TMarketDataType marketDataType_ = mdtUnknown;
  TBrokerQueue queue_;
  TSymbolMessages messages_;
  TMarketMechanisms mechanisms_;
  TCopiedOrder order_;
  TRelatedLists related_;
  int field22Value_ = -1;
  TCopyPriceQtyMode copyPriceQtyMode_ = cpqmDefault;
  int denominatorMode_ = 0;
  bool showBrokerQueue_ = true;
  std::unique_ptr<TCustomQuorDetailDataControl> detailControl_; // made when first needed
  TConcealedExchanges concealedExchanges_;
};

} // namespace Quorpricedatacontrol
