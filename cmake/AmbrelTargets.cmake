# Flags that every target of ours shares, and the few functions that declare targets.

add_library(ambrel_flags INTERFACE)
target_include_directories(ambrel_flags INTERFACE ${PROJECT_SOURCE_DIR})
# g++ 12 reports "x" + std::string as overlapping copies at -O3.
target_compile_options(ambrel_flags INTERFACE -Wall -Wextra
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>
  $<$<BOOL:${AMBREL_WERROR}>:-Werror>)
if(AMBREL_SANITIZE)
  list(JOIN AMBREL_SANITIZE "," _sanitizers)
  target_compile_options(ambrel_flags INTERFACE -fsanitize=${_sanitizers} -fno-omit-frame-pointer -g)
  target_link_options(ambrel_flags INTERFACE -fsanitize=${_sanitizers})
endif()
if(AMBREL_FUZZ)
  target_compile_options(ambrel_flags INTERFACE -fsanitize=fuzzer-no-link,address,undefined -fno-omit-frame-pointer)
  target_link_options(ambrel_flags INTERFACE -fsanitize=address,undefined)
endif()

# Stricter flags for code that includes no Qt: Qt's headers and generated code do not pass them.
add_library(ambrel_strict INTERFACE)
target_link_libraries(ambrel_strict INTERFACE ambrel_flags)
target_compile_options(ambrel_strict INTERFACE -Wpedantic -Wshadow -Wnon-virtual-dtor -Wextra-semi)

# ambrel_core_library(NAME SOURCES... [LINK PUBLIC_LIBRARIES...] [PRIVATE PRIVATE_LIBRARIES...])
function(ambrel_core_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK;PRIVATE" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC ${ARG_LINK} PRIVATE ambrel_strict ${ARG_PRIVATE})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
endfunction()

# A GoogleTest program of the core. Paths to the test data come as AMBREL_CASES.
# ambrel_core_test(NAME SOURCES... LINK...)
function(ambrel_core_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ambrel_strict ${ARG_LINK} GTest::gmock GTest::gtest_main)
  target_compile_definitions(${name} PRIVATE AMBREL_CASES="${PROJECT_SOURCE_DIR}/tests/cases")
  add_test(NAME ${name} COMMAND ${name} --gtest_brief=1)
  set_tests_properties(${name} PROPERTIES ENVIRONMENT "LC_ALL=C.UTF-8;TZ=UTC")
endfunction()

# A QTest program, run without a display. One test class a source file, which includes its own .moc.
# ambrel_qt_test(NAME SOURCES... LINK...)
function(ambrel_qt_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  qt_add_executable(${name} ${ARG_SOURCES})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_link_libraries(${name} PRIVATE ambrel_flags ${ARG_LINK} Qt6::Test)
  target_compile_definitions(${name} PRIVATE AMBREL_CASES="${PROJECT_SOURCE_DIR}/tests/cases")
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES ENVIRONMENT
    "QT_QPA_PLATFORM=offscreen;QT_QUICK_BACKEND=software;LC_ALL=C.UTF-8;TZ=UTC")
endfunction()
