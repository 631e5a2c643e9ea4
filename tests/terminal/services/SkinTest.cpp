#include "host/ConstDef.h"
#include "platform/Colour.h"
#include "platform/LookAndFeel.h"
#include "terminal/services/ConfigStore.h"
#include "terminal/services/SkinService.h"

#include <QApplication>
#include <QPalette>
#include <QToolTip>

#include <gtest/gtest.h>

#include <cmath>

namespace {

using Terminal::TPriceColours;
using Terminal::TSkin;
using Terminal::TTone;

/// Contrast of two colours as the web's accessibility guidelines define it.
double Luminance(System::TColor colour) {
  const auto linear = [colour](int shift) {
    const double channel = static_cast<double>(colour >> shift & 0xFF) / 255;
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(0) + 0.7152 * linear(8) + 0.0722 * linear(16);
}

double Contrast(System::TColor a, System::TColor b) {
  const double first = Luminance(a), second = Luminance(b);
  return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

QColor Over(const QColor& text, const QColor& background) {
  const auto mixed = [&](float a, float b) { return a * text.alphaF() + b * (1 - text.alphaF()); };
  return QColor::fromRgbF(mixed(text.redF(), background.redF()),
                          mixed(text.greenF(), background.greenF()),
                          mixed(text.blueF(), background.blueF()));
}

void ExpectReadable(System::TColor text, System::TColor background, const std::string& what) {
  EXPECT_GE(Contrast(text, background), 4.5) << what;
}

/// Every skin in all price colours.
class TSkinsTest : public testing::TestWithParam<std::tuple<TSkin, TPriceColours>> {
protected:
  const TPriceColours& Colours = std::get<1>(GetParam());
  const TSkin& Skin = std::get<0>(GetParam());
  const Terminal::TNamedColours Shown = Terminal::NamedColours(Skin, Colours);
  const Terminal::TToneColours& Up = Skin.Tone(Colours.Up);
  const Terminal::TToneColours& Down = Skin.Tone(Colours.Down);

  System::TColor Named(const char* name) const { return Shown.ByName.at(name); }
  System::TColor Standard(int number) const { return Shown.ByNumber.at(number); }
};

TEST_P(TSkinsTest, EveryTextOfAViewCanBeReadOnItsBackground) {
  ExpectReadable(Skin.ContentText, Skin.Content, "cell");
  ExpectReadable(Standard(7), Standard(6), "bid");
  ExpectReadable(Standard(9), Standard(8), "ask");
  ExpectReadable(Standard(7), Skin.Content, "bid queue");
  ExpectReadable(Standard(9), Skin.Content, "ask queue");
  ExpectReadable(Standard(7), Named("coBuyColorLabel"), "bid queue marker");
  ExpectReadable(Standard(9), Named("coSellColorLabel"), "ask queue marker");
  for (const auto* label :
       {"coLabelBground", "coLabelInvalidBground", "coBuyColorLabel", "coSellColorLabel"})
    ExpectReadable(Skin.ContentText, Named(label), label);
  for (const auto* marker : {"coVCMBgColor", "coCASBgColor", "coPOSBgColor"})
    ExpectReadable(System::clBlack, Named(marker), marker);
}

TEST_P(TSkinsTest, EveryTextOfTheWindowsCanBeReadOnItsBackground) {
  for (const auto& [text, name] : {std::pair(Up.Text, "rising"), std::pair(Down.Text, "falling"),
                                   std::pair(Skin.WarningText, "warning")}) {
    ExpectReadable(text, Skin.Content, name);
    ExpectReadable(text, Skin.Window, name);
  }
  Terminal::TConfigStore config;
  Terminal::TSkinService service(config);
  ASSERT_TRUE(service.SelectPriceColours(Colours.Name));
  ASSERT_TRUE(service.Select(Skin.Name));
  using P = QPalette;
  const std::pair<P::ColorRole, P::ColorRole> pairs[] = {{P::WindowText, P::Window},
                                                         {P::ButtonText, P::Button},
                                                         {P::Text, P::Base},
                                                         {P::Text, P::AlternateBase},
                                                         {P::PlaceholderText, P::Base},
                                                         {P::HighlightedText, P::Highlight},
                                                         {P::ToolTipText, P::ToolTipBase},
                                                         {P::Link, P::Base},
                                                         {P::LinkVisited, P::Base}};
  const QPalette palettes[] = {QApplication::palette(), QToolTip::palette()};
  for (const auto& palette : palettes)
    for (const auto group : {P::Active, P::Inactive, P::Disabled})
      for (const auto& [text, background] : pairs) {
        const QColor ground = palette.color(group, background);
        ExpectReadable(Platform::FromQColor(Over(palette.color(group, text), ground)),
                       Platform::FromQColor(ground),
                       std::to_string(text) + " in group " + std::to_string(group));
      }
}

TEST_P(TSkinsTest, TheTwoSidesCanBeToldApart) {
  EXPECT_NE(Standard(6), Standard(8));
  EXPECT_NE(Standard(7), Standard(9));
  EXPECT_NE(Named("coBuyColorLabel"), Named("coSellColorLabel"));
  EXPECT_NE(Up.Text, Down.Text);
}

TEST_P(TSkinsTest, RisingPricesAndBidsAreInOneToneFallingPricesAndAsksInTheOther) {
  EXPECT_EQ(Standard(6), Up.Background);
  EXPECT_EQ(Standard(7), Up.Text);
  EXPECT_EQ(Standard(8), Down.Background);
  EXPECT_EQ(Standard(9), Down.Text);
  EXPECT_EQ(Named("coBuyColorLabel"), Up.Label);
  EXPECT_EQ(Named("coSellColorLabel"), Down.Label);
}

TEST_P(TSkinsTest, ItsNameCanBeReadInEveryLanguage) {
  for (const auto& texts : {Skin.Texts, Colours.Texts})
    for (const int language : {Constdef::Language_TraditionalChinese,
                               Constdef::Language_SimplifiedChinese, Constdef::Language_English})
      EXPECT_GT(std::string(texts.In(language)).size(), 0u) << Skin.Name << language;
  EXPECT_STREQ(Skin.Texts.In(Constdef::Language_TraditionalChinese), Skin.Texts.Traditional);
  EXPECT_STREQ(Skin.Texts.In(Constdef::Language_SimplifiedChinese), Skin.Texts.Simplified);
  EXPECT_STREQ(Skin.Texts.In(Constdef::Language_English), Skin.Texts.English);
}

INSTANTIATE_TEST_SUITE_P(
    BuiltIn, TSkinsTest,
    testing::Combine(testing::ValuesIn(Terminal::BuiltInSkins()),
                     testing::ValuesIn(Terminal::BuiltInPriceColours())),
    [](const auto& each) {
      return std::string(std::get<0>(each.param).Name).append(std::get<1>(each.param).Name);
    });

/// Which channel of a colour is the strongest: 'r', 'g' or 'b'.
char Strongest(System::TColor colour) {
  const QColor c = Platform::ToQColor(colour);
  return c.red() >= c.green() && c.red() >= c.blue() ? 'r' : c.green() >= c.blue() ? 'g' : 'b';
}

TEST(Skins, AToneIsOfItsNameInEverySkin) {
  for (const auto& skin : Terminal::BuiltInSkins())
    for (const auto& [tone, strongest] :
         {std::pair(TTone::Red, 'r'), std::pair(TTone::Green, 'g'), std::pair(TTone::Blue, 'b'),
          std::pair(TTone::Orange, 'r')}) {
      const auto& colours = skin.Tone(tone);
      for (const System::TColor colour : {colours.Background, colours.Text, colours.Label})
        EXPECT_EQ(Strongest(colour), strongest) << skin.Name;
    }
}

/// Colours as a person sees them who lacks the receptors for green light, after Viénot, Brettel
/// and Mollon (1999).
QColor WithoutGreen(System::TColor colour) {
  const auto linear = [](double channel) { return std::pow(channel, 2.2); };
  const QColor c = Platform::ToQColor(colour);
  const double r = linear(c.redF()), g = linear(c.greenF()), b = linear(c.blueF());
  const auto shown = [](double light) { return std::pow(std::clamp(light, 0.0, 1.0), 1 / 2.2); };
  const double yellow = 0.29275 * r + 0.70725 * g;
  const double blue = -0.02234 * r + 0.02234 * g + b;
  return QColor::fromRgbF(static_cast<float>(shown(yellow)), static_cast<float>(shown(yellow)),
                          static_cast<float>(shown(blue)));
}

int Distance(const QColor& a, const QColor& b) {
  return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) +
         std::abs(a.blue() - b.blue());
}

TEST(Skins, BlueAndOrangeStayApartForWhoCannotTellRedFromGreen) {
  constexpr int plain = 60;
  for (const auto& skin : Terminal::BuiltInSkins()) {
    const auto& blue = skin.Blue;
    const auto& orange = skin.Orange;
    EXPECT_GT(Distance(WithoutGreen(blue.Text), WithoutGreen(orange.Text)), plain) << skin.Name;
    EXPECT_GT(Distance(WithoutGreen(blue.Label), WithoutGreen(orange.Label)), plain) << skin.Name;
  }
}

TEST(SkinService, StartsWithTheDarkSkinAndSwitchesToTheLightOne) {
  Terminal::TConfigStore config;
  Terminal::TSkinService service(config);
  const auto& dark = Terminal::BuiltInSkins().at(0);
  EXPECT_EQ(service.Current().Name, "Dark");
  EXPECT_EQ(service.GetColour(6, ""), dark.Blue.Background);
  EXPECT_EQ(service.GetColour(0, "coVCMBgColor"), dark.VcmBackground);
  int changes = 0;
  service.OnChanged = [&] { ++changes; };
  EXPECT_TRUE(service.Select("Light"));
  const auto& light = Terminal::BuiltInSkins().at(1);
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(service.GetColour(9, ""), light.Orange.Text);
  EXPECT_FALSE(service.Select("NoSuchSkin"));
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(service.Current().Name, "Light");
}

TEST(SkinService, ReachesTheRootLookAndFeelAndThePalette) {
  auto& root = Platform::TcxRootLookAndFeel::Instance();
  {
    Terminal::TConfigStore config;
    Terminal::TSkinService service(config);
    ASSERT_TRUE(service.Select("Light"));
    ASSERT_TRUE(root.SkinPainter().has_value());
    EXPECT_EQ(root.SkinPainter()->ContentColor, QColor(0xFF, 0xFF, 0xFF));
    EXPECT_EQ(root.SkinPainter()->ContentTextColor, QColor(0x1B, 0x1F, 0x24));
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), QColor(0xF3, 0xF5, 0xF8));
    EXPECT_EQ(QApplication::palette().color(QPalette::Base), QColor(0xFF, 0xFF, 0xFF));
  }
  EXPECT_FALSE(root.SkinPainter().has_value());
}

TEST(SkinService, TheSkinSectionCanBeReadAsConfiguration) {
  Terminal::TConfigStore config;
  Terminal::TSkinService service(config);
  EXPECT_EQ(config.ReadString(service.CurrentSkinSection(), "coLabelInvalidBground"), "$00241F7A");
  const auto former = service.CurrentSkinSection();
  service.Replace({{"coLabelBground", 0x112233}}, {});
  EXPECT_EQ(config.ReadString(service.CurrentSkinSection(), "coLabelInvalidBground"), "");
  EXPECT_EQ(config.ReadString(former, "coLabelInvalidBground"), "");
  service.Replace({}, {{"coLabelInvalidBground", "$000000FF"}});
  EXPECT_EQ(config.ReadString(service.CurrentSkinSection(), "coLabelInvalidBground"), "$000000FF");
}

TEST(SkinService, AReplacedSkinHasOnlyItsOwnColoursAndIsBlackElsewhere) {
  Terminal::TConfigStore config;
  Terminal::TSkinService service(config);
  const auto content = service.Current().Content;
  int changes = 0;
  service.OnChanged = [&] { ++changes; };
  service.Replace({{"6", 0xAA0000}, {"coBuyColorLabel", 0x00BB00}}, {});
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(service.GetColour(6, ""), 0xAA0000U);
  EXPECT_EQ(service.GetColour(0, "coBuyColorLabel"), 0x00BB00U);
  EXPECT_EQ(service.GetColour(7, ""), System::clBlack);
  EXPECT_EQ(service.GetColour(0, "coSellColorLabel"), System::clBlack);
  EXPECT_EQ(service.GetColour(0, "6"), System::clBlack);
  EXPECT_EQ(service.Current().Content, content);
}

TEST(SkinService, PriceColoursStayWithEverySkinSelectedLater) {
  Terminal::TConfigStore config;
  Terminal::TSkinService service(config);
  EXPECT_EQ(service.PriceColours().Name, "BlueOrange");
  int changes = 0;
  service.OnChanged = [&] { ++changes; };
  ASSERT_TRUE(service.SelectPriceColours("RedUp"));
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(service.Current().Name, "Dark");
  EXPECT_EQ(service.GetColour(7, ""), 0x979FFFU);
  EXPECT_EQ(service.GetColour(9, ""), 0xA8DB7AU);
  EXPECT_EQ(service.Up().Text, 0x979FFFU);
  ASSERT_TRUE(service.Select("Light"));
  EXPECT_EQ(service.GetColour(7, ""), 0x1E1B9AU);
  EXPECT_EQ(service.GetColour(0, "coSellColorLabel"), 0xCEE5BFU);
  EXPECT_EQ(config.ReadString(service.CurrentSkinSection(), "coSellColorLabel"), "$00CEE5BF");
  EXPECT_FALSE(service.SelectPriceColours("NoSuchColours"));
  EXPECT_EQ(service.PriceColours().Name, "RedUp");
  ASSERT_TRUE(service.SelectPriceColours("GreenUp"));
  EXPECT_EQ(service.GetColour(7, ""), 0x32570AU);
  EXPECT_EQ(service.GetColour(9, ""), 0x1E1B9AU);
}

TEST(SkinService, AReplacedSkinKeepsItsColoursWhenPriceColoursChange) {
  Terminal::TConfigStore config;
  Terminal::TSkinService service(config);
  service.Replace({{"7", 0x123456}}, {});
  ASSERT_TRUE(service.SelectPriceColours("RedUp"));
  EXPECT_EQ(service.GetColour(7, ""), 0x123456U);
  ASSERT_TRUE(service.Select("Dark"));
  EXPECT_EQ(service.GetColour(7, ""), 0x979FFFU);
}

} // namespace
