// Stores one generation after the other as fast as it can, and says each when it is stored.
//
//     store_writer FILE
//
// First it says what the store held: "found SETTINGS LAYOUT VIEWS", each a generation number or
// "mixed", and how many views there were.

#include "terminal/services/ConfigStore.h"
#include "terminal/store/SavedState.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>
#include <set>

namespace {

constexpr const char* Section = "Writer";
constexpr const char* keys[] = {"First", "Second", "Third"};
constexpr int MostViews = 7;

/// The one text of the set; 0 for none.
std::string Same(const std::set<std::string>& texts) {
  return texts.empty() ? "0" : texts.size() == 1 ? *texts.begin() : "mixed";
}

std::string Settings(Terminal::TConfigStore& config) {
  std::set<std::string> texts;
  for (const auto* key : keys)
    texts.insert(config.ReadString(Section, key));
  return texts == std::set<std::string>{""} ? "0" : Same(texts);
}

std::string LayoutOf(const Terminal::TSavedLayout& layout) {
  std::set<std::string> texts;
  for (const auto& view : layout.Views)
    texts.insert(view.LayoutData);
  if (!texts.empty()) {
    texts.insert(layout.Geometry.toStdString());
    texts.insert(layout.Docks.toStdString());
  }
  return Same(texts);
}

void Say(const char* what, const std::string& generation) {
  std::printf("%s %s\n", what, generation.c_str());
  std::fflush(stdout);
}

void Store(Terminal::TSavedState& state, Terminal::TConfigStore& config, int number) {
  const std::string generation = std::to_string(number);
  {
    const Terminal::TConfigStore::TUserAction action(config);
    for (const auto* key : keys)
      config.WriteString(Section, key, generation, true);
  }
  Say("settings", generation);
  Terminal::TSavedLayout layout;
  layout.Views.assign(static_cast<std::size_t>(1 + number % MostViews), {generation, "A"});
  layout.Geometry = layout.Docks = QByteArray::fromStdString(generation);
  state.StoreLayout(layout);
  Say("layout", generation);
}

} // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  if (argc != 2)
    return 2;
  Terminal::TSavedState state(QString::fromLocal8Bit(argv[1]));
  if (state.Problem())
    return 1;
  Terminal::TConfigStore config;
  state.Follow(config);
  const auto layout = state.Layout();
  std::printf("found %s %s %zu\n", Settings(config).c_str(), LayoutOf(layout).c_str(),
              layout.Views.size());
  std::fflush(stdout);
  const int found =
      std::max(std::atoi(Settings(config).c_str()), std::atoi(LayoutOf(layout).c_str()));
  for (int number = found + 1; !state.Problem(); ++number)
    Store(state, config, number);
  return 1;
}
