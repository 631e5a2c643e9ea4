#include "feed/recording/RecordingSource.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace Feed {

namespace {

using Data::TProblem;
using enum Data::TProblemCode;

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

} // namespace

std::optional<Data::TProblem> TRecordingSource::Open(const std::filesystem::path& path) {
  std::error_code error;
  if (!std::filesystem::exists(path, error))
    return TProblem{FileMissing};
  if (!std::filesystem::is_regular_file(path, error))
    return TProblem{NotAFile};
  size_ = std::filesystem::file_size(path, error);
  file_.open(path, std::ios::binary);
  if (error || !file_)
    return TProblem{FileUnreadable};
  buffer_.assign(MaximumLine + TRecordingParser::Padding, '\0');
  return {};
}

std::optional<TRecordingLine> TRecordingSource::Next() {
  while (true) {
    if (begin_ == end_ && !Fill())
      return std::nullopt;
    auto text = NextText();
    if (!text) {
      SkipLongLine();
      return TMalformedLine{place_.Lines, {LineTooLong}};
    }
    if (place_.Lines == 1 && text->starts_with(ByteOrderMark))
      text->remove_prefix(ByteOrderMark.size());
    if (text->find_first_not_of(" \t\r") != std::string_view::npos)
      return Judge(parser_.Parse(*text));
  }
}

void TRecordingSource::MoveTo(const TPlace& place) {
  file_.clear();
  file_.seekg(static_cast<std::streamoff>(place.Offset));
  place_ = place;
  begin_ = end_ = 0;
}

/// The next line, without its break, cut off the buffer; empty when it does not fit in there. The
/// view holds until the buffer is filled again.
std::optional<std::string_view> TRecordingSource::NextText() {
  const auto find = [this] {
    return static_cast<const char*>(std::memchr(&buffer_[begin_], '\n', end_ - begin_));
  };
  const char* lineBreak = find();
  while (lineBreak == nullptr && Fill())
    lineBreak = find();
  const bool isLast = lineBreak == nullptr && end_ - begin_ < MaximumLine;
  if (lineBreak == nullptr && !isLast)
    return std::nullopt;
  const char* const line = &buffer_[begin_];
  const auto length = isLast ? end_ - begin_ : static_cast<std::size_t>(lineBreak - line);
  Consume(isLast ? length : length + 1);
  ++place_.Lines;
  return std::string_view(line, length);
}

void TRecordingSource::SkipLongLine() {
  ++place_.Lines;
  do {
    const void* const lineBreak = std::memchr(&buffer_[begin_], '\n', end_ - begin_);
    if (lineBreak != nullptr) {
      Consume(static_cast<std::size_t>(static_cast<const char*>(lineBreak) - &buffer_[begin_]) + 1);
      return;
    }
    Consume(end_ - begin_);
  } while (Fill());
}

/// Moves what is unread to the front and reads on behind it; false when nothing could be read.
bool TRecordingSource::Fill() {
  std::copy(buffer_.begin() + static_cast<std::ptrdiff_t>(begin_),
            buffer_.begin() + static_cast<std::ptrdiff_t>(end_), buffer_.begin());
  end_ -= begin_;
  begin_ = 0;
  file_.read(&buffer_[end_], static_cast<std::streamsize>(MaximumLine - end_));
  end_ += static_cast<std::size_t>(file_.gcount());
  return file_.gcount() > 0;
}

void TRecordingSource::Consume(std::size_t bytes) {
  begin_ += bytes;
  place_.Offset += bytes;
}

TRecordingLine TRecordingSource::Judge(TParsedLine parsed) {
  const bool isFirst = !std::exchange(place_.HasContent, true);
  if (auto* const problem = std::get_if<TProblem>(&parsed))
    return TMalformedLine{place_.Lines, std::move(*problem)};
  if (auto* const header = std::get_if<TReferenceData>(&parsed)) {
    if (!isFirst)
      return TMalformedLine{place_.Lines, {HeaderNotFirst}};
    return std::move(*header);
  }
  auto& event = std::get<TRecordedEvent>(parsed);
  if (event.Time < place_.Time)
    return TMalformedLine{
        place_.Lines,
        {TimeGoesBack, {Text::TimeOfDayText(place_.Time), Text::TimeOfDayText(event.Time)}}};
  place_.Time = event.Time;
  return std::move(event);
}

} // namespace Feed
