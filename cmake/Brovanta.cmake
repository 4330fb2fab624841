# What every target of the project has in common, said once.

add_library(brovanta_flags INTERFACE)
target_compile_options(brovanta_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor -Werror)
target_include_directories(brovanta_flags INTERFACE "${CMAKE_SOURCE_DIR}")
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  target_compile_options(brovanta_flags INTERFACE -Wthread-safety)
endif()
if(BROVANTA_SANITIZE)
  target_compile_options(brovanta_flags INTERFACE
    -fsanitize=${BROVANTA_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(brovanta_flags INTERFACE -fsanitize=${BROVANTA_SANITIZE})
endif()

if(BROVANTA_FUZZ)
  # The fuzzer is steered by what its inputs reach, in the libraries above all.
  target_compile_options(brovanta_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()

# brovanta_library(NAME SOURCES file... LINK target...)
# One static library per folder; LINK names the only libraries it may use.
function(brovanta_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  if(NOT ARG_SOURCES)
    add_library(${name} INTERFACE)
    target_link_libraries(${name} INTERFACE brovanta_flags ${ARG_LINK})
    return()
  endif()
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC brovanta_flags ${ARG_LINK})
endfunction()

# Lets moc and uic look at all sources again when one was added or removed. They would look only
# when one that they know changes, and miss a new one in an existing build folder.
function(brovanta_follow_sources name)
  get_target_property(sources ${name} SOURCES)
  set(list "${CMAKE_CURRENT_BINARY_DIR}/${name}_sources.txt")
  set(before "")
  if(EXISTS "${list}")
    file(READ "${list}" before)
  endif()
  if(NOT before STREQUAL sources)
    file(REMOVE "${CMAKE_CURRENT_BINARY_DIR}/${name}_autogen/timestamp")
    file(WRITE "${list}" "${sources}")
  endif()
endfunction()

# brovanta_qt_library(...): the same for a library of screens.
function(brovanta_qt_library name)
  brovanta_library(${name} ${ARGN})
  get_target_property(type ${name} TYPE)
  if(type STREQUAL "INTERFACE_LIBRARY")
    return()
  endif()
  # A form lies in another folder than its user: without the dependency, a changed one is not seen.
  file(GLOB forms CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/res/*.ui")
  set_target_properties(${name} PROPERTIES AUTOMOC ON AUTOUIC ON AUTORCC ON
    AUTOUIC_SEARCH_PATHS "${CMAKE_SOURCE_DIR}/res" AUTOGEN_TARGET_DEPENDS "${forms}")
  brovanta_follow_sources(${name})
  target_compile_definitions(${name} PUBLIC QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII
    QT_NO_CAST_TO_ASCII)
endfunction()

# brovanta_test(NAME SOURCES file... LINK target... [QT] [FIXTURE fixture])
# One test program per folder; CTest runs each of its cases as a process of its own, after what sets the fixture up.
function(brovanta_test name)
  cmake_parse_arguments(ARG "QT" "FIXTURE" "SOURCES;LINK" ${ARGN})
  if(NOT ARG_SOURCES)
    return()
  endif()
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE brovanta_test_support ${ARG_LINK} GTest::gtest GTest::gmock)
  set(environment "TZ=UTC")
  if(ARG_QT)
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    brovanta_follow_sources(${name})
    target_link_libraries(${name} PRIVATE brovanta_qt_test_main Qt6::Test)
    list(APPEND environment "QT_QPA_PLATFORM=offscreen" "QT_ACCESSIBILITY=1")
  else()
    target_link_libraries(${name} PRIVATE GTest::gtest_main)
  endif()
  set(properties ENVIRONMENT "${environment}" TIMEOUT 120)
  if(ARG_FIXTURE)
    list(APPEND properties FIXTURES_REQUIRED ${ARG_FIXTURE})
  endif()
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
    PROPERTIES ${properties})
endfunction()
