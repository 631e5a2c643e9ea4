#pragma once

#include "market/Crowd.h"
#include "market/FieldList.h"
#include "market/Snapshot.h"
#include "market/UserAccount.h"

#include <deque>
#include <memory>

namespace Market {

/// The first moment of a simulated day that is shown, and the last.
inline constexpr TTimeOfDay DayStart = std::chrono::hours(9);
inline constexpr TTimeOfDay DayEnd = std::chrono::hours(16) + std::chrono::minutes(10);

/// The whole simulated market through one day, and what its feed says. The same seed and the same
/// requests at the same moments bring the same records, in whatever steps time goes on.
class TSimulatedMarket : private TMarketListener {
public:
  /// Told of one instrument at once: some hours of a busy one, so that a chart has them.
  static constexpr std::size_t MaximumTrades = 4000;

  /// Begins at midnight.
  explicit TSimulatedMarket(std::uint64_t seed);
  ~TSimulatedMarket() override;

  /// Reference data for the whole day.
  TReferenceData Header() const;

  TTimeOfDay Now() const { return now_; }
  /// The next moment after Now() at which something happens.
  TTimeOfDay NextMoment() const;
  /// Lets everything happen up to `time` and including it; an earlier one than Now() changes
  /// nothing.
  void AdvanceTo(TTimeOfDay time);

  /// The user's, at Now().
  void Apply(const TOrderRequest& request);
  /// What the user is to hear of, since the last call.
  std::vector<TOrderReport> TakeReports() { return account_.TakeReports(); }

  /// The fields that changed since the last call, in the listing's order; of very many trades in
  /// one instrument the latest.
  std::vector<TRecordChange> TakeChanges();
  /// The next TakeChanges gives every field of every record.
  void PublishAnew();

  /// Symbols in the order in which their cooling-offs of the day began.
  const std::vector<std::string>& CoolingOffs() const { return coolingOffs_; }

private:
  /// For so long after a cooling-off its instrument is said to be under control no more, so that
  /// views take it off.
  static constexpr TTimeOfDay CoolingOffFarewell = std::chrono::seconds(10);

  /// An instrument and what has been said of it.
  struct TListed {
    const TInstrument* Instrument = nullptr;
    std::unique_ptr<TInstrumentMarket> Market; ///< null: it sends no data
    TFieldTexts Same;                          ///< fields that are the same all day
    TSnapshot Shown;
    TTimeOfDay Changed{}; ///< when Shown came to be as it is
    TFieldTexts Told;
    std::deque<TMatch> Trades; ///< not told yet
    bool HasChanged = true;
    std::optional<TTimeOfDay> CoolingOffEnd; ///< of the latest, until its end has been told
  };

  void Traded(const TInstrumentMarket& market, const TMatch& trade) override;
  void Lapsed(const TInstrumentMarket& market, const TBookOrder& order) override;
  TListed* Find(std::string_view symbol);
  TTimeOfDay NextBoundary() const;
  void PassBoundary(TTimeOfDay time);
  void Note(std::size_t position, TTimeOfDay time);
  TFieldTexts FieldsOf(const TListed& listed) const;
  TRecordChange ChangeOf(TListed& listed) const;

  TListing listing_;
  TTradingDay day_;
  std::vector<TListed> listed_; ///< in the listing's order
  std::unordered_map<std::string_view, std::size_t> positions_;
  TUserAccount account_;
  std::unique_ptr<TCrowd> crowd_;
  TTimeOfDay now_{};
  std::vector<std::string> coolingOffs_;
};

} // namespace Market
