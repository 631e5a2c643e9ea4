#include "terminal/store/SavedState.h"

#include "host/ConstDef.h"
#include "terminal/services/ConfigStore.h"
#include "terminal/services/LanguageTexts.h"

#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace Terminal {
namespace {

using enum Data::TProblemCode;

/// The kind of problem; empty when everything is kept.
std::optional<Data::TProblemCode> CodeOf(const TSavedState& state) {
  return state.Problem() ? std::optional(state.Problem()->Code) : std::nullopt;
}

/// The name that a store set aside was given, or why it is unusable.
QString DetailOf(const TSavedState& state) {
  return QString::fromStdString(state.Problem().value().Parts.at(1));
}

std::string SentenceOf(const TSavedState& state) {
  return Sentence(state.Problem().value(), Constdef::Language_English);
}

class TSavedStateTest : public testing::Test {
protected:
  /// Leaves a store of one value and two views, all of it in the database's own file.
  void LeaveAStore() const {
    TSavedState state(File);
    ASSERT_EQ(CodeOf(state), std::nullopt);
    TConfigStore config;
    state.Follow(config);
    config.WriteString("S", "kept", "騰", true);
    state.StoreLayout({{{"Symbol=1", ""}, {"Symbol=2", "A"}}, "geometry", "docks"});
  }

  /// Carries a statement out in the database.
  void Execute(const QString& statement) const {
    {
      auto database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), "test");
      database.setDatabaseName(File);
      ASSERT_TRUE(database.open());
      QSqlQuery query(database);
      ASSERT_TRUE(query.exec(statement)) << statement.toStdString();
    }
    QSqlDatabase::removeDatabase("test");
  }

  /// The files set aside for `reason`, without what the database keeps beside itself.
  QStringList Aside(const QString& reason) const {
    QStringList names;
    for (const QString& name :
         QDir(Folder.path()).entryList({QStringLiteral("state.sqlite.%1-*").arg(reason)}))
      if (!name.endsWith(QLatin1String("-wal")) && !name.endsWith(QLatin1String("-shm")))
        names.append(name);
    return names;
  }

  void ExpectEmptyAndKept(const TSavedState& state) const {
    EXPECT_TRUE(state.Layout().Views.empty());
    EXPECT_EQ(state.Layout().Geometry, QByteArray());
  }

  QTemporaryDir Folder;
  QString File = Folder.filePath(QStringLiteral("state.sqlite"));
};

TEST_F(TSavedStateTest, KeepsConfigurationViewsAndWindowBeyondTheRun) {
  File = Folder.filePath(QStringLiteral("deep/state.sqlite"));
  {
    TSavedState state(File);
    TConfigStore config;
    state.Follow(config);
    config.WriteString("S", "kept", "1", true);
    config.WriteString("S", "kept", "騰", true);
    config.WriteString("S", "passing", "2", false);
    state.StoreLayout({{{"Symbol=1", ""}, {"Symbol=2", "A"}}, "former", "former docks"});
    state.StoreLayout({{{"Symbol=3", "B"}}, "geometry", "docks"});
  }
  const TSavedState state(File);
  EXPECT_EQ(CodeOf(state), std::nullopt);
  TConfigStore config;
  TSavedState(File).Follow(config); // in use: it reads all the same
  EXPECT_EQ(config.ReadString("S", "kept"), "騰");
  EXPECT_EQ(config.ReadString("S", "passing"), "");
  const TSavedLayout layout = state.Layout();
  ASSERT_EQ(layout.Views.size(), 1U);
  EXPECT_EQ(layout.Views[0].LayoutData, "Symbol=3");
  EXPECT_EQ(layout.Views[0].Group, "B");
  EXPECT_EQ(layout.Geometry, "geometry");
  EXPECT_EQ(layout.Docks, "docks");
}

TEST_F(TSavedStateTest, ALayoutThatCannotBeStoredAsAWholeLeavesTheFormerOne) {
  LeaveAStore();
  Execute("create trigger full before insert on views when new.position = 2 "
          "begin select raise(abort, 'no room'); end");
  TSavedState state(File);
  int lost = 0;
  state.OnLost = [&] { ++lost; };
  state.StoreLayout({{{"Symbol=8", ""}, {"Symbol=9", ""}}, "other", "other docks"});
  EXPECT_EQ(lost, 1);
  EXPECT_EQ(SentenceOf(state), "Layouts and settings are not kept: " + File.toStdString() +
                                   " cannot be written (" + DetailOf(state).toStdString() + ").");
  EXPECT_TRUE(DetailOf(state).contains(QStringLiteral("no room")));
  const TSavedLayout layout = state.Layout();
  ASSERT_EQ(layout.Views.size(), 2U);
  EXPECT_EQ(layout.Views[0].LayoutData, "Symbol=1");
  EXPECT_EQ(layout.Geometry, "geometry");
  // What has room is stored again, and nothing more is said.
  state.StoreLayout({{{"Symbol=8", ""}}, "other", "other docks"});
  ASSERT_EQ(state.Layout().Views.size(), 1U);
  EXPECT_EQ(state.Layout().Views[0].LayoutData, "Symbol=8");
  EXPECT_EQ(lost, 1);
}

TEST_F(TSavedStateTest, TheValuesOfOneUserActionAreStoredTogether) {
  LeaveAStore();
  Execute("create trigger full before insert on config when new.name = 'B' "
          "begin select raise(abort, 'no room'); end");
  TSavedState state(File);
  TConfigStore config;
  state.Follow(config);
  {
    TConfigStore::TUserAction action(config);
    config.WriteString("S", "A", "1", true);
    config.WriteString("S", "B", "2", true);
  }
  TConfigStore stored;
  TSavedState(File).Follow(stored);
  EXPECT_EQ(stored.ReadString("S", "A"), "");
  EXPECT_EQ(stored.ReadString("S", "kept"), "騰");
}

TEST_F(TSavedStateTest, SaysWhyNothingIsKept) {
  const TSavedState state(QStringLiteral("/proc/none/state.sqlite"));
  EXPECT_EQ(CodeOf(state), StoreUnusable);
  EXPECT_EQ(SentenceOf(state),
            "Layouts and settings are not kept: /proc/none/state.sqlite cannot be "
            "written (No such file or directory).");
  EXPECT_TRUE(state.Layout().Views.empty());
}

TEST_F(TSavedStateTest, ASecondOneReadsWhatIsStoredAndKeepsNothing) {
  LeaveAStore();
  const TSavedState first(File);
  TSavedState second(File);
  EXPECT_EQ(CodeOf(second), StoreInUse);
  EXPECT_EQ(SentenceOf(second), File.toStdString() +
                                    " is in use by another terminal, so this one works with the "
                                    "settings stored there and keeps no changes.");
  TConfigStore config;
  second.Follow(config);
  EXPECT_EQ(config.ReadString("S", "kept"), "騰");
  EXPECT_EQ(second.Layout().Views.size(), 2U);
  config.WriteString("S", "kept", "other", true);
  second.StoreLayout({{{"Symbol=9", ""}}, "other", "other docks"});
  EXPECT_EQ(CodeOf(second), StoreInUse);
  EXPECT_EQ(first.Layout().Views.size(), 2U);
  EXPECT_EQ(first.Layout().Geometry, "geometry");
}

TEST_F(TSavedStateTest, AKilledHolderDoesNotBlockTheNextStart) {
  LeaveAStore();
  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  const pid_t holder = fork();
  if (holder == 0) {
    const TFileLock lock(File + ".lock");
    const char state = lock.State() == TFileLock::TState::Held ? 'h' : 'x';
    if (write(ready[1], &state, 1) == 1)
      pause();
    _exit(1);
  }
  char state = 0;
  ASSERT_EQ(read(ready[0], &state, 1), 1);
  EXPECT_EQ(state, 'h');
  EXPECT_EQ(CodeOf(TSavedState(File)), StoreInUse);
  ASSERT_EQ(kill(holder, SIGKILL), 0);
  ASSERT_EQ(waitpid(holder, nullptr, 0), holder);
  EXPECT_EQ(CodeOf(TSavedState(File)), std::nullopt);
  close(ready[0]);
  close(ready[1]);
}

TEST_F(TSavedStateTest, AStoreOfAnEarlierTerminalIsTakenOver) {
  LeaveAStore();
  Execute("pragma user_version = 0");
  const TSavedState state(File);
  EXPECT_EQ(CodeOf(state), std::nullopt);
  EXPECT_EQ(state.Layout().Views.size(), 2U);
}

TEST_F(TSavedStateTest, ANewerStoreIsSetAsideUntouched) {
  LeaveAStore();
  Execute("pragma user_version = 2");
  {
    TSavedState state(File);
    EXPECT_EQ(CodeOf(state), StoreNewer);
    ExpectEmptyAndKept(state);
    const QStringList aside = Aside("newer");
    ASSERT_EQ(aside.size(), 1);
    EXPECT_EQ(DetailOf(state), Folder.filePath(aside[0]));
    EXPECT_EQ(SentenceOf(state),
              File.toStdString() + " was written by a newer version; it is kept as " +
                  DetailOf(state).toStdString() + " and the terminal starts with its defaults.");
    state.StoreLayout({{{"Symbol=9", ""}}, "g", "d"});
    File = DetailOf(state);
  }
  Execute("pragma user_version = 1");
  EXPECT_EQ(TSavedState(File).Layout().Views.size(), 2U);
}

TEST_F(TSavedStateTest, EachOfTwoSetAsideInOneSecondHasItsOwnName) {
  for (int i = 0; i < 2; ++i) {
    QFile file(File);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("This is no database, and it is longer than the head of one would have to be: it "
               "goes on and on.");
    file.close();
    EXPECT_EQ(CodeOf(TSavedState(File)), StoreDamaged);
  }
  EXPECT_EQ(Aside("damaged").size(), 2);
}

/// What is done to a good store to damage it.
struct TDamage {
  const char* Name;
  std::function<void(const QString& file)> Do;
};

class TDamagedStoreTest : public TSavedStateTest, public testing::WithParamInterface<TDamage> {};

TEST_P(TDamagedStoreTest, IsSetAsideAndTheTerminalStartsWithDefaults) {
  LeaveAStore();
  GetParam().Do(File);
  QByteArray damaged;
  {
    QFile file(File);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    damaged = file.readAll();
  }
  {
    TSavedState state(File);
    ASSERT_EQ(CodeOf(state), StoreDamaged);
    ExpectEmptyAndKept(state);
    EXPECT_EQ(SentenceOf(state), "The layouts and settings in " + File.toStdString() +
                                     " are damaged; the file is kept as " +
                                     DetailOf(state).toStdString() +
                                     " and the terminal starts with its defaults.");
    QFile aside(DetailOf(state));
    ASSERT_TRUE(aside.open(QIODevice::ReadOnly));
    EXPECT_EQ(aside.readAll(), damaged);
    state.StoreLayout({{{"Symbol=9", ""}}, "g", "d"});
  }
  const TSavedState next(File);
  EXPECT_EQ(CodeOf(next), std::nullopt);
  ASSERT_EQ(next.Layout().Views.size(), 1U);
  EXPECT_EQ(next.Layout().Views[0].LayoutData, "Symbol=9");
}

void Overwrite(const QString& name, qint64 offset, const QByteArray& bytes) {
  QFile file(name);
  ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.seek(offset));
  ASSERT_EQ(file.write(bytes), bytes.size());
}

constexpr qint64 PageSize = 4096;

INSTANTIATE_TEST_SUITE_P(
    All, TDamagedStoreTest,
    testing::Values(
        TDamage{"CutToHalfAPage", [](const QString& file) { QFile::resize(file, PageSize / 2); }},
        TDamage{"CutToOnePage", [](const QString& file) { QFile::resize(file, PageSize); }},
        TDamage{"CutInsideItsLastPage",
                [](const QString& file) { QFile::resize(file, QFile(file).size() - 100); }},
        TDamage{"OtherHead", [](const QString& file) { Overwrite(file, 0, "Not SQLite at all"); }},
        TDamage{"UnknownFormatOfItsSchema",
                [](const QString& file) { Overwrite(file, 44, QByteArray(4, '\xA5')); }},
        TDamage{"GarbageInASchemaPage",
                [](const QString& file) { Overwrite(file, 100, QByteArray(500, '\xA5')); }},
        TDamage{"GarbageInATablePage",
                [](const QString& file) { Overwrite(file, PageSize, QByteArray(300, '\xA5')); }},
        TDamage{"GarbageInTheLastPage",
                [](const QString& file) {
                  Overwrite(file, QFile(file).size() - PageSize, QByteArray(300, '\xA5'));
                }}),
    [](const auto& damage) { return damage.param.Name; });

} // namespace
} // namespace Terminal
