#pragma once

#include "data/Problem.h"
#include "terminal/store/FileLock.h"

#include <QByteArray>
#include <QString>
#include <QVariant>

#include <functional>
#include <optional>
#include <string>
#include <vector>

class QSqlDatabase;
class QSqlQuery;

namespace Terminal {

class TConfigStore;
struct TConfigValue;

/// A view as it is put back at the next start.
struct TSavedView {
  std::string LayoutData;
  std::string Group; ///< linking group; empty for none

  bool operator==(const TSavedView&) const = default;
};

/// The open views, in their order, and how the window is arranged.
struct TSavedLayout {
  std::vector<TSavedView> Views;
  QByteArray Geometry; ///< of the main window
  QByteArray Docks;

  bool operator==(const TSavedLayout&) const = default;
};

/// What survives a run, and a crash: configuration, open views and the window's arrangement, in a
/// database file of the user. What is stored together is in the file as a whole or not at all, at
/// whatever moment the terminal is killed, and is there for good once the storing is done.
class TSavedState {
public:
  /// Opens the database, making it when there is none. Only one holds it to keep changes; a lock
  /// beside the file says who.
  explicit TSavedState(const QString& file);
  ~TSavedState();
  TSavedState(const TSavedState&) = delete;
  TSavedState& operator=(const TSavedState&) = delete;

  /// The file in the user's data folder.
  static QString DefaultFile();

  const QString& File() const { return file_; }
  /// What there is to say of the store, one of Data::TProblemCode::Store...; empty when it is read
  /// and changes are kept.
  const std::optional<Data::TProblem>& Problem() const { return problem_; }

  /// Puts all stored values into `config` and stores those written from now on. The state
  /// outlives the writing.
  void Follow(TConfigStore& config);

  /// Empty when none was stored.
  TSavedLayout Layout() const;
  void StoreLayout(const TSavedLayout& layout);

  /// Called when the store becomes unusable while it is kept; once.
  std::function<void()> OnLost;

private:
  QSqlDatabase Database() const;
  void OpenToRead();
  void OpenToKeep();
  std::optional<Data::TProblemCode> Examine();
  bool SetAside(Data::TProblemCode reason);
  void CreateTables();
  void StoreConfig(const std::vector<TConfigValue>& values);
  QSqlQuery Select(const QString& statement) const;
  bool Run(const QString& statement, const QVariantList& values = {});
  void StoreTogether(const std::function<bool()>& statements);
  void SetProblem(Data::TProblemCode code, const QString& detail);
  void Lose(const QString& reason);

  QString file_;
  TFileLock lock_;
  QString connection_; ///< the toolkit's name of the open database
  std::optional<Data::TProblem> problem_;
  QString lastError_;
  bool keeps_ = false;
};

} // namespace Terminal
