#pragma once

#include "terminal/market/OrderRequest.h"
#include "terminal/market/SimulatedMarket.h"
#include "terminal/replay/Conflator.h"
#include "terminal/replay/MarketReader.h"
#include "terminal/replay/ReplayClock.h"

#include <condition_variable>
#include <functional>
#include <mutex>
#include <stop_token>
#include <thread>

namespace Terminal::Market {

/// Which day is simulated, and the moment of it that is shown first.
struct TSimulation {
  std::uint64_t Seed = DefaultSeed;
  TTimeOfDay Start = DefaultStart;

  static constexpr std::uint64_t DefaultSeed = 700;
  static constexpr TTimeOfDay DefaultStart = std::chrono::hours(10);
};

/// Where a simulated market can be run on to.
enum class TJump {
  Opening,       ///< of the morning or the afternoon, whichever is next
  CoolingOff,    ///< an instrument's next one; the end of the day when there is none
  ClosingAuction ///< its beginning
};

/// Simulates one day on a thread of its own. Starts paused at the simulation's start. A day that is
/// over, or sought back into, begins anew: the same day without the user's orders.
class SimulationReader : public MarketReader {
public:
  /// `wake` is called on the simulating thread. It must not call back.
  SimulationReader(const TSimulation& simulation, std::function<void()> wake);
  ~SimulationReader() override;

  TReaderNews Take() override;

  void Play() override;
  void Pause() override;
  void SetSpeed(double speed) override;
  void SetAtEnd(TAtEnd atEnd) override;
  void Seek(TTimeOfDay time) override;
  void Step(std::chrono::milliseconds by) override;

  bool IsPlaying() const override;
  bool IsAtEnd() const override;
  TTimeOfDay Position() const override;

  /// Runs on as fast as it can; where that is not ahead in this day, through a new one.
  void Jump(TJump to);
  /// The market answers at the moment where it is, also while paused. A request made before the
  /// index of a new day was taken is to the day that is over, and has no answer.
  void Request(const TOrderRequest& request);
  /// Changes come `delay` behind the market; orders and clock do not. None come until all can.
  void SetDelay(TTimeOfDay delay);

private:
  using TLock = std::unique_lock<std::mutex>;

  /// A run at full speed.
  struct TRun {
    TTimeOfDay From{};
    TTimeOfDay Target{};
    bool IsToCoolingOff = false; ///< ends with the first that begins
    std::string CoolingOff;      ///< the symbol of that one
  };

  void Work(const std::stop_token& stop);
  void Begin(TLock& lock);
  void StartRun(TLock& lock);
  void EndRun(TLock& lock);
  void Answer(TLock& lock);
  void Advance(TLock& lock);
  void AdvanceSlice(TTimeOfDay until, TLock& lock);
  void AdvanceDelayed(TTimeOfDay time);
  void ChangeDelay(TLock& lock, const std::stop_token& stop);
  void Publish(TLock& lock);
  void TellProgress(TTimeOfDay from, TTimeOfDay at, TTimeOfDay to, TLock& lock);
  void TellFinished(TLock& lock);
  void Announce(TLock& lock);
  void Wait(TLock& lock, const std::stop_token& stop);

  // All of these with the lock held.
  void Command();
  void Settle(TLock& lock);
  void SetClock(bool isRunning);
  TTimeOfDay Target() const;
  TTimeOfDay JumpTarget(TJump to) const;
  bool IsDue() const;
  bool IsOnItsWay() const { return seekRequest_ || jumpRequest_ || run_; }
  bool IsPastEnd() const;
  bool MayStartOver() const;
  std::optional<ReplayClock::TMoment> NextMoment() const;

  const std::function<void()> wake_;
  const TSimulation simulation_;
  const TTradingDay day_;

  // The simulating thread's.
  std::unique_ptr<TSimulatedMarket> market_;
  std::unique_ptr<TSimulatedMarket> delayed_;               ///< null unless changes are delayed
  std::vector<std::pair<TTimeOfDay, TOrderRequest>> heard_; ///< since the day began
  std::size_t heardDelayed_ = 0; ///< how many of these the delayed market has heard

  mutable std::mutex mutex_; ///< guards all below
  std::condition_variable_any commanded_;
  std::condition_variable settled_;
  bool hasCommand_ = false;
  bool isSettled_ = false;
  bool isAnnounced_ = false;
  bool isFinishTold_ = false;
  TAtEnd atEnd_ = TAtEnd::Stop;
  ReplayClock clock_;
  TTimeOfDay position_{};
  ReplayClock::TMoment nextPublication_{};
  std::optional<TTimeOfDay> seekRequest_;
  std::optional<TJump> jumpRequest_;
  std::optional<TRun> run_;
  std::vector<TOrderRequest> requests_;
  std::optional<TTimeOfDay> delayRequest_;
  TTimeOfDay delay_{};
  int perCent_ = 0; ///< told last
  Conflator conflator_{TSimulatedMarket::MaximumTrades};
  TReaderNews news_;

  std::jthread thread_; ///< last: joined before anything else goes
};

} // namespace Terminal::Market
