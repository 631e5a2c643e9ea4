#pragma once

#include "feed/recording/RecordingWriter.h"
#include "terminal/services/MarketFeed.h"

#include <QObject>

#include <memory>
#include <optional>

namespace Terminal {

/// Records the market that is played: first everything as it stands, then every change. A jump of
/// the player ends the recording, since no market jumps.
class TMarketRecorder : public QObject {
  Q_OBJECT

public:
  /// Both outlive the recorder.
  TMarketRecorder(const TMarketPlayer& player, const TMarketFeed& feed);

  bool IsRecording() const { return writer_ != nullptr; }
  /// That is being recorded, or was last.
  const std::string& File() const { return file_; }
  /// Empty when `file` is being written now.
  std::optional<Data::TProblem> Start(const std::string& file);
  /// Empty when everything is in the file, or nothing was being recorded.
  std::optional<Data::TProblem> Stop();

signals:
  /// The recording ended by itself, as by Stop.
  void Ended(const std::optional<Data::TProblem>& problem);

private:
  void Write(Text::TTimeOfDay time, const std::vector<Data::TRecordChange>& changes);

  const TMarketPlayer& player_;
  const TMarketFeed& feed_;
  std::unique_ptr<Feed::TRecordingWriter> writer_;
  std::string file_;
};

} // namespace Terminal
