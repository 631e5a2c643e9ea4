#include "market/MarketRig.h"
#include "market/PublishedQueue.h"

#include <gtest/gtest.h>

#include <map>

namespace Market {
namespace {

using namespace std::chrono_literals;

/// What became of an order, by what the exchange said.
struct TAccount {
  TSide Side = TSide::Bid;
  TBrokerId Broker = 0;
  TQuantity Entered = 0;
  TQuantity Filled = 0;
  TQuantity Cancelled = 0; ///< by its owner or the exchange

  TQuantity Open() const { return Entered - Filled - Cancelled; }
};

/// A day of random orders about a price that wanders fast enough for cooling-offs, with every order
/// accounted for. What must hold at every moment is checked at every trade and after every step.
class TRandomDay : TMarketListener {
public:
  explicit TRandomDay(std::uint64_t seed)
      : random_(seed), day_(seed),
        market_({"1", 500, Start, true, true, 10, false}, grid_, day_, *this) {}

  void Run() {
    for (TTimeOfDay time = 9h; time < 16h + 15min; time += TTimeOfDay(Below(random_, 8'000'000))) {
      market_.AdvanceTo(time);
      Wander();
      Act();
      Check();
      if (testing::Test::HasFatalFailure())
        return;
    }
    CheckEnd();
  }

  int CoolingOffs = 0;
  int AuctionTrades = 0;
  int Trades = 0;
  int Lapses = 0;

private:
  static constexpr TPrice Start = 9'900;

  void Wander() {
    if (Below(random_, 400) == 0)
      drift_ = Below(random_, 3) - 1;
    const int ticks = Below(random_, 5) - 2 + (Below(random_, 2) ? drift_ : 0);
    fair_ = std::clamp(grid_.Moved(fair_, ticks), TPrice{6'000}, TPrice{14'000});
  }

  void Act() {
    const int what = Below(random_, 10);
    if (what < 6)
      Enter();
    else if (what < 8 && !accounts_.empty())
      CancelOne();
    else if (!accounts_.empty())
      ChangeOne();
  }

  TPrice AnyPrice(TSide side) {
    const int offset = Below(random_, 12) - 3;
    return grid_.Moved(fair_, side == TSide::Bid ? -offset : offset);
  }

  void Enter() {
    const TSide side = Below(random_, 2) ? TSide::Bid : TSide::Ask;
    const auto kind = Below(random_, 6) ? TOrderKind::Limit : TOrderKind::Market;
    const TOrderId id = ++lastId_;
    const TQuantity quantity = 500 * (1 + Below(random_, 8));
    const TBrokerId broker = 1000 + Below(random_, 9000);
    const auto coolingBefore = market_.CoolingOff();
    accounts_[id] = {side, broker, quantity, 0, 0};
    const TEntryResult result = market_.Enter({id, side, kind, AnyPrice(side), quantity, broker});
    Settle(id, result);
    if (!coolingBefore && market_.CoolingOff())
      ++CoolingOffs;
  }

  /// What was neither filled nor left open is cancelled; fills were told as they happened.
  void Settle(TOrderId id, const TEntryResult& result) {
    TAccount& account = accounts_[id];
    account.Cancelled += account.Open() - result.Open;
    const TBookOrder* order = market_.Book().Find(id);
    ASSERT_EQ(order ? order->Quantity : 0, result.Open);
  }

  TOrderId AnyId() { return 1 + static_cast<TOrderId>(Below(random_, static_cast<int>(lastId_))); }

  void CancelOne() {
    const TOrderId id = AnyId();
    const TRejection result = market_.Cancel(id);
    if (result == TRejection::None)
      accounts_[id].Cancelled += accounts_[id].Open();
    if (!AcceptsCancels(market_.Phase())) {
      ASSERT_EQ(result, TRejection::PhaseRefuses);
    }
  }

  void ChangeOne() {
    const TOrderId id = AnyId();
    TAccount& account = accounts_[id];
    const bool wasOpen = market_.Book().Find(id) != nullptr;
    const TQuantity more = 500 * (1 + Below(random_, 8)) - account.Open();
    const TQuantity filled = account.Filled;
    account.Entered += more;
    const TEntryResult result = market_.Change(id, AnyPrice(account.Side), account.Open());
    ASSERT_EQ(account.Filled - filled, result.Filled);
    const bool isOpen = market_.Book().Find(id) != nullptr;
    if (result.Rejection != TRejection::None && wasOpen == isOpen)
      account.Entered -= more; // it stands as it was, or is as gone as it was
    else
      Settle(id, result);
  }

  void Traded(const TInstrumentMarket& market, const TMatch& trade) override {
    ++Trades;
    volume_ += trade.Quantity;
    turnover_ += trade.Price * trade.Quantity;
    ASSERT_GT(trade.Quantity, 0);
    ASSERT_EQ(trade.Quantity % 500, 0);
    ASSERT_TRUE(grid_.IsValid(trade.Price));
    ASSERT_EQ(trade.Time, market.Now());
    Fill(trade.BuyOrder, TSide::Bid, trade.Buyer, trade.Quantity);
    Fill(trade.SellOrder, TSide::Ask, trade.Seller, trade.Quantity);
    const bool isAuction = !IsContinuous(market.Phase());
    ASSERT_EQ(!trade.Aggressor.has_value(), isAuction);
    if (isAuction) {
      ++AuctionTrades;
      ASSERT_TRUE(market.AuctionLimits()->Hold(trade.Price) ||
                  trade.Price == market.ReferencePrice());
      if (auctionPrice_) {
        ASSERT_EQ(*auctionPrice_, trade.Price);
      }
      auctionPrice_ = trade.Price;
    }
    CheckVolatility(trade);
    history_.emplace_back(trade.Time, trade.Price);
    ASSERT_EQ(market.Figures().Volume, volume_);
    ASSERT_EQ(market.Figures().Turnover, turnover_);
    ASSERT_EQ(market.Figures().Last, trade.Price);
  }

  /// From the list of all trades: no more than a tenth off the last one five minutes earlier, or,
  /// in a cooling-off, off its reference.
  void CheckVolatility(const TMatch& trade) {
    const bool isWatched = (trade.Time >= 9h + 45min && trade.Time < 12h) ||
                           (trade.Time >= 13h + 15min && trade.Time < 15h + 40min);
    std::optional<TPrice> reference;
    const auto old = std::find_if(history_.rbegin(), history_.rend(), [&](const auto& each) {
      return each.first <= trade.Time - 5min;
    });
    if (isWatched && old != history_.rend())
      reference = old->second;
    if (const auto coolingOff = market_.CoolingOff())
      reference = coolingOff->Reference;
    if (reference) {
      ASSERT_LE(std::abs(trade.Price - *reference) * 10, *reference);
    }
  }

  void Lapsed(const TInstrumentMarket&, const TBookOrder& order) override {
    ++Lapses;
    ASSERT_EQ(accounts_[order.Id].Open(), order.Quantity);
    accounts_[order.Id].Cancelled += order.Quantity;
  }

  void Fill(TOrderId id, TSide side, TBrokerId broker, TQuantity quantity) {
    TAccount& account = accounts_[id];
    ASSERT_EQ(account.Side, side);
    ASSERT_EQ(account.Broker, broker);
    account.Filled += quantity;
    ASSERT_GE(account.Open(), 0);
  }

  void Check() {
    if (IsContinuous(market_.Phase()))
      auctionPrice_.reset();
    const TOrderBook& book = market_.Book();
    if (PublishesBook(market_.Phase()) && book.Front(TSide::Bid)) {
      ASSERT_FALSE(book.Crosses(TSide::Bid, *book.BestPrice(TSide::Bid))) << "crossed";
    }
    std::size_t orders = 0;
    for (const TSide side : {TSide::Bid, TSide::Ask})
      CheckSide(side, orders);
    ASSERT_EQ(book.OrderCount(), orders);
    if (++checks_ % 100 == 0)
      CheckAccounts(orders);
  }

  /// No order that should be open is missing.
  void CheckAccounts(std::size_t orders) {
    std::size_t open = 0;
    for (const auto& [id, account] : accounts_)
      open += account.Open() > 0 ? 1 : 0;
    ASSERT_EQ(open, orders);
  }

  /// Levels and queue against a walk over the orders, each order against its account.
  void CheckSide(TSide side, std::size_t& orders) {
    const TOrderBook& book = market_.Book();
    std::vector<TBookLevel> levels;
    std::vector<TQueueEntry> queue;
    int lastTicks = 0;
    book.VisitOrders(side, [&](const TBookOrder& order, int ticks) {
      ++orders;
      EXPECT_EQ(accounts_[order.Id].Open(), order.Quantity);
      EXPECT_EQ(order.Quantity % 500, 0);
      const auto limits = market_.AuctionLimits();
      if (limits && order.Kind == TOrderKind::Limit && order.Entered == market_.Now()) {
        EXPECT_TRUE(limits->Hold(order.Price));
      }
      EXPECT_TRUE(grid_.IsValid(order.Price));
      if (levels.empty() || levels.back().Price != order.Price)
        levels.push_back({order.Price, 0, 0});
      levels.back().Quantity += order.Quantity;
      ++levels.back().Orders;
      if (ticks != lastTicks)
        queue.push_back({TQueueEntry::TContent::Spread, side == TSide::Bid ? -ticks : ticks});
      lastTicks = ticks;
      queue.push_back({TQueueEntry::TContent::Broker, order.Broker});
      return true;
    });
    std::vector<TBookLevel> read(levels.size() + 1);
    read.resize(book.ReadLevels(side, read));
    ASSERT_EQ(read, levels);
    queue.resize(std::min(queue.size(), MaximumQueueEntries));
    if (!queue.empty() && queue.back().Kind == TQueueEntry::TContent::Spread)
      queue.pop_back();
    ASSERT_EQ(BrokerQueueOf(book, side), queue);
  }

  void CheckEnd() {
    ASSERT_EQ(market_.Phase(), TPhase::Closed);
    ASSERT_EQ(market_.Book().OrderCount(), 0u);
    TQuantity bought = 0;
    TQuantity sold = 0;
    for (const auto& [id, account] : accounts_) {
      ASSERT_EQ(account.Open(), 0);
      (account.Side == TSide::Bid ? bought : sold) += account.Filled;
    }
    ASSERT_EQ(bought, volume_);
    ASSERT_EQ(sold, volume_);
  }

  std::mt19937_64 random_;
  TTickGrid grid_ = ShareGrid();
  TTradingDay day_;
  TInstrumentMarket market_;
  std::map<TOrderId, TAccount> accounts_;
  std::vector<std::pair<TTimeOfDay, TPrice>> history_; ///< of the trades
  std::optional<TPrice> auctionPrice_;
  TPrice fair_ = Start;
  int drift_ = 0;
  int checks_ = 0;
  TOrderId lastId_ = 0;
  TQuantity volume_ = 0;
  TAmount turnover_ = 0;
};

TEST(MarketProperty, EveryQuantityIsAccountedForAndEveryLimitHolds) {
  int trades = 0;
  int coolingOffs = 0;
  int auctionTrades = 0;
  int lapses = 0;
  for (std::uint64_t seed = 1; seed <= 12; ++seed) {
    TRandomDay day(seed);
    day.Run();
    ASSERT_FALSE(testing::Test::HasFailure()) << "seed " << seed;
    trades += day.Trades;
    coolingOffs += day.CoolingOffs;
    auctionTrades += day.AuctionTrades;
    lapses += day.Lapses;
  }
  // The days had what they are to prove.
  EXPECT_GT(trades, 4000);
  EXPECT_GT(coolingOffs, 5);
  EXPECT_GT(lapses, 100);
  EXPECT_GT(auctionTrades, 100);
}

} // namespace
} // namespace Market
