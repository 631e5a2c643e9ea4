#include "market/InstrumentMarket.h"

#include <benchmark/benchmark.h>

#include <deque>
#include <map>
#include <random>
#include <unordered_map>
#include <vector>

// The same stream of orders through the market's book and through one made of the library's
// containers: a queue a price, and where each order stands.

namespace Market {

namespace {

constexpr int Steps = 1'000'000;
constexpr int OpenOrders = 2'000;

/// Cancels Id, or enters it: trades what crosses, and what is left rests.
struct TStep {
  bool IsCancel = false;
  TBookOrder Order;
};

TTickGrid ShareGrid() {
  return TTickGrid({{0, 250, 1},
                    {250, 500, 5},
                    {500, 10'000, 10},
                    {10'000, 20'000, 20},
                    {20'000, 100'000, 50},
                    {100'000, 200'000, 100},
                    {200'000, 500'000, 200}});
}

/// While few orders are open one more rests near the best price; otherwise one in five steps
/// crosses the best price and the others cancel: of a hundred steps some 50 rest and 40 cancel.
class TStream {
public:
  TStream() {
    while (std::ssize(steps_) < Steps) {
      if (book_.OrderCount() < OpenOrders)
        Enter(1 + static_cast<int>(std::min(random_() % 20, random_() % 20)));
      else if (random_() % 5 == 0)
        Enter(-2);
      else
        Cancel();
      if (random_() % 200 == 0)
        middle_ = grid_.Moved(middle_, random_() % 2 ? 1 : -1);
    }
  }

  const std::vector<TStep>& All() const { return steps_; }

private:
  void Enter(int ticksFromMiddle) {
    const TSide side = random_() % 2 ? TSide::Bid : TSide::Ask;
    const int ticks = side == TSide::Bid ? -ticksFromMiddle : ticksFromMiddle;
    const auto quantity = static_cast<TQuantity>(100 * (1 + random_() % 20));
    TBookOrder order{++lastId_, side, grid_.Moved(middle_, ticks), quantity, 0, {}};
    steps_.push_back({false, order});
    order.Quantity = book_.Match(side, order.Price, quantity, [](const TBookOrder&, TQuantity) {});
    if (order.Quantity > 0) {
      book_.Add(order);
      entered_.push_back(order.Id);
    }
  }

  /// Any order that is open.
  void Cancel() {
    TOrderId id = 0;
    do {
      std::swap(entered_[random_() % entered_.size()], entered_.back());
      id = entered_.back();
      entered_.pop_back();
    } while (!book_.Cancel(id));
    steps_.push_back({true, {id, TSide::Bid, 0, 0, 0, {}}});
  }

  std::mt19937_64 random_{1};
  TTickGrid grid_ = ShareGrid();
  TOrderBook book_{grid_};
  TPrice middle_ = 318'000;
  TOrderId lastId_ = 0;
  std::vector<TOrderId> entered_; ///< some are filled
  std::vector<TStep> steps_;
};

const std::vector<TStep>& Stream() {
  static const TStream stream;
  return stream.All();
}

/// Prices to queues of orders, and numbers to prices.
class TMapBook {
public:
  template <class TOnFill>
  TQuantity Match(TSide side, TPrice limit, TQuantity quantity, const TOnFill& onFill) {
    return side == TSide::Bid ? Take(asks_, limit, quantity, onFill)
                              : Take(bids_, limit, quantity, onFill);
  }

  void Add(const TBookOrder& order) {
    places_[order.Id] = {order.Side, order.Price};
    (order.Side == TSide::Bid ? bids_[order.Price] : asks_[order.Price]).push_back(order);
  }

  void Cancel(TOrderId id) {
    const auto place = places_.find(id);
    if (place == places_.end())
      return;
    place->second.Side == TSide::Bid ? Remove(bids_, place->second.Price, id)
                                     : Remove(asks_, place->second.Price, id);
    places_.erase(place);
  }

  std::size_t OrderCount() const { return places_.size(); }

private:
  struct TPlace {
    TSide Side = TSide::Bid;
    TPrice Price = 0;
  };
  using TQueue = std::deque<TBookOrder>;

  template <class TLevels, class TOnFill>
  TQuantity Take(TLevels& levels, TPrice limit, TQuantity quantity, const TOnFill& onFill) {
    while (quantity > 0 && !levels.empty() && !levels.key_comp()(limit, levels.begin()->first)) {
      TQueue& queue = levels.begin()->second;
      const TQuantity filled = std::min(quantity, queue.front().Quantity);
      queue.front().Quantity -= filled;
      quantity -= filled;
      onFill(queue.front(), filled);
      if (queue.front().Quantity == 0) {
        places_.erase(queue.front().Id);
        queue.pop_front();
      }
      if (queue.empty())
        levels.erase(levels.begin());
    }
    return quantity;
  }

  template <class TLevels> void Remove(TLevels& levels, TPrice price, TOrderId id) {
    const auto level = levels.find(price);
    std::erase_if(level->second, [id](const TBookOrder& order) { return order.Id == id; });
    if (level->second.empty())
      levels.erase(level);
  }

  std::map<TPrice, TQueue, std::greater<>> bids_;
  std::map<TPrice, TQueue> asks_;
  std::unordered_map<TOrderId, TPlace> places_;
};

/// The quantity traded.
template <class TBook> TQuantity Play(TBook& book) {
  TQuantity traded = 0;
  for (const TStep& step : Stream()) {
    if (step.IsCancel) {
      book.Cancel(step.Order.Id);
      continue;
    }
    TBookOrder order = step.Order;
    order.Quantity = book.Match(order.Side, order.Price, order.Quantity,
                                [&](const TBookOrder&, TQuantity filled) { traded += filled; });
    if (order.Quantity > 0)
      book.Add(order);
  }
  return traded;
}

template <class TBook> void Report(benchmark::State& state, const TBook& book, TQuantity traded) {
  state.SetItemsProcessed(state.iterations() * Steps);
  // The same for all.
  state.counters["traded"] = static_cast<double>(traded);
  state.counters["left"] = static_cast<double>(book.OrderCount());
}

void Orders(benchmark::State& state) {
  const TTickGrid grid = ShareGrid();
  Stream();
  TQuantity traded = 0;
  std::unique_ptr<TOrderBook> book;
  for (auto _ : state) {
    book = std::make_unique<TOrderBook>(grid);
    traded = Play(*book);
  }
  Report(state, *book, traded);
}

void OrdersThroughMaps(benchmark::State& state) {
  Stream();
  TQuantity traded = 0;
  std::unique_ptr<TMapBook> book;
  for (auto _ : state) {
    book = std::make_unique<TMapBook>();
    traded = Play(*book);
  }
  Report(state, *book, traded);
}

struct TCounter : TMarketListener {
  void Traded(const TInstrumentMarket&, const TMatch& trade) override { Traded_ += trade.Quantity; }
  void Lapsed(const TInstrumentMarket&, const TBookOrder&) override {}

  TQuantity Traded_ = 0;
};

/// All that the exchange checks and keeps of an instrument too: a step every two milliseconds, from
/// ten o'clock, under volatility control.
void OrdersAtTheExchange(benchmark::State& state) {
  const TTickGrid grid = ShareGrid();
  const TTradingDay day(1);
  Stream();
  TCounter counter;
  std::unique_ptr<TInstrumentMarket> market;
  for (auto _ : state) {
    counter.Traded_ = 0;
    market = std::make_unique<TInstrumentMarket>(
        TInstrumentSettings{"700", 100, 318'000, true, true, 10, false}, grid, day, counter);
    TTimeOfDay time = std::chrono::hours(10);
    for (const TStep& step : Stream()) {
      market->AdvanceTo(time += std::chrono::milliseconds(2));
      if (step.IsCancel)
        market->Cancel(step.Order.Id);
      else
        market->Enter({step.Order.Id, step.Order.Side, TOrderKind::Limit, step.Order.Price,
                       step.Order.Quantity, 0});
    }
  }
  Report(state, market->Book(), counter.Traded_);
}

} // namespace

BENCHMARK(Orders)->Unit(benchmark::kMillisecond);
BENCHMARK(OrdersThroughMaps)->Unit(benchmark::kMillisecond);
BENCHMARK(OrdersAtTheExchange)->Unit(benchmark::kMillisecond);

} // namespace Market

BENCHMARK_MAIN();
