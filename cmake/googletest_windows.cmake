# Builds GoogleTest for a Windows compiler from Debian's sources (package googletest), because Debian has no package of
# it that is already built for Windows.
set(googletest /usr/src/googletest)
if(NOT EXISTS ${googletest}/googletest/src/gtest-all.cc)
  message(FATAL_ERROR "${googletest} is missing; scripts/bootstrap.sh test installs it")
endif()

add_library(gmock_main STATIC ${googletest}/googletest/src/gtest-all.cc ${googletest}/googlemock/src/gmock-all.cc
                              ${googletest}/googlemock/src/gmock_main.cc
                              ${CMAKE_SOURCE_DIR}/host/win32/threads.cpp)
target_include_directories(gmock_main SYSTEM PUBLIC ${googletest}/googletest/include ${googletest}/googlemock/include
                                             PRIVATE ${googletest}/googletest ${googletest}/googlemock)
target_compile_definitions(gmock_main PUBLIC GTEST_HAS_PTHREAD=0)
target_compile_options(gmock_main PUBLIC -include ${CMAKE_SOURCE_DIR}/tests/support/win32/std_threads.h PRIVATE -w -O0)
add_library(GTest::gmock_main ALIAS gmock_main)
