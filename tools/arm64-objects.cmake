# Clang for Windows on ARM64, for objects only: Debian has no libraries for this target. The headers are those of
# mingw-w64 and of GCC's C++ library for x86-64.
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64-clang.cmake)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_C_COMPILER_TARGET aarch64-w64-mingw32)
set(CMAKE_CXX_COMPILER_TARGET aarch64-w64-mingw32)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
list(APPEND CMAKE_CXX_STANDARD_INCLUDE_DIRECTORIES /usr/share/mingw-w64/include)
set(CMAKE_C_STANDARD_INCLUDE_DIRECTORIES /usr/share/mingw-w64/include)
find_program(windres NAMES llvm-windres llvm-windres-14 REQUIRED)
set(CMAKE_RC_COMPILER ${windres})
set(CMAKE_RC_FLAGS_INIT "--target=aarch64-w64-mingw32 -I/usr/share/mingw-w64/include")
