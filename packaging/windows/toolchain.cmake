# Velarda, a card game of the Scopa family.
# SPDX-License-Identifier: MIT

# Builds for 64-bit Windows 10 and later on Debian. Programs that run while building are this
# machine's, all else comes from the compiler's folder and from those in CMAKE_PREFIX_PATH.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_VERSION 10.0)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

# The variant with POSIX threads is the one that has std::thread.
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# Of the time of building nothing is written into a program: the same sources give the same bytes.
foreach(kind EXE SHARED MODULE)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT "-Wl,--no-insert-timestamp")
endforeach()
foreach(language C CXX)
  set(CMAKE_${language}_FLAGS_INIT "-D_WIN32_WINNT=0x0A00")
endforeach()

set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 ${VELARDA_WINDOWS_PREFIX})
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES VELARDA_WINDOWS_PREFIX)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Tests are run under Wine, in a locale in which it finds folders of any name. Debian's leaves a
# folder in TMPDIR for ever.
set(CMAKE_CROSSCOMPILING_EMULATOR env LC_ALL=C.UTF-8 "TMPDIR=${CMAKE_BINARY_DIR}" wine)
