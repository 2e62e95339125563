# The core library and one build of the orbs library for each tier, all tiers under one file name: the dynamic
# loader takes the one from glibc-hwcaps/ where the processor has it.
add_library(orbcore SHARED orbcore/src/control.cpp orbcore/src/status.cpp orbcore/src/threads.cpp)
target_include_directories(orbcore PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>)
target_link_libraries(orbcore PRIVATE $<BUILD_INTERFACE:orbs_flags> OpenMP::OpenMP_CXX)
target_compile_options(orbcore PRIVATE -fvisibility=hidden -fno-exceptions -fno-rtti)
target_link_options(orbcore PRIVATE -Wl,-z,relro,-z,now -Wl,--version-script=${PROJECT_SOURCE_DIR}/cmake/orbcore.map)
set_target_properties(orbcore PROPERTIES VERSION 5.2 SOVERSION 5.2
    LINK_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/orbcore.map)

# The C++ header is made from those of C.
file(GLOB orbs_headers CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/include/orbs/*.h)
set(orbs_made_include ${CMAKE_BINARY_DIR}/include)
file(MAKE_DIRECTORY ${orbs_made_include})
add_custom_command(OUTPUT ${orbs_made_include}/orbs.hpp
    COMMAND Python3::Interpreter ${PROJECT_SOURCE_DIR}/scripts/cpp.py ${orbs_made_include}/orbs.hpp
    DEPENDS scripts/cpp.py scripts/headers.py ${orbs_headers} VERBATIM)
add_custom_target(orbs_hpp ALL DEPENDS ${orbs_made_include}/orbs.hpp)

file(GLOB orbs_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/orbs/src/*/*.cpp)

if(ORBS_SANITIZE)
    # Guarding the kernels' arrays of registers, one by one, would take the compiler an hour: memory is checked, these
    # arrays are not.
    set_source_files_properties(
        ${PROJECT_SOURCE_DIR}/orbs/src/fft/fft_32f.cpp ${PROJECT_SOURCE_DIR}/orbs/src/fft/fft_64f.cpp
        ${PROJECT_SOURCE_DIR}/orbs/src/dft/dft_32f.cpp ${PROJECT_SOURCE_DIR}/orbs/src/dft/dft_64f.cpp
        PROPERTIES COMPILE_OPTIONS "-O1;-g1;-fno-var-tracking;--param;asan-stack=0")
endif()

function(orbs_add_tier target tier folder)
    add_library(${target} SHARED ${orbs_sources})
    target_include_directories(${target} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
                                         PRIVATE ${PROJECT_SOURCE_DIR}/orbs/src)
    target_compile_definitions(${target} PRIVATE HWY_COMPILE_ONLY_STATIC)
    target_compile_options(${target} PRIVATE ${orbs_tier_${tier}}
        -fvisibility=hidden -fno-exceptions -fno-rtti -fno-math-errno)
    target_precompile_headers(${target} PRIVATE <hwy/highway.h> <omp.h> <algorithm> <array> <atomic> <cmath> <cstring>)
    target_link_libraries(${target} PUBLIC orbcore PRIVATE $<BUILD_INTERFACE:orbs_flags> OpenMP::OpenMP_CXX)
    target_link_options(${target} PRIVATE -Wl,-z,relro,-z,now -Wl,--version-script=${PROJECT_SOURCE_DIR}/cmake/orbs.map)
    set_target_properties(${target} PROPERTIES
        OUTPUT_NAME orbsv8 VERSION 5.2 SOVERSION 5.2
        LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/${folder}
        LINK_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/orbs.map)
    # One folder a tier, with the core library beside it, for LD_LIBRARY_PATH: lib/ itself would let the loader choose.
    file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/tiers/${tier})
    file(CREATE_LINK ${CMAKE_BINARY_DIR}/lib/liborbcore.so.5.2
         ${CMAKE_BINARY_DIR}/tiers/${tier}/liborbcore.so.5.2 SYMBOLIC)
    file(CREATE_LINK ${CMAKE_BINARY_DIR}/${folder}/liborbsv8.so.5.2
         ${CMAKE_BINARY_DIR}/tiers/${tier}/liborbsv8.so.5.2 SYMBOLIC)
endfunction()

# Programs link the first tier of the list; the loader replaces it by another where the processor can run that.
set(orbs_other_tiers ${ORBS_TIERS})
list(POP_FRONT orbs_other_tiers orbs_first_tier)
orbs_add_tier(orbs ${orbs_first_tier} lib)
foreach(tier IN LISTS orbs_other_tiers)
    orbs_add_tier(orbs_${tier} ${tier} lib/glibc-hwcaps/x86-64-${tier})
endforeach()
add_dependencies(orbs orbs_hpp)
target_include_directories(orbs INTERFACE $<BUILD_INTERFACE:${orbs_made_include}>)
add_library(orbs::orbs ALIAS orbs)
