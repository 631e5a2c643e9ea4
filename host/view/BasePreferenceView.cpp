#include "host/view/BasePreferenceView.h"

namespace Baseview {

TBasePreferenceFrame::~TBasePreferenceFrame() = default;

TIBasePreferenceView::TIBasePreferenceView(System::Classes::TComponent* owner)
    : TComponent(owner) {}

TIBasePreferenceView::~TIBasePreferenceView() = default;

std::string TIBasePreferenceView::GetName() { return {}; }
int TIBasePreferenceView::GetViewID() { return 0; }
int TIBasePreferenceView::GetWidth() { return 0; }
int TIBasePreferenceView::GetHeight() { return 0; }

std::vector<TBasePreferenceFrame*> TIBasePreferenceView::GetView() {
  std::vector<TBasePreferenceFrame*> frames;
  for (const auto& [handle, frame] : frames_)
    frames.push_back(frame.get());
  return frames;
}

TInstanceHandle TIBasePreferenceView::HandleOf(const TBasePreferenceFrame* frame) {
  return reinterpret_cast<TInstanceHandle>(frame);
}

void TIBasePreferenceView::AddView(std::unique_ptr<TBasePreferenceFrame> frame) {
  const auto handle = HandleOf(frame.get());
  frames_.emplace(handle, std::move(frame));
}

TBasePreferenceFrame* TIBasePreferenceView::FindFrame(TInstanceHandle handle) const {
  const auto found = frames_.find(handle);
  return found == frames_.end() ? nullptr : found->second.get();
}

bool TIBasePreferenceView::SetLanguage(TInstanceHandle handle, int language) {
  auto* frame = FindFrame(handle);
  return frame && frame->SetLanguage(language);
}

bool TIBasePreferenceView::Execute(TInstanceHandle handle) {
  auto* frame = FindFrame(handle);
  return frame && frame->Execute();
}

bool TIBasePreferenceView::Reset(TInstanceHandle handle) {
  auto* frame = FindFrame(handle);
  return frame && frame->Reset();
}

bool TIBasePreferenceView::ResetFactory(TInstanceHandle handle) {
  auto* frame = FindFrame(handle);
  return frame && frame->ResetFactory();
}

bool TIBasePreferenceView::SendMessage(TInstanceHandle handle, int message,
                                       std::int64_t parameter) {
  auto* frame = FindFrame(handle);
  return frame && frame->SendMessage(message, parameter);
}

} // namespace Baseview
