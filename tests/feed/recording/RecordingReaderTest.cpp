#include "feed/recording/RecordingReader.h"
#include "feed/recording/Files.h"
#include "host/RecordFields.h"

#include <map>
#include <memory>

namespace {

namespace Field = Host::Field;

using namespace Feed;
using namespace RecordingTest;
using namespace std::chrono_literals;

/// A reader with an owner that can wait for its news.
class TOwner {
public:
  explicit TOwner(const TTemporaryFile& file) : reader_(Open(file), [this] { Wake(); }) {}

  TRecordingReader& Reader() { return reader_; }

  /// Takes news until `isEnough` is content with all of them; false after ten seconds without.
  template <typename TPredicate> bool TakeUntil(TPredicate isEnough) {
    while (!isEnough(*this)) {
      std::unique_lock lock(mutex_);
      if (!woken_.wait_for(lock, 10s, [this] { return isAwake_; }))
        return false;
      isAwake_ = false;
      lock.unlock();
      Absorb(reader_.Take());
    }
    return true;
  }
  bool TakeUntilFinished() {
    return TakeUntil([](const TOwner& owner) { return owner.Finishes > 0; });
  }

  void Absorb(const TReaderNews& news) {
    if (news.Index)
      Index = news.Index;
    if (news.Reset) {
      ++Resets;
      Market.clear();
    }
    Finishes += news.Finished ? 1 : 0;
    for (const auto& change : news.Changes) {
      ++Changes;
      for (const auto& [field, value] : change.Fields)
        Market[change.Symbol][field] = value.value_or("(none)");
    }
    for (const auto& progress : news.Progress)
      Progress.push_back(progress);
  }

  std::map<std::string, std::map<int, std::string>> Market;
  std::shared_ptr<const TMarketIndex> Index;
  std::vector<TReaderProgress> Progress;
  int Resets = 0;
  int Finishes = 0;
  int Changes = 0;

private:
  static TRecordingSource Open(const TTemporaryFile& file) {
    TRecordingSource source;
    EXPECT_FALSE(source.Open(file.Path()));
    return source;
  }
  void Wake() {
    const std::lock_guard lock(mutex_);
    isAwake_ = true;
    woken_.notify_all();
  }

  std::mutex mutex_;
  std::condition_variable woken_;
  bool isAwake_ = false;
  TRecordingReader reader_;
};

/// `count` changes of field 1, one per millisecond from ten o'clock, valued 0, 1, 2 ...
std::string Milliseconds(int count) {
  std::string content;
  for (int i = 0; i < count; ++i)
    content += Line(Text::TimeOfDayText(10h + i * 1ms), "5", 1, std::to_string(i));
  return content;
}

TEST(RecordingReader, StandsAtTheFirstMomentOnceIndexed) {
  const TTemporaryFile file(Line("10:00:00", "5", 1, "a") + Line("10:00:00", "5", 2, "b") +
                            Line("10:00:01", "5", 1, "c"));
  TOwner owner(file);
  ASSERT_TRUE(owner.TakeUntil([](const TOwner& o) { return o.Market.size() == 1; }));
  owner.Reader().Step(0ms);
  owner.Absorb(owner.Reader().Take());
  ASSERT_TRUE(owner.Index);
  EXPECT_EQ(owner.Index->Events, 3u);
  EXPECT_EQ(owner.Resets, 1);
  EXPECT_EQ(owner.Market["5"],
            (std::map<int, std::string>{{Field::BestBid, "a"}, {Field::BestAsk, "b"}}));
  EXPECT_EQ(owner.Reader().Position(), 10h);
  EXPECT_FALSE(owner.Reader().IsPlaying());
  EXPECT_FALSE(owner.Reader().IsAtEnd());
  ASSERT_FALSE(owner.Progress.empty());
  EXPECT_EQ(owner.Progress.back().PerCent, 100);
}

TEST(RecordingReader, PlaysNoFasterThanItsClock) {
  const TTemporaryFile file(Milliseconds(101));
  TOwner owner(file);
  owner.Reader().SetSpeed(2);
  const auto begin = std::chrono::steady_clock::now();
  owner.Reader().Play();
  ASSERT_TRUE(owner.TakeUntilFinished());
  EXPECT_GE(std::chrono::steady_clock::now() - begin, 50ms);
  EXPECT_EQ(owner.Market["5"][1], "100");
  EXPECT_TRUE(owner.Reader().IsAtEnd());
  EXPECT_FALSE(owner.Reader().IsPlaying());
  EXPECT_EQ(owner.Reader().Position(), 10h + 100ms);
}

TEST(RecordingReader, MergesWhatASlowOwnerDidNotTake) {
  const TTemporaryFile file(Milliseconds(3000));
  TOwner owner(file);
  owner.Reader().Step(2s);
  const auto news = owner.Reader().Take();
  ASSERT_EQ(news.Changes.size(), 1u);
  const decltype(TRecordChange::Fields) fields = {{Field::BestBid, "2000"}};
  EXPECT_EQ(news.Changes[0].Fields, fields);
  EXPECT_EQ(owner.Reader().Position(), 10h + 2s);
}

TEST(RecordingReader, WithoutAClockWaitsForItsOwner) {
  const TTemporaryFile file(Milliseconds(5000));
  TOwner owner(file);
  owner.Reader().Step(0ms);
  owner.Absorb(owner.Reader().Take());
  owner.Reader().SetSpeed(TRecordingReader::AsFastAsPossible);
  owner.Reader().Play();
  std::this_thread::sleep_for(50ms);
  EXPECT_LT(owner.Reader().Position(), 10h + 1s); // of five: a bounded part has been merged
  ASSERT_TRUE(owner.TakeUntilFinished());
  EXPECT_EQ(owner.Market["5"][1], "4999");
}

TEST(RecordingReader, SeekShowsTheStateOfThatMoment) {
  const TTemporaryFile file(Line("10:00:00", "5", 1, "a") + Line("10:00:01", "5", 2, "b") +
                            "{\"t\":\"10:00:02\",\"s\":\"5\",\"f\":{\"1\":null}}\n" +
                            Line("10:00:03", "7", 3, "c"));
  TOwner owner(file);
  const auto seek = [&owner](TTimeOfDay time) {
    owner.Reader().Seek(time);
    owner.Reader().Step(0ms);
    owner.Absorb(owner.Reader().Take());
    return owner.Market;
  };
  using TMarket = decltype(owner.Market);
  EXPECT_EQ(seek(23h), (TMarket{{"5", {{Field::BestBid, "(none)"}, {Field::BestAsk, "b"}}},
                                {"7", {{Field::Nominal, "c"}}}}));
  EXPECT_EQ(owner.Reader().Position(), 10h + 3s);
  EXPECT_EQ(owner.Finishes, 1);
  EXPECT_EQ(seek(10h + 1500ms), (TMarket{{"5", {{Field::BestBid, "a"}, {Field::BestAsk, "b"}}}}));
  EXPECT_EQ(owner.Reader().Position(), 10h + 1500ms);
  EXPECT_EQ(seek(10h + 1s), (TMarket{{"5", {{Field::BestBid, "a"}, {Field::BestAsk, "b"}}}}));
  EXPECT_EQ(seek(1h), (TMarket{{"5", {{Field::BestBid, "a"}}}}));
  EXPECT_EQ(owner.Reader().Position(), 10h);
  EXPECT_FALSE(owner.Reader().IsAtEnd());
}

TEST(RecordingReader, SeeksAlikeWithCheckpointsAndWithout) {
  std::string content; // beyond the distance between two checkpoints, several times
  const std::string wide(200, 'x');
  int count = 0;
  for (; content.size() < (12u << 20); ++count)
    content +=
        Line(Text::TimeOfDayText(10h + count * 1ms), "5", count % 50, std::to_string(count) + wide);
  const TTemporaryFile file(content);
  TOwner owner(file);
  for (const int target : {count - 2, count / 2, 60, count * 2 / 3}) {
    owner.Reader().Seek(10h + target * 1ms);
    owner.Reader().Step(0ms);
    owner.Absorb(owner.Reader().Take());
    ASSERT_EQ(owner.Market["5"].size(), 50u);
    for (int i = 0; i < 50; ++i)
      ASSERT_EQ(owner.Market["5"][(target - i) % 50], std::to_string(target - i) + wide);
  }
  EXPECT_GE(static_cast<const TRecordingIndex&>(*owner.Index).Checkpoints.size(), 3u);
  EXPECT_EQ(owner.Progress.back().Activity, TLongTask::Seeking);
  EXPECT_EQ(owner.Progress.back().PerCent, 100);
}

TEST(RecordingReader, GoesOnPlayingAfterASeek) {
  const TTemporaryFile file(Milliseconds(60000));
  TOwner owner(file);
  owner.Reader().Play();
  owner.Reader().Seek(10h + 59900ms);
  ASSERT_TRUE(owner.TakeUntil([](const TOwner& o) { return !o.Market.empty(); }));
  EXPECT_GE(std::stoi(owner.Market["5"][1]), 59900);
  ASSERT_TRUE(owner.TakeUntilFinished());
  EXPECT_EQ(owner.Market["5"][1], "59999");
}

TEST(RecordingReader, PlaysFromTheBeginningOnceItHasFinished) {
  const TTemporaryFile file(Line("10:00:00", "5", 1, "a") + Line("10:00:00.050", "5", 2, "b"));
  TOwner owner(file);
  owner.Reader().Step(1s);
  ASSERT_TRUE(owner.TakeUntilFinished());
  owner.Reader().SetSpeed(0.1);
  owner.Reader().Play();
  ASSERT_TRUE(owner.TakeUntil([](const TOwner& o) { return o.Resets == 2; }));
  EXPECT_EQ(owner.Market["5"], (std::map<int, std::string>{{Field::BestBid, "a"}}));
  ASSERT_TRUE(owner.TakeUntil([](const TOwner& o) { return o.Finishes == 2; }));
  EXPECT_EQ(owner.Market["5"],
            (std::map<int, std::string>{{Field::BestBid, "a"}, {Field::BestAsk, "b"}}));
}

TEST(RecordingReader, StartsOverWithoutFinishingWhenTold) {
  const TTemporaryFile file(Milliseconds(20));
  TOwner owner(file);
  owner.Reader().SetAtEnd(TAtEnd::StartOver);
  owner.Reader().SetSpeed(1000);
  owner.Reader().Play();
  ASSERT_TRUE(owner.TakeUntil([](const TOwner& o) { return o.Resets >= 4; }));
  EXPECT_EQ(owner.Finishes, 0);
  owner.Reader().SetAtEnd(TAtEnd::Stop);
  EXPECT_TRUE(owner.TakeUntilFinished());
}

TEST(RecordingReader, APauseHoldsTheMarketStill) {
  const TTemporaryFile file(Milliseconds(60000));
  TOwner owner(file);
  owner.Reader().Play();
  ASSERT_TRUE(owner.TakeUntil([](const TOwner& o) { return o.Changes >= 3; }));
  owner.Reader().Pause();
  owner.Reader().Step(0ms);
  owner.Absorb(owner.Reader().Take());
  const TTimeOfDay position = owner.Reader().Position();
  std::this_thread::sleep_for(20ms);
  EXPECT_EQ(owner.Reader().Position(), position);
  EXPECT_TRUE(owner.Reader().Take().Changes.empty());
  const auto millisecond = (position - 10h) / 1ms;
  EXPECT_EQ(owner.Market["5"][1], std::to_string(millisecond));
}

TEST(RecordingReader, FinishesAtOnceWhenThereIsNothingToPlay) {
  const TTemporaryFile file("?\n?\n");
  TOwner owner(file);
  ASSERT_TRUE(owner.TakeUntilFinished());
  EXPECT_EQ(owner.Index->MalformedCount, 2u);
  owner.Reader().SetAtEnd(TAtEnd::StartOver);
  owner.Reader().SetSpeed(TRecordingReader::AsFastAsPossible);
  owner.Reader().Play();
  ASSERT_TRUE(owner.TakeUntil([](const TOwner& o) { return o.Finishes == 2; }))
      << "there is nothing to start over with";
  EXPECT_FALSE(owner.Reader().IsPlaying());
  EXPECT_TRUE(owner.Market.empty());
  EXPECT_EQ(owner.Reader().Position(), 0us);
}

TEST(RecordingReader, StartsOverOnlyOnceTheEndWasTakenWhereThereIsNoClock) {
  const TTemporaryFile file(Milliseconds(3000));
  TOwner owner(file);
  owner.Reader().SetAtEnd(TAtEnd::StartOver);
  owner.Reader().SetSpeed(TRecordingReader::AsFastAsPossible);
  owner.Reader().Play();
  std::string last;
  ASSERT_TRUE(owner.TakeUntil([&last](const TOwner& o) {
    if (o.Resets == 1 && !o.Market.empty())
      last = o.Market.at("5").at(1);
    return o.Resets == 2;
  }));
  EXPECT_EQ(last, "2999");
  EXPECT_LT(std::stoi(owner.Market["5"][1]), 2000) << "from the beginning";
}

TEST(RecordingReader, CanBeLeftAtAnyMoment) {
  const TTemporaryFile file(Milliseconds(40000));
  for (int i = 0; i < 40; ++i) {
    auto owner = std::make_unique<TOwner>(file);
    owner->Reader().SetSpeed(TRecordingReader::AsFastAsPossible);
    owner->Reader().Play();
    if (i % 3 == 0)
      owner->Reader().Seek(10h + 39s);
    std::this_thread::sleep_for(i * 1ms);
    const auto leaving = std::chrono::steady_clock::now();
    owner.reset();
    EXPECT_LT(std::chrono::steady_clock::now() - leaving, 10s) << "the worker did not stop";
  }
}

} // namespace
