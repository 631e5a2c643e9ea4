// The guide for those who write a host lists what the contract names; here it is held against it.

#include "tests/Paths.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

namespace {

std::string TextOf(const std::filesystem::path& file) {
  std::ifstream stream(QUOR_SOURCE_DIR / file);
  return {std::istreambuf_iterator<char>(stream), {}};
}

/// The parts of `text` that the groups of `pattern` match, match by match.
std::set<std::pair<std::string, std::string>> Matches(const std::string& text,
                                                      const char* pattern) {
  std::set<std::pair<std::string, std::string>> matches;
  const QRegularExpression expression(QString::fromLatin1(pattern));
  for (const auto& match : expression.globalMatch(QString::fromStdString(text)))
    matches.emplace(match.captured(1).toStdString(), match.captured(2).toStdString());
  return matches;
}

class TGuideTest : public testing::Test {
protected:
  void ExpectTold(const std::string& what) const {
    EXPECT_NE(guide.find(what), std::string::npos) << what << " is not in the guide";
  }

  const std::string guide = TextOf("docs/host.md");
};

TEST_F(TGuideTest, TellsEveryRecordFieldByNumberAndName) {
  auto fields = Matches(TextOf("host/RecordFields.h"), R"(constexpr int (\w+) = (\d+);)");
  fields.erase({"DepthLevels", "10"});
  EXPECT_GT(fields.size(), 60u);
  for (const auto& [name, number] : fields)
    ExpectTold("| " + number + " | `" + name + "` |");
}

TEST_F(TGuideTest, TellsEveryNameThatHostAndPackageAgreeOnWithItsConstant) {
  const auto names = Matches(
      TextOf("host/ConstDef.h"),
      R"rx(((?:Key|Section|Colour|Function|DataSet|OrderValue|Button|Layout|Component(?:Prefix)?)_\w+) =\s*"([\w-]+)")rx");
  EXPECT_EQ(names.size(), 44u);
  for (const auto& [constant, text] : names) {
    ExpectTold(constant + "`");
    ExpectTold("`" + text + "`");
  }
}

TEST_F(TGuideTest, TellsEveryTextKeyThatThePackageAsksFor) {
  std::set<std::pair<std::string, std::string>> keys;
  for (const auto* folder : {"model", "view", "preferences", "plugin"})
    for (const auto& file :
         std::filesystem::directory_iterator(std::filesystem::path(QUOR_SOURCE_DIR) / folder))
      if (file.path().extension() == ".cpp")
        keys.merge(Matches(TextOf(file.path()), R"rx("(Res_\w+)()")rx"));
  EXPECT_GT(keys.size(), 80u);
  for (const auto& [key, none] : keys)
    ExpectTold("`" + key + "`");
}

} // namespace
