# tessary_note_arrows(<folder> <folders>...): which folders one sees, for the test of the includes.
function(tessary_note_arrows)
    string(JOIN " " line ${ARGN})
    set_property(GLOBAL APPEND PROPERTY TESSARY_ARROWS "${line}")
endfunction()

# tessary_library(<folder> [MOC] [DEPENDS <folders>...] [PUBLIC <libs>...] [PRIVATE <libs>...])
#
# One static library a folder of src/, or a room of one, named tessary_<folder>_<room>; the same for
# simulator/. DEPENDS lists the folders that it may include: what is not listed is not linked. MOC is
# for folders with QObjects of their own.
function(tessary_library folder)
    cmake_parse_arguments(arg "MOC" "" "DEPENDS;PUBLIC;PRIVATE" ${ARGN})
    tessary_note_arrows(${folder} ${arg_DEPENDS})
    string(REPLACE "/" "_" target tessary_${folder})
    set(place ${PROJECT_SOURCE_DIR}/src/${folder})
    if(folder MATCHES "^simulator/")
        set(place ${PROJECT_SOURCE_DIR}/${folder})
    endif()
    file(GLOB sources CONFIGURE_DEPENDS ${place}/*.cpp ${place}/*.h)
    add_library(${target} STATIC ${sources})
    target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR})
    list(TRANSFORM arg_DEPENDS PREPEND tessary_)
    list(TRANSFORM arg_DEPENDS REPLACE "/" "_")
    target_link_libraries(${target} PUBLIC ${arg_DEPENDS} ${arg_PUBLIC} tessary_flags PRIVATE ${arg_PRIVATE})
    set_target_properties(${target} PROPERTIES AUTOMOC ${arg_MOC} LINKER_LANGUAGE CXX)
    tessary_use_precompiled(${target} tessary_library_headers)
endfunction()

# tessary_rooms(<folder> <rooms>...): tessary_<folder> is all rooms of a folder.
function(tessary_rooms folder)
    tessary_note_arrows(${folder} ${ARGN})
    add_library(tessary_${folder} INTERFACE)
    foreach(room ${ARGN})
        string(REPLACE "/" "_" target tessary_${room})
        target_link_libraries(tessary_${folder} INTERFACE ${target})
    endforeach()
endfunction()

# tessary_test(<file without .cpp> LABEL <unit|phones|window|slow|qemu> LIBS <libs>... [TIMEOUT s])
#
# One executable and one ctest entry a test file.
function(tessary_test name)
    cmake_parse_arguments(arg "" "LABEL;TIMEOUT" "LIBS" ${ARGN})
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 400) # s; tells a test that hangs from a busy machine
    endif()
    add_executable(${name} ${name}.cpp)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(${name} PRIVATE ${arg_LIBS} GTest::gmock_main tessary_flags)
    tessary_use_precompiled(${name} tessary_test_headers)
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
