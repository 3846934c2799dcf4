// Linux only, linked into DRAV.xpl alone (outside the core, so not into the tests): keeps the
// plug-in loadable on older distributions than the one it is built on.
//
// libstdc++ and libgcc are linked in statically, so the only shared library the plug-in needs is
// glibc, and glibc's symbol versions decide which systems can load it. The build machine's
// libstdc++.a and libgcc_eh.a call a few functions by versions newer than the floor that
// docs/install.md states. The link wraps exactly those names (-Wl,--wrap=NAME, cmake/GlibcFloor.cmake),
// and each __wrap_NAME below calls the same function by the older version every glibc since still
// exports, or does the job with older functions where no older version exists. The ctest
// smoke.glibc_floor reads the installed plug-in's symbol versions and fails when one is above the
// stated floor.
#include <dlfcn.h>
#include <link.h>
#include <pthread.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <ctime>

// Declares OLD as NAME@VERSION: calls of OLD bind to that version of NAME.
#define DRAV_OLD_VERSION(old, name, version) __asm__(".symver " #old ", " #name "@" #version)

extern "C" {

// libstdc++ skips atomic reference counting while this says the process has one thread. It only
// appeared in glibc 2.32; a plug-in always shares its process with the simulator's threads, so the
// answer is always "no", and the counters stay atomic.
__attribute__((visibility("hidden"))) char __libc_single_threaded = 0;

// ---- the threads API: moved into libc with new versions in 2.34; the old ones are still there ------
int drav_old_pthread_create(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*);
int drav_old_pthread_join(pthread_t, void**);
int drav_old_pthread_detach(pthread_t);
int drav_old_pthread_once(pthread_once_t*, void (*)());
int drav_old_pthread_key_create(pthread_key_t*, void (*)(void*));
int drav_old___pthread_key_create(pthread_key_t*, void (*)(void*));
int drav_old_pthread_key_delete(pthread_key_t);
void* drav_old_pthread_getspecific(pthread_key_t);
int drav_old_pthread_setspecific(pthread_key_t, const void*);
int drav_old_pthread_rwlock_rdlock(pthread_rwlock_t*);
int drav_old_pthread_rwlock_wrlock(pthread_rwlock_t*);
int drav_old_pthread_rwlock_unlock(pthread_rwlock_t*);
int drav_old_pthread_mutex_trylock(pthread_mutex_t*);
int drav_old_pthread_cond_clockwait(pthread_cond_t*, pthread_mutex_t*, clockid_t, const timespec*);
DRAV_OLD_VERSION(drav_old_pthread_create, pthread_create, GLIBC_2.2.5);
DRAV_OLD_VERSION(drav_old_pthread_join, pthread_join, GLIBC_2.2.5);
DRAV_OLD_VERSION(drav_old_pthread_detach, pthread_detach, GLIBC_2.2.5);
DRAV_OLD_VERSION(drav_old_pthread_once, pthread_once, GLIBC_2.2.5);
DRAV_OLD_VERSION(drav_old_pthread_key_create, pthread_key_create, GLIBC_2.2.5);
DRAV_OLD_VERSION(drav_old___pthread_key_create, __pthread_key_create, GLIBC_2.2.5);
DRAV_OLD_VERSION(drav_old_pthread_key_delete, pthread_key_delete, GLIBC_2.2.5);
DRAV_OLD_VERSION(drav_old_pthread_getspecific, pthread_getspecific, GLIBC_2.2.5);
DRAV_OLD_VERSION(drav_old_pthread_setspecific, pthread_setspecific, GLIBC_2.2.5);
DRAV_OLD_VERSION(drav_old_pthread_rwlock_rdlock, pthread_rwlock_rdlock, GLIBC_2.2.5);
DRAV_OLD_VERSION(drav_old_pthread_rwlock_wrlock, pthread_rwlock_wrlock, GLIBC_2.2.5);
DRAV_OLD_VERSION(drav_old_pthread_rwlock_unlock, pthread_rwlock_unlock, GLIBC_2.2.5);
DRAV_OLD_VERSION(drav_old_pthread_mutex_trylock, pthread_mutex_trylock, GLIBC_2.2.5);
DRAV_OLD_VERSION(drav_old_pthread_cond_clockwait, pthread_cond_clockwait, GLIBC_2.30);

int __wrap_pthread_create(pthread_t* thread, const pthread_attr_t* attr, void* (*start)(void*), void* arg) {
  return drav_old_pthread_create(thread, attr, start, arg);
}
int __wrap_pthread_join(pthread_t thread, void** result) { return drav_old_pthread_join(thread, result); }
int __wrap_pthread_detach(pthread_t thread) { return drav_old_pthread_detach(thread); }
int __wrap_pthread_once(pthread_once_t* once, void (*init)()) { return drav_old_pthread_once(once, init); }
int __wrap_pthread_key_create(pthread_key_t* key, void (*destructor)(void*)) {
  return drav_old_pthread_key_create(key, destructor);
}
int __wrap___pthread_key_create(pthread_key_t* key, void (*destructor)(void*)) {
  return drav_old___pthread_key_create(key, destructor);
}
int __wrap_pthread_key_delete(pthread_key_t key) { return drav_old_pthread_key_delete(key); }
void* __wrap_pthread_getspecific(pthread_key_t key) { return drav_old_pthread_getspecific(key); }
int __wrap_pthread_setspecific(pthread_key_t key, const void* value) {
  return drav_old_pthread_setspecific(key, value);
}
int __wrap_pthread_rwlock_rdlock(pthread_rwlock_t* lock) { return drav_old_pthread_rwlock_rdlock(lock); }
int __wrap_pthread_rwlock_wrlock(pthread_rwlock_t* lock) { return drav_old_pthread_rwlock_wrlock(lock); }
int __wrap_pthread_rwlock_unlock(pthread_rwlock_t* lock) { return drav_old_pthread_rwlock_unlock(lock); }
int __wrap_pthread_mutex_trylock(pthread_mutex_t* mutex) { return drav_old_pthread_mutex_trylock(mutex); }
int __wrap_pthread_cond_clockwait(pthread_cond_t* cond, pthread_mutex_t* mutex, clockid_t clock,
                                  const timespec* until) {
  return drav_old_pthread_cond_clockwait(cond, mutex, clock, until);
}

// ---- stat: real functions only since 2.33; before, the header turned them into __xstat calls ---------
constexpr int kStatVersion = 1;  // _STAT_VER_LINUX on x86-64
int drav_old_xstat(int, const char*, struct stat*);
int drav_old_lxstat(int, const char*, struct stat*);
int drav_old_fxstat64(int, int, struct stat64*);
DRAV_OLD_VERSION(drav_old_xstat, __xstat, GLIBC_2.2.5);
DRAV_OLD_VERSION(drav_old_lxstat, __lxstat, GLIBC_2.2.5);
DRAV_OLD_VERSION(drav_old_fxstat64, __fxstat64, GLIBC_2.2.5);

int __wrap_stat(const char* path, struct stat* out) { return drav_old_xstat(kStatVersion, path, out); }
int __wrap_lstat(const char* path, struct stat* out) { return drav_old_lxstat(kStatVersion, path, out); }
int __wrap_fstat64(int fd, struct stat64* out) { return drav_old_fxstat64(kStatVersion, fd, out); }

// ---- arc4random (2.36): std::random_device's default source; getentropy (2.25) gives the same -----
std::uint32_t __wrap_arc4random() {
  std::uint32_t value = 0;
  while (getentropy(&value, sizeof value) != 0 && errno == EINTR) {
  }
  return value;
}

// ---- _dl_find_object (2.35): the unwinder's way to find a frame's unwind tables. The same answer ---
// comes from dl_iterate_phdr: the object whose loaded segments hold the address, and its
// PT_GNU_EH_FRAME segment.
struct FindObjectQuery {
  std::uintptr_t address;
  dl_find_object* out;
  bool found;
};

int FindObjectOfAddress(dl_phdr_info* info, std::size_t, void* data) {
  auto* query = static_cast<FindObjectQuery*>(data);
  std::uintptr_t start = UINTPTR_MAX;
  std::uintptr_t end = 0;
  bool holds = false;
  void* ehFrame = nullptr;
  for (int i = 0; i < info->dlpi_phnum; ++i) {
    const ElfW(Phdr)& segment = info->dlpi_phdr[i];
    const std::uintptr_t first = info->dlpi_addr + segment.p_vaddr;
    if (segment.p_type == PT_GNU_EH_FRAME) ehFrame = reinterpret_cast<void*>(first);
    if (segment.p_type != PT_LOAD) continue;
    if (first < start) start = first;
    if (first + segment.p_memsz > end) end = first + segment.p_memsz;
    if (query->address >= first && query->address < first + segment.p_memsz) holds = true;
  }
  if (!holds) return 0;
  *query->out = dl_find_object{};
  query->out->dlfo_map_start = reinterpret_cast<void*>(start);
  query->out->dlfo_map_end = reinterpret_cast<void*>(end);
  query->out->dlfo_eh_frame = ehFrame;
  query->found = ehFrame != nullptr;
  return 1;
}

int __wrap__dl_find_object(void* address, dl_find_object* out) {
  FindObjectQuery query{reinterpret_cast<std::uintptr_t>(address), out, false};
  dl_iterate_phdr(FindObjectOfAddress, &query);
  return query.found ? 0 : -1;
}

}  // extern "C"
