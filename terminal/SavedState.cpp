#include "terminal/SavedState.h"

#include "terminal/services/ConfigStore.h"

#include <QDir>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QStandardPaths>
#include <QVariant>

namespace Terminal {

namespace {

const QString connectionName = QStringLiteral("saved-state");

QSqlDatabase Database() { return QSqlDatabase::database(connectionName, false); }

/// A statement with its values bound and run; false when the database refuses it or is not open.
bool Run(QSqlQuery& query, const QString& statement, const QVariantList& values = {}) {
  if (!Database().isOpen() || !query.prepare(statement))
    return false;
  for (const auto& value : values)
    query.addBindValue(value);
  return query.exec();
}

QString Text(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

TSavedState::TSavedState(const QString& file) {
  QDir().mkpath(QFileInfo(file).absolutePath());
  auto database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connectionName);
  database.setDatabaseName(file);
  if (!database.open()) {
    error_ = QStringLiteral("Layouts and settings are not kept: %1 cannot be opened (%2).")
                 .arg(file, database.lastError().text());
    return;
  }
  CreateTables();
}

TSavedState::~TSavedState() {
  Database().close();
  QSqlDatabase::removeDatabase(connectionName);
}

QString TSavedState::DefaultFile() {
  return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) +
         QStringLiteral("/state.sqlite");
}

void TSavedState::CreateTables() {
  QSqlQuery query(Database());
  const QString statements[] = {
      // Each change is on the disk as a whole or not at all, without a wait for the disk.
      QStringLiteral("pragma journal_mode = wal"), QStringLiteral("pragma synchronous = normal"),
      QStringLiteral("create table if not exists config (section text, name text, value text, "
                     "primary key (section, name))"),
      QStringLiteral("create table if not exists views (position integer primary key, "
                     "layout text, linking text)"),
      QStringLiteral("create table if not exists windows (name text primary key, "
                     "geometry blob, docks blob)")};
  for (const QString& statement : statements)
    if (!Run(query, statement))
      error_ = QStringLiteral("Layouts and settings are not kept: %1 cannot be written (%2).")
                   .arg(Database().databaseName(), query.lastError().text());
}

void TSavedState::Follow(TConfigStore& config) {
  QSqlQuery query(Database());
  Run(query, QStringLiteral("select section, name, value from config"));
  while (query.next())
    config.Load(query.value(0).toString().toStdString(), query.value(1).toString().toStdString(),
                query.value(2).toString().toStdString());
  config.OnStore = [this](std::string_view section, std::string_view key, std::string_view value) {
    StoreConfig(section, key, value);
  };
}

void TSavedState::StoreConfig(std::string_view section, std::string_view key,
                              std::string_view value) {
  QSqlQuery query(Database());
  Run(query, QStringLiteral("replace into config values (?, ?, ?)"),
      {Text(section), Text(key), Text(value)});
}

std::vector<TSavedView> TSavedState::Views() const {
  std::vector<TSavedView> views;
  QSqlQuery query(Database());
  Run(query, QStringLiteral("select layout, linking from views order by position"));
  while (query.next())
    views.push_back(
        {query.value(0).toString().toStdString(), query.value(1).toString().toStdString()});
  return views;
}

void TSavedState::StoreViews(const std::vector<TSavedView>& views) {
  auto database = Database();
  database.transaction();
  QSqlQuery query(database);
  Run(query, QStringLiteral("delete from views"));
  int position = 0;
  for (const auto& view : views)
    Run(query, QStringLiteral("insert into views values (?, ?, ?)"),
        {++position, Text(view.LayoutData), Text(view.Group)});
  database.commit();
}

TSavedWindow TSavedState::Window() const {
  QSqlQuery query(Database());
  Run(query, QStringLiteral("select geometry, docks from windows where name = 'main'"));
  if (!query.next())
    return {};
  return {query.value(0).toByteArray(), query.value(1).toByteArray()};
}

void TSavedState::StoreWindow(const TSavedWindow& window) {
  QSqlQuery query(Database());
  Run(query, QStringLiteral("replace into windows values ('main', ?, ?)"),
      {window.Geometry, window.Docks});
}

} // namespace Terminal
