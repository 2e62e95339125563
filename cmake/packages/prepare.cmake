# Run by cpack when the files of all packages lie in their folders: what depends on these files. Its variables are cpack's.
set(staged ${CPACK_TEMPORARY_DIRECTORY})
set(made ${CPACK_PACKAGE_DIRECTORY})
set(library liborbs5.2)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # it would stand above each package's own
# Debian's tools want a source package around them.
file(WRITE ${made}/control/debian/control "Source: orbs\n\nPackage: ${library}\nArchitecture: any\n")

function(run)
    execute_process(COMMAND ${ARGN} WORKING_DIRECTORY ${made}/control OUTPUT_STRIP_TRAILING_WHITESPACE
                    OUTPUT_VARIABLE output ERROR_VARIABLE error RESULT_VARIABLE status)
    if(NOT status EQUAL 0)
        message(FATAL_ERROR "${ARGV0}: ${status}\n${error}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

# One build makes the same packages whenever it is asked to.
if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})
    run(dpkg-parsechangelog -l${CMAKE_CURRENT_LIST_DIR}/changelog -STimestamp)
    set(ENV{SOURCE_DATE_EPOCH} ${output})
endif()

file(GLOB changelogs ${staged}/*/usr/share/doc/*/changelog)
run(gzip -9nf ${changelogs})

# Scripts that Debian has as packages are links to these: mended there, they are mended here.
file(GLOB scripts ${staged}/reference/usr/share/doc/orbs-doc/html/_static/*.js)
foreach(script IN LISTS scripts)
    cmake_path(GET script FILENAME name)
    set(shared /usr/share/javascript/sphinxdoc/1.0/${name})
    if(EXISTS ${shared})
        file(SHA256 ${script} here)
        file(SHA256 ${shared} there)
        if(here STREQUAL there)
            file(CREATE_LINK ../../../../javascript/sphinxdoc/1.0/${name} ${script} SYMBOLIC)
        endif()
    endif()
endforeach()

# The libraries: which symbols programs may rely on since which version, and what they need themselves.
set(root ${staged}/package_runtime)
file(GLOB_RECURSE libraries ${root}/usr/lib/*.so.*)
foreach(file IN LISTS libraries)
    run(strip --strip-unneeded --remove-section=.comment --remove-section=.note ${file})
endforeach()
file(WRITE ${made}/shlibs "liborbcore 5.2 ${library} (>= 5.2)\nliborbsv8 5.2 ${library} (>= 5.2)\n")
file(GLOB_RECURSE named LIST_DIRECTORIES FALSE ${root}/usr/lib/*/lib*.so.*)
list(FILTER named EXCLUDE REGEX glibc-hwcaps)
list(GET named 0 libdir)
cmake_path(REMOVE_FILENAME libdir)
list(TRANSFORM named PREPEND -e)
run(dpkg-gensymbols -q -p${library} -v${CPACK_PACKAGE_VERSION} -P${root} -c4
    -I${CMAKE_CURRENT_LIST_DIR}/symbols -O${made}/symbols ${named})
run(dpkg-shlibdeps -O --ignore-missing-info -x${library} -l${libdir} ${libraries})
string(REGEX REPLACE "^.*Depends=" "" CPACK_DEBIAN_PACKAGE_RUNTIME_PACKAGE_DEPENDS "${output}")
