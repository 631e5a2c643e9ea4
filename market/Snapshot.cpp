#include "market/Snapshot.h"

#include "host/RecordFields.h"

namespace Market {

namespace {

TSnapshot::TBookSide SideOf(const TOrderBook& book, TSide side) {
  TSnapshot::TBookSide shown;
  shown.Levels.resize(Host::Field::DepthLevels);
  shown.Levels.resize(book.ReadLevels(side, shown.Levels));
  shown.Queue = BrokerQueueOf(book, side);
  return shown;
}

TSnapshot::TSession SessionIn(TPhase phase) {
  if (IsOpeningAuction(phase))
    return TSnapshot::TSession::Opening;
  const bool isClosing = phase == TPhase::ReferenceFixing || IsClosingAuction(phase);
  return isClosing ? TSnapshot::TSession::Closing : TSnapshot::TSession::None;
}

} // namespace

TSnapshot SnapshotOf(const TInstrumentMarket& market) {
  TSnapshot shown;
  shown.IsSuspended = market.Settings().IsSuspended;
  if (PublishesBook(market.Phase())) {
    shown.Bid = SideOf(market.Book(), TSide::Bid);
    shown.Ask = SideOf(market.Book(), TSide::Ask);
  }
  shown.Figures = market.Figures();
  shown.Nominal = market.NominalPrice();
  shown.CoolingOff = market.CoolingOff();
  shown.IsClosed = market.ClosingPrice().has_value();
  shown.Session = SessionIn(market.Phase());
  if (shown.Session != TSnapshot::TSession::None) {
    shown.Reference = market.ReferencePrice();
    shown.AuctionLimits = market.AuctionLimits();
    shown.Equilibrium = market.Equilibrium();
  }
  return shown;
}

} // namespace Market
