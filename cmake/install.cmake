# What `cmake --install` lays down: headers, every tier of the library, orbs.pc and the CMake package. Everything finds
# everything else by relative paths, so an installed tree may be moved.
include(CMakePackageConfigHelpers)

if(NOT orbs_first_tier STREQUAL v8)
    install(CODE "message(FATAL_ERROR \"This build needs a processor of tier ${orbs_first_tier}. Install from the release preset.\")")
    return()
endif()

set(orbs_cmake_dir ${CMAKE_INSTALL_LIBDIR}/cmake/orbs)

set_target_properties(orbs orbcore PROPERTIES INSTALL_RPATH "\$ORIGIN")
install(TARGETS orbs orbcore EXPORT orbs
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
# Not exported: a program links the library in lib/, and the loader takes one of these where the processor can run it.
foreach(tier IN LISTS orbs_other_tiers)
    set_target_properties(orbs_${tier} PROPERTIES INSTALL_RPATH "\$ORIGIN/../..")
    install(TARGETS orbs_${tier} LIBRARY NAMELINK_SKIP
            DESTINATION ${CMAKE_INSTALL_LIBDIR}/glibc-hwcaps/x86-64-${tier})
endforeach()

install(DIRECTORY include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN "*.h" PATTERN "*.hpp")
install(FILES ${orbs_made_include}/orbs.hpp DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

file(RELATIVE_PATH orbs_pc_prefix ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
file(RELATIVE_PATH orbs_pc_libdir ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_LIBDIR})
file(RELATIVE_PATH orbs_pc_includedir ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_INCLUDEDIR})
configure_file(cmake/orbs.pc.in orbs.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/orbs.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

write_basic_package_version_file(orbsConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_BINARY_DIR}/orbsConfigVersion.cmake DESTINATION ${orbs_cmake_dir})
install(EXPORT orbs FILE orbsConfig.cmake NAMESPACE orbs:: DESTINATION ${orbs_cmake_dir})
