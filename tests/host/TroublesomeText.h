#pragma once

#include <random>
#include <string>
#include <vector>

/// Texts of what makes trouble in a comma-separated list.
class TTroublesomeText {
public:
  std::string Next(std::size_t longest) {
    static const std::vector<std::string> pieces = {
        "\"", "\"\"", ",", " ", "\t", "\n", "=", "'", "a", "700", "\u9A30", "\u00E9", "\x01"};
    std::string text;
    for (auto left = random_() % (longest + 1); left > 0; --left)
      text += pieces[random_() % pieces.size()];
    return text;
  }

  std::string NextName(int number) {
    auto name = Next(4) + std::to_string(number);
    std::erase(name, '=');
    return name;
  }

  char NextByte() { return static_cast<char>(random_() % 256); }
  std::size_t Below(std::size_t bound) { return random_() % bound; }

private:
  std::mt19937 random_{20240519};
};
