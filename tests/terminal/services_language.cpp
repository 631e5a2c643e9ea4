#include "terminal/services/LanguageTexts.h"
#include "terminal/services/SkinService.h"

#include "platform/LookAndFeel.h"

#include <QApplication>
#include <QDirIterator>
#include <QPalette>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <cmath>
#include <set>

namespace {

using Terminal::TLanguageTexts;
using Terminal::TSkin;
using Terminal::TTextRow;

std::string CurrencyName(TLanguageTexts& texts, std::string_view code) {
  std::string text = "left over";
  texts.GetText(text, "Currency", code, 3, 0, 0);
  return text;
}

/// The keys of that prefix that the sources of a folder name.
std::set<std::string> KeysIn(const QString& folder, const QString& prefix) {
  const QRegularExpression key("\"(" + prefix + "_[A-Za-z0-9_]+)\"");
  std::set<std::string> keys;
  QDirIterator files(QStringLiteral(QUOR_SOURCE_DIR "/") + folder, {"*.h", "*.cpp"}, QDir::Files,
                     QDirIterator::Subdirectories);
  while (files.hasNext()) {
    QFile file(files.next());
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    auto found = key.globalMatch(QString::fromUtf8(file.readAll()));
    while (found.hasNext())
      keys.insert(found.next().captured(1).toStdString());
  }
  return keys;
}

TEST(LanguageTexts, SpeakThreeLanguages) {
  TLanguageTexts texts;
  EXPECT_EQ(texts.CurrentLanguage(), 3);
  EXPECT_EQ(texts.GetResource("Res_Nominal"), "Nominal");
  texts.SetLanguage(1);
  EXPECT_EQ(texts.GetResource("Res_Nominal"), "按盤價");
  EXPECT_EQ(texts.GetResource("Res_Ask"), "沽盤");
  EXPECT_EQ(CurrencyName(texts, "HKD"), "港元");
  texts.SetLanguage(2);
  EXPECT_EQ(texts.GetResource("Res_Ask"), "卖盘");
  EXPECT_EQ(CurrencyName(texts, "CNY"), "人民币");
  texts.SetLanguage(7);
  EXPECT_EQ(texts.CurrentLanguage(), 2);
}

TEST(LanguageTexts, AnUnknownKeyIsItsOwnTextAndAnUnknownCurrencyHasNone) {
  TLanguageTexts texts;
  EXPECT_EQ(texts.GetResource("Res_NoSuchKey"), "Res_NoSuchKey");
  EXPECT_EQ(CurrencyName(texts, "XXX"), "");
  std::string text = "left over";
  texts.GetText(text, "NoSuchTag", "Res_Ask", 3, 0, 0);
  EXPECT_EQ(text, "");
}

TEST(LanguageTexts, InKeysModeEveryTextIsItsKey) {
  TLanguageTexts texts;
  texts.SetKeysMode(true);
  EXPECT_EQ(texts.GetResource("Res_Ask"), "Res_Ask");
  EXPECT_EQ(CurrencyName(texts, "HKD"), "HKD");
  EXPECT_EQ(CurrencyName(texts, "XXX"), "XXX");
  texts.SetKeysMode(false);
  EXPECT_EQ(texts.GetResource("Res_Ask"), "Ask");
}

TEST(LanguageTexts, EveryKeyStandsOnceAndHasATextInEveryLanguage) {
  for (const auto* table : {Terminal::resourceTexts, Terminal::currencyTexts}) {
    std::set<std::string_view> keys;
    for (const auto* row = table; !row->Key.empty(); ++row) {
      EXPECT_TRUE(keys.insert(row->Key).second) << row->Key << " stands twice";
      EXPECT_FALSE(row->TraditionalChinese.empty()) << row->Key;
      EXPECT_FALSE(row->SimplifiedChinese.empty()) << row->Key;
      EXPECT_FALSE(row->English.empty()) << row->Key;
    }
    EXPECT_GT(keys.size(), 10U);
  }
}

TEST(LanguageTexts, HaveEveryKeyThatTheSourcesAskFor) {
  std::set<std::string> known;
  for (const auto* row = Terminal::resourceTexts; !row->Key.empty(); ++row)
    known.emplace(row->Key);
  std::set<std::string> asked = KeysIn("terminal/windows", "Term");
  for (const auto* folder : {"model", "view", "preferences", "plugin"})
    asked.merge(KeysIn(folder, "Res"));
  EXPECT_GT(asked.size(), 50U);
  for (const auto& key : asked)
    EXPECT_TRUE(known.count(key)) << key;
}

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

class Skins : public testing::TestWithParam<TSkin> {};

TEST_P(Skins, EveryTextCanBeReadOnItsBackground) {
  const auto& skin = GetParam();
  const auto expectReadable = [](System::TColor text, System::TColor background, const char* what) {
    EXPECT_GE(Contrast(text, background), 4.5) << what;
  };
  const auto named = [&skin](const char* name) { return skin.Colours.at(name); };
  const auto standard = [&skin](int number) { return skin.StandardColours.at(number); };
  expectReadable(skin.ContentTextColour, skin.ContentColour, "cell");
  expectReadable(skin.WindowTextColour, skin.WindowColour, "panel");
  expectReadable(skin.HighlightTextColour, skin.HighlightColour, "selection");
  expectReadable(standard(7), standard(6), "bid");
  expectReadable(standard(9), standard(8), "ask");
  expectReadable(standard(7), skin.ContentColour, "bid queue");
  expectReadable(standard(9), skin.ContentColour, "ask queue");
  expectReadable(standard(7), named("coBuyColorLabel"), "bid queue marker");
  expectReadable(standard(9), named("coSellColorLabel"), "ask queue marker");
  for (const auto* label :
       {"coLabelBground", "coLabelInvalidBground", "coBuyColorLabel", "coSellColorLabel"})
    expectReadable(skin.ContentTextColour, named(label), label);
  for (const auto* marker : {"coVCMBgColor", "coCASBgColor", "coPOSBgColor"})
    expectReadable(System::clBlack, named(marker), marker);
}

TEST_P(Skins, BuysAndSellsCanBeToldApart) {
  const auto& skin = GetParam();
  EXPECT_NE(skin.StandardColours.at(6), skin.StandardColours.at(8));
  EXPECT_NE(skin.StandardColours.at(7), skin.StandardColours.at(9));
  EXPECT_NE(skin.Colours.at("coBuyColorLabel"), skin.Colours.at("coSellColorLabel"));
}

INSTANTIATE_TEST_SUITE_P(BuiltIn, Skins, testing::ValuesIn(Terminal::BuiltInSkins()),
                         [](const auto& skin) { return skin.param.Name; });

TEST(SkinService, StartsWithTheDarkSkinAndSwitchesToTheLightOne) {
  Terminal::TConfigStore config;
  Terminal::TSkinService service(config);
  const auto& dark = Terminal::BuiltInSkins().at(0);
  EXPECT_EQ(service.Current().Name, "Dark");
  EXPECT_EQ(service.GetColour(6, ""), dark.StandardColours.at(6));
  EXPECT_EQ(service.GetColour(0, "coVCMBgColor"), dark.Colours.at("coVCMBgColor"));
  int changes = 0;
  service.OnChanged = [&] { ++changes; };
  EXPECT_TRUE(service.Select("Light"));
  const auto& light = Terminal::BuiltInSkins().at(1);
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(service.GetColour(9, ""), light.StandardColours.at(9));
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
  const auto content = service.Current().ContentColour;
  int changes = 0;
  service.OnChanged = [&] { ++changes; };
  service.Replace({{"6", 0xAA0000}, {"coBuyColorLabel", 0x00BB00}}, {});
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(service.GetColour(6, ""), 0xAA0000U);
  EXPECT_EQ(service.GetColour(0, "coBuyColorLabel"), 0x00BB00U);
  EXPECT_EQ(service.GetColour(7, ""), System::clBlack);
  EXPECT_EQ(service.GetColour(0, "coSellColorLabel"), System::clBlack);
  EXPECT_EQ(service.GetColour(0, "6"), System::clBlack);
  EXPECT_EQ(service.Current().ContentColour, content);
}

} // namespace
