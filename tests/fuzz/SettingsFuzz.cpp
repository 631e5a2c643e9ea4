// Any text as what the terminal stores, and as damage to its store. What was stored is read back
// unchanged; a store that is damaged is read as far as it goes or set aside for a new one, and
// either then keeps what it is given.

#include "fuzz/Fuzz.h"
#include "terminal/services/ConfigStore.h"
#include "terminal/store/SavedState.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

namespace {

using namespace Terminal;

struct TStored {
  std::vector<TConfigValue> Values;
  TSavedLayout Layout;
};

/// The lines of `text`, three a value and two a view. Texts of the terminal are UTF-8.
TStored StoredOf(const std::string& text) {
  const QByteArray valid = QString::fromUtf8(QByteArray::fromStdString(text)).toUtf8();
  QByteArrayList lines = valid.split('\n');
  const auto line = [&lines](qsizetype i) { return lines.value(i).toStdString(); };
  TStored stored;
  for (qsizetype i = 0; i < lines.size(); i += 3)
    stored.Values.push_back({line(i), line(i + 1), line(i + 2)});
  for (qsizetype i = 0; i < lines.size(); i += 2)
    stored.Layout.Views.push_back({line(i), line(i + 1)});
  stored.Layout.Geometry = QByteArray::fromStdString(text);
  stored.Layout.Docks = lines.front();
  return stored;
}

void Store(const QString& file, const TStored& stored) {
  TSavedState state(file);
  TConfigStore config;
  state.Follow(config);
  for (const auto& value : stored.Values)
    config.WriteString(value.Section, value.Key, value.Value, true);
  state.StoreLayout(stored.Layout);
}

std::string ProblemOf(const TSavedState& state) {
  std::string parts;
  if (state.Problem())
    for (const auto& part : state.Problem()->Parts)
      parts += part + "\n";
  return parts;
}

void ExpectKept(const QString& file, const TStored& stored) {
  TSavedState state(file);
  Fuzz::Expect(!state.Problem(), "The store is not kept", ProblemOf(state));
  TConfigStore config, expected;
  state.Follow(config);
  for (const auto& value : stored.Values)
    expected.Load(value.Section, value.Key, value.Value);
  for (const auto& value : stored.Values) {
    const std::string read = config.ReadString(value.Section, value.Key);
    const std::string wanted = expected.ReadString(value.Section, value.Key);
    Fuzz::Expect(read == wanted, "A value changes", wanted, read);
  }
  const TSavedLayout layout = state.Layout();
  Fuzz::Expect(layout.Views.size() == stored.Layout.Views.size(), "Views come or go");
  for (std::size_t i = 0; i < layout.Views.size(); ++i)
    Fuzz::Expect(layout.Views[i].LayoutData == stored.Layout.Views[i].LayoutData &&
                     layout.Views[i].Group == stored.Layout.Views[i].Group,
                 "A view changes", stored.Layout.Views[i].LayoutData, layout.Views[i].LayoutData);
  Fuzz::Expect(layout.Geometry == stored.Layout.Geometry && layout.Docks == stored.Layout.Docks,
               "The window changes");
}

/// Writes `text` over a place that depends on it, near the beginning as often as elsewhere.
void Damage(const QString& name, const std::string& text) {
  QFile file(name);
  Fuzz::Expect(file.open(QIODevice::ReadWrite), "The store cannot be opened");
  const std::size_t place = std::hash<std::string>()(text);
  const auto size = static_cast<std::size_t>(file.size());
  file.seek(static_cast<qint64>(place % (place & 1024 ? 100 : size)));
  file.write(text.data(), static_cast<qint64>(text.size()));
}

} // namespace

void Fuzz::Start(int& argc, char** argv) { new QCoreApplication(argc, argv); }

void Fuzz::Check(const std::string& text) {
  const QTemporaryDir folder;
  const QString file = folder.filePath(QStringLiteral("state.sqlite"));
  const TStored stored = StoredOf(text);
  Store(file, stored);
  ExpectKept(file, stored);

  Damage(file, text);
  {
    TSavedState state(file);
    TConfigStore config;
    state.Follow(config);
    state.Layout();
    Expect(!state.Problem() || state.Problem()->Code != Data::TProblemCode::StoreUnusable,
           "A damaged store is not set aside", ProblemOf(state));
  }
  Store(file, stored);
  ExpectKept(file, stored);
}
