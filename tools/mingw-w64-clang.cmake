# Clang for the target of mingw-w64.cmake, with GCC's C++ library, the run-time of mingw-w64 and GNU's linker. LLVM's
# linker puts the addresses of delay-loaded routines into read-only memory. GNU's reports each type description that
# clang and the library both have ("duplicate section"), which is harmless.
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64.cmake)
set(CMAKE_C_COMPILER clang)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_C_COMPILER_TARGET x86_64-w64-mingw32)
set(CMAKE_CXX_COMPILER_TARGET x86_64-w64-mingw32)
# LLVM's tool of this name makes no libraries for delayed loading.
set(CMAKE_DLLTOOL x86_64-w64-mingw32-dlltool)
# Clang doesn't find Debian's folder of the GCC with posix threads, because its name isn't a plain version.
file(GLOB gcc /usr/lib/gcc/x86_64-w64-mingw32/*-posix)
set(CMAKE_CXX_STANDARD_INCLUDE_DIRECTORIES
  ${gcc}/include/c++ ${gcc}/include/c++/x86_64-w64-mingw32 ${gcc}/include/c++/backward)
# GCC's C++ library needs winpthreads. GCC links it without being asked, and clang doesn't.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-L${gcc} -pthread")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "-L${gcc} -pthread")
