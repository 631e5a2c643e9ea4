#pragma once

#include "host/BaseFormatter.h"
#include "host/ICommon.h"
#include "terminal/services/LanguageTexts.h"
#include "terminal/services/MarketAdapter.h"
#include "terminal/services/SubscribeAdapter.h"

namespace Terminal {

/// The decimals that the prices of a record's symbol have: those of the step of its spread table
/// at its nominal price. Nothing when it has no table that is ready.
std::optional<int> PriceDecimals(const Basesubscribedata::TCustomSubItem& record,
                                 TMarketAdapter& market);

/// The same for the prices of its book too, each of which may lie in another band: the most that
/// one of them has, so that they all have as many.
std::optional<int> LadderDecimals(const Basesubscribedata::TCustomSubItem& record,
                                  TMarketAdapter& market);

/// Texts of numbers. No price is cut: it shows every decimal it has, eight at most.
class TFormatter : public Baseformatter::TCustomFormatter {
public:
  TFormatter(TMarketAdapter& market, const TSubscribeAdapter& records, TLanguageTexts& languages)
      : market_(market), records_(records), languages_(languages) {}

  std::string FormatNumber(double value, int flag) override;
  std::string FormatQuantity(double value) override;
  /// Whole amounts without decimals, others with two; what would not fit a column is shortened.
  std::string FormatAmount(std::string_view symbol, double value) override;
  /// In the units of the language.
  std::string FormatAbbreviatedAmount(double value, int precision) override;
  std::string FormatPrice(std::string_view symbol, int precision, double value) override;

private:
  TMarketAdapter& market_;
  const TSubscribeAdapter& records_;
  TLanguageTexts& languages_;
};

/// Texts of record fields. A text that is no number is shown as it stands.
class TMarketDataFormatter : public Icommon::TCustomMarketDataFormatter {
public:
  explicit TMarketDataFormatter(TMarketAdapter& market) : market_(market) {}

  bool FormatPrice(const Basesubscribedata::TCustomSubItem& record, int field,
                   std::string& text) override;
  bool FormatVolume(const Basesubscribedata::TCustomSubItem& record, int field,
                    std::string& text) override;
  /// Without field 48, the nominal price less the previous close.
  bool FormatChange(const Basesubscribedata::TCustomSubItem& record, std::string& text) override;
  /// Without field 130, worked out from the nominal price and the previous close.
  bool FormatChangePercent(const Basesubscribedata::TCustomSubItem& record,
                           std::string& text) override;

private:
  TMarketAdapter& market_;
};

} // namespace Terminal
