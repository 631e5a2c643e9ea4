#pragma once

#include "fakes/HostFakesMarket.h"
#include "fakes/HostFakesOrders.h"
#include "fakes/HostFakesRecord.h"
#include "fakes/HostFakesServices.h"

#include <optional>

/// The host of a test: every service of the contract that has no widget, with nothing in it.
namespace Fakes {

/// Live registrations and subscriptions of each kind.
struct TRegistrations {
  int configuration = 0;
  int channels = 0;
  int groups = 0;
  int timers = 0;
  int records = 0;   ///< subscriptions of symbols
  int listeners = 0; ///< of records
  int brokers = 0;
  int spreads = 0;
  int tradeSides = 0;
  int orders = 0; ///< order objects alive

  bool operator==(const TRegistrations&) const = default;
};

/// Installs its services when made and removes them when it goes; one at a time.
struct THostFakes {
  THostFakes();
  ~THostFakes();
  THostFakes(const THostFakes&) = delete;
  THostFakes& operator=(const THostFakes&) = delete;

  TFakeConfigManager config;
  TFakeLanguageManager language;
  TFakeLookAndFeelService lookAndFeel;
  TFakeTimerControl timers;
  TFakeGlobalChannelManager channels;
  TFakeMarketAdapter market;
  TFakeSubscribeAdapter subscriptions;
  TFakeOrderAdapter orders;
  TFakeUserAppProfile profile;
  TFakeFormatter formatter;
  TFakeMarketDataFormatter marketDataFormatter;
  TFakeTradeSideDetector trades;

  /// The record of a symbol, subscribed or not.
  TFakeRecord& Record(std::string_view symbol) { return subscriptions.Record(symbol); }

  /// Nothing, as in the beginning: there is no vendor data-feed model.
  void SetFeedType(std::optional<int> feedType);

  TRegistrations Registrations() const;

private:
  TFakeVendorDDSModel vendorModel_;
};

} // namespace Fakes
