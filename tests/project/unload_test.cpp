// A host may load the library, use it and unload it again: nothing may pin it in memory.

#include <dlfcn.h>

#include <cstdio>

int main(int, char** arguments) {
  const char* const path = arguments[1];
  void* const library = dlopen(path, RTLD_NOW);
  void* const symbol = library != nullptr ? dlsym(library, "_Z9geom_Initv") : nullptr;
  if (symbol == nullptr) {
    std::fprintf(stderr, "cannot load: %s\n", dlerror());
    return 1;
  }
  reinterpret_cast<void (*)()>(symbol)();
  dlclose(library);
  if (dlopen(path, RTLD_NOW | RTLD_NOLOAD) != nullptr) {
    std::fprintf(stderr, "%s stays in memory\n", path);
    return 1;
  }
  return 0;
}
