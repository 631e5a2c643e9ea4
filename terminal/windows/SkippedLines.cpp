#include "terminal/windows/SkippedLines.h"

#include "terminal/windows/WindowTexts.h"

namespace Terminal {

std::vector<std::string> SkippedLines(const Feed::TMarketIndex& index) {
  constexpr std::size_t shown = 10;
  std::vector<std::string> lines;
  for (const auto& line : index.Malformed)
    if (lines.size() < shown)
      lines.push_back(WindowText("Term_SkippedLine")
                          .arg(line.Number)
                          .arg(ProblemText(line.Problem))
                          .toStdString());
  if (index.MalformedCount > 0)
    lines.push_back(WindowText("Term_SkippedLines").arg(index.MalformedCount).toStdString());
  return lines;
}

} // namespace Terminal
