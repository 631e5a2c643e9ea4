#include "terminal/services/MarketRecorder.h"

namespace Terminal {

TMarketRecorder::TMarketRecorder(const TMarketPlayer& player, const TMarketFeed& feed)
    : player_(player), feed_(feed) {
  connect(&player, &TMarketPlayer::Batch, this,
          [this](const auto& changes) { Write(player_.BatchTime(), changes); });
  connect(&player, &TMarketPlayer::Reset, this, [this] {
    if (IsRecording())
      emit Ended(Stop());
  });
}

std::optional<Data::TProblem> TMarketRecorder::Start(const std::string& file) {
  file_ = file;
  auto writer = std::make_unique<Feed::TRecordingWriter>();
  const auto* index = player_.Index();
  if (auto problem = writer->Open(file, index ? index->Header : Data::TReferenceData()))
    return problem;
  writer_ = std::move(writer);
  Write(player_.BatchTime(), feed_.Present());
  return {};
}

std::optional<Data::TProblem> TMarketRecorder::Stop() {
  if (!writer_)
    return {};
  auto problem = writer_->Close();
  writer_.reset();
  return problem;
}

void TMarketRecorder::Write(Text::TTimeOfDay time,
                            const std::vector<Data::TRecordChange>& changes) {
  if (!writer_)
    return;
  for (const auto& change : changes)
    writer_->Write(time, change);
}

} // namespace Terminal
