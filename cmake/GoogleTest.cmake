# Gives GTest::gtest: the installed library, or one made of the sources that Debian's package googletest holds,
# for systems that are only cross-built for.

find_package(GTest QUIET)
if(NOT TARGET GTest::gtest)
    find_path(ZANVEL_GOOGLETEST src/gtest-all.cc REQUIRED
        PATHS /usr/src/googletest/googletest NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
    add_library(zanvel_googletest STATIC ${ZANVEL_GOOGLETEST}/src/gtest-all.cc)
    target_include_directories(zanvel_googletest SYSTEM PUBLIC ${ZANVEL_GOOGLETEST}/include
                               PRIVATE ${ZANVEL_GOOGLETEST})
    target_compile_options(zanvel_googletest PRIVATE -w)
    add_library(GTest::gtest ALIAS zanvel_googletest)
endif()
