#pragma once

#include "feed/MarketReader.h"

namespace Market {
class TSimulatedMarket;
}

namespace Feed {

/// Which day is simulated, and the moment of it that is shown first.
struct TSimulation {
  std::uint64_t Seed = DefaultSeed;
  TTimeOfDay Start = DefaultStart;

  /// A day on which the first instrument of the listing has a cooling-off soon after DefaultStart.
  static constexpr std::uint64_t DefaultSeed = 972;
  static constexpr TTimeOfDay DefaultStart = std::chrono::hours(10);
};

/// Simulates one day. Starts paused at the simulation's start. A day that is over, or sought back
/// into, begins anew: the same day without the user's orders.
class TSimulationReader final : public TMarketReader,
                                public TSeekable,
                                public TJumpable,
                                public TOrderTaker,
                                public TDelayable {
public:
  TSimulationReader(const TSimulation& simulation, std::function<void()> wake);
  ~TSimulationReader() override;

  TSourceTraits Traits() override { return {Mark_Invented, false, this, this, this, this}; }
  void Seek(TTimeOfDay time) override;
  void Jump(TJump to) override;
  /// A request made before the index of a new day was taken is to the day that is over, and has no
  /// answer.
  void Request(const Data::TOrderRequest& request) override;
  void SetDelay(TTimeOfDay delay) override;

private:
  /// A run at full speed.
  struct TRun {
    TTimeOfDay From{};
    TTimeOfDay Target{};
    bool IsToCoolingOff = false; ///< ends with the first that begins
    std::string CoolingOff;      ///< the symbol of that one
  };

  bool DoNext(TLock& lock, const std::stop_token& stop) override;
  std::optional<TReplayClock::TMoment> NextDue() const override;
  TTimeOfDay CurrentPosition() const override { return position_; }
  bool IsUnderway() const override { return IsOnItsWay() || delayRequest_; }
  bool IsPastEnd() const override;
  TTimeOfDay Beginning() const override { return simulation_.Start; }
  TTimeOfDay End() const override;

  bool IsOnItsWay() const { return seekRequest_ || jumpRequest_ || run_; }
  void StartRun(TLock& lock);
  void Begin(TLock& lock);
  TTimeOfDay JumpTarget(TJump to) const;
  void RunOn(TLock& lock);
  void EndRun(TLock& lock);
  void Answer(TLock& lock);
  void ChangeDelay(TLock& lock, const std::stop_token& stop);
  TTimeOfDay Target() const;
  bool IsDue() const;
  void PlayOn(TLock& lock);
  void AdvanceTo(TTimeOfDay time, TLock& lock);
  void AdvanceDelayed(TTimeOfDay time);
  bool Collect(TTimeOfDay reached, TLock& lock);

  const TSimulation simulation_;

  // The thread's.
  std::unique_ptr<Market::TSimulatedMarket> market_;
  std::unique_ptr<Market::TSimulatedMarket> delayed_; ///< null unless changes are delayed
  std::vector<std::pair<TTimeOfDay, Data::TOrderRequest>> heard_; ///< since the day began
  std::size_t heardDelayed_ = 0; ///< how many of these the delayed market has heard
  TTimeOfDay delay_{};

  // Guarded by the lock.
  TTimeOfDay position_{};
  TReplayClock::TMoment nextPublication_{};
  std::optional<TJump> jumpRequest_; ///< after the seek, when there is one
  std::optional<TRun> run_;
  std::vector<Data::TOrderRequest> requests_;
  std::optional<TTimeOfDay> delayRequest_;

  std::jthread thread_; ///< last: joined before anything else goes
};

} // namespace Feed
