#pragma once

#include "feed/Conflator.h"
#include "terminal/services/MarketPlayer.h"

#include <QElapsedTimer>
#include <QObject>

#include <map>
#include <optional>
#include <set>

namespace Terminal {

class TServices;

/// Hands what a player plays to the services in the form of one of the vendor's feed types, and
/// knows how old it is.
class TMarketFeed : public QObject {
  Q_OBJECT

public:
  /// How far delayed quotes lie behind the market, where the source can delay them.
  static constexpr std::chrono::minutes Delay{15};

  /// Both outlive the feed. Streaming unless told otherwise.
  TMarketFeed(TServices& services, TMarketPlayer& player);
  ~TMarketFeed() override;

  /// Constdef::FeedType_...; another number changes nothing. A view keeps to the type that it was
  /// opened with, so those that are open are to be opened anew. Trades told before are gone.
  void SetFeedType(int type);
  int FeedType() const { return feedType_; }
  /// Snapshots that were asked for while quotes come per click.
  int SnapshotCount() const { return snapshots_; }

  /// Whether the market that is played was invented.
  bool IsSimulated() const { return simulated_; }
  /// Language key of what stands wherever the market is shown.
  const char* Mark() const { return mark_; }
  /// Seconds since the last data came; nothing before the first.
  std::optional<double> Age() const;
  /// Every record as the market has it, without its trades.
  std::vector<Data::TRecordChange> Present() const;

signals:
  /// Once per recording: its reference data is known, and `symbol` is the first that it names;
  /// empty when it names none.
  void Started(const QString& symbol);
  void SnapshotTaken(int count);

private:
  void ApplyHeader(const Data::TReferenceData& header);
  void ApplyChanges(const std::vector<Data::TRecordChange>& changes);
  void Apply(const Data::TRecordChange& change);
  void TellRecord(const Data::TRecordChange& change);
  void ApplySnapshot(std::string_view symbol);
  void ForgetRecords();
  void TellStart(const std::string& symbol);

  TServices& services_;
  TMarketPlayer& player_;
  int feedType_ = 0;
  int snapshots_ = 0;
  Feed::TConflator
      market_; ///< every record without its trades, while views are told less than that
  bool simulated_ = false;
  const char* mark_ = Feed::Mark_Replay;
  bool started_ = false;
  QElapsedTimer lastData_;
  std::map<std::string, std::set<int>> given_; ///< fields that records may hold, by symbol
};

} // namespace Terminal
