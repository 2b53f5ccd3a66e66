# tessary_library(<folder> [SYSTEM <libs>...] [DEPENDS <folders>...])
#
# One static library a folder of src/, named tessary_<folder>. DEPENDS lists the folders that it may
# include: what is not listed is not linked.
function(tessary_library folder)
    cmake_parse_arguments(arg "" "" "SYSTEM;DEPENDS" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
    add_library(tessary_${folder} STATIC ${sources})
    target_include_directories(tessary_${folder} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    list(TRANSFORM arg_DEPENDS PREPEND tessary_)
    target_link_libraries(tessary_${folder} PUBLIC ${arg_DEPENDS} ${arg_SYSTEM} tessary_flags)
endfunction()

# tessary_test(<file without .cpp> LABEL <unit|phones|window|slow|qemu> LIBS <libs>... [TIMEOUT s])
#
# One executable and one ctest entry a test file.
function(tessary_test name)
    cmake_parse_arguments(arg "" "LABEL;TIMEOUT" "LIBS" ${ARGN})
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 120)
    endif()
    add_executable(${name} ${name}.cpp)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(${name} PRIVATE ${arg_LIBS} GTest::gmock_main tessary_flags)
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES LABELS ${arg_LABEL} TIMEOUT ${arg_TIMEOUT})
endfunction()

# tessary_uses_qt_threads(<test>...)
#
# For tests of what Qt does on threads of its own (HTTP, pictures, windows). Those run none of our code and hand all over
# under mutexes that the thread sanitizer does not see: it looks at our code alone there.
function(tessary_uses_qt_threads)
    set_property(TEST ${ARGN} APPEND PROPERTY ENVIRONMENT_MODIFICATION
        "TSAN_OPTIONS=string_append::ignore_interceptors_accesses=1")
endfunction()
