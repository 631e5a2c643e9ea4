#pragma once

#include "feed/SourceKind.h"

namespace FeedTest {

/// A source that can do nothing but play: one second of a market in which nothing happens.
class TQuietSource final : public Feed::TMarketReader {
public:
  static constexpr Feed::TTimeOfDay Start = std::chrono::hours(10);

  explicit TQuietSource(std::function<void()> wake) : TMarketReader(std::move(wake)) {
    thread_ = StartThread();
  }

  Feed::TSourceTraits Traits() override { return {}; }

private:
  bool DoNext(TLock& lock, const std::stop_token&) override {
    if (isKnown_)
      return false;
    isKnown_ = true;
    auto index = std::make_shared<Feed::TMarketIndex>();
    index->Start = Start;
    index->End = End();
    news_.Index = std::move(index);
    clock_.Position = Start;
    Announce(lock);
    return true;
  }
  std::optional<Feed::TReplayClock::TMoment> NextDue() const override { return clock_.Due(End()); }
  Feed::TTimeOfDay CurrentPosition() const override { return std::min(clock_.At(Now()), End()); }
  bool IsUnderway() const override { return seekRequest_.has_value(); }
  bool IsPastEnd() const override { return isKnown_ && CurrentPosition() == End(); }
  Feed::TTimeOfDay Beginning() const override { return Start; }
  Feed::TTimeOfDay End() const override { return Start + std::chrono::seconds(1); }

  bool isKnown_ = false;
  std::jthread thread_;
};

inline const Feed::TSourceKind QuietKind{
    .Options = {{"--quiet", "N", "plays a market in which nothing happens", nullptr}},
    .Open = [](const Feed::TSourceOptions&, std::function<void()> wake) -> Feed::TOpenedSource {
      return std::make_unique<TQuietSource>(std::move(wake));
    }};

} // namespace FeedTest
