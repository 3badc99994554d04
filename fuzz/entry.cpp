// How libFuzzer, or a replay, reaches a target.

#include "input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  fuzz::Run(input);
  return 0;
}
