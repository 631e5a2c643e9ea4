#pragma once

#include <QString>

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Terminal {

/// The listed symbols: those that reference data or a feed has named. User-interface thread only.
class TSymbolDirectory {
public:
  struct TEntry {
    QString Symbol;
    QString Name; ///< empty when it has none
  };

  /// Lists a symbol; nothing happens when it is listed already.
  void Add(std::string_view symbol);
  /// Lists a symbol under a name too. An empty name leaves the one it has.
  void Add(std::string_view symbol, std::string_view name);

  /// The listed symbol that `text` means: the symbol itself, with or without leading zeros, a
  /// ".HK" and blanks around it, its full name, or both as Text gives them; in any case and in
  /// full-width letters as well.
  std::optional<std::string> Resolve(std::string_view text) const;

  /// How the entry is offered for choice: its symbol and its name.
  static QString Text(const TEntry& entry);

  /// In the order listed.
  const std::vector<TEntry>& Entries() const { return entries_; }
  /// Grows with every change of the entries.
  int Revision() const { return revision_; }

private:
  /// Null when nothing listed is meant.
  const TEntry* Find(const QString& text) const;

  std::vector<TEntry> entries_;
  std::map<std::string, std::size_t, std::less<>> bySymbol_; ///< positions in entries_
  std::map<QString, std::size_t> byPlainSymbol_;
  std::map<QString, std::size_t> byPlainName_;
  int revision_ = 0;
};

} // namespace Terminal
