#include "input.h"

#include <cstdio>
#include <cstdlib>

namespace fuzz {

void Fail(const char* what, const char* file, int line) {
  std::fprintf(stderr, "%s:%d: %s does not hold\n", file, line, what);
  std::abort();
}

}  // namespace fuzz
