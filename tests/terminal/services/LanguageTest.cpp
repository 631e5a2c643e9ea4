#include "terminal/services/LanguageTexts.h"
#include "tests/Paths.h"

#include <QColorDialog>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QDirIterator>
#include <QPushButton>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <set>

namespace {

using Terminal::TLanguageTexts;
using Terminal::TTextRow;

std::string CurrencyName(TLanguageTexts& texts, std::string_view code) {
  std::string text = "left over";
  texts.GetText(text, "Currency", code, 3, 0, 0);
  return text;
}

/// What the sources of a folder, their comments and the table of texts left out, have in quotation
/// marks that begins like a key; one that is put together of pieces too, which no table holds.
std::set<std::string> KeysIn(const QString& folder) {
  const QRegularExpression key(QStringLiteral("\"((Res|Term)_[^\"]*)\""));
  const QRegularExpression comment(QStringLiteral("//[^\n]*"));
  std::set<std::string> keys;
  QDirIterator files(QStringLiteral(QUOR_SOURCE_DIR "/") + folder, {"*.h", "*.cpp"}, QDir::Files,
                     QDirIterator::Subdirectories);
  while (files.hasNext()) {
    QFile file(files.next());
    if (file.fileName().endsWith(QLatin1String("/LanguageTable.cpp")))
      continue;
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    auto found = key.globalMatch(QString::fromUtf8(file.readAll()).remove(comment));
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

/// The title of the toolkit's colour dialog, and its button of that text.
std::string ColourDialog(const char* button) {
  const QColorDialog dialog;
  for (const auto* found : dialog.findChildren<QPushButton*>())
    if (found->text().contains(QString::fromUtf8(button)))
      return dialog.windowTitle().toStdString() + ": " + button;
  return dialog.windowTitle().toStdString();
}

TEST(LanguageTexts, TheToolkitSpeaksTheLanguageToo) {
  {
    TLanguageTexts texts;
    EXPECT_EQ(ColourDialog("Cancel"), "Select Color: Cancel");
    texts.SetLanguage(1);
    EXPECT_EQ(ColourDialog("取消"), "選擇顏色: 取消");
    texts.SetLanguage(2);
    EXPECT_EQ(ColourDialog("取消"), "选择颜色: 取消");
    texts.SetLanguage(3);
    EXPECT_EQ(ColourDialog("Cancel"), "Select Color: Cancel");
    texts.SetLanguage(1);
  }
  EXPECT_EQ(ColourDialog("Cancel"), "Select Color: Cancel");
}

// The toolkit writes the texts of a dialog's standard buttons anew when its language changes.
TEST(LanguageTexts, ATextThatIsSetAfterAChangeOfLanguageStays) {
  TLanguageTexts texts;
  QDialogButtonBox box(QDialogButtonBox::Ok);
  box.show();
  texts.SetLanguage(1);
  box.button(QDialogButtonBox::Ok)->setText(QStringLiteral("own"));
  QCoreApplication::processEvents();
  EXPECT_EQ(box.button(QDialogButtonBox::Ok)->text().toStdString(), "own");
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

TEST(LanguageTexts, HaveEveryKeyThatTheSourcesAskForAndNoOther) {
  std::set<std::string> asked;
  for (const auto* folder : {"host", "platform", "text", "data", "market", "feed", "model", "view",
                             "preferences", "plugin", "terminal"})
    asked.merge(KeysIn(folder));
  std::set<std::string> known;
  for (const auto* row = Terminal::resourceTexts; !row->Key.empty(); ++row)
    known.emplace(row->Key);
  for (const auto& key : asked)
    EXPECT_TRUE(known.count(key)) << key << " has no text";
  for (const auto& key : known)
    EXPECT_TRUE(asked.count(key)) << key << " is asked for by nobody";
}

} // namespace
