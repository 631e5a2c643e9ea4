#pragma once

#include "terminal/replay/ReplayPlayer.h"

#include <QElapsedTimer>
#include <QObject>

#include <map>
#include <optional>
#include <set>

namespace Terminal {

class TServices;

/// The lines of a recording that were skipped, each as "line NUMBER: what is wrong with it"; of
/// very many, the first and how many there are.
std::vector<std::string> SkippedLines(const TRecordingIndex& index);

/// Hands what a player plays to the services, and knows how old it is.
class TMarketFeed : public QObject {
  Q_OBJECT

public:
  /// Both outlive the feed.
  TMarketFeed(TServices& services, ReplayPlayer& player);

  /// Whether the market that is played was invented.
  bool IsSimulated() const { return simulated_; }
  /// Seconds since the last data came; nothing before the first.
  std::optional<double> Age() const;
  /// Every record as it stands, without its trades.
  std::vector<TRecordChange> Present() const;

signals:
  /// Once per recording: its reference data is known, and `symbol` is the first that it names;
  /// empty when it names none.
  void Started(const QString& symbol);

private:
  void TakeHeader(const TRecordingHeader& header);
  void TakeBatch(const std::vector<TRecordChange>& changes);
  void ForgetRecords();
  void TellStart(const std::string& symbol);

  TServices& services_;
  const ReplayPlayer& player_;
  bool simulated_ = false;
  bool started_ = false;
  QElapsedTimer lastData_;
  std::map<std::string, std::set<int>> given_; ///< fields that records may hold, by symbol
};

} // namespace Terminal
