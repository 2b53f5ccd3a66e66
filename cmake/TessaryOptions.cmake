# Build options and the compiler flags that every target of this project shares.

option(TESSARY_TESTS "Build the tests" ON)
option(TESSARY_BENCHMARKS "Build the benchmarks" OFF)
option(TESSARY_SOAK "Build the soak, a long run on virtual phones" OFF)
option(TESSARY_FUZZ "Build the libFuzzer targets (clang only)" OFF)
option(TESSARY_WERROR "Take warnings for errors" OFF)
option(TESSARY_PCH "Precompile the headers of Qt and of the tests' libraries" OFF)
option(TESSARY_COVERAGE "Measure line coverage" OFF)
# Builds for every day, which precompile headers, go without.
if(TESSARY_PCH)
    option(TESSARY_HARDENING "Have the compiler and the linker guard against broken memory" OFF)
else()
    option(TESSARY_HARDENING "Have the compiler and the linker guard against broken memory" ON)
endif()
# Without them the program offers neither a check for updates nor a page.
set(TESSARY_UPDATE_ENDPOINT "" CACHE STRING
    "The server that announces updates, at /tessary/version.json")
set(TESSARY_HOMEPAGE "" CACHE STRING "The product's homepage")
set(TESSARY_SANITIZE "" CACHE STRING "Sanitizers, as -fsanitize= takes them")

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(TESSARY_CCACHE ccache)
if(TESSARY_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    # Precompiled headers are told apart by what tessary_precompile() writes beside them.
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_PCH_EXTSUM=true
        CCACHE_SLOPPINESS=pch_defines,time_macros ${TESSARY_CCACHE})
endif()
find_program(TESSARY_MOLD mold)
if(TESSARY_MOLD AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND NOT CMAKE_INTERPROCEDURAL_OPTIMIZATION)
    add_link_options(-fuse-ld=mold)
endif()

add_library(tessary_flags INTERFACE)
target_compile_options(tessary_flags INTERFACE
    -Wall -Wextra -Wconversion -Wshadow)
if(TESSARY_WERROR)
    target_compile_options(tessary_flags INTERFACE -Werror)
endif()
target_compile_definitions(tessary_flags INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS
    _REENTRANT) # as some libraries ask for: a precompiled header serves all or none
if(TESSARY_SANITIZE)
    target_compile_options(tessary_flags INTERFACE
        -fsanitize=${TESSARY_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(tessary_flags INTERFACE -fsanitize=${TESSARY_SANITIZE})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # With its checks in between GCC 12 takes what std::regex initialises for uninitialised.
        target_compile_options(tessary_flags INTERFACE -Wno-maybe-uninitialized)
    endif()
    if(TESSARY_SANITIZE STREQUAL "thread")
        add_library(tessary_tsan OBJECT ${CMAKE_CURRENT_LIST_DIR}/TsanClone.cpp)
        target_compile_options(tessary_tsan PRIVATE -fsanitize=thread)
        target_sources(tessary_flags INTERFACE $<TARGET_OBJECTS:tessary_tsan>)
    endif()
endif()
if(TESSARY_HARDENING)
    include(TessaryHardening)
endif()
if(TESSARY_COVERAGE)
    # Counted by many threads at a time.
    target_compile_options(tessary_flags INTERFACE --coverage -fprofile-update=atomic)
    target_link_options(tessary_flags INTERFACE --coverage)
endif()
if(TESSARY_FUZZ)
    # Coverage of the libraries, by which libFuzzer finds its way.
    target_compile_options(tessary_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(CMAKE_INTERPROCEDURAL_OPTIMIZATION AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # With everything in one view GCC 12 sees a path in QHash that no call takes.
    target_link_options(tessary_flags INTERFACE -Wno-alloc-size-larger-than)
endif()
if(CMAKE_CXX_CLANG_TIDY)
    # What moc writes into the build folder is not ours to mend; some check has to stay on.
    file(WRITE ${CMAKE_BINARY_DIR}/.clang-tidy "Checks: '-*,misc-definitions-in-headers'\n")
endif()

# tessary_precompile(<name> LIBRARY|PROGRAM <libs>... HEADERS <headers>...)
#
# A precompiled header for targets of one kind, used by those that say
# tessary_use_precompiled(<target> <name>). Libraries and programs differ in how their code is placed,
# so each kind needs its own.
function(tessary_precompile name kind)
    cmake_parse_arguments(arg "" "" "LIBS;HEADERS" ${ARGN})
    if(NOT TESSARY_PCH)
        return()
    endif()
    file(WRITE ${CMAKE_BINARY_DIR}/${name}.cpp "int ${name}();\nint ${name}() { return 0; }\n")
    if(kind STREQUAL "LIBRARY")
        add_library(${name} STATIC ${CMAKE_BINARY_DIR}/${name}.cpp)
    else()
        file(APPEND ${CMAKE_BINARY_DIR}/${name}.cpp "int main() { return 0; }\n")
        add_executable(${name} ${CMAKE_BINARY_DIR}/${name}.cpp)
    endif()
    target_link_libraries(${name} PRIVATE ${arg_LIBS} tessary_flags)
    target_compile_options(${name} PRIVATE -Wno-error -fpch-preprocess)
    target_precompile_headers(${name} PRIVATE ${arg_HEADERS})
    # What ccache knows the header by: two builds of the same libraries share what they compile.
    file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/CMakeFiles/${name}.dir/cmake_pch.hxx.gch.sum
        "${name} ${arg_HEADERS} ${Qt6_VERSION} ${CMAKE_CXX_COMPILER_VERSION} ${CMAKE_BUILD_TYPE} "
        "${CMAKE_CXX_FLAGS_RELWITHDEBINFO} ${TESSARY_SANITIZE} ${TESSARY_COVERAGE}")
endfunction()

function(tessary_use_precompiled target name)
    if(TARGET ${name})
        target_precompile_headers(${target} REUSE_FROM ${name})
        target_compile_options(${target} PRIVATE -fpch-preprocess)
    endif()
endfunction()
