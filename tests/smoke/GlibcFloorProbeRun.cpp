// Loads the probe module and runs it: 63 when every check passed (one bit each).
#include <dlfcn.h>

#include <cstdio>

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  void* module = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
  if (module == nullptr) {
    std::printf("FAIL: %s\n", dlerror());
    return 1;
  }
  using Probe = int (*)(const char*);
  auto probe = reinterpret_cast<Probe>(dlsym(module, "RunGlibcFloorProbe"));
  const int answer = probe != nullptr ? probe(argv[1]) : 0;
  std::printf("%s: probe answered %d of 63\n", answer == 63 ? "ok" : "FAIL", answer);
  return answer == 63 ? 0 : 1;
}
