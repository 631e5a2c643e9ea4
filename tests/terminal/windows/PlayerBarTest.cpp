#include "terminal/windows/PlayerBar.h"
#include "host/RecordFields.h"

#include "feed/QuietSource.h"
#include "host/ConstDef.h"
#include "terminal/Markets.h"
#include "terminal/script/input/Input.h"
#include "terminal/services/Services.h"

#include <QMenu>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace Terminal {
namespace {

namespace Field = Host::Field;

using namespace std::chrono_literals;

class TPlayerBarTest : public testing::Test {
protected:
  void Simulate(Text::TTimeOfDay start) {
    Markets::Simulate(Player, 7, start);
    Player.Step(0);
  }

  /// Plays a recording with two lines that can be used and one that cannot.
  void OpenRecording() {
    QFile file(Folder.filePath(QStringLiteral("recording.jsonl")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("{\"t\":\"10:00:00\",\"s\":\"5\",\"f\":{\"3\":\"40\"}}\n"
               "{\"s\":\"5\"}\n"
               "{\"t\":\"10:01:00\",\"s\":\"5\",\"f\":{\"3\":\"41\"}}\n");
    file.close();
    ASSERT_FALSE(Markets::Open(Player, file.fileName()));
    Player.Step(0);
  }

  QToolButton* JumpButton() { return Bar.findChild<QToolButton*>(QStringLiteral("jump")); }

  /// Chooses the jump of that text and lets the market get there.
  void Jump(const char* text) {
    const auto actions = JumpButton()->menu()->actions();
    const auto wanted = std::find_if(actions.begin(), actions.end(), [text](const auto* action) {
      return action->text() == QLatin1String(text);
    });
    ASSERT_NE(wanted, actions.end()) << text;
    (*wanted)->trigger();
    Player.Step(0);
  }

  QStringList Labels() {
    QStringList texts;
    for (const auto* label : Bar.findChildren<QLabel*>())
      texts.append(label->text());
    return texts;
  }

  QTemporaryDir Folder;
  TServices Services;
  TMarketPlayer Player;
  TMarketFeed Feed{Services, Player};
  TPlayerBar Bar{Player, Feed, nullptr};
};

TEST_F(TPlayerBarTest, JumpsToTheNextOpening) {
  Simulate(9h + 29min);
  Jump("On to the next opening");
  EXPECT_EQ(Player.Position(), 9h + 30min);
}

TEST_F(TPlayerBarTest, JumpsToTheClosingAuction) {
  Simulate(15h + 59min);
  Jump("On to the closing auction");
  EXPECT_EQ(Player.Position(), 16h);
}

TEST_F(TPlayerBarTest, JumpsToTheNextCoolingOffAndNamesItsInstrument) {
  const QSignalSpy reached(&Player, &TMarketPlayer::CoolingOffReached);
  Simulate(9h + 44min);
  Jump("On to the next VCM cooling-off");
  ASSERT_EQ(reached.size(), 1);
  const auto* record = Services.Subscriptions.Find(reached[0][0].toString().toStdString());
  ASSERT_NE(record, nullptr);
  EXPECT_EQ(record->GetText(Field::VcmMarker), "1");
  EXPECT_GT(Player.Position(), 9h + 44min);
}

TEST_F(TPlayerBarTest, ARecordingHasNoJumps) {
  Simulate(9h);
  EXPECT_TRUE(JumpButton()->isEnabled());
  OpenRecording();
  EXPECT_FALSE(JumpButton()->isEnabled());
}

TEST_F(TPlayerBarTest, SeeksOnlyWhereTheSourceCan) {
  const auto* position = Bar.findChild<QSlider*>();
  for (const bool isSimulated : {true, false}) {
    if (isSimulated)
      Simulate(9h);
    else
      OpenRecording();
    EXPECT_TRUE(position->isEnabled());
    ASSERT_FALSE(Player.Open(FeedTest::QuietKind, {}));
    Player.Step(0);
    EXPECT_FALSE(position->isEnabled());
  }
}

TEST_F(TPlayerBarTest, TellsTheLinesOfARecordingThatWereSkippedInTheLanguage) {
  OpenRecording();
  EXPECT_TRUE(Labels().contains(QStringLiteral("Lines skipped: 1")));
  Services.Languages.SetLanguage(Constdef::Language_TraditionalChinese);
  Bar.SetTexts();
  ASSERT_TRUE(Labels().contains(QStringLiteral("已略過 1 行")));
  QString reasons;
  for (const auto* label : Bar.findChildren<QLabel*>())
    reasons += label->toolTip();
  EXPECT_EQ(reasons, QStringLiteral("第 2 行：缺少時間。\n已略過 1 行"));
}

TEST_F(TPlayerBarTest, SaysWhetherTheMarketIsSimulatedOrPlayedAgain) {
  Simulate(9h);
  EXPECT_TRUE(Labels().contains(QStringLiteral("SIMULATED")));
  OpenRecording();
  EXPECT_TRUE(Labels().contains(QStringLiteral("REPLAY")));
  EXPECT_FALSE(Labels().contains(QStringLiteral("SIMULATED")));
}

} // namespace
} // namespace Terminal
