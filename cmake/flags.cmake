# What every target of the project is compiled with. The numeric options are part of the contract: no fused
# multiply-add and no re-association, so that every tier and ABI computes the same bits. What clang makes of round() is
# right only where the caller rounds to nearest.
add_library(orbs_flags INTERFACE)
target_compile_options(orbs_flags INTERFACE
    -Wall -Wextra -Wshadow -Wpointer-arith -Wundef
    -ffp-contract=off
    $<$<COMPILE_LANGUAGE:C>:-Wstrict-prototypes>
    $<$<COMPILE_LANGUAGE:CXX>:-Wmissing-declarations>
    $<$<COMPILE_LANG_AND_ID:CXX,Clang>:-fno-builtin-round>)
if(ORBS_SANITIZE)
    # -g1 tells file and line of a finding. More debug information, and more optimisation of code that is full of
    # checks, multiplies the time that compiling takes.
    add_compile_options(-fsanitize=${ORBS_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer -Og -g1)
    add_link_options(-fsanitize=${ORBS_SANITIZE})
endif()
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    # Callers may enter with a stack aligned to 4 bytes only.
    add_compile_options(-mssse3 -mfpmath=sse -mstackrealign)
endif()

set(orbs_tier_v8 -mssse3)
# Tuning changes the order of instructions only; this one schedules the FFT passes a tenth faster.
set(orbs_tier_v3 -march=x86-64-v3 -mtune=skylake -mno-fma -DHWY_DISABLE_PCLMUL_AES -DHWY_DISABLE_BMI2_FMA)
set(orbs_tier_v4 -march=x86-64-v4 -mtune=skylake -mprefer-vector-width=512
    -DHWY_DISABLE_PCLMUL_AES -DHWY_DISABLE_BMI2_FMA)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    # -mno-fma leaves all forms of AVX-512 in reach of the compiler, and g++ 12 takes them where it prefers vectors of 256
    # bits (vfmaddsub, in spite of -ffp-contract=off); scripts/check-fused looks whether it took one. Structures are
    # copied in 16 bytes at most, as in the other tiers: a wider load of what was just stored in pieces has to wait.
    # g++ 12 takes the don't-care lanes of its own intrinsics for uninitialised ones; the other tiers keep those
    # warnings. To clang, -mno-fma means no AVX-512 either.
    list(APPEND orbs_tier_v4 -mno-fma -mmove-max=128 -mstore-max=128 -Wno-maybe-uninitialized -Wno-uninitialized)
endif()
