# How every folder becomes a target: same language level, warnings and precompiled header everywhere.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
include_directories("${CMAKE_SOURCE_DIR}")
# Nobody replaces functions of the shared library from outside, so that they may be inlined within it.
add_compile_options(-fno-semantic-interposition)

find_program(ZOR_MOLD mold)
if(ZOR_MOLD)
    add_link_options(-fuse-ld=mold)
endif()

set(ZOR_SANITIZER "" CACHE STRING "address (with undefined), fuzzer (the same for libFuzzer), thread, or empty")
# Several sources in one compilation: half the time of a clean build. Neighbours' local names then seem to shadow each
# other, and the optimiser sees uninitialised values that are none.
option(ZOR_UNITY "Compile several sources at once" ON)
if(ZOR_UNITY)
    set(CMAKE_UNITY_BUILD ON)
    set(CMAKE_UNITY_BUILD_BATCH_SIZE 8)
    add_compile_options(-Wno-shadow $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>
                        $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
endif()
if(ZOR_SANITIZER STREQUAL "address" OR ZOR_SANITIZER STREQUAL "fuzzer")
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
if(ZOR_SANITIZER STREQUAL "fuzzer")
    add_compile_options(-fsanitize=fuzzer-no-link)
elseif(ZOR_SANITIZER STREQUAL "thread")
    # Its instrumentation makes gcc see short texts copied beyond their ends.
    add_compile_options(-fsanitize=thread -fno-omit-frame-pointer $<$<CXX_COMPILER_ID:GNU>:-Wno-array-bounds>
                        $<$<CXX_COMPILER_ID:GNU>:-Wno-stringop-overread>)
    add_link_options(-fsanitize=thread)
endif()

# zor_sources(VARIABLE FOLDER...): the sources of these folders.
function(zor_sources variable)
    set(found "")
    foreach(folder IN LISTS ARGN)
        file(GLOB sources CONFIGURE_DEPENDS "${folder}/*.cpp")
        list(APPEND found ${sources})
    endforeach()
    # Their local names are those of neighbours too.
    set(alone ${found})
    list(FILTER alone INCLUDE REGEX "(Command|ArchivedClasses|ZORLinearGaugeView|GaugeCompass|Fronts|Sun|WeatherModel\
|QtDrawingContext|KeyedUnarchiverRefusalTest|AgentTest|HistoryTest|PropertyTest|PlotViewTest|InstrumentSettingsTest\
|WeatherModelTest|WeewxStationTest)\\.cpp$")
    set_source_files_properties(${alone} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
    set(${variable} ${found} PARENT_SCOPE)
endfunction()

# zor_precompile(TARGET): the standard headers that nearly every file needs.
function(zor_precompile target)
    target_precompile_headers(${target} PRIVATE <algorithm> <functional> <map> <memory> <optional> <string>
                              <string_view> <variant> <vector>)
endfunction()

# zor_quick_allocator(TARGET): a program that makes and lets go of many small objects, with an allocator that is a fifth
# to a third quicker at it. The sanitizers bring their own.
function(zor_quick_allocator target)
    if(NOT ZOR_SANITIZER)
        target_link_libraries(${target} PRIVATE -Wl,--push-state,--no-as-needed tcmalloc_minimal -Wl,--pop-state)
    endif()
endfunction()

# zor_tests(NAME FOLDER LIBRARY...): one GoogleTest program for a folder of tests, each test known to CTest.
function(zor_tests name folder)
    zor_sources(sources "${CMAKE_CURRENT_SOURCE_DIR}/${folder}")
    if(NOT sources)
        return()
    endif()
    add_executable(${name} ${sources})
    target_link_libraries(${name} PRIVATE ${ARGN} GTest::gmock GTest::gtest GTest::gtest_main)
    target_precompile_headers(${name} PRIVATE <gtest/gtest.h> <memory> <string> <vector>)
    # What is tested is optimised; the tests are compiled twice as fast without. The thread sanitizer counts frames, and
    # deep structures would have too many.
    if(NOT ZOR_SANITIZER STREQUAL "thread")
        target_compile_options(${name} PRIVATE -O0)
    endif()
    add_test(NAME ${name} COMMAND ${name} --gtest_brief=1)
    set_tests_properties(${name} PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen" LABELS unit)
    if(NOT TARGET unit_tests)
        add_custom_target(unit_tests)
    endif()
    add_dependencies(unit_tests ${name})
endfunction()
