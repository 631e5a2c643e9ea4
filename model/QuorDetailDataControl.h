#pragma once

#include "host/BaseDCDataControl.h"
#include "model/DetailRows.h"
#include "model/QuorTypes.h"

#include <functional>
#include <string>
#include <vector>

namespace Quorpricedatacontrol {

/// Model behind the detail list: caption and value rows that describe a warrant, a CBBC or a stock.
/// An instrument of another kind has no rows, nor has one whose record held no data when its
/// symbol was set.
class TCustomQuorDetailDataControl : public Basedcdatacontrol::TCustomDataControl {
public:
  explicit TCustomQuorDetailDataControl(System::TObject* owner,
                                        TIssueSizeStyle issueSizeStyle = TIssueSizeStyle::Number);
  ~TCustomQuorDetailDataControl() override;

  /// An update of the underlying, of which OnChange tells too.
  std::function<void()> OnUnderlyingChange;

  const std::string& Symbol() const { return symbol_; }
  /// Follows the symbol and, where it has one, its underlying. Fires OnChange; does nothing when
  /// the symbol is the same.
  void SetSymbol(std::string symbol);
  /// Reads the captions again and fires OnChange.
  void UpdateLanguage();

  int GetCount() const override { return static_cast<int>(fields_.size()); }
  /// `column` is a DetailColumn.
  std::string GetDisplayValue(int row, int column) const override;

  /// Record fields of the rows, in order.
  const std::vector<int>& DisplayFields() const { return fields_; }
  /// Caption of a field; empty for a field that is never a row.
  std::string GetHeader(int field) const { return DetailCaption(instrument_.Kind, field); }
  /// Value of a field; empty without a record and for a field that is never a row.
  std::string GetDisplayText(int field) const { return DetailText(instrument_, field); }

  /// Handler of the updates of both records: `data` is the record.
  void SymbolUpdate(System::TObject* sender, System::TObject* data);

private:
  TCustomSubItem* Subscribe(std::string_view symbol);
  void ReleaseRecords();
  void InitDataList();
  void UpdateCaptions();

  std::string symbol_;
  TInstrument instrument_;
  std::vector<int> fields_;
  std::vector<std::string> captions_;
};

} // namespace Quorpricedatacontrol
