#include "preferences/PreferenceFixture.h"

#include "platform/Layout.h"

#include <map>

namespace {

using Platform::TdxLayoutElement;

class TPageTest : public TPreferenceTest {
protected:
  std::string CaptionOf(const char* name) {
    return Find<TdxLayoutElement>(name).Caption().toStdString();
  }
  std::string TextOf(const char* button) {
    return Find<QAbstractButton>(button).text().toStdString();
  }
  std::string HeaderOf(int tag) {
    return Grid()
        .model()
        ->headerData(Column(tag), Qt::Horizontal, Qt::DisplayRole)
        .toString()
        .toStdString();
  }
  std::string ParentOf(const char* name) {
    return Find<QWidget>(name).parentWidget()->objectName().toStdString();
  }
};

TEST_F(TPageTest, ComponentsStandInTheirGroups) {
  Open();
  const std::map<const char*, const char*> parents{{"lcPreference", "QuorPricePreferenceFrame"},
                                                   {"lcPreferenceGroup_Root", "lcPreference"},
                                                   {"lgQuorPrice", "lcPreferenceGroup_Root"},
                                                   {"liCopyPriceStyle", "lgQuorPrice"},
                                                   {"cmbCopyPriceStyle", "liCopyPriceStyle"},
                                                   {"lgBrokerID", "lcPreferenceGroup_Root"},
                                                   {"lgEnableBrokerIDColor", "lgBrokerID"},
                                                   {"cbBrokerID", "lgEnableBrokerIDColor"},
                                                   {"lgBrokerGrid", "lgBrokerID"},
                                                   {"liBrokerIDColor", "lgBrokerGrid"},
                                                   {"BrokerIDGrid", "liBrokerIDColor"},
                                                   {"lgBrokerIDButton", "lgBrokerGrid"},
                                                   {"liAdd", "lgBrokerIDButton"},
                                                   {"liClear", "lgBrokerIDButton"},
                                                   {"btnAdd", "liAdd"},
                                                   {"btnClear", "liClear"}};
  for (const auto& [component, parent] : parents)
    EXPECT_EQ(ParentOf(component), parent) << component;
  for (const char* editor : {"eriColor", "eriDelete", "eriBrokerID"})
    EXPECT_EQ(Find<QObject>(editor).parent(), &Find<QObject>("cxEditRepository1")) << editor;
  EXPECT_EQ(Find<QObject>("BrokerIDGridView").parent(), &Grid());
}

TEST_F(TPageTest, EachColumnHasItsEditor) {
  Open();
  EXPECT_EQ(Grid().itemDelegateForColumn(Column(45)), &Find<QObject>("eriBrokerID"));
  EXPECT_EQ(Grid().itemDelegateForColumn(Column(200)), &Find<QObject>("eriColor"));
  EXPECT_EQ(Grid().itemDelegateForColumn(Column(25)), &Find<QObject>("eriDelete"));
}

TEST_F(TPageTest, HasItsDesignSizes) {
  page = std::make_unique<Quorpricepreference::TQuorPricePreferenceFrame>();
  EXPECT_EQ(page->size(), QSize(459, 390));
  EXPECT_EQ(page->Widget(), page.get());
  Open();
  EXPECT_EQ(Grid().minimumSize(), QSize(415, 200));
  for (const char* button : {"btnAdd", "btnClear"})
    EXPECT_EQ(Find<QWidget>(button).minimumSize(), QSize(75, 25));
}

TEST_F(TPageTest, TheButtonsAreCentredSideBySide) {
  Open();
  page->resize(700, 500);
  QCoreApplication::processEvents();
  const auto& group = Find<QWidget>("lgBrokerGrid");
  const auto place = [&](const char* name) {
    auto& button = Find<QWidget>(name);
    return QRect(button.mapTo(&group, QPoint()), button.size());
  };
  const QRect add = place("btnAdd");
  const QRect clear = place("btnClear");
  EXPECT_EQ(add.top(), clear.top());
  EXPECT_LT(add.right(), clear.left());
  EXPECT_LT(clear.left(), add.right() + 20);
  EXPECT_NEAR(add.united(clear).center().x(), group.width() / 2, 2);
}

TEST_F(TPageTest, ItsSizeIsThatOfItsContent) {
  Open();
  auto& layout = Find<Platform::TdxLayoutControl>("lcPreference");
  EXPECT_EQ(page->GetWidth(), layout.ContentWidth());
  EXPECT_EQ(page->GetHeight(), layout.ContentHeight(page->GetWidth()));
  EXPECT_GE(page->GetWidth(), 415);
  const int height = page->GetHeight();
  EXPECT_GT(height, 200 + 25);
  Grid().setMinimumHeight(300);
  EXPECT_EQ(page->GetHeight(), height + 100);
}

TEST_F(TPageTest, TextsComeFromTheLanguage) {
  Open();
  EXPECT_EQ(CaptionOf("lgQuorPrice"), "Res_QuorPrice_Preference");
  EXPECT_EQ(CaptionOf("liCopyPriceStyle"), "Res_QuorPrice_CopyPriceStyle");
  EXPECT_EQ(CaptionOf("lgBrokerID"), "Res_QuorPrice_BrokerPreference");
  EXPECT_EQ(TextOf("cbBrokerID"), "Res_HighLightBroker");
  EXPECT_EQ(TextOf("btnAdd"), "Res_Add");
  EXPECT_EQ(TextOf("btnClear"), "Res_Clear");
  for (const char* unnamed :
       {"lgEnableBrokerIDColor", "lgBrokerGrid", "liBrokerIDColor", "lgBrokerIDButton"})
    EXPECT_EQ(CaptionOf(unnamed), "") << unnamed;
  EXPECT_TRUE(host.language.selectorsAsAgreed);
}

TEST_F(TPageTest, ALanguageChangesEveryTextAndNoChoice) {
  Open();
  ChooseStyle(2);
  const std::vector<const char*> keys{"Res_QuorPrice_Preference",
                                      "Res_QuorPrice_CopyPriceStyle",
                                      "Res_QuorPrice_BrokerPreference",
                                      "Res_HighLightBroker",
                                      "Res_Add",
                                      "Res_Clear",
                                      "Res_BrokerID",
                                      "Res_Color",
                                      "Res_Delete",
                                      "Res_CopyPriceStyle_Default",
                                      "Res_CopyPriceStyle_None",
                                      "Res_CopyPriceStyle_LotSize",
                                      "Res_CopyPriceStyle_Summary"};
  for (const char* key : keys)
    host.language.SetText(key, std::string("中 ") + key);
  EXPECT_TRUE(page->SetLanguage(1));

  EXPECT_EQ(CaptionOf("lgQuorPrice"), "中 Res_QuorPrice_Preference");
  EXPECT_EQ(CaptionOf("liCopyPriceStyle"), "中 Res_QuorPrice_CopyPriceStyle");
  EXPECT_EQ(CaptionOf("lgBrokerID"), "中 Res_QuorPrice_BrokerPreference");
  EXPECT_EQ(TextOf("cbBrokerID"), "中 Res_HighLightBroker");
  EXPECT_EQ(TextOf("btnAdd"), "中 Res_Add");
  EXPECT_EQ(TextOf("btnClear"), "中 Res_Clear");
  EXPECT_EQ(HeaderOf(45), "中 Res_BrokerID");
  EXPECT_EQ(HeaderOf(200), "中 Res_Color");
  EXPECT_EQ(HeaderOf(25), "中 Res_Delete");
  ASSERT_EQ(StyleBox().count(), 4);
  for (int i = 0; i < 4; ++i)
    EXPECT_EQ(StyleBox().itemText(i).toStdString(),
              std::string("中 ") + keys[keys.size() - 4 + static_cast<std::size_t>(i)]);
  EXPECT_EQ(StyleBox().currentIndex(), 2);
}

TEST_F(TPageTest, ALanguageSelectsNoEntryWhenNoneWas) {
  Open();
  StyleBox().setCurrentIndex(-1);
  page->SetLanguage(2);
  EXPECT_EQ(StyleBox().currentIndex(), -1);
}

TEST_F(TPageTest, ANewPageIsInTheLanguageOfTheHost) {
  host.language.SetText("Res_Color", "Colour");
  host.language.SetText("Res_CopyPriceStyle_None", "Nothing");
  Open();
  EXPECT_EQ(HeaderOf(200), "Colour");
  EXPECT_EQ(StyleBox().itemText(1).toStdString(), "Nothing");
}

TEST_F(TPageTest, ANewPageHasTheGridOffUntilHighlightingIsOn) {
  page = std::make_unique<Quorpricepreference::TQuorPricePreferenceFrame>();
  EXPECT_FALSE(IsGridEnabled());
  EXPECT_FALSE(Highlight().isChecked());
  EXPECT_EQ(StyleBox().currentIndex(), 0);
  EXPECT_EQ(Rows(), TRows());
}

/// The page as a host meets it: by the handle in its descriptor.
class TPreferencePages : public Baseview::TIBasePreferenceView {
public:
  TPreferencePages() : TIBasePreferenceView(nullptr) {
    AddView(std::make_unique<Quorpricepreference::TQuorPricePreferenceFrame>());
  }
};

TEST_F(TPageTest, TheHostReachesThePageThroughItsDescriptor) {
  host.config.SetCurrent("CopyPriceStyle", "L");
  TPreferencePages pages;
  auto* frame = pages.GetView().at(0);
  const auto handle = Baseview::TIBasePreferenceView::HandleOf(frame);
  auto* style = frame->Widget()->findChild<QComboBox*>("cmbCopyPriceStyle");
  style->setCurrentIndex(1);
  EXPECT_TRUE(pages.Reset(handle));
  EXPECT_EQ(style->currentIndex(), 2);
  style->setCurrentIndex(1);
  EXPECT_TRUE(pages.ResetFactory(handle));
  EXPECT_EQ(style->currentIndex(), 2);
  style->setCurrentIndex(3);
  EXPECT_TRUE(pages.Execute(handle));
  EXPECT_EQ(Stored("CopyPriceStyle"), "S");
  host.language.SetText("Res_Add", "Hinzu");
  EXPECT_TRUE(pages.SetLanguage(handle, 2));
  EXPECT_EQ(frame->Widget()->findChild<QPushButton*>("btnAdd")->text(), "Hinzu");
  EXPECT_TRUE(pages.SendMessage(handle, 110, 0));
}

} // namespace
