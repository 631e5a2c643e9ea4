#include "terminal/services/ConfigStore.h"

#include "text/Numbers.h"
#include "text/Strings.h"

namespace Terminal {

void TConfigStore::RegisterListener(System::TDataEvent handler, const System::TObject* owner) {
  listeners_.Set(owner, std::move(handler));
}

void TConfigStore::UnregisterListener(const System::TObject* owner) { listeners_.Remove(owner); }

std::string TConfigStore::ReadString(std::string_view section, std::string_view key) {
  const auto foundSection = sections_.find(section);
  if (foundSection == sections_.end())
    return {};
  const auto found = foundSection->second.find(key);
  return found == foundSection->second.end() ? std::string() : found->second;
}

int TConfigStore::ReadInteger(std::string_view section, std::string_view key) {
  return Text::ParseInteger(ReadString(section, key)).value_or(0);
}

bool TConfigStore::ReadBoolean(std::string_view section, std::string_view key) {
  const auto text = ReadString(section, key);
  return text == "1" || Text::EqualsIgnoringCase(text, "y") ||
         Text::EqualsIgnoringCase(text, "true");
}

void TConfigStore::WriteString(std::string_view section, std::string_view key,
                               std::string_view value, bool store) {
  Load(section, key, value);
  if (store && OnStore)
    toStore_.push_back({std::string(section), std::string(key), std::string(value)});
  changed_ = true;
  if (actions_ == 0)
    Announce();
}

void TConfigStore::Load(std::string_view section, std::string_view key, std::string_view value) {
  sections_[std::string(section)].insert_or_assign(std::string(key), value);
}

void TConfigStore::LoadDefault(const TConfigValue& value) {
  sections_[value.Section].try_emplace(value.Key, value.Value);
}

void TConfigStore::ReplaceSection(std::string_view section, TSection values) {
  sections_.insert_or_assign(std::string(section), std::move(values));
}

void TConfigStore::EndUserAction() {
  if (--actions_ == 0 && changed_)
    Announce();
}

void TConfigStore::Announce() {
  changed_ = false;
  if (const auto values = std::exchange(toStore_, {}); !values.empty() && OnStore)
    OnStore(values);
  listeners_.Notify(this, nullptr);
}

} // namespace Terminal
