# What `cmake --install` lays down: headers, every tier of the library, orbs.pc and the CMake package. Everything finds
# everything else by relative paths, so an installed tree may be moved. Components: runtime, development; only if they are
# named: python, reference.
include(CMakePackageConfigHelpers)

if(NOT orbs_first_tier STREQUAL v8)
    install(CODE "message(FATAL_ERROR \"This build needs a processor of tier ${orbs_first_tier}. Install from the release preset.\")"
            ALL_COMPONENTS)
    return()
endif()

set_target_properties(orbs orbcore PROPERTIES INSTALL_RPATH "\$ORIGIN")
foreach(tier IN LISTS orbs_other_tiers)
    set_target_properties(orbs_${tier} PROPERTIES INSTALL_RPATH "\$ORIGIN/../..")
endforeach()
write_basic_package_version_file(orbsConfigVersion.cmake COMPATIBILITY SameMinorVersion)

# The library in PREFIX/LIBDIR. Further arguments go with every rule of installation.
function(orbs_install libdir runtime development)
    # Several such installations are told apart by the names of their components.
    set(made ${CMAKE_BINARY_DIR}/install/${development})
    set(export orbs_${development})
    set(for_runtime COMPONENT ${runtime} ${ARGN})
    set(for_development COMPONENT ${development} ${ARGN})

    install(TARGETS orbs orbcore EXPORT ${export}
            LIBRARY DESTINATION ${libdir} COMPONENT ${runtime} NAMELINK_COMPONENT ${development} ${ARGN}
            INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
    # Not exported: a program links the library in lib/, and the loader takes one of these where the processor can run it.
    foreach(tier IN LISTS orbs_other_tiers)
        install(TARGETS orbs_${tier} LIBRARY NAMELINK_SKIP
                DESTINATION ${libdir}/glibc-hwcaps/x86-64-${tier} ${for_runtime})
    endforeach()

    install(DIRECTORY include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} ${for_development}
            FILES_MATCHING PATTERN "*.h" PATTERN "*.hpp")
    install(FILES ${orbs_made_include}/orbs.hpp DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} ${for_development})

    cmake_path(ABSOLUTE_PATH libdir BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX} OUTPUT_VARIABLE full_libdir)
    file(RELATIVE_PATH orbs_pc_prefix ${full_libdir}/pkgconfig ${CMAKE_INSTALL_PREFIX})
    file(RELATIVE_PATH orbs_pc_libdir ${CMAKE_INSTALL_PREFIX} ${full_libdir})
    file(RELATIVE_PATH orbs_pc_includedir ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_INCLUDEDIR})
    configure_file(cmake/orbs.pc.in ${made}/orbs.pc @ONLY)
    install(FILES ${made}/orbs.pc DESTINATION ${libdir}/pkgconfig ${for_development})

    install(FILES cmake/orbsConfig.cmake ${CMAKE_BINARY_DIR}/orbsConfigVersion.cmake
            DESTINATION ${libdir}/cmake/orbs ${for_development})
    install(EXPORT ${export} FILE orbsTargets.cmake NAMESPACE orbs:: DESTINATION ${libdir}/cmake/orbs ${for_development})
endfunction()
orbs_install(${CMAKE_INSTALL_LIBDIR} runtime development)

# Made when it is asked for, by Debian's Python, of which CMake may have found another.
install(CODE "execute_process(COMMAND /usr/bin/python3 ${PROJECT_SOURCE_DIR}/python/build.py --installed
    \$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/lib/python3/dist-packages COMMAND_ERROR_IS_FATAL ANY)"
        COMPONENT python EXCLUDE_FROM_ALL)
install(CODE "if(NOT EXISTS ${PROJECT_SOURCE_DIR}/build/docs/html/index.html)
        message(FATAL_ERROR \"The reference is not built: run scripts/docs.sh\")
    endif()" COMPONENT reference EXCLUDE_FROM_ALL)
install(DIRECTORY build/docs/html DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/orbs-doc
        COMPONENT reference EXCLUDE_FROM_ALL PATTERN .buildinfo EXCLUDE)
