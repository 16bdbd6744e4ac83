# Flags that every target of ours shares, and the few functions that declare targets.

add_library(ambrel_flags INTERFACE)
target_include_directories(ambrel_flags INTERFACE ${PROJECT_SOURCE_DIR})
# "signals" and "emit" are words of ours too.
target_compile_definitions(ambrel_flags INTERFACE QT_NO_KEYWORDS)
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

# Tests are built more often than they run for long. Programs and libraries use one set of precompiled headers, which
# asks for one kind of code.
add_library(ambrel_quick_build INTERFACE)
target_compile_options(ambrel_quick_build INTERFACE -fPIC)
if(NOT AMBREL_SANITIZE)
  target_compile_options(ambrel_quick_build INTERFACE -O0)
endif()

# Headers that are parsed once for all targets that name their set: that takes longer than the rest of most files.
# ambrel_precompiled_headers(NAME HEADERS... LINK LIBRARIES...)
function(ambrel_precompiled_headers name)
  cmake_parse_arguments(ARG "" "" "HEADERS;LINK" ${ARGN})
  set(headers <algorithm> <filesystem> <functional> <map> <memory> <optional> <set> <string> <variant> <vector> ${ARG_HEADERS})
  if(NOT AMBREL_PRECOMPILE)
    list(TRANSFORM headers PREPEND "#include ")
    list(JOIN headers "\n" text)
    file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/${name}.h CONTENT "#pragma GCC system_header\n${text}\n")
    return()
  endif()
  add_library(${name} STATIC EXCLUDE_FROM_ALL ${PROJECT_SOURCE_DIR}/cmake/Precompiled.cpp)
  target_link_libraries(${name} PRIVATE ${ARG_LINK})
  target_precompile_headers(${name} PRIVATE ${headers})
  set_target_properties(${name} PROPERTIES AUTOMOC OFF)
endfunction()
# Where they are not precompiled they are included all the same, so that it makes no other program.
function(ambrel_precompile name headers)
  if(TARGET ${headers})
    target_precompile_headers(${name} REUSE_FROM ${headers})
  elseif(EXISTS ${PROJECT_BINARY_DIR}/${headers}.h)
    target_compile_options(${name} PRIVATE "$<$<COMPILE_LANGUAGE:CXX>:SHELL:-include ${PROJECT_BINARY_DIR}/${headers}.h>")
  endif()
endfunction()

# Several sources to a translation unit: what they include is parsed and instantiated once for all of them.
function(ambrel_unity name)
  if(AMBREL_UNITY)
    set_target_properties(${name} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 6)
    # The compiler takes a source in a batch for a header and warns of its unnamed namespace.
    target_compile_options(${name} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
  endif()
endfunction()

# ambrel_core_library(NAME SOURCES... [LINK PUBLIC_LIBRARIES...] [PRIVATE PRIVATE_LIBRARIES...])
function(ambrel_core_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK;PRIVATE" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC ${ARG_LINK} PRIVATE ambrel_strict ${ARG_PRIVATE})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
  ambrel_unity(${name})
endfunction()

# Tests that read the test data are told with CASES where it is, as AMBREL_CASES. The others are compiled alike in every
# checkout, so that a compiler cache serves them all.
function(ambrel_test_data name)
  target_compile_definitions(${name} PRIVATE AMBREL_CASES="${PROJECT_SOURCE_DIR}/tests/cases")
endfunction()

# A GoogleTest program of the core.
# ambrel_core_test(NAME [CASES] SOURCES... LINK...)
function(ambrel_core_test name)
  cmake_parse_arguments(ARG "CASES" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  set_target_properties(${name} PROPERTIES AUTOMOC OFF)
  target_link_libraries(${name} PRIVATE ambrel_strict ambrel_quick_build ${ARG_LINK} GTest::gmock GTest::gtest_main)
  ambrel_precompile(${name} ambrel_core_test_headers)
  if(ARG_CASES)
    ambrel_test_data(${name})
  endif()
  add_test(NAME ${name} COMMAND ${name} --gtest_brief=1)
  set_tests_properties(${name} PROPERTIES ENVIRONMENT "LC_ALL=C.UTF-8;TZ=UTC")
  # Small files by the hundred, each flushed.
  if(IS_DIRECTORY /dev/shm)
    set_property(TEST ${name} APPEND PROPERTY ENVIRONMENT "TMPDIR=/dev/shm")
  endif()
endfunction()

# A QML module: a static library of C++ types and QML files under one URI. Programs and tests that use it link it
# through ambrel_qml_program or ambrel_qt_test, which add the module's plugin as well.
# ambrel_qml_module(NAME URI a.b [QML FILES...] [SOURCES...] [RESOURCES...] [LINK PUBLIC_LIBRARIES...] [PRIVATE...]
#                   [DEPENDS URIS...])  DEPENDS: the modules whose types its own C++ types have as properties
# Without QML, every QML file of the folder belongs to it: the program finds tiles and panels by their files, so a list
# of them would say nothing more.
function(ambrel_qml_module name)
  cmake_parse_arguments(ARG "" "URI" "QML;SOURCES;RESOURCES;LINK;PRIVATE;DEPENDS" ${ARGN})
  string(REPLACE "." "/" _path ${ARG_URI})
  if(NOT ARG_QML)
    file(GLOB ARG_QML RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} CONFIGURE_DEPENDS *.qml)
  endif()
  set(_cache "")
  if(NOT AMBREL_QML_CACHE)
    set(_cache NO_CACHEGEN)
  endif()
  qt_add_library(${name} STATIC)
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  # Without the dependency on QtQuick and the import path, qmllint knows neither painted items nor our other modules.
  qt_add_qml_module(${name}
    URI ${ARG_URI} VERSION 1.0
    DEPENDENCIES QtQuick ${ARG_DEPENDS}
    IMPORT_PATH ${PROJECT_BINARY_DIR}/qml
    RESOURCE_PREFIX /qt/qml
    OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/qml/${_path}
    QML_FILES ${ARG_QML}
    SOURCES ${ARG_SOURCES}
    RESOURCES ${ARG_RESOURCES}
    ${_cache})
  set_target_properties(${name}plugin PROPERTIES AUTOMOC ON)
  # A file of compiled QML is a page of data under a long list of headers: many to a translation unit build several
  # times faster.
  if(NOT AMBREL_UNITY)
    get_target_property(_sources ${name} SOURCES)
    list(FILTER _sources EXCLUDE REGEX "/qmlcache/.*_qml\\.cpp$")
    set_source_files_properties(${_sources} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
  endif()
  ambrel_unity(${name})
  set_target_properties(${name} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 12)
  # The generated type registration includes the module's headers by their bare names.
  target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR} PUBLIC ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PUBLIC ${ARG_LINK} Qt6::Quick PRIVATE ${ARG_PRIVATE})
  # And what Qt adds to each module: a plugin, its registration and a loader of compiled QML.
  foreach(_target ${name} ${name}plugin ${name}plugin_init ${name}_qmlcache)
    if(TARGET ${_target})
      target_link_libraries(${_target} PRIVATE ambrel_flags)
      ambrel_precompile(${_target} ambrel_qt_headers)
    endif()
  endforeach()
endfunction()

# Links QML modules and their plugins to a program; the engine needs addImportPath("qrc:/qt/qml").
function(ambrel_link_qml_modules name)
  foreach(_module IN LISTS ARGN)
    target_link_libraries(${name} PRIVATE ${_module} ${_module}plugin)
  endforeach()
endfunction()

# ambrel_qml_program(NAME SOURCES... MODULES QML_MODULES... LINK LIBRARIES...)
function(ambrel_qml_program name)
  cmake_parse_arguments(ARG "" "" "SOURCES;MODULES;LINK" ${ARGN})
  qt_add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ambrel_flags ${ARG_LINK} Qt6::Quick)
  ambrel_link_qml_modules(${name} ${ARG_MODULES})
endfunction()

# A QTest program, run without a display and without a session bus. One test class a source file, which includes its
# own .moc.
# ambrel_qt_test(NAME [CASES] SOURCES... [LINK LIBRARIES...] [MODULES QML_MODULES...])
function(ambrel_qt_test name)
  cmake_parse_arguments(ARG "CASES" "" "SOURCES;MODULES;LINK" ${ARGN})
  qt_add_executable(${name} ${ARG_SOURCES})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_link_libraries(${name} PRIVATE ambrel_flags ambrel_quick_build ${ARG_LINK} Qt6::Test)
  if(ARG_CASES)
    ambrel_test_data(${name})
  endif()
  ambrel_link_qml_modules(${name} ${ARG_MODULES})
  if(ARG_MODULES)
    ambrel_precompile(${name} ambrel_qt_test_headers)
  endif()
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES ENVIRONMENT
    "QT_QPA_PLATFORM=offscreen;QT_QUICK_BACKEND=software;LC_ALL=C.UTF-8;TZ=UTC;DBUS_SESSION_BUS_ADDRESS=disabled:")
endfunction()
