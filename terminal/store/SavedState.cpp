#include "terminal/store/SavedState.h"

#include "terminal/services/ConfigStore.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QStandardPaths>

#include <algorithm>

namespace Terminal {

namespace {

using enum Data::TProblemCode;

/// Of the tables and what they hold. A store without a version is of the first.
constexpr int StoreVersion = 1;

// The database's own numbers, without the detail in their upper bits.
constexpr int ErrorBits = 0xFF;
constexpr int ErrorOther = 1; ///< of a store that is examined, such as a format that is not known
constexpr int ErrorCorrupt = 11;
constexpr int ErrorNotADatabase = 26;

QString Text(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// Makes the folder, so that the lock can be beside the file from the beginning.
QString LockOf(const QString& file) {
  QDir().mkpath(QFileInfo(file).absolutePath());
  return file + QStringLiteral(".lock");
}

bool IsDamage(const QSqlError& error) {
  const int code = error.nativeErrorCode().toInt() & ErrorBits;
  return code == ErrorOther || code == ErrorCorrupt || code == ErrorNotADatabase;
}

/// A name beside `file` that nothing has.
QString AsideName(const QString& file, const QString& reason) {
  const QString name =
      QStringLiteral("%1.%2-%3")
          .arg(file, reason,
               QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-hhmmss")));
  QString free = name;
  for (int number = 2; QFileInfo::exists(free); ++number)
    free = QStringLiteral("%1-%2").arg(name).arg(number);
  return free;
}

} // namespace

TSavedState::TSavedState(const QString& file)
    : file_(file), lock_(LockOf(file)),
      connection_(QStringLiteral("saved-state-%1").arg(reinterpret_cast<quintptr>(this))) {
  QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection_).setDatabaseName(file);
  switch (lock_.State()) {
  case TFileLock::TState::Held:
    OpenToKeep();
    break;
  case TFileLock::TState::HeldElsewhere:
    OpenToRead();
    break;
  case TFileLock::TState::Failed:
    Lose(lock_.Error());
    break;
  }
}

TSavedState::~TSavedState() {
  Database().close();
  QSqlDatabase::removeDatabase(connection_);
}

QString TSavedState::DefaultFile() {
  return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) +
         QStringLiteral("/state.sqlite");
}

QSqlDatabase TSavedState::Database() const { return QSqlDatabase::database(connection_, false); }

void TSavedState::OpenToRead() {
  SetProblem(StoreInUse, {});
  auto database = Database();
  database.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY"));
  if (!database.open())
    Lose(database.lastError().text());
}

void TSavedState::OpenToKeep() {
  auto database = Database();
  if (!database.open())
    return Lose(database.lastError().text());
  const auto found = Examine();
  if (found == StoreUnusable)
    return Lose(lastError_);
  if (found && !SetAside(*found))
    return;
  keeps_ = true;
  CreateTables();
}

// All of it is read: a page that a crash of the whole machine left torn must not be found when the
// state is half restored. The file is a few pages long.
std::optional<Data::TProblemCode> TSavedState::Examine() {
  QSqlQuery query(Database());
  const auto failure = [&] {
    lastError_ = query.lastError().text();
    return IsDamage(query.lastError()) ? StoreDamaged : StoreUnusable;
  };
  if (!query.exec(QStringLiteral("pragma user_version")) || !query.next())
    return failure();
  if (query.value(0).toInt() > StoreVersion)
    return StoreNewer;
  if (!query.exec(QStringLiteral("pragma integrity_check(1)")) || !query.next())
    return failure();
  if (query.value(0).toString() != QStringLiteral("ok"))
    return StoreDamaged;
  return {};
}

/// The database itself goes first: what is left of it after a kill is nothing that a new one
/// would take for its own.
bool TSavedState::SetAside(Data::TProblemCode reason) {
  auto database = Database();
  database.close();
  const QString name =
      AsideName(file_, reason == StoreNewer ? QStringLiteral("newer") : QStringLiteral("damaged"));
  if (QFile store(file_); !store.rename(name)) {
    Lose(store.errorString());
    return false;
  }
  for (const auto* part : {"-wal", "-shm"})
    QFile::rename(file_ + QLatin1String(part), name + QLatin1String(part));
  SetProblem(reason, name);
  if (database.open())
    return true;
  Lose(database.lastError().text());
  return false;
}

void TSavedState::CreateTables() {
  // Appending to a log is one write without a wait: a change made by a mouse must not hold the
  // window up until a disk has turned. What is appended survives the end of the process at once;
  // a power cut can take the last changes with it, but always as a whole. It also lets a second
  // terminal read while this one writes.
  if (!Run(QStringLiteral("pragma journal_mode = wal")) ||
      !Run(QStringLiteral("pragma synchronous = normal")))
    return Lose(lastError_);
  StoreTogether([this] {
    return Run(QStringLiteral("create table if not exists config (section text, name text, "
                              "value text, primary key (section, name))")) &&
           Run(QStringLiteral("create table if not exists views (position integer primary key, "
                              "layout text, linking text)")) &&
           Run(QStringLiteral("create table if not exists windows (name text primary key, "
                              "geometry blob, docks blob)")) &&
           Run(QStringLiteral("pragma user_version = %1").arg(StoreVersion));
  });
}

void TSavedState::Follow(TConfigStore& config) {
  auto query = Select(QStringLiteral("select section, name, value from config"));
  while (query.next())
    config.Load(query.value(0).toString().toStdString(), query.value(1).toString().toStdString(),
                query.value(2).toString().toStdString());
  config.OnStore = [this](const std::vector<TConfigValue>& values) { StoreConfig(values); };
}

void TSavedState::StoreConfig(const std::vector<TConfigValue>& values) {
  StoreTogether([&] {
    return std::all_of(values.begin(), values.end(), [this](const TConfigValue& value) {
      return Run(QStringLiteral("replace into config values (?, ?, ?)"),
                 {Text(value.Section), Text(value.Key), Text(value.Value)});
    });
  });
}

TSavedLayout TSavedState::Layout() const {
  TSavedLayout layout;
  auto query = Select(QStringLiteral("select layout, linking from views order by position"));
  while (query.next())
    layout.Views.push_back(
        {query.value(0).toString().toStdString(), query.value(1).toString().toStdString()});
  query = Select(QStringLiteral("select geometry, docks from windows where name = 'main'"));
  if (query.next()) {
    layout.Geometry = query.value(0).toByteArray();
    layout.Docks = query.value(1).toByteArray();
  }
  return layout;
}

void TSavedState::StoreLayout(const TSavedLayout& layout) {
  StoreTogether([&] {
    int position = 0;
    return Run(QStringLiteral("delete from views")) &&
           std::all_of(layout.Views.begin(), layout.Views.end(),
                       [&](const TSavedView& view) {
                         return Run(QStringLiteral("insert into views values (?, ?, ?)"),
                                    {++position, Text(view.LayoutData), Text(view.Group)});
                       }) &&
           Run(QStringLiteral("replace into windows values ('main', ?, ?)"),
               {layout.Geometry, layout.Docks});
  });
}

/// Without rows where the database is not open.
QSqlQuery TSavedState::Select(const QString& statement) const {
  QSqlQuery query(Database());
  if (Database().isOpen())
    query.exec(statement);
  return query;
}

bool TSavedState::Run(const QString& statement, const QVariantList& values) {
  QSqlQuery query(Database());
  const bool isPrepared = query.prepare(statement);
  for (const auto& value : values)
    query.addBindValue(value);
  if (isPrepared && query.exec())
    return true;
  lastError_ = query.lastError().text();
  return false;
}

void TSavedState::StoreTogether(const std::function<bool()>& statements) {
  if (!keeps_)
    return;
  if (Run(QStringLiteral("begin immediate")) && statements() && Run(QStringLiteral("commit")))
    return;
  const QString reason = lastError_;
  Run(QStringLiteral("rollback"));
  Lose(reason);
}

void TSavedState::SetProblem(Data::TProblemCode code, const QString& detail) {
  problem_ = {code, {file_.toStdString(), detail.toStdString()}};
}

// The storing goes on, for a full disk may have room again.
void TSavedState::Lose(const QString& reason) {
  if (problem_ && problem_->Code == StoreUnusable)
    return;
  SetProblem(StoreUnusable, reason);
  if (OnLost)
    OnLost();
}

} // namespace Terminal
