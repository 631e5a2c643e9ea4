#pragma once

#include "host/BaseConfigManager.h"
#include "terminal/services/Listeners.h"

#include <map>
#include <vector>

namespace Terminal {

/// A value with its section and key.
struct TConfigValue {
  std::string Section;
  std::string Key;
  std::string Value;
};

/// The terminal's configuration values, kept in memory. What must survive the run is read in with
/// Load and written out by OnStore.
class TConfigStore : public Baseconfigmanager::TCustomConfigManager {
public:
  using TSection = std::map<std::string, std::string, std::less<>>;

  /// Stores and announces the writes made during its life together, when it ends. Actions nest:
  /// the outermost one does it.
  class TUserAction {
  public:
    explicit TUserAction(TConfigStore& store) : store_(store) { ++store_.actions_; }
    ~TUserAction() { store_.EndUserAction(); }
    TUserAction(const TUserAction&) = delete;
    TUserAction& operator=(const TUserAction&) = delete;

  private:
    TConfigStore& store_;
  };

  void RegisterListener(System::TDataEvent handler, const System::TObject* owner) override;
  void UnregisterListener(const System::TObject* owner) override;
  std::string ReadString(std::string_view section, std::string_view key) override;
  int ReadInteger(std::string_view section, std::string_view key) override;
  bool ReadBoolean(std::string_view section, std::string_view key) override;
  std::string CurrentSection() override { return "USER"; }
  bool IsLayoutReady() override { return layoutReady_; }
  void WriteString(std::string_view section, std::string_view key, std::string_view value,
                   bool store) override;

  void SetLayoutReady(bool ready) { layoutReady_ = ready; }

  /// Puts a stored value back; nobody is told.
  void Load(std::string_view section, std::string_view key, std::string_view value);
  /// The same of what is to be where nothing was stored.
  void LoadDefault(const TConfigValue& value);
  /// Replaces a whole section by values of this run only; nobody is told.
  void ReplaceSection(std::string_view section, TSection values);

  /// Called with the values that a user action wrote to be kept beyond this run, in the order
  /// written, before the listeners hear of it.
  std::function<void(const std::vector<TConfigValue>& values)> OnStore;

  std::size_t ListenerCount() const { return listeners_.Count(); }

private:
  void EndUserAction();
  void Announce();

  std::map<std::string, TSection, std::less<>> sections_;
  TDataListeners listeners_;
  std::vector<TConfigValue> toStore_; ///< of the action under way
  int actions_ = 0;
  bool changed_ = false; ///< something was written in the action under way
  bool layoutReady_ = false;
};

} // namespace Terminal
