# Linux: a shared object that carries its own C++ runtime and asks glibc for no newer versions than
# the floor that docs/install.md states. libstdc++ and libgcc are linked in statically; the few glibc
# functions they call by versions above the floor are wrapped to older versions
# (src/plugin/linux/GlibcFloor.cpp). libpthread.so.0 is named because before glibc 2.34 the thread
# functions live there, whatever the loading program brought along.
set(DRAV_WRAPPED_GLIBC pthread_create pthread_join pthread_detach pthread_once pthread_key_create
    __pthread_key_create pthread_key_delete pthread_getspecific pthread_setspecific
    pthread_rwlock_rdlock pthread_rwlock_wrlock pthread_rwlock_unlock pthread_mutex_trylock
    pthread_cond_clockwait
    stat lstat fstat64 arc4random _dl_find_object)

function(drav_hold_glibc_floor target)
  target_sources(${target} PRIVATE "${PROJECT_SOURCE_DIR}/src/plugin/linux/GlibcFloor.cpp")
  set(wraps ${DRAV_WRAPPED_GLIBC})
  list(TRANSFORM wraps PREPEND "-Wl,--wrap=")
  target_link_options(${target} PRIVATE -static-libstdc++ -static-libgcc ${wraps})
  target_link_libraries(${target} PRIVATE -Wl,--no-as-needed -l:libpthread.so.0 -Wl,--as-needed)
endfunction()
