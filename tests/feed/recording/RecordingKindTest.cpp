#include "feed/recording/RecordingKind.h"

#include "feed/recording/Files.h"
#include "feed/recording/RecordingWriter.h"
#include "host/RecordFields.h"

namespace {

using namespace Feed;
using namespace RecordingTest;
using namespace std::chrono_literals;

const char* const Header = R"({"quorprice":1,"spreads":{},"brokers":[],"instruments":[]})"
                           "\n";

TSourceOptions OptionsFor(const TTemporaryFile& file) {
  return {{ReplayOption, file.Path().string()}};
}

std::string Content(const std::filesystem::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// What is recorded of `content` in `length`.
std::string Recorded(const std::string& content, TTimeOfDay length) {
  const TTemporaryFile file(content);
  const TTemporaryFile copy;
  const auto opened = ReadRecording(OptionsFor(file));
  const auto& stream = std::get<TChangeStream>(opened);
  EXPECT_FALSE(WriteRecording(stream, length, copy.Path()));
  return Content(copy.Path());
}

TEST(RecordingKind, SaysWhyItCannotOpen) {
  const TSourceOptions nowhere{{ReplayOption, "/nowhere/at/all.jsonl"}};
  EXPECT_EQ(std::get<Data::TProblem>(OpenRecording(nowhere, [] {})),
            Data::TProblem{Data::TProblemCode::FileMissing});
  EXPECT_EQ(std::get<Data::TProblem>(ReadRecording(nowhere)),
            Data::TProblem{Data::TProblemCode::FileMissing});
}

TEST(RecordingKind, OpensTheFileAskedFor) {
  const TTemporaryFile file(Line("10:00:00", "5", Host::Field::BestBid, "a"));
  const auto opened = OpenRecording(OptionsFor(file), [] {});
  auto& source = *std::get<std::unique_ptr<TMarketReader>>(opened);
  source.Step(0ms);
  EXPECT_EQ(source.Position(), 10h);
}

TEST(RecordingKind, RecordsSoMuchOfARecordingFromItsFirstMomentOn) {
  const std::string first = Header + Line("10:00:00.000000", "5", Host::Field::BestBid, "a") +
                            Line("10:00:01.000000", "7", Host::Field::BestBid, "b");
  const std::string all = first + Line("10:00:01.000001", "5", Host::Field::BestBid, "c");
  EXPECT_EQ(Recorded(all, 1s), first);
  EXPECT_EQ(Recorded(all, 24h), all);
}

TEST(RecordingKind, RecordsWithoutLinesThatCannotBeUsedAndWithAHeaderAllTheSame) {
  const std::string line = Line("10:00:00.000000", "5", Host::Field::BestBid, "a");
  EXPECT_EQ(Recorded("?\n" + line + "?\n", 1s), Header + line);
  EXPECT_EQ(Recorded("", 1s), Header);
}

} // namespace
