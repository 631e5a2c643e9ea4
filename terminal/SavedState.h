#pragma once

#include <QByteArray>
#include <QString>

#include <string>
#include <string_view>
#include <vector>

class QSqlQuery;

namespace Terminal {

class TConfigStore;

/// A view as it is put back at the next start.
struct TSavedView {
  std::string LayoutData;
  std::string Group; ///< linking group; empty for none
};

/// Where the main window stood, and its docks.
struct TSavedWindow {
  QByteArray Geometry;
  QByteArray Docks;
};

/// What survives a run, and a crash: configuration, open views and the window's arrangement, in a
/// database file of the user.
class TSavedState {
public:
  /// Opens the database, making it when there is none. Where it cannot be opened, nothing is read
  /// or kept, and Error says why.
  explicit TSavedState(const QString& file);
  ~TSavedState();
  TSavedState(const TSavedState&) = delete;
  TSavedState& operator=(const TSavedState&) = delete;

  /// The file in the user's data folder.
  static QString DefaultFile();

  /// One sentence; empty when the database is open.
  const QString& Error() const { return error_; }

  /// Puts all stored values into `config` and stores those written from now on. The state
  /// outlives the writing.
  void Follow(TConfigStore& config);

  std::vector<TSavedView> Views() const;
  void StoreViews(const std::vector<TSavedView>& views);

  TSavedWindow Window() const;
  void StoreWindow(const TSavedWindow& window);

private:
  void CreateTables();
  void StoreConfig(std::string_view section, std::string_view key, std::string_view value);

  QString error_;
};

} // namespace Terminal
