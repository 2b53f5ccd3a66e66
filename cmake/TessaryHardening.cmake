# What makes a fault in memory hard to use for an attack: in every program, checked in the package by
# scripts/check-package.

include(CheckCXXCompilerFlag)
include(CheckPIESupported)

# Programs lie anywhere in memory.
check_pie_supported(LANGUAGES CXX)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
# Else link-time optimisation copies Qt's own data into the program, and Qt goes on with its own.
check_cxx_compiler_flag(-mno-direct-extern-access TESSARY_HAS_INDIRECT_ACCESS)
if(TESSARY_HAS_INDIRECT_ACCESS)
    target_link_options(tessary_flags INTERFACE -mno-direct-extern-access)
endif()

target_compile_options(tessary_flags INTERFACE -fstack-protector-strong)
check_cxx_compiler_flag(-fcf-protection=full TESSARY_HAS_CF_PROTECTION) # x86 only
if(TESSARY_HAS_CF_PROTECTION)
    target_compile_options(tessary_flags INTERFACE -fcf-protection=full)
endif()
# The C library's checks need an optimiser, and a sanitizer has checks of its own.
if(NOT TESSARY_SANITIZE AND NOT CMAKE_BUILD_TYPE STREQUAL "Debug")
    target_compile_options(tessary_flags INTERFACE -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
endif()
# Addresses of library functions are looked up at the start, then nothing can overwrite them.
target_link_options(tessary_flags INTERFACE -Wl,-z,relro,-z,now)
