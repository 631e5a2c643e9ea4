#pragma once

#include "data/Orders.h"
#include "feed/FeedTypes.h"

namespace Feed {

// What only some sources can do.

struct TSeekable {
  virtual void Seek(TTimeOfDay time) = 0; ///< clamped to the market's hours
};

/// Where a market can be run on to.
enum class TJump {
  Opening,       ///< of the morning or the afternoon, whichever is next
  CoolingOff,    ///< an instrument's next one; the end of the day when there is none
  ClosingAuction ///< its beginning
};

struct TJumpable {
  /// Runs on as fast as it can; where that is not ahead in this day, through a new one.
  virtual void Jump(TJump to) = 0;
};

struct TOrderTaker {
  /// The market answers at the moment where it is, also while paused.
  virtual void Request(const Data::TOrderRequest& request) = 0;
};

struct TDelayable {
  /// Changes come `delay` behind the market; orders and clock do not. None come until all can.
  virtual void SetDelay(TTimeOfDay delay) = 0;
};

// Marks: language keys of what stands wherever a market is shown.
inline constexpr const char* Mark_Invented = "Term_Simulated";
inline constexpr const char* Mark_Replay = "Term_Replay";

/// What a source says of itself, always the same. Only its header says whether its market is
/// invented, since a recording may be of either.
struct TSourceTraits {
  const char* Mark = Mark_Replay; ///< where the market is not invented
  bool HasEnd = true;             ///< and stops there; otherwise the day begins anew
  // What it can do; null where it cannot.
  TSeekable* Seekable = nullptr;
  TJumpable* Jumpable = nullptr;
  TOrderTaker* Orders = nullptr;
  TDelayable* Delayable = nullptr;
};

} // namespace Feed
