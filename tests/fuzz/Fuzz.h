#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

/// What a fuzz target defines: one file, one target.
namespace Fuzz {

/// Called once, before the first text.
void Start(int& argc, char** argv);

/// Feeds `text`, any bytes, to what is tested; does not return where it does wrong.
void Check(const std::string& text);

/// Ends the program, so that the fuzzer keeps the text that led here.
[[noreturn]] inline void Fail(const char* what, const std::string& first = {},
                              const std::string& second = {}) {
  std::fprintf(stderr, "%s: <%s> and <%s>\n", what, first.c_str(), second.c_str());
  std::abort();
}

inline void Expect(bool isTrue, const char* what, const std::string& first = {},
                   const std::string& second = {}) {
  if (!isTrue)
    Fail(what, first, second);
}

} // namespace Fuzz
