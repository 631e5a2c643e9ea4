#include "feed/recording/Files.h"
#include "feed/recording/RecordingIndex.h"
#include "host/RecordFields.h"

namespace {

namespace Field = Host::Field;

using namespace Feed;
using namespace RecordingTest;
using namespace std::chrono_literals;

TRecordingSource OpenSource(const TTemporaryFile& file) {
  TRecordingSource source;
  EXPECT_FALSE(source.Open(file.Path()));
  return source;
}

TRecordingIndex IndexOf(std::string_view content, std::uint64_t spacing = 4u << 20) {
  const TTemporaryFile file(content);
  TRecordingSource source = OpenSource(file);
  const auto goOn = [](std::uint64_t) { return true; };
  return IndexRecording(source, goOn, spacing).value();
}

TEST(RecordingSource, SaysWhyAFileCannotBeOpened) {
  EXPECT_EQ(TRecordingSource().Open("/nowhere/at/all.jsonl"),
            Data::TProblem{Data::TProblemCode::FileMissing});
  EXPECT_EQ(TRecordingSource().Open(std::filesystem::temp_directory_path()),
            Data::TProblem{Data::TProblemCode::NotAFile});
}

TEST(RecordingSource, GivesTheHeaderThenTheEvents) {
  const TTemporaryFile file("{\"quorprice\":1}\n" + Line("10:00:00", "5", 1, "2"));
  TRecordingSource source = OpenSource(file);
  EXPECT_TRUE(std::holds_alternative<TReferenceData>(source.Next().value()));
  const auto line = source.Next().value();
  EXPECT_EQ(std::get<TRecordedEvent>(line).Change.Symbol, "5");
  EXPECT_FALSE(source.Next());
  EXPECT_FALSE(source.Next());
}

TEST(RecordingSource, CountsBlankLinesButReportsNoneOfThem) {
  const auto index = IndexOf("\n \r\n" + Line("10:00:00", "5", 1, "2") + "\t\r\nbad\n\n");
  EXPECT_EQ(index.Lines, 6u);
  EXPECT_EQ(index.Events, 1u);
  ASSERT_EQ(index.MalformedCount, 1u);
  EXPECT_EQ(index.Malformed[0].Number, 5u);
}

TEST(RecordingSource, ReadsCarriageReturnsAMissingLastBreakAndAByteOrderMark) {
  const auto index =
      IndexOf("\xEF\xBB\xBF{\"quorprice\":1,\"simulated\":true}\r\n"
              "{\"t\":\"10:00:00\",\"s\":\"5\"}\r\n{\"t\":\"10:00:01\",\"s\":\"5\"}");
  EXPECT_TRUE(index.Header.Simulated);
  EXPECT_EQ(index.Events, 2u);
  EXPECT_EQ(index.MalformedCount, 0u);
}

TEST(RecordingSource, SkipsAnEventThatGoesBackInTimeAndPlaysTheRest) {
  const auto index = IndexOf(Line("10:00:02", "5", 1, "1") + Line("10:00:01", "5", 1, "2") +
                             Line("10:00:02", "5", 1, "3") + Line("10:00:03", "5", 1, "4"));
  EXPECT_EQ(index.Events, 3u);
  ASSERT_EQ(index.Malformed.size(), 1u);
  EXPECT_EQ(index.Malformed[0].Number, 2u);
  const Data::TProblem goesBack{Data::TProblemCode::TimeGoesBack,
                                {"10:00:02.000000", "10:00:01.000000"}};
  EXPECT_EQ(index.Malformed[0].Problem, goesBack);
  EXPECT_EQ(index.Start, 10h + 2s);
  EXPECT_EQ(index.End, 10h + 3s);
}

TEST(RecordingSource, AcceptsAHeaderInTheFirstLineOnly) {
  const auto index = IndexOf("\n{\"quorprice\":1,\"simulated\":true}\n{\"quorprice\":1}\n" +
                             Line("10:00:00", "5", 1, "1"));
  EXPECT_TRUE(index.Header.Simulated);
  ASSERT_EQ(index.Malformed.size(), 1u);
  EXPECT_EQ(index.Malformed[0].Number, 3u);
  EXPECT_EQ(index.Malformed[0].Problem, Data::TProblem{Data::TProblemCode::HeaderNotFirst});
}

TEST(RecordingSource, SkipsALineTooLongToKeepAndFindsTheNext) {
  const std::string wide(TRecordingSource::MaximumLine + 12345, 'x');
  const auto index =
      IndexOf(Line("10:00:00", "5", 1, "1") + wide + "\n" + Line("10:00:01", "5", 1, "2") + wide);
  EXPECT_EQ(index.Events, 2u);
  ASSERT_EQ(index.Malformed.size(), 2u);
  EXPECT_EQ(index.Malformed[0].Number, 2u);
  EXPECT_EQ(index.Malformed[1].Number, 4u);
  EXPECT_EQ(index.Malformed[0].Problem, Data::TProblem{Data::TProblemCode::LineTooLong});
}

TEST(RecordingSource, ReadsALineThatIsLongButNotTooLong) {
  const std::string value(TRecordingSource::MaximumLine - 1000, 'x');
  const auto index = IndexOf(Line("10:00:00", "5", 1, "1") + Line("10:00:01", "5", 2, value), 1);
  EXPECT_EQ(index.Events, 2u);
  EXPECT_EQ(index.MalformedCount, 0u);
  EXPECT_EQ(index.Checkpoints.back().State.at(0).Fields.at(1).second, value);
}

TEST(RecordingSource, ReadsLinesAcrossTheEndOfItsBuffer) {
  std::string content;
  std::uint64_t lines = 0;
  while (content.size() < 2 * TRecordingSource::MaximumLine + 100) {
    content += Line("10:00:00", "5", 1, std::to_string(lines));
    ++lines;
  }
  const TTemporaryFile file(content);
  TRecordingSource source = OpenSource(file);
  for (std::uint64_t i = 0; i < lines; ++i) {
    const auto line = source.Next();
    ASSERT_TRUE(line && std::holds_alternative<TRecordedEvent>(*line)) << i;
    ASSERT_EQ(std::get<TRecordedEvent>(*line).Change.Fields[0].second, std::to_string(i));
  }
  EXPECT_FALSE(source.Next());
  EXPECT_EQ(source.Place().Offset, content.size());
}

TEST(RecordingSource, ComesBackToAPlace) {
  const TTemporaryFile file("{\"quorprice\":1}\n" + Line("10:00:00", "5", 1, "a") +
                            Line("10:00:01", "5", 1, "b") + Line("10:00:00", "5", 1, "c"));
  TRecordingSource source = OpenSource(file);
  const auto beginning = source.Place();
  source.Next();
  source.Next();
  const auto afterFirst = source.Place();
  while (source.Next()) {
  }
  source.MoveTo(afterFirst);
  EXPECT_EQ(std::get<TRecordedEvent>(source.Next().value()).Time, 10h + 1s);
  EXPECT_EQ(std::get<TMalformedLine>(source.Next().value()).Number, 4u);
  source.MoveTo(beginning);
  EXPECT_TRUE(std::holds_alternative<TReferenceData>(source.Next().value()));
}

TEST(RecordingIndex, IsEmptyForAFileWithoutEvents) {
  const auto index = IndexOf("");
  EXPECT_EQ(index.Events, 0u);
  EXPECT_EQ(index.Lines, 0u);
  EXPECT_EQ(index.Start, 0us);
  EXPECT_EQ(index.End, 0us);
  EXPECT_EQ(index.Checkpoints.size(), 1u);
}

TEST(RecordingIndex, KeepsTheFirstMalformedLinesAndCountsAll) {
  std::string content;
  for (std::size_t i = 0; i < TRecordingIndex::MaximumMalformed + 5; ++i)
    content += "?\n";
  const auto index = IndexOf(content);
  EXPECT_EQ(index.MalformedCount, TRecordingIndex::MaximumMalformed + 5);
  ASSERT_EQ(index.Malformed.size(), TRecordingIndex::MaximumMalformed);
  EXPECT_EQ(index.Malformed.back().Number, TRecordingIndex::MaximumMalformed);
}

TEST(RecordingIndex, StopsWhenToldTo) {
  const TTemporaryFile file(Line("10:00:00", "5", 1, "1") + Line("10:00:01", "5", 1, "2"));
  TRecordingSource source = OpenSource(file);
  EXPECT_FALSE(IndexRecording(source, [](std::uint64_t) { return false; }));
}

TEST(RecordingIndex, CheckpointsHoldTheWholeMarketUpToTheirPlace) {
  const std::string first = Line("10:00:00", "5", 1, "1") + Line("10:00:01", "5", 2, "2");
  const std::string second = "{\"t\":\"10:00:02\",\"s\":\"5\",\"f\":{\"1\":null}}\n";
  const auto index = IndexOf(first + second + Line("10:00:03", "7", 3, "3"), first.size());
  ASSERT_EQ(index.Checkpoints.size(), 3u);
  EXPECT_EQ(index.Checkpoints[1].Place.Time, 10h + 1s);
  EXPECT_EQ(index.Checkpoints[1].Place.Offset, first.size());
  const auto& state = index.Checkpoints[2].State;
  ASSERT_EQ(state.size(), 2u);
  const decltype(TRecordChange::Fields) fields = {{Field::BestBid, std::nullopt},
                                                  {Field::BestAsk, "2"}};
  EXPECT_EQ(state[0].Fields, fields);
  EXPECT_EQ(state[1].Symbol, "7");
}

TEST(RecordingIndex, ACheckpointForATimeHoldsNothingLater) {
  const auto index = IndexOf(Line("10:00:00", "5", 1, "1") + Line("10:00:01", "5", 1, "2") +
                                 Line("10:00:01", "5", 1, "3") + Line("10:00:02", "5", 1, "4"),
                             1);
  ASSERT_EQ(index.Checkpoints.size(), 5u);
  EXPECT_EQ(&CheckpointFor(index, 9h), &index.Checkpoints[0]);
  EXPECT_EQ(&CheckpointFor(index, 10h), &index.Checkpoints[1]);
  EXPECT_EQ(&CheckpointFor(index, 10h + 1s), &index.Checkpoints[3]);
  EXPECT_EQ(&CheckpointFor(index, 10h + 1500ms), &index.Checkpoints[3]);
  EXPECT_EQ(&CheckpointFor(index, 11h), &index.Checkpoints[4]);
}

} // namespace
