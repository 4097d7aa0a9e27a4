# The kinds of target that the tree is made of. A module's headers are seen only by what links the module: each module
# is given an include root of its own in the build tree, which holds nothing but a link to the module's folder. So an
# include that the layers forbid does not compile.

add_library(tessary_build_options INTERFACE)
target_compile_options(tessary_build_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast -Wcast-qual
  -Wnon-virtual-dtor -Woverloaded-virtual -Wformat=2 -Wimplicit-fallthrough -Wundef
  # g++ 12 reports overlapping copies inside std::string's operator+ that do not exist (PR 105651).
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>
  # std::stable_sort of libstdc++ 12 calls a function that it deprecates itself. clang blames us; g++, which goes on
  # reporting what is deprecated in our own calls, does not.
  $<$<CXX_COMPILER_ID:Clang>:-Wno-deprecated-declarations>)
if(TESSARY_SANITIZERS)
  target_compile_options(tessary_build_options INTERFACE
    -fsanitize=${TESSARY_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(tessary_build_options INTERFACE -fsanitize=${TESSARY_SANITIZERS})
endif()
if(TESSARY_BUILD_FUZZERS)
  # Coverage feedback for all code; only the fuzz targets themselves link the fuzzer's entry.
  target_compile_options(tessary_build_options INTERFACE -fsanitize=fuzzer-no-link)
  target_link_options(tessary_build_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# tessary_include_root(<target> <Name>): gives the target, and all that links it, the headers of the current folder as
# "Tessary<Name>/...", and none beside them.
function(tessary_include_root target name)
  set(include_root "${PROJECT_BINARY_DIR}/include/${name}")
  file(MAKE_DIRECTORY "${include_root}")
  file(CREATE_LINK "${CMAKE_CURRENT_SOURCE_DIR}" "${include_root}/Tessary${name}" SYMBOLIC)
  target_include_directories(${target} PUBLIC "$<BUILD_INTERFACE:${include_root}>")
endfunction()

# tessary_module(<Name>): the static library Tessary<Name>, alias Tessary::<Name>, from the current folder.
# Its rooms add their files with target_sources(Tessary<Name> PRIVATE ...).
function(tessary_module name)
  set(target Tessary${name})
  add_library(${target} STATIC)
  add_library(Tessary::${name} ALIAS ${target})
  tessary_include_root(${target} ${name})
  target_include_directories(${target} PUBLIC "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>")
  target_compile_features(${target} PUBLIC cxx_std_23)
  target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:tessary_build_options>)
  set_target_properties(${target} PROPERTIES EXPORT_NAME ${name})
endfunction()

# tessary_test(<Name> SOURCES ... LINK ... [LABEL long] [DEPENDS ...] [DEFINITIONS ...]): one GoogleTest executable;
# every test of it is a test of CTest. The label "long" marks tests that take seconds in a development build, so that a
# quick run can leave them out. DEPENDS names targets that the tests run.
function(tessary_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "LABEL" "SOURCES;LINK;DEPENDS;DEFINITIONS")
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE
    tessary_build_options tessary_test_support ${arg_LINK} GTest::gmock GTest::gtest GTest::gtest_main rapidcheck)
  target_compile_definitions(${name} PRIVATE
    TESSARY_TEST_VECTORS="${PROJECT_SOURCE_DIR}/tests/vectors" ${arg_DEFINITIONS})
  if(arg_DEPENDS)
    add_dependencies(${name} ${arg_DEPENDS})
  endif()
  include(GoogleTest)
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 600 LABELS "${arg_LABEL}")
endfunction()

# tessary_fuzz_target(<Name> LINK ... [SOURCES ...]): <Name>.cpp in the current folder defines LLVMFuzzerTestOneInput;
# its corpus is the folder corpus/<Name> beside it. With libFuzzer the target fuzzes; in every other build it replays its
# corpus as a test, so that what was once found stays found. It may use what tests share, "support/...".
function(tessary_fuzz_target name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LINK;SOURCES")
  add_executable(${name} ${name}.cpp ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE tessary_build_options ${arg_LINK})
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
  set(corpus "${CMAKE_CURRENT_SOURCE_DIR}/corpus/${name}")
  if(TESSARY_BUILD_FUZZERS)
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
    set_property(GLOBAL APPEND PROPERTY TESSARY_FUZZ_TARGETS "${name}=${corpus}")
  else()
    target_sources(${name} PRIVATE "${PROJECT_SOURCE_DIR}/fuzz/CorpusReplay.cpp")
    add_test(NAME ${name}.Corpus COMMAND ${name} "${corpus}")
  endif()
endfunction()

# tessary_benchmark(<Name> SOURCES ... LINK ... [DEFINITIONS ...]): one Google Benchmark executable.
function(tessary_benchmark name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINK;DEFINITIONS")
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE tessary_build_options ${arg_LINK} benchmark::benchmark benchmark::benchmark_main)
  target_compile_definitions(${name} PRIVATE ${arg_DEFINITIONS})
endfunction()
