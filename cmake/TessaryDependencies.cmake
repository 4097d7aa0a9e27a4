# Every library that the system links, found in one place. scripts/setup installs the packages that hold them.

find_package(PkgConfig REQUIRED)
find_package(ICU 72 REQUIRED COMPONENTS uc i18n data)
find_package(simdjson 3.0.1 REQUIRED)
find_package(Boost 1.81 REQUIRED COMPONENTS url)
find_package(Threads REQUIRED)
pkg_check_modules(JavaScriptCore REQUIRED IMPORTED_TARGET javascriptcoregtk-4.1)

# Tests are the only part that a machine may go without: a plain build needs no test library.
if(TESSARY_BUILD_TESTS)
  find_package(GTest QUIET)
  find_package(rapidcheck QUIET)
  if(NOT GTest_FOUND OR NOT rapidcheck_FOUND)
    if(TESSARY_REQUIRE_ALL)
      message(FATAL_ERROR "GoogleTest or RapidCheck is missing; scripts/setup installs both")
    endif()
    message(STATUS "GoogleTest or RapidCheck is missing: the tests are left out")
    set(TESSARY_BUILD_TESTS OFF)
  endif()
endif()

if(TESSARY_BUILD_BENCHMARKS)
  find_package(benchmark REQUIRED)
endif()
