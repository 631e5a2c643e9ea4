#include "host/ConstDef.h"
#include "terminal/services/LanguageTexts.h"
#include "terminal/start/CommandLine.h"
#include "terminal/start/PackageLoader.h"
#include "tests/Paths.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <fstream>

namespace Terminal {
namespace {

TCommandLine Parsed(const std::vector<std::string>& options) {
  const auto line = ParseCommandLine(options);
  EXPECT_TRUE(std::holds_alternative<TCommandLine>(line));
  return std::get<TCommandLine>(line);
}

/// What the console says when it cannot take `result`.
template <typename TResult> std::string ErrorOf(const TResult& result) {
  const auto* problem = std::get_if<Data::TProblem>(&result);
  return problem ? Sentence(*problem, Constdef::Language_English) : "";
}

std::string OptionError(const std::vector<std::string>& options) {
  return ErrorOf(ParseCommandLine(options));
}

TEST(CommandLine, TakesEveryOption) {
  const auto line = Parsed({"--script",  "-",        "--snapshot", "a.png",  "--replay", "b.jsonl",
                            "--symbol",  "700",      "--package",  "c.so",   "--speed",  "2.5",
                            "--seconds", "3",        "--mode",     "5",      "--seed",   "12",
                            "--start",   "09:31:00", "--record",   "d.jsonl"});
  EXPECT_EQ(line.Script, "-");
  EXPECT_EQ(line.Snapshot, "a.png");
  EXPECT_EQ(line.Source->MenuText, std::string("Term_OpenRecording"));
  EXPECT_EQ(line.SourceOptions.at("--replay"), "b.jsonl");
  EXPECT_EQ(line.Symbol, "700");
  EXPECT_EQ(line.Package, "c.so");
  EXPECT_EQ(line.Speed, 2.5);
  EXPECT_EQ(line.Seconds, 3);
  EXPECT_EQ(line.Levels, 5);
  EXPECT_EQ(line.SourceOptions.at("--seed"), "12");
  EXPECT_EQ(line.SourceOptions.at("--start"), "09:31:00");
  EXPECT_EQ(line.Record, "d.jsonl");
}

TEST(CommandLine, PlaysInRealTimeUnlessTold) {
  const auto line = Parsed({});
  EXPECT_EQ(line.Speed, 1);
  EXPECT_FALSE(line.Script || line.Snapshot || line.Seconds || line.Levels);
}

TEST(CommandLine, PlaysTheSimulatedMarketUnlessAnotherSourceIsAskedFor) {
  EXPECT_EQ(Parsed({}).Source->MenuText, std::string("Term_SimulatedMarket"));
  EXPECT_TRUE(Parsed({}).SourceOptions.empty());
  EXPECT_EQ(Parsed({"--seed", "7"}).Source->MenuText, std::string("Term_SimulatedMarket"));
  EXPECT_EQ(Parsed({"--replay", "a", "--seed", "7"}).Source->MenuText,
            std::string("Term_OpenRecording"));
}

TEST(CommandLine, SaysWhichOptionIsWrong) {
  EXPECT_EQ(OptionError({"--fly"}), "There is no option \"--fly\"; --help lists those there are.");
  EXPECT_EQ(OptionError({"--symbol"}), "The option --symbol needs a value.");
  for (const char* value : {"0", "-1", "fast", "1x", "inf", ""})
    EXPECT_EQ(OptionError({"--speed", value}), std::string("The option --speed does not take the "
                                                           "value \"") +
                                                   value + "\".");
  for (const char* time : {"08:59:59", "16:10:01", "ten", ""})
    EXPECT_EQ(OptionError({"--start", time}),
              std::string("The option --start does not take the value "
                          "\"") +
                  time + "\".");
  EXPECT_EQ(OptionError({"--seed", "-1"}), "The option --seed does not take the value \"-1\".");
  EXPECT_EQ(OptionError({"--replay", ""}), "The option --replay does not take the value \"\".");
  EXPECT_EQ(OptionError({"--mode", "7"}), "The option --mode does not take the value \"7\".");
}

TEST(CommandLine, HelpNamesEveryOption) {
  for (const char* option : {"--script", "--snapshot", "--replay", "--symbol", "--package",
                             "--speed", "--seconds", "--mode", "--seed", "--start", "--record"})
    EXPECT_NE(CommandLineHelp().find(option), std::string::npos) << option;
}

std::string LoadError(const std::string& file) { return ErrorOf(LoadPackage(file)); }

TEST(PackageLoader, SaysThatThereIsNoFile) {
  EXPECT_EQ(LoadError("/nowhere/price.so"), "There is no package /nowhere/price.so.");
}

TEST(PackageLoader, SaysThatAFolderIsNoPackage) {
  EXPECT_EQ(LoadError("/tmp"), "/tmp is not a package: it is not a file.");
}

TEST(PackageLoader, SaysThatATextIsNoPackage) {
  const QTemporaryDir folder;
  const std::string file = folder.filePath(QStringLiteral("text.so")).toStdString();
  std::ofstream(file) << "not a library";
  EXPECT_EQ(LoadError(file).find(file + " is not a package: it cannot be loaded ("), 0u);
}

TEST(PackageLoader, SaysThatALibraryWithoutTheFunctionsIsNoPackage) {
  const std::string file = QUOR_BINARY_DIR "/bin/libquor_host.so";
  EXPECT_EQ(LoadError(file),
            file + " is not a package: it has no function quorPackageContractVersion.");
}

} // namespace
} // namespace Terminal
