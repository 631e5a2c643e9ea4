// Feeds a fuzz target, for compilers without a fuzzer, with its seeds and then with as many texts
// as are asked for: seeds that are cut up and random mixtures of the words of its dictionary. The
// same texts each time. PROGRAM DICTIONARY SEEDS COUNT

#include "fuzz/Fuzz.h"

#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string_view>
#include <vector>

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using TTexts = std::vector<std::string>;

/// `quoted` without the quotes around it; `\"` and `\\` stand for themselves, `\xHH` for a byte.
std::string Unquoted(std::string_view quoted) {
  std::string word;
  for (std::size_t i = 1; i + 1 < quoted.size(); ++i) {
    if (quoted[i] == '\\' && quoted[++i] == 'x') {
      int byte = 0;
      std::from_chars(&quoted[i + 1], &quoted[i + 3], byte, 16);
      word += static_cast<char>(byte);
      i += 2;
    } else {
      word += quoted[i];
    }
  }
  return word;
}

/// The quoted entries of a dictionary, one a line.
TTexts ReadWords(const char* file) {
  TTexts words;
  std::ifstream lines(file);
  for (std::string line; std::getline(lines, line);)
    if (line.starts_with('"'))
      words.push_back(Unquoted(line));
  return words;
}

/// The contents of the files in a folder, in the order of their names.
TTexts ReadSeeds(const char* folder) {
  std::vector<std::filesystem::path> files;
  std::copy(std::filesystem::directory_iterator(folder), {}, std::back_inserter(files));
  std::sort(files.begin(), files.end());
  TTexts seeds;
  for (const auto& path : files) {
    std::ifstream file(path, std::ios::binary);
    seeds.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  }
  return seeds;
}

class TRandomTexts {
public:
  TRandomTexts(TTexts words, TTexts seeds) : words_(std::move(words)), seeds_(std::move(seeds)) {}

  std::string Next() {
    if (Below(2) == 0)
      return Pieces(Below(12));
    std::string text = seeds_[Below(seeds_.size())];
    for (auto edits = Below(4) + 1; edits > 0; --edits)
      text.replace(Below(text.size() + 1), Below(12), Pieces(Below(3)));
    return text;
  }

private:
  std::size_t Below(std::size_t bound) { return random_() % bound; }

  std::string Pieces(std::size_t count) {
    std::string text;
    for (; count > 0; --count) {
      if (Below(4) == 0)
        text += static_cast<char>(Below(256));
      else
        text += words_[Below(words_.size())];
    }
    return text;
  }

  TTexts words_, seeds_;
  std::mt19937 random_{20240519};
};

std::string fed; ///< the text that the target has

void ShowText(int signal) {
  constexpr std::string_view saying = "\nThe text was:\n";
  if (::write(STDERR_FILENO, saying.data(), saying.size()) > 0 &&
      ::write(STDERR_FILENO, fed.data(), fed.size()) > 0)
    ::write(STDERR_FILENO, "\n", 1);
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

void Feed(const std::string& text) {
  fed = text;
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
}

} // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fprintf(stderr, "%s DICTIONARY SEEDS COUNT\n", argv[0]);
    return 2;
  }
  const TTexts words = ReadWords(argv[1]);
  const TTexts seeds = ReadSeeds(argv[2]);
  const std::string_view number = argv[3];
  int count = 0;
  std::from_chars(number.data(), number.data() + number.size(), count);
  if (words.empty() || seeds.empty() || count <= 0) {
    std::fprintf(stderr, "There are no words, no seeds, or there is nothing to do.\n");
    return 2;
  }
  for (const int signal : {SIGABRT, SIGSEGV, SIGFPE})
    std::signal(signal, ShowText);
  LLVMFuzzerInitialize(&argc, &argv);
  for (const auto& seed : seeds)
    Feed(seed);
  TRandomTexts texts(words, seeds);
  for (int i = 0; i < count; ++i)
    Feed(texts.Next());
  std::printf("%zu seeds and %d texts\n", seeds.size(), count);
}
