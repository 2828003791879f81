# Cross-builds for 64-bit Windows with mingw-w64, against the dependencies that packaging/windows/build-stack has
# built. ZANVEL_WINDOWS_STACK names their folder, as a variable of CMake or of the environment.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(triplet x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${triplet}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triplet}-g++-posix)
set(CMAKE_RC_COMPILER ${triplet}-windres)
set(CMAKE_CROSSCOMPILING_EMULATOR wine)

if(NOT ZANVEL_WINDOWS_STACK)
    if(DEFINED ENV{ZANVEL_WINDOWS_STACK})
        set(ZANVEL_WINDOWS_STACK $ENV{ZANVEL_WINDOWS_STACK})
    elseif(DEFINED ENV{XDG_CACHE_HOME})
        set(ZANVEL_WINDOWS_STACK $ENV{XDG_CACHE_HOME}/windows-stack/stack)
    else()
        set(ZANVEL_WINDOWS_STACK $ENV{HOME}/.cache/windows-stack/stack)
    endif()
endif()
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ZANVEL_WINDOWS_STACK)

set(library_folders ${ZANVEL_WINDOWS_STACK}/lib ${ZANVEL_WINDOWS_STACK}/share /usr/${triplet}/lib)
list(TRANSFORM library_folders APPEND /pkgconfig)
list(JOIN library_folders : library_folders)
set(ENV{PKG_CONFIG_LIBDIR} ${library_folders})
set(CMAKE_FIND_ROOT_PATH ${ZANVEL_WINDOWS_STACK} /usr/${triplet})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Wine keeps the root folder of this system on a drive of its own; the tests' paths begin with it.
set(ZANVEL_BUILD_DRIVE Z:)
