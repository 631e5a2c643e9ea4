// Feeds a fuzz target with random mixtures of the words of a dictionary, for compilers without a
// fuzzer: PROGRAM DICTIONARY COUNT. The same texts each time.

#include <charconv>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

/// The quoted entries of a dictionary, one a line; `\"` and `\\` stand for themselves.
std::vector<std::string> ReadWords(const char* file) {
  std::vector<std::string> words;
  std::ifstream lines(file);
  for (std::string line; std::getline(lines, line);) {
    if (line.size() < 2 || line.front() != '"')
      continue;
    std::string& word = words.emplace_back();
    for (std::size_t i = 1; i + 1 < line.size(); ++i)
      word += line[i] == '\\' ? line[++i] : line[i];
  }
  return words;
}

class TRandomTexts {
public:
  explicit TRandomTexts(std::vector<std::string> words) : words_(std::move(words)) {}

  std::string Next() {
    std::string text;
    for (auto pieces = random_() % 12; pieces > 0; --pieces) {
      if (random_() % 4 == 0)
        text += static_cast<char>(random_() % 256);
      else
        text += words_[random_() % words_.size()];
    }
    return text;
  }

private:
  std::vector<std::string> words_;
  std::mt19937 random_{20240519};
};

} // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "%s DICTIONARY COUNT\n", argv[0]);
    return 2;
  }
  auto words = ReadWords(argv[1]);
  const std::string number = argv[2];
  int count = 0;
  std::from_chars(number.data(), number.data() + number.size(), count);
  if (words.empty() || count <= 0) {
    std::fprintf(stderr, "%s has no words, or there is nothing to do.\n", argv[1]);
    return 2;
  }
  LLVMFuzzerInitialize(&argc, &argv);
  TRandomTexts texts(std::move(words));
  for (int i = 0; i < count; ++i) {
    const std::string text = texts.Next();
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
  }
  std::printf("%d texts\n", count);
}
