#include "terminal/Markets.h"
#include "terminal/services/MarketFeed.h"
#include "terminal/services/Services.h"
#include "terminal/start/CommandLine.h"
#include "terminal/trading/OrderDesk.h"
#include "terminal/windows/WindowTexts.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <fstream>
#include <set>

namespace Terminal {
namespace {

using namespace std::chrono_literals;

/// Every row of the table of sources.
class TEverySourceTest : public testing::Test {
protected:
  TEverySourceTest() {
    std::ofstream(Folder.filePath(QStringLiteral("market.jsonl")).toStdString())
        << "{\"t\":\"10:00:00\",\"s\":\"5\",\"f\":{\"3\":\"40\"}}\n"
           "{\"t\":\"10:00:01\",\"s\":\"5\",\"f\":{\"3\":\"41\"}}\n";
  }

  /// A value that each option can use. A new option needs one here.
  std::string ValueFor(const std::string& option) {
    const std::map<std::string, std::string> values{
        {"--replay", Folder.filePath(QStringLiteral("market.jsonl")).toStdString()},
        {"--seed", "5"},
        {"--start", "09:29:00"},
    };
    return values.at(option);
  }

  Feed::TSourceOptions OptionsFor(const Feed::TSourceKind& kind) {
    Feed::TSourceOptions options;
    for (const auto& option : kind.Options)
      options[option.Name] = ValueFor(option.Name);
    return options;
  }

  void ExpectTextInEveryLanguage(const char* key) {
    std::set<QString> texts;
    for (const int language : {Constdef::Language_TraditionalChinese,
                               Constdef::Language_SimplifiedChinese, Constdef::Language_English}) {
      Services.Languages.SetLanguage(language);
      texts.insert(WindowText(key));
    }
    EXPECT_FALSE(texts.contains(QString())) << key;
    EXPECT_FALSE(texts.contains(QLatin1String(key))) << key;
    EXPECT_EQ(texts.size(), 3u) << key << " is the same in two languages";
  }

  QTemporaryDir Folder;
  TServices Services;
};

TEST_F(TEverySourceTest, IsKnownToTheCommandLineAndItsHelp) {
  for (const auto& kind : Feed::SourceKinds()) {
    ASSERT_FALSE(kind.Options.empty());
    for (const auto& option : kind.Options) {
      const auto parsed = ParseCommandLine({option.Name, ValueFor(option.Name)});
      ASSERT_TRUE(std::holds_alternative<TCommandLine>(parsed)) << option.Name;
      const auto& line = std::get<TCommandLine>(parsed);
      EXPECT_EQ(line.SourceOptions.at(option.Name), ValueFor(option.Name));
      const bool isAskedFor = &option == &kind.Options.front() && !kind.IsDefault;
      EXPECT_EQ(line.Source, isAskedFor ? &kind : &Feed::DefaultSource()) << option.Name;
      const Data::TProblem refused{Data::TProblemCode::OptionValueUnknown, {option.Name, ""}};
      EXPECT_EQ(std::get<Data::TProblem>(ParseCommandLine({option.Name, ""})), refused);
      EXPECT_NE(CommandLineHelp().find("\n  " + option.Name + " " + option.Value + " "),
                std::string::npos)
          << option.Name;
    }
  }
  EXPECT_EQ(std::ranges::count_if(Feed::SourceKinds(), &Feed::TSourceKind::IsDefault), 1);
}

TEST_F(TEverySourceTest, HasItsTextsInEveryLanguage) {
  for (const auto& kind : Feed::SourceKinds()) {
    ExpectTextInEveryLanguage(kind.MenuText);
    TMarketPlayer player;
    ASSERT_FALSE(player.Open(kind, OptionsFor(kind)));
    ExpectTextInEveryLanguage(player.Traits().Mark);
  }
}

TEST_F(TEverySourceTest, DoesWhatItsTraitsSay) {
  for (const auto& kind : Feed::SourceKinds()) {
    SCOPED_TRACE(kind.MenuText);
    TMarketPlayer player;
    TMarketFeed feed(Services, player);
    TOrderDesk desk;
    desk.Follow(player);
    int resets = 0;
    QObject::connect(&player, &TMarketPlayer::Reset, [&resets] { ++resets; });
    ASSERT_FALSE(player.Open(kind, OptionsFor(kind)));
    const auto traits = player.Traits();
    player.Step(0);
    ASSERT_NE(player.Index(), nullptr);
    EXPECT_STREQ(feed.Mark(), feed.IsSimulated() ? Feed::Mark_Invented : traits.Mark);
    EXPECT_EQ(desk.IsOpen(), traits.Orders != nullptr);
    desk.Submit("nothing", Data::TSide::Bid, 1, 1);
    player.Step(0);
    ASSERT_EQ(desk.Orders().size(), 1u);
    EXPECT_EQ(desk.Orders()[0].Reason == Data::Refused_NoMarket, traits.Orders == nullptr);

    const auto begin = player.Position();
    const auto isMovedBy = [&](auto request) {
      resets = 0;
      request();
      player.Step(0);
      return resets == 1;
    };
    EXPECT_EQ(isMovedBy([&] { player.SetDelay(1s); }), traits.Delayable != nullptr);
    EXPECT_EQ(player.Position(), begin);
    EXPECT_EQ(isMovedBy([&] { player.Jump(Feed::TJump::Opening); }), traits.Jumpable != nullptr);
    EXPECT_EQ(player.Position() != begin, traits.Jumpable != nullptr);
    EXPECT_EQ(isMovedBy([&] { player.Seek(player.Start()); }), traits.Seekable != nullptr);
    EXPECT_EQ(player.Position(), traits.Seekable ? player.Start() : begin);
  }
}

TEST_F(TEverySourceTest, ThatHasAnEndFinishesThere) {
  for (const auto& kind : Feed::SourceKinds()) {
    SCOPED_TRACE(kind.MenuText);
    TMarketPlayer player;
    bool isFinished = false;
    QObject::connect(&player, &TMarketPlayer::Finished, [&isFinished] { isFinished = true; });
    ASSERT_FALSE(player.Open(kind, OptionsFor(kind)));
    if (!player.Traits().HasEnd)
      continue;
    constexpr int wholeDay = 24 * 60 * 60 * 1000;
    player.Step(wholeDay);
    EXPECT_TRUE(isFinished);
    EXPECT_EQ(player.Position(), player.End());
  }
}

TEST_F(TEverySourceTest, ThatCanBeReadAheadGivesTheSameMarket) {
  for (const auto& kind : Feed::SourceKinds()) {
    SCOPED_TRACE(kind.MenuText);
    TMarketPlayer player;
    if (!kind.Read)
      continue;
    ASSERT_FALSE(player.Open(kind, OptionsFor(kind)));
    player.Step(0);
    const auto opened = kind.Read(OptionsFor(kind));
    const auto& stream = std::get<Feed::TChangeStream>(opened);
    EXPECT_EQ(stream.Header, player.Index()->Header);
    const auto first = stream.Next();
    ASSERT_TRUE(first);
    EXPECT_EQ(first->Time, player.Position());
    EXPECT_FALSE(first->Changes.empty());
  }
}

} // namespace
} // namespace Terminal
