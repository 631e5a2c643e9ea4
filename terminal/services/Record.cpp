#include "terminal/services/Record.h"

#include "text/Numbers.h"

namespace Terminal {

const TRecord::TField* TRecord::Find(int field) const {
  const auto found =
      std::lower_bound(fields_.begin(), fields_.end(), field,
                       [](const TField& f, int number) { return f.Number < number; });
  return found != fields_.end() && found->Number == field ? &*found : nullptr;
}

std::string_view TRecord::GetText(int field) const {
  const auto* found = Find(field);
  return found ? std::string_view(found->Text) : std::string_view();
}

double TRecord::GetNumber(int field) const { return Text::ParseNumber(GetText(field)).value_or(0); }

void TRecord::AddRealtimeListener(System::TNotifyEvent handler, const System::TObject* owner) {
  realtimeListeners_.Set(owner, std::move(handler));
}

void TRecord::RemoveRealtimeListener(const System::TObject* owner) {
  realtimeListeners_.Remove(owner);
}

void TRecord::Merge(const Data::TRecordChange& change) {
  if (!std::exchange(named_, true))
    state_ = Constdef::RecordState_Ready;
  state_ = change.State.value_or(state_);
  if (change.Status)
    status_ = *change.Status;
  for (const auto& [field, text] : change.Fields)
    SetField(field, text);
}

void TRecord::SetField(int field, const std::optional<std::string>& text) {
  const auto place =
      std::lower_bound(fields_.begin(), fields_.end(), field,
                       [](const TField& f, int number) { return f.Number < number; });
  const bool present = place != fields_.end() && place->Number == field;
  if (present && text)
    place->Text = *text;
  else if (present)
    fields_.erase(place);
  else if (text)
    fields_.insert(place, {field, *text});
}

} // namespace Terminal
