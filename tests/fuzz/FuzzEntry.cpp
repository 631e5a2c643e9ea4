// How the fuzzer of clang, and RandomTexts in its place, reach a target.

#include "fuzz/Fuzz.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  Fuzz::Start(*argc, *argv);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Fuzz::Check({reinterpret_cast<const char*>(data), size});
  return 0;
}
