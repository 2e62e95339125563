# `cpack` in a build of all tiers makes Debian packages: liborbs5.2, liborbs-dev, python3-orbs, orbs-doc, in
# build/packages/; scripts/packages.sh does what comes before it. Each package is a component of the installation;
# cmake/packages/ holds what only packages have.
set(ORBS_MAINTAINER "orbs maintainers <maintainers@orbs.example>" CACHE STRING "Name and address in Debian packages")
set(orbs_packages ${CMAKE_BINARY_DIR}/packages)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME orbs)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT ${ORBS_MAINTAINER})
set(CPACK_PACKAGE_DIRECTORY ${orbs_packages})
set(CPACK_OUTPUT_FILE_PREFIX ${PROJECT_SOURCE_DIR}/build/packages)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_PACKAGE_SOURCE orbs)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)

# A package of one component of the installation. CONTROL: its maintainer scripts and the like.
function(orbs_package name component)
    cmake_parse_arguments(PARSE_ARGV 2 arg "" "ARCHITECTURE;SECTION;SUMMARY;TEXT;DEPENDS;SUGGESTS" "CONTROL")
    string(TOUPPER CPACK_DEBIAN_${component} key)
    set(${key}_PACKAGE_NAME ${name} PARENT_SCOPE)
    set(${key}_PACKAGE_SECTION ${arg_SECTION} PARENT_SCOPE)
    set(${key}_PACKAGE_DEPENDS ${arg_DEPENDS} PARENT_SCOPE)
    set(${key}_PACKAGE_SUGGESTS ${arg_SUGGESTS} PARENT_SCOPE)
    set(${key}_PACKAGE_ARCHITECTURE ${arg_ARCHITECTURE} PARENT_SCOPE)
    set(${key}_PACKAGE_CONTROL_EXTRA ${arg_CONTROL} PARENT_SCOPE)
    set(${key}_DESCRIPTION "${arg_SUMMARY}\n${arg_TEXT}" PARENT_SCOPE)
    set(CPACK_COMPONENTS_ALL ${CPACK_COMPONENTS_ALL} ${component} PARENT_SCOPE)

    set(folder ${CMAKE_INSTALL_DATADIR}/doc/${name})
    install(FILES ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/packages/copyright
                  ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/packages/changelog
            DESTINATION ${folder} COMPONENT ${component} EXCLUDE_FROM_ALL)
    set(overrides ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/packages/${name}.overrides)
    if(EXISTS ${overrides})
        install(FILES ${overrides} DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides RENAME ${name}
                COMPONENT ${component} EXCLUDE_FROM_ALL)
    endif()
endfunction()

if(ORBS_TIERS STREQUAL "v8;v3;v4" AND CMAKE_SIZEOF_VOID_P EQUAL 8 AND NOT ORBS_SANITIZE)
    file(STRINGS cmake/packages/changelog orbs_latest LIMIT_COUNT 1)
    if(NOT orbs_latest MATCHES "^orbs \\(${PROJECT_VERSION}\\) ")
        message(FATAL_ERROR "cmake/packages/changelog does not begin with version ${PROJECT_VERSION}")
    endif()
    orbs_install(lib/${CMAKE_LIBRARY_ARCHITECTURE} package_runtime package_development EXCLUDE_FROM_ALL)
    orbs_package(liborbs5.2 package_runtime
        SECTION libs
        SUMMARY "signal-processing primitives, shared libraries"
        TEXT "Vector arithmetic, statistics, transforms, filters and what stands around
them, with a C interface. The same bits come out on every processor, at
every alignment and for every number of threads.

The libraries come for SSSE3, AVX2 and AVX-512; the dynamic loader takes
the best that the processor can run."
        CONTROL ${PROJECT_SOURCE_DIR}/cmake/packages/triggers ${orbs_packages}/shlibs ${orbs_packages}/symbols)
    orbs_package(liborbs-dev package_development
        SECTION libdevel
        DEPENDS "liborbs5.2 (= ${PROJECT_VERSION})"
        SUGGESTS orbs-doc
        SUMMARY "signal-processing primitives, headers for C and C++"
        TEXT "What building programs with orbs takes: headers for C99 and C++17, the
links of the libraries, and files for pkg-config and CMake.")
    orbs_package(python3-orbs python
        SECTION python
        ARCHITECTURE all
        DEPENDS "python3:any (>= 3.9), python3-numpy, python3-cffi-backend, liborbs5.2 (>= ${PROJECT_VERSION})"
        SUGGESTS orbs-doc
        SUMMARY "signal-processing primitives on numpy arrays"
        TEXT "The members of orbs as Python functions on numpy arrays, and its filters,
transforms and generators as classes."
        CONTROL ${PROJECT_SOURCE_DIR}/cmake/packages/postinst ${PROJECT_SOURCE_DIR}/cmake/packages/prerm)
    orbs_package(orbs-doc reference
        SECTION doc
        ARCHITECTURE all
        DEPENDS libjs-sphinxdoc
        SUMMARY "signal-processing primitives, reference"
        TEXT "Every member of orbs with its statuses, examples and pictures, and guides:
choosing a function, scale factors, streams, spectra, threads. To be read
in a browser; it can be searched.")
    install(FILES cmake/packages/orbs-doc.doc-base DESTINATION ${CMAKE_INSTALL_DATADIR}/doc-base RENAME orbs-doc.orbs
            COMPONENT reference EXCLUDE_FROM_ALL)
    # A folder of the distribution's library path needs no search path in its files.
    install(CODE "
        file(GLOB_RECURSE libraries \$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/lib/*.so.${PROJECT_VERSION})
        foreach(library IN LISTS libraries)
            file(RPATH_REMOVE FILE \${library})
        endforeach()" COMPONENT package_runtime EXCLUDE_FROM_ALL)
    set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/packages/prepare.cmake)
else()
    install(CODE "message(FATAL_ERROR \"Debian packages hold all tiers: make them in a build of the release preset.\")"
            COMPONENT package_runtime EXCLUDE_FROM_ALL)
    set(CPACK_COMPONENTS_ALL package_runtime)
endif()
include(CPack)
