#include "terminal/windows/SymbolList.h"
#include "host/RecordFields.h"

#include "host/ConstDef.h"
#include "platform/Colour.h"
#include "terminal/script/input/Input.h"

#include <QHeaderView>

#include <gtest/gtest.h>

namespace Terminal {
namespace {

namespace Field = Host::Field;

using TModel = TSymbolListModel;

class TSymbolListTest : public testing::Test {
protected:
  TSymbolListTest() {
    Services.Market.DefineSpreadTables({{"01", 1, {{0.25, 0.5, 0.005}, {100, 200, 0.1}}}});
    Services.Market.DefineInstrument("700", "HKD", "TESTCO");
    Services.Market.DefineInstrument("5", "HKD", "Bank of Test");
    Services.Market.DefineInstrument("2700", "HKD", "Seven");
    Update("700", {{Field::Nominal, "101.2"},
                   {Field::PreviousClose, "100"},
                   {Field::BestBid, "101.1"},
                   {Field::BestAsk, "101.3"},
                   {Field::Volume, "12400"},
                   {Field::SpreadCode, "01"}});
    Update("5",
           {{Field::Nominal, "0.295"}, {Field::PreviousClose, "0.3"}, {Field::SpreadCode, "01"}});
    Services.Channels.RegisterCopySymbol(
        [this](System::TObject*, System::TObject* data) {
          const auto* list = dynamic_cast<TListObject*>(data);
          ASSERT_NE(list, nullptr);
          EXPECT_FALSE(list->IsEmpty());
          Broadcast.push_back(list->Symbol());
        },
        &Owner);
  }

  ~TSymbolListTest() override { Services.Channels.UnregisterCopySymbol(&Owner); }

  void Update(const std::string& symbol,
              std::vector<std::pair<int, std::optional<std::string>>> fields) {
    Data::TRecordChange change;
    change.Symbol = symbol;
    change.Fields = std::move(fields);
    Services.Subscriptions.Apply(change);
  }

  void Show() {
    List.findChild<TModel*>()->Update();
    List.resize(800, 300);
    List.show();
    Input::Activate(&List);
  }

  QString Text(const QAbstractItemModel& model, int row, int column) {
    return model.index(row, column).data().toString();
  }

  QStringList Shown() {
    QStringList symbols;
    for (int row = 0; row < Table()->model()->rowCount(); ++row)
      symbols.append(Text(*Table()->model(), row, TModel::SymbolColumn));
    return symbols;
  }

  QTableView* Table() { return List.findChild<QTableView*>(); }
  QLineEdit* Find() { return List.findChild<QLineEdit*>(); }
  QPoint CellAt(int row, int column) {
    return Table()->visualRect(Table()->model()->index(row, column)).center();
  }

  TServices Services;
  System::TObject Owner;
  std::vector<std::string> Broadcast;
  TSymbolList List{Services};
};

TEST_F(TSymbolListTest, ShowsTheFiguresOfEverySymbolAsThePriceViewDoes) {
  const TModel model(Services);
  QStringList row;
  for (int column = 0; column < TModel::Columns; ++column)
    row.append(Text(model, 0, column));
  EXPECT_EQ(row,
            (QStringList{"700", "TESTCO", "101.2", "+1.2", "+1.20%", "101.1", "101.3", "12,400"}));
  EXPECT_EQ(Text(model, 1, TModel::LastColumn), QStringLiteral("0.295"));
  EXPECT_EQ(Text(model, 1, TModel::ChangeColumn), QStringLiteral("-0.005"));
  EXPECT_EQ(Text(model, 2, TModel::LastColumn), QString());
  EXPECT_EQ(Text(model, 2, TModel::NameColumn), QStringLiteral("Seven"));
}

TEST_F(TSymbolListTest, AlignsFiguresByTheirDigits) {
  const TModel model(Services);
  for (int column = 0; column < TModel::Columns; ++column) {
    const int side = column >= TModel::LastColumn ? Qt::AlignRight : Qt::AlignLeft;
    EXPECT_TRUE(model.index(0, column).data(Qt::TextAlignmentRole).toInt() & side) << column;
  }
}

TEST_F(TSymbolListTest, PaintsUpAndDownInTheColoursOfTheSkin) {
  const TModel model(Services);
  const auto colour = [&](int row, int column) {
    return model.index(row, column).data(Qt::ForegroundRole).value<QColor>();
  };
  for (const int column : {TModel::LastColumn, TModel::ChangeColumn, TModel::ChangePercentColumn}) {
    EXPECT_EQ(colour(0, column), Platform::ToQColor(Services.Skin.Up().Text)) << column;
    EXPECT_EQ(colour(1, column), Platform::ToQColor(Services.Skin.Down().Text)) << column;
    EXPECT_FALSE(colour(2, column).isValid()) << column;
  }
  EXPECT_FALSE(colour(0, TModel::BidColumn).isValid());
}

TEST_F(TSymbolListTest, TellsOnceOfTheCellsWhoseTextsDiffer) {
  TModel model(Services);
  std::vector<std::array<int, 3>> changed;
  QObject::connect(&model, &TModel::dataChanged,
                   [&](const QModelIndex& first, const QModelIndex& last) {
                     changed.push_back({first.row(), first.column(), last.column()});
                   });
  Update("5", {{Field::BestBid, "0.29"}});
  Update("5", {{Field::BestAsk, "0.3"}});
  Update("700", {{Field::Nominal, "101.2"}});
  EXPECT_TRUE(changed.empty()) << "before the next update";
  model.Update();
  model.Update();
  EXPECT_EQ(changed, (std::vector<std::array<int, 3>>{{1, TModel::BidColumn, TModel::AskColumn}}));
}

TEST_F(TSymbolListTest, TakesInSymbolsAndNamesThatAreListedLater) {
  TModel model(Services);
  Update("9988", {{Field::Nominal, "12"}});
  Services.Market.DefineInstrument("2700", "HKD", "Renamed");
  model.Update();
  ASSERT_EQ(model.rowCount(), 4);
  EXPECT_EQ(Text(model, 3, TModel::LastColumn), QStringLiteral("12"));
  EXPECT_EQ(Text(model, 2, TModel::NameColumn), QStringLiteral("Renamed"));
}

TEST_F(TSymbolListTest, GivesItsSubscriptionsBack) {
  const auto before = Services.Subscriptions.RegistrationCount();
  {
    const TModel model(Services);
    EXPECT_EQ(Services.Subscriptions.RegistrationCount(), before + 3);
  }
  EXPECT_EQ(Services.Subscriptions.RegistrationCount(), before);
}

TEST_F(TSymbolListTest, AClickOnARowBroadcastsItsSymbol) {
  Show();
  Input::Click(Table()->viewport(), CellAt(1, TModel::BidColumn));
  EXPECT_EQ(Broadcast, std::vector<std::string>{"5"});
}

TEST_F(TSymbolListTest, ArrowKeysMoveAndEnterChooses) {
  Show();
  Find()->setFocus();
  Input::PressKey(Find(), Qt::Key_Down);
  EXPECT_TRUE(Table()->hasFocus());
  Input::PressKey(Table(), Qt::Key_Down);
  EXPECT_TRUE(Broadcast.empty()) << "moving chooses nothing";
  Input::PressKey(Table(), Qt::Key_Return);
  EXPECT_EQ(Broadcast, std::vector<std::string>{"5"});
}

TEST_F(TSymbolListTest, FindsByTheBeginningOfACodeAndByAnyPartOfAName) {
  Show();
  Input::Type(Find(), QStringLiteral("7"));
  EXPECT_EQ(Shown(), QStringList{"700"});
  Input::Type(Find(), QStringLiteral("00700"));
  EXPECT_EQ(Shown(), QStringList{"700"});
  Input::Type(Find(), QStringLiteral("test"));
  EXPECT_EQ(Shown(), (QStringList{"700", "5"}));
  Input::PressKey(Find(), Qt::Key_Escape);
  EXPECT_EQ(Shown(), (QStringList{"700", "5", "2700"}));
}

TEST_F(TSymbolListTest, EnterInTheBoxChoosesTheSymbolThatIsMeant) {
  Services.Market.DefineInstrument("52", "HKD", "Other");
  Show();
  Input::Type(Find(), QStringLiteral("5"));
  Input::PressKey(Find(), Qt::Key_Return);
  Input::Type(Find(), QStringLiteral("seve"));
  Input::PressKey(Find(), Qt::Key_Return);
  EXPECT_EQ(Broadcast, (std::vector<std::string>{"5", "2700"}));
}

TEST_F(TSymbolListTest, SortsByNumbersAndKeepsRowsStillWhileFiguresMove) {
  Show();
  Table()->sortByColumn(TModel::SymbolColumn, Qt::AscendingOrder);
  EXPECT_EQ(Shown(), (QStringList{"5", "700", "2700"}));
  Table()->sortByColumn(TModel::LastColumn, Qt::DescendingOrder);
  EXPECT_EQ(Shown(), (QStringList{"700", "5", "2700"}));
  Update("2700", {{Field::Nominal, "500"}});
  List.findChild<TModel*>()->Update();
  EXPECT_EQ(Shown(), (QStringList{"700", "5", "2700"}));
  Table()->sortByColumn(TModel::LastColumn, Qt::DescendingOrder);
  EXPECT_EQ(Shown(), (QStringList{"2700", "700", "5"}));
}

TEST_F(TSymbolListTest, SpeaksToItsLinkingGroupAlone) {
  std::vector<std::string> heard;
  Services.Channels.JoinGroup(
      "2",
      [&](System::TObject*, System::TObject* data) {
        const auto* group = dynamic_cast<TGroupData*>(data);
        heard.push_back(group->GroupID() + ":" + group->Symbol());
      },
      &Owner);
  List.SetGroup("2");
  Show();
  Input::Click(Table()->viewport(), CellAt(0, TModel::SymbolColumn));
  EXPECT_EQ(heard, std::vector<std::string>{"2:700"});
  EXPECT_TRUE(Broadcast.empty());
  Services.Channels.LeaveGroup("2", &Owner);
}

TEST_F(TSymbolListTest, NamesAndFindsSymbolsInEveryLanguageThatTheyHave) {
  Services.Market.DefineInstrument("700", "HKD", "TESTCO", "測試科技", "测试科技");
  Services.Market.DefineInstrument("5", "HKD", "Bank of Test", "測試銀行");
  Show();
  const auto names = [this] {
    QStringList texts;
    for (int row = 0; row < 3; ++row)
      texts.append(Text(*List.findChild<TModel*>(), row, TModel::NameColumn));
    return texts;
  };
  EXPECT_EQ(names(), (QStringList{"TESTCO", "Bank of Test", "Seven"}));
  Input::Type(Find(), QStringLiteral("測試"));
  EXPECT_EQ(Shown(), (QStringList{"700", "5"}));
  Services.Languages.SetLanguage(Constdef::Language_TraditionalChinese);
  List.SetTexts();
  EXPECT_EQ(names(), (QStringList{"測試科技", "測試銀行", "Seven"}));
  Services.Languages.SetLanguage(Constdef::Language_SimplifiedChinese);
  List.SetTexts();
  EXPECT_EQ(names(), (QStringList{"测试科技", "測試銀行", "Seven"}));
  Input::Type(Find(), QStringLiteral("testco"));
  EXPECT_EQ(Shown(), QStringList{"700"});
}

TEST_F(TSymbolListTest, SpeaksTheLanguage) {
  Services.Languages.SetLanguage(Constdef::Language_TraditionalChinese);
  List.SetTexts();
  EXPECT_EQ(Find()->placeholderText(), QStringLiteral("代號或名稱"));
  EXPECT_EQ(Table()->model()->headerData(TModel::LastColumn, Qt::Horizontal).toString(),
            QStringLiteral("現價"));
}

} // namespace
} // namespace Terminal
