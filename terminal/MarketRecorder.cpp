#include "terminal/MarketRecorder.h"

namespace Terminal {

TMarketRecorder::TMarketRecorder(const ReplayPlayer& player, const TMarketFeed& feed)
    : player_(player), feed_(feed) {
  connect(&player, &ReplayPlayer::Batch, this, &TMarketRecorder::Write);
  connect(&player, &ReplayPlayer::Reset, this, [this] {
    if (IsRecording())
      emit Ended(QString::fromStdString(Stop()));
  });
}

std::string TMarketRecorder::Start(const std::string& file) {
  auto writer = std::make_unique<RecordingWriter>();
  const auto* index = player_.Index();
  if (auto error = writer->Open(file, index ? index->Header : TRecordingHeader()); !error.empty())
    return error;
  writer_ = std::move(writer);
  Write(feed_.Present());
  return {};
}

std::string TMarketRecorder::Stop() {
  if (!writer_)
    return {};
  std::string error = writer_->Close();
  writer_.reset();
  return error;
}

void TMarketRecorder::Write(const std::vector<TRecordChange>& changes) {
  if (!writer_)
    return;
  for (const auto& change : changes)
    writer_->Write(player_.Position(), change);
}

} // namespace Terminal
