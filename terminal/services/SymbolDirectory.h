#pragma once

#include <QString>

#include <array>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace Terminal {

/// The listed symbols: those that reference data or a feed has named. User-interface thread only.
class TSymbolDirectory {
public:
  struct TEntry {
    QString Symbol;
    std::array<QString, 3> Names; ///< in Constdef::Language_... 1, 2 and 3; empty where it has none

    /// Its name in a language. Where it has none there, the one it has: of the two Chinese ones the
    /// other before the English one; empty when it has no name at all.
    QString NameIn(int language) const;
  };

  /// Lists a symbol; nothing happens when it is listed already.
  void Add(std::string_view symbol);
  /// Lists a symbol under its names too, in place of those it has; without any it keeps them.
  void Add(std::string_view symbol, std::string_view name, std::string_view traditionalName = {},
           std::string_view simplifiedName = {});

  /// The listed symbol that `text` means: the symbol itself, with or without leading zeros, a
  /// ".HK" and blanks around it, its full name in any language that no other symbol has, or both as
  /// Text gives them; in any case and in full-width letters as well.
  std::optional<std::string> Resolve(std::string_view text) const;

  /// How the entry is offered for choice: its symbol and its name in a language.
  static QString Text(const TEntry& entry, int language);

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
  std::map<QString, std::set<std::size_t>> byPlainName_;
  int revision_ = 0;
};

} // namespace Terminal
