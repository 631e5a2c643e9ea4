#include "host/RecordFields.h"
#include "terminal/Fixture.h"
#include "terminal/script/ScriptDriver.h"
#include "terminal/script/ScriptSession.h"

#include <QAbstractItemView>
#include <QJsonDocument>

#include <gtest/gtest.h>

#include <sstream>

namespace Terminal {
namespace {

namespace Field = Host::Field;

class TScriptTest : public testing::Test {
protected:
  QJsonObject Do(const char* line) { return Driver.Answer(line); }
  bool Ok(const char* line) { return Do(line)["ok"].toBool(); }
  QString Error(const char* line) { return Do(line)["error"].toString(); }
  void Open() { ASSERT_TRUE(Ok(R"({"do":"open"})")); }
  Fixture::TView& View() { return *Descriptor.Last; }

  TServices Services;
  Fixture::TDescriptor Descriptor;
  TScriptSession Session{Services, Descriptor};
  TScriptDriver Driver{Session};
};

TEST_F(TScriptTest, AnswersEveryCommandWithALineAndSkipsWhatIsNone) {
  std::istringstream script("# a comment\n\n{\"do\":\"open\"}\r\n  {\"do\":\"fly\"}\n");
  std::ostringstream answers;
  EXPECT_FALSE(Driver.Run(script, answers));
  EXPECT_EQ(answers.str(), "{\"ok\":true,\"view\":1}\n"
                           "{\"error\":\"There is no command \\\"fly\\\".\",\"ok\":false}\n");
}

TEST_F(TScriptTest, IsWellWhenEveryAnswerIsOk) {
  std::istringstream script("{\"do\":\"open\"}\n{\"do\":\"close\",\"view\":1}");
  std::ostringstream answers;
  EXPECT_TRUE(Driver.Run(script, answers));
}

TEST_F(TScriptTest, TypesIntoTheSymbolBoxInPlaceOfWhatItHolds) {
  Open();
  View().Symbol->setText(QStringLiteral("old"));
  EXPECT_TRUE(Ok(R"({"do":"type","view":1,"text":"騰訊 a.1"})"));
  EXPECT_EQ(View().Symbol->text(), QStringLiteral("騰訊 a.1"));
  EXPECT_EQ(View().Exits, 1);
}

TEST_F(TScriptTest, ClicksTheCellOfTheColumn) {
  Open();
  EXPECT_TRUE(Ok(R"({"do":"click","view":1,"grid":"GridOne","row":2,"col":2})"));
  EXPECT_EQ(View().Clicked, std::vector<int>{2});
  EXPECT_EQ(View().Grid->View()->FocusedRecordIndex(), 2);
}

TEST_F(TScriptTest, ChoosesFromTheListWithoutPassingOtherEntries) {
  Open();
  EXPECT_TRUE(Ok(R"({"do":"choose","view":1,"component":"cmbOne","index":2})"));
  EXPECT_TRUE(Ok(R"({"do":"choose","view":1,"component":"cmbOne","index":0})"));
  EXPECT_EQ(View().Chosen, (std::vector<int>{2, 0}));
  EXPECT_FALSE(View().Combo->view()->isVisible());
}

TEST_F(TScriptTest, PressesButtonsAndMenuItems) {
  Open();
  EXPECT_TRUE(Ok(R"({"do":"press","view":1,"component":"btnOne"})"));
  EXPECT_EQ(View().Pressed, 1);
  EXPECT_TRUE(Ok(R"({"do":"press","view":1,"component":"mOne"})"));
  EXPECT_EQ(View().Pressed, 2);
  EXPECT_FALSE(View().Menu->isVisible());
}

TEST_F(TScriptTest, ChoosesAMenuItemThatNoShownGridOffers) {
  Open();
  View().Grid->hide();
  EXPECT_TRUE(Ok(R"({"do":"press","view":1,"component":"mOne"})"));
  EXPECT_EQ(View().Pressed, 1);
}

TEST_F(TScriptTest, RefusesWhatAPersonCouldNotReach) {
  Open();
  View().Button->setEnabled(false);
  EXPECT_EQ(Error(R"({"do":"press","view":1,"component":"btnOne"})"),
            QStringLiteral("The component \"btnOne\" is not enabled."));
  View().Combo->hide();
  EXPECT_EQ(Error(R"({"do":"choose","view":1,"component":"cmbOne","index":0})"),
            QStringLiteral("The component \"cmbOne\" is not visible."));
  View().Item->setVisible(false);
  EXPECT_EQ(Error(R"({"do":"press","view":1,"component":"mOne"})"),
            QStringLiteral("The component \"mOne\" is not visible."));
  EXPECT_EQ(View().Pressed, 0);
}

TEST_F(TScriptTest, PressesCaptionButtonsByWhatTheyDo) {
  Open();
  View().Lock.ImageIndex = 6; // what it shows is the view's affair
  EXPECT_TRUE(Ok(R"({"do":"caption-button","view":1,"button":"lock"})"));
  EXPECT_EQ(View().Lock.State, 1);
  EXPECT_EQ(Error(R"({"do":"caption-button","view":1,"button":"chart"})"),
            QStringLiteral("The view has no caption button \"chart\"."));
  EXPECT_EQ(Error(R"({"do":"caption-button","view":1,"button":"eject"})"),
            QStringLiteral("There is no caption button \"eject\"."));
}

TEST_F(TScriptTest, DumpsTheComponentsAsTheyAre) {
  Open();
  View().Symbol->SetHint(QStringLiteral("700"));
  View().Symbol->setPlaceholderText(QStringLiteral("Symbol"));
  const QJsonObject dump = Do(R"({"do":"dump","view":1})");
  EXPECT_EQ(dump["symbol"], "700");
  EXPECT_EQ(dump["caption"], "Fixture");
  EXPECT_EQ(dump["width"], 320);
  const QJsonObject components = dump["components"].toObject();
  EXPECT_EQ(components["edtSymbol"].toObject()["hint"], "700");
  EXPECT_EQ(components["edtSymbol"].toObject()["textHint"], "Symbol");
  EXPECT_EQ(components["cmbOne"].toObject()["items"], (QJsonArray{"a", "b", "c"}));
  EXPECT_EQ(components["cmbOne"].toObject()["index"], -1);
  EXPECT_EQ(components["btnOne"].toObject()["text"], "One");
  EXPECT_EQ(components["mOne"].toObject(), (QJsonObject{{"caption", "Item"}, {"visible", true}}));
}

TEST_F(TScriptTest, DumpsEveryCellOfTheVisibleColumns) {
  Open();
  View().Grid->View()->SetColumnVisible(View().Grid->View()->Columns()[0].get(), false);
  const QJsonObject grid =
      Do(R"({"do":"dump","view":1})")["grids"].toObject()["GridOne"].toObject();
  EXPECT_EQ(grid["rows"], 3);
  EXPECT_EQ(grid["columns"].toArray()[0].toObject()["visible"], false);
  const QJsonArray cells = grid["cells"].toArray();
  ASSERT_EQ(cells.size(), 3);
  EXPECT_EQ(cells[1].toObject()["text"], "1:2");
  EXPECT_EQ(cells[1].toObject()["align"], "right");
  EXPECT_EQ(cells[1].toObject()["drawnBy"], "grid");
}

TEST_F(TScriptTest, SaysThatAPackageHasNoPreferencePage) {
  EXPECT_EQ(Error(R"({"do":"preferences","action":"open"})"),
            QStringLiteral("The package has no preference page."));
}

TEST_F(TScriptTest, DefinesSpreadTablesByTheirBands) {
  ASSERT_TRUE(
      Ok(R"({"do":"spread-table","code":"09","state":1,"bands":[[0,10,0.01],[10,20,0.02]]})"));
  const auto* table = Services.Market.GetSpreadTable("09");
  ASSERT_NE(table, nullptr);
  EXPECT_DOUBLE_EQ(table->PriceStep(10), 0.01);
  EXPECT_DOUBLE_EQ(table->PriceStep(10.02), 0.02);
}

TEST_F(TScriptTest, MergesRecordsAndKeepsTextsAsGiven) {
  ASSERT_TRUE(Ok(R"({"do":"record","symbol":"1","status":"s","fields":{"1":" 5 ","2":""}})"));
  ASSERT_TRUE(Ok(R"({"do":"record","symbol":"1","fields":{"1":null,"3":"7"}})"));
  const auto* record = Services.Subscriptions.Find("1");
  ASSERT_NE(record, nullptr);
  EXPECT_EQ(record->GetState(), 1);
  EXPECT_EQ(record->StatusText(), "s");
  EXPECT_FALSE(record->HasValue(Field::BestBid));
  EXPECT_TRUE(record->HasValue(Field::BestAsk));
  EXPECT_EQ(record->GetText(Field::Nominal), "7");
}

TEST_F(TScriptTest, WritesConfigurationInTheCurrentSection) {
  ASSERT_TRUE(Ok(R"({"do":"config","section":"current","key":"K","value":"V"})"));
  EXPECT_EQ(Services.Config.ReadString(Services.Config.CurrentSection(), "K"), "V");
  EXPECT_EQ(Do(R"({"do":"config-get","section":"current","key":"K"})")["value"], "V");
}

TEST_F(TScriptTest, TickTakesItsTimeAndNothingElseRunsTimers) {
  int ticks = 0;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
  timer.start(1);
  Open();
  EXPECT_TRUE(Ok(R"({"do":"type","view":1,"text":"700"})"));
  EXPECT_TRUE(Ok(R"({"do":"choose","view":1,"component":"cmbOne","index":1})"));
  EXPECT_EQ(ticks, 0);
  EXPECT_TRUE(Ok(R"({"do":"tick","ms":50})"));
  EXPECT_GT(ticks, 5);
}

} // namespace
} // namespace Terminal
