#pragma once

#include "terminal/services/MarketFeed.h"
#include "terminal/windows/ViewHost.h"

#include <chrono>
#include <string>

namespace Terminal {

/// What runs where there is no display: one view on the market that is played.
struct THeadlessRun {
  TMarketPlayer& Player;
  TMarketFeed& Feed;
  TViewPane& View;
  std::chrono::milliseconds Time{};
};

/// Moves the market on by the run's time as fast as it can be read, and writes a picture of the
/// view as it is then. Empty when that could be done, otherwise one sentence.
std::string WriteSnapshot(const THeadlessRun& run, const QString& file);

/// Plays for the run's time and prints the view: in place and in colours where standard output is
/// a console, otherwise once at the end. Then writes a picture and names its file.
std::string PlayToConsole(const THeadlessRun& run, const QString& file);

} // namespace Terminal
