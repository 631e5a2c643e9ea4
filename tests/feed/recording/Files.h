#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include <unistd.h>

namespace RecordingTest {

/// A file of the running test with the given content, removed with this object.
class TTemporaryFile {
public:
  explicit TTemporaryFile(std::string_view content = {})
      : path_(std::filesystem::temp_directory_path() /
              (std::string("replay_") +
               testing::UnitTest::GetInstance()->current_test_info()->name() + "_" +
               std::to_string(getpid()) + "_" + std::to_string(nextNumber_++) + ".jsonl")) {
    std::ofstream(path_, std::ios::binary) << content;
  }
  ~TTemporaryFile() { std::filesystem::remove(path_); }
  TTemporaryFile(const TTemporaryFile&) = delete;
  TTemporaryFile& operator=(const TTemporaryFile&) = delete;

  const std::filesystem::path& Path() const { return path_; }

private:
  static inline int nextNumber_ = 0;
  std::filesystem::path path_;
};

/// A line in which one field of a symbol takes a value.
inline std::string Line(std::string_view time, std::string_view symbol, int field,
                        std::string_view value) {
  std::string line = "{\"t\":\"";
  return line.append(time)
      .append("\",\"s\":\"")
      .append(symbol)
      .append("\",\"f\":{\"")
      .append(std::to_string(field))
      .append("\":\"")
      .append(value)
      .append("\"}}\n");
}

} // namespace RecordingTest
